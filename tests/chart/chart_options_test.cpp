#include "chart/chart_options.h"

#include <gtest/gtest.h>

#include <numeric>

#include "shell/user_store.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

class ChartOptionsKept : public testing::Test {
  protected:
    ChartOptions After(std::string_view text) {
        EXPECT_FALSE(WriteWholeFile(store, std::string(text)));
        return LoadChartOptions(store);
    }

    TempFolder folder;
    Path store = folder / "Brantlow.ini";
};

TEST_F(ChartOptionsKept, ANewInstallationFitsTheChartToItsWindow) {
    const ChartOptions options = LoadChartOptions(store);
    EXPECT_TRUE(options.fitToWindow);
    EXPECT_TRUE(options.timeAxis);
    EXPECT_FALSE(options.roundPrices);
    EXPECT_FALSE(options.grid);
    EXPECT_FALSE(options.wideLines);
    EXPECT_EQ(options.colours, ChartColours::Desktop);
    // 6150, 1220 and 1220 twips.
    EXPECT_NEAR(options.shares[0], 6150.0 / 8590, 1e-12);
    EXPECT_NEAR(options.shares[1], 1220.0 / 8590, 1e-12);
    EXPECT_NEAR(options.shares[2], 1220.0 / 8590, 1e-12);
}

TEST_F(ChartOptionsKept, WhatWasChosenIsReadBack) {
    ChartOptions options;
    options.fitToWindow = false;
    options.timeAxis = false;
    options.roundPrices = options.grid = options.wideLines = true;
    options.colours = ChartColours::Dark;
    options.shares = {0.5, 0.3, 0.2};
    ASSERT_FALSE(SaveChartOptions(store, options));
    ChartOptions read = LoadChartOptions(store);
    EXPECT_EQ(GetSetting(store, "Chart", "Palette", ""), "Dark");
    for (std::size_t i = 0; i < read.shares.size(); ++i)
        EXPECT_NEAR(read.shares[i], options.shares[i], 1e-12);
    read.shares = options.shares;
    EXPECT_EQ(read, options);
}

TEST_F(ChartOptionsKept, EachChoiceOfColoursIsReadBack) {
    using Row = std::pair<ChartColours, const char*>;
    for (const auto& [colours, kept] :
         {Row{ChartColours::Standard, "Standard"}, Row{ChartColours::Distinct, "Distinct"},
          Row{ChartColours::Dark, "Dark"}, Row{ChartColours::Desktop, "Desktop"}}) {
        ChartOptions options;
        options.colours = colours;
        ASSERT_FALSE(SaveChartOptions(store, options));
        EXPECT_EQ(LoadChartOptions(store).colours, colours);
        EXPECT_EQ(After(std::string("[Chart]\nPalette=") + kept + "\n").colours, colours);
    }
}

TEST(ColoursOfTheDesktop, AreDarkOnADarkDesktopWhereTheChartFitsItsWindow) {
    ChartOptions options;
    EXPECT_EQ(&options.Palette(), &PaletteOf(ChartColours::Standard));
    options.isDarkDesktop = true;
    EXPECT_EQ(&options.Palette(), &PaletteOf(ChartColours::Dark));
    options.fitToWindow = false;
    EXPECT_EQ(&options.Palette(), &PaletteOf(ChartColours::Standard));
    options.fitToWindow = true;
    options.colours = ChartColours::Distinct;
    EXPECT_EQ(&options.Palette(), &PaletteOf(ChartColours::Distinct));
}

TEST_F(ChartOptionsKept, OnlyWhatDiffersIsWritten) {
    ASSERT_FALSE(SaveChartOptions(store, {}));
    EXPECT_FALSE(std::filesystem::exists(store));
    ChartOptions options;
    options.fitToWindow = false;
    ASSERT_FALSE(SaveChartOptions(store, options));
    EXPECT_EQ(BytesOrEmpty(store), "[Chart]\r\nFitToWindow=0\r\n");
    ASSERT_FALSE(SaveSetting(store, "UsersForum", "Name", "me"));
    ASSERT_FALSE(SaveChartOptions(store, {}));
    EXPECT_EQ(BytesOrEmpty(store), "[Chart]\r\nFitToWindow=1\r\n\r\n[UsersForum]\r\nName=me\r\n");
}

TEST_F(ChartOptionsKept, WhatCannotBeReadIsAsInANewInstallation) {
    const std::string_view texts[] = {
        "[Chart]\nFitToWindow=\n",
        "[Chart]\nFitToWindow=yes\n",
        "[Other]\nFitToWindow=0\n",
        "[Chart]\nPalette=dark\n",
        "[Chart]\nGrid=2\nWideLines=\nTimeAxis=-1\n",
        "[Chart]\nStudyShare=much\n",
        "[Chart]\nStudyShare=0.01\n",
        "[Chart]\nStudyShare=-0.3\n",
        "[Chart]\nStudyShare=0.5\nVolumeShare=0.5\n",
        "[Chart]\nStudyShare=1e300\n",
        "[Chart]\nStudyShare=nan\n",
        "\xff\xfe[Chart]",
    };
    for (const std::string_view text : texts) EXPECT_EQ(After(text), ChartOptions()) << text;
}

TEST_F(ChartOptionsKept, AStoreThatCannotBeWrittenIsTold) {
    std::filesystem::create_directories(store);
    ChartOptions options;
    options.fitToWindow = false;
    EXPECT_TRUE(SaveChartOptions(store, options));
}

TEST(PanelBorders, GiveHeightToTheOneAndTakeItFromTheOther) {
    struct Row {
        Panel above;
        double part;
        PanelShares expected;
    };
    const PanelShares start = {0.6, 0.2, 0.2};
    const Row rows[] = {
        {Panel::Price, 0.05, {0.65, 0.15, 0.2}}, {Panel::Price, -0.1, {0.5, 0.3, 0.2}},
        {Panel::Study, 0.1, {0.6, 0.3, 0.1}},    {Panel::Study, -0.05, {0.6, 0.15, 0.25}},
        {Panel::Price, 5, {0.72, 0.08, 0.2}},    {Panel::Price, -5, {0.08, 0.72, 0.2}},
        {Panel::Study, 5, {0.6, 0.32, 0.08}},    {Panel::Study, 0, {0.6, 0.2, 0.2}},
    };
    for (const Row& row : rows) {
        const PanelShares moved = WithBorderMoved(start, row.above, row.part);
        for (std::size_t i = 0; i < moved.size(); ++i) {
            EXPECT_NEAR(moved[i], row.expected[i], 1e-12) << row.part << " of " << i;
        }
    }
}

}  // namespace
}  // namespace brantlow
