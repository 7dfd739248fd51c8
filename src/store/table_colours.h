// The colours of the table's cells: which style a cell takes when a table is loaded, and what each style
// looks like. The window draws by StyleColours; the selector run sets the styles of its results.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "base/dates.h"
#include "base/rgb.h"
#include "shell/person.h"
#include "store/quote_table.h"

namespace brantlow {

// How a cell is drawn. Plain is a cell that no rule has touched.
enum class CellStyle : unsigned char {
    Plain,
    Neutral,
    Strong,      // a rising value, a price at its high alarm or 52 week high, an upcoming date
    AtLowAlarm,  // a price at its low alarm
    Weak,        // a falling value, a price at its 52 week low
    NoChange,    // a change of 0: the text fades into the window
    Buy,         // a condition's result
    Sell,
    Hold,
    FadingBuy,       // a Buy while the 15 bar derivative falls
    RecoveringSell,  // a Sell while the 15 bar derivative rises
    EmptyResult,     // a condition without a result
    Rising,          // while quotes come in: a price at its high alarm or year's high, a gain, a near date
    Falling,         // while quotes come in: a loss
};

inline constexpr std::size_t kCellStyleCount = 14;

// Where a colour comes from: the window's own, the system's button face, or the style's RGB.
enum class ColourSource : unsigned char { Window, ButtonFace, Style };

struct Colour {
    ColourSource source = ColourSource::Window;
    Rgb rgb{};
};

struct StyleColours {
    Colour foreground;
    Colour background;
    bool bold = false;
};

const StyleColours& ColoursOf(CellStyle style);

// The style of a selector result: that of Buy, Sell, Hold and of an empty text, nothing for any other text.
std::optional<CellStyle> ResultStyle(std::string_view text);

// The columns that the colouring and the alarm scan look at, found by header text; nothing where the table
// has no such column.
struct ColumnPositions {
    std::optional<std::size_t> LastColumn;
    std::optional<std::size_t> ChangeColumn;
    std::optional<std::size_t> LowColumn;
    std::optional<std::size_t> HighColumn;
    std::optional<std::size_t> XDividendColumn;
    std::optional<std::size_t> HighAlarmColumn;
    std::optional<std::size_t> LowAlarmColumn;
    std::optional<std::size_t> Week52HighColumn;
    std::optional<std::size_t> Week52LowColumn;
};

ColumnPositions LocateColumns(const QuoteTable& table);

// True for a date from `today` on whose year is this one or the next.
bool IsUpcoming(std::string_view dateText, const Date& today);

// Colours a table as it was loaded: quote tables by their prices and dates, selector runs by their results;
// the other kinds stay as they are. A rule whose columns the table does not have is passed over. `progress`
// may be null.
void ColorChange(QuoteTable& table, FileKind kind, const Date& today, Person* progress);

// Colours one row of an end-of-day table by the same rules, after its cells were edited. A row outside the
// table changes nothing.
void ColorQuoteRow(QuoteTable& table, std::size_t row, const Date& today);

}  // namespace brantlow
