// The bubble of fired alarms: one a run, by the desktop's service, by the tray where that is not there.
#include "alerts/windows/alarm_notice.h"

#include <QSystemTrayIcon>

#include "window_test.h"

using namespace brantlow;

namespace {

// Doors that note what goes through them.
struct Desktop {
    bool hasService = true;
    std::vector<Notice> bus;
    std::vector<Notice> tray;

    NoticeDoors Doors() {
        return {[this](const Notice& notice, const std::function<void()>& failed) {
                    if (!hasService) return failed();
                    bus.push_back(notice);
                },
                [this](const Notice& notice) { tray.push_back(notice); }};
    }
};

FiredAlarm AlarmOf(const std::string& ticker) {
    return {"2026-11-20 16:00", ticker, "72", AlarmKind::High, "70", "Mine.ddq", AlarmMailing::Due};
}

}  // namespace

class AlarmNoticeTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void AllAlarmsOfARunAreOneBubble() {
        Desktop desktop;
        ShowAlarms({AlarmOf("KO"), AlarmOf("PEP")}, desktop.Doors());
        QCOMPARE(desktop.bus.size(), std::size_t{1});
        QCOMPARE(desktop.bus[0].title, QStringLiteral("2 price alarms fired"));
        QCOMPARE(desktop.bus[0].body, QStringLiteral("KO: 72 reached the high alarm 70\n"
                                                     "PEP: 72 reached the high alarm 70"));
        QVERIFY(desktop.tray.empty());
    }
    void OneAlarmIsToldInTheSingularAndNoneNotAtAll() {
        Desktop desktop;
        ShowAlarms({}, desktop.Doors());
        QVERIFY(desktop.bus.empty());
        ShowAlarms({AlarmOf("KO")}, desktop.Doors());
        QCOMPARE(desktop.bus[0].title, QStringLiteral("A price alarm fired"));
    }
    void WhereNobodyShowsItTheTrayDoes() {
        Desktop desktop;
        desktop.hasService = false;
        ShowAlarms({AlarmOf("KO")}, desktop.Doors());
        QVERIFY(desktop.bus.empty());
        QCOMPARE(desktop.tray.size(), std::size_t{1});
        QCOMPARE(desktop.tray[0].body, QStringLiteral("KO: 72 reached the high alarm 70"));
    }
    void ManyAlarmsAreCountedBehindTheFirstFew() {
        Desktop desktop;
        ShowAlarms(std::vector<FiredAlarm>(8, AlarmOf("KO")), desktop.Doors());
        QCOMPARE(desktop.bus[0].title, QStringLiteral("8 price alarms fired"));
        QCOMPARE(desktop.bus[0].body.count(QLatin1Char('\n')), 5);
        QVERIFY(desktop.bus[0].body.endsWith(QStringLiteral("\nand 3 more")));
    }
    void NothingInATextIsReadAsMarks() {
        Desktop desktop;
        ShowAlarms({AlarmOf("<b>A&B</b>")}, desktop.Doors());
        QVERIFY(!desktop.bus[0].body.contains(QLatin1Char('<')));
        QVERIFY(!desktop.bus[0].body.contains(QLatin1Char('&')));
    }
    void WithoutABusTheDesktopsDoorFailsAtOnce() {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", "/nonexistent");
        bool failed = false;
        DesktopNotices notices(nullptr);
        notices.Doors().bus({QStringLiteral("t"), QStringLiteral("b")}, [&failed] { failed = true; });
        QVERIFY(failed);
    }
    void WithoutATrayNoSymbolIsMade() {
        QVERIFY(!QSystemTrayIcon::isSystemTrayAvailable());
        DesktopNotices notices(nullptr);
        notices.Doors().tray({QStringLiteral("t"), QStringLiteral("b")});
        QVERIFY(notices.findChildren<QSystemTrayIcon*>().isEmpty());
    }
};

WINDOW_TEST(AlarmNoticeTest)
#include "alarm_notice_test.moc"
