// Further replies that the services document, each in its recorded form: a whole market's day, splits, lists
// of symbols, filings, and what every source must take for no reply at all. Numbers are made up.
#include <gmock/gmock.h>

#include <array>
#include <map>

#include "acquire/feeds/live/company_facts.h"
#include "acquire/feeds/live/live_asking.h"
#include "acquire/feeds/live/live_splits.h"
#include "acquire/feeds/live/source_check.h"
#include "acquire/feeds/live/source_fixture.h"
#include "base/numbers.h"

namespace brantlow {

namespace {

class SourceRows : public SourceTest {
  protected:
    brantlow::SourceReply AskAll(std::string_view source, Capability capability,
                                 std::vector<std::string> symbols = {},
                                 std::chrono::sys_days from = DayOf(2026, 11, 2)) {
        SourceClient client(world, Source(source));
        return client.Ask({capability, std::move(symbols), from, DayOf(2026, 11, 20)});
    }

    // "TICKER factor on day" of each split.
    static std::vector<std::string> SplitsOf(const brantlow::SourceReply& reply) {
        std::vector<std::string> texts;
        for (const SourceSplit& split : reply.splits) {
            texts.push_back(split.symbol + " " + ShortestNumber(split.factor) + " on " +
                            FormatIsoDate(Date{split.day}));
        }
        return texts;
    }

    // "TICKER,NAME,EXCHANGE,KIND" of each symbol.
    static std::vector<std::string> SymbolsOf(const brantlow::SourceReply& reply) {
        std::vector<std::string> texts;
        for (const SourceSymbol& row : reply.symbols) {
            texts.push_back(row.ticker + "," + row.name + "," + row.exchange + "," + row.kind);
        }
        return texts;
    }
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(SourceRows, NoSourceTakesAPageHalfAReplyOrNothingForRows) {
    constexpr std::array<const char*, 6> kNoReplies = {
        "<!DOCTYPE html><html><head><title>Just a moment...</title></head></html>",
        R"({"status":"OK","bars":{"KO":[{"t":"2026-11-18T05:0)",
        "",
        "null",
        "42",
        "service unavailable, try again later"};
    for (const SourceDefinition& source : Shipped().sources) {
        if (source.Form(Capability::History) == nullptr) continue;
        for (const char* bytes : kNoReplies) {
            SCOPED_TRACE(source.name + ": " + bytes);
            std::filesystem::remove(folder / "Data" / kSourceStateName);
            Reply(bytes);
            const TickerAnswer answer = AskFor(source.name, "KO");
            EXPECT_EQ(ResultName(answer.outcome.result), "changed format");
            EXPECT_TRUE(answer.bars.bars.empty());
        }
    }
}

TEST_F(SourceRows, ADayOfTheWholeMarketIsDatedByTheAskedDayWhateverIsMissing) {
    Reply(R"({"queryCount":4,"resultsCount":4,"adjusted":false,"results":[
        {"T":"KIMpL","v":4369.25,"vw":26.0407,"o":26.07,"c":25.9102,"h":26.25,"l":25.91,"t":1602705600000,"n":74},
        {"T":"BRK.B","v":25933.6,"o":493.5,"c":493.4,"h":494.763,"l":492.65,"t":1602705600000},
        {"T":"OTCX","v":10,"o":1,"c":1,"h":1,"l":1,"t":1602705600000,"otc":true},
        {"T":"TWICE","v":1,"o":1,"c":1,"h":1,"l":1,"t":1602705600000},
        {"T":"TWICE","v":1,"o":2,"c":2,"h":2,"l":2,"t":1602705600000}],"status":"DELAYED","count":4})");
    brantlow::SourceReply reply = AskAll("massive", Capability::Quotes, {}, DayOf(2026, 11, 20));
    ASSERT_TRUE(reply.outcome.Done()) << OutcomeText(reply.outcome);
    EXPECT_EQ(requests.front().url,
              "https://api.massive.com/v2/aggs/grouped/locale/us/market/stocks/2026-11-20?adjusted=false&"
              "include_otc=false");
    SourceClient client(world, Source("massive"));
    const TickerAnswer preferred = AnswerOf(client, Capability::Quotes, reply, "KIMpL");
    ASSERT_EQ(preferred.bars.bars.size(), 1u);
    EXPECT_EQ(preferred.bars.bars.front().day, DayOf(2026, 11, 20));
    EXPECT_EQ(preferred.bars.bars.front().volume, 4369.25);
    EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "BRK.B").bars.bars.front().close, 493.4);
    EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "TWICE").outcome.words,
              "it has two rows for 2026-11-20");
    EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "GONE").outcome.result, SourceResult::NoData);
}

