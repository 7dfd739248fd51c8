#include "store/day_import.h"

#include <algorithm>

#include "base/text.h"
#include "shell/status_words.h"
#include "store/import_record.h"
#include "store/update_list.h"

namespace brantlow {

namespace {

std::size_t ReadRecords(const Path& file, QuoteArrays& rows) {
    const std::string bytes = BytesOrEmpty(file);
    LineReader reader(bytes);
    std::string_view line;
    const std::size_t count = std::min(LineCount(bytes), kMostRows);
    if (count > 0) rows.MakeRoom(count);
    for (std::size_t i = 1; i <= count && reader.Next(line); ++i) TakeImportRecord(line, i, rows);
    return count;
}

void ShowEntry(Session& session, std::size_t entry, std::size_t entries) {
    session.run.ProgressFraction = static_cast<double>(entry) / static_cast<double>(entries);
    session.person.ShowProgress(session.run.ProgressFraction);
    session.person.PumpEvents();
}

void StoreEntries(Session& session, std::size_t entries, QuoteArrays& rows, DayStore& days,
                  DayImport& result) {
    GrowingFile updateList(UpdateListPath(session.settings.QuoteFolder));
    for (std::size_t entry = 1; entry <= entries; ++entry) {
        ShowEntry(session, entry, entries);
        if (!rows.HasRow(entry)) continue;
        const StoredDay stored = StoreDay(session.settings.QuoteFolder, rows, entry, days, updateList);
        if (stored.outcome == DayOutcome::Appended || stored.outcome == DayOutcome::Replaced) ++result.stored;
        if (!result.error) result.error = stored.error;
        if (stored.outcome != DayOutcome::Skipped) result.byTicker[rows.Symbols[entry]] = stored;
    }
}

}  // namespace

DayImport ImportEndOfDay(Session& session, const QuoteTable& table, DayStore& days) {
    session.person.ShowStatusWord(kStatusImporting);
    session.run.ProgressLastShown = 0;
    const Path file = ImportRecordFile(session.AppPath);
    QuoteArrays rows;
    DayImport result;
    result.lines = ReadRecords(file, rows);
    // Like the days, the list of them is one that a failed write does not hold up.
    AppendUpdateCount(session.settings.QuoteFolder, table.TickerCount());
    StoreEntries(session, table.TickerCount(), rows, days, result);
    if (!result.error) DeleteOneFile(file);
    session.person.ShowStatusWord(kStatusComplete);
    return result;
}

}  // namespace brantlow
