#include "shell/frame/windows/file_commands.h"

#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QProcess>
#include <algorithm>

#include "base/windows/display_text.h"
#include "chart/windows/window_picture.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/window_person.h"
#include "shell/recent_files.h"
#include "shell/run_report.h"
#include "store/quote_export.h"
#include "store/table_figures.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/table_pages.h"

namespace brantlow {

namespace {

// The companion program that makes the quote file of a whole market.
constexpr const char* kQuoteFileTool = "BrantlowQuoteFiles";
constexpr std::string_view kCsvExtension = ".csv";
// Of some thousand rows.
constexpr std::uintmax_t kLargeTableBytes = 500000;

}  // namespace

FileCommands::FileCommands(const FrameHands& frame, const Display& display)
    : frame_(frame), display_(display) {}

CommandRows FileCommands::Rows() {
    static constexpr SubjectRow<FileCommands> kRows[] = {
        {"mnuFileNewEODQuoteFile", &FileCommands::NewTable},
        {"mnuFileNewCreateMarketQuoteFile", &FileCommands::CreateMarketQuoteFile},
        {"mnuFileOpenQuotesDB", &FileCommands::OpenQuotesFile},
        {"mnuFileOpenEvaluationDB", &FileCommands::OpenEvaluations},
        {"mnuFileOpenExtendedFundamental", &FileCommands::OpenFundamentals},
        {"mnuFileClose", &FileCommands::CloseFile},
        {"mnuFileSave", &FileCommands::SaveFile},
        {"mnuFileSaveAs", &FileCommands::SaveFileAs},
        {"mnuFileExportQuotes", &FileCommands::ExportQuoteFile},
        {"mnuFileExportCsv", &FileCommands::ExportCsv},
        {"mnuFilePrintTable", &FileCommands::PrintWholeTable},
        {"mnuFileExit", &FileCommands::ExitProgram},
        {"mnuPopUpExportHistQuotes", &FileCommands::ExportHistoricalQuotes},
    };
    return RowsOf(*this, kRows);
}

TableHands FileCommands::Table() {
    return {.form = [this] { return form_.data(); },
            .show = [this](std::string_view name) { return ShowFile(name); },
            .reload = [this] { return ReloadFile(); },
            .nameChanged = [this] { NameChanged(); },
            .close = [this] { CloseTable(); }};
}

TableWindows FileCommands::Windows() {
    TableWindows windows;
    windows.CheckActivefrm = frame_.closeChildren;
    windows.askFile = frame_.askFile;
    windows.loadQuoteForm = [this] { return LoadForm(); };
    windows.showQuoteForm = [this] { ShowForm(); };
    windows.openTable = [this]() -> QuoteTable* { return form_ ? &form_->Table() : nullptr; };
    windows.nameChanged = [this] { NameChanged(); };
    windows.saving = [this](const QuoteTable& table, const std::function<void()>& save) {
        frame_.runs.Saving(table, save);
    };
    return windows;
}

TableLoad FileCommands::LoadForm() {
    auto* form = new frmQuoteGrid(frame_.session);
    ConnectForm(*form);
    form_ = form;
    window_ = frame_.children.Add(*form);
    const QSize area = frame_.children.AreaSize();
    window_->resize(std::min(PixelsOf(ScaledWidth(display_, kTableWidth)), area.width()),
                    std::min(PixelsOf(ScaledHeight(display_, kTableHeight)), area.height()));
    const TableLoad load = Load([form] { return form->Load(); });
    // Nothing was told of the rows while a large table was read, as in any run.
    if (load.Done() && !frame_.person.InRun()) frame_.showRows(form->RowsLine());
    frame_.children.SetOperations(*form, Operations());
    return load;
}

// A large table takes a while, in which the windows live on; the frame is off then, and begins nothing else.
TableLoad FileCommands::Load(const std::function<TableLoad()>& read) {
    std::error_code error;
    const auto bytes = std::filesystem::file_size(frame_.session.DataFile(frame_.session.CurrentFile), error);
    if (error || bytes < kLargeTableBytes || frame_.person.InRun()) return read();
    frame_.person.BeginWork();
    const TableLoad load = read();
    frame_.runs.End();
    return load;
}

void FileCommands::ConnectForm(frmQuoteGrid& form) {
    QObject::connect(&form, &frmQuoteGrid::CloseAsked, &frame_.window, [this] {
        if (frame_.runs.TableMayClose()) CloseTable();
    });
    QObject::connect(&form, &frmQuoteGrid::CommandPressed, &frame_.window, frame_.run);
    QObject::connect(&form, &frmQuoteGrid::RowChosen, &frame_.window, frame_.rowChosen);
    QObject::connect(&form, &frmQuoteGrid::PopUpAsked, &frame_.window, frame_.showPopUpMenu);
    QObject::connect(&form, &frmQuoteGrid::RowsLineChanged, &frame_.window, [this] {
        if (form_ && !frame_.person.InRun()) frame_.showRows(form_->RowsLine());
    });
    QObject::connect(&form, &frmQuoteGrid::CellDoubleClicked, &frame_.window,
                     [this](int column) { CellDoubleClicked(column); });
    QObject::connect(&form, &frmQuoteGrid::RowEntered, &frame_.window, [this] {
        if (!frame_.person.InRun()) frame_.run("Graphics");
    });
}

void FileCommands::CellDoubleClicked(int column) {
    if (!form_ || frame_.person.InRun()) return;
    if (frame_.isChosen("mnuViewDoubleClickChart")) return frame_.run("Graphics");
    form_->SortByTurns(column);
}

// The template of new tables and files of other kinds are not printed.
ChildOperations FileCommands::Operations() {
    const auto picture = [form = form_.data()] { return CaptureClient(*form); };
    const auto print = [this, printPicture = frame_.pictureOperations(*form_, picture, {}).print] {
        const FileKind kind = KindOf(frame_.session.CurrentFile);
        if (kind == FileKind::Ddq || kind == FileKind::Dbe || kind == FileKind::Efq) printPicture();
    };
    return {.print = print,
            .save = [this] { SaveTableFile(frame_.session, Windows()); },
            .saveAs = [this] { SaveTableFileAs(frame_.session, Windows()); }};
}

void FileCommands::ShowForm() {
    window_->showMaximized();
    frame_.tableShown();
}

bool FileCommands::ShowFile(std::string_view name) {
    frame_.closeChildren();
    frame_.session.CurrentFile = name;
    return ShowCurrentFile(frame_.session, Windows());
}

bool FileCommands::ReloadFile() {
    frmQuoteGrid* const form = form_;
    if (form == nullptr) return false;
    const TableLoad load = Load([form] { return form->Reload(); });
    // Told, and the window of a table that is none any more goes.
    if (!load.Done()) return ShowFile(std::string(frame_.session.CurrentFile));
    frame_.session.CurrentTicker = form->TickerMeant();
    frame_.person.ShowTickerCount(form->Table().TickerCount());
    frame_.showRows(form->RowsLine());
    const std::string sentence = TableLoadSentence(load, frame_.session.CurrentFile);
    if (!sentence.empty()) frame_.person.Say(sentence);
    return true;
}

void FileCommands::NameChanged() {
    if (form_) form_->NameChanged();
    frame_.showRecentFiles();
    frame_.applyRules();
}

// A window that never came into sight showed no table.
void FileCommands::CloseForm() {
    const QWidget* const window = window_;
    if (window && window->isVisible()) lastClosed_ = frame_.session.CurrentFile;
    frame_.children.Remove(window_);
    window_ = nullptr;
    form_ = nullptr;
    frame_.showRows({});
    frame_.person.HideTickerCount();
    frame_.showTitle();
    frame_.applyRules();
}

void FileCommands::NewTable() {
    OpenTableFile(frame_.session, OpeningRoad::NewTable, Windows());
}

void FileCommands::OpenQuotesFile() {
    frame_.showStatusBar();
    OpenTableFile(frame_.session, OpeningRoad::EndOfDay, Windows());
    NameChanged();
}

void FileCommands::OpenEvaluations() {
    OpenTableFile(frame_.session, OpeningRoad::Evaluation, Windows());
}

void FileCommands::OpenFundamentals() {
    OpenTableFile(frame_.session, OpeningRoad::ExtendedFundamental, Windows());
}

void FileCommands::OpenRecentFile(std::size_t entry) {
    OpenNamed(RecentFiles(frame_.session.settings).at(entry - 1));
}

void FileCommands::OpenNamed(const std::string& name) {
    frame_.forgetRows();
    frame_.session.OpenWithoutDialog = true;
    frame_.session.PickedFile = name;
    OpenQuotesFile();
}

void FileCommands::CloseFile() {
    if (!frame_.children.Operate(&ChildOperations::close)) CloseTable();
}

// The other children stay.
void FileCommands::CloseTable() {
    if (frame_.runs.ClosesTableAfterwards()) return;
    frame_.showStatusBar();
    TableWindows windows = Windows();
    windows.CheckActivefrm = [this] { CloseForm(); };
    CloseTableFile(frame_.session, windows);
    NameChanged();
}

void FileCommands::SaveFile() {
    frame_.children.Operate(&ChildOperations::save);
}

void FileCommands::SaveFileAs() {
    frame_.children.Operate(&ChildOperations::saveAs);
}

void FileCommands::ExportQuoteFile() {
    if (!form_) {
        frame_.person.Say(kExportNeedsTable);
        return;
    }
    Session& session = frame_.session;
    session.run.ProgressLastShown = 0;
    frame_.person.BeginWork();
    const QuoteExport exported = ExportQuotes(session, form_->Table());
    frame_.runs.End();
    if (exported.outcome == ExportOutcome::Done) {
        frame_.tell(
            ExportReport(session.CurrentFile, exported.rows, ExportFile(session.AppPath, session.settings)));
    }
    if (exported.outcome == ExportOutcome::Failed) {
        frame_.person.Say(Sentence(exported.error));
    }
}

// The rows that are shown, with the columns that are shown.
void FileCommands::ExportCsv() {
    if (!form_) return;
    const Session& session = frame_.session;
    const std::string name = Path(session.CurrentFile).stem().string() + std::string(kCsvExtension);
    Path file =
        frame_.askFile({"Export as CSV", session.DataFolder(), name, "CSV Files (*.csv)|*.csv", true});
    if (file.empty()) return;
    if (!file.has_extension()) file += kCsvExtension;
    const std::vector<std::size_t> rows = form_->ShownRows();
    std::error_code error;
    frame_.person.BeginWork();
    frame_.person.DoBeside([&, &table = form_->Table()] {
        error = WriteWholeFile(file, RowsText(table, rows, ShownColumns(table), CellsBetween::Commas));
    });
    frame_.runs.End();
    if (error) return frame_.person.Say(CannotBeSaved(file, error));
    frame_.notice(Counted(rows.size(), "row", "rows") + " exported to " + file.string());
}

void FileCommands::PrintWholeTable() {
    if (!form_) return;
    const Date today = frame_.session.clock.Today();
    const TableOnPaper paper{form_->Table(), form_->ShownRows(), ShownColumns(form_->Table()),
                             Shown(frame_.session.CurrentFile), Shown(FormatDate(today))};
    frame_.printTable(paper);
}

void FileCommands::ExportHistoricalQuotes() {
    frame_.person.Say("This function is not yet available.");
}

void FileCommands::CreateMarketQuoteFile() {
    const Path& appPath = frame_.session.AppPath;
    const Path tool = appPath / kQuoteFileTool;
    if (!IsRegularFile(tool)) {
        return frame_.person.Say(
            "The program that creates market quote files is not installed. It belongs in " + tool.string() +
            ".");
    }
    if (!QProcess::startDetached(ShownPath(tool), {}, ShownPath(appPath)))
        frame_.person.Say(tool.string() + ": cannot be started");
}

void FileCommands::ExitProgram() {
    frame_.window.close();
}

}  // namespace brantlow
