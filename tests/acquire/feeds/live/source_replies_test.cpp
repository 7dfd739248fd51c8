// A recorded-form reply for each row that the services document: rows, each failure, each trap. Numbers are
// made up.
#include "acquire/feeds/live/source_fixture.h"

namespace brantlow {

namespace {

struct ReplyRow {
    const char* what;
    const char* source;
    int status;
    const char* bytes;
    SourceResult result;
    const char* sentence;
    LimitScope scope = LimitScope::Minute;
};

const std::vector<ReplyRow>& Failures() {
    static const std::vector<ReplyRow> rows = {
        {"massive has no rows", "massive", 200,
         R"({"queryCount":0,"resultsCount":0,"adjusted":true,"status":"OK","request_id":"x"})",
         SourceResult::UnknownSymbol, "unknown symbol"},
        {"massive's rows are an empty array", "massive", 200,
         R"({"resultsCount":0,"results":[],"status":"OK"})", SourceResult::UnknownSymbol, "unknown symbol"},
        {"massive without a key", "massive", 401,
         R"({"status":"ERROR","request_id":"x","error":"API Key was not provided"})", SourceResult::BadKey,
         "bad key: API Key was not provided"},
        {"massive with a bad key", "massive", 401,
         R"({"status":"ERROR","request_id":"x","error":"Unknown API Key"})", SourceResult::BadKey,
         "bad key: Unknown API Key"},
        {"massive, too old for the plan", "massive", 403,
         R"({"status":"NOT_AUTHORIZED","message":"Your plan doesn't include this data timeframe. Please upgrade..."})",
         SourceResult::NotInPlan,
         "not in the plan: Your plan doesn't include this data timeframe. Please upgrade..."},
        {"massive, today on the free plan", "massive", 403,
         R"({"status":"NOT_AUTHORIZED","message":"Attempted to request today's data before end of day. Please upgrade..."})",
         SourceResult::NotYetPublished,
         "not yet published: Attempted to request today's data before end of day. Please upgrade..."},
        {"massive, another plan", "massive", 403,
         R"({"status":"NOT_AUTHORIZED","message":"You are not entitled to this data. Please upgrade your plan"})",
         SourceResult::NotEntitled,
         "not entitled to this symbol: You are not entitled to this data. Please upgrade your plan"},
        {"massive, shut off on the way", "massive", 403,
         "<!DOCTYPE html><html><head><title>Access Denied</title></head></html>", SourceResult::Network,
         "network: https://api.massive.com: status 403: a web page: Access Denied"},
        {"massive, shut off by a page that asks for money", "massive", 402, "\n<html>pay</html>",
         SourceResult::Network, "network: https://api.massive.com: status 402: a web page"},
        {"massive, forbidden in other words", "massive", 403, "forbidden", SourceResult::NotInPlan,
         "not in the plan: status 403: forbidden"},
        {"massive, unknown by itself", "massive", 404,
         R"({"status":"NOT_FOUND","request_id":"x","message":"Ticker not found."})",
         SourceResult::UnknownSymbol, "unknown symbol: Ticker not found."},
        {"massive, too many", "massive", 429,
         R"({"status":"ERROR","error":"You've exceeded the maximum requests per minute, please wait or upgrade..."})",
         SourceResult::RateLimited,
         "rate limited (by the minute): You've exceeded the maximum requests per minute, please wait or "
         "upgrade..."},
        {"massive, too many with no words", "massive", 429, "", SourceResult::RateLimited,
         "rate limited (by the minute): status 429"},
        {"massive answers with a page", "massive", 200, "<html><head><title>Sorry</title></head></html>",
         SourceResult::ChangedFormat, "changed format: https://api.massive.com: a web page: Sorry"},
        {"massive is cut", "massive", 200, R"({"status":"OK","results":[{"t":1762)",
         SourceResult::ChangedFormat, "changed format: the reply is no whole JSON"},
        {"massive has another shape", "massive", 200, R"({"data":[]})", SourceResult::ChangedFormat,
         "changed format: the reply lacks what a good one has"},
        {"massive is down", "massive", 502, "<html></html>", SourceResult::Network,
         "network: https://api.massive.com: status 502: a web page"},
        {"alpaca has no bars", "alpaca", 200, R"({"bars":{},"next_page_token":null})",
         SourceResult::UnknownSymbol, "unknown symbol"},
        {"alpaca, a symbol that cannot be", "alpaca", 400, R"({"message":"invalid symbol: KO"})",
         SourceResult::UnknownSymbol, "unknown symbol: invalid symbol: KO"},
        {"alpaca, no key", "alpaca", 401, R"({"message":"unauthorized."})", SourceResult::BadKey,
         "bad key: unauthorized."},
        {"alpaca, wrong key", "alpaca", 403, R"({"message":"forbidden."})", SourceResult::BadKey,
         "bad key: forbidden."},
        {"alpaca, too recent", "alpaca", 403,
         R"({"message":"subscription does not permit querying recent SIP data"})",
         SourceResult::NotYetPublished,
         "not yet published: subscription does not permit querying recent SIP data"},
        {"alpaca, older words", "alpaca", 422, R"({"message":"end is too late for subscription"})",
         SourceResult::NotYetPublished, "not yet published: end is too late for subscription"},
        {"alpaca, a wish that the service does not know", "alpaca", 400,
         R"({"message":"invalid adjustment: odd"})", SourceResult::ChangedFormat,
         "changed format: https://data.alpaca.markets: status 400: invalid adjustment: odd"},
        {"alpaca, too many", "alpaca", 429, R"({"message":"too many requests."})", SourceResult::RateLimited,
         "rate limited (by the minute): too many requests."},
        {"yahoo, unknown", "yahoo", 404,
         R"({"chart":{"result":null,"error":{"code":"Not Found","description":"No data found, symbol may be delisted"}}})",
         SourceResult::UnknownSymbol, "unknown symbol: No data found, symbol may be delisted"},
        {"yahoo, unknown with status 200", "yahoo", 200,
         R"({"chart":{"result":null,"error":{"code":"Not Found","description":"No data found"}}})",
         SourceResult::UnknownSymbol, "unknown symbol: No data found"},
        {"yahoo, before the listing", "yahoo", 400,
         R"({"chart":{"result":null,"error":{"code":"Bad Request","description":"Data doesn't exist for startDate = 1, endDate = 2"}}})",
         SourceResult::NoData, "no data: Data doesn't exist for startDate = 1, endDate = 2"},
        {"yahoo, before the listing with status 200", "yahoo", 200,
         R"({"chart":{"result":null,"error":{"code":"Bad Request","description":"Data doesn't exist for startDate = 1, endDate = 2"}}})",
         SourceResult::NoData, "no data: Data doesn't exist for startDate = 1, endDate = 2"},
        {"yahoo, another error with status 200", "yahoo", 200,
         R"({"chart":{"result":null,"error":{"code":"Internal Server Error","description":"odd"}}})",
         SourceResult::ChangedFormat, "changed format: https://query1.finance.yahoo.com: odd"},
        {"yahoo, no moments", "yahoo", 200,
         R"({"chart":{"result":[{"meta":{"currency":"USD"},"indicators":{"quote":[{}]}}],"error":null}})",
         SourceResult::NoData, "no data"},
        {"yahoo, an empty result", "yahoo", 200, R"({"chart":{"result":[],"error":null}})",
         SourceResult::NoData, "no data"},
        {"yahoo, an empty quote", "yahoo", 200,
         R"({"chart":{"result":[{"meta":{"currency":"USD"},"timestamp":[1795185000],"indicators":{"quote":[{}]}}],"error":null}})",
         SourceResult::NoData, "no data"},
        {"yahoo, too many", "yahoo", 429, "Too Many Requests\r\n", SourceResult::RateLimited,
         "rate limited (by the hour): Too Many Requests", LimitScope::Hour},
        {"yahoo, too many with status 200", "yahoo", 200, "Edge: Too Many Requests",
         SourceResult::RateLimited, "rate limited (by the hour): Edge: Too Many Requests", LimitScope::Hour},
        {"yahoo, out of order", "yahoo", 200, "<html><body>Will be right back...</body></html>",
         SourceResult::Network, "network: https://query2.finance.yahoo.com: a web page: Will be right back"},
        {"yahoo, a crumb", "yahoo", 401,
         R"({"finance":{"error":{"code":"Unauthorized","description":"Invalid Crumb"}}})",
         SourceResult::ChangedFormat, "changed format: https://query1.finance.yahoo.com: Invalid Crumb"},
        {"yahoo, consent", "yahoo", 302, "", SourceResult::ChangedFormat,
         "changed format: https://query1.finance.yahoo.com: status 302: it leads on to another page"},
        {"tiingo, gone", "tiingo", 404, R"({"detail":"Error: Ticker 'GONE' not found"})",
         SourceResult::UnknownSymbol, "unknown symbol: Error: Ticker 'GONE' not found"},
        {"tiingo, not found", "tiingo", 404, R"({"detail":"Not found."})", SourceResult::UnknownSymbol,
         "unknown symbol: Not found."},
        {"tiingo, nothing", "tiingo", 200, "[]", SourceResult::NoData, "no data"},
        {"tiingo, bad token", "tiingo", 401, R"({"detail":"Invalid token."})", SourceResult::BadKey,
         "bad key: Invalid token."},
        {"tiingo, the hour is used up", "tiingo", 429,
         R"({"detail":"Error: You have run over your hourly request allocation."})",
         SourceResult::RateLimited,
         "rate limited (by the hour): Error: You have run over your hourly request allocation.",
         LimitScope::Hour},
        {"tiingo, the hour with status 200", "tiingo", 200,
         R"({"detail":"Error: You have run over your hourly request allocation."})",
         SourceResult::RateLimited,
         "rate limited (by the hour): Error: You have run over your hourly request allocation.",
         LimitScope::Hour},
        {"tiingo, the month in plain text", "tiingo", 200,
         "You have run over your 500 symbol look up for this month. Please upgrade",
         SourceResult::RateLimited,
         "rate limited (by the month): You have run over your 500 symbol look up for this month. Please "
         "upgrade",
         LimitScope::Month},
        {"tiingo, the month in JSON", "tiingo", 200,
         R"({"detail":"You have run over your 500 symbol look up for this month."})",
         SourceResult::RateLimited,
         "rate limited (by the month): You have run over your 500 symbol look up for this month.",
         LimitScope::Month},
        {"eodhd, bad key", "eodhd", 401, "Unauthenticated", SourceResult::BadKey, "bad key: Unauthenticated"},
        {"eodhd, plan", "eodhd", 403, "Only EOD data allowed for free users.", SourceResult::NotInPlan,
         "not in the plan: Only EOD data allowed for free users."},
        {"eodhd, unknown", "eodhd", 404, "Ticker Not Found.", SourceResult::UnknownSymbol,
         "unknown symbol: Ticker Not Found."},
        {"eodhd, before six in the morning", "eodhd", 502, "Bad Gateway", SourceResult::Network,
         "network: https://eodhd.com: status 502: Bad Gateway"},
        {"eodhd, the day", "eodhd", 402, "", SourceResult::RateLimited,
         "rate limited (by the day): status 402", LimitScope::Day},
        {"twelvedata, key with status 200", "twelvedata", 200,
         R"({"code":401,"message":"**apikey** parameter is incorrect or not specified.","status":"error"})",
         SourceResult::BadKey, "bad key: **apikey** parameter is incorrect or not specified."},
        {"twelvedata, unknown", "twelvedata", 200,
         R"({"code":404,"message":"**symbol** not found: XXXX.","status":"error"})",
         SourceResult::UnknownSymbol, "unknown symbol: **symbol** not found: XXXX."},
        {"twelvedata, key by its status", "twelvedata", 401,
         R"({"code":401,"message":"**apikey** parameter is incorrect or not specified.","status":"error"})",
         SourceResult::BadKey, "bad key: **apikey** parameter is incorrect or not specified."},
        {"twelvedata, unknown by its status", "twelvedata", 404,
         R"({"code":404,"message":"**symbol** not found: XXXX.","status":"error"})",
         SourceResult::UnknownSymbol, "unknown symbol: **symbol** not found: XXXX."},
        {"twelvedata, no data", "twelvedata", 400,
         R"({"code":400,"message":"No data is available on the specified dates.","status":"error"})",
         SourceResult::NoData, "no data: No data is available on the specified dates."},
        {"twelvedata, the minute", "twelvedata", 200,
         R"({"code":429,"message":"You have run out of API credits for the current minute. 9 API credits were used","status":"error"})",
         SourceResult::RateLimited,
         "rate limited (by the minute): You have run out of API credits for the current minute. 9 API "
         "credits were used"},
        {"twelvedata, the day", "twelvedata", 429,
         R"({"code":429,"message":"You have run out of API credits for the day.","status":"error"})",
         SourceResult::RateLimited, "rate limited (by the day): You have run out of API credits for the day.",
         LimitScope::Day},
        {"alphavantage, unknown", "alphavantage", 200,
         R"({"Error Message":"Invalid API call. Please retry or visit the documentation (...) for TIME_SERIES_DAILY."})",
         SourceResult::UnknownSymbol,
         "unknown symbol: Invalid API call. Please retry or visit the documentation (...) for "
         "TIME_SERIES_DAILY."},
        {"alphavantage, key", "alphavantage", 200,
         R"({"Error Message":"the parameter apikey is invalid or missing."})", SourceResult::BadKey,
         "bad key: the parameter apikey is invalid or missing."},
        {"alphavantage, the day", "alphavantage", 200,
         R"({"Information":"our standard API rate limit is 25 requests per day"})", SourceResult::RateLimited,
         "rate limited (by the day): our standard API rate limit is 25 requests per day", LimitScope::Day},
        {"alphavantage, the second", "alphavantage", 200,
         R"~({"Note":"Please consider spreading out your free API requests more sparingly (1 request per second)"})~",
         SourceResult::RateLimited,
         "rate limited (by the minute): Please consider spreading out your free API requests more sparingly "
         "(1 request per second)"},
        {"alphavantage, premium", "alphavantage", 200, R"({"Information":"This is a premium endpoint."})",
         SourceResult::NotInPlan, "not in the plan: This is a premium endpoint."},
        {"alphavantage, nothing at all", "alphavantage", 200, "{}", SourceResult::ChangedFormat,
         "changed format: the reply lacks what a good one has"},
        {"fmp, unknown", "fmp", 200, "[]", SourceResult::UnknownSymbol, "unknown symbol"},
        {"fmp, key", "fmp", 401, R"({"Error Message":"Invalid API KEY. Feel free..."})", SourceResult::BadKey,
         "bad key: Invalid API KEY. Feel free..."},
        {"fmp, a symbol of another plan", "fmp", 402,
         "Premium Query Parameter: 'Special Endpoint : This value set for 'symbol' is not available",
         SourceResult::NotEntitled,
         "not entitled to this symbol: Premium Query Parameter: 'Special Endpoint : This value set for "
         "'symbol' is not available"},
        {"fmp, an endpoint of another plan", "fmp", 402, "Restricted Endpoint: upgrade",
         SourceResult::NotInPlan, "not in the plan: Restricted Endpoint: upgrade"},
        {"fmp, closed", "fmp", 403, R"({"Error Message":"Legacy Endpoint"})", SourceResult::NotInPlan,
         "not in the plan: Legacy Endpoint"},
        {"fmp, the day with status 200", "fmp", 200,
         R"({"Error Message":"Limit Reach . Please upgrade your plan"})", SourceResult::RateLimited,
         "rate limited (by the day): Limit Reach . Please upgrade your plan", LimitScope::Day},
    };
    return rows;
}

class SourceReplies : public SourceTest {};

}  // namespace

TEST_F(SourceReplies, EachRefusalOfAServiceHasItsOutcomeAndItsSentence) {
    for (const ReplyRow& row : Failures()) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(folder / "Data" / kSourceStateName);
        requests.clear();
        Reply(row.status, row.bytes);
        const TickerAnswer answer = AskFor(row.source, "KO");
        EXPECT_EQ(ResultName(answer.outcome.result), ResultName(row.result));
        EXPECT_EQ(SentenceOf(answer.outcome), row.sentence);
        if (row.result == SourceResult::RateLimited) {
            EXPECT_EQ(ScopeName(answer.outcome.scope), ScopeName(row.scope));
            EXPECT_GT(answer.outcome.until, seconds - 1000);
        }
        EXPECT_TRUE(answer.bars.bars.empty());
    }
}

