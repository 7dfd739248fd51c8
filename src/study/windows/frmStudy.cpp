#include "study/windows/frmStudy.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QSvgRenderer>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTextDocument>
#include <QVBoxLayout>
#include <utility>

#include "base/files.h"
#include "base/windows/colours.h"
#include "base/windows/date_boxes.h"
#include "base/windows/display_text.h"
#include "base/windows/flow_layout.h"
#include "study/windows/replay_page.h"
#include "study/windows/signal_model.h"
#include "study/windows/svg_view.h"

namespace brantlow {

namespace {

constexpr std::size_t kPathBars = 60;
constexpr double kMostCost = 99.9;
constexpr int kMostHoldings = 1000;

QLabel* Warning(std::string_view words) {
    auto* label = new QLabel(Name(words));
    label->setWordWrap(true);
    QFont font = label->font();
    font.setItalic(true);
    label->setFont(font);
    return label;
}

template <class Box>
Box* Named(Box* box, const char* name, const char* words) {
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(QString::fromLatin1(words));
    box->setToolTip(QString::fromLatin1(words));
    return box;
}

void AddBox(QHBoxLayout& row, const char* caption, QWidget* box) {
    auto* label = new QLabel(QString::fromLatin1(caption));
    label->setBuddy(box);
    row.addWidget(label);
    row.addWidget(box);
}

// A box behind its caption, or one that bears its own words.
QWidget* Captioned(QWidget& ground, const char* caption, QWidget* box) {
    auto* part = new QWidget(&ground);
    auto* row = new QHBoxLayout(part);
    row->setContentsMargins(0, 0, 0, 0);
    if (*caption != '\0')
        AddBox(*row, caption, box);
    else
        row->addWidget(box);
    return part;
}

QSpinBox* CountBox(const char* name, const char* words, int value) {
    auto* box = Named(new QSpinBox, name, words);
    box->setRange(1, kMostHoldings);
    box->setValue(value);
    return box;
}

}  // namespace

frmStudy::frmStudy(Session& session, std::string file, std::vector<std::string> tickers)
    : session_(session),
      file_(std::move(file)),
      tickers_(std::move(tickers)),
      span_(UsualSpan(session.clock.Today())),
      from_(Named(new QDateEdit(Shown(span_.from)), "From", "The first day that is judged")),
      to_(Named(new QDateEdit(Shown(span_.to)), "To", "The last day that is judged")),
      interval_(Named(new QComboBox, "Interval", "The length of a bar")),
      horizons_(Named(new QLineEdit(QStringLiteral("1,5,20,60")), "Horizons",
                      "How many bars a share is held, with commas between")),
      cost_(Named(new QDoubleSpinBox, "Cost", "Percent of each purchase and each sale")),
      everyDay_(Named(new QCheckBox(QStringLiteral("Every &day")), "EveryDay",
                      "Each day on which a condition holds is a signal, not only the first of a row")),
      run_(Named(new QPushButton(QStringLiteral("Ru&n")), "Run", "Judge every day of the span")),
      state_(Named(new QLabel, "State", "What the study is made of")),
      tabs_(Named(new QTabWidget, "Tabs", "Parts of the study")),
      detail_(Named(new QComboBox, "Detail", "The time after which the shares are told")),
      table_(Named(new QTableWidget, "Conditions", "The ten conditions")),
      words_(Named(new QLabel, "Words", "The condition in words")),
      path_(Named(new SvgView(QStringLiteral("The mean way after a signal")), "Path",
                  "The mean way after a signal, against any day")),
      ticker_(Named(new QLineEdit, "TickerFilter", "Only tickers that hold this text")),
      condition_(Named(new QComboBox, "ConditionFilter", "Only signals of this condition")),
      model_(new SignalModel(this)),
      signals_(Named(new QTableView, "Signals", "Every signal; Enter opens the chart on that day")),
      buy_(Named(new QComboBox, "Buy", "The condition whose signals are bought")),
      sell_(Named(new QComboBox, "Sell", "The condition whose signals end a holding sooner")),
      hold_(CountBox("Hold", "Bars that a share is held", 20)),
      most_(CountBox("Most", "Shares held at a time", 10)),
      equity_(Named(new SvgView(QStringLiteral("The equity curve")), "Equity", "What 1 has become")),
      equityWords_(Named(new QLabel, "EquityWords", "The equity curve in words")),
      replay_(new ReplayPage(session_, tickers_)) {
    setObjectName(QStringLiteral("frmStudy"));
    setWindowTitle(QStringLiteral("Study of the Conditions - %1").arg(brantlow::Shown(file_)));
    auto* layout = new QVBoxLayout(this);
    BuildBoxes(*layout);
    tabs_->addTab(BuildConditions(), QStringLiteral("Conditions"));
    tabs_->addTab(BuildSignals(), QStringLiteral("Signals"));
    tabs_->addTab(BuildPortfolio(), QStringLiteral("Portfolio"));
    tabs_->addTab(replay_, QStringLiteral("&Buy and Sell"));
    connect(replay_, &ReplayPage::RunAsked, this, &frmStudy::ReplayAsked);
    connect(replay_, &ReplayPage::ChartAsked, this, &frmStudy::ChartAsked);
    layout->addWidget(tabs_, 1);
    ShowAll();
}

frmStudy::~frmStudy() = default;

void frmStudy::BuildBoxes(QVBoxLayout& layout) {
    for (QDateEdit* box : {from_, to_}) {
        box->setCalendarPopup(true);
        box->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    }
    interval_->addItems({QStringLiteral("Daily"), QStringLiteral("Weekly")});
    cost_->setRange(0, kMostCost);
    cost_->setValue(terms_.cost);
    cost_->setSuffix(QStringLiteral(" %"));
    // With large letters they take two rows.
    auto* boxes = new QWidget(this);
    auto* flow = new FlowLayout(boxes, layout.spacing());
    flow->setContentsMargins(0, 0, 0, 0);
    const std::pair<const char*, QWidget*> parts[] = {
        {"Fro&m", from_}, {"To", to_}, {"&Interval", interval_}, {"Held for", horizons_}, {"&Cost", cost_},
        {"", everyDay_},  {"", run_}};
    for (const auto& [caption, box] : parts) flow->addWidget(Captioned(*boxes, caption, box));
    layout.addWidget(boxes);
    state_->setWordWrap(true);
    layout.addWidget(state_);
    layout.addWidget(Warning(kStudyWarnings[0]));
    connect(run_, &QPushButton::clicked, this, &frmStudy::AskRun);
    // Enter in any of the boxes, and on the button, runs.
    run_->setAutoDefault(true);
    setFocusProxy(run_);
    for (QWidget* box : std::initializer_list<QWidget*>{from_, to_, interval_, horizons_, cost_, everyDay_})
        box->installEventFilter(this);
}

QPushButton* frmStudy::AddButton(QHBoxLayout& row, const char* name, const char* caption, const char* words,
                                 void (frmStudy::*pressed)()) {
    auto* button = Named(new QPushButton(QString::fromLatin1(caption)), name, words);
    button->setAccessibleName({});
    row.addWidget(button);
    connect(button, &QPushButton::clicked, this, pressed);
    return button;
}

QWidget* frmStudy::BuildConditions() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* row = new QHBoxLayout;
    detail_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    AddBox(*row, "Tell what followed", detail_);
    row->addStretch();
    AddButton(*row, "SaveReport", "Save Report",
              "Save the report with its pictures in the Data folder (Ctrl+S)", &frmStudy::SaveReport);
    AddButton(*row, "PrintReport", "Print", "Print the report with its pictures (Ctrl+P)",
              &frmStudy::AskPrint);
    layout->addLayout(row);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setHighlightSections(false);
    layout->addWidget(table_, 1);
    layout->addWidget(Warning(kStudyWarnings[1]));
    words_->setWordWrap(true);
    words_->setAlignment(Qt::AlignTop);
    auto* told = new QHBoxLayout;
    told->addWidget(words_, 1);
    told->addWidget(path_, 1);
    layout->addLayout(told);
    layout->addWidget(Warning(kStudyWarnings[2]));
    connect(detail_, &QComboBox::activated, this, [this] { ShowTable(); });
    connect(table_, &QTableWidget::itemSelectionChanged, this, &frmStudy::ShowCondition);
    return page;
}

