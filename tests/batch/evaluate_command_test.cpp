#include <gmock/gmock.h>

#include "json_lines.h"
#include "selector/catalogue.h"
#include "shell/settings/condition_set.h"

namespace brantlow {
namespace {

using nlohmann::ordered_json;
using ::testing::ElementsAre;

class EvaluateCommand : public BatchTest {
  protected:
    // `count` bars of the year 2026 that rise by 1, from 101.
    void WriteHistory(const std::string& ticker, int count) const {
        const auto record = [](int close) {
            return "\"01/02/26\",\"\"," + std::to_string(close) + "," + std::to_string(close - 1) + "," +
                   std::to_string(close + 1) + ",100,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + std::to_string(close) +
                   "\r\n";
        };
        Write("Quotes/EOD/" + ticker + ".23", record(500));
        std::string year;
        for (int i = 1; i <= count; ++i) year += record(100 + i);
        Write("Quotes/EOD/" + ticker + ".26", year);
    }
    std::vector<ordered_json> Evaluate(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21", "evaluate"});
        return JsonLines(Call(arguments));
    }
};

TEST_F(EvaluateCommand, TellsEveryNameInCatalogueOrder) {
    WriteHistory("UP", 40);
    const ordered_json line = Evaluate({"UP"}).at(0);
    EXPECT_THAT(Keys(line), ElementsAre("ticker", "interval", "BarCount", "names", "conditions"));
    EXPECT_EQ(line["BarCount"], 40);
    const ordered_json& names = line["names"];
    std::vector<std::string> expected;
    for (const std::string_view name : ConditionNames()) expected.emplace_back(name);
    ASSERT_EQ(expected.size(), 488u);
    EXPECT_EQ(Keys(names), expected);
    EXPECT_EQ(names["Close Price Above MA 15"], "True");
    EXPECT_EQ(names["Close Price Below MA 15"], "False");
    // 40 bars are not more than 60, and no test has this spelling.
    EXPECT_EQ(names["Close Price Above MA 60"], "");
    EXPECT_EQ(names["Close Price Broke Above LR LooseUCL"], "");
}

TEST_F(EvaluateCommand, TellsTheBlocksOfTheStoredSet) {
    WriteHistory("UP", 40);
    EXPECT_EQ(Evaluate({"UP"}).at(0)["conditions"], ordered_json::array());
    ConditionSet set;
    set[0].action = "Sell";
    set[0].names = {"Close Price Below MA 15"};
    set[1].action = "Hold";
    set[1].names = {"Close Price Above MA 15"};
    set[2].names = {"Close Price Above MA 60"};
    // The first three blocks: the fourth "Condition" and what follows are cut off.
    std::string text = FormatConditionSet(set);
    std::size_t cut = 0;
    for (int block = 0; block < 4; ++block) cut = text.find("\"Condition\"", cut + (block > 0 ? 1 : 0));
    Write("Data/VTRSELset.ini", text.substr(0, cut));
    EXPECT_EQ(Evaluate({"UP"}).at(0)["conditions"].dump(),
              R"([{"action":"Sell","result":"False"},{"action":"Hold","result":"True"},)"
              R"({"action":"Buy","result":""}])");
    Write("Data/VTRSELset.ini", FormatConditionSet(ConditionSet{}));
    EXPECT_EQ(Evaluate({"UP"}).at(0)["conditions"].size(), 10u);
}

TEST_F(EvaluateCommand, FifteenBarsAreNotEvaluatedSixteenAre) {
    Write("Data/VTRSELset.ini", FormatConditionSet(ConditionSet{}));
    WriteHistory("A", 15);
    WriteHistory("B", 16);
    const auto lines = Evaluate({"A", "B", "NONE"});
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].dump(),
              R"({"ticker":"A","interval":"daily","BarCount":15,"names":{},"conditions":[]})");
    EXPECT_EQ(lines[1]["names"].size(), 488u);
    EXPECT_EQ(lines[1]["conditions"].size(), 10u);
    EXPECT_EQ(lines[2].dump(),
              R"({"ticker":"NONE","interval":"daily","BarCount":0,"names":{},"conditions":[]})");
}

TEST_F(EvaluateCommand, CataloguePrintsTheNamesInOrder) {
    std::string expected;
    for (const std::string_view name : ConditionNames()) expected.append(name).append("\n");
    const CallResult result = Call({"catalogue"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, expected);
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 488);
    EXPECT_TRUE(result.out.starts_with("Hit 52 Week Low\nHit 52 Week High\n"));
    EXPECT_TRUE(result.out.ends_with("E/S Change Increase\nE/S Change Decrease\n"));
}

}  // namespace
}  // namespace brantlow