TEST_F(SourceReplies, OnlyADeadNetworkAndALimitByTheMinuteAreAskedAgainAndThreeTimesAtMost) {
    for (const ReplyRow& row : Failures()) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(folder / "Data" / kSourceStateName);
        requests.clear();
        Reply(row.status, row.bytes);
        AskFor(row.source, "KO");
        const std::size_t addresses = Source(row.source).Form(Capability::History)->addresses.size();
        const bool isMinute = row.result == SourceResult::RateLimited && row.scope == LimitScope::Minute;
        const bool isNetwork = row.result == SourceResult::Network;
        std::size_t expected = isMinute ? 4 : isNetwork ? 4 * addresses : 1;
        // Yahoo is asked once more by another name.
        if (row.scope == LimitScope::Hour && !Source(row.source).secondAgent.empty()) expected = 2;
        EXPECT_EQ(requests.size(), expected);
    }
}

// A silent host would cost its time anew at each repetition.
TEST_F(SourceReplies, AReplyThatDoesNotComeInTimeIsNotAskedForAgain) {
    ServiceReply late;
    late.failure = WebFailure::TimedOut;
    late.error = "no whole answer within 30 seconds";
    for (const std::string source : {"massive", "yahoo", "tiingo"}) {
        requests.clear();
        Reply({late});
        EXPECT_EQ(AskFor(source, "KO").outcome.result, SourceResult::Network);
        EXPECT_EQ(requests.size(), Source(source).Form(Capability::History)->addresses.size()) << source;
    }
}

