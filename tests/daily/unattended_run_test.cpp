// The daily run that nobody looks at: whatever is open, several days on end.
#include "daily/unattended_run.h"

#include <gmock/gmock.h>

#include <memory>

#include "acquire/schedule/update_schedule.h"
#include "daily/update_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr double kMinute = 60;
constexpr double kHour = 3600;

class UnattendedTest : public UpdateTest {
  protected:
    UnattendedTest() {
        SetLines(session.settings.DataSettings,
                 {"", "", "", "", "", "2", "Automatic Save", "Automatic Save", "EOD", "16", "30", "", "",
                  "None", "", "Automatic", "False", "", "Manual"});
        Set(session.settings.MruSettings, 1, "Mine.ddq");
        Write("Data/Mine.ddq", "Ticker Symbol\tLast Price\r\nT1\t\r\nT2\t\r\n");
        session.CurrentFile = "Evaluations.dbe";
        session.CurrentTicker = "SEL";
    }
    UnattendedRun Run() { return RunUnattended({session, web, hosts, *analysis, alerted, days, MuchMemory}); }
    // The quotes of all tickers are of this day from now on.
    void QuotesOf(const Date& day) {
        const std::string date = "\"" + FormatLongDate(day) + "\"";
        for (const char* ticker : {"T1", "T2"}) lines[ticker] = ReplyLine(ticker).With(3, date).Text();
    }

    std::unique_ptr<Analysis> analysis = std::make_unique<Analysis>();
    DayStore days;
};

TEST_F(UnattendedTest, UpdatesTheNewestQuoteFileOfTheRecentListAndSavesTheVerdicts) {
    Set(session.settings.MruSettings, 1, "Gone.ddq");
    Set(session.settings.MruSettings, 2, "Evaluations.dbe");
    Set(session.settings.MruSettings, 3, "Mine.ddq");
    const UnattendedRun run = Run();
    EXPECT_EQ(run.file, "Mine.ddq");
    EXPECT_EQ(run.report.Line(), "2 of 2 quotes");
    EXPECT_EQ(Read("Data/Mine.ddq"), "Ticker Symbol\tLast Price\r\nT1\t110.000\r\nT2\t110.000\r\n");
    EXPECT_THAT(Read("Quotes/EOD/T1.24"), StartsWith("\"03/15/24\""));
    EXPECT_THAT(Read("Data/Evaluations.dbe"), HasSubstr("\r\nT1"));
    EXPECT_THAT(Read("Data/Evaluations.dbe.about"),
                StartsWith("Day: 2024-03-15\r\nInterval: Daily\r\nTable: Mine.ddq\r\nCheck: "));
    EXPECT_EQ(session.CurrentFile, "Evaluations.dbe");
    EXPECT_EQ(session.CurrentTicker, "SEL");
    EXPECT_TRUE(person.said.empty());
}

TEST_F(UnattendedTest, WithoutARecentQuoteFileItSaysSoInItsReport) {
    Set(session.settings.MruSettings, 1, "Evaluations.dbe");
    const UnattendedRun run = Run();
    EXPECT_EQ(run.file, "");
    EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
    EXPECT_THAT(run.report.Line(), StartsWith("The daily update found no End of Day Quote File"));
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(UnattendedTest, AUserSourceWithoutAnAddressIsARunThatDidNothing) {
    Set(session.settings.NetSettings, 3, "User Selected String");
    Set(session.settings.NetSettings, 4, "");
    const UnattendedRun run = Run();
    EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
    EXPECT_EQ(run.report.Line(), "The settings hold no address of a source of quotes; nothing was changed");
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(UnattendedTest, WithTheMarketDownTheVerdictsOfTheDayBeforeStay) {
    Write("Data/Evaluations.dbe", "of yesterday");
    web.AnswerWith([](const WebRequest&) { return FailedReply(WebFailure::NoConnection, ""); });
    const UnattendedRun run = Run();
    EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
    EXPECT_FALSE(run.selection);
    EXPECT_EQ(Read("Data/Evaluations.dbe"), "of yesterday");
}

TEST_F(UnattendedTest, TheSelectorRunsOnlyWhereTheSettingsRunIt) {
    Set(session.settings.DataSettings, 16, "Manual");
    EXPECT_FALSE(Run().selection);
    EXPECT_FALSE(Exists("Data/Evaluations.dbe"));
}

TEST_F(UnattendedTest, ThreeDaysRunWithTheWindowLeftOpenTheMachineAsleepAndADialogInTheWay) {
    DailyRun schedule;
    std::vector<std::string> ran;
    // The window's timer: a look each second, but for the times when `asks` is false.
    const auto pass = [&](const Date& day, double from, double to, bool asks) {
        for (double second = from; second < to; ++second) {
            clock.Set(day, second);
            if (!asks || !schedule.Poll(session.settings, clock)) continue;
            QuotesOf(day);
            EXPECT_EQ(Run().report.Line(), "2 of 2 quotes");
            ran.push_back(FormatDate(day) + " " + FormatTime(static_cast<int>(second / kMinute)));
        }
    };
    const double begin = 16 * kHour + 20 * kMinute;
    const double end = 16 * kHour + 40 * kMinute;
    const Date third = Today();
    const Date second = AddDays(third, -1);
    const Date first = AddDays(third, -2);
    // The first day ends with the table of verdicts open.
    pass(first, begin, end, true);
    // On the second the machine sleeps from before the minute until the evening.
    pass(second, 9 * kHour, 9 * kHour + 5 * kMinute, true);
    pass(second, 19 * kHour, 19 * kHour + 5 * kMinute, true);
    // On the third a dialog stands open through the minute.
    pass(third, begin, begin + 2 * kMinute, true);
    pass(third, begin + 2 * kMinute, end, false);
    pass(third, end, end + 5 * kMinute, true);
    EXPECT_EQ(ran, (std::vector<std::string>{"03/13/24 16:30", "03/14/24 19:00", "03/15/24 16:40"}));
    const std::string history = Read("Quotes/EOD/T1.24");
    for (const char* day : {"\"03/13/24\"", "\"03/14/24\"", "\"03/15/24\""}) {
        EXPECT_THAT(history, HasSubstr(day));
    }
    EXPECT_EQ(std::count(history.begin(), history.end(), '\n'), 3);
    EXPECT_THAT(Read("Data/Evaluations.dbe"), HasSubstr("\r\nT2"));
    EXPECT_EQ(session.CurrentFile, "Evaluations.dbe");
}

}  // namespace
}  // namespace brantlow
