#include "store/error_report.h"

#include <gtest/gtest.h>

#include "shell/settings/settings_tables.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

constexpr const char* kName = "Error Report.txt";

TEST(ErrorReport, IsWrittenAsAReasonAndQuotedTickers) {
    TempFolder folder;
    ASSERT_FALSE(WriteErrorReport(folder.Get(), {"A reason, with a comma.", {"AAA", "BRK.B", "^DJI"}}));
    EXPECT_EQ(BytesOrEmpty(folder / kName),
              "A reason, with a comma.\r\n\"AAA\"\r\n\"BRK.B\"\r\n\"^DJI\"\r\n");
}

TEST(ErrorReport, ReplacesTheReportBefore) {
    TempFolder folder;
    ASSERT_FALSE(WriteErrorReport(folder.Get(), {"old", {"AAA", "BBB", "CCC"}}));
    ASSERT_FALSE(WriteErrorReport(folder.Get(), {"new", {"DDD"}}));
    EXPECT_EQ(BytesOrEmpty(folder / kName), "new\r\n\"DDD\"\r\n");
}

TEST(ErrorReport, ComesBackAsItWasWritten) {
    TempFolder folder;
    const ErrorReport report{"This report \"so\" named, is one.", {"AAA", "10", "A B", "\xE9T\xC9"}};
    ASSERT_FALSE(WriteErrorReport(folder.Get(), report));
    EXPECT_EQ(ReadErrorReport(folder.Get()), report);
}

TEST(ErrorReport, ReadsFilesOfOtherHands) {
    struct Row {
        const char* bytes;
        ErrorReport report;
    };
    const Row kRows[] = {{"", {"", {}}},
                         {"reason", {"reason", {}}},
                         {"reason\n\"AAA\"\nBBB", {"reason", {"AAA", "BBB"}}},
                         {"reason\r\n\r\n\"\"\r\n\"AAA\"\r\n\r\n", {"reason", {"AAA"}}}};
    for (const Row& row : kRows) {
        TempFolder folder;
        ASSERT_FALSE(WriteWholeFile(folder / kName, row.bytes));
        EXPECT_EQ(ReadErrorReport(folder.Get()), row.report) << row.bytes;
    }
}

TEST(ErrorReport, IsNothingWhereThereIsNoFile) {
    TempFolder folder;
    EXPECT_FALSE(ReadErrorReport(folder.Get()));
    std::filesystem::create_directory(folder / kName);
    EXPECT_FALSE(ReadErrorReport(folder.Get()));
}

TEST(ErrorReport, ReadsNoMoreTickersThanATableHolds) {
    TempFolder folder;
    std::string bytes = "reason\r\n";
    for (std::size_t i = 0; i < kMostRows + 5; ++i) bytes += "\"AAA\"\r\n";
    ASSERT_FALSE(WriteWholeFile(folder / kName, bytes));
    EXPECT_EQ(ReadErrorReport(folder.Get())->tickers.size(), kMostRows);
}

TEST(ErrorReport, TellsWhyItCouldNotBeWritten) {
    TempFolder folder;
    EXPECT_TRUE(WriteErrorReport(folder / "missing", {"reason", {"AAA"}}));
}

}  // namespace
}  // namespace brantlow
