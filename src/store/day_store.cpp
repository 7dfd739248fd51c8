#include "store/day_store.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "store/update_list.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

// Bytes at the end of a year file that hold its last line many times over.
constexpr std::size_t kEndBytes = 1024;

bool IsStored(const QuoteArrays& rows, std::size_t row) {
    const std::string& ticker = rows.Symbols[row];
    return !ticker.empty() && !IsDeviceName(ticker) && !rows.TradeDates[row].empty();
}

// The last line of a text that has one.
std::string_view LastLine(std::string_view bytes) {
    const std::size_t end = bytes.size() - (bytes.back() == '\n' ? 1 : 0);
    const std::size_t before = end == 0 ? std::string_view::npos : bytes.rfind('\n', end - 1);
    std::string_view line;
    LineReader(bytes.substr(before + 1)).Next(line);
    return line;
}

bool NamesYear(const QuoteArrays& rows, std::size_t row) {
    return LeadingNumber(YearDigits(rows.TradeDates[row])) > 0;
}

// Where line `number`, counted from 1, of a text with at least as many lines ends, its line end included.
std::size_t EndOfLine(std::string_view bytes, std::size_t number) {
    std::size_t end = 0;
    for (std::size_t line = 0; line < number; ++line) {
        const std::size_t found = bytes.find('\n', end);
        end = found == std::string_view::npos ? bytes.size() : found + 1;
    }
    return end;
}

// Takes the bytes that were read apart.
void TakeBytes(DayStore& state) {
    const std::string_view bytes = state.Bytes();
    state.endsInsideLine = !bytes.empty() && bytes.back() != '\n';
    state.used = WithoutHalfLine(bytes).size();
    state.hadHalfLine = state.used < bytes.size();
    // A file of fewer bytes has fewer lines.
    state.hasMoreLines = bytes.size() > kMostRows && LineCount(bytes) > kMostRows;
    if (state.hasMoreLines) state.used = EndOfLine(bytes, kMostRows);
    state.last = state.used == 0 ? HistoryRecord{} : ParseHistoryLine(LastLine(state.Bytes()));
}

// Missing is an empty file; one that cannot be read is not.
Failure ReadYearFile(std::optional<GrowingFile>& opened, DayStore& state) {
    state.used = 0;
    if (opened && opened->ReadIntoBuffer(state.buffer, state.used) == ReadOutcome::Failed) {
        const std::error_code error = ReadWholeFile(*state.file).error;
        return FailedTo(FailureKind::Read, *state.file,
                        error ? error : std::make_error_code(std::errc::io_error));
    }
    TakeBytes(state);
    return {};
}

// The same of the end of a file that may grow. False where the end does not tell what the whole file would.
bool ReadYearEnd(ReadYear& read) {
    // What is left out and the lines behind it have to be no more lines than count.
    constexpr std::size_t kMostLeftOut = kMostRows - kEndBytes;
    DayStore& year = read.year;
    year.used = 0;
    const ReadOutcome outcome =
        read.opened->ReadEndIntoBuffer(kEndBytes, kMostLeftOut, year.buffer, year.used, read.end);
    if (outcome != ReadOutcome::Done) return false;
    const std::string_view bytes = year.Bytes();
    const bool isCut = read.end.leftOut > 0;
    if (isCut && read.end.leftOut + LineCount(bytes) > kMostRows) return false;
    TakeBytes(year);
    return !isCut || (!year.hadHalfLine && LastLine(bytes).data() != bytes.data());
}

// A date without a year leaves the file and the records of the row before in force.
Failure OpenYearFile(const std::string& quoteFolder, const QuoteArrays& rows, std::size_t row,
                     const FileChange& change, std::optional<GrowingFile>& opened, DayStore& state) {
    if (!NamesYear(rows, row)) return {};
    state.file = YearFilePath(quoteFolder, rows.Symbols[row], YearDigits(rows.TradeDates[row]));
    if (state.file) opened.emplace(change.Where(*state.file));
    return ReadYearFile(opened, state);
}

void RepairPrices(QuoteArrays& rows, std::size_t row) {
    RepairRow(rows, row);
    RepairOpenPrice(rows, row);
}

