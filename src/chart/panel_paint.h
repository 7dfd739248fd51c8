// What the three paint routines share: the frame of a panel, lines between points of the chart, number texts.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "chart/drawing.h"
#include "chart/panel_geometry.h"
#include "indicators/number_series.h"

namespace brantlow {

// The number pictures of labels and read-outs.
inline constexpr std::string_view kPricePicture = "########0.00";
inline constexpr std::string_view kStudyPicture = "#0.0000";
inline constexpr std::string_view kVolumePicture = "###########0";
inline constexpr std::string_view kVolumeTipPicture = "########0";

// One bar's value on a panel.
struct BarValue {
    std::size_t bar;
    double value;
};

// Adds lines of one panel to its drawing.
class PanelPen {
  public:
    PanelPen(PanelDrawing& drawing, const ValueAxis& axis) : drawing_(drawing), axis_(axis) {}

    void Line(ChartPoint from, ChartPoint to, Rgb colour) const {
        drawing_.items.emplace_back(LineBetween(from, to, colour));
    }
    // Between the values of two bars.
    void Segment(BarValue from, BarValue to, Rgb colour) const {
        Line({BarX(from.bar), axis_.Y(from.value)}, {BarX(to.bar), axis_.Y(to.value)}, colour);
    }
    // A level from the bar before `bar` to `bar`.
    void LevelAt(std::size_t bar, double level, Rgb colour) const {
        Segment({bar - 1, level}, {bar, level}, colour);
    }
    // At x of `bar`, from one value to the other.
    void Upright(std::size_t bar, double from, double to, Rgb colour) const {
        Segment({bar, from}, {bar, to}, colour);
    }
    void UprightAtY(std::size_t bar, double fromY, double toY, Rgb colour) const {
        Line({BarX(bar), fromY}, {BarX(bar), toY}, colour);
    }
    // The circles of a signal or an alarm, one in the other.
    void Mark(ChartPoint centre, Rgb colour) const;

    double Y(double value) const { return axis_.Y(value); }

  private:
    PanelDrawing& drawing_;
    const ValueAxis& axis_;
};

// The axes and rules of a panel, black.
void DrawFrame(Panel panel, const PanelPen& pen);

// An element as plain text; empty where nothing was written.
std::string PlainText(const NumberSeries& series, std::size_t i);

}  // namespace brantlow
