#include "chart/picture_files.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(FitToPage, ALandscapePictureTakesThePagesWidth) {
    const Extent size = FitToPage({1200, 600}, {2000, 3000});
    EXPECT_DOUBLE_EQ(size.width, 2000);
    EXPECT_DOUBLE_EQ(size.height, 1000);
}

TEST(FitToPage, ATallChartOnALandscapePageTakesTheFullHeight) {
    const Extent size = FitToPage({600, 1200}, {3000, 2000});
    EXPECT_DOUBLE_EQ(size.width, 1000);
    EXPECT_DOUBLE_EQ(size.height, 2000);
}

TEST(FitToPage, TheWiderOfPictureAndPageDecides) {
    struct Row {
        Extent picture, page, expected;
    };
    const Row rows[] = {
        {{100, 100}, {50, 80}, {50, 50}},      // a smaller page: scaled down
        {{100, 100}, {800, 500}, {500, 500}},  // a larger one: scaled up
        {{3, 4}, {300, 400}, {300, 400}},      // the page's own proportions
        {{200, 150}, {600, 400}, {400 * 200 / 150.0, 400}},
        {{200, 100}, {600, 400}, {600, 300}},
        {{1, 1000}, {10, 10}, {0.01, 10}},
    };
    for (const Row& row : rows) {
        const Extent size = FitToPage(row.picture, row.page);
        EXPECT_DOUBLE_EQ(size.width, row.expected.width) << row.picture.width << "x" << row.picture.height;
        EXPECT_DOUBLE_EQ(size.height, row.expected.height) << row.picture.width << "x" << row.picture.height;
    }
}

TEST(FitToPage, APictureOrAPageWithoutASizeGivesNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Extent empties[] = {{0, 10}, {10, 0}, {-1, 10}, {nan, 10}};
    for (const Extent& empty : empties) {
        EXPECT_EQ(FitToPage(empty, {10, 10}).width, 0);
        EXPECT_EQ(FitToPage({10, 10}, empty).height, 0);
    }
}

TEST(ImageFile, StandsInImagesUnderTheCaption) {
    EXPECT_EQ(ImageFile("/app", "AAPL", ".bmp"), Path("/app/Images/AAPL.bmp"));
    EXPECT_EQ(ImageFile("/app", "BRK.B", ".bmp"), Path("/app/Images/BRK.B.bmp"));
    EXPECT_EQ(ImageFile("/app", "^DJI", ".bmp"), Path("/app/Images/^DJI.bmp"));
    EXPECT_EQ(ImageFile("/app", "Stock splits", ".htm"), Path("/app/Images/Stock splits.htm"));
}

TEST(ImageFile, StaysInItsFolderWhateverTheCaptionHolds) {
    EXPECT_EQ(ImageFile("/app", "../../etc/x", ".htm"), Path("/app/Images/.._.._etc_x.htm"));
    EXPECT_EQ(ImageFile("/app", "A/B\\C", ".bmp"), Path("/app/Images/A_B_C.bmp"));
    EXPECT_EQ(ImageFile("/app", std::string_view("a\0b\n\x7f", 5), ".htm"), Path("/app/Images/a_b__.htm"));
    EXPECT_EQ(ImageFile("/app", "", ".bmp"), Path("/app/Images/_.bmp"));
    EXPECT_EQ(ImageFile("/app", "..", ".bmp"), Path("/app/Images/...bmp"));
}

TEST(ImageFile, CutsALongCaptionBetweenTwoCharacters) {
    EXPECT_EQ(ImageFile("/app", std::string(500, 'x'), ".htm").filename().string(),
              std::string(200, 'x') + ".htm");
    // The 200th byte falls in the midst of a character of two bytes.
    EXPECT_EQ(ImageFile("/app", std::string(199, 'x') + "\xc3\xa4yz", ".htm").filename().string(),
              std::string(199, 'x') + ".htm");
}

TEST(WithExtension, AddsItWhereItIsMissing) {
    EXPECT_EQ(WithExtension("/a/AAPL", ".bmp"), Path("/a/AAPL.bmp"));
    EXPECT_EQ(WithExtension("/a/BRK.B", ".bmp"), Path("/a/BRK.B.bmp"));
    EXPECT_EQ(WithExtension("/a/AAPL.bmp", ".bmp"), Path("/a/AAPL.bmp"));
    EXPECT_EQ(WithExtension("/a/AAPL.BMP", ".bmp"), Path("/a/AAPL.BMP"));
    EXPECT_EQ(WithExtension(".bmp", ".bmp"), Path(".bmp.bmp"));
}

TEST(SaveTextFile, MakesTheFolderAndReplacesTheFile) {
    const TempFolder folder;
    const Path file = ImageFile(folder.Get(), "News", ".htm");
    EXPECT_FALSE(SaveTextFile(file, "<p>one long page</p>"));
    EXPECT_FALSE(SaveTextFile(file, std::string_view("two\0\r\n", 6)));
    EXPECT_EQ(BytesOrEmpty(file), std::string("two\0\r\n", 6));
    EXPECT_EQ(FileNamesIn(ImagesFolder(folder.Get())).size(), 1u);
}

TEST(SaveTextFile, TellsWhyItFailed) {
    const TempFolder folder;
    ASSERT_FALSE(WriteWholeFile(folder / "Images", "a file where the folder should be"));
    EXPECT_TRUE(SaveTextFile(ImageFile(folder.Get(), "News", ".htm"), "x"));
}

}  // namespace
}  // namespace brantlow