QWidget* frmStudy::BuildSignals() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* row = new QHBoxLayout;
    AddBox(*row, "Ticker", ticker_);
    AddBox(*row, "Condition", condition_);
    row->addStretch();
    AddButton(*row, "Chart", "Chart", "Open the chart as it stood on the day of the signal (Enter)",
              &frmStudy::AskSelectedChart);
    AddButton(*row, "SaveSignals", "Save As CSV", "Save the list of all signals", &frmStudy::SaveSignals);
    layout->addLayout(row);
    signals_->setModel(model_);
    signals_->setSelectionBehavior(QAbstractItemView::SelectRows);
    signals_->setSelectionMode(QAbstractItemView::SingleSelection);
    signals_->setSortingEnabled(true);
    signals_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    signals_->verticalHeader()->hide();
    layout->addWidget(signals_, 1);
    connect(ticker_, &QLineEdit::textChanged, this, &frmStudy::ApplyFilter);
    connect(condition_, &QComboBox::currentIndexChanged, this, [this] { ApplyFilter(); });
    connect(signals_, &QTableView::activated, this,
            [this](const QModelIndex& index) { AskChart(index.row()); });
    return page;
}

QWidget* frmStudy::BuildPortfolio() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* row = new QHBoxLayout;
    AddBox(*row, "Buy", buy_);
    AddBox(*row, "Sell", sell_);
    AddBox(*row, "Hold for", hold_);
    AddBox(*row, "At most", most_);
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(equity_, 1);
    equityWords_->setWordWrap(true);
    layout->addWidget(equityWords_);
    for (QComboBox* box : {buy_, sell_})
        connect(box, &QComboBox::activated, this, [this] { ShowPortfolio(); });
    for (QSpinBox* box : {hold_, most_})
        connect(box, &QSpinBox::valueChanged, this, [this] { ShowPortfolio(); });
    return page;
}

