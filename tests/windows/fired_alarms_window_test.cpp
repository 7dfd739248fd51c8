// The window of fired alarms and the count of unread ones in the status bar.
#include <QAction>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QTreeWidget>

#include "alerts/windows/frmAlarmMail.h"
#include "alerts/windows/frmFiredAlarms.h"
#include "chart/windows/frmGraph.h"
#include "shell/help_pages.h"
#include "update_window_fixture.h"

using namespace brantlow;

namespace {

constexpr const char* kList =
    "2026-03-06 16:00\tT1\t72.000\thigh\t70\tMine.ddq\tmailed\r\n"
    "2026-03-09 16:00\tT2\t5.000\tlow\t6\tMine.ddq\tmailed\r\n"
    "2026-03-09 16:00\tB\xe9\t7.500\thigh\t7\tOther.ddq\tto be mailed\r\n";

class AlarmsScene : public UpdateProgram {
  public:
    frmFiredAlarms* Open() {
        frame->Commands().Entry("mnuViewFiredAlarms")->trigger();
        return Window();
    }
    frmFiredAlarms* Window() { return frame->findChild<frmFiredAlarms*>(); }
    QToolButton* Count() { return Find<QToolButton>("cmdUnreadAlarms"); }
    QTreeWidget* List() { return Part<QTreeWidget>("lstAlarms"); }
    template <class Widget>
    Widget* Part(const char* name) {
        Widget* const found = Window()->findChild<Widget*>(QString::fromLatin1(name));
        if (!found) qFatal("no %s", name);
        return found;
    }
    bool IsEnabled(const char* button) { return Part<QPushButton>(button)->isEnabled(); }
    void PressIn(const char* button) { QTest::mouseClick(Part<QPushButton>(button), Qt::LeftButton); }
    QStringList Row(int row) {
        QStringList cells;
        for (int column = 0; column < List()->columnCount(); ++column) {
            cells << List()->topLevelItem(row)->text(column);
        }
        return cells;
    }
    bool IsBold(int row) { return List()->topLevelItem(row)->font(0).bold(); }
    QString ChartTitle() { return frame->GraphForm()->windowTitle(); }
    QString CountText() { return Part<QLabel>("lblUnread")->text(); }
};

}  // namespace

class FiredAlarmsWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void unreadAlarmsStandInTheStatusBarAndInTheListNewestFirst() {
        AlarmsScene scene;
        scene.Write("Fired Alarms.txt", kList);
        scene.StartMine();
        QVERIFY(scene.Count()->isVisible());
        QCOMPARE(scene.Count()->text(), QStringLiteral("3 unread alarms"));
        QTest::mouseClick(scene.Count(), Qt::LeftButton);
        QVERIFY(scene.Window());
        QVERIFY(!scene.Window()->isModal());
        QCOMPARE(scene.List()->topLevelItemCount(), 3);
        QCOMPARE(scene.Row(0), Words({"2026-03-09 16:00", "T2", "5.000", "Low 6", "Mine.ddq", "unread"}));
        QCOMPARE(scene.Row(1), Words({"2026-03-09 16:00", "B\xc3\xa9", "7.500", "High 7", "Other.ddq",
                                      "unread, not mailed yet"}));
        QCOMPARE(scene.Row(2), Words({"2026-03-06 16:00", "T1", "72.000", "High 70", "Mine.ddq", "unread"}));
        for (int row = 0; row < 3; ++row) QVERIFY(scene.IsBold(row));
        QCOMPARE(scene.CountText(), QStringLiteral("3 unread alarms"));
        QCOMPARE(scene.List()->topLevelItem(0)->toolTip(0),
                 QStringLiteral("T2: 5.000 fell to the low alarm 6"));
        // Once more shows the same window.
        QTest::mouseClick(scene.Count(), Qt::LeftButton);
        QCOMPARE(scene.frame->findChildren<frmFiredAlarms*>().size(), 1);
    }

    void whatIsMarkedAsReadLeavesTheFileAndStaysInTheWindowUntilItIsClosed() {
        AlarmsScene scene;
        scene.Write("Fired Alarms.txt", kList);
        scene.StartMine();
        scene.Open();
        scene.List()->setCurrentItem(scene.List()->topLevelItem(1));
        scene.PressIn("cmdRead");
        QCOMPARE(QString::fromStdString(scene.Read("Fired Alarms.txt")),
                 QStringLiteral("2026-03-06 16:00\tT1\t72.000\thigh\t70\tMine.ddq\tmailed\r\n"
                                "2026-03-09 16:00\tT2\t5.000\tlow\t6\tMine.ddq\tmailed\r\n"));
        QCOMPARE(scene.List()->topLevelItemCount(), 3);
        QVERIFY(!scene.IsBold(1));
        QCOMPARE(scene.Row(1).last(), QStringLiteral("read"));
        QVERIFY(scene.IsBold(0) && scene.IsBold(2));
        QCOMPARE(scene.CountText(), QStringLiteral("2 unread alarms"));
        QCOMPARE(scene.Count()->text(), QStringLiteral("2 unread alarms"));
        scene.PressIn("cmdReadAll");
        QVERIFY(!IsRegularFile(scene.session.DataFile("Fired Alarms.txt")));
        QCOMPARE(scene.CountText(), QStringLiteral("No unread alarms"));
        QVERIFY(!scene.Count()->isVisible());
        QVERIFY(!scene.IsEnabled("cmdReadAll"));
        QVERIFY(!scene.IsEnabled("cmdRead"));
        QVERIFY(scene.IsEnabled("cmdChart"));
        const QPointer<frmFiredAlarms> window = scene.Window();
        scene.PressIn("cmdClose");
        QTRY_VERIFY(window.isNull());
        scene.Open();
        QCOMPARE(scene.List()->topLevelItemCount(), 0);
    }

    void withoutAlarmsTheWindowTellsHowToSetOne() {
        AlarmsScene scene;
        scene.StartMine();
        QVERIFY(!scene.Count()->isVisible());
        scene.Open();
        auto* const empty = scene.Part<QLabel>("lblEmpty");
        QVERIFY(empty->isVisible());
        QVERIFY(empty->text().startsWith(QStringLiteral("There is no fired alarm to be read.")));
        QVERIFY(empty->text().contains(QStringLiteral("High Alarm and Low Alarm")));
        QVERIFY(!scene.List()->isVisible());
        for (const char* button : {"cmdRead", "cmdReadAll", "cmdChart"}) QVERIFY(!scene.IsEnabled(button));
    }

    void theChartOfAnAlarmOpensByTheButtonAndByAPressOnItsRow() {
        AlarmsScene scene;
        scene.Write("Fired Alarms.txt", kList);
        scene.WriteHistory("T2.26", "T2,3/6/2026,4:00pm,5,4,6,100\r\n");
        scene.StartMine();
        scene.Open();
        scene.List()->setCurrentItem(scene.List()->topLevelItem(0));
        BoxesOf([&] { scene.PressIn("cmdChart"); });
        QVERIFY(scene.frame->GraphForm());
        QVERIFY2(scene.ChartTitle().startsWith(QStringLiteral("T2")), qPrintable(scene.ChartTitle()));
        // The alarm is unread still.
        QCOMPARE(scene.Count()->text(), QStringLiteral("3 unread alarms"));
        BoxesOf([&] {
            scene.List()->setCurrentItem(scene.List()->topLevelItem(2));
            QTest::keyClick(scene.List(), Qt::Key_Return);
        });
        QVERIFY2(scene.ChartTitle().startsWith(QStringLiteral("T1")), qPrintable(scene.ChartTitle()));
    }

    void anUpdateThatFiresAlarmsAddsThemToTheOpenListAndTheCount() {
        AlarmsScene scene;
        scene.Write("Mine.ddq",
                    "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\n"
                    "T1\t1.000\t\t\r\nT2\t1.000\t110\t\r\nT3\t1.000\t\t110\r\n");
        scene.StartMine();
        scene.Open();
        QCOMPARE(scene.List()->topLevelItemCount(), 0);
        scene.Update();
        QCOMPARE(scene.List()->topLevelItemCount(), 2);
        QCOMPARE(scene.Count()->text(), QStringLiteral("2 unread alarms"));
        QCOMPARE(scene.Row(0).mid(1), Words({"T2", "110.000", "High 110", "Mine.ddq", "unread"}));
        QCOMPARE(scene.Row(1).mid(1), Words({"T3", "110.000", "Low 110", "Mine.ddq", "unread"}));
        scene.PressIn("cmdReadAll");
        // The same alarms are told once until the program is left.
        scene.Update();
        QVERIFY(!scene.Count()->isVisible());
    }

    void aListThatCannotBeReadIsToldAndOneThatCannotBeWrittenStaysUnread() {
        AlarmsScene scene;
        std::filesystem::create_directories(scene.session.DataFile("Fired Alarms.txt") / "inside");
        scene.StartMine();
        scene.Open();
        QVERIFY(scene.Part<QLabel>("lblUnread")->isVisible());
        QVERIFY(scene.CountText().contains(QStringLiteral("Fired Alarms.txt: cannot be read")));
    }

    void theMailSettingsOpenOverTheListAndF1HasAPage() {
        AlarmsScene scene;
        scene.StartMine();
        scene.Open();
        scene.PressIn("cmdMail");
        auto* const mail = scene.Window()->findChild<frmAlarmMail*>();
        QVERIFY(mail);
        QVERIFY(mail->isModal());
        mail->reject();
        QCOMPARE(HelpPageOf("frmFiredAlarms"), std::string_view("alarms.html#fired"));
        QCOMPARE(HelpPageOf("frmAlarmMail"), std::string_view("alarms.html#mail"));
    }
};

WINDOW_TEST(FiredAlarmsWindowTest)
#include "fired_alarms_window_test.moc"
