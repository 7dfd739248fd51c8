// The fourteen patterns on hand-made bars: bars on which all clauses hold, then for each clause a change that
// makes it, and only it, fail.
#include "selector/candlesticks.h"
#include "selector/test_running.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scene.h"
#include "selector/evaluation.h"

namespace brantlow {
namespace {

struct PatternCase {
    const char* name;
    const char* holds;
    std::vector<const char*> stillHolds;
    std::vector<const char*> fails;  // one for each clause
};

// Letters stand for the series, the digit for bars back: "O2=20" is the open two bars before the newest.
std::string Spelled(std::string_view words) {
    std::string text;
    while (!words.empty()) {
        const std::string_view word = words.substr(0, words.find(' '));
        words.remove_prefix(std::min(words.size(), word.size() + 1));
        const char letter = word[0];
        const char* series = letter == 'O'   ? "OpenPrice@"
                             : letter == 'H' ? "HighPrice@"
                             : letter == 'L' ? "LowPrice@"
                                             : "ClosePrice@";
        const bool price = word.size() > 2 && word[2] == '=';
        text += price ? series + std::string(word.substr(1)) : std::string(word);
        text += ' ';
    }
    return text;
}

const std::vector<PatternCase> kCases = {
    {"Bullish Abandoned Baby",
     "O2=20 H2=20.5 L2=14.5 C2=15 O1=14 H1=14.9 L1=13.9 C1=14.05 O0=15.5 H0=21.2 L0=15.2 C0=21 Low52Week=10",
     {"H1=15", "Low52Week=13.5"},
     {"H2=21.5", "C2=16 H2=20.5 L2=15.5", "H0=23", "O2=15 C2=20", "H1=15.1", "Low52Week=13.9", "C1=14.5",
      "C0=20 H0=20.2"}},
    {"Bearish Abandoned Baby",
     "O2=20 H2=25.5 L2=19.5 C2=25 O1=26 H1=26.1 L1=25.1 C1=25.95 O0=24.5 H0=24.8 L0=18.8 C0=19 High52Week=30",
     {"L1=25", "High52Week=26.5"},
     {"L2=18.5", "L0=17", "O2=25 C2=20", "L1=24.9", "High52Week=26.1", "C1=25.5", "C0=20 L0=19.8"}},
    {"Bullish Morning Doji Star",
     "O2=20 H2=20.5 L2=14.5 C2=15 O1=13.8 H1=14.3 L1=13.3 C1=13.85 O0=15 H0=21 L0=15 C0=21 Low52Week=10",
     {"O0=18 L0=5"},
     {"O2=15 C2=20", "H1=14.5", "Low52Week=13.3", "H2=22", "C1=14", "C0=20"}},
    {"Bearish Evening Doji Star",
     "O2=20 H2=25.5 L2=19.5 C2=25 O1=26.2 H1=26.7 L1=25.7 C1=26.15 O0=25 H0=25 L0=19 C0=19 High52Week=30",
     {"O0=20 H0=40"},
     {"O2=25 C2=20", "L1=25.5", "High52Week=26.7", "L2=18", "C1=26", "C0=20"}},
    {"Bullish Morning Star",
     "O2=20 H2=20.5 L2=14.5 C2=15 O1=14 H1=15 L1=14 C1=14.5 O0=15 H0=21 L0=15 C0=21 Low52Week=10",
     {"O0=18 L0=5"},
     {"O2=15 C2=20", "H1=15.1", "Low52Week=14", "H2=22", "C1=14.9", "C0=20"}},
    {"Bearish Evening Star",
     "O2=20 H2=25.5 L2=19.5 C2=25 O1=26 H1=26 L1=25 C1=25.5 O0=25 H0=25 L0=19 C0=19 High52Week=30",
     {"O0=20 H0=40"},
     {"O2=25 C2=20", "L1=24.9", "High52Week=26", "L2=18", "C1=25.1", "C0=20"}},
    {"Bearish Kicking",
     "O1=10 L1=10 C1=12 H1=12 O0=9 H0=9 C0=7 L0=7",
     {"O0=99 H0=99"},
     {"O1=10.1", "C1=11.9", "O1=12 L1=12", "O0=8.9", "C0=7.1", "O0=7 H0=7"}},
    {"Bullish Matching Low",
     "MLR15=4,5 O1=10 C1=8 O0=9 C0=8",
     {"H0=8 L0=8"},
     {"MLR15=5,5", "O1=8", "O0=8", "C0=8.5"}},
    {"Bullish Rising Three Methods",
     "O4=10 H4=15.2 L4=9.8 C4=15 O3=16.5 C3=16 O2=16.3 C2=15.8 O1=16 C1=15.5 O0=15.4 H0=18.1 L0=15.3 C0=18",
     {"O0=15.6"},
     {"H4=18", "H0=19", "O3=16", "O2=15.8", "O1=15.5", "C3=15", "C2=15", "C1=15", "C0=15 O0=18"}},
    {"Bearish Dark Cloud Cover",
     "O1=10 H1=15.25 L1=9.75 C1=15 O0=15.5 H0=15.6 L0=11.9 C0=12",
     {"C0=12.5 L0=12.4"},
     {"O1=15 C1=10", "H1=18", "H0=17", "O0=9 H0=12.1 L0=8.9", "C0=12.6 L0=12.5"}},
    {"Bullish Three White Soldiers",
     "O2=10 H2=14.5 L2=9.8 C2=14 O1=11 H1=15.5 L1=10.8 C1=15 O0=12 H0=16.5 L0=11.8 C0=16",
     {"H0=17"},
     {"H2=15.4", "C1=13", "C0=14", "O2=14 C2=10", "O1=15 C1=11", "O0=16 C0=12", "L2=10.8", "L1=11.8",
      "H1=14.5", "H0=15.5"}},
    {"Bearish Three Black Crows",
     "O2=16 H2=16.2 L2=11.5 C2=12 O1=15 H1=15.2 L1=10.5 C1=11 O0=14 H0=14.2 L0=9.5 C0=10",
     {"H2=16.3"},
     {"C2=14", "C1=13", "C0=12", "O2=12 C2=16", "O1=11 C1=15", "O0=10 C0=14", "L1=11.5", "L0=10.5", "H2=15.2",
      "H1=14.2 L1=10.5"}},
    {"Shaven Bottom",
     "C1=11 O0=11.5 H0=14 L0=10 C0=10",
     {"C1=11.4", "O0=11.9"},
     {"C1=11.5", "O0=10 C1=9", "L0=9.9", "O0=12"}},
    {"Shaven Head",
     "C1=13 O0=12.5 H0=14 L0=10 C0=14",
     {"C1=12.6", "O0=12.1"},
     {"C1=12.5", "O0=14 C1=15", "H0=14.1", "O0=12"}},
};

TEST(Candlesticks, HoldOnTheirOwnBars) {
    Scene scene(100);
    for (const PatternCase& row : kCases) {
        scene.Show(Spelled(row.holds));
        EXPECT_EQ(EvaluateName(row.name, scene.Get()), TestState::True) << row.name;
        for (const char* change : row.stillHolds) {
            scene.Show(Spelled(row.holds));
            scene.Put(Spelled(change));
            EXPECT_EQ(EvaluateName(row.name, scene.Get()), TestState::True) << row.name << ": " << change;
        }
    }
}

TEST(Candlesticks, FailWithEachClauseAlone) {
    Scene scene(100);
    for (const PatternCase& row : kCases) {
        for (const char* change : row.fails) {
            scene.Show(Spelled(row.holds));
            scene.Put(Spelled(change));
            EXPECT_EQ(EvaluateName(row.name, scene.Get()), TestState::False) << row.name << ": " << change;
        }
    }
}

TEST(Candlesticks, RunAtAnyBarWithItsOwn52WeekValues) {
    Scene scene(50);
    for (const PatternCase& row : kCases) {
        scene.Clear();
        scene.SetBar(50);
        scene.Put(Spelled(row.holds));
        scene.SetBar(100);
        EXPECT_EQ(EvaluateNameAt(row.name, scene.Get(), 50), TestState::True) << row.name;
    }
    // The 52 week low of the newest bar, 100, plays no part at bar 50.
    scene.SetBar(50);
    scene.Show(Spelled(kCases[0].holds));
    scene.SetBar(100);
    scene.Put("Low52Week=99");
    EXPECT_EQ(EvaluateNameAt("Bullish Abandoned Baby", scene.Get(), 50), TestState::True);
}

TEST(Candlesticks, UseThe52WeekValueOfTheBarUnderTestForAnEarlierBar) {
    Scene scene(100);
    scene.Show(Spelled(kCases[0].holds));
    scene.Put("Low52Week=10,99");
    EXPECT_EQ(EvaluateName("Bullish Abandoned Baby", scene.Get()), TestState::True);
}

// The bars whose body ratio a pattern asks for, as bars back.
struct DividingPattern {
    const char* name;
    std::vector<int> divides;
    std::vector<int> others;
};

const std::vector<DividingPattern> kDividing = {{"Bullish Abandoned Baby", {0, 1, 2}, {3}},
                                                {"Bearish Abandoned Baby", {0, 1, 2}, {3}},
                                                {"Bullish Morning Doji Star", {1, 2}, {0, 3}},
                                                {"Bearish Evening Doji Star", {1, 2}, {0, 3}},
                                                {"Bullish Morning Star", {1, 2}, {0, 3}},
                                                {"Bearish Evening Star", {1, 2}, {0, 3}},
                                                {"Bullish Rising Three Methods", {0, 4}, {1, 2, 3}},
                                                {"Bearish Dark Cloud Cover", {0, 1}, {2}},
                                                {"Bullish Three White Soldiers", {0, 1, 2}, {3}},
                                                {"Bearish Three Black Crows", {0, 1, 2}, {3}}};

// Bars with a range and no body: none of the patterns holds on them.
constexpr const char* kBodiless =
    "OpenPrice=5,5,5,5,5 ClosePrice=5,5,5,5,5 HighPrice=6,6,6,6,6 LowPrice=4,4,4,4,4 MLR15=1,1 Low52Week=50";

TEST(Candlesticks, AFlatBarPassesAPatternThatDividesByItsRangeWhateverElseHolds) {
    Scene scene(100);
    for (const DividingPattern& row : kDividing) {
        scene.Show(kBodiless);
        EXPECT_EQ(EvaluateName(row.name, scene.Get()), TestState::False) << row.name;
        for (const int back : row.divides) {
            scene.Show(kBodiless);
            scene.Put("HighPrice@" + std::to_string(back) + "=5 LowPrice@" + std::to_string(back) + "=5");
            EXPECT_EQ(EvaluateName(row.name, scene.Get()), TestState::True)
                << row.name << " flat bar " << back;
        }
        for (const int back : row.others) {
            scene.Show(kBodiless);
            scene.Put("HighPrice@" + std::to_string(back) + "=5 LowPrice@" + std::to_string(back) + "=5");
            EXPECT_EQ(EvaluateName(row.name, scene.Get()), TestState::False)
                << row.name << " flat bar " << back;
        }
    }
}

TEST(Candlesticks, PatternsWithoutADivisionEvaluateFlatBarsNormally) {
    Scene scene(100);
    for (const char* name : {"Bearish Kicking", "Bullish Matching Low", "Shaven Bottom", "Shaven Head"}) {
        scene.Show("OpenPrice=5,5,5 ClosePrice=5,5,5 HighPrice=5,5,5 LowPrice=5,5,5");
        EXPECT_EQ(EvaluateName(name, scene.Get()), TestState::False) << name;
    }
    scene.Show("MLR15=4,5 OpenPrice=9,10 ClosePrice=8,8 HighPrice=8,8 LowPrice=8,8");
    EXPECT_EQ(EvaluateName("Bullish Matching Low", scene.Get()), TestState::True);
}

TEST(Candlesticks, NoneRunsWith15Bars) {
    Scene scene(15);
    for (const CandlePattern& pattern : CandlePatterns()) {
        EXPECT_EQ(EvaluateName(pattern.name, scene.Get()), TestState::Undecided) << pattern.name;
        EXPECT_NE(EvaluateNameAt(pattern.name, scene.Get(), 16), TestState::Undecided) << pattern.name;
    }
    EXPECT_EQ(CandlePatterns().size(), 14U);
}

TEST(Candlesticks, ALookBeforeTheFirstElementIsNoValue) {
    Scene scene(100);
    for (const CandlePattern& pattern : CandlePatterns())
        EXPECT_FALSE(PatternHolds(pattern, BarSource(AnalysisBars(scene.Get())), 0)) << pattern.name;
}

}  // namespace
}  // namespace brantlow
