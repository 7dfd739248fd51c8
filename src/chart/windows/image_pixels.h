// Straight access to the pixels of the image that a painter paints on: a chart has thousands of short lines
// in colours that change from one to the next, and a call to the painter for each costs more than its pixels
// do.
#pragma once

#include <QRect>
#include <QRgb>
#include <QSizeF>
#include <optional>

class QImage;
class QPainter;

namespace brantlow {

class ImagePixels {
  public:
    // Of what `painter` paints on, with its origin and, of that, `size` logical pixels. To be asked before
    // the painter is told of any clipping. Nothing where the pixels are not to be had or would not be those
    // that the painter makes: no image, no 32 bits a pixel, an origin between two pixels, a turned or scaled
    // picture, a clipping, a smoothing or a mixing of colours.
    static std::optional<ImagePixels> Of(const QPainter& painter, QSizeF size);

    // Gives `bar`, device pixels from the origin, this colour as far as it lies in the area.
    void Fill(const QRect& bar, QRgb colour) const;

  private:
    ImagePixels(QRgb* first, qsizetype pixelsALine, QPoint origin, QRect area)
        : first_(first), pixelsALine_(pixelsALine), origin_(origin), area_(area) {}

    QRgb* first_;
    qsizetype pixelsALine_;
    // In pixels of the image.
    QPoint origin_;
    QRect area_;
};

}  // namespace brantlow
