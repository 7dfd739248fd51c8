#include "shell/frame/windows/frmMain.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <algorithm>

#include "acquire/version/version_check.h"
#include "acquire/web/hosts.h"
#include "base/windows/colours.h"
#include "base/windows/display_text.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/page_printer.h"
#include "shell/frame/windows/command_bar.h"
#include "shell/frame/windows/frame_area.h"
#include "shell/frame/windows/frmHelp.h"
#include "shell/frame/windows/window_person.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "shell/user_store.h"
#include "store/file_names.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// Tells quotes of the practice market from real ones.
QString FrameTitle(const Session& session) {
    return LoadHosts(session.DataFolder()).IsPracticeMarket() ? QStringLiteral("Brantlow - Practice Market")
                                                              : QStringLiteral("Brantlow");
}

// The routine behind every entry of the catalogue but those that open a research page.
struct Action {
    std::string_view id;
    void (frmMain::*run)();
};
constexpr std::array kActions = {
    Action{"mnuFileNewEODQuoteFile", &frmMain::NewTable},
    Action{"mnuFileNewCreateMarketQuoteFile", &frmMain::CreateMarketQuoteFile},
    Action{"mnuFileOpenQuotesDB", &frmMain::OpenQuotesFile},
    Action{"mnuFileOpenEvaluationDB", &frmMain::OpenEvaluations},
    Action{"mnuFileOpenExtendedFundamental", &frmMain::OpenFundamentals},
    Action{"mnuFileClose", &frmMain::CloseFile},
    Action{"mnuFileSave", &frmMain::SaveFile},
    Action{"mnuFileSaveAs", &frmMain::SaveFileAs},
    Action{"mnuFilePopulate", &frmMain::PopulateTickers},
    Action{"mnuFileImportQuotes", &frmMain::ImportQuoteFile},
    Action{"mnuFileExportQuotes", &frmMain::ExportQuoteFile},
    Action{"mnuFileUpdateQuotes", &frmMain::CmdUpdateQuotes},
    Action{"mnuFilePrintPreview", &frmMain::PrintPreview},
    Action{"mnuFilePrint", &frmMain::Print},
    Action{"mnuFilePageSetup", &frmMain::PageSetUp},
    Action{"mnuFileExit", &frmMain::ExitProgram},
    Action{"mnuEditBackUpProgramFiles", &frmMain::BackUpProgramFiles},
    Action{"mnuEditBackUpQuoteDatabase", &frmMain::BackUpQuoteDatabase},
    Action{"mnuEditRestoreProgramFiles", &frmMain::RestoreProgramFiles},
    Action{"mnuEditRestoreQuoteDatabase", &frmMain::RestoreQuoteDatabase},
    Action{"mnuEditEditQuoteFiles", &frmMain::EditQuoteFiles},
    Action{"mnuEditEditDatabaseFiles", &frmMain::EditDatabaseFiles},
    Action{"mnuEditCombineQuoteFiles", &frmMain::CombineFiles},
    Action{"mnuEditRemoveLastUpdate", &frmMain::RemoveUpdate},
    Action{"mnuEditDelete", &frmMain::DeleteFiles},
    Action{"mnuViewToolbar", &frmMain::ViewToolbar},
    Action{"mnuViewStatusBar", &frmMain::ViewStatusBar},
    Action{"mnuSettingsApplication", &frmMain::ApplicationSettingsScreen},
    Action{"mnuSettingsStockSelector", &frmMain::StockSelectorSettings},
    Action{"mnuGraphicsHLC", &frmMain::ChartHighLowClose},
    Action{"mnuGraphicsCandleStick", &frmMain::ChartCandleStick},
    Action{"mnuEvaluatePickStocks", &frmMain::StockSelector},
    Action{"mnuExtendedFundamentals", &frmMain::ExtendedFundamentals},
    Action{"FundamentalData", &frmMain::ExtendedFundamentalData},
    Action{"mnuWindowCascade", &frmMain::Cascade},
    Action{"mnuWindowTileHorizontal", &frmMain::TileHorizontal},
    Action{"mnuWindowTileVertical", &frmMain::TileVertical},
    Action{"mnuWindowArrangeIcons", &frmMain::ArrangeIcons},
    Action{"SetupWizard", &frmMain::SetupWizard},
    Action{"mnuHelpUsersForum", &frmMain::OpenUsersForum},
    Action{"mnuEditSplitAdjustment", &frmMain::AdjustSplit},
    Action{"mnuPopUpSplitAdjustmentMakeAdjustment", &frmMain::AdjustSplit},
    Action{"CmdAdd", &frmMain::AddSymbol},
    Action{"CmdDelete", &frmMain::DeleteSymbol},
    Action{"CmdAlarm", &frmMain::EditAlarm},
    Action{"SortAscending", &frmMain::SortAscending},
    Action{"SortDescending", &frmMain::SortDescending},
    Action{"Graphics", &frmMain::ChartAgain},
    Action{"mnuPopUpGraphicsHLC", &frmMain::ChartHighLowClose},
    Action{"mnuPopUpGraphicsCandleStick", &frmMain::ChartCandleStick},
    Action{"mnuPopUpExportHistQuotes", &frmMain::ExportHistoricalQuotes},
    Action{"mnuHelpFile", &frmMain::ShowHelpContents},
    Action{"mnuHelpIndex", &frmMain::ShowHelpIndex},
    Action{"mnuHelpAbout", &frmMain::ShowAbout},
    Action{"mnuHelpDisclaimer", &frmMain::ShowDisclaimer},
    Action{"mnuHelpBrantlowUpdates", &frmMain::CheckForUpdates},
};

