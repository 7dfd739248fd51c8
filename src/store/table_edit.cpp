#include "store/table_edit.h"

#include <algorithm>

#include "base/askable_ticker.h"
#include "base/control_characters.h"
#include "base/text.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"
#include "shell/settings/lines.h"
#include "shell/status_words.h"
#include "store/history_rewrite.h"
#include "store/table_files.h"
#include "store/table_sort.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

void WriteCell(QuoteTable& table, std::size_t row, std::string_view header, std::string_view text) {
    if (const auto column = table.ColumnOf(header)) table.SetText(row, *column, text);
}

void RemoveTicker(QuoteTable& table, std::string_view ticker) {
    table.RemoveRow(RowOfTicker(table, ticker));
}

// Where the mark of a preferred share begins behind the only blank.
std::optional<std::size_t> PreferredMark(std::string_view ticker) {
    const std::size_t blank = ticker.find(' ');
    if (blank == std::string_view::npos || blank == 0 || !IsPreferredMark(ticker.substr(blank + 1)))
        return std::nullopt;
    return blank + 1;
}

// What a live source can be asked for, and a line of a history can hold.
bool IsLiveTicker(std::string_view symbol) {
    const bool isPrintable = std::none_of(symbol.begin(), symbol.end(),
                                          [](char c) { return IsControl(c) || c == ',' || c == '"'; });
    const bool hasBlank = symbol.find(' ') != std::string_view::npos;
    return isPrintable && HasDatabaseFiles(symbol) && (!hasBlank || PreferredMark(symbol));
}

}  // namespace

std::size_t RowOfTicker(const QuoteTable& table, std::string_view ticker) {
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        if (table.Ticker(row) == ticker) return row;
    }
    return 0;
}

bool RefuseTableEdit(Session& session, std::string_view symbol, std::string_view needsTicker) {
    if (KindOf(session.CurrentFile) == FileKind::Db) {
        session.person.Say(kSaveBeforeEditing);
        return true;
    }
    if (symbol.empty() || symbol == " ") {
        session.person.Say(needsTicker);
        return true;
    }
    return false;
}

bool IsPreferredMark(std::string_view word) {
    const bool isSeries = word.size() == 2 && word[1] >= 'A' && word[1] <= 'Z';
    return !word.empty() && word[0] == 'p' && (word.size() == 1 || isSeries);
}

std::string TableSpelling(std::string_view typed) {
    std::string symbol = UpperCase(typed);
    if (const auto mark = PreferredMark(typed)) symbol[*mark] = 'p';
    return symbol;
}

std::string RefusedTickerName(std::string_view symbol, const SettingsTables& settings) {
    if (!Get(settings, kLiveQuotes).empty() && IsLiveTicker(symbol)) return {};
    const bool breaksLines =
        std::any_of(symbol.begin(), symbol.end(), [](char c) { return c == '\t' || c == '\n'; });
    if (!breaksLines) return IsAskableTicker(symbol) ? std::string() : UnaskableTickerSentence(symbol);
    std::string shown(symbol);
    std::replace_if(
        shown.begin(), shown.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, '?');
    return shown + ": a ticker cannot hold a tab or a line end";
}

bool MayReplaceTable(Session& session, const QuoteTable& table, const Path& file) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error) || !table.SourceHasChanged(file)) return true;
    return session.person.AskBeforeDestroying(
        session.CurrentFile +
            " was changed by another program since it was opened. Do you want to write "
            "over those changes?",
        kFileChangedTitle);
}

std::error_code SaveOpenTable(Session& session, QuoteTable& table) {
    const Path file = session.DataFile(session.CurrentFile);
    if (!MayReplaceTable(session, table, file)) return std::make_error_code(std::errc::operation_canceled);
    std::error_code error;
    session.person.DoBeside([&] { error = SaveQuoteTable(table, file); });
    if (!error) table.SetSource(file, StampOf(file));
    return error;
}

Failure PrepareSavedTable(Session& session, const QuoteTable& table, FileChange& change) {
    session.person.ShowStatusWord(kStatusSaving);
    const Path file = session.DataFile(session.CurrentFile);
    Failure fault;
    session.person.DoBeside([&] { fault = PrepareQuoteTable(table, file, change); });
    return fault;
}

std::error_code AutomaticSave(Session& session, QuoteTable& table) {
    if (!SavesTable(session.settings)) return {};
    session.person.ShowStatusWord(kStatusSaving);
    return SaveOpenTable(session, table);
}

