// One call of the batch tool behind the door of fault_shim.cpp: with a fault, without one, or only watched.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "support/temp_folder.h"

namespace brantlow {

// What goes wrong; the words are those of fault_shim.cpp.
struct FaultPlan {
    std::string calls = "any";
    std::string action;  // empty: nothing
    std::size_t number = 1;
    std::string file = {};  // a part of the path
    bool lasts = false;     // the calls behind it fail too
};

// What the tests call, and where their files lie.
struct FaultPrograms {
    Path batchTool;
    Path keepDrawings;
    Path shim;
};
// Those of the same build.
FaultPrograms ProgramsUnderTest();

// Instead of a command: `draw TICKER PRICE` keeps a horizontal line as the chart's window keeps it.
inline constexpr std::string_view kWindowsDrawing = "draw";

struct FaultedCall {
    int status = 0;  // the exit status, -1 when a signal ended it
    int signal = 0;  // that signal
    std::string out;
    std::string err;
    std::string call;  // the call that the fault was met at; empty when it was met at none
    Path path;         // and its path
    std::string Told() const;
};

// A call under way. It is waited for, or killed, at the latest when it goes out of sight.
class RunningCall {
  public:
    // Of the batch tool, with `--app APP --today 2026-11-21 --time 18:00` before the arguments. What the
    // window alone can do, kWindowsDrawing, is done by a program with the same ones.
    RunningCall(const Path& app, const std::vector<std::string>& arguments, const FaultPlan& plan,
                bool traces = false);
    ~RunningCall();
    RunningCall(const RunningCall&) = delete;
    RunningCall& operator=(const RunningCall&) = delete;

    pid_t Process() const { return process_; }
    // Returns once the program has stopped itself (STOP); false when it ended instead.
    bool WaitUntilStopped();
    void Continue() const;
    void Kill() const;
    FaultedCall Wait();
    // The lines of the trace.
    std::vector<std::string> Trace() const;

  private:
    Path Note(const char* name) const { return notes_ / name; }
    void TakeStatus(int status);

    TempFolder notes_;
    pid_t process_ = -1;
    FaultedCall result_;
    bool ended_ = false;
};

FaultedCall CallWithFault(const Path& app, const std::vector<std::string>& arguments, const FaultPlan& plan);

}  // namespace brantlow
