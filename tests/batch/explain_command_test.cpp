#include <gmock/gmock.h>

#include "json_lines.h"
#include "shell/settings/condition_set.h"

namespace brantlow {
namespace {

using nlohmann::ordered_json;

class ExplainCommand : public BatchTest {
  protected:
    static std::string Record(int close) {
        return "\"01/02/26\",\"\"," + std::to_string(close) + "," + std::to_string(close - 1) + "," +
               std::to_string(close + 1) + ",100,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + std::to_string(close) +
               "\r\n";
    }
    // `count` bars that rise by 1, from 101.
    void WriteHistory(const std::string& ticker, int count) const {
        Write("Quotes/EOD/" + ticker + ".23", Record(500));
        std::string year;
        for (int i = 1; i <= count; ++i) year += Record(100 + i);
        Write("Quotes/EOD/" + ticker + ".26", year);
    }
    std::vector<ordered_json> Lines(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21"});
        return JsonLines(Call(arguments));
    }
};

TEST_F(ExplainCommand, TellsEachLineWithItsStateItsReasonAndItsNumbers) {
    ConditionSet set;
    set[0].names = {"Close Price Above MA 15", "Close Price Above MA 60", "No Such Name",
                    "Close Price Broke Below MA 15"};
    set[0].slots[0] = "0.5";  // Volume/Average Volume > X
    set[0].slots[30] = "5";   // Earnings Change est (%/yr) > X: without earnings
    set[0].slots[3] = "10";   // LR 60 Slope: 40 bars are fewer than its look-back
    Write("Data/VTRSELset.ini", FormatConditionSet(set));
    WriteHistory("UP", 40);
    const ordered_json line = Lines({"explain", "UP"}).at(0);
    EXPECT_EQ(line["date"], "2026-01-02");
    EXPECT_EQ(line["conditions"].size(), 10u);
    // The mean of the closes 126 to 140 is 133, of 125 to 139 132.
    EXPECT_EQ(
        line["conditions"][0].dump(),
        R"({"condition":1,"action":"Buy","result":"False","lines":[)"
        R"({"text":"Close Price Above MA 15","kind":"name","state":"True","values":[)"
        R"({"name":"ClosePrice","bar":0,"value":140},{"name":"MA15","bar":0,"value":133}]},)"
        R"({"text":"Close Price Above MA 60","kind":"name","state":"","reason":"too few bars","values":[]},)"
        R"({"text":"No Such Name","kind":"name","state":"","reason":"unknown name","values":[]},)"
        R"({"text":"Close Price Broke Below MA 15","kind":"name","state":"False","values":[)"
        R"({"name":"ClosePrice","bar":0,"value":140},{"name":"MA15","bar":0,"value":133},)"
        R"({"name":"ClosePrice","bar":-1,"value":139},{"name":"MA15","bar":-1,"value":132}]},)"
        R"({"text":"Volume/Average Volume > X","kind":"value","state":"True","values":[)"
        R"({"name":"AverageVolume","bar":0,"value":100},{"name":"Volume","bar":0,"value":100}],"x":0.5},)"
        R"({"text":"LR 60 Slope (%/yr) > X","kind":"value","state":"True","values":[],"x":10},)"
        R"({"text":"Earnings Change est (%/yr) > X","kind":"value","state":"","reason":"no data","values":[)"
        R"({"name":"EPSttm","bar":0,"value":0}],"x":5}]})");
    EXPECT_EQ(line["conditions"][1].dump(), R"({"condition":2,"action":"Buy","result":"","lines":[]})");
}

TEST_F(ExplainCommand, FifteenBarsAreNotExplained) {
    Write("Data/VTRSELset.ini", FormatConditionSet(ConditionSet{}));
    WriteHistory("A", 15);
    const auto lines = Lines({"explain", "A", "NONE"});
    EXPECT_EQ(lines[0].dump(),
              R"({"ticker":"A","interval":"daily","BarCount":15,"date":"2026-01-02","conditions":[]})");
    EXPECT_EQ(lines[1].dump(),
              R"({"ticker":"NONE","interval":"daily","BarCount":0,"date":null,"conditions":[]})");
}

TEST_F(ExplainCommand, ResultsAreThoseOfEvaluateAndNumbersThoseOfTheSeries) {
    ASSERT_EQ(Call({"--today", "2026-11-21", "practice"}).status, ExitStatus::Done);
    const std::string table = Read("Data/Practice.ddq");
    const std::size_t row = table.find('\n') + 1;
    const std::string ticker = table.substr(row, table.find('\t', row) - row);
    const auto explained = Lines({"explain", ticker, "--as-of", "2026-06-17"}).at(0);
    const auto evaluated = Lines({"evaluate", ticker, "--as-of", "2026-06-17"}).at(0);
    const auto indicators = Lines({"indicators", ticker, "--as-of", "2026-06-17"}).at(0);
    const auto series = Lines({"series", ticker, "--as-of", "2026-06-17"}).at(0);
    const int bars = explained["BarCount"];
    std::size_t compared = 0;
    for (std::size_t i = 0; i < 10; ++i) {
        const ordered_json& condition = explained["conditions"][i];
        EXPECT_EQ(condition["result"], evaluated["conditions"][i]["result"]);
        EXPECT_EQ(condition["action"], evaluated["conditions"][i]["action"]);
        for (const ordered_json& line : condition["lines"]) {
            if (line["kind"] == "name") {
                EXPECT_EQ(line["state"], evaluated["names"][line["text"].get<std::string>()]);
            }
            for (const ordered_json& value : line["values"]) {
                const std::string name = value["name"];
                if (indicators["scalars"].contains(name)) {
                    EXPECT_EQ(value["value"], indicators["scalars"][name]);
                    continue;
                }
                const bool isIndicator = indicators["arrays"].contains(name);
                const ordered_json& array = isIndicator ? indicators["arrays"][name] : series["series"][name];
                const int at = bars - 1 + value["bar"].get<int>();
                EXPECT_EQ(value["value"], array[static_cast<std::size_t>(at)]) << name;
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 50u);
}

}  // namespace
}  // namespace brantlow
