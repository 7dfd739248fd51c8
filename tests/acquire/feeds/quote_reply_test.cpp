#include "acquire/feeds/quote_reply.h"

#include "support/session_fixture.h"

namespace brantlow {
namespace {

class QuoteReplyTest : public SessionTest {
  protected:
    QuoteReplyTest() { rows.MakeRoom(2); }

    void UserSequence(const std::vector<std::string>& names) {
        SettingsTable& net = session.settings.NetSettings;
        for (std::size_t i = 0; i < names.size(); ++i) Set(net, 12 + i, names[i]);
        session.settings.NetEodFirst = 12;
        session.settings.NetEodLast = 11 + names.size();
    }
    UserQuoteForm Form() const { return UserQuoteFormOf(session.settings); }

    QuoteArrays rows;
};

constexpr const char* kLine =
    "\"IBM\",187.62,\"3/15/2024\",\"4:01pm\",\"9-Mar-24\",-1.5,\"Machines, "
    "Intl\",\"NYSE\",\"8-Feb-24\",187.7,"
    "187.5,188.25,189,6.64,120.55,199.18,8.19,186,22.91,4123456,4.2,10.11,189.12,171.2B,2.78";

TEST_F(QuoteReplyTest, TheTwentyFiveFieldsInTheirOrder) {
    ASSERT_TRUE(TakeStandardLine(kLine, 2, rows));
    EXPECT_EQ(rows.Symbols[2], "IBM");
    EXPECT_EQ(rows.LastPrices[2], "187.62");
    EXPECT_EQ(rows.TradeDates[2], "3/15/2024");
    EXPECT_EQ(rows.TradeTimes[2], "4:01pm");
    EXPECT_EQ(rows.DividendDates[2], "9-Mar-24");
    EXPECT_EQ(rows.ChangeValues[2], "-1.5");
    EXPECT_EQ(rows.Names[2], "Machines, Intl");
    EXPECT_EQ(rows.Exchanges[2], "NYSE");
    EXPECT_EQ(rows.XDividendDates[2], "8-Feb-24");
    EXPECT_EQ(rows.AskPrices[2], "187.7");
    EXPECT_EQ(rows.BidPrices[2], "187.5");
    EXPECT_EQ(rows.OpenPrices[2], "188.25");
    EXPECT_EQ(rows.HighPrices[2], "189");
    EXPECT_EQ(rows.Dividends[2], "6.64");
    EXPECT_EQ(rows.Low52[2], "120.55");
    EXPECT_EQ(rows.High52[2], "199.18");
    EXPECT_EQ(rows.EpsTtm[2], "8.19");
    EXPECT_EQ(rows.LowPrices[2], "186");
    EXPECT_EQ(rows.PeTtm[2], "22.91");
    EXPECT_EQ(rows.Volumes[2], "4123456");
    EXPECT_EQ(rows.PegValues[2], "4.2");
    EXPECT_EQ(rows.EpsEst[2], "10.11");
    EXPECT_EQ(rows.PreviousCloses[2], "189.12");
    EXPECT_EQ(rows.MarketCapText[2], "171.2B");
    EXPECT_EQ(rows.PsValues[2], "2.78");
    EXPECT_EQ(rows.Symbols[1], "");
}

TEST_F(QuoteReplyTest, AShortLineChangesNothing) {
    for (const char* line : {"", "\"IBM\"", "\"IBM\",1,2,3", "<html><body>Sorry, closed</body></html>",
                             "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24"}) {
        EXPECT_FALSE(TakeStandardLine(line, 1, rows)) << line;
        EXPECT_EQ(rows.Symbols[1], "") << line;
    }
}

TEST_F(QuoteReplyTest, ALineCutBeforeItsLastFieldChangesNothing) {
    const std::string_view whole(kLine);
    const std::size_t lastComma = whole.rfind(',');
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        EXPECT_EQ(TakeStandardLine(whole.substr(0, length), 1, rows), length > lastComma) << length;
    }
}

TEST_F(QuoteReplyTest, FurtherFieldsAreIgnored) {
    EXPECT_TRUE(TakeStandardLine(std::string(kLine) + ",99", 1, rows));
    EXPECT_EQ(rows.PsValues[1], "2.78");
}

TEST_F(QuoteReplyTest, AUsersLineIsSplitAtEverySeparator) {
    Set(session.settings.NetSettings, 10, "Comma");
    UserSequence({"Ticker Symbol", "Name", "Variable", "Last Price", "Market Cap (M)"});
    ASSERT_TRUE(TakeUserLine("\"IBM\",\"Machines\",x,\"187\",\"1B\"", Form(), 1, rows));
    EXPECT_EQ(rows.Symbols[1], "IBM");
    EXPECT_EQ(rows.Names[1], "Machines");
    // Numbers stand as they came.
    EXPECT_EQ(rows.LastPrices[1], "\"187\"");
    EXPECT_EQ(rows.MarketCapText[1], "\"1B\"");
    ASSERT_TRUE(TakeUserLine("\"IBM\",\"Machines, Intl\",187,1B", Form(), 1, rows));
    EXPECT_EQ(rows.Names[1], "Machine");
    EXPECT_EQ(rows.LastPrices[1], "187");
}

TEST_F(QuoteReplyTest, AUsersTextFieldsLoseFirstAndLastCharacter) {
    UserSequence({"Ticker Symbol", "Trade Date", "Trade Time", "Dividend Date", "X Dividend Date", "Name",
                  "Exchange", "Last Price"});
    ASSERT_TRUE(TakeUserLine("xAx\tx3/15/24x\tx16:01x\txax\txbx\tx\txx\t5", Form(), 1, rows));
    EXPECT_EQ(rows.Symbols[1], "A");
    EXPECT_EQ(rows.TradeDates[1], "03/15/24");
    EXPECT_EQ(rows.TradeTimes[1], "16:01");
    EXPECT_EQ(rows.DividendDates[1], "a");
    EXPECT_EQ(rows.XDividendDates[1], "b");
    EXPECT_EQ(rows.Names[1], "");
    EXPECT_EQ(rows.Exchanges[1], "");
    EXPECT_EQ(rows.LastPrices[1], "5");
}

TEST_F(QuoteReplyTest, AUsersDateByItsForm) {
    struct Row {
        const char* form;
        const char* piece;
        const char* date;
    };
    constexpr Row kRows[] = {{"01/02/04", "\"3/15/2024\"", "03/15/24"},
                             {"Jan-2-2004", "\"Mar-15-2024\"", "03/15/24"},
                             {"20040102", "\"20240303\"", "03/03/24"},
                             {"20040102", "\"20240315\"", "15/15/2024"},
                             {"040102", "\"240303\"", "03/03/24"}};
    UserSequence({"Ticker Symbol", "Trade Date"});
    for (const Row& row : kRows) {
        Set(session.settings.NetSettings, 9, row.form);
        ASSERT_TRUE(TakeUserLine("\"A\"\t" + std::string(row.piece), Form(), 1, rows));
        EXPECT_EQ(rows.TradeDates[1], row.date) << row.form << ' ' << row.piece;
    }
}

TEST_F(QuoteReplyTest, AnEmptyNameEndsTheUsersFields) {
    UserSequence({"Ticker Symbol", "Last Price", "", "Volume"});
    ASSERT_TRUE(TakeUserLine("\"A\"\t5\tx\t100", Form(), 1, rows));
    EXPECT_EQ(rows.LastPrices[1], "5");
    EXPECT_EQ(rows.Volumes[1], "");
}

TEST_F(QuoteReplyTest, AUsersLineThatIsTooShortChangesNothing) {
    UserSequence({"Ticker Symbol", "Last Price", "Volume"});
    EXPECT_FALSE(TakeUserLine("\"A\"\t5", Form(), 1, rows));
    EXPECT_EQ(rows.Symbols[1], "");
    session.settings.NetEodFirst = 0;
    session.settings.NetEodLast = 0;
    EXPECT_FALSE(TakeUserLine("\"A\"\t5\t100", Form(), 1, rows));
}

TEST_F(QuoteReplyTest, DecimalCommasBecomePointsAndSemicolonsCommas) {
    const Path file = Write("Temp.txt", "\"SAP\";1,5;2,5\r\n\"BMW\";10;,5\n");
    EXPECT_FALSE(NormaliseDecimalComma(file));
    EXPECT_EQ(Read("Temp.txt"), "\"SAP\",1.5,2.5\r\n\"BMW\",10,.5\r\n");
}

TEST_F(QuoteReplyTest, NormalisingReadsAtMostEighteenThousandLines) {
    std::string bytes;
    for (std::size_t i = 0; i < kMostRows + 10; ++i) bytes += ";\n";
    const Path file = Write("Temp.txt", bytes);
    EXPECT_FALSE(NormaliseDecimalComma(file));
    EXPECT_EQ(Read("Temp.txt").size(), kMostRows * 3);
}

TEST_F(QuoteReplyTest, NormalisingAMissingFileIsAnError) {
    EXPECT_TRUE(NormaliseDecimalComma(folder / "Temp.txt"));
    EXPECT_FALSE(Exists("Temp.txt"));
}

}  // namespace
}  // namespace brantlow
