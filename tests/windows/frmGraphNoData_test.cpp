// The chart of a ticker without a history: what it shows, and the offer to download one.
#include <QAction>
#include <QProgressBar>

#include "chart_fixture.h"

using namespace brantlow;

namespace {

// T2 has no history; the web has one day of it.
class EmptyChartProgram : public ChartProgram {
  public:
    EmptyChartProgram() {
        web.AnswerWith([this](const WebRequest&) {
            if (onRequest) onRequest();
            return MemoryWeb::Page(reply);
        });
        SelectTicker("T2");
        Choose("mnuGraphicsHLC");
    }

    frmGraphNoData* Offer() { return frame->findChild<frmGraphNoData*>(); }
    QPushButton* OfferButton(const char* name) {
        return Offer()->findChild<QPushButton*>(QString::fromLatin1(name));
    }
    std::string History() { return BytesOrEmpty(session.AppPath / "Quotes" / "EOD" / "T2.26"); }

    std::string reply =
        "Date,Open,High,Low,Close,Volume,Adj\n2026-03-06,10,12,9,11,500,11\n2026-03-05,9,11,8,10,400,10\n";
    std::function<void()> onRequest;
};

}  // namespace

class FrmGraphNoDataTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void itHasItsWordsAndStandsOverTheEmptyChart() {
        EmptyChartProgram program;
        QVERIFY(program.Offer() && program.Offer()->isVisible() && program.Offer()->isModal());
        QCOMPARE(program.Offer()->windowTitle(), QStringLiteral("Database Check"));
        QStringList lines;
        for (const QLabel* label : program.Offer()->findChildren<QLabel*>()) lines.append(label->text());
        QCOMPARE(
            lines,
            (QStringList{
                QStringLiteral("Data does not exist in the Quote Database for this Ticker Symbol."),
                QStringLiteral("Brantlow will now add this historical data to the database."),
                QStringLiteral("At your convienience, you should add this Ticker Symbol to the Quote File "
                               "which you maintain with daily updates in order to keep the quote database "
                               "current and up to date.")}));
        QCOMPARE(program.OfferButton("Command1")->text(), QStringLiteral("Next"));
        QCOMPARE(program.OfferButton("Command2")->text(), QStringLiteral("Exit"));
        QVERIFY(program.Graph());
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
    }

    void itStandsInTheMiddleOfTheScreen() {
        EmptyChartProgram program;
        const QPoint middle = program.Offer()->screen()->availableGeometry().center();
        const QPoint off = program.Offer()->geometry().center() - middle;
        QVERIFY2(off.manhattanLength() <= 4, qPrintable(QStringLiteral("%1 %2").arg(off.x()).arg(off.y())));
    }

    void theEmptyChartSaysSo() {
        EmptyChartProgram program;
        auto* const empty = program.Part<QLabel>("lblEmptyPrice");
        QVERIFY(empty->isVisible());
        QCOMPARE(empty->text(),
                 QStringLiteral("Data does not exist in the Quote Database for this Ticker Symbol."));
        program.OfferButton("Command2")->click();
        program.SelectTicker("T1");
        program.Choose("mnuGraphicsHLC");
        QVERIFY(!program.Part<QLabel>("lblEmptyPrice")->isVisible());
        QVERIFY(!program.Offer() || !program.Offer()->isVisible());
    }

    // The bounds of a scale without values are long numbers.
    void theEmptyChartIsNoWiderThanAnother() {
        EmptyChartProgram program;
        program.OfferButton("Command2")->click();
        QVERIFY2(program.Graph()->ClientArea()->width() <= 1024,
                 qPrintable(QString::number(program.Graph()->ClientArea()->width())));
        QCOMPARE(program.Label("Label54"), QStringLiteral("-900000000000000000000.0000"));
        QCOMPARE(program.Label("Label55"), QStringLiteral("900000000000000000000.0000"));
        const QRect study = program.Part<ChartPanel>("Picture2")->geometry();
        for (const char* name : {"Label54", "Label55"}) {
            const auto* const label = program.Part<QLabel>(name);
            QVERIFY2(study.contains(label->geometry()), name);
            QVERIFY2(label->width() >= label->sizeHint().width(), name);
        }
    }

    void nextDownloadsTheHistoryAndClosesTheChart() {
        EmptyChartProgram program;
        bool busy = false;
        bool shut = false;
        program.onRequest = [&] {
            busy = program.Offer()->findChild<QProgressBar*>()->isVisible();
            shut = !program.OfferButton("Command1")->isEnabled() &&
                   !program.OfferButton("Command2")->isEnabled();
            QTest::keyClick(program.Offer(), Qt::Key_Escape);
            shut = shut && program.Offer()->isVisible() && program.Graph();
        };
        QTest::mouseClick(program.OfferButton("Command1"), Qt::LeftButton);
        QVERIFY(busy);
        QVERIFY(shut);
        QCOMPARE(program.web.Addresses.size(), std::size_t{1});
        QVERIFY(QString::fromStdString(program.web.Addresses.front()).contains(QStringLiteral("s=T2&")));
        QVERIFY2(program.History().starts_with("\"03/05/26\""), program.History().c_str());
        QVERIFY(!program.Graph());
        QVERIFY(!program.Offer() || !program.Offer()->isVisible());
        QVERIFY(program.frame->QuoteForm());
    }

    void theChartIsStartedAgainByThePerson() {
        EmptyChartProgram program;
        program.reply = "Date,Open,High,Low,Close,Volume,Adj\n";
        for (int day = 20; day > 0; --day) {
            program.reply += "2026-01-" + std::to_string(day + 10) + ",10,12,9,11,500,11\n";
        }
        program.OfferButton("Command1")->click();
        program.Choose("mnuGraphicsHLC");
        QVERIFY(program.Graph());
        QCOMPARE(program.Label("Label62"), QStringLiteral("01/30/26"));
        QVERIFY(!program.Offer() || !program.Offer()->isVisible());
    }

    void exitLeavesTheEmptyChartAndTheDatabase() {
        EmptyChartProgram program;
        QTest::mouseClick(program.OfferButton("Command2"), Qt::LeftButton);
        QVERIFY(!program.Offer() || !program.Offer()->isVisible());
        QVERIFY(program.Graph());
        QVERIFY(program.web.Addresses.empty());
        QVERIFY(program.History().empty());
    }

    void escapeIsExit() {
        EmptyChartProgram program;
        QTest::keyClick(program.Offer(), Qt::Key_Escape);
        QVERIFY(!program.Offer() || !program.Offer()->isVisible());
        QVERIFY(program.Graph());
        QVERIFY(program.web.Addresses.empty());
    }

    void aFailedDownloadLeavesNoDataAndNoMessage() {
        EmptyChartProgram program;
        program.reply.clear();
        int boxes = 0;
        DialogHand hand([&](QDialog& dialog) {
            boxes += qobject_cast<QMessageBox*>(&dialog) ? 1 : 0;
            if (qobject_cast<QMessageBox*>(&dialog)) dialog.reject();
        });
        program.OfferButton("Command1")->click();
        QCoreApplication::processEvents();
        QCOMPARE(boxes, 0);
        QVERIFY(!program.Graph());
        QVERIFY(program.History().empty());
    }

    void oneBarAndTwoBars() {
        for (const std::size_t bars : {std::size_t{1}, std::size_t{2}}) {
            ChartProgram program;
            program.WriteHistory("T2", bars);
            program.SelectTicker("T2");
            program.Choose("mnuGraphicsCandleStick");
            QVERIFY(program.Graph());
            QCOMPARE(program.Label("Label59"), QString::number(100 + static_cast<int>(bars)));
            const auto* const offer = program.frame->findChild<frmGraphNoData*>();
            QCOMPARE(offer != nullptr, bars == 1);
        }
    }

    void everyActionOfAnEmptyChartIsSafe() {
        EmptyChartProgram program;
        program.OfferButton("Command2")->click();
        for (const char* button : {"Command5", "Command5", "Command6", "Command3", "Command4"})
            program.Press(button);
        program.Pick("Combo1", "LR MINMAX CL");
        program.Pick("Combo2", "RSI 15");
        program.Pick("Combo3", "WMA 30");
        for (const char* panel : {"Picture1", "Picture2", "Picture3"}) {
            QTest::mouseClick(program.Part<ChartPanel>(panel), Qt::LeftButton, {}, QPoint(100, 40));
            QVERIFY(!program.Picture(panel).isNull());
        }
        QCOMPARE(program.Label("Label58"), QStringLiteral("T2"));
        QVERIFY(program.Part<QLabel>("lblEmptyPrice")->isVisible());
    }
};

WINDOW_TEST(FrmGraphNoDataTest)
#include "frmGraphNoData_test.moc"
