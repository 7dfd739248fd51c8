#include "store/table_colours.h"

#include "store/store_fixture.h"

namespace brantlow {
namespace {

// The style of the cell under `header` in a quote table of one row.
CellStyle StyleIn(const std::string& headers, const std::string& cells, const char* header) {
    QuoteTable table;
    table.AppendLine("Ticker Symbol\t" + headers);
    table.AppendLine("IBM\t" + cells);
    ColorChange(table, FileKind::Ddq, kQuoteDay, nullptr);
    return table.Style(1, *table.ColumnOf(header));
}

TEST(TableColours, OneRowIsColouredAlone) {
    QuoteTable table;
    table.AppendLine("Ticker Symbol\tLast Price\tHigh Alarm");
    table.AppendLine("IBM\t50\t50");
    table.AppendLine("GE\t50\t50");
    ColorQuoteRow(table, 2, kQuoteDay);
    EXPECT_EQ(table.Style(1, 1), CellStyle::Plain);
    EXPECT_EQ(table.Style(2, 1), CellStyle::Strong);
    table.SetText(2, 2, "51");
    ColorQuoteRow(table, 2, kQuoteDay);
    EXPECT_EQ(table.Style(2, 1), CellStyle::Neutral);
    ColorQuoteRow(table, 0, kQuoteDay);
    ColorQuoteRow(table, 3, kQuoteDay);
    EXPECT_EQ(table.Style(0, 1), CellStyle::Plain);
}

TEST(TableColours, StylesRowByRow) {
    struct Row {
        CellStyle style;
        Colour foreground;
        Colour background;
        bool bold;
    };
    const auto rgb = [](int r, int g, int b) {
        return Colour{
            ColourSource::Style,
            {static_cast<unsigned char>(r), static_cast<unsigned char>(g), static_cast<unsigned char>(b)}};
    };
    const Colour window{};
    const Colour face{ColourSource::ButtonFace, {}};
    const Row rows[] = {{CellStyle::Plain, window, window, false},
                        {CellStyle::Neutral, rgb(1, 1, 1), window, false},
                        {CellStyle::Strong, rgb(1, 100, 1), window, true},
                        {CellStyle::AtLowAlarm, rgb(150, 1, 1), window, true},
                        {CellStyle::Weak, rgb(200, 0, 0), window, true},
                        {CellStyle::NoChange, face, window, true},
                        {CellStyle::Buy, window, rgb(10, 200, 10), false},
                        {CellStyle::Sell, window, rgb(200, 10, 10), false},
                        {CellStyle::Hold, window, rgb(230, 230, 20), false},
                        {CellStyle::FadingBuy, window, rgb(150, 200, 10), false},
                        {CellStyle::RecoveringSell, window, rgb(200, 150, 10), false},
                        {CellStyle::EmptyResult, window, face, false},
                        {CellStyle::Rising, rgb(0, 120, 0), window, true},
                        {CellStyle::Falling, rgb(210, 0, 0), window, true}};
    ASSERT_EQ(std::size(rows), kCellStyleCount);
    for (const Row& row : rows) {
        const auto number = static_cast<int>(row.style);
        const StyleColours& colours = ColoursOf(row.style);
        EXPECT_EQ(colours.foreground.source, row.foreground.source) << number;
        EXPECT_EQ(colours.foreground.rgb, row.foreground.rgb) << number;
        EXPECT_EQ(colours.background.source, row.background.source) << number;
        EXPECT_EQ(colours.background.rgb, row.background.rgb) << number;
        EXPECT_EQ(colours.bold, row.bold) << number;
    }
    EXPECT_EQ(ColoursOf(CellStyle{200}).foreground.source, ColourSource::Window);
}

TEST(TableColours, LastPriceByItsAlarms) {
    struct Row {
        const char* cells;  // last price, high alarm, low alarm
        CellStyle style;
    };
    constexpr Row kRows[] = {{"10.000\t10\t", CellStyle::Strong},    {"10.001\t10\t5", CellStyle::Strong},
                             {"9.999\t10\t5", CellStyle::Neutral},   {"5.000\t10\t5", CellStyle::AtLowAlarm},
                             {"4.000\t\t5", CellStyle::AtLowAlarm},  {"0.000\t\t5", CellStyle::Neutral},
                             {"10.000\t0\t0", CellStyle::Neutral},   {"N/A\t10\t5", CellStyle::Neutral},
                             {"10.000\tabc\tx", CellStyle::Neutral}, {"\t\t", CellStyle::Neutral},
                             {"7.000\t6\t8", CellStyle::Strong}};
    for (const Row& row : kRows) {
        EXPECT_EQ(StyleIn("Last Price\tHigh Alarm\tLow Alarm", row.cells, "Last Price"), row.style)
            << row.cells;
    }
}

TEST(TableColours, ChangeIsReadWithoutItsLastCharacter) {
    struct Row {
        const char* cell;
        CellStyle style;
    };
    constexpr Row kRows[] = {{"0.120", CellStyle::Strong},    {"-0.120", CellStyle::Weak},
                             {"0.000", CellStyle::NoChange},  {"0.001", CellStyle::NoChange},
                             {"-0.001", CellStyle::NoChange}, {"5", CellStyle::NoChange},
                             {"", CellStyle::NoChange},       {"1.5%", CellStyle::Strong}};
    for (const Row& row : kRows) EXPECT_EQ(StyleIn("Change", row.cell, "Change"), row.style) << row.cell;
}

TEST(TableColours, LowPriceByThe52WeekLow) {
    struct Row {
        const char* cells;  // low price, 52 week low
        CellStyle style;
    };
    constexpr Row kRows[] = {{"10.000\t10.000", CellStyle::Weak},   {"10.000\t10.500", CellStyle::Weak},
                             {"10.000\t9.999", CellStyle::Neutral}, {"10.000\t", CellStyle::Neutral},
                             {"0.000\t9.000", CellStyle::Plain},    {"\t9.000", CellStyle::Plain}};
    for (const Row& row : kRows) {
        EXPECT_EQ(StyleIn("Low Price\t52 Week Low", row.cells, "Low Price"), row.style) << row.cells;
    }
}

TEST(TableColours, HighPriceByThe52WeekHigh) {
    struct Row {
        const char* cells;  // high price, 52 week high
        CellStyle style;
    };
    constexpr Row kRows[] = {{"10.000\t10.000", CellStyle::Strong},
                             {"10.000\t9.000", CellStyle::Strong},
                             {"10.000\t10.001", CellStyle::Neutral},
                             {"0.000\t0.000", CellStyle::Plain},
                             {"-1.000\t0.000", CellStyle::Plain}};
    for (const Row& row : kRows) {
        EXPECT_EQ(StyleIn("High Price\t52 Week High", row.cells, "High Price"), row.style) << row.cells;
    }
}

TEST(TableColours, XDividendDateByTheCalendar) {
    struct Row {
        const char* cell;
        CellStyle style;
    };
    constexpr Row kRows[] = {
        {"03/15/24", CellStyle::Strong}, {"03/14/24", CellStyle::Neutral}, {"12/31/24", CellStyle::Strong},
        {"01/02/25", CellStyle::Strong}, {"12/31/23", CellStyle::Neutral}, {"06/01/26", CellStyle::Neutral},
        {"", CellStyle::Neutral},        {"N/A", CellStyle::Neutral},      {"15/15/24", CellStyle::Neutral}};
    for (const Row& row : kRows) {
        EXPECT_EQ(StyleIn("X Dividend Date", row.cell, "X Dividend Date"), row.style) << row.cell;
    }
}

TEST(TableColours, AnUpcomingDateReachesOverTheTurnOfTheTwoDigitYears) {
    EXPECT_TRUE(IsUpcoming("01/05/30", Day(2029, 12, 20)));
    EXPECT_TRUE(IsUpcoming("01/05/00", Day(2099, 12, 20)));
    EXPECT_FALSE(IsUpcoming("12/19/29", Day(2029, 12, 20)));
}

TEST(TableColours, ARuleWithoutItsColumnsIsPassedOver) {
    EXPECT_EQ(StyleIn("Last Price\tLow Alarm", "4\t5", "Last Price"), CellStyle::AtLowAlarm);
    EXPECT_EQ(StyleIn("Last Price\tHigh Alarm", "4\t3", "Last Price"), CellStyle::Strong);
    EXPECT_EQ(StyleIn("Last Price", "4", "Last Price"), CellStyle::Neutral);
    EXPECT_EQ(StyleIn("Low Price", "4", "Low Price"), CellStyle::Plain);
    EXPECT_EQ(StyleIn("High Price", "4", "High Price"), CellStyle::Plain);
    EXPECT_EQ(StyleIn("Name\tLow Alarm", "x\t5", "Name"), CellStyle::Plain);
}

TEST(TableColours, LocatesTheNineColumnsByHeader) {
    QuoteTable table;
    table.AppendLine(
        "Ticker Symbol\t52 Week Low\t52 Week High\tLow Alarm\tHigh Alarm\tX Dividend Date\tHigh Price\tLow "
        "Price\tChange\tLast Price");
    const ColumnPositions at = LocateColumns(table);
    EXPECT_EQ(at.LastColumn, 9U);
    EXPECT_EQ(at.ChangeColumn, 8U);
    EXPECT_EQ(at.LowColumn, 7U);
    EXPECT_EQ(at.HighColumn, 6U);
    EXPECT_EQ(at.XDividendColumn, 5U);
    EXPECT_EQ(at.HighAlarmColumn, 4U);
    EXPECT_EQ(at.LowAlarmColumn, 3U);
    EXPECT_EQ(at.Week52HighColumn, 2U);
    EXPECT_EQ(at.Week52LowColumn, 1U);
    EXPECT_FALSE(LocateColumns(QuoteTable()).LastColumn);
}

TEST(TableColours, ResultsOfARunTakeTheirGround) {
    QuoteTable table;
    table.AppendLine("Ticker Symbol\tCondition 1\tCondition 2\tCondition 3\tCondition 4\tCondition 5");
    table.AppendLine("IBM\tBuy\tSell\tHold\t12.5");
    table.AppendLine("Buy");
    ColorChange(table, FileKind::Dbe, kQuoteDay, nullptr);
    const CellStyle styles[] = {CellStyle::Plain, CellStyle::Buy,   CellStyle::Sell,
                                CellStyle::Hold,  CellStyle::Plain, CellStyle::EmptyResult};
    for (std::size_t c = 0; c < 6; ++c) EXPECT_EQ(table.Style(1, c), styles[c]) << c;
    EXPECT_EQ(table.Style(2, 0), CellStyle::Plain);
    for (std::size_t c = 1; c < 6; ++c) EXPECT_EQ(table.Style(2, c), CellStyle::EmptyResult) << c;
    for (std::size_t c = 0; c < 6; ++c) EXPECT_EQ(table.Style(0, c), CellStyle::Plain) << c;
}

TEST(TableColours, FundamentalsAndTemplatesAreNotColoured) {
    for (const FileKind kind : {FileKind::Efq, FileKind::Db, FileKind::None}) {
        QuoteTable table;
        table.AppendLine("Symbol\tLast Price\tChange");
        table.AppendLine("IBM\t1\tBuy");
        ColorChange(table, kind, kQuoteDay, nullptr);
        for (std::size_t c = 0; c < 3; ++c) EXPECT_EQ(table.Style(1, c), CellStyle::Plain);
    }
}

TEST(TableColours, ProgressIsTheShareOfTheRows) {
    QuoteTable table;
    table.AppendLine("Ticker Symbol");
    for (int i = 0; i < 4; ++i) table.AppendLine("x");
    ProgressRecorder progress;
    ColorChange(table, FileKind::Ddq, kQuoteDay, &progress);
    EXPECT_EQ(progress.fractions, (std::vector<double>{0.25, 0.5, 0.75, 1}));
}

}  // namespace
}  // namespace brantlow
