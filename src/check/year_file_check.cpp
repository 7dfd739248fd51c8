#include "check/year_file_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>

#include "base/numbers.h"
#include "base/text.h"
#include "shell/settings/settings_tables.h"
#include "splits/split_factors.h"
#include "store/history_record.h"

namespace brantlow {

namespace {

// Quotes of a market that is a day ahead of the computer.
constexpr int kDaysAhead = 1;
// A calendar page lists a split around its day.
constexpr int kFreshDays = 7;

RecordDate DateOf(const Date& date) {
    return {static_cast<int>(date.year()), GridDay(static_cast<int>(static_cast<unsigned>(date.month())),
                                                   static_cast<int>(static_cast<unsigned>(date.day())))};
}

bool IsAfter(const RecordDate& a, const RecordDate& b) {
    return a.year != b.year ? a.year > b.year : a.day > b.day;
}

std::string TextOf(const RecordDate& date) {
    constexpr int kMonth = 31;
    constexpr int kCentury = 100;
    return fmt::format("{:02}/{:02}/{:02}", date.day / kMonth + 1, date.day % kMonth + 1,
                       date.year % kCentury);
}

bool IsQuoted(std::string_view field) {
    return field.size() >= 2 && field.front() == '"' && field.back() == '"';
}

bool IsTime(std::string_view text) {
    const auto minutes = ParseTime(text);
    return text.empty() || (minutes && FormatTime(*minutes) == text);
}

std::string NamedField(std::size_t field, std::string_view text) {
    return fmt::format("the {} '{}'", kRecordFieldNames[field], InLine(text));
}

constexpr std::size_t kTimeField = 1;
constexpr std::size_t kCloseField = 2;
constexpr std::size_t kLowField = 3;
constexpr std::size_t kHighField = 4;
constexpr std::size_t kVolumeField = 5;
constexpr std::size_t kOpenField = 18;

// How near the first price of a day has to come to that of the day before, divided by the factor, and how
// much more than on usual days may be dealt: a share that crashes is dealt in plenty, one that is split is
// not.
constexpr double kNearest = 0.03;
constexpr double kMostTurnover = 1.5;
// Smaller splits look like a bad day; without volumes larger ones do too.
constexpr double kLeastFactor = 1.5;
constexpr double kLeastFactorWithoutVolume = 2;
// Beyond it a day is looked at.
constexpr double kQuietFall = 0.7;
constexpr double kQuietRise = 1.4;
// Where the day before was itself a jump, one odd price stands between two good ones.
constexpr double kSteadyFall = 0.8;
constexpr double kSteadyRise = 1.25;

double Size(const SplitBand& band) {
    return std::max(band.Factor(), 1 / band.Factor());
}

}  // namespace

double PriceTrail::UsualTurnover() const {
    std::array<double, kRemembered> sorted = turnover_;
    const auto end = sorted.begin() + static_cast<std::ptrdiff_t>(std::min(days_, kRemembered));
    if (end == sorted.begin()) return 0;
    const auto middle = sorted.begin() + (end - sorted.begin()) / 2;
    std::nth_element(sorted.begin(), middle, end);
    return *middle;
}

const SplitBand* PriceTrail::SplitAt(const YearRecord& record) const {
    const double change = record.close / close_;
    if (change > kQuietFall && change < kQuietRise) return nullptr;
    if (change_ < kSteadyFall || change_ > kSteadyRise) return nullptr;
    const double usual = UsualTurnover();
    const double turnover = record.close * record.volume;
    const bool hasVolume = usual > 0 && turnover > 0;
    if (hasVolume && turnover > kMostTurnover * usual) return nullptr;
    const double first = (record.open > 0 ? record.open : record.close) / close_;
    const double least = hasVolume ? kLeastFactor : kLeastFactorWithoutVolume;
    const SplitBand* best = nullptr;
    double nearest = kNearest;
    for (const SplitBand& band : kSplitBands) {
        const double off = std::abs(first * band.Factor() - 1);
        if (Size(band) < least || off > nearest || !band.Contains(change)) continue;
        nearest = off;
        best = &band;
    }
    return best;
}

const SplitBand* PriceTrail::Follow(const YearRecord& record) {
    if (record.close <= 0) return nullptr;
    const SplitBand* const split = close_ > 0 ? SplitAt(record) : nullptr;
    change_ = close_ > 0 ? record.close / close_ : 1;
    close_ = record.close;
    turnover_[days_++ % kRemembered] = record.close * record.volume;
    return split;
}

YearFileCheck::YearFileCheck(std::string ticker, const Date& today)
    : ticker_(std::move(ticker)),
      latest_(DateOf(AddDays(today, kDaysAhead))),
      fresh_(DateOf(AddDays(today, -kFreshDays))) {}

void YearFileCheck::TakeFile(const Path& file, int year, std::string_view text) {
    found_ = FileFindings(file, ticker_);
    year_ = year;
    days.push_back({year, {}});
    seen_ = &days.back();
    lastDay_ = -1;
    if (text.empty()) found_.Add(FindingKind::EmptyFile, 0);
    TakeLines(text);
    if (found_.Empty()) return;
    for (Finding& finding : found_.Take()) findings.push_back(std::move(finding));
}

void YearFileCheck::TakeLines(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    std::size_t number = 0;
    YearRecord record;
    while (at < end) {
        const char* const start = at;
        if (++number == kMostRows + 1) found_.Add(FindingKind::TooManyLines, number);
        if (ReadPlainRecord(at, record)) {
            TakeRecord(record, {start, static_cast<std::size_t>(at - start)}, number);
            continue;
        }
        const void* const feed = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        const char* const lineEnd = feed == nullptr ? end : static_cast<const char*>(feed);
        at = feed == nullptr ? end : lineEnd + 1;
        std::string_view line(start, static_cast<std::size_t>(lineEnd - start));
        if (line.ends_with('\r')) line.remove_suffix(1);
        TakeOdd({line, number, feed == nullptr});
    }
}

void YearFileCheck::TakeOdd(const OddLine& line) {
    const bool hasNul = line.text.find('\0') != std::string_view::npos;
    if (hasNul) found_.Add(FindingKind::NulBytes, line.number);
    const bool isEmpty =
        line.text.find_first_not_of(std::string_view("\0 \t\r", 4)) == std::string_view::npos;
    if (isEmpty) {
        if (!hasNul) found_.Add(FindingKind::EmptyRecord, line.number);
        return;
    }
    if (hasNul) return;
    YearRecord record;
    if (TakeOddFields(line, record)) TakeRecord(record, line.text, line.number);
}

// False where the line holds no record of a day.
bool YearFileCheck::TakeOddFields(const OddLine& line, YearRecord& record) {
    const std::vector<std::string_view> fields = SplitAt(line.text, ',');
    if (fields.size() < kHistoryFieldCount && line.isCutOff) {
        found_.Add(FindingKind::HalfRecord, line.number);
        return false;
    }
    if (fields.size() != kHistoryFieldCount) {
        found_.Add(FindingKind::FieldCount, line.number, std::to_string(fields.size()));
        return false;
    }
    CheckForms(fields, line.number, record);
    const auto inside = [&fields](std::size_t i) {
        return IsQuoted(fields[i]) ? fields[i].substr(1, fields[i].size() - 2) : fields[i];
    };
    if (!IsTime(inside(kTimeField)))
        found_.Add(FindingKind::TimeUnreadable, line.number, InLine(inside(kTimeField)));
    constexpr std::size_t kDividendDates[] = {11, 12};
    for (const std::size_t i : kDividendDates) {
        if (!inside(i).empty() && !ReadRecordDate(inside(i)))
            found_.Add(FindingKind::DividendDate, line.number, NamedField(i, inside(i)));
    }
    const auto date = ReadRecordDate(inside(0));
    if (!date) found_.Add(FindingKind::DateUnreadable, line.number, InLine(inside(0)));
    if (!date) return false;
    record.date = *date;
    record.close = LeadingNumber(fields[kCloseField]);
    record.low = LeadingNumber(fields[kLowField]);
    record.high = LeadingNumber(fields[kHighField]);
    record.volume = LeadingNumber(fields[kVolumeField]);
    record.open = LeadingNumber(fields[kOpenField]);
    return true;
}

void YearFileCheck::CheckForms(std::span<const std::string_view> fields, std::size_t number,
                               YearRecord& record) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const bool isText = kHistoryForms[i] == HistoryForm::Text;
        if (isText && !IsQuoted(fields[i]))
            found_.Add(FindingKind::FieldUnquoted, number, NamedField(i, fields[i]));
        if (isText || WholeNumber(fields[i])) continue;
        found_.Add(FindingKind::NumberUnreadable, number, NamedField(i, fields[i]));
        record.hasNumbers = false;
    }
}

