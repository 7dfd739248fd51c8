// The painter of the chart: which pixels its lines and circles cover, at every density of the screen.
#include "chart/windows/chart_painter.h"

#include <QImage>
#include <QPainter>
#include <random>
#include <vector>

#include "window_test.h"

using namespace brantlow;

namespace {

constexpr Rgb kRed = {200, 0, 0};
constexpr Rgb kGreen = {0, 150, 0};

// 40 x 20 logical pixels.
QImage Painted(const std::vector<DrawnItem>& items, double ratio = 1) {
    const QSize size(40, 20);
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintItems(painter, items, size);
    return image;
}

// Lines of all directions and lengths, many along an axis, dashes and rings, one over the other and beyond
// every edge of 40 x 20 logical pixels.
std::vector<DrawnItem> Thicket() {
    std::mt19937 dice(7);
    const auto up = [&dice](unsigned to) { return static_cast<float>(dice() % to); };
    std::vector<DrawnItem> items;
    for (int i = 0; i < 400; ++i) {
        const Rgb colour = i % 5 == 0 ? kGreen : Rgb{static_cast<unsigned char>(dice() % 256), 20, 90};
        const float x = up(900) - 150;
        const float y = up(600) - 150;
        const float along = up(300);
        if (i % 40 == 0) items.emplace_back(DrawnCircle{x, y, 25, colour});
        if (i % 4 == 0) items.emplace_back(DrawnLine{x, y, x, y + along, colour});
        if (i % 4 == 1) items.emplace_back(DrawnLine{x + along, y, x, y, colour});
        if (i % 4 == 2) items.emplace_back(DrawnLine{x, y, x + up(90) - 45, y + up(90) - 45, colour});
        if (i % 4 == 3) items.emplace_back(DrawnLine{x, y, x + 10, y, colour});
    }
    return items;
}

// A painter that clips is asked for every line; the pixels of another one are written straight.
enum class Way { Pixels, Painter };

QImage Grown(const std::vector<DrawnItem>& items, double ratio, const PaintStyle& style, Way way,
             QPointF origin = {}) {
    const QSize size(40, 20);
    QImage image(size * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    if (way == Way::Painter) painter.setClipRect(QRect(QPoint(), size));
    painter.translate(origin);
    PaintItems(painter, items, size, style);
    return image;
}

bool Is(const QImage& image, int x, int y, Rgb colour) {
    return image.pixelColor(x, y) == ColourOf(colour);
}

// Pixels that are not white.
int Covered(const QImage& image) {
    int covered = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            covered += image.pixelColor(x, y) == QColor(Qt::white) ? 0 : 1;
    }
    return covered;
}

}  // namespace

class ChartPainterTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void aLineCoversThePixelsOfItsEndsAndAllBetween() {
        const QImage image = Painted({DrawnLine{30, 45, 150, 45, kRed}});
        for (int x = 2; x <= 10; ++x) QVERIFY2(Is(image, x, 3, kRed), qPrintable(QString::number(x)));
        QCOMPARE(Covered(image), 9);
    }

    void aBarOfAChartStandsOnThePixelOfItsPlace() {
        // Bar 1 at x = 95 twips, from y = 50 to y = 110.
        const QImage image = Painted({DrawnLine{95, 50, 95, 110, kRed}});
        for (int y = 3; y <= 7; ++y) QVERIFY(Is(image, 6, y, kRed));
        QCOMPARE(Covered(image), 5);
    }

    void aLineWithoutLengthIsADot() {
        const QImage image = Painted({DrawnLine{95, 50, 95, 50, kRed}});
        QVERIFY(Is(image, 6, 3, kRed));
        QCOMPARE(Covered(image), 1);
    }

    void onADenseScreenALineIsAsWideAndSharp() {
        const QImage image = Painted({DrawnLine{30, 45, 150, 45, kRed}}, 2);
        for (int x = 4; x <= 21; ++x) {
            QVERIFY(Is(image, x, 6, kRed));
            QVERIFY(Is(image, x, 7, kRed));
        }
        QCOMPARE(Covered(image), 18 * 2);
    }

    void noScaleSmoothsALine() {
        for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
            const QImage image =
                Painted({DrawnLine{30, 45, 330, 210, kRed}, DrawnLine{95, 0, 95, 290, kRed}}, ratio);
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    QVERIFY2(Is(image, x, y, kRed) || image.pixelColor(x, y) == QColor(Qt::white),
                             qPrintable(QStringLiteral("%1 %2 at %3").arg(x).arg(y).arg(ratio)));
                }
            }
        }
    }

    void dashesOfTenTwipsStayApart() {
        for (const double ratio : {1.0, 2.0}) {
            std::vector<DrawnItem> rule;
            for (float x = 50; x + 10 < 600; x += 20) rule.emplace_back(DrawnLine{x, 45, x + 10, 45, kRed});
            const QImage image = Painted(rule, ratio);
            const int y = static_cast<int>(3 * ratio);
            int longest = 0;
            int run = 0;
            for (int x = 0; x < image.width(); ++x) {
                run = Is(image, x, y, kRed) ? run + 1 : 0;
                longest = std::max(longest, run);
            }
            QVERIFY2(longest > 0 && longest <= 3, qPrintable(QString::number(longest)));
        }
    }

    void laterItemsLieOverEarlierOnes() {
        const QImage image = Painted({DrawnLine{30, 45, 150, 45, kRed}, DrawnLine{60, 0, 60, 150, kGreen},
                                      DrawnLine{90, 0, 90, 150, kRed}, DrawnLine{30, 60, 150, 60, kGreen}});
        QVERIFY(Is(image, 4, 3, kGreen));
        QVERIFY(Is(image, 5, 3, kRed));
        QVERIFY(Is(image, 6, 4, kGreen));
    }

    void linesOutsideTheAreaAreCutAtItsEdge() {
        const QImage image = Painted({DrawnLine{-1e7F, -1e7F, 1e7F, 1e7F, kRed}});
        for (int i = 0; i < 20; ++i) QVERIFY2(Is(image, i, i, kRed), qPrintable(QString::number(i)));
        QCOMPARE(Covered(image), 20);
        QCOMPARE(
            Covered(Painted({DrawnLine{0, -1e7F, 600, -1e7F, kRed}, DrawnLine{-1e7F, 0, -1e7F, 300, kRed},
                             DrawnLine{1e7F, -5, 1e7F, 600, kRed}, DrawnLine{-300, 200, 200, 1200, kRed}})),
            0);
    }

    void aCircleStandsAroundItsCentre() {
        for (const double ratio : {1.0, 2.0}) {
            const QImage image = Painted({DrawnCircle{150, 150, 75, kGreen}}, ratio);
            const int centre = static_cast<int>(10 * ratio);
            const int radius = static_cast<int>(5 * ratio);
            QVERIFY(image.pixelColor(centre, centre) == QColor(Qt::white));
            for (const QPoint at :
                 {QPoint(radius, 0), QPoint(-radius, 0), QPoint(0, radius), QPoint(0, -radius)}) {
                const QColor colour = image.pixelColor(QPoint(centre, centre) + at);
                QVERIFY2(colour.red() < 100, qPrintable(colour.name()));
            }
        }
    }

    void aCircleFarAwayIsNotDrawn() { QCOMPARE(Covered(Painted({DrawnCircle{-1e7F, 1e7F, 40, kGreen}})), 0); }

    void pixelsWrittenStraightAreThoseOfThePainter_data() {
        QTest::addColumn<double>("ratio");
        QTest::addColumn<bool>("isWide");
        for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            for (const bool isWide : {false, true})
                QTest::addRow("%g%s", ratio, isWide ? " wide" : "") << ratio << isWide;
        }
    }
    void pixelsWrittenStraightAreThoseOfThePainter() {
        QFETCH(double, ratio);
        QFETCH(bool, isWide);
        const std::vector<DrawnItem> items = Thicket();
        for (const PaintScale scale : {PaintScale{1, 1}, PaintScale{1.37, 0.83}}) {
            const PaintStyle style{.scale = scale, .wide = isWide};
            const QImage straight = Grown(items, ratio, style, Way::Pixels);
            QVERIFY(Covered(straight) > 200);
            QCOMPARE(straight, Grown(items, ratio, style, Way::Painter));
        }
    }

    // Also where the area does not begin at the corner of the picture, or between two of its pixels.
    void anAreaFurtherOnKeepsToItsEdges() {
        const std::vector<DrawnItem> items = Thicket();
        for (const QPointF origin : {QPointF(7, 5), QPointF(-6, -9), QPointF(7.5, 5.25)}) {
            const QImage straight = Grown(items, 1, {}, Way::Pixels, origin);
            QVERIFY(Covered(straight) > 50);
            QCOMPARE(straight, Grown(items, 1, {}, Way::Painter, origin));
        }
    }

    // What writing pixels cannot do: mixing, turning, smoothing, pictures of other forms.
    void whatAPainterDoesToItsLinesIsDone() {
        const std::vector<DrawnItem> line = {DrawnLine{30, 45, 150, 45, kRed}};
        QImage mixed(40, 20, QImage::Format_RGB32);
        mixed.fill(Qt::white);
        {
            QPainter painter(&mixed);
            painter.setOpacity(0.5);
            PaintItems(painter, line, QSizeF(40, 20));
        }
        const int green = mixed.pixelColor(5, 3).green();
        QVERIFY2(green > 100 && green < 155, qPrintable(QString::number(green)));

        QImage turned(20, 40, QImage::Format_RGB32);
        turned.fill(Qt::white);
        {
            QPainter painter(&turned);
            painter.translate(20, 0);
            painter.rotate(90);
            PaintItems(painter, line, QSizeF(40, 20));
        }
        QVERIFY(Is(turned, 16, 5, kRed) || Is(turned, 17, 5, kRed));
        QVERIFY(!Is(turned, 5, 3, kRed));

        QImage small(40, 20, QImage::Format_RGB16);
        small.fill(Qt::white);
        {
            QPainter painter(&small);
            PaintItems(painter, line, QSizeF(40, 20));
        }
        QCOMPARE(Covered(small), 9);
        QVERIFY(small.pixelColor(5, 3).red() > 190 && small.pixelColor(5, 3).green() < 10);
    }

    void thePaintersStateIsWhatItWas() {
        QImage image(40, 20, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.setPen(Qt::blue);
        const std::vector<DrawnItem> items = {DrawnLine{0, 0, 100, 100, kRed}, DrawnCircle{50, 50, 20, kRed}};
        PaintItems(painter, items, QSizeF(40, 20));
        QCOMPARE(painter.pen().color(), QColor(Qt::blue));
        QVERIFY(!painter.hasClipping());
        QVERIFY(painter.transform().isIdentity());
        QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
    }
};

WINDOW_TEST(ChartPainterTest)
#include "chart_painter_test.moc"
