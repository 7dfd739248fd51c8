#include "market/market_request.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(MarketRequest, PartsTheTarget) {
    struct Row {
        std::string_view target;
        std::string_view path;
        std::string_view query;
        Decimals decimals;
        std::string_view fault;
    };
    constexpr Decimals kPoint = Decimals::Point;
    constexpr Decimals kComma = Decimals::Comma;
    for (const Row& row :
         {Row{"/table.txt?s=A&g=d", "/table.txt", "s=A&g=d", kPoint, ""}, Row{"/", "/", "", kPoint, ""},
          Row{"", "/", "", kPoint, ""}, Row{"?s=A", "/", "s=A", kPoint, ""},
          Row{"/de/d/quotes.txt?s=A", "/d/quotes.txt", "s=A", kComma, ""},
          Row{"/uk/d/quotes.txt", "/d/quotes.txt", "", kPoint, ""}, Row{"/de", "/", "", kComma, ""},
          Row{"/dex/q", "/dex/q", "", kPoint, ""}, Row{"/d/quotes.txt", "/d/quotes.txt", "", kPoint, ""},
          Row{"/fault=cut/table.txt?s=A", "/table.txt", "s=A", kPoint, "cut"},
          Row{"/fault=cut/de/q", "/q", "", kComma, "cut"}, Row{"/de/fault=cut/q", "/q", "", kComma, "cut"},
          Row{"/q?s=A&fault=slow", "/q", "s=A&fault=slow", kPoint, "slow"},
          Row{"/fault=cut/q?fault=slow", "/q", "fault=slow", kPoint, "slow"},
          Row{"/q?a?b", "/q", "a?b", kPoint, ""}}) {
        const MarketRequest request = ReadRequest(row.target);
        EXPECT_EQ(request.target, row.target);
        EXPECT_EQ(request.path, row.path) << row.target;
        EXPECT_EQ(request.query, row.query) << row.target;
        EXPECT_EQ(request.decimals, row.decimals) << row.target;
        EXPECT_EQ(request.fault, row.fault) << row.target;
    }
}

TEST(MarketRequest, KnowsEveryMarketByItsLetters) {
    struct Row {
        std::string_view name;
        std::string_view prefix;
    };
    const std::vector<Row> rows = {
        {"US", ""},          {"UK", "/uk"},     {"Australia", "/au"}, {"Germany", "/de"},
        {"Mexico", "/mx"},   {"France", "/fr"}, {"Hong Kong", "/hk"}, {"Singapore", "/sg"},
        {"Norway", "/no"},   {"Sweden", "/se"}, {"Japan", "/jp"},     {"Canada E", "/ca"},
        {"India", "/in"},    {"Spain", "/es"},  {"Argentina", "/ar"}, {"Brazil", "/br"},
        {"China", "/cn"},    {"Korea", "/kr"},  {"Taiwan", "/tw"},    {"Denmark", "/dk"},
        {"Canada F", "/cf"}, {"Italy", "/it"}};
    ASSERT_EQ(rows.size(), kMarkets.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(kMarkets[i].name, rows[i].name);
        EXPECT_EQ(MarketPrefix(kMarkets[i]), rows[i].prefix);
        const std::string target = MarketPrefix(kMarkets[i]) + "/d/quotes.txt?s=A";
        EXPECT_EQ(ReadRequest(target).path, "/d/quotes.txt") << rows[i].name;
        EXPECT_EQ(ReadRequest(target).decimals, kMarkets[i].decimals) << rows[i].name;
    }
}

TEST(QueryValue, TakesTheFirstOfItsName) {
    EXPECT_EQ(QueryValue("s=A&s=B", "s"), "A");
    EXPECT_EQ(QueryValue("xs=A&s=B", "s"), "B");
    EXPECT_EQ(QueryValue("S=A", "s"), "");
    EXPECT_EQ(QueryValue("s", "s"), "");
    EXPECT_EQ(QueryValue("", "s"), "");
    EXPECT_EQ(QueryValue("EA=a+b@c.de&TS=KO", "EA"), "a+b@c.de");
    EXPECT_EQ(QueryValue("s=A=B", "s"), "A=B");
}

TEST(WithoutPercents, TurnsWholePairsOnly) {
    EXPECT_EQ(WithoutPercents("%5EDJI"), "^DJI");
    EXPECT_EQ(WithoutPercents("a%2fb%2F"), "a/b/");
    EXPECT_EQ(WithoutPercents("%"), "%");
    EXPECT_EQ(WithoutPercents("%4"), "%4");
    EXPECT_EQ(WithoutPercents("%zz%-1%+1% 1"), "%zz%-1%+1% 1");
    EXPECT_EQ(WithoutPercents("%%41"), "%A");
    EXPECT_EQ(WithoutPercents("%00"), std::string(1, '\0'));
    EXPECT_EQ(WithoutPercents("%2541"), "%41");
}

}  // namespace
}  // namespace brantlow
