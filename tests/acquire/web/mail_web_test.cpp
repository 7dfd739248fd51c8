#include "acquire/web/mail_web.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "acquire/web/mail_server.h"
#include "acquire/web/raw_server.h"
#include "acquire/web/waiting_person.h"
#include "shell/run_control.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class MailWebTest : public ::testing::Test {
  protected:
    ~MailWebTest() override { ::unsetenv("SSL_CERT_FILE"); }

    void Trust(const MailServer& server) {
        ASSERT_FALSE(WriteWholeFile(folder / "trusted.pem", server.Certificate()));
        ::setenv("SSL_CERT_FILE", (folder / "trusted.pem").c_str(), 1);
    }
    MailReply Send(int port, MailSecurity security = MailSecurity::Tls) {
        MailRequest request;
        request.host = host;
        request.port = port;
        request.security = security;
        request.user = "me";
        request.password = "practice-word";
        request.sender = "me@example.org";
        request.recipients = {"you@example.org", "two@example.org"};
        request.headers = {"Subject: Price alarm: KO"};
        request.text = "KO: caf\xc3\xa9\r\n.\r\nend\r\n";
        request.limitSeconds = limit;
        request.isStopped = [this] { return run.ProcessCommand == kStopRun; };
        return mail.Send(request);
    }

    TempFolder folder;
    WaitingPerson person;
    RunControl run;
    CurlMail mail{person};
    std::string host = "127.0.0.1";
    double limit = 20;
};

TEST_F(MailWebTest, AnEncryptedConnectionBringsTheMailToAllRecipients) {
    MailServer server({});
    Trust(server);
    const MailReply reply = Send(server.port);
    EXPECT_EQ(reply.outcome, MailOutcome::Sent) << reply.words;
    ASSERT_EQ(server.Mails().size(), 1U);
    const std::string sent = server.Mails()[0];
    EXPECT_THAT(sent, HasSubstr("Subject: Price alarm: KO\n"));
    EXPECT_THAT(sent, HasSubstr("Content-Type: text/plain; charset=utf-8\n"));
    // A lone full stop does not end it.
    EXPECT_THAT(sent, HasSubstr("KO: caf=C3=A9\n"));
    EXPECT_THAT(sent, HasSubstr("\nend\n"));
    EXPECT_THAT(server.Told(), Contains("(encrypted) MAIL FROM:<me@example.org>"));
    EXPECT_THAT(server.Told(), Contains("(encrypted) RCPT TO:<you@example.org>"));
    EXPECT_THAT(server.Told(), Contains("(encrypted) RCPT TO:<two@example.org>"));
}

TEST_F(MailWebTest, WithStartTlsNothingButTheGreetingGoesInTheClear) {
    MailServer server({.isEncryptedAtOnce = false, .offersStartTls = true});
    Trust(server);
    EXPECT_EQ(Send(server.port, MailSecurity::StartTls).outcome, MailOutcome::Sent);
    const std::vector<std::string> told = server.Told();
    ASSERT_GT(told.size(), 3U);
    EXPECT_THAT(told[0], StartsWith("EHLO "));
    EXPECT_EQ(told[1], "STARTTLS");
    for (std::size_t i = 2; i < told.size(); ++i) EXPECT_THAT(told[i], StartsWith("(encrypted) "));
}

TEST_F(MailWebTest, AServerThatOffersNoEncryptionIsToldNothing) {
    MailServer server({.isEncryptedAtOnce = false});
    Trust(server);
    const MailReply reply = Send(server.port, MailSecurity::StartTls);
    EXPECT_EQ(reply.outcome, MailOutcome::Refused);
    EXPECT_TRUE(reply.isUnsafe);
    EXPECT_THAT(reply.words, StartsWith("the server offers no encrypted connection, so nothing was sent ("));
    for (const std::string& line : server.Told()) EXPECT_THAT(line, Not(HasSubstr("AUTH")));
    EXPECT_THAT(server.Mails(), IsEmpty());
}

TEST_F(MailWebTest, AStartTlsThatIsDeniedIsNotGoneWithout) {
    MailServer server({.isEncryptedAtOnce = false,
                       .offersStartTls = true,
                       .replies = {{"STARTTLS", "454 4.7.0 TLS not available"}}});
    Trust(server);
    const MailReply reply = Send(server.port, MailSecurity::StartTls);
    EXPECT_EQ(reply.outcome, MailOutcome::Refused);
    EXPECT_THAT(reply.words, HasSubstr("454 4.7.0 TLS not available"));
    for (const std::string& line : server.Told()) EXPECT_THAT(line, Not(StartsWith("AUTH")));
}

