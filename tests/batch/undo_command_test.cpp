// The promise "undo": after each command that replaces or deletes files every file comes back byte for byte,
// and a second undo brings the change back.
#include <gmock/gmock.h>

#include "batch_fixture.h"
#include "loopback_host.h"

namespace brantlow {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct UndoneCommand {
    std::vector<std::string> arguments;
    std::string what;

    // The name of its test, the same in every run.
    friend void PrintTo(const UndoneCommand& command, std::ostream* out) { *out << command.what; }
};

class UndoCommand : public BatchTest, public ::testing::WithParamInterface<UndoneCommand> {
  protected:
    UndoCommand() {
        host_.Answer("/table.txt", [](const httplib::Request&, httplib::Response& response) {
            response.set_content("h\n2-Jan-26,1,2,0.5,1.5,2016,1\n31-Dec-25,1,2,0.5,1.25,7,1\n",
                                 "text/plain");
        });
        host_.Answer("/c/s.html", [](const httplib::Request&, httplib::Response& response) {
            response.set_content("<td align=middle>none</td>", "text/html");
        });
        const std::string address = host_.Start();
        Write("Data/Hosts.ini", "HistoryHost=" + address + "\nYahooBizHost=" + address + "\n");
        WriteSettings();
        WriteTables();
        WriteDatabase();
    }
    void WriteSettings() const {
        Write(
            "Data/VTRDATAset.ini",
            "\"Manually\"\r\n\"True\"\r\n\"Kept\"\r\n\"True\"\r\n\"KeptQuotes\"\r\n2\r\n\"Manual Save\"\r\n");
        Write("Data/VTRNETset.ini",
              "\"Yahoo\"\r\n\"\"\r\n\"Yahoo\"\r\n\r\n\r\n15\r\n0\r\n0\r\n\"01/02/04\"\r\n");
        Write("Data/VTRIMEXset.ini",
              "\"Comma Delimited\"\r\n\"Data\"\r\n\"Out.txt\"\r\n\"Comma "
              "Delimited\"\r\n\"Data\"\r\n\"In.txt\"\r\n"
              "0\r\n0\r\n\"01/02/04\"\r\n\"End Export File\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n"
              "\"Trade Date\"\r\n\"End Import File\"\r\n");
    }
    void WriteTables() const {
        Write("Data/Mine.ddq",
              "Ticker Symbol\tLast Price\tTrade Date\r\nKO\t1\t\r\nPEP\t2\t\r\nACME\t3\t\r\n");
        Write("Data/Other.ddq", "Ticker Symbol\r\nB1\r\nB2\r\n");
        Write("Data/Joined.ddq", "what stood here before");
        Write("Data/In.txt", "KO,12.5,03/02/26\r\nPEP,20,03/02/26\r\n");
        Write("Kept/Mine.ddq", "Ticker Symbol\r\nOLD\r\n");
        Write("Kept/Further.ddq", "Ticker Symbol\r\nOLD\r\n");
        Write("KeptQuotes/KO.26", Day("01/05/26", "9"));
        Write("KeptQuotes/OLD.26", Day("01/05/26", "9"));
    }
    void WriteDatabase() const {
        Write("Quotes/EOD/KO.24", Day("12/30/24", "8"));
        Write("Quotes/EOD/KO.26", Day("02/26/26", "10") + Day("02/27/26", "11"));
        Write("Quotes/EOD/PEP.26", Day("02/27/26", "21"));
        Write("Quotes/EOD/ACME.25", Day("12/29/25", "50") + Day("12/30/25", "50") + Day("12/31/25", "50"));
        Write("Quotes/EOD/ACME.26", Day("01/02/26", "50") + Day("01/05/26", "25") + Day("01/06/26", "25"));
        Write("Quotes/EOD/QuoteList.ddq", "2\r\n\"KO\"\r\n\"PEP\"\r\n");
        Write("SplitLog.txt", "\"ACME\",\"03/01\",2\r\n");
    }
    static std::string Day(const std::string& date, const std::string& close) {
        return "\"" + date + "\",\"16:00\"," + close + ",1,99,300,1,2,3,4,5,\"\",\"\",6,7,8,9,10,11\r\n";
    }
    CallResult CallOn(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-03-03", "--time", "18:00"});
        return Call(arguments);
    }

