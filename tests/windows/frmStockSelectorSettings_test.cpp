// The condition editor at its window: lists, keys, ticks and boxes, and what each button writes.
#include "screens/windows/frmStockSelectorSettings.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>

#include "screens/windows/condition_overview.h"
#include "selector/catalogue.h"
#include "selector/value_slots.h"
#include "selector/windows/frmSelectorSelection.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

constexpr const char* kFile = "VTRSELset.ini";

std::string Line(const std::string& text) {
    return "\"" + text + "\"\r\n";
}

std::string Block(const std::string& action, const std::vector<std::string>& names,
                  std::vector<std::string> slots = {}) {
    std::string text = Line("Condition") + Line(action);
    for (const std::string& name : names) text += Line(name);
    text += Line("Value");
    slots.resize(38);
    for (const std::string& slot : slots) text += Line(slot);
    return text;
}

std::string EmptyBlocks(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += Block("Buy", {});
    return text;
}

// A history whose every bar is at its 52 week high.
std::string History() {
    std::string bytes;
    for (int i = 0; i < 120; ++i) {
        bytes += "\"01/04/23\",\"16:00\",10,10,10,1000,0,0,0,0,0,\"\",\"\",0,1,10,0,0,10\r\n";
    }
    return bytes;
}

// The frame over a condition set, with the editor open.
class EditorProgram : public Program {
  public:
    explicit EditorProgram(const std::string& set, bool withHistory = false) {
        Write(kFile, set);
        for (const char* ticker : {"T1", "T2", "T3"}) {
            const Path year = session.AppPath / "Quotes" / "EOD" / (std::string(ticker) + ".23");
            if (withHistory && WriteWholeFile(year, History(), Flush::Later)) qFatal("no history");
        }
        Start("Jan.ddq");
        Open();
    }

    void Open() {
        // Windows closed before are gone by the time a person opens the next.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        frame->Commands().Entry("mnuSettingsStockSelector")->trigger();
        window = frame->findChild<frmStockSelectorSettings*>();
        QVERIFY(window && window->isVisible());
    }
    // Makes the window the one that keys go to.
    void Activate() {
        window->activateWindow();
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::activeWindow(), static_cast<QWidget*>(window), kPatienceMs);
    }
    QTabWidget* Tabs() { return window->findChild<QTabWidget*>(QStringLiteral("tbsOptions")); }
    QWidget* Panel() { return Tabs()->currentWidget(); }
    template <class Widget>
    Widget* Part(const char* name) {
        return Panel()->findChild<Widget*>(QString::fromLatin1(name));
    }
    QListWidget* Available() { return Part<QListWidget>("lst1Options"); }
    QListWidget* Selected() { return Part<QListWidget>("lst2Options"); }
    QLineEdit* Filter() { return Part<QLineEdit>("Filter"); }
    QCheckBox* Check(int slot) { return Part<QCheckBox>(("Check" + std::to_string(slot)).c_str()); }
    QLineEdit* Text(int slot) { return Part<QLineEdit>(("Text" + std::to_string(slot)).c_str()); }
    QString State() { return window->findChild<QLabel*>(QStringLiteral("State"))->text(); }
    void Press(const char* button) {
        auto* found = window->findChild<QPushButton*>(QString::fromLatin1(button));
        QVERIFY2(found, button);
        QTest::mouseClick(found, Qt::LeftButton);
    }
    void PressInPanel(const char* button) { QTest::mouseClick(Part<QPushButton>(button), Qt::LeftButton); }

    frmStockSelectorSettings* window = nullptr;
};

QStringList Names(const QListWidget* list) {
    QStringList names;
    for (int row = 0; row < list->count(); ++row) names.append(list->item(row)->text());
    return names;
}

// Answers the question whether edits are to be dropped.
DialogHand Dropping() {
    return DialogHand([](QDialog& dialog) {
        for (QPushButton* button : dialog.findChildren<QPushButton*>())
            if (button->text().remove(u'&') == QStringLiteral("Drop")) return button->click();
        QFAIL("no button that drops");
    });
}

QStringList NamesInSight(const QListWidget* list) {
    QStringList names;
    for (int row = 0; row < list->count(); ++row) {
        if (!list->isRowHidden(row)) names.append(list->item(row)->text());
    }
    return names;
}

}  // namespace

class StockSelectorSettingsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theWindowHasItsWords() {
        EditorProgram program(EmptyBlocks(10));
        QCOMPARE(program.window->windowTitle(), QStringLiteral("Brantlow Stock Selector Settings"));
        QCOMPARE(program.window->findChild<QGroupBox*>()->title(),
                 QStringLiteral("Conditional Analyses Settings"));
        QCOMPARE(program.Tabs()->count(), 10);
        const std::pair<const char*, const char*> buttons[] = {
            {"Command1", "Apply"}, {"Command2", "Exit"}, {"Command3", "Clear"}};
        for (const auto& [name, words] : buttons) {
            auto* button = program.window->findChild<QPushButton*>(QString::fromLatin1(name));
            QCOMPARE(button->text().remove(QLatin1Char('&')), QString::fromLatin1(words));
        }
        for (int tab = 0; tab < 10; ++tab) {
            program.Tabs()->setCurrentIndex(tab);
            QCOMPARE(program.Tabs()->tabText(tab), QStringLiteral("Condition - %1").arg(tab + 1));
            QCOMPARE(program.Panel()->objectName(), QStringLiteral("picOptions"));
            auto* action = program.Part<QComboBox>("Combo1");
            QCOMPARE(action->count(), 3);
            QCOMPARE(action->itemText(0), QStringLiteral("Buy"));
            QCOMPARE(action->itemText(1), QStringLiteral("Sell"));
            QCOMPARE(action->itemText(2), QStringLiteral("Hold"));
            QCOMPARE(action->currentText(), QStringLiteral("Buy"));
            QStringList captions;
            for (const QLabel* label : program.Panel()->findChildren<QLabel*>()) captions << label->text();
            QVERIFY(captions.contains(QStringLiteral("Available:")));
            QVERIFY(captions.contains(QStringLiteral("Selected:")));
            QCOMPARE(program.Available()->count(), 488);
            for (int slot = 1; slot <= 38; ++slot) {
                QCOMPARE(program.Check(slot)->text(), Name(ValueSlotLabel(static_cast<std::size_t>(slot))));
                QVERIFY(!program.Check(slot)->isChecked());
                QVERIFY(!program.Text(slot)->isEnabled());
            }
        }
    }

    void theListHoldsTheCatalogueInItsOrder() {
        EditorProgram program(EmptyBlocks(10));
        QStringList catalogue;
        for (const std::string_view name : ConditionNames()) catalogue.append(Name(name));
        QCOMPARE(Names(program.Available()), catalogue);
    }

    void eachTabShowsItsCondition() {
        EditorProgram program(Block("Sell", {"Shaven Head"}, {"1.5"}) + EmptyBlocks(8) +
                              Block("Hold", {"No Such Name", "Shaven Bottom"}, {"", "abc"}));
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("Sell"));
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Shaven Head")});
        QVERIFY(!Names(program.Available()).contains(QStringLiteral("Shaven Head")));
        QVERIFY(program.Check(1)->isChecked() && program.Text(1)->isEnabled());
        QCOMPARE(program.Text(1)->text(), QStringLiteral("1.5"));
        program.Tabs()->setCurrentIndex(9);
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("Hold"));
        QCOMPARE(Names(program.Selected()),
                 (QStringList{QStringLiteral("No Such Name"), QStringLiteral("Shaven Bottom")}));
        QVERIFY(program.Selected()->item(0)->font().italic());
        QVERIFY(!program.Selected()->item(0)->toolTip().isEmpty());
        QVERIFY(!program.Selected()->item(1)->font().italic());
        QCOMPARE(program.Text(2)->text(), QStringLiteral("abc"));
    }

    void onlyThePanelOfTheTabIsShownAndEnabled() {
        EditorProgram program(EmptyBlocks(10));
        program.Tabs()->setCurrentIndex(4);
        for (int tab = 0; tab < 10; ++tab) {
            QCOMPARE(program.Tabs()->widget(tab)->isEnabled(), tab == 4);
            QCOMPARE(program.Tabs()->widget(tab)->isVisible(), tab == 4);
        }
    }

    void theArrowsMoveTheSelectedNameToTheEnd() {
        EditorProgram program(EmptyBlocks(10));
        QVERIFY(!program.Part<QPushButton>("Command5")->isEnabled());
        QVERIFY(!program.Part<QPushButton>("Command6")->isEnabled());
        program.Available()->setCurrentRow(1);
        program.PressInPanel("Command5");
        program.PressInPanel("Command5");
        QCOMPARE(Names(program.Selected()), (QStringList{QStringLiteral("Hit 52 Week High"),
                                                         QStringLiteral("Close Price Broke Above MA 15")}));
        QCOMPARE(program.Available()->count(), 486);
        program.Selected()->setCurrentRow(0);
        program.PressInPanel("Command6");
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Close Price Broke Above MA 15")});
        QCOMPARE(Names(program.Available()).constLast(), QStringLiteral("Hit 52 Week High"));
        QVERIFY(program.Read(kFile) == EmptyBlocks(10));
    }

    void aDoubleClickMovesTheName() {
        EditorProgram program(EmptyBlocks(10));
        const QPoint first = program.Available()->visualItemRect(program.Available()->item(0)).center();
        QTest::mouseClick(program.Available()->viewport(), Qt::LeftButton, {}, first);
        QTest::mouseDClick(program.Available()->viewport(), Qt::LeftButton, {}, first);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Hit 52 Week Low")});
        const QPoint there = program.Selected()->visualItemRect(program.Selected()->item(0)).center();
        QTest::mouseClick(program.Selected()->viewport(), Qt::LeftButton, {}, there);
        QTest::mouseDClick(program.Selected()->viewport(), Qt::LeftButton, {}, there);
        QCOMPARE(program.Selected()->count(), 0);
        QCOMPARE(program.Available()->count(), 488);
    }

    void theKeysMoveNamesAndPressNoButton() {
        EditorProgram program(EmptyBlocks(10));
        program.Available()->setCurrentRow(0);
        QTest::keyClick(program.Available(), Qt::Key_Return);
        QTest::keyClick(program.Available(), Qt::Key_Enter);
        QCOMPARE(Names(program.Selected()),
                 (QStringList{QStringLiteral("Hit 52 Week Low"), QStringLiteral("Hit 52 Week High")}));
        QTest::keyClick(program.Available(), Qt::Key_Delete);
        QCOMPARE(program.Selected()->count(), 2);
        program.Selected()->setCurrentRow(0);
        QTest::keyClick(program.Selected(), Qt::Key_Delete);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Hit 52 Week High")});
        QTest::keyClick(program.Selected(), Qt::Key_Return);
        QCOMPARE(program.Selected()->count(), 0);
        QVERIFY(program.window->isVisible());
        QVERIFY(program.Read(kFile) == EmptyBlocks(10));
    }

    void theFilterShowsNamesWithAllItsWords() {
        EditorProgram program(EmptyBlocks(10));
        program.Filter()->setText(QStringLiteral("three"));
        QCOMPARE(NamesInSight(program.Available()),
                 (QStringList{QStringLiteral("Bullish Rising Three Methods"),
                              QStringLiteral("Bullish Three White Soldiers"),
                              QStringLiteral("Bearish Three Black Crows")}));
        QTest::keyClick(program.Filter(), Qt::Key_Return);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Bullish Rising Three Methods")});
        program.Filter()->setText(QStringLiteral("no such"));
        QVERIFY(NamesInSight(program.Available()).isEmpty());
        QVERIFY(!program.Part<QPushButton>("Command5")->isEnabled());
        QTest::keyClick(program.Filter(), Qt::Key_Return);
        QCOMPARE(program.Selected()->count(), 1);
        QTest::keyClick(program.Filter(), Qt::Key_Escape);
        QVERIFY(program.window->isVisible());
        QCOMPARE(NamesInSight(program.Available()).size(), 487);
        const auto hand = Dropping();
        QTest::keyClick(program.Filter(), Qt::Key_Escape);
        QVERIFY(!program.window->isVisible());
    }

    void theWholeNameGoesBeforeNamesThatHoldItsWords() {
        EditorProgram program(EmptyBlocks(10));
        program.Filter()->setText(QStringLiteral("close price above ma 15"));
        QVERIFY(program.Part<QLabel>("NameMeaning")
                    ->text()
                    .startsWith(QStringLiteral(
                        "Close is above MA 15 on the newest bar.\nClose > MA 15; more than 15 bars")));
        QTest::keyClick(program.Filter(), Qt::Key_Return);
        QCOMPARE(program.Selected()->count(), 1);
        QCOMPARE(program.Selected()->item(0)->text(), QStringLiteral("Close Price Above MA 15"));
    }

    void theHitsOfAnEditStandAtOnce() {
        EditorProgram program(Block("Buy", {"Hit 52 Week High"}) + EmptyBlocks(9), true);
        auto* hits = program.window->findChild<QLabel*>(QStringLiteral("Hits"));
        QTRY_COMPARE_WITH_TIMEOUT(hits->text(),
                                  QStringLiteral("Finds 3 of 3 tickers now, on daily bars. Hit 52 Week High "
                                                 "leaves 3 (alone 3)"),
                                  kPatienceMs);
        program.Filter()->setText(QStringLiteral("hit 52 week low"));
        QTest::keyClick(program.Filter(), Qt::Key_Return);
        QCOMPARE(hits->text(),
                 QStringLiteral("Finds 0 of 3 tickers now, on daily bars. Hit 52 Week High leaves "
                                "3 (alone 3), Hit 52 Week Low leaves 0 (alone 0)"));
        QTest::keyClick(program.window, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(hits->text(), QStringLiteral("Finds 0 of 3 tickers now, on daily bars."));
    }

    void theFindKeyGoesToTheFilterOfTheTab() {
        EditorProgram program(EmptyBlocks(10));
        program.Activate();
        program.Tabs()->setCurrentIndex(3);
        QTest::keyClick(program.window, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(program.Filter()->hasFocus());
        QTest::keyClick(program.Filter(), Qt::Key_Down);
        QVERIFY(program.Available()->hasFocus());
        QTest::keyClick(program.window, Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(program.Tabs()->currentIndex(), 4);
        QTest::keyClick(program.window, Qt::Key_PageUp, Qt::ControlModifier);
        QTest::keyClick(program.window, Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(program.Tabs()->currentIndex(), 2);
    }

    void aTickOpensItsBoxAndATextSetsTheTick() {
        EditorProgram program(EmptyBlocks(10));
        for (int slot = 1; slot <= 38; ++slot) {
            program.Check(slot)->click();
            QVERIFY(program.Text(slot)->isEnabled());
            program.Check(slot)->click();
            QVERIFY(!program.Text(slot)->isEnabled());
            program.Text(slot)->setText(QStringLiteral("5"));
            QVERIFY(program.Check(slot)->isChecked() && program.Text(slot)->isEnabled());
            program.Text(slot)->clear();
            QVERIFY(!program.Check(slot)->isChecked() && !program.Text(slot)->isEnabled());
        }
    }

    void aBoxThatIsEmptiedByHandStaysOpenUntilItIsLeft() {
        EditorProgram program(Block("Buy", {}, {"5"}) + EmptyBlocks(9));
        program.Activate();
        program.Text(1)->setFocus();
        program.Text(1)->end(false);
        QTest::keyClick(program.Text(1), Qt::Key_Backspace);
        QVERIFY(!program.Check(1)->isChecked());
        QTest::keyClicks(program.Text(1), QStringLiteral("7"));
        QVERIFY(program.Check(1)->isChecked());
        QTest::keyClick(program.Text(1), Qt::Key_Backspace);
        program.Available()->setFocus();
        QVERIFY(!program.Text(1)->isEnabled());
    }

    void theMeaningOfASlotIsTold() {
        EditorProgram program(Block("Buy", {}, {"abc"}) + EmptyBlocks(9));
        program.Activate();
        auto* meaning = program.Part<QLabel>("Meaning");
        program.Text(1)->setFocus();
        QCOMPARE(meaning->text(),
                 QStringLiteral("Volume/Average Volume > X: holds at X or more. The volume of the newest bar "
                                "as a multiple of the average volume of the window. X is no number here and "
                                "counts as 0."));
        program.Check(18)->setFocus();
        QCOMPARE(meaning->text(), QStringLiteral("P/E < X: holds at X or less. Price of a share over the "
                                                 "earnings per share of the last twelve months."));
    }

    void applyWritesAllTenAndTheWindowStays() {
        EditorProgram program(EmptyBlocks(10));
        program.Available()->setCurrentRow(0);
        program.PressInPanel("Command5");
        program.Part<QComboBox>("Combo1")->setCurrentText(QStringLiteral("Sell"));
        program.Text(38)->setText(QStringLiteral("-4"));
        program.Text(1)->setText(QStringLiteral("5"));
        program.Check(1)->click();
        program.Tabs()->setCurrentIndex(9);
        program.Part<QComboBox>("Combo1")->setCurrentText(QStringLiteral("Hold"));
        program.Press("Command1");
        std::vector<std::string> slots(38);
        slots[37] = "-4";
        QCOMPARE(program.Read(kFile),
                 Block("Sell", {"Hit 52 Week Low"}, slots) + EmptyBlocks(8) + Block("Hold", {}));
        QVERIFY(program.window->isVisible());
        QCOMPARE(program.session.settings.SelectorSettings.Text(2), std::string("Sell"));
        QCOMPARE(program.session.settings.SelectorLineCount, std::size_t{410});
        QCOMPARE(program.State(),
                 QStringLiteral("Applied. The next Stock Selector run uses these conditions."));
    }

    void applyTellsWhenTheEndOfTheSetDoesNotCountYet() {
        EditorProgram program(EmptyBlocks(10));
        program.Available()->setCurrentRow(0);
        program.PressInPanel("Command5");
        QCOMPARE(program.State(), QStringLiteral("Changes are kept with Apply only."));
        program.Tabs()->setCurrentIndex(9);
        program.Text(38)->setText(QStringLiteral("1"));
        program.Press("Command1");
        QCOMPARE(program.State(), QStringLiteral("Applied. The set has changed its length: all of it counts "
                                                 "from the next start of Brantlow, or after a Clear."));
    }

    void clearEmptiesTheConditionOnShow() {
        std::string set;
        std::string expected;
        for (int i = 1; i <= 10; ++i) {
            set += Block("Sell", {"Shaven Head"}, {"7"});
            expected += i == 3 ? Block("Sell", {}) : Block("Sell", {"Shaven Head"}, {"7"});
        }
        EditorProgram program(set);
        program.Tabs()->setCurrentIndex(2);
        program.Press("Command3");
        QCOMPARE(program.Read(kFile), expected);
        QCOMPARE(program.session.settings.SelectorLineCount, std::size_t{419});
        QCOMPARE(program.Selected()->count(), 0);
        QCOMPARE(program.Available()->count(), 487);
        QVERIFY(!program.Check(1)->isChecked());
        QCOMPARE(program.Text(1)->text(), QString());
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("Sell"));
        QVERIFY(program.window->isVisible());
        program.Press("Command2");
        program.Open();
        program.Tabs()->setCurrentIndex(2);
        QCOMPARE(program.Available()->count(), 488);
    }

    void exitAndEscapeDropWhatWasNotAppliedAfterAQuestion() {
        EditorProgram program(EmptyBlocks(10));
        program.Available()->setCurrentRow(0);
        program.PressInPanel("Command5");
        {
            // Enter keeps the edits.
            DialogHand hand([](QDialog& dialog) {
                auto* box = qobject_cast<QMessageBox*>(&dialog);
                QVERIFY(box);
                QCOMPARE(
                    box->text(),
                    QStringLiteral("Changes to the conditions were not applied. Do you want to drop them?"));
                QTest::keyClick(box, Qt::Key_Return);
            });
            program.Press("Command2");
            QCOMPARE(hand.seen, 1);
        }
        QVERIFY(program.window->isVisible());
        QCOMPARE(program.Selected()->count(), 1);
        const auto hand = Dropping();
        program.Press("Command2");
        QVERIFY(!program.window->isVisible());
        QCOMPARE(program.Read(kFile), EmptyBlocks(10));
        program.Open();
        QCOMPARE(program.Selected()->count(), 0);
        program.Text(1)->setText(QStringLiteral("5"));
        QTest::keyClick(program.window, Qt::Key_Escape);
        QVERIFY(!program.window->isVisible());
        QCOMPARE(program.Read(kFile), EmptyBlocks(10));
    }

    void nothingIsAskedWhereNothingWasChanged() {
        EditorProgram program(EmptyBlocks(10));
        program.Text(1)->setText(QStringLiteral("5"));
        program.Press("Command1");
        DialogHand hand([](QDialog& dialog) { dialog.reject(); });
        program.Press("Command2");
        QVERIFY(!program.window->isVisible());
        QCOMPARE(hand.seen, 0);
    }

    void undoTakesEditsAndAClearBack() {
        EditorProgram program(Block("Sell", {"Shaven Head"}, {"7"}) + EmptyBlocks(9));
        program.Activate();
        auto* undo = program.window->findChild<QPushButton*>(QStringLiteral("Undo"));
        QVERIFY(!undo->isEnabled());
        program.Tabs()->setCurrentIndex(1);
        program.Available()->setCurrentRow(0);
        program.PressInPanel("Command5");
        QCOMPARE(undo->toolTip(), QStringLiteral("Undo edit of Condition 2 (Ctrl+Z)"));
        program.Tabs()->setCurrentIndex(0);
        program.Press("Command3");
        QCOMPARE(program.Selected()->count(), 0);
        QCOMPARE(undo->toolTip(), QStringLiteral("Undo Clear of Condition 1 (Ctrl+Z)"));
        const std::string cleared = program.Read(kFile);
        program.Available()->setFocus();
        QTest::keyClick(program.Available(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Shaven Head")});
        QCOMPARE(program.Text(1)->text(), QStringLiteral("7"));
        QVERIFY(program.Check(1)->isChecked());
        QCOMPARE(program.State(), QStringLiteral("Changes are kept with Apply only."));
        QCOMPARE(program.Read(kFile), cleared);
        // The next step was made on another tab, which is shown.
        program.Press("Undo");
        QCOMPARE(program.Tabs()->currentIndex(), 1);
        QCOMPARE(program.Selected()->count(), 0);
        QVERIFY(!undo->isEnabled());
        program.Press("Command1");
        QCOMPARE(program.Read(kFile), Block("Sell", {"Shaven Head"}, {"7"}) + EmptyBlocks(9));
    }

    void theUndoKeyWorksFromABoxThatHasNothingToUndo() {
        EditorProgram program(Block("Sell", {"Shaven Head"}, {"7"}) + EmptyBlocks(9));
        program.Activate();
        // Where the editor opens.
        auto* filter = qobject_cast<QLineEdit*>(program.window->focusWidget());
        QVERIFY(filter);
        program.Press("Command3");
        filter->setFocus();
        QTest::keyClick(filter, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Shaven Head")});
        // What was typed into the box goes first.
        program.Press("Command3");
        filter->setFocus();
        QTest::keyClicks(filter, QStringLiteral("ma"));
        QTest::keyClick(filter, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(filter->text(), QString());
        QCOMPARE(program.Selected()->count(), 0);
        QTest::keyClick(filter, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Shaven Head")});
    }

    void aConditionIsCopiedToAnother() {
        EditorProgram program(Block("Sell", {"Shaven Head"}, {"7"}) + EmptyBlocks(9));
        auto* menu = program.window->findChild<QPushButton*>(QStringLiteral("CopyTo"))->menu();
        QVERIFY(menu);
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 10);
        QVERIFY(!menu->actions().at(0)->isEnabled());
        QVERIFY(menu->actions().at(3)->isEnabled());
        menu->actions().at(3)->trigger();
        QCOMPARE(program.Tabs()->currentIndex(), 3);
        QCOMPARE(Names(program.Selected()), QStringList{QStringLiteral("Shaven Head")});
        QCOMPARE(program.Available()->count(), 487);
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("Sell"));
        QCOMPARE(program.Text(1)->text(), QStringLiteral("7"));
        program.Press("Command1");
        QCOMPARE(program.Read(kFile), Block("Sell", {"Shaven Head"}, {"7"}) + EmptyBlocks(2) +
                                          Block("Sell", {"Shaven Head"}, {"7"}) + EmptyBlocks(6));
        program.Press("Undo");
        QCOMPARE(program.Selected()->count(), 0);
        QCOMPARE(program.Part<QComboBox>("Combo1")->currentText(), QStringLiteral("Buy"));
    }

    void theOverviewTellsAllTenAndLeadsToOne() {
        EditorProgram program(Block("Buy", {"Hit 52 Week High"}) +
                                  Block("Sell", {"Hit 52 Week Low", "Shaven Head"}, {"7"}) + EmptyBlocks(8),
                              true);
        program.Press("Overview");
        auto* overview = program.window->findChild<ConditionOverview*>();
        QVERIFY(overview && overview->isVisible());
        auto* table = overview->findChild<QTableWidget*>(QStringLiteral("Overview"));
        QCOMPARE(table->rowCount(), 10);
        QTRY_COMPARE_WITH_TIMEOUT(table->item(0, 3)->text(), QStringLiteral("3"), kPatienceMs);
        QCOMPARE(table->item(1, 3)->text(), QStringLiteral("0"));
        QCOMPARE(table->item(0, 1)->text(), QStringLiteral("Buy"));
        QCOMPARE(table->item(1, 1)->text(), QStringLiteral("Sell"));
        const QStringList lines = table->item(1, 2)->text().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines.at(1), QStringLiteral("Shaven Head"));
        QVERIFY2(lines.at(2).endsWith(QStringLiteral(" 7")), qPrintable(lines.at(2)));
        QCOMPARE(table->item(9, 2)->text(), QStringLiteral("no line: it never holds"));
        table->selectRow(4);
        QTest::keyClick(table, Qt::Key_Return);
        QCOMPARE(program.Tabs()->currentIndex(), 4);
        QVERIFY(!overview->isVisible());
    }

    void withoutATableTheOverviewCountsNothing() {
        EditorProgram program(EmptyBlocks(10));
        program.Press("Command2");
        program.frame->Run("mnuFileClose");
        program.Open();
        program.Press("Overview");
        auto* table = program.window->findChild<QTableWidget*>(QStringLiteral("Overview"));
        QCOMPARE(table->item(0, 3)->text(), QStringLiteral("-"));
    }

    void aFileThatCannotBeWrittenIsTold() {
        EditorProgram program(EmptyBlocks(10));
        program.Available()->setCurrentRow(0);
        program.PressInPanel("Command5");
        std::filesystem::remove(program.session.DataFile(kFile));
        std::filesystem::create_directories(program.session.DataFile(kFile) / "in the way");
        QStringList told;
        for (const char* button : {"Command1", "Command3"}) {
            DialogHand hand([&](QDialog& dialog) {
                if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                    told.append(box->text());
                    PressButton(dialog, QMessageBox::Ok);
                }
            });
            program.Press(button);
        }
        QCOMPARE(told.size(), 2);
        for (const QString& text : told) {
            QVERIFY2(text.startsWith(QStringLiteral("VTRSELset.ini: cannot be saved (")), qPrintable(text));
        }
        QCOMPARE(program.Selected()->count(), 1);
    }

    void theNextRunUsesTheNewSet() {
        EditorProgram program(Block("Buy", {"Hit 52 Week Low"}) + EmptyBlocks(9));
        for (const char* ticker : {"T1", "T2", "T3"}) {
            const Path year = program.session.AppPath / "Quotes" / "EOD" / (std::string(ticker) + ".23");
            QVERIFY(!WriteWholeFile(year, History(), Flush::Later));
        }
        program.Selected()->setCurrentRow(0);
        program.PressInPanel("Command6");
        program.Filter()->setText(QStringLiteral("52 week high"));
        QTest::keyClick(program.Filter(), Qt::Key_Return);
        program.Part<QComboBox>("Combo1")->setCurrentText(QStringLiteral("Sell"));
        program.Press("Command1");
        program.Press("Command2");
        program.frame->Run("mnuEvaluatePickStocks");
        auto* selection = program.frame->findChild<frmSelectorSelection*>();
        QVERIFY(selection);
        selection->findChild<QPushButton*>(QStringLiteral("Command1"))->click();
        const QAbstractItemModel* table = program.frame->QuoteForm()->View()->model();
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(table->index(row, 1).data().toString(), QStringLiteral("Sell"));
            QCOMPARE(table->index(row, 2).data().toString(), QString());
        }
    }

    void aFileOfJunkOpensAndKeepsItsBytes() {
        std::string set = Block("Buy", {"\xff\xfe\x01 \xe4", "No Such Name"}, {"\x80 5"}) + EmptyBlocks(9);
        EditorProgram program(set);
        QCOMPARE(program.Selected()->count(), 2);
        program.Part<QComboBox>("Combo1")->setCurrentText(QStringLiteral("Hold"));
        program.Press("Command1");
        set.replace(set.find("Buy"), 3, "Hold");
        QCOMPARE(program.Read(kFile), set);
    }

    void aFileOfEighteenThousandLinesOpens() {
        std::string set = Line("Condition") + Line("Buy");
        for (int i = 0; i < 20000; ++i) set += Line("Name " + std::to_string(i));
        EditorProgram program(set);
        QCOMPARE(program.Selected()->count(), 17998);
        program.Selected()->setCurrentRow(17997);
        program.PressInPanel("Command6");
        QCOMPARE(program.Available()->count(), 489);
        program.Press("Command1");
        QVERIFY(program.Read(kFile).starts_with(set.substr(0, set.find("\"Name 17997\""))));
    }
};

WINDOW_TEST(StockSelectorSettingsTest)
#include "frmStockSelectorSettings_test.moc"
