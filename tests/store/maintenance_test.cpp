// Joining tables, taking an update back, back-ups and the files that may be deleted.
#include <gmock/gmock.h>

#include <memory>

#include "base/clock.h"
#include "base/undo_store.h"
#include "shell/session.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"
#include "store/back_up.h"
#include "store/columns.h"
#include "store/combine_tables.h"
#include "store/file_deletion.h"
#include "store/remove_update.h"
#include "store/store_fixture.h"
#include "store/year_growth.h"
#include "support/recording_person.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

class MaintenanceTest : public ::testing::Test {
  protected:
    MaintenanceTest() {
        folder.Folder("Data");
        session.settings.QuoteFolder = folder.Folder("Quotes/EOD");
        session.settings.DataSettings.Set(3, Value::OfText("Back Up\\Data"));
        session.settings.DataSettings.Set(5, Value::OfText("Back Up\\Quotes"));
    }
    BackUpResult Copy(BackedUp what, bool restores) {
        return RunBackUpJob(BackUpJobOf(what, restores), session);
    }
    CombinedFile Combine(const std::string& output) {
        return CombineQuoteFiles(session, "A.ddq", "B.ddq", output);
    }

    TestFolder folder;
    FixedClock clock{Date{std::chrono::year{2026}, std::chrono::March, std::chrono::day{9}}};
    RecordingPerson person;
    Session session{folder.Root(), clock, person};
};

// A record as the database writes it; the numbers behind the volume are 1, 2, 3 ...
std::string Record(const std::string& day, const std::string& close) {
    return "\"" + day + "\",\"16:00\"," + close + ",1,2,300,1,2,3,4,5,\"\",\"\",6,7,8,9,123.4567,10\r\n";
}

TEST_F(MaintenanceTest, TheBackUpWordsStandAsTheyAre) {
    const struct {
        const char* command;
        const char* title;
        const char* question;
        bool restores;
    } rows[] = {
        {"mnuEditBackUpProgramFiles", "Back Up Program Files?", "Do you want back up program files?", false},
        {"mnuEditBackUpQuoteDatabase", "Back Up Quote Database?", "Do you want back up quote database?",
         false},
        {"mnuEditRestoreProgramFiles", "Restore Program Files?", "Do you want to restore program files?",
         true},
        {"mnuEditRestoreQuoteDatabase", "Restore Quote Database?",
         "Do you want to restore the quote database?", true}};
    ASSERT_EQ(std::size(rows), kBackUpJobs.size());
    for (std::size_t i = 0; i < kBackUpJobs.size(); ++i) {
        EXPECT_EQ(kBackUpJobs[i].command, rows[i].command);
        EXPECT_EQ(kBackUpJobs[i].title, rows[i].title);
        EXPECT_EQ(kBackUpJobs[i].question, rows[i].question);
        EXPECT_EQ(kBackUpJobs[i].restores, rows[i].restores);
    }
}

TEST_F(MaintenanceTest, DrawingsGoToTheBackUpOfTheProgramFilesAndComeBackInTheSameChange) {
    folder.Folder("Back Up");
    folder.Write("Data/Jan.ddq", "table");
    folder.Write("Data/Drawings/KO.json", "first");
    folder.Write("Data/Drawings/.brantlow-1-x.tmp", "unfinished");
    EXPECT_EQ(Copy(BackedUp::ProgramFiles, false).copy.copied, 2U);
    EXPECT_EQ(folder.Read("Back Up/Data/Drawings/KO.json"), "first");
    folder.Write("Data/Jan.ddq", "other table");
    folder.Write("Data/Drawings/KO.json", "second");
    EXPECT_EQ(Copy(BackedUp::ProgramFiles, true).copy.copied, 2U);
    EXPECT_EQ(folder.Read("Data/Drawings/KO.json"), "first");
    ASSERT_FALSE(UndoChange(ChangePlaceOf(session), "").fault);
    EXPECT_EQ(folder.Read("Data/Drawings/KO.json"), "second");
    EXPECT_EQ(folder.Read("Data/Jan.ddq"), "other table");
}

