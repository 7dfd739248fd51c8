#include "store/history_rewrite.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "store/store_fixture.h"
#include "store/year_files.h"

namespace brantlow {
namespace {

HistoryRecord Record(std::string date, double close) {
    HistoryRecord record;
    record.HistoryDate = std::move(date);
    record.HistoryClose = close;
    return record;
}

std::string Line(const std::string& date, const std::string& close) {
    return "\"" + date + "\",\"\"," + close + ",0,0,0,0,0,0,0,0,\"\",\"\",0,0,0,0,0,0\r\n";
}

class HistoryRewrite : public testing::Test {
  protected:
    TestFolder folder;
    std::string quotes = folder.Folder("Quotes");
};

TEST_F(HistoryRewrite, RecordsGoToTheEndOfTheirYearsFileWhateverTheirOrder) {
    YearFileTexts texts;
    const std::vector<HistoryRecord> records = {Record("12/31/25", 1), Record("01/02/26", 2),
                                                Record("12/30/25", 3), Record("01/05/26", 4),
                                                Record("01/03/00", 5), Record("12/29/25", 6)};
    // The same by one append a record.
    const std::string appended = folder.Folder("Appended");
    for (const HistoryRecord& record : records) {
        texts.Add(record);
        std::string line;
        AppendHistoryLine(record, line);
        const auto path = YearFilePath(appended, "ACME", YearDigits(record.HistoryDate));
        ASSERT_TRUE(path);
        ASSERT_FALSE(AppendToFile(*path, line));
    }
    ASSERT_FALSE(ReplaceTickerHistory(quotes, "ACME", texts.Files(), WhenOneFails::GoOn));
    for (const char* year : {"00", "25", "26"}) {
        const std::string name = "ACME." + std::string(year);
        EXPECT_EQ(folder.Read("Quotes/" + name), folder.Read("Appended/" + name)) << name;
    }
    EXPECT_EQ(folder.Read("Quotes/ACME.25"),
              Line("12/31/25", "1") + Line("12/30/25", "3") + Line("12/29/25", "6"));
    EXPECT_EQ(folder.Files().size(), 6U);
}

TEST_F(HistoryRewrite, FilesOfOtherYearsGoAndOtherTickersStay) {
    folder.Write("Quotes/ACME.24", "old");
    folder.Write("Quotes/ACME.26", "old");
    folder.Write("Quotes/ACME.B.24", "another ticker's");
    folder.Write("Quotes/ACM.24", "another ticker's");
    YearFileTexts texts;
    texts.Add(Record("01/02/26", 2));
    EXPECT_FALSE(ReplaceTickerHistory(quotes, "ACME", texts.Files(), WhenOneFails::GoOn));
    EXPECT_EQ(folder.Files(),
              (std::vector<std::string>{"Quotes/ACM.24", "Quotes/ACME.26", "Quotes/ACME.B.24"}));
    EXPECT_EQ(folder.Read("Quotes/ACME.26"), Line("01/02/26", "2"));
}

TEST_F(HistoryRewrite, WithoutTextsTheTickerHasNoFilesAfterwards) {
    folder.Write("Quotes/ACME.24", "old");
    folder.Write("Quotes/ACME.26", "old");
    EXPECT_FALSE(ReplaceTickerHistory(quotes, "ACME", {}, WhenOneFails::GoOn));
    EXPECT_TRUE(folder.Files().empty());
}

TEST_F(HistoryRewrite, AYearThatNamesNoFileIsPassedOver) {
    YearFileTexts texts;
    texts.Add(Record("1/", 1));
    texts.Add(Record("01/02/26", 2));
    EXPECT_FALSE(ReplaceTickerHistory(quotes, "ACME", texts.Files(), WhenOneFails::GoOn));
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"Quotes/ACME.26"});
}

TEST_F(HistoryRewrite, ATickerThatIsAPathWritesNothing) {
    folder.Write("ACME.26", "old");
    YearFileTexts texts;
    texts.Add(Record("01/02/26", 2));
    for (const char* ticker : {"../ACME", "AUX", "", ".."}) {
        EXPECT_FALSE(ReplaceTickerHistory(quotes, ticker, texts.Files(), WhenOneFails::GoOn)) << ticker;
    }
    EXPECT_EQ(folder.Read("ACME.26"), "old");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"ACME.26"});
}

// One of three years cannot be written: its place is a link into a folder that takes no temporary file.
class BlockedYear : public HistoryRewrite {
  protected:
    BlockedYear() {
        folder.Write("Other/ACME.25", "old");
        folder.Folder("Other/.brantlow-" + std::to_string(::gettid()) + ".tmp");
        std::filesystem::create_symlink(folder.Root() / "Other/ACME.25", folder.Root() / "Quotes/ACME.25");
        for (const char* year : {"23", "24", "26"}) folder.Write("Quotes/ACME." + std::string(year), "old");
        for (const char* date : {"01/02/24", "01/02/25", "01/02/26"}) texts.Add(Record(date, 1));
    }
    YearFileTexts texts;
};

TEST_F(BlockedYear, GoingOnLeavesTheOthersRight) {
    EXPECT_TRUE(ReplaceTickerHistory(quotes, "ACME", texts.Files(), WhenOneFails::GoOn));
    EXPECT_EQ(folder.Read("Quotes/ACME.24"), Line("01/02/24", "1"));
    EXPECT_EQ(folder.Read("Quotes/ACME.25"), "old");
    EXPECT_EQ(folder.Read("Quotes/ACME.26"), Line("01/02/26", "1"));
    EXPECT_FALSE(IsRegularFile(folder.Root() / "Quotes/ACME.23"));
}

TEST_F(BlockedYear, StoppingLeavesTheOlderYearsAsTheyWere) {
    EXPECT_TRUE(ReplaceTickerHistory(quotes, "ACME", texts.Files(), WhenOneFails::Stop));
    EXPECT_EQ(folder.Read("Quotes/ACME.26"), Line("01/02/26", "1"));
    for (const char* name : {"Quotes/ACME.25", "Quotes/ACME.24", "Quotes/ACME.23"}) {
        EXPECT_EQ(folder.Read(name), "old") << name;
    }
}

TEST_F(BlockedYear, TheCallerLearnsWhichFilesTheTickerHas) {
    std::vector<Path> files = YearFilesOf(quotes, "ACME");
    ASSERT_EQ(files.size(), 4U);
    EXPECT_TRUE(ReplaceTickerHistory(quotes, "ACME", texts.Files(), WhenOneFails::GoOn, files));
    std::sort(files.begin(), files.end());
    std::vector<Path> found = YearFilesOf(quotes, "ACME");
    EXPECT_EQ(files, found);
    EXPECT_EQ(files.size(), 3U);
}

}  // namespace
}  // namespace brantlow
