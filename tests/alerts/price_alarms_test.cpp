#include "alerts/price_alarms.h"

#include "alerts/alarm_edit.h"
#include "store/columns.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

constexpr const char* kHeader =
    "Ticker Symbol\tLast Price\tChange\tLow Price\tHigh Price\t52 Week Low\t52 Week High\tX Dividend Date\t"
    "High Alarm\tLow Alarm";

// Columns of kHeader.
enum : std::size_t { kLast = 1, kChange, kLow, kHigh, kYearLow, kYearHigh, kXDate, kHighAlarm, kLowAlarm };

class PriceAlarmsTest : public SessionTest {
  protected:
    bool Scan() { return ScanAlarms(table, 1, LocateColumns(table), Today(), person); }
    void Cell(std::size_t column, std::string_view text) { table.SetText(1, column, text); }

    static QuoteTable ShownTable() {
        QuoteTable shown = TableOf({kHeader, "AAA\t\t\t\t\t\t\t\t\t"});
        shown.ResetWidths(kTickerWidth, kTickerWidth);
        return shown;
    }

    QuoteTable table = ShownTable();
};

TEST_F(PriceAlarmsTest, AlarmsFireAtTheirPrice) {
    struct Row {
        const char* last;
        const char* highAlarm;
        const char* lowAlarm;
        bool fired;
        int beeps;
        CellStyle style;
    };
    constexpr Row kRows[] = {
        {"50.00", "50", "", true, 1, CellStyle::Rising},
        {"49.99", "50", "", false, 0, CellStyle::Neutral},
        {"50.00", "", "50", true, 1, CellStyle::Weak},
        {"50.01", "", "50", false, 0, CellStyle::Neutral},
        // An alarm of 0, of text or below 0 is none, and colours nothing.
        {"50.00", "0", "0", false, 0, CellStyle::Plain},
        {"50.00", "", "", false, 0, CellStyle::Plain},
        {"50.00", "high", "low", false, 0, CellStyle::Plain},
        {"50.00", "-1", "-1", false, 0, CellStyle::Plain},
        // A price below 0 reaches nothing.
        {"-1.00", "", "50", false, 0, CellStyle::Neutral},
        // The low alarm speaks last.
        {"60.00", "50", "40", true, 1, CellStyle::Neutral},
        {"45.00", "40", "50", true, 2, CellStyle::Weak},
        {"60.00", "70", "40", false, 0, CellStyle::Neutral},
        {"0.000", "", "50", true, 1, CellStyle::Weak},
        {"", "", "50", true, 1, CellStyle::Weak},
    };
    for (const Row& row : kRows) {
        table = ShownTable();
        person.beeps = 0;
        Cell(kLast, row.last);
        Cell(kHighAlarm, row.highAlarm);
        Cell(kLowAlarm, row.lowAlarm);
        EXPECT_EQ(Scan(), row.fired) << row.last << ' ' << row.highAlarm << ' ' << row.lowAlarm;
        EXPECT_EQ(person.beeps, row.beeps) << row.last << ' ' << row.highAlarm << ' ' << row.lowAlarm;
        EXPECT_EQ(table.Style(1, kLast), row.style)
            << row.last << ' ' << row.highAlarm << ' ' << row.lowAlarm;
    }
}

TEST_F(PriceAlarmsTest, AnAlarmStillMetBeepsAgain) {
    Cell(kLast, "50");
    Cell(kHighAlarm, "50");
    Scan();
    Scan();
    EXPECT_EQ(person.beeps, 2);
    EXPECT_EQ(table.Text(1, kHighAlarm), "50");
}

TEST_F(PriceAlarmsTest, WithoutTheLastPriceColumnNoAlarmIsLookedAt) {
    table = TableOf({"Ticker Symbol\tChange\tHigh Alarm\tLow Alarm", "AAA\t1.000\t50\t50"});
    EXPECT_FALSE(Scan());
    EXPECT_EQ(person.beeps, 0);
    EXPECT_EQ(table.Style(1, 1), CellStyle::Rising);
}

TEST_F(PriceAlarmsTest, ATableOfTickersAloneIsPassedOver) {
    table = TableOf({"Ticker Symbol", "AAA"});
    EXPECT_FALSE(Scan());
    EXPECT_EQ(table.Style(1, 0), CellStyle::Plain);
}

TEST_F(PriceAlarmsTest, TheChangeByItsSign) {
    struct Row {
        const char* text;
        CellStyle style;
    };
    constexpr Row kRows[] = {{"0.010", CellStyle::Rising},
                             {"-0.010", CellStyle::Falling},
                             {"0.000", CellStyle::Neutral},
                             {"", CellStyle::Neutral},
                             {"N/A", CellStyle::Neutral}};
    for (const Row& row : kRows) {
        Cell(kChange, row.text);
        Scan();
        EXPECT_EQ(table.Style(1, kChange), row.style) << row.text;
    }
}

