// Quotes of the day and history, read again by a parser of the tests' own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "market/quote_of_day.h"
#include "market_fixture.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::StartsWith;

constexpr std::string_view kCodes = "&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e";

enum Column {
    kTicker,
    kLast,
    kDate,
    kTime,
    kPayDate,
    kChange,
    kName,
    kExchange,
    kExDate,
    kAsk,
    kBid,
    kOpen,
    kHigh,
    kDividend,
    kLow52,
    kHigh52,
    kEps,
    kLow,
    kPe,
    kVolume,
    kPeg,
    kEpsEstimate,
    kPrevious,
    kCap,
    kSales,
    kColumns
};

std::vector<std::vector<std::string>> Quotes(const std::string& tickers, const Date& today = kSaturday) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line :
         LinesOf(Ask("/d/quotes.txt?s=" + tickers + std::string(kCodes), today).body)) {
        rows.push_back(FieldsOfLine(line, ','));
    }
    return rows;
}

TEST(Quotes, TellTheBarOfTheDay) {
    const auto rows = Quotes("A");
    ASSERT_EQ(rows.size(), 1u);
    ASSERT_EQ(rows[0].size(), static_cast<std::size_t>(kColumns));
    // 2018-02-02,72.32,72.76,71.22,71.25,1955697 behind a close of 72.83.
    EXPECT_EQ(rows[0][kTicker], "\"A\"");
    EXPECT_EQ(rows[0][kLast], "71.250");
    EXPECT_EQ(rows[0][kDate], "\"11/20/2026\"");
    EXPECT_EQ(rows[0][kTime], "\"4:00pm\"");
    EXPECT_EQ(rows[0][kChange], "-1.580");
    EXPECT_EQ(rows[0][kName], "\"Agilent Technologies, Inc.\"");
    EXPECT_EQ(rows[0][kExchange], "\"NYSE\"");
    EXPECT_EQ(rows[0][kOpen], "72.320");
    EXPECT_EQ(rows[0][kHigh], "72.760");
    EXPECT_EQ(rows[0][kLow], "71.220");
    EXPECT_EQ(rows[0][kVolume], "1955697");
    EXPECT_EQ(rows[0][kPrevious], "72.830");
    // The lowest low and the highest high of 2017-02-02 to 2018-02-02.
    EXPECT_EQ(rows[0][kLow52], "48.470");
    EXPECT_EQ(rows[0][kHigh52], "75.000");
}

TEST(Quotes, TellTodaysBarOnATradingDay) {
    const auto rows = Quotes("A", Day(2026, 11, 23));
    EXPECT_EQ(rows[0][kDate], "\"11/23/2026\"");
    EXPECT_EQ(rows[0][kLast], "68.220");
    EXPECT_EQ(rows[0][kPrevious], "71.250");
}

TEST(Quotes, StandOnTheScaleBehindASplit) {
    const auto rows = Quotes("NFLX");
    EXPECT_EQ(rows[0][kLast], "114.770");
    EXPECT_EQ(rows[0][kPrevious], "115.810");
    // Highs before the split were above 700.
    EXPECT_EQ(rows[0][kHigh52], "117.880");
    EXPECT_NEAR(std::stod(rows[0][kLow52]), 45.077, 0.001);
    EXPECT_LT(std::stod(rows[0][kEps]), 15);
}

TEST(Quotes, AnswerFifteenTickersAndMore) {
    EXPECT_EQ(Quotes("A,ADBE,AMD,AMGN,AOS,BAC,BMY,BRK.B,C,CHK,CL,COST,CRM,DAL,DE").size(), 15u);
    std::string many = "A";
    for (int i = 0; i < 499; ++i) many += ",BAC";
    const auto rows = Quotes(many);
    ASSERT_EQ(rows.size(), 500u);
    EXPECT_EQ(rows[0][kTicker], "\"A\"");
    EXPECT_EQ(rows[499][kTicker], "\"BAC\"");
}

TEST(Quotes, KeepEachLineInItsPlace) {
    EXPECT_EQ(Quotes("A,,,,,,,,,,,,,,").size(), 1u);
    EXPECT_EQ(Quotes(",,,,,,,,,,,,,,").size(), 0u);
    const auto rows = Quotes("A,,T,,");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1][kTicker], "\"\"");
    EXPECT_EQ(rows[1][kLast], "N/A");
    EXPECT_EQ(rows[2][kTicker], "\"T\"");
}

