// A fault at the n-th file call of every command: what is left is whole, what is said is true.
//
// By default a few calls of each command are disturbed, spread over all of them. BRANTLOW_FAULTS=0 disturbs
// every one (tools/fault_sweep.sh), another number as many of each kind.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <set>

#include "base/text.h"
#include "fault_run.h"
#include "fault_world.h"
#include "folder_image.h"

namespace brantlow {
namespace {

// A kind of fault and the promise that it attacks.
struct FaultKind {
    std::string promise;
    std::string calls;
    std::string action;
};

const std::vector<FaultKind>& FaultKinds() {
    static const std::vector<FaultKind> kinds = {
        {"read", "read", "EIO"},         {"read", "open", "EACCES"},        {"read", "open", "EMFILE"},
        {"read", "list,entry", "EIO"},   {"full", "write", "ENOSPC"},       {"full", "write", "EIO"},
        {"full", "write", "SHORT"},      {"full", "open", "ENOSPC"},        {"full", "rename", "ENOSPC"},
        {"full", "rename", "EIO"},       {"full", "sync", "EIO"},           {"full", "link,mkdir", "ENOSPC"},
        {"full", "unlink,rmdir", "EIO"}, {"full", "close,truncate", "EIO"}, {"kill", "any", "KILL"},
        {"kill", "any", "KILLED"},       {"kill", "write", "TORN"},
    };
    return kinds;
}

std::size_t MostFaults() {
    constexpr std::size_t kFewFaults = 3;
    const char* value = std::getenv("BRANTLOW_FAULTS");
    if (value == nullptr) return kFewFaults;
    const auto count = static_cast<std::size_t>(std::strtoul(value, nullptr, 10));
    return count == 0 ? static_cast<std::size_t>(-1) : count;
}

bool IsAmong(std::string_view calls, std::string_view call) {
    if (calls == "any") return true;
    for (const std::string_view one : SplitAt(calls, ',')) {
        if (one == call) return true;
    }
    return false;
}

// At most MostFaults of the numbers 1 to `count`, the first and the last among them.
std::vector<std::size_t> Numbers(std::size_t count) {
    const std::size_t most = MostFaults();
    std::set<std::size_t> numbers;
    if (count <= most) {
        for (std::size_t n = 1; n <= count; ++n) numbers.insert(n);
    } else {
        for (std::size_t i = 0; i < most; ++i)
            numbers.insert(1 + i * (count - 1) / std::max<std::size_t>(most - 1, 1));
    }
    return {numbers.begin(), numbers.end()};
}

std::size_t LineCountOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// The text with the application folder as "~".
std::string WithoutFolder(std::string text, const Path& app) {
    for (std::size_t at = text.find(app.string()); at != std::string::npos; at = text.find(app.string())) {
        text.replace(at, app.string().size(), "~");
    }
    return text;
}

bool NamesOneOf(const std::string& text, const FolderImage& image) {
    return std::any_of(image.begin(), image.end(), [&](const auto& file) {
        return Contains(text, Path(file.first).filename().string());
    });
}

// The file at fault; where that is a folder, or a file of the program's own (unfinished, kept for undo, the
// lock), the file that it was touched for serves as well. A fault that lasts is met at other files too.
bool NamesTheFile(const FaultKind& kind, const FaultedCall& call, const FolderImage& before,
                  const FolderImage& after) {
    const std::string name = call.path.filename().string();
    if (Contains(call.err, name)) return true;
    // What a table was made of stands beside it.
    if (name.ends_with(".about") && Contains(call.err, call.path.stem().string())) return true;
    const std::set<std::string> folders = {"app", "Data", "EOD", "Quotes", "Back Up"};
    const bool isOwn =
        IsTemporaryName(name) || Contains(call.path.string(), "/Undo") || name == "Brantlow.lock";
    if (!isOwn && !folders.contains(name) && kind.action != "SHORT") return false;
    if (Contains(call.err, call.path.parent_path().string())) return true;
    const bool isOfUndo = Contains(call.path.string(), "/Undo");
    const bool isOfData = call.path.parent_path().filename() == "Data";
    return (isOfUndo && Contains(call.err, "Undo")) || (isOfData && Contains(call.err, "Last Run.txt")) ||
           NamesOneOf(call.err, before) || NamesOneOf(call.err, after);
}

FolderImage WithResultsOf(const FolderImage& after, FolderImage image) {
    const auto results = image.find("Data/Evaluations.dbe");
    if (results != image.end()) results->second = after.at(results->first);
    return image;
}

class FaultSweep : public ::testing::TestWithParam<FaultCase> {
  protected:
    void SetUp() override {
        Prepare(undisturbed_ / "app");
        before_ = ImageOf(undisturbed_ / "app");
        RunningCall call(undisturbed_ / "app", GetParam().arguments, {}, true);
        expected_ = call.Wait();
        trace_ = call.Trace();
        ASSERT_EQ(expected_.status, 0) << expected_.Told();
        after_ = ImageOf(undisturbed_ / "app");
        if (GetParam().reads) {
            ASSERT_EQ(Differences(before_, after_), std::vector<std::string>());
        }
    }

