#include "shell/frame/windows/frmMain.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <algorithm>
#include <vector>

#include "acquire/feeds/live/source_standing.h"
#include "base/windows/colours.h"
#include "base/windows/date_boxes.h"
#include "base/windows/display_text.h"
#include "base/windows/elided_label.h"
#include "chart/windows/frmGraph.h"
#include "shell/frame/frame_choices.h"
#include "shell/frame/frame_place.h"
#include "shell/frame/windows/command_bar.h"
#include "shell/frame/windows/frame_area.h"
#include "shell/frame/windows/frame_subjects.h"
#include "shell/frame/windows/told_runs.h"
#include "shell/frame/windows/welcome_page.h"
#include "shell/frame/windows/window_person.h"
#include "shell/recent_files.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "shell/user_store.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

constexpr int kIconPixels = 24;
constexpr int kWordPanelWidth = 130;
constexpr int kCountPanelWidth = 80;
constexpr int kProgressWidth = 180;
constexpr int kPercent = 100;
constexpr int kNoticeMilliseconds = 8000;

QLabel* AddPanel(QStatusBar& bar, const QString& name, const QString& toolTip, int width) {
    auto* panel = new QLabel;
    panel->setObjectName(name);
    panel->setToolTip(toolTip);
    panel->setMinimumWidth(width);
    panel->setAlignment(Qt::AlignCenter);
    panel->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    bar.addPermanentWidget(panel);
    return panel;
}

ScreenRect AreaOf(const QScreen& screen) {
    const QRect area = screen.availableGeometry();
    return {area.x(), area.y(), area.width(), area.height()};
}

// Of every screen, that of the desktop's first one in front.
std::vector<ScreenRect> FreeAreas() {
    std::vector<ScreenRect> areas;
    for (const QScreen* screen : QGuiApplication::screens()) areas.push_back(AreaOf(*screen));
    return areas;
}

// The filters of a question, "words|pattern" one behind the other, as the dialog of this platform takes them:
// the words, which hold the pattern.
QStringList DialogFilters(const std::string& filter) {
    const QStringList parts = Shown(filter).split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) filters << parts[i];
    return filters;
}

// A name without an ending takes that of the further filter that is chosen.
void OfferKinds(QFileDialog& dialog, const QStringList& filters) {
    dialog.setNameFilters(filters);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, filters](const QString& filter) {
                         const bool isFirst = filter == filters.constFirst();
                         dialog.setDefaultSuffix(isFirst ? QString() : filter.section(u'.', -1).chopped(1));
                     });
}

}  // namespace

frmMain::frmMain(Session& session, Analysis& analysis, WindowPerson& person, Web& web, const Hosts& hosts,
                 Path userStore, BrowserOperations browser)
    : session_(session),
      person_(person),
      userStore_(std::move(userStore)),
      area_(new FrameArea),
      tbToolBar(new QToolBar(QStringLiteral("Buttons"))) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Brantlow"));
    setWindowIcon(QIcon(QStringLiteral(":/icons/brantlow.svg")));
    setCentralWidget(area_);
    tbToolBar->setObjectName(QStringLiteral("tbToolBar"));
    tbToolBar->setMovable(false);
    tbToolBar->setIconSize({kIconPixels, kIconPixels});
    addToolBar(tbToolBar);
    setContextMenuPolicy(Qt::NoContextMenu);
    area_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(area_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { ShowPopUpMenu(area_->mapToGlobal(place)); });
    subjects_ = std::make_unique<FrameSubjects>(
        FrameSubjects::Start{*this, *area_, session, analysis, person, web, hosts, display_, userStore_,
                             std::move(browser), [this] { ApplyRules(); }});
    LendHands();
    AddWelcome();
    commands_ = new CommandBar(*this, *tbToolBar, [this](const MenuEntry& entry) { Run(entry.id); });
    connect(commands_, &CommandBar::RecentFileChosen, this, &frmMain::OpenRecentFile);
    connect(commands_->Menu("mnuEdit"), &QMenu::aboutToShow, this, [this] {
        commands_->Entry("mnuEditUndo")
            ->setText(Shown(subjects_->upkeep.UndoWords()).replace(u'&', QStringLiteral("&&")));
    });
    connect(commands_->Menu("mnuFile"), &QMenu::aboutToShow, this, &frmMain::ShowWhoIsAsked);
    connect(area_, &QMdiArea::subWindowActivated, this, &frmMain::ApplyRules);
    BuildStatusBar();
    person_.Attach({this, statusWord_, tickerCount_, ProgressBar1}, session_);
    person_.pauseChanged = [this] { ApplyRules(); };
}

