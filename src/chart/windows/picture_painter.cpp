#include "chart/windows/picture_painter.h"

#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "chart/windows/chart_painter.h"
#include "shell/display.h"

namespace brantlow {

namespace {

// As the SVG names them, so that both pictures look alike.
const QStringList kFontFamilies = {QStringLiteral("Arial"), QStringLiteral("Helvetica"),
                                   QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")};

void PaintPanel(QPainter& painter, const PlacedPanel& panel) {
    painter.save();
    // On whole pixels, where the lines are sharp.
    painter.translate(PixelsOf(panel.x), PixelsOf(panel.y));
    PaintItems(painter, panel.drawing->items,
               QSizeF(panel.width / kTwipsPerPixel, panel.height / kTwipsPerPixel));
    painter.restore();
}

// How far left of its place a text of this width begins.
double Offset(TextAlign align, double width) {
    if (align == TextAlign::Left) return 0;
    return align == TextAlign::Centre ? width / 2 : width;
}

void PaintText(QPainter& painter, const PlacedText& text) {
    QFont font;
    font.setFamilies(kFontFamilies);
    font.setPixelSize(PixelsOf(text.size));
    font.setBold(text.bold);
    painter.setFont(font);
    painter.setPen(ColourOf(text.colour));
    const QString words = QString::fromStdString(text.text);
    const double left =
        text.x / kTwipsPerPixel - Offset(text.align, QFontMetricsF(font).horizontalAdvance(words));
    painter.drawText(QPointF(std::round(left), PixelsOf(text.y)), words);
}

}  // namespace

QImage PaintPicture(const ChartPicture& picture) {
    QImage image(PixelsOf(picture.width), PixelsOf(picture.height), QImage::Format_RGB32);
    if (image.isNull()) return image;
    image.fill(Qt::white);
    QPainter painter(&image);
    for (const PlacedPanel& panel : picture.panels) PaintPanel(painter, panel);
    painter.setRenderHint(QPainter::TextAntialiasing);
    for (const PlacedText& text : picture.texts) PaintText(painter, text);
    return image;
}

std::string PngOf(const ChartPicture& picture) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!PaintPicture(picture).save(&buffer, "PNG")) return {};
    return buffer.data().toStdString();
}

}  // namespace brantlow
