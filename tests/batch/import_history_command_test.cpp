#include <gmock/gmock.h>

#include "batch/batch_fixture.h"
#include "support/zip_file.h"

namespace brantlow {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kHead = "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n";

std::string Row(const std::string& symbol, const std::string& day) {
    return symbol + ",D," + day + ",000000,1,200,0.5,100,1000,0\r\n";
}

class ImportHistoryCommand : public BatchTest {
  protected:
    ImportHistoryCommand() {
        Write("Data/Mine.ddq", "Ticker Symbol\tLast Trade\r\nKO\t\r\nGONE\t\r\n");
        std::filesystem::create_directories(folder / "Quotes/EOD");
        WriteZip((folder / "us.zip").string(), {{"us/aapl.us.txt", kHead + Row("AAPL.US", "20240102")},
                                                {"us/ko.us.txt", kHead + Row("KO.US", "20240102")}});
    }

    CallResult Import(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2024-03-15", "import-history"});
        return Call(arguments);
    }
    std::string Archive() const { return (folder / "us.zip").string(); }
};

}  // namespace

TEST_F(ImportHistoryCommand, TakesEveryTickerOfTheArchive) {
    const CallResult call = Import({Archive()});
    EXPECT_EQ(call.status, ExitStatus::Done);
    EXPECT_EQ(call.out, "Tickers: 2\nStored: 2\nDays: 2\n");
    EXPECT_EQ(call.err, "2 of 2 histories, prices adjusted for splits and dividends\n");
    EXPECT_THAT(Read("Quotes/EOD/AAPL.24"), StartsWith("\"01/02/24\",\"\",100,0.5,200,1000,"));
    EXPECT_THAT(Read("Data/Last Run.txt"), HasSubstr("KO: stored"));
}

TEST_F(ImportHistoryCommand, TakesTheTickersOfATableAlone) {
    const CallResult call = Import({Archive(), "Mine.ddq"});
    EXPECT_EQ(call.status, ExitStatus::Done);
    EXPECT_EQ(call.out, "Tickers: 2\nStored: 1\nDays: 1\n");
    EXPECT_THAT(call.err, StartsWith("1 of 2 histories, 1 ticker unknown: GONE"));
    EXPECT_EQ(Read("Quotes/EOD/AAPL.24"), "");
    EXPECT_EQ(Import({Archive(), "None.ddq"}).err, "None.ddq: no such file in Data\n");
}

TEST_F(ImportHistoryCommand, ToldIsWhichFileAndLineWasRefused) {
    WriteZip(Archive(), {{"us/aapl.us.txt", kHead + Row("AAPL.US", "20240102") + Row("AAPL.US", "20240102")},
                         {"us/ko.us.txt", kHead + Row("KO.US", "20240102")}});
    const CallResult call = Import({Archive()});
    EXPECT_EQ(call.status, ExitStatus::Partly);
    EXPECT_THAT(call.err,
                HasSubstr("us/aapl.us.txt, line 3: 2024-01-02 stands there twice (1 ticker: AAPL)\n"));
    EXPECT_EQ(Read("Quotes/EOD/AAPL.24"), "");
}

TEST_F(ImportHistoryCommand, NothingIsChangedByWhatIsNoArchive) {
    Write("us.zip", "Exceeded the daily hits limit");
    const std::vector<std::string> before = Everything();
    const CallResult call = Import({Archive()});
    EXPECT_EQ(call.status, ExitStatus::Refused);
    EXPECT_THAT(call.err,
                StartsWith("Import of us.zip failed: " + Archive() + ": is no whole zip archive ("));
    EXPECT_THAT(call.err, HasSubstr("nothing was changed\n"));
    EXPECT_EQ(std::count(call.err.begin(), call.err.end(), '\n'), 1);
    EXPECT_EQ(Everything(), before);
}

TEST_F(ImportHistoryCommand, UndoBringsTheFormerHistoriesBack) {
    Write("Quotes/EOD/KO.20", "\"08/31/20\",\"\",49,48,50,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,49\r\n");
    const std::vector<std::string> before = Everything();
    Import({Archive()});
    EXPECT_EQ(Read("Quotes/EOD/KO.20"), "");
    EXPECT_THAT(Call({"undo", "--list"}).out, HasSubstr("\"what\":\"Import of us.zip\""));
    EXPECT_EQ(Call({"undo"}).status, ExitStatus::Done);
    EXPECT_EQ(Everything(), before);
}

TEST_F(ImportHistoryCommand, YearsAndNewerHistoriesAreChosenByOptions) {
    Write("Quotes/EOD/KO.24", "\"03/14/24\",\"\",60,59,61,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,60\r\n");
    EXPECT_EQ(Import({Archive(), "Mine.ddq"}).out, "Tickers: 2\nStored: 0\nDays: 0\n");
    EXPECT_EQ(Import({Archive(), "Mine.ddq", "--replace"}).out, "Tickers: 2\nStored: 1\nDays: 1\n");
    EXPECT_EQ(Import({Archive(), "--years", "3"}).status, ExitStatus::Usage);
    EXPECT_EQ(Call({"--today", "2030-03-15", "import-history", Archive(), "--years", "2"}).out,
              "Tickers: 2\nStored: 0\nDays: 0\n");
}

}  // namespace brantlow
