#include "acquire/feeds/history_reply.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "store/quote_rows.h"

namespace brantlow {

namespace {

// The values of a line in their order; the seventh is not used.
enum DayField : std::size_t { kDate, kOpen, kHigh, kLow, kLast, kVolume, kUsedFields };

using DayValues = std::array<std::string, kUsedFields>;

std::string_view TakeLine(std::string_view& rest) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line;
}

// The lines that hold days, newest first. There are never more than stand between the reply's first line and
// its last line end, whatever the settings say about header and footer.
std::vector<std::string_view> DayLines(std::string_view reply, const HistoryReplyForm& form) {
    const auto lineEnds = static_cast<double>(std::count(reply.begin(), reply.end(), '\n'));
    const double first = std::max(0.0, form.headerLines + 1);
    const double count =
        std::min({lineEnds - form.footerLines - first, lineEnds - 1, static_cast<double>(kMostRows)});
    std::vector<std::string_view> lines;
    if (!(count >= 1)) return lines;
    const auto wanted = static_cast<std::size_t>(count);
    for (auto skipped = static_cast<std::size_t>(first); skipped > 0; --skipped) TakeLine(reply);
    while (lines.size() < wanted && !reply.empty()) lines.push_back(TakeLine(reply));
    return lines;
}

std::vector<Value> ParseUserLine(std::string_view line) {
    std::vector<Value> values;
    for (const std::string_view field : SplitAt(line, ',')) values.push_back(Value::Parse(field));
    return values;
}

// A line of bare values, as nearly all are, needs no parsing of their written forms.
void ReadBareLine(std::string_view line, DayValues& values) {
    for (std::string& value : values) {
        const std::string_view field = line.substr(0, line.find(','));
        value = Trim(field);
        line.remove_prefix(std::min(field.size() + 1, line.size()));
    }
}

bool IsBare(std::string_view line) {
    return line.find('"') == std::string_view::npos && line.find('#') == std::string_view::npos;
}

void ReadLine(std::string_view line, bool quotesProtect, DayValues& values) {
    if (IsBare(line)) return ReadBareLine(line, values);
    const std::vector<Value> parsed = quotesProtect ? ParseRecord(line) : ParseUserLine(line);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = i < parsed.size() ? parsed[i].Text() : std::string();
    }
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// A date that does not end in a year has no file; other characters of a reply never enter a file's name.
bool NamesYear(std::string_view date) {
    const std::string_view year = YearDigits(date);
    return year.size() == 2 && IsDigit(year[0]) && IsDigit(year[1]);
}

std::optional<HistoryRecord> RecordOfDay(const DayValues& values, std::string_view dateForm) {
    const auto last = WholeNumber(values[kLast]);
    if (!last) return std::nullopt;
    HistoryRecord record;
    record.HistoryClose = *last;
    record.HistoryOpen = LeadingNumber(values[kOpen]);
    record.HistoryHigh = LeadingNumber(values[kHigh]);
    record.HistoryLow = LeadingNumber(values[kLow]);
    record.HistoryVolume = LeadingNumber(values[kVolume]);
    RoundHistoryRecord(record);
    record.HistoryDate = ConvertTradeDate(values[kDate], dateForm);
    if (!(record.HistoryClose > 0) || !NamesYear(record.HistoryDate)) return std::nullopt;
    return record;
}

}  // namespace

bool IsHistoryWithoutDays(std::string_view reply) {
    const auto isLine = [](std::string_view line) {
        return static_cast<std::size_t>(std::count(line.begin(), line.end(), ',')) + 1 >= kUsedFields;
    };
    LineReader reader(reply);
    std::string_view line;
    bool hasLine = false;
    while (reader.Next(line)) {
        if (Trim(line).empty()) continue;
        if (!isLine(line) || line.front() == '<') return false;
        hasLine = true;
    }
    return hasLine;
}

std::vector<HistoryRecord> RecordsOfReply(std::string_view reply, const HistoryReplyForm& form) {
    const std::vector<std::string_view> lines = DayLines(reply, form);
    std::vector<HistoryRecord> records;
    records.reserve(lines.size());
    DayValues values;
    for (std::size_t i = lines.size(); i-- > 0;) {
        ReadLine(lines[i], form.quotesProtect, values);
        if (auto record = RecordOfDay(values, form.dateForm)) records.push_back(std::move(*record));
    }
    return records;
}

}  // namespace brantlow
