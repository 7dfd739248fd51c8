// Finding what the program can do, and handing it what lies elsewhere: the command palette, the page of keys,
// the settings by their words, drops onto the window, and the small window of a long run.
#include <QDropEvent>
#include <QListWidget>
#include <QMainWindow>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <QUrl>

#include "chart_fixture.h"
#include "screens/windows/frmApplicationSettings.h"
#include "screens/windows/settings_finder.h"
#include "shell/frame/windows/frmCommandPalette.h"
#include "shell/frame/windows/frmEnable.h"
#include "shell/frame/windows/frmKeys.h"
#include "store/windows/frmQuoteGrid.h"

using namespace brantlow;

namespace {

// Types into the palette and presses Enter; the first row found is taken down.
QString ChooseInPalette(Program& program, const QString& typed) {
    QString found;
    DialogHand hand([&](QDialog& dialog) {
        if (dialog.objectName() != QStringLiteral("frmCommandPalette")) return dialog.reject();
        auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("txtTyped"));
        box->setText(typed);
        const auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstFound"));
        if (list->currentItem()) found = list->currentItem()->text();
        QTest::keyClick(box, Qt::Key_Return);
        if (dialog.isVisible()) dialog.reject();
    });
    program.frame->Commands().Entry("mnuHelpCommands")->trigger();
    QCoreApplication::processEvents();
    return found;
}

// The first row that the palette finds; empty where it finds nothing.
QString FirstInPalette(Program& program, const QString& typed) {
    QString found;
    DialogHand hand([&](QDialog& dialog) {
        if (auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("txtTyped"))) {
            box->setText(typed);
            const auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lstFound"));
            if (list->currentItem()) found = list->currentItem()->text();
        }
        dialog.reject();
    });
    program.frame->Commands().Entry("mnuHelpCommands")->trigger();
    return found;
}

void Drop(Program& program, QMimeData& data) {
    const QPointF place(40, 200);
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(program.frame.get(), &enter);
    if (!enter.isAccepted()) return;
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(program.frame.get(), &drop);
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
}

void DropFile(Program& program, const Path& file) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(ShownPath(file))});
    Drop(program, data);
}

// Presses the button with these words in every box and takes its text down.
class Presser {
  public:
    explicit Presser(const char* words) : words_(QString::fromLatin1(words)) {}
    QStringList told;

  private:
    QString words_;
    DialogHand hand_{[this](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box) return dialog.reject();
        told << box->text();
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove(u'&') == words_) return button->click();
        }
        dialog.reject();
    }};
};

// Presses Enter in the next box; the word of the button that it meant.
class EnterPresser {
  public:
    QString word;

  private:
    DialogHand hand_{[this](QDialog& dialog) {
        for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
            if (button->isDefault()) word = button->text().remove(u'&');
        }
        QTest::keyClick(&dialog, Qt::Key_Return);
    }};
};

}  // namespace

class FindingTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void thePaletteRunsACommandByAFewLetters() {
        Program program;
        program.Start("Jan.ddq");
        QCOMPARE(program.frame->Commands().Entry("mnuHelpCommands")->shortcut(),
                 QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P));
        QVERIFY(!program.Find<QStatusBar>("sbStatusBar")->isHidden());
        QCOMPARE(ChooseInPalette(program, QStringLiteral("status b")), QStringLiteral("View: Status Bar"));
        QVERIFY(program.Find<QStatusBar>("sbStatusBar")->isHidden());
        QVERIFY(!program.frame->Commands().Entry("mnuViewStatusBar")->isChecked());
        QCOMPARE(ChooseInPalette(program, QStringLiteral("zzzz")), QString());
    }

    void thePaletteOffersWhatCanBeChosenAlone() {
        Program program;
        program.Start("Practice.ddq");
        QCOMPARE(ChooseInPalette(program, QStringLiteral("populate database")), QString());
    }

    // The first row found for each word, without a table, with one, and with a chart in front of it.
    void thePaletteOffersWhatHasSomethingToWorkOn() {
        ChartProgram program;
        const char* const words[] = {"exit",       "SEC filings",  "not yet",     "copy picture",
                                     "tile vert",  "candle",       "adjustment",  "graphics",
                                     "fundamenta", "commands and", "make adjust", "historical"};
        const auto found = [&] {
            QStringList rows;
            for (const char* word : words) rows << FirstInPalette(program, QString::fromLatin1(word));
            return rows;
        };
        const QStringList withTable =
            Words({"File: Exit   (Ctrl+Q)", "Ticker: SEC Filings", "", "", "Window: Tile Vertical",
                   "Graphics: Candle Stick   (Ctrl+Shift+G)", "Edit: Split Adjustment", "Graphics   (F8)",
                   "Extended Fundamentals   (Shift+F5)", "", "", ""});
        QCOMPARE(found(), withTable);
        program.frame->Run("Graphics");
        QVERIFY(program.frame->GraphForm());
        QStringList withChart = withTable;
        withChart[3] = QStringLiteral("Edit: Copy Picture   (Ctrl+Shift+C)");
        QCOMPARE(found(), withChart);
        program.frame->Run("mnuFileClose");
        QCOMPARE(found(), withTable);
        program.frame->Run("mnuFileClose");
        QCOMPARE(found(), Words({"File: Exit   (Ctrl+Q)", "", "", "", "", "", "", "", "", "", "", ""}));
    }

    void aTickerInThePaletteOpensItsChart() {
        ChartProgram program;
        QCOMPARE(ChooseInPalette(program, QStringLiteral("t1")), QStringLiteral("Chart of T1"));
        QCOMPARE(program.session.CurrentTicker, std::string("T1"));
        QVERIFY(program.frame->GraphForm());
    }

    void theArrowKeysWalkThroughThePalette() {
        PaletteStart start;
        start.commands = PaletteCommands({true, true, true}, [](const MenuEntry&) { return true; });
        QStringList chosen;
        start.choose = [&](const PaletteRow& row) { chosen << Shown(row.words); };
        frmCommandPalette palette(std::move(start), nullptr);
        palette.show();
        auto* box = palette.findChild<QLineEdit*>();
        auto* list = palette.findChild<QListWidget*>();
        QVERIFY(list->count() > 100);
        for (int i = 0; i < 3; ++i) QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Up);
        QCOMPARE(list->currentRow(), 2);
        const QString words = list->currentItem()->text().section(QStringLiteral("   ("), 0, 0);
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(chosen, QStringList(words));
        QVERIFY(!palette.isVisible());
    }

    void thePageOfKeysHoldsEveryShortcut() {
        frmKeys keys(nullptr);
        keys.show();
        const auto* list = keys.findChild<QTreeWidget*>();
        QStringList shown;
        for (int row = 0; row < list->topLevelItemCount(); ++row) shown << list->topLevelItem(row)->text(0);
        for (const MenuEntry& entry : kMenu) {
            if (entry.shortcut.empty()) continue;
            QVERIFY2(shown.contains(QKeySequence(Name(entry.shortcut)).toString(QKeySequence::NativeText)),
                     entry.id.data());
        }
        keys.findChild<QLineEdit*>()->setText(QStringLiteral("filter"));
        int left = 0;
        for (int row = 0; row < list->topLevelItemCount(); ++row)
            left += list->topLevelItem(row)->isHidden() ? 0 : 1;
        QVERIFY(left >= 2 && left < 10);
    }

    void anySettingIsFoundByItsWords() {
        Program program;
        program.Start("Jan.ddq");
        frmApplicationSettings settings(program.session, program.hosts, program.frame.get());
        settings.show();
        auto* finder = settings.findChild<SettingsFinder*>();
        auto* tabs = settings.findChild<QTabWidget*>(QStringLiteral("TabStrip1"));
        QVERIFY(finder->Lines().size() > 60);
        for (const QString& line : finder->Lines()) {
            QVERIFY2(finder->Find(line), qPrintable(line));
            const QString caption = tabs->tabText(tabs->currentIndex())
                                        .replace(QStringLiteral("&&"), QStringLiteral("\n"))
                                        .remove(u'&')
                                        .replace(u'\n', u'&');
            QVERIFY2(line.startsWith(caption + QStringLiteral(": ")), qPrintable(line + u'|' + caption));
            QVERIFY2(!line.contains(QStringLiteral("::")), qPrintable(line));
        }
        QVERIFY(!finder->Find(QStringLiteral("nothing is called so")));
        QTRY_VERIFY((settings.activateWindow(), QApplication::activeWindow() == &settings));
        QVERIFY(!finder->hasFocus());
        QTest::keyClick(settings.focusWidget(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(finder->hasFocus());
        // Enter takes the first of what a word finds; a word that finds nothing leads nowhere.
        finder->setText(QStringLiteral("manual split"));
        QTest::keyClick(finder, Qt::Key_Return);
        QCOMPARE(tabs->tabText(tabs->currentIndex()), QStringLiteral("Data && A&utomation Settings"));
        auto* found = qobject_cast<QAbstractButton*>(settings.focusWidget());
        QVERIFY(found && found->text().remove(u'&') == QStringLiteral("Manual Split"));
        finder->setFocus();
        finder->setText(QStringLiteral("zzz"));
        QTest::keyClick(finder, Qt::Key_Return);
        QVERIFY(finder->hasFocus());
        QVERIFY(settings.isVisible());
        // Words that a person would look for.
        for (const char* word : {"Weekly", "20 Years", "MetaStock 7", "Candle"}) {
            const QStringList found = finder->Lines().filter(QString::fromLatin1(word), Qt::CaseInsensitive);
            QVERIFY2(!found.isEmpty(), word);
        }
    }

    void theSettingFoundIsMarkedUntilTheNextPress() {
        Program program;
        program.Start("Jan.ddq");
        frmApplicationSettings settings(program.session, program.hosts, program.frame.get());
        settings.show();
        QTRY_VERIFY((settings.activateWindow(), QApplication::activeWindow() == &settings));
        auto* finder = settings.findChild<SettingsFinder*>();
        const auto mark = [&] { return settings.findChild<QWidget*>(QStringLiteral("FoundMark")); };
        const auto find = [&](const char* words) {
            finder->setFocus();
            finder->setText(QString::fromLatin1(words));
            QTest::keyClick(finder, Qt::Key_Return);
            QCoreApplication::processEvents();
        };
        QVERIFY(!mark());
        for (const QColor colour : {QColor(200, 20, 60), QColor(30, 180, 90)}) {
            QPalette palette = settings.palette();
            palette.setColor(QPalette::Highlight, colour);
            settings.setPalette(palette);
            find("manual split");
            QVERIFY(mark() && mark()->isVisible());
            const QWidget* const found = settings.focusWidget();
            QVERIFY(mark()->geometry().contains(found->geometry()));
            QVERIFY(!mark()->hasFocus() && settings.childAt(found->mapTo(&settings, QPoint(8, 8))) == found);
            const QImage seen = settings.grab().toImage();
            const QPoint edge = mark()->mapTo(&settings, QPoint(0, mark()->height() / 2));
            QCOMPARE(seen.pixelColor(edge * seen.devicePixelRatio()), colour);
            QTest::mouseClick(&settings, Qt::LeftButton, {}, QPoint(2, 2));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(!mark());
        }
        // Another search marks what it finds alone, and any key ends it.
        find("manual split");
        find("weekly");
        QCOMPARE(settings.findChildren<QWidget*>(QStringLiteral("FoundMark")).size(), qsizetype{1});
        QVERIFY(mark()->geometry().contains(settings.focusWidget()->geometry()));
        settings.resize(settings.width() + 200, settings.height() + 60);
        QCoreApplication::processEvents();
        QVERIFY(mark()->geometry().contains(settings.focusWidget()->geometry()));
        QTest::keyClick(settings.focusWidget(), Qt::Key_F, Qt::ControlModifier);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!mark() && finder->hasFocus());
    }

    void droppedTextAddsItsNewTickersOnceAsked() {
        Program program;
        program.Start("Jan.ddq");
        QMimeData data;
        data.setText(QStringLiteral("T1, AAPL\nMSFT"));
        {
            Presser cancel("Cancel");
            Drop(program, data);
            QCOMPARE(cancel.told,
                     QStringList(QStringLiteral("Add 2 tickers of the text to Jan.ddq? (AAPL ... MSFT)")));
            QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{3});
        }
        Presser add("Add");
        Drop(program, data);
        QCOMPARE(program.frame->QuoteForm()->Table().Tickers(),
                 (std::vector<std::string>{"AAPL", "MSFT", "T1", "T2", "T3"}));
        QCOMPARE(program.TickerCount(), QStringLiteral("5"));
        QCOMPARE(program.frame->QuoteForm()->SelectedTicker(), std::string("AAPL"));
        QCOMPARE(add.told.size(), 1);
    }

    void enterTakesADropThatCostsNothingAndKeepsWhatItWouldReplace() {
        Program program;
        program.Start("Jan.ddq");
        QMimeData data;
        data.setText(QStringLiteral("AAPL"));
        EnterPresser enter;
        Drop(program, data);
        QCOMPARE(enter.word, QStringLiteral("Add"));
        QCOMPARE(program.TickerCount(), QStringLiteral("4"));
        const Path elsewhere = program.folder / "Mine.ddq";
        QVERIFY(!WriteWholeFile(elsewhere, Program::QuoteTableText(2)));
        DropFile(program, elsewhere);
        QCOMPARE(enter.word, QStringLiteral("Copy"));
        QCOMPARE(program.Read("Mine.ddq"), Program::QuoteTableText(2));
        QVERIFY(!WriteWholeFile(elsewhere, Program::QuoteTableText(7)));
        DropFile(program, elsewhere);
        QCOMPARE(enter.word, QStringLiteral("Cancel"));
        QCOMPARE(program.Read("Mine.ddq"), Program::QuoteTableText(2));
    }

    void aDroppedTextFileAddsTheFirstOfEachLine() {
        Program program;
        program.Start("Jan.ddq");
        const Path file = program.folder / "list.csv";
        QVERIFY(!WriteWholeFile(file, "Symbol,Name\r\nKO,Coca-Cola\r\nT2,Two\r\n"));
        Presser add("Add");
        DropFile(program, file);
        QCOMPARE(add.told, QStringList(QStringLiteral("Add 1 ticker of list.csv to Jan.ddq? (KO)")));
        QCOMPARE(program.frame->QuoteForm()->Table().Tickers(),
                 (std::vector<std::string>{"KO", "T1", "T2", "T3"}));
    }

    void aDroppedQuoteFileIsOpened() {
        Program program;
        program.Start("Jan.ddq");
        DropFile(program, program.session.DataFile("Feb.ddq"));
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Feb.ddq"));
        const Path elsewhere = program.folder / "Mine.ddq";
        QVERIFY(!WriteWholeFile(elsewhere, Program::QuoteTableText(2)));
        {
            Presser cancel("Cancel");
            DropFile(program, elsewhere);
            QCOMPARE(cancel.told,
                     QStringList(QStringLiteral("Copy Mine.ddq into the data folder and open it?")));
            QVERIFY(!std::filesystem::exists(program.session.DataFile("Mine.ddq")));
        }
        {
            Presser copy("Copy");
            DropFile(program, elsewhere);
            QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Mine.ddq"));
            QCOMPARE(program.Read("Mine.ddq"), Program::QuoteTableText(2));
        }
        QVERIFY(!WriteWholeFile(elsewhere, Program::QuoteTableText(7)));
        Presser replace("Replace");
        DropFile(program, elsewhere);
        QCOMPARE(program.Read("Mine.ddq"), Program::QuoteTableText(7));
        QCOMPARE(program.TickerCount(), QStringLiteral("7"));
    }

    void withoutAQuoteFileADroppedListIsTold() {
        Program program;
        program.Start("Practice.ddq");
        QMimeData data;
        data.setText(QStringLiteral("AAPL"));
        const QStringList told = BoxesOf([&] { Drop(program, data); });
        QCOMPARE(told,
                 QStringList(QStringLiteral("Tickers can be dropped onto an open End of Day Quote File.")));
    }

    void aPauseIsAcknowledgedAtOnceAndEscapeAsks() {
        RunControl run;
        BeginRun(run);
        frmEnable window(run, RunStop::KeepsWhatIsDone, nullptr);
        window.show();
        auto* state = window.findChild<QLabel*>(QStringLiteral("lblState"));
        window.ShowOutlook("Updating AAPL: 40 % done, about 3 minutes left", "AAPL");
        QCOMPARE(state->text(), QStringLiteral("Updating AAPL: 40 % done, about 3 minutes left"));
        window.findChild<QPushButton*>(QStringLiteral("Command2"))->click();
        QCOMPARE(state->text(), QStringLiteral("Pausing after AAPL"));
        QCOMPARE(run.ProcessCommand, std::string(kPauseRun));
        // The run works on until its next ticker.
        window.ShowOutlook("Updating AAPL: 41 % done, about 3 minutes left", "AAPL");
        QCOMPARE(state->text(), QStringLiteral("Pausing after AAPL"));
        window.ShowPaused(true);
        QCOMPARE(state->text(), QStringLiteral("The process is paused."));
        window.findChild<QPushButton*>(QStringLiteral("Command3"))->click();
        window.ShowPaused(false);
        QCOMPARE(run.ProcessCommand, std::string(kResumeRun));

        run.ProcessCommand = kRunning;
        window.ShowOutlook("Updating KO: 50 % done", "KO");
        // The second press of an impatient thumb takes the pause back; it never ends the run.
        QTRY_VERIFY((window.activateWindow(), window.focusWidget() && window.focusWidget()->hasFocus()));
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        QCOMPARE(state->text(), QStringLiteral("Pausing after KO"));
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        QCOMPARE(run.ProcessCommand, std::string(kResumeRun));
        QVERIFY(window.isVisible());
        QCOMPARE(state->text(), QStringLiteral("The process is running."));
        window.ShowOutlook("Updating KO: 51 % done", "KO");
        QCOMPARE(state->text(), QStringLiteral("Updating KO: 51 % done"));
        QCOMPARE(window.focusWidget(), window.findChild<QPushButton*>(QStringLiteral("Command2")));

        run.ProcessCommand = kRunning;
        QTest::keyClick(&window, Qt::Key_Escape);
        auto* question = window.findChild<QMessageBox*>();
        QVERIFY(question && question->isVisible() && window.isVisible());
        QCOMPARE(run.ProcessCommand, std::string(kRunning));
        QTest::keyClick(question, Qt::Key_Escape);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(run.ProcessCommand, std::string(kRunning));
        QTest::keyClick(&window, Qt::Key_Escape);
        question = window.findChild<QMessageBox*>();
        for (QAbstractButton* button : question->buttons()) {
            if (button->text() == QStringLiteral("&Exit")) button->click();
        }
        QCOMPARE(run.ProcessCommand, std::string(kStopRun));
        QVERIFY(!window.isVisible());
    }

    void exitIsAcknowledgedUntilTheTickerInWorkIsDone() {
        QMainWindow frame;
        RunControl run;
        BeginRun(run);
        {
            frmEnable window(run, RunStop::KeepsWhatIsDone, &frame);
            window.ShowOutlook("Populating KO: 2 % done", "KO");
            window.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
            QCOMPARE(frame.statusBar()->currentMessage(), QStringLiteral("Ending after KO"));
        }
        QCOMPARE(frame.statusBar()->currentMessage(), QString());
    }
};

WINDOW_TEST(FindingTest)
#include "finding_test.moc"
