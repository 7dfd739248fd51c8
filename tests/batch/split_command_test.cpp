#include <gmock/gmock.h>

#include "batch_fixture.h"
#include "loopback_host.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string Day(const std::string& date, int close) {
    const std::string price = std::to_string(close);
    return "\"" + date + "\",\"\"," + price + "," + price + "," + price +
           ",100,0,0,0,0,0,\"\",\"\",0,0,0,0,0," + price + "\r\n";
}

class SplitCommand : public BatchTest {
  protected:
    SplitCommand() {
        std::filesystem::create_directories(folder / "Data");
        // The loader leaves out the oldest day.
        Write("Quotes/EOD/ACME.26",
              Day("01/02/26", 49) + Day("02/25/26", 50) + Day("02/26/26", 52) + Day("02/27/26", 26));
    }
    CallResult CallOn(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--today", "2026-03-02"});
        return Call(arguments);
    }
};

TEST_F(SplitCommand, RestatesTheDaysBeforeTheJump) {
    const CallResult result = CallOn({"split", "ACME", "2/1"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "ACME: 2 days before 02/27/26 restated\n");
    EXPECT_THAT(Read("Quotes/EOD/ACME.26"), StartsWith("\"02/25/26\",\"\",25,25,25,200,"));
}

TEST_F(SplitCommand, TellsOfALineThatWasCutOff) {
    Write("Quotes/EOD/ACME.26", Read("Quotes/EOD/ACME.26") + "\"02/28/26\",\"\",2");
    const CallResult result = CallOn({"split", "ACME", "2/1"});
    EXPECT_EQ(result.out, "ACME: 2 days before 02/27/26 restated\n");
    EXPECT_EQ(result.err, "the half line at the end of ACME.26 was taken out\n");
}

TEST_F(SplitCommand, WithoutAJumpNothingChanges) {
    const std::vector<std::string> before = Everything();
    for (const char* ratio : {"3/1", "1/2", "7/3"}) {
        const CallResult result = CallOn({"split", "ACME", ratio});
        EXPECT_EQ(result.status, ExitStatus::Done) << ratio;
        EXPECT_EQ(result.out,
                  "ACME: no jump of the prices fits " + std::string(ratio) + ", nothing changed\n");
    }
    EXPECT_EQ(CallOn({"split", "NONE", "2/1"}).out,
              "NONE: no jump of the prices fits 2/1, nothing changed\n");
    EXPECT_EQ(CallOn({"split", "../EOD/ACME", "2/1"}).status, ExitStatus::Done);
    EXPECT_EQ(Everything(), before);
}

TEST_F(SplitCommand, ARatioThatCannotBeReadIsWrongUsage) {
    const std::vector<std::string> before = Everything();
    for (const char* ratio : {"2", "2:1", "0/1", "two/one", ""}) {
        const CallResult result = CallOn({"split", "ACME", ratio});
        EXPECT_EQ(result.status, ExitStatus::Usage) << ratio;
        EXPECT_EQ(result.err, "NEW/OLD: '" + std::string(ratio) + "' is not two whole numbers such as 2/1\n");
    }
    EXPECT_EQ(CallOn({"split", "ACME"}).status, ExitStatus::Usage);
    EXPECT_EQ(Everything(), before);
}

TEST_F(SplitCommand, TheCalendarsSplitIsLoggedAndRestated) {
    LoopbackHost host;
    host.Answer("/c/s.html", [](const httplib::Request&, httplib::Response& response) {
        response.set_content(
            "<table><tr><td valign=middle>Feb 27</td><td><a href=\"/q?s=ACME&d=t\">ACME</a></td>"
            "<td valign=middle>2-1</td></tr><tr><td valign=middle>Mar 9</td><td><a href=\"/q?s=BETA&d=t\">"
            "BETA</a></td><td valign=middle>3-2</td></tr></table>",
            "text/html");
    });
    Write("Data/Hosts.ini", "YahooBizHost=" + host.Start() + "\n");
    const CallResult result = CallOn({"split-calendar"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "1 of 1 splits restated, 2 in the log\n");
    EXPECT_EQ(result.out, "Logged: 2\nDue: 1\nRestated: 1\n");
    EXPECT_EQ(Read("SplitLog.txt"), "\"ACME\",\"02/27\",2\r\n\"BETA\",\"03/09\",1.5\r\n");
    EXPECT_THAT(Read("Quotes/EOD/ACME.26"), HasSubstr("\"02/26/26\",\"\",26,26,26,200,"));
    EXPECT_EQ(CallOn({"split-calendar"}).out, "Logged: 2\nDue: 1\nRestated: 0\n");
}

TEST_F(SplitCommand, WithoutThePageTheLogIsWorkedOn) {
    // Nobody answers where a host has gone.
    std::string address;
    {
        LoopbackHost gone;
        address = gone.Start();
    }
    Write("Data/Hosts.ini", "YahooBizHost=" + address + "\n");
    Write("SplitLog.txt", "\"ACME\",\"02/27\",2\r\n\"OLD\",\"02/01\",2\r\n");
    const CallResult result = CallOn({"split-calendar"});
    EXPECT_EQ(result.status, ExitStatus::Partly);
    EXPECT_EQ(result.err,
              "1 of 1 splits restated, 1 in the log\nNo reply from " + address + " : could not connect\n");
    EXPECT_EQ(result.out, "Logged: 1\nDue: 1\nRestated: 1\n");
    EXPECT_EQ(Read("SplitLog.txt"), "\"ACME\",\"02/27\",2\r\n");
    const CallResult again = CallOn({"split-calendar"});
    EXPECT_EQ(again.status, ExitStatus::Refused);
    EXPECT_EQ(again.err, "No reply from " + address + " : could not connect; nothing was changed\n");
}

}  // namespace
}  // namespace brantlow