TEST(Quotes, AnswerTickersInCapitals) {
    EXPECT_EQ(Quotes("brk.b")[0][kTicker], "\"BRK.B\"");
    EXPECT_EQ(Quotes("brk.b")[0][kName], "\"Berkshire Hathaway Inc. class B\"");
}

TEST(Quotes, AnswerAnUnknownTickerWithNothingButItsName) {
    for (const std::string ticker : {"ZZZZ", "%5EDJI", "..%2F..%2Fetc%2Fpasswd", "A%20B", "A%00"}) {
        const auto rows = Quotes(ticker);
        ASSERT_EQ(rows.size(), 1u);
        ASSERT_EQ(rows[0].size(), static_cast<std::size_t>(kColumns)) << ticker;
        for (std::size_t i = 1; i < kColumns; ++i) {
            EXPECT_TRUE(rows[0][i] == "N/A" || rows[0][i] == "\"N/A\"") << ticker << ' ' << rows[0][i];
        }
    }
    EXPECT_EQ(Quotes("^DJI")[0][kTicker], "\"^DJI\"");
    EXPECT_EQ(Quotes("A%22B%0AC")[0][kTicker], "\"ABC\"");
}

TEST(Quotes, TellAnIndexWithoutTheFiguresOfACompany) {
    const auto row = Quotes("SPX")[0];
    EXPECT_NE(row[kLast], "N/A");
    EXPECT_NE(row[kVolume], "N/A");
    for (const Column column : {kAsk, kBid, kDividend, kEps, kPe, kPeg, kEpsEstimate, kCap, kSales}) {
        EXPECT_EQ(row[column], "N/A") << column;
    }
}

TEST(Quotes, TellTheIndexByTheNameOfTablesThatFollowALiveSourceToo) {
    auto row = Quotes("%5EGSPC")[0];
    EXPECT_EQ(row[kTicker], "\"^GSPC\"");
    row[kTicker] = "\"SPX\"";
    EXPECT_EQ(row, Quotes("SPX")[0]);
}

TEST(Quotes, ArePlausible) {
    std::string tickers;
    for (const auto& [ticker, rest] : ShippedData().Tickers()) tickers += ticker + ',';
    int payers = 0;
    for (const auto& row : Quotes(tickers)) {
        ASSERT_EQ(row.size(), static_cast<std::size_t>(kColumns));
        if (row[kExchange] == "\"Index\"") continue;
        const auto number = [&](Column column) { return std::stod(row[column]); };
        EXPECT_GT(number(kLast), 0) << row[kTicker];
        EXPECT_LE(number(kLow), number(kLast)) << row[kTicker];
        EXPECT_GE(number(kHigh), number(kLast)) << row[kTicker];
        EXPECT_LE(number(kLow52), number(kLow)) << row[kTicker];
        EXPECT_GE(number(kHigh52), number(kHigh)) << row[kTicker];
        EXPECT_LT(number(kBid), number(kLast)) << row[kTicker];
        EXPECT_GT(number(kAsk), number(kLast)) << row[kTicker];
        EXPECT_NEAR(number(kAsk), number(kBid), 0.13) << row[kTicker];
        EXPECT_NEAR(number(kLast) - number(kPrevious), number(kChange), 0.0011) << row[kTicker];
        EXPECT_LT(std::abs(number(kChange) / number(kPrevious)), 0.3) << row[kTicker];
        EXPECT_GT(number(kPe), 3) << row[kTicker];
        EXPECT_LT(number(kPe), 100) << row[kTicker];
        EXPECT_NEAR(number(kPe), number(kLast) / number(kEps), 0.01) << row[kTicker];
        EXPECT_GT(number(kEpsEstimate), number(kEps) * 0.99) << row[kTicker];
        EXPECT_GT(number(kSales), 0.2) << row[kTicker];
        EXPECT_GT(number(kPeg), 0.5) << row[kTicker];
        EXPECT_THAT(row[kCap], ::testing::MatchesRegex("[0-9]+\\.[0-9][0-9][MB]")) << row[kTicker];
        const bool pays = number(kDividend) > 0;
        payers += pays ? 1 : 0;
        EXPECT_EQ(row[kExDate] == "\"N/A\"", !pays) << row[kTicker];
        EXPECT_EQ(row[kPayDate] == "\"N/A\"", !pays) << row[kTicker];
        if (!pays) continue;
        EXPECT_LT(number(kDividend) / number(kLast), 0.06) << row[kTicker];
        const auto ex = ParseDate(row[kExDate].substr(1, row[kExDate].size() - 2));
        const auto paid = ParseDate(row[kPayDate].substr(1, row[kPayDate].size() - 2));
        ASSERT_TRUE(ex && paid) << row[kTicker];
        EXPECT_EQ(AddDays(*ex, 21), *paid);
        EXPECT_GE(*ex, Day(2026, 10, 22)) << row[kTicker];
        EXPECT_LE(*ex, Day(2027, 1, 22)) << row[kTicker];
    }
    EXPECT_GT(payers, 10);
    EXPECT_LT(payers, 40);
}

