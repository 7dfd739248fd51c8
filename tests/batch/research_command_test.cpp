#include <gtest/gtest.h>

#include "batch_fixture.h"
#include "research/research_catalogue.h"

namespace brantlow {
namespace {

class ResearchCommand : public BatchTest {
  protected:
    ResearchCommand() {
        Write("Data/Hosts.ini",
              "QuoteHost=http://quote.test\nNasdaqMainHost=http://main.test\n"
              "VendorHost=http://vendor.test\n");
        WriteNet("Yahoo", "");
    }
    void WriteNet(const std::string& provider, const std::string& broker) {
        Write("Data/VTRNETset.ini", "\"" + provider + "\"\r\n\"" + broker + "\"\r\n\"Yahoo\"\r\n");
    }
    void ExpectPrints(const std::vector<std::string>& arguments, const std::string& out) {
        const CallResult result = Call(arguments);
        EXPECT_EQ(result.status, ExitStatus::Done) << arguments[1];
        EXPECT_EQ(result.out, out);
        EXPECT_EQ(result.err, "");
    }
};

TEST_F(ResearchCommand, PrintsTheAddressOfTheChosenProvider) {
    ExpectPrints({"research", "mnuPopUpNews", "IBM"}, "http://quote.test/q/h?s=IBM\n");
    ExpectPrints({"research", "mnuViewDowngrades"}, "http://quote.test/mrd\n");
    WriteNet("NASDAQ", "");
    ExpectPrints(
        {"research", "mnuPopUpFinancials", "ibm"},
        "http://main.test/asp/"
        "ExtendFund.asp?mode=&kind=&symbol=ibm&FormType=&mkttype=&pathname=&page=full&selected=ibm\n");
    ExpectPrints({"research", "mnuViewIPOs", "IBM"}, "http://main.test/reference/ipos.stm\n");
}

TEST_F(ResearchCommand, KnowsEveryRowOfTheCatalogue) {
    for (const ResearchPage& page : kResearchPages) {
        const CallResult result = Call({"research", std::string(page.command), "IBM"});
        EXPECT_EQ(result.status, ExitStatus::Done) << page.command;
        EXPECT_TRUE(result.out.starts_with("http")) << page.command << ": " << result.out;
    }
}

TEST_F(ResearchCommand, PrintsTheVendorsPagesAndTheBrokerageFirm) {
    ExpectPrints({"research", "mnuHelpQuestions"}, "http://vendor.test/questions.htm\n");
    ExpectPrints({"research", "mnuHelpSupport"}, "http://vendor.test/feedback.htm\n");
    WriteNet("Yahoo", "http://broker.test/");
    ExpectPrints({"research", "mnuViewBrokererageFirm"}, "http://broker.test/\n");
    ExpectPrints({"research", "mnuPopUpTrade"}, "http://broker.test/\n");
}

TEST_F(ResearchCommand, WithoutABrokerageFirmItRefusesInTheProgramsWords) {
    const CallResult result = Call({"research", "mnuPopUpTrade"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "First, you must select you broker in Application Settings.\n");
    EXPECT_EQ(result.out, "");
}

TEST_F(ResearchCommand, AnEmptyTickerPrintsNothing) {
    ExpectPrints({"research", "mnuPopUpNews", ""}, "");
}

TEST_F(ResearchCommand, AMissingTickerIsWrongUsage) {
    const CallResult result = Call({"research", "mnuPopUpNews"});
    EXPECT_EQ(result.status, ExitStatus::Usage);
    EXPECT_EQ(result.err, "TICKER: mnuPopUpNews opens the page of a ticker, and none is given\n");
    EXPECT_EQ(result.out, "");
}

TEST_F(ResearchCommand, AnUnknownCommandIsAnUnreadableArgument) {
    for (const std::string command : {"mnuViewToolbar", "news", ""}) {
        const CallResult result = Call({"research", command, "IBM"});
        EXPECT_EQ(result.status, ExitStatus::Usage) << command;
        EXPECT_EQ(result.err, "COMMAND: '" + command + "' is no research command\n");
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(ResearchCommand, WithoutOperandsOrWithTooManyItIsWrongUsage) {
    EXPECT_EQ(Call({"research"}).status, ExitStatus::Usage);
    EXPECT_EQ(Call({"research", "mnuPopUpNews", "IBM", "GE"}).status, ExitStatus::Usage);
}

TEST_F(ResearchCommand, NeverPrintsTheForumsPassword) {
    const CallResult result = Call({"research", "mnuHelpUsersForum"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, "mnuHelpUsersForum: the address holds the user's password and is not printed\n");
}

TEST_F(ResearchCommand, ATickerThatCannotStandInAnAddressIsRefusedInOneLine) {
    for (const std::string ticker : {"I\nBM", "A&B", "A B"}) {
        const CallResult result = Call({"research", "mnuPopUpNews", ticker});
        EXPECT_EQ(result.status, ExitStatus::Refused);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, (ticker == "I\nBM" ? "I?BM" : ticker) +
                                  ": a ticker with a blank or one of & # ? % , cannot be asked for\n");
    }
}

}  // namespace
}  // namespace brantlow
