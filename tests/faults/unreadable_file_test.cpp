// The promise "read": each kind of file that is there and cannot be read, in front of the commands that go by
// it and write. The file is named, and neither it nor any other is lost or taken for an empty one.
#include <gmock/gmock.h>

#include "fault_run.h"
#include "fault_world.h"
#include "folder_image.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

struct UnreadableFile {
    std::string name;
    std::vector<std::string> arguments;
    std::string file;
    // Where a ticker is left out and the rest is done; else nothing is changed.
    bool leavesATickerOut = false;
};

void PrintTo(const UnreadableFile& row, std::ostream* out) {
    *out << row.name;
}

const std::vector<UnreadableFile>& UnreadableFiles() {
    static const std::vector<UnreadableFile> rows = {
        {"year_at_split", {"split", "NFLX", "7/1"}, "Quotes/EOD/NFLX.25"},
        {"year_at_split_calendar", {"split-calendar"}, "Quotes/EOD/NFLX.25", true},
        {"year_at_update", {"update", "Mine.ddq"}, "Quotes/EOD/A.26", true},
        {"year_at_import", {"import", "Mine.ddq"}, "Quotes/EOD/A.26", true},
        {"year_at_remove_last_update", {"remove-last-update"}, "Quotes/EOD/A.26", true},
        {"year_at_select", {"select", "Mine.ddq"}, "Quotes/EOD/NFLX.25", true},
        {"year_at_backup", {"backup", "database"}, "Quotes/EOD/A.26", true},
        {"back_up_at_restore", {"restore", "database"}, "Back Up/Quotes/ADBE.26", true},
        {"update_list_at_remove_last_update", {"remove-last-update"}, "Quotes/EOD/QuoteList.ddq"},
        {"split_log_at_split_calendar", {"split-calendar"}, "SplitLog.txt", true},
        {"split_log_at_update", {"update", "Mine.ddq"}, "SplitLog.txt", true},
        {"settings_at_select", {"select", "Mine.ddq"}, "Data/VTRSELset.ini"},
        {"settings_at_update", {"update", "Mine.ddq"}, "Data/VTRDATAset.ini"},
        {"settings_at_populate", {"populate", "Mine.ddq", "--years", "2"}, "Data/VTRDATAset.ini"},
        {"settings_at_import", {"import", "Mine.ddq"}, "Data/VTRIMEXset.ini"},
        {"settings_at_export", {"export", "Mine.ddq"}, "Data/VTRIMEXset.ini"},
        {"settings_at_split", {"split", "NFLX", "7/1"}, "Data/VTRDATAset.ini"},
        {"own_settings_at_populate", {"populate", "Mine.ddq", "--years", "2"}, "Data/VTROWNset.ini"},
        {"sources_at_history", {"history", "AGG"}, "Data/VTRSRCset.ini"},
        {"table_at_update", {"update", "Mine.ddq"}, "Data/Mine.ddq"},
        {"table_at_select", {"select", "Mine.ddq"}, "Data/Mine.ddq"},
        {"table_at_populate", {"populate", "Mine.ddq", "--years", "2"}, "Data/Mine.ddq"},
        {"table_at_fundamentals", {"fundamentals", "Mine.ddq"}, "Data/Mine.ddq"},
        {"table_at_import", {"import", "Mine.ddq"}, "Data/Mine.ddq"},
        {"table_at_add", {"add", "Mine.ddq", "AGG"}, "Data/Mine.ddq"},
        {"table_at_delete", {"delete", "Mine.ddq", "NFLX", "--history"}, "Data/Mine.ddq"},
        {"table_at_alarm", {"alarm", "Mine.ddq", "NFLX", "--high", "300"}, "Data/Mine.ddq"},
        {"table_at_combine", {"combine", "Mine.ddq", "Two.ddq", "Out.ddq"}, "Data/Two.ddq"},
        {"import_file", {"import", "Mine.ddq"}, "Data/Import.Txt"},
    };
    return rows;
}

class UnreadableFileTest : public ::testing::TestWithParam<UnreadableFile> {
  protected:
    // The file cannot be read from its first byte to the end of the command.
    void Meet(const std::string& calls, const std::string& action) {
        const UnreadableFile& row = GetParam();
        SCOPED_TRACE(action + " at " + calls);
        const TempFolder folder;
        const Path app = folder / "app";
        FaultWorld::Instance().CopyTo(app);
        ASSERT_FALSE(WriteWholeFile(app / "SplitLog.txt", "\"NFLX\",\"11/17\",7\r\n"));
        const FolderImage before = ImageOf(app);
        ASSERT_TRUE(before.contains(row.file));
        const FaultedCall call =
            CallWithFault(app, row.arguments, {calls, action, 1, "/app/" + row.file, true});
        EXPECT_FALSE(call.call.empty()) << "the file was not asked for: " << call.Told();
        EXPECT_TRUE(call.status == 1 || (call.status == 3 && row.leavesATickerOut)) << call.Told();
        EXPECT_THAT(call.err, HasSubstr(Path(row.file).filename().string())) << call.Told();
        const FolderImage now = ImageOf(app);
        for (const auto& [name, bytes] : before) EXPECT_TRUE(now.contains(name)) << name << " is gone";
        EXPECT_EQ(now.at(row.file), before.at(row.file));
        if (call.status == 1) {
            EXPECT_EQ(Differences(before, now), std::vector<std::string>());
        }
    }
};

TEST_P(UnreadableFileTest, IsNamedAndNothingIsLost) {
    Meet("open", "EACCES");
    Meet("open", "EMFILE");
    Meet("read", "EIO");
}

// A check reads a file, and reads it again where it can be repaired.
TEST(UnreadableAtARepair, AFileIsNotTakenForAnEmptyOneWhicheverOfItsReadingsFails) {
    const std::string gap = "Quotes/EOD/GAP.26";
    std::size_t met = 0;
    for (std::size_t number = 1;; ++number) {
        const TempFolder folder;
        const Path app = folder / "app";
        FaultWorld::Instance().CopyTo(app);
        const std::string before = BytesOrEmpty(app / gap);
        const FaultedCall call =
            CallWithFault(app, {"check", "--repair"}, {"open", "EACCES", number, "/app/" + gap});
        if (call.call.empty()) break;
        ++met;
        ASSERT_TRUE(IsRegularFile(app / gap)) << call.Told();
        if (BytesOrEmpty(app / gap) == before) {
            EXPECT_NE(call.status, 0) << call.Told();
        }
    }
    EXPECT_GE(met, 2U);
}

INSTANTIATE_TEST_SUITE_P(Files, UnreadableFileTest, ::testing::ValuesIn(UnreadableFiles()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brantlow
