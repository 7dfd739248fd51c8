// New tables out of typed tickers and out of a market's symbols.
#include "acquire/feeds/new_table.h"

#include "acquire/feeds/live/source_fixture.h"

namespace brantlow {

class NewTables : public SourceTest {};

TEST_F(NewTables, TypedTickersAreReadAsPeoplePasteThem) {
    struct Row {
        std::string_view text;
        std::vector<std::string> tickers;
    };
    const Row rows[] = {
        {"", {}},
        {" \r\n,;", {}},
        {"aapl", {"AAPL"}},
        {"AAPL,MSFT;  brk.b\r\n^gspc\tKO", {"AAPL", "MSFT", "BRK.B", "^GSPC", "KO"}},
        {"KO ko KO", {"KO"}},
        {"BAC pK, BAC p", {"BAC pK", "BAC p"}},
        {"BAC\npK", {"BAC", "PK"}},
        {"p K", {"P", "K"}},
    };
    for (const Row& row : rows) {
        const TypedTickers typed = ReadTypedTickers(row.text);
        EXPECT_EQ(typed.tickers, row.tickers) << row.text;
        EXPECT_EQ(typed.refusal, "") << row.text;
    }
}

TEST_F(NewTables, AWordThatIsNoTickerIsRefusedByName) {
    EXPECT_EQ(ReadTypedTickers("KO ../../etc CL").refusal,
              "../../ETC: no file can have this name, so the ticker can have no history");
    EXPECT_EQ(ReadTypedTickers("M&M.NS").refusal, "");
}

TEST_F(NewTables, NamesAreThoseOfNewEndOfDayFiles) {
    EXPECT_EQ(TableNameOf("  Mine "), "Mine.ddq");
    EXPECT_EQ(TableNameOf("Mine.ddq"), "Mine.ddq");
    EXPECT_EQ(TableNameOf(" "), "");
    Write("Data/Market.ddq", "x");
    Write("Data/Market 2.ddq", "x");
    EXPECT_EQ(FreeTableName(session, "Market"), "Market 3.ddq");
    EXPECT_EQ(FreeTableName(session, "Other"), "Other.ddq");
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"Mine.ddq", ""},
        {"Market.ddq", "Market.ddq: exists already"},
        {"", "The table needs a name."},
        {".ddq", "The table needs a name."},
        {"Mine.dbe", "'Mine.dbe' cannot be the name of a table."},
        {"../Mine.ddq", "'../Mine.ddq' cannot be the name of a table."},
        {"/tmp/Mine.ddq", "'/tmp/Mine.ddq' cannot be the name of a table."},
    };
    for (const auto& [name, refusal] : rows) EXPECT_EQ(NewTableRefusal(session, name), refusal) << name;
}

TEST_F(NewTables, AMarketsSymbolsMakeATableWithNames) {
    Reply(
        {Answer(200,
                "Symbol|Security Name|Market Category|Test Issue|Financial Status|Round Lot "
                "Size|ETF|NextShares\r\n"
                "CSX|CSX Corporation|Q|N|N|100|N|N\r\nQQQ|Invesco QQQ Trust|G|N|N|100|Y|N\r\n"
                "ZXZZT|Test|G|Y|N|100|N|N\r\nFile Creation Time: 1120202618:00|||||||\r\n"),
         Answer(200,
                "ACT Symbol|Security Name|Exchange|CQS Symbol|ETF|Round Lot Size|Test Issue|NASDAQ Symbol\r\n"
                "KO|Coca-Cola Company|N|KO|N|100|N|KO\r\n"
                "File Creation Time: 1120202618:00|||||||\r\n")});
    const NewTable made = CreateMarketTable(world, Source("nasdaq"), {{}, "stock", ""}, "Stocks.ddq");
    EXPECT_EQ(made.refusal, "");
    EXPECT_EQ(made.tickers, 2u);
    const std::string text = Read("Data/Stocks.ddq");
    EXPECT_NE(text.find("\r\nCSX\t"), std::string::npos);
    EXPECT_NE(text.find("Coca-Cola Company"), std::string::npos);
    EXPECT_EQ(text.find("QQQ"), std::string::npos);
    EXPECT_EQ(CreateMarketTable(world, Source("nasdaq"), {}, "Stocks.ddq").refusal,
              "Stocks.ddq: exists already");
    EXPECT_EQ(requests.size(), 2u);
    EXPECT_EQ(Read("Data/Stocks.ddq"), text);
}

TEST_F(NewTables, ADirectoryThatIsCutWritesNothing) {
    Reply(
        "Symbol|Security Name|Market Category|Test Issue|Financial Status|Round Lot Size|ETF|NextShares\r\n"
        "CSX|CSX Corporation|Q|N|N|100|N|N\r\n");
    const NewTable made = CreateMarketTable(world, Source("nasdaq"), {}, "Stocks.ddq");
    EXPECT_EQ(made.refusal.substr(0, 24), "Nasdaq: changed format: ");
    EXPECT_FALSE(IsRegularFile(folder / "Data/Stocks.ddq"));
}

}  // namespace brantlow