TEST_F(MaintenanceTest, DefinitionsOfSourcesGoToTheBackUpAndComeBackWhereTheyAreGone) {
    folder.Folder("Back Up");
    folder.Write("Data/Jan.ddq", "table");
    folder.Write("Data/Sources/mine.json", "first");
    EXPECT_EQ(Copy(BackedUp::ProgramFiles, false).copy.copied, 2U);
    EXPECT_EQ(folder.Read("Back Up/Data/Sources/mine.json"), "first");
    std::filesystem::remove_all(folder.Root() / "Data/Sources");
    EXPECT_EQ(Copy(BackedUp::ProgramFiles, true).copy.copied, 2U);
    EXPECT_EQ(folder.Read("Data/Sources/mine.json"), "first");
    ASSERT_FALSE(UndoChange(ChangePlaceOf(session), "").fault);
    EXPECT_FALSE(IsRegularFile(folder.Root() / "Data/Sources/mine.json"));
}

TEST_F(MaintenanceTest, ProgramFilesGoToTheirBackUpAndComeBack) {
    folder.Folder("Back Up");
    folder.Write("Data/Jan.ddq", "first");
    folder.Write("Data/VTRMRUset.ini", "recent");
    folder.Write("Data/sub/x.ddq", "below");
    EXPECT_EQ(Copy(BackedUp::ProgramFiles, false).copy.copied, 2U);
    EXPECT_EQ(person.progress, (std::vector<double>{0.5, 1}));
    EXPECT_EQ(folder.Read("Back Up/Data/Jan.ddq"), "first");
    EXPECT_EQ(folder.Read("Back Up/Data/sub/x.ddq"), "");

    folder.Write("Data/Jan.ddq", "second");
    folder.Write("Data/New.ddq", "since then");
    const BackUpResult restored = Copy(BackedUp::ProgramFiles, true);
    EXPECT_EQ(restored.copy.copied, 2U);
    EXPECT_EQ(restored.refusal, "");
    EXPECT_EQ(folder.Read("Data/Jan.ddq"), "first");
    EXPECT_EQ(folder.Read("Data/New.ddq"), "since then");
}

TEST_F(MaintenanceTest, TheDatabaseGoesToItsOwnBackUp) {
    folder.Folder("Back Up");
    folder.Write("Quotes/EOD/AAA.26", "days");
    EXPECT_EQ(Copy(BackedUp::QuoteDatabase, false).copy.copied, 1U);
    EXPECT_EQ(folder.Read("Back Up/Quotes/AAA.26"), "days");
    folder.Write("Quotes/EOD/AAA.26", "spoiled");
    EXPECT_EQ(Copy(BackedUp::QuoteDatabase, true).copy.copied, 1U);
    EXPECT_EQ(folder.Read("Quotes/EOD/AAA.26"), "days");
}

TEST_F(MaintenanceTest, WithoutAFolderInTheSettingsABackUpIsRefused) {
    folder.Write("Data/Jan.ddq", "first");
    session.settings.DataSettings.Set(3, Value::OfText(""));
    session.settings.DataSettings.Set(5, Value::OfText(""));
    for (const bool restores : {false, true}) {
        EXPECT_EQ(Copy(BackedUp::ProgramFiles, restores).refusal,
                  "No folder is chosen for the back-up of the program files. Go to Settings, Application to "
                  "choose one.");
        EXPECT_EQ(Copy(BackedUp::QuoteDatabase, restores).refusal,
                  "No folder is chosen for the back-up of the quote database. Go to Settings, Application to "
                  "choose one.");
    }
    EXPECT_EQ(folder.Files(), Lines{"Data/Jan.ddq"});
}

TEST_F(MaintenanceTest, AMissingBackUpIsToldAndNothingIsCopied) {
    folder.Write("Data/Jan.ddq", "first");
    EXPECT_EQ(Copy(BackedUp::ProgramFiles, true).refusal,
              "There are no files in " + (folder.Root() / "Back Up/Data").string() + ".");
    EXPECT_EQ(folder.Files(), Lines{"Data/Jan.ddq"});
}

