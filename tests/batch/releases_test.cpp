// A folder of each earlier release opens in this version: nothing has to be brought over, and nothing changes
// but what a command writes.
#include <gmock/gmock.h>

#include "batch_fixture.h"
#include "shell/settings/settings_files.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

const Path kReleases = SourceFolder() / "tests" / "releases";

std::vector<std::string> Releases() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kReleases)) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class ReleaseFolder : public BatchTest, public ::testing::WithParamInterface<std::string> {
  protected:
    ReleaseFolder() {
        std::filesystem::copy(
            kReleases / GetParam(), folder.Get(),
            std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
    }
    CallResult OnItsDay(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-03-03"});
        return Call(arguments);
    }
};

TEST_P(ReleaseFolder, SettingsAreReadAndWouldBeWrittenAsTheyStand) {
    SettingsTables settings;
    LoadAllSettings(folder.Get(), settings);
    for (const SettingsFileForm& form : kSettingsFiles) {
        const std::string bytes = Read("Data/" + std::string(form.fileName));
        if (bytes.empty()) continue;                    // a file that this release did not have yet
        if (form.file == SettingsFile::Lang) continue;  // an empty line stands for the United States
        EXPECT_EQ(SettingsFileText(form.file, settings), bytes) << form.fileName;
    }
    EXPECT_EQ(settings.QuoteFolder, (folder / "Quotes/EOD").string() + "/");
    EXPECT_GT(settings.ColumnCount, 0U);
}

TEST_P(ReleaseFolder, HasNoFaultsAndALookChangesNothing) {
    const auto before = Everything();
    const CallResult check = OnItsDay({"check"});
    EXPECT_EQ(check.status, ExitStatus::Done) << check.out << check.err;
    EXPECT_EQ(OnItsDay({"series", "A", "NFLX", "O"}).status, ExitStatus::Done);
    EXPECT_EQ(OnItsDay({"evaluate", "A", "--interval", "weekly"}).status, ExitStatus::Done);
    EXPECT_EQ(OnItsDay({"chart", "NFLX", "--out", "-"}).status, ExitStatus::Done);
    EXPECT_EQ(OnItsDay({"settings"}).status, ExitStatus::Done);
    EXPECT_TRUE(Everything() == before);
}

TEST_P(ReleaseFolder, ItsSelectorFindsWhatItFound) {
    const auto before = Everything();
    const std::string found = Read("Data/Evaluations.dbe");
    ASSERT_THAT(found, HasSubstr("\tBuy"));
    Write("Data/Evaluations.dbe", "Ticker Symbol\tCondition 1\r\n");
    EXPECT_EQ(OnItsDay({"select", "Practice.ddq"}).status, ExitStatus::Done);
    EXPECT_EQ(Read("Data/Evaluations.dbe"), found);
    // What the table was made of stands in a file of its own beside it.
    EXPECT_TRUE(std::filesystem::remove(folder / "Data/Evaluations.dbe.about"));
    EXPECT_TRUE(Everything() == before) << "no other file is written";
}

TEST_P(ReleaseFolder, ASplitRestatesItsHistoryAndIsUndone) {
    const auto before = Everything();
    EXPECT_THAT(OnItsDay({"check"}).out, HasSubstr("NFLX.26:38: note: the price jumps"));
    EXPECT_EQ(OnItsDay({"split", "NFLX", "7/1"}).status, ExitStatus::Done);
    EXPECT_THAT(OnItsDay({"check"}).out, Not(HasSubstr("NFLX")));
    EXPECT_FALSE(Everything() == before);
    EXPECT_EQ(OnItsDay({"undo"}).status, ExitStatus::Done);
    EXPECT_TRUE(Everything() == before);
}

std::string NameOfRelease(const ::testing::TestParamInfo<std::string>& tested) {
    std::string name = "Release" + tested.param;
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, ReleaseFolder, ::testing::ValuesIn(Releases()), NameOfRelease);

}  // namespace
}  // namespace brantlow
