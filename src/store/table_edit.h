// Edits of the open table: its tickers here, with the history of a new one in acquire/add_ticker.h, and its
// alarms in alerts/alarm_edit.h. The window and the batch tool call them.
//
// The table is the one that the session's CurrentFile names. Refusals are said to the session's person. An
// edit saves the table when the settings save by themselves.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "base/file_change.h"
#include "shell/session.h"
#include "store/quote_table.h"

namespace brantlow {

inline constexpr std::string_view kSaveBeforeEditing = "Save this file as another name before editing.";
inline constexpr std::string_view kAddNeedsTicker =
    "Enter a Ticker Symbol in the Symbol Box before selecting Add";
inline constexpr std::string_view kDeleteNeedsTicker =
    "Enter a Ticker Symbol in the Symbol Box before selecting Delete";

enum class EditOutcome {
    Unchanged,  // nothing to do, without a word
    Changed,
    Refused,  // the person was told why
};

struct TableEdit {
    EditOutcome outcome = EditOutcome::Unchanged;
    std::error_code saveError = {};  // the table is changed but could not be saved
    Failure fault = {};              // of a change of several files: none of them was changed
};

// The first row of exactly this ticker, 0 when there is none.
std::size_t RowOfTicker(const QuoteTable& table, std::string_view ticker);

// Says why the table cannot be edited, a template or an empty `symbol` (`needsTicker` tells so); false when
// it can.
bool RefuseTableEdit(Session& session, std::string_view symbol, std::string_view needsTicker);

// Why no ticker can be added under this name, for a person; empty when one can. Control characters and commas
// would break the lines of tables and histories, and some characters change the address that a ticker's
// quotes are asked from, unless a live source gives the quotes: it is asked in encoded addresses.
std::string RefusedTickerName(std::string_view symbol, const SettingsTables& settings);

// Whether this word makes the ticker before it that of a preferred share: "p" with the letter of a series, or
// without one.
bool IsPreferredMark(std::string_view word);

// A ticker as tables spell it: in capitals, but for the small letter of a preferred share, "BAC pK".
std::string TableSpelling(std::string_view typed);

// Saves the table when the settings save it after each change. Where another program has changed its file
// since it was read the person is asked first; operation_canceled when those changes are to stay.
std::error_code AutomaticSave(Session& session, QuoteTable& table);
// Saves the open table, with the same question.
std::error_code SaveOpenTable(Session& session, QuoteTable& table);

// The open table's file as a part of a change of files, while the windows of a run live on.
Failure PrepareSavedTable(Session& session, const QuoteTable& table, FileChange& change);

inline constexpr std::string_view kFileChangedTitle = "Replace File?";
// The question alone: false when the person does not want to write over what another program has made of
// `file` since `table` was read from it. Where no file stands any more there is nothing to write over.
bool MayReplaceTable(Session& session, const QuoteTable& table, const Path& file);

// A ticker to be added, as it was typed, with the texts of its alarms.
struct NewTicker {
    std::string symbol;
    std::string highAlarm = {};
    std::string lowAlarm = {};
};

// Adds a row for the ticker, in capitals, and sorts the table by `sortColumn`. A ticker that the table holds
// already, a device name, and a row beyond the table's limit are passed over without a word. Neither saves
// nor fetches.
EditOutcome AppendTicker(Session& session, QuoteTable& table, const NewTicker& ticker,
                         std::size_t sortColumn);

// Whether the history of `ticker` goes with its row; nothing: the row stays too.
using AskDeleteHistory = std::function<std::optional<bool>(const std::string& ticker)>;

// Takes the row of `symbol`, in any case, out of the table; of an end-of-day table `deletesHistory` is asked
// first whether the ticker's history goes too. The last ticker of a table stays, and so does the history of a
// ticker that the table does not hold. What is saved, and what goes with a history, can be undone.
// `rowTaken`, which may be empty, is called once the row is out of the table, before any file is written.
TableEdit DeleteTicker(Session& session, QuoteTable& table, std::string_view symbol,
                       const AskDeleteHistory& deletesHistory, const std::function<void()>& rowTaken = {});

// A row that was taken out, with its place and its cells under their headers.
struct RemovedRow {
    std::size_t row = 0;
    std::vector<std::pair<std::string, std::string>> cells;
};
RemovedRow KeepRow(const QuoteTable& table, std::size_t row);
// Puts the row back in its place, its cells below their headers wherever those stand now. False, with nothing
// changed, for a table that holds the ticker or is full.
bool RestoreRow(QuoteTable& table, const RemovedRow& removed);

// The same as a part of a change of files, which the caller commits; the table is saved by him.
TableEdit PrepareDeletion(Session& session, QuoteTable& table, std::string_view symbol,
                          const AskDeleteHistory& deletesHistory, FileChange& change);

}  // namespace brantlow
