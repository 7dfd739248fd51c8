// The printer that the main frame prints windows on: the system's default one until the page set-up chooses
// another. Where the system has none, a page becomes a PDF file.
#pragma once

#include <QImage>
#include <functional>
#include <memory>
#include <string>
#include <system_error>

#include "base/files.h"

class QDialog;
class QPagedPaintDevice;
class QPrinter;
class QString;
class QWidget;

namespace brantlow {

class PagePrinter {
  public:
    PagePrinter();
    ~PagePrinter();
    PagePrinter(const PagePrinter&) = delete;
    PagePrinter& operator=(const PagePrinter&) = delete;

    // Asks for the page's form with a dialog over `parent`; a cancel leaves everything as it was.
    void SetUp(QWidget* parent);

    // False when pages can only go to a file.
    bool HasPrinter();
    // From here on they can go nowhere else, even where the system has a printer.
    void LeavePrinterAlone();
    QString PrinterName();

    // One page with the picture, called `title` in the printer's queue; false when the printer takes none.
    bool Print(const QImage& picture, const QString& title);
    // The same page as a PDF file that replaces `file`.
    std::error_code WritePdf(const Path& file, const QImage& picture, const QString& title);

    // Pages that `paint` draws, as many as it tells; it draws on no other device. 0 when the printer takes
    // none.
    using PaintPages = std::function<int(QPagedPaintDevice&)>;
    int PrintPages(const PaintPages& paint, const QString& title);
    // While `paint` draws: what was drawn is not printed.
    void Abort();
    // The bytes of a PDF file of such pages; empty where there are none.
    std::string PdfOf(const PaintPages& paint, const QString& title);

  private:
    QPrinter& Printer();
    std::unique_ptr<QDialog> SetUpDialog(QWidget* parent);

    // Made when it is first needed, since asking the system for its printers can take a while.
    std::unique_ptr<QPrinter> printer_;
};

}  // namespace brantlow
