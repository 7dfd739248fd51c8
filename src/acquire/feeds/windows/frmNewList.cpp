#include "acquire/feeds/windows/frmNewList.h"

#include <fmt/format.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "acquire/feeds/live/source_standing.h"
#include "acquire/feeds/windows/source_card.h"
#include "base/text.h"
#include "base/windows/display_text.h"
#include "base/windows/screen_room.h"
#include "base/windows/wheel_guard.h"
#include "shell/run_control.h"
#include "shell/run_report.h"
#include "shell/settings/choices.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_draft.h"
#include "shell/settings/settings_files.h"
#include "store/columns.h"

namespace brantlow {

namespace {

constexpr int kLeastWidth = 600;
// A person who waits for longer is asked first.
constexpr double kLongSeconds = 600;
constexpr int kTickerLines = 5;
constexpr std::array<double, 4> kYears = {2, 5, 10, 20};
// Whose list of symbols is offered first where none is chosen: it needs no key.
constexpr std::string_view kUsualLists = "nasdaq";

// Whose prices are offered first where no source is set up.
constexpr std::string_view kUsualPrices = "massive";

struct KindRow {
    const char* words;
    const char* kind;
};
constexpr std::array<KindRow, 3> kKinds = {
    {{"Stocks", "stock"}, {"ETFs", "etf"}, {"Stocks and ETFs", "all"}}};

std::string PlainWords(const std::string& sentence) {
    return sentence.empty() || sentence.ends_with('.') ? sentence : sentence + '.';
}

}  // namespace

frmNewList::frmNewList(Session& session, Web& web, NewListOf begin, QWidget* parent)
    : QDialog(parent),
      session_(session),
      desk_(session, web),
      ofTickers_(new QRadioButton(QStringLiteral("Tickers of &my own"))),
      ofMarket_(new QRadioButton(QStringLiteral("The l&ist of a market"))),
      tickers_(new QPlainTextEdit),
      kind_(new QComboBox),
      text_(new QLineEdit),
      name_(new QLineEdit),
      fills_(new QGroupBox(QStringLiteral("&Fetch histories and quotes now"))),
      years_(new QComboBox),
      outcome_(new QLabel),
      progress_(new QProgressBar) {
    setObjectName(QStringLiteral("frmNewList"));
    setWindowTitle(QStringLiteral("New List"));
    auto* layout = new QVBoxLayout(this);
    auto* kinds = new QHBoxLayout;
    ofTickers_->setObjectName(QStringLiteral("optTickers"));
    ofTickers_->setToolTip(QStringLiteral("Type tickers, or paste them from anywhere"));
    ofMarket_->setObjectName(QStringLiteral("optMarket"));
    ofMarket_->setToolTip(QStringLiteral("Take all symbols of an exchange, with names"));
    kinds->addWidget(ofTickers_);
    kinds->addWidget(ofMarket_);
    kinds->addStretch();
    layout->addLayout(kinds);
    layout->addWidget(tickersPart_ = BuildTickers());
    layout->addWidget(marketPart_ = BuildMarket());
    layout->addWidget(BuildSource());
    layout->addStretch();
    layout->addWidget(BuildButtons());
    (begin == NewListOf::Tickers ? ofTickers_ : ofMarket_)->setChecked(true);
    fills_->setChecked(begin == NewListOf::Tickers);
    connect(ofTickers_, &QRadioButton::toggled, this, &frmNewList::ShowKind);
    ShowKind();
    setMinimumWidth(kLeastWidth);
}

QWidget* frmNewList::BuildTickers() {
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    auto* words = new QLabel(QStringLiteral("Ti&ckers, between blanks, commas or line ends:"));
    words->setBuddy(tickers_);
    tickers_->setObjectName(QStringLiteral("txtTickers"));
    tickers_->setPlaceholderText(QStringLiteral("AAPL MSFT BRK.B ^GSPC"));
    tickers_->setTabChangesFocus(true);
    tickers_->setFixedHeight(kTickerLines * tickers_->fontMetrics().lineSpacing() +
                             2 * tickers_->frameWidth() + 8);
    connect(tickers_, &QPlainTextEdit::textChanged, this, &frmNewList::ShowRemark);
    layout->addWidget(words);
    layout->addWidget(tickers_);
    return part;
}

QWidget* frmNewList::BuildMarket() {
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    lists_ = new SourceCard(desk_, Capability::Symbols, QStringLiteral("Symbols &listed by:"), {});
    lists_->setObjectName(QStringLiteral("Lists"));
    const std::string chosen = desk_.Choices().For(Capability::Symbols);
    lists_->Select(chosen.empty() ? kUsualLists : std::string_view(chosen));
    layout->addWidget(lists_);
    auto* frame = new QGroupBox(QStringLiteral("Exchanges"));
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < kExchangeNames.size(); ++i) {
        exchanges_[i] = new QCheckBox(Name(kExchangeNames[i]));
        exchanges_[i]->setObjectName(QStringLiteral("chkExchange%1").arg(i + 1));
        exchanges_[i]->setChecked(true);
        const int place = static_cast<int>(i);
        grid->addWidget(exchanges_[i], place / 3, place % 3);
    }
    layout->addWidget(frame);
    auto* form = new QFormLayout;
    GuardWheel(*kind_);
    kind_->setObjectName(QStringLiteral("cboKind"));
    for (const KindRow& row : kKinds) {
        kind_->addItem(QString::fromLatin1(row.words), QString::fromLatin1(row.kind));
    }
    form->addRow(QStringLiteral("Kin&d:"), kind_);
    text_->setObjectName(QStringLiteral("txtMatch"));
    text_->setPlaceholderText(QStringLiteral("all"));
    text_->setToolTip(QStringLiteral("Only symbols with this text in their ticker or name"));
    form->addRow(QStringLiteral("&With the text:"), text_);
    layout->addLayout(form);
    return part;
}