TEST_F(SourceRows, AHolidayOfTheWholeMarketHasNoRows) {
    for (const char* bytes : {R"({"queryCount":0,"resultsCount":0,"adjusted":true,"status":"OK"})",
                              R"({"resultsCount":0,"adjusted":false,"results":[],"status":"OK"})"}) {
        Reply(bytes);
        const brantlow::SourceReply reply = AskAll("massive", Capability::Quotes);
        EXPECT_TRUE(reply.outcome.Done());
        EXPECT_EQ(reply.rows, 0u);
    }
}

TEST_F(SourceRows, SplitsComeInTheFormOfEachService) {
    struct Row {
        const char* what;
        const char* source;
        const char* bytes;
        Texts splits;
    };
    const std::vector<Row> rows = {
        {"forward, backward and a dividend in shares",
         "massive",
         R"({"status":"OK","results":[{"id":"E1","ticker":"AAPL","execution_date":"2026-11-10","split_from":1,"split_to":4,
             "adjustment_type":"forward_split","historical_adjustment_factor":0.25},
            {"id":"E2","ticker":"REV","execution_date":"2026-11-11","split_from":20,"split_to":1,"adjustment_type":"reverse_split"},
            {"id":"E3","ticker":"DIV","execution_date":"2026-11-12","split_from":20,"split_to":21,"adjustment_type":"stock_dividend"}]})",
         {"AAPL 4 on 2026-11-10", "REV 0.05 on 2026-11-11", "DIV 1.05 on 2026-11-12"}},
        {"the older form",
         "massive",
         R"({"status":"OK","results":[{"execution_date":"2026-11-10","split_from":1,"split_to":2,"ticker":"KO"}]})",
         {"KO 2 on 2026-11-10"}},
        {"none", "massive", R"({"status":"OK","results":[]})", {}},
        {"a factor of nothing and one of no size",
         "massive",
         R"({"status":"OK","results":[{"execution_date":"2026-11-10","split_from":0,"split_to":2,"ticker":"A"},
            {"execution_date":"2026-11-10","split_from":1,"split_to":1e300,"ticker":"B"},
            {"execution_date":"2026-11-10","split_from":1,"split_to":1,"ticker":"C"}]})",
         {}},
        {"by their ex-days",
         "alpaca",
         R"({"corporate_actions":{"forward_splits":[{"id":"a","symbol":"SRE","old_rate":1,"new_rate":2,
             "ex_date":"2026-11-12","payable_date":"2026-11-11"}],
             "reverse_splits":[{"symbol":"MNTS","old_rate":50,"new_rate":1,"ex_date":"2026-11-13"}],
             "unit_splits":[{"symbol":"UNT","old_rate":1,"new_rate":3,"ex_date":"2026-11-16"}],
             "cash_dividends":[{"symbol":"KO","rate":0.5,"ex_date":"2026-11-17"}]},"next_page_token":null})",
         {"SRE 2 on 2026-11-12", "MNTS 0.02 on 2026-11-13", "UNT 3 on 2026-11-16"}},
        {"nothing done", "alpaca", R"({"corporate_actions":{},"next_page_token":null})", {}},
        {"with blanks behind the symbol",
         "nasdaq",
         R"({"data":{"rows":[{"symbol":"XYZ  ","ratio":"4 : 1","executionDate":"6/9/2026"}]},"status":{"rCode":200}})",
         {"XYZ 4 on 2026-06-09"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Reply(row.bytes);
        const brantlow::SourceReply reply = AskAll(row.source, Capability::Splits);
        EXPECT_TRUE(reply.outcome.Done()) << OutcomeText(reply.outcome);
        EXPECT_EQ(SplitsOf(reply), row.splits);
    }
}

TEST_F(SourceRows, WhereTheNewAddressOfSplitsIsGoneTheOlderOneIsAsked) {
    Reply(
        {Answer(404, R"({"status":"NOT_FOUND","message":"Not found."})"),
         Answer(
             200,
             R"({"status":"OK","results":[{"execution_date":"2026-11-10","split_from":1,"split_to":2,"ticker":"KO"}]})")});
    EXPECT_EQ(SplitsOf(AskAll("massive", Capability::Splits)), (Texts{"KO 2 on 2026-11-10"}));
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_TRUE(requests[1].url.starts_with("https://api.massive.com/v3/reference/splits?"))
        << requests[1].url;
}

