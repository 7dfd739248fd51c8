// The main frame: menu, buttons, status bar and the area in which the table's window stands. It shows what
// the engine decides and passes clicks on; the roads of files are in store/table_road.h.
#pragma once

#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <memory>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "chart/chart_actions.h"
#include "indicators/analysis.h"
#include "shell/display.h"
#include "shell/frame/windows/browser_operations.h"
#include "shell/frame/windows/child_operations.h"
#include "shell/frame/windows/update_runs.h"
#include "shell/session.h"
#include "store/day_store.h"
#include "store/table_edit.h"
#include "store/table_road.h"

class QDialog;
class QImage;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QProgressBar;
class QToolBar;

namespace brantlow {

class CommandBar;
class frmGraph;
class frmHelp;
class frmQuoteGrid;
class PagePrinter;
class WindowPerson;
enum class AskedBy;
enum class BackedUp;
struct MenuEntry;
struct DailyUpdate;
struct SelectorOutcome;

class frmMain final : public QMainWindow {
    Q_OBJECT
  public:
    // All outlive the frame. `userStore` is the file of the per-user settings store. Without a browser the
    // research commands open nothing.
    frmMain(Session& session, Analysis& analysis, WindowPerson& person, Web& web, const Hosts& hosts,
            Path userStore, BrowserOperations browser = {});
    ~frmMain() override;

    // The load: settings, display, size, the most recent file, as the program starts.
    void Load();

    // Runs the entry of this name; unknown names do nothing.
    void Run(std::string_view command);
    // Opens the recent file 1 to 4 without a dialog.
    void OpenRecentFile(std::size_t entry);

    CommandBar& Commands() { return *commands_; }
    // The open table's window, null when none is open.
    frmQuoteGrid* QuoteForm() const;
    // The browser window, null when none is open.
    QWidget* BrowserForm() const;
    // The chart's window, null when none is open.
    frmGraph* GraphForm() const;

    // Where Print sends its pages.
    PagePrinter& Pages() { return *pagePrinter_; }
    // What the File menu does with this child of the frame; forgotten when the child is gone.
    void SetOperations(QWidget& child, ChildOperations operations);
    // Those of a chart: it is printed and kept as the picture of its `client` area, under its caption.
    ChildOperations PictureOperations(QWidget& chart, QWidget& client);

    // The routines of the entries, found by the entry's name in a table.
    void NewTable();
    void OpenQuotesFile();
    void OpenEvaluations();
    void OpenFundamentals();
    void CloseFile();
    void SaveFile();
    void SaveFileAs();
    void Print();
    void PrintPreview();
    void PageSetUp();
    void ExitProgram();
    void PopulateTickers();
    void ImportQuoteFile();
    void ExportQuoteFile();
    void AddSymbol();
    void DeleteSymbol();
    void EditAlarm();
    void SortAscending();
    void SortDescending();
    void AdjustSplit();
    void CmdUpdateQuotes();
    void ApplicationSettingsScreen();
    void StockSelector();
    void ExtendedFundamentals();
    void ExtendedFundamentalData();
    void ViewToolbar();
    void ViewStatusBar();
    void StockSelectorSettings();
    void ChartHighLowClose();
    void ChartCandleStick();
    void ChartAgain();
    void SetupWizard();
    // Opens the schedule of the daily run over the window that turned it on.
    QDialog* OpenSchedulerWizard(QWidget* asking);
    void Cascade();
    void TileHorizontal();
    void TileVertical();
    void ArrangeIcons();
    void ExportHistoricalQuotes();
    void OpenUsersForum();
    void CreateMarketQuoteFile();
    void ShowHelpContents();
    void ShowHelpIndex();
    void ShowAbout();
    void ShowDisclaimer();
    void CheckForUpdates();
    void BackUpProgramFiles();
    void BackUpQuoteDatabase();
    void RestoreProgramFiles();
    void RestoreQuoteDatabase();
    void EditQuoteFiles();
    void EditDatabaseFiles();
    void CombineFiles();
    void RemoveUpdate();
    void DeleteFiles();

