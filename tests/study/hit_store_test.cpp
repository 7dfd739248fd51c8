// The hits that the editor counts are those of a selector run.
#include "study/hit_store.h"

#include <gtest/gtest.h>

#include <random>

#include "selector/catalogue.h"
#include "selector/selector_run.h"
#include "shell/settings/settings_files.h"
#include "store/table_files.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

class HitStoreRun : public ::testing::Test {
  protected:
    HitStoreRun() {
        std::filesystem::create_directories(folder_ / "Quotes/EOD");
        std::filesystem::create_directories(folder_ / "Data");
        session_.settings.QuoteFolder = (folder_ / "Quotes/EOD/").string();
        Histories();
    }

    // Histories of many lengths, so that later tickers meet what earlier ones left; some with short records.
    void Histories() {
        std::mt19937 dice(3);
        for (int t = 0; t < 60; ++t) {
            const std::string ticker = "T" + std::to_string(t);
            const std::size_t bars = dice() % 5 == 0 ? dice() % 40 : 20 + dice() % 330;
            double close = static_cast<double>(5 + dice() % 90);
            std::string text;
            for (std::size_t i = 0; i <= bars; ++i) {
                close = std::max(0.0, close + (static_cast<double>(dice() % 200) - 99) / 100);
                if (dice() % 90 == 0) {
                    text += "\"01/02/26\",\"\"," + std::to_string(close) + ",1\r\n";
                    continue;
                }
                const auto part = [&] {
                    return "," + std::to_string(static_cast<double>(dice() % 400) / 10 - 4);
                };
                text += "\"01/02/26\",\"\"," + std::to_string(close) + "," + std::to_string(close - 0.5) +
                        "," + std::to_string(close + 0.5) + "," + std::to_string(dice() % 100000);
                for (int field = 6; field < 11; ++field) text += part();
                text += ",\"\",\"\"";
                for (int field = 13; field < 19; ++field) text += part();
                text += "\r\n";
            }
            tickers_.push_back(ticker);
            ASSERT_FALSE(WriteWholeFile(folder_ / ("Quotes/EOD/" + ticker + ".26"), text, Flush::Later));
            if (t % 3 != 0) {
                ASSERT_FALSE(WriteWholeFile(folder_ / ("Quotes/EOD/" + ticker + ".23"), text.substr(0, 200),
                                            Flush::Later));
            }
        }
    }

    void Choose(const ConditionSet& set) {
        const std::string text = FormatConditionSet(set);
        ASSERT_FALSE(WriteWholeFile(session_.DataFile("VTRSELset.ini"), text));
        LoadAllSettings(session_.AppPath, session_.settings);
        session_.settings.QuoteFolder = (folder_ / "Quotes/EOD/").string();
    }

    TempFolder folder_;
    FixedClock clock_{std::chrono::year{2026} / 11 / 21};
    RecordingPerson person_;
    Session session_{folder_.Get(), clock_, person_};
    std::vector<std::string> tickers_;
};

// Up to two names and a slot in every other condition.
ConditionSet RandomSet(std::mt19937& dice) {
    const auto names = ConditionNames();
    ConditionSet set;
    for (Condition& condition : set) {
        for (std::size_t i = dice() % 3; i > 0; --i)
            condition.names.emplace_back(names[dice() % names.size()]);
        if (dice() % 2 == 0) condition.slots[dice() % kSlotCount] = std::to_string(dice() % 30);
    }
    return set;
}

using Places = std::array<std::vector<std::size_t>, kConditionCount>;

// The places of the tickers that each condition of each set hits: those whose taking raises its count.
std::vector<Places> PlacesHit(const HistorySource& source, Interval interval,
                              const std::vector<std::string>& tickers,
                              const std::vector<ConditionSet>& sets) {
    std::vector<Places> places(sets.size());
    HitStore hits;
    const bool whole = WalkForHits(source, interval, tickers, hits, [&](std::size_t done) {
        for (std::size_t s = 0; s < sets.size(); ++s) {
            for (std::size_t c = 0; c < kConditionCount; ++c) {
                if (hits.Count(sets[s][c]).hits > places[s][c].size()) places[s][c].push_back(done - 1);
            }
        }
        return true;
    });
    EXPECT_TRUE(whole);
    EXPECT_EQ(hits.Tickers(), tickers.size());
    for (std::size_t s = 0; s < sets.size(); ++s) {
        for (std::size_t c = 0; c < kConditionCount; ++c)
            EXPECT_EQ(hits.Count(sets[s][c]).hits, places[s][c].size());
    }
    return places;
}

TEST_F(HitStoreRun, RandomSetsHitWhatARunHits) {
    std::mt19937 dice(5);
    for (const Interval interval : {Interval::Daily, Interval::Weekly}) {
        std::vector<ConditionSet> sets(25);
        for (ConditionSet& set : sets) set = RandomSet(dice);
        const std::vector<Places> places = PlacesHit(HistoryOf(session_), interval, tickers_, sets);
        std::size_t found = 0;
        for (std::size_t s = 0; s < sets.size(); ++s) {
            ASSERT_NO_FATAL_FAILURE(Choose(sets[s]));
            QuoteTable quotes;
            quotes.AppendLine("Ticker Symbol");
            for (const std::string& ticker : tickers_) quotes.AppendLine(ticker);
            QuoteTable table;
            MakeEvaluationTable(quotes, table);
            auto analysis = std::make_unique<Analysis>();
            SelectorOutcome outcome;
            RunSelector(session_, *analysis, interval, table, outcome);
            for (std::size_t c = 1; c <= kConditionCount; ++c) {
                std::vector<std::size_t> expected;
                for (std::size_t row = 1; row <= tickers_.size(); ++row)
                    if (!table.Text(row, c).empty()) expected.push_back(row - 1);
                ASSERT_EQ(places[s][c - 1], expected);
                found += expected.size();
            }
        }
        EXPECT_GT(found, 500u);
    }
}

TEST_F(HitStoreRun, EachLineTellsWhatItLeavesAndWhatItHoldsAlone) {
    HitStore hits;
    WalkForHits(HistoryOf(session_), Interval::Daily, tickers_, hits, [](std::size_t) { return true; });
    Condition condition;
    condition.names = {"Close Price Above LR Tight UCL", "No Such Name", "Close Price Above MA 15"};
    condition.slots[16] = "1e9";  // P/E > X: holds for none
    const ConditionHits counted = hits.Count(condition);
    ASSERT_EQ(counted.lines.size(), 4u);
    const std::size_t evaluated = counted.lines[0].alone;
    EXPECT_GT(evaluated, 40u);
    EXPECT_EQ(counted.lines[0].left, evaluated);
    EXPECT_EQ(counted.lines[1].alone, 0u);
    EXPECT_EQ(counted.lines[1].left, evaluated);
    EXPECT_LE(counted.lines[2].left, evaluated);
    EXPECT_GE(counted.lines[2].left, counted.lines[2].alone);
    EXPECT_EQ(counted.lines[3].left, 0u);
    EXPECT_EQ(counted.hits, 0u);
    EXPECT_EQ(hits.Count(Condition{}).hits, 0u);
    EXPECT_EQ(hits.Count(Condition{}).lines.size(), 0u);
}

TEST_F(HitStoreRun, AWalkCanBeEnded) {
    HitStore hits;
    EXPECT_FALSE(WalkForHits(HistoryOf(session_), Interval::Daily, tickers_, hits,
                             [](std::size_t done) { return done < 7; }));
    EXPECT_EQ(hits.Tickers(), 7u);
}

}  // namespace
}  // namespace brantlow
