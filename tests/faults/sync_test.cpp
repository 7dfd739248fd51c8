// The promise "sync", read off the file calls of a command that nothing disturbs: what replaces a file is
// flushed before it takes the file's place, the folder is flushed behind it, and what is added to a file is
// flushed too.
#include <gmock/gmock.h>

#include "fault_run.h"
#include "fault_world.h"

namespace brantlow {
namespace {

// The file calls of one command, in order; what was written and not yet flushed.
class CallOrder {
  public:
    void Take(std::string_view line) {
        const std::size_t space = line.find(' ');
        const std::string_view call = line.substr(0, space);
        const Path path = std::string(line.substr(space + 1));
        if (call == "write") dirty_.insert(path);
        if (call == "sync") {
            dirty_.erase(path);
            folders_.erase(path);
        }
        if (call == "unlink") dirty_.erase(path);
        if (call == "rename") TakeRename(path);
    }
    // What was never flushed, of the files that replaced others and of those that grew.
    void End() {
        for (const Path& folder : folders_) offences.push_back(folder.string() + " is not flushed");
        for (const Path& file : dirty_) {
            if (file.parent_path().filename() == "EOD") offences.push_back(file.string() + " is not flushed");
        }
    }
    std::vector<std::string> offences;
    std::set<std::string> replaced;

  private:
    // What only tells how the last run went, pages that are read once, and the program's own copies.
    static bool MayBeLost(const Path& path) {
        const Path name = path.filename();
        return name == "Last Run.txt" || name == "Temp.txt" ||
               path.string().find("/Undo/") != std::string::npos;
    }
    void TakeRename(const Path& path) {
        const auto isOf = [&](const Path& file) {
            return file.parent_path() == path.parent_path() && IsTemporaryName(file.filename().string());
        };
        if (!MayBeLost(path)) {
            replaced.insert(path.filename().string());
            folders_.insert(path.parent_path());
            const bool isList = path.filename() == "QuoteList.ddq";
            for (const Path& file : dirty_) {
                if (isOf(file) || (isList && file.parent_path() == path.parent_path()))
                    offences.push_back(path.string() + " is replaced before " + file.string() +
                                       " is flushed");
            }
        }
        std::erase_if(dirty_, isOf);
    }

    std::set<Path> dirty_;
    std::set<Path> folders_;
};

struct SyncedCommand {
    std::string name;
    std::vector<std::string> arguments;
    // Some of the files that it replaces.
    std::vector<std::string> replaced;
};

void PrintTo(const SyncedCommand& row, std::ostream* out) {
    *out << row.name;
}

class SyncTest : public ::testing::TestWithParam<SyncedCommand> {};

TEST_P(SyncTest, AFileIsFlushedBeforeItTakesItsPlaceAndItsFolderBehindIt) {
    const TempFolder folder;
    const Path app = folder / "app";
    FaultWorld::Instance().CopyTo(app);
    RunningCall call(app, GetParam().arguments, {}, true);
    const FaultedCall done = call.Wait();
    ASSERT_EQ(done.status, 0) << done.Told();
    CallOrder order;
    for (const std::string& line : call.Trace()) order.Take(line);
    order.End();
    EXPECT_EQ(order.offences, std::vector<std::string>());
    EXPECT_THAT(order.replaced, ::testing::IsSupersetOf(GetParam().replaced));
}

INSTANTIATE_TEST_SUITE_P(
    Commands, SyncTest,
    ::testing::Values(
        SyncedCommand{"alarm", {"alarm", "Mine.ddq", "NFLX", "--high", "300"}, {"Mine.ddq"}},
        SyncedCommand{"delete", {"delete", "Mine.ddq", "NFLX"}, {"Mine.ddq"}},
        SyncedCommand{"split", {"split", "NFLX", "7/1"}, {"NFLX.25", "NFLX.26"}},
        SyncedCommand{"update", {"update", "Mine.ddq"}, {"A.26", "QuoteList.ddq", "Mine.ddq"}},
        SyncedCommand{
            "populate", {"populate", "Mine.ddq", "--years", "2"}, {"A.25", "A.26", "VTRDATAset.ini"}},
        SyncedCommand{"import", {"import", "Mine.ddq"}, {"A.26", "NFLX.26", "QuoteList.ddq", "Mine.ddq"}},
        SyncedCommand{"select", {"select", "Mine.ddq"}, {"Evaluations.dbe"}},
        SyncedCommand{"remove_last_update", {"remove-last-update"}, {"A.26", "ADBE.26", "NFLX.26"}},
        SyncedCommand{"restore_database", {"restore", "database"}, {"ADBE.26"}}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brantlow