    // One look at the clock: starts the daily run in its minute. Called by a timer about once a second.
    void WaitForDailyRun();
    // Long runs watch the memory by this text instead of the system's.
    void WatchMemoryBy(std::string (*memoryInfo)()) { updates_.memoryInfo = memoryInfo; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void BuildStatusBar();
    void PlaceFrame();
    TableWindows Windows();
    void CheckActivefrm();
    QMdiSubWindow* AddChild(QWidget& form);
    void RemoveChild(QMdiSubWindow* child);
    bool InFront(const QMdiSubWindow* child) const;
    void CloseQuoteForm();
    void CloseTable();
    Path AskFile(const FileQuestion& question);
    const ChildOperations* ActiveOperations() const;
    void Operate(std::function<void()> ChildOperations::*operation);
    void SetTableOperations();
    void PrintTable();
    void PrintPicture(QWidget& client, const QString& caption);
    void PrintToFile(const QImage& picture, const QString& caption);
    void SavePicture(QWidget& client, const QString& caption);
    void SavePictureAs(QWidget& client, const QString& caption);
    void WritePicture(const QImage& picture, const Path& file);
    // A file below Images/ for this caption, empty when the person chose none.
    Path AskImageFile(const std::string& title, const QString& caption, std::string_view extension);
    // A line in the status bar for a while.
    void Notice(const std::string& text);
    TableLoad LoadQuoteForm();
    void ShowQuoteForm();
    void NameChanged();
    void ShowPopUpMenu(const QPoint& place);
    void OpenResearch(std::string_view command);
    void OpenBrowser(const std::string& address);
    void SetBrowserOperations();
    void CloseBrowser();
    void RunBackUp(BackedUp what, bool restores);
    Path HelpFolder() const;
    void ShowHelp(std::string_view page);
    std::string WindowInFront() const;
    void OfferNewVersion(AskedBy askedBy);
    void UpdateProgram();
    UrlCache& Cache();
    void EditFile(const Path& file);
    // False when a text that is not saved is to stay open.
    bool CloseEditors();
    void ApplyRules();
    void StoreGeometry();
    void AskInterval();
    void RunStockSelector(Interval interval);
    void RunPopulate();
    DailyUpdate RunUpdate();
    void CollectFundamentals();
    void BackUpBeforeExit();
    void StartClock();
    void ShowChart(std::string_view style);
    void LoadGraphForm(const ChartContext& context);
    void CloseGraph();
    void OfferHistory();
    void DownloadChartHistory();
    void BeginTableRun();
    bool EndTableRun();
    bool EndRun();
    void TellEdit(const TableEdit& edit);
    void TellDatabaseError(const std::error_code& error);
    void RestateHistory(const std::string& ticker, double SplitFactor);
    void RunRepopulate();
    bool AsksToDeleteHistory(const std::string& ticker);
    void TellOutcome(const SelectorOutcome& outcome);
    void Tile(Qt::Orientation stacked);
    QList<QMdiSubWindow*> ShownChildren() const;

    Session& session_;
    Analysis& analysis_;
    WindowPerson& person_;
    Web& web_;
    const Hosts& hosts_;
    Path userStore_;
    BrowserOperations browser_;
    Display display_;
    // Of all imports until exit.
    DayStore days_;
    QMdiArea* area_;
    QToolBar* tbToolBar;
    QLabel* fixedPanel_ = nullptr;
    QLabel* statusWord_ = nullptr;
    QLabel* tickerCount_ = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    CommandBar* commands_;
    QPointer<frmQuoteGrid> quoteForm_;
    QPointer<QMdiSubWindow> quoteWindow_;
    UpdateRuns updates_;
    // Outlives each chart: the next one starts in the style of the last.
    ChartSession chart_;
    QPointer<frmGraph> graphForm_;
    QPointer<QMdiSubWindow> graphWindow_;
    QPointer<QWidget> browserForm_;
    QPointer<QMdiSubWindow> browserWindow_;
    QPointer<frmHelp> helpForm_;
    struct HeldOperations {
        QPointer<QWidget> child;  // null once it is gone
        ChildOperations operations;
    };
    QList<HeldOperations> operations_;
    std::unique_ptr<PagePrinter> pagePrinter_;
    bool exitAfterRun_ = false;
};

}  // namespace brantlow
