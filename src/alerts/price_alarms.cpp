#include "alerts/price_alarms.h"

#include "base/numbers.h"
#include "store/history_record.h"

namespace brantlow {

namespace {

constexpr std::string_view kNotAvailable = "N/A";

using Column = std::optional<std::size_t>;

// The ticker's column is never one of those that are scanned.
bool IsShown(const Column& column) {
    return column && *column > 0;
}

struct RowScan {
    QuoteTable& table;
    std::size_t row;
    const ColumnPositions& at;
    Person& person;

    const std::string& Text(const Column& column) const { return table.Text(row, *column); }
    // 0 where the table has no such column.
    double Number(const Column& column) const { return IsShown(column) ? LeadingNumber(Text(column)) : 0; }
    // Neither missing nor hidden.
    bool Shows(const Column& column) const { return IsShown(column) && table.Width(*column) > 0; }
    void Cue(const Column& column, CellStyle style) const { table.SetStyle(row, *column, style); }
};

// Colours the last price and beeps; true when the alarm fired.
bool ScanAlarm(const RowScan& scan, bool isReached, CellStyle cue) {
    const bool fired = isReached && scan.Number(scan.at.LastColumn) >= 0;
    scan.Cue(scan.at.LastColumn, fired ? cue : CellStyle::Neutral);
    if (fired) scan.person.Beep();
    return fired;
}

bool ScanHighAlarm(const RowScan& scan) {
    const double alarm = scan.Number(scan.at.HighAlarmColumn);
    if (!(alarm > 0)) return false;
    return ScanAlarm(scan, alarm <= scan.Number(scan.at.LastColumn), CellStyle::Rising);
}

bool ScanLowAlarm(const RowScan& scan) {
    const double alarm = scan.Number(scan.at.LowAlarmColumn);
    if (!(alarm > 0)) return false;
    return ScanAlarm(scan, scan.Number(scan.at.LastColumn) <= alarm, CellStyle::Weak);
}

void ScanChange(const RowScan& scan) {
    if (!IsShown(scan.at.ChangeColumn)) return;
    const double change = scan.Number(scan.at.ChangeColumn);
    const CellStyle fallen = change < 0 ? CellStyle::Falling : CellStyle::Neutral;
    scan.Cue(scan.at.ChangeColumn, change > 0 ? CellStyle::Rising : fallen);
}

void ScanLowPrice(const RowScan& scan) {
    if (!IsShown(scan.at.LowColumn) || !scan.Shows(scan.at.Week52LowColumn)) return;
    const double yearLow = scan.Number(scan.at.Week52LowColumn);
    const bool atYearLow = yearLow > 0 && scan.Number(scan.at.LowColumn) <= yearLow &&
                           scan.Text(scan.at.LowColumn) != kNotAvailable;
    scan.Cue(scan.at.LowColumn, atYearLow ? CellStyle::Weak : CellStyle::Neutral);
}

void ScanHighPrice(const RowScan& scan) {
    if (!IsShown(scan.at.HighColumn) || !scan.Shows(scan.at.Week52HighColumn)) return;
    const double yearHigh = scan.Number(scan.at.Week52HighColumn);
    const bool atYearHigh = yearHigh > 0 && scan.Number(scan.at.HighColumn) >= yearHigh &&
                            scan.Text(scan.at.HighColumn) != kNotAvailable;
    scan.Cue(scan.at.HighColumn, atYearHigh ? CellStyle::Rising : CellStyle::Neutral);
}

// A day of the next week, compared as text: within one month, and from one to the next of a year.
bool IsNear(const std::string& cell, const Date& today) {
    constexpr int kCentury = 100;
    constexpr int kDaysOfWeek = 7;
    if (cell.empty() || cell == kNotAvailable) return false;
    const double year = LeadingNumber(YearDigits(cell));
    const int thisYear = static_cast<int>(today.year()) % kCentury;
    if (year != thisYear && year != thisYear + 1) return false;
    return FormatDate(today) < cell && cell < FormatDate(AddDays(today, kDaysOfWeek));
}

void ScanXDividendDate(const RowScan& scan, const Date& today) {
    if (!IsShown(scan.at.XDividendColumn)) return;
    const bool isNear = IsNear(scan.Text(scan.at.XDividendColumn), today);
    scan.Cue(scan.at.XDividendColumn, isNear ? CellStyle::Rising : CellStyle::Neutral);
}

void TakeAlarm(const QuoteTable& table, std::size_t row, std::string_view header, double& alarm) {
    if (const Column column = table.ColumnOf(header)) alarm = LeadingNumber(table.Text(row, *column));
}

}  // namespace

bool ScanAlarms(QuoteTable& table, std::size_t row, const ColumnPositions& columns, const Date& today,
                Person& person) {
    const RowScan scan{table, row, columns, person};
    bool fired = false;
    if (IsShown(columns.LastColumn)) {
        fired = ScanHighAlarm(scan);
        fired = ScanLowAlarm(scan) || fired;
    }
    ScanChange(scan);
    ScanLowPrice(scan);
    ScanHighPrice(scan);
    ScanXDividendDate(scan, today);
    return fired;
}

void LoadChartAlarms(const QuoteTable& table, std::size_t row, ChartAlarms& alarms) {
    TakeAlarm(table, row, kHighAlarmColumn, alarms.ChartHighAlarm);
    TakeAlarm(table, row, kLowAlarmColumn, alarms.ChartLowAlarm);
}

}  // namespace brantlow
