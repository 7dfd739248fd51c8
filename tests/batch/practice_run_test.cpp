// The first thing that a new user does: the ready-made conditions over the practice table.
#include <gmock/gmock.h>

#include <map>
#include <nlohmann/json.hpp>

#include "base/text.h"
#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

constexpr std::size_t kConditions = 10;

class PracticeRun : public BatchTest {
  protected:
    CallResult Run(const std::string& today, std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", today});
        const CallResult result = Call(arguments);
        EXPECT_EQ(result.status, ExitStatus::Done) << today << " " << result.err;
        EXPECT_EQ(result.err, "");
        return result;
    }
    // The lines of the saved evaluation below its header: ticker, cells of the conditions.
    std::vector<std::vector<std::string>> Evaluations() const {
        const std::string bytes = Read("Data/Evaluations.dbe");
        std::vector<std::vector<std::string>> rows;
        LineReader lines(bytes);
        for (std::string_view line; lines.Next(line);) {
            const auto cells = SplitAt(line, '\t');
            rows.emplace_back(cells.begin(), cells.end());
            EXPECT_EQ(cells.size(), kConditions + 1);
        }
        rows.erase(rows.begin());
        return rows;
    }
};

class PracticeDay : public PracticeRun, public ::testing::WithParamInterface<std::string> {};

TEST_P(PracticeDay, EachReadyMadeConditionHitsSomeTickersAndAtMostHalf) {
    Run(GetParam(), {"practice"});
    EXPECT_THAT(Run(GetParam(), {"select", "Practice.ddq"}).out, HasSubstr("Short tickers: 0\n"));
    const auto rows = Evaluations();
    ASSERT_EQ(rows.size(), 43u);
    for (std::size_t condition = 1; condition <= kConditions; ++condition) {
        const auto hits = static_cast<std::size_t>(std::count_if(
            rows.begin(), rows.end(), [&](const auto& row) { return !row[condition].empty(); }));
        EXPECT_GE(hits, 1u) << "condition " << condition;
        EXPECT_LE(hits, rows.size() / 2) << "condition " << condition;
    }
}

// Every day of a week, and days on both sides of New Year, where the loaders lose a bar.
INSTANTIATE_TEST_SUITE_P(Days, PracticeDay,
                         ::testing::Values("2025-12-31", "2026-01-02", "2026-05-07", "2026-11-18",
                                           "2026-11-19", "2026-11-20", "2026-11-21", "2026-11-22",
                                           "2026-11-23", "2026-11-24"));

TEST_F(PracticeRun, BuySellAndHoldAreAmongTheReadyMadeConditions) {
    Run("2026-11-21", {"practice"});
    const auto settings = nlohmann::json::parse(Run("2026-11-21", {"settings", "VTRSELset.ini"}).out);
    std::map<std::string, int> lines;
    for (const auto& line : settings["SelectorSettings"]) ++lines[line.get<std::string>()];
    EXPECT_EQ(lines["Condition"], 10);
    EXPECT_EQ(lines["Buy"] + lines["Sell"] + lines["Hold"], 10);
    for (const char* action : {"Buy", "Sell", "Hold"}) EXPECT_GE(lines[action], 1) << action;
}

TEST_F(PracticeRun, EvaluatingTheTickersOneByOneGivesTheCellsOfTheRun) {
    Run("2026-11-21", {"practice"});
    for (const std::string interval : {"daily", "weekly", "monthly"}) {
        Run("2026-11-21", {"select", "Practice.ddq", "--interval", interval});
        const auto rows = Evaluations();
        std::vector<std::string> arguments = {"evaluate", "--interval", interval};
        for (const auto& row : rows) arguments.push_back(row[0]);
        std::istringstream lines(Run("2026-11-21", arguments).out);
        std::size_t hits = 0;
        for (const auto& row : rows) {
            std::string line;
            ASSERT_TRUE(std::getline(lines, line));
            const auto ticker = nlohmann::json::parse(line);
            EXPECT_EQ(ticker["ticker"], row[0]);
            ASSERT_EQ(ticker["conditions"].size(), kConditions);
            for (std::size_t i = 0; i < kConditions; ++i) {
                const auto& condition = ticker["conditions"][i];
                const bool hit = condition["result"] == "True";
                EXPECT_EQ(row[i + 1], hit ? condition["action"].get<std::string>() : "")
                    << row[0] << " " << i;
                hits += hit ? 1 : 0;
            }
        }
        EXPECT_GT(hits, 0u) << interval;
    }
}

TEST_F(PracticeRun, ARunRepeatedGivesTheSameBytes) {
    Run("2026-11-21", {"practice"});
    Run("2026-11-21", {"select", "Practice.ddq"});
    const std::string first = Read("Data/Evaluations.dbe");
    Run("2026-11-21", {"select", "Practice.ddq"});
    EXPECT_EQ(Read("Data/Evaluations.dbe"), first);
    EXPECT_NE(first, "");
}

}  // namespace
}  // namespace brantlow
