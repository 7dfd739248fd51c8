#include <gmock/gmock.h>

#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::StartsWith;

class PracticeCommand : public BatchTest {
  protected:
    std::string App() const { return (folder / "app").string(); }
    CallResult Practice(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"--app", App(), "--today", "2026-11-21", "practice"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Call(arguments);
    }
};

TEST_F(PracticeCommand, MakesTheApplicationFolderTheTableAndItsHistory) {
    const CallResult result = Practice();
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, HasSubstr("Saved: Practice.ddq\nTickers: 43\nDays of history: "));
    EXPECT_THAT(FileNamesIn(folder / "app/Data"),
                IsSupersetOf({"Practice.ddq", "VTRSELset.ini", "VTRDATAset.ini", "New EOD Quotes.db"}));
    EXPECT_THAT(FileNamesIn(folder / "app/Quotes/EOD"),
                IsSupersetOf({"A.26", "A.23", "BRK.B.26", "SPX.07", "NFLX.26"}));
}

TEST_F(PracticeCommand, ASecondTimeItRefusesAndChangesNothing) {
    Practice();
    Write("app/Data/VTRCOLset.ini", "mine");
    std::filesystem::remove(folder / "app/Data/VTRGRAPHset.ini");
    const auto before = Everything();
    const CallResult result = Practice();
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err,
              "The application folder already holds year files of A, ADBE, AMD and 40 others: nothing was "
              "changed (--replace writes over them)\n");
    EXPECT_EQ(Everything(), before);
}

TEST_F(PracticeCommand, ReplaceWritesTheTableAnewAndLeavesSettingsAlone) {
    Practice();
    Write("app/Data/VTRCOLset.ini", "mine");
    Write("app/Data/Practice.ddq", "spoilt");
    Write("app/Quotes/EOD/A.26", "spoilt");
    EXPECT_EQ(Practice({"--replace"}).status, ExitStatus::Done);
    EXPECT_EQ(Read("app/Data/VTRCOLset.ini"), "mine");
    EXPECT_TRUE(Read("app/Data/Practice.ddq").starts_with("Ticker Symbol\tLast Price\t"));
    EXPECT_THAT(Read("app/Quotes/EOD/A.26"), HasSubstr("\"11/20/26\","));
}

TEST_F(PracticeCommand, FollowsTheSettingsToAnotherDatabaseFolder) {
    std::string data;
    for (int line = 1; line <= 16; ++line) data += "\"\"\r\n";
    data += "\"True\"\r\n\"elsewhere\"\r\n";
    Write("app/Data/VTRDATAset.ini", data);
    EXPECT_EQ(Practice().status, ExitStatus::Done);
    EXPECT_THAT(FileNamesIn(folder / "app/elsewhere"), Contains("A.26"));
    EXPECT_TRUE(FileNamesIn(folder / "app/Quotes/EOD").empty());
}

TEST_F(PracticeCommand, AnApplicationFolderThatCannotBeMadeIsNamed) {
    Write("app", "a file");
    const CallResult result = Practice();
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_THAT(result.err, StartsWith(App() + ": cannot be made ("));
}

}  // namespace
}  // namespace brantlow
