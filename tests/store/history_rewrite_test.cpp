#include "store/history_rewrite.h"

#include <gtest/gtest.h>

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
    Failure Replace(const std::string& ticker, const YearFileTexts& texts) const {
        FileChange change({folder.Root(), "now"}, "Test");
        std::vector<Path> files = YearFilesOf(quotes, ticker);
        Failure fault = PrepareTickerHistory(quotes, ticker, texts.Files(), files, change);
        return fault ? fault : change.Commit();
    }

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
    ASSERT_FALSE(Replace("ACME", texts));
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
    EXPECT_FALSE(Replace("ACME", texts));
    EXPECT_EQ(folder.Files(),
              (std::vector<std::string>{"Quotes/ACM.24", "Quotes/ACME.26", "Quotes/ACME.B.24"}));
    EXPECT_EQ(folder.Read("Quotes/ACME.26"), Line("01/02/26", "2"));
}

TEST_F(HistoryRewrite, WithoutTextsTheTickerHasNoFilesAfterwards) {
    folder.Write("Quotes/ACME.24", "old");
    folder.Write("Quotes/ACME.26", "old");
    EXPECT_FALSE(Replace("ACME", {}));
    EXPECT_TRUE(folder.Files().empty());
}

TEST_F(HistoryRewrite, AYearThatNamesNoFileIsPassedOver) {
    YearFileTexts texts;
    texts.Add(Record("1/", 1));
    texts.Add(Record("01/02/26", 2));
    EXPECT_FALSE(Replace("ACME", texts));
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"Quotes/ACME.26"});
}

TEST_F(HistoryRewrite, ATickerThatIsAPathWritesNothing) {
    folder.Write("ACME.26", "old");
    YearFileTexts texts;
    texts.Add(Record("01/02/26", 2));
    for (const char* ticker : {"../ACME", "AUX", "", ".."}) {
        EXPECT_FALSE(Replace(ticker, texts)) << ticker;
    }
    EXPECT_EQ(folder.Read("ACME.26"), "old");
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"ACME.26"});
}

// A folder stands where one of three years belongs.
TEST_F(HistoryRewrite, WhereOneYearCannotBeWrittenNoneIsChanged) {
    for (const char* year : {"23", "24", "26"}) folder.Write("Quotes/ACME." + std::string(year), "old");
    folder.Folder("Quotes/ACME.25");
    YearFileTexts texts;
    for (const char* date : {"01/02/24", "01/02/25", "01/02/26"}) texts.Add(Record(date, 1));
    const Failure fault = Replace("ACME", texts);
    EXPECT_EQ(fault.cause, std::errc::is_a_directory);
    EXPECT_EQ(fault.file, Path(quotes + "ACME.25"));
    EXPECT_EQ(folder.Files(),
              (std::vector<std::string>{"Quotes/ACME.23", "Quotes/ACME.24", "Quotes/ACME.26"}));
    for (const char* year : {"23", "24", "26"})
        EXPECT_EQ(folder.Read("Quotes/ACME." + std::string(year)), "old");
}

TEST_F(HistoryRewrite, TheCallerLearnsWhichFilesTheTickerWillHave) {
    folder.Write("Quotes/ACME.24", "old");
    YearFileTexts texts;
    texts.Add(Record("01/02/26", 2));
    std::vector<Path> files = YearFilesOf(quotes, "ACME");
    FileChange change({folder.Root(), "now"}, "Test");
    ASSERT_FALSE(PrepareTickerHistory(quotes, "ACME", texts.Files(), files, change));
    EXPECT_EQ(files, std::vector<Path>{quotes + "ACME.26"});
    EXPECT_EQ(folder.Read("Quotes/ACME.24"), "old");
}

}  // namespace
}  // namespace brantlow
