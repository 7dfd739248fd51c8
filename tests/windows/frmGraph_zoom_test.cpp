// Zoom and pan of the chart by wheel, drag and keys, and the way from ticker to ticker.
#include <QAction>
#include <QGestureEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QPointingDevice>
#include <QStatusBar>
#include <QWheelEvent>
#include <functional>

#include "chart/windows/panel_stack.h"
#include "chart/windows/values_line.h"
#include "fitting_chart.h"
#include "store/windows/frmQuoteGrid.h"

using namespace brantlow;

namespace {

constexpr std::size_t kLong = 900;

class LongChart : public FittingChart {
  public:
    LongChart() {
        WriteHistory("T1", kLong);
        WriteHistory("T2", 400);
        Choose("mnuGraphicsHLC");
    }
    void Wheel(int notches, int bar = 140) {
        ChartPanel* const panel = PanelNamed("Picture1");
        const QPointF place = PlaceOver(bar);
        QWheelEvent wheel(place, panel->mapToGlobal(place), {}, {0, 120 * notches}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(panel, &wheel);
    }
    QPointF PlaceOver(int bar) const {
        return {(50 + 45.0 * bar) / PanelNamed("Picture1")->TwipsAcross(1), 40};
    }
    void Hover(int bar) {
        ChartPanel* const panel = PanelNamed("Picture1");
        const QPointF place = PlaceOver(bar);
        QMouseEvent move(QEvent::MouseMove, place, panel->mapToGlobal(place), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(panel, &move);
    }
    // Two fingers so many times as far from each other.
    void Pinch(bool onScreen, int bar, double factor) {
        ChartPanel* const panel = PanelNamed("Picture1");
        const QPointF place = PlaceOver(bar);
        const QPointF global = panel->mapToGlobal(place);
        if (!onScreen) {
            QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                                      place, place, global, factor - 1, {});
            QCoreApplication::sendEvent(panel, &event);
            return;
        }
        QPinchGesture pinch;
        pinch.setCenterPoint(global);
        pinch.setScaleFactor(factor);
        pinch.setChangeFlags(QPinchGesture::ScaleFactorChanged);
        QGestureEvent event({&pinch});
        QCoreApplication::sendEvent(panel, &event);
    }
    void DragPanel(int pixels) {
        ChartPanel* const panel = PanelNamed("Picture1");
        const QPoint start(400, 60);
        QTest::mousePress(panel, Qt::LeftButton, {}, start);
        for (int i = 1; i <= 4; ++i) {
            const QPointF place(400 + pixels * i / 4.0, 60);
            QMouseEvent move(QEvent::MouseMove, place, panel->mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, {});
            QCoreApplication::sendEvent(panel, &move);
        }
        QTest::mouseRelease(panel, Qt::LeftButton, {}, start + QPoint(pixels, 0));
    }
    // The pointer goes, and the crosshair with it.
    void Leave() {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(PanelNamed("Picture1"), &leave);
    }
    void Key(Qt::Key key) { QTest::keyClick(Graph(), key); }
};

// The chart of T1, and the list of what Page Down goes through; T1 and T3 are hits of the second condition.
QComboBox* WalkThroughHits(LongChart& program) {
    program.Write("Hits.dbe",
                  "Ticker Symbol\tCondition 1\tCondition 2\r\nT1\t\tBuy\r\nT2\tSell\t\r\nT3\t\tHold\r\n");
    program.SetRecent("Hits.dbe");
    program.Start("Hits.dbe");
    program.SelectTicker("T1");
    program.Choose("mnuGraphicsHLC");
    return program.Part<QComboBox>("cboWalk");
}

}  // namespace

class FrmGraphZoomTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void theWheelZoomsAndADoubleClickOnAnAxisResets() {
        LongChart program;
        const QImage whole = program.Picture("Picture1");
        const QString first = program.Label("Label60");
        const QString top = program.Label("Label51");
        program.Wheel(3);
        QVERIFY(program.Picture("Picture1") != whole);
        QVERIFY(program.Label("Label60") != first);
        QVERIFY(program.Label("Label51") != top);
        QTest::mouseDClick(program.Graph()->findChild<PanelStack*>(), Qt::LeftButton, {}, QPoint(4, 100));
        QCOMPARE(program.Picture("Picture1"), whole);
        QCOMPARE(program.Label("Label60"), first);
        QCOMPARE(program.Label("Label51"), top);
    }

