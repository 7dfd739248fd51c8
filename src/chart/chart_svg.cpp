#include "chart/chart_svg.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
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

// Narrows the stretch from `first` to `last` of a line to where `start` + t * `way` lies from 0 to `end`.
struct Stretch {
    double first = 0;
    double last = 1;

    void NarrowTo(double start, double way, double end) {
        if (way == 0) {
            if (start < 0 || start > end) last = -1;
            return;
        }
        const double atZero = -start / way;
        const double atEnd = (end - start) / way;
        first = std::max(first, std::min(atZero, atEnd));
        last = std::min(last, std::max(atZero, atEnd));
    }
};

// Cuts off what of `line` is not on the panel; false when nothing of it is.
bool CutToPanel(const PlacedPanel& panel, DrawnLine& line) {
    const ChartPoint from{line.x1, line.y1};
    const ChartPoint way{double{line.x2} - from.x, double{line.y2} - from.y};
    Stretch seen;
    seen.NarrowTo(from.x, way.x, panel.width);
    seen.NarrowTo(from.y, way.y, panel.height);
    if (seen.first > seen.last) return false;
    const auto pointAt = [&](double part) {
        return ChartPoint{from.x + part * way.x, from.y + part * way.y};
    };
    const ChartPoint to{line.x2, line.y2};
    line = LineBetween(seen.first > 0 ? pointAt(seen.first) : from, seen.last < 1 ? pointAt(seen.last) : to,
                       line.colour);
    return true;
}

bool IsOnPanel(const PlacedPanel& panel, ChartPoint point) {
    return point.x >= 0 && point.x <= panel.width && point.y >= 0 && point.y <= panel.height;
}

// The lines of one colour that follow one another become one path. What lies off the panel is left out here,
// since not every viewer of such files can clip.
class ItemWriter {
  public:
    ItemWriter(const PlacedPanel& panel, std::string& svg) : panel_(panel), svg_(svg) {}

    void operator()(DrawnLine line) {
        if (!CutToPanel(panel_, line)) return;
        const bool sameColour = pathIsOpen_ && line.colour == last_.colour;
        if (!sameColour) OpenPath(line.colour);
        if (!sameColour || line.x1 != last_.x2 || line.y1 != last_.y2) AppendPoint('M', line.x1, line.y1);
        AppendPoint('L', line.x2, line.y2);
        last_ = line;
    }

    void operator()(const DrawnCircle& circle) {
        ClosePath();
        if (!IsOnPanel(panel_, {circle.x, circle.y})) return;
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
        svg_ += fmt::format("<path stroke=\"{}\" d=\"", HexOf(colour));
        pathIsOpen_ = true;
    }
    void AppendPoint(char command, float x, float y) {
        svg_ += fmt::format("{}{} {}", command, LengthOf(x), LengthOf(y));
    }

    const PlacedPanel& panel_;
    std::string& svg_;
    bool pathIsOpen_ = false;
    DrawnLine last_;
};

void WritePanel(const PlacedPanel& panel, std::string& svg) {
    svg += fmt::format(
        "<g transform=\"translate({} {})\" fill=\"none\" stroke-width=\"{}\" "
        "shape-rendering=\"crispEdges\">\n",
        LengthOf(panel.x), LengthOf(panel.y), kTwipsPerPixel);
    ItemWriter writer(panel, svg);
    for (const DrawnItem& item : panel.drawing->items) std::visit(writer, item);
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
    std::string svg = fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{}\" height=\"{}\" viewBox=\"0 0 {} {}\">\n"
        "<rect width=\"100%\" height=\"100%\" fill=\"{}\"/>\n",
        LengthOf(picture.width / kTwipsPerPixel), LengthOf(picture.height / kTwipsPerPixel),
        LengthOf(picture.width), LengthOf(picture.height), HexOf(picture.ground));
    for (const PlacedPanel& panel : picture.panels) WritePanel(panel, svg);
    svg += fmt::format("<g font-family=\"{}\">\n", kFont);
    for (const PlacedText& text : picture.texts) WriteText(text, svg);
    svg += "</g>\n</svg>\n";
    return svg;
}

}  // namespace brantlow
