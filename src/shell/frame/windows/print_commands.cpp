#include "shell/frame/windows/print_commands.h"

#include <fmt/format.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <algorithm>

#include "base/windows/display_text.h"
#include "chart/picture_files.h"
#include "chart/windows/window_picture.h"
#include "shell/file_kind.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/run_control.h"
#include "shell/status_words.h"
#include "store/windows/table_pages.h"

namespace brantlow {

namespace {

constexpr std::string_view kPdfExtension = ".pdf";
// Fewer are painted before the eye sees a bar.
constexpr std::size_t kManyCells = 20000;
constexpr std::string_view kPrintStopped = "Stopped; nothing was printed";
constexpr std::string_view kCopyNeedsChart = "To copy a picture, you will need to open a chart";

// The name that a save dialog proposes.
std::string ProposedName(const QString& caption) {
    return ImageFile({}, caption.toStdString(), "").filename().string();
}

// A table's file under its name, without that of its kind.
QString PdfCaption(const QString& caption) {
    const std::string name = caption.toStdString();
    const bool isTable = KindOf(name) != FileKind::None;
    return Shown((isTable ? Path(name).stem().string() : name) + std::string(kPdfExtension));
}

struct KindWords {
    std::string_view extension;
    std::string_view words;
};

// The entry of a save dialog's list for files of this kind.
std::string FilterFor(std::string_view extension) {
    static constexpr KindWords kKinds[] = {
        {kPdfExtension, "PDF Files"}, {kPngExtension, "PNG Pictures"}, {kSvgExtension, "SVG Pictures"}};
    const auto* const kind = std::find_if(std::begin(kKinds), std::end(kKinds),
                                          [&](const KindWords& row) { return row.extension == extension; });
    const std::string_view words = kind == std::end(kKinds) ? "All Files" : kind->words;
    return fmt::format("{0} (*{1})|*{1}", words, extension);
}

bool EndsIn(const Path& file, std::string_view extension) {
    return WithExtension(file, extension) == file;
}

}  // namespace

CommandRows PrintCommands::Rows() {
    static constexpr SubjectRow<PrintCommands> kRows[] = {
        {"mnuFilePrintPreview", &PrintCommands::PrintPreview},
        {"mnuFilePrint", &PrintCommands::Print},
        {"mnuFilePageSetup", &PrintCommands::PageSetUp},
        {"mnuEditCopyPicture", &PrintCommands::CopyPicture},
    };
    return RowsOf(*this, kRows);
}

ChildOperations PrintCommands::PictureOperations(QWidget& chart, std::function<QImage()> picture,
                                                 std::function<std::string()> svg) {
    return {.active = kChartActive,
            .print = [this, &chart, picture] { PrintPicture(OnPaper(chart, picture), chart.windowTitle()); },
            .save = [this, &chart, picture] { SavePicture(picture(), chart.windowTitle()); },
            .saveAs = [this, &chart, picture,
                       svg = std::move(svg)] { SavePictureAs(picture(), chart.windowTitle(), svg); },
            .copyPicture = [this, picture] { CopyToClipboard(picture()); }};
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

void PrintCommands::PrintPicture(const QImage& picture, const QString& caption) {
    if (!pages_.HasPrinter()) return PrintToFile(picture, caption);
    const std::string printer = pages_.PrinterName().toStdString();
    if (pages_.Print(picture, caption)) return frame_.notice("Printed on " + printer);
    frame_.person.Say("The printer " + printer + " takes no page.");
}

void PrintCommands::PrintToFile(const QImage& picture, const QString& caption) {
    const Path file = AskImageFile("Print", PdfCaption(caption), kPdfExtension);
    if (file.empty()) return;
    const std::error_code error = pages_.WritePdf(file, picture, caption);
    frame_.person.Say(error ? CannotBeSaved(file, error)
                            : "There is no printer. The page was written to " + file.string());
}

void PrintCommands::PrintTable(const TableOnPaper& paper) {
    pages_.HasPrinter() ? PrintOnPrinter(paper) : PrintToFile(paper);
}

void PrintCommands::PrintOnPrinter(const TableOnPaper& paper) {
    const std::string printer = pages_.PrinterName().toStdString();
    int count = 0;
    const auto print = [&](const PagePrinter::PaintPages& paint) {
        count = pages_.PrintPages(paint, paper.title);
    };
    if (!PrintsAll(paper, print)) return frame_.notice(std::string(kPrintStopped));
    if (count == 0) return frame_.person.Say("The printer " + printer + " takes no page.");
    frame_.notice(fmt::format("Printed {} {} on {}", count, count == 1 ? "page" : "pages", printer));
}

void PrintCommands::PrintToFile(const TableOnPaper& paper) {
    const Path file = AskImageFile("Print Whole Table", PdfCaption(paper.title), kPdfExtension);
    if (file.empty()) return;
    std::error_code error;
    const auto print = [&](const PagePrinter::PaintPages& paint) {
        const std::string bytes = pages_.PdfOf(paint, paper.title);
        if (bytes.empty()) return static_cast<void>(error = std::make_error_code(std::errc::io_error));
        frame_.person.DoBeside([&] { error = WriteWholeFile(file, bytes); });
    };
    if (!PrintsAll(paper, print)) return frame_.notice(std::string(kPrintStopped));
    frame_.person.Say(error ? CannotBeSaved(file, error)
                            : "There is no printer. The pages were written to " + file.string());
}

// False when the person stopped it, and nothing was printed.
bool PrintCommands::PrintsAll(const TableOnPaper& paper,
                              const std::function<void(const PagePrinter::PaintPages&)>& print) {
    if (paper.rows.size() * paper.columns.size() < kManyCells || frame_.person.InRun()) {
        print([&](QPagedPaintDevice& device) { return PaintTablePages(device, paper); });
        return true;
    }
    bool goesOn = true;
    BeginRun(frame_.session.run);
    frame_.runs.BeginWithoutTable(RunStop::TakesAllBack);
    frame_.person.ShowStatusWord(kStatusPrinting);
    print([&](QPagedPaintDevice& device) {
        return PaintTablePages(device, paper, [&](double share) { return goesOn = GoesOn(share); });
    });
    frame_.person.ShowStatusWord(kStatusComplete);
    frame_.runs.End();
    frame_.person.HideProgress();
    return goesOn;
}

bool PrintCommands::GoesOn(double share) {
    frame_.person.ShowProgress(share);
    frame_.person.PumpEvents();
    const bool stops = ShouldStop(frame_.session.run, frame_.person);
    if (stops && pages_.HasPrinter()) pages_.Abort();
    return !stops;
}

void PrintCommands::CopyPicture() {
    if (!frame_.children.Operate(&ChildOperations::copyPicture)) frame_.person.Say(kCopyNeedsChart);
}

void PrintCommands::CopyToClipboard(const QImage& picture) {
    QGuiApplication::clipboard()->setImage(picture);
    frame_.notice("The picture is on the clipboard");
}

void PrintCommands::SavePicture(const QImage& picture, const QString& caption) {
    WritePicture(BitmapBytes(picture),
                 ImageFile(frame_.session.AppPath, caption.toStdString(), kBitmapExtension));
}

void PrintCommands::SavePictureAs(const QImage& picture, const QString& caption,
                                  const std::function<std::string()>& svg) {
    std::vector<std::string_view> more;
    if (svg) more = {kPngExtension, kSvgExtension};
    const Path file = AskImageFile("Save As", caption, kBitmapExtension, more);
    if (file.empty()) return;
    if (svg && EndsIn(file, kSvgExtension)) return WritePicture(svg(), file);
    WritePicture(EndsIn(file, kPngExtension) ? PngBytes(picture) : BitmapBytes(picture), file);
}

void PrintCommands::WritePicture(const std::string& bytes, const Path& file) {
    const std::error_code error = SaveTextFile(file, bytes);
    if (!error) return frame_.notice("Saved as " + file.string());
    frame_.person.Say(CannotBeSaved(file, error));
}

Path PrintCommands::AskImageFile(const std::string& title, const QString& caption, std::string_view extension,
                                 const std::vector<std::string_view>& more) {
    const Path folder = ImagesFolder(frame_.session.AppPath);
    // Without the folder the dialog would start in another one.
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    std::string filter = FilterFor(extension);
    for (const std::string_view other : more) filter += "|" + FilterFor(other);
    const Path chosen = frame_.askFile({title, folder, ProposedName(caption), filter, true});
    if (chosen.empty()) return {};
    const bool isOther =
        std::any_of(more.begin(), more.end(), [&](std::string_view other) { return EndsIn(chosen, other); });
    const Path file = isOther ? chosen : WithExtension(chosen, extension);
    // The dialog has asked about the name as it was entered.
    const bool asked = file == chosen || !IsRegularFile(file);
    if (asked || frame_.person.AskBeforeDestroying(
                     file.filename().string() + " already exists. Do you want to replace it?", title))
        return file;
    return {};
}

}  // namespace brantlow
