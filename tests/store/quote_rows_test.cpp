#include "store/quote_rows.h"

#include "store/columns.h"
#include "store/store_fixture.h"
#include "support/table_lines.h"

namespace brantlow {
namespace {

constexpr RatioGuard kImport = RatioGuard::NotZero;
constexpr RatioGuard kUpdate = RatioGuard::AboveZero;

class QuoteRows : public ::testing::Test {
  protected:
    void SetUp() override { rows.MakeRoom(1); }
    QuoteArrays rows;
};

TEST(ConvertTradeDate, ByTheFormOfTheFile) {
    struct Row {
        const char* form;
        const char* field;
        const char* date;
    };
    constexpr Row kRows[] = {{"01/02/04", "1/2/2004", "01/02/04"},
                             {"01/02/04", "01/02/04", "01/02/04"},
                             {"Jan-2-2004", "Jan-2-2004", "01/02/04"},
                             {"Jan-2-2004", "N/A", "N/A"},
                             // The day stands for the month as well.
                             {"20040102", "20040305", "05/05/04"},
                             {"20040102", "20040315", "15/15/2004"},
                             {"040102", "040305", "05/05/04"},
                             {"040102", "040315", "15/15/04"},
                             {"20040102", "", ""},
                             {"040102", "", ""},
                             {"20040102", "  ", ""},
                             {"01/02/04", "", ""},
                             {"20040102", "5", "05/05/05"},
                             {"040102", "x", "x/x/x"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(ConvertTradeDate(row.field, row.form), row.date) << row.form << ' ' << row.field;
    }
}

TEST_F(QuoteRows, DividendDatesAreClearedWithoutADividend) {
    struct Row {
        const char* dividend;
        const char* xDate;
        const char* payDate;
        const char* newXDate;
        const char* newPayDate;
    };
    constexpr Row kRows[] = {{"0.5", "2/1/2024", "Mar-1-2024", "02/01/24", "03/01/24"},
                             {"0.5", "N/A", "3/1/24", "", "03/01/24"},
                             {"0.5", "2/1/24", "N/A", "02/01/24", ""},
                             {"0", "2/1/24", "3/1/24", "", ""},
                             {"-1", "2/1/24", "3/1/24", "", ""},
                             {"N/A", "2/1/24", "3/1/24", "", ""},
                             {"", "2/1/24", "3/1/24", "", ""},
                             {"0.5", "soon", "", "soon", ""}};
    for (const Row& row : kRows) {
        rows.Dividends[1] = row.dividend;
        rows.XDividendDates[1] = row.xDate;
        rows.DividendDates[1] = row.payDate;
        ClearDatesWithoutDividend(rows, 1);
        EXPECT_EQ(rows.XDividendDates[1], row.newXDate) << row.dividend << row.xDate;
        EXPECT_EQ(rows.DividendDates[1], row.newPayDate) << row.dividend << row.payDate;
    }
}

TEST_F(QuoteRows, APayDateBeforeItsXDateBelongsToNextYear) {
    struct Row {
        const char* xDate;
        const char* payDate;
        const char* moved;
    };
    constexpr Row kRows[] = {{"12/20/24", "01/10/24", "01/10/25"},
                             {"12/20/23", "01/10/23", "01/10/23"},
                             {"02/01/24", "03/01/24", "03/01/24"},
                             {"03/01/24", "03/01/24", "03/01/24"},
                             {"12/20/24", "", ""},
                             {"", "01/10/24", "01/10/24"},
                             {"12/20/24", "02/29/24", "02/29/2025"}};
    for (const Row& row : kRows) {
        rows.XDividendDates[1] = row.xDate;
        rows.DividendDates[1] = row.payDate;
        MoveDividendDate(rows, 1, kQuoteDay);
        EXPECT_EQ(rows.DividendDates[1], row.moved) << row.xDate << ' ' << row.payDate;
    }
    rows.XDividendDates[1] = "12/20/99";
    rows.DividendDates[1] = "01/10/99";
    MoveDividendDate(rows, 1, Day(2099, 1, 1));
    EXPECT_EQ(rows.DividendDates[1], "01/10/00");
}

TEST_F(QuoteRows, YieldIsTheDividendInPercentOfThePreviousClose) {
    rows.Dividends[1] = "0.5";
    rows.PreviousCloses[1] = "20";
    CalculateYield(rows, 1);
    EXPECT_EQ(rows.YieldPercent[1], "2.5");
    EXPECT_EQ(rows.Dividends[1], "0.5");
    rows.PreviousCloses[1] = "0";
    CalculateYield(rows, 1);
    EXPECT_EQ(rows.YieldPercent[1], "2.5");
}

TEST_F(QuoteRows, ADividendThatIsNotAboveZeroEmptiesDividendAndYield) {
    for (const char* dividend : {"0", "0.000", "-0.5", "N/A", ""}) {
        rows.Dividends[1] = dividend;
        rows.YieldPercent[1] = "7";
        rows.PreviousCloses[1] = "20";
        CalculateYield(rows, 1);
        EXPECT_EQ(rows.Dividends[1], "") << dividend;
        EXPECT_EQ(rows.YieldPercent[1], "") << dividend;
    }
}

TEST_F(QuoteRows, TradeTimeIsOfTwentyFourHours) {
    struct Row {
        const char* received;
        const char* time;
    };
    constexpr Row kRows[] = {{"4:01pm", "16:01"}, {"9:30", "09:30"}, {"N/A", "N/A"}, {"", ""}};
    for (const Row& row : kRows) {
        rows.TradeTimes[1] = row.received;
        FormatTradeTime(rows, 1);
        EXPECT_EQ(rows.TradeTimes[1], row.time) << row.received;
    }
}

TEST_F(QuoteRows, MarketCapIsInMillionsByItsLastLetter) {
    struct Row {
        const char* text;
        double millions;
    };
    constexpr Row kRows[] = {{"1.2B", 1200}, {"850.5M", 850.5}, {"300K", 0.3}, {"N/A", 0}, {"", 0},
                             {"123", 0},     {"1.2b", 0},       {"B", 0},      {"M", 0},   {"2.5T", 0}};
    for (const Row& row : kRows) {
        rows.MarketCaps[1] = 99;
        rows.MarketCapText[1] = row.text;
        CalculateMarketCap(rows, 1);
        EXPECT_EQ(rows.MarketCaps[1], row.millions) << row.text;
    }
}

// A row of inputs and what each derived value is under the two guards; "kept" is what stood there before.
struct Derived {
    const char* what;
    const char* close;
    const char* last;
    const char* pe;
    const char* ps;
    const char* eps;
    const char* epsEst;
    double cap;
    const char* imported;
    const char* updated;
};

using Step = void (*)(QuoteArrays&, std::size_t, RatioGuard);

void CheckDerived(QuoteArrays& rows, QuoteArray QuoteArrays::*result, Step step,
                  const std::vector<Derived>& table) {
    for (const Derived& row : table) {
        rows.PreviousCloses[1] = row.close;
        rows.LastPrices[1] = row.last;
        rows.PeTtm[1] = row.pe;
        rows.PsValues[1] = row.ps;
        rows.EpsTtm[1] = row.eps;
        rows.EpsEst[1] = row.epsEst;
        rows.MarketCaps[1] = row.cap;
        (rows.*result)[1] = "kept";
        step(rows, 1, kImport);
        EXPECT_EQ((rows.*result)[1], row.imported) << row.what << ", import";
        (rows.*result)[1] = "kept";
        step(rows, 1, kUpdate);
        EXPECT_EQ((rows.*result)[1], row.updated) << row.what << ", update";
    }
}

TEST_F(QuoteRows, AnnualSales) {
    CheckDerived(rows, &QuoteArrays::AnnualSales,
                 [](QuoteArrays& r, std::size_t i, RatioGuard) { CalculateAnnualSales(r, i); },
                 {{"1000/20 x 20/4", "20", "", "", "4", "", "", 1000, "250", "250"},
                  {"negative P/S", "20", "", "", "-4", "", "", 1000, "-250", "-250"},
                  {"no P/S", "20", "", "", "0", "", "", 1000, "kept", "kept"},
                  {"no close", "0", "", "", "4", "", "", 1000, "kept", "kept"},
                  {"no market cap", "20", "", "", "4", "", "", 0, "0", "0"},
                  {"not available", "20", "", "", "N/A", "", "", 1000, "kept", "kept"}});
}

TEST_F(QuoteRows, AnnualEarnings) {
    CheckDerived(rows, &QuoteArrays::AnnualEarnings, CalculateAnnualEarnings,
                 {{"1000/8", "", "", "8", "", "", "", 1000, "125", "125"},
                  {"negative P/E", "", "", "-8", "", "", "", 1000, "-125", "kept"},
                  {"no P/E", "", "", "0", "", "", "", 1000, "kept", "kept"},
                  {"too small a P/E", "", "", "1e-300", "", "", "", 1e300, "kept", "kept"}});
}

TEST_F(QuoteRows, AnnualEarningsEst) {
    CheckDerived(rows, &QuoteArrays::AnnualEarningsEst,
                 [](QuoteArrays& r, std::size_t i, RatioGuard) { CalculateAnnualEarningsEst(r, i); },
                 {{"1000/20 x 1.5", "20", "", "", "", "", "1.5", 1000, "75", "75"},
                  {"no estimate", "20", "", "", "", "", "0", 1000, "kept", "kept"},
                  {"a loss", "20", "", "", "", "", "-1.5", 1000, "kept", "kept"},
                  {"no close", "0", "", "", "", "", "1.5", 1000, "kept", "kept"},
                  {"no market cap", "20", "", "", "", "", "1.5", 0, "kept", "kept"}});
}

TEST_F(QuoteRows, ChangePercent) {
    CheckDerived(rows, &QuoteArrays::ChangePercent,
                 [](QuoteArrays& r, std::size_t i, RatioGuard) { CalculateChangePercent(r, i); },
                 {{"100 x 5/20", "20", "25", "", "", "", "", 0, "25", "25"},
                  {"a fall", "20", "15", "", "", "", "", 0, "-25", "-25"},
                  {"no last", "20", "N/A", "", "", "", "", 0, "-100", "-100"},
                  {"no close", "0", "25", "", "", "", "", 0, "kept", "kept"},
                  {"negative close", "-20", "25", "", "", "", "", 0, "kept", "kept"}});
}

TEST_F(QuoteRows, EarningsPerSales) {
    CheckDerived(rows, &QuoteArrays::EarningsPerSales, CalculateEarningsPerSales,
                 {{"4/8", "", "", "8", "4", "", "", 0, "0.5", "0.5"},
                  {"negative P/E", "", "", "-8", "4", "", "", 0, "-0.5", "kept"},
                  {"no P/E", "", "", "N/A", "4", "", "", 0, "kept", "kept"}});
}

TEST_F(QuoteRows, SalesPerShare) {
    CheckDerived(rows, &QuoteArrays::SalesPerShare, CalculateSalesPerShare,
                 {{"20/4", "20", "", "", "4", "", "", 0, "5", "5"},
                  {"negative P/S", "20", "", "", "-4", "", "", 0, "-5", "kept"},
                  {"no P/S", "20", "", "", "", "", "", 0, "kept", "kept"}});
}

TEST_F(QuoteRows, PeEst) {
    CheckDerived(rows, &QuoteArrays::PeEst, CalculatePeEst,
                 {{"3 x 8/1.5", "", "", "8", "", "3", "1.5", 0, "16", "16"},
                  {"negative estimate", "", "", "8", "", "3", "-1.5", 0, "-16", "kept"},
                  {"no estimate", "", "", "8", "", "3", "0", 0, "kept", "kept"}});
}

TEST_F(QuoteRows, ReceivedTextStandsUntilItIsUsed) {
    rows.LastPrices[1] = "N/A";
    rows.AskPrices[1] = "12.5";
    rows.BidPrices[1] = "";
    rows.Volumes[1] = "1,234";
    rows.MarketCaps[1] = 1200;
    rows.EarningsPerSales[1] = "0.3333333333";
    rows.PeEst[1] = "16";
    rows.Names[1] = "Inter";
    struct Row {
        const char* header;
        const char* text;
    };
    constexpr Row kRows[] = {{"Last Price", "N/A"}, {"Ask Price", "12.500"},    {"Bid Price", ""},
                             {"Volume", "1,234"},   {"Market Cap (M)", "1200"}, {"E/S", "0.33333"},
                             {"P/E est.", "16.00"}, {"Name", "Inter"}};
    for (const Row& row : kRows) {
        std::string text;
        EXPECT_TRUE(CellText(rows, 1, row.header, text)) << row.header;
        EXPECT_EQ(text, row.text) << row.header;
    }
}

TEST_F(QuoteRows, EveryColumnButTheAlarmsTakesItsOwnArray) {
    rows.Symbols[1] = "IBM";
    QuoteArray QuoteArrays::*const arrays[] = {&QuoteArrays::Symbols,
                                               &QuoteArrays::LastPrices,
                                               &QuoteArrays::ChangeValues,
                                               &QuoteArrays::ChangePercent,
                                               &QuoteArrays::AskPrices,
                                               &QuoteArrays::BidPrices,
                                               &QuoteArrays::LowPrices,
                                               &QuoteArrays::HighPrices,
                                               &QuoteArrays::Volumes,
                                               &QuoteArrays::OpenPrices,
                                               &QuoteArrays::PreviousCloses,
                                               &QuoteArrays::Low52,
                                               &QuoteArrays::High52,
                                               &QuoteArrays::Names,
                                               &QuoteArrays::Exchanges,
                                               &QuoteArrays::TradeDates,
                                               &QuoteArrays::TradeTimes,
                                               &QuoteArrays::PeTtm,
                                               &QuoteArrays::PeEst,
                                               &QuoteArrays::EpsTtm,
                                               &QuoteArrays::EpsEst,
                                               &QuoteArrays::SalesPerShare,
                                               &QuoteArrays::EarningsPerSales,
                                               &QuoteArrays::PegValues,
                                               &QuoteArrays::PsValues,
                                               &QuoteArrays::Dividends,
                                               &QuoteArrays::YieldPercent,
                                               &QuoteArrays::DividendDates,
                                               &QuoteArrays::XDividendDates,
                                               nullptr,
                                               &QuoteArrays::AnnualSales,
                                               &QuoteArrays::AnnualEarnings,
                                               &QuoteArrays::AnnualEarningsEst};
    // Text that is no number passes every picture, so each entry can carry its own name.
    for (std::size_t i = 0; i < std::size(arrays); ++i) {
        if (arrays[i]) (rows.*arrays[i])[1] = "entry " + std::to_string(i);
    }
    rows.MarketCaps[1] = 29;
    QuoteTable table;
    table.AppendLine(QuoteHeader());
    table.AppendLine("old");
    table.SetText(1, 33, "5");
    table.SetText(1, 34, "3");
    WriteRow(rows, 1, table);
    for (std::size_t i = 0; i < std::size(arrays); ++i) {
        EXPECT_EQ(table.Text(1, i), arrays[i] ? "entry " + std::to_string(i) : "29") << table.Header(i);
    }
    EXPECT_EQ(table.Text(1, 33), "5");
    EXPECT_EQ(table.Text(1, 34), "3");
}

TEST_F(QuoteRows, ARowIsWrittenWhereverItsColumnsStandAndTheTableGrows) {
    rows.MakeRoom(3);
    rows.Symbols[3] = "IBM";
    rows.LastPrices[3] = "1.5";
    QuoteTable table;
    table.AppendLine("Ticker Symbol\tOther\tLast Price");
    WriteRow(rows, 3, table);
    EXPECT_EQ(table.RowCount(), 4U);
    EXPECT_EQ(LineText(table, 3), "IBM\t\t1.500");
    EXPECT_EQ(LineText(table, 2), "\t\t");
}

TEST_F(QuoteRows, RepairFillsMissingPrices) {
    struct Row {
        const char* last;
        const char* high;
        const char* low;
        const char* newLast;
        const char* newHigh;
        const char* newLow;
    };
    constexpr Row kRows[] = {{"10", "0", "0", "10", "10", "10"},    {"10", "", "9", "10", "10", "9"},
                             {"10", "12", "N/A", "10", "12", "10"}, {"0", "12", "9", "10.5", "12", "9"},
                             {"N/A", "12", "9", "10.5", "12", "9"}, {"0", "12", "0", "0", "12", "0"},
                             {"0", "0", "0", "0", "0", "0"},        {"-1", "0", "0", "-1", "0", "0"},
                             {"10", "11", "9", "10", "11", "9"}};
    for (const Row& row : kRows) {
        rows.LastPrices[1] = row.last;
        rows.HighPrices[1] = row.high;
        rows.LowPrices[1] = row.low;
        RepairRow(rows, 1);
        EXPECT_EQ(rows.LastPrices[1], row.newLast) << row.last << row.high << row.low;
        EXPECT_EQ(rows.HighPrices[1], row.newHigh) << row.last << row.high << row.low;
        EXPECT_EQ(rows.LowPrices[1], row.newLow) << row.last << row.high << row.low;
    }
}

TEST_F(QuoteRows, RepairOfTheOpenTakesTheMiddleOfHighAndLow) {
    rows.HighPrices[1] = "12";
    rows.LowPrices[1] = "9";
    for (const char* open : {"0", "", "N/A"}) {
        rows.OpenPrices[1] = open;
        RepairOpenPrice(rows, 1);
        EXPECT_EQ(rows.OpenPrices[1], "10.5") << open;
    }
    rows.OpenPrices[1] = "11";
    RepairOpenPrice(rows, 1);
    EXPECT_EQ(rows.OpenPrices[1], "11");
    rows.LowPrices[1] = "0";
    rows.OpenPrices[1] = "0";
    RepairOpenPrice(rows, 1);
    EXPECT_EQ(rows.OpenPrices[1], "0");
}

TEST_F(QuoteRows, ARowIsCalculatedInItsOrder) {
    rows.Symbols[1] = "IBM";
    rows.LastPrices[1] = "22";
    rows.PreviousCloses[1] = "20";
    rows.MarketCapText[1] = "1B";
    rows.PeTtm[1] = "10";
    rows.PsValues[1] = "4";
    rows.EpsTtm[1] = "2";
    rows.EpsEst[1] = "2.5";
    rows.Dividends[1] = "0.8";
    rows.XDividendDates[1] = "Dec-20-2024";
    rows.DividendDates[1] = "1/10/2024";
    rows.TradeTimes[1] = "4:00pm";
    CalculateRow(rows, 1, kUpdate, kQuoteDay);
    EXPECT_EQ(rows.XDividendDates[1], "12/20/24");
    EXPECT_EQ(rows.DividendDates[1], "01/10/25");
    EXPECT_EQ(rows.YieldPercent[1], "4");
    EXPECT_EQ(rows.TradeTimes[1], "16:00");
    EXPECT_EQ(rows.MarketCaps[1], 1000);
    EXPECT_EQ(rows.AnnualSales[1], "250");
    EXPECT_EQ(rows.AnnualEarnings[1], "100");
    EXPECT_EQ(rows.AnnualEarningsEst[1], "125");
    EXPECT_EQ(rows.ChangePercent[1], "10");
    EXPECT_EQ(rows.EarningsPerSales[1], "0.4");
    EXPECT_EQ(rows.SalesPerShare[1], "5");
    EXPECT_EQ(rows.PeEst[1], "8");
    EXPECT_EQ(rows.HighPrices[1], "");
}

TEST(QuoteArrays, RoomGrowsAndKeepsWhatIsThere) {
    QuoteArrays rows;
    EXPECT_FALSE(rows.HasRow(1));
    rows.MakeRoom(2);
    rows.Names[2] = "x";
    rows.MakeRoom(5);
    rows.MakeRoom(1);
    EXPECT_EQ(rows.Names[2], "x");
    EXPECT_TRUE(rows.HasRow(5));
    EXPECT_FALSE(rows.HasRow(0));
    EXPECT_FALSE(rows.HasRow(6));
    rows.MakeRoom(100000);
    EXPECT_TRUE(rows.HasRow(18000));
    EXPECT_FALSE(rows.HasRow(18001));
}

TEST(QuoteArrays, SymbolsAreTheTickersOfTheTable) {
    QuoteTable table;
    for (const char* line : {"Ticker Symbol\tName", "IBM\tInter", "", "MSFT"}) table.AppendLine(line);
    QuoteArrays rows;
    CopySymbols(table, rows);
    EXPECT_EQ(rows.Symbols, (QuoteArray{"", "IBM", "", "MSFT"}));
    CopySymbols(QuoteTable(), rows);
    EXPECT_EQ(rows.Symbols.size(), 4U);
}

}  // namespace
}  // namespace brantlow
