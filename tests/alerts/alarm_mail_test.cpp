// The list of fired alarms and the mail of a run.
#include "alerts/alarm_mail.h"

#include <gmock/gmock.h>

#include <cmath>

#include "alerts/mail_retry.h"
#include "daily/alarm_step.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class MemoryMail final : public MailWeb {
  public:
    MailReply Send(const MailRequest& request) override {
        sent.push_back(request);
        if (replies.empty()) return {};
        const MailReply reply = replies.front();
        if (replies.size() > 1) replies.erase(replies.begin());
        return reply;
    }
    std::vector<MailRequest> sent;
    std::vector<MailReply> replies;
};

FiredAlarm AlarmOf(const std::string& ticker, const std::string& price = "72.000") {
    return {"2024-03-15 16:00", ticker, price, AlarmKind::High, "70", "Mine.ddq", AlarmMailing::Due};
}

class AlarmMailTest : public SessionTest {
  protected:
    AlarmMailTest() {
        SetLines(session.settings.MailSettings, {"Send", "mail.example", "", "STARTTLS", "me",
                                                 "from@example.org", "a@example.org, b@example.org"});
        session.settings.MailSettings.Set(3, Value::OfNumber(587));
        clock.Set(Today(), 18.5 * 3600);
    }
    std::vector<std::string> Tell(const std::vector<FiredAlarm>& alarms) {
        return TellAlarms(session, alarms, &post);
    }
    std::vector<FiredAlarm> List() {
        Failure failure;
        std::vector<FiredAlarm> alarms = LoadFiredAlarms(folder / "Data", failure);
        EXPECT_FALSE(failure);
        return alarms;
    }

    MemoryMail mail;
    double seconds = 0;
    std::map<std::string, std::string> variables = {{"BRANTLOW_KEY_SMTP", "practice-word"}};
    AlarmPost post{mail,
                   {[this] { return seconds; }, [this](double slept) { seconds += slept; }},
                   [this](const char* name) -> const char* {
                       const auto found = variables.find(name);
                       return found == variables.end() ? nullptr : found->second.c_str();
                   }};
};

TEST_F(AlarmMailTest, AllAlarmsOfARunAreOneMail) {
    EXPECT_THAT(Tell({AlarmOf("KO"), AlarmOf("PEP")}), IsEmpty());
    ASSERT_EQ(mail.sent.size(), 1U);
    const MailRequest& sent = mail.sent[0];
    EXPECT_EQ(sent.host, "mail.example");
    EXPECT_EQ(sent.port, 587);
    EXPECT_EQ(sent.security, MailSecurity::StartTls);
    EXPECT_EQ(sent.user, "me");
    EXPECT_EQ(sent.password, "practice-word");
    EXPECT_EQ(sent.sender, "from@example.org");
    EXPECT_THAT(sent.recipients, ElementsAre("a@example.org", "b@example.org"));
    EXPECT_THAT(sent.headers, Contains("Subject: Price alarms: KO, PEP"));
    EXPECT_THAT(sent.headers, Contains("To: a@example.org, b@example.org"));
    EXPECT_THAT(sent.headers, Contains(HasSubstr("Date: Fri, 15 Mar 2024 18:30:00 ")));
    EXPECT_THAT(sent.text,
                HasSubstr("KO: 72.000 reached the high alarm 70\r\n  2024-03-15 16:00, Mine.ddq\r\n"));
    EXPECT_THAT(sent.text, HasSubstr("PEP: 72.000"));
    ASSERT_EQ(List().size(), 2U);
    EXPECT_EQ(List()[0].mailing, AlarmMailing::Sent);
    EXPECT_EQ(Read("Data/Fired Alarms.txt"),
              "2024-03-15 16:00\tKO\t72.000\thigh\t70\tMine.ddq\tmailed\r\n"
              "2024-03-15 16:00\tPEP\t72.000\thigh\t70\tMine.ddq\tmailed\r\n");
}

TEST_F(AlarmMailTest, WithoutAlarmsNothingIsSentNorWritten) {
    EXPECT_THAT(Tell({}), IsEmpty());
    EXPECT_THAT(mail.sent, IsEmpty());
    EXPECT_FALSE(Exists("Data/Fired Alarms.txt"));
}

TEST_F(AlarmMailTest, WhereNobodyWantsMailTheListIsKeptAlone) {
    Set(session.settings.MailSettings, 1, "None");
    EXPECT_THAT(Tell({AlarmOf("KO")}), IsEmpty());
    EXPECT_THAT(mail.sent, IsEmpty());
    EXPECT_EQ(Read("Data/Fired Alarms.txt"), "2024-03-15 16:00\tKO\t72.000\thigh\t70\tMine.ddq\tno mail\r\n");
    ASSERT_EQ(List().size(), 1U);
    EXPECT_EQ(List()[0].mailing, AlarmMailing::Unwanted);
    // It is not mailed later either.
    Set(session.settings.MailSettings, 1, "Send");
    EXPECT_THAT(Tell({}), IsEmpty());
    EXPECT_THAT(mail.sent, IsEmpty());
}

