#include "store/year_files.h"

#include "store/history_rewrite.h"
#include "store/store_fixture.h"

namespace brantlow {
namespace {

using namespace std::string_literals;

const std::vector<std::string> kHostileTickers = {"",       ".",     "..",    "a/b",   "../x",
                                                  "/etc/x", "a\\b",  "..\\x", "A\0B"s, std::string(5000, 'T'),
                                                  "CON",    "con.x", "aux",   "Prn.1", "NUL"};

TEST(YearFiles, DeviceNamesInAnyCaseAndBeforeAPoint) {
    for (const char* name : {"CON", "PRN", "AUX", "NUL", "con", "Aux", "CON.", "nul.txt", "con.x"}) {
        EXPECT_TRUE(IsDeviceName(name)) << name;
    }
    for (const char* name : {"CONX", "AU", "", "XCON", "CO.N", "NULL"})
        EXPECT_FALSE(IsDeviceName(name)) << name;
}

TEST(YearFiles, TheFileIsTheTickerAPointAndTheYear) {
    EXPECT_EQ(YearFilePath("/q/", "MSFT", "04")->string(), "/q/MSFT.04");
    EXPECT_EQ(YearFilePath("/q/", "brk.B", "99")->string(), "/q/brk.B.99");
    EXPECT_EQ(YearFilePath("/q/", "*", "04")->string(), "/q/*.04");
    EXPECT_FALSE(YearFilePath("/q/", "MSFT", "/4"));
    EXPECT_FALSE(YearFilePath("/q/", "MSFT", "2004"));
}

TEST(YearFiles, ATickerThatNoFileNameCanHoldHasNoFiles) {
    for (const std::string& ticker : kHostileTickers) {
        EXPECT_FALSE(HasDatabaseFiles(ticker)) << ticker.substr(0, 20);
        EXPECT_FALSE(YearFilePath("/q/", ticker, "04")) << ticker.substr(0, 20);
    }
}

class DeleteHistory : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const char* name : {"BRK.03", "BRK.04", "BRK.B.04", "BRKX.04", "brk.04", "A*.04", "AB.04",
                                 "A?.04", "QuoteList.ddq", "BRK"}) {
            folder.Write("EOD/" + std::string(name), "x\r\n");
        }
        folder.Write("outside.04", "x");
    }
    std::vector<std::string> Left() const { return folder.Files(); }
    bool Delete(const std::vector<std::string>& tickers, const std::string& subfolder = {}) const {
        FileChange change({folder.Root(), "now"}, "Test");
        return !PrepareHistoryDeletion(quotes + subfolder, tickers, change) && !change.Commit();
    }

    TestFolder folder;
    std::string quotes = folder.Folder("EOD");
};

TEST_F(DeleteHistory, TakesEveryYearOfTheTickerAndNothingElse) {
    EXPECT_TRUE(Delete({"BRK"}));
    EXPECT_EQ(Left(),
              (std::vector<std::string>{"EOD/A*.04", "EOD/A?.04", "EOD/AB.04", "EOD/BRK", "EOD/BRK.B.04",
                                        "EOD/BRKX.04", "EOD/QuoteList.ddq", "EOD/brk.04", "outside.04"}));
}

TEST_F(DeleteHistory, TakesWildcardsAsTheyStand) {
    EXPECT_TRUE(Delete({"A*"}));
    EXPECT_TRUE(Delete({"*"}));
    EXPECT_EQ(Left().size(), 10U);
    EXPECT_FALSE(IsRegularFile(quotes + "A*.04"));
    EXPECT_TRUE(IsRegularFile(quotes + "AB.04"));
}

TEST_F(DeleteHistory, ManyTickersGoAtOnce) {
    EXPECT_TRUE(Delete({"BRK", "A*", "NOSUCH", "A?"}));
    EXPECT_EQ(Left(), (std::vector<std::string>{"EOD/AB.04", "EOD/BRK", "EOD/BRK.B.04", "EOD/BRKX.04",
                                                "EOD/QuoteList.ddq", "EOD/brk.04", "outside.04"}));
}

TEST_F(DeleteHistory, HostileTickersDeleteNothing) {
    folder.Write("EOD/CON.04", "x");
    const auto before = Left();
    for (const std::string& ticker : kHostileTickers) Delete({ticker});
    EXPECT_TRUE(Delete(kHostileTickers));
    EXPECT_TRUE(Delete({"../outside"}));
    EXPECT_EQ(Left(), before);
}

TEST_F(DeleteHistory, AMissingFolderHasNothingToDelete) {
    EXPECT_TRUE(Delete({"BRK"}, "none/"));
}

}  // namespace
}  // namespace brantlow
