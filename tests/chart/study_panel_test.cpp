// Every study by its drawing list.
#include <gmock/gmock.h>

#include <functional>

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

using testing::ElementsAre;

enum class Style { Trend, Sign, TwoTests, Plain, Midline, Band };

struct StudyRow {
    std::string_view name;
    NumberSeries Indicators::*computed;
    NumberSeries Indicators::*subtracted;
    NumberSeries WorkingSeries::*stored;
    std::size_t rangeFrom;  // 0: fixed
    std::size_t drawFrom;
    Style style;
};

constexpr StudyRow kStudyRows[] = {
    {"MLR Der 15", &Indicators::MLRDer15, nullptr, nullptr, 21, 20, Style::Sign},
    {"MLR Der 30", &Indicators::MLRDer30, nullptr, nullptr, 36, 35, Style::Sign},
    {"MLR Der 60", &Indicators::MLRDer60, nullptr, nullptr, 66, 65, Style::Sign},
    {"MLR Der 90", &Indicators::MLRDer90, nullptr, nullptr, 96, 95, Style::Sign},
    {"Momentum 15", &Indicators::Momentum15, nullptr, nullptr, 16, 16, Style::Trend},
    {"Momentum 30", &Indicators::Momentum30, nullptr, nullptr, 31, 31, Style::Trend},
    {"Momentum 60", &Indicators::Momentum60, nullptr, nullptr, 61, 61, Style::Trend},
    {"MLR Dif 15", &Indicators::MLR15, &Indicators::MLR30, nullptr, 31, 31, Style::Trend},
    {"MLR Dif 30", &Indicators::MLR30, &Indicators::MLR60, nullptr, 61, 61, Style::Trend},
    {"MLR Dif 60", &Indicators::MLR60, &Indicators::MLR90, nullptr, 91, 91, Style::Trend},
    {"RSI 15", &Indicators::RSI15, nullptr, nullptr, 0, 16, Style::Band},
    {"RSI 30", &Indicators::RSI30, nullptr, nullptr, 0, 31, Style::Band},
    {"McClellan Osciallator 15", &Indicators::McClellan15, nullptr, nullptr, 31, 31, Style::TwoTests},
    {"McClellan Osciallator 30", &Indicators::McClellan30, nullptr, nullptr, 61, 61, Style::TwoTests},
    {"Stochastics 15", &Indicators::Stochastic15, nullptr, nullptr, 16, 16, Style::Midline},
    {"Stochastics 30", &Indicators::Stochastic30, nullptr, nullptr, 31, 31, Style::Midline},
    {"Stochastics 60", &Indicators::Stochastic60, nullptr, nullptr, 61, 61, Style::Midline},
    {"Stochastics 90", &Indicators::Stochastic90, nullptr, nullptr, 91, 91, Style::Midline},
    {"MACD 15", &Indicators::MACD15, nullptr, nullptr, 17, 31, Style::Trend},
    {"MACD 30", &Indicators::MACD30, nullptr, nullptr, 32, 61, Style::Trend},
    {"Price To Sales", nullptr, nullptr, &WorkingSeries::PriceToSales, 1, 1, Style::Plain},
    {"Price To Earnings", nullptr, nullptr, &WorkingSeries::PERatio, 1, 1, Style::Plain},
    {"Price To Earnings To Growth", nullptr, nullptr, &WorkingSeries::PEGRatio, 1, 1, Style::Plain},
    {"Earnings Per Share est", nullptr, nullptr, &WorkingSeries::EPSest, 1, 1, Style::Plain},
    {"Earnings Per Share ttm", nullptr, nullptr, &WorkingSeries::EPSttm, 1, 1, Style::Plain},
    {"Sales Per Share", &Indicators::SalesPerShare, nullptr, nullptr, 1, 1, Style::Plain},
    {"Earnings To Sales", &Indicators::EarningsPerSales, nullptr, nullptr, 1, 1, Style::Plain},
};

constexpr std::size_t kStudyBars = 120;

class StudyPanel : public PaintTest {
  protected:
    StudyPanel() { FillBars(kStudyBars); }

