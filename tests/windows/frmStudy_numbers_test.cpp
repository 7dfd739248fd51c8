// The study of three tickers at its window: every number in the table, the words, the list, the report and
// the print is the one that was worked out by hand (three_tickers.h and study_figures_test.cpp show the
// sums).
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTableWidget>
#include <algorithm>

#include "study/three_tickers.h"
#include "study/windows/frmStudy.h"
#include "window_fixture.h"

using namespace brantlow;

namespace {

class ThreeTickersStudy {
  public:
    ThreeTickersStudy() {
        Part<QLineEdit>("Horizons")->setText(QStringLiteral("1,2"));
        Part<QDoubleSpinBox>("Cost")->setValue(0);
        form.Show(ThreeTickers());
    }
    template <class Widget>
    Widget* Part(const char* name) {
        return form.findChild<Widget*>(QString::fromLatin1(name));
    }
    // What follows after so many days is told.
    void Tell(int horizon) {
        auto* detail = Part<QComboBox>("Detail");
        detail->setCurrentIndex(horizon);
        Q_EMIT detail->activated(horizon);
    }
    QStringList Row(int row) {
        const auto* table = Part<QTableWidget>("Conditions");
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells << table->item(row, column)->text();
        return cells;
    }
    QStringList Signal(int row) {
        const QAbstractItemModel* list = Part<QTableView>("Signals")->model();
        QStringList cells;
        for (int column = 0; column < list->columnCount(); ++column)
            cells << list->index(row, column).data().toString();
        return cells;
    }

    Program program;
    frmStudy form{program.session, "Hand.ddq", {"A", "B", "C"}};
};

QStringList Texts(const std::vector<const char*>& texts) {
    QStringList list;
    for (const char* text : texts) list << QString::fromUtf8(text);
    return list;
}

std::size_t CountOf(const std::string& text, std::string_view part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

}  // namespace

class FrmStudyNumbersTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theTableTellsTheHandWorkedFigures() {
        ThreeTickersStudy study;
        // Six days of A and of B and four of C.
        QVERIFY(study.Part<QLabel>("State")->text().startsWith(
            QStringLiteral("16 days of 3 tickers were judged.")));
        study.Tell(0);
        const auto* table = study.Part<QTableWidget>("Conditions");
        QStringList heads;
        for (int column = 0; column < table->columnCount(); ++column)
            heads << table->horizontalHeaderItem(column)->text();
        QCOMPARE(heads, Texts({"Condition", "Action", "Signals", "Tickers", "Mean\nafter 1 day",
                               "Mean\nafter 2 days", "Above 0\nafter 1 day", "Any day's mean", "Excess",
                               "Its error", "First half", "Second half"}));
        // Any day after one bar: 1.05 / 12. The error: sqrt(2 * .75 * .75) / 4.
        QCOMPARE(study.Row(0), Texts({"1", "Buy", "5", "3", "+25.00 %", "-5.00 %", "75.00 %", "+8.75 %",
                                      "+16.25 %", "26.52 %", "+0.00 %", "+100.00 %"}));
        QCOMPARE(study.Row(1), Texts({"2", "Sell", "1", "1", "-50.00 %", "-60.00 %", "0.00 %", "+8.75 %",
                                      "-58.75 %", "0.00 %", "-50.00 %", ""}));
        QCOMPARE(study.Row(2), Texts({"3", "Hold", "0", "0", "", "", "", "+8.75 %", "", "", "", ""}));
        study.Tell(1);
        // Any day after two bars: .135 / 10. The error: sqrt(2 * .55 * .55) / 2.
        QCOMPARE(study.Row(0).mid(6), Texts({"50.00 %", "+1.35 %", "-6.35 %", "38.89 %", "-5.00 %", ""}));
    }

