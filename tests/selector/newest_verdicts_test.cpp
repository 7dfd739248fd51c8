// A run that computes no more than its conditions look at says what a run over whole series says.
#include "selector/newest_verdicts.h"

#include <gtest/gtest.h>

#include <memory>

#include "indicators/random_histories.h"
#include "selector/catalogue.h"
#include "selector/test_table.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

constexpr std::uint64_t kNeverOdd = 1000000;

// A block of names and of slots with their numbers.
Lines BuyBlock(const Lines& names, const std::vector<std::pair<std::size_t, std::string>>& slots = {}) {
    Lines lines = {"Condition", "Buy"};
    lines.insert(lines.end(), names.begin(), names.end());
    lines.emplace_back("Value");
    const std::size_t before = lines.size();
    lines.resize(before + kSlotCount);
    for (const auto& [slot, number] : slots) lines[before + slot - 1] = number;
    return lines;
}

SettingsTables SettingsOf(const std::vector<Lines>& blocks) {
    SettingsTables settings;
    std::size_t line = 0;
    for (const Lines& block : blocks)
        for (const std::string& text : block) settings.SelectorSettings.Set(++line, Value::OfText(text));
    settings.SelectorLineCount = line;
    return settings;
}

class NewestVerdictsTest : public RandomHistories {
  protected:
    void Want(const std::vector<std::unique_ptr<WindowConditions>>& sets) {
        const auto analysis = std::make_unique<Analysis>();
        wanted.assign(sets.size(), {});
        for (const std::string& ticker : tickers) {
            const Failure failure = AnalyseTicker(source, ticker, Interval::Daily, *analysis);
            for (std::size_t set = 0; set < sets.size(); ++set) {
                wanted[set].push_back(failure ? TickerVerdict{failure}
                                              : VerdictOn(*analysis, sets[set]->Compiled()));
            }
        }
    }

    // Compares the runs with the sets of conditions, ten blocks each.
    void Compare(const std::vector<Lines>& blocks, std::size_t helpers) {
        std::vector<std::unique_ptr<WindowConditions>> sets;
        for (std::size_t first = 0; first < blocks.size(); first += kConditionCount) {
            const std::size_t end = std::min(first + kConditionCount, blocks.size());
            sets.push_back(std::make_unique<WindowConditions>(
                SettingsOf({blocks.begin() + static_cast<std::ptrdiff_t>(first),
                            blocks.begin() + static_cast<std::ptrdiff_t>(end)})));
        }
        Want(sets);
        for (std::size_t set = 0; set < sets.size(); ++set) {
            NewestVerdicts verdicts(source, tickers, *sets[set], helpers);
            for (std::size_t place = 0; place < tickers.size(); ++place)
                ASSERT_NO_FATAL_FAILURE(ExpectSame(verdicts.Next(), wanted[set][place]))
                    << tickers[place] << ", ticker " << place << ", blocks from " << set * kConditionCount;
        }
    }

    static void ExpectSame(const TickerVerdict& actual, const TickerVerdict& expected) {
        ASSERT_EQ(static_cast<bool>(actual.unreadable), static_cast<bool>(expected.unreadable));
        ASSERT_EQ(actual.BarCount, expected.BarCount);
        ASSERT_EQ(actual.holds, expected.holds);
        if (actual.holds == 0) return;
        ASSERT_EQ(actual.trend, expected.trend);
    }

    // Every name alone, every slot alone with a number on either side of the usual, and mixed blocks.
    std::vector<Lines> EveryLine() {
        std::vector<Lines> blocks;
        for (const std::string_view name : ConditionNames()) blocks.push_back(BuyBlock({std::string(name)}));
        for (std::size_t slot = 1; slot <= kSlotCount; ++slot)
            for (const char* number : {"-3.5", "12"}) blocks.push_back(BuyBlock({}, {{slot, number}}));
        for (int i = 0; i < 40; ++i) {
            Lines names;
            for (std::size_t count = random() % 4; count > 0; --count)
                names.emplace_back(ConditionNames()[random() % kConditionNameCount]);
            blocks.push_back(BuyBlock(names, {{1 + random() % kSlotCount, RandomNumber(random)}}));
        }
        return blocks;
    }

