#include "acquire/feeds/windows/frmSources.h"

#include <fmt/format.h>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "acquire/feeds/live/source_check.h"
#include "acquire/feeds/live/source_consent.h"
#include "acquire/feeds/live/source_copy.h"
#include "acquire/feeds/live/source_standing.h"
#include "acquire/feeds/windows/source_card.h"
#include "acquire/feeds/windows/source_key_field.h"
#include "base/text.h"
#include "base/windows/display_text.h"
#include "base/windows/labels.h"
#include "base/windows/screen_room.h"
#include "base/windows/text_editor.h"
#include "base/windows/wheel_guard.h"
#include "base/windows/wrapped_cells.h"
#include "shell/run_control.h"

namespace brantlow {

namespace {

constexpr QSize kWindowSize(900, 760);
constexpr int kListRows = 10;
constexpr int kFewestListRows = 4;
constexpr int kChoiceLetters = 14;
constexpr int kTickerFieldWidth = 110;
constexpr int kNameRole = Qt::UserRole;
constexpr int kRefusalRole = Qt::UserRole + 1;

enum Column { kTitle, kGives, kKey, kChosenFor, kState };

// In the order of the lines of VTRSRCset.ini.
struct ChoiceRow {
    const char* control;
    const char* label;
    const char* toolTip;
    const char* none;
    // Its words take a row of their own.
    bool isLong = false;
};
constexpr std::array<ChoiceRow, kSourceLines> kChoiceRows = {{
    {"cboQuotes", "&Quotes of the day:", "Who is asked by Update Quotes", "Standard source"},
    {"cboHistory", "&History:", "Who is asked by Populate Database and for the history of a new ticker",
     "Standard source"},
    {"cboSplits", "S&plits:", "Who tells the splits after an update",
     "Source of the quotes, else the standard source", true},
    {"cboFundamentals",
     "F&undamentals:", "Who fills earnings, sales and dividends that the quotes come without", "Nobody"},
    {"cboSymbols", "S&ymbols:", "Whose list of symbols makes a table of a market", "Nobody"},
    {"cboFallback", "U&nknown tickers:", "Who is asked for tickers that the first source does not know",
     "Nobody"},
}};

// What a choice needs of a source; the last one is that for unknown tickers.
Capability NeededFor(std::size_t line) {
    return line < kCapabilityCount ? static_cast<Capability>(line) : Capability::History;
}

QString KeyText(KeyStanding standing) {
    constexpr std::array<const char*, 4> kTexts = {"none needed", "present", "present (environment)",
                                                   "missing"};
    return QString::fromLatin1(kTexts.at(static_cast<std::size_t>(standing)));
}

QString ChosenText(const SourceStanding& standing) {
    std::string text = CapabilityWords(standing.chosenFor);
    if (standing.isFallback) text.append(text.empty() ? "" : ", ").append("unknown tickers");
    return Shown(text);
}

QString StateText(const SourceStanding& standing) {
    if (standing.rest.until > 0) {
        return QStringLiteral("left alone until %1").arg(Shown(MomentText(standing.rest.until)));
    }
    return standing.key == KeyStanding::Missing ? QStringLiteral("needs its key") : QStringLiteral("ready");
}

QString FileOfRefusal(const QString& refusal) {
    return refusal.section(QStringLiteral(": "), 0, 0);
}

}  // namespace

frmSources::frmSources(Session& session, Web& web, QWidget* parent)
    : QDialog(parent),
      session_(session),
      desk_(session, web),
      list_(new QTreeWidget),
      details_(new QGroupBox),
      terms_(WrappedLabel("lblTerms")),
      limits_(WrappedLabel("lblLimits")),
      key_(new SourceKeyField),
      ticker_(
          new QLineEdit(session.CurrentTicker.empty() ? Name(kCheckedTicker) : Shown(session.CurrentTicker))),
      result_(new QPlainTextEdit),
      outcome_(new QLabel) {
    setObjectName(QStringLiteral("frmSources"));
    setWindowTitle(QStringLiteral("Quote Sources"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildList());
    layout->addWidget(BuildDetails(), 1);
    layout->addWidget(BuildChoices());
    layout->addWidget(BuildButtons());
    Refresh();
    resize(kWindowSize.boundedTo(RoomOnScreen(*this)));
    list_->setFocus();
}

QPushButton* frmSources::AddButton(QLayout& row, const char* name, const QString& words,
                                   const QString& toolTip, void (frmSources::*clicked)()) {
    auto* button = new QPushButton(words);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(toolTip);
    button->setAutoDefault(false);
    row.addWidget(button);
    connect(button, &QPushButton::clicked, this, clicked);
    return button;
}

QWidget* frmSources::BuildList() {
    list_->setObjectName(QStringLiteral("lstSources"));
    list_->setAccessibleName(QStringLiteral("Live sources"));
    list_->setHeaderLabels({QStringLiteral("Source"), QStringLiteral("Gives"), QStringLiteral("Key"),
                            QStringLiteral("Chosen for"), QStringLiteral("State")});
    list_->setRootIsDecorated(false);
    list_->setAllColumnsShowFocus(true);
    // The two that list much share what the others leave.
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    for (const int column : {kGives, kChosenFor})
        list_->header()->setSectionResizeMode(column, QHeaderView::Stretch);
    WrapCells(*list_, {kGives, kChosenFor});
    connect(list_, &QTreeWidget::currentItemChanged, this, &frmSources::ShowSelected);
    return list_;
}

QWidget* frmSources::BuildDetails() {
    details_->setObjectName(QStringLiteral("fraSource"));
    auto* layout = new QVBoxLayout(details_);
    terms_->setOpenExternalLinks(true);
    layout->addWidget(terms_);
    layout->addWidget(limits_);
    auto* keyRow = new QHBoxLayout;
    keyRow->addWidget(key_, 1);
    saveKey_ = AddButton(*keyRow, "cmdSaveKey", QStringLiteral("Sa&ve Key"),
                         QStringLiteral("Put the key into Data/Keys.ini, which only you can read"),
                         &frmSources::SaveKey);
    removeKey_ = AddButton(*keyRow, "cmdRemoveKey", QStringLiteral("&Remove Key"),
                           QStringLiteral("Take the key out of Data/Keys.ini"), &frmSources::RemoveKey);
    keyRow->setAlignment(saveKey_, Qt::AlignTop);
    keyRow->setAlignment(removeKey_, Qt::AlignTop);
    connect(key_, &SourceKeyField::Entered, this, &frmSources::EnableParts);
    connect(key_, &SourceKeyField::ReturnPressed, this, &frmSources::SaveKey);
    layout->addLayout(keyRow);
    layout->addLayout(BuildActions());
    result_->setObjectName(QStringLiteral("txtResult"));
    result_->setAccessibleName(QStringLiteral("What the test brought"));
    result_->setReadOnly(true);
    result_->setTabChangesFocus(true);
    result_->setLineWrapMode(QPlainTextEdit::NoWrap);
    result_->setPlaceholderText(
        QStringLiteral("Test asks the source once for each thing that it gives, and shows here what came."));
    layout->addWidget(result_, 1);
    return details_;
}

QLayout* frmSources::BuildActions() {
    auto* row = new QHBoxLayout;
    test_ = AddButton(*row, "cmdTest", QStringLiteral("&Test"),
                      QStringLiteral("Ask this source once for each thing that it gives"), &frmSources::Test);
    auto* words = new QLabel(QStringLiteral("&with ticker"));
    words->setBuddy(ticker_);
    row->addWidget(words);
    ticker_->setObjectName(QStringLiteral("txtTicker"));
    ticker_->setToolTip(QStringLiteral("The ticker that the test asks for"));
    ticker_->setFixedWidth(kTickerFieldWidth);
    connect(ticker_, &QLineEdit::returnPressed, this, &frmSources::Test);
    row->addWidget(ticker_);
    row->addStretch();
    useForAll_ = AddButton(*row, "cmdUse", QStringLiteral("Use for A&ll It Gives"),
                           QStringLiteral("Choose this source below for everything that it gives"),
                           &frmSources::UseForAll);
    copy_ = AddButton(*row, "cmdCopy", QStringLiteral("&Copy to Edit..."),
                      QStringLiteral("Make a definition of your own out of this one, in Data/Sources"),
                      &frmSources::CopyToEdit);
    edit_ = AddButton(*row, "cmdEdit", QStringLiteral("&Edit..."),
                      QStringLiteral("Change this definition of your own"), &frmSources::EditDefinition);
    return row;
}

QWidget* frmSources::BuildChoices() {
    auto* frame = new QGroupBox(QStringLiteral("Who is asked"));
    frame->setObjectName(QStringLiteral("fraChoices"));
    auto* grid = new QGridLayout(frame);
    int row = 0;
    int column = 0;
    for (std::size_t i = 0; i < kSourceLines; ++i) {
        auto* list = new QComboBox;
        GuardWheel(*list);
        // Long names of sources do not make the window wider than a screen.
        list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        list->setMinimumContentsLength(kChoiceLetters);
        list->setObjectName(QString::fromLatin1(kChoiceRows[i].control));
        list->setToolTip(QString::fromLatin1(kChoiceRows[i].toolTip));
        auto* words = new QLabel(QString::fromLatin1(kChoiceRows[i].label));
        words->setBuddy(list);
        const bool isLong = kChoiceRows[i].isLong;
        grid->addWidget(words, row, column);
        grid->addWidget(list, row, column + 1, 1, isLong ? 3 : 1);
        grid->setColumnStretch(column + 1, 1);
        column = isLong || column > 0 ? 0 : 2;
        if (column == 0) ++row;
        choices_[i] = list;
        connect(list, &QComboBox::currentIndexChanged, outcome_, &QLabel::clear);
    }
    return frame;
}

QWidget* frmSources::BuildButtons() {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins({});
    outcome_->setObjectName(QStringLiteral("lblOutcome"));
    outcome_->setTextFormat(Qt::PlainText);
    outcome_->setWordWrap(true);
    row->addWidget(outcome_, 1);
    apply_ = AddButton(*row, "cmdApply", QStringLiteral("&Apply"),
                       QStringLiteral("Keep who is asked in Data/VTRSRCset.ini"), &frmSources::Apply);
    AddButton(*row, "cmdExit", QStringLiteral("E&xit"),
              QStringLiteral("Close; choices that are not applied are not kept"), &frmSources::reject);
    return buttons;
}

void frmSources::Refresh() {
    desk_.Reload();
    FillList();
    FillChoices();
    if (!desk_.Refusal().empty()) Tell(Shown(desk_.Refusal()));
}

void frmSources::FillList() {
    const QTreeWidgetItem* const current = list_->currentItem();
    // The window opens with the source that is in use.
    const std::string selected = current ? current->data(0, kNameRole).toString().toStdString()
                                         : desk_.Choices().For(Capability::Quotes);
    {
        const QSignalBlocker quiet(list_);
        list_->clear();
        for (const SourceDefinition& source : desk_.Catalogue().sources) {
            const SourceStanding standing = StandingOf(desk_.World(), source);
            auto* row = new QTreeWidgetItem(list_);
            row->setText(kTitle, Shown(source.title));
            row->setText(kGives, Shown(CapabilityWords(standing.gives)));
            row->setText(kKey, KeyText(standing.key));
            row->setText(kChosenFor, ChosenText(standing));
            row->setText(kState, StateText(standing));
            row->setToolTip(kState, Shown(standing.rest.words));
            row->setData(0, kNameRole, Shown(source.name));
        }
        for (const std::string& refusal : desk_.Catalogue().refusals) {
            auto* row = new QTreeWidgetItem(list_);
            row->setText(kTitle, FileOfRefusal(Shown(refusal)));
            row->setText(kState, QStringLiteral("refused"));
            row->setData(0, kRefusalRole, Shown(refusal));
        }
    }
    // Large letters on a small screen leave room for fewer rows, which scroll.
    const int around = list_->header()->sizeHint().height() + 2 * list_->frameWidth();
    const int line = list_->sizeHintForIndex(list_->model()->index(0, kTitle)).height();
    list_->setMinimumHeight(around + kFewestListRows * line);
    list_->setMaximumHeight(around + kListRows * line);
    SelectSource(selected);
}

void frmSources::SelectSource(std::string_view name) {
    QTreeWidgetItem* chosen = list_->topLevelItem(0);
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const row = list_->topLevelItem(i);
        if (row->data(0, kNameRole).toString() == Shown(name)) chosen = row;
    }
    list_->setCurrentItem(chosen);
    ShowSelected();
}

void frmSources::FillChoices() {
    for (std::size_t i = 0; i < kSourceLines; ++i) {
        QComboBox& list = *choices_[i];
        const QSignalBlocker quiet(&list);
        const QString chosen = Shown(desk_.Choices().names[i]);
        list.clear();
        list.addItem(QString::fromLatin1(kChoiceRows[i].none), QString());
        for (const SourceDefinition& source : desk_.Catalogue().sources) {
            if (source.Form(NeededFor(i)) != nullptr) list.addItem(Shown(source.title), Shown(source.name));
        }
        // A name that nobody knows any more stays until another choice is made.
        if (list.findData(chosen) < 0) {
            list.addItem(QStringLiteral("%1 (not known here)").arg(chosen), chosen);
        }
        list.setCurrentIndex(list.findData(chosen));
    }
}

const SourceDefinition* frmSources::Selected() const {
    const QTreeWidgetItem* const row = list_->currentItem();
    return row ? desk_.Catalogue().Find(row->data(0, kNameRole).toString().toStdString()) : nullptr;
}

void frmSources::ShowSelected() {
    const QTreeWidgetItem* const row = list_->currentItem();
    if (!row || isTesting_) return;
    const SourceDefinition* const source = Selected();
    result_->clear();
    outcome_->clear();
    if (!source) return ShowRefused(row->data(0, kRefusalRole).toString());
    const SourceStanding standing = StandingOf(desk_.World(), *source);
    details_->setTitle(Shown(source->title));
    terms_->setText(TermsText(*source));
    limits_->setText(standing.limits.empty()
                         ? QStringLiteral("No limits of its own are known.")
                         : QStringLiteral("Requests: %1.")
                               .arg(Shown(fmt::format("{}", fmt::join(standing.limits, ", ")))));
    key_->ShowSource(*source, standing.key);
    EnableParts();
}

void frmSources::ShowRefused(const QString& sentence) {
    details_->setTitle(FileOfRefusal(sentence));
    terms_->setText(QStringLiteral("This definition does not fit: %1").arg(sentence.toHtmlEscaped()));
    limits_->clear();
    key_->hide();
    EnableParts();
}

// While a trial runs its button ends it, and nothing else can be done.
void frmSources::EnableParts() {
    const SourceDefinition* const source = Selected();
    const KeyStanding key = source ? StandingOf(desk_.World(), *source).key : KeyStanding::NotNeeded;
    const bool isFree = !isTesting_;
    const bool hasField = key != KeyStanding::NotNeeded;
    saveKey_->setVisible(hasField);
    removeKey_->setVisible(hasField);
    saveKey_->setEnabled(isFree && key_->HasEntry());
    removeKey_->setEnabled(isFree && key == KeyStanding::InFile);
    key_->setEnabled(isFree);
    list_->setEnabled(isFree);
    test_->setEnabled(source != nullptr);
    test_->setText(isTesting_ ? QStringLiteral("S&top") : QStringLiteral("&Test"));
    ticker_->setEnabled(isFree && source != nullptr);
    useForAll_->setEnabled(isFree && source != nullptr);
    copy_->setEnabled(isFree && source != nullptr);
    edit_->setEnabled(isFree && (!source || OwnDefinitionFile(session_.DataFolder(), source->name)));
    for (QComboBox* list : choices_) list->setEnabled(isFree && desk_.Refusal().empty());
    apply_->setEnabled(isFree && desk_.Refusal().empty());
}

void frmSources::Tell(const QString& text) {
    outcome_->setText(text);
}

void frmSources::SaveKey() {
    const SourceDefinition* const source = Selected();
    if (!source || !key_->HasEntry()) return;
    const std::string refusal = key_->Keep(session_.DataFolder(), *source);
    if (refusal.empty()) Refresh();
    Tell(refusal.empty() ? QStringLiteral("The key is kept in Data/Keys.ini.") : Shown(refusal));
}

void frmSources::RemoveKey() {
    const SourceDefinition* const source = Selected();
    if (!source) return;
    const std::error_code error = WriteSourceKey(session_.DataFolder(), source->name, {});
    Refresh();
    Tell(error ? QStringLiteral("Data/Keys.ini: cannot be written: %1").arg(Shown(error.message()))
               : QStringLiteral("The key is gone from Data/Keys.ini."));
}

void frmSources::Test() {
    if (isTesting_) {
        session_.run.ProcessCommand = kStopRun;
        return;
    }
    const SourceDefinition* const source = Selected();
    if (!source) return;
    // A key that was entered and not saved is meant to be tried.
    if (key_->HasEntry()) SaveKey();
    if (key_->HasEntry()) return;
    if (!MayBeAsked(desk_.World(), *source)) return Tell(Shown(ConsentRefusal(*source)));
    // The list may have been read again meanwhile.
    if (const SourceDefinition* const tested = Selected()) RunTest(*tested);
}

void frmSources::RunTest(const SourceDefinition& source) {
    isTesting_ = true;
    result_->clear();
    EnableParts();
    BeginRun(session_.run);
    SourceClient client(desk_.World(), source);
    std::string ticker(Trim(ticker_->text().toStdString()));
    if (ticker.empty()) ticker = kCheckedTicker;
    std::size_t failed = 0;
    const std::vector<Capability> gives = StandingOf(desk_.World(), source).gives;
    for (const Capability capability : gives) {
        if (session_.run.ProcessCommand == kStopRun) break;
        Tell(QStringLiteral("Asking %1 for %2 ...").arg(Shown(source.title), Name(NameOf(capability))));
        const SourceChecked checked = CheckCapability(desk_.World(), client, capability, ticker);
        if (checked.IsFailure()) ++failed;
        result_->appendPlainText(Shown(CheckedText(checked)));
    }
    const bool isStopped = session_.run.ProcessCommand == kStopRun;
    const QString said = isStopped ? QStringLiteral("The test was stopped.")
                         : failed == 0
                             ? QStringLiteral("%1 answered.").arg(Shown(source.title))
                             : QStringLiteral("%1 of %2 questions failed.").arg(failed).arg(gives.size());
    const QString shown = result_->toPlainText();
    isTesting_ = false;
    if (closesAfterwards_) return QDialog::reject();
    FillList();
    result_->setPlainText(shown);
    Tell(said);
    EnableParts();
}

void frmSources::reject() {
    if (!isTesting_) return QDialog::reject();
    closesAfterwards_ = true;
    session_.run.ProcessCommand = kStopRun;
}

void frmSources::CopyToEdit() {
    const SourceDefinition* const source = Selected();
    if (!source) return;
    const std::string from = source->name;
    QInputDialog question(this);
    question.setObjectName(QStringLiteral("dlgCopyName"));
    question.setWindowTitle(QStringLiteral("Copy to Edit"));
    question.setLabelText(
        QStringLiteral(
            "Name of your definition (small letters, digits, hyphens). The name %1 takes the place "
            "of the built-in source:")
            .arg(Shown(from)));
    question.setTextValue(QStringLiteral("my-%1").arg(Shown(from)));
    if (question.exec() != QDialog::Accepted) return;
    const std::string name = question.textValue().toStdString();
    const SourceCopy copy = CopySource(desk_.Catalogue(), session_.DataFolder(), from, name);
    if (!copy.refusal.empty()) return session_.person.Say(copy.refusal);
    Refresh();
    SelectSource(name);
    EditDefinition();
}

void frmSources::EditDefinition() {
    const SourceDefinition* const source = Selected();
    const QTreeWidgetItem* const row = list_->currentItem();
    std::optional<Path> file;
    if (source) file = OwnDefinitionFile(session_.DataFolder(), source->name);
    if (!source && row)
        file = session_.AppPath / PathOf(FileOfRefusal(row->data(0, kRefusalRole).toString()));
    if (!file || !IsRegularFile(*file)) return;
    auto* editor = new TextEditor(*file, this);
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &QDialog::finished, this, &frmSources::Refresh);
    editor->open();
}

