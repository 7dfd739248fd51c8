#include "chart/chart_svg.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string_view>

#include "shell/display.h"

namespace brantlow {

namespace {

constexpr std::string_view kFont = "Arial, Helvetica, 'Liberation Sans', sans-serif";
constexpr std::array<std::string_view, 3> kAnchors = {"start", "middle", "end"};

std::string HexOf(Rgb colour) {
    return fmt::format("#{:02x}{:02x}{:02x}", colour.red, colour.green, colour.blue);
}

// To a tenth of a twip, which no screen shows.
std::string LengthOf(double twips) {
    constexpr double kParts = 10;
    return fmt::format("{}", std::round(twips * kParts) / kParts);
}

// The lines of one colour and width that follow one another become one path. What lies off the panel is left
// out here, since not every viewer of such files can clip.
class ItemWriter {
  public:
    ItemWriter(const PlacedPanel& panel, std::string& svg)
        : panel_{0, 0, panel.width, panel.height}, svg_(svg) {}

    // What is written from here on is two pixels wide, or one.
    void Widen(bool isWide) {
        if (isWide != isWide_) ClosePath();
        isWide_ = isWide;
    }

    void operator()(const DrawnLine& whole) {
        const std::optional<DrawnLine> seen = CutTo(panel_, whole);
        if (!seen) return;
        const DrawnLine& line = *seen;
        const bool sameColour = pathIsOpen_ && line.colour == last_.colour;
        if (!sameColour) OpenPath(line.colour);
        if (!sameColour || line.x1 != last_.x2 || line.y1 != last_.y2) AppendPoint('M', line.x1, line.y1);
        AppendPoint('L', line.x2, line.y2);
        last_ = line;
    }

    void operator()(const DrawnCircle& circle) {
        ClosePath();
        if (!panel_.Holds({circle.x, circle.y})) return;
        svg_ += fmt::format("<circle cx=\"{}\" cy=\"{}\" r=\"{}\" stroke=\"{}\"/>\n", LengthOf(circle.x),
                            LengthOf(circle.y), LengthOf(circle.radius), HexOf(circle.colour));
    }

    void ClosePath() {
        if (pathIsOpen_) svg_ += "\"/>\n";
        pathIsOpen_ = false;
    }

  private:
    void OpenPath(Rgb colour) {
        ClosePath();
        svg_ += fmt::format("<path stroke=\"{}\"", HexOf(colour));
        if (isWide_) svg_ += fmt::format(" stroke-width=\"{}\"", 2 * kTwipsPerPixel);
        svg_ += " d=\"";
        pathIsOpen_ = true;
    }
    void AppendPoint(char command, float x, float y) {
        svg_ += fmt::format("{}{} {}", command, LengthOf(x), LengthOf(y));
    }

    const ChartBox panel_;
    std::string& svg_;
    bool pathIsOpen_ = false;
    bool isWide_ = false;
    DrawnLine last_;
};

void WritePanel(const PlacedPanel& panel, std::string& svg) {
    svg += fmt::format(
        "<g transform=\"translate({} {})\" fill=\"none\" stroke-width=\"{}\" "
        "shape-rendering=\"crispEdges\">\n",
        LengthOf(panel.x), LengthOf(panel.y), kTwipsPerPixel);
    ItemWriter writer(panel, svg);
    const std::vector<DrawnItem>& items = panel.drawing->items;
    for (std::size_t i = 0; i < items.size(); ++i) {
        writer.Widen(!panel.wide.empty() && panel.wide[i]);
        std::visit(writer, items[i]);
    }
    writer.ClosePath();
    svg += "</g>\n";
}

// Control characters cannot stand in such a file at all.
void AppendEscaped(std::string_view text, std::string& svg) {
    for (const char c : text) {
        switch (c) {
            case '&':
                svg += "&amp;";
                break;
            case '<':
                svg += "&lt;";
                break;
            case '>':
                svg += "&gt;";
                break;
            default:
                svg += static_cast<unsigned char>(c) < ' ' ? '?' : c;
        }
    }
}

void WriteText(const PlacedText& text, std::string& svg) {
    svg += fmt::format("<text x=\"{}\" y=\"{}\" font-size=\"{}\" text-anchor=\"{}\" fill=\"{}\"{}>",
                       LengthOf(text.x), LengthOf(text.y), LengthOf(text.size),
                       kAnchors[static_cast<std::size_t>(text.align)], HexOf(text.colour),
                       text.bold ? " font-weight=\"bold\"" : "");
    AppendEscaped(text.text, svg);
    svg += "</text>\n";
}

}  // namespace

std::string SvgOf(const ChartPicture& picture) {
    // Not every viewer of such files knows a width of 100%.
    std::string svg = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" viewBox=\"0 0 {2} {3}\">\n"
        "<rect width=\"{2}\" height=\"{3}\" fill=\"{4}\"/>\n",
        LengthOf(picture.width / kTwipsPerPixel), LengthOf(picture.height / kTwipsPerPixel),
        LengthOf(picture.width), LengthOf(picture.height), HexOf(picture.ground));
    for (const PlacedPanel& panel : picture.panels) WritePanel(panel, svg);
    svg += fmt::format("<g font-family=\"{}\">\n", kFont);
    for (const PlacedText& text : picture.texts) WriteText(text, svg);
    svg += "</g>\n</svg>\n";
    return svg;
}

}  // namespace brantlow
