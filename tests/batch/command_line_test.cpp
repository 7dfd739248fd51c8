#include "batch/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/text.h"
#include "batch/command_table.h"
#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

CommandLine Parse(const std::vector<std::string>& arguments) {
    return ParseCommandLine(arguments);
}

TEST(CommandLine, TakesTheGlobalOptionsInFrontOfTheCommandAndBehindIt) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"--app", "x", "--today", "2026-11-21", "--time", "09:05", "settings"},
             {"settings", "--app", "x", "--today=2026-11-21", "--time=09:05"}}) {
        const CommandLine line = Parse(arguments);
        EXPECT_EQ(line.error, "");
        ASSERT_NE(line.command, nullptr);
        EXPECT_EQ(line.command->name, "settings");
        EXPECT_EQ(line.app, Path("x"));
        EXPECT_EQ(line.today, (Date{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}}));
        EXPECT_EQ(line.minutes, 9 * 60 + 5);
    }
}

TEST(CommandLine, OperandsKeepEveryCharacter) {
    const std::string longTicker(5000, 'X');
    const CommandLine line =
        Parse({"series", "A", "[B,C]", "../D", "E*", "", "series", "a b", longTicker, "--", "-F"});
    EXPECT_EQ(line.error, "");
    EXPECT_THAT(line.arguments.operands,
                ElementsAre("A", "[B,C]", "../D", "E*", "", "series", "a b", longTicker, "-F"));
}

struct BadCall {
    std::vector<std::string> arguments;
    std::string error;
};

TEST(CommandLine, OneLineSaysWhichArgumentAndWhy) {
    const std::vector<BadCall> calls = {
        {{}, "COMMAND: missing; --help lists the commands"},
        {{"fly"}, "fly: no such command; --help lists what there is"},
        {{"populat", "A.ddq"}, "populat: no such command; --help lists what there is"},
        {{"--fly"}, "--fly: no such option; --help lists what there is"},
        {{"settings", "--fly"}, "--fly: settings takes no such option"},
        {{"settings", "A.ini", "B.ini"}, "B.ini: settings takes no such argument"},
        {{"practice", "A"}, "A: practice takes no such argument"},
        {{"--today", "tomorrow", "settings"}, "--today: 'tomorrow' is no day of the form YYYY-MM-DD"},
        {{"--today", "2026-02-30", "settings"}, "--today: '2026-02-30' is no day of the form YYYY-MM-DD"},
        {{"--today", "26-02-03", "settings"}, "--today: '26-02-03' is no day of the form YYYY-MM-DD"},
        {{"--today", "2026-2-3", "settings"}, "--today: '2026-2-3' is no day of the form YYYY-MM-DD"},
        {{"--today", "1899-12-31", "settings"}, "--today: '1899-12-31' is no day of the form YYYY-MM-DD"},
        {{"--time", "24:00", "settings"}, "--time: '24:00' is no time of the form HH:MM"},
        {{"--time", "9:5", "settings"}, "--time: '9:5' is no time of the form HH:MM"},
        {{"--time", "-1:10", "settings"}, "--time: '-1:10' is no time of the form HH:MM"},
        {{"--wait", "long", "settings"}, "--wait: 'long' is no whole number of seconds from 0 to 86400"},
        {{"--wait", "-1", "settings"}, "--wait: '-1' is no whole number of seconds from 0 to 86400"},
        {{"--wait", "86401", "settings"}, "--wait: '86401' is no whole number of seconds from 0 to 86400"},
        {{"--wait", "", "settings"}, "--wait: '' is no whole number of seconds from 0 to 86400"},
        {{"--app", "", "settings"}, "--app: a folder's name is missing"},
        {{"series", "A", "--interval", "yearly"}, "--interval: 'yearly' is none of daily, weekly, monthly"},
        {{"series", "A", "--interval", "Daily"}, "--interval: 'Daily' is none of daily, weekly, monthly"},
        {{"series", "A", "--window", "many"}, "--window: 'many' is no whole number from 0 to 18000"},
        {{"series", "A", "--window", "-3"}, "--window: '-3' is no whole number from 0 to 18000"},
        {{"series", "A", "--window", "2.5"}, "--window: '2.5' is no whole number from 0 to 18000"},
        {{"series", "A", "--window", "18001"}, "--window: '18001' is no whole number from 0 to 18000"},
        {{"series"}, "TICKER is required"},
        {{"select"}, "FILE is required"},
        {{"delete"}, "FILE TICKER is required"},
        {{"delete", "A.ddq"}, "FILE TICKER: delete takes FILE TICKER..."},
        {{"combine", "A.ddq"}, "A B OUT: combine takes A B OUT"},
        {{"split", "A"}, "TICKER: split takes TICKER NEW/OLD"},
        {{"split", "A", "2/1", "B"}, "TICKER: split takes TICKER NEW/OLD"},
        {{"select", "A.ddq", "B.ddq"}, "B.ddq: select takes no such argument"},
        {{"select", "A.ddq", "--out", "B.txt"}, "--out: 'B.txt' does not end in .dbe"},
        {{"select", "A.ddq", "--out", "../B.dbe"}, "--out: '../B.dbe' is not in Data"},
        {{"select", "A.ddq", "--out", "/tmp/B.dbe"}, "--out: '/tmp/B.dbe' is not in Data"},
        {{"select", "A.ddq", "--out", ".dbe"}, "--out: '.dbe' is no name"},
        {{"fly\nhigh"}, "fly?high: no such command; --help lists what there is"},
    };
    for (const BadCall& call : calls) EXPECT_EQ(Parse(call.arguments).error, call.error);
}