TEST_F(SourceRows, ASplitThatIsToldTwiceIsOne) {
    Write("Quotes/EOD/KO.26",
          "\"11/09/26\",\"\",80,80,80,10,0,0,0,0,0,\"\",\"\",0,0,0,0,0,80\r\n"
          "\"11/10/26\",\"\",20,20,20,40,0,0,0,0,0,\"\",\"\",0,0,0,0,0,20\r\n");
    Reply(R"({"data":{"rows":[{"symbol":"KO","ratio":"4 : 1","executionDate":"11/10/2026"},
        {"symbol":"KO","ratio":"4 : 1","executionDate":"11/10/2026"}]},"status":{"rCode":200}})");
    const LiveSplitCheck check = CheckLiveSplits(world, Source("nasdaq"), {"KO"});
    EXPECT_EQ(check.applied.size(), 1u);
    EXPECT_TRUE(Read("Quotes/EOD/KO.26").starts_with("\"11/09/26\",\"\",20,20,20,40,"));
}

TEST_F(SourceRows, RefusalsOfTheCalendarAndOfTheListsHaveTheirSentences) {
    struct Row {
        const char* what;
        const char* source;
        Capability capability;
        int status;
        const char* bytes;
        SourceResult result;
        const char* sentence;
    };
    const std::vector<Row> rows = {
        {"a symbol that is none", "nasdaq", Capability::Splits, 200,
         R"({"data":null,"message":null,"status":{"rCode":400,"bCodeMessage":[{"code":1001,"errorMessage":"Symbol not exists."}],"developerMessage":null}})",
         SourceResult::NoData, "no data: Symbol not exists."},
        {"blocked", "nasdaq", Capability::Splits, 403,
         "<HTML><HEAD><TITLE>Access Denied</TITLE></HEAD></HTML>", SourceResult::RateLimited,
         "rate limited (by the hour): a web page: Access Denied"},
        {"a page in place of the calendar", "nasdaq", Capability::Splits, 200, "<html></html>",
         SourceResult::ChangedFormat, "changed format: https://api.nasdaq.com: a web page"},
        {"a page in place of the directory", "nasdaq", Capability::Symbols, 200,
         "<html><body>Not here</body></html>", SourceResult::ChangedFormat,
         "changed format: https://www.nasdaqtrader.com: a web page"},
        {"an empty directory", "nasdaq", Capability::Symbols, 200, "", SourceResult::ChangedFormat,
         "changed format: the directory is empty"},
        {"a directory of other columns", "nasdaq", Capability::Symbols, 200, "Ticker|Name\r\nA|B\r\n",
         SourceResult::ChangedFormat, "changed format: the directory lacks its header: Ticker|Name"},
        {"splits too old for the plan", "massive", Capability::Splits, 403,
         R"({"status":"NOT_AUTHORIZED","message":"Your plan doesn't include this data timeframe."})",
         SourceResult::NotInPlan, "not in the plan: Your plan doesn't include this data timeframe."},
        {"a wish that the service does not know", "alpaca", Capability::Splits, 400,
         R"({"message":"invalid adjustment: odd"})", SourceResult::ChangedFormat,
         "changed format: https://data.alpaca.markets: status 400: invalid adjustment: odd"},
        {"spark of too many symbols", "yahoo", Capability::Quotes, 400,
         R"({"spark":{"result":null,"error":{"code":"Bad Request","description":"Number of symbols needs to be less than or equal to 20"}}})",
         SourceResult::ChangedFormat,
         "changed format: https://query1.finance.yahoo.com: status 400: Number of symbols needs to be less "
         "than or equal to 20"},
        {"the minute of EODHD", "eodhd", Capability::Quotes, 429, "", SourceResult::RateLimited,
         "rate limited (by the minute): status 429"},
        {"the limit of FMP by its status", "fmp", Capability::Quotes, 429,
         R"({"Error Message":"Limit Reach . Please upgrade your plan"})", SourceResult::RateLimited,
         "rate limited (by the day): Limit Reach . Please upgrade your plan"},
        {"minutes too far back", "yahoo", Capability::History, 422,
         R"({"chart":{"result":null,"error":{"code":"Unprocessable Entity","description":"1m data not available"}}})",
         SourceResult::NoData, "no data: 1m data not available"},
        {"an address that is not served", "yahoo", Capability::History, 403, "", SourceResult::Network,
         "network: https://query2.finance.yahoo.com: status 403"},
        {"a page of no symbol", "yahoo", Capability::History, 404, "<html></html>",
         SourceResult::ChangedFormat, "changed format: https://query1.finance.yahoo.com: a web page"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(folder / "Data" / kSourceStateName);
        Reply(row.status, row.bytes);
        const Texts symbols = row.capability == Capability::Quotes || row.capability == Capability::History
                                  ? Texts{"KO"}
                                  : Texts{};
        const SourceOutcome outcome = AskAll(row.source, row.capability, symbols).outcome;
        EXPECT_EQ(ResultName(outcome.result), ResultName(row.result));
        EXPECT_EQ(SentenceOf(outcome), row.sentence);
    }
}

TEST_F(SourceRows, OneSymbolThatCannotBeSpoilsNoList) {
    TickersQuestion question{Capability::Quotes, DayOf(2026, 11, 18), DayOf(2026, 11, 20), {}};
    SourceClient client(world, Source("alpaca"));
    Reply(
        {Answer(400, R"({"message":"invalid symbol: CSP1"})"),
         Answer(
             200,
             R"({"bars":{"KO":[{"t":"2026-11-19T05:00:00Z","o":3,"h":4,"l":3,"c":3.5,"v":20}]},"next_page_token":null})")});
    std::map<std::string, SourceResult> results;
    AskTickers(
        client, world, question, {"KO", "CSP1", "GONE"},
        [&](const std::string& ticker, TickerAnswer answer) { results[ticker] = answer.outcome.result; });
    EXPECT_EQ(results["KO"], SourceResult::Rows);
    EXPECT_EQ(results["CSP1"], SourceResult::UnknownSymbol);
    EXPECT_EQ(results["GONE"], SourceResult::NoData);
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_NE(requests[1].url.find("symbols=KO,GONE&"), std::string::npos) << requests[1].url;
}

TEST_F(SourceRows, WhereAnUnknownSymbolFailsSparksWholeListEachIsAskedAlone) {
    constexpr const char* kFailed =
        R"({"spark":{"result":null,"error":{"code":"Not Found","description":"No data found for spark symbols"}}})";
    for (const int status : {404, 200}) {
        SCOPED_TRACE(status);
        requests.clear();
        TickersQuestion question{Capability::Quotes, DayOf(2026, 11, 18), DayOf(2026, 11, 20), {}};
        SourceClient client(world, Source("yahoo"));
        Reply(
            {Answer(status, kFailed),
             Answer(
                 200,
                 R"({"spark":{"result":[{"symbol":"KO","response":[{"meta":{},"timestamp":[1795012200],"indicators":{"quote":[{"close":[70.5]}]}}]}],"error":null}})"),
             Answer(status, kFailed)});
        std::map<std::string, SourceResult> results;
        AskTickers(
            client, world, question, {"KO", "GONE"},
            [&](const std::string& ticker, TickerAnswer answer) { results[ticker] = answer.outcome.result; });
        EXPECT_EQ(ResultName(results["KO"]), "rows");
        EXPECT_EQ(ResultName(results["GONE"]), "unknown symbol");
        ASSERT_EQ(requests.size(), 3u);
        EXPECT_NE(requests[1].url.find("symbols=KO&"), std::string::npos) << requests[1].url;
        EXPECT_NE(requests[2].url.find("symbols=GONE&"), std::string::npos) << requests[2].url;
    }
}

TEST_F(SourceRows, YahooIsAskedOnceMoreByAnotherNameAndThenByItsOtherHost) {
    const std::string rows =
        R"({"chart":{"result":[{"meta":{},"timestamp":[1795012200],"indicators":{"quote":[{"open":[1],"high":[1],"low":[1],"close":[1],"volume":[1]}]}}],"error":null}})";
    Reply({Answer(429, "Too Many Requests"), Answer(200, rows)});
    EXPECT_TRUE(AskFor("yahoo", "KO").outcome.Done());
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_NE(requests[0].headers, requests[1].headers);
    requests.clear();
    web.answer = [&](const ServiceRequest& request) {
        requests.push_back(request);
        return request.url.find("query1") == std::string::npos ? Answer(200, rows) : Answer(502, "");
    };
    EXPECT_TRUE(AskFor("yahoo", "KO").outcome.Done());
    EXPECT_TRUE(requests.back().url.starts_with("https://query2.finance.yahoo.com/")) << requests.back().url;
}

TEST_F(SourceRows, YahooRowsBehindTheAskedEndAndOfAnotherZoneAreKnown) {
    // 00:30 UTC on the 19th is the morning of the 19th in Tokyo; the row of the 21st was not asked for.
    Reply(
        R"({"chart":{"result":[{"meta":{"currency":"JPY","exchangeTimezoneName":"Asia/Nowhere","gmtoffset":32400},
        "timestamp":[1795048200,1795221000],"indicators":{"quote":[{"open":[5,6],"high":[5,6],"low":[5,6],"close":[5,6],
        "volume":[1,1]}]}}],"error":null}})");
    const TickerAnswer answer = AskFor("yahoo", "7203.T");
    ASSERT_TRUE(answer.outcome.Done()) << OutcomeText(answer.outcome);
    ASSERT_EQ(answer.bars.bars.size(), 1u);
    EXPECT_EQ(answer.bars.bars.front().day, DayOf(2026, 11, 19));
    EXPECT_EQ(answer.bars.currency, "JPY");
}

