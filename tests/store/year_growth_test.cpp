#include "store/year_growth.h"

#include <sys/stat.h>

#include "store/store_fixture.h"

namespace brantlow {
namespace {

const std::string kRecord = "\"03/15/24\",\"\",1,1,1,5,0,0,0,0,0,\"\",\"\",0,0,0,0,0,1";

TEST(WithoutHalfLine, ALineOfAllFieldsIsWholeWithoutItsEnd) {
    struct Case {
        std::string bytes;
        std::string whole;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {"\"03/1", ""},
        {kRecord, kRecord},
        {kRecord + "\r\n", kRecord + "\r\n"},
        {kRecord + "\r\n" + kRecord, kRecord + "\r\n" + kRecord},
        {kRecord + "\r\n\"03/18/24\",\"\",1", kRecord + "\r\n"},
        {kRecord + "\r\n\r", kRecord + "\r\n"},
        {"junk\n", "junk\n"},
    };
    for (const Case& row : cases) EXPECT_EQ(WithoutHalfLine(row.bytes), row.whole) << row.bytes;
}

TEST(HalfLineWords, NameTheFirstFileAndCountTheOthers) {
    std::vector<Path> files;
    EXPECT_EQ(HalfLineWords(files), "");
    files.emplace_back("/home/me/Quotes/EOD/KO.24");
    EXPECT_EQ(HalfLineWords(files), "the half line at the end of KO.24 was taken out");
    files.emplace_back("/home/me/Quotes/EOD/V.24");
    EXPECT_EQ(HalfLineWords(files), "the half lines at the ends of KO.24 and 1 further file were taken out");
    files.emplace_back("/home/me/Quotes/EOD/F.24");
    EXPECT_EQ(HalfLineWords(files), "the half lines at the ends of KO.24 and 2 further files were taken out");
}

TEST(GrowthOfRun, APersonsFilesAreReplacedAndAMarketsGrow) {
    EXPECT_EQ(GrowthOfRun(0), YearGrowth::Replaced);
    EXPECT_EQ(GrowthOfRun(kMostReplacedYears), YearGrowth::Replaced);
    EXPECT_EQ(GrowthOfRun(kMostReplacedYears + 1), YearGrowth::InPlace);
}

class AddLinesTest : public ::testing::TestWithParam<YearGrowth> {
  protected:
    AddedLines Add() {
        FileChange change({folder.Root(), "2024-03-15 16:00:00"}, "Test", ChangeKeeps::UntilDone);
        const AddedLines added = AddLines(file, kRecord + "\r\n", GetParam(), change);
        if (!added.fault) {
            EXPECT_FALSE(change.Commit());
        }
        return added;
    }

    TestFolder folder;
    Path file = Path(folder.Folder("EOD")) / "KO.24";
};
INSTANTIATE_TEST_SUITE_P(Growth, AddLinesTest, ::testing::Values(YearGrowth::Replaced, YearGrowth::InPlace),
                         [](const auto& test) {
                             return test.param == YearGrowth::Replaced ? "Replaced" : "InPlace";
                         });

TEST_P(AddLinesTest, ComeBehindTheOthersWhateverTheirEnd) {
    EXPECT_FALSE(Add().fault);
    EXPECT_EQ(folder.Read("EOD/KO.24"), kRecord + "\r\n");
    folder.Write("EOD/KO.24", "one," + kRecord);
    EXPECT_FALSE(Add().hadHalfLine);
    EXPECT_EQ(folder.Read("EOD/KO.24"), "one," + kRecord + "\r\n" + kRecord + "\r\n");
    folder.Write("EOD/KO.24", kRecord + "\r\nhalf");
    EXPECT_TRUE(Add().hadHalfLine);
    EXPECT_EQ(folder.Read("EOD/KO.24"), kRecord + "\r\n" + kRecord + "\r\n");
}

// Promise `kill`: a file that is replaced is never half written, so it has another inode afterwards.
TEST_P(AddLinesTest, OnlyAFileThatGrowsInPlaceStaysTheSameFile) {
    folder.Write("EOD/KO.24", kRecord + "\r\n");
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::stat(file.c_str(), &before), 0);
    EXPECT_FALSE(Add().fault);
    ASSERT_EQ(::stat(file.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino == after.st_ino, GetParam() == YearGrowth::InPlace);
}

TEST_P(AddLinesTest, AFolderInPlaceOfTheFileIsTold) {
    std::filesystem::create_directories(file);
    const AddedLines added = Add();
    EXPECT_EQ(added.fault.file, file);
    EXPECT_EQ(added.fault.cause, std::errc::is_a_directory);
}

}  // namespace
}  // namespace brantlow
