// The main frame: start, menu, buttons, the road of files, geometry.
#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

#include "shell/frame/windows/welcome_page.h"
#include "shell/recent_files.h"
#include "shell/user_store.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// The program is started again in the same folder.
void Reopen(Program& program) {
    program.frame.reset();
    program.frame = std::make_unique<frmMain>(program.session, *program.analysis, program.person, program.web,
                                              program.hosts, program.store);
    program.Start("Jan.ddq");
}

}  // namespace

class FrmMainTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theMostRecentFileComesUpByItself() {
        Program program;
        program.Start("Jan.ddq");
        QVERIFY(program.frame->QuoteForm());
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Jan.ddq"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.TickerCount(), QStringLiteral("3"));
        QVERIFY(!program.Find<QProgressBar>("ProgressBar1")->isVisible());
        QCOMPARE(program.frame->findChildren<QMdiSubWindow*>().size(), 1);
    }

    void withNoRecentFileTheOpenDialogGreetsAndCancelLeavesAnEmptyFrame() {
        Program program;
        DialogHand hand([](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Open"));
            QVERIFY(qobject_cast<QFileDialog*>(&dialog));
            dialog.reject();
        });
        program.Start("");
        QCOMPARE(hand.seen, 1);
        QVERIFY(!program.frame->QuoteForm());
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QVERIFY(!program.Find<QLabel>("Panel3")->isVisible());
    }

    void aTableNamedAtTheStartOpensInPlaceOfTheNewest() {
        for (const char* recent : {"Jan.ddq", ""}) {
            Program program;
            program.SetRecent(recent);
            DialogHand hand([](QDialog& dialog) { dialog.reject(); });
            program.frame->Load({}, "Feb.ddq");
            QCOMPARE(program.session.CurrentFile, std::string("Feb.ddq"));
            QCOMPARE(RecentFiles(program.session.settings).front(), std::string("Feb.ddq"));
            QCOMPARE(hand.seen, 0);
        }
    }

    void aTableNamedAtTheStartThatIsNotThereIsToldAndNoOtherAskedFor() {
        struct Row {
            const char *recent, *named;
        };
        for (const Row& row :
             {Row{"", "None.ddq"}, {"Jan.ddq", "None.ddq"}, {"Practice.ddq", "Practice.ddq"}}) {
            Program program;
            program.SetRecent(row.recent);
            QStringList told;
            DialogHand hand([&](QDialog& dialog) {
                auto* box = qobject_cast<QMessageBox*>(&dialog);
                told << (box ? box->text() : dialog.windowTitle());
                dialog.reject();
            });
            program.frame->Load({}, row.named);
            QCOMPARE(told, QStringList(Name(row.named) + QStringLiteral(": no such file in Data")));
            QVERIFY(!program.frame->QuoteForm());
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
            const auto* welcome = program.frame->findChild<WelcomePage*>();
            QVERIFY(welcome && welcome->isVisible());
        }
    }

    void theTitleTellsQuotesOfThePracticeMarket() {
        Program program;
        program.Start("Jan.ddq");
        QCOMPARE(program.frame->windowTitle(), QStringLiteral("Brantlow - [Jan.ddq]"));
        Program practising;
        practising.Write("Hosts.ini", "# practice market\r\nQuoteHost=http://127.0.0.1:9\r\n");
        practising.Start("Jan.ddq");
        QCOMPARE(practising.frame->windowTitle(), QStringLiteral("Brantlow - Practice Market - [Jan.ddq]"));
    }

    void theLoadTellsWhenTheTableIsThere() {
        Program program;
        program.SetRecent("Jan.ddq");
        int told = 0;
        program.frame->Load([&] {
            ++told;
            QVERIFY(program.frame->QuoteForm());
            QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Jan.ddq"));
        });
        QCOMPARE(told, 1);
    }

    void offTheFrameStartsInItsSizeOrAsMuchAsTheScreenHas() {
        Program program;
        QVERIFY(!SaveSetting(program.store, "Settings", "RememberWindowSize", "False"));
        program.Start("Jan.ddq");
        QVERIFY(!program.frame->Commands().Entry("mnuViewRememberWindowSize")->isChecked());
        const QRect screen = program.frame->screen()->availableGeometry();
        QCOMPARE(program.frame->width(), std::min(1033, screen.width()));
        QCOMPARE(program.frame->height(), std::min(747, screen.height()));
    }

    void theFirstTimeTheFrameIsNeverCut() {
        Program program;
        program.Start("Jan.ddq");
        QVERIFY(program.frame->Commands().Entry("mnuViewRememberWindowSize")->isChecked());
        const QRect screen = program.frame->screen()->availableGeometry();
        QCOMPARE(program.frame->size(), QSize(std::min(1033, screen.width()), 747));
        QVERIFY(screen.contains(program.frame->geometry().topLeft()));
    }

    void theFrameOpensWhereAndAsLargeAsItWasClosed() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->setGeometry(30, 45, 610, 420);
        QCoreApplication::processEvents();
        const QRect place = program.frame->geometry();
        program.Click("Command20");
        Reopen(program);
        QCOMPARE(program.frame->geometry(), place);
        QVERIFY(!program.frame->isMaximized());

        program.frame->showMaximized();
        QCoreApplication::processEvents();
        program.Click("Command20");
        Reopen(program);
        QVERIFY(program.frame->isMaximized());
        QCOMPARE(program.frame->normalGeometry().size(), QSize(610, 420));
    }

    void aPlaceOnAScreenThatIsGoneComesBackIntoSight() {
        Program program;
        QVERIFY(!SaveFrameGeometry(program.store, {90000, 90000, 9000, 6000}));
        QVERIFY(!SaveSetting(program.store, "Settings", "RememberWindowSize", "True"));
        program.Start("Jan.ddq");
        QCOMPARE(program.frame->size(), QSize(600, 400));
        QVERIFY(program.frame->screen()->availableGeometry().contains(program.frame->geometry()));
    }

    void rememberWindowSizeIsKeptWhenItIsChosen() {
        Program program;
        program.Start("Jan.ddq");
        QAction* const entry = program.frame->Commands().Entry("mnuViewRememberWindowSize");
        entry->trigger();
        QCOMPARE(GetSetting(program.store, "Settings", "RememberWindowSize", ""), std::string("False"));
        program.frame->setGeometry(30, 45, 610, 420);
        program.Click("Command20");
        Reopen(program);
        QVERIFY(!program.frame->Commands().Entry("mnuViewRememberWindowSize")->isChecked());
        QCOMPARE(program.frame->pos(), program.frame->screen()->availableGeometry().topLeft());
        QCOMPARE(program.frame->height(), 747);
        program.frame->Commands().Entry("mnuViewRememberWindowSize")->trigger();
        QCOMPARE(GetSetting(program.store, "Settings", "RememberWindowSize", ""), std::string("True"));
    }

    void everyEntryOfTheCatalogueHasAnActionWithItsWords() {
        Program program;
        for (const MenuEntry& command : kMenu) {
            if (command.row != MenuRow::Entry && command.row != MenuRow::CheckedEntry) continue;
            QAction* entry = program.frame->Commands().Entry(command.id);
            QVERIFY2(entry, std::string(command.id).c_str());
            QCOMPARE(entry->text(), Name(command.words));
            QCOMPARE(entry->toolTip(), Name(command.toolTip));
            QCOMPARE(entry->shortcut(), QKeySequence(Name(command.shortcut)));
            if (!command.icon.empty() && !command.parent.empty()) QVERIFY(!entry->icon().isNull());
        }
    }

    void theMenuBarStandsInTheCatalogueOrder() {
        Program program;
        const std::string_view order[] = {"mnuFile",
                                          "mnuEdit",
                                          "mnuView",
                                          "mnuSettings",
                                          "mnuGraphics",
                                          "mnuEvaluatePickStocks",
                                          "mnuExtendedFundamentals",
                                          "mnuWindow",
                                          "mnuHelp"};
        QStringList expected;
        for (const std::string_view id : order) {
            if (const MenuEntry* command = FindMenuEntry(id)) expected << Name(command->words);
        }
        QStringList words;
        for (QAction* action : program.frame->menuBar()->actions()) words << action->text();
        QCOMPARE(words, expected);
        QVERIFY(words.contains(QStringLiteral("&File")));
    }

    void aRightClickShowsThePopUpMenu() {
        Program program;
        program.Start("Jan.ddq");
        QMenu& menu = program.frame->Commands().PopUpMenu();
        QCOMPARE(menu.objectName(), QStringLiteral("mnuPopUp"));
        QVERIFY(!program.frame->menuBar()->actions().contains(menu.menuAction()));
        auto* area = program.frame->findChild<QMdiArea*>();
        Q_EMIT area->customContextMenuRequested(QPoint(5, 5));
        QVERIFY(menu.isVisible());
        menu.close();
        FrozenTableView* view = program.frame->QuoteForm()->View();
        Q_EMIT view->customContextMenuRequested(view->visualRect(view->model()->index(1, 1)).center());
        QVERIFY(menu.isVisible());
        QCOMPARE(program.session.CurrentTicker, std::string("T2"));
        menu.close();
    }

    void exportingHistoricalQuotesSaysThatItIsNotThere() {
        Program program;
        program.Start("Jan.ddq");
        DialogHand hand([](QDialog& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            QVERIFY(box);
            QCOMPARE(box->text(), QStringLiteral("This function is not yet available."));
            PressButton(dialog, QMessageBox::Ok);
        });
        program.frame->Run("mnuPopUpExportHistQuotes");
        QCOMPARE(hand.seen, 1);
    }

    void everyButtonHasItsToolTipAndPicture() {
        Program program;
        for (const Button& button : kButtons) {
            auto* found = program.frame->findChild<QAbstractButton*>(Name(button.id));
            QVERIFY2(found, std::string(button.id).c_str());
            QVERIFY(found->toolTip().startsWith(Name(button.toolTip)));
            QVERIFY(!found->icon().isNull());
        }
    }

    void theSelectorButtonWaitsForAQuoteFileAndThenStays() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.Start("");
        auto* selector = program.Find<QAbstractButton>("Command4");
        QVERIFY(!selector->isVisible());
        program.session.settings.MruSettings.Set(1, Value::OfText("Jan.ddq"));
        program.frame->OpenRecentFile(1);
        QCoreApplication::processEvents();
        QVERIFY(selector->isVisible());
        program.frame->Run("mnuFileClose");
        QVERIFY(selector->isVisible());
        QVERIFY(selector->isEnabled());
    }

    void enablingFollowsTheKindOfTheOpenTable() {
        struct Row {
            const char* name;
            bool selector, close, save;
        };
        const Row rows[] = {{"Jan.ddq", true, true, true},
                            {"New EOD Quotes.db", false, true, true},
                            {"Old.dbe", false, true, true},
                            {"Old.efq", false, true, true},
                            {"Notes.txt", false, true, false}};
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.Write("Old.efq", EfqHeader() + "\r\nT1\r\n");
        program.Write("Notes.txt", QuoteHeader() + "\r\nT1\r\n");
        program.Start("Jan.ddq");
        for (const Row& row : rows) {
            program.session.settings.MruSettings.Set(1, Value::OfText(row.name));
            program.frame->OpenRecentFile(1);
            QVERIFY(program.frame->QuoteForm());
            CommandBar& commands = program.frame->Commands();
            QVERIFY2(commands.Entry("mnuEvaluatePickStocks")->isEnabled() == row.selector, row.name);
            QVERIFY2(commands.Entry("mnuFileClose")->isEnabled() == row.close, row.name);
            QVERIFY2(commands.Entry("mnuFileSave")->isEnabled() == row.save, row.name);
            QVERIFY2(program.Find<QAbstractButton>("Command8")->isEnabled() == row.save, row.name);
        }
    }

    void aSecondFileClosesTheFirstWithoutAQuestion() {
        Program program;
        program.Start("Jan.ddq");
        DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, program.session.DataFile("Feb.ddq")); });
        program.Click("Command5");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Feb.ddq"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(program.frame->findChildren<QMdiSubWindow*>().size(), 1);
        QCOMPARE(program.TickerCount(), QStringLiteral("40"));
    }

    void recentFilesStandInTheMenuAndOpenByAClick() {
        Program program;
        program.Start("Jan.ddq");
        program.session.settings.MruSettings.Set(2, Value::OfText("Feb.ddq"));
        program.frame->Commands().ShowRecentFiles(RecentFiles(program.session.settings));
        auto* second = program.frame->findChild<QAction*>(QStringLiteral("mnuFileMRU2"));
        QCOMPARE(second->text(), QStringLiteral("&2 Feb.ddq"));
        QVERIFY(second->isVisible());
        QVERIFY(!program.frame->findChild<QAction*>(QStringLiteral("mnuFileMRU3"))->isVisible());
        second->trigger();
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Feb.ddq"));
        auto* first = program.frame->findChild<QAction*>(QStringLiteral("mnuFileMRU1"));
        QCOMPARE(first->text(), QStringLiteral("&1 Feb.ddq"));
        QCOMPARE(second->text(), QStringLiteral("&2 Jan.ddq"));
    }

    void wordsAddedToRecentEntriesAndTipsStay() {
        Program program;
        program.Start("Jan.ddq");
        const auto entry = [&](int number) {
            return program.frame->findChild<QAction*>(QStringLiteral("mnuFileMRU%1").arg(number))->text();
        };
        auto* open = program.Find<QAbstractButton>("Command5");
        const auto standAsAdded = [&](const char* first) {
            return entry(1) == QStringLiteral("&1 ") + Name(first) &&
                   open->toolTip() == QStringLiteral("Open EOD Quote File (Ctrl+O)");
        };
        QVERIFY2(standAsAdded("Jan.ddq"), qPrintable(entry(1) + open->toolTip()));
        program.session.settings.MruSettings.Set(2, Value::OfText("Feb.ddq"));
        program.frame->OpenRecentFile(2);
        QVERIFY2(standAsAdded("Feb.ddq"), qPrintable(entry(1) + open->toolTip()));
        QCOMPARE(entry(2), QStringLiteral("&2 Jan.ddq"));
        program.frame->Run("mnuFileClose");
        QVERIFY2(standAsAdded("Feb.ddq"), qPrintable(entry(1) + open->toolTip()));
        // What the number stands before is the name alone.
        QCOMPARE(program.Read("VTRMRUset.ini"),
                 std::string("\"Feb.ddq\"\r\n\"Jan.ddq\"\r\n\"\"\r\n\"\"\r\n"));
    }

    void theNewButtonMakesAnEmptyTableAndCloseAsks() {
        Program program;
        program.Start("Jan.ddq");
        program.Click("Command22");
        QCOMPARE(program.session.CurrentFile, std::string("New EOD Quotes.db"));
        QCOMPARE(program.TickerCount(), QStringLiteral("0"));
        DialogHand hand([](QDialog& dialog) {
            auto* box = qobject_cast<QMessageBox*>(&dialog);
            QVERIFY(box);
            QCOMPARE(box->text(), QStringLiteral("Do you want to save the new file?"));
            QCOMPARE(box->windowTitle(), QStringLiteral("Save New File?"));
            PressButton(dialog, QMessageBox::No);
        });
        program.Click("Command7");
        QCOMPARE(hand.seen, 1);
        QVERIFY(!program.frame->QuoteForm());
    }

    void saveOnTheTemplateAsksForANameAndKeepsTheTable() {
        Program program;
        program.Start("Jan.ddq");
        program.Click("Command22");
        DialogHand hand([&](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Save"));
            EnterFile(dialog, program.session.DataFile("Mine.ddq"));
        });
        program.Click("Command8");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(program.frame->QuoteForm()->windowTitle(), QStringLiteral("Mine.ddq"));
        QVERIFY(program.frame->Commands().Entry("mnuEvaluatePickStocks")->isEnabled());
        QVERIFY(!program.Read("Mine.ddq").empty());
    }

    void theOtherOpenButtonsAskWithTheirFilter() {
        const std::pair<const char*, const char*> rows[] = {
            {"Command6", "Data Base Evaluation Files (*.dbe)"},
            {"Command24", "Data Base Evaluation Files (*.efq)"}};
        for (const auto& [button, filter] : rows) {
            Program program;
            program.Start("Jan.ddq");
            QStringList filters;
            DialogHand hand([&](QDialog& dialog) {
                if (auto* files = qobject_cast<QFileDialog*>(&dialog)) filters = files->nameFilters();
                dialog.reject();
            });
            program.Click(button);
            QCOMPARE(filters, QStringList(QString::fromLatin1(filter)));
            QVERIFY(!program.frame->QuoteForm());
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        }
    }

    void whatCannotBeOpenedIsToldInABox() {
        const std::pair<const char*, const char*> rows[] = {
            {"Gone.ddq", "Gone.ddq: no such file in Data"},
            {"Dir.ddq", "Dir.ddq: a folder, not a quote file"},
            {"Empty.ddq", "Empty.ddq: the file is empty, it has no header line"}};
        for (const auto& [name, sentence] : rows) {
            Program program;
            std::filesystem::create_directory(program.session.DataFile("Dir.ddq"));
            program.Write("Empty.ddq", "");
            QString told;
            DialogHand hand([&](QDialog& dialog) {
                if (auto* box = qobject_cast<QMessageBox*>(&dialog)) told = box->text();
                PressButton(dialog, QMessageBox::Ok);
            });
            program.Start(name);
            QCOMPARE(told, QString::fromLatin1(sentence));
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        }
    }

    void theSelectorEntrySpeaksWhereNoQuoteFileIsOpen() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuFileClose");
        QString told;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) told = box->text();
            PressButton(dialog, QMessageBox::Ok);
        });
        program.Click("Command4");
        QCOMPARE(told,
                 QStringLiteral("To run Stock Selector, you will need to open an End of Day Quote File"));
    }

    void theSelectorButtonSpeaksWithATableOfAnotherKind() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.Write("Old.efq", EfqHeader() + "\r\nT1\r\n");
        program.Start("Jan.ddq");
        for (const char* name : {"Old.dbe", "New EOD Quotes.db", "Old.efq"}) {
            program.session.settings.MruSettings.Set(1, Value::OfText(name));
            program.frame->OpenRecentFile(1);
            QVERIFY2(program.frame->QuoteForm(), name);
            QVERIFY2(program.Find<QAbstractButton>("Command4")->isEnabled(), name);
            const QStringList told = BoxesOf([&] { program.Click("Command4"); });
            QCOMPARE(told, QStringList(QStringLiteral(
                               "To run Stock Selector, you will need to open an End of Day Quote File")));
        }
    }

    void toolbarAndStatusBarFlipWithTheirEntries() {
        Program program;
        program.Start("Jan.ddq");
        QAction* toolbar = program.frame->Commands().Entry("mnuViewToolbar");
        QAction* status = program.frame->Commands().Entry("mnuViewStatusBar");
        toolbar->trigger();
        status->trigger();
        QVERIFY(!program.Find<QToolBar>("tbToolBar")->isVisible());
        QVERIFY(!program.frame->statusBar()->isVisible());
        toolbar->trigger();
        status->trigger();
        QVERIFY(program.Find<QToolBar>("tbToolBar")->isVisible());
        QVERIFY(program.frame->statusBar()->isVisible());
    }

    void theStatusBarsEntryStaysInStepWhenAFileIsOpenedOrClosed() {
        Program program;
        program.Start("Jan.ddq");
        QAction* status = program.frame->Commands().Entry("mnuViewStatusBar");
        status->trigger();
        program.frame->OpenRecentFile(1);
        QVERIFY(program.frame->statusBar()->isVisible());
        QVERIFY(status->isChecked());
        status->trigger();
        QVERIFY(!program.frame->statusBar()->isVisible());
        program.frame->Run("mnuFileClose");
        QVERIFY(program.frame->statusBar()->isVisible());
        QVERIFY(status->isChecked());
    }

    void theWindowEntriesArrangeTheTable() {
        Program program;
        program.Start("Jan.ddq");
        auto* area = program.frame->findChild<QMdiArea*>();
        QMdiSubWindow* child = area->subWindowList().constFirst();
        program.frame->Run("mnuWindowTileHorizontal");
        QCOMPARE(child->size(), area->viewport()->size());
        program.frame->Run("mnuWindowCascade");
        QCOMPARE(child->size(), area->viewport()->size() * 0.8);
        QCOMPARE(child->pos(), QPoint(0, 0));
        program.frame->Run("mnuWindowTileVertical");
        QCOMPARE(child->size(), area->viewport()->size());
        child->showMinimized();
        program.frame->Run("mnuWindowArrangeIcons");
        QCOMPARE(child->geometry().bottom() + 1, area->viewport()->height());
    }

    void theTablesOwnCloseButtonTakesTheRoadOfClose() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->findChild<QMdiSubWindow*>()->close();
        QVERIFY(!program.frame->QuoteForm());
        QCOMPARE(program.Read("VTRMRUset.ini").substr(0, 11), std::string("\"Jan.ddq\"\r\n"));
    }

    void geometryAndRecentFilesAreKeptAtTheEnd() {
        Program program;
        program.Start("Feb.ddq");
        program.frame->setGeometry(30, 45, 600, 400);
        QCoreApplication::processEvents();
        const QRect place = program.frame->geometry();
        program.Click("Command20");
        QVERIFY(!program.frame->isVisible());
        const FrameGeometry kept = LoadFrameGeometry(program.store);
        QCOMPARE(kept.MainLeft, place.x() * 15.0);
        QCOMPARE(kept.MainTop, place.y() * 15.0);
        QCOMPARE(kept.MainWidth, place.width() * 15.0);
        QCOMPARE(kept.MainHeight, place.height() * 15.0);
        QCOMPARE(program.Read("VTRMRUset.ini"), std::string("\"Feb.ddq\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n"));
    }

    void theProgressBarRepaintsInStepsAndHidesAtTheEnd() {
        Program program;
        program.Start("Jan.ddq");
        auto* bar = program.Find<QProgressBar>("ProgressBar1");
        program.session.run.ProgressLastShown = 0;
        program.person.ShowProgress(0.5);
        QVERIFY(bar->isVisible());
        QCOMPARE(bar->value(), 50);
        program.person.ShowProgress(0.51);
        QCOMPARE(bar->value(), 50);
        program.person.ShowProgress(0.53);
        QCOMPARE(bar->value(), 53);
        program.person.ShowProgress(1);
        QVERIFY(!bar->isVisible());
    }

    void progressOfAFileWithoutAKindShowsOnlyWhenAllowed() {
        Program program;
        program.Start("Jan.ddq");
        auto* bar = program.Find<QProgressBar>("ProgressBar1");
        program.session.CurrentFile = "Notes.txt";
        program.session.run.ProgressLastShown = 0;
        program.person.ShowProgress(0.5);
        QVERIFY(!bar->isVisible());
        program.session.ProgressAlways = true;
        program.person.ShowProgress(0.5);
        QVERIFY(bar->isVisible());
    }
};

WINDOW_TEST(FrmMainTest)
#include "frmMain_test.moc"