void frmSources::UseForAll() {
    const SourceDefinition* const source = Selected();
    if (!source) return;
    for (std::size_t i = 0; i < kCapabilityCount; ++i) {
        const int index = choices_[i]->findData(Shown(source->name));
        if (index >= 0) choices_[i]->setCurrentIndex(index);
    }
    Tell(QStringLiteral("Apply keeps the choice."));
}

// A source is asked for what it was chosen for without further questions, so its terms come first.
bool frmSources::AgreedTo(const SourceChoices& choices) {
    for (const std::string& name : choices.names) {
        const SourceDefinition* const source = desk_.Catalogue().Find(name);
        if (!source || MayBeAsked(desk_.World(), *source)) continue;
        Tell(QStringLiteral("Nothing was kept: the terms of %1 were not agreed to.")
                 .arg(Shown(source->title)));
        return false;
    }
    return true;
}

void frmSources::Apply() {
    SourceChoices choices;
    for (std::size_t i = 0; i < kSourceLines; ++i) {
        choices.names[i] = choices_[i]->currentData().toString().toStdString();
    }
    if (!AgreedTo(choices)) return;
    const std::string refusal = KeepChoices(session_, choices);
    if (!refusal.empty()) return session_.person.Say(refusal);
    Refresh();
    Tell(QStringLiteral("The choice is kept."));
    Q_EMIT ChoicesApplied();
}

}  // namespace brantlow