    // Fills the study with `value(bar)`; what is subtracted is 7 everywhere. Every other array of the pass
    // holds 1111, so that a wrong array shows.
    void Fill(const StudyRow& row, const std::function<double(std::size_t)>& value) {
        for (const NamedIndicator& other : kIndicatorArrays) {
            for (std::size_t i = 0; i <= kStudyBars; ++i) (indicators.*other.array).Set(i, 1111);
        }
        NumberSeries& values = row.stored != nullptr ? series.*row.stored : indicators.*row.computed;
        const double offset = row.subtracted != nullptr ? 7 : 0;
        for (std::size_t i = 0; i <= kStudyBars; ++i) {
            values.Set(i, value(i) + offset);
            if (row.subtracted != nullptr) (indicators.*row.subtracted).Set(i, 7);
        }
    }
    std::vector<DrawnLine> Lines(const StudyRow& row) {
        return LinesAfterFrame(PaintStudy(row.name), kStripFrameItems);
    }

    // y of a study value on the scale from `bottom` to `top`.
    static double StripY(double value, double top, double bottom) {
        return 50 + 1070 / (top - bottom) * (top - value);
    }
};

// From -4 to 4, up and down, with zeros.
double Wave(std::size_t i) {
    constexpr double kSteps[] = {0, 2, 4, 3, -1, -4, -2, -3, 0, 1};
    return kSteps[i % 10];
}

// What one bar of a study adds, told by the colours alone.
std::vector<Rgb> BarColours(Style style, double before, double value) {
    switch (style) {
        case Style::Trend:
            return {value > before ? Rgb{1, 150, 1} : Rgb{150, 10, 10}};
        case Style::Sign:
            return {value > 0 ? Rgb{10, 150, 10} : Rgb{150, 1, 1}};
        case Style::TwoTests:
            if (value > before && value > 0) return {{1, 1, 1}, {1, 150, 1}};
            if (value <= before && value <= 0) return {{1, 1, 1}, {150, 10, 10}};
            return {{1, 1, 1}};
        default:
            return {{1, 1, 1}};
    }
}

TEST_F(StudyPanel, EveryBarStudyDrawsUprightsFromZeroInItsColours) {
    for (const StudyRow& row : kStudyRows) {
        if (row.style == Style::Midline || row.style == Style::Band) continue;
        const std::string name(row.name);
        Fill(row, Wave);
        const std::vector<DrawnLine> lines = Lines(row);
        std::size_t k = 0;
        for (std::size_t i = row.drawFrom; i <= kStudyBars; ++i) {
            for (const Rgb colour : BarColours(row.style, Wave(i - 1), Wave(i))) {
                ASSERT_LT(k, lines.size()) << name;
                // The range is -4 to 4, so that 0 stands in the middle at 585.
                ExpectLine(lines[k++], X(i), 585, X(i), StripY(Wave(i), 4, -4), colour,
                           name + " at bar " + std::to_string(i));
            }
        }
        EXPECT_EQ(k, lines.size()) << name;
    }
}

TEST_F(StudyPanel, EveryStudysScaleCountsFromItsBarOn) {
    for (const StudyRow& row : kStudyRows) {
        if (row.rangeFrom == 0) continue;
        const std::size_t from = row.rangeFrom;
        Fill(row, [from](std::size_t i) { return i < from ? 50 : i == from ? 9 : i == kStudyBars ? -3 : 1; });
        PaintStudy(row.name);
        EXPECT_EQ(chart.StudyTop, 9) << row.name;
        EXPECT_EQ(chart.StudyBottom, -3) << row.name;
        EXPECT_DOUBLE_EQ(chart.StudyScale, 1070.0 / 12) << row.name;
    }
}

TEST_F(StudyPanel, MidlineStudiesDrawTheMidlineAndUprightsFromIt) {
    // A scale from 0 to 1: y(0.5) is 585.
    const auto value = [](std::size_t i) {
        constexpr double kSteps[] = {0, 0.25, 0.5, 0.75, 1};
        return kSteps[i % 5];
    };
    for (const StudyRow& row : kStudyRows) {
        if (row.style != Style::Midline) continue;
        const std::string name(row.name);
        Fill(row, value);
        const std::vector<DrawnLine> lines = Lines(row);
        // The midline of 15 bars begins at the left axis, the others where their bars begin.
        const std::size_t midlineFrom = row.name == "Stochastics 15" ? 1 : row.drawFrom;
        std::size_t k = 0;
        for (std::size_t i = midlineFrom; i <= kStudyBars; ++i) {
            ASSERT_LT(k, lines.size()) << name;
            ExpectLine(lines[k++], X(i - 1), 585, X(i), 585, kTestBlack, name + " midline");
            if (i < row.drawFrom) continue;
            ASSERT_LT(k, lines.size()) << name;
            const Rgb colour = value(i) > 0.5 ? Rgb{1, 150, 1} : Rgb{150, 10, 10};
            ExpectLine(lines[k++], X(i), 585, X(i), StripY(value(i), 1, 0), colour, name);
        }
        EXPECT_EQ(k, lines.size()) << name;
    }
}

