// Every series of the volume panel by its drawing list.
#include <gmock/gmock.h>

#include "chart/paint_fixture.h"

namespace brantlow {
namespace {

using testing::ElementsAre;

constexpr std::size_t kVolumeBars = 60;

// Volumes of 1000 at bar 1 and 2000 elsewhere, so that a volume v stands at 50 + 1.07 * (2000 - v).
class VolumePanel : public PaintTest {
  protected:
    VolumePanel() {
        FillBars(kVolumeBars);
        for (std::size_t i = 2; i <= kVolumeBars; ++i) series.Volume.Set(i, 2000);
        indicators.MaxVolume = 2000;
    }
    PanelDrawing Paint(std::vector<std::string> entries) {
        entries.resize(kVolumeEntries);
        std::copy(entries.begin(), entries.end(), chart.VolumeSeriesList.begin());
        return PaintVolumePanel(chart, analysis);
    }
    // Without the frame, which every entry draws.
    std::vector<DrawnLine> Lines(const std::vector<std::string>& entries) {
        return WithoutFrames(Paint(entries));
    }
    static std::vector<DrawnLine> WithoutFrames(const PanelDrawing& drawing) {
        std::vector<DrawnLine> lines = ItemsFrom<DrawnLine>(drawing, 0);
        std::erase_if(lines, [](const DrawnLine& line) {
            const bool isAxis = line.x1 == line.x2 && line.y1 == 50 && line.y2 == 1170;
            const bool isRule = line.x1 == 25 && line.x2 == 12650;
            return isAxis || isRule;
        });
        return lines;
    }
    static double VolumeY(double volume) { return 50 + 1.07 * (2000 - volume); }
};

TEST_F(VolumePanel, BarsStandOnTheBottomLineAndTakeTheirColourFromTheClose) {
    series.ClosePrice.Set(2, 160);
    series.ClosePrice.Set(3, 160);
    series.ClosePrice.Set(4, 150);
    const std::vector<DrawnLine> lines = Lines({"Volume"});
    ASSERT_EQ(lines.size(), kVolumeBars);
    ExpectLine(lines[0], 95, 1120, 95, 1120, {10, 150, 10}, "bar 1 rises from nothing");
    ExpectLine(lines[1], 140, 50, 140, 1120, {10, 150, 10}, "bar 2");
    ExpectLine(lines[2], 185, 50, 185, 1120, kTestBlack, "bar 3");
    ExpectLine(lines[3], 230, 50, 230, 1120, {150, 10, 10}, "bar 4");
}

TEST_F(VolumePanel, TheFirstBarComparesWithElementZeroWhateverItHolds) {
    series.ClosePrice.Set(0, 170);
    EXPECT_EQ(Lines({"Volume"})[0].colour, (Rgb{150, 10, 10}));
    series.ClosePrice.Set(0, 150);
    EXPECT_EQ(Lines({"Volume"})[0].colour, kTestBlack);
}

TEST_F(VolumePanel, AverageIsALevelFromTheLeftAxis) {
    indicators.AverageVolume = 1500;
    const std::vector<DrawnLine> lines = Lines({"Average"});
    ASSERT_EQ(lines.size(), kVolumeBars);
    for (std::size_t i = 1; i <= kVolumeBars; ++i) {
        ExpectLine(lines[i - 1], X(i - 1), 585, X(i), 585, {1, 1, 1}, "bar " + std::to_string(i));
    }
}

TEST_F(VolumePanel, RegressionLinesGoFromTheFirstToTheNewestBar) {
    struct Row {
        const char* name;
        double offset;
        Rgb colour;
    };
    indicators.LRVolume.Set(1, 1200);
    indicators.LRVolume.Set(kVolumeBars, 1300);
    indicators.VolumeLooseUCL = 400;
    indicators.VolumeTightUCL = 250;
    for (const Row& row : {Row{"LR", 0, {255, 180, 55}}, Row{"L. UCL", 400, {55, 80, 255}},
                           Row{"T. UCL", 250, {55, 50, 125}}}) {
        const std::vector<DrawnLine> lines = Lines({row.name});
        ASSERT_EQ(lines.size(), 1U) << row.name;
        ExpectLine(lines[0], 95, VolumeY(1200 + row.offset), X(kVolumeBars), VolumeY(1300 + row.offset),
                   row.colour, row.name);
    }
}

TEST_F(VolumePanel, WeightedAveragesHaveSegmentsFromTheirBar) {
    struct Row {
        const char* name;
        NumberSeries Indicators::*array;
        std::size_t from;
        Rgb colour;
    };
    for (const Row& row : {Row{"WMA 15", &Indicators::VolumeWMA15, 16, {255, 40, 80}},
                           Row{"WMA 30", &Indicators::VolumeWMA30, 31, {180, 70, 255}}}) {
        const auto value = [](std::size_t i) { return 1100 + 10 * static_cast<double>(i); };
        for (std::size_t i = 0; i <= kVolumeBars; ++i) (indicators.*row.array).Set(i, value(i));
        const std::vector<DrawnLine> lines = Lines({row.name});
        ASSERT_EQ(lines.size(), kVolumeBars - row.from + 1) << row.name;
        for (std::size_t i = row.from; i <= kVolumeBars; ++i) {
            ExpectLine(lines[i - row.from], X(i - 1), VolumeY(value(i - 1)), X(i), VolumeY(value(i)),
                       row.colour, row.name);
        }
    }
}

TEST_F(VolumePanel, ThePickListHoldsTheSevenSeries) {
    EXPECT_THAT(kVolumeSeriesItems,
                ElementsAre("Volume", "Average", "LR", "L. UCL", "T. UCL", "WMA 15", "WMA 30"));
}

TEST_F(VolumePanel, FrameIsThatOfTheStudyPanel) {
    EXPECT_EQ(ItemsFrom<DrawnLine>(Paint({"unknown"}), 0), ItemsFrom<DrawnLine>(PaintStudy("unknown"), 0));
}

TEST_F(VolumePanel, TheFrameIsDrawnAgainOverTheBarsOfTheEntryBefore) {
    indicators.AverageVolume = 1500;
    const PanelDrawing drawing = Paint({"Volume", "Average", "", "", "", ""});
    ASSERT_EQ(drawing.items.size(), 2 * (kStripFrameItems + kVolumeBars));
    EXPECT_EQ(drawing.items[kStripFrameItems + kVolumeBars],
              DrawnItem(DrawnLine{50, 50, 50, 1170, kTestBlack}));
    EXPECT_EQ(drawing.items[2 * kStripFrameItems + kVolumeBars - 1],
              DrawnItem(DrawnLine{25, 1120, 12650, 1120, kTestBlack}));
}

TEST_F(VolumePanel, LabelsShowTheBoundsAsWholeNumbers) {
    series.Volume.Set(1, 999.6);
    const PanelDrawing drawing = Paint({"Volume"});
    EXPECT_EQ(LabelText(drawing, "Label56"), "2000");
    EXPECT_EQ(LabelText(drawing, "Label57"), "1000");
}

TEST_F(VolumePanel, AVolumeOfZeroLeavesZeroAsTheBottomOnceAndIsOneFromThenOn) {
    series.Volume.Set(5, 0);
    const PanelDrawing first = Paint({"Volume", "Average", "LR"});
    EXPECT_EQ(series.Volume[5], 1);
    // The first entry was drawn from 0 to 2000, the ones behind it from 1.
    const std::vector<DrawnLine> lines = WithoutFrames(first);
    ExpectLine(lines.at(0), 95, 585, 95, 1120, {10, 150, 10}, "bar 1 of 1000");
    EXPECT_EQ(chart.VolumeBottom, 1);
    EXPECT_EQ(LabelText(first, "Label57"), "1");
    const PanelDrawing again = Paint({"Volume"});
    EXPECT_EQ(chart.VolumeBottom, 1);
    EXPECT_EQ(series.Volume[5], 1);
}

TEST_F(VolumePanel, AnEmptyEntryRepeatsTheSeriesBeforeItOnItsOwnScale) {
    EXPECT_EQ(Lines({"Volume", "", "", "", "", ""}).size(), kVolumeBars)
        << "the same lines are not drawn twice";
    series.Volume.Set(5, 0);
    EXPECT_EQ(Lines({"Volume", "", "", "", "", ""}).size(), 2 * kVolumeBars)
        << "the scale changed after the first";
    EXPECT_EQ(chart.Combo3, "Volume");
}

TEST_F(VolumePanel, TheListsTextIsTheLastEntryDrawn) {
    Paint({"Volume", "Average", "WMA 15", ""});
    EXPECT_EQ(chart.Combo3, "WMA 15");
}

TEST_F(VolumePanel, EqualVolumesStandBetweenZeroAndOne) {
    series.Volume.Set(1, 2000);
    const PanelDrawing drawing = Paint({"Volume"});
    EXPECT_EQ(LabelText(drawing, "Label56"), "1");
    EXPECT_EQ(LabelText(drawing, "Label57"), "0");
}

TEST_F(VolumePanel, EntriesAreDrawnInTheirOrder) {
    indicators.AverageVolume = 1500;
    indicators.LRVolume.Set(1, 1200);
    indicators.LRVolume.Set(kVolumeBars, 1300);
    const std::vector<DrawnLine> lines = Lines({"LR", "Average", "Volume"});
    ASSERT_EQ(lines.size(), 1 + 2 * kVolumeBars);
    EXPECT_EQ(lines[0].colour, (Rgb{255, 180, 55}));
    EXPECT_EQ(lines[1].colour, (Rgb{1, 1, 1}));
    EXPECT_EQ(lines.back().y2, 1120);
}

}  // namespace
}  // namespace brantlow