EditOutcome AppendTicker(Session& session, QuoteTable& table, const NewTicker& ticker,
                         std::size_t sortColumn) {
    if (IsDeviceName(ticker.symbol)) return EditOutcome::Unchanged;
    const std::string symbol = TableSpelling(ticker.symbol);
    if (RefuseTableEdit(session, symbol, kAddNeedsTicker)) return EditOutcome::Refused;
    if (const std::string refusal = RefusedTickerName(symbol, session.settings); !refusal.empty()) {
        session.person.Say(refusal);
        return EditOutcome::Refused;
    }
    session.CurrentTicker = symbol;
    if (RowOfTicker(table, symbol) > 0 || !table.AppendLine(symbol)) return EditOutcome::Unchanged;
    const std::size_t row = table.TickerCount();
    if (KindOf(session.CurrentFile) == FileKind::Ddq) {
        WriteCell(table, row, "High Alarm", ticker.highAlarm);
        WriteCell(table, row, "Low Alarm", ticker.lowAlarm);
    }
    SortTable(table, sortColumn, SortOrder::Ascending);
    return EditOutcome::Changed;
}

TableEdit PrepareDeletion(Session& session, QuoteTable& table, std::string_view symbol,
                          const AskDeleteHistory& deletesHistory, FileChange& change) {
    if (table.TickerCount() == 1) return {};
    if (RefuseTableEdit(session, symbol, kDeleteNeedsTicker)) return {.outcome = EditOutcome::Refused};
    const std::string ticker = TableSpelling(symbol);
    session.person.ShowStatusWord(kStatusUpdating);
    TableEdit edit;
    if (RowOfTicker(table, ticker) > 0) {
        const bool isQuoteFile = KindOf(session.CurrentFile) == FileKind::Ddq;
        const std::optional<bool> withHistory = isQuoteFile ? deletesHistory(ticker) : false;
        if (!withHistory) {
            session.person.ShowStatusWord(kStatusComplete);
            return {.outcome = EditOutcome::Refused};
        }
        if (*withHistory) {
            edit.fault = PrepareHistoryDeletion(session.settings.QuoteFolder, {&ticker, 1}, change);
        }
        if (!edit.fault) {
            RemoveTicker(table, ticker);
            edit.outcome = EditOutcome::Changed;
        }
    }
    session.person.ShowTickerCount(table.TickerCount());
    if (edit.outcome != EditOutcome::Changed) session.person.ShowStatusWord(kStatusComplete);
    return edit;
}

RemovedRow KeepRow(const QuoteTable& table, std::size_t row) {
    RemovedRow kept{.row = row, .cells = {}};
    for (std::size_t column = 0; column < table.ColumnCount(); ++column)
        kept.cells.emplace_back(table.Header(column), table.Text(row, column));
    return kept;
}

bool RestoreRow(QuoteTable& table, const RemovedRow& removed) {
    if (removed.cells.empty()) return false;
    const std::string& ticker = removed.cells.front().second;
    if (RowOfTicker(table, ticker) > 0 || !table.AppendLine(ticker)) return false;
    const std::size_t last = table.TickerCount();
    for (const auto& [header, text] : removed.cells) {
        const auto column = table.ColumnOf(header);
        if (column && *column > 0) table.SetText(last, *column, text);
    }
    std::vector<std::size_t> rows;
    for (std::size_t row = 1; row < last; ++row) {
        if (row == removed.row) rows.push_back(last);
        rows.push_back(row);
    }
    if (rows.size() < last) rows.push_back(last);
    table.ReorderRows(rows);
    return true;
}

TableEdit DeleteTicker(Session& session, QuoteTable& table, std::string_view symbol,
                       const AskDeleteHistory& deletesHistory, const std::function<void()>& rowTaken) {
    FileChange change(ChangePlaceOf(session), "Delete " + TableSpelling(symbol));
    TableEdit edit = PrepareDeletion(session, table, symbol, deletesHistory, change);
    if (edit.outcome != EditOutcome::Changed || edit.fault) return edit;
    if (rowTaken) rowTaken();
    const Path file = session.DataFile(session.CurrentFile);
    const bool saves = SavesTable(session.settings);
    if (saves && !MayReplaceTable(session, table, file)) {
        edit.fault = FailedTo(FailureKind::Write, file, std::make_error_code(std::errc::operation_canceled));
    } else if (saves) {
        edit.fault = PrepareSavedTable(session, table, change);
    }
    if (!edit.fault) edit.fault = CommitBeside(session, change);
    if (!edit.fault && saves) table.SetSource(file, StampOf(file));
    edit.saveError = edit.fault.cause;
    session.person.ShowStatusWord(kStatusComplete);
    return edit;
}

}  // namespace brantlow