    // Records of closes, one a line, complete but for those in `shortRows`.
    void WriteCloses(const std::string& name, const std::vector<double>& closes, bool shortRows = false) {
        std::string rows;
        for (std::size_t i = 0; i < closes.size(); ++i)
            rows += shortRows && i % 3 == 1 ? "\"01/02/23\",\"\",5\r\n" : Row(closes[i]);
        WriteYear(name, "23", rows);
        tickers.push_back(name);
    }

    std::vector<std::vector<TickerVerdict>> wanted;
};

class NewestVerdictsOfRandomHistories : public NewestVerdictsTest, public testing::WithParamInterface<int> {};

TEST_P(NewestVerdictsOfRandomHistories, AreThoseOfWholeSeries) {
    const auto seed = static_cast<std::uint64_t>(GetParam());
    random.seed(seed);
    constexpr std::uint64_t kOddOneIn[] = {3, 8, 30, 1000};
    for (int i = 0; i < 45; ++i) {
        const std::string name = "F" + std::to_string(i);
        if (OneIn(random, 3)) {
            constexpr std::size_t kMostRowsAYear[] = {4, 12, 60, 150, 260};
            MakeTicker(name, kMostRowsAYear[random() % std::size(kMostRowsAYear)],
                       seed % 2 == 0 ? 5 : kNeverOdd);
        } else {
            MakeFullTicker(name, kOddOneIn[seed % std::size(kOddOneIn)]);
        }
    }
    for (const char* without : {"NONE", "../x", "CON", ""}) tickers.emplace_back(without);
    std::shuffle(tickers.begin(), tickers.end(), random);
    Compare(EveryLine(), seed % 3);
}

INSTANTIATE_TEST_SUITE_P(Seeds, NewestVerdictsOfRandomHistories, testing::Range(1, 7));

TEST_F(NewestVerdictsTest, AreThoseOfWholeSeriesAroundEveryGuard) {
    // One more bar with each ticker, so that every length is met, passed and missed by one.
    for (std::size_t bars = 14; bars < 130; ++bars) {
        std::vector<double> closes;
        for (std::size_t i = 0; i < bars; ++i)
            closes.push_back(bars % 7 == 0 ? 5 : static_cast<double>(random() % 4000) / 100);
        WriteCloses("B" + std::to_string(bars), closes);
    }
    std::shuffle(tickers.begin(), tickers.end(), random);
    Compare(EveryLine(), 1);
}

TEST_F(NewestVerdictsTest, ATickerThatCannotBeReadIsNamedAndTheOthersAreJudged) {
    for (int i = 0; i < 5; ++i) MakeFullTicker("F" + std::to_string(i), kNeverOdd);
    std::filesystem::remove(quoteFolder + "F2.26");
    std::filesystem::create_directory(quoteFolder + "F2.26");
    const WindowConditions conditions(SettingsOf({BuyBlock({"Close Price Above MA 15"})}));
    NewestVerdicts verdicts(source, tickers, conditions, 0);
    for (int i = 0; i < 5; ++i) {
        const TickerVerdict verdict = verdicts.Next();
        EXPECT_EQ(static_cast<bool>(verdict.unreadable), i == 2);
        EXPECT_EQ(verdict.BarCount > 0, i != 2);
    }
    EXPECT_NO_FATAL_FAILURE(Compare({BuyBlock({"Close Price Above MA 15"})}, 1));
}

// A relative strength cannot be computed where no bar moved.
const Lines kStrong = BuyBlock({"RSI 15 Above 70"});