// A few megabytes can stand for a document of some hundreds.
TEST_F(SourceReplies, AReplyOfTooManyOrTooDeepValuesIsNoReply) {
    const std::size_t many = 1'100'000;
    std::string wide = "[0";
    for (std::size_t i = 0; i < many; ++i) wide += ",0";
    for (const std::string& bytes : {std::string(many, '['), std::string(many, '{'), wide + "]",
                                     std::string(101, '[') + std::string(101, ']')}) {
        Reply(bytes);
        const TickerAnswer answer = AskFor("massive", "KO");
        EXPECT_EQ(answer.outcome.result, SourceResult::ChangedFormat);
        EXPECT_TRUE(answer.outcome.words.ends_with("the reply is no whole JSON")) << answer.outcome.words;
    }
    Reply(
        R"({"status":"OK","odd":"[[{{,,\\\",[","results":[{"v":1,"o":1,"c":2,"h":3,"l":1,"t":1795064400000}]})");
    EXPECT_TRUE(AskFor("massive", "KO").outcome.Done());
}

TEST_F(SourceReplies, MassiveTellsDaysByTheirMidnightInNewYork) {
    Reply(R"({"ticker":"KO","queryCount":2,"resultsCount":2,"adjusted":true,"status":"OK","results":[
        {"v":4369.5,"o":70.1,"c":70.25,"h":70.5,"l":69.9,"t":1793678400000},
        {"v":25933.6,"vw":70,"o":70.2,"c":70.75,"h":71,"l":70,"t":1793768400000,"n":1096}]})");
    const TickerAnswer answer = AskFor("massive", "KO");
    ASSERT_TRUE(answer.outcome.Done()) << OutcomeText(answer.outcome);
    // 04:00 UTC is an hour before midnight in winter: the day before.
    ASSERT_EQ(answer.bars.bars.size(), 2u);
    EXPECT_EQ(FormatIsoDate(Date{answer.bars.bars[0].day}), "2026-11-02");
    EXPECT_EQ(FormatIsoDate(Date{answer.bars.bars[1].day}), "2026-11-04");
    EXPECT_EQ(answer.bars.bars[0].volume, 4369.5);
    EXPECT_EQ(answer.bars.bars[1].close, 70.75);
    EXPECT_EQ(
        requests.front().url,
        "https://api.massive.com/v2/aggs/ticker/KO/range/1/day/2026-11-02/2026-11-20?adjusted=true&sort=asc&"
        "limit=50000");
}

TEST_F(SourceReplies, MassiveIsAskedOnByTheAddressThatItNames) {
    Reply({Answer(200, R"({"status":"OK","results":[{"v":1,"o":1,"c":2,"h":3,"l":1,"t":1795064400000}],
                         "next_url":"https://api.massive.com/v2/aggs/next?cursor=abc"})"),
           Answer(200, R"({"status":"OK","results":[{"v":1,"o":1,"c":5,"h":5,"l":1,"t":1795150800000}]})")});
    const TickerAnswer answer = AskFor("massive", "KO");
    ASSERT_TRUE(answer.outcome.Done()) << OutcomeText(answer.outcome);
    EXPECT_EQ(answer.bars.bars.size(), 2u);
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(requests[1].url, "https://api.massive.com/v2/aggs/next?cursor=abc");
    EXPECT_NE(std::find(requests[1].headers.begin(), requests[1].headers.end(),
                        "Authorization: Bearer practice-key"),
              requests[1].headers.end());
}

