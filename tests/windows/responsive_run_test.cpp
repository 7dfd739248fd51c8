// The window lives during every long run: its events are looked at after each ticker, file or line. What is
// counted is how far a run gets between two turns of the event loop.
#include <QAbstractButton>
#include <QComboBox>
#include <QPushButton>
#include <QSemaphore>
#include <QTimer>
#include <algorithm>

#include "acquire/feeds/windows/frmImportHistory.h"
#include "catalogue_scene.h"
#include "chart/windows/frmGraphNoData.h"
#include "check/windows/frmCheckDatabase.h"
#include "shell/run_control.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"
#include "store/table_files.h"
#include "store/windows/frmErrorReport.h"

using namespace brantlow;

namespace {

// Rows of the table Feb.ddq.
constexpr int kRows = 40;
// A table has no more lines, its header among them.
constexpr std::size_t kManyRows = kMostRows - 1;

// A run can stand still or come to its end by a word; work without rows and buttons, as opening a table, has
// none.
enum class Watched { Run, Work };

// Takes down at every turn of the event loop how far the run is.
class LoopWatch {
  public:
    explicit LoopWatch(Program& program, Watched what = Watched::Run) {
        QObject::connect(&timer_, &QTimer::timeout, [this, &program, what] {
            const RunControl& run = program.session.run;
            if (!program.person.InRun() || (what == Watched::Run && run.ProcessCommand != kRunning)) return;
            ++turns;
            if (run.CurrentRow > 0) Look(static_cast<double>(run.CurrentRow), rows);
            if (run.ProgressFraction > 0) Look(run.ProgressFraction, shares);
        });
        timer_.start(0);
    }

    struct Steps {
        std::size_t turns = 0;
        // Seen at a turn.
        std::size_t places = 0;
        // Between two turns.
        double longest = 0;
        double last = 0;
    };
    Steps rows;
    Steps shares;
    std::size_t turns = 0;

  private:
    static void Look(double now, Steps& steps) {
        ++steps.turns;
        if (now > steps.last) ++steps.places;
        if (now > steps.last) steps.longest = std::max(steps.longest, now - steps.last);
        steps.last = now;
    }

    QTimer timer_;
};

// A frame with a table of forty tickers, all of which have a history, are in the list of the last update, in
// the file to import and in a downloaded folder.
class RunProgram : public SceneProgram {
  public:
    RunProgram() : SceneProgram("Feb.ddq") {
        std::string list = std::to_string(kRows) + "\r\n";
        std::string lines;
        const Path quotes = session.AppPath / "Quotes" / "EOD";
        for (int row = 1; row <= kRows; ++row) {
            const std::string ticker = "T" + std::to_string(row);
            list += "\"" + ticker + "\"\r\n";
            lines += ticker + ",55,3/6/2026\r\n";
            Keep(quotes / (ticker + ".26"), BytesOrEmpty(quotes / "T1.26"));
            Keep(Loads() / (ticker + ".us.txt"),
                 "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n" + ticker +
                     ".US,D,20260306,000000,10,12,9,11,500,0\r\n");
        }
        Keep(quotes / "QuoteList.ddq", list);
        Write("In.Txt", lines);
    }

    // A table of as many rows as the largest market's, each with all columns of a quote table.
    void WriteLargeTable(const char* name, std::size_t rows = kManyRows) {
        std::string line;
        for (std::size_t column = 1; column < kQuoteColumns.size(); ++column) line += "\t12.345";
        std::string text = QuoteHeader() + "\r\n";
        for (std::size_t row = 1; row <= rows; ++row) text += "T" + std::to_string(row) + line + "\r\n";
        Write(name, text);
    }
    // Opens a table as the list of recent ones does.
    void Open(const char* name) {
        session.settings.MruSettings.Set(1, Value::OfText(name));
        frame->OpenRecentFile(1);
    }

