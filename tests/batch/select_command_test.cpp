#include <gmock/gmock.h>

#include "batch_fixture.h"
#include "shell/settings/condition_set.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::string_view kHeader = "Ticker Symbol\tLast Price\r\n";
constexpr std::string_view kEvaluationHeader =
    "Ticker Symbol\tCondition 1\tCondition 2\tCondition 3\tCondition 4\tCondition 5\tCondition 6\t"
    "Condition 7\tCondition 8\tCondition 9\tCondition 10\r\n";

class SelectCommand : public BatchTest {
  protected:
    SelectCommand() {
        // 1 holds for the rising, 2 for the falling, 3 for both; the others are empty.
        ConditionSet set;
        set[0].names = {"Close Price Above MA 15"};
        set[1].action = "Sell";
        set[1].names = {"Close Price Below MA 15"};
        set[2].action = "Hold";
        set[2].slots[0] = "0.5";
        Write("Data/VTRSELset.ini", FormatConditionSet(set));
        WriteHistory("UP", 120, +1);
        WriteHistory("DOWN", 120, -1);
        WriteHistory("YOUNG", 20, +1);
        Write("Data/Mine.ddq", std::string(kHeader) + "UP\t1\r\nDOWN\r\nYOUNG\t3\r\nNONE\r\n");
    }

    void WriteHistory(const std::string& ticker, int count, int step) const {
        Write("Quotes/EOD/" + ticker + ".23", Record("12/29/23", 500));
        std::string year;
        for (int i = 1; i <= count; ++i) year += Record("01/02/26", 500 + step * i);
        Write("Quotes/EOD/" + ticker + ".26", year);
    }
    CallResult Select(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-11-21", "select"});
        return Call(arguments);
    }
};

std::string Row(const std::string& ticker, const std::string& one, const std::string& two,
                const std::string& three) {
    return ticker + "\t" + one + "\t" + two + "\t" + three + std::string(7, '\t') + "\r\n";
}

const std::string kTable = std::string(kEvaluationHeader) + Row("UP", "Buy", "", "Hold") +
                           Row("DOWN", "", "Sell", "Hold") + Row("YOUNG", "Buy", "", "Hold") +
                           Row("NONE", "", "", "");

constexpr std::string_view kCounts =
    "Tickers: 4\n"
    "Condition 1 Buy: 2\n"
    "Condition 2 Sell: 1\n"
    "Condition 3 Hold: 3\n"
    "Condition 4 Buy: 0\n"
    "Condition 5 Buy: 0\n"
    "Condition 6 Buy: 0\n"
    "Condition 7 Buy: 0\n"
    "Condition 8 Buy: 0\n"
    "Condition 9 Buy: 0\n"
    "Condition 10 Buy: 0\n"
    "Short tickers: 2\n"
    "  YOUNG\n"
    "  NONE\n";