TEST_F(AlarmMailTest, AServerThatAsksToComeBackIsAskedTwiceMore) {
    mail.replies = {{MailOutcome::Later, "451 later"}, {MailOutcome::Later, "451 later"}, {}};
    EXPECT_THAT(Tell({AlarmOf("KO")}), IsEmpty());
    EXPECT_EQ(mail.sent.size(), 3U);
    EXPECT_NEAR(seconds, 20, 0.01);
}

TEST_F(AlarmMailTest, WhereSomebodyTriesAgainLaterNobodyWaitsForTheServer) {
    post.waitsForServer = false;
    mail.replies = {{MailOutcome::Later, "451 later"}};
    EXPECT_THAT(Tell({AlarmOf("KO")}), ElementsAre("The mail was not sent by mail.example:587: 451 later"));
    EXPECT_EQ(mail.sent.size(), 1U);
    EXPECT_EQ(seconds, 0);
    EXPECT_TRUE(post.told.comesAgain);
    mail.replies = {{MailOutcome::Refused, "550 no"}};
    Tell({AlarmOf("PEP")});
    EXPECT_FALSE(post.told.comesAgain);
    mail.replies.clear();
    Tell({AlarmOf("PEP")});
    EXPECT_TRUE(post.told.isSent);
}

TEST_F(AlarmMailTest, ADraftOfTheSettingsIsWhatTheTestLetterGoesBy) {
    SettingsTables draft = session.settings;
    Set(draft.MailSettings, 2, "other.example");
    Set(draft.MailSettings, 7, "c@example.org");
    const AlarmLetter letter = TestLetter(session, draft, post.environment);
    EXPECT_EQ(letter.refusal, "");
    EXPECT_EQ(letter.request.host, "other.example");
    EXPECT_THAT(letter.request.recipients, ElementsAre("c@example.org"));
    Set(draft.MailSettings, 7, "");
    EXPECT_EQ(TestLetter(session, draft, post.environment).fault, "no recipient is named");
    EXPECT_EQ(TestLetter(session, draft, post.environment).refusal, "VTRMAILset.ini: no recipient is named");
}

TEST_F(AlarmMailTest, OnlyTheAlarmsOfTheMailAreNotedAsMailed) {
    EXPECT_FALSE(KeepFiredAlarms(folder / "Data", {AlarmOf("KO"), AlarmOf("PEP")}));
    EXPECT_FALSE(MarkAlarmsMailed(folder / "Data", {AlarmOf("KO")}));
    Failure failure;
    const std::vector<FiredAlarm> due = AlarmsToMail(folder / "Data", failure);
    ASSERT_EQ(due.size(), 1U);
    EXPECT_EQ(due[0].ticker, "PEP");
}

TEST_F(AlarmMailTest, AlarmsThatWereReadLeaveTheListAndTheLastOneItsFile) {
    EXPECT_FALSE(KeepFiredAlarms(folder / "Data", {AlarmOf("KO"), AlarmOf("PEP")}));
    EXPECT_FALSE(MarkAlarmsRead(folder / "Data", {AlarmOf("X")}));
    EXPECT_EQ(List().size(), 2U);
    EXPECT_FALSE(MarkAlarmsRead(folder / "Data", {AlarmOf("KO")}));
    ASSERT_EQ(List().size(), 1U);
    EXPECT_EQ(List()[0].ticker, "PEP");
    EXPECT_FALSE(MarkAlarmsRead(folder / "Data", {AlarmOf("PEP"), AlarmOf("KO")}));
    EXPECT_FALSE(Exists("Data/Fired Alarms.txt"));
}

TEST(MailRetry, WaitsLongerEachTimeAndGivesUpAtTheEnd) {
    const Date day{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{20}};
    FixedClock clock(day, 18 * 3600);
    MailRetry retry;
    EXPECT_FALSE(retry.IsWaiting());
    EXPECT_FALSE(retry.IsDue(clock));
    EXPECT_EQ(retry.NextText(), "");
    retry.Begin(clock);
    struct Row {
        int minutes;
        const char* next;
    };
    constexpr Row kRows[] = {{1, "18:01"},  {5, "18:06"},   {15, "18:21"},  {30, "18:51"},
                             {60, "19:51"}, {120, "21:51"}, {240, "01:51"}, {480, "09:51"}};
    double now = 18 * 3600;
    for (const Row& row : kRows) {
        EXPECT_EQ(retry.NextText(), row.next);
        const double next = now + row.minutes * 60;
        clock.Set(AddDays(day, next - 1 >= 86'400 ? 1 : 0), std::fmod(next - 1, 86'400));
        EXPECT_FALSE(retry.IsDue(clock)) << row.next;
        clock.Set(AddDays(day, next >= 86'400 ? 1 : 0), std::fmod(next, 86'400));
        EXPECT_TRUE(retry.IsDue(clock)) << row.next;
        retry.PutOff(clock);
        now = next;
    }
    EXPECT_FALSE(retry.IsWaiting());
    EXPECT_EQ(retry.NextText(), "");
    retry.Begin(clock);
    EXPECT_TRUE(retry.IsWaiting());
    retry.End();
    EXPECT_FALSE(retry.IsDue(clock));
}