TEST_F(PriceAlarmsTest, LowAndHighPriceByTheYearsRange) {
    struct Row {
        std::size_t column;
        const char* price;
        std::size_t rangeColumn;
        const char* range;
        CellStyle style;
    };
    constexpr Row kRows[] = {
        {kLow, "10.000", kYearLow, "10.000", CellStyle::Weak},
        {kLow, "9.999", kYearLow, "10.000", CellStyle::Weak},
        {kLow, "10.001", kYearLow, "10.000", CellStyle::Neutral},
        {kLow, "N/A", kYearLow, "10.000", CellStyle::Neutral},
        {kLow, "10.000", kYearLow, "0", CellStyle::Neutral},
        {kHigh, "20.000", kYearHigh, "20.000", CellStyle::Rising},
        {kHigh, "20.001", kYearHigh, "20.000", CellStyle::Rising},
        {kHigh, "19.999", kYearHigh, "20.000", CellStyle::Neutral},
        {kHigh, "N/A", kYearHigh, "20.000", CellStyle::Neutral},
        {kHigh, "20.000", kYearHigh, "", CellStyle::Neutral},
    };
    for (const Row& row : kRows) {
        Cell(row.column, row.price);
        Cell(row.rangeColumn, row.range);
        Scan();
        EXPECT_EQ(table.Style(1, row.column), row.style) << row.price << ' ' << row.range;
    }
}

TEST_F(PriceAlarmsTest, AHiddenYearColumnLeavesThePriceBesideItAlone) {
    for (const auto& [column, rangeColumn] : {std::pair{kLow, kYearLow}, std::pair{kHigh, kYearHigh}}) {
        table = ShownTable();
        Cell(column, "10.000");
        Cell(rangeColumn, "10.000");
        table.SetWidth(rangeColumn, 0);
        table.SetStyle(1, column, CellStyle::Strong);
        Scan();
        EXPECT_EQ(table.Style(1, column), CellStyle::Strong) << column;
        table.SetWidth(rangeColumn, kTickerWidth);
        Scan();
        EXPECT_EQ(table.Style(1, column), column == kLow ? CellStyle::Weak : CellStyle::Rising) << column;
    }
}

TEST_F(PriceAlarmsTest, XDividendDatesOfTheNextWeekByTheirText) {
    struct Row {
        const char* text;
        CellStyle style;
    };
    // Today is 03/15/24.
    constexpr Row kRows[] = {{"03/16/24", CellStyle::Rising},
                             {"03/21/24", CellStyle::Rising},
                             {"03/22/24", CellStyle::Neutral},
                             {"03/15/24", CellStyle::Neutral},
                             {"03/14/24", CellStyle::Neutral},
                             // Texts are compared: next year's day of the same week counts.
                             {"03/16/25", CellStyle::Rising},
                             {"03/16/26", CellStyle::Neutral},
                             {"03/16/23", CellStyle::Neutral},
                             {"", CellStyle::Neutral},
                             {"N/A", CellStyle::Neutral}};
    for (const Row& row : kRows) {
        Cell(kXDate, row.text);
        Scan();
        EXPECT_EQ(table.Style(1, kXDate), row.style) << row.text;
    }
}

TEST_F(PriceAlarmsTest, TheCuesInTheirColours) {
    struct Row {
        CellStyle style;
        Rgb rgb;
        bool bold;
    };
    constexpr Row kRows[] = {{CellStyle::Rising, {0, 120, 0}, true},
                             {CellStyle::Weak, {200, 0, 0}, true},
                             {CellStyle::Falling, {210, 0, 0}, true},
                             {CellStyle::Neutral, {1, 1, 1}, false}};
    for (const Row& row : kRows) {
        EXPECT_EQ(ColoursOf(row.style).foreground.rgb, row.rgb);
        EXPECT_EQ(ColoursOf(row.style).bold, row.bold);
    }
}

TEST_F(PriceAlarmsTest, TheChartTakesTheRowsAlarms) {
    ChartAlarms alarms;
    table = TableOf({"Ticker Symbol\tLow Alarm\tHigh Alarm", "AAA\t40.5\t60", "BBB\t\thigh"});
    LoadChartAlarms(table, 1, alarms);
    EXPECT_EQ(alarms.ChartHighAlarm, 60);
    EXPECT_EQ(alarms.ChartLowAlarm, 40.5);
    LoadChartAlarms(table, 2, alarms);
    EXPECT_EQ(alarms.ChartHighAlarm, 0);
    EXPECT_EQ(alarms.ChartLowAlarm, 0);
}

TEST_F(PriceAlarmsTest, AMissingColumnLeavesTheChartsAlarm) {
    ChartAlarms alarms{60, 40};
    LoadChartAlarms(TableOf({"Ticker Symbol\tHigh Alarm", "AAA\t70"}), 1, alarms);
    EXPECT_EQ(alarms.ChartHighAlarm, 70);
    EXPECT_EQ(alarms.ChartLowAlarm, 40);
}