TEST(Quotes, AreConstantForADay) {
    const std::string target = "/d/quotes.txt?s=A,NFLX,T,ZZZ,SPX" + std::string(kCodes);
    EXPECT_EQ(Ask(target).body, Ask(target).body);
    AlertList alerts;
    const MarketData again = MarketData::Read(ShippedPrices());
    EXPECT_EQ(Answer(target, again, kSaturday, alerts).body, Ask(target).body);
    // The next day on, the spread is another, and what stays with a company is the same.
    const auto saturday = Quotes("A");
    const auto sunday = Quotes("A", Day(2026, 11, 22));
    EXPECT_NE(saturday[0][kAsk], sunday[0][kAsk]);
    EXPECT_EQ(saturday[0][kEps], sunday[0][kEps]);
    EXPECT_EQ(saturday[0][kCap], sunday[0][kCap]);
}

TEST(Quotes, TellTheFieldsThatTheCodesName) {
    EXPECT_EQ(Ask("/d/quotes.txt?s=A&f=sl1").body, "\"A\",71.250\n");
    EXPECT_EQ(Ask("/d/quotes.txt?s=A&f=l1s").body, "71.250,\"A\"\n");
    EXPECT_EQ(Ask("/d/quotes.txt?s=A&f=sz9l1").body, "\"A\",N/A,71.250\n");
    EXPECT_EQ(Ask("/d/quotes.txt?s=A&f=99s").body, "N/A,\"A\"\n");
    EXPECT_EQ(Ask("/d/quotes.txt?s=A").body, Ask("/d/quotes.txt?s=A" + std::string(kCodes)).body);
    EXPECT_EQ(Ask("/d/quotes.txt").body, "");
}

TEST(Quotes, ArePlainText) {
    EXPECT_THAT(Ask("/d/quotes.txt?s=A").contentType, StartsWith("text/plain"));
    EXPECT_EQ(Ask("/d/quotes.txt?s=A").status, 200);
}

TEST(Quotes, HaveDecimalCommasBetweenSemicolonsInTheSevenMarketsThatWriteThem) {
    for (const MarketRow& market : kMarkets) {
        const std::string target = MarketPrefix(market) + "/d/quotes.txt?s=A,ZZZ" + std::string(kCodes);
        const std::string body = Ask(target).body;
        if (market.decimals == Decimals::Point) {
            EXPECT_THAT(body, StartsWith("\"A\",71.250,\"11/20/2026\",")) << market.name;
            continue;
        }
        EXPECT_THAT(body, StartsWith("\"A\";71,250;\"11/20/2026\";\"4:00pm\";")) << market.name;
        // Turned as the program turns them, both forms tell the same.
        std::string turned = body;
        for (char& c : turned) c = c == ',' ? '.' : c == ';' ? ',' : c;
        const auto commas = FieldsOfLine(LinesOf(turned).at(0), ',');
        const auto points = Quotes("A")[0];
        ASSERT_EQ(commas.size(), points.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (i == kName) continue;
            EXPECT_EQ(commas[i], points[i]) << market.name << ' ' << i;
        }
    }
}

