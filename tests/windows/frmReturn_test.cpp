// The back-test's report: its texts, its trades, and the button that opens it.
#include "chart/windows/frmReturn.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "support/recording_person.h"
#include "window_fixture.h"

namespace brantlow {

// A chart of 60 bars: bought after bar 40 at 10, sold after bar 50 at 12, newest close 13.
struct OneRoundTrip {
    OneRoundTrip() {
        series->BarCount = series->LastBar = 60;
        for (std::size_t i = 1; i <= 60; ++i) {
            series->QuoteDate.Set(i, "day " + std::to_string(i));
            series->ClosePrice.Set(i, 13);
            chart.BuySignal.Set(i, "False");
            chart.SellSignal.Set(i, "False");
        }
        chart.BuySignal.Set(40, "True");
        series->ClosePrice.Set(41, 10);
        chart.SellSignal.Set(50, "True");
        series->ClosePrice.Set(51, 12);
        chart.Label58 = "AAPL";
        settings.GraphSettings.Set(9, Value::OfText("Condition 1"));
        settings.GraphSettings.Set(10, Value::OfText("Condition 2"));
    }

    ReturnSource Source() const { return {settings, *series, chart}; }

    std::unique_ptr<WorkingSeries> series = std::make_unique<WorkingSeries>();
    ChartSession chart;
    SettingsTables settings;
};

class frmReturnTest : public QObject {
    Q_OBJECT

    static QString TextOf(const QWidget& window, const char* control) {
        const auto* label = window.findChild<QLabel*>(QString::fromLatin1(control));
        return label ? label->text() : QStringLiteral("no such label");
    }
    static QStringList Row(const QTableWidget& table, int row) {
        QStringList texts;
        for (int column = 0; column < table.columnCount(); ++column)
            texts.append(table.item(row, column)->text());
        return texts;
    }

  private Q_SLOTS:
    void everyTextStandsInItsControl() {
        const OneRoundTrip trip;
        const frmReturn window(trip.Source(), nullptr);
        QCOMPARE(window.windowTitle(), QStringLiteral("Test Stock Selector's Buy and Sell Conditions"));
        const std::pair<const char*, const char*> rows[] = {
            {"Label1",
             "The basis of this analysis is a transaction of 1000 shares with a commission of 0.5% for each "
             "transaction. The Purchase and Sell price is the closing price on the day of a Buy or Sell "
             "signal."},
            {"Label2",
             "The analysis is based on the selected Stock Selector Conditions. To change from one condition "
             "to another, simply select Settings, Application, and select the Graph Display Settings Tab. To "
             "change the Criteria for a Condition, select Settings, Stock Selector, and select one of the "
             "ten "
             "Conditions you wish to change."},
            {"Label3", "AAPL"},
            {"Label4", "1000"},
            {"Label5", "Shares were puchased at an average cost of"},
            {"Label6", "$10050.00"},
            {"Label7", "1000"},
            {"Label8", "Shares were sold for an average value of"},
            {"Label9", "$11940.00"},
            {"Label10", "0"},
            {"Label11", "Shares remain in your portfolio"},
            {"Label12", "$.00"},
            {"Label13", "Your ROI is:"},
            {"Label14", "18.8 %"},
            {"Label15", "Your profit is:"},
            {"Label16", "$1890.00"},
            {"Label17", "Buy Condtition:"},
            {"Label18", "Condition 1"},
            {"Label19", "Sell Condition:"},
            {"Label20", "Condition 2"},
        };
        for (const auto& [control, text] : rows)
            QVERIFY2(TextOf(window, control) == QString::fromLatin1(text), control);
        QCOMPARE(window.findChild<QLabel*>(QStringLiteral("Label3"))->font().family(),
                 QStringLiteral("Arial"));
    }

    void twelveLinesRuleTheReport() {
        const OneRoundTrip trip;
        frmReturn window(trip.Source(), nullptr);
        window.show();
        for (int i = 1; i <= 12; ++i) {
            const auto* line = window.findChild<QFrame*>(QStringLiteral("Line%1").arg(i));
            QVERIFY2(line, qPrintable(QString::number(i)));
            QVERIFY(line->isVisible());
            QVERIFY(line->width() <= 3 || line->height() <= 3);
            QVERIFY(line->width() > 50 || line->height() > 50);
        }
        QVERIFY(!window.findChild<QFrame*>(QStringLiteral("Line13")));
    }

