// The commands of the File menu that open, close and save the open table, with its window; the companion
// program that makes tables, and the way out.
#pragma once

#include <QPointer>
#include <cstddef>
#include <string>

#include "shell/display.h"
#include "shell/frame/windows/frame_hands.h"

class QMdiSubWindow;

namespace brantlow {

class FileCommands final {
  public:
    // `frame` and `display` outlive this.
    FileCommands(const FrameHands& frame, const Display& display);

    CommandRows Rows();
    TableHands Table();

    // Opens the file that Session::PickedFile names, or asks for one, as Session::OpenWithoutDialog says.
    void OpenQuotesFile();
    // Opens the recent file 1 to 4 without a dialog.
    void OpenRecentFile(std::size_t entry);
    // Takes the table's window away without a question.
    void CloseForm();
    // Opens a file of the data folder without a dialog, by the road of the recent files.
    void OpenNamed(const std::string& name);
    // The table that was closed last, by its name; empty before the first.
    const std::string& LastClosed() const { return lastClosed_; }

  private:
    void NewTable();
    void CreateMarketQuoteFile();
    void OpenEvaluations();
    void OpenFundamentals();
    void CloseFile();
    void SaveFile();
    void SaveFileAs();
    void ExportQuoteFile();
    void ExportCsv();
    void PrintWholeTable();
    void ExportHistoricalQuotes();
    void ExitProgram();

    TableWindows Windows();
    TableLoad LoadForm();
    void ShowForm();
    bool ShowFile(std::string_view name);
    void NameChanged();
    void CloseTable();
    ChildOperations Operations();
    TableLoad Load(const std::function<TableLoad()>& read);
    bool ReloadFile();
    void ConnectForm(frmQuoteGrid& form);
    void CellDoubleClicked(int column);

    const FrameHands& frame_;
    const Display& display_;
    QPointer<frmQuoteGrid> form_;
    QPointer<QMdiSubWindow> window_;
    std::string lastClosed_;
};

}  // namespace brantlow