void frmStudy::Tell(const std::string& sentence) {
    state_->setText(brantlow::Shown(sentence));
}

// False, with a sentence, where a box cannot be read.
bool frmStudy::TakeTerms() {
    const auto horizons = ReadHorizons(horizons_->text().toStdString());
    if (!horizons) {
        Tell("Held for: different whole numbers from 1 to 1000 with commas between, as 1,5,20,60.");
        horizons_->setFocus();
        return false;
    }
    if (from_->date() > to_->date()) {
        Tell("The first day lies behind the last one.");
        from_->setFocus();
        return false;
    }
    terms_ = {*horizons, cost_->value(), everyDay_->isChecked()};
    span_ = {interval_->currentIndex() == 1 ? Interval::Weekly : Interval::Daily, DateOf(from_->date()),
             DateOf(to_->date())};
    return true;
}

void frmStudy::AskRun() {
    if (TakeTerms()) Q_EMIT RunAsked();
}

void frmStudy::Run() {
    if (TakeTerms()) Show(RunStudy(session_, tickers_, span_));
}

void frmStudy::Show(ConditionStudy study) {
    if (!TakeTerms()) return;
    model_->Show(nullptr, nullptr);
    const bool isFirst = study_ == nullptr;
    study_ = std::make_unique<ConditionStudy>(std::move(study));
    figures_ = FiguresOf(*study_, terms_);
    ShowAll();
    // Until now only the replay could be in front.
    if (isFirst) tabs_->setCurrentIndex(0);
}

void frmStudy::RunReplay() {
    replay_->Run(interval_->currentIndex() == 1 ? Interval::Weekly : Interval::Daily);
}