TEST_F(SourceReplies, APageOnAnotherHostIsNotAskedFor) {
    Reply(R"({"status":"OK","results":[{"v":1,"o":1,"c":2,"h":3,"l":1,"t":1795064400000}],
             "next_url":"https://elsewhere.example/v2"})");
    const TickerAnswer answer = AskFor("massive", "KO");
    EXPECT_EQ(answer.outcome.result, SourceResult::ChangedFormat);
    EXPECT_NE(answer.outcome.words.find("another host"), std::string::npos);
    EXPECT_EQ(requests.size(), 1u);
}

TEST_F(SourceReplies, PagesThatRepeatEnd) {
    hosts = SourceHosts::Parse("Limit.massive=1000/1\n");
    Reply(R"({"status":"OK","results":[],"next_url":"https://api.massive.com/v2/again"})");
    const TickerAnswer answer = AskFor("massive", "KO");
    EXPECT_EQ(answer.outcome.result, SourceResult::ChangedFormat);
    EXPECT_NE(answer.outcome.words.find("repeat"), std::string::npos);
    EXPECT_EQ(requests.size(), 2u);
}

TEST_F(SourceReplies, PagesThatNeverEndAreGivenUp) {
    hosts = SourceHosts::Parse("Limit.massive=100000/1\n");
    web.answer = [this](const ServiceRequest& request) {
        requests.push_back(request);
        const std::string next = "https://api.massive.com/v2/more?cursor=" + std::to_string(requests.size());
        return Answer(200, R"({"status":"OK","results":[],"next_url":")" + next + "\"}");
    };
    const TickerAnswer answer = AskFor("massive", "KO");
    EXPECT_EQ(answer.outcome.result, SourceResult::ChangedFormat);
    EXPECT_EQ(answer.outcome.words, "its pages do not end");
    EXPECT_EQ(requests.size(), 500u);
}

