// The picture file of the chart: it holds what the window shows, and what the SVG shows.
#include "chart/windows/picture_painter.h"

#include <QPainter>
#include <QSvgRenderer>

#include "chart/chart_svg.h"
#include "chart_fixture.h"

using namespace brantlow;

namespace {

QRect PlaceOf(const PlacedPanel& panel) {
    return QRect(static_cast<int>(std::lround(panel.x / kTwips)),
                 static_cast<int>(std::lround(panel.y / kTwips)), static_cast<int>(panel.width / kTwips),
                 static_cast<int>(panel.height / kTwips));
}

bool IsInk(const QImage& image, int x, int y) {
    return image.rect().contains(x, y) && image.pixelColor(x, y).lightness() < 200;
}

bool HasInkNear(const QImage& image, int x, int y) {
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (IsInk(image, x + dx, y + dy)) return true;
        }
    }
    return false;
}

// The share of the ink of `one` that `other` has no ink beside.
double MissingInk(const QImage& one, const QImage& other) {
    int ink = 0;
    int missing = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (!IsInk(one, x, y)) continue;
            ++ink;
            missing += HasInkNear(other, x, y) ? 0 : 1;
        }
    }
    return ink == 0 ? 1 : static_cast<double>(missing) / ink;
}

}  // namespace

class PicturePainterTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    void itsPanelsAreThoseOfTheWindow() {
        for (const char* entry : {"mnuGraphicsHLC", "mnuGraphicsCandleStick"}) {
            ChartProgram program;
            program.Choose(entry);
            program.Pick("Combo1", "LR T.CL");
            const ChartPicture picture = LayOutPicture(program.Graph()->Chart(), program.analysis->series);
            const QImage image = PaintPicture(picture);
            const char* const names[] = {"Picture1", "Picture2", "Picture3"};
            for (std::size_t i = 0; i < std::size(names); ++i) {
                const QRect place = PlaceOf(picture.panels[i]);
                const QImage onWindow = program.Picture(names[i]).copy(QRect(QPoint(), place.size()));
                QCOMPARE(image.copy(place), onWindow.convertToFormat(image.format()));
            }
        }
    }

    void itMatchesTheSvg() {
        ChartProgram program;
        program.Choose("mnuGraphicsCandleStick");
        program.Pick("Combo2", "RSI 30");
        const ChartPicture picture = LayOutPicture(program.Graph()->Chart(), program.analysis->series);
        const QImage png = PaintPicture(picture);
        QSvgRenderer renderer(QByteArray::fromStdString(SvgOf(picture)));
        QVERIFY(renderer.isValid());
        QImage svg(png.size(), QImage::Format_RGB32);
        svg.fill(Qt::white);
        QPainter painter(&svg);
        renderer.render(&painter);
        constexpr double kTolerance = 0.02;
        for (const PlacedPanel& panel : picture.panels) {
            const QRect place = PlaceOf(panel);
            QVERIFY(MissingInk(png.copy(place), svg.copy(place)) < kTolerance);
            QVERIFY(MissingInk(svg.copy(place), png.copy(place)) < kTolerance);
        }
    }

    void textsStandAtTheirPlaces() {
        ChartPicture picture;
        picture.width = 200 * kTwips;
        picture.height = 60 * kTwips;
        const std::pair<TextAlign, std::pair<int, int>> rows[] = {
            {TextAlign::Left, {100, 200}}, {TextAlign::Centre, {40, 160}}, {TextAlign::Right, {0, 100}}};
        for (const auto& [align, room] : rows) {
            picture.texts = {
                PlacedText{"MMM", 100 * kTwips, 40 * kTwips, align, 20 * kTwips, true, Rgb{200, 0, 0}}};
            const QImage image = PaintPicture(picture);
            int left = image.width();
            int right = -1;
            int bottom = -1;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.pixelColor(x, y) == QColor(Qt::white)) continue;
                    left = std::min(left, x);
                    right = std::max(right, x);
                    bottom = std::max(bottom, y);
                }
            }
            QVERIFY(right > left);
            QVERIFY2(left >= room.first && right <= room.second,
                     qPrintable(QStringLiteral("%1 %2").arg(left).arg(right)));
            if (align == TextAlign::Centre) QVERIFY(std::abs(left + right - 200) <= 4);
            if (align == TextAlign::Left) QVERIFY(left <= 104);
            if (align == TextAlign::Right) QVERIFY(right >= 95);
            QVERIFY2(std::abs(bottom - 39) <= 1, qPrintable(QString::number(bottom)));
            QVERIFY(image.pixelColor(1, 1) == QColor(Qt::white));
        }
    }

    void aPngHoldsThePicture() {
        ChartProgram program;
        program.Choose("mnuGraphicsHLC");
        const ChartPicture picture = LayOutPicture(program.Graph()->Chart(), program.analysis->series);
        const QByteArray bytes = QByteArray::fromStdString(PngOf(picture));
        const QImage read = QImage::fromData(bytes, "PNG");
        QCOMPARE(read.convertToFormat(QImage::Format_RGB32), PaintPicture(picture));
    }

    void aPictureWithoutSizeGivesNoFile() { QVERIFY(PngOf(ChartPicture{}).empty()); }
};

WINDOW_TEST(PicturePainterTest)
#include "picture_painter_test.moc"