TEST_F(MaintenanceTest, FilesThatCannotBeCopiedAreTold) {
    folder.Write("Data/Jan.ddq", "first");
    folder.Write("Back Up", "a file stands in the way");
    const BackUpResult result = Copy(BackedUp::ProgramFiles, false);
    EXPECT_EQ(result.copy.failed, 1U);
    EXPECT_EQ(result.refusal, "Copying 1 file to " + (folder.Root() / "Back Up/Data").string() +
                                  " failed: " + (folder.Root() / "Back Up/Data/Jan.ddq").string() +
                                  ": cannot be saved (Not a directory)");
}

TEST_F(MaintenanceTest, RemoveLastUpdateWithoutAListChangesNothing) {
    folder.Write("Quotes/EOD/AAA.26", Record("03/06/26", "12"));
    EXPECT_FALSE(RemoveLastUpdate(session).hasList);
    EXPECT_EQ(folder.Read("Quotes/EOD/AAA.26"), Record("03/06/26", "12"));
    EXPECT_EQ(kNoUpdateToRemove,
              "You will need to update the quote file before you can remove the last day of data.");
    EXPECT_EQ(kRemoveUpdateQuestion, "Do you want to remove the last update from the database?");
    EXPECT_EQ(kRemoveUpdateTitle, "Remove Update?");
}

TEST_F(MaintenanceTest, RemoveLastUpdateTakesTheLastRecordWhateverItsDate) {
    folder.Write("Quotes/EOD/QuoteList.ddq", "3\r\n\"AAA\"\r\n\"BBB\"\r\n\"GONE\"\r\n");
    folder.Write("Quotes/EOD/AAA.26", Record("03/05/26", "11.12345") + Record("03/06/26", "12"));
    folder.Write("Quotes/EOD/BBB.26", Record("01/02/26", "5"));
    folder.Write("Quotes/EOD/AAA.25", Record("12/31/25", "10"));
    folder.Write("Quotes/EOD/CCC.26", Record("03/06/26", "7"));
    const RemovedUpdate first = RemoveLastUpdate(session);
    EXPECT_TRUE(first.hasList);
    EXPECT_EQ(first.removed, 2U);
    EXPECT_EQ(folder.Read("Quotes/EOD/AAA.26"), Record("03/05/26", "11.123"));
    EXPECT_EQ(folder.Files(), (Lines{"Quotes/EOD/AAA.25", "Quotes/EOD/AAA.26", "Quotes/EOD/CCC.26",
                                     "Quotes/EOD/QuoteList.ddq"}));
    EXPECT_EQ(folder.Read("Quotes/EOD/CCC.26"), Record("03/06/26", "7"));
    EXPECT_EQ(person.progress.back(), 1.0);
    EXPECT_EQ(person.pumps, 3);
    EXPECT_EQ(person.beside, 1);
    // The list stays, so that a second call takes a second day.
    EXPECT_EQ(RemoveLastUpdate(session).removed, 1U);
    EXPECT_EQ(folder.Read("Quotes/EOD/AAA.25"), Record("12/31/25", "10"));
    EXPECT_EQ(RemoveLastUpdate(session).removed, 0U);
}

TEST_F(MaintenanceTest, ALineThatWasCutOffIsTheLastRecordThatRemoveLastUpdateTakesAndIsTold) {
    folder.Write("Quotes/EOD/QuoteList.ddq", "2\r\n\"AAA\"\r\n\"BBB\"\r\n");
    folder.Write("Quotes/EOD/AAA.26", Record("03/05/26", "11") + "\"03/06/26\",\"\",1");
    folder.Write("Quotes/EOD/BBB.26", Record("03/05/26", "5") + Record("03/06/26", "6"));
    const RemovedUpdate removed = RemoveLastUpdate(session);
    EXPECT_EQ(removed.removed, 2U);
    EXPECT_EQ(HalfLineWords(removed.halfLines), "the half line at the end of AAA.26 was taken out");
    EXPECT_EQ(folder.Read("Quotes/EOD/AAA.26"), Record("03/05/26", "11"));
    EXPECT_EQ(folder.Read("Quotes/EOD/BBB.26"), Record("03/05/26", "5"));
}

