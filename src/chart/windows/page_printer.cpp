#include "chart/windows/page_printer.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QDialogButtonBox>
#include <QPageSetupDialog>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include "chart/windows/window_picture.h"

namespace brantlow {

PagePrinter::PagePrinter() = default;
PagePrinter::~PagePrinter() = default;

QPrinter& PagePrinter::Printer() {
    if (!printer_) printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *printer_;
}

bool PagePrinter::HasPrinter() {
    return Printer().outputFormat() == QPrinter::NativeFormat && Printer().isValid();
}

void PagePrinter::LeavePrinterAlone() {
    Printer().setOutputFormat(QPrinter::PdfFormat);
}

QString PagePrinter::PrinterName() {
    return Printer().printerName();
}

// With a printer it is the dialog that chooses one with its paper. Without, only the paper is left to choose.
std::unique_ptr<QDialog> PagePrinter::SetUpDialog(QWidget* parent) {
    if (!HasPrinter()) return std::make_unique<QPageSetupDialog>(&Printer(), parent);
    auto dialog = std::make_unique<QPrintDialog>(&Printer(), parent);
    // Its button says "Print", which it does not do here.
    const auto* buttons = dialog->findChild<QDialogButtonBox*>();
    QAbstractButton* accept = buttons ? buttons->button(QDialogButtonBox::Ok) : nullptr;
    if (accept) accept->setText(QStringLiteral("OK"));
    return dialog;
}

void PagePrinter::SetUp(QWidget* parent) {
    const std::unique_ptr<QDialog> dialog = SetUpDialog(parent);
    dialog->setWindowTitle(QStringLiteral("Page Setup"));
    dialog->exec();
}

bool PagePrinter::Print(const QImage& picture, const QString& title) {
    Printer().setDocName(title);
    return PrintPictureToFit(Printer(), picture);
}

int PagePrinter::PrintPages(const PaintPages& paint, const QString& title) {
    Printer().setDocName(title);
    return paint(Printer());
}

void PagePrinter::Abort() {
    Printer().abort();
}

std::error_code PagePrinter::WritePdf(const Path& file, const QImage& picture, const QString& title) {
    const std::string bytes =
        PdfOf([&](QPagedPaintDevice& writer) { return PrintPictureToFit(writer, picture) ? 1 : 0; }, title);
    if (bytes.empty()) return std::make_error_code(std::errc::io_error);
    return WriteWholeFile(file, bytes);
}

std::string PagePrinter::PdfOf(const PaintPages& paint, const QString& title) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(Printer().pageLayout());
    writer.setResolution(Printer().resolution());
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Brantlow"));
    if (paint(writer) == 0) return {};
    return bytes.toStdString();
}

}  // namespace brantlow
