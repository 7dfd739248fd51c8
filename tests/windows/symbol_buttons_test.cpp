// Adding and deleting tickers and setting alarms with the buttons and keys above the quote table.
#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

#include "shell/settings/lines.h"
#include "store/table_colours.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

const QString kSaveFirst = QStringLiteral("Save this file as another name before editing.");

// A frame with a table of T1, T2 and T3 that saves by itself, and a web that has one day of each ticker.
class EditProgram : public Program {
  public:
    explicit EditProgram(const std::string& years = "5", const std::string& saves = "Automatic Save") {
        std::string data;
        for (int line = 1; line <= 19; ++line) {
            std::string text = line == 7 ? saves : "line " + std::to_string(line);
            if (line == 6) text = years;
            data += "\"" + text + "\"\r\n";
        }
        Write("VTRDATAset.ini", data);
        web.AnswerWith([this](const WebRequest&) {
            if (onRequest) onRequest();
            return MemoryWeb::Page("Date,Open,High,Low,Close,Volume,Adj\n2026-03-06,10,12,9,11,500,11\n");
        });
        Start("Jan.ddq");
    }

    QLineEdit* Box(const char* name) { return Find<QLineEdit>(name); }
    void Type(const char* symbol, const char* high = "", const char* low = "") {
        Box("Text1")->setText(QString::fromLatin1(symbol));
        Box("Text2")->setText(QString::fromLatin1(high));
        Box("Text3")->setText(QString::fromLatin1(low));
    }
    QStringList BoxTexts() { return {Box("Text1")->text(), Box("Text2")->text(), Box("Text3")->text()}; }

    QuoteTable& Table() { return frame->QuoteForm()->Table(); }
    std::string Cell(std::size_t row, const char* header) {
        return Table().Text(row, Table().ColumnOf(header).value());
    }
    std::vector<std::string> Tickers() {
        std::vector<std::string> tickers;
        for (std::size_t row = 1; row <= Table().TickerCount(); ++row) tickers.push_back(Table().Ticker(row));
        return tickers;
    }
    QStringList ShownTickers() {
        QAbstractItemModel* model = frame->QuoteForm()->View()->model();
        QStringList tickers;
        for (int row = 0; row < model->rowCount(); ++row) tickers << model->index(row, 0).data().toString();
        return tickers;
    }
    Path HistoryFile(const std::string& name) { return Path(session.settings.QuoteFolder) / name; }
    std::string History(const std::string& name) { return BytesOrEmpty(HistoryFile(name)); }
    void StoreHistory(const std::string& name) {
        if (WriteWholeFile(HistoryFile(name), "\"03/05/26\",\"\",9\r\n")) qFatal("cannot store");
    }

    std::function<void()> onRequest;
};

// The text of the box that `act` opens; empty when none opened.
QString SaidBy(const std::function<void()>& act) {
    QString text;
    DialogHand hand([&](QDialog& dialog) {
        if (auto* box = qobject_cast<QMessageBox*>(&dialog)) text = box->text();
        PressButton(dialog, QMessageBox::Ok);
    });
    act();
    return text;
}

// Presses `button` of the window that asks about the history; its name and words are taken down.
class HistoryHand {
  public:
    explicit HistoryHand(const char* button) : button_(QString::fromLatin1(button)) {}

    QString title, text, ticker, deleteWords, focus;
    int seen() const { return hand_.seen; }

  private:
    void Answer(QDialog& dialog) {
        if (dialog.objectName() != QStringLiteral("frmDeleteQuoteDataBase")) return;
        title = dialog.windowTitle();
        text = dialog.findChild<QLabel*>(QStringLiteral("Label1"))->text();
        ticker = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"))->text();
        deleteWords = dialog.findChild<QPushButton*>(QStringLiteral("Command1"))->text();
        if (dialog.focusWidget()) focus = dialog.focusWidget()->objectName();
        if (button_.isEmpty()) return dialog.reject();
        dialog.findChild<QPushButton*>(button_)->click();
    }

    QString button_;
    DialogHand hand_{[this](QDialog& dialog) { Answer(dialog); }};
};

using Tickers = std::vector<std::string>;

}  // namespace

class SymbolButtonsTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aTickerInLowerCaseIsAddedInUpperCaseWithAlarmsAndHistory() {
        EditProgram program;
        program.Type("abc", "50", "40.5");
        program.Click("CmdAdd");
        QCOMPARE(program.Tickers(), (Tickers{"ABC", "T1", "T2", "T3"}));
        QCOMPARE(program.ShownTickers(), QStringList({QStringLiteral("ABC"), QStringLiteral("T1"),
                                                      QStringLiteral("T2"), QStringLiteral("T3")}));
        QCOMPARE(program.Cell(1, "High Alarm"), std::string("50"));
        QCOMPARE(program.Cell(1, "Low Alarm"), std::string("40.5"));
        QVERIFY2(program.History("ABC.26").starts_with("\"03/06/26\""), program.History("ABC.26").c_str());
        QVERIFY(program.Read("Jan.ddq").find("\r\nABC\t") != std::string::npos);
        QCOMPARE(program.TickerCount(), QStringLiteral("4"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.BoxTexts(), QStringList({QString(), QString(), QString()}));
        QCOMPARE(program.Box("Text1")->hasFocus(), true);
    }

    void aNoToWritingOverAnothersChangeSaysThatTheTableWasNotSaved() {
        for (const char* const button : {"CmdAlarm", "CmdAdd", "CmdDelete"}) {
            EditProgram program("5", "Automatic Save");
            program.Write("Jan.ddq", "Ticker Symbol\r\nZZZ\r\n");
            QStringList told;
            DialogHand hand([&](QDialog& dialog) {
                if (dialog.objectName() == QStringLiteral("frmDeleteQuoteDataBase"))
                    return dialog.findChild<QPushButton*>(QStringLiteral("Command2"))->click();
                auto* const box = qobject_cast<QMessageBox*>(&dialog);
                QVERIFY2(box, button);
                told << box->text();
                PressButton(dialog, told.size() == 1 ? QMessageBox::No : QMessageBox::Ok);
            });
            program.Type(button == std::string_view("CmdAdd") ? "ABC" : "T2", "60");
            program.Click(button);
            QCOMPARE(told, QStringList({QStringLiteral("Jan.ddq was changed by another program since it was "
                                                       "opened. Do you want to write over those changes?"),
                                        QStringLiteral("Jan.ddq: was not saved and stays as the other "
                                                       "program left it")}));
            QCOMPARE(program.Read("Jan.ddq"), std::string("Ticker Symbol\r\nZZZ\r\n"));
        }
    }

    void theFrameIsShutButAliveWhileTheHistoryComes() {
        EditProgram program;
        QString word;
        bool shut = false, busy = false, inTable = false;
        program.onRequest = [&] {
            QCoreApplication::processEvents();
            word = program.StatusWord();
            shut = !program.frame->isEnabled();
            auto* bar = program.Find<QProgressBar>("ProgressBar1");
            busy = bar->isVisible() && bar->maximum() == 0;
            inTable = program.ShownTickers().contains(QStringLiteral("NEW"));
        };
        program.Type("NEW");
        program.Click("CmdAdd");
        QCOMPARE(word, QStringLiteral("Updating"));
        QVERIFY(shut && busy && inTable);
        QVERIFY(program.frame->isEnabled());
        QVERIFY(!program.Find<QProgressBar>("ProgressBar1")->isVisible());
        QCOMPARE(program.Find<QProgressBar>("ProgressBar1")->maximum(), 100);
    }

    void aFrameThatIsClosedMeanwhileGoesAfterwards() {
        EditProgram program;
        program.onRequest = [&] {
            program.frame->close();
            QCoreApplication::processEvents();
            QVERIFY(program.frame->isVisible());
        };
        program.Type("NEW");
        program.Click("CmdAdd");
        QCoreApplication::processEvents();
        QVERIFY(!program.frame->isVisible());
        QVERIFY(program.Read("Jan.ddq").find("\r\nNEW\t") != std::string::npos);
    }

    void aTickerThatIsThereOnlyClearsItsBox() {
        EditProgram program;
        const std::string before = program.Read("Jan.ddq");
        program.Type("t2", "7", "3");
        QCOMPARE(SaidBy([&] { program.Click("CmdAdd"); }), QString());
        QCOMPARE(program.BoxTexts(), QStringList({QString(), QStringLiteral("7"), QStringLiteral("3")}));
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
        QCOMPARE(program.Read("Jan.ddq"), before);
        QVERIFY(program.web.Addresses.empty());
    }

