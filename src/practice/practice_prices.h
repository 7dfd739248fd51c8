// The practice prices: real prices of a few dozen tickers and the days they move to. The practice table and
// the practice market both take them from here, so that the one continues the other.
//
// The prices lie in a folder of the installation: tickers.csv (ticker, name, exchange) and
// prices/<ticker>.csv (Date,Open,High,Low,Close,Volume with ISO dates, oldest first).
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/files.h"
#include "store/history_record.h"

namespace brantlow {

inline constexpr std::string_view kPracticeTickerFile = "tickers.csv";

struct PracticeTicker {
    std::string ticker;
    std::string name;
    std::string exchange;
};

// The rows of tickers.csv below its header, in order; empty when the file cannot be read.
std::vector<PracticeTicker> ReadPracticeTickers(const Path& practiceFolder);

Path PracticePriceFile(const Path& practiceFolder, const std::string& ticker);

// A trading day as it was.
struct PracticeDay {
    Date day;
    HistoryRecord record;  // rounded, without its date
};

// The days of a ticker, oldest first; the header and what cannot be read are left out.
std::vector<PracticeDay> ReadPracticeDays(const Path& practiceFolder, const std::string& ticker);

// A split that the prices hold: those before `day` are as they were traded then.
struct PracticeSplit {
    std::string_view ticker;
    Date day;  // as it was, not moved
    int newShares;
    int oldShares;
};

inline constexpr std::array<PracticeSplit, 1> kPracticeSplits = {
    {{"NFLX", Date{std::chrono::year{2015}, std::chrono::July, std::chrono::day{15}}, 7, 1}}};

// Null for a ticker without one.
const PracticeSplit* PracticeSplitOf(std::string_view ticker);

// How many days, a multiple of 7 of either sign, bring `day` to `earliest` or one of the six days behind it.
int DaysToMove(const Date& day, const Date& earliest);

// How many days a ticker's dates move by, so that its last day is today or one of the six days behind it. A
// ticker with a split moves so that the split falls within the seven days before today.
int DaysToMoveTicker(std::string_view ticker, const Date& lastDay, const Date& today);

}  // namespace brantlow
