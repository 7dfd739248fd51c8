// The mail of fired alarms at the windows: its settings, the trial of them, and the mail that a server put
// off and that is tried again.
#include <sys/stat.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTcpServer>
#include <QToolButton>

#include "acquire/web/mail_server.h"
#include "alerts/windows/frmAlarmMail.h"
#include "alerts/windows/frmFiredAlarms.h"
#include "screens/windows/frmApplicationSettings.h"
#include "shell/settings/lines.h"
#include "update_window_fixture.h"

using namespace brantlow;

namespace {

constexpr const char* kPassword = "practice-word";

class MailScene : public UpdateProgram {
  public:
    MailScene() {
        qunsetenv("BRANTLOW_KEY_SMTP");
        Write("Mine.ddq",
              "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\n"
              "T1\t1.000\t\t\r\nT2\t1.000\t110\t\r\nT3\t1.000\t\t110\r\n");
    }
    ~MailScene() { qunsetenv("SSL_CERT_FILE"); }

    void Trust(const MailServer& server) {
        if (WriteWholeFile(folder / "trusted.pem", server.Certificate())) qFatal("no certificate");
        qputenv("SSL_CERT_FILE", (folder / "trusted.pem").c_str());
    }
    void SetMail(int port) {
        Write("VTRMAILset.ini", "\"Send\"\r\n\"127.0.0.1\"\r\n" + std::to_string(port) +
                                    "\r\n\"TLS\"\r\n\"\"\r\n\"\"\r\n\"me@example.org\"\r\n");
    }
    frmAlarmMail* Open() {
        frame->Commands().Entry("mnuSettingsAlarmMail")->trigger();
        window = frame->findChild<frmAlarmMail*>();
        if (!window) qFatal("no window");
        return window;
    }
    template <class Widget>
    Widget* Part(const char* name) {
        Widget* const found = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!found) qFatal("no %s", name);
        return found;
    }
    void Enter(const char* line, const char* text) {
        auto* const field = Part<QLineEdit>(line);
        field->clear();
        QTest::keyClicks(field, QString::fromLatin1(text));
    }
    // All that the test mail needs, as a person enters it.
    void EnterServer(int port) {
        Enter("txtHost", "127.0.0.1");
        Part<QSpinBox>("numPort")->setValue(port);
        Enter("txtUser", "me");
        Enter("txtPassword", kPassword);
        Enter("txtRecipient", "me@example.org");
    }
    void Ok() { window->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click(); }
    void PressTest() { QTest::mouseClick(Part<QPushButton>("cmdTest"), Qt::LeftButton); }
    QString Outcome() { return Part<QLabel>("lblOutcome")->text(); }
    QToolButton* Count() { return Find<QToolButton>("cmdUnreadAlarms"); }
    // The frame looks at the clock, some times over.
    void Look() {
        auto* const timer = Find<QTimer>("tmrAlarmMail");
        if (!timer->isActive()) return;
        constexpr int kLooks = 5;
        timer->setInterval(1);
        QSignalSpy looks(timer, &QTimer::timeout);
        QTRY_VERIFY_WITH_TIMEOUT(looks.count() >= kLooks || !timer->isActive(), kPatienceMs);
    }
    void SetTime(double seconds) { clock.Set(kTestDay, seconds); }

    frmAlarmMail* window = nullptr;
};

template <class Server>
qsizetype Tries(Server& server) {
    const std::vector<std::string> told = server.Told();
    return std::count_if(told.begin(), told.end(),
                         [](const std::string& line) { return line.find("MAIL FROM") != std::string::npos; });
}

}  // namespace

class AlarmMailWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void everyLineOfTheFileIsShownAndKept() {
        MailScene scene;
        scene.Write("VTRMAILset.ini",
                    "\"Send\"\r\n\"mail.example\"\r\n2525\r\n\"STARTTLS\"\r\n\"\"\r\n\"from@example.org\"\r\n"
                    "\"a@example.org, b@example.org\"\r\n");
        scene.StartMine();
        scene.Open();
        QVERIFY(scene.Part<QCheckBox>("chkMails")->isChecked());
        QCOMPARE(scene.Part<QLineEdit>("txtHost")->text(), QStringLiteral("mail.example"));
        QCOMPARE(scene.Part<QSpinBox>("numPort")->value(), 2525);
        QCOMPARE(scene.Part<QComboBox>("cboSecurity")->currentIndex(), 1);
        QCOMPARE(scene.Part<QLineEdit>("txtUser")->text(), QString());
        QCOMPARE(scene.Part<QLineEdit>("txtSender")->text(), QStringLiteral("from@example.org"));
        QCOMPARE(scene.Part<QLineEdit>("txtRecipient")->text(),
                 QStringLiteral("a@example.org, b@example.org"));
        scene.Enter("txtHost", "smtp.example");
        scene.Enter("txtUser", "me");
        scene.Enter("txtPassword", kPassword);
        scene.Enter("txtSender", "");
        scene.Enter("txtRecipient", "c@example.org");
        scene.Part<QSpinBox>("numPort")->setValue(587);
        scene.Part<QComboBox>("cboSecurity")->setCurrentIndex(0);
        scene.Ok();
        QVERIFY(!scene.window->isVisible());
        QCOMPARE(QString::fromStdString(scene.Read("VTRMAILset.ini")),
                 QStringLiteral("\"Send\"\r\n\"smtp.example\"\r\n465\r\n\"TLS\"\r\n\"me\"\r\n\"\"\r\n"
                                "\"c@example.org\"\r\n"));
        QCOMPARE(Get(scene.session.settings, kMailHost), std::string("smtp.example"));
    }

    void thePasswordGoesIntoTheKeysAloneAndIsNeverShownAgain() {
        MailScene scene;
        scene.StartMine();
        scene.Open();
        QCOMPARE(scene.Part<QLineEdit>("txtPassword")->echoMode(), QLineEdit::Password);
        QVERIFY(!scene.Part<QPushButton>("cmdRemovePassword")->isEnabled());
        scene.EnterServer(465);
        scene.Part<QCheckBox>("chkMails")->setChecked(true);
        scene.Ok();
        QCOMPARE(QString::fromStdString(scene.Read("Keys.ini")), QStringLiteral("smtp=practice-word\r\n"));
        struct stat status {};
        QCOMPARE(stat(scene.session.DataFile("Keys.ini").c_str(), &status), 0);
        QCOMPARE(static_cast<unsigned>(status.st_mode) & 0777U, 0600U);
        QVERIFY(scene.Read("VTRMAILset.ini").find(kPassword) == std::string::npos);
        QTRY_VERIFY(!scene.frame->findChild<frmAlarmMail*>());
        scene.Open();
        QCOMPARE(scene.Part<QLineEdit>("txtPassword")->text(), QString());
        QCOMPARE(scene.Part<QLineEdit>("txtPassword")->placeholderText(), QStringLiteral("(kept)"));
        QCOMPARE(scene.Part<QLabel>("lblPasswordState")->text(),
                 QStringLiteral("A password is kept in Data/Keys.ini; one that is entered replaces it."));
        // An empty field leaves it.
        scene.Ok();
        QCOMPARE(QString::fromStdString(scene.Read("Keys.ini")), QStringLiteral("smtp=practice-word\r\n"));
        QTRY_VERIFY(!scene.frame->findChild<frmAlarmMail*>());
        scene.Open();
        QTest::mouseClick(scene.Part<QPushButton>("cmdRemovePassword"), Qt::LeftButton);
        QCOMPARE(scene.Outcome(), QStringLiteral("The password is no longer kept."));
        QVERIFY(scene.Read("Keys.ini").find(kPassword) == std::string::npos);
        qputenv("BRANTLOW_KEY_SMTP", "from-outside");
        scene.window->reject();
        QTRY_VERIFY(!scene.frame->findChild<frmAlarmMail*>());
        scene.Open();
        QVERIFY(!scene.Part<QLineEdit>("txtPassword")->isEnabled());
        QCOMPARE(scene.Part<QLabel>("lblPasswordState")->text(),
                 QStringLiteral("The environment variable BRANTLOW_KEY_SMTP holds it; that one counts."));
        qunsetenv("BRANTLOW_KEY_SMTP");
    }

    void cancelKeepsNothing() {
        MailScene scene;
        scene.StartMine();
        scene.Open();
        scene.EnterServer(465);
        scene.window->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
        QVERIFY(!scene.window->isVisible());
        QCOMPARE(Get(scene.session.settings, kMailHost), std::string());
        QVERIFY(!IsRegularFile(scene.session.DataFile("Keys.ini")));
    }

    void thePortFollowsTheEncryptionUnlessItIsOneOfTheirOwn() {
        MailScene scene;
        scene.StartMine();
        scene.Open();
        auto* const port = scene.Part<QSpinBox>("numPort");
        auto* const security = scene.Part<QComboBox>("cboSecurity");
        QCOMPARE(port->value(), 465);
        security->setCurrentIndex(1);
        QCOMPARE(port->value(), 587);
        security->setCurrentIndex(0);
        QCOMPARE(port->value(), 465);
        port->setValue(2525);
        security->setCurrentIndex(1);
        QCOMPARE(port->value(), 2525);
    }

    void whatIsWrongIsToldInWordsAndNothingIsKept() {
        struct Row {
            const char* line;
            const char* text;
            const char* words;
        };
        constexpr Row kRows[] = {
            {"txtHost", "", "No mail server is named."},
            {"txtHost", "a b", "No mail server is named."},
            {"txtRecipient", "", "No recipient is named."},
            {"txtRecipient", "me", "A recipient is no mail address."},
            {"txtSender", "me", "The sender is no mail address."},
            {"txtPassword", "", "Enter the password of me, or leave the user empty."},
        };
        for (const Row& row : kRows) {
            MailScene scene;
            scene.StartMine();
            scene.Open();
            scene.EnterServer(465);
            scene.Enter(row.line, row.text);
            scene.PressTest();
            QCOMPARE(scene.Outcome(), QString::fromLatin1(row.words));
            scene.Part<QLabel>("lblOutcome")->clear();
            scene.Part<QCheckBox>("chkMails")->setChecked(true);
            scene.Ok();
            QVERIFY(scene.window->isVisible());
            QCOMPARE(scene.Outcome(), QString::fromLatin1(row.words));
            QVERIFY(!IsRegularFile(scene.session.DataFile("Keys.ini")));
            // Half filled in, it can be kept as long as nothing is mailed.
            scene.Part<QCheckBox>("chkMails")->setChecked(false);
            scene.Ok();
            QVERIFY(!scene.window->isVisible());
        }
    }

    void theTestSendsByTheFieldsAndKeepsNothing() {
        MailServer server({});
        MailScene scene;
        scene.Trust(server);
        scene.StartMine();
        scene.Open();
        scene.EnterServer(server.port);
        scene.PressTest();
        QTRY_COMPARE_WITH_TIMEOUT(scene.Outcome(), QStringLiteral("The mail was sent to me@example.org."),
                                  kPatienceMs);
        QCOMPARE(server.Mails().size(), std::size_t{1});
        QVERIFY(server.Mails()[0].find("Subject: Test\n") != std::string::npos);
        QCOMPARE(scene.Part<QPushButton>("cmdTest")->text(), QStringLiteral("&Test"));
        QVERIFY(!IsRegularFile(scene.session.DataFile("Keys.ini")));
        QCOMPARE(Get(scene.session.settings, kMailHost), std::string());
    }

    void aRefusalIsToldInTheServersWordsWithoutThePassword() {
        MailServer server({.replies = {{"AUTH", "535 5.7.8 wrong practice-word"}}});
        MailScene scene;
        scene.Trust(server);
        scene.StartMine();
        scene.Open();
        scene.EnterServer(server.port);
        scene.PressTest();
        QTRY_COMPARE_WITH_TIMEOUT(
            scene.Outcome(),
            QStringLiteral("The mail was refused by 127.0.0.1:%1: 535 5.7.8 wrong ***").arg(server.port),
            kPatienceMs);
    }

    void aCertificateThatNobodyVouchesForEndsTheTest() {
        MailServer server({});
        MailScene scene;
        scene.StartMine();
        scene.Open();
        scene.EnterServer(server.port);
        scene.PressTest();
        QTRY_VERIFY_WITH_TIMEOUT(scene.Outcome().contains(QStringLiteral("certificate")), kPatienceMs);
        QVERIFY(server.Mails().empty());
    }

    void theWindowStaysAtWorkWhileASilentServerIsWaitedForAndStopEndsIt() {
        QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        MailScene scene;
        scene.StartMine();
        scene.Open();
        scene.EnterServer(silent.serverPort());
        scene.PressTest();
        QCOMPARE(scene.Outcome(),
                 QStringLiteral("Sending a mail by 127.0.0.1:%1 ...").arg(silent.serverPort()));
        QCOMPARE(scene.Part<QPushButton>("cmdTest")->text(), QStringLiteral("S&top"));
        QTRY_VERIFY_WITH_TIMEOUT(silent.hasPendingConnections(), kPatienceMs);
        scene.Enter("txtSender", "me@example.org");
        QCOMPARE(scene.Part<QLineEdit>("txtSender")->text(), QStringLiteral("me@example.org"));
        QCOMPARE(scene.Part<QPushButton>("cmdTest")->text(), QStringLiteral("S&top"));
        scene.PressTest();
        QTRY_COMPARE_WITH_TIMEOUT(scene.Outcome(), QStringLiteral("The test was stopped."), kPatienceMs);
        QCOMPARE(scene.Part<QPushButton>("cmdTest")->text(), QStringLiteral("&Test"));
        // Closing the window ends one too.
        scene.PressTest();
        scene.window->reject();
        QTRY_VERIFY(!scene.frame->findChild<frmAlarmMail*>());
    }

    void theSettingsScreenLeadsHere() {
        MailScene scene;
        scene.StartMine();
        scene.frame->Commands().Entry("mnuSettingsApplication")->trigger();
        auto* const settings = scene.frame->findChild<frmApplicationSettings*>();
        QVERIFY(settings);
        settings->findChild<QPushButton*>(QStringLiteral("CommandMail"))->click();
        QVERIFY(settings->findChild<frmAlarmMail*>());
        settings->findChild<frmAlarmMail*>()->reject();
        settings->reject();
    }

    void aMailThatTheServerPutOffIsTriedAgainAtItsTimeAndSentOnce() {
        MailServer server({.greyConnections = 2});
        MailScene scene;
        scene.Trust(server);
        scene.SetMail(server.port);
        scene.SetTime(18 * 3600);
        scene.StartMine();
        scene.Update();
        QCOMPARE(Tries(server), 1);
        QCOMPARE(scene.Count()->text(), QStringLiteral("2 unread alarms, mail waits"));
        QCOMPARE(scene.Count()->toolTip(),
                 QStringLiteral("The mail was not sent by 127.0.0.1:%1: 451 4.7.1 come again. It is tried "
                                "again at 18:01.")
                     .arg(server.port));
        scene.SetTime(18 * 3600 + 59);
        scene.Look();
        QCOMPARE(Tries(server), 1);
        scene.SetTime(18 * 3600 + 60);
        QTRY_VERIFY_WITH_TIMEOUT(scene.Count()->toolTip().endsWith(QStringLiteral("tried again at 18:06.")),
                                 kPatienceMs);
        QCOMPARE(Tries(server), 2);
        QVERIFY(server.Mails().empty());
        scene.SetTime(18 * 3600 + 359);
        scene.Look();
        QCOMPARE(Tries(server), 2);
        scene.SetTime(18 * 3600 + 360);
        QTRY_COMPARE_WITH_TIMEOUT(scene.Count()->text(), QStringLiteral("2 unread alarms"), kPatienceMs);
        QCOMPARE(server.Mails().size(), std::size_t{1});
        QVERIFY(server.Mails()[0].find("T2: 110.000 reached the high alarm 110") != std::string::npos);
        QVERIFY(server.Mails()[0].find("T3: 110.000 fell to the low alarm 110") != std::string::npos);
        QVERIFY(scene.Read("Fired Alarms.txt").find("to be mailed") == std::string::npos);
        QVERIFY(!scene.Find<QTimer>("tmrAlarmMail")->isActive());
        QCOMPARE(scene.frame->statusBar()->currentMessage(),
                 QStringLiteral("The mail of the fired alarms was sent."));
        QCOMPARE(Tries(server), 3);
    }

    void aMailThatIsRefusedIsToldAndNotTriedAgainUntilTheSettingsChange() {
        MailServer server({.replies = {{"RCPT", "550 5.1.1 no such user"}}});
        MailScene scene;
        scene.Trust(server);
        scene.SetMail(server.port);
        scene.SetTime(18 * 3600);
        scene.StartMine();
        scene.Update();
        const QString why =
            QStringLiteral("The mail was refused by 127.0.0.1:%1: 550 5.1.1 no such user").arg(server.port);
        QCOMPARE(scene.Count()->text(), QStringLiteral("2 unread alarms, mail failed"));
        QCOMPARE(scene.Count()->toolTip(), why);
        QVERIFY(!scene.Find<QTimer>("tmrAlarmMail")->isActive());
        QTest::mouseClick(scene.Count(), Qt::LeftButton);
        auto* const list = scene.frame->findChild<frmFiredAlarms*>();
        QCOMPARE(list->findChild<QLabel*>(QStringLiteral("lblMail"))->text(), why);
        QVERIFY(list->findChild<QLabel*>(QStringLiteral("lblMail"))->isVisible());
        MailServer better({});
        scene.Trust(better);
        scene.Open();
        scene.Part<QSpinBox>("numPort")->setValue(better.port);
        scene.Ok();
        scene.SetTime(18 * 3600 + 61);
        scene.Look();
        QTRY_COMPARE_WITH_TIMEOUT(better.Mails().size(), std::size_t{1}, kPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(scene.Count()->text(), QStringLiteral("2 unread alarms"), kPatienceMs);
        QVERIFY(!list->findChild<QLabel*>(QStringLiteral("lblMail"))->isVisible());
    }

    void aTryThatIsRefusedIsToldAndTheLastOne() {
        MailServer server({.replies = {{"RCPT", "550 5.1.1 no such user"}}, .greyConnections = 1});
        MailScene scene;
        scene.Trust(server);
        scene.SetMail(server.port);
        scene.SetTime(18 * 3600);
        scene.StartMine();
        scene.Update();
        QCOMPARE(scene.Count()->text(), QStringLiteral("2 unread alarms, mail waits"));
        scene.SetTime(18 * 3600 + 60);
        QTRY_COMPARE_WITH_TIMEOUT(scene.Count()->text(), QStringLiteral("2 unread alarms, mail failed"),
                                  kPatienceMs);
        QCOMPARE(
            scene.frame->statusBar()->currentMessage(),
            QStringLiteral("The mail was refused by 127.0.0.1:%1: 550 5.1.1 no such user").arg(server.port));
        QVERIFY(!scene.Find<QTimer>("tmrAlarmMail")->isActive());
        QCOMPARE(Tries(server), 2);
        QVERIFY(scene.Read("Fired Alarms.txt").find("to be mailed") != std::string::npos);
    }

    void alarmsThatWereReadMeanwhileAreNotMailedAnyMore() {
        MailServer server({.greyConnections = 1});
        MailScene scene;
        scene.Trust(server);
        scene.SetMail(server.port);
        scene.SetTime(18 * 3600);
        scene.StartMine();
        scene.Update();
        QVERIFY(scene.Find<QTimer>("tmrAlarmMail")->isActive());
        scene.frame->Commands().Entry("mnuViewFiredAlarms")->trigger();
        auto* const list = scene.frame->findChild<frmFiredAlarms*>();
        list->findChild<QPushButton*>(QStringLiteral("cmdReadAll"))->click();
        scene.SetTime(18 * 3600 + 60);
        scene.Look();
        QTRY_VERIFY_WITH_TIMEOUT(!scene.Find<QTimer>("tmrAlarmMail")->isActive(), kPatienceMs);
        QCOMPARE(Tries(server), 1);
    }
};

WINDOW_TEST(AlarmMailWindowTest)
#include "alarm_mail_window_test.moc"