class AlarmEditTest : public SessionTest {
  protected:
    AlarmEditTest() { Set(session.settings.DataSettings, 7, "Automatic Save"); }

    QuoteTable table = TableOf({"Ticker Symbol\tHigh Alarm\tLow Alarm", "AAA\t1\t2", "BBB\t3\t4"});
};

TEST_F(AlarmEditTest, WritesBothCellsAndSaves) {
    const TableEdit edit = EditAlarms(session, table, "bbb", {"50.5", ""});
    EXPECT_EQ(edit.outcome, EditOutcome::Changed);
    EXPECT_EQ(LineText(table, 1), "AAA\t1\t2");
    EXPECT_EQ(LineText(table, 2), "BBB\t50.5\t");
    EXPECT_EQ(Read("Data/Mine.ddq"), "Ticker Symbol\tHigh Alarm\tLow Alarm\r\nAAA\t1\t2\r\nBBB\t50.5\t\r\n");
}

TEST_F(AlarmEditTest, ACellWithoutATextKeepsWhatItHolds) {
    EditAlarms(session, table, "BBB", {std::nullopt, "9"});
    EXPECT_EQ(LineText(table, 2), "BBB\t3\t9");
}

TEST_F(AlarmEditTest, WithManualSaveTheFileIsNotWritten) {
    Set(session.settings.DataSettings, 7, "Manual Save");
    EXPECT_EQ(EditAlarms(session, table, "BBB", {"5", "6"}).outcome, EditOutcome::Changed);
    EXPECT_FALSE(Exists("Data/Mine.ddq"));
}

TEST_F(AlarmEditTest, RefusesInItsWords) {
    struct Row {
        const char* file;
        const char* symbol;
        const char* text;
    };
    constexpr Row kRows[] = {
        {"New EOD Quotes.db", "BBB", "Save this file as another name before editing."},
        {"New EOD Quotes.db", "", "Save this file as another name before editing."},
        {"Mine.ddq", "", "Enter a Ticker Symbol in the Symbol Box before selecting Edit"},
        {"Mine.ddq", " ", "Enter a Ticker Symbol in the Symbol Box before selecting Edit"}};
    for (const Row& row : kRows) {
        session.CurrentFile = row.file;
        person.said.clear();
        EXPECT_EQ(EditAlarms(session, table, row.symbol, {"5", "6"}).outcome, EditOutcome::Refused);
        ASSERT_EQ(person.said.size(), 1U);
        EXPECT_EQ(person.said[0].text, row.text);
        EXPECT_EQ(LineText(table, 2), "BBB\t3\t4");
    }
}

TEST_F(AlarmEditTest, AnAlarmWithoutAColumnIsRefusedAndNothingIsChanged) {
    struct Row {
        const char* head;
        AlarmTexts alarms;
        const char* column;
    };
    const Row rows[] = {{"Ticker Symbol\tLast Price\tName", {"5", "6"}, "High Alarm"},
                        {"Ticker Symbol\tLast Price\tHigh Alarm", {"5", "6"}, "Low Alarm"},
                        {"Ticker Symbol\tLow Alarm\tName", {"5", ""}, "High Alarm"},
                        {"Ticker Symbol\tHigh Alarm\tName", {std::nullopt, "6"}, "Low Alarm"}};
    for (const Row& row : rows) {
        QuoteTable bare = TableOf({row.head, "BBB\t3\t4"});
        person.said.clear();
        EXPECT_EQ(EditAlarms(session, bare, "BBB", row.alarms).outcome, EditOutcome::Refused);
        ASSERT_EQ(person.said.size(), 1U) << row.head;
        EXPECT_EQ(person.said[0].text, "Mine.ddq has no column " + std::string(row.column) +
                                           ", so the alarm cannot be kept. No alarm was changed.");
        EXPECT_EQ(LineText(bare, 1), "BBB\t3\t4");
        EXPECT_FALSE(Exists("Data/Mine.ddq"));
    }
}

TEST_F(AlarmEditTest, AnAlarmThatIsTakenAwayNeedsNoColumn) {
    QuoteTable bare = TableOf({"Ticker Symbol\tHigh Alarm\tName", "BBB\t3\t4"});
    EXPECT_EQ(EditAlarms(session, bare, "BBB", {"5", ""}).outcome, EditOutcome::Changed);
    EXPECT_EQ(LineText(bare, 1), "BBB\t5\t4");
    EXPECT_TRUE(person.said.empty());
}

TEST_F(AlarmEditTest, OtherKindsAndOtherTickersStayAsTheyAre) {
    EXPECT_EQ(EditAlarms(session, table, "XYZ", {"5", "6"}).outcome, EditOutcome::Unchanged);
    session.CurrentFile = "Evaluations.dbe";
    EXPECT_EQ(EditAlarms(session, table, "BBB", {"5", "6"}).outcome, EditOutcome::Unchanged);
    EXPECT_EQ(LineText(table, 2), "BBB\t3\t4");
    EXPECT_TRUE(person.said.empty());
}

}  // namespace
}  // namespace brantlow
