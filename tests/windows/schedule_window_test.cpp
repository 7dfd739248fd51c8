// The schedule window: what it shows, installs and removes.
#include <QCheckBox>
#include <QPushButton>
#include <QTimeEdit>

#include "acquire/schedule/pretend_system.h"
#include "acquire/schedule/windows/frmSchedule.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// The window over a frame, on a system with a crontab.
class ScheduleProgram : public Program {
  public:
    ScheduleProgram() {
        pretend.crontab = true;
        Write("VTRDATAset.ini", DataSettings("None", "", ""));
        if (WriteWholeFile(started.program, "the program")) qFatal("no program");
        Start("Jan.ddq");
    }

    static std::string DataSettings(const std::string& collection, const std::string& hour,
                                    const std::string& minute) {
        std::string text;
        for (int line = 1; line <= 8; ++line) text += "\"line " + std::to_string(line) + "\"\r\n";
        for (const std::string& line : {collection, hour, minute}) text += "\"" + line + "\"\r\n";
        for (int line = 12; line <= 19; ++line) text += "\"line " + std::to_string(line) + "\"\r\n";
        return text;
    }

    frmSchedule& Open() {
        window =
            std::make_unique<frmSchedule>(session, pretend.System(folder / "units"), started, frame.get());
        window->open();
        return *window;
    }
    template <class Widget>
    Widget* Part(const char* name) {
        return window->findChild<Widget*>(QString::fromLatin1(name));
    }
    QString Words(const char* label) { return Part<QLabel>(label)->text(); }
    void Press(const char* button) { Part<QPushButton>(button)->click(); }
    void Choose(std::initializer_list<int> days, int hour, int minute) {
        for (int day = 1; day <= 7; ++day) {
            const bool on = std::find(days.begin(), days.end(), day) != days.end();
            Part<QCheckBox>(("Check" + std::to_string(day)).c_str())->setChecked(on);
        }
        Part<QTimeEdit>("TimeOfUpdate")->setTime(QTime(hour, minute));
    }
    QList<bool> Days() {
        QList<bool> days;
        for (int day = 1; day <= 7; ++day) {
            days << Part<QCheckBox>(("Check" + std::to_string(day)).c_str())->isChecked();
        }
        return days;
    }

    PretendSystem pretend;
    StartedProgram started{folder / "brantlow", folder.Get(), {{"DISPLAY", ":7"}}};
    std::unique_ptr<frmSchedule> window;
};

const QList<bool> kWorkdays = {true, true, true, true, true, false, false};

}  // namespace

class ScheduleWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void itOpensOnMondayToFridayWithNothingInstalled() {
        ScheduleProgram program;
        program.Open();
        QCOMPARE(program.window->windowTitle(), QStringLiteral("Scheduled Start"));
        QCOMPARE(program.Days(), kWorkdays);
        const char* days[] = {"&Monday", "T&uesday",  "&Wednesday", "T&hursday",
                              "&Friday", "&Saturday", "Su&nday"};
        for (int day = 1; day <= 7; ++day) {
            QCOMPARE(program.Part<QCheckBox>(("Check" + std::to_string(day)).c_str())->text(),
                     QString::fromLatin1(days[day - 1]));
        }
        QCOMPARE(program.Part<QTimeEdit>("TimeOfUpdate")->time(), QTime(17, 0));
        QCOMPARE(program.Words("Label1"),
                 QStringLiteral("Your system can start Brantlow a little before the daily update. Brantlow "
                                "then opens the last quote file by itself, waits for the time of the update "
                                "and collects the quotes."));
        QCOMPARE(program.Words("Label2"),
                 QStringLiteral("The system will start Brantlow 5 minutes earlier, at 16:55."));
        QCOMPARE(program.Words("Label3"),
                 QStringLiteral("No start is installed. Brantlow updates at the chosen time when it is open "
                                "then."));
        QVERIFY(!program.Part<QPushButton>("Command2")->isEnabled());
        QCOMPARE(program.Part<QPushButton>("Command1")->text(), QStringLiteral("&Install"));
        QCOMPARE(program.Part<QPushButton>("Command2")->text(), QStringLiteral("&Remove"));
        QCOMPARE(program.Part<QPushButton>("Command3")->text(), QStringLiteral("Close"));
    }

    void theTimeIsThatOfTheSettings() {
        ScheduleProgram program;
        program.session.settings.DataSettings.Set(9, Value::OfText("EOD"));
        program.session.settings.DataSettings.Set(10, Value::OfText("16"));
        program.session.settings.DataSettings.Set(11, Value::OfText("30"));
        program.Open();
        QCOMPARE(program.Part<QTimeEdit>("TimeOfUpdate")->time(), QTime(16, 30));
    }

    void installWritesTheCrontabAndTheSettings() {
        ScheduleProgram program;
        program.pretend.table = "0 5 * * * backup\n";
        program.Open();
        program.Choose({1, 3, 7}, 18, 2);
        QCOMPARE(program.Words("Label2"),
                 QStringLiteral("The system will start Brantlow 5 minutes earlier, at 17:57."));
        program.Press("Command1");
        const std::string home = program.folder.Get().string();
        QCOMPARE(program.pretend.table.value(),
                 "0 5 * * * backup\n57 17 * * 1,3,0 BRANTLOW_HOME='" + home + "' DISPLAY=':7' '" + home +
                     "/brantlow' --scheduled # Brantlow: started for the daily update\n");
        QCOMPARE(program.Read("VTRDATAset.ini"), ScheduleProgram::DataSettings("EOD", "18", "02"));
        QCOMPARE(program.Words("Label3"),
                 QStringLiteral("Monday, Wednesday, Sunday at 17:57, by a line of your crontab."));
        QVERIFY(program.Part<QPushButton>("Command2")->isEnabled());
        QVERIFY(program.window->isVisible());
    }

    void aTimerIsInstalledWhereSystemdAnswers() {
        ScheduleProgram program;
        program.pretend.systemd = true;
        program.Open();
        program.Press("Command1");
        QVERIFY(BytesOrEmpty(program.folder / "units" / "brantlow.timer").find("16:55:00") !=
                std::string::npos);
        QCOMPARE(program.Words("Label3"),
                 QStringLiteral("Monday to Friday at 16:55, by a timer of your system (systemd)."));
    }

    void whatIsInstalledIsShownAndCanBeRemoved() {
        ScheduleProgram program;
        program.Open();
        program.Choose({1, 2, 3, 4, 5, 6, 7}, 0, 3);
        QCOMPARE(program.Words("Label2"), QStringLiteral("The system will start Brantlow 5 minutes earlier, "
                                                         "at 23:58 on the day before."));
        program.Press("Command1");
        program.Choose({2}, 0, 3);
        program.Press("Command1");
        program.Open();
        QCOMPARE(program.Days(), QList<bool>({false, true, false, false, false, false, false}));
        QCOMPARE(program.Part<QTimeEdit>("TimeOfUpdate")->time(), QTime(0, 3));
        QCOMPARE(program.Words("Label3"), QStringLiteral("Monday at 23:58, by a line of your crontab."));
        program.Press("Command2");
        QVERIFY(!program.pretend.table);
        QVERIFY(!program.Part<QPushButton>("Command2")->isEnabled());
        QVERIFY(program.Words("Label3").startsWith(QStringLiteral("No start is installed.")));
    }

    void everyDayIsSaidSo() {
        ScheduleProgram program;
        program.Open();
        program.Choose({1, 2, 3, 4, 5, 6, 7}, 9, 0);
        program.Press("Command1");
        QCOMPARE(program.Words("Label3"), QStringLiteral("Every day at 08:55, by a line of your crontab."));
    }

    void withoutADayItSaysSoAndInstallsNothing() {
        ScheduleProgram program;
        program.Open();
        program.Choose({}, 9, 0);
        QCOMPARE(BoxesOf([&] { program.Press("Command1"); }),
                 QStringList({QStringLiteral("You must select at least one day.")}));
        QVERIFY(!program.pretend.table);
        QCOMPARE(program.Read("VTRDATAset.ini"), ScheduleProgram::DataSettings("None", "", ""));
    }

    void whereNoSchedulerIsThereItSaysSo() {
        ScheduleProgram program;
        program.pretend.crontab = false;
        program.Open();
        QCOMPARE(BoxesOf([&] { program.Press("Command1"); }),
                 QStringList({QStringLiteral("Neither systemctl --user nor crontab answers here, so the "
                                             "start cannot be scheduled. Brantlow updates at the chosen "
                                             "time when it is open then.")}));
        QCOMPARE(program.Read("VTRDATAset.ini"), ScheduleProgram::DataSettings("None", "", ""));
    }

    void aProgramThatIsNotThereIsRefused() {
        ScheduleProgram program;
        QVERIFY(std::filesystem::remove(program.started.program));
        program.Open();
        QCOMPARE(BoxesOf([&] { program.Press("Command1"); }),
                 QStringList({ShownPath(program.started.program) +
                              QStringLiteral(": no such program to be started")}));
        QVERIFY(!program.pretend.table);
    }

    void escapeAndCloseLeaveEverything() {
        ScheduleProgram program;
        program.Open();
        program.Press("Command3");
        QVERIFY(!program.window->isVisible());
        program.Open();
        QTest::keyClick(program.window.get(), Qt::Key_Escape);
        QVERIFY(!program.window->isVisible());
        QVERIFY(!program.pretend.table);
    }
};

WINDOW_TEST(ScheduleWindowTest)
#include "schedule_window_test.moc"