    // Two fingers on a touch pad or a touch screen: what is between them stays between them.
    void theCrosshairStaysUnderThePointerWhileTheWheelZooms() {
        LongChart program;
        program.Hover(140);
        const QString before = ValuesText(program);
        program.Wheel(3);
        QCOMPARE(ValuesText(program), before);
        QVERIFY(!before.startsWith(QStringLiteral("Date ") + program.Label("Label62")));
    }

    void pinchingZoomsAboutThePointer_data() {
        QTest::addColumn<bool>("onScreen");
        QTest::newRow("touch pad") << false;
        QTest::newRow("touch screen") << true;
    }
    void pinchingZoomsAboutThePointer() {
        QFETCH(bool, onScreen);
        LongChart program;
        const auto date = [&] {
            program.Hover(200);
            return ValuesText(program).section(QStringLiteral("Open"), 0, 0);
        };
        const QImage whole = program.Picture("Picture1");
        const QString under = date();
        program.Pinch(onScreen, 200, 1.25);
        QVERIFY(program.Picture("Picture1") != whole);
        const QString first = program.Label("Label60");
        QCOMPARE(date(), under);
        program.Pinch(onScreen, 200, 2);
        QVERIFY(program.Label("Label60") != first);
        QCOMPARE(date(), under);
        // Together again, beyond the chart's own window.
        program.Pinch(onScreen, 200, 0.1);
        QVERIFY2(ValuesText(program).contains(QStringLiteral("Series and studies over")),
                 qPrintable(ValuesText(program)));
        program.Key(Qt::Key_0);
        program.Choose("mnuViewFitChart");
        const QString own = program.Label("Label60");
        program.Pinch(onScreen, 200, 2);
        QCOMPARE(program.Label("Label60"), own);
    }

    void aSpanBeyondTheOwnWindowSaysOverWhatItsStudiesAre() {
        LongChart program;
        QVERIFY(!ValuesText(program).contains(QStringLiteral("Series and studies over")));
        program.Wheel(-2);
        QVERIFY2(ValuesText(program).contains(QStringLiteral("Series and studies over 436 bars")),
                 qPrintable(ValuesText(program)));
        program.Key(Qt::Key_0);
        QVERIFY(!ValuesText(program).contains(QStringLiteral("Series and studies over")));
    }

    void aDragPansAndAPressAloneDoesNot() {
        LongChart program;
        const QImage whole = program.Picture("Picture1");
        const QString first = program.Label("Label60");
        QTest::mouseClick(program.PanelNamed("Picture1"), Qt::LeftButton, {}, QPoint(400, 60));
        QCOMPARE(program.Picture("Picture1"), whole);
        program.DragPanel(200);
        QVERIFY(program.Picture("Picture1") != whole);
        QVERIFY(ValuesText(program).contains(QStringLiteral("Series and studies over 279 bars")));
        QCOMPARE(program.Label("Label68"), QString());
        program.DragPanel(-300);
        QCOMPARE(program.Label("Label60"), first);
    }

    // What a panel was painted on serves the next picture too.
    void nothingOfThePictureBeforeIsLeft() {
        LongChart program;
        const auto pictures = [&] {
            QCoreApplication::processEvents();
            return QList<QImage>{program.Picture("Picture1"), program.Picture("Picture2"),
                                 program.Picture("Picture3")};
        };
        const QList<QImage> whole = pictures();
        const auto away = {
            std::function<void()>([&] { program.DragPanel(200); }),
            std::function<void()>([&] { program.Key(Qt::Key_Minus); }),
            std::function<void()>([&] { program.Choose("mnuViewChartDark"); }),
            std::function<void()>([&] {
                program.SetFrame({1399, 949});
            }),
            std::function<void()>([&] { program.Choose("mnuViewChartWideLines"); }),
        };
        QList<QList<QImage>> seen = {whole};
        for (const auto& step : away) {
            step();
            QVERIFY2(!seen.contains(pictures()), qPrintable(QString::number(seen.size())));
            seen << pictures();
        }
        program.Choose("mnuViewChartWideLines");
        QCOMPARE(pictures(), seen.at(4));
        program.SetFrame({1400, 950});
        QCOMPARE(pictures(), seen.at(3));
        program.Choose("mnuViewChartDesktop");
        QCOMPARE(pictures(), seen.at(2));
        program.Key(Qt::Key_0);
        QCOMPARE(pictures(), whole);
    }

