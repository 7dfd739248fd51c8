#include "chart/windows/window_picture.h"

#include <QApplication>
#include <QBuffer>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QWidget>

#include "base/windows/colours.h"
#include "chart/picture_files.h"

namespace brantlow {

namespace {

// All colours of a light desktop follow from that of its windows.
constexpr QRgb kPaperWindow = 0xffefefef;

}  // namespace

QImage CaptureClient(QWidget& window) {
    QImage picture = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    // From here on a pixel is a pixel, however many of them the screen gives to a unit of length.
    picture.setDevicePixelRatio(1);
    return picture;
}

// A window follows a palette of its own at once, the desktop's only with the next events; but some of what it
// paints is in the colours of the desktop.
QImage OnPaper(QWidget& window, const std::function<QImage()>& picture) {
    const QPalette desktop = QApplication::palette();
    if (!IsDark(desktop.color(QPalette::Window))) return picture();
    const QPalette own = window.testAttribute(Qt::WA_SetPalette) ? window.palette() : QPalette();
    const QPalette paper(QColor::fromRgb(kPaperWindow));
    QApplication::setPalette(paper);
    window.setPalette(paper);
    QImage taken = picture();
    QApplication::setPalette(desktop);
    window.setPalette(own);
    return taken;
}

namespace {

std::string BytesOf(const QImage& picture, const char* form) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, form);
    return bytes.toStdString();
}

}  // namespace

std::string BitmapBytes(const QImage& picture) {
    return BytesOf(picture, "BMP");
}

std::string PngBytes(const QImage& picture) {
    return BytesOf(picture, "PNG");
}

bool PrintPictureToFit(QPagedPaintDevice& printer, const QImage& picture) {
    const Extent size =
        FitToPage({static_cast<double>(picture.width()), static_cast<double>(picture.height())},
                  {static_cast<double>(printer.width()), static_cast<double>(printer.height())});
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(0, 0, size.width, size.height), picture);
    return painter.end();
}

}  // namespace brantlow
