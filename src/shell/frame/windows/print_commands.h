// Printing the active child, and keeping a picture of a child as a file.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "chart/windows/page_printer.h"
#include "shell/frame/windows/frame_hands.h"

class QImage;

namespace brantlow {

class PrintCommands final {
  public:
    explicit PrintCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

    // Where Print sends its pages.
    PagePrinter& Pages() { return pages_; }
    // Those of a chart: it is printed and kept as the picture of its `client` area, under its caption.
    ChildOperations PictureOperations(QWidget& chart, QWidget& client);

    // Pages that `paint` draws, called `title`.
    void PrintPages(const QString& title, const PagePrinter::PaintPages& paint);

  private:
    void Print();
    void PrintPreview();
    void PageSetUp();
    void PrintPicture(QWidget& client, const QString& caption);
    void PrintToFile(const QImage& picture, const QString& caption);
    void SavePicture(QWidget& client, const QString& caption);
    void SavePictureAs(QWidget& client, const QString& caption);
    void WritePicture(const QImage& picture, const Path& file);
    // A file below Images/ for this caption, empty when the person chose none.
    Path AskImageFile(const std::string& title, const QString& caption, std::string_view extension);

    const FrameHands& frame_;
    PagePrinter pages_;
};

}  // namespace brantlow
