#include <gmock/gmock.h>

#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;

constexpr const char* kAlarmTable =
    "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nAAA\t1.000\t11\t\r\nBBB\t2.000\t\t5\r\n";

class EditCommands : public BatchTest {
  protected:
    EditCommands() {
        Write("Data/Mine.ddq", kAlarmTable);
        Write("Data/New EOD Quotes.db", "Ticker Symbol\tLast Price\r\n");
        Write("Quotes/EOD/AAA.26", "history");
        Write("Quotes/EOD/BBB.26", "history");
    }
    void ExpectRefused(const std::vector<std::string>& arguments, ExitStatus status, const char* err) {
        const auto before = Everything();
        const CallResult result = Call(arguments);
        EXPECT_EQ(result.status, status) << arguments.front();
        EXPECT_EQ(result.err, err);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(Everything(), before);
    }
};

TEST_F(EditCommands, DeleteTakesTheRow) {
    const CallResult result = Call({"delete", "Mine.ddq", "aaa"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Deleted: AAA\n");
    EXPECT_EQ(Read("Data/Mine.ddq"),
              "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nBBB\t2.000\t\t5\r\n");
    EXPECT_EQ(Read("Quotes/EOD/AAA.26"), "history");
}

TEST_F(EditCommands, DeleteTakesTheHistoryWhenAsked) {
    Call({"delete", "Mine.ddq", "AAA", "--history"});
    EXPECT_EQ(Read("Quotes/EOD/AAA.26"), "");
    EXPECT_EQ(Read("Quotes/EOD/BBB.26"), "history");
}

TEST_F(EditCommands, TheHistoryOfATickerThatTheTableLacksStays) {
    Write("Quotes/EOD/XYZ.26", "history");
    ExpectRefused({"delete", "Mine.ddq", "XYZ", "--history"}, ExitStatus::Done, "");
}

TEST_F(EditCommands, TheLastTickerStaysWithoutAWord) {
    const CallResult result = Call({"delete", "Mine.ddq", "AAA", "BBB", "--history"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Deleted: AAA\n");
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("BBB"));
    EXPECT_EQ(Read("Quotes/EOD/BBB.26"), "history");
}

TEST_F(EditCommands, WhatTheWindowPassesOverIsNoFailure) {
    ExpectRefused({"delete", "Mine.ddq", "XYZ"}, ExitStatus::Done, "");
    ExpectRefused({"add", "Mine.ddq", "aaa", "NUL"}, ExitStatus::Done, "");
    ExpectRefused({"alarm", "Mine.ddq", "XYZ", "--high", "5"}, ExitStatus::Done, "");
}

TEST_F(EditCommands, TheTemplateIsRefusedInTheProgramsWords) {
    const char* sentence = "Save this file as another name before editing.\n";
    for (const char* command : {"add", "delete"}) {
        ExpectRefused({command, "New EOD Quotes.db", "AAA"}, ExitStatus::Refused, sentence);
    }
    ExpectRefused({"alarm", "New EOD Quotes.db", "AAA", "--high", "5"}, ExitStatus::Refused, sentence);
}

TEST_F(EditCommands, AnEmptyTickerIsRefusedInTheProgramsWords) {
    ExpectRefused({"add", "Mine.ddq", ""}, ExitStatus::Refused,
                  "Enter a Ticker Symbol in the Symbol Box before selecting Add\n");
    ExpectRefused({"delete", "Mine.ddq", " "}, ExitStatus::Refused,
                  "Enter a Ticker Symbol in the Symbol Box before selecting Delete\n");
    ExpectRefused({"alarm", "Mine.ddq", "", "--low", "5"}, ExitStatus::Refused,
                  "Enter a Ticker Symbol in the Symbol Box before selecting Edit\n");
}

TEST_F(EditCommands, ATickerThatWouldBreakALineOrAnAddressIsRefusedBeforeAnyIsAdded) {
    ExpectRefused({"add", "Mine.ddq", "CCC", "A\nB"}, ExitStatus::Refused,
                  "A?B: a ticker cannot hold a tab or a line end\n");
    ExpectRefused({"add", "Mine.ddq", "CCC", "A&B"}, ExitStatus::Refused,
                  "A&B: a ticker with a blank or one of & # ? % , cannot be asked for\n");
}

TEST_F(EditCommands, WithALiveSourceForQuotesAddTakesTickersThatAnAddressCannotHoldAsTheyAre) {
    Write("Data/VTRSRCset.ini", "\"yahoo\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
    const CallResult result = Call({"add", "Mine.ddq", "m&m.ns", "bac pK"});
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Added: M&M.NS\nAdded: BAC pK\n");
    EXPECT_EQ(Read("Data/Mine.ddq"),
              "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nAAA\t1.000\t11\t\r\nBAC pK\t\t\t\r\n"
              "BBB\t2.000\t\t5\r\nM&M.NS\t\t\t\r\n");
    ExpectRefused({"add", "Mine.ddq", "A,B"}, ExitStatus::Refused,
                  "A,B: a ticker with a blank or one of & # ? % , cannot be asked for\n");
}

TEST_F(EditCommands, LinesThatASaveWouldLoseAreTold) {
    std::string lines = "Ticker Symbol\tHigh Alarm\r\n";
    for (int i = 1; i <= 18000; ++i) lines += "T" + std::to_string(i) + "\r\n";
    Write("Data/Long.ddq", lines);
    const CallResult result = Call({"alarm", "Long.ddq", "T1", "--high", "3"});
    EXPECT_EQ(
        result.err,
        "Long.ddq: the file has more than 18,000 lines; those behind are not shown, and a save would lose "
        "them\n");
}

TEST_F(EditCommands, AMissingFileIsRefused) {
    for (const char* command : {"add", "delete", "export"}) {
        std::vector<std::string> arguments = {command, "None.ddq", "AAA"};
        if (std::string_view(command) == "export") arguments.pop_back();
        ExpectRefused(arguments, ExitStatus::Refused, "None.ddq: no such file in Data\n");
    }
}

TEST_F(EditCommands, AlarmSetsWhatIsGivenAndSaves) {
    const CallResult result = Call({"alarm", "Mine.ddq", "bbb", "--high", "50.5"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Alarms set: BBB\n");
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("BBB\t2.000\t50.5\t5\r\n"));
    Call({"alarm", "Mine.ddq", "AAA", "--high", "", "--low", "0.5"});
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("AAA\t1.000\t\t0.5\r\n"));
}

TEST_F(EditCommands, AnAlarmForWhichTheTableHasNoColumnIsRefused) {
    Write("Data/Bare.ddq", "Ticker Symbol\tLast Price\tLow Alarm\r\nAAA\t1.000\t\r\n");
    ExpectRefused({"alarm", "Bare.ddq", "aaa", "--high", "5", "--low", "1"}, ExitStatus::Refused,
                  "Bare.ddq has no column High Alarm, so the alarm cannot be kept. No alarm was changed.\n");
    EXPECT_EQ(Call({"alarm", "Bare.ddq", "AAA", "--low", "1"}).out, "Alarms set: AAA\n");
}

TEST_F(EditCommands, AnAlarmThatIsNoNumberIsAnUnreadableArgument) {
    ExpectRefused({"alarm", "Mine.ddq", "AAA", "--high", "much"}, ExitStatus::Usage,
                  "--high: 'much' is no number\n");
    ExpectRefused({"alarm", "Mine.ddq", "AAA"}, ExitStatus::Usage, "--high: neither it nor --low is given\n");
}

class ExchangeCommands : public EditCommands {
  protected:
    ExchangeCommands() {
        std::filesystem::remove(folder / "Quotes/EOD/AAA.26");
        Write("Data/VTRIMEXset.ini",
              "\"Comma Delimited\"\r\n\"Data\"\r\n\"Export.Txt\"\r\n\"Comma Delimited\"\r\n\"Data\"\r\n"
              "\"Import.Txt\"\r\n0\r\n0\r\n\"01/02/04\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n"
              "\"End Export File\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"Trade Date\"\r\n"
              "\"End Import File\"\r\n");
    }
};

TEST_F(ExchangeCommands, ExportWritesTheChosenColumns) {
    const CallResult result = Call({"export", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Exported: " + (folder / "Data/Export.Txt").string() + "\n");
    EXPECT_EQ(Read("Data/Export.Txt"), "AAA,1.000\r\nBBB,2.000\r\n");
    EXPECT_EQ(Read("Data/Mine.ddq"), kAlarmTable);
}

TEST_F(ExchangeCommands, ExportRefusesATemplateInTheProgramsWords) {
    ExpectRefused(
        {"export", "New EOD Quotes.db"}, ExitStatus::Refused,
        "Export is only supported for End of Day, Stock Selector, and Extended Fundamental files\n");
}

TEST_F(ExchangeCommands, ImportFillsTableAndDatabaseAndConsumesItsFile) {
    Write("Data/Import.Txt", "AAA,10,11/20/2026\r\nCCC,30,11/20/2026\r\n");
    const CallResult result = Call({"import", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(result.out, "Rows: 2\nDays stored: 2\nSaved: Mine.ddq\n");
    EXPECT_EQ(Read("Data/Mine.ddq"),
              "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\nAAA\t10.000\t11\t\r\nCCC\t30.000\t\t\r\n"
              "BBB\t2.000\t\t5\r\n");
    EXPECT_EQ(Read("Quotes/EOD/CCC.26"), "\"11/20/26\",\"\",30,30,30,0,0,0,0,0,0,\"\",\"\",0,0,0,0,0,30\r\n");
    EXPECT_FALSE(IsRegularFile(folder / "Data/Import.Txt"));
}

TEST_F(ExchangeCommands, TheProgramsOwnFilesAreNeitherWrittenOverNorConsumed) {
    const auto SetFiles = [&](const std::string& exported, const std::string& imported) {
        std::string text = Read("Data/VTRIMEXset.ini");
        text.replace(text.find("Export.Txt"), 10, exported);
        text.replace(text.find("Import.Txt"), 10, imported);
        Write("Data/VTRIMEXset.ini", text);
    };
    Write("Data/Two.ddq", kAlarmTable);
    SetFiles("Two.ddq", "VTRIMEXset.ini");
    ExpectRefused({"export", "Mine.ddq"}, ExitStatus::Refused,
                  ((folder / "Data/Two.ddq").string() +
                   " is a table of the program. Do you want to write the export over it?\n")
                      .c_str());
    ExpectRefused(
        {"import", "Mine.ddq"}, ExitStatus::Refused,
        ((folder / "Data/VTRIMEXset.ini").string() +
         " is a settings file of the program. Do you want to import it? An import deletes its file.\n")
            .c_str());
    const CallResult result = Call({"export", "Mine.ddq", "--yes"});
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    EXPECT_EQ(Read("Data/Two.ddq"), "AAA,1.000\r\nBBB,2.000\r\n");
}

TEST_F(ExchangeCommands, ImportWithoutAFileChangesNothing) {
    const auto before = Everything();
    const CallResult result = Call({"import", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out, "Rows: 0\nDays stored: 0\n");
    EXPECT_EQ(Everything(), before);
}

TEST_F(ExchangeCommands, ImportOfTooManyTickersNeedsYes) {
    std::string lines;
    for (int i = 1; i <= 18000; ++i) lines += "T" + std::to_string(i) + ",1\r\n";
    Write("Data/Import.Txt", lines);
    ExpectRefused(
        {"import", "Mine.ddq"}, ExitStatus::Refused,
        "You have exceeded 18000 Ticker Symbols. Some data will be lost. Do you wish to continue?\n");
    const CallResult result = Call({"import", "Mine.ddq", "--yes"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(
        result.err,
        "18000 rows imported, 0 days stored, 2 tickers left the table, because a table has no more than "
        "18000 lines: AAA, BBB\n");
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("\r\nT17999\t1.000\t\t\r\n"));
}

TEST_F(ExchangeCommands, ImportRefusesOtherKinds) {
    Write("Data/Import.Txt", "AAA,10,11/20/2026\r\n");
    Write("Data/Evaluations.dbe", "Ticker Symbol\tCondition 1\r\nAAA\r\n");
    ExpectRefused({"import", "New EOD Quotes.db"}, ExitStatus::Refused,
                  "Save this file as another name before editing.\n");
    ExpectRefused(
        {"import", "Evaluations.dbe"}, ExitStatus::Refused,
        "First, open an existing EOD Quote File or a New EOD Quote File you wish to Import data. An "
        "Existing Quote file will import the data for the ticker sysmbols contained in the quote "
        "file. A New Quote file will accept all data in the file you wish to import.\n");
}

TEST_F(ExchangeCommands, AnImportThatCannotBeStoredKeepsItsFileAndTheTable) {
    Write("Data/Import.Txt", "CCC,10,11/20/2026\r\n");
    std::filesystem::create_directories(folder / "Quotes/EOD/CCC.26");
    const CallResult result = Call({"import", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "The import of " + (folder / "Data/Import.Txt").string() +
                              " failed: " + (folder / "Quotes/EOD/CCC.26").string() +
                              ": cannot be read (Is a directory); nothing was changed\n");
    EXPECT_EQ(Read("Data/Import.Txt"), "CCC,10,11/20/2026\r\n");
    EXPECT_EQ(Read("Data/Mine.ddq"), kAlarmTable);
}

}  // namespace
}  // namespace brantlow