    void ShowAllColumns() {
        frmQuoteGrid& grid = *frame->QuoteForm();
        for (std::size_t i = 1; i < grid.Table().ColumnCount(); ++i)
            session.settings.ColumnSettings.Set(i, Value::OfText(grid.Table().Header(i)));
        grid.RebuildColumns();
    }
    // Prints the table to a file of this name; what a box says afterwards.
    QString PrintTo(const char* name) {
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            auto* const box = qobject_cast<QMessageBox*>(&dialog);
            if (!box) return EnterFile(dialog, folder / name);
            told = box->text();
            box->accept();
        });
        Choose("mnuFilePrintTable");
        return told;
    }

    Path Loads() const { return folder / "loads"; }

    // Goes on wherever a dialog asks whether to; in a turn of its own, since it can lead to the next
    // question.
    static void GoOn(QDialog& dialog) {
        for (const char* words : {"Continue", "Populate", "Re-populate", "Import", "Yes", "OK"}) {
            for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
                if (button->isEnabled() && button->text().remove(u'&') == QString::fromLatin1(words))
                    return QTimer::singleShot(0, button, &QAbstractButton::click);
            }
        }
        dialog.reject();
    }

    // What the status bar says.
    QString Told() const {
        QString told = frame->statusBar()->currentMessage();
        for (const QLabel* label : frame->statusBar()->findChildren<QLabel*>())
            told += QLatin1Char('\n') + label->text();
        return told;
    }

    // Runs an entry to its end.
    void RunToTheEnd(const char* entry) {
        DialogHand hand(GoOn);
        Choose(entry);
        QVERIFY(QTest::qWaitFor([this] { return !QApplication::activeModalWidget() && !person.InRun(); },
                                kPatienceMs));
    }

  private:
    static void Keep(const Path& file, const std::string& bytes) {
        std::filesystem::create_directories(file.parent_path());
        if (WriteWholeFile(file, bytes, Flush::Later)) qFatal("cannot write");
    }
};

}  // namespace

class ResponsiveRunTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void eachRunLooksAtTheEventsAfterEachTicker_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("most");
        // An update fetches fifteen tickers at once; the rows of a reply are then filled one by one.
        QTest::newRow("update") << QStringLiteral("mnuFileUpdateQuotes") << 15;
        QTest::newRow("selector") << QStringLiteral("mnuEvaluatePickStocks") << 1;
        QTest::newRow("fundamentals") << QStringLiteral("mnuExtendedFundamentals") << 1;
        QTest::newRow("populate") << QStringLiteral("mnuFilePopulate") << 1;
        QTest::newRow("import") << QStringLiteral("mnuFileImportQuotes") << 1;
    }
    void eachRunLooksAtTheEventsAfterEachTicker() {
        QFETCH(QString, entry);
        QFETCH(int, most);
        RunProgram program;
        LoopWatch watch(program);
        program.RunToTheEnd(entry.toLatin1());
        QVERIFY2(watch.rows.turns >= static_cast<std::size_t>(kRows / most),
                 std::to_string(watch.rows.turns).c_str());
        QVERIFY2(watch.rows.longest <= most, std::to_string(watch.rows.longest).c_str());
    }

    // Of runs that no row of the table is in work of: the share of a ticker or file.
    void eachRunWithoutRowsLooksAtTheEventsAfterEachFile_data() {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<int>("files");
        QTest::newRow("remove last update") << QStringLiteral("mnuEditRemoveLastUpdate") << kRows;
        // The histories and the list of the update.
        QTest::newRow("back-up") << QStringLiteral("mnuEditBackUpQuoteDatabase") << kRows + 1;
    }
    void eachRunWithoutRowsLooksAtTheEventsAfterEachFile() {
        QFETCH(QString, entry);
        QFETCH(int, files);
        RunProgram program;
        LoopWatch watch(program);
        program.RunToTheEnd(entry.toLatin1());
        Judge(watch, files);
    }

    // The bar that tells how far it is moves by this share of a step.
    void openingAndExportingALargeTableLookAtTheEvents() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq");
        LoopWatch opening(program, Watched::Work);
        program.Open("Many.ddq");
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), kManyRows);
        JudgeWork(opening);
        QVERIFY(program.frame->isEnabled() && !program.person.InRun());
        QCOMPARE(program.Find<QLabel>("Panel4")->text(),
                 QString::number(kManyRows) + QStringLiteral(" rows"));
        LoopWatch exporting(program, Watched::Work);
        program.RunToTheEnd("mnuFileExportQuotes");
        JudgeWork(exporting);
        QVERIFY2(program.Told().contains(QString::number(kManyRows) + QStringLiteral(" rows")),
                 qPrintable(program.Told()));
    }

    // The disk's time is not that of the windows: the frame is off once, and has its focus again.
    void savingALargeTableIsDoneBesideTheWindows() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq");
        program.Open("Many.ddq");
        const Path file = program.session.DataFile("Many.ddq");
        const Path other = program.session.DataFile("Other.ddq");
        QVERIFY(!SaveQuoteTable(program.frame->QuoteForm()->Table(), other));
        auto* const view = program.frame->QuoteForm()->View();
        view->setFocus();
        QVERIFY(std::filesystem::remove(file));
        Disablings saving(*program.frame);
        LoopWatch watch(program, Watched::Work);
        program.Choose("mnuFileSave");
        QCOMPARE(saving.count, 1);
        QVERIFY(watch.turns > 0);
        QVERIFY(!BytesOrEmpty(file).empty() && BytesOrEmpty(file) == BytesOrEmpty(other));
        QVERIFY(program.frame->isEnabled() && !program.person.InRun());
        QCOMPARE(program.frame->focusWidget(), static_cast<QWidget*>(view));
    }

    // The frame is off once for each; the loop turns while the table's bytes are made and flushed.
    void aLargeTableGainsAndLosesARowBesideTheWindows() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq", kManyRows - 1);
        program.Open("Many.ddq");
        // Without a download, which has turns of its own.
        program.session.settings.DataSettings.Set(6, Value::OfText(""));
        int turns = 0;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (!program.frame->isEnabled() && program.StatusWord() == QStringLiteral("Saving")) ++turns;
        });
        watch.start(0);
        DialogHand hand(
            [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("Command2"))->click(); });
        for (const char* button : {"CmdAdd", "CmdDelete"}) {
            turns = 0;
            Disablings saving(*program.frame);
            program.frame->findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("NEW1"));
            program.Click(button);
            QCOMPARE(saving.count, 1);
            QVERIFY2(turns > 0, button);
            const bool isThere = program.Read("Many.ddq").find("\r\nNEW1\t") != std::string::npos;
            QCOMPARE(isThere, button == std::string_view("CmdAdd"));
            QVERIFY(program.frame->isEnabled() && !program.person.InRun());
        }
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), kManyRows - 1);
    }

    void aWindowThatIsClosedWhileARowGoesIsClosedAfterTheSave() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq");
        program.Open("Many.ddq");
        DialogHand hand(
            [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("Command2"))->click(); });
        int asked = 0;
        QTimer close;
        QObject::connect(&close, &QTimer::timeout, [&] {
            if (!program.person.InRun()) return;
            ++asked;
            program.frame->close();
            QVERIFY(program.frame->isVisible());
        });
        close.start(0);
        program.frame->findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("T7"));
        program.Click("CmdDelete");
        QVERIFY(asked > 0);
        QTRY_VERIFY(!program.frame->isVisible());
        QVERIFY(program.Read("Many.ddq").find("\r\nT7\t") == std::string::npos);
        QVERIFY(program.Read("Many.ddq").find("\r\nT8\t") != std::string::npos);
    }

    // Its folder is gone: the sentence comes before a closed window goes.
    void aRowWhoseTableCannotBeSavedIsToldBeforeTheWindowGoes() {
        for (const char* button : {"CmdAdd", "CmdDelete"}) {
            RunProgram program;
            program.WriteLargeTable("Many.ddq", kManyRows - 1);
            program.Open("Many.ddq");
            const Path file = program.session.DataFile("Many.ddq");
            QVERIFY(std::filesystem::remove(file));
            std::filesystem::create_directory(file);
            QStringList told;
            DialogHand hand([&](QDialog& dialog) {
                if (auto* const keep = dialog.findChild<QPushButton*>(QStringLiteral("Command2")))
                    return keep->click();
                told << qobject_cast<QMessageBox*>(&dialog)->text();
                QVERIFY(program.frame->isVisible());
                dialog.accept();
            });
            QTimer close;
            QObject::connect(&close, &QTimer::timeout, [&] {
                if (program.person.InRun()) program.frame->close();
            });
            close.start(0);
            const bool adds = button == std::string_view("CmdAdd");
            program.frame->findChild<QLineEdit*>(QStringLiteral("Text1"))
                ->setText(adds ? QStringLiteral("NEW1") : QStringLiteral("T7"));
            program.Click(button);
            QCOMPARE(told.size(), 1);
            QVERIFY2(told.front().contains(QStringLiteral("Many.ddq")), qPrintable(told.front()));
            QTRY_VERIFY(!program.frame->isVisible());
        }
    }

    void aLargeTableThatCannotBeSavedIsToldAndStays() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq");
        program.Open("Many.ddq");
        const Path file = program.session.DataFile("Many.ddq");
        QVERIFY(std::filesystem::remove(file));
        std::filesystem::create_directory(file);
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (const auto* box = qobject_cast<QMessageBox*>(&dialog)) told = box->text();
            dialog.reject();
        });
        program.Choose("mnuFileSave");
        QVERIFY2(told.startsWith(QStringLiteral("Many.ddq")), qPrintable(told));
        QVERIFY(program.frame->isEnabled() && !program.person.InRun());
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), kManyRows);
    }

    // Its columns do not fit on one page; each page is a step of the run.
    void printingALargeTableLooksAtTheEventsAfterEachPage() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq", 600);
        program.Open("Many.ddq");
        program.ShowAllColumns();
        LoopWatch watch(program);
        const QString told = program.PrintTo("table.pdf");
        QCOMPARE(told, QStringLiteral("There is no printer. The pages were written to ") +
                           ShownPath(program.folder / "table.pdf"));
        const std::string pdf = BytesOrEmpty(program.folder / "table.pdf");
        const int pages = static_cast<int>(QByteArray::fromStdString(pdf).count("/Type /Page\n"));
        QVERIFY2(pages > 10, std::to_string(pages).c_str());
        Judge(watch, pages);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled() && !program.person.InRun());
    }

    void aPrintingThatIsStoppedWritesNothing() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq", 600);
        program.Open("Many.ddq");
        program.ShowAllColumns();
        QTimer stop;
        QObject::connect(&stop, &QTimer::timeout, [&] {
            if (program.session.run.ProgressFraction > 0.3) program.session.run.ProcessCommand = kStopRun;
        });
        stop.start(0);
        QCOMPARE(program.PrintTo("table.pdf"), QString());
        QVERIFY(!std::filesystem::exists(program.folder / "table.pdf"));
        QVERIFY2(program.Told().contains(QStringLiteral("Stopped; nothing was printed")),
                 qPrintable(program.Told()));
        QVERIFY(program.frame->isEnabled() && !program.person.InRun());
    }

    void aSmallTableIsPrintedAtOnce() {
        RunProgram program;
        Disablings off(*program.frame);
        QVERIFY(program.PrintTo("table.pdf").startsWith(QStringLiteral("There is no printer.")));
        QCOMPARE(off.count, 0);
    }

    void aSmallTableIsSavedAtOnce() {
        RunProgram program;
        Disablings off(*program.frame);
        program.Choose("mnuFileSave");
        QCOMPARE(off.count, 0);
    }

    // It would flicker only.
    void aSmallTableIsOpenedAtOnce() {
        RunProgram program;
        LoopWatch watch(program, Watched::Work);
        Disablings off(*program.frame);
        program.Open("Feb.ddq");
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(off.count, 0);
        QCOMPARE(watch.turns, 0U);
    }

    void aWindowThatIsClosedWhileItsTableIsOpenedGoesAfterwards() {
        RunProgram program;
        program.WriteLargeTable("Many.ddq");
        QTimer close;
        QObject::connect(&close, &QTimer::timeout, [&] {
            if (program.person.InRun()) program.frame->close();
        });
        close.start(0);
        program.Open("Many.ddq");
        QVERIFY(program.frame->isVisible());
        QTRY_VERIFY(!program.frame->isVisible());
    }

    // Both steps share the bar.
    void theBackUpAtTheEndLooksAtTheEventsAfterEachFile() {
        RunProgram program;
        const Path target = program.session.AppPath / "Back Up" / "End";
        std::filesystem::create_directories(target);
        SettingsTables& settings = program.session.settings;
        Set(settings, kBackUpFrequency, BackUpFrequency::Weekly);
        Set(settings, kLastBackUp, AddDays(kTestDay, -7));
        Set(settings, kBacksUpApplication, false);
        Set(settings, kBacksUpDatabase, true);
        Set(settings, kDatabaseBackUpFolder, target.string());
        LoopWatch watch(program, Watched::Work);
        // Half of the bar is that of the application's files.
        watch.shares.last = 0.5;
        program.frame->close();
        QVERIFY(!program.frame->isVisible());
        QVERIFY(IsRegularFile(target / "T40.26"));
        Judge(watch, 2 * (kRows + 1), kRows);
    }

    // What one ticker's history takes is the web's and the disk's time.
    void oneHistoryIsFetchedWhileTheWindowsLive() {
        RunProgram program;
        program.web.AnswerWith([&](const WebRequest&) {
            program.person.PumpEvents();
            return MemoryWeb::Page("no history");
        });
        LoopWatch adding(program, Watched::Work);
        program.frame->findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("NEW1"));
        program.Click("CmdAdd");
        QVERIFY(adding.turns > 0);
        QVERIFY(std::filesystem::remove(program.session.AppPath / "Quotes" / "EOD" / "T5.26"));
        program.frame->QuoteForm()->SelectTicker("T5");
        LoopWatch charting(program, Watched::Work);
        program.Choose("mnuGraphicsHLC");
        auto* const offer = program.frame->findChild<frmGraphNoData*>();
        QVERIFY(offer);
        offer->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        QVERIFY(charting.turns > 0);
        QVERIFY(program.frame->isEnabled() && !program.person.InRun());
    }

    void aRestoringLooksAtTheEventsAfterEachFile() {
        RunProgram program;
        program.RunToTheEnd("mnuEditBackUpQuoteDatabase");
        LoopWatch watch(program);
        program.RunToTheEnd("mnuEditRestoreQuoteDatabase");
        // One more lay in the back-up before.
        Judge(watch, kRows + 2);
    }

    void anImportOfHistoriesLooksAtTheEventsAfterEachFile() {
        RunProgram program;
        LoopWatch watch(program);
        program.Choose("mnuFileImportHistory");
        auto* const window = program.frame->findChild<frmImportHistory*>();
        window->SetFrom(ShownPath(program.Loads()));
        DialogHand hand(RunProgram::GoOn);
        window->findChild<QPushButton*>(QStringLiteral("cmdImport"))->click();
        QVERIFY(QTest::qWaitFor([&] { return !program.person.InRun(); }, kPatienceMs));
        Judge(watch, kRows);
    }

    void aRunOverReportedTickersLooksAtTheEventsAfterEach() {
        RunProgram program;
        {
            DialogHand hand(RunProgram::GoOn);
            program.Choose("mnuEvaluatePickStocks");
            QVERIFY(QTest::qWaitFor(
                [&] { return program.frame->findChild<frmErrorReport*>() && !program.person.InRun(); },
                kPatienceMs));
        }
        LoopWatch watch(program);
        DialogHand hand(RunProgram::GoOn);
        auto* const report = program.frame->findChild<frmErrorReport*>();
        report->findChild<QPushButton*>(QStringLiteral("Command3"))->click();
        QVERIFY(QTest::qWaitFor([&] { return !program.person.InRun(); }, kPatienceMs));
        Judge(watch, kRows);
    }

    // Of many lengths: the settings, the tables and what else lies beside them.
    void programFilesAreCopiedBothWaysWithATurnAfterEach() {
        RunProgram program;
        for (const char* entry : {"mnuEditBackUpProgramFiles", "mnuEditRestoreProgramFiles"}) {
            LoopWatch watch(program);
            program.RunToTheEnd(entry);
            std::vector<std::string> names;
            QVERIFY(!ListFiles(FolderOfSetting(program.session.AppPath,
                                               Get(program.session.settings, kApplicationBackUpFolder)),
                               names));
            QVERIFY2(names.size() > 3 && watch.shares.places + 1 >= names.size(),
                     qPrintable(QStringLiteral("%1: %2 places, %3 files")
                                    .arg(QString::fromLatin1(entry))
                                    .arg(watch.shares.places)
                                    .arg(names.size())));
        }
    }

    void aReplayOfTheChartsPairLooksAtTheEventsAfterEachTicker() {
        RunProgram program;
        program.Write("VTRGRAPHset.ini",
                      "\"Default\"\r\n\"Price\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n"
                      "\"Condition 1\"\r\n\"Condition 2\"\r\n");
        LoadSettingsFile(SettingsFile::Graph, program.session.AppPath, program.session.settings);
        program.Choose("mnuEvaluateStudy");
        QVERIFY(QTest::qWaitFor([&] { return !program.person.InRun(); }, kPatienceMs));
        LoopWatch watch(program);
        program.frame->findChild<QPushButton*>(QStringLiteral("Replay"))->click();
        QVERIFY(QTest::qWaitFor([&] { return !program.person.InRun(); }, kPatienceMs));
        Judge(watch, kRows);
    }

    // Its tickers are shared between threads while the loop turns.
    void aCheckAndAStudyLookAtTheEvents() {
        RunProgram program;
        for (const char* entry : {"mnuEditCheckDatabase", "mnuEvaluateStudy"}) {
            std::size_t turns = 0;
            QTimer watch;
            QObject::connect(&watch, &QTimer::timeout, [&] {
                if (program.person.InRun()) ++turns;
            });
            watch.start(0);
            program.Choose(entry);
            QVERIFY(QTest::qWaitFor([&] { return turns > 0 && !program.person.InRun(); }, kPatienceMs));
        }
    }

    void aRepairOfTheDatabaseLooksAtTheEvents() {
        RunProgram program;
        const Path quotes = program.session.AppPath / "Quotes" / "EOD";
        const std::string whole = BytesOrEmpty(quotes / "T1.26");
        for (int row = 1; row <= kRows; ++row)
            QVERIFY(!WriteWholeFile(quotes / ("T" + std::to_string(row) + ".26"), "\r\n" + whole));
        program.Choose("mnuEditCheckDatabase");
        QVERIFY(QTest::qWaitFor([&] { return !program.person.InRun(); }, kPatienceMs));
        std::size_t turns = 0;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] {
            if (program.person.InRun()) ++turns;
        });
        watch.start(0);
        auto* const window = program.frame->findChild<frmCheckDatabase*>();
        window->findChild<QPushButton*>(QStringLiteral("cmdRepair"))->click();
        QVERIFY(QTest::qWaitFor([&] { return !program.person.InRun(); }, kPatienceMs));
        QVERIFY(turns > 0);
        for (int row = 1; row <= kRows; ++row)
            QCOMPARE(BytesOrEmpty(quotes / ("T" + std::to_string(row) + ".26")), whole);
    }

    // A split by hand and an undoing are one piece each: the frame is off, and the work beside it.
    void aSplitAndItsUndoingAreDoneBesideTheWindows() {
        RunProgram program;
        const Path file = program.session.AppPath / "Quotes" / "EOD" / "T1.26";
        const std::string before = BytesOrEmpty(file);
        const auto offOf = [&](const std::function<void()>& act) {
            Disablings watch(*program.frame);
            act();
            return watch.count;
        };
        QCOMPARE(offOf([&] { program.RunToTheEnd("mnuEditRemoveLastUpdate"); }), 1);
        QVERIFY(BytesOrEmpty(file) != before);
        QCOMPARE(offOf([&] { program.Choose("mnuEditUndo"); }), 1);
        QCOMPARE(BytesOrEmpty(file), before);
        const auto chosen = [&](const std::vector<std::string>& names, const char* entry) {
            std::size_t next = 0;
            DialogHand hand(
                [&](QDialog& dialog) { EnterFile(dialog, program.session.DataFile(names.at(next++))); });
            program.Choose(entry);
        };
        QCOMPARE(offOf([&] { chosen({"Jan.ddq", "Feb.ddq", "Both.ddq"}, "mnuEditCombineQuoteFiles"); }), 1);
        QVERIFY(IsRegularFile(program.session.DataFile("Both.ddq")));
        QCOMPARE(offOf([&] { chosen({"All.csv"}, "mnuFileExportCsv"); }), 1);
        QVERIFY(IsRegularFile(program.session.DataFile("All.csv")));
        QVERIFY(program.frame->isEnabled());
    }

    // The work waits for a turn of the event loop: without one the test would hang.
    void workBesideTheWindowsHoldsUpNoEvent() {
        RunProgram program;
        QSemaphore turned;
        QTimer::singleShot(0, [&] { turned.release(); });
        bool waited = false;
        program.person.BeginWork();
        program.person.DoBeside([&] { waited = turned.tryAcquire(1, kPatienceMs); });
        program.person.EndRun();
        QVERIFY(waited);
        // Without a run nothing else may begin meanwhile.
        QTimer::singleShot(0, [&] { turned.release(); });
        program.person.DoBeside([&] { waited = turned.tryAcquire(1, 0); });
        QVERIFY(!waited);
    }

    void whatWorkBesideTheWindowsThrowsComesBack() {
        RunProgram program;
        program.person.BeginWork();
        QVERIFY_THROWS_EXCEPTION(std::bad_alloc, program.person.DoBeside([] { throw std::bad_alloc(); }));
        program.person.EndRun();
    }

    void aStoppedRemovalAndAStoppedImportLeaveAllAsItWas() {
        const std::pair<const char*, const char*> rows[] = {
            {"mnuEditRemoveLastUpdate", "Stopped; nothing was removed"},
            {"mnuFileImportQuotes", "Stopped; table, database and import file are as they were"}};
        for (const auto& [entry, told] : rows) {
            RunProgram program;
            const Path file = program.session.AppPath / "Quotes" / "EOD" / "T1.26";
            const std::string before = BytesOrEmpty(file);
            const std::string table = program.frame->QuoteForm()->Table().Text(1, 1);
            QTimer stop;
            QObject::connect(&stop, &QTimer::timeout, [&] {
                if (program.session.run.ProgressFraction > 0.5) program.session.run.ProcessCommand = kStopRun;
            });
            stop.start(0);
            program.RunToTheEnd(entry);
            QCOMPARE(BytesOrEmpty(file), before);
            QVERIFY(IsRegularFile(program.session.DataFile("In.Txt")));
            QCOMPARE(program.frame->QuoteForm()->Table().Text(1, 1), table);
            QVERIFY2(program.Told().contains(QString::fromLatin1(told)), qPrintable(program.Told()));
        }
    }

  private:
    // How often a window is turned off.
    class Disablings : public QObject {
      public:
        explicit Disablings(QWidget& window) { window.installEventFilter(this); }
        bool eventFilter(QObject* watched, QEvent* event) override {
            const bool isOff = !static_cast<QWidget*>(watched)->isEnabled();
            if (event->type() == QEvent::EnabledChange && isOff) ++count;
            return QObject::eventFilter(watched, event);
        }
        int count = 0;
    };

    // The bar moves by fiftieths; a row more may have been read when it does.
    static void JudgeWork(const LoopWatch& watch) {
        constexpr std::size_t kLeast = 45;
        constexpr double kLargest = 0.021;
        QVERIFY2(watch.shares.turns >= kLeast, std::to_string(watch.shares.turns).c_str());
        QVERIFY2(watch.shares.longest <= kLargest, std::to_string(watch.shares.longest).c_str());
    }
    // `seen` of the `files` are looked at.
    static void Judge(const LoopWatch& watch, int files, int seen = 0) {
        // Files are not all of one length; two of them at once would be twice as much.
        constexpr double kLargest = 1.1;
        QVERIFY2(watch.shares.turns >= static_cast<std::size_t>(seen > 0 ? seen : files) - 1,
                 std::to_string(watch.shares.turns).c_str());
        QVERIFY2(watch.shares.longest <= kLargest / files, std::to_string(watch.shares.longest).c_str());
    }
};

WINDOW_TEST(ResponsiveRunTest)
#include "responsive_run_test.moc"
