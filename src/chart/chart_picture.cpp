#include "chart/chart_picture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "base/text.h"
#include "chart/scale_labels.h"
#include "chart/series_tables.h"

namespace brantlow {

namespace {

// Left of the panels stand the values of their scales, right of them the names of their series. The left
// column grows with its longest value, within reason.
constexpr double kScaleColumn = 1350;
constexpr double kWidestScaleColumn = 3000;
constexpr double kNameColumn = 2350;
constexpr double kHeaderHeight = 900;
constexpr double kFooterHeight = 450;
constexpr double kPanelGap = 150;
constexpr double kGap = 150;

constexpr double kTextSize = 165;  // 11 pixels
constexpr double kSmallestTextSize = 75;
constexpr double kTitleSize = 270;
constexpr double kMessageSize = 240;
constexpr double kNameSpacing = 300;
// A generous mean width of a letter, and the way from the middle of a line of text to its base line, in
// sizes.
constexpr double kLetterWidth = 0.6;
constexpr double kBaseLineDrop = 0.36;

constexpr std::string_view kNoHistoryText =
    "Data does not exist in the Quote Database for this Ticker Symbol.";

constexpr double PanelY(Panel panel) {
    double y = kHeaderHeight;
    for (std::size_t above = 0; above < static_cast<std::size_t>(panel); ++above) {
        y += PanelHeight(static_cast<Panel>(above)) + kPanelGap;
    }
    return y;
}

constexpr double kFooterY = PanelY(Panel::Volume) + PanelHeight(Panel::Volume) + kGap;
constexpr double kPictureHeight = kFooterY + kFooterHeight - kGap;

// A heading over the price panel and the label whose text stands behind it; x from the panel's left edge.
struct HeaderLabel {
    std::string_view heading;
    std::string_view control;
    double x;
    double valueX;
};

constexpr std::array<HeaderLabel, 5> kHeaderLabels = {{
    {"LastPrice:", "Label59", 2850, 3850},
    {"Date:", "Label60", 5150, 5700},
    {"-", "Label62", 6560, 6680},
    {"PEG:", "Label63", 8050, 8550},
    {"P/E:", "Label64", 9550, 10000},
}};
constexpr double kHeaderY = 450;
// Where the name of the time frame may begin; it ends over the right axis.
constexpr double kTimeFrameX = 11450;

// The text that the last paint gave a label.
std::string LabelText(const ChartSession& chart, std::string_view control) {
    for (const PanelDrawing& drawing : chart.Pictures) {
        for (const PanelLabel& label : drawing.labels) {
            if (label.control == control) return label.text;
        }
    }
    return {};
}

double TextWidth(std::string_view text, double size) {
    return static_cast<double>(text.size()) * kLetterWidth * size;
}

double ScaleColumnOf(const ChartSession& chart) {
    double column = kScaleColumn;
    for (const ScaleLabel& label : kScaleLabels) {
        column = std::max(column, TextWidth(LabelText(chart, label.control), kTextSize) + kGap);
    }
    return std::min(column, kWidestScaleColumn);
}

// `text` without the letters that do not fit in `room` at the smallest size.
std::string Shortened(std::string text, double room) {
    constexpr std::string_view kEllipsis = "\xE2\x80\xA6";
    const auto most = static_cast<std::size_t>(room / (kLetterWidth * kSmallestTextSize));
    if (text.size() <= most) return text;
    std::size_t end = most - 1;
    // Not within a letter of several bytes.
    const auto isInside = [&](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
    while (end > 0 && isInside(text[end])) --end;
    text.erase(end);
    return text.append(kEllipsis);
}

// The picture while it is made. Lines of text are placed by their middle, each within a room.
struct Sheet {
    ChartPicture picture;
    double panelsX;

    double NamesX() const { return panelsX + kPanelWidth + kGap; }

    void Place(PlacedText text, double middleY, double room) {
        text.text = Shortened(DisplayUtf8(text.text), room);
        if (text.text.empty()) return;
        text.size *= std::min(1.0, room / TextWidth(text.text, text.size));
        text.y = middleY + text.size * kBaseLineDrop;
        picture.texts.push_back(std::move(text));
    }
};

void PlacePanels(const ChartSession& chart, Sheet& sheet) {
    for (const Panel panel : {Panel::Price, Panel::Study, Panel::Volume}) {
        sheet.picture.panels.push_back(
            {&chart.Picture(panel), sheet.panelsX, PanelY(panel), kPanelWidth, PanelHeight(panel)});
    }
}

void PlaceHeader(const ChartSession& chart, Sheet& sheet) {
    sheet.Place(
        {LabelText(chart, "Label58"), sheet.panelsX + kPanelLeft, 0, TextAlign::Left, kTitleSize, true},
        kHeaderY, kHeaderLabels[0].x - kGap);
    for (std::size_t i = 0; i < kHeaderLabels.size(); ++i) {
        const HeaderLabel& label = kHeaderLabels[i];
        const double end = i + 1 < kHeaderLabels.size() ? kHeaderLabels[i + 1].x : kTimeFrameX;
        sheet.Place({std::string(label.heading), sheet.panelsX + label.x, 0, TextAlign::Left, kTextSize,
                     false, kQuietText},
                    kHeaderY, label.valueX - label.x);
        sheet.Place({LabelText(chart, label.control), sheet.panelsX + label.valueX, 0, TextAlign::Left,
                     kTextSize, true},
                    kHeaderY, end - label.valueX);
    }
    sheet.Place({std::string(TimeFrameName(chart.ChartTimeFrame)), sheet.panelsX + kPanelRight, 0,
                 TextAlign::Right, kTextSize, true},
                kHeaderY, kPanelRight - kTimeFrameX);
}

void PlaceScales(const ChartSession& chart, Sheet& sheet) {
    for (const ScaleLabel& label : kScaleLabels) {
        const PanelForm& form = FormOf(label.panel);
        const double y = PanelY(label.panel) + form.topY + label.share * form.Height();
        sheet.Place({LabelText(chart, label.control), sheet.panelsX, 0, TextAlign::Right, kTextSize}, y,
                    sheet.panelsX - kGap);
    }
}

// The nth name beside a panel.
void PlaceName(std::string text, Rgb colour, Panel panel, std::size_t n, Sheet& sheet) {
    const double y = PanelY(panel) + FormOf(panel).topY + kNameSpacing * static_cast<double>(n);
    sheet.Place({std::move(text), sheet.NamesX(), 0, TextAlign::Left, kTextSize, true, colour}, y,
                kNameColumn - kGap);
}

void PlaceSlots(const ChartSession& chart, Sheet& sheet) {
    std::size_t n = 0;
    for (const PanelLabel& label : chart.Picture(Panel::Price).labels) {
        if (label.colour && !label.text.empty()) {
            PlaceName(label.text, *label.colour, Panel::Price, n++, sheet);
        }
    }
}

void PlaceStripNames(const ChartSession& chart, Sheet& sheet) {
    PlaceName(chart.Combo2, kBlack, Panel::Study, 0, sheet);
    // Six names in a strip that is four lines high.
    constexpr std::size_t kNamesAColumn = 4;
    std::size_t n = 0;
    for (const std::string& entry : chart.VolumeSeriesList) {
        if (entry.empty()) continue;
        const double y = PanelY(Panel::Volume) + FormOf(Panel::Volume).topY +
                         kNameSpacing * static_cast<double>(n % kNamesAColumn);
        const double x = sheet.NamesX() + kNameColumn / 2 * static_cast<double>(n / kNamesAColumn);
        sheet.Place({entry, x, 0, TextAlign::Left, kTextSize, true, VolumeSeriesColour(entry)}, y,
                    kNameColumn / 2 - kGap);
        ++n;
    }
}

// Under the bars that they name; the newest one only where it does not run into the oldest.
void PlaceDates(const ChartSession& chart, const WorkingSeries& series, Sheet& sheet) {
    constexpr double kDateRoom = 1200;
    if (series.BarCount == 0) return;
    const double oldestX = sheet.panelsX + BarX(1);
    const double newestX = sheet.panelsX + BarX(series.BarCount);
    sheet.Place({LabelText(chart, "Label60"), oldestX, 0, TextAlign::Left, kTextSize, false, kQuietText},
                kFooterY, kDateRoom);
    if (newestX - oldestX < 2 * kDateRoom) return;
    sheet.Place({LabelText(chart, "Label62"), newestX, 0, TextAlign::Right, kTextSize, false, kQuietText},
                kFooterY, kDateRoom);
}

void PlaceMessage(const std::optional<std::string>& text, Panel panel, Sheet& sheet) {
    if (!text) return;
    const PanelForm& form = FormOf(panel);
    // Between two rules, so that none crosses it.
    const double y = PanelY(panel) + form.topY + form.Height() * (panel == Panel::Price ? 0.375 : 0.5);
    const double size = panel == Panel::Price ? kMessageSize : kTextSize;
    sheet.Place({*text, sheet.panelsX + (kPanelLeft + kPanelRight) / 2, 0, TextAlign::Centre, size, false,
                 kQuietText},
                y, kPanelRight - kPanelLeft);
}

}  // namespace

ChartPicture LayOutPicture(const ChartSession& chart, const WorkingSeries& series) {
    Sheet sheet{{}, ScaleColumnOf(chart)};
    sheet.picture.width = sheet.NamesX() + kNameColumn;
    sheet.picture.height = kPictureHeight;
    PlacePanels(chart, sheet);
    PlaceHeader(chart, sheet);
    PlaceScales(chart, sheet);
    PlaceSlots(chart, sheet);
    PlaceStripNames(chart, sheet);
    PlaceDates(chart, series, sheet);
    const std::optional<std::string> noHistory = EmptyPriceText(series);
    PlaceMessage(noHistory, Panel::Price, sheet);
    if (!noHistory) PlaceMessage(EmptyStudyText(chart), Panel::Study, sheet);
    return std::move(sheet.picture);
}

std::optional<std::string> EmptyPriceText(const WorkingSeries& series) {
    if (series.BarCount > 0) return std::nullopt;
    return std::string(kNoHistoryText);
}

std::optional<std::string> EmptyStudyText(const ChartSession& chart) {
    if (chart.StudyTop >= chart.StudyBottom) return std::nullopt;
    return "No values of " + chart.Combo2;
}

std::string_view TimeFrameName(int timeFrame) {
    if (timeFrame == kWeeklyFrame) return "Weekly";
    return timeFrame == kMonthlyFrame ? "Monthly" : "Daily";
}

Rgb VolumeSeriesColour(std::string_view name) {
    const VolumeSeries* row = RowNamed(kVolumeSeries, name);
    return row == nullptr ? kBlack : row->colour;
}

}  // namespace brantlow