constexpr int kIconPixels = 24;
constexpr int kWordPanelWidth = 130;
constexpr int kCountPanelWidth = 80;
constexpr int kProgressWidth = 180;
constexpr int kPercent = 100;
constexpr double kCascadeShare = 0.8;
constexpr int kCascadeGap = 6;

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

// The part of a filter that the dialog of this platform takes: the words, which hold the pattern.
QString DialogFilter(const std::string& filter) {
    return Shown(std::string_view(filter).substr(0, filter.find('|')));
}

}  // namespace

frmMain::frmMain(Session& session, Analysis& analysis, WindowPerson& person, Web& web, const Hosts& hosts,
                 Path userStore, BrowserOperations browser)
    : session_(session),
      analysis_(analysis),
      person_(person),
      web_(web),
      hosts_(hosts),
      userStore_(std::move(userStore)),
      browser_(std::move(browser)),
      area_(new FrameArea),
      tbToolBar(new QToolBar(QStringLiteral("Buttons"))),
      pagePrinter_(std::make_unique<PagePrinter>()) {
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
    commands_ = new CommandBar(*this, *tbToolBar, [this](const MenuEntry& command) { Run(command.id); });
    connect(commands_, &CommandBar::RecentFileChosen, this, &frmMain::OpenRecentFile);
    connect(area_, &QMdiArea::subWindowActivated, this, &frmMain::ApplyRules);
    BuildStatusBar();
    qApp->installEventFilter(this);
    person_.Attach({this, statusWord_, tickerCount_, ProgressBar1}, session_);
    person_.pauseChanged = [this] { ApplyRules(); };
}

frmMain::~frmMain() {
    delete helpForm_;
    // The children go after this; nobody is to hear of it any more.
    area_->disconnect(this);
    person_.Detach();
}

frmQuoteGrid* frmMain::QuoteForm() const {
    return quoteForm_;
}

frmGraph* frmMain::GraphForm() const {
    return graphForm_;
}

void frmMain::BuildStatusBar() {
    statusBar()->setObjectName(QStringLiteral("sbStatusBar"));
    const Date today = session_.clock.Today();
    const QDate day(static_cast<int>(today.year()), static_cast<int>(static_cast<unsigned>(today.month())),
                    static_cast<int>(static_cast<unsigned>(today.day())));
    fixedPanel_ = new QLabel(QLocale::c().toString(day, QStringLiteral(" dddd, MMMM d, yyyy")));
    fixedPanel_->setObjectName(QStringLiteral("Panel1"));
    statusBar()->addWidget(fixedPanel_, 1);
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
    for (QWidget* part : statusBar()->findChildren<QWidget*>()) KeepColoursWhenDisabled(*part);
}

void frmMain::Load() {
    const FrameGeometry geometry = LoadFrameGeometry(userStore_);
    setGeometry(PixelsOf(geometry.MainLeft), PixelsOf(geometry.MainTop), PixelsOf(geometry.MainWidth),
                PixelsOf(geometry.MainHeight));
    OnLineStatus(updates_.online, LoadUserRegistry(userStore_), web_);
    LoadAllSettings(session_.AppPath, session_.settings);
    setWindowTitle(FrameTitle(session_));
    session_.PickedFile = session_.settings.MruSettings.Text(1);
    commands_->ShowRecentFiles(session_.settings.MruSettings);
    PlaceFrame();
    session_.OpenWithoutDialog = "True";
    OpenQuotesFile();
    session_.OpenWithoutDialog = "False";
    ProgressBar1->hide();
    OfferNewVersion(AskedBy::Program);
    StartClock();
}

// At the top left corner in its own size, or as much of it as the screen has; the whole of a smallest screen.
void frmMain::PlaceFrame() {
    const QScreen* const onScreen = screen();
    display_.ScreenWidth = onScreen->size().width();
    display_.ScreenHeight = onScreen->size().height();
    const QRect available = onScreen->availableGeometry();
    move(available.topLeft());
    // The title bar stands above what is measured here.
    const int titleBar = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    resize(std::min(PixelsOf(kFrameWidth), available.width()),
           std::min(PixelsOf(kFrameHeight), available.height() - titleBar));
    if (display_.FrameStartsMaximised()) {
        showMaximized();
    } else {
        show();
    }
}

