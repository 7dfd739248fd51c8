// The main frame: the area in which the windows stand, the menu and the buttons, the status bar, and the load
// and the close of the program. What an entry of the menu does is done by the subjects of its commands
// (frame_hands.h says what the frame does for them); the menu table itself is shell/frame/commands.h.
#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "indicators/analysis.h"
#include "research/windows/browser_operations.h"
#include "shell/session.h"

class QToolBar;

namespace brantlow {

class CommandBar;
class FrameArea;
class FrameStatusBar;
class WindowPerson;
class frmGraph;
class frmQuoteGrid;
struct FrameSubjects;

class frmMain final : public QMainWindow {
    Q_OBJECT
  public:
    // All outlive the frame. `userStore` is the file of the per-user settings store. Without a browser the
    // research commands open nothing.
    frmMain(Session& session, Analysis& analysis, WindowPerson& person, Web& web, const Hosts& hosts,
            Path userStore, BrowserOperations browser = {});
    ~frmMain() override;

    // The load: settings, display, size, the most recent file, as the program starts; in its place the table
    // `named` of the data folder, unless that is empty. One that is not there is told. `tableIsThere`, where
    // it is given, is called once that file or the welcome page shows.
    void Load(const std::function<void()>& tableIsThere = {}, const std::string& named = {});
    // Runs the entry of this name; unknown names do nothing.
    void Run(std::string_view command);
    // Opens the recent file 1 to 4 without a dialog.
    void OpenRecentFile(std::size_t entry);

    // A line in the status bar for a while.
    void ShowNotice(const std::string& text);

    CommandBar& Commands() { return *commands_; }
    FrameSubjects& Subjects() { return *subjects_; }
    // The windows of the open table, of the web pages and of the chart; null when there is none.
    frmQuoteGrid* QuoteForm() const;
    QWidget* BrowserForm() const;
    frmGraph* GraphForm() const;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    // What the frame itself does for the subjects, and its own commands.
    void LendHands();
    // The entries that fetch prices tell where from, where that is a live source.
    void ShowWhoIsAsked();
    void OpenFirstFile(bool isNamed);
    void ShowTitle();
    void ApplyRules();

    Session& session_;
    WindowPerson& person_;
    FrameArea* area_;
    QToolBar* tbToolBar;
    std::unique_ptr<FrameStatusBar> status_;
    CommandBar* commands_;
    std::unique_ptr<FrameSubjects> subjects_;
};

}  // namespace brantlow