// The verdicts of tickers that look at leftovers, one after another, and whether the run was made over again.
class LeftoverVerdictsTest : public NewestVerdictsTest {
  protected:
    bool AsksForTheWholeRun(const Lines& block, std::size_t first, const LeftoversNeeded& needed) {
        std::vector<std::unique_ptr<WindowConditions>> sets;
        sets.push_back(std::make_unique<WindowConditions>(SettingsOf({block})));
        Want(sets);
        const std::vector<std::string> years = YearTexts(kTestDay, kRecentYears);
        LeftoverVerdicts leftovers(source, tickers, years, *sets[0], 0);
        for (std::size_t place = first; place < tickers.size(); ++place)
            ExpectSame(leftovers.Of(place, needed), wanted[0][place]);
        return leftovers.TakesAll();
    }

    // Closes that stand still at the end, where no relative strength can be computed.
    void AddStandstill(const std::string& name) {
        std::vector<double> closes(300, 12.5);
        for (std::size_t i = 0; i < 200; ++i) closes[i] = static_cast<double>(10 + random() % 50);
        WriteCloses(name, closes);
    }
};

TEST_F(LeftoverVerdictsTest, AGapTakesWhatTheNearestWholeTickerLeft) {
    MakeFullTicker("F0", kNeverOdd);
    std::vector<double> rising(300);
    for (std::size_t i = 0; i < rising.size(); ++i) rising[i] = static_cast<double>(50 + i);
    WriteCloses("RISING", rising);
    AddStandstill("STILL");
    EXPECT_FALSE(AsksForTheWholeRun(kStrong, 2, {}));
    EXPECT_EQ(wanted[0][2].holds, VerdictOf(1)) << "a strength of 100, which RISING left";
}

TEST_F(LeftoverVerdictsTest, ShortRowsTakeWhatTheNearestWholeTickerLeft) {
    MakeFullTicker("F0", kNeverOdd);
    WriteCloses("F1", std::vector<double>(500, 8));
    MakeFullTicker("F2", kNeverOdd);
    std::vector<double> closes;
    for (std::size_t i = 0; i < 400; ++i) closes.push_back(static_cast<double>(10 + random() % 50));
    WriteCloses("SHORT", closes, true);
    EXPECT_FALSE(AsksForTheWholeRun(BuyBlock({"Hit 52 Week Low"}), 3, {400, false}));
}

TEST_F(LeftoverVerdictsTest, WithoutAWholeTickerNearTheRunIsMadeOverAgain) {
    for (int i = 0; i < 3; ++i) AddStandstill("STILL" + std::to_string(i));
    EXPECT_TRUE(AsksForTheWholeRun(kStrong, 2, {}));
}

TEST_F(LeftoverVerdictsTest, ElementZeroTakesTheWholeRun) {
    MakeFullTicker("F0", kNeverOdd);
    MakeFullTicker("F1", kNeverOdd);
    EXPECT_TRUE(AsksForTheWholeRun(kStrong, 1, {0, true}));
}

TEST_F(LeftoverVerdictsTest, ManyGapsTakeTheWholeRun) {
    for (int i = 0; i < 40; ++i) {
        MakeFullTicker("F" + std::to_string(i), kNeverOdd);
        AddStandstill("STILL" + std::to_string(i));
    }
    EXPECT_TRUE(AsksForTheWholeRun(kStrong, 1, {}));
}

TEST(LookedAtFields, AreThoseOfTheConditionsAndTheClose) {
    const auto fields = [](const Lines& block) { return WindowConditions(SettingsOf({block})).Fields(); };
    const auto of = [](std::initializer_list<std::size_t> places) {
        FieldSet set;
        for (const std::size_t place : places) set.set(place);
        return set;
    };
    EXPECT_EQ(fields(BuyBlock({"Close Price Above MA 180"})).everyBar, of({2}));
    EXPECT_EQ(fields(BuyBlock({"Volume Above Tight UCL"})).everyBar, of({2, 5}));
    EXPECT_EQ(fields(BuyBlock({"Hit 52 Week Low"})).newestBars, of({3, 14}));
    EXPECT_EQ(fields(BuyBlock({}, {{17, "3"}})).newestBars, of({6}));
    EXPECT_EQ(fields(BuyBlock({}, {{27, "3"}})).newestBars, of({6, 7, 9, 16, 17}));
}

}  // namespace
}  // namespace brantlow