void frmMain::Run(std::string_view command) {
    for (const Action& action : kActions) {
        if (action.id == command) return (this->*action.run)();
    }
    OpenResearch(command);
}

TableWindows frmMain::Windows() {
    TableWindows windows;
    windows.CheckActivefrm = [this] { CheckActivefrm(); };
    windows.askFile = [this](const FileQuestion& question) { return AskFile(question); };
    windows.loadQuoteForm = [this] { return LoadQuoteForm(); };
    windows.showQuoteForm = [this] { ShowQuoteForm(); };
    windows.openTable = [this]() -> const QuoteTable* { return quoteForm_ ? &quoteForm_->Table() : nullptr; };
    windows.nameChanged = [this] { NameChanged(); };
    return windows;
}

void frmMain::CheckActivefrm() {
    CloseBrowser();
    CloseQuoteForm();
    CloseGraph();
}

QMdiSubWindow* frmMain::AddChild(QWidget& form) {
    QMdiSubWindow* const child = area_->addSubWindow(&form);
    child->setWindowIcon(windowIcon());
    // The area's own close key would stand against that of the Close command.
    for (QAction* action : child->systemMenu()->actions()) action->setShortcut({});
    return child;
}

// The child that comes to the front takes the whole area when the one before it did.
void frmMain::RemoveChild(QMdiSubWindow* child) {
    if (!child) return;
    const bool filled = child->isMaximized();
    area_->removeSubWindow(child);
    // Later: the window may be the one whose own close button led here.
    child->hide();
    child->deleteLater();
    const QList<QMdiSubWindow*> left = ShownChildren();
    if (filled && !left.isEmpty()) left.constLast()->showMaximized();
}

bool frmMain::InFront(const QMdiSubWindow* child) const {
    return child && area_->currentSubWindow() == child;
}

void frmMain::CloseQuoteForm() {
    RemoveChild(quoteWindow_);
    quoteWindow_ = nullptr;
    quoteForm_ = nullptr;
    person_.HideTickerCount();
    setWindowTitle(FrameTitle(session_));
    ApplyRules();
}

