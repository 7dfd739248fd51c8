// The table-shaped files: loading a table as it is shown, saving it, and creating the working files of a
// selector run and of a fundamentals collection.
//
// A file holds one line a row, the header first, cells separated by tabs, lines ended by CR LF, no quoting.
// Everything goes by header text, so columns may stand in any order.
#pragma once

#include <array>
#include <string>
#include <system_error>

#include "base/dates.h"
#include "base/file_change.h"
#include "base/files.h"
#include "shell/person.h"
#include "shell/session.h"
#include "shell/settings/settings_tables.h"
#include "store/columns.h"
#include "store/quote_table.h"

namespace brantlow {

struct TableLoad {
    ReadOutcome outcome = ReadOutcome::Missing;
    std::error_code error;   // set when outcome is Failed
    bool cut = false;        // lines beyond kMostRows were left out
    bool empty = false;      // the file holds no line
    bool hasHeader = false;  // the first line names a column of the file's kind

    bool Done() const { return outcome == ReadOutcome::Done; }
};

// Loads `file` into `table` as a window shows it: lines, widths and order of the columns by the settings,
// colours. The selected ticker is then table.Ticker(1). `progress` may be null; it is not told of a
// template. A file that cannot be read gives an empty table; one without a header is shown as it is.
TableLoad LoadQuoteTable(const Path& file, FileKind kind, const SettingsTables& settings, const Date& today,
                         QuoteTable& table, Person* progress);

// The same for the bytes of a file that is yet to be written.
TableLoad LoadTableText(std::string_view bytes, FileKind kind, const SettingsTables& settings,
                        const Date& today, QuoteTable& table, Person* progress);

// Behind the name of a file that was not read to its end.
inline constexpr std::string_view kTooManyLines =
    "the file has more than 18,000 lines; those behind are not shown, and a save would lose them";

// What a person who asked for the file `name` is told; empty when there is nothing to tell.
std::string TableLoadSentence(const TableLoad& load, const std::string& name);

// Replaces `file` by the table's text, columns in display order, hidden ones included; beside a table of
// verdicts stands afterwards what it was made of (table_origin.h), or nothing. The template is refused
// (operation_not_permitted). On failure the old file stands.
std::error_code SaveQuoteTable(const QuoteTable& table, const Path& file);
// The same as a part of a change of files.
Failure PrepareQuoteTable(const QuoteTable& table, const Path& file, FileChange& change);

// The table that a selector run starts with, in memory: the header and the tickers of `from`, in place of
// what `table` held.
void MakeEvaluationTable(const QuoteTable& from, QuoteTable& table);
// The file that a collection starts with: the header and one line for each ticker of `from`, the ticker
// alone.
std::string FundamentalFileText(const QuoteTable& from);

// The changes that can be undone when a run writes over an older file.
inline constexpr std::string_view kSelectorChange = "Stock Selector";
inline constexpr std::string_view kFundamentalsChange = "Extended Fundamentals";

// Writes Evaluations.dbe, or ExtendedFundamentals.efq, as such a start.
Failure CreateEvaluationFile(const QuoteTable& from, const Session& session);
Failure CreateFundamentalFile(const QuoteTable& from, const Session& session);

// The widths of a kind before its lines are read; a quote table hides all columns but the ticker.
void ColumnWidth(FileKind kind, QuoteTable& table);
// Shows the user's columns of a quote table in the user's order, hidden ones behind them; sizes the columns
// of a fundamentals file by their names. Other kinds stay as they are.
void ColumnLocation(FileKind kind, const SettingsTables& settings, QuoteTable& table);

// The text of each condition, 1 to 10: action and names, ",  " between them. Element 0 takes what stands
// before the first condition.
std::array<std::string, kConditionCount + 1> ConditionSummary(const SettingsTables& settings);

}  // namespace brantlow
