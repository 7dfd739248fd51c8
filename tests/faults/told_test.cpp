// Sentences of single faults: what was changed before one is told, and a limit of file sizes is an error.
#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>

#include "fault_run.h"
#include "fault_world.h"
#include "folder_image.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ToldFaultTest : public ::testing::Test {
  protected:
    void SetUp() override { FaultWorld::Instance().CopyTo(app); }
    std::string Table() const { return BytesOrEmpty(app / "Data" / "Mine.ddq"); }

    TempFolder folder;
    Path app = folder / "app";
};

// Programs that are started while it is there end no file beyond so many bytes.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &former_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit former_{};
};

// Promise `full`: a limit of file sizes is an error like a full disk.
TEST_F(ToldFaultTest, ALimitOfFileSizesRefusesAndDoesNotKill) {
    struct Case {
        std::vector<std::string> arguments;
        std::string file;
        rlim_t limit;
    };
    constexpr rlim_t kLessThanAYear = 8192;
    // And more than the sentence, which goes to a file here.
    constexpr rlim_t kLessThanATable = 200;
    const std::vector<Case> cases = {
        {{"split", "NFLX", "7/1"}, "NFLX.", kLessThanAYear},
        {{"restore", "database"}, "ADBE.26", kLessThanAYear},
        {{"combine", "Mine.ddq", "Two.ddq", "Out.ddq"}, "Out.ddq", kLessThanATable},
        {{"alarm", "Mine.ddq", "NFLX", "--high", "300"}, "Mine.ddq", kLessThanATable},
        {{"export", "Long.ddq"}, "Export.Txt", kLessThanATable},
    };
    std::string rows = Table();
    for (int i = 0; i < 5; ++i) rows += rows.substr(rows.find("\nNFLX\t") + 1);
    ASSERT_FALSE(WriteWholeFile(app / "Data" / "Long.ddq", rows));
    for (const Case& row : cases) {
        const FolderImage before = ImageOf(app);
        std::unique_ptr<RunningCall> call;
        {
            const FileSizeLimit limit(row.limit);
            call = std::make_unique<RunningCall>(app, row.arguments, FaultPlan{});
        }
        const FaultedCall done = call->Wait();
        EXPECT_EQ(done.signal, 0) << done.Told();
        EXPECT_EQ(done.status, 1) << done.Told();
        EXPECT_THAT(done.err, HasSubstr(row.file)) << row.arguments[0];
        EXPECT_THAT(done.err, HasSubstr("File too large")) << row.arguments[0];
        EXPECT_EQ(Differences(before, ImageOf(app)), std::vector<std::string>()) << row.arguments[0];
        EXPECT_EQ(TemporariesIn(app), std::vector<std::string>()) << row.arguments[0];
    }
}

// Promise `full`: what was done before the fault is told.
TEST_F(ToldFaultTest, AnAddThatFailsAtItsSecondTickerSaysThatTheFirstIsKept) {
    // The table is saved after each of them.
    const FaultedCall call =
        CallWithFault(app, {"add", "Mine.ddq", "KO", "PEP"}, {"rename", "EIO", 2, "Mine.ddq"});
    EXPECT_EQ(call.status, 3) << call.Told();
    EXPECT_EQ(call.err, "The edit failed: " + (app / "Data/Mine.ddq").string() +
                            ": cannot be saved (Input/output error); what was edited before it is kept\n");
    EXPECT_EQ(call.out, "Added: KO\n");
    EXPECT_THAT(Table(), HasSubstr("\nKO\t"));
    EXPECT_THAT(Table(), Not(HasSubstr("\nPEP\t")));
}

// Promise `full`: three lines at the most, the terms of a source among them.
TEST_F(ToldFaultTest, ALiveUpdateOnAFullDiskTellsThreeLinesAtTheMost) {
    std::size_t met = 0;
    for (bool isMet = true; isMet; met += isMet ? 1 : 0) {
        const Path world = folder / std::to_string(met);
        FaultWorld::Instance().CopyTo(world);
        const FaultedCall call = CallWithFault(world, {"update", "Mine.ddq", "--source", "yahoo"},
                                               {"write", "ENOSPC", met + 1, "/Data/", true});
        isMet = !call.call.empty();
        // Only the mark that the terms were told costs nothing: they are told once more.
        const bool toldTerms = call.err.find("Yahoo's terms") != std::string::npos;
        EXPECT_TRUE(call.status != 0 || toldTerms) << call.Told();
        EXPECT_LE(std::count(call.err.begin(), call.err.end(), '\n'), 3) << call.Told();
        EXPECT_GE(std::count(call.err.begin(), call.err.end(), '\n'), 1) << call.Told();
    }
    EXPECT_GE(met, 3U);
}

