// The bubble of fired alarms on a bus of the test's own, with a service of notifications that the test plays.
#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QStandardPaths>
#include <QToolButton>
#include <QVariantMap>

#include "alerts/windows/alarm_notice.h"
#include "alerts/windows/frmFiredAlarms.h"
#include "update_window_fixture.h"

using namespace brantlow;

namespace {

constexpr const char* kService = "org.freedesktop.Notifications";
constexpr const char* kPath = "/org/freedesktop/Notifications";

struct Bubble {
    QString program;
    QString title;
    QString body;
    QStringList actions;
};

}  // namespace

// Notes what it is told to show, as a desktop does.
class NotificationService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
  public:
    std::vector<Bubble> bubbles;

  public Q_SLOTS:
    uint Notify(const QString& program, uint replaces, const QString& icon, const QString& title,
                const QString& body, const QStringList& actions, const QVariantMap& hints, int milliseconds) {
        Q_UNUSED(replaces)
        Q_UNUSED(icon)
        Q_UNUSED(hints)
        Q_UNUSED(milliseconds)
        bubbles.push_back({program, title, body, actions});
        return static_cast<uint>(bubbles.size());
    }

  Q_SIGNALS:
    void ActionInvoked(uint id, const QString& action);
};

class AlarmBusTest : public QObject {
    Q_OBJECT

    QProcess daemon_;
    NotificationService service_;

    QDBusConnection Desktop() { return QDBusConnection(QStringLiteral("desktop")); }

  private Q_SLOTS:
    void initTestCase() {
        const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (program.isEmpty()) QSKIP("dbus-daemon is not installed");
        daemon_.start(program, {QStringLiteral("--session"), QStringLiteral("--print-address"),
                                QStringLiteral("--nofork"), QStringLiteral("--nopidfile")});
        QVERIFY(daemon_.waitForReadyRead(kPatienceMs));
        const QByteArray address = daemon_.readLine().trimmed();
        // Before the first look at it: the program's bus is this one from now on.
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        QVERIFY(QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("desktop"))
                    .isConnected());
        QVERIFY(
            Desktop().registerObject(QString::fromLatin1(kPath), &service_,
                                     QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    }

    void cleanupTestCase() {
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
        daemon_.terminate();
        daemon_.waitForFinished();
    }

    void init() { service_.bubbles.clear(); }

    void whereNoServiceAnswersTheTrayIsAsked() {
        DesktopNotices notices(nullptr);
        NoticeDoors doors = notices.Doors();
        std::vector<Notice> tray;
        doors.tray = [&tray](const Notice& notice) { tray.push_back(notice); };
        ShowAlarms({{"2026-11-20 16:00", "KO", "72", AlarmKind::High, "70", "Mine.ddq", AlarmMailing::Sent}},
                   doors);
        QTRY_COMPARE_WITH_TIMEOUT(tray.size(), std::size_t{1}, kPatienceMs);
        QCOMPARE(tray[0].title, QStringLiteral("A price alarm fired"));
        QCOMPARE(tray[0].body, QStringLiteral("KO: 72 reached the high alarm 70"));
        QVERIFY(service_.bubbles.empty());
    }

    void allAlarmsOfARunAreOneBubbleAndASecondRunShowsNone() {
        QVERIFY(Desktop().registerService(QString::fromLatin1(kService)));
        UpdateProgram program;
        program.Write("Mine.ddq",
                      "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\n"
                      "T1\t1.000\t\t\r\nT2\t1.000\t110\t\r\nT3\t1.000\t\t110\r\n");
        program.StartMine();
        program.Update();
        QTRY_COMPARE_WITH_TIMEOUT(service_.bubbles.size(), std::size_t{1}, kPatienceMs);
        const Bubble& bubble = service_.bubbles[0];
        QCOMPARE(bubble.program, QStringLiteral("Brantlow"));
        QCOMPARE(bubble.title, QStringLiteral("2 price alarms fired"));
        QCOMPARE(bubble.body, QStringLiteral("T2: 110.000 reached the high alarm 110\n"
                                             "T3: 110.000 fell to the low alarm 110"));
        QCOMPARE(bubble.actions,
                 QStringList({QStringLiteral("default"), QStringLiteral("Show the fired alarms")}));
        program.Update();
        // What the second run could have sent stands on the bus before this call's answer.
        const QDBusMessage asked = QDBusConnection::sessionBus().call(
            QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                           QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")));
        QCOMPARE(asked.type(), QDBusMessage::ReplyMessage);
        QCoreApplication::processEvents();
        QCOMPARE(service_.bubbles.size(), std::size_t{1});
    }

    void aPressOnTheBubbleOpensTheListAndOneOnSomebodyElsesDoesNot() {
        UpdateProgram program;
        program.Write("Mine.ddq", "Ticker Symbol\tLast Price\tHigh Alarm\r\nT1\t1.000\t50\r\n");
        program.StartMine();
        program.Update();
        QTRY_COMPARE_WITH_TIMEOUT(service_.bubbles.size(), std::size_t{1}, kPatienceMs);
        const auto list = [&] { return program.frame->findChild<frmFiredAlarms*>(); };
        // The answer with the bubble's number comes first.
        Q_EMIT service_.ActionInvoked(7, QStringLiteral("default"));
        Q_EMIT service_.ActionInvoked(1, QStringLiteral("other"));
        QTest::qWait(0);
        QVERIFY(!list());
        Q_EMIT service_.ActionInvoked(1, QStringLiteral("default"));
        QTRY_VERIFY_WITH_TIMEOUT(list() != nullptr, kPatienceMs);
        QVERIFY(list()->isVisible());
    }
};

WINDOW_TEST(AlarmBusTest)
#include "alarm_bus_test.moc"
