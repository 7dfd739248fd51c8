#include "base/system_command.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(RunSystemCommand, GivesOutputErrorsAndStatus) {
    const CommandResult result = RunSystemCommand({"sh", "-c", "echo out; echo err >&2; exit 3"}, "");
    EXPECT_TRUE(result.started);
    EXPECT_FALSE(result.Done());
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.out, "out\n");
    EXPECT_EQ(result.err, "err\n");
}

TEST(RunSystemCommand, PassesInputByteForByteWhateverItsLength) {
    using namespace std::string_literals;
    for (const std::string& input : {""s, "a\0b\r\n"s, std::string(1 << 20, 'x')}) {
        const CommandResult result = RunSystemCommand({"cat"}, input);
        EXPECT_TRUE(result.Done());
        EXPECT_EQ(result.out, input);
    }
}

TEST(RunSystemCommand, AProgramThatDoesNotReadItsInputDoesNoHarm) {
    EXPECT_TRUE(RunSystemCommand({"true"}, std::string(1 << 20, 'x')).Done());
}

TEST(RunSystemCommand, PassesArgumentsAsTheyAre) {
    EXPECT_EQ(RunSystemCommand({"printf", "%s|", "a b", "$HOME", "'"}, "").out, "a b|$HOME|'|");
}

TEST(RunSystemCommand, AsksForMessagesInEnglish) {
    EXPECT_EQ(RunSystemCommand({"sh", "-c", "echo $LC_ALL"}, "").out, "C\n");
}

TEST(RunSystemCommand, AMissingProgramIsNotStarted) {
    EXPECT_FALSE(RunSystemCommand({"/no/such/program"}, "").started);
    EXPECT_FALSE(RunSystemCommand({"no-such-program-here"}, "x").started);
    EXPECT_FALSE(RunSystemCommand({}, "").started);
}

TEST(RunSystemCommand, AProgramThatDiesOfASignalIsNotDone) {
    EXPECT_FALSE(RunSystemCommand({"sh", "-c", "kill -9 $$"}, "").Done());
}

}  // namespace
}  // namespace brantlow