frmMain::~frmMain() {
    // The children go after this; nobody is to hear of it any more.
    area_->disconnect(this);
    person_.Detach();
}

// The entries that fetch prices tell where from, where that is a live source.
void frmMain::ShowWhoIsAsked() {
    const std::pair<std::string_view, Capability> rows[] = {{"mnuFileUpdateQuotes", Capability::Quotes},
                                                            {"mnuFilePopulate", Capability::History}};
    for (const auto& [id, capability] : rows) {
        const std::string from = AskedWords(session_, capability);
        QString words = Name(FindMenuEntry(id)->toolTip);
        if (!from.empty()) words += QStringLiteral(", from ") + Shown(from);
        commands_->Entry(id)->setToolTip(words);
        commands_->Entry(id)->setStatusTip(words);
    }
}

void frmMain::ShowNotice(const std::string& text) {
    statusBar()->showMessage(Shown(text), kNoticeMilliseconds);
}

// What the frame itself does for the subjects, and its own commands.
void frmMain::LendHands() {
    FrameHands& hands = subjects_->hands;
    hands.askFile = [this](const FileQuestion& question) { return AskFile(question); };
    hands.notice = [this](const std::string& text) { ShowNotice(text); };
    hands.tell = [this](const RunReport& report) { TellRun(report); };
    hands.closeChildren = [this] { CloseChildren(); };
    hands.tableShown = [this] {
        if (KindOf(session_.CurrentFile) == FileKind::Ddq) commands_->ShowQuoteFileButtons();
    };
    hands.showPopUpMenu = [this](const QPoint& place) { ShowPopUpMenu(place); };
    hands.showRecentFiles = [this] { commands_->ShowRecentFiles(RecentFiles(session_.settings)); };
    hands.showStatusBar = [this] {
        statusBar()->show();
        commands_->Entry("mnuViewStatusBar")->setChecked(true);
    };
    hands.check = [this](std::string_view id, bool on) { commands_->Entry(id)->setChecked(on); };
    hands.showTitle = [this] { ShowTitle(); };
    subjects_->Add({{"mnuViewToolbar",
                     [this] { tbToolBar->setVisible(commands_->Entry("mnuViewToolbar")->isChecked()); }},
                    {"mnuViewStatusBar",
                     [this] { statusBar()->setVisible(commands_->Entry("mnuViewStatusBar")->isChecked()); }},
                    {kRemembersWindowSize.command, [this] { KeepChoice(kRemembersWindowSize); }},
                    {kDoubleClickCharts.command, [this] { KeepChoice(kDoubleClickCharts); }}});
    hands.isChosen = [this](std::string_view command) { return commands_->Entry(command)->isChecked(); };
}

frmQuoteGrid* frmMain::QuoteForm() const {
    return subjects_->hands.table.form();
}

QWidget* frmMain::BrowserForm() const {
    return subjects_->browser.Form();
}

frmGraph* frmMain::GraphForm() const {
    return subjects_->chart.Form();
}

FrameChildren& frmMain::Children() {
    return subjects_->children;
}

PrintCommands& frmMain::Printing() {
    return subjects_->print;
}

UpdateCommands& frmMain::Updates() {
    return subjects_->updates;
}

void frmMain::BuildStatusBar() {
    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    auto* fixedPanel = new QLabel(
        QLocale::c().toString(Shown(session_.clock.Today()), QStringLiteral(" dddd, MMMM d, yyyy")));
    fixedPanel->setObjectName(QStringLiteral("Panel1"));
    statusBar()->addWidget(fixedPanel, 1);
    told_ = std::make_unique<ToldRuns>(*fixedPanel, *this);
    ProgressBar1 = new QProgressBar;
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setRange(0, kPercent);
    ProgressBar1->setFixedWidth(kProgressWidth);
    ProgressBar1->setTextVisible(false);
    ProgressBar1->hide();
    statusBar()->addPermanentWidget(ProgressBar1);
    statusWord_ = AddPanel(*statusBar(), QStringLiteral("Panel2"),
                           QStringLiteral("What the program is doing"), kWordPanelWidth);
    tickerCount_ = AddPanel(*statusBar(), QStringLiteral("Panel3"),
                            QStringLiteral("Tickers in the open file"), kCountPanelWidth);
    auto* rows = new ElidedLabel;
    rows->setObjectName(QStringLiteral("Panel4"));
    rows->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Behind the fixed panel, which stands at 0.
    statusBar()->insertPermanentWidget(1, rows, 2);
    subjects_->hands.showRows = [rows](const std::string& line) { rows->ShowLine(Shown(line)); };
    for (QWidget* part : statusBar()->findChildren<QWidget*>()) KeepColoursWhenDisabled(*part);
}