    void aDragAtTheEndOfTheHistoryLeavesThePictureAlone() {
        LongChart program;
        const auto draggedPicture = [&](int pixels) {
            program.DragPanel(pixels);
            program.Leave();
            return program.Picture("Picture1");
        };
        for (int i = 0; i < 12; ++i) program.Key(Qt::Key_Minus);
        const QImage all = program.Picture("Picture1");
        const QString values = ValuesText(program);
        QCOMPARE(draggedPicture(200), all);
        QCOMPARE(ValuesText(program), values);
        program.Key(Qt::Key_Plus);
        program.Key(Qt::Key_Home);
        const QImage oldest = program.Picture("Picture1");
        QCOMPARE(draggedPicture(200), oldest);
        // Back, where these bars look alike, but for their days.
        const QString first = program.Label("Label60");
        draggedPicture(-200);
        QVERIFY(program.Label("Label60") != first);
    }

    void keysZoomPanAndReset() {
        LongChart program;
        const QImage whole = program.Picture("Picture1");
        program.Key(Qt::Key_Plus);
        const QImage closer = program.Picture("Picture1");
        QVERIFY(closer != whole);
        program.Key(Qt::Key_Minus);
        program.Key(Qt::Key_Minus);
        QVERIFY(program.Picture("Picture1") != closer);
        program.Key(Qt::Key_0);
        QCOMPARE(program.Picture("Picture1"), whole);
        program.Key(Qt::Key_Home);
        QCOMPARE(program.Label("Label60"), Shown(ChartProgram::Bar(1).HistoryDate));
        program.Key(Qt::Key_End);
        QCOMPARE(program.Picture("Picture1"), whole);
    }

    void theArrowsTakeTheStretchAlong() {
        LongChart program;
        program.Key(Qt::Key_Home);
        for (int i = 0; i < 3; ++i) program.Key(Qt::Key_Right);
        // From the newest bar shown, 279, three to the right.
        QVERIFY(ValuesText(program).contains(QStringLiteral("382.00")));
    }

    void aPressInAZoomedChartReadsTheBarUnderThePointer() {
        LongChart program;
        program.Key(Qt::Key_Home);
        ChartPanel* const panel = program.PanelNamed("Picture1");
        const QPoint place(static_cast<int>((45.0 * 100 + 22) / panel->TwipsAcross(1)), 30);
        QTest::mousePress(panel, Qt::LeftButton, {}, place);
        QCOMPARE(program.Label("Label69"), QStringLiteral("200"));
        QTest::mouseRelease(panel, Qt::LeftButton, {}, place);
        QCOMPARE(program.Label("Label69"), QString());
    }

    void inItsOwnSizeNothingZooms() {
        ChartProgram program(ChartProgram::kBars);
        program.WriteHistory("T1", kLong);
        program.Choose("mnuGraphicsHLC");
        const QImage whole = program.Picture("Picture1");
        for (const Qt::Key key : {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home, Qt::Key_End}) {
            QTest::keyClick(program.Graph(), key);
            QCOMPARE(program.Picture("Picture1"), whole);
        }
    }

    void turningTheFitOffShowsTheOwnWindow() {
        LongChart program;
        program.Key(Qt::Key_Home);
        program.Choose("mnuViewFitChart");
        QCOMPARE(program.Label("Label62"), Shown(ChartProgram::Bar(kLong).HistoryDate));
    }

    // --- from ticker to ticker ---

    void pageDownAndPageUpGoThroughTheTable() {
        LongChart program;
        program.Pick("Combo1", "WMA 60");
        program.Press("Command5");
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
        QCOMPARE(program.Label("Label58"), QStringLiteral("T2"));
        QCOMPARE(program.Label("Label59"), QStringLiteral("500"));
        // Series and time frame stay; the table's row goes along.
        QCOMPARE(program.Label("Label15"), QStringLiteral("WMA 60"));
        QCOMPARE(program.Label("lblTimeFrame"), QStringLiteral("Weekly"));
        QCOMPARE(program.frame->QuoteForm()->TickerMeant(), std::string("T2"));
        program.Key(Qt::Key_PageUp);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T1"));
        program.Key(Qt::Key_PageUp);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T1"));
        QCOMPARE(program.frame->statusBar()->currentMessage(), QStringLiteral("This is the first ticker"));
        for (int i = 0; i < 3; ++i) program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T3"));
        QCOMPARE(program.frame->statusBar()->currentMessage(), QStringLiteral("This is the last ticker"));
        // A ticker without a history shows the empty state.
        QVERIFY(program.Part<QLabel>("lblEmptyPrice")->isVisible());
    }