bool ReplacesLast(const QuoteArrays& rows, std::size_t row, const HistoryRecord& last) {
    if (rows.TradeDates[row] != last.HistoryDate) return false;
    return rows.TradeTimes[row] > last.HistoryTime || LeadingNumber(rows.LastPrices[row]) > last.HistoryClose;
}

bool FollowsLast(const QuoteArrays& rows, std::size_t row, const HistoryRecord& last) {
    return rows.TradeDates[row] > last.HistoryDate && LeadingNumber(rows.LastPrices[row]) > 0;
}

Failure ReplaceLast(const HistoryRecord& record, DayRun& run, DayStore& state) {
    std::string bytes;
    LineReader reader(state.Bytes());
    std::string_view line;
    const std::size_t count = state.HistoryCount();
    for (std::size_t i = 1; i < count && reader.Next(line); ++i) {
        AppendHistoryLine(ParseHistoryLine(line), bytes);
    }
    AppendHistoryLine(record, bytes);
    return run.change.Write(*state.file, bytes);
}

Failure AppendInPlace(const std::string& bytes, std::optional<GrowingFile>& opened, DayRun& run,
                      const Path& file) {
    if (const Failure fault = run.change.WillGrow(file)) return fault;
    if (!opened) opened.emplace(run.change.Where(file));
    std::error_code error = opened->Append(bytes);
    if (!error) error = opened->Close();
    return FailedTo(FailureKind::Write, file, error);
}

// What goes to the end of the file for a row's day.
std::string DayLineOf(const QuoteArrays& rows, std::size_t row) {
    std::string line;
    AppendHistoryLine(RecordOfRow(rows, row), line);
    return line;
}

Failure Append(std::string line, std::optional<GrowingFile>& opened, DayRun& run, DayStore& state) {
    if (state.hadHalfLine) return run.change.Write(*state.file, std::string(state.Bytes()) + line);
    if (state.endsInsideLine) line.insert(0, kLineEnd);
    // What was not read in this call, or not wholly, is not written anew.
    const bool isAllRead = opened && !state.hasMoreLines;
    if (run.growth == YearGrowth::Replaced && isAllRead) {
        return run.change.Write(*state.file, std::string(state.Bytes()) + line);
    }
    return AppendInPlace(line, opened, run, *state.file);
}

// What a write made of the file's end.
StoredDay Stored(DayOutcome outcome, Failure fault, DayRun& run, DayStore& state) {
    if (fault) return {DayOutcome::Failed, std::move(fault)};
    if (state.hadHalfLine) run.halfLines.push_back(*state.file);
    state.endsInsideLine = false;
    state.hadHalfLine = false;
    return {outcome, {}};
}

StoredDay StoreRow(const QuoteArrays& rows, std::size_t row, std::optional<GrowingFile>& opened, DayRun& run,
                   DayStore& state) {
    if (!state.file) return {DayOutcome::Unchanged, {}};
    if (ReplacesLast(rows, row, state.last)) {
        opened.reset();
        return Stored(DayOutcome::Replaced, ReplaceLast(RecordOfRow(rows, row), run, state), run, state);
    }
    if (FollowsLast(rows, row, state.last)) {
        return Stored(DayOutcome::Appended, Append(DayLineOf(rows, row), opened, run, state), run, state);
    }
    return {DayOutcome::Unchanged, {}};
}

// A row whose file is to be read now, or holds the row's day already.
StoredDay StoreInTurn(const std::string& quoteFolder, QuoteArrays& rows, std::size_t row, DayStore& state,
                      DayRun& run, ReadYear* ahead) {
    RepairPrices(rows, row);
    // A file that is written anew is read whole.
    const bool isCut = ahead != nullptr && ahead->end.leftOut > 0;
    if (isCut && ReplacesLast(rows, row, ahead->year.last)) ahead = nullptr;
    std::optional<GrowingFile> openedNow;
    std::optional<GrowingFile>& opened = ahead != nullptr ? ahead->opened : openedNow;
    if (ahead != nullptr) {
        std::swap(state, ahead->year);
    } else if (Failure fault = OpenYearFile(quoteFolder, rows, row, run.change, opened, state)) {
        return {DayOutcome::Failed, std::move(fault)};
    }
    return StoreRow(rows, row, opened, run, state);
}

}  // namespace

