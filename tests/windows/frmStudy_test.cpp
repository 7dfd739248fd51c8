// The study of the conditions at its window: run, read, filtered, saved, and a chart on the day of a signal.
#include <QComboBox>
#include <QHelpEvent>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QToolTip>
#include <QTreeWidget>

#include "base/numbers.h"
#include "base/windows/readable.h"
#include "chart/back_test.h"
#include "chart/chart_actions.h"
#include "chart/windows/frmGraph.h"
#include "selector/windows/explain_pane.h"
#include "shell/frame/windows/frame_subjects.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/quote_grid_model.h"
#include "study/windows/frmStudy.h"
#include "study/windows/replay_page.h"
#include "study/windows/svg_view.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

// Weekdays of 2024 up to the test's day, closes that swing about a rising line; `phase` shifts the swing.
std::map<std::string, std::string> YearsOf(int phase) {
    std::map<std::string, std::string> years;
    int bar = 0;
    for (Date day = std::chrono::year{2024} / 1 / 2; day <= kTestDay; day = AddDays(day, 1)) {
        const std::chrono::weekday weekday{std::chrono::sys_days(day)};
        if (weekday == std::chrono::Saturday || weekday == std::chrono::Sunday) continue;
        const int swing = std::abs((bar++ + phase) % 40 - 20);
        const std::string close = std::to_string(50 + bar / 20 + swing);
        const std::string written = FormatDate(day);
        years[written.substr(6)] += "\"" + written + "\",\"16:00\"," + close + "," + close + "," + close +
                                    ",1000,0,0,0,0,0,\"\",\"\",0,1,10,0,0," + close + "\r\n";
    }
    return years;
}

class StudyProgram : public Program {
  public:
    StudyProgram() {
        Write("VTRSELset.ini",
              "\"Condition\"\r\n\"Buy\"\r\n\"Close Price Broke Above MA "
              "15\"\r\n\"Value\"\r\n\"Condition\"\r\n\"Sell\"\r\n"
              "\"Close Price Broke Below MA 15\"\r\n\"Value\"\r\n");
        Write("Three.ddq", "Ticker Symbol\tLast Price\r\nT1\t1\r\nT2\t1\r\nT3\t1\r\n");
        Write("Old.dbe", "Ticker Symbol\tCondition 1\tCondition 2\r\nT1\tBuy\t\r\nT9\t\t\r\n");
        for (int ticker = 1; ticker <= 3; ++ticker) {
            for (const auto& [year, bytes] : YearsOf(ticker * 7)) {
                const std::string name = "T" + std::to_string(ticker) + "." + year;
                if (WriteWholeFile(session.AppPath / "Quotes" / "EOD" / name, bytes, Flush::Later))
                    qFatal("no history");
            }
        }
    }
    frmStudy* Open() {
        Start("Three.ddq");
        frame->Run("mnuEvaluateStudy");
        // Over so few tickers it runs by itself, once it stands in front.
        QCoreApplication::processEvents();
        return frame->findChild<frmStudy*>();
    }
    // Over a table so small it runs by itself.
    frmStudy* OpenAndRun() { return Open(); }
};

template <class Widget>
Widget* Part(frmStudy* form, const char* name) {
    return form->findChild<Widget*>(QString::fromLatin1(name));
}

}  // namespace

class FrmStudyTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void overALargeTableItWaitsAndSaysWhatToDo() {
        StudyProgram program;
        program.Write("Large.ddq", Program::QuoteTableText(101));
        program.Start("Large.ddq");
        program.frame->Run("mnuEvaluateStudy");
        auto* const form = program.frame->findChild<frmStudy*>();
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), QStringLiteral("Study of the Conditions - Large.ddq"));
        QVERIFY(Part<QLabel>(form, "State")->text().startsWith(QStringLiteral("Press Run")));
        const auto* tabs = Part<QTabWidget>(form, "Tabs");
        for (int page = 0; page < 3; ++page) QVERIFY(!tabs->isTabEnabled(page));
        QVERIFY(tabs->isTabEnabled(3));
    }

    void afterItsFirstRunItStandsBeforeTheTableAndTheCloseKeyIsItsOwn() {
        StudyProgram program;
        frmStudy* const form = program.Open();
        QCOMPARE(program.frame->Subjects().children.FormInFront(), static_cast<QWidget*>(form));
        program.frame->Run("mnuFileClose");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!program.frame->findChild<frmStudy*>());
        QVERIFY(program.frame->QuoteForm());
    }

    void enterInABoxRuns() {
        StudyProgram program;
        frmStudy* const form = program.Open();
        auto* state = Part<QLabel>(form, "State");
        for (const char* box : {"From", "To", "Interval", "Horizons", "Cost", "EveryDay", "Run"}) {
            state->clear();
            QTest::keyClick(Part<QWidget>(form, box), Qt::Key_Return);
            QVERIFY2(state->text().contains(QStringLiteral("were judged")), box);
        }
        Part<QLineEdit>(form, "Horizons")->setText(QStringLiteral("3"));
        QTest::keyClick(Part<QWidget>(form, "Horizons"), Qt::Key_Enter);
        QCOMPARE(Part<QTableWidget>(form, "Conditions")->horizontalHeaderItem(4)->text(),
                 QStringLiteral("Mean\nafter 3 days"));
    }

    void aRunFillsTheTableTheWordsAndTheList() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        QVERIFY(
            Part<QLabel>(form, "State")->text().contains(QStringLiteral("days of 3 tickers were judged.")));
        QCOMPARE(Part<QTabWidget>(form, "Tabs")->currentIndex(), 0);
        auto* table = Part<QTableWidget>(form, "Conditions");
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->horizontalHeaderItem(2)->text(), QStringLiteral("Signals"));
        QCOMPARE(table->item(0, 1)->text(), QStringLiteral("Buy"));
        const int buys = table->item(0, 2)->text().toInt();
        const int sells = table->item(1, 2)->text().toInt();
        QVERIFY(buys > 5 && sells > 5);
        QVERIFY(Part<QLabel>(form, "Words")->text().startsWith(QStringLiteral("After 1 day ")));
        const QAbstractItemModel* list = Part<QTableView>(form, "Signals")->model();
        QCOMPARE(list->rowCount(), buys + sells);
        Part<QComboBox>(form, "ConditionFilter")->setCurrentIndex(2);
        QCOMPARE(list->rowCount(), sells);
        Part<QLineEdit>(form, "TickerFilter")->setText(QStringLiteral("t2"));
        QVERIFY(list->rowCount() > 0 && list->rowCount() < sells);
        for (int row = 0; row < list->rowCount(); ++row)
            QCOMPARE(list->index(row, 1).data().toString(), QStringLiteral("T2"));
    }

    void thePicturesFollowTheDesktopsColoursAndTheReportStaysOnPaper() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        auto* const path = form->findChild<SvgView*>();
        QVERIFY(path);
        const auto ground = [path] { return path->grab().toImage().pixelColor(3, 3).name().toStdString(); };
        QCOMPARE(ground(), std::string(kPaperColours.ground));
        QPalette dark = form->palette();
        dark.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
        form->setPalette(dark);
        QCOMPARE(ground(), std::string(kDarkColours.ground));
        Part<QPushButton>(form, "SaveReport")->click();
        const std::string report = program.Read("Study 2026-03-09.html");
        QVERIFY(report.find(kPaperColours.signals) != std::string::npos);
        QVERIFY(report.find(kDarkColours.signals) == std::string::npos);
    }

    void thePicturesCanBeReadOnBothGrounds() {
        for (const PictureColours& colours : {kPaperColours, kDarkColours}) {
            const auto colour = [](std::string_view text) {
                return QColor(QString::fromLatin1(text.data(), static_cast<int>(text.size())));
            };
            for (const std::string_view text : {colours.words, colours.signals, colours.baseline})
                QVERIFY2(ContrastRatio(colour(colours.ground), colour(text)) >= 4.5, text.data());
        }
    }

    void theListSortsByReturn() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        auto* view = Part<QTableView>(form, "Signals");
        view->sortByColumn(6, Qt::DescendingOrder);
        double before = 1e9;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            const QString text = view->model()->index(row, 6).data().toString();
            const double value = text.isEmpty() ? -1e9 : text.section(u' ', 0, 0).toDouble();
            QVERIFY(value <= before);
            before = value;
        }
    }

    void aSignalOpensTheChartOnItsDay() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        auto* view = Part<QTableView>(form, "Signals");
        view->setCurrentIndex(view->model()->index(0, 0));
        const QString day = view->model()->index(0, 0).data().toString();
        Part<QPushButton>(form, "Chart")->click();
        QVERIFY(program.frame->findChild<frmGraph*>());
        const auto& series = program.analysis->series;
        const auto newest = ParseDate(series.QuoteDate[series.BarCount]);
        QVERIFY(newest);
        QCOMPARE(Name(FormatIsoDate(*newest)), day);
    }

    void theReportIsSavedWithItsPictures() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        Part<QPushButton>(form, "SaveReport")->click();
        const std::string html = program.Read("Study 2026-03-09.html");
        QVERIFY(html.find("<svg") != std::string::npos);
        QVERIFY(html.find("shares that vanished") != std::string::npos);
        QVERIFY(html.find("<b>Condition 1 (Buy)</b>") != std::string::npos);
        QVERIFY(Part<QLabel>(form, "State")->text().startsWith(QStringLiteral("Saved: ")));
    }

    void theSignalsAreSavedAsCsv() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        const Path file = program.folder / "list.csv";
        DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, file); });
        Part<QPushButton>(form, "SaveSignals")->click();
        const std::string csv = BytesOrEmpty(file);
        QVERIFY(csv.starts_with("date,ticker,condition,action,entry,entry_close,r_1,r_5,r_20,r_60\n"));
        const auto lines = std::count(csv.begin(), csv.end(), '\n');
        QCOMPARE(static_cast<int>(lines) - 1, Part<QTableView>(form, "Signals")->model()->rowCount());
    }

    void thePortfolioFollowsItsBoxes() {
        StudyProgram program;
        frmStudy* const form = program.OpenAndRun();
        auto* words = Part<QLabel>(form, "EquityWords");
        const QString before = words->text();
        QVERIFY(before.contains(QStringLiteral(" trades have ended, ")));
        Part<QSpinBox>(form, "Hold")->setValue(3);
        QVERIFY(words->text() != before);
    }

    void theChartsPairIsReplayedOverTheTable() {
        StudyProgram program;
        // Both sides with the same test but for its direction: they take turns.
        program.Write("VTRGRAPHset.ini",
                      "\"Default\"\r\n\"Price\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n"
                      "\"Condition 1\"\r\n\"Condition 2\"\r\n");
        frmStudy* const form = program.Open();
        Part<QPushButton>(form, "Replay")->click();
        // The same by the engine, ticker by ticker.
        double profit = 0;
        int trades = 0;
        for (const char* ticker : {"T1", "T2", "T3"}) {
            ChartSession chart;
            chart.SelectorTicker = ticker;
            const auto analysis = std::make_unique<Analysis>();
            ChartContext context{program.session, *analysis, chart};
            QVERIFY(!ReloadChart(context, Signals::Compute));
            const BackTest test = RunBackTest(analysis->series, chart);
            profit += test.Profit;
            trades += static_cast<int>(test.trades.size());
        }
        QVERIFY(trades > 6);
        const QString words = Part<QLabel>(form, "ReplayWords")->text();
        QVERIFY2(
            words.startsWith(QStringLiteral("Buy Condition 1, Sell Condition 2: 3 of 3 tickers traded, ")),
            qPrintable(words));
        QVERIFY2(words.endsWith(QStringLiteral("Profit %1.").arg(Name(FormatPicture(kMoneyPicture, profit)))),
                 qPrintable(words));
        auto* view = Part<QTableView>(form, "Trades");
        QCOMPARE(view->model()->rowCount(), trades);
        view->sortByColumn(1, Qt::DescendingOrder);
        QCOMPARE(view->model()->index(0, 1).data().toString(), QStringLiteral("T3"));
        QCOMPARE(view->model()->index(0, 2).data().toString(), QStringLiteral("Buy"));
        // A trade opens the chart on its day.
        const QString day = view->model()->index(0, 0).data().toString();
        Q_EMIT view->activated(view->model()->index(0, 0));
        QVERIFY(program.frame->findChild<frmGraph*>());
        const auto& series = program.analysis->series;
        QCOMPARE(Name(FormatIsoDate(*ParseDate(series.QuoteDate[series.BarCount]))), day);
    }

    void aReplayThatWasEndedSaysSo() {
        const StudyProgram program;
        TableReplay replay;
        replay.tickers = 1;
        replay.traded = 1;
        replay.stopped = true;
        const auto words = [&] { return ReplayWords(replay, program.session.settings); };
        QVERIFY2(words().find(": 1 of 1 ticker traded, 0 with a gain, 0 with a loss.\n") != std::string::npos,
                 words().c_str());
        QVERIFY2(words().ends_with("Profit $.00.\nEnded after 1 ticker: the sums are of these alone."),
                 words().c_str());
        replay.tickers = 2;
        replay.leftOut.push_back({.kind = FailureKind::Read, .file = "T3.26"});
        QVERIFY2(words().find(": 1 of 2 tickers traded, ") != std::string::npos, words().c_str());
        QVERIFY2(words().find("\nEnded after 2 tickers: the sums are of these alone.\n1 left out: ") !=
                     std::string::npos,
                 words().c_str());
    }

    void aReplayWithoutBothConditionsIsRefused() {
        StudyProgram program;
        frmStudy* const form = program.Open();
        Part<QPushButton>(form, "Replay")->click();
        QCOMPARE(Part<QLabel>(form, "ReplayWords")->text(), Name(*RefuseBackTest(program.session.settings)));
        QCOMPARE(Part<QTableView>(form, "Trades")->model()->rowCount(), 0);
    }

    void whatCannotBeReadIsTold() {
        StudyProgram program;
        frmStudy* const form = program.Open();
        for (const char* wrong : {"0", "5000", "soon", "5,5", ""}) {
            Part<QLineEdit>(form, "Horizons")->setText(QString::fromLatin1(wrong));
            Part<QPushButton>(form, "Run")->click();
            QVERIFY(Part<QLabel>(form, "State")->text().startsWith(QStringLiteral("Held for: ")));
        }
    }

    void aVerdictIsExplainedLineByLine() {
        StudyProgram program;
        program.Start("Old.dbe");
        program.frame->Run("mnuViewExplain");
        auto* pane = program.frame->findChild<ExplainPane*>();
        QVERIFY(pane && pane->isVisible());
        auto* view = program.frame->QuoteForm()->View();
        view->setCurrentIndex(view->model()->index(0, 1));
        auto* title = pane->findChild<QLabel*>(QStringLiteral("ExplainTitle"));
        auto* lines = pane->findChild<QTreeWidget*>(QStringLiteral("ExplainLines"));
        QVERIFY2(title->text().startsWith(QStringLiteral("T1, condition 1 (Buy): ")),
                 qPrintable(title->text()));
        QCOMPARE(lines->topLevelItemCount(), 1);
        const QTreeWidgetItem* const line = lines->topLevelItem(0);
        QVERIFY(line->text(0) == QStringLiteral("holds") || line->text(0) == QStringLiteral("fails"));
        QVERIFY(line->text(1).startsWith(
            QStringLiteral("Close Price Broke Above MA 15\nClose against MA 15: before ")));
        // Read in full at any width of the pane.
        for (const int width : {400, 200}) {
            lines->setFixedWidth(width);
            QCoreApplication::processEvents();
            const QRect words = lines->fontMetrics().boundingRect(
                0, 0, lines->columnWidth(1), QWIDGETSIZE_MAX, Qt::TextWordWrap, line->text(1));
            QVERIFY(lines->visualItemRect(line).height() >= words.height());
        }
        view->setCurrentIndex(view->model()->index(1, 1));
        QCOMPARE(title->text(), QStringLiteral("T9: 15 bars or fewer are not judged"));
    }

    void enterOnAVerdictExplainsIt() {
        StudyProgram program;
        program.Start("Old.dbe");
        auto* view = program.frame->QuoteForm()->View();
        view->setCurrentIndex(view->model()->index(0, 1));
        QTest::keyClick(view, Qt::Key_Return);
        auto* pane = program.frame->findChild<ExplainPane*>();
        QVERIFY(pane && pane->isVisible());
        QVERIFY(pane->findChild<QLabel*>(QStringLiteral("ExplainTitle"))
                    ->text()
                    .startsWith(QStringLiteral("T1, condition 1 (Buy): ")));
    }

    void aTableThatTellsItsDayIsExplainedOnThatDayAndThoseBars() {
        StudyProgram program;
        const std::string table = "Ticker Symbol\tCondition 1\tCondition 2\r\nT1\tBuy\t\r\n";
        const TableOrigin origin{std::chrono::year{2025} / 6 / 2, "Weekly", "Three.ddq"};
        program.Write("Told.dbe", table);
        program.Write("Told.dbe.about", OriginText(origin, table));
        program.Start("Told.dbe");
        auto* view = program.frame->QuoteForm()->View();
        view->setCurrentIndex(view->model()->index(0, 1));
        program.frame->Run("mnuViewExplain");
        auto* pane = program.frame->findChild<ExplainPane*>();
        auto* bars = pane->findChild<QComboBox*>(QStringLiteral("ExplainInterval"));
        QCOMPARE(bars->currentText(), QStringLiteral("Weekly"));
        QVERIFY(!bars->isEnabled());
        QCOMPARE(pane->findChild<QLabel*>(QStringLiteral("ExplainDay"))->text(),
                 QStringLiteral("as of 2025-06-02"));
        // The chart opens on that day and those bars, with what the condition looks at.
        pane->findChild<QPushButton*>(QStringLiteral("ExplainChart"))->click();
        QVERIFY(program.frame->findChild<frmGraph*>());
        const auto& series = program.analysis->series;
        const auto newest = ParseDate(series.QuoteDate[series.BarCount]);
        QVERIFY(newest && *newest == origin.day);
        // Weekly bars of that history: 74 weeks lie between its first day and this one.
        QVERIFY2(series.BarCount > 70 && series.BarCount < 78, qPrintable(QString::number(series.BarCount)));
        const auto* slot = program.frame->findChild<QLabel*>(QStringLiteral("Label14"));
        QVERIFY(slot);
        QCOMPARE(slot->text(), QStringLiteral("MA 15"));
    }

    void aVerdictThatIsAnotherNowIsTold() {
        StudyProgram program;
        const std::string table = "Ticker Symbol\tCondition 1\tCondition 2\r\nT1\tBuy\tSell\r\n";
        program.Write("Both.dbe", table);
        program.Start("Both.dbe");
        auto* view = program.frame->QuoteForm()->View();
        program.frame->Run("mnuViewExplain");
        auto* title =
            program.frame->findChild<ExplainPane*>()->findChild<QLabel*>(QStringLiteral("ExplainTitle"));
        int otherwise = 0;
        for (const int column : {1, 2}) {
            view->setCurrentIndex(view->model()->index(0, column));
            if (title->text().contains(QStringLiteral("The table says otherwise"))) ++otherwise;
        }
        // A close cannot break above and below the same average on one day.
        QVERIFY(otherwise >= 1);
    }

    void aToolTipTellsTheVerdictInShortWhileThePaneIsOpen() {
        StudyProgram program;
        program.Start("Old.dbe");
        auto* view = program.frame->QuoteForm()->View();
        const QPoint place = view->visualRect(view->model()->index(0, 1)).center();
        const auto hover = [&] {
            QHelpEvent help(QEvent::ToolTip, place, view->viewport()->mapToGlobal(place));
            QApplication::sendEvent(view->viewport(), &help);
            return QToolTip::text();
        };
        QCOMPARE(hover(), QString());
        program.frame->Run("mnuViewExplain");
        const QString tip = hover();
        QVERIFY2(tip.startsWith(QStringLiteral("T1: holds")) || tip.startsWith(QStringLiteral("T1: fails")),
                 qPrintable(tip));
        QVERIFY2(tip.contains(QStringLiteral("Close against MA 15: before ")), qPrintable(tip));
    }

    void aHitWithoutATestSaysSoInItsToolTipWithThePaneClosed() {
        StudyProgram program;
        // The slope over 120 bars passes for a ticker with fewer.
        std::string slots;
        for (int slot = 1; slot <= 38; ++slot) slots += slot == 6 ? "\"5\"\r\n" : "\"\"\r\n";
        program.Write("VTRSELset.ini",
                      "\"Condition\"\r\n\"Buy\"\r\n\"Close Price Above MA 60\"\r\n\"Value\"\r\n" + slots +
                          "\"Condition\"\r\n\"Sell\"\r\n\"Close Price Above MA 15\"\r\n"
                          "\"Value\"\r\n");
        const std::string year = YearsOf(1).at("26");
        std::size_t end = 0;
        // A series loses a bar where a year's file begins.
        for (int day = 0; day < 30; ++day) end = year.find('\n', end) + 1;
        QVERIFY(
            !WriteWholeFile(program.session.AppPath / "Quotes" / "EOD" / "SHORT.26", year.substr(0, end)));
        const std::string table =
            "Ticker Symbol\tCondition 1\tCondition 2\r\nSHORT\tBuy\tSell\r\nT1\tBuy\t\r\n";
        program.Write("Told.dbe", table);
        program.Write("Told.dbe.about", OriginText({kTestDay, "Daily", "Three.ddq"}, table));
        program.Start("Told.dbe");
        auto* view = program.frame->QuoteForm()->View();
        const auto hover = [&](int row, int column) {
            const QPoint place = view->visualRect(view->model()->index(row, column)).center();
            QHelpEvent help(QEvent::ToolTip, place, view->viewport()->mapToGlobal(place));
            QApplication::sendEvent(view->viewport(), &help);
            return QToolTip::text();
        };
        // Those without a tool tip first: one goes in a time of its own.
        QCOMPARE(hover(0, 2), QString());
        QCOMPARE(hover(1, 1), QString());
        QCOMPARE(hover(0, 1), QStringLiteral("SHORT: holds, but 0 of 2 tests could be made: 29 bars"));
    }

    void anotherTableThanVerdictsIsNotExplained() {
        StudyProgram program;
        program.Start("Three.ddq");
        QCOMPARE(BoxesOf([&] { program.frame->Run("mnuViewExplain"); }),
                 QStringList{
                     QStringLiteral("To explain a verdict, you will need to open a Stock Selector File and "
                                    "select one of its cells")});
    }
};

WINDOW_TEST(FrmStudyTest)
#include "frmStudy_test.moc"
