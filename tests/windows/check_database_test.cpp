// Edit, Check Database: its list, its repair, what a double click opens, and a check that is stopped.
#include <QClipboard>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QWindow>

#include "base/windows/text_editor.h"
#include "check/windows/frmCheckDatabase.h"
#include "store/windows/frmQuoteGrid.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

std::string Record(const char* day) {
    return "\"" + std::string(day) + "\",\"\",10,9,11,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10\r\n";
}

// A program with a table open, one ticker with a history, and the check's window.
class CheckedProgram : public Program {
  public:
    explicit CheckedProgram(const std::string& history) {
        Write("Jan.ddq", "Ticker Symbol\tLast Price\r\nT1\t10\r\n");
        Write("VTRMRUset.ini", "\"Jan.ddq\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
        WriteQuotes("T1.26", history);
        Start("Jan.ddq");
        frame->Run("mnuEditCheckDatabase");
        window = frame->findChild<frmCheckDatabase*>();
    }
    void WriteQuotes(const std::string& name, const std::string& bytes) {
        QVERIFY(!WriteWholeFile(session.AppPath / "Quotes/EOD" / name, bytes));
    }
    std::string Quotes(const std::string& name) {
        return BytesOrEmpty(session.AppPath / "Quotes/EOD" / name);
    }
    QTreeWidget* List() const { return window->findChild<QTreeWidget*>(); }
    QPushButton* Button(const char* name) const {
        return window->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    QString Told() const { return window->findChild<QLabel*>(QStringLiteral("lblTold"))->text(); }
    // The row of the list about this file, null where there is none.
    QTreeWidgetItem* Row(const char* file) const {
        const auto rows = List()->findItems(QString::fromLatin1(file), Qt::MatchExactly, 0);
        return rows.isEmpty() ? nullptr : rows.constFirst();
    }

    QPointer<frmCheckDatabase> window;
};

QStringList TextsOf(const QTreeWidgetItem* row) {
    QStringList texts;
    for (int column = 0; row && column < row->columnCount(); ++column) texts << row->text(column);
    return texts;
}

}  // namespace

class CheckDatabaseTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void whatIsWrongStandsInTheListAndIsRepairedAndUndone() {
        const std::string faulty = Record("03/05/26") + "\r\n" + Record("03/06/26");
        CheckedProgram program(faulty);
        QVERIFY(program.window);
        QCOMPARE(program.window->windowTitle(), QStringLiteral("Check Database"));
        QCOMPARE(
            TextsOf(program.Row("Quotes/EOD/T1.26")),
            QStringList({QStringLiteral("Quotes/EOD/T1.26"), QStringLiteral("2"), QStringLiteral("Fault"),
                         QStringLiteral("an empty line"), QStringLiteral("can be repaired")}));
        QVERIFY(program.Told().contains(QStringLiteral(" can be repaired")));
        QVERIFY(!program.window->findChild<QProgressBar*>()->isVisible());
        QVERIFY(program.Button("cmdRepair")->isEnabled());
        program.Button("cmdRepair")->click();
        QCOMPARE(program.Row("Quotes/EOD/T1.26")->text(4), QStringLiteral("repaired"));
        QVERIFY(program.Told().endsWith(QStringLiteral(" repaired")));
        QVERIFY(!program.Told().contains(QStringLiteral("can be repaired")));
        QCOMPARE(program.Quotes("T1.26"), Record("03/05/26") + Record("03/06/26"));
        QVERIFY(!program.Button("cmdRepair")->isEnabled());
        program.Button("cmdAgain")->click();
        QVERIFY(!program.Row("Quotes/EOD/T1.26"));
        program.frame->Run("mnuEditUndo");
        QCOMPARE(program.Quotes("T1.26"), faulty);
    }

    void aRepairOfTheOpenTableShowsIt() {
        CheckedProgram program(Record("03/06/26"));
        program.Write("Jan.ddq", "Ticker Symbol\tLast Price\r\nT1\t10\r\n\r\nT2\t11\r\n");
        program.Button("cmdAgain")->click();
        QCOMPARE(program.Row("Data/Jan.ddq")->text(1), QStringLiteral("3"));
        program.Button("cmdRepair")->click();
        QCOMPARE(program.Read("Jan.ddq"), std::string("Ticker Symbol\tLast Price\r\nT1\t10\r\nT2\t11\r\n"));
        QCOMPARE(program.frame->QuoteForm()->Table().TickerCount(), std::size_t{2});
    }

