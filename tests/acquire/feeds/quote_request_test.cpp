#include "acquire/feeds/quote_request.h"

#include "support/session_fixture.h"

namespace brantlow {
namespace {

class QuoteRequestTest : public SessionTest {
  protected:
    static QuoteTable Tickers(std::size_t count) {
        QuoteTable table;
        table.AppendLine("Ticker Symbol");
        for (std::size_t i = 1; i <= count; ++i) table.AppendLine("t" + std::to_string(i));
        return table;
    }
};

TEST_F(QuoteRequestTest, ATableWithOneRowStillAsksForFifteen) {
    EXPECT_EQ(StandardQuoteUrl("http://q.test", Tickers(1), 1),
              "http://q.test/d/quotes.txt?s=T1,,,,,,,,,,,,,,&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e");
}

TEST_F(QuoteRequestTest, FifteenTickersInCapitalsFromARowOn) {
    EXPECT_EQ(StandardQuoteUrl("http://q.test/de", Tickers(40), 16),
              "http://q.test/de/d/quotes.txt?s=T16,T17,T18,T19,T20,T21,T22,T23,T24,T25,T26,T27,T28,T29,T30"
              "&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e");
    EXPECT_EQ(StandardQuoteUrl("http://q.test", Tickers(17), 16),
              "http://q.test/d/quotes.txt?s=T16,T17,,,,,,,,,,,,,&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e");
}

TEST_F(QuoteRequestTest, TheUsersTemplateTakesTheNextTickers) {
    struct Row {
        const char* text;
        std::size_t firstRow;
        const char* url;
        std::size_t tickers;
    };
    constexpr Row kRows[] = {
        {"http://u.test/q?s=QUOTESYMBOL+QUOTESYMBOL&x=1", 1, "http://u.test/q?s=T1+T2&x=1", 2},
        {"http://u.test/q?s=QUOTESYMBOL", 3, "http://u.test/q?s=T3", 1},
        // Past the end of the table there is no ticker.
        {"QUOTESYMBOL,QUOTESYMBOL,", 3, "T3,,", 2},
        {"QUOTESYMBOLQUOTESYMBOL", 1, "T1T2", 2},
        {"http://u.test/all", 1, "http://u.test/all", 0},
        {"quotesymbol QUOTESYMBO", 1, "quotesymbol QUOTESYMBO", 0},
    };
    for (const Row& row : kRows) {
        const UserQuoteUrl filled = FillQuoteTemplate(row.text, Tickers(3), row.firstRow);
        EXPECT_EQ(filled.url, row.url) << row.text;
        EXPECT_EQ(filled.tickers, row.tickers) << row.text;
    }
}

TEST_F(QuoteRequestTest, ATickerLikeThePlaceholderIsNotReplacedAgain) {
    EXPECT_EQ(
        FillQuoteTemplate("QUOTESYMBOL/QUOTESYMBOL", TableOf({"Ticker Symbol", "quotesymbol", "B"}), 1).url,
        "QUOTESYMBOL/B");
}

TEST_F(QuoteRequestTest, TheStepByItsLine) {
    struct Row {
        const char* text;
        std::size_t step;
    };
    constexpr Row kRows[] = {{"15", 15}, {"10", 10}, {"1", 1},   {"0", 15},    {"-3", 15},
                             {"", 15},   {"x", 15},  {"40", 40}, {"12.2", 12}, {"1e9", kMostRows}};
    for (const Row& row : kRows) {
        Set(session.settings.NetSettings, 6, row.text);
        EXPECT_EQ(BatchStep(session.settings), row.step) << row.text;
    }
}

TEST_F(QuoteRequestTest, TheSourceByItsWord) {
    struct Row {
        const char* word;
        QuoteSource source;
    };
    constexpr Row kRows[] = {{"Yahoo", QuoteSource::Standard},
                             {"User Selected String", QuoteSource::User},
                             {"", QuoteSource::Standard},
                             {"yahoo", QuoteSource::Standard}};
    for (const Row& row : kRows) {
        Set(session.settings.NetSettings, 3, row.word);
        EXPECT_EQ(QuoteSourceOf(session.settings), row.source) << row.word;
    }
}

}  // namespace
}  // namespace brantlow