TEST_F(StudyPanel, TheMidlineOf15BarsStartsAtTheLeftAxis) {
    Fill(kStudyRows[14], [](std::size_t i) { return i % 2 == 0 ? 0.0 : 1.0; });
    const std::vector<DrawnLine> lines = Lines(kStudyRows[14]);
    ExpectLine(lines.at(0), 50, 585, 95, 585, kTestBlack, "bar 1");
}

TEST_F(StudyPanel, BandsDrawTheirLevelsTheLineAndWhatIsBeyond) {
    struct Levels {
        std::string_view name;
        double upper, lower;
    };
    const auto value = [](std::size_t i) {
        constexpr double kSteps[] = {50, 70, 90, 40, 30, 10, 65, 35};
        return kSteps[i % 8];
    };
    for (const Levels& levels : {Levels{"RSI 15", 70, 30}, Levels{"RSI 30", 65, 35}}) {
        const StudyRow& row = levels.name == "RSI 15" ? kStudyRows[10] : kStudyRows[11];
        const std::string name(levels.name);
        Fill(row, value);
        const std::vector<DrawnLine> lines = Lines(row);
        const auto y = [](double v) { return StripY(v, 100, 0); };
        std::size_t k = 0;
        for (std::size_t i = 1; i <= kStudyBars; ++i) {
            ASSERT_LT(k + 1, lines.size()) << name;
            ExpectLine(lines[k++], X(i - 1), y(levels.upper), X(i), y(levels.upper), {1, 1, 1}, name);
            ExpectLine(lines[k++], X(i - 1), y(levels.lower), X(i), y(levels.lower), {1, 1, 1}, name);
            if (i < row.drawFrom) continue;
            ASSERT_LT(k, lines.size()) << name;
            ExpectLine(lines[k++], X(i - 1), y(value(i - 1)), X(i), y(value(i)), {1, 1, 1}, name);
            if (value(i) > levels.lower && value(i) < levels.upper) continue;
            ASSERT_LT(k, lines.size()) << name;
            const bool low = value(i) <= levels.lower;
            ExpectLine(lines[k++], X(i), y(low ? levels.lower : levels.upper), X(i), y(value(i)),
                       low ? Rgb{1, 150, 1} : Rgb{150, 10, 10}, name);
        }
        EXPECT_EQ(k, lines.size()) << name;
        EXPECT_EQ(chart.StudyTop, 100);
        EXPECT_EQ(chart.StudyBottom, 0);
    }
}

TEST_F(StudyPanel, ThePickListHoldsEveryStudyOnce) {
    std::vector<std::string_view> names;
    for (const StudyRow& row : kStudyRows) names.push_back(row.name);
    EXPECT_EQ(std::vector<std::string_view>(kStudyItems.begin(), kStudyItems.end()), names);
    EXPECT_EQ(ChartSession().Combo2, "MLR Der 30");
}

TEST_F(StudyPanel, EveryStudysReadOutIsItsSeriesButFor90Bars) {
    for (const StudyRow& row : kStudyRows) {
        Fill(row, Wave);
        if (row.name == "Stochastics 90") {
            for (std::size_t i = 0; i <= kStudyBars; ++i) {
                indicators.Stochastic60.Set(i, 600 + static_cast<double>(i));
            }
        }
        PaintStudy(row.name);
        for (std::size_t i = 1; i <= kStudyBars; ++i) {
            const double expected = row.name == "Stochastics 90" ? 600 + static_cast<double>(i) : Wave(i);
            ASSERT_EQ(chart.StudyReadout[i], expected) << row.name << " at bar " << i;
        }
    }
}

TEST_F(StudyPanel, FrameIsTwoAxesAndTwoRules) {
    const std::vector<DrawnLine> lines = ItemsFrom<DrawnLine>(PaintStudy("nothing of this name"), 0);
    EXPECT_THAT(
        lines,
        ElementsAre(DrawnLine{50, 50, 50, 1170, kTestBlack}, DrawnLine{12650, 50, 12650, 1170, kTestBlack},
                    DrawnLine{25, 50, 12650, 50, kTestBlack}, DrawnLine{25, 1120, 12650, 1120, kTestBlack}));
}

