// A study of three tickers and six evaluated days, small enough to be worked out by hand.
#pragma once

#include "study/study.h"

namespace brantlow {

inline constexpr BarVerdicts kBoth = kEvaluated | VerdictOf(1) | VerdictOf(2);
inline constexpr BarVerdicts kFirst = kEvaluated | VerdictOf(1);

// Dates 0 to 5 are evaluated, 6 and 7 lie behind the span. Condition 1 begins at A on date 0, at B on date 1
// and again on date 4, at C on dates 1 and 3.
inline ConditionStudy ThreeTickers() {
    ConditionStudy study;
    study.span = UsualSpan(std::chrono::year{2026} / 3 / 9);
    study.actions = {"Buy", "Sell", "Hold"};
    for (std::int32_t day = 0; day < 8; ++day)
        study.dates.push_back({DayNumberOf(std::chrono::year{2026} / 3 / 2) + day, 0});
    study.tickers = {
        {"A",
         {0, 1, 2, 3, 4, 5, 6, 7},
         {10, 20, 25, 30, 24, 12, 18, 18},
         {kFirst, kFirst, kEvaluated, kEvaluated, kEvaluated, kEvaluated, 0, 0}},
        {"B",
         {0, 1, 2, 3, 4, 5, 6},
         {8, 8, 10, 5, 4, 4, 8},
         {kEvaluated, kBoth, kFirst, kEvaluated, kFirst, kFirst, 0}},
        // No bar on date 2, and a close of 0 on date 5.
        {"C", {0, 1, 3, 4, 5, 6}, {50, 50, 40, 50, 0, 60}, {0, kFirst, kEvaluated, kFirst, kEvaluated, 0}},
    };
    study.asked = 3;
    return study;
}

}  // namespace brantlow