TEST_F(SourceRows, NumbersMayBeTextsAndNullsAreMissing) {
    Reply(
        R"([{"date":"2026-11-17","open":null,"high":null,"low":null,"close":null,"adjusted_close":null,"volume":null},
        {"date":"2026-11-18","open":"1.5","high":" 3 ","low":1,"close":"$2.50","volume":"1,234"},
        {"date":"2026-11-19","open":1,"high":3,"low":1,"close":2,"volume":null}])");
    const TickerAnswer answer = AskFor("eodhd", "KO");
    // One row in three has no price: the ticker is refused.
    EXPECT_EQ(answer.outcome.words, "more than one row in ten has no price");
    Reply(R"([{"date":"2026-11-18","open":"1.5","high":" 3 ","low":1,"close":"$2.50","volume":"1,234"},
        {"date":"2026-11-19","open":1,"high":3,"low":1,"close":2,"volume":null}])");
    const TickerAnswer good = AskFor("eodhd", "KO");
    ASSERT_EQ(good.bars.bars.size(), 2u);
    EXPECT_EQ(good.bars.bars[0].close, 2.5);
    EXPECT_EQ(good.bars.bars[0].volume, 1234);
    EXPECT_EQ(good.bars.bars[1].volume, 0);
}

TEST_F(SourceRows, ListsOfSymbolsTellTheirKindsAndExchanges) {
    Reply(R"({"results":[{"ticker":"KO","name":"Coca","primary_exchange":"XNYS","type":"CS","active":true},
        {"ticker":"BACpK","name":"Bank pref","primary_exchange":"XNYS","type":"PFD"},
        {"ticker":"SPY","name":"A fund","primary_exchange":"ARCX","type":"ETF"},
        {"ticker":"WARR.WS","name":"Warrants","primary_exchange":"XASE","type":"WARRANT"},
        {"ticker":"ODD","name":"Odd","primary_exchange":"XXXX","type":"CS"}],"status":"OK"})");
    EXPECT_EQ(SymbolsOf(AskAll("massive", Capability::Symbols)),
              (Texts{"KO,Coca,NYSE,stock", "BAC pK,Bank pref,NYSE,stock", "SPY,A fund,NYSE Arca,etf",
                     "WARR.WS,Warrants,NYSE American,other", "ODD,Odd,XXXX,stock"}));
}