void frmMain::AddWelcome() {
    StartCommands& start = subjects_->welcome;
    welcome_ = &area_->AddWelcome({.open = subjects_->hands.openNamed,
                                   .update = [&start](const std::string& name) { start.OpenAndUpdate(name); },
                                   .openFirst = [&start] { start.OpenFirst(); },
                                   .practice = [&start] { start.OpenPractice(); },
                                   .run = [this](std::string_view command) { Run(command); }});
}

void frmMain::ShowWelcome() {
    if (area_->IsEmpty()) welcome_->Offer(TablesToGoOnWith(session_, subjects_->file.LastClosed()));
    area_->ShowWelcome();
}

void frmMain::Load() {
    const FrameGeometry geometry = LoadFrameGeometry(userStore_);
    setGeometry(PixelsOf(geometry.MainLeft), PixelsOf(geometry.MainTop), PixelsOf(geometry.MainWidth),
                PixelsOf(geometry.MainHeight));
    OnLineStatus(online_, LoadUserRegistry(userStore_), subjects_->hands.web);
    LoadAllSettings(session_.AppPath, session_.settings);
    subjects_->chart.LoadOptions();
    ShowTitle();
    TellUnreadableSettings();
    session_.PickedFile = RecentFiles(session_.settings).front();
    commands_->ShowRecentFiles(RecentFiles(session_.settings));
    PlaceFrame();
    OpenNewestFile();
    ProgressBar1->hide();
    subjects_->help.LookForNewVersion();
    subjects_->alarms.Start();
    subjects_->updates.StartClock();
}

void frmMain::PlaceFrame() {
    const QScreen* const onScreen = screen();
    display_.ScreenWidth = onScreen->size().width();
    display_.ScreenHeight = onScreen->size().height();
    const KeptFrame kept = LoadKeptFrame(userStore_);
    for (const FrameChoice& choice : kFrameChoices)
        commands_->Entry(choice.command)->setChecked(LoadFrameChoice(userStore_, choice));
    const bool maximised = kept.remembers ? PlaceAsKept(kept) : PlaceInOwnSize(onScreen->availableGeometry());
    if (maximised) {
        showMaximized();
    } else {
        show();
    }
}

// A first start begins on the welcome page: there is no table to open yet.
void frmMain::OpenNewestFile() {
    if (NamesUnmadeTable(session_)) {
        person_.ShowStatusWord(kStatusComplete);
        return ShowWelcome();
    }
    session_.OpenWithoutDialog = true;
    subjects_->file.OpenQuotesFile();
    session_.OpenWithoutDialog = false;
}

bool frmMain::PlaceAsKept(const KeptFrame& kept) {
    const FramePlace place =
        PlaceToOpen(kept.place, FreeAreas(), style()->pixelMetric(QStyle::PM_TitleBarHeight));
    setGeometry(place.rect.left, place.rect.top, place.rect.width, place.rect.height);
    return place.maximised;
}

// At the top left corner in its own size, or as much of it as the screen has; the whole of a smallest screen.
bool frmMain::PlaceInOwnSize(const QRect& available) {
    move(available.topLeft());
    // The title bar stands above what is measured here.
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(std::min(PixelsOf(kFrameWidth), available.width()),
           std::min(PixelsOf(kFrameHeight), available.height() - titleBar));
    return display_.FrameStartsMaximised();
}

void frmMain::Run(std::string_view command) {
    subjects_->Run(command);
}

void frmMain::OpenRecentFile(std::size_t entry) {
    subjects_->file.OpenRecentFile(entry);
}

void frmMain::CloseChildren() {
    subjects_->browser.CloseForm();
    subjects_->file.CloseForm();
    subjects_->chart.CloseForm();
}