    void aDoubleClickOpensTheFileAtItsLine() {
        CheckedProgram program(Record("03/05/26") + "<html>\r\n" + Record("03/06/26"));
        QTreeWidgetItem* const row = program.Row("Quotes/EOD/T1.26");
        QVERIFY(row);
        Q_EMIT program.List()->itemActivated(row, 0);
        auto* editor = program.frame->findChild<TextEditor*>();
        QVERIFY(editor);
        QCOMPARE(editor->windowTitle(), QStringLiteral("T1.26[*]"));
        QCOMPARE(editor->findChild<QPlainTextEdit*>()->textCursor().blockNumber(), 1);
    }

    void aDoubleClickOpensATableAsATable() {
        CheckedProgram program(Record("03/06/26"));
        program.Write("Other.ddq", "Ticker Symbol\tLast Price\r\nT1\tmuch\r\n");
        program.Button("cmdAgain")->click();
        Q_EMIT program.List()->itemActivated(program.Row("Data/Other.ddq"), 0);
        QCOMPARE(program.session.CurrentFile, std::string("Other.ddq"));
    }

    void theListGoesToTheClipboard() {
        CheckedProgram program(Record("03/05/26") + "<html>\r\n");
        program.Button("cmdCopy")->click();
        QVERIFY(QGuiApplication::clipboard()->text().contains(
            QStringLiteral("Quotes/EOD/T1.26:2: 1 fields instead of 19\n")));
    }

    void aFolderInOrderSaysSo() {
        CheckOperations operations;
        operations.run = [](CheckMode) {
            CheckReport report;
            report.files = 7;
            return report;
        };
        operations.share = [] { return 0.0; };
        frmCheckDatabase window(operations, Path("app"), nullptr);
        window.show();
        window.Check();
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("lblTold"))->text(),
                 QStringLiteral("Everything is in order: 0 faults and 0 notes in 7 files"));
        QVERIFY(!window.findChild<QPushButton*>(QStringLiteral("cmdRepair"))->isEnabled());
        QVERIFY(!window.findChild<QPushButton*>(QStringLiteral("cmdCopy"))->isEnabled());
    }

    // The run of this one ends when it is told to.
    void itShowsItsProgressAndStops() {
        bool stopped = false;
        CheckOperations operations;
        frmCheckDatabase* form = nullptr;
        operations.stop = [&] { stopped = true; };
        operations.share = [] { return 0.4; };
        operations.run = [&](CheckMode) {
            auto* bar = form->findChild<QProgressBar*>();
            auto* stop = form->findChild<QPushButton*>(QStringLiteral("cmdStop"));
            [&] {
                QVERIFY(stop->isVisible());
                QTRY_COMPARE_WITH_TIMEOUT(bar->value(), 40, kPatienceMs);
                QVERIFY(!form->findChild<QPushButton*>(QStringLiteral("cmdAgain"))->isEnabled());
                stop->click();
                QVERIFY(stopped);
            }();
            CheckReport report;
            report.stopped = stopped;
            return report;
        };
        frmCheckDatabase window(operations, Path("app"), nullptr);
        form = &window;
        window.show();
        window.Check();
        QVERIFY(!window.findChild<QPushButton*>(QStringLiteral("cmdStop"))->isVisible());
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("lblTold"))->text(),
                 QStringLiteral("0 faults and 0 notes in 0 files; stopped before the end"));
    }

    void closedWhileItRunsItStopsFirst() {
        bool stopped = false;
        CheckOperations operations;
        frmCheckDatabase* form = nullptr;
        operations.stop = [&] { stopped = true; };
        operations.share = [] { return 0.0; };
        operations.run = [&](CheckMode) {
            form->reject();
            [&] { QVERIFY(stopped && form->isVisible()); }();
            return CheckReport{};
        };
        frmCheckDatabase window(operations, Path("app"), nullptr);
        form = &window;
        window.show();
        window.Check();
        QVERIFY(!window.isVisible());
    }

    void theKeysAreTheWindowsOwnAfterACheck() {
        CheckedProgram program(Record("03/05/26") + "\r\n");
        QTRY_VERIFY_WITH_TIMEOUT(program.window->isActiveWindow(), kPatienceMs);
        QCOMPARE(QApplication::focusWidget(), program.List());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QTRY_VERIFY_WITH_TIMEOUT(!program.window, kPatienceMs);
        QVERIFY(program.frame->isVisible());
    }

    void theWindowGoesWithTheFrame() {
        CheckedProgram program(Record("03/05/26") + "\r\n");
        QVERIFY(program.window->isVisible());
        // The first page of the browser has the frame's native window made anew: the system no longer knows
        // whose this one is.
        program.window->windowHandle()->setTransientParent(nullptr);
        program.frame->Run("mnuFileExit");
        QVERIFY(!program.frame->isVisible());
        QVERIFY(!program.window || !program.window->isVisible());
    }
};

WINDOW_TEST(CheckDatabaseTest)
#include "check_database_test.moc"
