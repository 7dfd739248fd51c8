#include "store/remove_update.h"

#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "shell/run_control.h"
#include "shell/session_change.h"
#include "shell/status_words.h"
#include "store/history_record.h"
#include "store/update_list.h"
#include "store/year_files.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

constexpr std::size_t kMostRecords = 1000;

std::vector<HistoryRecord> ReadRecords(const std::string& bytes) {
    std::vector<HistoryRecord> records;
    LineReader reader(bytes);
    std::string_view line;
    while (records.size() < kMostRecords && reader.Next(line)) records.push_back(ParseHistoryLine(line));
    return records;
}

Failure PrepareWithoutLast(const Path& file, std::vector<HistoryRecord>& records, FileChange& change) {
    records.pop_back();
    std::string bytes;
    for (HistoryRecord& record : records) {
        RoundHistoryRecord(record);
        AppendHistoryLine(record, bytes);
    }
    return bytes.empty() ? change.Delete(file) : change.Write(file, bytes);
}

// A ticker that the list names twice loses two records.
Failure PrepareRemoval(const Path& file, FileChange& change, RemovedUpdate& result) {
    if (change.IsDeleted(file)) return {};
    const ReadResult read = ReadWholeFile(change.Where(file));
    if (read.outcome == ReadOutcome::Failed) return FailedTo(FailureKind::Read, file, read.error);
    std::vector<HistoryRecord> records = ReadRecords(read.bytes);
    if (records.empty()) return {};
    ++result.removed;
    if (WithoutHalfLine(read.bytes).size() < read.bytes.size()) result.halfLines.push_back(file);
    return PrepareWithoutLast(file, records, change);
}

Failure RemoveFromFiles(Session& session, const std::vector<std::string>& tickers, FileChange& change,
                        RemovedUpdate& result) {
    const std::string today = FormatDate(session.clock.Today());
    for (std::size_t i = 0; i < tickers.size(); ++i) {
        session.CurrentTicker = tickers[i];
        session.person.PumpEvents();
        result.stopped = ShouldStop(session.run, session.person);
        if (result.stopped) return {};
        const auto file = YearFilePath(session.settings.QuoteFolder, tickers[i], YearDigits(today));
        if (file) {
            if (Failure fault = PrepareRemoval(*file, change, result)) return fault;
        }
        session.run.ProgressFraction = static_cast<double>(i + 1) / static_cast<double>(tickers.size());
        session.person.ShowProgress(session.run.ProgressFraction);
    }
    return CommitBeside(session, change);
}

}  // namespace

RemovedUpdate RemoveLastUpdate(Session& session) {
    RemovedUpdate result;
    const std::string& quoteFolder = session.settings.QuoteFolder;
    const UpdateList list = ReadUpdateList(quoteFolder);
    result.hasList = list.outcome != ReadOutcome::Missing;
    result.error = FailedTo(FailureKind::Read, UpdateListPath(quoteFolder), list.error);
    if (result.error) return result;
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusRemoving);
    const std::string ticker = session.CurrentTicker;
    FileChange change(ChangePlaceOf(session), std::string(kRemoveLastUpdateChange));
    result.error = RemoveFromFiles(session, list.tickers, change, result);
    session.CurrentTicker = ticker;
    if (result.error || result.stopped) {
        result.removed = 0;
        result.halfLines.clear();
        const Failure stays = TakeBackBeside(session, change);
        if (result.error) {
            result.error.isHalfDone = static_cast<bool>(stays);
        } else {
            result.error = stays;
        }
    }
    session.person.ShowStatusWord(kStatusComplete);
    return result;
}

}  // namespace brantlow
