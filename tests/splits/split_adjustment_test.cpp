#include "splits/split_adjustment.h"

#include <filesystem>

#include "base/undo_store.h"
#include "splits/splits_fixture.h"
#include "store/hand_drawings.h"

namespace brantlow {
namespace {

constexpr double kTwoForOne = 2;

class SplitAdjustmentTest : public SplitsFixture {
  protected:
    void SetCloses(const std::vector<double>& closes) {
        for (std::size_t i = 0; i < closes.size(); ++i) series.ClosePrice.Set(i + 1, closes[i]);
        series.BarCount = closes.size();
    }
    SplitAdjustment Adjust(double factor) { return AdjustForSplit(source, place, "ACME", factor, series); }
    // The loader's first row lands where no bar is: a year with this oldest day in front of its days.
    std::string LeadDay() const { return Day("01/02/26", "99", "1"); }
};

TEST_F(SplitAdjustmentTest, HalvesTheDaysBeforeATwoForOneSplitAndDoublesTheirVolumes) {
    Write("ACME.26", LeadDay() + Day("01/05/26", "50", "1000") + Day("01/06/26", "25", "3000"));
    const SplitAdjustment adjustment = Adjust(kTwoForOne);
    EXPECT_EQ(adjustment.SplitIndex, 1U);
    EXPECT_FALSE(adjustment.error);
    EXPECT_EQ(Read("ACME.26"),
              "\"01/05/26\",\"16:00\",25,25,25,2000,11,2,1.5,3,0.25,\"02/01/26\",\"01/15/26\",25,10,40,2.5,"
              "1234.56789,25\r\n"
              "\"01/06/26\",\"16:00\",25,25,25,3000,11,4,1.5,6,0.5,\"02/01/26\",\"01/15/26\",25,20,80,2.5,"
              "1234.56789,25\r\n");
}

TEST_F(SplitAdjustmentTest, ASecondRunFindsNoJumpAndChangesNothing) {
    Write("ACME.26", LeadDay() + Day("01/05/26", "50", "1000") + Day("01/06/26", "25", "3000") +
                         Day("01/07/26", "26", "3000"));
    ASSERT_GT(Adjust(kTwoForOne).SplitIndex, 0U);
    const std::string afterFirst = Read("ACME.26");
    EXPECT_EQ(Adjust(kTwoForOne).SplitIndex, 0U);
    EXPECT_EQ(Read("ACME.26"), afterFirst);
}

TEST_F(SplitAdjustmentTest, ALineThatWasCutOffIsNoDayAndGoesWhereTheHistoryIsRestated) {
    const std::string days = LeadDay() + Day("01/05/26", "50", "1000") + Day("01/06/26", "25", "3000");
    Write("ACME.26", days);
    ASSERT_TRUE(Adjust(kTwoForOne).halfLines.empty());
    const std::string restated = Read("ACME.26");
    // A price that was cut off looks like a split of its own.
    Write("ACME.26", days + "\"01/07/26\",\"16:00\",12");
    const SplitAdjustment adjustment = Adjust(kTwoForOne);
    EXPECT_EQ(adjustment.SplitIndex, 1U);
    EXPECT_EQ(adjustment.halfLines, std::vector<Path>{File("ACME.26")});
    EXPECT_EQ(Read("ACME.26"), restated);
}

TEST_F(SplitAdjustmentTest, ALineThatWasCutOffStaysWhereNothingIsRestated) {
    const std::string days = LeadDay() + Day("01/05/26", "50", "1000") + "\"01/06/26\",\"16:00\",25";
    Write("ACME.26", days);
    EXPECT_EQ(Adjust(kTwoForOne).SplitIndex, 0U);
    EXPECT_EQ(Read("ACME.26"), days);
}

TEST_F(SplitAdjustmentTest, TheLowerBoundBelongsToTheBandTheUpperDoesNot) {
    SetCloses({50, 28});
    EXPECT_EQ(FindSplit(series, kTwoForOne), 0U) << "0.56 is outside";
    SetCloses({50, 22});
    EXPECT_EQ(FindSplit(series, kTwoForOne), 1U) << "0.44 is inside";
}

TEST_F(SplitAdjustmentTest, OnlyTheBandOfTheGivenFactorCounts) {
    SetCloses({100, 36});
    EXPECT_EQ(FindSplit(series, 3), 1U);
    EXPECT_EQ(FindSplit(series, 2.5), 1U);
    EXPECT_EQ(FindSplit(series, 2), 0U);
    EXPECT_EQ(FindSplit(series, 1), 0U);
    EXPECT_EQ(FindSplit(series, 0), 0U);
}

TEST_F(SplitAdjustmentTest, AReverseSplitRaisesThePricesBeforeIt) {
    Write("ACME.26", LeadDay() + Day("01/05/26", "1.5", "1001") + Day("01/06/26", "6", "300"));
    ASSERT_EQ(Adjust(0.25).SplitIndex, 1U);
    EXPECT_THAT(Read("ACME.26"), testing::StartsWith("\"01/05/26\",\"16:00\",6,6,6,250,11,16,1.5,24"));
}

TEST_F(SplitAdjustmentTest, TheMostRecentOfTwoJumpsIsUsedAndTheOlderOneStays) {
    SetCloses({100, 50, 25, 26});
    EXPECT_EQ(FindSplit(series, kTwoForOne), 2U);
    RestateBars(2, kTwoForOne, series);
    EXPECT_EQ(series.ClosePrice[1], 50);
    EXPECT_EQ(series.ClosePrice[2], 25);
    EXPECT_EQ(series.ClosePrice[3], 25);
    EXPECT_EQ(FindSplit(series, kTwoForOne), 1U) << "the older jump waits for the next run";
}

TEST_F(SplitAdjustmentTest, DaysWithoutACloseArePassedOverInTheSearch) {
    SetCloses({50, 0, 25});
    EXPECT_EQ(FindSplit(series, kTwoForOne), 0U);
    SetCloses({50, 25, 0});
    EXPECT_EQ(FindSplit(series, kTwoForOne), 1U);
}

TEST_F(SplitAdjustmentTest, ADayWithoutALastPriceIsDroppedWhenTheFilesAreRewritten) {
    Write("ACME.26", LeadDay() + Day("01/05/26", "0", "7") + Day("01/06/26", "50", "1000") +
                         Day("01/07/26", "25", "3000"));
    ASSERT_EQ(Adjust(kTwoForOne).SplitIndex, 2U);
    const std::string bytes = Read("ACME.26");
    EXPECT_EQ(bytes.find("01/05/26"), std::string::npos);
    EXPECT_EQ(bytes.find("\"01/06/26\",\"16:00\",25,"), 0U);
}

TEST_F(SplitAdjustmentTest, ACloseThatRoundsToZeroIsDroppedInTheSameWay) {
    // 0.004 / 10 is 0.0004; 0.005 / 10 rounds up to 0.001.
    Write("ACME.26", LeadDay() + Day("01/05/26", "0.004", "1") + Day("01/06/26", "0.005", "2") +
                         Day("01/07/26", "0.0005", "30"));
    ASSERT_EQ(Adjust(10).SplitIndex, 2U);
    EXPECT_EQ(Read("ACME.26"),
              "\"01/06/26\",\"16:00\",0.001,0.001,0.001,20,11,0.4,1.5,0.6,0.05,\"02/01/26\",\"01/15/26\","
              "0.001,2,8,2.5,1234.56789,0.001\r\n"
              "\"01/07/26\",\"16:00\",0.001,0.001,0.001,30,11,4,1.5,6,0.5,\"02/01/26\",\"01/15/26\",0.001,20,"
              "80,2.5,1234.56789,0.001\r\n");
}

TEST_F(SplitAdjustmentTest, AWrongFactorLeavesEveryFileAsItWas) {
    const std::string bytes = LeadDay() + Day("01/05/26", "50", "1000") + Day("01/06/26", "25", "3000");
    Write("ACME.26", bytes);
    Write("ACME.01", "older than the loader reads");
    for (const double factor : {3.0, 0.5, 1.0, 0.0, 2.1}) {
        EXPECT_EQ(Adjust(factor).SplitIndex, 0U) << factor;
    }
    EXPECT_EQ(Read("ACME.26"), bytes);
    EXPECT_EQ(Read("ACME.01"), "older than the loader reads");
}

TEST_F(SplitAdjustmentTest, ATickerWithoutFilesIsLeftAlone) {
    EXPECT_EQ(Adjust(kTwoForOne).SplitIndex, 0U);
    EXPECT_TRUE(std::filesystem::is_empty(quoteFolder));
}

TEST_F(SplitAdjustmentTest, ATickerThatIsAPathTouchesNothing) {
    Write("ACME.26", LeadDay() + Day("01/05/26", "50", "1000") + Day("01/06/26", "25", "3000"));
    const std::string before = Read("ACME.26");
    for (const char* ticker : {"../Quotes/ACME", "Quotes/ACME", "", ".", "..", "CON", "aux.x"}) {
        EXPECT_EQ(AdjustForSplit(source, place, ticker, kTwoForOne, series).SplitIndex, 0U) << ticker;
    }
    EXPECT_EQ(Read("ACME.26"), before);
}

TEST_F(SplitAdjustmentTest, TheLastDayOfAnOlderYearAndTheOldestDayOfAllAreGone) {
    Write("ACME.25", Day("12/29/25", "99", "1") + Day("12/30/25", "50", "1000") + Day("12/31/25", "51", "1"));
    Write("ACME.26", Day("01/02/26", "52", "1000") + Day("01/05/26", "26", "3000"));
    Write("ACME.01", Day("12/31/01", "52", "1000"));
    Write("ACME.N", "another ticker's");
    Write("ACMEX.26", "another ticker's");
    ASSERT_EQ(Adjust(kTwoForOne).SplitIndex, 2U);
    EXPECT_EQ(Read("ACME.25"),
              "\"12/30/25\",\"16:00\",25,25,25,2000,11,2,1.5,3,0.25,\"02/01/26\",\"01/15/26\",25,10,40,2.5,"
              "1234.56789,25\r\n");
    EXPECT_THAT(Read("ACME.26"), testing::StartsWith("\"01/02/26\",\"16:00\",26"));
    EXPECT_FALSE(IsRegularFile(File("ACME.01")));
    EXPECT_EQ(Read("ACMEX.26"), "another ticker's");
}

TEST_F(SplitAdjustmentTest, ASplitThatCannotBeKeptForUndoingChangesNothing) {
    Write("ACME.25", Day("12/29/25", "50", "10") + Day("12/30/25", "50", "10") + Day("12/31/25", "50", "10"));
    Write("ACME.26", Day("01/02/26", "50", "1000") + Day("01/05/26", "25", "3000"));
    const std::string year25 = Read("ACME.25");
    const std::string year26 = Read("ACME.26");
    ASSERT_FALSE(WriteWholeFile(folder / "Back Up", "no folder"));
    const SplitAdjustment failed = Adjust(kTwoForOne);
    EXPECT_EQ(failed.error.file, folder / "Back Up/Undo");
    EXPECT_EQ(Read("ACME.25"), year25);
    EXPECT_EQ(Read("ACME.26"), year26);
    EXPECT_EQ(FileNamesIn(quoteFolder), (std::vector<std::string>{"ACME.25", "ACME.26"}));

    std::filesystem::remove(folder / "Back Up");
    const SplitAdjustment repeated = Adjust(kTwoForOne);
    EXPECT_EQ(repeated.SplitIndex, failed.SplitIndex);
    EXPECT_FALSE(repeated.error);
    EXPECT_NE(Read("ACME.25"), year25);
    ASSERT_FALSE(UndoChange(place, "").fault);
    EXPECT_EQ(Read("ACME.25"), year25);
    EXPECT_EQ(Read("ACME.26"), year26);
}

// --- what was drawn by hand ---

class SplitOfDrawingsTest : public SplitAdjustmentTest {
  protected:
    SplitOfDrawingsTest() {
        std::filesystem::create_directories(drawings.parent_path());
        Write("ACME.26", LeadDay() + Day("01/05/26", "50", "1000") + Day("01/06/26", "25", "3000") +
                             Day("01/07/26", "26", "3000"));
    }
    static HandDrawings Line(double before) {
        return {{HandKind::Trend,
                 {{std::chrono::year(2026) / 1 / 5, before}, {std::chrono::year(2026) / 1 / 6, 25}}}};
    }
    void Keep(std::string_view bytes) { ASSERT_FALSE(WriteWholeFile(drawings, bytes, Flush::Later)); }