    void deviceNamesAreClearedAtAdd() {
        for (const char* name : {"NUL", "con", "Prn", "AUX", "nul.x", "AUX.B"}) {
            EditProgram program;
            program.Type(name, "7");
            QCOMPARE(SaidBy([&] { program.Click("CmdAdd"); }), QString());
            QCOMPARE(program.BoxTexts(), QStringList({QString(), QStringLiteral("7"), QString()}));
            QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
        }
    }

    void anEmptyBoxIsTold() {
        struct Row {
            const char *button, *text;
        };
        const Row rows[] = {
            {"CmdAdd", "Enter a Ticker Symbol in the Symbol Box before selecting Add"},
            {"CmdDelete", "Enter a Ticker Symbol in the Symbol Box before selecting Delete"},
            {"CmdAlarm", "Enter a Ticker Symbol in the Symbol Box before selecting Edit"},
        };
        EditProgram program;
        for (const Row& row : rows) {
            for (const char* typed : {"", " "}) {
                program.Type(typed);
                QCOMPARE(SaidBy([&] { program.Click(row.button); }), QString::fromLatin1(row.text));
            }
        }
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
    }

    void aNewTableRefusesEditsWithOneSentence() {
        EditProgram program;
        program.frame->Run("mnuFileNewEODQuoteFile");
        for (const char* button : {"CmdAdd", "CmdDelete", "CmdAlarm"}) {
            program.Type("IBM");
            QVERIFY(program.Find<QPushButton>(button)->isVisible());
            QCOMPARE(SaidBy([&] { program.Click(button); }), kSaveFirst);
            QCOMPARE(program.BoxTexts().constFirst(), QStringLiteral("IBM"));
        }
        QCOMPARE(program.Table().TickerCount(), std::size_t{0});
    }

    void withoutYearsNothingIsFetchedAndManualSaveLeavesTheFile() {
        EditProgram program("", "Manual Save");
        const std::string before = program.Read("Jan.ddq");
        program.Type("NEW");
        program.Click("CmdAdd");
        QCOMPARE(program.Tickers(), (Tickers{"NEW", "T1", "T2", "T3"}));
        QVERIFY(program.web.Addresses.empty());
        QCOMPARE(program.Read("Jan.ddq"), before);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
    }

    void aTickerForWhichNothingComesStandsInTheTable() {
        EditProgram program;
        program.web.AnswerWith(
            [](const WebRequest&) { return FailedReply(WebFailure::NoConnection, "no such host"); });
        program.Type("NEW");
        QCOMPARE(SaidBy([&] { program.Click("CmdAdd"); }), QString());
        QCOMPARE(program.Tickers(), (Tickers{"NEW", "T1", "T2", "T3"}));
        QCOMPARE(program.History("NEW.26"), std::string());
    }

    void aHistoryThatIsThereIsToldAndKept() {
        EditProgram program;
        program.StoreHistory("NEW.26");
        const std::string before = program.History("NEW.26");
        program.Type("NEW");
        const QString said = SaidBy([&] { program.Click("CmdAdd"); });
        QVERIFY2(
            said.startsWith(QStringLiteral("Data for this Ticker Symbol already exists in your database. ")),
            qPrintable(said));
        QCOMPARE(program.History("NEW.26"), before);
        QVERIFY(program.Tickers() == (Tickers{"NEW", "T1", "T2", "T3"}));
    }

    void theNewRowStandsWhereTheCurrentColumnSortsIt() {
        EditProgram program;
        program.frame->QuoteForm()->View()->SetCurrentColumn(1);
        program.Type("ZZ");
        program.Click("CmdAdd");
        // An empty last price comes before all prices.
        QCOMPARE(program.Tickers(), (Tickers{"ZZ", "T1", "T2", "T3"}));
        QCOMPARE(program.frame->QuoteForm()->CurrentColumn(), std::size_t{1});
    }

