// File, Import History at the windows: what is chosen, what is told beforehand, the run and its result.
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "acquire/feeds/windows/frmImportHistory.h"
#include "shell/frame/windows/frmEnable.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

const std::string kOldHistory = "\"01/02/26\",\"\",5,5,5,5\r\n";

// A frame with a table of T1, T2 and T3, and a folder of downloaded histories of T1, T2 and OTHER.
class ImportProgram : public Program {
  public:
    ImportProgram() {
        Download("t1.us.txt", "T1.US", "20260306");
        Download("us/t2.us.txt", "T2.US", "20260306");
        Download("us/other.us.txt", "OTHER.US", "20260306");
        Start("Jan.ddq");
    }

    void Download(const std::string& name, const std::string& symbol, const std::string& day) {
        WriteBytes(folder / "loads" / name,
                   "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n" + symbol +
                       ",D," + day + ",000000,10,12,9,11,500,0\r\n");
    }
    void WriteBytes(const Path& file, const std::string& bytes) {
        std::filesystem::create_directories(file.parent_path());
        QVERIFY(!WriteWholeFile(file, bytes, Flush::Later));
    }

    frmImportHistory* Ask() {
        frame->Commands().Entry("mnuFileImportHistory")->trigger();
        return frame->findChild<frmImportHistory*>();
    }
    frmImportHistory* AskFrom(const Path& from) {
        frmImportHistory* const window = Ask();
        if (window) window->SetFrom(Shown(from.string()));
        return window;
    }
    std::string History(const std::string& file) {
        return BytesOrEmpty(Path(session.settings.QuoteFolder) / file);
    }
};

}  // namespace

class ImportHistoryWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theWindowBeginsWithTheOpenTableAndTellsTheBasis() {
        ImportProgram program;
        frmImportHistory* window = program.Ask();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Import History"));
        QVERIFY(Part<QRadioButton>(window, "optTable")->isChecked());
        QCOMPARE(Part<QRadioButton>(window, "optTable")->text(),
                 QStringLiteral("Those of the open &table, 3"));
        QCOMPARE(Part<QComboBox>(window, "cboYears")->currentText(), QStringLiteral("all years"));
        QVERIFY(!Part<QCheckBox>(window, "chkNewer")->isChecked());
        QVERIFY(Part<QLabel>(window, "lblBasis")
                    ->text()
                    .contains(QStringLiteral("adjusted for splits and dividends")));
        QCOMPARE(Part<QLabel>(window, "lblOutlook")->text(),
                 QStringLiteral("Choose the archive, or the folder, that you have downloaded."));
    }

    void withoutATableAllTickersAreTaken() {
        ImportProgram program;
        program.frame->Run("mnuFileClose");
        frmImportHistory* window = program.Ask();
        QVERIFY(!Part<QRadioButton>(window, "optTable")->isEnabled());
        QVERIFY(Part<QRadioButton>(window, "optAll")->isChecked());
    }

    void itTellsBeforehandWhatIsThere() {
        ImportProgram program;
        program.WriteBytes(Path(program.session.settings.QuoteFolder) / "T1.26", kOldHistory);
        frmImportHistory* window = program.AskFrom(program.folder / "loads");
        auto* told = Part<QLabel>(window, "lblOutlook");
        QCOMPARE(told->text(),
                 QStringLiteral("2 histories are there, for 1 ticker that has a stored one already."));
        Part<QRadioButton>(window, "optAll")->click();
        QCOMPARE(told->text(),
                 QStringLiteral("3 histories are there, for 1 ticker that has a stored one already."));
        window->SetFrom(Shown((program.folder / "gone.zip").string()));
        QCOMPARE(told->text(), Shown((program.folder / "gone.zip").string() +
                                     ": cannot be read (No such file or directory)."));
        window->SetFrom(Shown((program.folder / "Data").string()));
        QCOMPARE(told->text(), QStringLiteral("Nothing of these tickers is there."));
    }

    void importWithNothingToImportStaysAndChangesNothing() {
        ImportProgram program;
        const std::string before = program.History("T1.26");
        frmImportHistory* window = program.Ask();
        Part<QPushButton>(window, "cmdImport")->click();
        QVERIFY(window->isVisible());
        window->SetFrom(Shown((program.folder / "gone.zip").string()));
        Part<QPushButton>(window, "cmdImport")->click();
        QVERIFY(window->isVisible());
        QCOMPARE(program.History("T1.26"), before);
        Part<QPushButton>(window, "cmdExit")->click();
        QVERIFY(!window->isVisible());
    }

    void theTablesTickersGetTheirHistories() {
        ImportProgram program;
        frmImportHistory* window = program.AskFrom(program.folder / "loads");
        Part<QPushButton>(window, "cmdImport")->click();
        QVERIFY(!window->isVisible());
        QVERIFY2(program.History("T1.26").starts_with("\"03/06/26\",\"\",11,9,12,500"),
                 program.History("T1.26").c_str());
        QVERIFY(!program.History("T2.26").empty());
        QVERIFY(program.History("OTHER.26").empty());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled());
        QVERIFY(program.Read("Last Run.txt")
                    .find("2 of 3 histories, 1 ticker unknown: T3, prices adjusted for "
                          "splits and dividends") != std::string::npos);
        QCOMPARE(program.session.CurrentFile, std::string("Jan.ddq"));
    }

    void severalStoredHistoriesAreReplacedAfterAQuestionOnly() {
        ImportProgram program;
        for (const char* file : {"T1.26", "T2.26"}) {
            program.WriteBytes(Path(program.session.settings.QuoteFolder) / file, kOldHistory);
        }
        QString asked;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                asked = box->text();
                PressButton(dialog, QMessageBox::Cancel);
            }
        });
        Part<QPushButton>(program.AskFrom(program.folder / "loads"), "cmdImport")->click();
        QVERIFY2(asked.contains(QLatin1Char('2')), qPrintable(asked));
        QCOMPARE(program.History("T2.26"), kOldHistory);
    }

    void exitOfTheRunKeepsWhatCameUntilThen() {
        ImportProgram program;
        RunWatcher watcher({[&] {
            auto* buttons = program.frame->findChild<frmEnable*>();
            if (!buttons || program.session.CurrentTicker != "T1") return false;
            Part<QPushButton>(buttons, "Command1")->click();
            return true;
        }});
        Part<QPushButton>(program.AskFrom(program.folder / "loads"), "cmdImport")->click();
        QCOMPARE(watcher.next, std::size_t{1});
        QVERIFY(program.History("T1.26").starts_with("\"03/06/26\""));
        QVERIFY(program.History("T2.26").empty());
        QVERIFY(program.Read("Last Run.txt").find("stopped") != std::string::npos);
    }

    void whatIsRefusedIsToldWithItsLine() {
        ImportProgram program;
        program.Download("us/t2.us.txt", "T2.US", "20260399");
        Part<QPushButton>(program.AskFrom(program.folder / "loads"), "cmdImport")->click();
        QVERIFY(program.Read("Last Run.txt").find("us/t2.us.txt, line 2: '20260399' is no day") !=
                std::string::npos);
        QVERIFY(program.History("T2.26").empty());
    }
};

WINDOW_TEST(ImportHistoryWindowTest)
#include "import_history_window_test.moc"
