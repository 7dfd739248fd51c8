// Two commands on one folder at the same time: the promise "lock".
#include <gmock/gmock.h>

#include "fault_run.h"
#include "fault_world.h"
#include "folder_image.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class ParallelTest : public ::testing::Test {
  protected:
    void SetUp() override { FaultWorld::Instance().CopyTo(app); }
    std::string Table() const { return BytesOrEmpty(app / "Data" / "Mine.ddq"); }
    static std::vector<std::string> Alarm(const std::string& ticker, const std::string& high) {
        return {"alarm", "Mine.ddq", ticker, "--high", high};
    }
    static std::vector<std::string> WithoutWaiting(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--wait", "0"});
        return arguments;
    }
    // A command that stands still just before it writes the table.
    const FaultPlan stopsAtTable{"rename", "STOP", 1, "Mine.ddq"};

    TempFolder folder;
    Path app = folder / "app";
};

TEST_F(ParallelTest, ASecondCommandIsRefusedAndToldWhoHoldsTheFolder) {
    RunningCall first(app, Alarm("NFLX", "300"), stopsAtTable);
    ASSERT_TRUE(first.WaitUntilStopped());
    const FolderImage before = ImageOf(app);
    const FaultedCall second = CallWithFault(app, WithoutWaiting(Alarm("ADBE", "400")), {});
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.err, app.string() + " is in use by a command of Brantlow, process " +
                              std::to_string(first.Process()) +
                              " (alarm Mine.ddq NFLX); nothing was changed\n");
    EXPECT_EQ(Differences(before, ImageOf(app)), std::vector<std::string>());
    first.Continue();
    EXPECT_EQ(first.Wait().status, 0);
    EXPECT_EQ(CallWithFault(app, Alarm("ADBE", "400"), {}).status, 0);
    EXPECT_THAT(Table(), HasSubstr("300"));
    EXPECT_THAT(Table(), HasSubstr("400"));
}

TEST_F(ParallelTest, ACommandThatWaitsFindsTheOthersEdit) {
    RunningCall first(app, Alarm("NFLX", "300"), stopsAtTable);
    ASSERT_TRUE(first.WaitUntilStopped());
    RunningCall second(app, {"--wait", "600", "alarm", "Mine.ddq", "ADBE", "--high", "400"}, {});
    first.Continue();
    EXPECT_EQ(first.Wait().status, 0);
    const FaultedCall waited = second.Wait();
    EXPECT_EQ(waited.status, 0) << waited.Told();
    EXPECT_THAT(Table(), HasSubstr("300"));
    EXPECT_THAT(Table(), HasSubstr("400"));
}

TEST_F(ParallelTest, ReadingDoesNotWait) {
    RunningCall first(app, Alarm("NFLX", "300"), stopsAtTable);
    ASSERT_TRUE(first.WaitUntilStopped());
    for (const std::string command : {"series", "evaluate", "signals"}) {
        const FaultedCall reading = CallWithFault(app, {command, "NFLX"}, {});
        EXPECT_EQ(reading.status, 0) << reading.Told();
    }
    first.Continue();
    EXPECT_EQ(first.Wait().status, 0);
}

TEST_F(ParallelTest, TheLockOfAKilledCommandIsTakenOver) {
    RunningCall first(app, Alarm("NFLX", "300"), stopsAtTable);
    ASSERT_TRUE(first.WaitUntilStopped());
    first.Kill();
    EXPECT_EQ(first.Wait().signal, SIGKILL);
    ASSERT_TRUE(IsRegularFile(app / "Brantlow.lock"));
    const FaultedCall second = CallWithFault(app, WithoutWaiting(Alarm("ADBE", "400")), {});
    EXPECT_EQ(second.status, 0) << second.Told();
    EXPECT_THAT(Table(), HasSubstr("400"));
    EXPECT_THAT(Table(), Not(HasSubstr("300")));
    EXPECT_FALSE(IsRegularFile(app / "Brantlow.lock"));
}

TEST_F(ParallelTest, ManyEditsAtOnceAreAllThere) {
    const std::vector<std::pair<std::string, std::string>> edits = {
        {"A", "311"}, {"ADBE", "322"}, {"NFLX", "333"}};
    std::vector<std::unique_ptr<RunningCall>> calls;
    for (const auto& [ticker, high] : edits) {
        calls.push_back(std::make_unique<RunningCall>(
            app, std::vector<std::string>{"--wait", "600", "alarm", "Mine.ddq", ticker, "--high", high},
            FaultPlan{}));
    }
    for (const auto& call : calls) {
        const FaultedCall done = call->Wait();
        EXPECT_EQ(done.status, 0) << done.Told();
    }
    for (const auto& [ticker, high] : edits) EXPECT_THAT(Table(), HasSubstr(high)) << ticker;
}

}  // namespace
}  // namespace brantlow
