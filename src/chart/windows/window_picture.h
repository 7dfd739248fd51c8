// The picture of a window: captured, as the bytes of a bitmap, and on a page. Nothing else keeps a chart, as
// its panels hold no picture of their own.
#pragma once

#include <QImage>
#include <functional>
#include <string>

class QPagedPaintDevice;
class QWidget;

namespace brantlow {

// The window's client area as it would stand uncovered on the screen, in device pixels.
QImage CaptureClient(QWidget& window);

// What `picture` of the window gives on a light desktop, whatever the desktop is: paper is white, and ink
// costs.
QImage OnPaper(QWidget& window, const std::function<QImage()>& picture);

// The picture in the form of a .bmp file.
std::string BitmapBytes(const QImage& picture);

// The same in the form of a .png file.
std::string PngBytes(const QImage& picture);

// Draws the picture at the page's origin as large as the page allows, and ends the job. False when the
// printer or the file behind `printer` takes no page.
bool PrintPictureToFit(QPagedPaintDevice& printer, const QImage& picture);

}  // namespace brantlow
