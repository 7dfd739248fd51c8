#include "chart/chart_scene.h"

#include <algorithm>
#include <string_view>

#include "base/numbers.h"
#include "chart/chart_picture.h"
#include "chart/panel_paint.h"

namespace brantlow {

namespace {

constexpr std::array kAllPanels = {Panel::Price, Panel::Study, Panel::Volume};

}  // namespace

ChartScene::ChartScene(const ChartContext& context, const ChartOptions& options)
    : options_(options), zoom_(context), colours_(options.Palette(), context.chart) {}

void ChartScene::Update(const AxisRoom& room) {
    // A chart in its own size is always whole.
    if (!options_.fitToWindow) zoom_.Reset();
    colours_ = ColourMap(Palette(), Chart());
    for (const Panel panel : kAllPanels) {
        const auto i = static_cast<std::size_t>(panel);
        axes_[i] = AxisOf(Chart(), panel);
        if (View().IsWhole()) continue;
        viewed_[i] = ViewOf(Chart().Picture(panel).items, panel, axes_[i], View());
        axes_[i] = viewed_[i].axis;
    }
    ticks_.clear();
    levels_.clear();
    if (options_.timeAxis || options_.grid) {
        ticks_ = TimeAxisOf(Data().series.QuoteDate, BarCount(), View(), room.leastGap, room.leastWeekGap);
    }
    if ((options_.roundPrices || options_.grid) && HasScale(Panel::Price)) {
        const ValueAxis& axis = Axis(Panel::Price);
        levels_ = RoundLevels(axis.ValueAt(FormOf(Panel::Price).bottomY), axis.top, room.mostLevels);
    }
    ShowHand();
}

void ChartScene::ShowHand(HandRings rings) {
    drawn_ = {};
    const HandDrawings shown = hand_.Shown();
    if (shown.empty() || !HasScale(Panel::Price)) return;
    const auto chosen = rings == HandRings::OfChosen ? hand_.Chosen() : std::nullopt;
    drawn_ = Sheet().ItemsOf(shown, chosen, Palette().hand);
}

std::span<const DrawnItem> ChartScene::Items(Panel panel) const {
    if (View().IsWhole()) return Chart().Picture(panel).items;
    return viewed_[static_cast<std::size_t>(panel)].items;
}

std::string ChartScene::ScaleText(Panel panel, double share) const {
    const PanelForm& form = FormOf(panel);
    const double value = Axis(panel).ValueAt(form.topY + share * form.Height());
    if (panel == Panel::Volume) return ShortNumber(value);
    return FormatPicture(panel == Panel::Study ? kStudyPicture : kPricePicture, value);
}

std::vector<DrawnItem> ChartScene::GridLines(Panel panel) const {
    std::vector<DrawnItem> lines;
    if (!options_.grid || !options_.fitToWindow) return lines;
    const Rgb colour = Palette().grid;
    const PanelForm& form = FormOf(panel);
    for (const AxisTick& tick : Ticks()) {
        const double x = View().X(static_cast<double>(tick.bar));
        lines.emplace_back(LineBetween({x, form.topY}, {x, form.bottomY}, colour));
    }
    if (panel != Panel::Price) return lines;
    for (const RoundLevel& level : Levels()) {
        const double y = Axis(panel).Y(level.value);
        lines.emplace_back(LineBetween({kPanelLeft, y}, {kPanelRight, y}, colour));
    }
    return lines;
}

std::string ChartScene::HeaderText(const PanelLabel& label) const {
    static constexpr std::array<std::string_view, 6> kOfBars = {"Label59", "Label60", "Label61",
                                                                "Label62", "Label63", "Label64"};
    if (std::find(kOfBars.begin(), kOfBars.end(), label.control) == kOfBars.end()) return label.text;
    if (BarCount() == 0) return {};
    const TextSeries& dates = Data().series.QuoteDate;
    if (!IsOwnWindow() && label.control == "Label60") return dates[View().first];
    if (!IsOwnWindow() && label.control == "Label62") return dates[std::min(View().Last(), BarCount())];
    return label.text;
}

bool ChartScene::HasScale(Panel panel) const {
    if (EmptyPriceText(Data().series)) return false;
    return panel != Panel::Study || !EmptyStudyText(Chart());
}

}  // namespace brantlow