TEST(ScaledNumber, HasTheLetterOfItsSize) {
    EXPECT_EQ(ScaledNumber(1.2e9), "1.20B");
    EXPECT_EQ(ScaledNumber(850.5e6), "850.50M");
    EXPECT_EQ(ScaledNumber(300e3), "300.00K");
    EXPECT_EQ(ScaledNumber(1e9), "1.00B");
    EXPECT_EQ(ScaledNumber(1e6), "1.00M");
    EXPECT_EQ(ScaledNumber(0), "0.00K");
    EXPECT_EQ(ScaledNumber(-5e6), "-5.00M");
}

TEST(History, TellsTheDaysOfItsSpanNewestFirst) {
    const MarketReply reply = Ask("/table.txt?s=NFLX&a=10&b=16&c=2026&d=10&e=21&f=2026&g=d&ignore=.txt");
    EXPECT_THAT(reply.contentType, StartsWith("text/plain"));
    // 2015-07-13 to 07-17, the split on the third day, prices before it as they were traded.
    EXPECT_EQ(reply.body,
              "Date,Open,High,Low,Close,Volume,Adj Close\n"
              "2026-11-20,117.340,117.880,114.240,114.770,25136900,114.770\n"
              "2026-11-19,111.020,116.490,107.680,115.810,63461000,115.810\n"
              "2026-11-18,99.970,100.750,97.050,98.130,30898600,98.130\n"
              "2026-11-17,708.900,711.450,697.570,702.600,19736500,702.600\n"
              "2026-11-16,686.690,716.160,686.550,707.610,33205200,707.610\n");
}

TEST(History, HasTheMonthsFromZero) {
    const MarketReply reply = Ask("/table.txt?s=A&a=0&b=01&c=2026&d=0&e=31&f=2026&g=d");
    const auto lines = LinesOf(reply.body);
    ASSERT_GT(lines.size(), 15u);
    for (std::size_t i = 1; i < lines.size(); ++i) EXPECT_THAT(lines[i], StartsWith("2026-01-"));
}

TEST(History, EndsBeforeTodayWhateverIsAskedFor) {
    // On Monday the quote of the day is Monday's, and the history ends on Friday.
    for (const std::string end : {"", "&d=10&e=23&f=2026", "&d=11&e=31&f=2099"}) {
        const auto lines = LinesOf(Ask("/table.txt?s=A" + end, Day(2026, 11, 23)).body);
        ASSERT_GT(lines.size(), 1u);
        EXPECT_THAT(lines[1], StartsWith("2026-11-20,")) << end;
    }
}

TEST(History, TakesADateThatCannotBeReadForNoBound) {
    const std::size_t all = LinesOf(Ask("/table.txt?s=A").body).size();
    EXPECT_GT(all, 1000u);
    for (const std::string span :
         {"&a=x&b=1&c=2026", "&a=12&b=1&c=2026", "&a=1&b=30&c=2026", "&a=1&b=0&c=2026", "&a=-1&b=1&c=2026",
          "&a=1&b=1&c=99999", "&a=256&b=257&c=2026", "&b=1&c=2026"}) {
        EXPECT_EQ(LinesOf(Ask("/table.txt?s=A" + span).body).size(), all) << span;
    }
}

TEST(History, HasNothingButItsHeaderForASpanWithoutDays) {
    const std::string header = "Date,Open,High,Low,Close,Volume,Adj Close\n";
    EXPECT_EQ(Ask("/table.txt?s=A&a=0&b=1&c=1990&d=0&e=1&f=1991").body, header);
    EXPECT_EQ(Ask("/table.txt?s=A&a=5&b=1&c=2026&d=4&e=1&f=2026").body, header);
    EXPECT_EQ(Ask("/table.txt?s=A&a=0&b=1&c=2040").body, header);
}

TEST(History, RefusesAnUnknownTicker) {
    for (const std::string ticker : {"ZZZZ", "", "../A", "A%00", "A,T"}) {
        EXPECT_EQ(Ask("/table.txt?s=" + ticker).status, 404) << ticker;
    }
    EXPECT_EQ(Ask("/table.txt").status, 404);
    EXPECT_EQ(Ask("/table.txt?s=brk.b").status, 200);
}

}  // namespace
}  // namespace brantlow