// Promise `full`: the disk fails for good in the middle of a change, so that it cannot be taken back either.
TEST_F(ToldFaultTest, AChangeThatCannotBeTakenBackIsToldAndTakenBackByTheNextCommand) {
    const FolderImage before = ImageOf(app);
    const FaultedCall call =
        CallWithFault(app, {"update", "Mine.ddq"}, {"rename", "EACCES", 2, "/Quotes/EOD/", true});
    EXPECT_EQ(call.status, 3) << call.Told();
    EXPECT_THAT(call.err, HasSubstr("some files are changed, which the next writing command takes back"));
    const FaultedCall next = CallWithFault(app, {"export", "Mine.ddq"}, {});
    EXPECT_EQ(next.status, 0) << next.Told();
    EXPECT_THAT(next.err, HasSubstr("Update Mine.ddq was interrupted: what it had changed was taken back."));
    const FolderImage now = ImageOf(app);
    for (const auto& [name, bytes] : before) {
        if (!name.starts_with("Quotes/")) continue;
        EXPECT_EQ(now.at(name), bytes) << name;
    }
}

// Promise `full`: the back-up's old file of that name cannot be brought back.
TEST_F(ToldFaultTest, ABackUpOfWhichOneFileStaysNewIsDoneInPart) {
    const FolderImage before = ImageOf(app);
    const FaultedCall call =
        CallWithFault(app, {"backup", "database"}, {"rename", "EACCES", 13, "/Back Up/Quotes/", true});
    EXPECT_EQ(call.status, 3) << call.Told();
    EXPECT_EQ(Differences(before, ImageOf(app)), std::vector<std::string>{"Back Up/Quotes/ADBE.26"});
}

// Promise `kill`: unfinished files go with the next writing command, whichever table it is about.
TEST_F(ToldFaultTest, UnfinishedFilesGoFromFoldersBelowDataToo) {
    const Path table = app / "Data" / "sub" / "Mine.ddq";
    std::filesystem::create_directories(table.parent_path());
    std::filesystem::copy_file(app / "Data" / "Mine.ddq", table);
    const FaultedCall call = CallWithFault(app, {"alarm", "sub/Mine.ddq", "NFLX", "--high", "300"},
                                           {"rename", "KILL", 1, "Data/sub/"});
    EXPECT_EQ(call.signal, SIGKILL) << call.Told();
    EXPECT_FALSE(TemporariesIn(app).empty());
    EXPECT_EQ(CallWithFault(app, {"alarm", "Mine.ddq", "NFLX", "--high", "300"}, {}).status, 0);
    EXPECT_EQ(TemporariesIn(app), std::vector<std::string>());
}

// Promise `full`: a scratch name that the system does not let go of is gone after the next writing command.
TEST_F(ToldFaultTest, TheReplyOfAKilledUpdateGoesWithTheNextWritingCommand) {
    const FaultedCall call = CallWithFault(app, {"update", "Mine.ddq"}, {"unlink", "KILL", 3, "Temp.txt"});
    EXPECT_EQ(call.signal, SIGKILL) << call.Told();
    EXPECT_TRUE(IsRegularFile(app / "Temp.txt"));
    EXPECT_EQ(CallWithFault(app, {"alarm", "Mine.ddq", "NFLX", "--high", "300"}, {}).status, 0);
    EXPECT_FALSE(IsRegularFile(app / "Temp.txt"));
}

TEST_F(ToldFaultTest, AScratchNameThatStaysGoesWithTheNextWritingCommand) {
    const FaultedCall call = CallWithFault(app, {"alarm", "Mine.ddq", "NFLX", "--high", "300"},
                                           {"unlink", "EIO", 1, ".brantlow-"});
    EXPECT_FALSE(call.call.empty()) << "no unlink was met";
    EXPECT_EQ(call.status, 0) << call.Told();
    EXPECT_EQ(CallWithFault(app, {"remove-last-update"}, {}).status, 0);
    EXPECT_EQ(TemporariesIn(app), std::vector<std::string>());
    EXPECT_THAT(Table(), HasSubstr("300"));
}

}  // namespace
}  // namespace brantlow
