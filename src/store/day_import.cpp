#include "store/day_import.h"

#include <algorithm>
#include <optional>

#include "base/ahead_of_turn.h"
#include "base/failure.h"
#include "base/text.h"
#include "shell/session_change.h"
#include "shell/status_words.h"
#include "store/days_ahead.h"
#include "store/import_record.h"
#include "store/update_list.h"

namespace brantlow {

namespace {

// Record i goes to row i + 1; threads share the work in pieces of neighbours.
void TakeRecords(const std::vector<std::string_view>& records, QuoteArrays& rows) {
    constexpr std::size_t kPerPiece = 256;
    struct Nothing {};
    const auto takePiece = [&](std::size_t piece, Nothing&) {
        const std::size_t end = std::min(records.size(), (piece + 1) * kPerPiece);
        for (std::size_t i = piece * kPerPiece; i < end; ++i) TakeImportRecord(records[i], i + 1, rows);
    };
    AheadOfTurn<Nothing> pieces((records.size() + kPerPiece - 1) / kPerPiece, kThreadsOfMachine, takePiece);
    for (; !pieces.IsDone(); pieces.Advance()) pieces.Await();
}

Failure ReadRecords(const Path& file, QuoteArrays& rows, std::size_t& lines) {
    std::string bytes;
    if (Failure failure = ReadIfThere(file, bytes)) return failure;
    std::vector<std::string_view> records;
    LineReader reader(bytes);
    for (std::string_view line; records.size() < kMostRows && reader.Next(line);) records.push_back(line);
    if (!records.empty()) rows.MakeRoom(records.size());
    TakeRecords(records, rows);
    lines = records.size();
    return {};
}

void ShowEntry(Session& session, std::size_t entry, std::size_t entries) {
    session.run.ProgressFraction = static_cast<double>(entry) / static_cast<double>(entries);
    session.person.ShowProgress(session.run.ProgressFraction);
    session.person.PumpEvents();
}

void StoreEntries(Session& session, std::size_t entries, QuoteArrays& rows, DayStore& days, DayRun& run,
                  DayImport& result) {
    const std::string& folder = session.settings.QuoteFolder;
    result.byTicker.reserve(entries);
    std::optional<DaysAhead> ahead;
    if (run.growth == YearGrowth::InPlace) ahead.emplace(folder, rows, entries, run);
    for (std::size_t entry = 1; entry <= entries; ++entry) {
        ShowEntry(session, entry, entries);
        ReadYear* const read = ahead ? ahead->Of(entry) : nullptr;
        if (!rows.HasRow(entry)) continue;
        const StoredDay stored = StoreDay(folder, rows, entry, days, run, read);
        if (stored.outcome == DayOutcome::Appended || stored.outcome == DayOutcome::Replaced) ++result.stored;
        if (stored.outcome != DayOutcome::Skipped) result.byTicker[rows.Symbols[entry]] = stored;
        if (!stored.error) continue;
        ++result.failed;
        if (!result.error) result.error = stored.error;
    }
}

// The days come to the disk before the list says that they are stored. Where every one of them failed the
// list of the update before stays: it is that one's days that stand last in the files.
Failure CommitDays(Session& session, std::size_t tickers, const Path& file, const DayImport& result,
                   DayRun& run) {
    const Path list = UpdateListPath(session.settings.QuoteFolder);
    if (result.failed == 0 || !run.listed.empty()) {
        if (Failure fault = run.change.Write(list, UpdateCountLine(tickers) + run.listed)) return fault;
    }
    if (result.failed == 0) {
        if (Failure fault = run.change.Delete(file)) return fault;
    }
    return CommitBeside(session, run.change);
}

}  // namespace

DayImport ImportEndOfDay(Session& session, const QuoteTable& table, DayStore& days) {
    session.person.ShowStatusWord(kStatusImporting);
    session.run.ProgressLastShown = 0;
    const Path file = ImportRecordFile(session.AppPath);
    QuoteArrays rows;
    DayImport result;
    if (Failure failure = ReadRecords(file, rows, result.lines)) {
        result.error = std::move(failure);
        session.person.ShowStatusWord(kStatusComplete);
        return result;
    }
    FileChange change(ChangePlaceOf(session), "Update " + session.CurrentFile, ChangeKeeps::UntilDone);
    DayRun run{change, GrowthOfRun(result.lines), {}, {}};
    StoreEntries(session, table.TickerCount(), rows, days, run, result);
    if (Failure fault = CommitDays(session, table.TickerCount(), file, result, run)) {
        if (TakeBackBeside(session, change)) fault.isHalfDone = true;
        result.error = std::move(fault);
        run.halfLines.clear();
        result.stored = 0;
        result.failed = 0;
        for (auto& [ticker, day] : result.byTicker) day = {DayOutcome::Failed, result.error};
    }
    result.halfLines = std::move(run.halfLines);
    session.person.ShowStatusWord(kStatusComplete);
    return result;
}

}  // namespace brantlow