    void theWordsTellTheSharesOfAHundred() {
        ThreeTickersStudy study;
        // Higher after one bar: 3 of 4 signals and 6 of 12 days; after two: 1 of 2 and 4 of 10.
        QCOMPARE(
            study.Part<QLabel>("Words")->text(),
            QStringLiteral(
                "After 1 day 75 of 100 were higher; any day: 50 of 100; the difference may be chance.\n"
                "After 2 days 50 of 100 were higher; any day: 40 of 100; the difference may be chance."));
        study.Part<QTableWidget>("Conditions")->selectRow(2);
        QVERIFY(study.Part<QLabel>("Words")->text().startsWith(
            QStringLiteral("After 1 day nothing can be said yet")));
    }

    void theListHoldsTheSixSignals() {
        ThreeTickersStudy study;
        const auto* view = study.Part<QTableView>("Signals");
        QCOMPARE(view->model()->rowCount(), 6);
        QCOMPARE(study.Signal(0),
                 Texts({"2026-03-02", "A", "1", "Buy", "2026-03-03", "20", "+25.00 %", "+50.00 %"}));
        QCOMPARE(study.Signal(4), Texts({"2026-03-06", "B", "1", "Buy", "2026-03-07", "4", "+100.00 %", ""}));
        QCOMPARE(study.Signal(5), Texts({"2026-03-06", "C", "1", "Buy", "2026-03-07", "0", "", ""}));
    }

    void aFilterKeepsTheOrderThatWasChosen() {
        ThreeTickersStudy study;
        auto* view = study.Part<QTableView>("Signals");
        view->sortByColumn(6, Qt::AscendingOrder);
        study.Part<QComboBox>("ConditionFilter")->setCurrentIndex(1);
        QStringList returns;
        for (int row = 0; row < view->model()->rowCount(); ++row) returns << study.Signal(row).at(6);
        // An open one stands below all others; equal ones by their days.
        QCOMPARE(returns, Texts({"", "-50.00 %", "+25.00 %", "+25.00 %", "+100.00 %"}));
        QCOMPARE(study.Signal(2).at(1), QStringLiteral("A"));
        QCOMPARE(study.Signal(3).at(1), QStringLiteral("C"));
    }

    void theSignalsAreSavedAsTheHandWorkedList() {
        ThreeTickersStudy study;
        const Path file = study.program.folder / "list.csv";
        DialogHand hand([&](QDialog& dialog) { EnterFile(dialog, file); });
        study.Part<QPushButton>("SaveSignals")->click();
        QCOMPARE(BytesOrEmpty(file), std::string("date,ticker,condition,action,entry,entry_close,r_1,r_2\n"
                                                 "2026-03-02,A,1,Buy,2026-03-03,20,0.25,0.5\n"
                                                 "2026-03-03,B,1,Buy,2026-03-04,10,-0.5,-0.6\n"
                                                 "2026-03-03,B,2,Sell,2026-03-04,10,-0.5,-0.6\n"
                                                 "2026-03-03,C,1,Buy,2026-03-05,40,0.25,\n"
                                                 "2026-03-06,B,1,Buy,2026-03-07,4,1,\n"
                                                 "2026-03-06,C,1,Buy,2026-03-07,0,,\n"));
    }

    void thePortfolioIsTheHandWorkedOne() {
        ThreeTickersStudy study;
        study.Part<QSpinBox>("Hold")->setValue(2);
        study.Part<QSpinBox>("Most")->setValue(1);
        const QString words = study.Part<QLabel>("EquityWords")->text();
        QVERIFY2(words.startsWith(QStringLiteral(
                     "Bought at the signals of condition 1 (Buy), at most 1 share at a time in equal parts, "
                     "held for 2 days; cost 0 % each time.\n2 trades have ended, 0 shares are still held. ")),
                 qPrintable(words));
        // The tickers fell from 4.75 to 2.7; money was in shares on five of eight days.
        QVERIFY2(words.endsWith(QStringLiteral(
                     "Worst fall 0.00 %; all tickers held 43.16 %. 62.50 % of the money was in shares.")),
                 qPrintable(words));
    }

