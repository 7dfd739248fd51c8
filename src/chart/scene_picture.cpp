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
// How far letters reach below their line, and the room of round prices, in sizes and in twips.
constexpr double kDescent = 0.3;
constexpr double kLevelRoom = 900;
constexpr double kLevelGap = 60;

// What is on a panel, in the colours in which it is painted, and which of it is wide (PlacedPanel).
struct PaintedItems {
    std::vector<DrawnItem> items;
    std::vector<bool> wide;

    void Add(const DrawnItem& item, bool isWide) {
        items.push_back(item);
        wide.push_back(isWide);
    }
};

PaintedItems PaintedItemsOf(const ChartScene& scene, Panel panel) {
    PaintedItems painted;
    for (const DrawnItem& line : scene.GridLines(panel)) painted.Add(line, false);
    for (DrawnItem item : scene.Items(panel)) {
        MappedColour mapped;
        std::visit(
            [&](auto& drawn) {
                mapped = scene.Colours()(panel, drawn.colour);
                drawn.colour = mapped.colour;
            },
            item);
        painted.Add(item, mapped.isSeries && scene.Options().wideLines);
    }
    if (panel != Panel::Price) return painted;
    // The rings of the chosen one belong to the window.
    for (const DrawnItem& item : scene.Drawn().lines) {
        if (std::holds_alternative<DrawnLine>(item)) painted.Add(item, true);
    }
    return painted;
}

// The texts of the labels as the window shows them.
void ShowLabels(const ChartScene& scene, Panel panel, std::vector<PanelLabel>& labels) {
    const auto legend = SlotLegend(scene.Chart(), scene.BarCount(), scene.Palette());
    for (PanelLabel& label : labels) {
        label.text = scene.HeaderText(label);
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

// Names of series have their colours by now; the rest is ink, or quiet.
Rgb TextColour(const ChartScene& scene, const PlacedText& text, const std::vector<LegendEntry>& volume) {
    const ChartPalette& palette = scene.Palette();
    for (const LegendEntry& entry : volume) {
        if (entry.text == text.text) return entry.colour;
    }
    if (text.colour == kBlack) return palette.ink;
    if (text.colour == kQuietText) return palette.quiet;
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
        // On its place, and not through it.
        const double y = price.y + text.y - kTickTextSize * kDescent;
        picture.texts.push_back(
            {text.text, price.x + text.x, y, TextAlign::Left, kTickTextSize, false, scene.Palette().hand});
    }
}

// Between the price panel and the names of the series, which make room.
void PlaceLevels(const ChartScene& scene, ChartPicture& picture) {
    if (!scene.Options().fitToWindow || !scene.Options().roundPrices || scene.Levels().empty()) return;
    const PlacedPanel& price = picture.panels.front();
    const double right = price.x + price.width;
    for (PlacedText& text : picture.texts) {
        if (text.align == TextAlign::Left && text.x > right) text.x += kLevelRoom;
    }
    picture.width += kLevelRoom;
    for (const RoundLevel& level : scene.Levels()) {
        const double y = price.y + scene.Axis(Panel::Price).Y(level.value) + kTickTextSize * kDescent;
        picture.texts.push_back(
            {level.text, right + kLevelGap, y, TextAlign::Left, kTickTextSize, false, scene.Palette().ink});
    }
}

}  // namespace

std::string SvgOfScene(const ChartScene& scene) {
    ChartSession shown = scene.Chart();
    std::vector<std::vector<bool>> wide;
    for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) {
        PanelDrawing& drawing = shown.Picture(panel);
        PaintedItems painted = PaintedItemsOf(scene, panel);
        drawing.items = std::move(painted.items);
        wide.push_back(std::move(painted.wide));
        ShowLabels(scene, panel, drawing.labels);
    }
    ChartPicture picture = LayOutPicture(shown, scene.Data().series);
    for (std::size_t i = 0; i < wide.size(); ++i) picture.panels[i].wide = std::move(wide[i]);
    picture.ground = scene.Palette().ground;
    const std::vector<LegendEntry> volume = VolumeLegend(scene.Chart(), scene.BarCount(), scene.Palette());
    for (PlacedText& text : picture.texts) text.colour = TextColour(scene, text, volume);
    if (scene.Options().fitToWindow && scene.Options().timeAxis) PlaceTicks(scene, picture);
    PlaceHandTexts(scene, picture);
    PlaceLevels(scene, picture);
    return SvgOf(picture);
}

}  // namespace brantlow