    void Prepare(const Path& app) const {
        FaultWorld::Instance().CopyTo(app);
        if (GetParam().first.empty()) return;
        const FaultedCall first = CallWithFault(app, GetParam().first, {});
        ASSERT_EQ(first.status, 0) << first.Told();
    }

    std::size_t CallsOf(const std::string& calls) const {
        return static_cast<std::size_t>(
            std::count_if(trace_.begin(), trace_.end(), [&](const std::string& line) {
                return IsAmong(calls, std::string_view(line).substr(0, line.find(' ')));
            }));
    }

    // False once the number lies behind the last call.
    void Disturb(const FaultKind& kind, std::size_t number) {
        const TempFolder folder;
        const Path app = folder / "app";
        Prepare(app);
        const FaultedCall call = CallWithFault(app, GetParam().arguments, {kind.calls, kind.action, number});
        ++rounds;
        if (call.call.empty()) return;
        SCOPED_TRACE("promise '" + kind.promise + "', " + kind.action + " at " + kind.calls + " number " +
                     std::to_string(number) + ", " + call.Told());
        const FolderImage now = ImageOf(app);
        // A ticker that is left out of a selector run has no hits in its table.
        const FolderImage whole = call.status == 3 ? WithResultsOf(after_, now) : now;
        EXPECT_EQ(TornFiles(before_, after_, whole), std::vector<std::string>());
        if (call.signal != 0) {
            JudgeKill(call, app);
        } else {
            JudgeError(kind, call, app, now);
        }
    }

    void JudgeError(const FaultKind& kind, const FaultedCall& call, const Path& app, const FolderImage& now) {
        // One that the system does not let go of stays until the next writing command.
        const bool staysItself = call.call == "unlink" && IsTemporaryName(call.path.filename().string());
        if (!staysItself) {
            EXPECT_EQ(TemporariesIn(app), std::vector<std::string>());
        }
        if (call.status == 0) {
            EXPECT_EQ(Differences(after_, now), std::vector<std::string>()) << "done, and yet not";
            EXPECT_EQ(WithoutFolder(call.out, app), WithoutFolder(expected_.out, undisturbed_ / "app"));
            EXPECT_NE(kind.calls, "sync") << "a failed flush is no success";
            return;
        }
        const bool isPart = call.status == 3;
        EXPECT_TRUE(call.status == 1 || isPart);
        EXPECT_TRUE(NamesTheFile(kind, call, before_, after_)) << "the sentence names no file";
        EXPECT_GE(LineCountOf(call.err), 1U);
        EXPECT_LE(LineCountOf(call.err), isPart ? 3U : 1U);
        if (!isPart) {
            EXPECT_EQ(Differences(before_, now), std::vector<std::string>()) << "refused, and yet changed";
        }
    }

    void JudgeKill(const FaultedCall& call, const Path& app) {
        EXPECT_EQ(call.signal, SIGKILL);
        if (GetParam().reads) return;
        // What was done before the kill is not done again: an update of the same day finds nothing new.
        const bool wasDone = Differences(after_, ImageOf(app)).empty();
        FaultedCall again = CallWithFault(app, GetParam().arguments, {});
        EXPECT_TRUE(again.status == 0 || again.status == 1) << "the same command again: " << again.Told();
        for (int i = 1; i < GetParam().again && !Differences(after_, ImageOf(app)).empty(); ++i) {
            again = CallWithFault(app, GetParam().arguments, {});
        }
        if (GetParam().again > 0 && !wasDone) {
            EXPECT_EQ(Differences(after_, ImageOf(app)), std::vector<std::string>())
                << "after " << again.Told();
        }
        EXPECT_EQ(TemporariesIn(app), std::vector<std::string>()) << "after the same command again";
    }

    TempFolder undisturbed_;
    FolderImage before_;
    FolderImage after_;
    FaultedCall expected_;
    std::vector<std::string> trace_;
    std::size_t rounds = 0;
};

TEST_P(FaultSweep, LeavesWholeFilesAndATrueSentence) {
    for (const FaultKind& kind : FaultKinds()) {
        if (GetParam().reads && kind.promise != "read") continue;
        for (const std::size_t number : Numbers(CallsOf(kind.calls))) Disturb(kind, number);
    }
    RecordProperty("rounds", static_cast<int>(rounds));
    std::cout << "rounds: " << rounds << '\n';
}

INSTANTIATE_TEST_SUITE_P(Commands, FaultSweep, ::testing::ValuesIn(FaultCases()),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace brantlow
