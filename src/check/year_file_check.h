// Looks through the year files of one ticker: each line by itself, each against the one before it, and the
// prices against a split that nobody restated. Used by history_check.h for every ticker of the database.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "check/finding.h"
#include "check/year_record.h"

namespace brantlow {

// The days of a year that a ticker has, a bit each by GridDay.
struct YearDays {
    int year = 0;
    std::array<std::uint64_t, (kDaysInGrid + 63) / 64> bits{};

    bool Has(int day) const { return (bits[static_cast<std::size_t>(day) / 64] >> (day % 64) & 1U) != 0; }
    void Add(int day) { bits[static_cast<std::size_t>(day) / 64] |= std::uint64_t{1} << (day % 64); }
};

struct SplitBand;

// What the newest days of a ticker were, for the look at the next one.
class PriceTrail {
  public:
    // The split, as NEW/OLD, after which the price would move from the day before to `record` as it does;
    // null where it moves like a price. Then takes the record as the newest day.
    const SplitBand* Follow(const YearRecord& record);

  private:
    const SplitBand* SplitAt(const YearRecord& record) const;
    double UsualTurnover() const;

    static constexpr std::size_t kRemembered = 20;
    std::array<double, kRemembered> turnover_{};
    std::size_t days_ = 0;
    double close_ = 0;
    double change_ = 1;  // the newest close by the one before it
};

// A line that is not plain, taken apart.
struct OddLine {
    std::string_view text;   // without its line end
    std::size_t number = 0;  // of the line, from 1
    bool isCutOff = false;   // the last one, without a line end
};

class YearFileCheck {
  public:
    YearFileCheck(std::string ticker, const Date& today);

    // The ticker's files, oldest year first. `text` ends in NUL behind its last byte.
    void TakeFile(const Path& file, int year, std::string_view text);

    std::vector<Finding> findings;
    std::vector<YearDays> days;

  private:
    void TakeLines(std::string_view text);
    void TakeOdd(const OddLine& line);
    bool TakeOddFields(const OddLine& line, YearRecord& record);
    void CheckForms(std::span<const std::string_view> fields, std::size_t number, YearRecord& record);
    void TakeRecord(const YearRecord& record, std::string_view line, std::size_t number);
    void CheckOrder(const YearRecord& record, std::string_view line, std::size_t number);
    void CheckPrices(const YearRecord& record, std::size_t number);
    void CheckJump(const YearRecord& record, std::size_t number);

    std::string ticker_;
    RecordDate latest_;  // no day after it has been yet
    RecordDate fresh_;   // splits from it on may be restated yet
    PriceTrail trail_;
    // Of the file in work.
    FileFindings found_{Path()};
    int year_ = 0;
    YearDays* seen_ = nullptr;
    int lastDay_ = -1;
    std::array<std::string_view, kDaysInGrid> firstLines_{};  // of each day that has been seen
};

}  // namespace brantlow
