// A selector run at the windows: the interval, the run with its buttons, the report, the saved result.
#include <QAction>
#include <QDateEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

#include "selector/windows/frmSelectorSelection.h"
#include "shell/frame/windows/frmEnable.h"
#include "store/windows/frmErrorReport.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr int kTickers = 60;
constexpr int kEnoughBars = 120;
// The oldest year that a daily run on the test's day looks at.
constexpr const char* kOldestRecentYear = "23";

// A history whose every bar is at its 52 week high.
std::string History(int bars) {
    std::string bytes;
    for (int i = 0; i < bars; ++i) {
        bytes += "\"01/04/23\",\"16:00\",10,10,10,1000,0,0,0,0,0,\"\",\"\",0,1,10,0,0,10\r\n";
    }
    return bytes;
}

// A frame with a table of kTickers tickers; each hits condition 1, "Buy", and none condition 2.
class SelectorProgram : public Program {
  public:
    explicit SelectorProgram(int bars = kEnoughBars, const std::string& runAfterUpdate = "Manual") {
        Write("VTRSELset.ini",
              "\"Condition\"\r\n\"Buy\"\r\n\"Hit 52 Week High\"\r\n\"Value\"\r\n\"Condition\"\r\n\"Sell\"\r\n"
              "\"Hit 52 Week Low\"\r\n\"Value\"\r\n");
        std::string data;
        for (int line = 1; line < 16; ++line) data += "\"\"\r\n";
        Write("VTRDATAset.ini", data + "\"" + runAfterUpdate + "\"\r\n");
        Write("Big.ddq", QuoteTableText(kTickers));
        for (int i = 1; i <= kTickers; ++i) {
            const std::string name = "T" + std::to_string(i) + "." + kOldestRecentYear;
            if (WriteWholeFile(session.AppPath / "Quotes" / "EOD" / name, History(bars), Flush::Later)) {
                qFatal("no history");
            }
        }
        Start("Big.ddq");
    }

    // Chooses the entry and presses Continue in the window that asks for the interval.
    void RunIt(const char* option = "Option2") {
        frame->Run("mnuEvaluatePickStocks");
        auto* selection = frame->findChild<frmSelectorSelection*>();
        QVERIFY(selection && selection->isVisible());
        selection->findChild<QRadioButton*>(QString::fromLatin1(option))->click();
        selection->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    }

    QString Cell(int row, int column) {
        return frame->QuoteForm()->View()->model()->index(row, column).data().toString();
    }
    frmEnable* Buttons() { return frame->findChild<frmEnable*>(); }
    void Press(const char* button) {
        Buttons()->findChild<QPushButton*>(QString::fromLatin1(button))->click();
    }
};

}  // namespace

class SelectorRunTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theIntervalWindowHasItsWordsAndStartsOnDaily() {
        frmSelectorSelection window(kTestDay, nullptr);
        QCOMPARE(window.windowTitle(), QStringLiteral("Stock Selector Interval Selection"));
        QCOMPARE(window.findChild<QWidget*>(QStringLiteral("Option2"))->property("text").toString(),
                 QStringLiteral("&Daily"));
        const std::pair<const char*, Interval> options[] = {
            {"Option2", Interval::Daily}, {"Option3", Interval::Weekly}, {"Option4", Interval::Monthly}};
        QCOMPARE(static_cast<int>(window.SelectorInterval()), static_cast<int>(Interval::Daily));
        for (const auto& [name, interval] : options) {
            window.findChild<QRadioButton*>(QString::fromLatin1(name))->click();
            QCOMPARE(static_cast<int>(window.SelectorInterval()), static_cast<int>(interval));
        }
        QCOMPARE(window.findChild<QPushButton*>(QStringLiteral("Command1"))->text(),
                 QStringLiteral("Continue"));
        QCOMPARE(window.findChild<QPushButton*>(QStringLiteral("Command2"))->text(), QStringLiteral("Exit"));
    }

    void exitLeavesTheTableOpenAndTheNewFileOnTheDisk() {
        SelectorProgram program;
        program.frame->Run("mnuEvaluatePickStocks");
        auto* selection = program.frame->findChild<frmSelectorSelection*>();
        selection->findChild<QPushButton*>(QStringLiteral("Command2"))->click();
        QVERIFY(!selection->isVisible());
        QCOMPARE(program.session.CurrentFile, std::string("Big.ddq"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.Read("Evaluations.dbe").starts_with("Ticker Symbol\tCondition 1\t"));
    }

    void aRunFillsTheEvaluationTable() {
        SelectorProgram program;
        program.RunIt();
        QCOMPARE(program.frame->QuoteForm()->windowTitle(),
                 QStringLiteral("Big.ddq, daily, 2026-03-09 - Evaluations.dbe"));
        QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
        for (int row = 0; row < kTickers; ++row) {
            QCOMPARE(program.Cell(row, 1), QStringLiteral("Buy"));
            QCOMPARE(program.Cell(row, 2), QString());
        }
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.TickerCount(), QString::number(kTickers));
        QVERIFY(program.frame->isEnabled());
        QVERIFY(!program.Buttons());
        QVERIFY(!program.frame->findChild<frmErrorReport*>());
        QVERIFY(!program.frame->Commands().Entry("mnuEvaluatePickStocks")->isEnabled());
        QCOMPARE(program.Find<QLabel>("Panel1")->text(), QStringLiteral(" 60 tickers, 60 hits"));
    }

    void pauseNamesTheTickerInWork() {
        SelectorProgram program;
        QString said;
        std::string inWork;
        RunWatcher watcher({
            [&] {
                if (program.session.run.CurrentRow < 10) return false;
                inWork = program.session.CurrentTicker;
                program.Press("Command2");
                said = program.Buttons()->findChild<QLabel*>(QStringLiteral("lblState"))->text();
                return true;
            },
            [&] {
                if (!program.person.Paused()) return false;
                program.Press("Command3");
                return true;
            },
        });
        program.RunIt();
        QVERIFY(inWork.starts_with("T") && inWork != "T1");
        QCOMPARE(said, QStringLiteral("Pausing after ") + QString::fromStdString(inWork));
        QCOMPARE(program.session.CurrentTicker, std::string("T1"));
    }

    void aPastDayGivesTheVerdictsOfThatEvening() {
        // Until 2022 nothing was known of any ticker.
        SelectorProgram program;
        const std::string report = program.Read("Error Report.txt");
        program.frame->Run("mnuEvaluatePickStocks");
        auto* selection = program.frame->findChild<frmSelectorSelection*>();
        auto* day = selection->findChild<QDateEdit*>(QStringLiteral("AsOf"));
        QCOMPARE(day->date(), QDate(2026, 3, 9));
        QCOMPARE(day->maximumDate(), QDate(2026, 3, 9));
        day->setDate(QDate(2022, 12, 30));
        selection->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QCOMPARE(program.frame->QuoteForm()->windowTitle(),
                 QStringLiteral("Big.ddq, daily, 2022-12-30 - Evaluations.dbe"));
        for (int row = 0; row < kTickers; ++row) QCOMPARE(program.Cell(row, 1), QString());
        QCOMPARE(program.frame->statusBar()->currentMessage(),
                 QStringLiteral("60 tickers had too little history on that day"));
        // A look back leaves the report on today's history alone.
        QCOMPARE(program.Read("Error Report.txt"), report);
        QVERIFY(!program.frame->findChild<frmErrorReport*>());
        QVERIFY(!program.session.HistoryUpTo);
    }

    void aPastDayThatHasTheHistoryGivesItsVerdicts() {
        SelectorProgram program;
        program.frame->Run("mnuEvaluatePickStocks");
        auto* selection = program.frame->findChild<frmSelectorSelection*>();
        selection->findChild<QDateEdit*>(QStringLiteral("AsOf"))->setDate(QDate(2023, 1, 4));
        selection->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QCOMPARE(program.Cell(0, 1), QStringLiteral("Buy"));
    }

    void theTableTellsWhatItIsWhenItIsOpenedAgain() {
        SelectorProgram program;
        program.RunIt("Option3");
        const QString title = QStringLiteral("Big.ddq, weekly, 2026-03-09 - Kept.dbe");
        {
            const Path file = program.session.DataFile("Kept.dbe");
            DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, file); });
            program.frame->Run("mnuFileSave");
        }
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), title);
        QVERIFY(program.Read("Kept.dbe.about").starts_with("Day: 2026-03-09\r\nInterval: Weekly\r\n"));
        program.frame->Run("mnuFileClose");
        {
            const Path file = program.session.DataFile("Kept.dbe");
            DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, file); });
            program.frame->Run("mnuFileOpenEvaluationDB");
        }
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), title);
    }

    void undoBringsTheFormerTableBackWithWhatItWas() {
        SelectorProgram program;
        const std::string table = "Ticker Symbol\tCondition 1\r\nT1\tBuy\r\n";
        const TableOrigin origin{kTestDay, "Monthly", "Old.ddq"};
        program.Write("Evaluations.dbe", table);
        program.Write("Evaluations.dbe.about", OriginText(origin, table));
        program.RunIt();
        QVERIFY(!IsRegularFile(program.session.DataFile("Evaluations.dbe.about")));
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Read("Evaluations.dbe"), table);
        QCOMPARE(program.frame->QuoteForm()->windowTitle(),
                 QStringLiteral("Old.ddq, monthly, 2026-03-09 - Evaluations.dbe"));
    }

    void whileARunWorksOnlyItsButtonsAnswer() {
        SelectorProgram program;
        bool looked = false;
        RunWatcher watcher({[&] {
            if (!program.person.InRun()) return false;
            QWidget* buttons = program.Buttons();
            looked = buttons && buttons->isVisible() && buttons->isEnabled() && !buttons->isModal() &&
                     !program.frame->isEnabled();
            return true;
        }});
        program.RunIt();
        QCOMPARE(watcher.next, std::size_t{1});
        QVERIFY(looked);
    }

    void pauseStandsStillFreesTheFrameAndResumeGoesOn() {
        SelectorProgram program;
        std::size_t rowAtPause = 0;
        QStringList seen;
        RunWatcher watcher({
            [&] {
                if (program.session.run.CurrentRow < 10) return false;
                program.Press("Command2");
                return true;
            },
            [&] {
                if (!program.person.Paused()) return false;
                rowAtPause = program.session.run.CurrentRow;
                return true;
            },
            [&] {
                if (program.frame->isEnabled()) seen << QStringLiteral("frame free");
                if (!program.frame->Commands().Entry("mnuFileClose")->isEnabled()) {
                    seen << QStringLiteral("close shut");
                }
                program.Buttons()->close();
                return true;
            },
            [&] {
                if (!program.Buttons()->isVisible()) return false;
                seen << QStringLiteral("buttons back");
                if (program.session.run.CurrentRow == rowAtPause) seen << QStringLiteral("stands still");
                program.Press("Command3");
                return true;
            },
            [&] {
                if (program.frame->isEnabled()) return false;
                seen << QStringLiteral("frame disabled");
                return true;
            },
        });
        program.RunIt();
        QCOMPARE(seen, QStringList({QStringLiteral("frame free"), QStringLiteral("close shut"),
                                    QStringLiteral("buttons back"), QStringLiteral("stands still"),
                                    QStringLiteral("frame disabled")}));
        QCOMPARE(program.Cell(kTickers - 1, 1), QStringLiteral("Buy"));
        QVERIFY(program.frame->isEnabled());
    }

    void exitEndsTheRunAndKeepsWhatWasFound() {
        SelectorProgram program;
        std::size_t lastRow = 0;
        RunWatcher watcher({[&] {
            if (program.session.run.CurrentRow < 12) return false;
            lastRow = program.session.run.CurrentRow;
            program.Press("Command1");
            return true;
        }});
        program.RunIt();
        QVERIFY(lastRow >= 12 && lastRow < kTickers);
        QCOMPARE(program.Cell(static_cast<int>(lastRow) - 1, 1), QStringLiteral("Buy"));
        QCOMPARE(program.Cell(static_cast<int>(lastRow), 1), QString());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled());
        QCOMPARE(program.Find<QLabel>("Panel1")->text(),
                 QStringLiteral(" %1 of 60 tickers, %1 hits, stopped").arg(lastRow));
    }

    void closingTheFrameInMidRunStopsTheRunFirst() {
        SelectorProgram program;
        bool stillThere = false;
        RunWatcher watcher({[&] {
            if (program.session.run.CurrentRow < 5) return false;
            program.frame->close();
            stillThere = program.frame->isVisible();
            return true;
        }});
        program.RunIt();
        QVERIFY(stillThere);
        QVERIFY(program.session.run.ProcessCommand == kStopRun);
        QCOMPARE(program.Cell(kTickers - 1, 1), QString());
        QTRY_VERIFY_WITH_TIMEOUT(!program.frame->isVisible(), kPatienceMs);
    }

    void theRowInWorkStaysInSight() {
        SelectorProgram program;
        bool inSight = false;
        RunWatcher watcher({
            [&] {
                if (program.session.run.CurrentRow < 40) return false;
                program.Press("Command2");
                return true;
            },
            [&] {
                if (!program.person.Paused()) return false;
                const FrozenTableView& view = *program.frame->QuoteForm()->View();
                const int row = static_cast<int>(program.session.run.CurrentRow) - 1;
                inSight = view.rowViewportPosition(row) >= 0 && view.rowAt(0) == row - 19;
                program.Press("Command3");
                return true;
            },
        });
        program.RunIt();
        QVERIFY(inSight);
        QCOMPARE(program.frame->QuoteForm()->View()->rowAt(0), 0);
    }

    void aSavedRunReopensWithItsColours() {
        SelectorProgram program;
        program.RunIt();
        {
            DialogHand hand([&](QDialog& dialog) {
                if (qobject_cast<QMessageBox*>(&dialog)) return PressButton(dialog, QMessageBox::Yes);
                EnterFile(dialog, program.session.DataFile("Evaluations.dbe"));
            });
            program.frame->Run("mnuFileSave");
        }
        QVERIFY(program.Read("Evaluations.dbe").find("T1\tBuy\t") != std::string::npos);
        DialogHand hand(
            [&](QDialog& dialog) { EnterFile(dialog, program.session.DataFile("Evaluations.dbe")); });
        program.frame->Run("mnuFileOpenEvaluationDB");
        QVERIFY(program.frame->QuoteForm());
        const QModelIndex cell = program.frame->QuoteForm()->View()->model()->index(0, 1);
        QCOMPARE(cell.data().toString(), QStringLiteral("Buy"));
        QCOMPARE(cell.data(Qt::BackgroundRole).value<QColor>(), QColor(10, 200, 10));
    }

    void anAutomaticRunAsksNothing() {
        SelectorProgram program(kEnoughBars, "Automatic");
        program.frame->Run("mnuEvaluatePickStocks");
        QCOMPARE(program.session.CurrentFile, std::string("Evaluations.dbe"));
        QCOMPARE(program.Cell(0, 1), QStringLiteral("Buy"));
        // What the update before it did stays told.
        QVERIFY(!program.Find<QLabel>("Panel1")->text().contains(QStringLiteral("hits")));
    }

    void shortHistoriesAreReported() {
        SelectorProgram program(20);
        program.RunIt();
        auto* report = program.frame->findChild<frmErrorReport*>();
        QVERIFY(report && report->isVisible());
        QCOMPARE(report->windowTitle(), QStringLiteral("Database Report"));
        QStringList texts;
        for (QLabel* label : report->findChildren<QLabel*>()) texts << label->text();
        QCOMPARE(texts,
                 QStringList(
                     {QStringLiteral("Database Report"),
                      QStringLiteral("This report was generated because one or more Ticker Symbols in the "
                                     "Quote Database has an inadequate amount of data points. This may be "
                                     "due to a new IPO Ticker Symbol."),
                      QStringLiteral("If all of the Ticker Symbols in your Quote File are displayed on this "
                                     "report, this indicates the Quote database has not been populated for "
                                     "this particular quote file. See the help menu or the set up wizard."),
                      QStringLiteral("If the Ticker Symbols displayed in the report are no longer valid "
                                     "symbols, you may delete from the quote file."),
                      QStringLiteral("You may also choose to have Brantlow re-populate the Quote Database "
                                     "for the Ticker symbols listed in the report.")}));
        report->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        auto* text = report->findChild<QPlainTextEdit*>();
        QVERIFY(text);
        QVERIFY(text->toPlainText().startsWith(
            QStringLiteral("This report was generated because one or more Ticker Symbols has less than 100 "
                           "days of data.\n\"T1\"\n\"T2\"\n")));
        QCOMPARE(report->findChild<QPushButton*>(QStringLiteral("Command2"))->text(),
                 QStringLiteral("Close"));
    }

    void theEnableWindowHasItsWordsAndWritesTheControlWord() {
        RunControl run;
        BeginRun(run);
        QWidget frame;
        frame.setEnabled(false);
        frmEnable window(run, RunStop::KeepsWhatIsDone, &frame);
        window.setEnabled(true);
        QCOMPARE(window.windowTitle(), QStringLiteral("Exit, Pause or Resume Process"));
        const auto button = [&](const char* name) {
            return window.findChild<QPushButton*>(QString::fromLatin1(name));
        };
        QCOMPARE(button("Command1")->text(), QStringLiteral("Exit"));
        QCOMPARE(button("Command2")->text(), QStringLiteral("Pause"));
        QCOMPARE(button("Command3")->text(), QStringLiteral("Resume"));
        button("Command2")->click();
        QCOMPARE(run.ProcessCommand, std::string("Pause"));
        window.ShowPaused(true);
        button("Command3")->click();
        QCOMPARE(run.ProcessCommand, std::string("Resume"));
        button("Command1")->click();
        QCOMPARE(run.ProcessCommand, std::string("True"));
        QVERIFY(frame.isEnabled());
        QVERIFY(!window.isVisible());
    }
};

WINDOW_TEST(SelectorRunTest)
#include "selector_run_test.moc"