    void tradesAreListedWithTheirDays() {
        const OneRoundTrip trip;
        const frmReturn window(trip.Source(), nullptr);
        const auto* trades = window.findChild<QTableWidget*>(QStringLiteral("Trades"));
        QCOMPARE(trades->rowCount(), 2);
        QCOMPARE(Row(*trades, 0),
                 QStringList({QStringLiteral("day 40"), QStringLiteral("Buy"), QStringLiteral("day 41"),
                              QStringLiteral("10"), QStringLiteral("$10050.00")}));
        QCOMPARE(Row(*trades, 1),
                 QStringList({QStringLiteral("day 50"), QStringLiteral("Sell"), QStringLiteral("day 51"),
                              QStringLiteral("12"), QStringLiteral("$11940.00")}));
    }

    void aTradeAfterTheNewestBarHasNoDayYet() {
        OneRoundTrip trip;
        trip.chart.BuySignal.Set(60, "True");
        const frmReturn window(trip.Source(), nullptr);
        const auto* trades = window.findChild<QTableWidget*>(QStringLiteral("Trades"));
        QCOMPARE(trades->rowCount(), 3);
        QCOMPARE(Row(*trades, 2),
                 QStringList({QStringLiteral("day 60"), QStringLiteral("Buy"), QStringLiteral("-"),
                              QStringLiteral("-"), QStringLiteral("$.00")}));
    }

    void withoutTradesItSaysSoAndListsNone() {
        OneRoundTrip trip;
        trip.chart.BuySignal.Set(40, "False");
        trip.chart.SellSignal.Set(50, "False");
        frmReturn window(trip.Source(), nullptr);
        window.show();
        QCOMPARE(TextOf(window, "Label6"), QString());
        QCOMPARE(TextOf(window, "Label9"), QString());
        QCOMPARE(TextOf(window, "Label14"), QStringLiteral("No trades in this window."));
        QVERIFY(!window.findChild<QTableWidget*>(QStringLiteral("Trades"))->isVisible());
    }

    void standsInTheMiddleOfTheScreenAndEndsByExitOrEscape() {
        const OneRoundTrip trip;
        frmReturn window(trip.Source(), nullptr);
        window.show();
        const QPoint off = window.frameGeometry().center() - window.screen()->availableGeometry().center();
        QVERIFY(off.manhattanLength() <= 2);
        auto* exit = window.findChild<QPushButton*>(QStringLiteral("Command1"));
        QCOMPARE(exit->text(), QStringLiteral("Exit"));
        QTest::mouseClick(exit, Qt::LeftButton);
        QVERIFY(!window.isVisible());
        window.show();
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void nothingIsCutOnTheSmallestScreen() {
        const OneRoundTrip trip;
        frmReturn window(trip.Source(), nullptr);
        window.show();
        QVERIFY(window.minimumSizeHint().width() <= 1024);
        QVERIFY(window.minimumSizeHint().height() <= 540);
        for (const QLabel* label : window.findChildren<QLabel*>()) {
            const int needed =
                label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
            QVERIFY2(label->height() >= needed, qPrintable(label->objectName()));
            if (!label->wordWrap()) QVERIFY(label->width() >= label->sizeHint().width());
        }
    }

    void withLargeLettersTheReportIsWhole() {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSizeF(usual.pointSizeF() * 1.5);
        QApplication::setFont(large);
        const OneRoundTrip trip;
        frmReturn window(trip.Source(), nullptr);
        window.show();
        for (const char* control : {"Label3", "Label4", "Label9", "Label13", "Label16", "Label17"}) {
            const auto* const label = window.findChild<QLabel*>(QString::fromLatin1(control));
            QVERIFY2(label->height() >= label->sizeHint().height(), control);
        }
        QApplication::setFont(usual);
    }

    void theButtonOpensTheReportWithBothConditions() {
        const OneRoundTrip trip;
        RecordingPerson person;
        QString title;
        DialogHand hand([&title](QDialog& dialog) {
            title = dialog.windowTitle();
            dialog.reject();
        });
        TestConditions(trip.Source(), person, nullptr);
        QCOMPARE(hand.seen, 1);
        QCOMPARE(title, QStringLiteral("Test Stock Selector's Buy and Sell Conditions"));
        QVERIFY(person.said.empty());
    }

    void theButtonTellsOfAMissingCondition() {
        OneRoundTrip trip;
        trip.settings.GraphSettings.Set(10, Value::OfText("None"));
        RecordingPerson person;
        TestConditions(trip.Source(), person, nullptr);
        QCOMPARE(person.said.size(), std::size_t{1});
        QCOMPARE(person.said.front().text,
                 std::string("First, you must select Buy and Sell Conditions. Select "
                             "Settings, Application, and Graphics Display Settings "
                             "tab."));
    }
};

WINDOW_TEST(frmReturnTest)

}  // namespace brantlow

#include "frmReturn_test.moc"