  private:
    LoopbackHost host_;
};

TEST_P(UndoCommand, BringsEveryFileBackAndASecondOneTheChange) {
    const auto before = Everything();
    const CallResult done = CallOn(GetParam().arguments);
    ASSERT_EQ(done.status, ExitStatus::Done) << done.err;
    const auto after = Everything();
    ASSERT_NE(before, after);
    const std::string list = CallOn({"undo", "--list"}).out;
    EXPECT_THAT(list, HasSubstr("{\"id\":\"1\",\"when\":\"2026-03-03 18:00:00\",\"what\":\"" +
                                GetParam().what + "\",\"files\":"));
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 1);
    for (int round = 0; round < 2; ++round) {
        const CallResult undone = CallOn({"undo"});
        EXPECT_EQ(undone.status, ExitStatus::Done) << undone.err;
        EXPECT_THAT(undone.out, HasSubstr("Undone: " + GetParam().what + "\nFiles: "));
        EXPECT_EQ(Everything(), before);
        EXPECT_THAT(CallOn({"undo"}).out, HasSubstr("Undone: Undo " + GetParam().what + "\n"));
        EXPECT_EQ(Everything(), after);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, UndoCommand,
    ::testing::Values(UndoneCommand{{"populate", "Mine.ddq", "--years", "5"}, "Populate Mine.ddq"},
                      UndoneCommand{{"split", "ACME", "2/1"}, "Split ACME by 2"},
                      UndoneCommand{{"split-calendar"}, "Split Calendar"},
                      UndoneCommand{{"delete", "Mine.ddq", "KO", "acme", "--history"}, "Delete KO, ACME"},
                      UndoneCommand{{"import", "Mine.ddq"}, "Import Mine.ddq"},
                      UndoneCommand{{"remove-last-update"}, "Remove Last Update"},
                      UndoneCommand{{"restore", "database"}, "Restore Quote Database"},
                      UndoneCommand{{"restore", "program"}, "Restore Program Files"},
                      UndoneCommand{{"combine", "Mine.ddq", "Other.ddq", "Joined.ddq"},
                                    "Combine Mine.ddq and Other.ddq"}),
    [](const auto& test) {
        std::string name;
        for (const char c : test.param.what) name += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
        return name;
    });

TEST_F(UndoCommand, WithoutAChangeItIsRefused) {
    const auto before = Everything();
    EXPECT_EQ(CallOn({"undo", "--list"}).out, "");
    const CallResult result = CallOn({"undo"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "There is no change to undo\n");
    EXPECT_EQ(CallOn({"undo", "7"}).err, "7: no such change; undo --list shows those that are kept\n");
    EXPECT_EQ(CallOn({"undo", "--list", "7"}).status, ExitStatus::Usage);
    EXPECT_EQ(Everything(), before);
}

TEST_F(UndoCommand, AnOlderChangeIsUndoneByItsId) {
    const auto before = Everything();
    ASSERT_EQ(CallOn({"split", "ACME", "2/1"}).status, ExitStatus::Done);
    ASSERT_EQ(CallOn({"combine", "Mine.ddq", "Other.ddq", "Joined.ddq"}).status, ExitStatus::Done);
    EXPECT_EQ(CallOn({"undo", "1"}).out, "Undone: Split ACME by 2\nFiles: 2\n");
    EXPECT_NE(Everything(), before);
    EXPECT_EQ(CallOn({"undo", "2"}).out, "Undone: Combine Mine.ddq and Other.ddq\nFiles: 1\n");
    EXPECT_EQ(Everything(), before);
}

// The letters of A begin the line of ADBE: A counts as found, and its row makes room for that line's.
TEST_F(UndoCommand, BringsTheRowBackThatWentBecauseItsNameBeginsAnImportedLine) {
    Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\tTrade Date\r\nA\t5\t\r\nZZ\t7\t\r\n");
    Write("Data/In.txt", "ADBE,10.5,03/02/26\r\n");
    const auto before = Everything();
    const CallResult done = CallOn({"import", "Mine.ddq"});
    EXPECT_EQ(done.err,
              "1 row imported, 1 day stored, 1 ticker left the table, because the letters of its name begin "
              "another line of the file: A\n");
    EXPECT_EQ(Read("Data/Mine.ddq"),
              "Ticker Symbol\tLast Price\tTrade Date\r\nADBE\t10.500\t03/02/26\r\nZZ\t7\t\r\n");
    EXPECT_THAT(CallOn({"undo"}).out, HasSubstr("Undone: Import Mine.ddq\n"));
    EXPECT_EQ(Everything(), before);
}

TEST_F(UndoCommand, AsManyChangesAreKeptAsTheSettingsSay) {
    Write("Data/VTROWNset.ini", "\"Keep\"\r\n2\r\n2048\r\n");
    for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(CallOn({"combine", "Mine.ddq", "Other.ddq", "Joined.ddq"}).status, ExitStatus::Done);
    }
    const std::string list = CallOn({"undo", "--list"}).out;
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 2);
    EXPECT_THAT(list, HasSubstr("\"id\":\"4\""));
    EXPECT_THAT(list, HasSubstr("\"id\":\"3\""));
}

TEST_F(UndoCommand, AChangeThatCannotBeKeptIsRefusedBeforeItBegins) {
    Write("Back Up/Undo", "no folder");
    const auto before = Everything();
    const CallResult result = CallOn({"split", "ACME", "2/1"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_THAT(result.err, HasSubstr((folder / "Back Up/Undo").string()));
    EXPECT_THAT(result.err, EndsWith("; nothing was changed\n"));
    EXPECT_EQ(Everything(), before);
}

// Promise `kill`: an open change is taken back by the next command that writes, with a sentence.
TEST_F(UndoCommand, WhatAKilledCommandLeftIsTakenBackByTheNext) {
    const auto before = Everything();
    Write("Back Up/Undo/open-4194399-1/Files.txt",
          "brantlow change 1\t2026-03-03 18:00:00\tSplit ACME by 2\nkept\t1\t" +
              std::to_string(Read("Quotes/EOD/ACME.26").size()) +
              "\tQuotes/EOD/ACME.26\nabsent\t0\t0\tQuotes/EOD/ACME.27\ngrown\t0\t" +
              std::to_string(Read("Quotes/EOD/KO.26").size()) + "\tQuotes/EOD/KO.26\n");
    Write("Back Up/Undo/open-4194399-1/1", Read("Quotes/EOD/ACME.26"));
    Write("Quotes/EOD/ACME.26", "half done");
    Write("Quotes/EOD/ACME.27", "half done");
    Write("Quotes/EOD/KO.26", Read("Quotes/EOD/KO.26") + "half a li");
    Write("Quotes/EOD/.brantlow-4194399-c0.tmp", "unfinished");
    const CallResult result = CallOn({"undo"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "Split ACME by 2 was interrupted: what it had changed was taken back.\n");
    EXPECT_EQ(Everything(), before);
    EXPECT_THAT(FileNamesIn(folder / "Back Up/Undo"), IsEmpty());
}

}  // namespace
}  // namespace brantlow
