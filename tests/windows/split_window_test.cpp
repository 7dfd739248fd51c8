// The split adjustment at the windows: the factors that are offered, and the history that is restated.
#include <unistd.h>
#include <QAction>
#include <QGroupBox>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>

#include "splits/windows/frmSplitFactor.h"
#include "store/hand_drawings.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// A year of T2 with a day that only leads, two days at 50 and two at 25.
constexpr const char* kBefore =
    "\"01/02/26\",\"\",50,49,51,500,0,0,0,0,0,\"\",\"\",0,0,0,0,0,50\r\n"
    "\"01/05/26\",\"\",50,49,51,500,0,0,0,0,0,\"\",\"\",0,0,0,0,0,50\r\n"
    "\"01/06/26\",\"\",50,48,52,600,0,0,0,0,0,\"\",\"\",0,0,0,0,0,50\r\n"
    "\"01/07/26\",\"\",25,24,26,900,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n"
    "\"01/08/26\",\"\",25,24,26,900,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n";
constexpr const char* kAfter =
    "\"01/05/26\",\"\",25,24.5,25.5,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n"
    "\"01/06/26\",\"\",25,24,26,1200,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n"
    "\"01/07/26\",\"\",25,24,26,900,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n"
    "\"01/08/26\",\"\",25,24,26,900,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n";

class SplitProgram : public Program {
  public:
    SplitProgram() {
        Start("Jan.ddq");
        Store("T1.26");
        Store("T2.26");
        frame->QuoteForm()->View()->selectRow(1);
    }

    frmSplitFactor* Ask(const char* entry = "mnuEditSplitAdjustment") {
        frame->Commands().Entry(entry)->trigger();
        return frame->findChild<frmSplitFactor*>();
    }
    template <class Widget>
    Widget* Part(const char* name) {
        return frame->findChild<frmSplitFactor*>()->findChild<Widget*>(QString::fromLatin1(name));
    }
    void Store(const char* name) {
        if (WriteWholeFile(Path(session.settings.QuoteFolder) / name, kBefore)) qFatal("cannot store");
    }
    std::string History(const char* name) { return BytesOrEmpty(Path(session.settings.QuoteFolder) / name); }
};

}  // namespace

class SplitWindowTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theWindowHasItsWords() {
        SplitProgram program;
        frmSplitFactor* window = program.Ask();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Split Adjustment"));
        QCOMPARE(program.Part<QGroupBox>("Frame1")->title(), QStringLiteral("Stock Split"));
        QCOMPARE(program.Part<QLabel>("Label1")->text(),
                 QStringLiteral("Select Stock Split: New Shares/Old Shares"));
        QCOMPARE(program.Part<QLineEdit>("Text1")->text(), QStringLiteral("T2"));
        QCOMPARE(program.Part<QPushButton>("Command1")->text(), QStringLiteral("Continue"));
        QCOMPARE(program.Part<QPushButton>("Command2")->text(), QStringLiteral("Cancel"));
    }

    void theEighteenChoicesHaveTheirFactors() {
        struct Row {
            const char *option, *words;
            double factor;
        };
        const Row rows[] = {
            {"Option18", "10/1", 10},    {"Option1", "5/1", 5},        {"Option2", "4/1", 4},
            {"Option3", "3/1", 3},       {"Option4", "5/2", 2.5},      {"Option5", "2/1", 2},
            {"Option6", "5/3", 5.0 / 3}, {"Option7", "3/2", 1.5},      {"Option8", "4/3", 4.0 / 3},
            {"Option9", "5/4", 1.25},    {"Option10", "1/3", 1.0 / 3}, {"Option11", "1/4", 0.25},
            {"Option12", "1/5", 0.2},    {"Option13", "1/6", 1.0 / 6}, {"Option14", "1/7", 1.0 / 7},
            {"Option15", "1/8", 0.125},  {"Option16", "1/9", 1.0 / 9}, {"Option17", "1/10", 0.1},
        };
        SplitProgram program;
        frmSplitFactor* window = program.Ask();
        QCOMPARE(window->findChildren<QRadioButton*>().size(), qsizetype{18});
        QCOMPARE(window->SplitFactor(), 0.0);
        for (const Row& row : rows) {
            auto* option = program.Part<QRadioButton>(row.option);
            QVERIFY2(option && !option->isChecked(), row.option);
            QCOMPARE(option->text(), QString::fromLatin1(row.words));
            option->click();
            QCOMPARE(window->SplitFactor(), row.factor);
        }
    }

    void bothEntriesRestateTheSelectedTickerAlone() {
        for (const char* entry : {"mnuEditSplitAdjustment", "mnuPopUpSplitAdjustmentMakeAdjustment"}) {
            SplitProgram program;
            frmSplitFactor* window = program.Ask(entry);
            program.Part<QRadioButton>("Option5")->click();
            program.Part<QPushButton>("Command1")->click();
            QVERIFY(!window->isVisible());
            QCOMPARE(program.History("T2.26"), std::string(kAfter));
            QCOMPARE(program.History("T1.26"), std::string(kBefore));
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
            QCOMPARE(program.frame->statusBar()->currentMessage(),
                     QStringLiteral("T2: 2 days before the split are restated"));
            QCOMPARE(program.session.CurrentTicker, std::string("T2"));
        }
    }

    // Lines and words by hand before the split go along; they come back with the history.
    void whatIsDrawnByHandIsRestatedWithTheHistory() {
        const auto lines = [](double before) {
            return HandDrawings{
                {HandKind::Trend, {{*ParseDate("01/05/26"), before}, {*ParseDate("01/08/26"), 25}}},
                {HandKind::Text, {{*ParseDate("01/06/26"), before}}, "bought"}};
        };
        SplitProgram program;
        const auto kept = [&] { return LoadHandDrawings(program.session.DataFolder(), "T2").drawings; };
        QVERIFY(!SaveHandDrawings(program.session.DataFolder(), "T2", lines(50), {}));
        program.Ask();
        program.Part<QRadioButton>("Option5")->click();
        program.Part<QPushButton>("Command1")->click();
        QCOMPARE(program.History("T2.26"), std::string(kAfter));
        QVERIFY(kept() == lines(25));
        program.frame->Commands().Entry("mnuEditUndo")->trigger();
        QVERIFY(kept() == lines(50));
    }

    void aSecondRunAndAWrongFactorChangeNothingAndAskNothing() {
        SplitProgram program;
        DialogHand hand([](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) QFAIL(qPrintable(box->text()));
        });
        program.Ask();
        program.Part<QRadioButton>("Option1")->click();
        program.Part<QPushButton>("Command1")->click();
        QCOMPARE(program.History("T2.26"), std::string(kBefore));
        const QString nothing = QStringLiteral("T2: no jump of the prices fits, nothing changed");
        QCOMPARE(program.frame->statusBar()->currentMessage(), nothing);
        for (int run = 1; run <= 2; ++run) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            program.Ask();
            program.Part<QRadioButton>("Option5")->click();
            program.Part<QPushButton>("Command1")->click();
            QCOMPARE(program.History("T2.26"), std::string(kAfter));
            QCOMPARE(program.frame->statusBar()->currentMessage() == nothing, run == 2);
        }
    }

    void cancelAndNothingChosenChangeNothing() {
        SplitProgram program;
        frmSplitFactor* window = program.Ask();
        QVERIFY(!program.Part<QPushButton>("Command1")->isEnabled());
        program.Part<QPushButton>("Command1")->click();
        program.Part<QRadioButton>("Option5")->click();
        QVERIFY(program.Part<QPushButton>("Command1")->isEnabled());
        program.Part<QPushButton>("Command2")->click();
        QVERIFY(!window->isVisible());
        QCOMPARE(program.History("T2.26"), std::string(kBefore));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window = program.Ask();
        program.Part<QRadioButton>("Option5")->click();
        QTest::keyClick(window, Qt::Key_Escape);
        QVERIFY(!window->isVisible());
        QCOMPARE(program.History("T2.26"), std::string(kBefore));
    }

    void withoutASelectedTickerNothingIsAsked() {
        SplitProgram program;
        auto* box = program.frame->QuoteForm()->findChild<QLineEdit*>(QStringLiteral("Text1"));
        box->clear();
        QVERIFY(!program.Ask());
        program.frame->Run("mnuFileClose");
        program.frame->Run("mnuEditSplitAdjustment");
        QVERIFY(!program.frame->findChild<frmSplitFactor*>());
    }

    void theFirstTickerIsSelectedOnceATableIsOpen() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuEditSplitAdjustment");
        auto* window = program.frame->findChild<frmSplitFactor*>();
        QCOMPARE(window->findChild<QLineEdit*>(QStringLiteral("Text1"))->text(), QStringLiteral("T1"));
    }

    void exitOfThePopUpDoesNothing() {
        SplitProgram program;
        QVERIFY(!program.Ask("mnuPopUpSplitAdjustmentExit"));
        auto* menu = program.frame->findChild<QMenu*>(QStringLiteral("mnuPopUpSplitAdjustment"));
        QStringList words;
        for (QAction* action : menu->actions()) words << action->text();
        QCOMPARE(words, QStringList({QStringLiteral("Make Adjustment"), QStringLiteral("Exit")}));
    }

    void aHistoryThatCannotBeWrittenIsTold() {
        if (geteuid() == 0) QSKIP("the super-user writes everywhere");
        SplitProgram program;
        std::filesystem::permissions(program.session.settings.QuoteFolder,
                                     std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) told = box->text();
            PressButton(dialog, QMessageBox::Ok);
        });
        program.Ask();
        program.Part<QRadioButton>("Option5")->click();
        program.Part<QPushButton>("Command1")->click();
        std::filesystem::permissions(program.session.settings.QuoteFolder, std::filesystem::perms::owner_all);
        QVERIFY2(told.contains(QStringLiteral("Split of T2 failed: ")), qPrintable(told));
        QCOMPARE(program.History("T2.26"), std::string(kBefore));
    }
};

WINDOW_TEST(SplitWindowTest)
#include "split_window_test.moc"