void frmStudy::ShowAll() {
    for (QComboBox* box : {detail_, condition_, buy_, sell_}) box->clear();
    for (int page = 0; page < tabs_->count(); ++page)
        tabs_->setTabEnabled(page, study_ || tabs_->widget(page) == replay_);
    if (!study_) {
        Tell("Press Run: every day of the span is judged with what was known on that day.");
        return;
    }
    for (const std::size_t horizon : terms_.horizons)
        detail_->addItem(Name(AfterText(horizon, span_.interval)));
    detail_->setCurrentIndex(std::min(2, detail_->count() - 1));
    condition_->addItem(QStringLiteral("All"));
    sell_->addItem(QStringLiteral("None"));
    for (std::size_t i = 0; i < study_->actions.size(); ++i) {
        const QString words = QStringLiteral("%1 %2").arg(i + 1).arg(Name(study_->actions[i]));
        for (QComboBox* box : {condition_, buy_, sell_}) box->addItem(words);
    }
    const auto buy = std::find(study_->actions.begin(), study_->actions.end(), kConditionActions[0]);
    buy_->setCurrentIndex(buy == study_->actions.end() ? 0 : static_cast<int>(buy - study_->actions.begin()));
    std::string words = JudgedWords(*study_);
    if (study_->Evaluated() == 0)
        words = "No day could be judged: no ticker has a bar in the span with enough history before it.";
    if (study_->stopped) words += " Ended early: the figures are of these tickers alone.";
    if (!study_->unreadable.empty())
        words += " " + std::to_string(study_->unreadable.size()) +
                 " left out: " + Sentence(study_->unreadable.front());
    Tell(words);
    model_->Show(study_.get(), &terms_);
    signals_->resizeColumnsToContents();
    ShowTable();
    ShowPortfolio();
}

std::size_t frmStudy::Detail() const {
    return static_cast<std::size_t>(std::max(0, detail_->currentIndex()));
}

void frmStudy::ShowTable() {
    const int selected = std::max(0, table_->currentRow());
    QStringList heads;
    // In two lines, so that all columns have room.
    for (const std::string& column : StudyColumns(*study_, terms_, Detail()))
        heads << Name(column).replace(QStringLiteral(" after "), QStringLiteral("\nafter "));
    table_->clear();
    table_->setColumnCount(static_cast<int>(heads.size()));
    table_->setHorizontalHeaderLabels(heads);
    table_->setRowCount(static_cast<int>(study_->actions.size()));
    for (std::size_t condition = 1; condition <= study_->actions.size(); ++condition) {
        const auto cells = StudyCells(*study_, terms_, figures_, condition, Detail());
        for (std::size_t column = 0; column < cells.size(); ++column) {
            auto* item = new QTableWidgetItem(Name(cells[column]));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table_->setItem(static_cast<int>(condition) - 1, static_cast<int>(column), item);
        }
    }
    table_->resizeColumnsToContents();
    table_->selectRow(std::min(selected, table_->rowCount() - 1));
    ShowCondition();
}

void frmStudy::ShowCondition() {
    const int row = table_->currentRow();
    if (!study_ || row < 0 || static_cast<std::size_t>(row) >= figures_.conditions.size()) {
        words_->clear();
        path_->Show({});
        return;
    }
    const ConditionFigures& figures = figures_.conditions[static_cast<std::size_t>(row)];
    std::string words;
    for (std::size_t i = 0; i < terms_.horizons.size(); ++i)
        words +=
            HorizonSentence(figures.horizons[i], figures_.baseline[i], terms_.horizons[i], span_.interval) +
            "\n";
    words_->setText(Name(words).trimmed());
    path_->Show(
        PathPicture(MeanPath(*study_, figures.condition, terms_, kPathBars), span_.interval, Colours()));
}

const PictureColours& frmStudy::Colours() const {
    return IsDark(palette().color(QPalette::Active, QPalette::Base)) ? kDarkColours : kPaperColours;
}

void frmStudy::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !study_) return;
    ShowCondition();
    ShowPortfolio();
}

PortfolioTerms frmStudy::Terms() const {
    return {static_cast<std::size_t>(std::max(0, buy_->currentIndex())) + 1,
            static_cast<std::size_t>(std::max(0, sell_->currentIndex())),
            static_cast<std::size_t>(hold_->value()), static_cast<std::size_t>(most_->value()), terms_.cost};
}

