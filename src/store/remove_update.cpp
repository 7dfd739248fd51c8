#include "store/remove_update.h"

#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "store/history_record.h"
#include "store/update_list.h"
#include "store/year_files.h"

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

std::error_code WriteWithoutLast(const Path& file, std::vector<HistoryRecord>& records) {
    records.pop_back();
    std::string bytes;
    for (HistoryRecord& record : records) {
        RoundHistoryRecord(record);
        AppendHistoryLine(record, bytes);
    }
    if (!bytes.empty()) return WriteWholeFile(file, bytes, Flush::Later);
    return DeleteOneFile(file) ? std::error_code() : std::make_error_code(std::errc::permission_denied);
}

void RemoveLastRecord(const Path& file, RemovedUpdate& result) {
    std::vector<HistoryRecord> records = ReadRecords(BytesOrEmpty(file));
    if (records.empty()) return;
    const std::error_code error = WriteWithoutLast(file, records);
    if (!error) ++result.removed;
    if (!result.error) result.error = error;
}

}  // namespace

RemovedUpdate RemoveLastUpdate(Session& session) {
    RemovedUpdate result;
    const std::string& quoteFolder = session.settings.QuoteFolder;
    const UpdateList list = ReadUpdateList(quoteFolder);
    result.hasList = list.outcome == ReadOutcome::Done;
    const std::string today = FormatDate(session.clock.Today());
    session.run.ProgressLastShown = 0;
    for (std::size_t i = 0; i < list.tickers.size(); ++i) {
        const std::optional<Path> file = YearFilePath(quoteFolder, list.tickers[i], YearDigits(today));
        if (file) RemoveLastRecord(*file, result);
        session.run.ProgressFraction = static_cast<double>(i + 1) / static_cast<double>(list.tickers.size());
        session.person.ShowProgress(session.run.ProgressFraction);
    }
    return result;
}

}  // namespace brantlow