TEST_F(SourceReplies, AReplyThatGrowsAndGrowsIsNotRead) {
    const std::string rows =
        R"({"status":"OK","results":[{"v":1,"o":1,"c":2,"h":3,"l":1,"t":1795064400000}])";
    constexpr std::size_t kMost = 6 * 1024 * 1024;
    Reply(rows + std::string(kMost - rows.size() - 1, ' ') + "}");
    EXPECT_TRUE(AskFor("massive", "KO").outcome.Done());
    Reply(rows + std::string(kMost - rows.size(), ' ') + "}");
    const TickerAnswer answer = AskFor("massive", "KO");
    EXPECT_EQ(answer.outcome.result, SourceResult::ChangedFormat);
    EXPECT_EQ(answer.outcome.words, "the reply is longer than 6291456 bytes");
    EXPECT_TRUE(answer.bars.bars.empty());
}

TEST_F(SourceReplies, BehindAnOverrideThePagesStayThere) {
    hosts = SourceHosts::Parse("Source.massive=http://127.0.0.1:8080\n");
    Reply({Answer(200, R"({"status":"OK","results":[],"next_url":"http://127.0.0.1:8080/v2/more"})"),
           Answer(200, R"({"status":"OK","results":[{"v":1,"o":1,"c":5,"h":5,"l":1,"t":1795150800000}]})")});
    EXPECT_TRUE(AskFor("massive", "KO").outcome.Done());
    EXPECT_EQ(requests[0].url.substr(0, 31), "http://127.0.0.1:8080/v2/aggs/t");
    EXPECT_EQ(requests[1].url, "http://127.0.0.1:8080/v2/more");
}

TEST_F(SourceReplies, AlpacaTellsSeveralSymbolsOverSeveralPages) {
    Reply({Answer(200, R"({"bars":{"BRK.B":[{"t":"2026-11-18T05:00:00Z","o":1,"h":2,"l":1,"c":1.5,"v":10}]},
                          "next_page_token":"abc=="})"),
           Answer(200, R"({"bars":{"KO":[{"t":"2026-11-19T05:00:00Z","o":3,"h":4,"l":3,"c":3.5,"v":20}]},
                          "next_page_token":null})")});
    SourceClient client(world, Source("alpaca"));
    brantlow::SourceReply reply =
        client.Ask({Capability::Quotes, {"BRK.B", "KO"}, DayOf(2026, 11, 18), DayOf(2026, 11, 20)});
    ASSERT_TRUE(reply.outcome.Done()) << OutcomeText(reply.outcome);
    EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "BRK.B").bars.bars.front().close, 1.5);
    EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "KO").bars.bars.front().day, DayOf(2026, 11, 19));
    EXPECT_EQ(requests[0].url,
              "https://data.alpaca.markets/v2/stocks/"
              "bars?symbols=BRK.B,KO&timeframe=1Day&start=2026-11-18&end=2026-"
              "11-20&adjustment=raw&feed=sip&limit=10000&sort=asc");
    EXPECT_EQ(requests[1].url, requests[0].url + "&page_token=abc%3D%3D");
    EXPECT_NE(std::find(requests[0].headers.begin(), requests[0].headers.end(),
                        "APCA-API-SECRET-KEY: practice-secret"),
              requests[0].headers.end());
}

TEST_F(SourceReplies, AlpacaDatesItsDaysByMidnightInNewYorkInSummerAndWinter) {
    Reply(R"({"bars":{"KO":[{"t":"2026-10-30T04:00:00Z","o":1,"h":1,"l":1,"c":1,"v":1},
                            {"t":"2026-11-02T05:00:00Z","o":1,"h":1,"l":1,"c":1,"v":1}]},"next_page_token":null})");
    SourceClient client(world, Source("alpaca"));
    const TickerAnswer answer =
        AskTicker(client, Capability::History, "KO", DayOf(2026, 10, 1), DayOf(2026, 11, 20));
    ASSERT_EQ(answer.bars.bars.size(), 2u);
    EXPECT_EQ(answer.bars.bars[0].day, DayOf(2026, 10, 30));
    EXPECT_EQ(answer.bars.bars[1].day, DayOf(2026, 11, 2));
}