TEST_F(MailWebTest, ACertificateThatNobodyVouchesForIsRefused) {
    MailServer server({});
    const MailReply reply = Send(server.port);
    EXPECT_EQ(reply.outcome, MailOutcome::Refused);
    EXPECT_TRUE(reply.isUnsafe);
    EXPECT_THAT(reply.words, StartsWith("its certificate is not trusted, so nothing was sent ("));
    EXPECT_THAT(server.Told(), IsEmpty());
}

TEST_F(MailWebTest, RefusalsAreToldInTheServersWordsWithoutThePassword) {
    struct Row {
        const char* word;
        const char* reply;
        MailOutcome outcome;
        const char* words;
    };
    constexpr Row kRows[] = {
        {"", "421 4.3.2 too busy", MailOutcome::Later, "421 4.3.2 too busy"},
        {"AUTH", "535 5.7.8 no, practice-word is wrong", MailOutcome::Refused, "535 5.7.8 no, *** is wrong"},
        {"MAIL", "451 4.7.1 greylisted", MailOutcome::Later, "451 4.7.1 greylisted"},
        {"MAIL", "550 5.7.1 not you", MailOutcome::Refused, "550 5.7.1 not you"},
        {"RCPT", "550 5.1.1 no such user", MailOutcome::Refused, "550 5.1.1 no such user"},
        {"RCPT", "452 4.2.2 full", MailOutcome::Later, "452 4.2.2 full"},
        {"DATA", "554 5.6.0 spam\x1b[2J", MailOutcome::Refused, "554 5.6.0 spam [2J"},
    };
    for (const Row& row : kRows) {
        MailServer server({.replies = {{row.word, row.reply}}});
        Trust(server);
        const MailReply reply = Send(server.port);
        EXPECT_EQ(reply.outcome, row.outcome) << row.reply;
        EXPECT_EQ(reply.words, row.words);
    }
}

TEST_F(MailWebTest, AServerThatGreetsNobodyIsToldInItsWords) {
    MailServer server({.replies = {{"EHLO", "554 5.7.1 not you"}, {"HELO", "554 5.7.1 not you"}}});
    Trust(server);
    const MailReply reply = Send(server.port);
    EXPECT_EQ(reply.outcome, MailOutcome::Refused);
    EXPECT_EQ(reply.words, "554 5.7.1 not you");
    EXPECT_FALSE(reply.isUnsafe);
}

// Its port is the other one, or it is starting.
TEST_F(MailWebTest, AHandshakeThatFailsIsWorthAnotherTry) {
    MailServer server({.isEncryptedAtOnce = false});
    Trust(server);
    const MailReply reply = Send(server.port);
    EXPECT_EQ(reply.outcome, MailOutcome::Later);
    EXPECT_FALSE(reply.words.empty());
    EXPECT_THAT(server.Mails(), IsEmpty());
}

TEST_F(MailWebTest, ANobodyAtThePortIsWorthAnotherTry) {
    const MailReply reply = Send(FreePort());
    EXPECT_EQ(reply.outcome, MailOutcome::Later);
    EXPECT_THAT(reply.words, HasSubstr("127.0.0.1"));
}

// No name server is asked for such a name: a part of it is longer than one can be.
TEST_F(MailWebTest, AHostWithoutAnAddressIsNamedAndWorthAnotherTry) {
    host = std::string(64, 'm') + ".example";
    const MailReply reply = Send(FreePort());
    EXPECT_EQ(reply.outcome, MailOutcome::Later);
    EXPECT_EQ(reply.words, "Could not resolve host: " + host);
    EXPECT_FALSE(reply.isUnsafe);
}

TEST_F(MailWebTest, ASilentServerEndsWithTheLimitAndAStoppedRunAtOnce) {
    limit = 0.2;
    // It waits for the client to speak first, as no mail server does.
    MailServer server({});
    const MailReply late = Send(server.port, MailSecurity::StartTls);
    EXPECT_EQ(late.outcome, MailOutcome::Later);
    EXPECT_EQ(late.words, "no whole answer within 0.2 seconds");
    limit = 20;
    run.ProcessCommand = kStopRun;
    EXPECT_EQ(Send(server.port, MailSecurity::StartTls).outcome, MailOutcome::Stopped);
}

}  // namespace
}  // namespace brantlow
