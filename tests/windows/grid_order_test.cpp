// Selecting rows, sorting them and moving columns with the mouse and the keys, also in a large table.
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QToolButton>

#include "shell/user_store.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

using Column = std::vector<std::string>;

constexpr const char* kDates =
    "Ticker Symbol\tName\tTrade Date\tLast Price\tExchange\r\n"
    "A\tzeta\t01/05/26\t9.5\tN\r\n"
    "B\tAlpha\t12/30/25\t100\tN\r\n"
    "C\tBeta\t\t20\tN\r\n"
    "D\talpha\t11/02/25\t-3\tN\r\n";

class GridProgram : public Program {
  public:
    explicit GridProgram(const std::string& table = kDates, const std::string& name = "Dates.ddq") {
        Write("VTRCOLset.ini", "\"Name\"\r\n\"Trade Date\"\r\n\"Last Price\"\r\n\"Exchange\"\r\n\"\"\r\n");
        Write(name, table);
        // What a double click on a cell does while it opens no chart.
        if (SaveSetting(store, "Settings", "DoubleClickOpensChart", "False"))
            qFatal("cannot keep the choice");
        Start(name);
    }

    frmQuoteGrid& Grid() { return *frame->QuoteForm(); }
    FrozenTableView& View() { return *Grid().View(); }
    Column Tickers() { return Texts(0); }
    Column Texts(std::size_t column) {
        Column texts;
        for (std::size_t row = 1; row <= Grid().Table().TickerCount(); ++row) {
            texts.push_back(Grid().Table().Text(row, column));
        }
        return texts;
    }
    QPoint Cell(int row, int column) {
        return View().visualRect(View().model()->index(row, column)).center();
    }
    void ClickCell(int row, int column) {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, {}, Cell(row, column));
    }
    void DoubleClickHeader(QTableView& view, int column) {
        QHeaderView* header = view.horizontalHeader();
        const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                            header->height() / 2);
        QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, middle);
    }
    QString SymbolBox() { return Find<QLineEdit>("Text1")->text(); }
    void PressTool(const char* name) { Find<QToolButton>(name)->click(); }
};

}  // namespace

class GridOrderTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theButtonsSortByTheTickersFirst() {
        GridProgram program;
        program.PressTool("Command13");
        QCOMPARE(program.Tickers(), (Column{"D", "C", "B", "A"}));
        program.PressTool("Command12");
        QCOMPARE(program.Tickers(), (Column{"A", "B", "C", "D"}));
    }

    void theButtonsSortByTheColumnPressedLast() {
        GridProgram program;
        program.ClickCell(1, 3);
        program.PressTool("Command12");
        QCOMPARE(program.Tickers(), (Column{"D", "A", "C", "B"}));
        program.PressTool("Command13");
        QCOMPARE(program.Tickers(), (Column{"B", "C", "A", "D"}));
    }

    void datesAreSortedByTheCalendarAcrossTheTurnOfTheYear() {
        GridProgram program;
        program.ClickCell(0, 2);
        program.PressTool("Command12");
        QCOMPARE(program.Tickers(), (Column{"C", "D", "B", "A"}));
        QCOMPARE(program.Texts(2), (Column{"", "11/02/25", "12/30/25", "01/05/26"}));
        program.PressTool("Command13");
        QCOMPARE(program.Tickers(), (Column{"A", "B", "D", "C"}));
    }

    void namesAreSortedByText() {
        GridProgram program;
        program.ClickCell(0, 1);
        program.PressTool("Command12");
        QCOMPARE(program.Texts(1), (Column{"Alpha", "Beta", "alpha", "zeta"}));
    }

    void doubleClicksAlternateStartingAscending() {
        GridProgram program;
        program.DoubleClickHeader(program.View(), 3);
        QCOMPARE(program.Tickers(), (Column{"D", "A", "C", "B"}));
        program.DoubleClickHeader(program.View(), 3);
        QCOMPARE(program.Tickers(), (Column{"B", "C", "A", "D"}));
        // The turns go on whatever the column.
        program.DoubleClickHeader(*program.View().FrozenView(), 0);
        QCOMPARE(program.Tickers(), (Column{"A", "B", "C", "D"}));
        program.DoubleClickHeader(program.View(), 1);
        QCOMPARE(program.Texts(1), (Column{"zeta", "alpha", "Beta", "Alpha"}));
    }

    void aDoubleClickOnACellSortsByItsColumn() {
        GridProgram program;
        QTest::mouseClick(program.View().viewport(), Qt::LeftButton, {}, program.Cell(2, 3));
        QTest::mouseDClick(program.View().viewport(), Qt::LeftButton, {}, program.Cell(2, 3));
        QCOMPARE(program.Tickers(), (Column{"D", "A", "C", "B"}));
        QCOMPARE(program.session.CurrentTicker, std::string("C"));
        QCOMPARE(program.View().selectionModel()->selectedRows().constFirst().row(), 2);
    }

    void theHeaderShowsWhichWayTheTableIsSorted() {
        GridProgram program;
        QVERIFY(!program.View().horizontalHeader()->isSortIndicatorShown());
        program.ClickCell(0, 3);
        program.PressTool("Command13");
        QHeaderView* header = program.View().horizontalHeader();
        QVERIFY(header->isSortIndicatorShown());
        QCOMPARE(header->sortIndicatorSection(), 3);
        QCOMPARE(header->sortIndicatorOrder(), Qt::DescendingOrder);
        program.View().horizontalHeader()->moveSection(3, 1);
        QCoreApplication::processEvents();
        QVERIFY(!header->isSortIndicatorShown());
    }

    void theSelectionFollowsItsTickerThroughASort() {
        GridProgram program;
        program.View().selectRow(1);
        QCOMPARE(program.session.CurrentTicker, std::string("B"));
        program.PressTool("Command13");
        QCOMPARE(program.View().selectionModel()->selectedRows().constFirst().row(), 2);
        QCOMPARE(program.session.CurrentTicker, std::string("B"));
        QCOMPARE(program.SymbolBox(), QStringLiteral("B"));
    }

    void aSortIsSavedWithTheTable() {
        GridProgram program;
        program.PressTool("Command13");
        program.frame->Run("mnuFileSave");
        QVERIFY(program.Read("Dates.ddq").find("\r\nD\talpha\t11/02/25\t-3\tN\r\nC\tBeta\t\t20\tN\r\n") !=
                std::string::npos);
    }

    void atTheStartTheFirstRowIsSelected() {
        GridProgram program;
        QCOMPARE(program.session.CurrentTicker, std::string("A"));
        QCOMPARE(program.Grid().SelectedTicker(), std::string("A"));
        QCOMPARE(program.View().selectionModel()->selectedRows().constFirst().row(), 0);
        QCOMPARE(program.SymbolBox(), QString());
    }

    void aClickSelectsTheRowAndADragOfAColumnDoesNot() {
        GridProgram program;
        program.ClickCell(2, 1);
        QCOMPARE(program.session.CurrentTicker, std::string("C"));
        QCOMPARE(program.SymbolBox(), QStringLiteral("C"));
        QTest::mousePress(program.View().viewport(), Qt::LeftButton, {}, program.Cell(0, 1));
        QCOMPARE(program.session.CurrentTicker, std::string("C"));
        QTest::mouseRelease(program.View().viewport(), Qt::LeftButton, {}, program.Cell(0, 3));
        QCOMPARE(program.session.CurrentTicker, std::string("C"));
        QCOMPARE(program.Grid().Table().Header(3), std::string("Name"));
        QCOMPARE(program.Grid().CurrentColumn(), std::size_t{3});
        QCOMPARE(program.View().selectionModel()->selectedRows().constFirst().row(), 2);
    }

    void aPressInTheLastColumnSelectsAndNeverMoves() {
        GridProgram program;
        QTest::mousePress(program.View().viewport(), Qt::LeftButton, {}, program.Cell(1, 4));
        QCOMPARE(program.session.CurrentTicker, std::string("B"));
        QTest::mouseRelease(program.View().viewport(), Qt::LeftButton, {}, program.Cell(1, 2));
        QCOMPARE(program.Grid().Table().Header(4), std::string("Exchange"));
    }

    void theArrowKeysSelectRows() {
        GridProgram program;
        program.View().setFocus();
        QTest::keyClick(&program.View(), Qt::Key_Down);
        QTest::keyClick(&program.View(), Qt::Key_Down);
        QCOMPARE(program.session.CurrentTicker, std::string("C"));
        QTest::keyClick(&program.View(), Qt::Key_Right);
        QCOMPARE(program.Grid().CurrentColumn(), std::size_t{1});
    }

    void aTickerThatNoRowHasLeavesTheTable() {
        GridProgram program;
        program.View().selectRow(2);
        auto* box = program.Find<QLineEdit>("Text1");
        box->setText(QStringLiteral("ZZZ"));
        QCOMPARE(program.session.CurrentTicker, std::string("ZZZ"));
        QCOMPARE(program.View().selectionModel()->selectedRows().constFirst().row(), 2);
    }

    void theRightButtonTakesTheTickerOfTheBoxInCapitals() {
        GridProgram program;
        auto* box = program.Find<QLineEdit>("Text1");
        box->setText(QStringLiteral("zzz"));
        program.session.CurrentTicker = "X";
        const QPoint below(10, program.View().viewport()->height() - 4);
        Q_EMIT program.View().customContextMenuRequested(below);
        QMenu& menu = program.frame->Commands().PopUpMenu();
        QVERIFY(menu.isVisible());
        QCOMPARE(program.session.CurrentTicker, std::string("ZZZ"));
        menu.close();
    }

    void theRightButtonSelectsTheRowAndTheColumnUnderIt() {
        GridProgram program;
        FrozenTableView& view = program.View();
        view.selectAll();
        const QRect cell = view.visualRect(view.model()->index(2, 3));
        QTest::mouseClick(view.viewport(), Qt::RightButton, {}, cell.center());
        Q_EMIT view.customContextMenuRequested(cell.center());
        QMenu& menu = program.frame->Commands().PopUpMenu();
        QVERIFY(menu.isVisible());
        menu.close();
        QCOMPARE(program.Grid().CurrentColumn(), std::size_t{3});
        QCOMPARE(view.selectionModel()->selectedRows().size(), qsizetype{1});
        QCOMPARE(view.selectionModel()->selectedRows().constFirst().row(), 2);
        QCOMPARE(program.session.CurrentTicker, std::string("C"));
    }

    void aNewTableHasNoPopUp() {
        GridProgram program;
        program.frame->Run("mnuFileNewEODQuoteFile");
        Q_EMIT program.View().customContextMenuRequested(QPoint(10, 10));
        QVERIFY(!program.frame->Commands().PopUpMenu().isVisible());
    }

    void aRunThatStandsStillKeepsRowsAndColumns() {
        GridProgram program;
        program.Grid().ApplyRules(kWithDdq, false);
        program.DoubleClickHeader(program.View(), 3);
        program.View().horizontalHeader()->moveSection(3, 1);
        QCoreApplication::processEvents();
        QCOMPARE(program.Tickers(), (Column{"A", "B", "C", "D"}));
        QCOMPARE(program.Grid().Table().Header(3), std::string("Last Price"));
    }

    void aLongNumberIsNotCut() {
        const std::string digits = "123456789012";
        GridProgram program("Ticker Symbol\tName\tTrade Date\tLast Price\r\nA\tn\t\t" + digits + "\r\n");
        const QFontMetrics metrics(program.View().font());
        const int column = static_cast<int>(*program.Grid().Table().ColumnOf("Last Price"));
        QVERIFY(program.View().columnWidth(column) >
                metrics.horizontalAdvance(QString::fromStdString(digits)) + 6);
    }

    void anEmptyTableIsSortedWithoutHarm() {
        GridProgram program("Ticker Symbol\tLast Price\r\n");
        program.PressTool("Command12");
        program.DoubleClickHeader(program.View(), 1);
        QCOMPARE(program.Grid().Table().TickerCount(), std::size_t{0});
    }

    void eighteenThousandRowsAreSortedAndFound() {
        std::string text = "Ticker Symbol\tName\tTrade Date\tLast Price\r\n";
        for (int i = 1; i < 18000; ++i) {
            text += "T" + std::to_string(i) + "\tn\t0" + std::to_string(1 + i % 9) + "/02/2" +
                    std::to_string(i % 7) + "\t" + std::to_string((i * 7919) % 18000) + "\r\n";
        }
        GridProgram program(text, "Big.ddq");
        program.Find<QLineEdit>("Text1")->setText(QStringLiteral("t179"));
        QCOMPARE(program.Grid().SelectedTicker(), std::string("T179"));
        program.View().SetCurrentColumn(3);
        program.PressTool("Command13");
        const Column prices = program.Texts(3);
        QVERIFY(std::is_sorted(prices.begin(), prices.end(), [](const std::string& a, const std::string& b) {
            return std::stoi(a) > std::stoi(b);
        }));
        QCOMPARE(program.Grid().SelectedTicker(), std::string("T179"));
        program.View().SetCurrentColumn(2);
        program.PressTool("Command12");
        const auto day = [](const std::string& date) { return date.substr(6) + date.substr(0, 5); };
        const Column dates = program.Texts(2);
        QVERIFY(std::is_sorted(dates.begin(), dates.end(),
                               [&](const std::string& a, const std::string& b) { return day(a) < day(b); }));
        QCOMPARE(dates.size(), std::size_t{17999});
    }
};

WINDOW_TEST(GridOrderTest)
#include "grid_order_test.moc"