TEST_F(SourceRows, DirectoriesKnowTheCodesOfTheirExchanges) {
    Reply(
        {Answer(200,
                "Symbol|Security Name|Market Category|Test Issue|Financial Status|Round Lot "
                "Size|ETF|NextShares\r\n"
                "AAPL|Apple|Q|N|D|100|N|N\r\nFile Creation Time: 1120202621:32||||||\r\n"),
         Answer(200,
                "ACT Symbol|Security Name|Exchange|CQS Symbol|ETF|Round Lot Size|Test Issue|NASDAQ Symbol\r\n"
                "A1|American|A|A1|N|100|N|A1\r\nN1|York|N|N1|N|100|N|N1\r\nP1|Arca|P|P1|Y|100|N|P1\r\n"
                "Z1|Cboe|Z|Z1|Y|100|N|Z1\r\nV1|Iex|V|V1|N|100|N|V1\r\nM1|Chicago|M|M1|N|100|N|M1\r\n"
                "T1|Test|N|T1|N|100|Y|T1\r\nFile Creation Time: 1120202621:32||||||||\r\n")});
    EXPECT_EQ(
        SymbolsOf(AskAll("nasdaq", Capability::Symbols)),
        (Texts{"AAPL,Apple,NASDAQ,stock", "A1,American,NYSE American,stock", "N1,York,NYSE,stock",
               "P1,Arca,NYSE Arca,etf", "Z1,Cboe,Cboe,etf", "V1,Iex,IEX,stock", "M1,Chicago,Chicago,stock"}));
}

