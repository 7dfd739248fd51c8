#include "chart/windows/image_pixels.h"

#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace brantlow {

namespace {

bool HoldsColoursAsTheyAre(QImage::Format format) {
    return format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
           format == QImage::Format_ARGB32_Premultiplied;
}

bool PaintsPlainly(const QPainter& painter) {
    return !painter.hasClipping() && !painter.testRenderHint(QPainter::Antialiasing) &&
           painter.opacity() == 1 && painter.compositionMode() == QPainter::CompositionMode_SourceOver;
}

}  // namespace

std::optional<ImagePixels> ImagePixels::Of(const QPainter& painter, QSizeF size) {
    if (painter.device()->devType() != QInternal::Image || !PaintsPlainly(painter)) return std::nullopt;
    auto& image = *static_cast<QImage*>(painter.device());
    if (!HoldsColoursAsTheyAre(image.format())) return std::nullopt;
    const double ratio = image.devicePixelRatio();
    const QTransform toDevice = QTransform::fromScale(1 / ratio, 1 / ratio) * painter.deviceTransform();
    if (toDevice.type() > QTransform::TxTranslate) return std::nullopt;
    const QPointF origin(toDevice.dx(), toDevice.dy());
    if (origin != QPointF(origin.toPoint())) return std::nullopt;
    const QRect area = QRectF(origin, size * ratio).toRect().intersected(image.rect());
    constexpr int kBytesAPixel = 4;
    return ImagePixels(reinterpret_cast<QRgb*>(image.bits()), image.bytesPerLine() / kBytesAPixel,
                       origin.toPoint(), area);
}

void ImagePixels::Fill(const QRect& bar, QRgb colour) const {
    const QRect inside = bar.translated(origin_).intersected(area_);
    if (inside.isEmpty()) return;
    QRgb* line = first_ + inside.top() * pixelsALine_ + inside.left();
    for (int y = inside.top(); y <= inside.bottom(); ++y, line += pixelsALine_)
        std::fill_n(line, inside.width(), colour);
}

}  // namespace brantlow
