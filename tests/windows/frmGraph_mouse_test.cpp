// What the mouse does on the panels of the chart: read-outs, the cursor line, tips.
#include "chart_fixture.h"

using namespace brantlow;

namespace {

// The middle of bar `i` in pixels: presses from 45 i up to 45 (i + 1) twips belong to it.
int PixelOfBar(int i) {
    return (45 * i + 22) / kTwips;
}

}  // namespace

class FrmGraphMouseTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aPressShowsTheBarUnderThePointerAndTheCursorLine() {
        for (const char* name : {"Picture1", "Picture2", "Picture3"}) {
            ChartProgram program;
            program.Choose("mnuGraphicsHLC");
            auto* const panel = program.Part<ChartPanel>(name);
            const QPoint place(PixelOfBar(100), 30);
            QTest::mousePress(panel, Qt::LeftButton, {}, place);
            QCOMPARE(program.Label("Label68"), Shown(ChartProgram::Bar(100).HistoryDate));
            QCOMPARE(program.Label("Label69"), QStringLiteral("200"));
            QCOMPARE(program.Label("Label28"), QStringLiteral("1100"));
            QVERIFY(!program.Label("Label26").isEmpty());
            // One pixel right of the pointer, from the top line on.
            for (const char* other : {"Picture1", "Picture2", "Picture3"}) {
                QCOMPARE(program.Picture(other).pixelColor(place.x() + 1, 5), QColor(0, 100, 0));
            }
            QTest::mouseRelease(panel, Qt::LeftButton, {}, place);
            for (const char* label : {"Label68", "Label69", "Label28", "Label26"}) {
                QCOMPARE(program.Label(label), QString());
            }
            for (const char* other : {"Picture1", "Picture2", "Picture3"}) {
                QVERIFY(program.Picture(other).pixelColor(place.x() + 1, 5) != QColor(0, 100, 0));
            }
        }
    }

    // Pointer and chart would part otherwise.
    void aPressMovesNothingAndShowsEveryDigit() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        program.Pick("Combo2", "Momentum 60");
        auto* const panel = program.Part<ChartPanel>("Picture1");
        const QSize whole = program.Graph()->ClientArea()->size();
        const QPoint place = panel->mapTo(program.Graph()->ClientArea(), QPoint());
        QTest::mousePress(panel, Qt::LeftButton, {}, QPoint(PixelOfBar(200), 30));
        QCoreApplication::processEvents();
        QCOMPARE(program.Graph()->ClientArea()->size(), whole);
        QCOMPARE(panel->mapTo(program.Graph()->ClientArea(), QPoint()), place);
        const auto* const indicator = program.Part<QLabel>("Label26");
        QVERIFY2(indicator->text().size() > 12, qPrintable(indicator->text()));
        QVERIFY(QFontMetricsF(indicator->font()).horizontalAdvance(indicator->text()) <=
                indicator->width() + 1);
    }

    void aPressOnTheEdgeOfTwoBarsBelongsToTheLater() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        // 45 x 100 + 45 twips.
        QTest::mousePress(program.Part<ChartPanel>("Picture1"), Qt::LeftButton, {},
                          QPoint(4545 / kTwips, 30));
        QCOMPARE(program.Label("Label69"), QStringLiteral("201"));
        QTest::mouseRelease(program.Part<ChartPanel>("Picture1"), Qt::LeftButton, {},
                            QPoint(4545 / kTwips, 30));
        QTest::mousePress(program.Part<ChartPanel>("Picture1"), Qt::LeftButton, {},
                          QPoint(4545 / kTwips - 1, 30));
        QCOMPARE(program.Label("Label69"), QStringLiteral("200"));
    }

    void aPressBesideTheBarsShowsNothing() {
        ChartProgram program(20);
        program.Choose("mnuGraphicsHLC");
        QTest::mousePress(program.Part<ChartPanel>("Picture1"), Qt::LeftButton, {}, QPoint(600, 30));
        for (const char* label : {"Label68", "Label69", "Label28", "Label26"}) {
            QCOMPARE(program.Label(label), QString());
        }
    }

    void onlyAReleaseOnThePricePanelReloads() {
        const std::pair<const char*, const char*> rows[] = {
            {"Picture1", "200"}, {"Picture2", "379"}, {"Picture3", "379"}};
        for (const auto& [name, close] : rows) {
            ChartProgram program;
            program.Choose("mnuGraphicsHLC");
            program.WriteHistory("T1", 100);
            QTest::mouseClick(program.Part<ChartPanel>(name), Qt::LeftButton, {}, QPoint(300, 30));
            QCOMPARE(program.Label("Label59"), QString::fromLatin1(close));
        }
    }

    void theTipIsTheValueUnderThePointer() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        // 300 pixels are 4500 twips: 380 - (4500 - 50) / (6000 / 280).
        QTest::mouseMove(program.Part<ChartPanel>("Picture1"), QPoint(300, 300));
        QCOMPARE(program.Part<ChartPanel>("Picture1")->toolTip(), QStringLiteral("172.33"));
        // 600 twips: 1279 - 550 / (1070 / 278) is 1136.1.
        QTest::mouseMove(program.Part<ChartPanel>("Picture3"), QPoint(300, 40));
        QCOMPARE(program.Part<ChartPanel>("Picture3")->toolTip(), QStringLiteral("1136"));
        program.Pick("Combo2", "RSI 30");
        QTest::mouseMove(program.Part<ChartPanel>("Picture2"), QPoint(301, 40));
        // 100 - 550 / 10.7.
        QCOMPARE(program.Part<ChartPanel>("Picture2")->toolTip(), QStringLiteral("48.60"));
    }
};

WINDOW_TEST(FrmGraphMouseTest)
#include "frmGraph_mouse_test.moc"
