#include "store/update_list.h"

#include "store/store_fixture.h"

namespace brantlow {
namespace {

class UpdateListTest : public ::testing::Test {
  protected:
    TestFolder folder;
    std::string quotes = folder.Folder("EOD");
};

TEST_F(UpdateListTest, HoldsACountAndOneQuotedTickerALine) {
    folder.Write("EOD/QuoteList.ddq",
                 UpdateCountLine(2) + UpdatedTickerLine("MSFT") + UpdatedTickerLine("BRK.B"));
    EXPECT_EQ(folder.Read("EOD/QuoteList.ddq"), "2\r\n\"MSFT\"\r\n\"BRK.B\"\r\n");
    const UpdateList list = ReadUpdateList(quotes);
    EXPECT_EQ(list.outcome, ReadOutcome::Done);
    EXPECT_EQ(list.tickers, (std::vector<std::string>{"MSFT", "BRK.B"}));
}

TEST_F(UpdateListTest, IsDeletedOnce) {
    folder.Write("EOD/QuoteList.ddq", UpdateCountLine(1));
    EXPECT_TRUE(DeleteUpdateList(quotes));
    EXPECT_FALSE(DeleteUpdateList(quotes));
    EXPECT_EQ(ReadUpdateList(quotes).outcome, ReadOutcome::Missing);
    EXPECT_TRUE(folder.Files().empty());
}

TEST_F(UpdateListTest, ReadsNoMoreTickersThanItsFirstLineSaysNorThanThereAre) {
    struct Row {
        const char* bytes;
        std::vector<std::string> tickers;
    };
    const Row rows[] = {{"1\r\n\"A\"\r\n\"B\"\r\n", {"A"}},   {"3\r\n\"A\"\r\n\"B\"\r\n", {"A", "B"}},
                        {"2\n\"A\"\n\"B\"", {"A", "B"}},      {"0\r\n\"A\"\r\n", {}},
                        {"\"A\"\r\n\"B\"\r\n", {}},           {"-5\r\n\"A\"\r\n", {}},
                        {"1e300\r\n\"A\"\r\n", {"A"}},        {"", {}},
                        {"2\r\nIBM\r\n12\r\n", {"IBM", "12"}}};
    for (const Row& row : rows) {
        folder.Write("EOD/QuoteList.ddq", row.bytes);
        EXPECT_EQ(ReadUpdateList(quotes).tickers, row.tickers) << row.bytes;
    }
}

TEST_F(UpdateListTest, HoldsNoMoreTickersThanATableHasRows) {
    std::string bytes = "99999\r\n";
    for (int i = 0; i < 18010; ++i) bytes += "\"A\"\r\n";
    folder.Write("EOD/QuoteList.ddq", bytes);
    EXPECT_EQ(ReadUpdateList(quotes).tickers.size(), 18000U);
}

TEST_F(UpdateListTest, AFolderInItsPlaceIsAnErrorAndNoList) {
    folder.Folder("EOD/QuoteList.ddq");
    EXPECT_EQ(ReadUpdateList(quotes).outcome, ReadOutcome::Failed);
    EXPECT_FALSE(DeleteUpdateList(quotes));
}

}  // namespace
}  // namespace brantlow