    void rowsThatAFilterHidesArePassedOver() {
        LongChart program;
        program.Find<QLineEdit>("txtFilter")->setText(QStringLiteral("T3"));
        QTRY_COMPARE_WITH_TIMEOUT(program.frame->QuoteForm()->ShownRows().size(), 1U, kPatienceMs);
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T3"));
        QCOMPARE(program.frame->QuoteForm()->TickerMeant(), std::string("T3"));
    }

    void theZoomStaysFromTickerToTicker() {
        LongChart program;
        program.Wheel(5);
        const QString first = program.Label("Label60");
        QVERIFY(first != Shown(ChartProgram::Bar(kLong - 278).HistoryDate));
        program.Key(Qt::Key_PageDown);
        QVERIFY(!program.Graph()->findChild<PanelStack*>()->isHidden());
        QVERIFY(program.Label("Label60") != Shown(ChartProgram::Bar(400 - 278).HistoryDate));
    }

    void styleSeriesAndTimeFrameStayFromTickerToTicker() {
        LongChart program;
        program.Choose("mnuGraphicsCandleStick");
        program.Pick("Combo1", "MA 60");
        program.Pick("Combo2", "RSI 15");
        program.Pick("Combo3", "WMA 30");
        program.Press("Command5");
        const auto slots = program.Graph()->Chart().Slots;
        const auto volumes = program.Graph()->Chart().VolumeSeriesList;
        program.Key(Qt::Key_PageDown);
        const ChartSession& chart = program.Graph()->Chart();
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
        QCOMPARE(chart.ChartStyle, std::string("CandleStick"));
        QVERIFY(chart.Slots == slots);
        QVERIFY(chart.VolumeSeriesList == volumes);
        QCOMPARE(chart.Combo2, std::string("RSI 15"));
        QCOMPARE(chart.ChartTimeFrame, 2);
    }

    void pageDownGoesThroughTheHitsOfACondition() {
        LongChart program;
        auto* const walk = WalkThroughHits(program);
        QVERIFY(walk->isVisible());
        QCOMPARE(walk->count(), 3);
        QCOMPARE(walk->itemText(2), QStringLiteral("Hits of Condition 2"));
        walk->setCurrentIndex(2);
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T3"));
        program.Key(Qt::Key_PageUp);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T1"));
        walk->setCurrentIndex(0);
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
    }

    void afterAConditionIsChosenInTheListTheKeysGoThroughItsHits() {
        LongChart program;
        auto* const walk = WalkThroughHits(program);
        walk->setFocus();
        QTest::keyClick(walk, Qt::Key_Down);
        QVERIFY(walk->view()->isVisible());
        walk->view()->setCurrentIndex(walk->model()->index(2, 0));
        QTest::keyClick(walk->view(), Qt::Key_Return);
        QCOMPARE(program.Graph()->WalkCondition(), std::size_t{2});
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
        QVERIFY(!walk->view()->isVisible());
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T3"));
    }

    void aTypedTickerIsCharted() {
        LongChart program;
        auto* const box = program.Part<QLineEdit>("txtTicker");
        QVERIFY(!program.Part<QComboBox>("cboWalk")->isVisible());
        QTest::keyClicks(box, QStringLiteral(" t2 "));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("T2"));
        QCOMPARE(box->text(), QString());
        QVERIFY(program.Graph()->hasFocus());
        QTest::keyClicks(box, QStringLiteral("zz"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("ZZ"));
        QCOMPARE(program.frame->statusBar()->currentMessage(),
                 QStringLiteral("ZZ: no history in the Quote Database"));
        QTest::keyClick(box, Qt::Key_Return);
        QCOMPARE(program.Graph()->windowTitle(), QStringLiteral("ZZ"));
    }

    void theAlarmsAreThoseOfTheTickerThatIsShown() {
        LongChart program;
        QuoteTable& table = program.frame->QuoteForm()->Table();
        const auto high = table.ColumnOf("High Alarm");
        QVERIFY(high);
        table.SetText(2, *high, "5000");
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.Label("Label51"), QStringLiteral("5000.00"));
        program.Key(Qt::Key_PageUp);
        QVERIFY(program.Label("Label51") != QStringLiteral("5000.00"));
    }

    void withoutATableTheKeysSaySo() {
        LongChart program;
        program.frame->QuoteForm()->parentWidget()->close();
        program.Key(Qt::Key_PageDown);
        QCOMPARE(program.frame->statusBar()->currentMessage(),
                 QStringLiteral("To go from ticker to ticker, you will need to open a table"));
    }
};

WINDOW_TEST(FrmGraphZoomTest)
#include "frmGraph_zoom_test.moc"
