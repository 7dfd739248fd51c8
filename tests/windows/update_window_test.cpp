// The end-of-day update at the windows: cells, colours, files, what follows it, its buttons, its minute.
#include <QAction>
#include <QPushButton>

#include "chart/windows/frmGraph.h"
#include "daily/daily_update.h"
#include "shell/frame/windows/frmEnable.h"
#include "shell/frame/windows/frmLowMemory.h"
#include "splits/windows/frmAdjustSplits.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "update_window_fixture.h"

using namespace brantlow;

class UpdateWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theButtonFillsTheCellsStoresTheDayAndSavesTheFile() {
        UpdateProgram program;
        program.StartMine();
        program.Update();
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(program.Text(row, kLastColumn), QStringLiteral("110.000"));
            const std::string file = "T" + std::to_string(row + 1) + ".26";
            QVERIFY2(program.History(file).starts_with("\"03/09/26\",\"16:01\",110,99,112,12345,"),
                     program.History(file).c_str());
        }
        QVERIFY(program.Read("Mine.ddq").find("T3\t110.000") != std::string::npos);
        QVERIFY(!IsRegularFile(program.session.AppPath / "Import.Txt"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.TickerCount(), QStringLiteral("3"));
        QVERIFY(program.frame->isEnabled());
        QVERIFY(!program.Buttons());
        QVERIFY(program.Find<QPushButton>("CmdUpdateQuotes")->isEnabled());
    }

    void theMenuEntryDoesTheSame() {
        UpdateProgram program;
        program.StartMine();
        program.frame->Commands().Entry("mnuFileUpdateQuotes")->trigger();
        QCOMPARE(program.Text(2, kLastColumn), QStringLiteral("110.000"));
    }

    void whileItRunsTheFrameIsShutAndTheWordIsUpdating() {
        UpdateProgram program;
        program.StartMine();
        QString word;
        bool shut = false, strip = true, buttons = false;
        program.onQuotes = [&] {
            QVERIFY(QTest::qWaitFor(
                [&] {
                    program.person.PumpEvents();
                    return program.StatusWord() == QStringLiteral("Updating");
                },
                kPatienceMs));
            word = program.StatusWord();
            shut = !program.frame->isEnabled();
            strip = program.Find<QPushButton>("CmdUpdateQuotes")->isEnabled();
            buttons = program.Buttons() && program.Buttons()->isVisible() && program.Buttons()->isEnabled();
        };
        program.Update();
        QCOMPARE(word, QStringLiteral("Updating"));
        QVERIFY(shut);
        QVERIFY(!strip);
        QVERIFY(buttons);
    }

    void anAlarmColoursItsRowAndAsksForOneMailInTwoUpdates() {
        Switches switches;
        switches.alerts = "E-mail Alerts";
        UpdateProgram program(switches);
        program.Write("Mine.ddq",
                      "Ticker Symbol\tLast Price\tHigh Alarm\tLow Alarm\r\n"
                      "T1\t1.000\t\t\r\nT2\t1.000\t110\t\r\nT3\t1.000\t110.01\t\r\nT4\t1.000\t\t110\r\n");
        program.StartMine();
        program.Update();
        const auto bold = [&](int row) {
            return program.Cell(row, kLastColumn).data(Qt::FontRole).value<QFont>().bold();
        };
        const auto colour = [&](int row) {
            return program.Cell(row, kLastColumn).data(Qt::ForegroundRole).value<QColor>();
        };
        QVERIFY(!bold(0));
        QVERIFY(bold(1));
        QCOMPARE(colour(1), QColor(0, 120, 0));
        QVERIFY(!bold(2));
        QVERIFY(bold(3));
        QCOMPARE(colour(3), QColor(200, 0, 0));
        QCOMPARE(program.Text(1, 2), QStringLiteral("110"));
        program.Update();
        QVERIFY(bold(1));
        QCOMPARE(program.Asked("/send_stock_alert.asp?EA=me@mail.test&TS=T2"), std::size_t{1});
        QCOMPARE(program.Asked("&TS=T4"), std::size_t{1});
        QCOMPARE(program.Asked("/send_stock_alert.asp"), std::size_t{2});
    }

    void withoutAlertsSwitchedOnNoMailIsAskedFor() {
        UpdateProgram program;
        program.Write("Mine.ddq", "Ticker Symbol\tLast Price\tHigh Alarm\r\nT1\t1.000\t50\r\n");
        program.StartMine();
        program.Update();
        QCOMPARE(program.Asked("/send_stock_alert.asp"), std::size_t{0});
    }

    void manualSaveLeavesTheFileAndTheDatabase() {
        Switches switches;
        switches.saveTable = switches.saveDatabase = "Manual Save";
        UpdateProgram program(switches);
        program.StartMine();
        const std::string before = program.Read("Mine.ddq");
        program.Update();
        QCOMPARE(program.Text(0, kLastColumn), QStringLiteral("110.000"));
        QCOMPARE(program.Read("Mine.ddq"), before);
        QVERIFY(program.History("T1.26").empty());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void theSelectorFollowsWhereTheSettingsSaySo() {
        Switches switches;
        switches.selector = "Automatic";
        UpdateProgram program(switches);
        program.Write("VTRSELset.ini", "\"Condition\"\r\n\"Buy\"\r\n\"Hit 52 Week High\"\r\n\"Value\"\r\n");
        std::string history;
        for (int i = 0; i < 120; ++i) {
            history += "\"01/04/24\",\"16:00\",10,10,10,1000,0,0,0,0,0,\"\",\"\",0,1,10,0,0,10\r\n";
        }
        for (const char* file : {"T1.24", "T2.24", "T3.24"}) program.WriteHistory(file, history);
        program.StartMine();
        program.Update();
        QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.frame->QuoteForm()->View()->model()->rowCount(), 3);
        QVERIFY(program.History("T1.26").starts_with("\"03/09/26\""));
        QVERIFY(program.Read("Mine.ddq").find("T1\t110.000") != std::string::npos);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void splitsAreAdjustedBehindAWindowThatComesAndGoes() {
        Switches switches;
        switches.splits = "Automatic";
        UpdateProgram program(switches, 1);
        const auto day = [](const char* date, const char* price) {
            std::string line = "\"" + std::string(date) + "\",\"16:00\",";
            for (int i = 0; i < 3; ++i) line.append(price).append(1, ',');
            return line + "1000,0,0,0,0,0,\"\",\"\"," + price + ",1,300,0,0," + price + "\r\n";
        };
        program.WriteHistory("T1.26",
                             day("01/02/26", "200") + day("03/05/26", "200") + day("03/06/26", "100"));
        QStringList words;
        bool usable = false;
        program.calendarPage = [&] {
            if (auto* window = program.frame->findChild<frmAdjustSplits*>()) {
                words << window->windowTitle()
                      << window->findChild<QLabel*>(QStringLiteral("Label1"))->text();
                usable = window->isVisible() && window->isEnabled() && !window->isModal();
            }
            return "<table><tr><td valign=middle>Mar 6</td><td><a href=\"q?s=T1&d=t\">T1</a></td>"
                   "<td valign=middle>2-1</td></tr></table>";
        };
        program.StartMine();
        program.Update();
        QCOMPARE(words, QStringList({QStringLiteral("Adjusting for Stock Splits"),
                                     QStringLiteral("Adjusting for Stock Splits")}));
        QVERIFY(usable);
        QVERIFY(!program.frame->findChild<frmAdjustSplits*>());
        const std::string history = program.History("T1.26");
        QVERIFY2(history.find("\"03/05/26\",\"16:00\",100,100,100,2000,") != std::string::npos,
                 history.c_str());
        QVERIFY2(history.find("\"03/06/26\",\"16:00\",100,100,100,1000,") != std::string::npos,
                 history.c_str());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void theChartIsThatOfTheSelectedRowAfterASplitOfATickerThatTheTableLacks() {
        Switches switches;
        switches.splits = "Automatic";
        UpdateProgram program(switches);
        program.calendarPage = [] {
            return "<table><tr><td valign=middle>Mar 6</td><td><a href=\"q?s=QXTD&d=t\">QXTD</a></td>"
                   "<td valign=middle>2-1</td></tr></table>";
        };
        program.StartMine();
        program.frame->QuoteForm()->View()->selectRow(1);
        program.Update();
        QCOMPARE(program.session.CurrentTicker, std::string("T2"));
        program.frame->Run("mnuGraphicsHLC");
        QVERIFY(program.frame->GraphForm());
        QCOMPARE(program.frame->GraphForm()->windowTitle(), QStringLiteral("T2"));
    }

    void aRecentFileStartsWithoutTheValuesOfTheTableBefore() {
        UpdateProgram program;
        program.Write("VTRCOLset.ini", "\"Last Price\"\r\n\"P/E est.\"\r\n\"\"\r\n");
        program.Write("Other.ddq", "Ticker Symbol\tLast Price\tP/E est.\r\nKO\t1.000\t\r\n");
        program.Write("Mine.ddq", "Ticker Symbol\tLast Price\tP/E est.\r\nT1\t1.000\t\r\n");
        constexpr int kEstimate = 2;
        program.StartMine();
        program.Update();
        // 5 earned a share at a price of 22 times that, and 6 expected.
        QCOMPARE(program.Text(0, kEstimate), QStringLiteral("18.33"));
        program.session.settings.MruSettings.Set(1, Value::OfText("Other.ddq"));
        program.frame->OpenRecentFile(1);
        program.expectedEarnings = "0";
        program.Update();
        QCOMPARE(program.Text(0, kLastColumn), QStringLiteral("110.000"));
        QCOMPARE(program.Text(0, kEstimate), QString());
    }

    void withSplitsByHandTheCalendarIsNotAskedFor() {
        UpdateProgram program;
        program.StartMine();
        program.Update();
        QCOMPARE(program.Asked("/c/s.html"), std::size_t{0});
    }

    void lowMemoryShowsItsWindowStopsTheRunAndKeepsWhatCame() {
        UpdateProgram program({}, 40);
        program.frame->Subjects().runs.WatchMemoryBy(TooLittleMemory);
        program.StartMine();
        program.Update();
        QCOMPARE(program.Text(14, kLastColumn), QStringLiteral("110.000"));
        QCOMPARE(program.Text(15, kLastColumn), QStringLiteral("1.000"));
        QVERIFY(program.History("T15.26").starts_with("\"03/09/26\""));
        QVERIFY(program.History("T16.26").empty());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));

        auto* window = program.frame->findChild<frmLowMemory*>();
        QVERIFY(window && window->isVisible() && window->isEnabled());
        QCOMPARE(window->windowTitle(), QStringLiteral("Memory Monitor"));
        const auto label = [&](const char* name) {
            return window->findChild<QLabel*>(QString::fromLatin1(name))->text();
        };
        QCOMPARE(label("Label1"), QStringLiteral("Low Memory Warning"));
        QCOMPARE(label("Label2"),
                 QStringLiteral("You are experiencing low memory, and you will need to restart Brantlow. "
                                "Before restarting, you will need to save your work."));
        QCOMPARE(label("Label3"),
                 QStringLiteral("To prevent this issue from reocurring, you may simply increase the size of "
                                "your virtual memory, or decrease the quote file size. As a last resort, "
                                "you can install additional RAM."));
        auto* go = window->findChild<QPushButton*>(QStringLiteral("Command1"));
        QCOMPARE(go->text(), QStringLiteral("Continue"));
        program.session.run.ProcessCommand = kRunning;
        go->click();
        QCOMPARE(program.session.run.ProcessCommand, std::string(kStopRun));
        QVERIFY(!window->isVisible());
    }

    void atFiveAndAHalfPercentTheRunGoesOn() {
        UpdateProgram program({}, 40);
        program.frame->Subjects().runs.WatchMemoryBy(JustEnoughMemory);
        program.StartMine();
        program.Update();
        QCOMPARE(program.Text(39, kLastColumn), QStringLiteral("110.000"));
        QVERIFY(!program.frame->findChild<frmLowMemory*>());
    }

    void exitStopsAfterTheBatchInWorkAndStoresIt() {
        UpdateProgram program({}, 40);
        program.StartMine();
        program.onQuotes = [&] { program.Press("Command1"); };
        program.Update();
        QCOMPARE(program.Text(14, kLastColumn), QStringLiteral("110.000"));
        QCOMPARE(program.Text(15, kLastColumn), QStringLiteral("1.000"));
        QVERIFY(program.History("T1.26").starts_with("\"03/09/26\""));
        QVERIFY(program.History("T16.26").empty());
        QVERIFY(program.Read("Mine.ddq").find("T15\t110.000") != std::string::npos);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled());
    }

    void pauseStandsStillAndResumeGoesOn() {
        UpdateProgram program({}, 40);
        program.StartMine();
        bool pressed = false;
        program.onQuotes = [&] {
            if (!std::exchange(pressed, true)) program.Press("Command2");
        };
        QStringList seen;
        RunWatcher watcher({
            [&] {
                if (!program.person.Paused() || !program.frame->isEnabled()) return false;
                seen << program.Text(14, kLastColumn) << program.Text(15, kLastColumn);
                if (!program.frame->Commands().Entry("mnuFileUpdateQuotes")->isEnabled()) {
                    seen << QStringLiteral("entry shut");
                }
                if (!program.Find<QPushButton>("CmdUpdateQuotes")->isEnabled()) {
                    seen << QStringLiteral("button shut");
                }
                program.Press("Command3");
                return true;
            },
        });
        program.Update();
        QCOMPARE(seen, QStringList({QStringLiteral("110.000"), QStringLiteral("1.000"),
                                    QStringLiteral("entry shut"), QStringLiteral("button shut")}));
        QCOMPARE(program.Text(39, kLastColumn), QStringLiteral("110.000"));
    }

    void closingTheFrameInMidRunStoresWhatCameAndGoes() {
        UpdateProgram program({}, 40);
        program.StartMine();
        bool stillThere = false;
        program.onQuotes = [&] {
            program.frame->close();
            stillThere = program.frame->isVisible();
        };
        program.Update();
        QVERIFY(stillThere);
        QVERIFY(program.History("T1.26").starts_with("\"03/09/26\""));
        QVERIFY(program.History("T16.26").empty());
        QVERIFY(program.Read("Mine.ddq").find("T1\t110.000") != std::string::npos);
        QTRY_VERIFY_WITH_TIMEOUT(!program.frame->isVisible(), kPatienceMs);
    }

    void theBatchBeforeTheOneInWorkStandsOnTop() {
        UpdateProgram program({}, 90);
        program.StartMine();
        int batch = 0, top = -1;
        bool inSight = false;
        program.onQuotes = [&] {
            if (++batch == 5) program.Press("Command2");
        };
        RunWatcher watcher({[&] {
            if (!program.person.Paused() || !program.frame->isEnabled()) return false;
            const FrozenTableView& view = *program.frame->QuoteForm()->View();
            top = view.rowAt(0);
            inSight = view.rowViewportPosition(static_cast<int>(program.session.run.CurrentRow) - 1) >= 0;
            program.Press("Command3");
            return true;
        }});
        program.Update();
        // The fifth batch begins at row 61: row 46 is on top, the 45th behind the first.
        QCOMPARE(top, 45);
        QVERIFY(inSight);
        QCOMPARE(program.frame->QuoteForm()->View()->rowAt(0), 0);
    }

    void quotesThatDoNotComeLeaveTheTableAndEndOnComplete() {
        UpdateProgram program;
        program.quotesFail = true;
        program.StartMine();
        const std::string before = program.Read("Mine.ddq");
        const QStringList told = BoxesOf([&] { program.Update(); });
        QCOMPARE(told, QStringList());
        QCOMPARE(program.Text(0, kLastColumn), QStringLiteral("1.000"));
        QCOMPARE(program.Read("Mine.ddq"), before);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void aUserSourceWithoutAddressIsTold() {
        UpdateProgram program;
        program.Write(
            "VTRNETset.ini",
            "\"Yahoo\"\r\n\"\"\r\n\"User Selected String\"\r\n\r\n\r\n15\r\n0\r\n0\r\n\"01/02/04\"\r\n");
        program.StartMine();
        QCOMPARE(BoxesOf([&] { program.Update(); }),
                 QStringList({QStringLiteral("Go to Settings, Application, Quote and Web Settings to set up "
                                             "Quote Downloads.")}));
        QVERIFY(program.frame->isEnabled());
    }

    void whatCannotBeWrittenIsTold() {
        UpdateProgram program;
        // A file stands where the database's folder should be.
        std::filesystem::remove_all(program.session.AppPath / "Quotes" / "EOD");
        QVERIFY(!WriteWholeFile(program.session.AppPath / "Quotes" / "EOD", "no folder"));
        program.StartMine();
        const QStringList told = BoxesOf([&] { program.Update(); });
        QCOMPARE(told.size(), 1);
        QVERIFY2(
            told.first().endsWith(QStringLiteral("/Quotes/EOD/T1.26: cannot be saved (Not a directory)")),
            qPrintable(told.first()));
    }

    void onlyQuoteTablesAreUpdated() {
        UpdateProgram program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.StartMine();
        program.frame->Run("mnuFileNewEODQuoteFile");
        QVERIFY(program.frame->Commands().Entry("mnuFileUpdateQuotes")->isEnabled());
        QVERIFY(program.Find<QPushButton>("CmdUpdateQuotes")->isVisible());
        QCOMPARE(BoxesOf([&] { program.Update(); }),
                 QStringList({QStringLiteral("To update quotes, you will need to open an End of Day Quote "
                                             "File")}));
        program.session.settings.MruSettings.Set(1, Value::OfText("Old.dbe"));
        program.frame->OpenRecentFile(1);
        QVERIFY(!program.frame->Commands().Entry("mnuFileUpdateQuotes")->isEnabled());
        QVERIFY(!program.Find<QPushButton>("CmdUpdateQuotes")->isVisible());
        QVERIFY(program.web.Addresses.empty());
    }

    void theDailyRunFiresOnceInItsMinute() {
        Switches switches;
        switches.collection = "EOD";
        UpdateProgram program(switches);
        program.StartMine();
        std::size_t updates = 0;
        program.onQuotes = [&] { ++updates; };
        // Two hours around the chosen minute, a look a second.
        for (double second = kHalfPastFour - 3600; second < kHalfPastFour + 3600; ++second) {
            program.LookAtClock(kTestDay, second);
            if (second < kHalfPastFour) QCOMPARE(updates, std::size_t{0});
        }
        QCOMPARE(updates, std::size_t{1});
        QCOMPARE(program.Text(0, kLastColumn), QStringLiteral("110.000"));
        program.LookAtClock(AddDays(kTestDay, 1), kHalfPastFour - 300, kHalfPastFour + 300);
        QCOMPARE(updates, std::size_t{2});
    }

    void withoutAScheduleTheDailyRunNeverFires() {
        UpdateProgram program;
        program.StartMine();
        program.LookAtClock(kTestDay, kHalfPastFour - 300, kHalfPastFour + 300);
        QVERIFY(program.web.Addresses.empty());
    }

    void theDailyRunWaitsForAQuestionToBeAnswered() {
        Switches switches;
        switches.collection = "EOD";
        UpdateProgram program(switches);
        program.StartMine();
        program.LookAtClock(kTestDay, kHalfPastFour - 59);
        program.clock.Set(kTestDay, kHalfPastFour);
        std::size_t askedMeanwhile = 1;
        DialogHand hand([&](QDialog& dialog) {
            program.frame->Subjects().daily.WaitForDailyRun();
            askedMeanwhile = program.web.Addresses.size();
            PressButton(dialog, QMessageBox::Ok);
        });
        program.person.Say("A question.");
        QCOMPARE(askedMeanwhile, std::size_t{0});
        program.LookAtClock(kTestDay, kHalfPastFour + 20);
        QCOMPARE(program.Text(0, kLastColumn), QStringLiteral("110.000"));
    }

    void theDailyRunNeverStartsInTheMidstOfAnother() {
        Switches switches;
        switches.collection = "EOD";
        UpdateProgram program(switches);
        program.StartMine();
        program.LookAtClock(kTestDay, kHalfPastFour - 59);
        program.clock.Set(kTestDay, kHalfPastFour);
        std::size_t updates = 0;
        program.onQuotes = [&] {
            ++updates;
            program.frame->Subjects().daily.WaitForDailyRun();
        };
        program.Update();
        QCOMPARE(updates, std::size_t{1});
    }

    void aTimerLooksAtTheClockByItself() {
        Switches switches;
        switches.collection = "EOD";
        UpdateProgram program(switches);
        program.clock.Set(kTestDay, kHalfPastFour - 59);
        program.Start("Mine.ddq");
        QTimer* const timer = program.Clock();
        QVERIFY(timer && timer->isActive());
        QCOMPARE(timer->interval(), 1000);
        // The wait begins with this look; the next one is the timer's.
        program.frame->Subjects().daily.WaitForDailyRun();
        program.clock.Set(kTestDay, kHalfPastFour);
        timer->setInterval(1);
        QTRY_COMPARE_WITH_TIMEOUT(program.Text(0, kLastColumn), QStringLiteral("110.000"), kPatienceMs);
    }

    void theStartPutsAnOfflineMachineOnline() {
        Program program;
        std::filesystem::create_directories(program.store.parent_path());
        QVERIFY(!WriteWholeFile(program.store,
                                "[HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Internet "
                                "Settings]\nGlobalUserOffline=dword:00000001\n"));
        program.Start("Jan.ddq");
        QCOMPARE(program.web.ConnectedStates.size(), std::size_t{1});
        QCOMPARE(program.web.ConnectedStates.front().first, std::uint32_t{1});
    }
};

WINDOW_TEST(UpdateWindowTest)
#include "update_window_test.moc"