    void blanksAroundATickerAreNotPartOfIt() {
        EditProgram program;
        program.Type("  new \t", " 5 ");
        program.Click("CmdAdd");
        QCOMPARE(program.Tickers(), (Tickers{"NEW", "T1", "T2", "T3"}));
        QCOMPARE(program.Cell(1, "High Alarm"), std::string("5"));
    }

    void aTickerThatCannotBeAskedForIsRefusedWithASentence() {
        EditProgram program;
        program.Type("ne w");
        const QStringList told = BoxesOf([&] { program.Click("CmdAdd"); });
        QCOMPARE(told, QStringList{QStringLiteral(
                           "NE W: a ticker with a blank or one of & # ? % , cannot be asked for")});
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
    }

    void withALiveSourceForQuotesATickerWithAnAmpersandIsAdded() {
        EditProgram program;
        Set(program.session.settings, kLiveQuotes, "yahoo");
        program.Type("m&m.ns");
        const QStringList told = BoxesOf([&] { program.Click("CmdAdd"); });
        QCOMPARE(told, QStringList());
        QCOMPARE(program.Tickers(), (Tickers{"M&M.NS", "T1", "T2", "T3"}));
    }

    void enterInTheSymbolBoxAdds() {
        EditProgram program;
        program.Type("new");
        QTest::keyClick(program.Box("Text1"), Qt::Key_Return);
        QCOMPARE(program.Tickers(), (Tickers{"NEW", "T1", "T2", "T3"}));
    }

    void enterBehindTheAlarmsSetsThoseOfATickerThatIsThere() {
        EditProgram program;
        program.Type("t2", "8", "4");
        QTest::keyClick(program.Box("Text3"), Qt::Key_Return);
        QCOMPARE(program.Cell(2, "High Alarm"), std::string("8"));
        QCOMPARE(program.Cell(2, "Low Alarm"), std::string("4"));
        program.Type("t9", "8", "4");
        QTest::keyClick(program.Box("Text2"), Qt::Key_Return);
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3", "T9"}));
        program.Type("", "8", "4");
        QCOMPARE(SaidBy([&] { QTest::keyClick(program.Box("Text3"), Qt::Key_Return); }),
                 QStringLiteral("Enter a Ticker Symbol in the Symbol Box before selecting Edit"));
    }

