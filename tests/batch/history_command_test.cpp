#include <gmock/gmock.h>

#include "batch_fixture.h"
#include "loopback_host.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

// A host that knows two days of KO and of BRK.B and has no other page.
class HistoryCommand : public BatchTest {
  protected:
    HistoryCommand() {
        host_.Answer("/table.txt", [](const httplib::Request& request, httplib::Response& response) {
            const std::string ticker = request.get_param_value("s");
            response.status = ticker == "KO" || ticker == "BRK.B" ? 200 : 404;
            // The volume tells the years that were asked for.
            response.set_content("h\n2-Jan-26,1,2,0.5,1.5," + request.get_param_value("c") +
                                     ",1\n31-Dec-25,1,2,0.5,1.25,7,1\n",
                                 "text/plain");
        });
        Write("Data/Hosts.ini", "HistoryHost=" + host_.Start() + "\n");
        WriteSettings("10");
        Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\r\nKO\t1\r\nNONE\t2\r\nAUX\t3\r\nBRK.B\t4\r\n");
        std::filesystem::create_directories(folder / "Quotes/EOD");
    }
    void WriteSettings(const std::string& years) const {
        Write("Data/VTRDATAset.ini", Lines(5) + years + "\r\n" + Lines(13));
        Write("Data/VTRNETset.ini",
              "\"Yahoo\"\r\n\"\"\r\n\"Yahoo\"\r\n\r\n\r\n15\r\n0\r\n0\r\n\"01/02/04\"\r\n");
    }
    static std::string Lines(int count) {
        std::string lines;
        for (int i = 0; i < count; ++i) lines += "\"\"\r\n";
        return lines;
    }
    CallResult CallOn(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-03-02"});
        return Call(arguments);
    }
    static std::string Day(const std::string& date, const std::string& close, const std::string& volume) {
        return "\"" + date + "\",\"\"," + close + ",0.5,2," + volume + ",0,0,0,0,0,\"\",\"\",0,0,0,0,0,1\r\n";
    }

  private:
    LoopbackHost host_;
};

