// What the main frame does for the subjects of its commands. Each subject (file, edit, chart ...) is a class
// with its own state and its own rows of the menu table; it gets these hands and sees no other subject.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "acquire/web/hosts.h"
#include "acquire/web/web.h"
#include "chart/condition_series.h"
#include "screens/setup_wizard.h"
#include "shell/frame/windows/child_operations.h"
#include "shell/run_report.h"
#include "shell/session.h"
#include "shell/settings/settings_needs.h"
#include "store/table_road.h"

class QImage;
class QMainWindow;
class QPoint;
class QString;
class QWidget;

namespace brantlow {

class FrameChildren;
class FrameRuns;
class WindowPerson;
struct FiredAlarm;
struct MailTold;
struct TableOnPaper;
class frmQuoteGrid;

// The routine behind one entry of the menu table.
struct CommandRow {
    std::string_view id;
    std::function<void()> run;
};
using CommandRows = std::vector<CommandRow>;

// The rows of a subject as it writes them down; RowsOf makes them callable. The subject outlives the rows.
template <class Subject>
struct SubjectRow {
    std::string_view id;
    void (Subject::*run)();
};
template <class Subject, std::size_t Count>
CommandRows RowsOf(Subject& subject, const SubjectRow<Subject> (&rows)[Count]) {
    CommandRows bound;
    for (const SubjectRow<Subject>& row : rows)
        bound.push_back({row.id, [&subject, run = row.run] { (subject.*run)(); }});
    return bound;
}

// The open table, as the subjects beside the file commands may have it.
struct TableHands {
    // Its window, null when none is open.
    std::function<frmQuoteGrid*()> form;
    // Closes every child and opens this file of the data folder; false when that failed, which the person has
    // been told.
    std::function<bool(std::string_view name)> show;
    // Reads the open file again in its own window; the other children stay. False as above.
    std::function<bool()> reload;
    // The open file goes by Session::CurrentFile from now on.
    std::function<void()> nameChanged;
    std::function<void()> close;
};

// The ticker that a command means: the one of the open table's row, whatever a run has worked on since, else
// Session::CurrentTicker. The session's is that one again afterwards.
std::string TickerMeant(const TableHands& table, Session& session);

// How the filling of the open table went.
enum class Filling {
    Done,
    Kept,   // stored histories were not to be replaced: nothing was fetched
    Ended,  // by the person, or with the window
};

struct FrameHands {
    QMainWindow& window;  // the owner of dialogs
    Session& session;
    WindowPerson& person;
    Web& web;
    const Hosts& hosts;
    FrameChildren& children;
    FrameRuns& runs;
    TableHands table = {};
    // The file that the person chose, empty when the dialog was cancelled.
    std::function<Path(const FileQuestion&)> askFile = {};
    // A line in the status bar for a while.
    std::function<void(const std::string&)> notice = {};
    // Shows what a run did in the status bar's first field, and keeps the list of its tickers.
    std::function<void(const RunReport&)> tell = {};
    // Applies the enabling rules.
    std::function<void()> applyRules = {};
    // Closes every child, whatever it shows.
    std::function<void()> closeChildren = {};
    // Another row of the table is selected, or its alarms have changed.
    std::function<void()> rowChosen = {};
    // What updates keep of each row is forgotten.
    std::function<void()> forgetRows = {};
    // The open table's window has come into sight.
    std::function<void()> tableShown = {};
    // Shows the menu that belongs to a right-click at this place of the screen.
    std::function<void(const QPoint&)> showPopUpMenu = {};
    // Shows the recent files in the menu as they stand in the settings.
    std::function<void()> showRecentFiles = {};
    // Shows the status bar, and its entry in the View menu as on.
    std::function<void()> showStatusBar = {};
    // Shows an entry with a tick, or without one.
    std::function<void(std::string_view id, bool on)> check = {};
    // The frame's title, that of the practice market while quotes come from there.
    std::function<void()> showTitle = {};
    // Opens a file of the data folder without a dialog, by the road of the recent files.
    std::function<void(const std::string& name)> openNamed = {};
    // Opens a quote file of any folder; one from elsewhere is copied into the data folder first.
    std::function<void(const Path& file)> openQuoteFile = {};
    // Whether an entry of the menu that is a choice is on.
    std::function<bool(std::string_view command)> isChosen = {};
    // Shows how many rows the open table has, and what a column adds up to, in the status bar.
    std::function<void(const std::string& line)> showRows = {};
    // The row that was taken out of the open table last and not saved: its ticker, empty where there is none,
    // and the putting back.
    std::function<std::string()> rowToRestore = {};
    std::function<void()> restoreRow = {};
    // Does `show` after the change of this number was undone; the rows of an import go with its files.
    std::function<void(std::size_t change, const std::function<void()>& show)> showUndone = {};
    // Prints a table: on the printer, or into a file that is asked for where there is none.
    std::function<void(const TableOnPaper& paper)> printTable = {};
    // Fetches the histories of the open table's tickers, then their quotes of the day, each told as always;
    // `histories` takes what the first of the two told.
    std::function<Filling(RunReport& histories)> fillTable = {};
    // Leads to a first table and its chart, as the welcome page does.
    std::function<void(StartWay)> begin = {};
    // Runs the entry of this name.
    std::function<void(std::string_view)> run = {};
    // What the File menu does with a chart: it is printed and kept as its `picture`, under its caption. `svg`
    // gives it as an SVG file; without one it cannot be kept as such.
    std::function<ChildOperations(QWidget& chart, std::function<QImage()> picture,
                                  std::function<std::string()> svg)>
        pictureOperations = {};
    // Opens the chart of a ticker as another window wants it.
    std::function<void(const ChartWish& wish)> openChart = {};
    // The alarms of a run that is over, which the desktop and the status bar tell, and how their mail went.
    std::function<void(const std::vector<FiredAlarm>& fired, const MailTold& mail)> alarmsFired = {};
    // Whether a mail of alarms is on its way beside the windows; a run sends none meanwhile.
    std::function<bool()> isMailing = {};
    // Opens the settings of the alarms' mail over the window that asked for them.
    std::function<void(QWidget* asking)> openAlarmMail = {};
    // Opens a page in the browser window.
    std::function<void(const std::string& address)> openPage = {};
};

// True, with a sentence to the person, while one of these settings files cannot be read.
bool RefusedBySettings(const FrameHands& frame, SettingsNeeds needs);

}  // namespace brantlow