TEST_F(StudyPanel, LabelsShowTheBoundsWithFourDecimals) {
    Fill(kStudyRows[4], [](std::size_t i) { return i % 2 == 0 ? -0.12345 : 12.5; });
    const PanelDrawing drawing = PaintStudy("Momentum 15");
    EXPECT_EQ(LabelText(drawing, "Label54"), "12.5000");
    EXPECT_EQ(LabelText(drawing, "Label55"), "-0.1235");
}

TEST_F(StudyPanel, AFlatStudyStandsBetweenZeroAndOne) {
    Fill(kStudyRows[4], [](std::size_t) { return 3.0; });
    const PanelDrawing drawing = PaintStudy("Momentum 15");
    EXPECT_EQ(LabelText(drawing, "Label54"), "1.0000");
    EXPECT_EQ(LabelText(drawing, "Label55"), "0.0000");
    EXPECT_EQ(chart.StudyScale, 1070);
}

TEST_F(StudyPanel, AFallingMomentumAboveZeroIsRedAndUpward) {
    Fill(kStudyRows[4], [](std::size_t i) { return i == kStudyBars ? 1.0 : 2.0; });
    indicators.Momentum15.Set(50, -2);
    const DrawnLine line = Lines(kStudyRows[4]).back();
    ExpectLine(line, X(kStudyBars), 585, X(kStudyBars), 317.5, {150, 10, 10}, "Momentum 15");
}

TEST_F(StudyPanel, AMcClellanThatRisesBelowZeroIsBlack) {
    Fill(kStudyRows[12], [](std::size_t i) { return i == kStudyBars ? -1.0 : -2.0; });
    indicators.McClellan15.Set(50, 2);
    EXPECT_EQ(Lines(kStudyRows[12]).back().colour, (Rgb{1, 1, 1}));
}

TEST_F(StudyPanel, MacdWidensItsScaleBeforeItIsDrawn) {
    Fill(kStudyRows[18], [](std::size_t i) { return i == 17 ? 40.0 : i % 2 == 0 ? 1.0 : -1.0; });
    const std::vector<DrawnLine> lines = Lines(kStudyRows[18]);
    EXPECT_EQ(chart.StudyTop, 40);
    ASSERT_EQ(lines.size(), kStudyBars - 30);
    EXPECT_EQ(lines.front().x1, 50 + 45 * 31);
}

TEST_F(StudyPanel, TooFewBarsLeaveTheBoundsAsTheyStart) {
    Fill(kStudyRows[4], Wave);
    series.BarCount = 15;
    const PanelDrawing drawing = PaintStudy("Momentum 15");
    EXPECT_EQ(LabelText(drawing, "Label54"), "-900000000000000000000.0000");
    EXPECT_EQ(LabelText(drawing, "Label55"), "900000000000000000000.0000");
    EXPECT_EQ(drawing.items.size(), kStripFrameItems);
}

TEST_F(StudyPanel, BarsWithoutAnyValueCollapseToALine) {
    // Sales per share are never written without fundamentals. y(0) is 50 + 1070 / 2.
    const std::vector<DrawnLine> lines = LinesAfterFrame(PaintStudy("Sales Per Share"), kStripFrameItems);
    ASSERT_EQ(lines.size(), kStudyBars);
    ExpectLine(lines[0], 95, 585, 95, 585, {1, 1, 1}, "bar 1");
}

TEST_F(StudyPanel, AnElementNeverWrittenAddsNothingToTheRangeAndIsDrawnToZero) {
    for (std::size_t i = 2; i <= kStudyBars; ++i) indicators.SalesPerShare.Set(i, i % 2 == 0 ? 3 : 5);
    const std::vector<DrawnLine> lines = LinesAfterFrame(PaintStudy("Sales Per Share"), kStripFrameItems);
    EXPECT_EQ(chart.StudyTop, 5);
    EXPECT_EQ(chart.StudyBottom, 3);
    // y(0) = 50 + 535 * 5, below the strip.
    ExpectLine(lines.at(0), 95, 2725, 95, 2725, {1, 1, 1}, "bar 1");
    EXPECT_NE(chart.StudyReadout.State(1), ElementState::Written);
}

}  // namespace
}  // namespace brantlow