void YearFileCheck::TakeRecord(const YearRecord& record, std::string_view line, std::size_t number) {
    while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
    if (IsAfter(record.date, latest_)) found_.Add(FindingKind::FutureDay, number, TextOf(record.date));
    if (record.hasNumbers) CheckPrices(record, number);
    if (record.date.year != year_) {
        found_.Add(FindingKind::WrongYear, number, TextOf(record.date));
        return;
    }
    CheckOrder(record, line, number);
    if (record.hasNumbers) CheckJump(record, number);
}

void YearFileCheck::CheckOrder(const YearRecord& record, std::string_view line, std::size_t number) {
    const int day = record.date.day;
    std::string_view& first = firstLines_[static_cast<std::size_t>(day)];
    if (seen_->Has(day)) {
        const bool isSame = line == first;
        found_.Add(isSame ? FindingKind::SameRecordTwice : FindingKind::DayTwice, number,
                   TextOf(record.date));
    } else if (day < lastDay_) {
        found_.Add(FindingKind::OutOfOrder, number,
                   TextOf(record.date) + " stands behind " + TextOf({year_, lastDay_}));
    }
    if (!seen_->Has(day)) first = line;
    seen_->Add(day);
    lastDay_ = day;
}

void YearFileCheck::CheckPrices(const YearRecord& record, std::size_t number) {
    if (record.volume < 0) found_.Add(FindingKind::VolumeNegative, number, ShortestNumber(record.volume));
    if (record.close <= 0) {
        found_.Add(FindingKind::CloseNotPositive, number, ShortestNumber(record.close));
    } else if (record.low <= 0) {
        found_.Add(FindingKind::NoDayRange, number, ShortestNumber(record.low));
    } else if (record.high < record.low) {
        found_.Add(FindingKind::HighBelowLow, number, ShortestNumber(record.high));
    } else if (record.close < record.low || record.close > record.high) {
        found_.Add(FindingKind::OutsideRange, number, "the close " + ShortestNumber(record.close));
    } else if (record.open > 0 && (record.open < record.low || record.open > record.high)) {
        found_.Add(FindingKind::OutsideRange, number, "the open " + ShortestNumber(record.open));
    }
}

void YearFileCheck::CheckJump(const YearRecord& record, std::size_t number) {
    const SplitBand* const split = trail_.Follow(record);
    if (split == nullptr) return;
    const bool isFresh = !IsAfter(fresh_, record.date);
    found_.Add(isFresh ? FindingKind::FreshJump : FindingKind::SplitJump, number,
               fmt::format("{}/{}", split->newShares, split->oldShares));
}

}  // namespace brantlow
