#include "chart/chart_view.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "chart/panel_paint.h"

namespace brantlow {

namespace {

std::vector<DrawnItem> FrameOf(Panel panel) {
    PanelDrawing drawing;
    const ValueAxis axis;
    DrawFrame(panel, PanelPen(drawing, axis));
    return drawing.items;
}

// The items but for the frame, which the volume panel draws before each of its series.
std::vector<DrawnItem> WithoutFrame(std::span<const DrawnItem> items, std::span<const DrawnItem> frame) {
    std::vector<DrawnItem> left;
    left.reserve(items.size());
    for (std::size_t i = 0; i < items.size();) {
        const bool isFrame =
            items.size() - i >= frame.size() &&
            std::equal(frame.begin(), frame.end(), items.begin() + static_cast<std::ptrdiff_t>(i));
        if (isFrame) {
            i += frame.size();
        } else {
            left.push_back(items[i++]);
        }
    }
    return left;
}

// A line with x of the panel and y of the list, cut at the two axes; nothing where it lies beyond one.
std::optional<DrawnLine> Across(const DrawnLine& line, const ChartView& view) {
    ChartPoint from{view.FromList(double{line.x1}), double{line.y1}};
    ChartPoint to{view.FromList(double{line.x2}), double{line.y2}};
    // What only touches an axis belongs to the bar beyond it.
    if (std::max(from.x, to.x) <= kPanelLeft || std::min(from.x, to.x) >= kPanelRight) return std::nullopt;
    const auto at = [&](double x) {
        return ChartPoint{x, from.y + (to.y - from.y) * (x - from.x) / (to.x - from.x)};
    };
    const ChartPoint cutFrom =
        from.x < kPanelLeft || from.x > kPanelRight ? at(std::clamp(from.x, kPanelLeft, kPanelRight)) : from;
    const ChartPoint cutTo =
        to.x < kPanelLeft || to.x > kPanelRight ? at(std::clamp(to.x, kPanelLeft, kPanelRight)) : to;
    return LineBetween(cutFrom, cutTo, line.colour);
}

// From y of the list to y of the panel.
struct Stretch {
    double from = 0;
    double scale = 1;
    double topY = 0;

    double Y(double y) const { return topY + (y - from) * scale; }
};

// What the lines that are seen take up between top and bottom line.
class SeenHeight {
  public:
    explicit SeenHeight(const PanelForm& form) : form_(form), least_(form.bottomY), most_(form.topY) {}

    void Take(const DrawnLine& line) {
        for (const double y : {double{line.y1}, double{line.y2}}) {
            least_ = std::min(least_, std::max(y, form_.topY));
            most_ = std::max(most_, std::min(y, form_.bottomY));
        }
    }

    // Nothing seen, or all at one height, leaves the scale as it is.
    Stretch Stretched() const {
        constexpr double kLeastHeight = 20;
        if (most_ - least_ < kLeastHeight) return {form_.topY, 1, form_.topY};
        return {least_, form_.Height() / (most_ - least_), form_.topY};
    }

  private:
    const PanelForm& form_;
    double least_;
    double most_;
};

bool IsCursor(const DrawnLine& line, const PanelForm& form) {
    return line.x1 == line.x2 && double{line.y1} == form.topY &&
           double{line.y2} == form.bottomY + kAxisOverrun;
}

// What is seen, with the scale across that of the view and the other one still the list's.
std::vector<DrawnItem> SeenOf(std::span<const DrawnItem> items, const ChartView& view) {
    std::vector<DrawnItem> seen;
    for (const DrawnItem& item : items) {
        if (const auto* line = std::get_if<DrawnLine>(&item)) {
            if (const std::optional<DrawnLine> cut = Across(*line, view)) seen.emplace_back(*cut);
            continue;
        }
        DrawnCircle circle = std::get<DrawnCircle>(item);
        if (double{circle.x} != kAlarmX) circle.x = static_cast<float>(view.FromList(double{circle.x}));
        if (double{circle.x} >= kPanelLeft && double{circle.x} <= kPanelRight) seen.emplace_back(circle);
    }
    return seen;
}

void StretchItem(DrawnItem& item, const Stretch& stretch, const PanelForm& form) {
    if (auto* circle = std::get_if<DrawnCircle>(&item)) {
        // Signals stand at the foot of the panel whatever its scale.
        if (double{circle->y} == form.bottomY && double{circle->x} != kAlarmX) return;
        *circle = CircleAround({double{circle->x}, stretch.Y(double{circle->y})}, double{circle->radius},
                               circle->colour);
        return;
    }
    auto& line = std::get<DrawnLine>(item);
    if (IsCursor(line, form)) return;
    line = LineBetween({double{line.x1}, stretch.Y(double{line.y1})},
                       {double{line.x2}, stretch.Y(double{line.y2})}, line.colour);
}

}  // namespace

std::size_t ChartView::BarAt(double x, std::size_t barCount) const {
    const double bar = std::round((x - kPanelLeft) / Spacing()) + static_cast<double>(first) - 1;
    if (bar < static_cast<double>(first) || bar > static_cast<double>(std::min(Last(), barCount))) return 0;
    return static_cast<std::size_t>(bar);
}

ViewedPanel ViewOf(std::span<const DrawnItem> items, Panel panel, const ValueAxis& axis,
                   const ChartView& view) {
    const PanelForm& form = FormOf(panel);
    ViewedPanel viewed{FrameOf(panel), axis};
    std::vector<DrawnItem> seen = SeenOf(WithoutFrame(items, viewed.items), view);
    SeenHeight height(form);
    for (const DrawnItem& item : seen) {
        const auto* line = std::get_if<DrawnLine>(&item);
        if (line != nullptr && !IsCursor(*line, form)) height.Take(*line);
    }
    const Stretch stretch = height.Stretched();
    for (DrawnItem& item : seen) StretchItem(item, stretch, form);
    viewed.items.insert(viewed.items.end(), seen.begin(), seen.end());
    viewed.axis.top = axis.ValueAt(stretch.from);
    viewed.axis.scale = axis.scale * stretch.scale;
    return viewed;
}

}  // namespace brantlow
