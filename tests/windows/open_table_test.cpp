// The buttons above the quote table: what they say, when they are shown, and what they do to the table.
#include <QAbstractItemView>
#include <QAction>
#include <QProgressBar>
#include <QPushButton>

#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/quote_strip.h"
#include "store/year_files.h"
#include "support/table_lines.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// The settings of an import from and an export to the Data folder: ticker, last price and trade date.
constexpr const char* kOpenedExchange =
    "\"Comma Delimited\"\r\n\"Data\"\r\n\"Out.Txt\"\r\n\"Comma Delimited\"\r\n\"Data\"\r\n\"In.Txt\"\r\n"
    "\"0\"\r\n\"0\"\r\n\"01/02/04\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"End Export File\"\r\n"
    "\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"Trade Date\"\r\n\"End Import File\"\r\n";

// The text of the box that `act` opens; a question is answered with No.
QString BoxOf(const std::function<void()>& act) {
    QString text;
    DialogHand hand([&](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        if (!box) return;
        text = box->text();
        PressButton(dialog, box->button(QMessageBox::Ok) ? QMessageBox::Ok : QMessageBox::No);
    });
    act();
    return text;
}

std::vector<std::string> TickersOf(const QuoteTable& table) {
    std::vector<std::string> tickers;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) tickers.push_back(table.Ticker(row));
    return tickers;
}

void Open(Program& program, const char* name) {
    program.session.settings.MruSettings.Set(1, Value::OfText(name));
    program.frame->OpenRecentFile(1);
    QCoreApplication::processEvents();
}

}  // namespace

class OpenTableTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theButtonsHaveTheirWordsAndToolTips() {
        struct Row {
            const char *id, *words, *toolTip;
        };
        const Row rows[] = {
            {"CmdAdd", "Add Symbol", "Add Ticker Symbol to Database"},
            {"CmdDelete", "Delete Symbol", "Delete Ticker Symbol from the Database"},
            {"CmdAlarm", "Edit Alarm", "Add or Edit High and Low Price Alarms"},
            {"CmdUpdateQuotes", "Update Quotes", "Continuous Update of Intraday Real Time Quotes"},
            {"CommandImport", "Import File", "Import quotes from another program's file"},
            {"CommandExport", "Export File", "Export End of Day (EOD), Detailed Quotes to Another Program"},
        };
        QCOMPARE(std::size(rows), kStripButtons.size());
        Program program;
        program.Start("Jan.ddq");
        for (const Row& row : rows) {
            auto* button = program.Find<QPushButton>(row.id);
            QVERIFY2(button, row.id);
            QCOMPARE(button->text(), QString::fromLatin1(row.words));
            QCOMPARE(button->toolTip(), QString::fromLatin1(row.toolTip));
        }
    }

    void theKindOfTheFileSaysWhichAreShown() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\r\n");
        program.Write("Old.efq", EfqHeader() + "\r\nT1\r\n");
        program.Start("Jan.ddq");
        struct Row {
            const char* file;
            bool shown;
        };
        for (const Row& row :
             {Row{"Jan.ddq", true}, {"New EOD Quotes.db", true}, {"Old.dbe", false}, {"Old.efq", false}}) {
            Open(program, row.file);
            auto* form = program.frame->QuoteForm();
            QVERIFY2(form->findChild<QPushButton*>(QStringLiteral("CommandExport"))->isVisible(), row.file);
            const bool shown = form->findChild<QPushButton*>(QStringLiteral("CommandImport"))->isVisible();
            QVERIFY2(shown == row.shown, row.file);
        }
    }

    void anImportFillsTheTableAndTheDatabaseAndConsumesItsFile() {
        Program program;
        program.Write("VTRIMEXset.ini", kOpenedExchange);
        program.Start("Jan.ddq");
        program.Write("In.Txt", "T1,55,3/6/2026\r\nNEW,7.5,3/6/2026\r\n");
        program.Click("CommandImport");
        const QuoteTable& table = program.frame->QuoteForm()->Table();
        QCOMPARE(table.TickerCount(), std::size_t{4});
        QCOMPARE(LineText(table, 1).substr(0, 9), std::string("T1\t55.000"));
        QCOMPARE(table.Ticker(2), std::string("NEW"));
        QCOMPARE(program.TickerCount(), QStringLiteral("4"));
        QCOMPARE(program.Find<QLabel>("Panel4")->text(), QStringLiteral("4 rows"));
        QCOMPARE(program.StatusWord(), QStringLiteral("Complete"));
        auto* model = program.frame->QuoteForm()->View()->model();
        QCOMPARE(model->rowCount(), 4);
        QCOMPARE(model->index(1, 0).data().toString(), QStringLiteral("NEW"));
        QVERIFY(!std::filesystem::exists(program.session.DataFile("In.Txt")));
        const Path year = YearFilePath(program.session.settings.QuoteFolder, "NEW", "26").value();
        QVERIFY(BytesOrEmpty(year).find("7.5") != std::string::npos);
        program.Click("CommandImport");
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{4});
    }

    void undoBringsTheRowBackThatWentBecauseItsNameBeginsAnImportedLine() {
        for (const char* save : {"Automatic Save", "Manual Save"}) {
            Program program;
            program.Write("VTRIMEXset.ini", kOpenedExchange);
            program.Start("Jan.ddq");
            program.session.settings.DataSettings.Set(7, Value::OfText(save));
            const std::string before = program.Read("Jan.ddq");
            program.Write("In.Txt", "T11,55,3/6/2026\r\n");
            program.Click("CommandImport");
            const auto tickers = [&] { return TickersOf(program.frame->QuoteForm()->Table()); };
            QCOMPARE(tickers(), (std::vector<std::string>{"T11", "T2", "T3"}));
            const QString told = program.Find<QLabel>("Panel1")->text();
            QVERIFY2(told.endsWith(QStringLiteral("1 ticker left the table, because the letters of its name "
                                                  "begin another line of the file: T1")),
                     qPrintable(told));
            program.frame->Run("mnuEditUndo");
            QCOMPARE(tickers(), (std::vector<std::string>{"T1", "T2", "T3"}));
            QCOMPARE(program.Read("Jan.ddq"), before);
            QCOMPARE(program.Read("In.Txt"), std::string("T11,55,3/6/2026\r\n"));
            program.frame->Run("mnuEditUndo");
            QCOMPARE(tickers(), (std::vector<std::string>{"T11", "T2", "T3"}));
            // Also once the table was saved with the row gone.
            program.frame->Run("mnuFileSave");
            QVERIFY(program.Read("Jan.ddq") != before);
            program.frame->Run("mnuEditUndo");
            QCOMPARE(tickers(), (std::vector<std::string>{"T1", "T2", "T3"}));
        }
    }

    void anUndoneImportLeavesWhatWasNotSavedBeforeIt() {
        Program program;
        program.Write("VTRIMEXset.ini", kOpenedExchange);
        program.Start("Jan.ddq");
        program.session.settings.DataSettings.Set(7, Value::OfText("Manual Save"));
        program.frame->QuoteForm()->Table().SetText(3, 1, "77");
        const auto price = [&] { return program.frame->QuoteForm()->Table().Text(3, 1); };
        program.Write("In.Txt", "T3,55,3/6/2026\r\n");
        program.Click("CommandImport");
        QCOMPARE(program.frame->QuoteForm()->Table().Ticker(1), std::string("T3"));
        program.frame->Run("mnuEditUndo");
        QCOMPARE(price(), std::string("77"));
        // No question comes for a file that an undoing brought back.
        QCOMPARE(BoxOf([&] { program.frame->Run("mnuFileSave"); }), QString());
        QVERIFY(program.Read("Jan.ddq").find("T3\t77") != std::string::npos);
    }

    void anUndoneImportOfATableThatWasClosedBringsItsFileBack() {
        Program program;
        program.Write("VTRIMEXset.ini", kOpenedExchange);
        program.Start("Jan.ddq");
        const std::string before = program.Read("Jan.ddq");
        program.Write("In.Txt", "T11,55,3/6/2026\r\n");
        program.Click("CommandImport");
        program.frame->Run("mnuFileSave");
        Open(program, "Feb.ddq");
        const std::vector<std::string> other = TickersOf(program.frame->QuoteForm()->Table());
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Read("Jan.ddq"), before);
        QCOMPARE(TickersOf(program.frame->QuoteForm()->Table()), other);
    }

    void anExportWritesTheChosenColumnsWithoutHeader() {
        Program program;
        program.Write("VTRIMEXset.ini", kOpenedExchange);
        program.Start("Jan.ddq");
        program.Click("CommandExport");
        QCOMPARE(program.Read("Out.Txt"), std::string("T1,11.000\r\nT2,12.000\r\nT3,13.000\r\n"));
        QVERIFY(!program.Find<QProgressBar>("ProgressBar1")->isVisible());
    }

    void theGuardsSpeak() {
        Program program;
        program.Start("New EOD Quotes.db");
        const QString needsTable = QStringLiteral(
            "Export is only supported for End of Day, Stock Selector, and Extended Fundamental files");
        QCOMPARE(BoxOf([&] { program.Click("CommandExport"); }), needsTable);
        const auto entry = [&](const char* id) {
            return BoxOf([&] { program.frame->Commands().Entry(id)->trigger(); });
        };
        QCOMPARE(entry("mnuFileClose"), QStringLiteral("Do you want to save the new file?"));
        QCOMPARE(entry("mnuFileExportQuotes"), needsTable);
        QCOMPARE(entry("mnuFileImportQuotes"),
                 QStringLiteral("First, open an existing EOD Quote File or a New EOD Quote File you wish to "
                                "Import data. An Existing Quote file will import the data for the ticker "
                                "sysmbols contained in the quote file. A New Quote file will accept all data "
                                "in the file you wish to import."));
    }

    void moreLinesThanATableHoldsAreAskedFor() {
        Program program;
        program.Write("VTRIMEXset.ini", kOpenedExchange);
        program.Start("Jan.ddq");
        std::string lines;
        for (int i = 0; i < 18000; ++i) lines += "N" + std::to_string(i) + ",5,3/6/2026\r\n";
        program.Write("In.Txt", lines);
        QString text;
        QString title;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) text = box->text();
            title = dialog.windowTitle();
            PressButton(dialog, QMessageBox::No);
        });
        program.Click("CommandImport");
        QCOMPARE(text, QStringLiteral("You have exceeded 18000 Ticker Symbols. Some data will be lost. Do "
                                      "you wish to continue?"));
        QCOMPARE(title, QStringLiteral("Quote File Exceedence!"));
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{3});
        QCOMPARE(program.Read("In.Txt"), lines);
    }

    void whatCannotBeWrittenIsTold() {
        Program program;
        program.Write("VTRIMEXset.ini", kOpenedExchange);
        program.Start("Jan.ddq");
        std::filesystem::create_directory(program.session.DataFile("Out.Txt"));
        const QString told = BoxOf([&] { program.Click("CommandExport"); });
        QVERIFY(told.endsWith(QStringLiteral(")")));
        QVERIFY(told.contains(QStringLiteral("Out.Txt: cannot be saved (")));
    }
};

WINDOW_TEST(OpenTableTest)
#include "open_table_test.moc"