Path frmMain::AskFile(const FileQuestion& question) {
    QFileDialog dialog(this, Shown(question.title), ShownPath(question.folder),
                       DialogFilter(question.filter));
    dialog.setOption(QFileDialog::DontUseNativeDialog, !isActiveWindow() || !isVisible());
    dialog.setAcceptMode(question.saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // A file that cannot be opened is told in the program's own words, so any name may be entered.
    dialog.setFileMode(QFileDialog::AnyFile);
    if (!question.fileName.empty()) dialog.selectFile(Shown(question.fileName));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return PathOf(dialog.selectedFiles().constFirst());
}

TableLoad frmMain::LoadQuoteForm() {
    auto* form = new frmQuoteGrid(session_);
    connect(form, &frmQuoteGrid::CloseAsked, this, [this] {
        if (!person_.InRun() || updates_.collecting) CloseTable();
    });
    connect(form, &frmQuoteGrid::CommandPressed, this, &frmMain::Run);
    connect(form, &frmQuoteGrid::PopUpAsked, this, &frmMain::ShowPopUpMenu);
    quoteForm_ = form;
    quoteWindow_ = AddChild(*form);
    quoteWindow_->resize(std::min(PixelsOf(ScaledWidth(display_, kTableWidth)), area_->width()),
                         std::min(PixelsOf(ScaledHeight(display_, kTableHeight)), area_->height()));
    const TableLoad load = form->Load();
    SetTableOperations();
    return load;
}

void frmMain::ShowQuoteForm() {
    quoteWindow_->showMaximized();
    if (KindOf(session_.CurrentFile) == FileKind::Ddq) commands_->ShowQuoteFileButtons();
}

void frmMain::NameChanged() {
    if (quoteForm_) quoteForm_->NameChanged();
    commands_->ShowRecentFiles(session_.settings.MruSettings);
    ApplyRules();
}

void frmMain::ApplyRules() {
    const OpenStates state = quoteForm_ ? StateOf(KindOf(session_.CurrentFile)) : kWithNothing;
    const ChildOperations* active = ActiveOperations();
    commands_->ApplyRules(state | (active ? active->active : 0), person_.InRun());
    if (updates_.collecting) commands_->Entry("mnuFileClose")->setEnabled(true);
    if (quoteForm_) quoteForm_->ApplyRules(state, !person_.InRun());
}

void frmMain::ShowPopUpMenu(const QPoint& place) {
    commands_->PopUpMenu().popup(place);
}

void frmMain::ExportHistoricalQuotes() {
    person_.Say("This function is not yet available.");
}

void frmMain::NewTable() {
    OpenTableFile(session_, OpeningRoad::NewTable, Windows());
}

void frmMain::OpenQuotesFile() {
    statusBar()->show();
    OpenTableFile(session_, OpeningRoad::EndOfDay, Windows());
    NameChanged();
}

void frmMain::OpenEvaluations() {
    OpenTableFile(session_, OpeningRoad::Evaluation, Windows());
}

void frmMain::OpenFundamentals() {
    OpenTableFile(session_, OpeningRoad::ExtendedFundamental, Windows());
}

void frmMain::OpenRecentFile(std::size_t entry) {
    session_.OpenWithoutDialog = "True";
    session_.PickedFile = session_.settings.MruSettings.Text(entry);
    OpenQuotesFile();
}

void frmMain::CloseFile() {
    if (InFront(graphWindow_)) return CloseGraph();
    if (InFront(browserWindow_)) return CloseBrowser();
    CloseTable();
}

// The other children stay.
void frmMain::CloseTable() {
    if (updates_.collecting) {
        session_.run.ProcessCommand = kStopRun;
        updates_.closeAfterRun = true;
        return;
    }
    statusBar()->show();
    TableWindows windows = Windows();
    windows.CheckActivefrm = [this] { CloseQuoteForm(); };
    CloseTableFile(session_, windows);
    NameChanged();
}

void frmMain::ExitProgram() {
    close();
}

// In the midst of a run the frame stays until the run has come to its end; then it closes.
void frmMain::closeEvent(QCloseEvent* event) {
    if (person_.InRun()) {
        session_.run.ProcessCommand = kStopRun;
        exitAfterRun_ = true;
        event->ignore();
        return;
    }
    if (!CloseEditors()) return event->ignore();
    if (helpForm_) helpForm_->close();
    BackUpBeforeExit();
    if (quoteForm_) {
        SaveRecentFiles(session_);
        CheckActivefrm();
    }
    StoreGeometry();
    event->accept();
}

void frmMain::StoreGeometry() {
    if (isMinimized()) return;
    const QRect frame = geometry();
    const std::error_code error = SaveFrameGeometry(
        userStore_,
        {static_cast<double>(TwipsOf(frame.x())), static_cast<double>(TwipsOf(frame.y())),
         static_cast<double>(TwipsOf(frame.width())), static_cast<double>(TwipsOf(frame.height()))});
    if (error) {
        person_.Say("The window's place cannot be kept in " + userStore_.string() + " (" + error.message() +
                    ")");
    }
}

void frmMain::ViewToolbar() {
    tbToolBar->setVisible(commands_->Entry("mnuViewToolbar")->isChecked());
}

void frmMain::ViewStatusBar() {
    statusBar()->setVisible(commands_->Entry("mnuViewStatusBar")->isChecked());
}

// One over another, each a title bar lower than the one before and large enough to be read.
void frmMain::Cascade() {
    const QSize size = area_->viewport()->size() * kCascadeShare;
    const int step = style()->pixelMetric(QStyle::PM_TitleBarHeight) + kCascadeGap;
    int offset = 0;
    for (QMdiSubWindow* child : ShownChildren()) {
        child->showNormal();
        child->setGeometry(QRect(QPoint(offset, offset), size));
        child->raise();
        offset += step;
    }
}

void frmMain::TileHorizontal() {
    Tile(Qt::Vertical);
}

void frmMain::TileVertical() {
    Tile(Qt::Horizontal);
}

QList<QMdiSubWindow*> frmMain::ShownChildren() const {
    QList<QMdiSubWindow*> children;
    for (QMdiSubWindow* child : area_->subWindowList()) {
        if (child->isVisible() && !child->isMinimized()) children.append(child);
    }
    return children;
}

// Shares the area among the windows, one below another or side by side.
void frmMain::Tile(Qt::Orientation stacked) {
    const QList<QMdiSubWindow*> children = ShownChildren();
    const QSize whole = area_->viewport()->size();
    const int count = static_cast<int>(children.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* child = children.at(i);
        child->showNormal();
        if (stacked == Qt::Vertical) {
            child->setGeometry(0, whole.height() * i / count, whole.width(), whole.height() / count);
        } else {
            child->setGeometry(whole.width() * i / count, 0, whole.width() / count, whole.height());
        }
    }
}

// Minimised windows in a row along the lower edge.
void frmMain::ArrangeIcons() {
    int left = 0;
    for (QMdiSubWindow* child : area_->subWindowList()) {
        if (!child->isMinimized()) continue;
        child->move(left, area_->viewport()->height() - child->height());
        left += child->width();
    }
}

}  // namespace brantlow