    void deletingAsksAboutTheHistoryInItsWords() {
        EditProgram program;
        program.StoreHistory("T2.26");
        program.Type("t2", "1", "2");
        HistoryHand hand("Command2");
        program.Click("CmdDelete");
        QCOMPARE(hand.seen(), 1);
        QCOMPARE(hand.title, QStringLiteral("Delete Quotes from Database"));
        QCOMPARE(hand.text, QStringLiteral("Would you like to delete the Quote Data from the Database for "
                                           "this Ticker Symbol?"));
        QCOMPARE(hand.ticker, QStringLiteral("T2"));
        QCOMPARE(hand.deleteWords, QStringLiteral("Delete"));
        QCOMPARE(hand.focus, QStringLiteral("Command2"));
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T3"}));
        QCOMPARE(program.ShownTickers(), QStringList({QStringLiteral("T1"), QStringLiteral("T3")}));
        QVERIFY(!program.History("T2.26").empty());
        QVERIFY(program.Read("Jan.ddq").find("T2") == std::string::npos);
        QCOMPARE(program.TickerCount(), QStringLiteral("2"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        QCOMPARE(program.BoxTexts(), QStringList({QString(), QString(), QString()}));
    }

    void deleteTakesTheWholeHistoryOfThisTickerAlone() {
        EditProgram program;
        for (const char* name : {"T2.26", "T2.25", "T22.26", "T1.26"}) program.StoreHistory(name);
        program.Type("T2");
        HistoryHand hand("Command1");
        program.Click("CmdDelete");
        QVERIFY(program.History("T2.26").empty() && program.History("T2.25").empty());
        QVERIFY(!program.History("T22.26").empty() && !program.History("T1.26").empty());
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T3"}));
    }

    void escapeAndCancelLeaveTheTickerAndItsHistory() {
        for (const char* button : {"", "cmdCancel"}) {
            EditProgram program;
            program.StoreHistory("T2.26");
            const std::string before = program.Read("Jan.ddq");
            program.Type("T2");
            HistoryHand hand(button);
            program.Click("CmdDelete");
            QCOMPARE(hand.seen(), 1);
            QVERIFY(!program.History("T2.26").empty());
            QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
            QCOMPARE(program.Read("Jan.ddq"), before);
            QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
            QCOMPARE(program.BoxTexts().constFirst(), QStringLiteral("T2"));
        }
    }

    void theQuestionHasThreeAnswers() {
        EditProgram program;
        program.Type("T2");
        QStringList words;
        DialogHand hand([&](QDialog& dialog) {
            for (const QPushButton* button : dialog.findChildren<QPushButton*>()) words << button->text();
            dialog.reject();
        });
        program.Click("CmdDelete");
        words.sort();
        QCOMPARE(words, QStringList({QStringLiteral("Cancel"), QStringLiteral("Delete"),
                                     QStringLiteral("Keep History")}));
    }

    void undoBringsASavedRowBack() {
        for (const char* button : {"Command1", "Command2"}) {
            EditProgram program;
            program.StoreHistory("T2.26");
            const std::string before = program.Read("Jan.ddq");
            program.Type("T2");
            HistoryHand hand(button);
            program.Click("CmdDelete");
            QCOMPARE(program.Tickers(), (Tickers{"T1", "T3"}));
            const QPointer<frmQuoteGrid> form = program.frame->QuoteForm();
            program.frame->Run("mnuEditUndo");
            QCOMPARE(program.Read("Jan.ddq"), before);
            QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
            QVERIFY(!program.History("T2.26").empty());
            // In the window that it went from.
            QCOMPARE(program.frame->QuoteForm(), form.data());
            QCOMPARE(form->SelectedTicker(), std::string("T2"));
            QCOMPARE(program.session.CurrentTicker, std::string("T2"));
            QCOMPARE(program.TickerCount(), QStringLiteral("3"));
            QCOMPARE(program.Find<QLabel>("Panel4")->text(), QStringLiteral("3 rows"));
            program.frame->Run("mnuEditUndo");
            QCOMPARE(program.Tickers(), (Tickers{"T1", "T3"}));
            QCOMPARE(program.frame->QuoteForm(), form.data());
            QCOMPARE(form->SelectedTicker(), std::string("T1"));
        }
    }

    void anUndoneRowKeepsTheFilterThatHidesNoneOfIt() {
        EditProgram program;
        program.Find<QLineEdit>("txtFilter")->setText(QStringLiteral("T"));
        program.Type("T2");
        HistoryHand hand("Command2");
        program.Click("CmdDelete");
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Find<QLineEdit>("txtFilter")->text(), QStringLiteral("T"));
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
    }

    void aTableThatCannotBeReadAgainStaysAsItIsShown() {
        EditProgram program;
        const Path file = program.session.DataFile("Jan.ddq");
        std::filesystem::remove(file);
        std::filesystem::create_directory(file);
        QVERIFY(!program.frame->QuoteForm()->Reload().Done());
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
    }

    void undoBringsARowBackThatWasNotSaved() {
        EditProgram program("", "Manual Save");
        program.Type("T2", "60", "5");
        program.Click("CmdAlarm");
        HistoryHand hand("Command2");
        program.Click("CmdDelete");
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T3"}));
        Q_EMIT program.frame->Commands().Menu("mnuEdit")->aboutToShow();
        QCOMPARE(program.frame->Commands().Entry("mnuEditUndo")->text(), QStringLiteral("Undo Delete T2"));
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
        QCOMPARE(program.Cell(2, "High Alarm"), std::string("60"));
        QCOMPARE(program.frame->QuoteForm()->SelectedTicker(), std::string("T2"));
        QCOMPARE(program.TickerCount(), QStringLiteral("3"));
    }

    void aNewRowIsSelectedAndInSight() {
        EditProgram program("", "Manual Save");
        program.Write("Big.ddq", Program::QuoteTableText(500));
        program.session.settings.MruSettings.Set(1, Value::OfText("Big.ddq"));
        program.frame->OpenRecentFile(1);
        program.Type("ZZZ");
        program.Click("CmdAdd");
        auto& view = *program.frame->QuoteForm()->View();
        QCOMPARE(program.frame->QuoteForm()->SelectedTicker(), std::string("ZZZ"));
        const QModelIndex row = view.selectionModel()->selectedRows().value(0);
        QCOMPARE(row.data().toString(), QStringLiteral("ZZZ"));
        QVERIFY(view.viewport()->rect().contains(view.visualRect(row.siblingAtColumn(1)).center()));
        QCOMPARE(program.BoxTexts(), QStringList({QString(), QString(), QString()}));
        QCOMPARE(program.session.CurrentTicker, std::string("ZZZ"));
    }

    void alarmsThatCannotBeAreRefusedWithASentence() {
        struct Row {
            const char *high, *low, *sentence;
        };
        const Row rows[] = {
            {"11", "13", "The low alarm 13 is above the high alarm 11."},
            {"nothing", "", "The high alarm has to be a price: nothing"},
            {"", "x", "The low alarm has to be a price: x"},
            {"-5", "", "The high alarm has to be a price: -5"},
        };
        EditProgram program;
        const std::string before = program.Read("Jan.ddq");
        for (const Row& row : rows) {
            for (const auto& [symbol, button] : {std::pair("T2", "CmdAlarm"), std::pair("NEW", "CmdAdd")}) {
                program.Type(symbol, row.high, row.low);
                QCOMPARE(SaidBy([&] { program.Click(button); }), QString::fromLatin1(row.sentence));
                QCOMPARE(program.BoxTexts().at(1), QString::fromLatin1(row.high));
            }
        }
        QCOMPARE(program.Read("Jan.ddq"), before);
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2", "T3"}));
    }

    void theLastTickerStaysWithoutAWord() {
        EditProgram program;
        program.Write("One.ddq", Program::QuoteTableText(1));
        program.session.settings.MruSettings.Set(1, Value::OfText("One.ddq"));
        program.frame->OpenRecentFile(1);
        program.StoreHistory("T1.26");
        for (const char* typed : {"T1", ""}) {
            program.Type(typed);
            QCOMPARE(SaidBy([&] { program.Click("CmdDelete"); }), QString());
            QCOMPARE(program.Tickers(), Tickers{"T1"});
            QCOMPARE(program.BoxTexts().constFirst(), QString::fromLatin1(typed));
        }
        QVERIFY(!program.History("T1.26").empty());
    }

    void afterAnEditTheTableIsAtItsTopWithNothingSelected() {
        EditProgram program;
        auto& view = *program.frame->QuoteForm()->View();
        view.selectRow(2);
        QCOMPARE(program.session.CurrentTicker, std::string("T3"));
        HistoryHand hand("Command2");
        program.Click("CmdDelete");
        QCOMPARE(program.Tickers(), (Tickers{"T1", "T2"}));
        QVERIFY(!view.selectionModel()->hasSelection());
        QCOMPARE(program.session.CurrentTicker, std::string());
    }

    void anAlarmIsSetChangedAndRemoved() {
        EditProgram program;
        program.Type("t2", "60", "5");
        program.Click("CmdAlarm");
        QCOMPARE(program.Cell(2, "High Alarm"), std::string("60"));
        QCOMPARE(program.Cell(2, "Low Alarm"), std::string("5"));
        QVERIFY(program.Read("Jan.ddq").find("\t60\t5\r\n") != std::string::npos);
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        program.Type("T2", "", "6");
        program.Click("CmdAlarm");
        QCOMPARE(program.Cell(2, "High Alarm"), std::string());
        QCOMPARE(program.Cell(2, "Low Alarm"), std::string("6"));
        program.Type("T2");
        program.Click("CmdAlarm");
        QCOMPARE(program.Cell(2, "Low Alarm"), std::string());
        QVERIFY(program.Read("Jan.ddq").find("\t6\r\n") == std::string::npos);
    }

    // T2 has a last price of 12.
    void theLastPriceTakesTheColourOfItsAlarm() {
        struct Row {
            const char *high, *low;
            QColor colour;
            bool bold;
        };
        const Row rows[] = {{"12", "", QColor(1, 100, 1), true},   {"12.001", "", QColor(1, 1, 1), false},
                            {"", "12", QColor(150, 1, 1), true},   {"", "11.999", QColor(1, 1, 1), false},
                            {"12", "12", QColor(1, 100, 1), true}, {"0", "0", QColor(1, 1, 1), false},
                            {"", "", QColor(1, 1, 1), false}};
        EditProgram program;
        for (const Row& row : rows) {
            program.Type("T2", row.high, row.low);
            program.Click("CmdAlarm");
            const QModelIndex last = program.frame->QuoteForm()->View()->model()->index(1, 1);
            QVERIFY2(last.data(Qt::ForegroundRole).value<QColor>() == row.colour, row.high);
            QCOMPARE(last.data(Qt::FontRole).value<QFont>().bold(), row.bold);
        }
    }

    void anAlarmOfATickerThatIsNotThereChangesNothing() {
        EditProgram program;
        const std::string before = program.Read("Jan.ddq");
        program.Type("XYZ", "60", "5");
        QCOMPARE(SaidBy([&] { program.Click("CmdAlarm"); }), QString());
        QCOMPARE(program.Read("Jan.ddq"), before);
        QVERIFY(program.web.Addresses.empty());
    }

    void aTableThatCannotBeSavedIsTold() {
        EditProgram program;
        std::filesystem::remove(program.session.DataFile("Jan.ddq"));
        std::filesystem::create_directory(program.session.DataFile("Jan.ddq"));
        program.Type("T2", "60", "5");
        const QString said = SaidBy([&] { program.Click("CmdAlarm"); });
        QVERIFY2(said.startsWith(QStringLiteral("Jan.ddq: cannot be saved (")), qPrintable(said));
    }

    void theKindOfTheFileSaysWhatIsShown() {
        EditProgram program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.Write("Old.efq", EfqHeader() + "\r\nT1\r\n");
        const char* parts[] = {"CmdAdd", "CmdDelete", "CmdAlarm", "Text2", "Text3", "Frame2", "Frame3"};
        const std::pair<const char*, bool> files[] = {
            {"Jan.ddq", true}, {"New EOD Quotes.db", true}, {"Old.dbe", false}, {"Old.efq", false}};
        for (const auto& [file, shown] : files) {
            program.session.settings.MruSettings.Set(1, Value::OfText(file));
            program.frame->OpenRecentFile(1);
            for (const char* part : parts) {
                auto* widget = program.frame->QuoteForm()->findChild<QWidget*>(QString::fromLatin1(part));
                QVERIFY2(widget && widget->isVisible() == shown, part);
            }
            QVERIFY(program.Box("Text1")->isVisible());
        }
        QTest::keyClick(program.Box("Text1"), Qt::Key_Return);
        QCOMPARE(program.Tickers(), Tickers{"T1"});
        DialogHand hand([](QDialog& dialog) { PressButton(dialog, QMessageBox::No); });
        program.frame->Run("mnuFileClose");
    }

    void nothingIsCutInANarrowWindow() {
        EditProgram program;
        for (const int width : {1400, 1024, 512}) {
            program.frame->resize(width, 700);
            QCoreApplication::processEvents();
            QWidget* strip = program.Box("Text1")->parentWidget()->parentWidget();
            for (QWidget* part : strip->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
                if (!part->isVisible()) continue;
                QVERIFY2(strip->rect().contains(part->geometry()), qPrintable(part->objectName()));
                QVERIFY(part->width() >= part->sizeHint().width());
            }
        }
    }

    void aFullTableOfEighteenThousandLinesIsEdited() {
        EditProgram program("", "Manual Save");
        program.Write("Big.ddq", Program::QuoteTableText(17998));
        program.session.settings.MruSettings.Set(1, Value::OfText("Big.ddq"));
        program.frame->OpenRecentFile(1);
        program.Type("AAA");
        program.Click("CmdAdd");
        QCOMPARE(program.TickerCount(), QStringLiteral("17999"));
        QCOMPARE(program.Table().Ticker(1), std::string("AAA"));
        program.Type("AAB");
        program.Click("CmdAdd");
        QCOMPARE(program.Table().TickerCount(), std::size_t{17999});
        program.Type("T17998");
        HistoryHand hand("Command2");
        program.Click("CmdDelete");
        QCOMPARE(program.Table().TickerCount(), std::size_t{17998});
        QCOMPARE(program.frame->QuoteForm()->View()->model()->rowCount(), 17998);
    }
};

WINDOW_TEST(SymbolButtonsTest)
#include "symbol_buttons_test.moc"