    const Path drawings = folder / "Data" / "Drawings" / "ACME.json";
};

TEST_F(SplitOfDrawingsTest, AreRestatedOnceWithTheHistoryAndComeBackWithIt) {
    const std::string history = Read("ACME.26");
    Keep(TextOfHandDrawings(Line(50)));
    ASSERT_EQ(Adjust(kTwoForOne).SplitIndex, 1U);
    EXPECT_EQ(BytesOrEmpty(drawings), TextOfHandDrawings(Line(25)));
    ASSERT_EQ(Adjust(kTwoForOne).SplitIndex, 0U);
    EXPECT_EQ(BytesOrEmpty(drawings), TextOfHandDrawings(Line(25)));
    ASSERT_FALSE(UndoChange(place, "").fault);
    EXPECT_EQ(BytesOrEmpty(drawings), TextOfHandDrawings(Line(50)));
    EXPECT_EQ(Read("ACME.26"), history);
}

TEST_F(SplitOfDrawingsTest, ABrokenFileLeavesTheTickerAsItIs) {
    const std::string history = Read("ACME.26");
    Keep("{}");
    const SplitAdjustment adjustment = Adjust(kTwoForOne);
    EXPECT_TRUE(adjustment.IsUnread());
    EXPECT_EQ(Sentence(adjustment.error),
              drawings.string() + ": cannot be read; it holds no list of drawings");
    EXPECT_EQ(Read("ACME.26"), history);
    EXPECT_EQ(BytesOrEmpty(drawings), "{}");
}

TEST_F(SplitOfDrawingsTest, AFileThatCannotBeReadLeavesTheTickerAsItIs) {
    const std::string history = Read("ACME.26");
    std::filesystem::create_directory(drawings);
    EXPECT_TRUE(Adjust(kTwoForOne).IsUnread());
    EXPECT_EQ(Read("ACME.26"), history);
}

TEST_F(SplitOfDrawingsTest, WithoutAJumpThatFitsNothingIsTouched) {
    Keep(TextOfHandDrawings(Line(50)));
    constexpr double kTenForOne = 10;
    EXPECT_EQ(Adjust(kTenForOne).SplitIndex, 0U);
    EXPECT_EQ(BytesOrEmpty(drawings), TextOfHandDrawings(Line(50)));
}

}  // namespace
}  // namespace brantlow
