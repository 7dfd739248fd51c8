#include "chart/scene_picture.h"

#include <algorithm>
#include <utility>

#include "chart/chart_picture.h"
#include "chart/chart_svg.h"
#include "chart/scale_labels.h"

namespace brantlow {

namespace {

constexpr double kTickTextSize = 165;
constexpr double kTickDrop = 300;

// What is on a panel, in the colours in which it is painted.
std::vector<DrawnItem> PaintedItems(const ChartScene& scene, Panel panel) {
    const std::span<const DrawnItem> items = scene.Items(panel);
    std::vector<DrawnItem> painted(items.begin(), items.end());
    for (DrawnItem& item : painted) {
        std::visit([&](auto& drawn) { drawn.colour = scene.Colours()(panel, drawn.colour).colour; }, item);
    }
    if (panel != Panel::Price) return painted;
    // The rings of the chosen one belong to the window.
    for (const DrawnItem& item : scene.Drawn().lines) {
        if (std::holds_alternative<DrawnLine>(item)) painted.push_back(item);
    }
    return painted;
}

// The texts of the labels as the window shows them.
void ShowLabels(const ChartScene& scene, Panel panel, std::vector<PanelLabel>& labels) {
    const auto legend = SlotLegend(scene.Chart(), scene.BarCount(), scene.Palette());
    for (PanelLabel& label : labels) {
        const auto slot = std::find(kSlotControls.begin(), kSlotControls.end(), label.control);
        if (slot != kSlotControls.end())
            label.colour = legend[static_cast<std::size_t>(slot - kSlotControls.begin())].colour;
        if (scene.View().IsWhole() && panel != Panel::Volume) continue;
        for (const ScaleLabel& row : kScaleLabels) {
            if (row.control == label.control) label.text = scene.ScaleText(row.panel, row.share);
        }
    }
    if (scene.HasScale(panel)) return;
    for (PanelLabel& label : labels) {
        const bool isScale = std::any_of(kScaleLabels.begin(), kScaleLabels.end(),
                                         [&](const ScaleLabel& row) { return row.control == label.control; });
        if (isScale) label.text.clear();
    }
}

// Names of series have their colours by now; the rest is ink, in the standard palette as it was laid out.
Rgb TextColour(const ChartScene& scene, const PlacedText& text, const std::vector<LegendEntry>& volume) {
    const ChartPalette& palette = scene.Palette();
    for (const LegendEntry& entry : volume) {
        if (entry.text == text.text) return entry.colour;
    }
    if (text.colour == kBlack) return palette.ink;
    return palette.ownColours ? Legible(text.colour, palette.ground) : text.colour;
}

// In place of the two dates of a whole window.
void PlaceTicks(const ChartScene& scene, ChartPicture& picture) {
    const PlacedPanel& volume = picture.panels.back();
    const double below = volume.y + volume.height;
    std::erase_if(picture.texts, [&](const PlacedText& text) { return text.y > below; });
    for (const AxisTick& tick : scene.Ticks()) {
        const double x = volume.x + scene.View().X(static_cast<double>(tick.bar));
        picture.texts.push_back(
            {tick.text, x, below + kTickDrop, TextAlign::Centre, kTickTextSize, false, scene.Palette().ink});
    }
}

void PlaceHandTexts(const ChartScene& scene, ChartPicture& picture) {
    const PlacedPanel& price = picture.panels.front();
    for (const HandText& text : scene.Drawn().texts) {
        picture.texts.push_back({text.text, price.x + text.x, price.y + text.y, TextAlign::Left,
                                 kTickTextSize, false, scene.Palette().hand});
    }
}

}  // namespace

std::string SvgOfScene(const ChartScene& scene) {
    ChartSession shown = scene.Chart();
    for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) {
        PanelDrawing& drawing = shown.Picture(panel);
        drawing.items = PaintedItems(scene, panel);
        ShowLabels(scene, panel, drawing.labels);
    }
    ChartPicture picture = LayOutPicture(shown, scene.Data().series);
    picture.ground = scene.Palette().ground;
    const std::vector<LegendEntry> volume = VolumeLegend(scene.Chart(), scene.BarCount(), scene.Palette());
    for (PlacedText& text : picture.texts) text.colour = TextColour(scene, text, volume);
    if (scene.Options().fitToWindow && scene.Options().timeAxis) PlaceTicks(scene, picture);
    PlaceHandTexts(scene, picture);
    return SvgOf(picture);
}

}  // namespace brantlow