TEST_F(HistoryCommand, StoresTheDaysOfEachTicker) {
    const CallResult result = CallOn({"history", "KO", "BRK.B"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "2 of 2 histories\n");
    EXPECT_EQ(result.out, "KO: 2 days\nBRK.B: 2 days\n");
    EXPECT_EQ(Read("Quotes/EOD/KO.26"), Day("01/02/26", "1.5", "2016"));
    EXPECT_EQ(Read("Quotes/EOD/KO.25"), Day("12/31/25", "1.25", "7"));
    EXPECT_EQ(Read("Quotes/EOD/BRK.B.26"), Read("Quotes/EOD/KO.26"));
}

TEST_F(HistoryCommand, ATickerWithDataIsRefusedAndTheOthersAreDownloaded) {
    Write("Quotes/EOD/KO.26", Day("01/02/26", "9", "9"));
    const CallResult result = CallOn({"history", "KO", "BRK.B"});
    EXPECT_EQ(result.status, ExitStatus::Partly);
    EXPECT_THAT(result.err, StartsWith("Data for this Ticker Symbol already exists in your database. "));
    EXPECT_EQ(result.out, "KO: not downloaded\nBRK.B: 2 days\n");
    EXPECT_EQ(Read("Quotes/EOD/KO.26"), Day("01/02/26", "9", "9"));
}

TEST_F(HistoryCommand, ATickerWithoutHistoryGivesNoData) {
    Write("Quotes/EOD/NONE.25", "old");
    const CallResult result = CallOn({"history", "NONE"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "NONE: no data\n");
    EXPECT_FALSE(IsRegularFile(folder / "Quotes/EOD/NONE.25"));
}

TEST_F(HistoryCommand, ATickerThatIsAPathIsRefused) {
    const std::vector<std::string> before = Everything();
    const CallResult result = CallOn({"history", "../KO"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "../KO: no file can have this name, so the ticker has no history\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(Everything(), before);
}

TEST_F(HistoryCommand, AUsersSourceWithoutAnAddressIsToldOnce) {
    Write("Data/VTRNETset.ini", "\"Yahoo\"\r\n\"\"\r\n\"User Selected String\"\r\n\r\n\r\n");
    const CallResult result = CallOn({"history", "KO", "BRK.B"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.\n");
    EXPECT_EQ(result.out, "KO: not downloaded\n");
}

TEST_F(HistoryCommand, AMissingFolderOfTheDatabaseIsMade) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"populate", "Mine.ddq"}, {"history", "KO", "BRK.B"}}) {
        std::filesystem::remove_all(folder / "Quotes");
        const CallResult result = CallOn(arguments);
        EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
        EXPECT_TRUE(IsRegularFile(folder / "Quotes/EOD/KO.26"));
    }
}

TEST_F(HistoryCommand, PopulateFillsTheDatabaseForEveryTicker) {
    Write("Quotes/EOD/KO.24", "old");
    Write("Quotes/EOD/NONE.25", "old");
    Write("Quotes/EOD/PEP.25", "no ticker of the table");
    const CallResult result = CallOn({"populate", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "2 of 4 histories, 1 ticker unknown: NONE\n");
    EXPECT_EQ(result.out, "Tickers: 4\nWith data: 2\n");
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"),
              (std::vector<std::string>{"BRK.B.25", "BRK.B.26", "KO.25", "KO.26", "PEP.25"}));
    EXPECT_EQ(Read("Quotes/EOD/BRK.B.26"), Day("01/02/26", "1.5", "2016"));
}

TEST_F(HistoryCommand, PopulateTakesTheYearsIntoTheSettings) {
    const CallResult result = CallOn({"populate", "Mine.ddq", "--years", "5"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(Read("Data/VTRDATAset.ini"), Lines(5) + "5\r\n" + Lines(13));
    EXPECT_EQ(Read("Quotes/EOD/KO.26"), Day("01/02/26", "1.5", "2021"));
}

TEST_F(HistoryCommand, PopulateWithoutYearsIsRefusedAndChangesNothing) {
    for (const char* years : {"", "0"}) {
        WriteSettings(years);
        Write("Quotes/EOD/KO.24", "old");
        const std::vector<std::string> before = Everything();
        const CallResult result = CallOn({"populate", "Mine.ddq"});
        EXPECT_EQ(result.status, ExitStatus::Refused);
        EXPECT_EQ(result.err, "You must select a database time frame.\n");
        EXPECT_EQ(Everything(), before);
    }
}

TEST_F(HistoryCommand, ATickerThatCannotBeAskedForIsRefusedByName) {
    const std::vector<std::string> before = Everything();
    for (const char* ticker : {"A&B", "A#B", "A?B", "A%42", "A B"}) {
        const CallResult result = CallOn({"history", ticker});
        EXPECT_EQ(result.status, ExitStatus::Refused);
        EXPECT_EQ(result.err,
                  std::string(ticker) + ": a ticker with a blank or one of & # ? % , cannot be asked for\n");
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(HistoryCommand, WithTheMarketDownEveryHistoryStaysAndTheHostIsNamed) {
    Write("Data/VTROWNset.ini", "\"Keep\"\r\n20\r\n2048\r\n");
    Write("Data/Hosts.ini", "HistoryHost=http://127.0.0.1:1\n");
    Write("Quotes/EOD/KO.24", "old");
    const std::vector<std::string> before = Everything();
    for (const std::vector<std::string>& call :
         {std::vector<std::string>{"populate", "Mine.ddq"}, {"history", "KO"}, {"populate", "Mine.ddq"}}) {
        const CallResult result = CallOn(call);
        EXPECT_EQ(result.status, ExitStatus::Refused) << call.front();
        EXPECT_EQ(result.err, "No reply from http://127.0.0.1:1 : could not connect; nothing was changed\n");
        std::filesystem::remove(folder / "Data/Last Run.txt");
        EXPECT_EQ(Everything(), before) << call.front();
    }
}

TEST_F(HistoryCommand, PopulateTakesOnlyTheYearsThatTheWindowOffers) {
    const std::vector<std::string> before = Everything();
    for (const char* years : {"3", "", "-5", "10.0", "ten"}) {
        const CallResult result = CallOn({"populate", "Mine.ddq", "--years", years});
        EXPECT_EQ(result.status, ExitStatus::Usage) << years;
        EXPECT_THAT(result.err, HasSubstr("is none of 2, 5, 10, 20")) << years;
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(HistoryCommand, PopulateRefusesAFileThatIsNotThere) {
    const CallResult result = CallOn({"populate", "None.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "None.ddq: no such file in Data\n");
}

TEST_F(HistoryCommand, CtrlCStopsPopulateAfterTheCurrentTicker) {
    Write("Quotes/EOD/BRK.B.25", "old");
    const CallResult result = CallWith({"--today", "2026-03-02", "populate", "Mine.ddq"},
                                       folder / "brantlow-batch", [] { return true; });
    EXPECT_EQ(result.status, ExitStatus::Interrupted);
    EXPECT_EQ(result.out, "Tickers: 1 of 4\nWith data: 1\n");
    EXPECT_EQ(FileNamesIn(folder / "Quotes/EOD"), (std::vector<std::string>{"KO.25", "KO.26"}));
}

}  // namespace
}  // namespace brantlow
