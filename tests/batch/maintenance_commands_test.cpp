#include "batch_fixture.h"

namespace brantlow {
namespace {

constexpr const char* kRecord = "\"03/06/26\",\"16:00\",12,1,2,300,1,2,3,4,5,\"\",\"\",6,7,8,9,10,11\r\n";

class MaintenanceCommands : public BatchTest {};

TEST_F(MaintenanceCommands, CombineJoinsTwoFiles) {
    Write("Data/A.ddq", "Ticker Symbol\r\nA1\r\nA2\r\nA3\r\n");
    Write("Data/B.ddq", "Ticker Symbol\r\nB1\r\nB2\r\n");
    const CallResult result = Call({"combine", "A.ddq", "B.ddq", "C.txt"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(result.out, "Rows: 4\n");
    EXPECT_EQ(Read("Data/C.txt"), "A1\r\nA2\r\nB1\r\nB2\r\n");
}

TEST_F(MaintenanceCommands, CombineRefusesWhatIsNotInDataAndFilesOfTheProgram) {
    Write("Data/A.ddq", "Ticker Symbol\r\nA1\r\n");
    const auto before = Everything();
    EXPECT_EQ(Call({"combine", "A.ddq", "No.ddq", "C.ddq"}).err, "No.ddq: no such file in Data\n");
    EXPECT_EQ(Call({"combine", "A.ddq", "A.ddq", "../C.ddq"}).status, ExitStatus::Usage);
    EXPECT_EQ(Call({"combine", "A.ddq", "A.ddq", "VTRDATAset.ini"}).status, ExitStatus::Usage);
    EXPECT_EQ(Call({"combine", "A.ddq", "A.ddq"}).status, ExitStatus::Usage);
    EXPECT_EQ(Everything(), before);
}

TEST_F(MaintenanceCommands, RemoveLastUpdateTakesARecordOfEachTicker) {
    Write("Quotes/EOD/QuoteList.ddq", "1\r\n\"AAA\"\r\n");
    Write("Quotes/EOD/AAA.26", std::string(kRecord) + kRecord);
    const CallResult result = Call({"remove-last-update"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(result.out, "Records removed: 1\n");
    EXPECT_EQ(Read("Quotes/EOD/AAA.26"), kRecord);
}

TEST_F(MaintenanceCommands, RemoveLastUpdateWithoutAListIsRefusedInTheProgramsWords) {
    const CallResult result = Call({"remove-last-update"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err,
              "You will need to update the quote file before you can remove the last day of data.\n");
}

TEST_F(MaintenanceCommands, BackUpAndRestoreCopyTheFiles) {
    Write("Data/VTRDATAset.ini", "\"Manually\"\r\n\"True\"\r\n\"Kept\"\r\n\"True\"\r\n\"KeptQuotes\"\r\n");
    Write("Data/A.ddq", "first");
    Write("Quotes/EOD/AAA.26", "days");
    const CallResult programs = Call({"backup", "program"});
    EXPECT_EQ(programs.status, ExitStatus::Done) << programs.err;
    EXPECT_EQ(Read("Kept/A.ddq"), "first");
    EXPECT_EQ(Call({"backup", "database"}).out, "Files copied: 1\n");
    EXPECT_EQ(Read("KeptQuotes/AAA.26"), "days");
    Write("Quotes/EOD/AAA.26", "spoiled");
    Write("Data/A.ddq", "spoiled");
    EXPECT_EQ(Call({"restore", "database"}).out, "Files copied: 1\n");
    EXPECT_EQ(Call({"restore", "program"}).out, programs.out);
    EXPECT_EQ(Read("Quotes/EOD/AAA.26"), "days");
    EXPECT_EQ(Read("Data/A.ddq"), "first");
}

TEST_F(MaintenanceCommands, BackUpRefusesAnotherWordAndAMissingFolder) {
    const CallResult usage = Call({"backup", "all"});
    EXPECT_EQ(usage.status, ExitStatus::Usage);
    EXPECT_EQ(usage.err, "program|database: 'all' is neither program nor database\n");
    Write("Data/VTRDATAset.ini", "\"Manually\"\r\n\"True\"\r\n\"\"\r\n\"True\"\r\n\"\"\r\n");
    const CallResult refused = Call({"restore", "program"});
    EXPECT_EQ(refused.status, ExitStatus::Refused);
    EXPECT_EQ(
        refused.err,
        "No folder is chosen for the back-up of the program files. Go to Settings, Application to choose "
        "one.\n");
}

}  // namespace
}  // namespace brantlow