TEST_F(SourceReplies, YahooLeavesOutNullsTakesTheLastOfTwoRowsAndKnowsALiveBar) {
    // 14:30 UTC on the 18th, 19th and 20th, and a price of the 20th behind them, whose session lasts to
    // 21:00.
    clock.Set(Date{DayOf(2026, 11, 20)}, 18 * 3600);
    Reply(R"({"chart":{"result":[{"meta":{"currency":"USD","exchangeTimezoneName":"America/New_York",
        "regularMarketTime":1795197000,"currentTradingPeriod":{"regular":{"start":1795185000,"end":1795208400}}},
        "timestamp":[1795012200,1795098600,1795185000,1795197000],
        "indicators":{"quote":[{"open":[10,null,12,12],"high":[11,null,13,13],"low":[9,null,11,11],
        "close":[10.123456,null,12.5,12.75],"volume":[100,null,50,60]}],"adjclose":[{"adjclose":[1]}]}}],"error":null}})");
    const TickerAnswer answer = AskFor("yahoo", "KO");
    ASSERT_TRUE(answer.outcome.Done()) << OutcomeText(answer.outcome);
    ASSERT_EQ(answer.bars.bars.size(), 2u);
    EXPECT_EQ(answer.bars.bars[0].close, 10.1235);
    EXPECT_FALSE(answer.bars.bars[0].isLive);
    EXPECT_EQ(answer.bars.bars[1].close, 12.75);
    EXPECT_TRUE(answer.bars.bars[1].isLive);
    EXPECT_EQ(answer.bars.bars[1].minutes, 12 * 60 + 50);
    EXPECT_EQ(answer.bars.currency, "USD");
}

TEST_F(SourceReplies, YahooTellsPenceAsPoundsAndSplitsAsEvents) {
    Reply(R"({"chart":{"result":[{"meta":{"currency":"GBp","exchangeTimezoneName":"Europe/London"},
        "timestamp":[1795046400],"events":{"splits":{"1795046400":{"date":1795046400,"numerator":4,"denominator":1,
        "splitRatio":"4:1"}}},"indicators":{"quote":[{"open":[250],"high":[260],"low":[240],"close":[255.5],
        "volume":[7]}]}}],"error":null}})");
    const TickerAnswer answer = AskFor("yahoo", "BARC.L");
    ASSERT_TRUE(answer.outcome.Done()) << OutcomeText(answer.outcome);
    EXPECT_EQ(answer.bars.bars.front().close, 2.555);
    EXPECT_EQ(answer.bars.currency, "GBP");
    ASSERT_EQ(answer.bars.splits.size(), 1u);
    EXPECT_EQ(answer.bars.splits.front().factor, 4);
    EXPECT_NE(requests.front().url.find("/chart/BARC.L?period1="), std::string::npos);
}

TEST_F(SourceReplies, YahooArraysThatAreTooShortAreNotFilledWithZeros) {
    Reply(R"({"chart":{"result":[{"meta":{},"timestamp":[1794925800,1795012200],"indicators":{"quote":[
        {"open":[1,2],"high":[1,2],"low":[1,2],"close":[1],"volume":[1,1]}]}}],"error":null}})");
    const TickerAnswer answer = AskFor("yahoo", "KO");
    ASSERT_EQ(answer.bars.bars.size(), 1u);
    EXPECT_EQ(answer.bars.bars.front().close, 1);
}

TEST_F(SourceReplies, YahooSparkIsReadInItsNestedAndItsFlatForm) {
    SourceClient client(world, Source("yahoo"));
    for (
        const char* bytes :
        {R"({"spark":{"result":[{"symbol":"KO","response":[{"meta":{},"timestamp":[1795012200],"indicators":{"quote":[{"close":[70.5]}]}}]}],"error":null}})",
         R"({"KO":{"symbol":"KO","timestamp":[1795012200],"close":[70.5],"chartPreviousClose":1.0}})"}) {
        Reply(bytes);
        brantlow::SourceReply reply =
            client.Ask({Capability::Quotes, {"KO", "GONE"}, DayOf(2026, 11, 10), DayOf(2026, 11, 20)});
        ASSERT_TRUE(reply.outcome.Done()) << OutcomeText(reply.outcome);
        EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "KO").bars.bars.front().close, 70.5);
        EXPECT_EQ(AnswerOf(client, Capability::Quotes, reply, "GONE").outcome.result, SourceResult::NoData);
    }
}

TEST_F(SourceReplies, YahooIsLeftAloneAfterARefusalAndLongerAfterTheNext) {
    Reply(429, "Too Many Requests");
    const SourceOutcome first = AskFor("yahoo", "KO").outcome;
    EXPECT_EQ(first.until, seconds + 900);
    requests.clear();
    EXPECT_EQ(AskFor("yahoo", "KO").outcome.result, SourceResult::RateLimited);
    EXPECT_TRUE(requests.empty());
    seconds = first.until + 1;
    EXPECT_EQ(AskFor("yahoo", "KO").outcome.waitSeconds, 1800);
}

TEST_F(SourceReplies, TiingoTellsRawDaysWithTheirSplits) {
    Reply(
        R"([{"date":"2026-11-18T00:00:00.000Z","close":100,"high":101,"low":99,"open":100,"volume":10,"splitFactor":1.0},
              {"date":"2026-11-19T00:00:00.000Z","close":25,"high":26,"low":24,"open":25,"volume":40,"splitFactor":4.0}])");
    const TickerAnswer answer = AskFor("tiingo", "BRK.B");
    ASSERT_TRUE(answer.outcome.Done());
    EXPECT_NE(requests.front().url.find("/tiingo/daily/BRK-B/prices"), std::string::npos);
    ASSERT_EQ(answer.bars.splits.size(), 1u);
    EXPECT_EQ(answer.bars.splits.front().day, DayOf(2026, 11, 19));
    EXPECT_EQ(answer.bars.splits.front().factor, 4);
}