TEST_F(MaintenanceTest, ARemovalThatIsStoppedLeavesAllAsItWas) {
    folder.Write("Quotes/EOD/QuoteList.ddq", "2\r\n\"AAA\"\r\n\"BBB\"\r\n");
    folder.Write("Quotes/EOD/AAA.26", Record("03/05/26", "11") + Record("03/06/26", "12"));
    folder.Write("Quotes/EOD/BBB.26", Record("01/02/26", "5"));
    const Lines before = folder.Files();
    session.CurrentTicker = "SEL";
    person.events.push_back([] {});
    person.events.push_back([this] { session.run.ProcessCommand = kStopRun; });
    const RemovedUpdate result = RemoveLastUpdate(session);
    EXPECT_TRUE(result.stopped);
    EXPECT_FALSE(result.error);
    EXPECT_EQ(result.removed, 0U);
    EXPECT_EQ(folder.Files(), before);
    EXPECT_EQ(folder.Read("Quotes/EOD/AAA.26"), Record("03/05/26", "11") + Record("03/06/26", "12"));
    EXPECT_EQ(session.CurrentTicker, "SEL");
}

TEST_F(MaintenanceTest, ABackUpThatIsStoppedKeepsWhatIsCopiedAndARestoringNothing) {
    folder.Folder("Back Up");
    for (const char* name : {"A.ddq", "B.ddq", "C.ddq"})
        folder.Write(std::string("Data/") + name, std::string("own ") + name);
    const auto stopAtOnce = [this] { session.run.ProcessCommand = kStopRun; };
    person.events.push_back(stopAtOnce);
    const BackUpResult backUp = Copy(BackedUp::ProgramFiles, false);
    EXPECT_TRUE(backUp.copy.stopped);
    EXPECT_EQ(backUp.copy.copied, 1U);
    EXPECT_EQ(backUp.copy.failed, 0U);
    EXPECT_THAT(backUp.report.Line(), ::testing::HasSubstr("stopped"));
    Copy(BackedUp::ProgramFiles, false);
    for (const char* name : {"A.ddq", "B.ddq", "C.ddq"})
        folder.Write(std::string("Data/") + name, "since then");
    person.events.push_back([] {});
    person.events.push_back(stopAtOnce);
    const BackUpResult restored = Copy(BackedUp::ProgramFiles, true);
    EXPECT_TRUE(restored.copy.stopped);
    EXPECT_EQ(restored.copy.copied, 0U);
    for (const char* name : {"A.ddq", "B.ddq", "C.ddq"})
        EXPECT_EQ(folder.Read(std::string("Data/") + name), "since then");
}

TEST_F(MaintenanceTest, AYearFileOfMoreThanAThousandRecordsIsCut) {
    folder.Write("Quotes/EOD/QuoteList.ddq", "1\r\n\"AAA\"\r\n");
    std::string records;
    for (int i = 1; i <= 1005; ++i) records += Record("03/06/26", std::to_string(i));
    folder.Write("Quotes/EOD/AAA.26", records);
    RemoveLastUpdate(session);
    const std::string left = folder.Read("Quotes/EOD/AAA.26");
    EXPECT_EQ(std::count(left.begin(), left.end(), '\n'), 999);
    EXPECT_TRUE(left.ends_with(Record("03/06/26", "999")));
}

TEST_F(MaintenanceTest, AListOfHostileNamesReachesNoOtherFolder) {
    folder.Write("Quotes/EOD/QuoteList.ddq", "3\r\n\"../AAA\"\r\n\"\"\r\n\"NUL\"\r\n");
    folder.Write("Quotes/AAA.26", Record("03/06/26", "12"));
    EXPECT_EQ(RemoveLastUpdate(session).removed, 0U);
    EXPECT_EQ(folder.Read("Quotes/AAA.26"), Record("03/06/26", "12"));
}

TEST_F(MaintenanceTest, CombineOfThreeRowsAndTwoGivesFour) {
    folder.Write("Data/A.ddq", "Ticker Symbol\tName\r\nA1\tx\r\nA2\ty\r\nA3\tz\r\n");
    folder.Write("Data/B.ddq", "Ticker Symbol\r\nB1\r\nA1\r\n");
    const CombinedFile combined = Combine("C.ddq");
    EXPECT_EQ(combined.rows, 4U);
    EXPECT_EQ(folder.Read("Data/C.ddq"), QuoteHeader() + "\r\nA1\tx\r\nA2\ty\r\nB1\r\nA1\r\n");
    EXPECT_EQ(folder.Read("Data/A.ddq"), "Ticker Symbol\tName\r\nA1\tx\r\nA2\ty\r\nA3\tz\r\n");
}

