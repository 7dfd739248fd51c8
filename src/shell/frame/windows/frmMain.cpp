#include "shell/frame/windows/frmMain.h"

#include <QAction>
#include <QCloseEvent>
#include <QDialog>
#include <QIcon>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>
#include <utility>

#include "acquire/feeds/live/source_standing.h"
#include "acquire/version/online_status.h"
#include "base/windows/display_text.h"
#include "chart/windows/frmGraph.h"
#include "shell/frame/run_settings.h"
#include "shell/frame/windows/command_bar.h"
#include "shell/frame/windows/file_questions.h"
#include "shell/frame/windows/frame_area.h"
#include "shell/frame/windows/frame_status_bar.h"
#include "shell/frame/windows/frame_subjects.h"
#include "shell/frame/windows/window_person.h"
#include "shell/recent_files.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "shell/user_store.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

constexpr int kIconPixels = 24;

}  // namespace

frmMain::frmMain(Session& session, Analysis& analysis, WindowPerson& person, Web& web, const Hosts& hosts,
                 Path userStore, BrowserOperations browser)
    : session_(session),
      person_(person),
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
            [this](const QPoint& place) { subjects_->hands.showPopUpMenu(area_->mapToGlobal(place)); });
    subjects_ = std::make_unique<FrameSubjects>(
        FrameSubjects::Start{*this, *area_, session, analysis, person, web, hosts, std::move(userStore),
                             std::move(browser), [this] { ApplyRules(); }});
    status_ = std::make_unique<FrameStatusBar>(*this, session);
    LendHands();
    area_->AddWelcome(subjects_->welcome.Actions(),
                      [this] { return TablesToGoOnWith(session_, subjects_->file.LastClosed()); });
    commands_ = new CommandBar(*this, *tbToolBar, [this](const MenuEntry& entry) { Run(entry.id); });
    connect(commands_, &CommandBar::RecentFileChosen, this, &frmMain::OpenRecentFile);
    connect(commands_->Menu("mnuEdit"), &QMenu::aboutToShow, this, [this] {
        commands_->Entry("mnuEditUndo")
            ->setText(Shown(subjects_->upkeep.UndoWords()).replace(u'&', QStringLiteral("&&")));
    });
    connect(commands_->Menu("mnuFile"), &QMenu::aboutToShow, this, &frmMain::ShowWhoIsAsked);
    connect(area_, &QMdiArea::subWindowActivated, this, &frmMain::ApplyRules);
    person_.Attach(status_->Parts(), session_);
    person_.pauseChanged = [this] { ApplyRules(); };
}

frmMain::~frmMain() {
    // The children go after this; nobody is to hear of it any more.
    area_->disconnect(this);
    person_.Detach();
}

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
    status_->Notice(text);
}

void frmMain::LendHands() {
    FrameHands& hands = subjects_->hands;
    hands.askFile = [this](const FileQuestion& question) { return AskFile(*this, question); };
    hands.notice = [this](const std::string& text) { status_->Notice(text); };
    hands.tell = [this](const RunReport& report) { status_->Tell(report); };
    hands.showRows = [this](const std::string& line) { status_->ShowRows(line); };
    hands.tableShown = [this] {
        if (KindOf(session_.CurrentFile) == FileKind::Ddq) commands_->ShowQuoteFileButtons();
        subjects_->explain.TableShown();
    };
    hands.showPopUpMenu = [this](const QPoint& place) { commands_->PopUpMenu().popup(place); };
    hands.showRecentFiles = [this] { commands_->ShowRecentFiles(RecentFiles(session_.settings)); };
    hands.showStatusBar = [this] {
        statusBar()->show();
        commands_->Entry("mnuViewStatusBar")->setChecked(true);
    };
    hands.check = [this](std::string_view id, bool on) { commands_->Entry(id)->setChecked(on); };
    hands.showTitle = [this] { ShowTitle(); };
    subjects_->Add({{"mnuViewToolbar",
                     [this] { tbToolBar->setVisible(commands_->Entry("mnuViewToolbar")->isChecked()); }},
                    {"mnuViewStatusBar", [this] {
                         statusBar()->setVisible(commands_->Entry("mnuViewStatusBar")->isChecked());
                     }}});
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

void frmMain::Load(const std::function<void()>& tableIsThere, const std::string& named) {
    const FrameGeometry geometry = LoadFrameGeometry(subjects_->userStore);
    setGeometry(PixelsOf(geometry.MainLeft), PixelsOf(geometry.MainTop), PixelsOf(geometry.MainWidth),
                PixelsOf(geometry.MainHeight));
    OnlineState online;
    OnLineStatus(online, LoadUserRegistry(subjects_->userStore), subjects_->hands.web);
    LoadAllSettings(session_.AppPath, session_.settings);
    subjects_->chart.LoadOptions();
    ShowTitle();
    status_->Tell(StartReport(session_));
    session_.PickedFile = named.empty() ? RecentFiles(session_.settings).front() : named;
    commands_->ShowRecentFiles(RecentFiles(session_.settings));
    subjects_->place.Open();
    OpenFirstFile(!named.empty());
    status_->HideProgress();
    if (tableIsThere) tableIsThere();
    subjects_->help.LookForNewVersion();
    subjects_->alarms.Start();
    subjects_->daily.StartClock();
}

// A first start begins on the welcome page: there is no table to open yet.
void frmMain::OpenFirstFile(bool isNamed) {
    const bool hasTable = !NamesUnmadeTable(session_);
    if (hasTable || isNamed) {
        session_.OpenWithoutDialog = true;
        subjects_->file.OpenQuotesFile();
        session_.OpenWithoutDialog = false;
    }
    if (hasTable || QuoteForm()) return;
    person_.ShowStatusWord(kStatusComplete);
    area_->ShowWelcome();
}

void frmMain::Run(std::string_view command) {
    subjects_->Run(command);
}

void frmMain::OpenRecentFile(std::size_t entry) {
    subjects_->file.OpenRecentFile(entry);
}

// Tells quotes of the practice market from real ones.
void frmMain::ShowTitle() {
    setWindowTitle(LoadHosts(session_.DataFolder()).IsPracticeMarket()
                       ? QStringLiteral("Brantlow - Practice Market")
                       : QStringLiteral("Brantlow"));
}

void frmMain::ApplyRules() {
    frmQuoteGrid* const form = QuoteForm();
    const OpenStates state = form ? StateOf(KindOf(session_.CurrentFile)) : kWithNothing;
    const ChildOperations* active = subjects_->children.ActiveOperations();
    commands_->ApplyRules(state | (active ? active->active : 0), person_.InRun());
    if (subjects_->runs.FillsTable()) commands_->Entry("mnuFileClose")->setEnabled(true);
    if (form) form->ApplyRules(state, !person_.InRun());
    area_->ShowWelcome();
}

// In the midst of a run the frame stays until the run has come to its end; then it closes.
void frmMain::closeEvent(QCloseEvent* event) {
    if (subjects_->runs.ClosesFrameAfterwards()) return event->ignore();
    if (!subjects_->upkeep.CloseEditors()) return event->ignore();
    subjects_->help.CloseForm();
    subjects_->upkeep.BackUpBeforeExit();
    if (QuoteForm()) {
        SaveRecentFiles(session_);
        subjects_->hands.closeChildren();
    }
    // A system that no longer knows whose windows they are would keep the program alive for them.
    for (QDialog* const window : findChildren<QDialog*>()) window->close();
    subjects_->place.Keep();
    event->accept();
}

}  // namespace brantlow
