// The table's window: colours, fixed column, moving columns, finding, tool tips, large tables.
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>

#include "base/windows/readable.h"
#include "store/table_colours.h"
#include "store/table_files.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/quote_grid_model.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

QVariant Shows(frmQuoteGrid& grid, int row, int column, int role) {
    return grid.View()->model()->index(row, column).data(role);
}

QString Header(frmQuoteGrid& grid, int column, int role = Qt::DisplayRole) {
    return grid.View()->model()->headerData(column, Qt::Horizontal, role).toString();
}

// The middle of a cell in the viewport of a view.
QPoint CellPoint(const QTableView& view, int row, int column) {
    return view.visualRect(view.model()->index(row, column)).center();
}

QColor Rgb255(int red, int green, int blue) {
    return {red, green, blue};
}

}  // namespace

class FrmQuoteGridTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aQuoteTableShowsTheUsersColumnsInTheirOrder() {
        Program program;
        program.Start("Jan.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QCOMPARE(Header(grid, 0), QStringLiteral("Ticker Symbol"));
        QCOMPARE(Header(grid, 1), QStringLiteral("Last Price"));
        QCOMPARE(Header(grid, 2), QStringLiteral("Change"));
        QCOMPARE(Header(grid, 3), QStringLiteral("Name"));
        QVERIFY(!grid.View()->isColumnHidden(3));
        QVERIFY(grid.View()->isColumnHidden(4));
        QVERIFY(grid.View()->columnWidth(3) >= 2000 / 15);
    }

    void headersAreReadWhole() {
        Program program;
        program.Start("Jan.ddq");
        FrozenTableView& view = *program.frame->QuoteForm()->View();
        for (int column = 0; column < 4; ++column) {
            const QString words = Header(*program.frame->QuoteForm(), column);
            QVERIFY(view.columnWidth(column) >
                    view.horizontalHeader()->fontMetrics().horizontalAdvance(words));
        }
    }

    void changesAreColouredByTheirSign() {
        Program program;
        program.Start("Jan.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QCOMPARE(Shows(grid, 0, 2, Qt::ForegroundRole).value<QColor>(), Rgb255(1, 100, 1));
        QCOMPARE(Shows(grid, 2, 2, Qt::ForegroundRole).value<QColor>(), Rgb255(200, 0, 0));
        QVERIFY(Shows(grid, 0, 2, Qt::FontRole).value<QFont>().bold());
        QVERIFY(!Shows(grid, 0, 3, Qt::FontRole).isValid());
    }

    void resultsHaveTheirGroundsAndReadableText() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\tBuy\tSell\tHold\t\t3.14\r\n");
        program.session.settings = {};
        program.Start("Old.dbe");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QCOMPARE(Shows(grid, 0, 1, Qt::BackgroundRole).value<QColor>(), Rgb255(10, 200, 10));
        QCOMPARE(Shows(grid, 0, 2, Qt::BackgroundRole).value<QColor>(), Rgb255(200, 10, 10));
        QCOMPARE(Shows(grid, 0, 3, Qt::BackgroundRole).value<QColor>(), Rgb255(230, 230, 20));
        QCOMPARE(Shows(grid, 0, 4, Qt::BackgroundRole).value<QColor>(),
                 QGuiApplication::palette().color(QPalette::Button));
        QVERIFY(!Shows(grid, 0, 5, Qt::BackgroundRole).isValid());
        for (int column = 1; column <= 3; ++column) {
            const QColor ground = Shows(grid, 0, column, Qt::BackgroundRole).value<QColor>();
            const QColor text = Shows(grid, 0, column, Qt::ForegroundRole).value<QColor>();
            QVERIFY2(ContrastRatio(ground, text) >= 4.5, std::to_string(column).c_str());
        }
    }

    void everyStyleIsReadableOnItsGround() {
        const QPalette palette = QGuiApplication::palette();
        for (std::size_t i = 0; i < kCellStyleCount; ++i) {
            const auto style = static_cast<CellStyle>(i);
            const QColor ground = ScreenColour(ColoursOf(style).background, QPalette::Base, palette);
            QVERIFY2(ContrastRatio(ground, WordsOf(style, palette)) >= 4.5, std::to_string(i).c_str());
        }
    }