// Tells quotes of the practice market from real ones.
void frmMain::ShowTitle() {
    setWindowTitle(LoadHosts(session_.DataFolder()).IsPracticeMarket()
                       ? QStringLiteral("Brantlow - Practice Market")
                       : QStringLiteral("Brantlow"));
}

// It stands in the status bar's first field: a box would hold up a start that nobody attends.
void frmMain::TellUnreadableSettings() {
    std::string files;
    for (const SettingsFileForm& form : kSettingsFiles) {
        const std::string sentence = UnreadableSettings(form.file, session_.AppPath, session_.settings);
        if (!sentence.empty()) files += (files.empty() ? "" : "; ") + sentence;
    }
    if (files.empty()) return;
    RunReport report("Start of the program", "files");
    report.SetHeadline(files + ". Runs that go by it are refused until it can be read");
    told_->Tell(report);
}

// A list that has no tickers leaves the one of the run before.
void frmMain::TellRun(const RunReport& report) {
    if (report.What().empty()) return;
    told_->Tell(report);
    if (report.Tickers().empty()) return;
    const std::error_code error = KeepLastRun(session_.DataFolder(), report, session_.clock);
    if (error) person_.Say(CannotBeSaved(kLastRunName, error));
}

Path frmMain::AskFile(const FileQuestion& question) {
    QFileDialog dialog(this, Shown(question.title), ShownPath(question.folder));
    dialog.setOption(QFileDialog::DontUseNativeDialog, !isActiveWindow() || !isVisible());
    dialog.setAcceptMode(question.saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    OfferKinds(dialog, DialogFilters(question.filter));
    // A file that cannot be opened is told in the program's own words, so any name may be entered.
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!question.fileName.empty()) dialog.selectFile(Shown(question.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return PathOf(dialog.selectedFiles().constFirst());
}

void frmMain::ApplyRules() {
    frmQuoteGrid* const form = QuoteForm();
    const OpenStates state = form ? StateOf(KindOf(session_.CurrentFile)) : kWithNothing;
    const ChildOperations* active = subjects_->children.ActiveOperations();
    commands_->ApplyRules(state | (active ? active->active : 0), person_.InRun());
    if (subjects_->runs.FillsTable()) commands_->Entry("mnuFileClose")->setEnabled(true);
    if (form) form->ApplyRules(state, !person_.InRun());
    ShowWelcome();
}

void frmMain::ShowPopUpMenu(const QPoint& place) {
    commands_->PopUpMenu().popup(place);
}

// In the midst of a run the frame stays until the run has come to its end; then it closes.
void frmMain::closeEvent(QCloseEvent* event) {
    if (subjects_->runs.ClosesFrameAfterwards()) return event->ignore();
    if (!subjects_->upkeep.CloseEditors()) return event->ignore();
    subjects_->help.CloseForm();
    subjects_->upkeep.BackUpBeforeExit();
    if (QuoteForm()) {
        SaveRecentFiles(session_);
        CloseChildren();
    }
    StoreGeometry();
    event->accept();
}

void frmMain::KeepChoice(const FrameChoice& choice) {
    TellUnkeptPlace(SaveFrameChoice(userStore_, choice, commands_->Entry(choice.command)->isChecked()));
}

// A maximised frame that remembers keeps the size that it goes back to.
void frmMain::StoreGeometry() {
    if (isMinimized()) return;
    QRect frame = geometry();
    const bool remembers = commands_->Entry(kRemembersWindowSize.command)->isChecked();
    if (remembers && isMaximized() && normalGeometry().isValid()) frame = normalGeometry();
    // The choices stand beside the place: a store with a place alone is one from before they existed.
    for (const FrameChoice& choice : kFrameChoices) {
        if (SaveFrameChoice(userStore_, choice, commands_->Entry(choice.command)->isChecked())) break;
    }
    TellUnkeptPlace(
        SaveFramePlace(userStore_, {{frame.x(), frame.y(), frame.width(), frame.height()}, isMaximized()}));
}

void frmMain::TellUnkeptPlace(const std::error_code& error) {
    if (Failure failure = FailedTo(FailureKind::Write, userStore_, error))
        person_.Say(Sentence(std::move(failure).About("the window's place is not kept")));
}

}  // namespace brantlow