TEST(CommandLine, AnOptionGivenTwiceIsAnError) {
    const std::string error = Parse({"settings", "--app", "a", "--app", "b"}).error;
    EXPECT_THAT(error, HasSubstr("--app"));
    EXPECT_THAT(error, Not(HasSubstr("\n")));
}

TEST(CommandLine, AnOptionWithoutItsValueIsAnError) {
    EXPECT_THAT(Parse({"settings", "--app"}).error, HasSubstr("--app"));
    EXPECT_THAT(Parse({"series", "A", "--interval"}).error, HasSubstr("--interval"));
}

TEST(Help, ListsEveryCommandAndNoOther) {
    const std::string help = Parse({"--help"}).help;
    EXPECT_EQ(help, ToolHelp());
    std::vector<std::string_view> names;
    for (const Command& command : Commands()) {
        names.push_back(command.name);
        EXPECT_THAT(help, HasSubstr("\n  " + std::string(command.name) + " ")) << command.name;
    }
    const std::vector<std::string_view> expected = {
        "catalogue",
        "series",
        "indicators",
        "evaluate",
        "explain",
        "signals",
        "backtest",
        "chart",
        "select",
        "study",
        "history",
        "populate",
        "update",
        "fundamentals",
        "import",
        "export",
        "add",
        "delete",
        "alarm",
        "alarms",
        "split",
        "split-calendar",
        "practice",
        "schedule",
        "combine",
        "remove-last-update",
        "undo",
        "check",
        "backup",
        "restore",
        "research",
        "settings",
        "sources",
        "symbols",
        "import-history",
    };
    EXPECT_EQ(names, expected);
}

TEST(Help, EveryCommandHasItsOwn) {
    for (const Command& command : Commands()) {
        const std::string help = Parse({std::string(command.name), "--help"}).help;
        EXPECT_THAT(help, HasSubstr("Usage: brantlow-batch " + std::string(command.name)));
        EXPECT_THAT(help, HasSubstr(std::string(command.usage)));
        EXPECT_THAT(help, HasSubstr(std::string(command.summary)));
        for (const CommandOption& option : command.options) {
            EXPECT_THAT(help, HasSubstr("\n  " + std::string(option.name))) << command.name;
        }
        for (const CommandOption& option : GlobalOptions()) {
            EXPECT_THAT(help, HasSubstr("\n  " + std::string(option.name))) << command.name;
        }
    }
}

TEST(Help, ThePageOfTheBatchToolNamesEveryCommand) {
    const std::string page = BytesOrEmpty(kAssets / "Help/batch.html");
    std::vector<std::string> words;
    constexpr std::string_view kCell = "<tr><td><code>";
    for (std::size_t at = page.find(kCell); at != std::string::npos; at = page.find(kCell, at + 1)) {
        const std::size_t begin = at + kCell.size();
        std::string cell = page.substr(begin, page.find('<', begin) - begin);
        std::erase(cell, ',');
        for (const std::string_view word : SplitAt(cell, ' ')) words.emplace_back(word);
    }
    for (const Command& command : Commands())
        EXPECT_THAT(words, ::testing::Contains(std::string(command.name)));
}

TEST(CommandTable, EveryRowIsWhole) {
    for (const Command& command : Commands()) {
        EXPECT_EQ(FindCommand(command.name), &command);
        EXPECT_NE(command.run, nullptr) << command.name;
        EXPECT_LE(command.fewestOperands, command.mostOperands) << command.name;
        EXPECT_EQ(command.operand.empty(), command.mostOperands == 0) << command.name;
        EXPECT_EQ(command.usage.empty(), command.mostOperands == 0) << command.name;
        EXPECT_FALSE(command.summary.empty()) << command.name;
    }
    EXPECT_EQ(FindCommand("histor"), nullptr);
}

class UsageTest : public BatchTest {};

TEST_F(UsageTest, AWrongCallEndsWithTwoAndOneLineAndChangesNothing) {
    Write("Data/A.ddq", "Ticker Symbol\r\nKO\r\n");
    const auto before = Everything();
    for (const auto& arguments :
         std::vector<std::vector<std::string>>{{},
                                               {"fly"},
                                               {"select", "A.ddq", "--out", "x"},
                                               {"select", "A.ddq", "--interval", "hourly"},
                                               {"practice", "--today", "never"},
                                               {"practice", "--fly"}}) {
        const CallResult result = Call(arguments);
        EXPECT_EQ(result.status, ExitStatus::Usage);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    }
    EXPECT_EQ(Everything(), before);
}

TEST_F(UsageTest, AnApplicationFolderThatIsNoneIsNamed) {
    const CallResult result = Call({"--app", (folder / "none").string(), "settings"});
    EXPECT_EQ(result.status, ExitStatus::Usage);
    EXPECT_EQ(result.err, "--app: '" + (folder / "none").string() + "' is no folder\n");
}

TEST_F(UsageTest, HelpEndsWithZeroAndGoesToStandardOutput) {
    const CallResult result = Call({"select", "--help"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, HasSubstr("Usage: brantlow-batch select FILE"));
}

}  // namespace
}  // namespace brantlow
