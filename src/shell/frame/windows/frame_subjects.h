// The subjects of the main frame's commands, wired to what the frame does for them: one member a subject. A
// new subject is a member here and its rows in the constructor.
#pragma once

#include <functional>
#include <unordered_map>

#include "shell/frame/windows/alarm_commands.h"
#include "shell/frame/windows/browser_commands.h"
#include "shell/frame/windows/chart_commands.h"
#include "shell/frame/windows/daily_runs.h"
#include "shell/frame/windows/drop_commands.h"
#include "shell/frame/windows/edit_commands.h"
#include "shell/frame/windows/explain_commands.h"
#include "shell/frame/windows/file_commands.h"
#include "shell/frame/windows/frame_children.h"
#include "shell/frame/windows/frame_runs.h"
#include "shell/frame/windows/fundamental_commands.h"
#include "shell/frame/windows/help_commands.h"
#include "shell/frame/windows/place_commands.h"
#include "shell/frame/windows/print_commands.h"
#include "shell/frame/windows/run_commands.h"
#include "shell/frame/windows/setup_commands.h"
#include "shell/frame/windows/start_commands.h"
#include "shell/frame/windows/study_commands.h"
#include "shell/frame/windows/update_commands.h"
#include "shell/frame/windows/upkeep_commands.h"

namespace brantlow {

struct FrameSubjects {
    // What the frame starts with; its own hands are put into `hands` before the first command runs.
    struct Start {
        QMainWindow& window;
        QMdiArea& area;
        Session& session;
        Analysis& analysis;
        WindowPerson& person;
        Web& web;
        const Hosts& hosts;
        Path userStore;
        BrowserOperations browser;
        std::function<void()> applyRules;
    };
    explicit FrameSubjects(const Start& start);

    // Adds rows; the routine of an entry is found by the entry's name.
    void Add(const CommandRows& rows);
    // Runs the entry of this name, which may be that of a research page.
    void Run(std::string_view command);

    // The file of the per-user settings store.
    const Path userStore;
    FrameChildren children;
    FrameRuns runs;
    FrameHands hands;
    PlaceCommands place;
    FileCommands file;
    PrintCommands print;
    EditCommands edit;
    UpkeepCommands upkeep;
    RunCommands longRuns;
    BrowserCommands browser;
    AlarmCommands alarms;
    UpdateCommands updates;
    DailyRuns daily;
    FundamentalCommands fundamentals;
    ChartCommands chart;
    SetupCommands setup;
    StudyCommands study;
    ExplainCommands explain;
    HelpCommands help;
    StartCommands welcome;
    DropCommands drops;

  private:
    std::unordered_map<std::string_view, std::function<void()>> routines_;
};

}  // namespace brantlow
