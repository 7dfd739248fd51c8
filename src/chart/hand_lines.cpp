#include "chart/hand_lines.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr double kRingRadius = 60;
// A price of the pointer has no more decimals.
constexpr int kPriceDecimals = 4;
constexpr double kPullReaches = 1.5;

constexpr ChartBox PanelBox() {
    const PanelForm& form = FormOf(Panel::Price);
    return {kPanelLeft, form.topY, kPanelRight, form.bottomY};
}

// Letters, not bytes.
double LettersOf(std::string_view text) {
    return static_cast<double>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

// How many reaches `at` is from a line.
double DistanceTo(const DrawnLine& line, ChartPoint at, const HandReach& reach) {
    const ChartPoint from{(double{line.x1} - at.x) / reach.across, (double{line.y1} - at.y) / reach.down};
    const ChartPoint way{double{line.x2 - line.x1} / reach.across, double{line.y2 - line.y1} / reach.down};
    const double length = way.x * way.x + way.y * way.y;
    const double part = length > 0 ? std::clamp(-(from.x * way.x + from.y * way.y) / length, 0.0, 1.0) : 0.0;
    return std::hypot(from.x + part * way.x, from.y + part * way.y);
}

}  // namespace

ChartPoint HandSheet::PlaceOf(const HandPoint& point) const {
    return {zoom_.View().X(zoom_.BarOf(point.day)), axis_.Y(point.price)};
}

std::optional<std::size_t> HandSheet::BarAt(double x) const {
    const std::size_t bars = Series().BarCount;
    if (bars == 0) return std::nullopt;
    const ChartView& view = zoom_.View();
    const double bar = std::round((x - kPanelLeft) / view.Spacing()) + static_cast<double>(view.first) - 1;
    return static_cast<std::size_t>(std::clamp(bar, 1.0, static_cast<double>(bars)));
}

std::optional<HandPoint> HandSheet::PointAt(ChartPoint at, const HandReach& reach, bool pull) const {
    const std::optional<std::size_t> bar = BarAt(at.x);
    const std::optional<Date> day = bar ? ParseDate(Series().QuoteDate[*bar]) : std::nullopt;
    const double price = axis_.ValueAt(at.y);
    if (!day || !std::isfinite(price)) return std::nullopt;
    HandPoint point{*day, RoundDecimals(price, kPriceDecimals)};
    if (!pull) return point;
    // As the history has them: a paint stretches highs and lows over gaps.
    const std::vector<BarAsRead>& read = zoom_.Shown().chart.AsRead;
    const bool isRead = *bar < read.size();
    const std::array prices = {isRead ? read[*bar].high : Series().HighPrice[*bar],
                               isRead ? read[*bar].low : Series().LowPrice[*bar], Series().ClosePrice[*bar]};
    double nearest = kPullReaches * reach.down;
    for (const double candidate : prices) {
        const double distance = std::abs(axis_.Y(candidate) - at.y);
        if (!(distance <= nearest)) continue;
        nearest = distance;
        point.price = candidate;
    }
    return point;
}

HandPoint HandSheet::Moved(const HandPoint& point, std::ptrdiff_t bars, double height) const {
    HandPoint moved = point;
    if (bars != 0) {
        const auto bar = static_cast<std::ptrdiff_t>(std::round(zoom_.BarOf(point.day))) + bars;
        moved.day = zoom_.DayOf(bar).value_or(point.day);
    }
    const double price = axis_.ValueAt(axis_.Y(point.price) + height);
    if (height != 0 && std::isfinite(price)) moved.price = RoundDecimals(price, kPriceDecimals);
    return moved;
}

ChartPoint HandSheet::CloseOf(std::size_t bar) const {
    return {zoom_.View().X(static_cast<double>(bar)), axis_.Y(Series().ClosePrice[bar])};
}

std::vector<DrawnLine> HandSheet::LinesOf(const HandDrawing& drawing, Rgb colour) const {
    std::vector<DrawnLine> lines;
    const auto add = [&](ChartPoint from, ChartPoint to) {
        if (const auto seen = CutTo(PanelBox(), LineBetween(from, to, colour))) lines.push_back(*seen);
    };
    if (drawing.kind == HandKind::Text) return lines;
    const ChartPoint first = PlaceOf(drawing.points[0]);
    if (drawing.kind == HandKind::Horizontal) {
        add({kPanelLeft, first.y}, {kPanelRight, first.y});
        return lines;
    }
    ChartPoint from = first;
    ChartPoint to = PlaceOf(drawing.points[1]);
    if (to.x < from.x) std::swap(from, to);
    const double slope = to.x > from.x ? (to.y - from.y) / (to.x - from.x) : 0;
    // On to the right axis; one that goes straight up ends at its second place.
    const bool goesOn = to.x > from.x && to.x < kPanelRight;
    const ChartPoint end = goesOn ? ChartPoint{kPanelRight, to.y + slope * (kPanelRight - to.x)} : to;
    add(from, end);
    if (drawing.kind == HandKind::Channel) {
        const ChartPoint through = PlaceOf(drawing.points[2]);
        const double apart = through.y - (from.y + slope * (through.x - from.x));
        add({from.x, from.y + apart}, {end.x, end.y + apart});
    }
    return lines;
}

HandItems HandSheet::ItemsOf(std::span<const HandDrawing> drawings, std::optional<std::size_t> chosen,
                             Rgb colour) const {
    HandItems items;
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        const HandDrawing& drawing = drawings[i];
        for (const DrawnLine& line : LinesOf(drawing, colour)) items.lines.emplace_back(line);
        if (drawing.kind == HandKind::Text) {
            const ChartPoint at = PlaceOf(drawing.points[0]);
            if (PanelBox().Holds(at)) items.texts.push_back({drawing.text, at.x, at.y});
        }
        if (i != chosen) continue;
        for (const HandPoint& point : drawing.points) {
            const ChartPoint at = PlaceOf(point);
            if (PanelBox().Holds(at)) items.lines.emplace_back(CircleAround(at, kRingRadius, colour));
        }
    }
    return items;
}

bool HandSheet::IsOn(const HandDrawing& drawing, ChartPoint at, const HandReach& reach) const {
    if (drawing.kind == HandKind::Text) {
        const ChartPoint from = PlaceOf(drawing.points[0]);
        const double width = LettersOf(drawing.text) * reach.letter;
        return at.x >= from.x - reach.across && at.x <= from.x + width + reach.across &&
               at.y <= from.y + reach.down && at.y >= from.y - reach.line;
    }
    const std::vector<DrawnLine> lines = LinesOf(drawing, kBlack);
    return std::any_of(lines.begin(), lines.end(),
                       [&](const DrawnLine& line) { return DistanceTo(line, at, reach) <= 1; });
}

}  // namespace brantlow
