#include "shell/frame/windows/print_commands.h"

#include <fmt/format.h>

#include <QMainWindow>

#include "base/windows/display_text.h"
#include "chart/picture_files.h"
#include "chart/windows/window_picture.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/window_person.h"

namespace brantlow {

namespace {

constexpr std::string_view kPdfExtension = ".pdf";

// The name that a save dialog proposes.
std::string ProposedName(const QString& caption) {
    return ImageFile({}, caption.toStdString(), "").filename().string();
}

std::string FilterFor(std::string_view extension) {
    return fmt::format("All Files (*{0})|*{0}", extension);
}

}  // namespace

CommandRows PrintCommands::Rows() {
    static constexpr SubjectRow<PrintCommands> kRows[] = {
        {"mnuFilePrintPreview", &PrintCommands::PrintPreview},
        {"mnuFilePrint", &PrintCommands::Print},
        {"mnuFilePageSetup", &PrintCommands::PageSetUp},
    };
    return RowsOf(*this, kRows);
}

ChildOperations PrintCommands::PictureOperations(QWidget& chart, QWidget& client) {
    return {.active = kChartActive,
            .print = [this, &chart, &client] { PrintPicture(client, chart.windowTitle()); },
            .save = [this, &chart, &client] { SavePicture(client, chart.windowTitle()); },
            .saveAs = [this, &chart, &client] { SavePictureAs(client, chart.windowTitle()); }};
}

void PrintCommands::Print() {
    frame_.children.Operate(&ChildOperations::print);
}

void PrintCommands::PrintPreview() {
    frame_.children.Operate(&ChildOperations::printPreview);
}

void PrintCommands::PageSetUp() {
    pages_.SetUp(&frame_.window);
}

void PrintCommands::PrintPicture(QWidget& client, const QString& caption) {
    const QImage picture = CaptureClient(client);
    if (!pages_.HasPrinter()) return PrintToFile(picture, caption);
    const std::string printer = pages_.PrinterName().toStdString();
    if (pages_.Print(picture, caption)) return frame_.notice("Printed on " + printer);
    frame_.person.Say("The printer " + printer + " takes no page.");
}

void PrintCommands::PrintToFile(const QImage& picture, const QString& caption) {
    const Path file = AskImageFile("Print", caption, kPdfExtension);
    if (file.empty()) return;
    const std::error_code error = pages_.WritePdf(file, picture, caption);
    frame_.person.Say(error ? file.string() + ": cannot be saved (" + error.message() + ")"
                            : "There is no printer. The page was written to " + file.string());
}

void PrintCommands::PrintPages(const QString& title, const PagePrinter::PaintPages& paint) {
    if (pages_.HasPrinter()) {
        const std::string printer = pages_.PrinterName().toStdString();
        const int count = pages_.PrintPages(paint, title);
        if (count == 0) return frame_.person.Say("The printer " + printer + " takes no page.");
        return frame_.notice(
            fmt::format("Printed {} {} on {}", count, count == 1 ? "page" : "pages", printer));
    }
    const Path file = AskImageFile("Print Whole Table", title, kPdfExtension);
    if (file.empty()) return;
    const std::error_code error = pages_.WritePdfPages(file, paint, title);
    frame_.person.Say(error ? file.string() + ": cannot be saved (" + error.message() + ")"
                            : "There is no printer. The pages were written to " + file.string());
}

void PrintCommands::SavePicture(QWidget& client, const QString& caption) {
    WritePicture(CaptureClient(client),
                 ImageFile(frame_.session.AppPath, caption.toStdString(), kBitmapExtension));
}

void PrintCommands::SavePictureAs(QWidget& client, const QString& caption) {
    const QImage picture = CaptureClient(client);
    const Path file = AskImageFile("Save As", caption, kBitmapExtension);
    if (!file.empty()) WritePicture(picture, file);
}

void PrintCommands::WritePicture(const QImage& picture, const Path& file) {
    const std::error_code error = SaveTextFile(file, BitmapBytes(picture));
    if (!error) return frame_.notice("Saved as " + file.string());
    frame_.person.Say(file.string() + ": cannot be saved (" + error.message() + ")");
}

Path PrintCommands::AskImageFile(const std::string& title, const QString& caption,
                                 std::string_view extension) {
    const Path folder = ImagesFolder(frame_.session.AppPath);
    // Without the folder the dialog would start in another one.
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    const Path chosen = frame_.askFile({title, folder, ProposedName(caption), FilterFor(extension), true});
    if (chosen.empty()) return {};
    const Path file = WithExtension(chosen, extension);
    // The dialog has asked about the name as it was entered.
    const bool asked = file == chosen || !IsRegularFile(file);
    if (asked || frame_.person.AskBeforeDestroying(
                     file.filename().string() + " already exists. Do you want to replace it?", title))
        return file;
    return {};
}

}  // namespace brantlow