namespace {

// The companies of the filings, and the pages of one tag each.
class Filings : public SourceTest {
  protected:
    Filings() {
        web.answer = [this](const ServiceRequest& request) {
            requests.push_back(request);
            for (const auto& [end, answer] : pages) {
                if (request.url.ends_with(end)) return answer;
            }
            return Answer(404, "<?xml version=\"1.0\"?><Error><Code>NoSuchKey</Code></Error>");
        };
        pages["company_tickers.json"] = Answer(
            200,
            R"({"0":{"cik_str":320193,"ticker":"AAPL","title":"Apple Inc."},"1":{"cik_str":1067983,"ticker":"BRK-B","title":"B"},
                "2":{"cik_str":1067983,"ticker":"BRK-A","title":"A"},"3":{"cik_str":999,"ticker":"AAPL","title":"Another"}})");
    }

    // A tag's page with one value a quarter of the last year, each the same.
    static ServiceReply Quarters(const char* unit, double value) {
        std::string rows;
        constexpr std::array<std::array<const char*, 3>, 4> kQuarters = {
            {{"2025-10-01", "2025-12-31", "2026-02-01"},
             {"2026-01-01", "2026-03-31", "2026-05-01"},
             {"2026-04-01", "2026-06-30", "2026-08-01"},
             {"2026-07-01", "2026-09-30", "2026-11-01"}}};
        for (const auto& [start, end, filed] : kQuarters) {
            rows += std::string(rows.empty() ? "" : ",") + R"({"start":")" + start + R"(","end":")" + end +
                    R"(","val":)" + ShortestNumber(value) + R"(,"form":"10-Q","filed":")" + filed + "\"}";
        }
        return Answer(200, R"({"cik":320193,"units":{")" + std::string(unit) + "\":[" + rows + "]}}");
    }

    CompanyYear YearOf(const std::string& ticker) {
        SourceClient client(world, Source("sec"));
        return CompanyFacts(world, client).YearOf(ticker);
    }

    std::map<std::string, ServiceReply> pages;
};

}  // namespace

TEST_F(Filings, TagsThatWereNeverUsedGiveWayToTheNext) {
    pages["us-gaap/EarningsPerShareBasic.json"] = Quarters("USD/shares", 1.5);
    pages["us-gaap/Revenues.json"] = Quarters("USD", 2.5e11);
    pages["us-gaap/CommonStockSharesOutstanding.json"] = Quarters("shares", 1.5e10);
    pages["us-gaap/CommonStockDividendsPerShareCashPaid.json"] = Quarters("USD/shares", 0.25);
    const CompanyYear year = YearOf("AAPL");
    ASSERT_TRUE(year.outcome.Done()) << OutcomeText(year.outcome);
    EXPECT_EQ(year.earningsPerShare, 6);
    EXPECT_EQ(year.sales, 1e12);
    EXPECT_EQ(year.shares, 1.5e10);
    EXPECT_EQ(year.dividends, 1);
    EXPECT_EQ(year.end, DayOf(2026, 9, 30));
    // The first of two companies of one ticker, its number in ten digits, and whom to write to.
    EXPECT_NE(requests[1].url.find("/CIK0000320193/us-gaap/EarningsPerShareDiluted.json"), std::string::npos);
    EXPECT_NE(std::find(requests[1].headers.begin(), requests[1].headers.end(),
                        "User-Agent: Brantlow me@example.org"),
              requests[1].headers.end());
}

