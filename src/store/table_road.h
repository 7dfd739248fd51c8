// The road of a table file: opening it by one of the four commands, closing, saving, and what stands in the
// recent-file list afterwards. The main frame calls these for its menu; what only windows can do (ask for a
// name, make the table's window, close the children) it hands in.
//
// At most one table is open at a time. Session::CurrentFile is its name and empty while none is open.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "shell/session.h"
#include "store/quote_table.h"
#include "store/table_files.h"

namespace brantlow {

enum class OpeningRoad { EndOfDay, Evaluation, ExtendedFundamental, NewTable };

// What a file dialog asks.
struct FileQuestion {
    std::string title;
    Path folder;
    std::string fileName;  // proposed name, may be empty
    std::string filter;    // "words|pattern"
    bool saving = false;
};

// What the road asks of the windows.
struct TableWindows {
    // Closes every child, whatever it shows; the ticker count goes with the table.
    std::function<void()> CheckActivefrm;
    // The file that the person chose, empty when the dialog was cancelled.
    std::function<Path(const FileQuestion&)> askFile;
    // Makes a new table window for Session::CurrentFile and loads the file into it. The window is not shown
    // yet.
    std::function<TableLoad()> loadQuoteForm;
    std::function<void()> showQuoteForm;
    // The open table, null when none is open.
    std::function<QuoteTable*()> openTable;
    // The open file goes by Session::CurrentFile from now on.
    std::function<void()> nameChanged;
    // Does what saves the table, as work where it takes a while; it is just done without this.
    std::function<void(const QuoteTable&, const std::function<void()>&)> saving = nullptr;
};

// Opens a table: closes the children, asks for a file where one is needed, loads and shows it. A cancelled
// dialog leaves the frame empty. A file that cannot be opened is told to the person and leaves it empty too.
void OpenTableFile(Session& session, OpeningRoad road, const TableWindows& windows);

// Loads and shows Session::CurrentFile; false when it could not be opened, which the person has been told.
bool ShowCurrentFile(Session& session, const TableWindows& windows);

// Closes the open table. The template asks whether to save it first.
void CloseTableFile(Session& session, const TableWindows& windows);

// Saves the open table: a quote table in place, any other kind under a name that is asked for.
void SaveTableFile(Session& session, const TableWindows& windows);

// Saves the open table under a name that is asked for.
void SaveTableFileAs(Session& session, const TableWindows& windows);

// The recent-file list as it stands to its settings file, with the open quote table on top.
void SaveRecentFiles(Session& session);

// The tables to go on with, by their names in Data/: `lastClosed`, which may be empty, then the recent files.
// Each once, and only those that are there; a new table that was not saved is none.
std::vector<std::string> TablesToGoOnWith(const Session& session, std::string_view lastClosed);

// What the person is asked on this road.
FileQuestion OpeningQuestion(const Session& session, OpeningRoad road);

// A new application folder names its practice table as the newest file before anybody has made it.
bool NamesUnmadeTable(const Session& session);

// The first row whose ticker begins with the upper-case form of `typed`; 0 when none does.
std::size_t FindTickerRow(const QuoteTable& table, std::string_view typed);

}  // namespace brantlow