TEST_F(SourceReplies, KeyedServicesTellRows) {
    struct Row {
        const char* source;
        const char* bytes;
        const char* address;
    };
    const std::vector<Row> rows = {
        {"eodhd",
         R"([{"date":"2026-11-18","open":1,"high":3,"low":1,"close":2.5,"adjusted_close":2,"volume":7}])",
         "https://eodhd.com/api/eod/KO.US?from=2026-11-02&to=2026-11-20&period=d&fmt=json&api_token=***"},
        {"twelvedata",
         R"({"meta":{"symbol":"KO","currency":"USD"},"values":[{"datetime":"2026-11-18","open":"1","high":"3","low":"1","close":"2.5","volume":"7"}],"status":"ok"})",
         "https://api.twelvedata.com/"
         "time_series?symbol=KO&interval=1day&start_date=2026-11-02&end_date=2026-11-21&"
         "outputsize=5000&order=asc&adjust=splits"},
        {"alphavantage",
         R"~({"Meta Data":{},"Time Series (Daily)":{"2026-11-18":{"1. open":"1","2. high":"3","3. low":"1","4. close":"2.5","5. volume":"7"},"2020-01-02":{"1. open":"1","2. high":"1","3. low":"1","4. close":"1","5. volume":"1"}}})~",
         "https://www.alphavantage.co/"
         "query?function=TIME_SERIES_DAILY&symbol=KO&outputsize=compact&datatype=json&"
         "apikey=***"},
        {"fmp",
         R"([{"symbol":"KO","date":"2026-11-18","open":1,"high":3,"low":1,"close":2.5,"volume":7,"vwap":2}])",
         "https://financialmodelingprep.com/stable/historical-price-eod/"
         "full?symbol=KO&from=2026-11-02&to=2026-11-20&"
         "apikey=***"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.source);
        Reply(row.bytes);
        const TickerAnswer answer = AskFor(row.source, "KO");
        ASSERT_TRUE(answer.outcome.Done()) << OutcomeText(answer.outcome);
        ASSERT_EQ(answer.bars.bars.size(), 1u);
        EXPECT_EQ(answer.bars.bars.front().close, 2.5);
        EXPECT_EQ(answer.bars.bars.front().volume, 7);
        EXPECT_EQ(answer.bars.bars.front().day, DayOf(2026, 11, 18));
        EXPECT_EQ(address, row.address);
    }
}

TEST_F(SourceReplies, NasdaqTellsSplitsInSeveralWrittenRatios) {
    Reply(R"({"data":{"rows":[{"symbol":"XYZ","ratio":"4 : 1","executionDate":"11/10/2026"},
        {"symbol":"ABC ","ratio":"1.5:1","executionDate":"11/12/2026"},
        {"symbol":"REV","ratio":"1 : 15","executionDate":"11/13/2026"},
        {"symbol":"DIV","ratio":"5.000%","executionDate":"11/16/2026"},
        {"symbol":"NONE","ratio":"","executionDate":"N/A"}]},"message":null,"status":{"rCode":200}})");
    SourceClient client(world, Source("nasdaq"));
    const brantlow::SourceReply reply =
        client.Ask({Capability::Splits, {}, DayOf(2026, 11, 1), DayOf(2026, 11, 20)});
    ASSERT_TRUE(reply.outcome.Done()) << OutcomeText(reply.outcome);
    ASSERT_EQ(reply.splits.size(), 4u);
    EXPECT_EQ(reply.splits[0].factor, 4);
    EXPECT_EQ(reply.splits[1].factor, 1.5);
    EXPECT_EQ(reply.splits[1].symbol, "ABC");
    EXPECT_DOUBLE_EQ(reply.splits[2].factor, 1.0 / 15);
    EXPECT_DOUBLE_EQ(reply.splits[3].factor, 1.05);
    EXPECT_EQ(requests.front().url, "https://api.nasdaq.com/api/calendar/splits?date=2026-11-20");
}

TEST_F(SourceReplies, AnEmptySplitCalendarIsAnAnswer) {
    SourceClient client(world, Source("nasdaq"));
    for (const char* bytes :
         {R"({"data":null,"status":{"rCode":200}})", R"({"data":{"rows":null},"status":{"rCode":200}})"}) {
        Reply(bytes);
        const brantlow::SourceReply reply =
            client.Ask({Capability::Splits, {}, DayOf(2026, 11, 1), DayOf(2026, 11, 20)});
        EXPECT_TRUE(reply.outcome.Done());
        EXPECT_TRUE(reply.splits.empty());
    }
}

TEST_F(SourceReplies, DirectoriesTellSymbolsInTheTablesSpelling) {
    Reply(
        {Answer(200,
                "Symbol|Security Name|Market Category|Test Issue|Financial Status|Round Lot "
                "Size|ETF|NextShares\r\n"
                "AAPL|Apple Inc. - Common Stock|Q|N|N|100|N|N\r\nQQQ|A fund|G|N|N|100|Y|N\r\n"
                "ZXZZT|Test|G|Y|N|100|N|N\r\nFile Creation Time: 1120202621:32|||||||\r\n"),
         Answer(200,
                "ACT Symbol|Security Name|Exchange|CQS Symbol|ETF|Round Lot Size|Test Issue|NASDAQ Symbol\r\n"
                "BRK.B|Berkshire  Class B|N|BRK.B|N|100|N|BRK.B\r\nBAC$K|Bank Series "
                "KK|N|BACpK|N|100|N|BAC-K\r\n"
                "IPOD.WS|Warrants|A|IPOD.WS||100|N|IPOD+\r\nFile Creation Time: 1120202621:32||||||\r\n")});
    SourceClient client(world, Source("nasdaq"));
    const brantlow::SourceReply reply = client.Ask({Capability::Symbols, {}, {}, {}});
    ASSERT_TRUE(reply.outcome.Done()) << OutcomeText(reply.outcome);
    std::vector<std::string> lines;
    for (const SourceSymbol& symbol : reply.symbols) {
        lines.push_back(symbol.ticker + "," + symbol.name + "," + symbol.exchange + "," + symbol.kind);
    }
    EXPECT_EQ(lines, (std::vector<std::string>{"AAPL,Apple Inc. - Common Stock,NASDAQ,stock",
                                               "QQQ,A fund,NASDAQ,etf", "BRK.B,Berkshire Class B,NYSE,stock",
                                               "BAC pK,Bank Series KK,NYSE,stock",
                                               "IPOD.WS,Warrants,NYSE American,stock"}));
}