    void theReportHoldsTheSameNumbersAndAsksBeforeItReplacesOne() {
        ThreeTickersStudy study;
        study.Tell(0);
        study.Part<QPushButton>("SaveReport")->click();
        const std::string html = study.program.Read("Study 2026-03-09.html");
        for (int row = 0; row < 3; ++row) {
            std::string cells = "<tr>";
            for (const QString& cell : study.Row(row)) cells += "<td>" + cell.toStdString() + "</td>";
            QVERIFY2(html.find(cells + "</tr>") != std::string::npos, cells.c_str());
        }
        QVERIFY(html.find("Hand.ddq, daily, ") != std::string::npos);
        QVERIFY(html.find("3 tickers. 16 days of 3 tickers were judged.") != std::string::npos);
        QVERIFY(html.find("<b>Condition 1 (Buy)</b>, 5 signals: After 1 day 75 of 100") != std::string::npos);
        QVERIFY(html.find("<h2>Portfolio</h2>") != std::string::npos);
        for (const std::string_view warning : kStudyWarnings)
            QVERIFY(html.find(warning) != std::string::npos);
        // Two conditions with signals, and the portfolio.
        QCOMPARE(CountOf(html, "<svg "), std::size_t{3});

        study.program.Write("Study 2026-03-09.html", "mine");
        DialogHand hand([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
        study.Part<QPushButton>("SaveReport")->click();
        QCOMPARE(hand.seen, 1);
        QCOMPARE(study.program.Read("Study 2026-03-09.html"), std::string("mine"));
    }

    void theReportIsPrintedWithItsPictures() {
        ThreeTickersStudy study;
        const Path file = study.program.folder / "report.pdf";
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(ShownPath(file));
        study.form.Print(printer);
        const std::string pdf = BytesOrEmpty(file);
        QVERIFY(pdf.starts_with("%PDF-"));
        QCOMPARE(CountOf(pdf, "/Subtype /Image"), std::size_t{3});
        QVERIFY(CountOf(pdf, "/Type /Page\n") + CountOf(pdf, "/Type /Page ") >= 1);
    }

    void oneTickerOneDayAndOneSignalAreOne() {
        ThreeTickersStudy study;
        ConditionStudy one = ThreeTickers();
        one.tickers.resize(1);
        one.asked = 1;
        one.stopped = true;
        auto& verdicts = one.tickers.front().verdicts;
        std::fill(verdicts.begin() + 1, verdicts.end(), BarVerdicts{0});
        study.form.Show(std::move(one));
        QVERIFY(study.Part<QLabel>("State")->text().startsWith(
            QStringLiteral("1 day of 1 ticker was judged. Ended early: ")));
        study.Part<QPushButton>("SaveReport")->click();
        const std::string html = study.program.Read("Study 2026-03-09.html");
        QVERIFY(html.find(", 1 ticker. 1 day of 1 ticker was judged. Bought ") != std::string::npos);
        QVERIFY(html.find("<b>Ended after 1 ticker: the figures") != std::string::npos);
        QVERIFY(html.find("<b>Condition 1 (Buy)</b>, 1 signal: ") != std::string::npos);
    }

    void aWalkThatWasEndedSaysSo() {
        ThreeTickersStudy study;
        ConditionStudy ended = ThreeTickers();
        ended.tickers.pop_back();
        ended.stopped = true;
        study.form.Show(std::move(ended));
        QCOMPARE(study.Part<QLabel>("State")->text(),
                 QStringLiteral("12 days of 2 tickers were judged. Ended early: the figures are of these "
                                "tickers alone."));
        study.Part<QPushButton>("SaveReport")->click();
        QVERIFY(study.program.Read("Study 2026-03-09.html")
                    .find("<b>Ended after 2 tickers: the figures are of these alone.</b>") !=
                std::string::npos);
    }
};

WINDOW_TEST(FrmStudyNumbersTest)
#include "frmStudy_numbers_test.moc"