// The hosts of the standard source are placeholders until somebody has set it up.
std::string frmNewList::ProposedSource() const {
    const std::string chosen = desk_.Choices().For(Capability::History);
    const bool isSetUp = IsRegularFile(session_.DataFile("Hosts.ini")) || UsesUserSource(session_.settings);
    return chosen.empty() && !isSetUp ? std::string(kUsualPrices) : chosen;
}

QWidget* frmNewList::BuildSource() {
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    auto* form = new QFormLayout;
    name_->setObjectName(QStringLiteral("txtName"));
    name_->setToolTip(QStringLiteral("The name of the new quote file in the folder Data"));
    form->addRow(QStringLiteral("Name of the &table:"), name_);
    layout->addLayout(form);
    fills_->setObjectName(QStringLiteral("fraFill"));
    fills_->setCheckable(true);
    fills_->setToolTip(QStringLiteral("Without it the table holds tickers alone"));
    auto* inFrame = new QVBoxLayout(fills_);
    prices_ = new SourceCard(desk_, Capability::History, QStringLiteral("Prices f&rom:"),
                             QStringLiteral("Standard source of the settings"));
    prices_->setObjectName(QStringLiteral("Prices"));
    prices_->Select(ProposedSource());
    inFrame->addWidget(prices_);
    auto* row = new QFormLayout;
    GuardWheel(*years_);
    years_->setObjectName(QStringLiteral("cboYears"));
    for (const double years : kYears) {
        years_->addItem(QStringLiteral("%1 years").arg(years), years);
        if (Get(session_.settings, kHistoryYears) == years) years_->setCurrentIndex(years_->count() - 1);
    }
    row->addRow(QStringLiteral("Hi&story of:"), years_);
    inFrame->addLayout(row);
    layout->addWidget(fills_);
    connect(prices_, &SourceCard::Changed, this, &frmNewList::ShowRemark);
    connect(lists_, &SourceCard::Changed, this, &frmNewList::FitHeight);
    connect(years_, &QComboBox::currentIndexChanged, this, &frmNewList::ShowRemark);
    return part;
}

QWidget* frmNewList::BuildButtons() {
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    outcome_->setObjectName(QStringLiteral("lblOutcome"));
    outcome_->setTextFormat(Qt::PlainText);
    outcome_->setWordWrap(true);
    layout->addWidget(outcome_);
    progress_->setObjectName(QStringLiteral("ProgressBar1"));
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    progress_->hide();
    layout->addWidget(progress_);
    auto* buttons = new QDialogButtonBox;
    create_ = buttons->addButton(QStringLiteral("Create"), QDialogButtonBox::ActionRole);
    create_->setObjectName(QStringLiteral("cmdCreate"));
    create_->setToolTip(QStringLiteral("Make the table, open it and fill it"));
    create_->setDefault(true);
    QPushButton* const cancel = buttons->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setToolTip(QStringLiteral("Make no table"));
    cancel->setAutoDefault(false);
    connect(create_, &QPushButton::clicked, this, &frmNewList::Create);
    connect(buttons, &QDialogButtonBox::rejected, this, &frmNewList::reject);
    layout->addWidget(buttons);
    return part;
}

// The name that is proposed follows the kind, until another one is typed.
void frmNewList::ShowKind() {
    const bool isMarket = ofMarket_->isChecked();
    tickersPart_->setVisible(!isMarket);
    marketPart_->setVisible(isMarket);
    if (!name_->isModified()) name_->setText(Shown(FreeTableName(session_, isMarket ? "Market" : "My List")));
    if (!isMarket) tickers_->setFocus();
    ShowRemark();
}

TypedTickers frmNewList::Typed() const {
    return ReadTypedTickers(tickers_->toPlainText().toStdString());
}

// Wrapped sentences need more room the longer they are.
void frmNewList::FitHeight() {
    layout()->activate();
    const int width = std::max(this->width(), kLeastWidth);
    const int most = RoomOnScreen(*this).height();
    resize(width, std::min(layout()->totalHeightForWidth(width), most));
}

void frmNewList::ShowRemark() {
    outcome_->clear();
    const SourceDefinition* const source = prices_->Source();
    const std::size_t count = ofMarket_->isChecked() ? 0 : Typed().tickers.size();
    QString remark;
    if (source && count > 0) {
        const double seconds = SecondsOfFilling(*source, count);
        remark = QStringLiteral("%1: %2 at the limits of %3.")
                     .arg(Shown(CountedTickers(count)), Shown(DurationWords(seconds)), Shown(source->title));
    }
    prices_->ShowRemark(remark);
    FitHeight();
}