    // A desktop that writes in light grey has no say in them.
    void verdictsAreBlackOrWhiteOnEveryDesktop() {
        QPalette palette = QGuiApplication::palette();
        for (const QColor& ink : {QColor(0, 0, 0), QColor(236, 238, 240)}) {
            palette.setColor(QPalette::Text, ink);
            QCOMPARE(WordsOf(CellStyle::Buy, palette), QColor(Qt::black));
            QCOMPARE(WordsOf(CellStyle::FadingBuy, palette), QColor(Qt::black));
            QCOMPARE(WordsOf(CellStyle::Hold, palette), QColor(Qt::black));
            QCOMPARE(WordsOf(CellStyle::RecoveringSell, palette), QColor(Qt::black));
            QCOMPARE(WordsOf(CellStyle::Sell, palette), QColor(Qt::white));
        }
    }

    void contrastIsThatOfTheStandard() {
        QCOMPARE(ContrastRatio(Qt::black, Qt::white), 21.0);
        QCOMPARE(ContrastRatio(Qt::red, Qt::red), 1.0);
        QVERIFY(std::abs(ContrastRatio(QColor(0x77, 0x77, 0x77), Qt::white) - 4.48) < 0.01);
    }

    void theHeaderOfAConditionTellsItsTests() {
        Program program;
        program.Write("Old.dbe", EvaluationHeader() + "\r\nT1\r\n");
        program.Write("VTRSELset.ini",
                      "\"Condition\"\r\n\"Buy\"\r\n\"MA 15 Up\"\r\n\"MACD <Up>\"\r\n\"Value\"\r\n");
        program.Start("Old.dbe");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QCOMPARE(Header(grid, 1, Qt::ToolTipRole),
                 QStringLiteral("<p style='white-space:pre-wrap'>Buy,  MA 15 Up,  MACD &lt;Up&gt;</p>"));
        QCOMPARE(Header(grid, 0, Qt::ToolTipRole), QString());
        QCOMPARE(Header(grid, 2, Qt::ToolTipRole), QString());
    }

