#include <algorithm>
#include <span>
#include <vector>

#include "base/text.h"
#include "batch/chart_commands.h"
#include "batch/png_picture.h"
#include "batch/ticker_lines.h"
#include "chart/chart_actions.h"
#include "chart/chart_picture.h"
#include "chart/chart_svg.h"
#include "shell/app_folder.h"

namespace brantlow {

namespace {

struct StyleWord {
    std::string_view argument;
    std::string_view style;
};
constexpr std::array<StyleWord, 2> kStyleWords = {{
    {"default", kDefaultStyle},
    {"candlestick", kCandleStickStyle},
}};

constexpr std::string_view kStandardOut = "-";
constexpr std::string_view kSvgEnding = ".svg";
constexpr std::string_view kPngEnding = ".png";

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

// Whether `file` names a file of this kind; the ending alone is no name.
bool HasEnding(std::string_view file, std::string_view ending) {
    const std::string name = Path(file).filename().string();
    return name.size() > ending.size() && EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

bool IsAmong(std::span<const std::string_view> items, std::string_view name) {
    return std::find(items.begin(), items.end(), name) != items.end();
}

std::vector<std::string> NamesIn(std::string_view list) {
    std::vector<std::string> names;
    for (const std::string_view piece : SplitAt(list, ',')) names.emplace_back(Trim(piece));
    return names;
}

// An empty name leaves its place free.
std::optional<std::string> RefuseNames(std::string_view list, std::span<const std::string_view> items,
                                       std::size_t most) {
    const std::vector<std::string> names = NamesIn(list);
    if (names.size() > most) return "more than " + std::to_string(most) + " series";
    for (const std::string& name : names) {
        if (!name.empty() && !IsAmong(items, name)) return Quoted(name) + " is no series of the panel";
    }
    return std::nullopt;
}

// Puts the names of `option` in the places, if it was given; places behind them become free.
template <std::size_t Count>
void TakeNames(const Arguments& arguments, std::string_view option, std::array<std::string, Count>& places) {
    if (!arguments.Has(option)) return;
    const std::vector<std::string> names = NamesIn(arguments.Text(option));
    places = {};
    std::copy_n(names.begin(), std::min(names.size(), Count), places.begin());
}

std::string StyleOf(const Arguments& arguments) {
    const std::string word = arguments.Text("--style");
    for (const StyleWord& row : kStyleWords) {
        if (row.argument == word) return std::string(row.style);
    }
    return {};
}

Failure DrawChart(BatchCall& call, ChartContext& context) {
    ChartSession& chart = context.chart;
    const Arguments& arguments = call.arguments;
    chart.SelectorTicker = arguments.operands.front();
    chart.ChartStyle = StyleOf(arguments);
    chart.ChartTimeFrame = TimeFrameOf(ChosenInterval(arguments));
    if (Failure failure = ReloadChart(context, Signals::Compute)) return failure;
    PrepareChartWindow(context);
    TakeNames(arguments, "--series", chart.Slots);
    TakeNames(arguments, "--volume", chart.VolumeSeriesList);
    if (arguments.Has("--study")) chart.Combo2 = arguments.Text("--study");
    PaintAllPanels(context);
    return {};
}

// --- the list of lines as JSON ---

void PrintNumbers(std::string_view key, std::initializer_list<double> numbers, JsonLine& line) {
    line.Key(key);
    line.BeginArray();
    for (const double number : numbers) line.Number(number);
    line.EndArray();
}

void PrintRgb(std::string_view key, Rgb colour, JsonLine& line) {
    line.Key(key);
    line.BeginArray();
    for (const unsigned char part : {colour.red, colour.green, colour.blue}) line.Number(part);
    line.EndArray();
}

struct ItemPrinter {
    JsonLine& line;
    void operator()(const DrawnLine& item) const {
        PrintNumbers("line", {item.x1, item.y1, item.x2, item.y2}, line);
        PrintRgb("rgb", item.colour, line);
    }
    void operator()(const DrawnCircle& item) const {
        PrintNumbers("circle", {item.x, item.y, item.radius}, line);
        PrintRgb("rgb", item.colour, line);
    }
};

void PrintItems(const PanelDrawing& drawing, JsonLine& line) {
    line.Key("items");
    line.BeginArray();
    for (const DrawnItem& item : drawing.items) {
        line.BeginObject();
        std::visit(ItemPrinter{line}, item);
        line.EndObject();
    }
    line.EndArray();
}

void PrintLabels(const PanelDrawing& drawing, JsonLine& line) {
    line.Key("labels");
    line.BeginObject();
    for (const PanelLabel& label : drawing.labels) {
        line.Key(label.control);
        line.Text(label.text);
    }
    line.EndObject();
    line.Key("colours");
    line.BeginObject();
    for (const PanelLabel& label : drawing.labels) {
        if (label.colour) PrintRgb(label.control, *label.colour, line);
    }
    line.EndObject();
}

void PrintChart(BatchCall& call, const ChartContext& context) {
    constexpr std::array<std::string_view, kPanels.size()> kNames = {"price", "study", "volume"};
    JsonLine line;
    BeginTicker(line, context.chart.SelectorTicker, ChosenInterval(call.arguments), context.analysis.series);
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        line.Key(kNames[i]);
        line.BeginObject();
        PrintItems(context.chart.Pictures[i], line);
        PrintLabels(context.chart.Pictures[i], line);
        line.EndObject();
    }
    line.EndObject();
    call.out << line.Line() << '\n';
}

ExitStatus WritePicture(BatchCall& call, const ChartContext& context, const std::string& file) {
    const ChartPicture picture = LayOutPicture(context.chart, context.analysis.series);
    std::string bytes;
    if (HasEnding(file, kPngEnding)) {
        PngPicture png = PaintPng(CurrentStartPlaces().executable, picture);
        if (!png.failure.empty())
            return Refuse(call, {.kind = FailureKind::Write, .file = file, .text = png.failure});
        bytes = std::move(png.bytes);
    } else {
        bytes = SvgOf(picture);
    }
    if (const auto error = WriteWholeFile(Path(file), bytes, Flush::Later)) {
        return Refuse(call, FailedTo(FailureKind::Write, file, error));
    }
    return ExitStatus::Done;
}

}  // namespace

std::optional<std::string> RefuseStyle(std::string_view text) {
    for (const StyleWord& row : kStyleWords) {
        if (row.argument == text) return std::nullopt;
    }
    return Quoted(text) + " is neither default nor candlestick";
}

std::optional<std::string> RefusePriceSeries(std::string_view text) {
    return RefuseNames(text, kPriceSeriesItems, kSlotControls.size());
}

std::optional<std::string> RefuseStudy(std::string_view text) {
    if (IsAmong(kStudyItems, text)) return std::nullopt;
    return Quoted(text) + " is no study";
}

std::optional<std::string> RefuseVolumeSeries(std::string_view text) {
    return RefuseNames(text, kVolumeSeriesItems, kVolumeEntries);
}

std::optional<std::string> RefusePicture(std::string_view text) {
    if (text == kStandardOut || HasEnding(text, kSvgEnding) || HasEnding(text, kPngEnding))
        return std::nullopt;
    return Quoted(text) + " does not end in " + std::string(kSvgEnding) + " or " + std::string(kPngEnding);
}

ExitStatus RunChart(BatchCall& call) {
    if (!call.arguments.Has(kOutOption)) return RefuseUsage(call, kOutOption, "missing; a file's name, or -");
    Analysis analysis;
    ChartSession chart;
    ChartContext context{call.session, analysis, chart};
    if (const Failure failure = DrawChart(call, context)) return Refuse(call, failure);
    const std::string out = call.arguments.Text(kOutOption);
    if (out != kStandardOut) return WritePicture(call, context, out);
    PrintChart(call, context);
    return ExitStatus::Done;
}

}  // namespace brantlow