// Four quarters of 796908652.8 add up to 3187634611.2, those of 0.1 to more digits than a share has.
TEST_F(Filings, TheTrialShowsFiguresAsATableHoldsThem) {
    pages["us-gaap/EarningsPerShareDiluted.json"] = Quarters("USD/shares", 0.1000011);
    pages["us-gaap/Revenues.json"] = Quarters("USD", 796908652.8);
    pages["us-gaap/CommonStockSharesOutstanding.json"] = Quarters("shares", 15000000.4);
    SourceClient client(world, Source("sec"));
    const SourceChecked checked = CheckCapability(world, client, Capability::Fundamentals, "AAPL");
    EXPECT_EQ(checked.words, "twelve months to 2026-09-30");
    EXPECT_THAT(checked.rows,
                ::testing::ElementsAre("earnings a share 0.4", "sales 3187634611", "shares 15000000"));
}

TEST_F(Filings, ClassesAreSpelledWithADashAndShareACompany) {
    pages["CIK0001067983/us-gaap/EarningsPerShareDiluted.json"] = Quarters("USD/shares", 2);
    EXPECT_EQ(YearOf("BRK.B").earningsPerShare, 8);
    EXPECT_EQ(YearOf("BRK.A").earningsPerShare, 8);
    EXPECT_EQ(YearOf("GONE").outcome.result, SourceResult::UnknownSymbol);
}

TEST_F(Filings, ACompanyOfAnotherCurrencyOrOtherRulesHasNothing) {
    pages["us-gaap/EarningsPerShareDiluted.json"] = Quarters("EUR/shares", 2);
    EXPECT_EQ(YearOf("AAPL").outcome.result, SourceResult::NoData);
}

TEST_F(Filings, RefusalsOfTheServiceHaveTheirSentences) {
    struct Row {
        const char* what;
        int status;
        const char* bytes;
        SourceResult result;
        const char* sentence;
    };
    const std::vector<Row> rows = {
        {"too fast", 403,
         "<html><head><title>SEC.gov | Request Rate Threshold Exceeded</title></head></html>",
         SourceResult::RateLimited,
         "rate limited (by the hour): a web page: SEC.gov | Request Rate Threshold Exceeded"},
        {"nobody to write to", 403,
         "<html><head><title>SEC.gov</title></head>Your Request Originates from an Undeclared Automated "
         "Tool</html>",
         SourceResult::BadKey, "bad key: a web page: SEC.gov: Undeclared Automated Tool"},
        {"no list", 404, "<html></html>", SourceResult::ChangedFormat,
         "changed format: the list of companies is not there"},
        {"no list, in the storage's words", 404,
         "<?xml version=\"1.0\"?><Error><Code>NoSuchKey</Code></Error>", SourceResult::ChangedFormat,
         "changed format: the list of companies is not there"},
        {"shut off", 403, "<html><head><title>Forbidden</title></head></html>", SourceResult::BadKey,
         "bad key: a web page: Forbidden"},
        {"another list", 200, R"({"fields":["cik"],"data":[]})", SourceResult::ChangedFormat,
         "changed format: the list of companies is empty"},
        {"a page", 200, "<html></html>", SourceResult::ChangedFormat,
         "changed format: https://www.sec.gov: a web page"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(folder / "Data" / kSourceStateName);
        pages["company_tickers.json"] = Answer(row.status, row.bytes);
        const SourceOutcome outcome = YearOf("AAPL").outcome;
        EXPECT_EQ(ResultName(outcome.result), ResultName(row.result));
        EXPECT_EQ(SentenceOf(outcome), row.sentence);
    }
}

TEST_F(Filings, AFileThatIsClosedToAllIsOneThatIsNotThere) {
    pages["us-gaap/EarningsPerShareDiluted.json"] =
        Answer(403, "<?xml version=\"1.0\"?><Error><Code>AccessDenied</Code></Error>");
    pages["us-gaap/EarningsPerShareBasic.json"] = Quarters("USD/shares", 1.5);
    EXPECT_EQ(YearOf("AAPL").earningsPerShare, 6);
}

TEST_F(Filings, FactsWithoutUnitsAreAnotherForm) {
    pages["us-gaap/EarningsPerShareDiluted.json"] = Answer(200, R"({"cik":320193,"facts":[]})");
    EXPECT_EQ(YearOf("AAPL").outcome.result, SourceResult::ChangedFormat);
}

}  // namespace brantlow