    void theTickerColumnStaysInSight() {
        Program program;
        program.Write("VTRCOLset.ini",
                      "\"Last Price\"\r\n\"Name\"\r\n\"Exchange\"\r\n\"Volume\"\r\n\"Trade Date\"\r\n"
                      "\"Trade Time\"\r\n\"Dividend\"\r\n\"Market Cap (M)\"\r\n\"\"\r\n");
        program.Start("Feb.ddq");
        program.frame->resize(600, 500);
        QCoreApplication::processEvents();
        FrozenTableView& view = *program.frame->QuoteForm()->View();
        QTableView& frozen = *view.FrozenView();
        QVERIFY(view.horizontalScrollBar()->maximum() > 0);
        view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum());
        QVERIFY(frozen.isVisible());
        QCOMPARE(frozen.pos().x(), view.viewport()->pos().x());
        QCOMPARE(frozen.width(), view.columnWidth(0));
        view.verticalScrollBar()->setValue(7);
        QCOMPARE(frozen.verticalScrollBar()->value(), 7);
        QCOMPARE(frozen.rowViewportPosition(9), view.rowViewportPosition(9));
    }

    void aPressInTheTickerColumnSelectsTheRow() {
        Program program;
        program.Start("Feb.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QTableView& frozen = *grid.View()->FrozenView();
        QTest::mouseClick(frozen.viewport(), Qt::LeftButton, {}, CellPoint(frozen, 4, 0));
        QCOMPARE(program.session.CurrentTicker, std::string("T5"));
        QCOMPARE(grid.findChild<QLineEdit*>(QStringLiteral("Text1"))->text(), QStringLiteral("T5"));
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 0);
    }

    void pressingInOneColumnAndReleasingInAnotherMovesIt() {
        Program program;
        program.Start("Feb.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        FrozenTableView& view = *grid.View();
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, CellPoint(view, 1, 1));
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, CellPoint(view, 1, 3));
        QCOMPARE(Header(grid, 1), QStringLiteral("Change"));
        QCOMPARE(Header(grid, 3), QStringLiteral("Last Price"));
        QCOMPARE(grid.Table().Header(3), std::string("Last Price"));
        QCOMPARE(Shows(grid, 0, 3, Qt::DisplayRole).toString(), QStringLiteral("11.000"));
        QVERIFY(view.columnWidth(2) >= 2000 / 15);
    }

    void aColumnNeverMovesOntoTheTickers() {
        Program program;
        program.Start("Feb.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        FrozenTableView& view = *grid.View();
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, CellPoint(view, 1, 2));
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, QPoint(4, CellPoint(view, 1, 2).y()));
        QCOMPARE(Header(grid, 0), QStringLiteral("Ticker Symbol"));
        QCOMPARE(Header(grid, 2), QStringLiteral("Change"));
    }

    void aDraggedHeaderMovesItsColumnInTheTable() {
        Program program;
        program.Start("Feb.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        grid.View()->horizontalHeader()->moveSection(3, 1);
        QCoreApplication::processEvents();
        QCOMPARE(grid.Table().Header(1), std::string("Name"));
        QCOMPARE(Header(grid, 1), QStringLiteral("Name"));
        QCOMPARE(grid.View()->horizontalHeader()->visualIndex(1), 1);
    }

    void aMovedColumnIsSavedInItsNewPlace() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->QuoteForm()->View()->horizontalHeader()->moveSection(2, 1);
        QCoreApplication::processEvents();
        program.frame->Run("mnuFileSave");
        QVERIFY(program.Read("Jan.ddq").starts_with("Ticker Symbol\tChange\tLast Price\tName\t"));
    }

    void typingFindsTheFirstTickerThatBeginsSo() {
        Program program;
        program.Write("Many.ddq", Program::QuoteTableText(200));
        program.Start("Many.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        auto* box = grid.findChild<QLineEdit*>(QStringLiteral("Text1"));
        box->setFocus();
        QTest::keyClicks(box, QStringLiteral("t15"));
        QCOMPARE(program.session.CurrentTicker, std::string("T15"));
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 14);
        QCOMPARE(grid.View()->currentIndex().row(), 14);
        QTest::keyClicks(box, QStringLiteral("9x"));
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 158);
    }

    void anEmptyTableSaysSo() {
        Program program;
        program.Start("Jan.ddq");
        program.frame->Run("mnuFileNewEODQuoteFile");
        auto* label = program.frame->QuoteForm()->findChild<QLabel*>(QStringLiteral("lblEmpty"));
        QVERIFY(label->text().startsWith(QStringLiteral("This is a new quote file without tickers.")));
        QVERIFY(label->isVisible());
    }

    void raggedRowsAndForeignBytesAreShown() {
        Program program;
        program.Write("Odd.ddq", "Ticker Symbol\tName\r\nA\tCaf\xe9\textra\r\nB\r\n\r\nC\tx");
        program.Start("Odd.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QCOMPARE(grid.View()->model()->rowCount(), 4);
        QCOMPARE(Header(grid, 1), QStringLiteral("Name"));
        QCOMPARE(Shows(grid, 0, 1, Qt::DisplayRole).toString(), QString::fromUtf8("Caf\xc3\xa9"));
    }

    void eighteenThousandLinesAreShownAndScrolled() {
        Program program;
        program.Write("Big.ddq", Program::QuoteTableText(18000));
        const QStringList told = BoxesOf([&] { program.Start("Big.ddq"); });
        QCOMPARE(told, QStringList(Shown("Big.ddq: " + std::string(kTooManyLines))));
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        QCOMPARE(program.TickerCount(), QStringLiteral("17999"));
        QCOMPARE(grid.View()->model()->rowCount(), 17999);
        grid.View()->scrollToBottom();
        QVERIFY(!grid.grab().isNull());
        QCOMPARE(Shows(grid, 17998, 0, Qt::DisplayRole).toString(), QStringLiteral("T17999"));
    }

    void theRowInWorkStandsNineteenRowsBelowTheTop() {
        Program program;
        program.Write("Many.ddq", Program::QuoteTableText(500));
        program.Start("Many.ddq");
        frmQuoteGrid& grid = *program.frame->QuoteForm();
        grid.ShowRowInWork(20);
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 0);
        grid.ShowRowInWork(21);
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 1);
        grid.ShowRowInWork(120);
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 100);
        grid.ShowFirstRow();
        QCOMPARE(grid.View()->verticalScrollBar()->value(), 0);
    }
};

WINDOW_TEST(FrmQuoteGridTest)
#include "frmQuoteGrid_test.moc"