SymbolChoice frmNewList::Choice() const {
    SymbolChoice choice;
    choice.kind = kind_->currentData().toString().toStdString();
    choice.text = Trim(text_->text().toStdString());
    bool isAll = true;
    for (const QCheckBox* box : exchanges_) isAll = isAll && box->isChecked();
    for (std::size_t i = 0; !isAll && i < exchanges_.size(); ++i) {
        if (exchanges_[i]->isChecked()) choice.exchanges.emplace_back(kExchangeNames[i]);
    }
    return choice;
}

void frmNewList::Tell(const std::string& sentence) {
    outcome_->setText(Shown(PlainWords(sentence)));
    FitHeight();
}

// Whatever can be refused is refused before anything is asked or written.
bool frmNewList::Prepare(const std::string& name) {
    std::string refusal = NewTableRefusal(session_, name);
    if (refusal.empty() && ofTickers_->isChecked()) {
        const TypedTickers typed = Typed();
        refusal = typed.tickers.empty() ? "Enter a ticker first." : typed.refusal;
        if (refusal.empty() && typed.tickers.size() >= kMostRows)
            refusal = "A table holds at most 17,999 tickers.";
    }
    if (refusal.empty() && ofMarket_->isChecked()) {
        bool any = false;
        for (const QCheckBox* box : exchanges_) any = any || box->isChecked();
        refusal = any ? lists_->Accept() : "Choose an exchange first.";
    }
    if (refusal.empty() && fills_->isChecked()) refusal = prices_->Accept();
    Tell(refusal);
    return refusal.empty();
}

NewTable frmNewList::Make(const std::string& name) {
    if (ofMarket_->isChecked()) {
        BeginRun(session_.run);
        return CreateMarketTable(desk_.World(), *lists_->Source(), Choice(), name);
    }
    std::vector<SourceSymbol> symbols;
    for (const std::string& ticker : Typed().tickers) symbols.push_back({ticker, {}, {}, {}});
    return CreateTable(session_, symbols, name);
}

// Later updates ask the same source.
bool frmNewList::KeepChoices() {
    const std::string refusal = desk_.ChooseForPrices(prices_->Source());
    Tell(refusal);
    return refusal.empty();
}

bool frmNewList::KeepYears() {
    SettingsTables draft = session_.settings;
    Set(draft, kHistoryYears, years_->currentData().toDouble());
    const Failure fault =
        ApplySettings(draft, SettingsFile::Data, OrdinaryChange(session_.AppPath), session_.settings);
    if (fault) Tell(Sentence(fault));
    return !fault;
}

void frmNewList::ShowAsking(bool isAsking) {
    isAsking_ = isAsking;
    progress_->setVisible(isAsking);
    create_->setEnabled(!isAsking);
    for (QWidget* part :
         {tickersPart_, marketPart_, static_cast<QWidget*>(fills_), static_cast<QWidget*>(name_)}) {
        part->setEnabled(!isAsking);
    }
}

// How long a market's list takes is known only once it is there.
bool frmNewList::WantsAll(const std::string& name, std::size_t tickers) {
    const SourceDefinition* const source = prices_->Source();
    const double seconds = source ? SecondsOfFilling(*source, tickers) : 0;
    if (seconds < kLongSeconds) return true;
    return session_.person.Ask(
        fmt::format("{} has {}; their histories and quotes take {} at the limits of {}. Do you want to fetch "
                    "them now?",
                    name, CountedTickers(tickers), DurationWords(seconds), source->title));
}

double frmNewList::SecondsOfFilling(const SourceDefinition& source, std::size_t tickers) {
    return SecondsOfPopulate(desk_.World(), source, tickers, years_->currentData().toDouble()) +
           SecondsOfUpdate(desk_.World(), source, tickers);
}

void frmNewList::Create() {
    const std::string name = TableNameOf(name_->text().toStdString());
    if (isAsking_ || !Prepare(name)) return;
    bool fills = fills_->isChecked();
    if (fills && (!KeepChoices() || !KeepYears())) return;
    if (ofMarket_->isChecked()) Tell("Asking " + lists_->Source()->title + " for its symbols ...");
    ShowAsking(true);
    const NewTable table = Make(name);
    ShowAsking(false);
    if (closesAfterwards_ && !table.refusal.empty()) return QDialog::reject();
    if (!table.refusal.empty()) return Tell(table.refusal);
    if (table.left > 0) {
        session_.person.Say(std::to_string(table.left) +
                            " further symbols are left out: a table holds 17,999.");
    }
    if (fills && ofMarket_->isChecked()) fills = WantsAll(name, table.tickers);
    accept();
    Q_EMIT TableMade(name, fills);
}

void frmNewList::reject() {
    if (!isAsking_) return QDialog::reject();
    closesAfterwards_ = true;
    session_.run.ProcessCommand = kStopRun;
}

}  // namespace brantlow
