#include "store/table_colours.h"

#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr Colour Fixed(unsigned char red, unsigned char green, unsigned char blue) {
    return {ColourSource::Style, {red, green, blue}};
}
constexpr Colour kWindow{};
constexpr Colour kButtonFace{ColourSource::ButtonFace, {}};

// In the order of CellStyle.
constexpr std::array<StyleColours, kCellStyleCount> kStyles = {{
    {kWindow, kWindow, false},
    {Fixed(1, 1, 1), kWindow, false},
    {Fixed(1, 100, 1), kWindow, true},
    {Fixed(150, 1, 1), kWindow, true},
    {Fixed(200, 0, 0), kWindow, true},
    {kButtonFace, kWindow, true},
    {kWindow, Fixed(10, 200, 10), false},
    {kWindow, Fixed(200, 10, 10), false},
    {kWindow, Fixed(230, 230, 20), false},
    {kWindow, Fixed(150, 200, 10), false},
    {kWindow, Fixed(200, 150, 10), false},
    {kWindow, kButtonFace, false},
    {Fixed(0, 120, 0), kWindow, true},
    {Fixed(210, 0, 0), kWindow, true},
}};

struct LocatedColumn {
    std::string_view header;
    std::optional<std::size_t> ColumnPositions::*position;
};

constexpr std::array<LocatedColumn, 9> kLocatedColumns = {
    {{"Last Price", &ColumnPositions::LastColumn},
     {"Change", &ColumnPositions::ChangeColumn},
     {"Low Price", &ColumnPositions::LowColumn},
     {"High Price", &ColumnPositions::HighColumn},
     {"X Dividend Date", &ColumnPositions::XDividendColumn},
     {"High Alarm", &ColumnPositions::HighAlarmColumn},
     {"Low Alarm", &ColumnPositions::LowAlarmColumn},
     {"52 Week High", &ColumnPositions::Week52HighColumn},
     {"52 Week Low", &ColumnPositions::Week52LowColumn}}};

// One row of a quote table with the columns that its rules need.
struct RowInWork {
    QuoteTable& table;
    const ColumnPositions& at;
    std::size_t row;

    // 0 where the table has no such column.
    double Value(std::optional<std::size_t> column) const {
        return column ? LeadingNumber(table.Text(row, *column)) : 0;
    }
    void Paint(std::optional<std::size_t> column, CellStyle style) const {
        table.SetStyle(row, *column, style);
    }
};

void ColourLastPrice(const RowInWork& work) {
    if (!work.at.LastColumn) return;
    const double last = work.Value(work.at.LastColumn);
    const double high = work.Value(work.at.HighAlarmColumn);
    const double low = work.Value(work.at.LowAlarmColumn);
    CellStyle style = CellStyle::Neutral;
    if (last > 0 && high > 0 && last >= high) {
        style = CellStyle::Strong;
    } else if (last > 0 && low > 0 && last <= low) {
        style = CellStyle::AtLowAlarm;
    }
    work.Paint(work.at.LastColumn, style);
}

void ColourChangeCell(const RowInWork& work) {
    if (!work.at.ChangeColumn) return;
    // The last character is left out: tables of other sources close the cell with a sign.
    std::string_view text = work.table.Text(work.row, *work.at.ChangeColumn);
    text = text.substr(0, text.empty() ? 0 : text.size() - 1);
    const double change = LeadingNumber(text);
    const CellStyle fallen = change < 0 ? CellStyle::Weak : CellStyle::NoChange;
    work.Paint(work.at.ChangeColumn, change > 0 ? CellStyle::Strong : fallen);
}

void ColourLowPrice(const RowInWork& work) {
    if (!work.at.LowColumn || !work.at.Week52LowColumn) return;
    const double low = work.Value(work.at.LowColumn);
    if (!(low > 0)) return;
    const bool atYearLow = work.Value(work.at.Week52LowColumn) >= low;
    work.Paint(work.at.LowColumn, atYearLow ? CellStyle::Weak : CellStyle::Neutral);
}

void ColourHighPrice(const RowInWork& work) {
    if (!work.at.HighColumn || !work.at.Week52HighColumn) return;
    const double high = work.Value(work.at.HighColumn);
    if (!(high > 0)) return;
    const bool atYearHigh = high >= work.Value(work.at.Week52HighColumn);
    work.Paint(work.at.HighColumn, atYearHigh ? CellStyle::Strong : CellStyle::Neutral);
}

void ColourXDividendDate(const RowInWork& work, const Date& today) {
    if (!work.at.XDividendColumn) return;
    const bool upcoming = IsUpcoming(work.table.Text(work.row, *work.at.XDividendColumn), today);
    work.Paint(work.at.XDividendColumn, upcoming ? CellStyle::Strong : CellStyle::Neutral);
}

void ColourRow(const RowInWork& work, const Date& today) {
    ColourLastPrice(work);
    ColourChangeCell(work);
    ColourLowPrice(work);
    ColourHighPrice(work);
    ColourXDividendDate(work, today);
}

void ColourResultRow(QuoteTable& table, std::size_t row) {
    for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
        if (const auto style = ResultStyle(table.Text(row, column))) table.SetStyle(row, column, *style);
    }
}

}  // namespace

const StyleColours& ColoursOf(CellStyle style) {
    const auto index = static_cast<std::size_t>(style);
    return kStyles[index < kStyles.size() ? index : 0];
}

std::optional<CellStyle> ResultStyle(std::string_view text) {
    if (text.empty()) return CellStyle::EmptyResult;
    if (text == "Buy") return CellStyle::Buy;
    if (text == "Sell") return CellStyle::Sell;
    if (text == "Hold") return CellStyle::Hold;
    return std::nullopt;
}

ColumnPositions LocateColumns(const QuoteTable& table) {
    ColumnPositions positions;
    for (const LocatedColumn& column : kLocatedColumns) {
        positions.*column.position = table.ColumnOf(column.header);
    }
    return positions;
}

bool IsUpcoming(std::string_view dateText, const Date& today) {
    const auto date = ParseDate(dateText);
    if (!date) return false;
    // Two digits are all that a cell tells of its year, so the year is compared by its two digits.
    constexpr int kCentury = 100;
    const int yearNow = static_cast<int>(today.year()) % kCentury;
    const int year = static_cast<int>(date->year()) % kCentury;
    if (year == (yearNow + 1) % kCentury) return true;
    return year == yearNow && date->month() / date->day() >= today.month() / today.day();
}

void ColorChange(QuoteTable& table, FileKind kind, const Date& today, Person* progress) {
    if (kind != FileKind::Ddq && kind != FileKind::Dbe) return;
    const ColumnPositions positions = LocateColumns(table);
    const std::size_t lastRow = table.TickerCount();
    for (std::size_t row = 1; row <= lastRow; ++row) {
        if (kind == FileKind::Ddq) {
            ColourRow({table, positions, row}, today);
        } else {
            ColourResultRow(table, row);
        }
        if (progress) progress->ShowProgress(static_cast<double>(row) / static_cast<double>(lastRow));
    }
}

void ColorQuoteRow(QuoteTable& table, std::size_t row, const Date& today) {
    if (row == 0 || row >= table.RowCount()) return;
    const ColumnPositions positions = LocateColumns(table);
    ColourRow({table, positions, row}, today);
}

}  // namespace brantlow