TEST_F(SelectCommand, SavesTheTableAndPrintsHitsAndShortTickers) {
    const CallResult result = Select({"Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "Saved: Evaluations.dbe\n" + std::string(kCounts));
    EXPECT_EQ(Read("Data/Evaluations.dbe"), kTable);
    EXPECT_THAT(Read("Data/Evaluations.dbe.about"),
                StartsWith("Day: 2026-11-21\r\nInterval: Daily\r\nTable: Mine.ddq\r\nCheck: "));
    EXPECT_EQ(Read("Data/Error Report.txt"),
              "This report was generated because one or more Ticker Symbols has less than 100 days of data."
              "\r\n\"YOUNG\"\r\n\"NONE\"\r\n");
}

TEST_F(SelectCommand, OutTakesTheTableAndTheWorkingFileOfBeforeStays) {
    Write("Data/Evaluations.dbe", "of yesterday");
    std::filesystem::create_directories(folder / "Data/sub");
    for (const std::string name : {"Kept.dbe", "sub/Kept.dbe"}) {
        const CallResult result = Select({"Mine.ddq", "--out", name});
        EXPECT_EQ(result.status, ExitStatus::Done);
        EXPECT_EQ(result.out, "Saved: " + name + "\n" + std::string(kCounts));
        EXPECT_EQ(Read("Data/" + name), kTable);
        EXPECT_EQ(Read("Data/Evaluations.dbe"), "of yesterday");
    }
}

TEST_F(SelectCommand, ARunWithoutShortTickersLeavesTheOldReportAlone) {
    Write("Data/Error Report.txt", "old");
    Write("Data/Mine.ddq", std::string(kHeader) + "UP\r\n");
    EXPECT_THAT(Select({"Mine.ddq"}).out, HasSubstr("Short tickers: 0\n"));
    EXPECT_EQ(Read("Data/Error Report.txt"), "old");
}

TEST_F(SelectCommand, TakesTheInterval) {
    // 120 daily bars are 24 weekly and 6 monthly ones.
    EXPECT_THAT(Select({"Mine.ddq", "--interval", "weekly"}).out,
                HasSubstr("Short tickers: 2\n  YOUNG\n  NONE\n"));
    EXPECT_THAT(Select({"Mine.ddq", "--interval", "monthly"}).out,
                HasSubstr("Short tickers: 2\n  YOUNG\n  NONE\n"));
    EXPECT_THAT(Read("Data/Error Report.txt"), HasSubstr("less than 2 months of data."));
}

TEST_F(SelectCommand, AnEmptyTableIsARunOverNothing) {
    Write("Data/Mine.ddq", kHeader);
    const CallResult result = Select({"Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_THAT(result.out, HasSubstr("Tickers: 0\nCondition 1 Buy: 0\n"));
    EXPECT_EQ(Read("Data/Evaluations.dbe"), kEvaluationHeader);
}

TEST_F(SelectCommand, OtherKindsAreRefusedInTheProgramsOwnWords) {
    Write("Data/Evaluations.dbe", "old");
    Write("Data/New EOD Quotes.db", kHeader);
    Write("Data/Upper.DDQ", kHeader);
    for (const std::string name : {"Evaluations.dbe", "New EOD Quotes.db", "Upper.DDQ", "VTRSELset.ini"}) {
        const CallResult result = Select({name});
        EXPECT_EQ(result.status, ExitStatus::Refused) << name;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "To run Stock Selector, you will need to open an End of Day Quote File\n");
    }
    EXPECT_EQ(Read("Data/Evaluations.dbe"), "old");
}

TEST_F(SelectCommand, AFileThatIsNotInDataIsRefused) {
    Write("outside.ddq", kHeader);
    std::filesystem::create_directories(folder / "Data/Folder.ddq");
    const std::string longName = std::string(5000, 'x') + ".ddq";
    for (const std::string& name : {std::string("None.ddq"), std::string("../outside.ddq"),
                                    (folder / "outside.ddq").string(), std::string("Folder.ddq"), longName}) {
        const CallResult result = Select({name});
        EXPECT_EQ(result.status, ExitStatus::Refused);
        EXPECT_EQ(result.err, name + ": no such file in Data\n");
    }
    EXPECT_FALSE(IsRegularFile(folder / "Data/Evaluations.dbe"));
}

TEST_F(SelectCommand, HostileTickersAreShortAndTheRestIsIntact) {
    Write("secret.26", Record("01/02/26", 5));
    const std::string longTicker(5000, 'X');
    Write("Data/Mine.ddq", std::string(kHeader) + "../../secret\r\n" + longTicker + "\r\n*\r\nCON\r\nUP\r\n" +
                               std::string("A\0B\r\n", 5));
    const CallResult result = Select({"Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_THAT(result.out, HasSubstr("Tickers: 6\nCondition 1 Buy: 1\n"));
    EXPECT_THAT(result.out,
                HasSubstr("Short tickers: 5\n  ../../secret\n  " + longTicker + "\n  *\n  CON\n  A?B\n"));
    EXPECT_THAT(Read("Data/Evaluations.dbe"), HasSubstr("\r\nUP\tBuy\t"));
}

TEST_F(SelectCommand, CtrlCStopsAtTheNextTickerWithTheRowsSoFarSaved) {
    const CallResult result = CallWith({"--today", "2026-11-21", "select", "Mine.ddq"},
                                       folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    EXPECT_THAT(result.out, HasSubstr("Saved: Evaluations.dbe\nTickers: 1 of 4\nCondition 1 Buy: 1\n"));
    EXPECT_EQ(Read("Data/Evaluations.dbe"), std::string(kEvaluationHeader) + Row("UP", "Buy", "", "Hold") +
                                                Row("DOWN", "", "", "") + Row("YOUNG", "", "", "") +
                                                Row("NONE", "", "", ""));
}

TEST_F(SelectCommand, ATableThatCannotBeSavedIsNamedAndNothingIsLost) {
    std::filesystem::create_directories(folder / "Data/Out.dbe");
    const CallResult result = Select({"Mine.ddq", "--out", "Out.dbe"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "Out.dbe: cannot be saved (Is a directory)\n");
}

}  // namespace
}  // namespace brantlow