std::size_t DayStore::HistoryCount() const {
    return LineCount(Bytes());
}

HistoryRecord RecordOfRow(const QuoteArrays& rows, std::size_t row) {
    const auto number = [&](const QuoteArray& values) { return LeadingNumber(values[row]); };
    HistoryRecord record;
    record.HistoryDate = rows.TradeDates[row];
    record.HistoryTime = rows.TradeTimes[row];
    record.HistoryClose = number(rows.LastPrices);
    record.HistoryLow = number(rows.LowPrices);
    record.HistoryHigh = number(rows.HighPrices);
    record.HistoryVolume = number(rows.Volumes);
    record.HistoryPE = number(rows.PeTtm);
    record.HistoryEPS = number(rows.EpsTtm);
    record.HistoryPEG = number(rows.PegValues);
    record.HistoryEPSest = number(rows.EpsEst);
    record.HistoryDividend = number(rows.Dividends);
    record.HistoryDividendDate = rows.DividendDates[row];
    record.HistoryXDividendDate = rows.XDividendDates[row];
    record.HistoryPreviousClose = number(rows.PreviousCloses);
    record.History52WeekLow = number(rows.Low52);
    record.History52WeekHigh = number(rows.High52);
    record.HistoryPS = number(rows.PsValues);
    record.HistoryMarketCap = rows.MarketCaps[row];
    record.HistoryOpen = number(rows.OpenPrices);
    RoundHistoryRecord(record);
    return record;
}

std::vector<YearPart> YearPartsOf(const QuoteArrays& rows, std::size_t entries) {
    std::vector<YearPart> parts(entries + 1, YearPart::Whole);
    YearPart part = YearPart::Whole;
    for (std::size_t row = entries; row >= 1; --row) {
        parts[row] = part;
        if (rows.HasRow(row) && IsStored(rows, row))
            part = NamesYear(rows, row) ? YearPart::End : YearPart::Whole;
    }
    return parts;
}

void ReadYearAhead(const std::string& quoteFolder, QuoteArrays& rows, std::size_t row, YearPart part,
                   ReadYear& read) {
    read.isRead = false;
    read.opened.reset();
    read.line.clear();
    if (!rows.HasRow(row) || !IsStored(rows, row) || !NamesYear(rows, row)) return;
    read.year.file = YearFilePath(quoteFolder, rows.Symbols[row], YearDigits(rows.TradeDates[row]));
    if (!read.year.file) return;
    read.opened.emplace(*read.year.file);
    if (part == YearPart::End) {
        read.isRead = ReadYearEnd(read);
    } else if (!ReadYearFile(read.opened, read.year)) {
        const std::optional<FileExtent> extent = read.opened->Extent();
        read.isRead = extent.has_value();
        if (extent) read.end = {*extent, 0};
    }
    if (!read.isRead) return;
    RepairPrices(rows, row);
    const HistoryRecord& last = read.year.last;
    const bool isBehind = !ReplacesLast(rows, row, last) && FollowsLast(rows, row, last);
    if (isBehind && !read.year.hadHalfLine) read.line = DayLineOf(rows, row);
}

StoredDay StoreDay(const std::string& quoteFolder, QuoteArrays& rows, std::size_t row, DayStore& state,
                   DayRun& run, ReadYear* ahead) {
    if (!IsStored(rows, row)) return {};
    StoredDay stored;
    if (ahead != nullptr && !ahead->line.empty()) {
        std::swap(state, ahead->year);
        Failure fault = Append(std::move(ahead->line), ahead->opened, run, state);
        stored = Stored(DayOutcome::Appended, std::move(fault), run, state);
    } else {
        stored = StoreInTurn(quoteFolder, rows, row, state, run, ahead);
    }
    if (!stored.error) run.listed += UpdatedTickerLine(rows.Symbols[row]);
    return stored;
}

}  // namespace brantlow
