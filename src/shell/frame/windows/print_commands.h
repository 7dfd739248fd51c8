// Printing the active child, and keeping a picture of a child as a file.
#pragma once

#include <QString>
#include <string>
#include <string_view>
#include <vector>

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
    // Those of a chart: it is printed and kept as its `picture`, under its caption. `svg` gives it as an SVG
    // file, where there is one.
    ChildOperations PictureOperations(QWidget& chart, std::function<QImage()> picture,
                                      std::function<std::string()> svg);

    // All rows of a table; a large one is a run, which can be stopped.
    void PrintTable(const TableOnPaper& paper);

  private:
    void Print();
    void PrintPreview();
    void PageSetUp();
    void PrintPicture(const QImage& picture, const QString& caption);
    void PrintToFile(const QImage& picture, const QString& caption);
    void PrintOnPrinter(const TableOnPaper& paper);
    void PrintToFile(const TableOnPaper& paper);
    bool PrintsAll(const TableOnPaper& paper,
                   const std::function<void(const PagePrinter::PaintPages&)>& print);
    bool GoesOn(double share);
    void SavePicture(const QImage& picture, const QString& caption);
    void SavePictureAs(const QImage& picture, const QString& caption,
                       const std::function<std::string()>& svg);
    void CopyPicture();
    void CopyToClipboard(const QImage& picture);
    void WritePicture(const std::string& bytes, const Path& file);
    // A file below Images/ for this caption, empty when the person chose none.
    // A name with one of `more` endings keeps it, every other takes `extension`.
    Path AskImageFile(const std::string& title, const QString& caption, std::string_view extension,
                      const std::vector<std::string_view>& more = {});

    const FrameHands& frame_;
    PagePrinter pages_;
};

}  // namespace brantlow