TEST_F(AlarmMailTest, WhatCouldNotBeMailedGoesWithTheNextRun) {
    mail.replies = {{MailOutcome::Later, "451 later"}};
    EXPECT_THAT(Tell({AlarmOf("KO")}), ElementsAre("The mail was not sent by mail.example:587: 451 later"));
    EXPECT_EQ(mail.sent.size(), 3U);
    EXPECT_EQ(List()[0].mailing, AlarmMailing::Due);
    mail.replies.clear();
    mail.sent.clear();
    EXPECT_THAT(Tell({AlarmOf("PEP")}), IsEmpty());
    ASSERT_EQ(mail.sent.size(), 1U);
    EXPECT_THAT(mail.sent[0].text, HasSubstr("KO: "));
    EXPECT_THAT(mail.sent[0].text, HasSubstr("PEP: "));
    for (const FiredAlarm& alarm : List()) EXPECT_EQ(alarm.mailing, AlarmMailing::Sent) << alarm.ticker;
}

TEST_F(AlarmMailTest, ARefusalIsToldOnceAndNotTriedAgain) {
    mail.replies = {{MailOutcome::Refused, "535 5.7.8 wrong"}};
    EXPECT_THAT(Tell({AlarmOf("KO")}),
                ElementsAre("The mail was refused by mail.example:587: 535 5.7.8 wrong"));
    EXPECT_EQ(mail.sent.size(), 1U);
}

TEST_F(AlarmMailTest, AServerThatIsNotTrustedIsNotSaidToRefuse) {
    mail.replies = {{MailOutcome::Refused, "its certificate is not trusted", true}};
    EXPECT_THAT(Tell({AlarmOf("KO")}),
                ElementsAre("The mail was not sent by mail.example:587: its certificate is not trusted"));
    EXPECT_EQ(mail.sent.size(), 1U);
}

TEST_F(AlarmMailTest, AStoppedRunKeepsItsAlarmsAndSendsNothing) {
    session.run.ProcessCommand = kStopRun;
    EXPECT_THAT(Tell({AlarmOf("KO")}), IsEmpty());
    EXPECT_THAT(mail.sent, IsEmpty());
    EXPECT_EQ(List()[0].mailing, AlarmMailing::Due);
}

TEST_F(AlarmMailTest, WhatIsWrongWithTheSettingsIsToldBeforeAnythingIsSent) {
    struct Row {
        std::size_t line;
        const char* text;
        const char* sentence;
    };
    constexpr Row kRows[] = {
        {2, "", "VTRMAILset.ini: no mail server is named"},
        {2, "mail example/x", "VTRMAILset.ini: no mail server is named"},
        {6, "nobody", "VTRMAILset.ini: the sender is no mail address"},
        {6, "a@b>\r\nRCPT TO:<c@d", "VTRMAILset.ini: the sender is no mail address"},
        {7, "", "VTRMAILset.ini: no recipient is named"},
        {7, "a@b, c", "VTRMAILset.ini: a recipient is no mail address"},
        {5, "me\r\nQUIT", "VTRMAILset.ini: the user holds a control character"},
    };
    for (const Row& row : kRows) {
        const SettingsTable before = session.settings.MailSettings;
        Set(session.settings.MailSettings, row.line, row.text);
        EXPECT_EQ(MailTest(session, post).failure, row.sentence) << row.text;
        session.settings.MailSettings = before;
    }
    EXPECT_THAT(mail.sent, IsEmpty());
}

TEST_F(AlarmMailTest, KeysThatCannotBeReadAreNamedInsteadOfAMissingPassword) {
    variables.clear();
    std::filesystem::create_directories(session.DataFile("Keys.ini"));
    EXPECT_EQ(MailTest(session, post).failure,
              session.DataFile("Keys.ini").string() + ": cannot be read (Is a directory)");
    EXPECT_THAT(mail.sent, IsEmpty());
}