void frmStudy::ShowPortfolio() {
    if (!study_ || study_->actions.empty()) return;
    const Portfolio portfolio = PortfolioOf(*study_, Terms());
    equity_->Show(portfolio.dates.empty() ? std::string() : EquityPicture(*study_, portfolio, Colours()));
    equityWords_->setText(Name(PortfolioWords(*study_, Terms(), portfolio)));
}

void frmStudy::ApplyFilter() {
    if (study_)
        model_->Filter(ticker_->text().toStdString(),
                       static_cast<std::size_t>(std::max(0, condition_->currentIndex())));
}

void frmStudy::AskChart(int row) {
    if (row < 0 || row >= model_->rowCount()) return;
    const StudySignal& signal = model_->At(row);
    Q_EMIT ChartAsked(study_->tickers[signal.ticker].ticker, study_->DateOf(signal.date));
}

void frmStudy::AskSelectedChart() {
    AskChart(signals_->currentIndex().row());
}

void frmStudy::SaveSignals() {
    const QString name = QFileDialog::getSaveFileName(this, QStringLiteral("Save the signals"),
                                                      ShownPath(session_.DataFolder() / "Signals.csv"),
                                                      QStringLiteral("Comma-separated values (*.csv)"));
    if (name.isEmpty()) return;
    const Path file = PathOf(name);
    const auto error = WriteWholeFile(file, SignalsCsv(*study_, terms_));
    Tell(error ? CannotBeSaved(file, error) : "Saved: " + file.string());
}

std::vector<ReportPicture> frmStudy::Pictures() const {
    std::vector<ReportPicture> pictures;
    for (const ConditionFigures& figures : figures_.conditions) {
        if (figures.signals == 0) continue;
        pictures.push_back(
            {"Condition " + std::to_string(figures.condition),
             PathPicture(MeanPath(*study_, figures.condition, terms_, kPathBars), span_.interval)});
    }
    if (study_->actions.empty()) return pictures;
    const Portfolio portfolio = PortfolioOf(*study_, Terms());
    if (!portfolio.dates.empty())
        pictures.push_back(
            {"Portfolio", EquityPicture(*study_, portfolio), PortfolioWords(*study_, Terms(), portfolio)});
    return pictures;
}

void frmStudy::SaveReport() {
    if (!study_) return;
    const auto pictures = Pictures();
    const std::string html = StudyReport(file_, *study_, terms_, figures_, Detail(), pictures,
                                         [&](std::size_t i) { return pictures[i].svg; });
    const std::string name = StudyReportName(session_.clock.Today());
    const bool mayWrite = !IsRegularFile(session_.DataFile(name)) ||
                          session_.person.AskBeforeDestroying(
                              name + " already exists. Do you want to replace it?", "Save Report");
    if (!mayWrite) return;
    const auto error = WriteWholeFile(session_.DataFile(name), html);
    Tell(error ? CannotBeSaved(name, error) : "Saved: " + session_.DataFile(name).string());
}

void frmStudy::AskPrint() {
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (study_ && dialog.exec() == QDialog::Accepted) Print(printer);
}

// A text document knows no SVG: the pictures are painted for it beforehand.
void frmStudy::Print(QPrinter& printer) const {
    if (!study_) return;
    QTextDocument document;
    const auto pictures = Pictures();
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        QSvgRenderer renderer(QByteArray::fromStdString(pictures[i].svg));
        QImage image(renderer.defaultSize(), QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        renderer.render(&painter);
        document.addResource(QTextDocument::ImageResource, QUrl(QString::number(i)), image);
    }
    document.setHtml(QString::fromStdString(
        StudyReport(file_, *study_, terms_, figures_, Detail(), pictures,
                    [](std::size_t i) { return "<img src=\"" + std::to_string(i) + "\">"; })));
    document.print(&printer);
}

bool frmStudy::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return QWidget::eventFilter(watched, event);
    for (QAbstractSpinBox* box : std::initializer_list<QAbstractSpinBox*>{from_, to_, cost_})
        box->interpretText();
    AskRun();
    return true;
}

void frmStudy::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT CloseAsked();
}

}  // namespace brantlow
