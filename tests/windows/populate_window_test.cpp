// Populating the database at the windows: the years that are asked for, the run, its buttons.
#include <QAction>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include "acquire/feeds/windows/frmPopulate.h"
#include "shell/frame/windows/frmEnable.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A frame with a table of T1, T2 and T3 and a web that has one day of each.
class PopulateProgram : public Program {
  public:
    explicit PopulateProgram(const std::string& years) {
        std::string data;
        for (int line = 1; line <= 19; ++line) {
            data += (line == 6 ? years : "\"line " + std::to_string(line) + "\"") + "\r\n";
        }
        Write("VTRDATAset.ini", data);
        web.AnswerWith([this](const WebRequest&) {
            if (onRequest) onRequest();
            return MemoryWeb::Page("Date,Open,High,Low,Close,Volume,Adj\n2026-03-06,10,12,9,11,500,11\n");
        });
        Start("Jan.ddq");
    }

    frmPopulate* Ask() {
        frame->Commands().Entry("mnuFilePopulate")->trigger();
        return frame->findChild<frmPopulate*>();
    }
    std::string History(const std::string& file) {
        return BytesOrEmpty(Path(session.settings.QuoteFolder) / file);
    }

    std::function<void()> onRequest;
};

}  // namespace

class PopulateWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theWindowHasItsWords() {
        PopulateProgram program("5");
        frmPopulate* window = program.Ask();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Create and Populate Database"));
        QCOMPARE(Part<QGroupBox>(window, "Frame1")->title(), QStringLiteral("Build Historical Database"));
        const std::pair<const char*, const char*> options[] = {
            {"Option1", "2 Years"}, {"Option2", "5 Years"}, {"Option3", "10Years"}, {"Option4", "20 Years"}};
        for (const auto& [name, words] : options) {
            QCOMPARE(Part<QRadioButton>(window, name)->text(), QString::fromLatin1(words));
        }
        QCOMPARE(Part<QPushButton>(window, "Command1")->text(), QStringLiteral("Populate"));
        QCOMPARE(Part<QPushButton>(window, "Command2")->text(), QStringLiteral("Exit"));
        QCOMPARE(Part<QLabel>(window, "Label1")->text(),
                 QStringLiteral("This function is used to build a historical database of quote data. This "
                                "data will be used for end of day Graphics, Analysis, and generating Stock "
                                "Picks. Once the Database is built for the quote file you have open, this "
                                "function is no longer needed for this quote file. To keep end the database "
                                "current, all you need to do is simply update the quote file daily. This "
                                "can be totally automated by selecting Help and Setup Wizard."));
    }

    void theYearsOfTheSettingsAreSelected() {
        const std::pair<const char*, const char*> rows[] = {
            {"2", "Option1"}, {"5", "Option2"}, {"10", "Option3"}, {"20", "Option4"}, {"7", ""}};
        for (const auto& [years, option] : rows) {
            PopulateProgram program(years);
            QString checked;
            for (QRadioButton* button : program.Ask()->findChildren<QRadioButton*>()) {
                if (button->isChecked()) checked = button->objectName();
            }
            QCOMPARE(checked, QString::fromLatin1(option));
        }
    }

    void theSelectedRowIsTheOneThatCommandsMeanAfterwards() {
        PopulateProgram program("5");
        program.frame->QuoteForm()->View()->selectRow(1);
        std::string inWork;
        program.onRequest = [&] { inWork = program.session.CurrentTicker; };
        Part<QPushButton>(program.Ask(), "Command1")->click();
        QCOMPARE(inWork, std::string("T3"));
        QCOMPARE(program.session.CurrentTicker, std::string("T2"));
    }

    void withNoOptionSelectedItSaysSoAndChangesNothing() {
        PopulateProgram program("7");
        const std::string before = program.Read("VTRDATAset.ini");
        frmPopulate* window = program.Ask();
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told = box->text();
                PressButton(dialog, QMessageBox::Ok);
            }
        });
        Part<QPushButton>(window, "Command1")->click();
        QCOMPARE(told, QStringLiteral("You must select a database time frame."));
        QVERIFY(window->isVisible());
        QCOMPARE(program.Read("VTRDATAset.ini"), before);
        QVERIFY(program.web.Addresses.empty());
    }

    void exitLeavesTheDatabaseAsItIs() {
        PopulateProgram program("5");
        frmPopulate* window = program.Ask();
        Part<QPushButton>(window, "Command2")->click();
        QVERIFY(!window->isVisible());
        QVERIFY(program.web.Addresses.empty());
    }

    void populateKeepsTheYearsAndFillsTheDatabase() {
        const std::pair<const char*, const char*> rows[] = {
            {"Option1", "2"}, {"Option2", "5"}, {"Option3", "10"}, {"Option4", "20"}};
        for (const auto& [option, years] : rows) {
            PopulateProgram program("7");
            std::string expected = program.Read("VTRDATAset.ini");
            expected.replace(expected.find("\r\n7\r\n"), 5, "\r\n" + std::string(years) + "\r\n");
            frmPopulate* window = program.Ask();
            Part<QRadioButton>(window, option)->click();
            Part<QPushButton>(window, "Command1")->click();
            QVERIFY(!window->isVisible());
            QCOMPARE(program.Read("VTRDATAset.ini"), expected);
            QCOMPARE(program.web.Addresses.size(), std::size_t{3});
            for (const char* file : {"T1.26", "T2.26", "T3.26"}) {
                QVERIFY2(program.History(file).starts_with("\"03/06/26\""), program.History(file).c_str());
            }
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
            QVERIFY(program.frame->isEnabled());
            QVERIFY(!program.frame->findChild<frmEnable*>());
            QCOMPARE(program.session.CurrentFile, std::string("Jan.ddq"));
        }
    }

    void theWindowOfARunIsWideEnoughForItsTitle() {
        RunControl run;
        const frmEnable window(run, RunStop::KeepsWhatIsDone, nullptr);
        QFont title = window.font();
        title.setBold(true);
        QVERIFY(window.sizeHint().width() >
                QFontMetrics(title).horizontalAdvance(window.windowTitle()) + 100);
    }

    void exitOfTheRunStopsAfterTheTickerInWork() {
        PopulateProgram program("5");
        bool frameShut = false;
        program.onRequest = [&] {
            auto* buttons = program.frame->findChild<frmEnable*>();
            QVERIFY(buttons);
            frameShut = !program.frame->isEnabled();
            Part<QPushButton>(buttons, "Command1")->click();
        };
        Part<QPushButton>(program.Ask(), "Command1")->click();
        QVERIFY(frameShut);
        QVERIFY(!program.History("T1.26").empty());
        QVERIFY(program.History("T2.26").empty());
        QVERIFY(program.History("T3.26").empty());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(program.frame->isEnabled());
        QCOMPARE(program.Find<QLabel>("Panel1")->text(), QStringLiteral(" 1 of 3 histories, stopped"));
        const std::string lastRun = program.Read("Last Run.txt");
        QVERIFY2(
            lastRun.ends_with("\r\nT1: stored: 1 day\r\nT2: skipped: stopped\r\nT3: skipped: stopped\r\n"),
            lastRun.c_str());
    }

    void theTimeToGoStandsStillWhileTheRunIsPaused() {
        PopulateProgram program("5");
        constexpr long long kMinute = 60'000;
        long long now = 0;
        program.person.TellTimeBy([&] { return now; });
        QStringList told;
        program.onRequest = [&] {
            auto* buttons = program.frame->findChild<frmEnable*>();
            QVERIFY(buttons);
            told << Part<QLabel>(buttons, "lblState")->text();
            now += kMinute;
            if (told.size() == 1) Part<QPushButton>(buttons, "Command2")->click();
        };
        RunWatcher watcher({[&] {
            if (!program.person.Paused()) return false;
            now += 60 * kMinute;
            Part<QPushButton>(program.frame->findChild<frmEnable*>(), "Command3")->click();
            return true;
        }});
        Part<QPushButton>(program.Ask(), "Command1")->click();
        QCOMPARE(watcher.next, std::size_t{1});
        QCOMPARE(told, Words({"Populating T1", "The process is running.",
                              "Populating T3: 66 % done, about 1 minute left"}));
    }

    void theTimeToGoStandsStillWhileTheRunAsks() {
        PopulateProgram program("5");
        long long now = 0;
        program.person.TellTimeBy([&] { return now; });
        QString told;
        program.onRequest = [&] {
            told = Part<QLabel>(program.frame->findChild<frmEnable*>(), "lblState")->text();
            now += 30'000;
            DialogHand hand([&](QDialog& dialog) {
                now += 3'600'000;
                PressButton(dialog, QMessageBox::Ok);
            });
            program.person.Say("The run waits.");
        };
        Part<QPushButton>(program.Ask(), "Command1")->click();
        QCOMPARE(told, QStringLiteral("Populating T3: 66 % done, less than a minute left"));
    }

    void theEntryIsForQuoteFilesOnly() {
        PopulateProgram program("5");
        QVERIFY(program.frame->Commands().Entry("mnuFilePopulate")->isEnabled());
        program.frame->Run("mnuFileClose");
        QVERIFY(!program.frame->Commands().Entry("mnuFilePopulate")->isEnabled());
        program.frame->Run("mnuFileNewEODQuoteFile");
        QVERIFY(!program.frame->Commands().Entry("mnuFilePopulate")->isEnabled());
    }
};

WINDOW_TEST(PopulateWindowTest)
#include "populate_window_test.moc"