TEST_F(AlarmMailTest, ThePasswordComesFromTheEnvironmentOrTheKeysAndStandsInNoSentence) {
    variables.clear();
    EXPECT_EQ(MailTest(session, post).failure,
              "The password of the mail server is missing: put smtp=PASSWORD into Data/Keys.ini or set "
              "BRANTLOW_KEY_SMTP");
    Write("Data/Keys.ini", "smtp=from-the-file\n");
    EXPECT_TRUE(MailTest(session, post).isSent);
    EXPECT_EQ(mail.sent.back().password, "from-the-file");
    variables["BRANTLOW_KEY_SMTP"] = "one\nQUIT";
    const MailTold told = MailTest(session, post);
    EXPECT_EQ(told.failure,
              "The password of the mail server cannot be used: the key holds a line feed or another control "
              "character");
    // Nobody logs in without a user.
    variables.clear();
    Write("Data/Keys.ini", "");
    Set(session.settings.MailSettings, 5, "");
    EXPECT_TRUE(MailTest(session, post).isSent);
    EXPECT_EQ(mail.sent.back().password, "");
}

TEST_F(AlarmMailTest, WithoutASenderTheFirstRecipientIsIt) {
    Set(session.settings.MailSettings, 6, "");
    EXPECT_TRUE(MailTest(session, post).isSent);
    EXPECT_EQ(mail.sent.back().sender, "a@example.org");
}

TEST_F(AlarmMailTest, TheSameAlarmOfADayStandsInTheListOnceWithItsNewestPrice) {
    Tell({AlarmOf("KO", "71.000"), AlarmOf("PEP")});
    Tell({AlarmOf("KO", "73.000")});
    const std::vector<FiredAlarm> list = List();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].ticker, "PEP");
    EXPECT_EQ(list[1].price, "73.000");
    FiredAlarm tomorrow = AlarmOf("KO");
    tomorrow.when = "2024-03-16 16:00";
    Tell({tomorrow});
    EXPECT_EQ(List().size(), 3U);
    EXPECT_FALSE(ForgetFiredAlarms(folder / "Data"));
    EXPECT_THAT(List(), IsEmpty());
    EXPECT_FALSE(ForgetFiredAlarms(folder / "Data"));
}

TEST_F(AlarmMailTest, AListThatCannotBeReadIsToldAndNotReplacedAndTheMailGoesAllTheSame) {
    std::filesystem::create_directories(folder / "Data/Fired Alarms.txt");
    const std::vector<std::string> failures = Tell({AlarmOf("KO")});
    ASSERT_FALSE(failures.empty());
    EXPECT_THAT(failures[0], HasSubstr("Fired Alarms.txt: cannot be read"));
    EXPECT_EQ(mail.sent.size(), 1U);
}

TEST_F(AlarmMailTest, LinesThatAreNoneAndHostileTextsDoNoHarm) {
    Write("Data/Fired Alarms.txt",
          "rubbish\r\na\tb\r\n\t\t\t\t\t\t\r\n2024-03-15 16:00\tKO\t1\tlow\t2\tT\tmailed");
    ASSERT_EQ(List().size(), 1U);
    EXPECT_EQ(AlarmSentence(List()[0]), "KO: 1 fell to the low alarm 2");
    FiredAlarm hostile = AlarmOf("A\tB\r\nC");
    Tell({hostile});
    ASSERT_EQ(List().size(), 2U);
    EXPECT_EQ(List()[1].ticker, "A B  C");
    for (const std::string& header : mail.sent[0].headers) EXPECT_THAT(header, Not(HasSubstr("\r")));
}

TEST(FiredAlarm, IsTheOneThatTheLastPriceHasReached) {
    struct Row {
        const char* cells;  // last price, high alarm, low alarm
        const char* sentence;
    };
    constexpr Row kRows[] = {
        {"72\t70\t", "KO: 72 reached the high alarm 70"},
        {"70\t70\t", "KO: 70 reached the high alarm 70"},
        {"69.99\t70\t", ""},
        {"60\t\t60", "KO: 60 fell to the low alarm 60"},
        {"60.01\t\t60", ""},
        {"72\t70\t80", "KO: 72 reached the high alarm 70"},
        {"72\t\t", ""},
        {"72\t0\t0", ""},
        {"-1\t\t5", ""},
        {"N/A\t\t5", "KO: N/A fell to the low alarm 5"},
        {"72\tx\ty", ""},
    };
    for (const Row& row : kRows) {
        QuoteTable table;
        table.AppendLine("Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm");
        table.AppendLine(std::string("KO\t") + row.cells);
        const auto alarm = FiredAlarmOf(table, 1, LocateColumns(table));
        EXPECT_EQ(alarm ? AlarmSentence(*alarm) : "", row.sentence) << row.cells;
    }
}

}  // namespace
}  // namespace brantlow
