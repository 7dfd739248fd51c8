// The commands of the File menu that act on the active child, whatever it shows: printing it, and keeping it
// as a file.
#include <fmt/format.h>

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStatusBar>

#include "base/windows/display_text.h"
#include "chart/picture_files.h"
#include "chart/windows/page_printer.h"
#include "chart/windows/window_picture.h"
#include "shell/frame/windows/frmMain.h"
#include "shell/frame/windows/window_person.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

constexpr std::string_view kPdfExtension = ".pdf";
constexpr int kNoticeMilliseconds = 8000;

// The name that a save dialog proposes.
std::string ProposedName(const QString& caption) {
    return ImageFile({}, caption.toStdString(), "").filename().string();
}

std::string FilterFor(std::string_view extension) {
    return fmt::format("All Files (*{0})|*{0}", extension);
}

}  // namespace

void frmMain::SetOperations(QWidget& child, ChildOperations operations) {
    operations_.removeIf([](const HeldOperations& held) { return held.child.isNull(); });
    operations_.append({&child, std::move(operations)});
    ApplyRules();
}

ChildOperations frmMain::PictureOperations(QWidget& chart, QWidget& client) {
    return {.active = kChartActive,
            .print = [this, &chart, &client] { PrintPicture(client, chart.windowTitle()); },
            .save = [this, &chart, &client] { SavePicture(client, chart.windowTitle()); },
            .saveAs = [this, &chart, &client] { SavePictureAs(client, chart.windowTitle()); }};
}

const ChildOperations* frmMain::ActiveOperations() const {
    const QMdiSubWindow* active = area_->currentSubWindow();
    if (!active || !active->widget()) return nullptr;
    for (const HeldOperations& held : operations_) {
        if (held.child == active->widget()) return &held.operations;
    }
    return nullptr;
}

// With a copy: what a command does can take the child away.
void frmMain::Operate(std::function<void()> ChildOperations::*operation) {
    const ChildOperations* active = ActiveOperations();
    const std::function<void()> run = active ? active->*operation : nullptr;
    if (run) run();
}

void frmMain::SaveFile() {
    Operate(&ChildOperations::save);
}

void frmMain::SaveFileAs() {
    Operate(&ChildOperations::saveAs);
}

void frmMain::Print() {
    Operate(&ChildOperations::print);
}

void frmMain::PrintPreview() {
    Operate(&ChildOperations::printPreview);
}

void frmMain::PageSetUp() {
    pagePrinter_->SetUp(this);
}

void frmMain::SetTableOperations() {
    SetOperations(*quoteForm_, {.print = [this] { PrintTable(); },
                                .save = [this] { SaveTableFile(session_, Windows()); },
                                .saveAs = [this] { SaveTableFileAs(session_, Windows()); }});
}

// The template of new tables and files of other kinds are not printed.
void frmMain::PrintTable() {
    const FileKind kind = KindOf(session_.CurrentFile);
    if (kind == FileKind::Ddq || kind == FileKind::Dbe || kind == FileKind::Efq)
        PrintPicture(*quoteForm_, quoteForm_->windowTitle());
}

void frmMain::PrintPicture(QWidget& client, const QString& caption) {
    const QImage picture = CaptureClient(client);
    if (!pagePrinter_->HasPrinter()) return PrintToFile(picture, caption);
    const std::string printer = pagePrinter_->PrinterName().toStdString();
    if (pagePrinter_->Print(picture, caption)) return Notice("Printed on " + printer);
    person_.Say("The printer " + printer + " takes no page.");
}

void frmMain::PrintToFile(const QImage& picture, const QString& caption) {
    const Path file = AskImageFile("Print", caption, kPdfExtension);
    if (file.empty()) return;
    const std::error_code error = pagePrinter_->WritePdf(file, picture, caption);
    person_.Say(error ? file.string() + ": cannot be saved (" + error.message() + ")"
                      : "There is no printer. The page was written to " + file.string());
}

void frmMain::SavePicture(QWidget& client, const QString& caption) {
    WritePicture(CaptureClient(client), ImageFile(session_.AppPath, caption.toStdString(), kBitmapExtension));
}

void frmMain::SavePictureAs(QWidget& client, const QString& caption) {
    const QImage picture = CaptureClient(client);
    const Path file = AskImageFile("Save As", caption, kBitmapExtension);
    if (!file.empty()) WritePicture(picture, file);
}

void frmMain::WritePicture(const QImage& picture, const Path& file) {
    const std::error_code error = SaveTextFile(file, BitmapBytes(picture));
    if (!error) return Notice("Saved as " + file.string());
    person_.Say(file.string() + ": cannot be saved (" + error.message() + ")");
}

Path frmMain::AskImageFile(const std::string& title, const QString& caption, std::string_view extension) {
    const Path folder = ImagesFolder(session_.AppPath);
    // Without the folder the dialog would start in another one.
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    const Path chosen = AskFile({title, folder, ProposedName(caption), FilterFor(extension), true});
    if (chosen.empty()) return {};
    const Path file = WithExtension(chosen, extension);
    // The dialog has asked about the name as it was entered.
    const bool asked = file == chosen || !IsRegularFile(file);
    if (asked || person_.Ask(file.filename().string() + " already exists. Do you want to replace it?", title))
        return file;
    return {};
}

void frmMain::Notice(const std::string& text) {
    statusBar()->showMessage(Shown(text), kNoticeMilliseconds);
}

}  // namespace brantlow
