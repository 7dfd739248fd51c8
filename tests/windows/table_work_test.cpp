// Working on the rows and columns of an open table: selecting, copying, filtering, the header's menu,
// exporting, printing, and the chart of a row.
#include <QAction>
#include <QBuffer>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QPdfWriter>

#include "chart_fixture.h"
#include "shell/frame/windows/frame_subjects.h"
#include "shell/user_store.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/table_pages.h"

using namespace brantlow;

namespace {

using Column = std::vector<std::string>;

class WorkProgram : public ChartProgram {
  public:
    WorkProgram() {
        Write("VTRCOLset.ini", "\"Last Price\"\r\n\"Change\"\r\n\"Volume\"\r\n\"Name\"\r\n\"\"\r\n");
        Write("Work.ddq",
              "Ticker Symbol\tLast Price\tChange\tVolume\tName\tHigh Alarm\tLow Alarm\r\n"
              "T1\t10.000\t2.500\t900000\tAlpha, Inc.\t60\t5\r\n"
              "T2\t20.000\t-1.000\t1600000\tBeta\t\t\r\n"
              "T3\t30.000\t3.000\t12345678\tGamma\t\t7\r\n"
              "T4\t5.000\t0.000\t20\tDelta\t\t\r\n");
        LoadAllSettings(session.AppPath, session.settings);
        session.settings.MruSettings.Set(1, Value::OfText("Work.ddq"));
        frame->OpenRecentFile(1);
        QCoreApplication::processEvents();
    }
    frmQuoteGrid& Grid() { return *frame->QuoteForm(); }
    FrozenTableView& View() { return *Grid().View(); }
    QPoint Cell(int row, int column) {
        return View().visualRect(View().model()->index(row, column)).center();
    }
    void Click(int row, int column, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers, Cell(row, column));
    }
    Column Shown() {
        Column tickers;
        for (int row = 0; row < View().model()->rowCount(); ++row)
            tickers.push_back(View().model()->index(row, 0).data().toString().toStdString());
        return tickers;
    }
    Column Selected() {
        Column tickers;
        for (const std::size_t row : Grid().SelectedRows()) tickers.push_back(Grid().Table().Ticker(row));
        return tickers;
    }
    QLineEdit* Box(const char* name) { return Find<QLineEdit>(name); }
    void Filter(const char* text) { Box("txtFilter")->setText(QString::fromLatin1(text)); }
    QString RowsLine() { return Find<QLabel>("Panel4")->text(); }
    void Choose(const char* entry) { frame->Commands().Entry(entry)->trigger(); }
    // Opens the header's menu and triggers an entry of it.
    void ChooseInHeader(int column, const char* entry) {
        Q_EMIT View().HeaderMenuAsked(column, QPoint(10, 10));
        auto* menu = Grid().findChild<QMenu*>(QStringLiteral("mnuColumns"));
        QVERIFY(menu && menu->isVisible());
        auto* action = menu->findChild<QAction*>(QString::fromLatin1(entry));
        QVERIFY2(action && action->isEnabled(), entry);
        action->trigger();
        menu->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Column ShownHeaders() {
        Column headers;
        for (std::size_t i = 0; i < Grid().Table().ColumnCount(); ++i) {
            if (Grid().Table().Width(i) > 0) headers.push_back(Grid().Table().Header(i));
        }
        return headers;
    }
};

}  // namespace

class TableWorkTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aDoubleClickOpensTheChartOfTheRow() {
        WorkProgram program;
        program.Click(0, 1);
        QTest::mouseDClick(program.View().viewport(), Qt::LeftButton, {}, program.Cell(0, 1));
        QVERIFY(program.frame->GraphForm());
        QCOMPARE(program.frame->GraphForm()->windowTitle(), QStringLiteral("T1"));
        QCOMPARE(program.Shown(), (Column{"T1", "T2", "T3", "T4"}));
    }

    void offADoubleClickSortsByTheColumn() {
        WorkProgram program;
        program.Choose("mnuViewDoubleClickChart");
        program.Click(0, 1);
        QTest::mouseDClick(program.View().viewport(), Qt::LeftButton, {}, program.Cell(0, 1));
        QVERIFY(!program.frame->GraphForm());
        QCOMPARE(program.Shown(), (Column{"T4", "T1", "T2", "T3"}));
        QCOMPARE(GetSetting(program.store, "Settings", "DoubleClickOpensChart", ""), std::string("False"));
    }

    void returnOpensTheChartOfTheSelectedRow() {
        WorkProgram program;
        program.Click(0, 1);
        QTest::keyClick(&program.View(), Qt::Key_Return);
        QVERIFY(program.frame->GraphForm());
    }

    void rowsAreSelectedWithShiftAndCtrl() {
        WorkProgram program;
        program.Click(1, 1);
        QCOMPARE(program.Selected(), Column{"T2"});
        program.Click(3, 2, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), (Column{"T2", "T3", "T4"}));
        program.Click(0, 1, Qt::ShiftModifier);
        QCOMPARE(program.Selected(), (Column{"T1", "T2"}));
        program.Click(3, 1, Qt::ControlModifier);
        QCOMPARE(program.Selected(), (Column{"T1", "T2", "T4"}));
        program.Click(1, 1, Qt::ControlModifier);
        QCOMPARE(program.Selected(), (Column{"T1", "T4"}));
        program.Click(2, 1);
        QCOMPARE(program.Selected(), Column{"T3"});
        QCOMPARE(program.session.CurrentTicker, std::string("T3"));
    }

    void copiedRowsAreTextBetweenTabsWithTheirHeader() {
        WorkProgram program;
        program.Click(0, 1);
        program.Click(2, 1, Qt::ControlModifier);
        program.Choose("mnuEditCopy");
        QCOMPARE(QGuiApplication::clipboard()->text().remove(u'\r'),
                 QStringLiteral("Ticker Symbol\tLast Price\tChange\tVolume\tName\n"
                                "T1\t10.000\t2.500\t900000\tAlpha, Inc.\n"
                                "T3\t30.000\t3.000\t12345678\tGamma\n"));
        program.Choose("mnuEditSelectAll");
        QCOMPARE(program.Selected(), (Column{"T1", "T2", "T3", "T4"}));
        program.Choose("mnuEditCopy");
        QCOMPARE(QGuiApplication::clipboard()->text().count(u'\n'), 5);
    }

    void theFilterShowsTheRowsThatMeetIt() {
        WorkProgram program;
        program.Click(0, 1);
        program.Filter("Change > 2");
        QCOMPARE(program.Shown(), (Column{"T1", "T3"}));
        QCOMPARE(program.Selected(), Column{"T1"});
        const int width = program.View().columnWidth(4);
        const int hidden = static_cast<int>(*program.Grid().Table().ColumnOf("High Alarm"));
        program.Filter("beta");
        QCOMPARE(program.Shown(), Column{"T2"});
        QVERIFY(program.Selected().empty());
        QCOMPARE(program.View().columnWidth(4), width);
        QVERIFY(program.View().isColumnHidden(hidden));
        program.Click(0, 1);
        QCOMPARE(program.session.CurrentTicker, std::string("T2"));
        QCOMPARE(program.Box("Text1")->text(), QStringLiteral("T2"));
        program.Filter("Chnge > 2");
        QCOMPARE(program.Shown().size(), std::size_t{4});
        QCOMPARE(program.RowsLine(), QStringLiteral("There is no column Chnge."));
        QTest::keyClick(program.Box("txtFilter"), Qt::Key_Escape);
        QCOMPARE(program.Box("txtFilter")->text(), QString());
        QCOMPARE(program.RowsLine(), QStringLiteral("4 rows; Last Price: sum 65, mean 16.25"));
    }

    void aFilterThatNoRowMeetsSaysSo() {
        WorkProgram program;
        program.Filter("no such company");
        QVERIFY(program.Shown().empty());
        auto* sentence = program.Find<QLabel>("lblEmpty");
        QVERIFY(sentence->isVisible());
        QCOMPARE(sentence->text(), QStringLiteral("No row meets the filter. Escape in the box shows all."));
        program.Filter("beta");
        QVERIFY(!sentence->isVisible());
        QCOMPARE(program.Shown(), Column{"T2"});
    }

    void findPutsTheKeyboardIntoTheFilter() {
        WorkProgram program;
        program.frame->activateWindow();
        program.Choose("mnuEditFind");
        QCOMPARE(program.frame->focusWidget(), static_cast<QWidget*>(program.Box("txtFilter")));
        program.Filter("gamma");
        QTest::keyClick(program.Box("txtFilter"), Qt::Key_Return);
        QCOMPARE(program.frame->focusWidget(), static_cast<QWidget*>(&program.View()));
        QCOMPARE(program.Selected(), Column{"T3"});
    }

    void aSortKeepsFilterAndSelection() {
        WorkProgram program;
        program.Filter("Change >= 0");
        program.Click(0, 1);
        program.Click(2, 1, Qt::ControlModifier);
        QCOMPARE(program.Selected(), (Column{"T1", "T4"}));
        program.View().SetCurrentColumn(3);
        program.Choose("SortDescending");
        QCOMPARE(program.Shown(), (Column{"T3", "T1", "T4"}));
        QCOMPARE(program.Selected(), (Column{"T1", "T4"}));
        program.Filter("");
        QCOMPARE(program.Shown(), (Column{"T3", "T2", "T1", "T4"}));
    }

    void theStatusBarCountsRowsAndAddsUpTheCurrentColumn() {
        WorkProgram program;
        QCOMPARE(program.RowsLine(), QStringLiteral("4 rows"));
        program.Click(0, 3);
        QCOMPARE(program.RowsLine(), QStringLiteral("4 rows; Volume: sum 14,845,698, mean 3,711,424.5"));
        program.Click(1, 3, Qt::ShiftModifier);
        QCOMPARE(program.RowsLine(),
                 QStringLiteral("4 rows, 2 selected; Volume: sum 2,500,000, mean 1,250,000"));
        program.Filter("Volume > 1M");
        QCOMPARE(program.RowsLine(),
                 QStringLiteral("4 rows, 2 shown; Volume: sum 13,945,678, mean 6,972,839"));
        program.Choose("mnuFileClose");
        QCOMPARE(program.RowsLine(), QString());
    }

    // Beside a short day the sums are read whole; beside the line of a run both end with dots.
    void theStatusBarHasRoomForTheSums() {
        WorkProgram program;
        program.Click(0, 3);
        auto* const rows = program.Find<QLabel>("Panel4");
        const auto needed = [](const QLabel* label) {
            return label->fontMetrics().horizontalAdvance(label->text());
        };
        for (const int width : {900, 1400}) {
            program.frame->showNormal();
            program.frame->resize(width, 600);
            QCoreApplication::processEvents();
            QVERIFY2(rows->width() >= needed(rows), std::to_string(rows->width()).c_str());
        }
        RunReport report("Updating Work.ddq", std::string(200, 'x'));
        program.frame->Subjects().hands.tell(report);
        program.frame->resize(900, 600);
        QCoreApplication::processEvents();
        QVERIFY(program.frame->width() == 900);
        QVERIFY(rows->width() < needed(rows));
        QVERIFY(program.Find<QLabel>("Panel1")->width() > rows->width());
    }

    // The key is the box's while something was typed there, and the table's after a deletion.
    void theUndoKeyBringsADeletedRowBackFromTheSymbolBox() {
        WorkProgram program;
        program.frame->activateWindow();
        QLineEdit* const box = program.Box("Text1");
        box->setFocus();
        QTest::keyClicks(box, QStringLiteral("T2"));
        QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(box->text() != QStringLiteral("T2"));
        QCOMPARE(program.Shown(), (Column{"T1", "T2", "T3", "T4"}));
        box->selectAll();
        QTest::keyClicks(box, QStringLiteral("T2"));
        {
            DialogHand hand(
                [](QDialog& dialog) { dialog.findChild<QPushButton*>(QStringLiteral("Command2"))->click(); });
            program.Program::Click("CmdDelete");
        }
        QCOMPARE(program.Shown(), (Column{"T1", "T3", "T4"}));
        program.frame->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(program.frame.get()));
        QCOMPARE(program.frame->focusWidget(), static_cast<QWidget*>(box));
        QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(program.Shown(), (Column{"T1", "T2", "T3", "T4"}));
    }

    void volumesAreShownWithSeparatorsAndKeptWithout() {
        WorkProgram program;
        QCOMPARE(program.View().model()->index(2, 3).data().toString(), QStringLiteral("12,345,678"));
        QCOMPARE(program.View().model()->index(2, 1).data().toString(), QStringLiteral("30.000"));
        program.Choose("mnuFileSave");
        QVERIFY(program.Read("Work.ddq").find("\t12345678\t") != std::string::npos);
    }

    void theHeadersMenuHidesChoosesAndMovesColumns() {
        WorkProgram program;
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Last Price", "Change", "Volume", "Name"}));
        program.ChooseInHeader(2, "actHide");
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Last Price", "Volume", "Name"}));
        QCOMPARE(program.Read("VTRCOLset.ini"),
                 std::string("\"Last Price\"\r\n\"Volume\"\r\n\"Name\"\r\n\"\"\r\n"));
        QVERIFY(program.View().isColumnHidden(static_cast<int>(*program.Grid().Table().ColumnOf("Change"))));
        program.ChooseInHeader(2, "actMoveLeft");
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Volume", "Last Price", "Name"}));
        QCOMPARE(program.Read("VTRCOLset.ini"),
                 std::string("\"Volume\"\r\n\"Last Price\"\r\n\"Name\"\r\n\"\"\r\n"));
        program.ChooseInHeader(1, "actMoveRight");
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Last Price", "Volume", "Name"}));

        Q_EMIT program.View().HeaderMenuAsked(1, QPoint(10, 10));
        auto* choose = program.Grid().findChild<QMenu*>(QStringLiteral("mnuChooseColumns"));
        QVERIFY(choose);
        QAction* change = nullptr;
        for (QAction* entry : choose->actions()) {
            if (entry->text() == QStringLiteral("Change")) change = entry;
        }
        QVERIFY(change && change->isCheckable() && !change->isChecked());
        change->trigger();
        const Column headers = program.ShownHeaders();
        QVERIFY(std::find(headers.begin(), headers.end(), "Change") != headers.end());
        QVERIFY(program.Read("VTRCOLset.ini").find("\"Change\"") != std::string::npos);
    }

    void theHeadersMenuSortsAndSizes() {
        WorkProgram program;
        program.ChooseInHeader(1, "actSortDescending");
        QCOMPARE(program.Shown(), (Column{"T3", "T2", "T1", "T4"}));
        program.ChooseInHeader(1, "actSortAscending");
        QCOMPARE(program.Shown(), (Column{"T4", "T1", "T2", "T3"}));
        const int before = program.View().columnWidth(4);
        program.ChooseInHeader(4, "actFit");
        QVERIFY(program.View().columnWidth(4) < before);
        QVERIFY(program.View().columnWidth(4) >= program.View().ContentWidth(4));
    }

    void theTickersStayWhereTheyAre() {
        WorkProgram program;
        Q_EMIT program.View().HeaderMenuAsked(0, QPoint(10, 10));
        auto* menu = program.Grid().findChild<QMenu*>(QStringLiteral("mnuColumns"));
        for (const char* entry : {"actHide", "actMoveLeft", "actMoveRight"})
            QVERIFY2(!menu->findChild<QAction*>(QString::fromLatin1(entry))->isEnabled(), entry);
        menu->close();
    }

    void columnsThatWereDraggedStandThereAtTheNextStart() {
        WorkProgram program;
        program.View().horizontalHeader()->moveSection(3, 1);
        QCoreApplication::processEvents();
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Volume", "Last Price", "Change", "Name"}));
        const std::string kept = "\"Volume\"\r\n\"Last Price\"\r\n\"Change\"\r\n\"Name\"\r\n\"\"\r\n";
        QCOMPARE(program.Read("VTRCOLset.ini"), kept);
        LoadAllSettings(program.session.AppPath, program.session.settings);
        program.frame->OpenRecentFile(1);
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Volume", "Last Price", "Change", "Name"}));
    }

    void aTableWithFewColumnsLeavesTheOthersChosen() {
        WorkProgram program;
        program.Write("Few.ddq", "Ticker Symbol\tName\tLast Price\tSPS\tPEG\r\nT1\tAlpha\t10.000\t1\t2\r\n");
        program.session.settings.MruSettings.Set(1, Value::OfText("Few.ddq"));
        program.frame->OpenRecentFile(1);
        QCOMPARE(program.ShownHeaders(), (Column{"Ticker Symbol", "Last Price", "Name"}));
        const auto name = static_cast<int>(*program.Grid().Table().ColumnOf("Name"));
        program.View().horizontalHeader()->moveSection(name, 1);
        QCoreApplication::processEvents();
        QCOMPARE(program.Read("VTRCOLset.ini"),
                 std::string("\"Name\"\r\n\"Last Price\"\r\n\"Change\"\r\n\"Volume\"\r\n\"\"\r\n"));
    }

    void aColumnChoiceThatCannotBeKeptIsTold() {
        WorkProgram program;
        std::filesystem::remove(program.session.DataFile("VTRCOLset.ini"));
        std::filesystem::create_directory(program.session.DataFile("VTRCOLset.ini"));
        const QStringList told = BoxesOf([&] { program.ChooseInHeader(2, "actHide"); });
        QCOMPARE(told, QStringList(QStringLiteral("VTRCOLset.ini: cannot be saved (Is a directory)")));
    }

    void csvGoesWhereThePersonChooses() {
        WorkProgram program;
        program.Filter("Change > 2");
        const Path file = program.folder / "out.csv";
        DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, file); });
        program.Choose("mnuFileExportCsv");
        QCOMPARE(hand.seen, 1);
        QCOMPARE(BytesOrEmpty(file),
                 std::string("Ticker Symbol,Last Price,Change,Volume,Name\r\n"
                             "T1,10.000,2.500,900000,\"Alpha, Inc.\"\r\nT3,30.000,3.000,12345678,Gamma\r\n"));
    }

    void aCsvThatCannotBeWrittenIsTold() {
        WorkProgram program;
        const Path file = program.folder / "none" / "out.csv";
        QStringList told;
        program.frame->Subjects().children;
        DialogHand hand([&](QDialog& dialog) {
            if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
                told << box->text();
                PressButton(dialog, QMessageBox::Ok);
            } else {
                EnterFile(dialog, file);
            }
        });
        program.Choose("mnuFileExportCsv");
        QCOMPARE(told, QStringList(ShownPath(file) +
                                   QStringLiteral(": cannot be saved (No such file or directory)")));
    }

    void columnsAreSharedOutOverPages() {
        using Parts = std::vector<std::vector<std::size_t>>;
        QCOMPARE(ColumnParts({10, 10, 10, 10}, 2, 48), (Parts{{0, 1, 2, 3}}));
        QCOMPARE(ColumnParts({10, 10, 10, 10}, 2, 36), (Parts{{0, 1, 2}, {0, 3}}));
        // One column at least, however wide.
        QCOMPARE(ColumnParts({10, 90, 90}, 2, 36), (Parts{{0, 1}, {0, 2}}));
        QCOMPARE(ColumnParts({10}, 2, 36), (Parts{{0}}));
        QCOMPARE(ColumnParts({}, 2, 36), Parts{});
    }

    void theWholeTableIsPrintedOverPages() {
        QuoteTable table;
        table.AppendLine("Ticker Symbol\tName");
        TableOnPaper paper{table, {}, {0, 1}, QStringLiteral("Big.ddq"), QStringLiteral("03/09/26")};
        for (std::size_t row = 1; row <= 500; ++row) {
            table.AppendLine("T" + std::to_string(row) + "\tA name");
            paper.rows.push_back(row);
        }
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QPageSize::A4));
        const int pages = PaintTablePages(writer, paper);
        // A line of eight points is about ten points high: 70 to 90 of them on a page of A4.
        QVERIFY2(pages >= 6 && pages <= 8, std::to_string(pages).c_str());
        QCOMPARE(bytes.count("/Type /Page\n"), pages);
        paper.rows.clear();
        QPdfWriter empty(&buffer);
        QCOMPARE(PaintTablePages(empty, paper), 1);
    }

    void theAlarmBoxesShowThoseOfTheSelectedRow() {
        WorkProgram program;
        program.Click(0, 1);
        QCOMPARE(program.Box("Text2")->text(), QStringLiteral("60"));
        QCOMPARE(program.Box("Text3")->text(), QStringLiteral("5"));
        program.Click(1, 1);
        QCOMPARE(program.Box("Text2")->text(), QString());
        program.Click(2, 1);
        QCOMPARE(program.Box("Text3")->text(), QStringLiteral("7"));
        // Typing a ticker shows its alarms; a new one has none.
        program.Box("Text1")->setText(QStringLiteral("t1"));
        QCOMPARE(program.Box("Text2")->text(), QStringLiteral("60"));
        program.Box("Text1")->setText(QStringLiteral("T"));
        QCOMPARE(program.Box("Text2")->text(), QString());
        QCOMPARE(program.Box("Text3")->text(), QString());
        // What was typed stays.
        program.Box("Text2")->setText(QStringLiteral("99"));
        program.Box("Text1")->setText(QStringLiteral("T1"));
        QCOMPARE(program.Box("Text2")->text(), QStringLiteral("99"));
        QCOMPARE(program.Box("Text3")->text(), QStringLiteral("5"));
    }

    void theAlarmBoxesTakePricesAlone() {
        WorkProgram program;
        program.Box("Text2")->clear();
        QTest::keyClicks(program.Box("Text2"), QStringLiteral("a1,2b.5-x"));
        QCOMPARE(program.Box("Text2")->text(), QStringLiteral("12.5"));
    }

    // 18,000 rows: the same as in a small table.
    void aFullTableIsFilteredSelectedAndCopied() {
        WorkProgram program;
        program.Write("Big.ddq", Program::QuoteTableText(17999));
        program.session.settings.MruSettings.Set(1, Value::OfText("Big.ddq"));
        program.frame->OpenRecentFile(1);
        program.Filter("Change < 0");
        QCOMPARE(program.Shown().size(), std::size_t{5999});
        program.Choose("mnuEditSelectAll");
        QCOMPARE(program.Selected().size(), std::size_t{5999});
        program.Choose("SortDescending");
        QCOMPARE(program.Selected().size(), std::size_t{5999});
        program.Choose("mnuEditCopy");
        QCOMPARE(QGuiApplication::clipboard()->text().count(u'\n'), 6000);
        program.Filter("");
        QCOMPARE(program.Shown().size(), std::size_t{17999});
    }
};

WINDOW_TEST(TableWorkTest)
#include "table_work_test.moc"
