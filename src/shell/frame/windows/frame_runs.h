// A long run as the main frame has it: it begins and ends here, and what the person asks for meanwhile,
// closing the frame or the table that is being filled, waits for its end.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "shell/memory_status.h"
#include "shell/run_control.h"
#include "shell/session.h"

class QWidget;

namespace brantlow {

class QuoteTable;
class WindowPerson;
class frmQuoteGrid;

class FrameRuns final {
  public:
    // All outlive this.
    FrameRuns(QWidget& window, Session& session, WindowPerson& person, std::function<void()> applyRules);

    // A run on the open table: the row in work stays in sight.
    void Begin(frmQuoteGrid& table, RunStop stop = RunStop::KeepsWhatIsDone);
    // The same for a run that fills the table: closing the table ends it.
    void BeginFilling(frmQuoteGrid& table);
    // A run on no table, and on no ticker yet.
    void BeginWithoutTable(RunStop stop = RunStop::KeepsWhatIsDone);
    // Ends either, and work as WindowPerson has it. False when the frame was closed meanwhile and goes now.
    bool End();
    bool EndOn(frmQuoteGrid& table);
    // Does what saves `table`; of a large one it is work, beside which the windows live.
    void Saving(const QuoteTable& table, const std::function<void()>& save);
    // For what asks before it saves: begins that work once nothing more is asked. True where it is work and
    // has to End.
    bool BeginSaving(const QuoteTable& table);

    // Whether the open table may be closed.
    bool TableMayClose() const;
    bool FillsTable() const { return filling_; }
    // A run fills the table that is to be closed: stops it and remembers. False when there is no such run.
    bool ClosesTableAfterwards();
    // Whether it was to be closed; asked once.
    bool TakeCloseTable();
    // The frame is to be closed: stops the run and remembers. False when there is none.
    bool ClosesFrameAfterwards();

    // The text by which a run watches the memory: the system's, until another is given.
    std::string (*MemoryInfo() const)() { return memoryInfo_; }
    void WatchMemoryBy(std::string (*memoryInfo)()) { memoryInfo_ = memoryInfo; }

  private:
    QWidget& window_;
    Session& session_;
    WindowPerson& person_;
    std::function<void()> applyRules_;
    // What Session::CurrentTicker was before the run, which sets it for each row.
    std::optional<std::string> ticker_;
    bool filling_ = false;
    bool closeTable_ = false;
    bool closeFrame_ = false;
    std::string (*memoryInfo_)() = ReadMemoryInfo;
};

}  // namespace brantlow