TEST_F(MaintenanceTest, CombineUnderANameWithoutDdqHasNoHeader) {
    folder.Write("Data/A.ddq", "Ticker Symbol\nA1\nA2");
    folder.Write("Data/B.ddq", "Ticker Symbol\nB1\n");
    EXPECT_EQ(Combine("C.txt").rows, 2U);
    EXPECT_EQ(folder.Read("Data/C.txt"), "A1\r\nB1\r\n");
}

TEST_F(MaintenanceTest, CombineWithATableWithoutRowsLosesNothing) {
    folder.Write("Data/A.ddq", "Ticker Symbol\r\n");
    folder.Write("Data/B.ddq", "Ticker Symbol\r\nB1\r\nB2\r\n");
    EXPECT_EQ(Combine("C.txt").rows, 2U);
    EXPECT_EQ(folder.Read("Data/C.txt"), "B1\r\nB2\r\n");
}

TEST_F(MaintenanceTest, CombineHoldsNoMoreThanEighteenThousandRows) {
    std::string many = "Ticker Symbol\n";
    for (int i = 0; i < 17000; ++i) many += "T\n";
    folder.Write("Data/A.ddq", many);
    folder.Write("Data/B.ddq", many);
    EXPECT_EQ(Combine("C.ddq").rows, 18000U);
}

TEST_F(MaintenanceTest, CombineWithAFileThatIsNotThereWritesNothing) {
    folder.Write("Data/A.ddq", "Ticker Symbol\r\nA1\r\n");
    EXPECT_EQ(Sentence(Combine("C.ddq").unread), "B.ddq: no such file in Data");
    EXPECT_EQ(folder.Files(), Lines{"Data/A.ddq"});
}

TEST_F(MaintenanceTest, CombineWithAFileThatCannotBeReadSaysWhyAndWritesNothing) {
    folder.Write("Data/A.ddq", "Ticker Symbol\r\nA1\r\n");
    folder.Folder("Data/B.ddq");
    EXPECT_EQ(Sentence(Combine("C.ddq").unread), "B.ddq: cannot be read (Is a directory)");
    EXPECT_EQ(folder.Files(), Lines{"Data/A.ddq"});
}

TEST_F(MaintenanceTest, ACombinedFileThatCannotBeWrittenIsTold) {
    folder.Write("Data/A.ddq", "Ticker Symbol\r\nA1\r\n");
    folder.Write("Data/B.ddq", "Ticker Symbol\r\nB1\r\n");
    folder.Folder("Data/C.ddq");
    EXPECT_TRUE(Combine("C.ddq").error);
}

TEST_F(MaintenanceTest, AChosenPathIsCutToItsName) {
    EXPECT_EQ(BareFileName("/home/me/Data/Jan.ddq"), "Jan.ddq");
    EXPECT_EQ(BareFileName("C:\\Data\\Jan.ddq"), "Jan.ddq");
    EXPECT_EQ(BareFileName("Jan.ddq"), "Jan.ddq");
    EXPECT_EQ(BareFileName(""), "");
    EXPECT_EQ(BareFileName("/" + std::string(150, 'x')), std::string(100, 'x'));
}

TEST_F(MaintenanceTest, FilesOfTheProgramMayNotBeDeleted) {
    const struct {
        const char* name;
        bool may;
    } rows[] = {{"Jan.ddq", true},          {"Jan.dbe", true},         {"Evaluations.dbe", false},
                {"Jan.efq", true},          {"VTRDATAset.ini", false}, {"VTRDATASET.INI", false},
                {"library.dll", false},     {"tool.exe", false},       {"New EOD Quotes.db", false},
                {"evaluations.DBE", false}, {"AAA.26", true}};
    for (const auto& row : rows) EXPECT_EQ(MayDelete(row.name), row.may) << row.name;
    EXPECT_EQ(kMayNotDelete,
              "You may not delete this file or you may not delete files with these extensions");
    EXPECT_EQ(kDeleteFileQuestion, "Do you want to delete the file?");
    EXPECT_EQ(kDeleteFileTitle, "Delete File?");
}

}  // namespace
}  // namespace brantlow
