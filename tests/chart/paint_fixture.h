// A hand-filled chart for the tests of the paint routines: bars whose range is 100 to 200, so that a value v
// of the price panel stands at 50 + 60 * (200 - v).
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "chart/chart_panels.h"
#include "chart/chart_session.h"

namespace brantlow {

inline void PrintTo(const Rgb& colour, std::ostream* out) {
    *out << '(' << int{colour.red} << ", " << int{colour.green} << ", " << int{colour.blue} << ')';
}

inline void PrintTo(const DrawnLine& line, std::ostream* out) {
    *out << line.x1 << ',' << line.y1 << " - " << line.x2 << ',' << line.y2 << ' ';
    PrintTo(line.colour, out);
}

inline void PrintTo(const DrawnCircle& circle, std::ostream* out) {
    *out << "circle " << circle.x << ',' << circle.y << " r " << circle.radius << ' ';
    PrintTo(circle.colour, out);
}

inline constexpr Rgb kTestBlack = {0, 0, 0};

// Lines of every frame that come before anything else is drawn: two left axes, a right one and three rules
// with 631 dashes on each quarter line; three axes and rules less on a strip.
inline constexpr std::size_t kPriceFrameItems = 6 + 2 * 631;
inline constexpr std::size_t kStripFrameItems = 4;

template <typename Item>
std::vector<Item> ItemsFrom(const PanelDrawing& drawing, std::size_t first) {
    std::vector<Item> items;
    for (std::size_t i = first; i < drawing.items.size(); ++i) {
        if (const Item* item = std::get_if<Item>(&drawing.items[i])) items.push_back(*item);
    }
    return items;
}

inline std::vector<DrawnLine> LinesAfterFrame(const PanelDrawing& drawing, std::size_t frameItems) {
    return ItemsFrom<DrawnLine>(drawing, frameItems);
}

inline std::vector<DrawnCircle> CirclesOf(const PanelDrawing& drawing) {
    return ItemsFrom<DrawnCircle>(drawing, 0);
}

inline const PanelLabel* FindLabel(const PanelDrawing& drawing, std::string_view control) {
    for (const PanelLabel& label : drawing.labels) {
        if (label.control == control) return &label;
    }
    return nullptr;
}

inline std::string LabelText(const PanelDrawing& drawing, std::string_view control) {
    const PanelLabel* label = FindLabel(drawing, control);
    return label == nullptr ? "no label " + std::string(control) : label->text;
}

inline Rgb CaptionColour(const PanelDrawing& drawing, std::string_view control) {
    const PanelLabel* label = FindLabel(drawing, control);
    if (label != nullptr && label->colour) return *label->colour;
    ADD_FAILURE() << "no colour of " << control;
    return {9, 9, 9};
}

inline void ExpectLine(const DrawnLine& line, double x1, double y1, double x2, double y2, Rgb colour,
                       const std::string& what) {
    const auto nearTo = [](float got, double expected) {
        return std::abs(double{got} - expected) <= 0.01 + 1e-6 * std::abs(expected);
    };
    EXPECT_TRUE(nearTo(line.x1, x1) && nearTo(line.y1, y1) && nearTo(line.x2, x2) && nearTo(line.y2, y2) &&
                line.colour == colour)
        << what << ": " << testing::PrintToString(line) << " instead of "
        << testing::PrintToString(DrawnLine{static_cast<float>(x1), static_cast<float>(y1),
                                            static_cast<float>(x2), static_cast<float>(y2), colour});
}

class PaintTest : public testing::Test {
  protected:
    PaintTest() {
        SetGraphLine(1, "Default");
        SetGraphLine(9, "None");
        SetGraphLine(10, "None");
        chart.Slots[0] = "Price";
    }

    void SetGraphLine(std::size_t line, std::string_view text) {
        settings.GraphSettings.Set(line, Value::OfText(text));
    }

    // `count` bars from 100 to 200 that close at 150 and open at 140.
    void FillBars(std::size_t count) {
        series.BarCount = series.LastBar = count;
        for (std::size_t i = 1; i <= count; ++i) {
            series.QuoteDate.Set(i, "day " + std::to_string(i));
            series.ClosePrice.Set(i, 150);
            series.OpenPrice.Set(i, 140);
            series.HighPrice.Set(i, 200);
            series.LowPrice.Set(i, 100);
            series.Volume.Set(i, 1000);
        }
    }
    void SetBar(std::size_t i, double open, double high, double low, double close) {
        series.OpenPrice.Set(i, open);
        series.HighPrice.Set(i, high);
        series.LowPrice.Set(i, low);
        series.ClosePrice.Set(i, close);
    }

    PanelDrawing PaintPrice() { return PaintPricePanel(chart, analysis, settings); }
    PanelDrawing PaintStudy(std::string_view study) {
        chart.Combo2 = study;
        return PaintStudyPanel(chart, analysis);
    }

    // x of a bar and y of a price of the range 100 to 200, by hand.
    static double X(std::size_t bar) { return 50 + 45 * static_cast<double>(bar); }
    static double Y(double price) { return 50 + 60 * (200 - price); }

    Analysis analysis;
    WorkingSeries& series = analysis.series;
    Indicators& indicators = analysis.indicators;
    ChartSession chart;
    SettingsTables settings;
};

}  // namespace brantlow
