// The housekeeping commands of the Edit menu: back-ups, joining tables, taking an update back, deleting and
// editing files, undoing, the check of the database. The back-up at exit stands with them.
#pragma once

#include "shell/frame/windows/frame_hands.h"

namespace brantlow {

enum class BackedUp;
enum class CheckMode;
struct CheckReport;
struct Finding;
struct FileStamp;
struct UndoResult;

class UpkeepCommands final {
  public:
    explicit UpkeepCommands(const FrameHands& frame) : frame_(frame) {}

    CommandRows Rows();

    // The frame closes: false when a text that is not saved is to stay open.
    bool CloseEditors();
    // What the entry "Undo" reads: with the name of the newest change, where there is one.
    std::string UndoWords() const;
    // The weekly or monthly back-up, where one is due.
    void BackUpBeforeExit();

  private:
    void Undo();
    UndoResult UndoNewest();
    void ShowUndone(const std::vector<Path>& files);
    void BackUpProgramFiles();
    void BackUpQuoteDatabase();
    void RestoreProgramFiles();
    void RestoreQuoteDatabase();
    void EditQuoteFiles();
    void EditDatabaseFiles();
    void CombineFiles();
    void RemoveUpdate();
    void ShowCheck();
    CheckReport RunCheck(CheckMode mode);
    void OpenFinding(const Finding& finding);
    void DeleteFiles();
    void RunBackUp(BackedUp what, bool restores);
    // Nothing where no table is open.
    Path OpenTableFile() const;
    void TakeRestoredFiles(const FileStamp& openTable);
    void EditFile(const Path& file);

    const FrameHands& frame_;
};

}  // namespace brantlow
