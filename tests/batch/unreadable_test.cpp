// The promise "read": a file that is there and cannot be read is not a missing one. The command says which
// file it is, leaves its ticker out or refuses, and touches nothing of it. A folder in a file's place cannot
// be read by anybody.
#include <gmock/gmock.h>

#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class UnreadableTest : public BatchTest {
  protected:
    void SetUp() override {
        Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\r\nKO\t1.000\r\nNFLX\t2.000\r\n");
        Write("Quotes/EOD/KO.26", Year(30));
        Write("Quotes/EOD/NFLX.26", Year(30));
        MakeUnreadable("Quotes/EOD/NFLX.25");
    }
    void MakeUnreadable(const std::string& name) const {
        std::filesystem::remove(folder / name);
        std::filesystem::create_directories(folder / name);
    }
    static std::string Year(int days) {
        std::string text;
        for (int i = 0; i < days; ++i)
            text += "\"11/20/26\",\"\",1,1,1,1,0,0,0,0,0,\"\",\"\",0,0,0,0,0,1\r\n";
        return text;
    }
    CallResult On(std::vector<std::string> call) const {
        call.insert(call.begin(), {"--today", "2026-11-21"});
        return Call(call);
    }
    std::string Sentence(const std::string& name) const {
        return (folder / name).string() + ": cannot be read (Is a directory)";
    }
};

TEST_F(UnreadableTest, LeavesItsTickerOutOfWhatIsPrinted) {
    for (const std::string command : {"series", "indicators", "evaluate", "signals"}) {
        const CallResult result = On({command, "KO", "NFLX", "KO"});
        EXPECT_EQ(result.status, ExitStatus::Partly) << command;
        EXPECT_EQ(result.err, "1 of 3 tickers left out: " + Sentence("Quotes/EOD/NFLX.25") + "\n") << command;
        EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 2) << command;
        EXPECT_THAT(result.out, Not(HasSubstr("NFLX"))) << command;
    }
}

TEST_F(UnreadableTest, RefusesTheCommandThatAsksForNothingElse) {
    for (const std::vector<std::string>& call :
         std::vector<std::vector<std::string>>{{"series", "NFLX"},
                                               {"indicators", "NFLX"},
                                               {"evaluate", "NFLX"},
                                               {"signals", "NFLX"},
                                               {"chart", "NFLX", "--out", "-"}}) {
        const CallResult result = On(call);
        EXPECT_EQ(result.status, ExitStatus::Refused) << call[0];
        EXPECT_EQ(result.err, Sentence("Quotes/EOD/NFLX.25") + "\n") << call[0];
        EXPECT_EQ(result.out, "") << call[0];
    }
}

TEST_F(UnreadableTest, LeavesItsTickerOutOfAnExplanation) {
    const CallResult result = On({"explain", "KO", "NFLX"});
    EXPECT_EQ(result.status, ExitStatus::Partly);
    EXPECT_EQ(result.err, "1 of 2 tickers left out: " + Sentence("Quotes/EOD/NFLX.25") + "\n");
    EXPECT_THAT(result.out, Not(HasSubstr("NFLX")));
}

TEST_F(UnreadableTest, LeavesItsTickerOutOfAStudy) {
    const CallResult result = On({"study", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Partly);
    EXPECT_THAT(result.err, HasSubstr("1 of 2 tickers left out: " + Sentence("Quotes/EOD/NFLX.25") + "\n"));
    EXPECT_THAT(result.out, HasSubstr("\"tickers\":2,\"evaluated\":0"));
}

TEST_F(UnreadableTest, RefusesAStudyOverNothingElse) {
    MakeUnreadable("Quotes/EOD/KO.24");
    const CallResult result = On({"study", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, Sentence("Quotes/EOD/KO.24") + "\n");
    EXPECT_EQ(result.out, "");
}

TEST_F(UnreadableTest, LeavesItsTickerOutOfASelectorRun) {
    const CallResult result = On({"select", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Partly);
    EXPECT_EQ(result.err, "1 of 2 tickers left out: " + Sentence("Quotes/EOD/NFLX.25") + "\n");
    EXPECT_THAT(result.out, HasSubstr("Tickers: 2\n"));
    EXPECT_THAT(result.out, HasSubstr("Short tickers: 1\n  KO\n"));
}

TEST_F(UnreadableTest, RefusesASelectorRunOverNothingElse) {
    MakeUnreadable("Quotes/EOD/KO.24");
    const CallResult result = On({"select", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, Sentence("Quotes/EOD/KO.24") + "\n");
    EXPECT_EQ(result.out, "");
}

TEST_F(UnreadableTest, IsNotTakenForAnEmptyYearByASplit) {
    Write("Quotes/EOD/NFLX.26",
          "\"11/19/26\",\"\",50,50,50,1,0,0,0,0,0,\"\",\"\",0,0,0,0,0,50\r\n"
          "\"11/20/26\",\"\",25,25,25,1,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n"
          "\"11/21/26\",\"\",25,25,25,1,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n");
    const auto before = Everything();
    const CallResult result = On({"split", "NFLX", "2/1"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(Everything(), before);
}

}  // namespace
}  // namespace brantlow
