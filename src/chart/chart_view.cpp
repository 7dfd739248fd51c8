#include "chart/chart_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "chart/panel_paint.h"

namespace brantlow {

namespace {

using Items = std::vector<DrawnItem>;

// The same at every scale, and drawn anew with every step of a drag.
const Items& FrameOf(Panel panel) {
    static const auto kFrames = [] {
        std::array<PanelDrawing, kPanels.size()> drawings;
        const ValueAxis axis;
        for (const Panel of : {Panel::Price, Panel::Study, Panel::Volume})
            DrawFrame(of, PanelPen(drawings[static_cast<std::size_t>(of)], axis));
        return drawings;
    }();
    return kFrames[static_cast<std::size_t>(panel)].items;
}

// Hands the items to `take` but for the frame, which the volume panel draws before each of its series.
template <typename Take>
void WithoutFrame(std::span<const DrawnItem> items, const Items& frame, const Take& take) {
    for (std::size_t i = 0; i < items.size();) {
        const bool isFrame =
            items.size() - i >= frame.size() &&
            std::equal(frame.begin(), frame.end(), items.begin() + static_cast<std::ptrdiff_t>(i));
        if (isFrame) {
            i += frame.size();
        } else {
            take(items[i++]);
        }
    }
}

// A line with x of the panel and y of the list, cut at the two axes; nothing where it lies beyond one.
std::optional<DrawnLine> Across(const DrawnLine& line, ChartView view) {
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

// A circle with x of the panel; nothing where it lies beyond an axis.
std::optional<DrawnCircle> Across(DrawnCircle circle, const ChartView& view) {
    if (double{circle.x} != kAlarmX) circle.x = static_cast<float>(view.FromList(double{circle.x}));
    if (double{circle.x} < kPanelLeft || double{circle.x} > kPanelRight) return std::nullopt;
    return circle;
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
    const Items& frame = FrameOf(panel);
    ViewedPanel viewed{{}, axis};
    viewed.items.reserve(frame.size() + items.size());
    viewed.items.assign(frame.begin(), frame.end());
    SeenHeight height(form);
    // What is seen has the scale across that of the view; the other one is still the list's.
    WithoutFrame(items, frame, [&](const DrawnItem& item) {
        if (const auto* circle = std::get_if<DrawnCircle>(&item)) {
            if (const auto seen = Across(*circle, view)) viewed.items.emplace_back(*seen);
            return;
        }
        const std::optional<DrawnLine> seen = Across(std::get<DrawnLine>(item), view);
        if (!seen) return;
        if (!IsCursor(*seen, form)) height.Take(*seen);
        viewed.items.emplace_back(*seen);
    });
    const Stretch stretch = height.Stretched();
    std::for_each(viewed.items.begin() + static_cast<std::ptrdiff_t>(frame.size()), viewed.items.end(),
                  [&](DrawnItem& item) { StretchItem(item, stretch, form); });
    viewed.axis.top = axis.ValueAt(stretch.from);
    viewed.axis.scale = axis.scale * stretch.scale;
    return viewed;
}

}  // namespace brantlow
