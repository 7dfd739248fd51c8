#include "chart/panel_paint.h"

#include <array>

#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr std::array<double, 3> kMarkRadii = {40, 35, 25};

void DrawAxis(double x, const PanelForm& form, const PanelPen& pen) {
    pen.Line({x, form.topY}, {x, form.bottomY + kAxisOverrun}, kBlack);
}

void DrawRule(double y, const PanelPen& pen) {
    pen.Line({kPanelLeft - kTickLength, y}, {kPanelRight, y}, kBlack);
}

// Dashed rules a quarter of the way down and a quarter of the way up, dash beside dash.
void DrawQuarterLines(const PanelForm& form, const PanelPen& pen) {
    constexpr double kDash = 10;
    for (double x = kPanelLeft; x <= kPanelRight; x += 2 * kDash) {
        for (const double part : {0.25, 0.75}) {
            const double y = form.topY + form.Height() * part;
            pen.Line({x, y}, {x + kDash, y}, kBlack);
        }
    }
}

}  // namespace

void PanelPen::Mark(ChartPoint centre, Rgb colour) const {
    for (const double radius : kMarkRadii) {
        drawing_.items.emplace_back(CircleAround(centre, radius, colour));
    }
}

void DrawFrame(Panel panel, const PanelPen& pen) {
    const PanelForm& form = FormOf(panel);
    DrawAxis(kPanelLeft, form, pen);
    // The price panel's left axis stands in its list twice.
    if (panel == Panel::Price) DrawAxis(kPanelLeft, form, pen);
    DrawAxis(kPanelRight, form, pen);
    DrawRule(form.topY, pen);
    if (panel == Panel::Price) DrawRule(form.topY + form.Height() / 2, pen);
    DrawRule(form.bottomY, pen);
    if (panel == Panel::Price) DrawQuarterLines(form, pen);
}

std::string PlainText(const NumberSeries& series, std::size_t i) {
    if (series.State(i) != ElementState::Written) return {};
    return ShortestNumber(RoundToGeneralForm(series[i]));
}

}  // namespace brantlow