TEST_F(SourceReplies, ADirectoryWithoutItsLastLineIsCut) {
    Reply("Symbol|Security Name|Test Issue|ETF\r\nAAPL|Apple|N|N\r\n");
    SourceClient client(world, Source("nasdaq"));
    const brantlow::SourceReply reply = client.Ask({Capability::Symbols, {}, {}, {}});
    EXPECT_EQ(reply.outcome.result, SourceResult::ChangedFormat);
    EXPECT_NE(reply.outcome.words.find("cut short"), std::string::npos);
}

TEST_F(SourceReplies, RowsThatCannotBeTrueRefuseTheTicker) {
    struct Row {
        const char* what;
        const char* rows;
        const char* words;
    };
    const std::vector<Row> rows = {
        {"a date to come", R"([{"date":"2027-01-04","open":1,"high":1,"low":1,"close":1,"volume":1}])",
         "to come"},
        {"a date twice",
         R"([{"date":"2026-11-18","open":1,"high":1,"low":1,"close":1,"volume":1},{"date":"2026-11-18","open":1,"high":1,"low":1,"close":2,"volume":1}])",
         "two rows for 2026-11-18"},
        {"a price of 1e308", R"([{"date":"2026-11-18","open":1,"high":1e308,"low":1,"close":1,"volume":1}])",
         "a price is none"},
        {"text for a price", R"([{"date":"2026-11-18","open":1,"high":1,"low":1,"close":"high","volume":1}])",
         "close is no number"},
        {"NaN", R"([{"date":"2026-11-18","open":1,"high":1,"low":1,"close":"NaN","volume":1}])",
         "close is no number"},
        {"no date", R"([{"open":1,"high":1,"low":1,"close":1,"volume":1}])", "no date"},
        {"a price of 0", R"([{"date":"2026-11-18","open":0,"high":0,"low":0,"close":0,"volume":1}])",
         "one row in ten"},
        {"a negative volume", R"([{"date":"2026-11-18","open":1,"high":1,"low":1,"close":1,"volume":-5}])",
         "a volume is none"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Reply(row.rows);
        const TickerAnswer answer = AskFor("fmp", "KO");
        EXPECT_EQ(ResultName(answer.outcome.result), "refused");
        EXPECT_NE(answer.outcome.words.find(row.words), std::string::npos) << answer.outcome.words;
    }
}

TEST_F(SourceReplies, OneRowInTenWithoutAPriceIsPassedOver) {
    std::string rows = R"([{"date":"2026-11-02","open":1,"high":1,"low":1,"close":0,"volume":1})";
    for (int day = 3; day <= 12; ++day) {
        rows += R"(,{"date":"2026-11-)" + std::string(day < 10 ? "0" : "") + std::to_string(day) +
                R"(","open":1,"high":1,"low":1,"close":1,"volume":1})";
    }
    Reply(rows + "]");
    const TickerAnswer answer = AskFor("fmp", "KO");
    ASSERT_TRUE(answer.outcome.Done()) << answer.outcome.words;
    EXPECT_EQ(answer.bars.bars.size(), 10u);
}

TEST_F(SourceReplies, RowsOutsideTheAskedSpanAreLeftOut) {
    Reply(R"([{"date":"2020-01-02","open":1,"high":1,"low":1,"close":1,"volume":1},
              {"date":"2026-11-18","open":1,"high":1,"low":1,"close":2,"volume":1}])");
    const TickerAnswer answer = AskFor("eodhd", "KO");
    ASSERT_EQ(answer.bars.bars.size(), 1u);
    EXPECT_EQ(answer.bars.bars.front().close, 2);
}

TEST_F(SourceReplies, AKeyIsInNoSentenceAndNoShownAddress) {
    Reply(401, R"({"Error Message":"the key practice-key is wrong"})");
    const TickerAnswer answer = AskFor("fmp", "KO");
    EXPECT_EQ(answer.outcome.words, "the key *** is wrong");
    EXPECT_EQ(address.find("practice-key"), std::string::npos);
}

TEST_F(SourceReplies, WithoutAKeyNothingIsAsked) {
    variables.clear();
    const TickerAnswer answer = AskFor("massive", "KO");
    EXPECT_EQ(answer.outcome.result, SourceResult::NoKey);
    EXPECT_NE(answer.outcome.words.find("BRANTLOW_KEY_MASSIVE"), std::string::npos);
    EXPECT_TRUE(requests.empty());
}

TEST_F(SourceReplies, AnOverrideKeepsSeveralHostsInThePath) {
    hosts = SourceHosts::Parse("Source.yahoo=http://127.0.0.1:8080\nSource.tiingo=http://127.0.0.1:8080/x\n");
    Reply("{}");
    AskFor("yahoo", "^GSPC");
    EXPECT_EQ(requests.back().url.substr(0, requests.back().url.find('?')),
              "http://127.0.0.1:8080/query1.finance.yahoo.com/v8/finance/chart/%5EGSPC");
    AskFor("tiingo", "KO");
    EXPECT_EQ(requests.back().url.substr(0, requests.back().url.find('?')),
              "http://127.0.0.1:8080/x/tiingo/daily/KO/prices");
}

}  // namespace brantlow
