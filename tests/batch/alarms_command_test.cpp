#include <gmock/gmock.h>

#include "batch_fixture.h"
#include "shell/settings/settings_files.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

class AlarmsCommand : public BatchTest {
  protected:
    static constexpr const char* kList =
        "2026-11-19 16:00\tKO\t72.000\thigh\t70\tMine.ddq\tmailed\r\n"
        "2026-11-20 16:00\tB\xe9\t5.000\tlow\t6\tMine.ddq\tto be mailed\r\n";
    static constexpr const char* kLines =
        "{\"when\":\"2026-11-19 "
        "16:00\",\"ticker\":\"KO\",\"price\":\"72.000\",\"kind\":\"high\",\"limit\":\"70\","
        "\"table\":\"Mine.ddq\",\"mailed\":true}\n"
        "{\"when\":\"2026-11-20 "
        "16:00\",\"ticker\":\"B\xc3\xa9\",\"price\":\"5.000\",\"kind\":\"low\",\"limit\":\"6\","
        "\"table\":\"Mine.ddq\",\"mailed\":false}\n";
};

TEST_F(AlarmsCommand, ListsWhatFiredAndLeavesItUntilItIsRead) {
    Write("Data/Fired Alarms.txt", kList);
    for (int i = 0; i < 2; ++i) {
        const CallResult listed = Call({"alarms"});
        EXPECT_EQ(listed.status, ExitStatus::Done);
        EXPECT_EQ(listed.out, kLines);
    }
    EXPECT_EQ(Call({"alarms", "--read"}).out, kLines);
    EXPECT_FALSE(std::filesystem::exists(folder / "Data/Fired Alarms.txt"));
    EXPECT_EQ(Call({"alarms", "--read"}).out, "");
    EXPECT_EQ(Call({"alarms", "--read"}).status, ExitStatus::Done);
}

TEST_F(AlarmsCommand, AnAlarmForWhichNoMailWasSetUpIsNotMailed) {
    Write("Data/Fired Alarms.txt", "2026-11-19 16:00\tKO\t72.000\thigh\t70\tMine.ddq\tno mail\r\n");
    EXPECT_THAT(Call({"alarms"}).out, HasSubstr("\"mailed\":false}\n"));
}

TEST_F(AlarmsCommand, RefusesAListThatCannotBeRead) {
    std::filesystem::create_directories(folder / "Data/Fired Alarms.txt/inside");
    const CallResult result = Call({"alarms", "--read"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_THAT(result.err, HasSubstr("Fired Alarms.txt: cannot be read"));
}

TEST_F(AlarmsCommand, ATestMailWithoutAServerIsRefused) {
    const CallResult result = Call({"alarms", "--test-mail"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "VTRMAILset.ini: no mail server is named\n");
}

}  // namespace
}  // namespace brantlow
