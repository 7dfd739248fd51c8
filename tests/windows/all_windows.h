// Every window that the program opens beside its main frame, ready to be walked through.
#pragma once

#include <QTabBar>
#include <functional>
#include <memory>
#include <vector>

#include "acquire/feeds/windows/frmImportHistory.h"
#include "acquire/feeds/windows/frmNewList.h"
#include "acquire/feeds/windows/frmPopulate.h"
#include "acquire/feeds/windows/frmSources.h"
#include "acquire/schedule/pretend_system.h"
#include "acquire/schedule/windows/frmSchedule.h"
#include "acquire/version/windows/frmVersionUpdate.h"
#include "alerts/windows/frmAlarmMail.h"
#include "alerts/windows/frmFiredAlarms.h"
#include "base/windows/text_editor.h"
#include "catalogue_scene.h"
#include "chart/windows/frmGraph.h"
#include "chart/windows/frmGraphNoData.h"
#include "chart/windows/frmReturn.h"
#include "screens/windows/frmApplicationSettings.h"
#include "screens/windows/frmSetupWizard.h"
#include "screens/windows/frmStockSelectorSettings.h"
#include "selector/windows/frmSelectorSelection.h"
#include "shell/frame/windows/frmAbout.h"
#include "shell/frame/windows/frmCommandPalette.h"
#include "shell/frame/windows/frmDisclaimer.h"
#include "shell/frame/windows/frmEnable.h"
#include "shell/frame/windows/frmForumLogin.h"
#include "shell/frame/windows/frmHelp.h"
#include "shell/frame/windows/frmKeys.h"
#include "shell/frame/windows/frmLowMemory.h"
#include "shell/session_change.h"
#include "splits/windows/frmSplitFactor.h"
#include "store/windows/frmDeleteFile.h"
#include "store/windows/frmDeleteQuoteDataBase.h"
#include "store/windows/frmErrorReport.h"
#include "support/source_folder.h"

namespace brantlow {

// What the windows stand on.
class Ground : public Program {
  public:
    Ground() {
        Write("ErrorReport.txt", "T1\r\nT2\r\n");
        pretend.crontab = true;
        Start("Jan.ddq");
        frame->activateWindow();
        series->BarCount = series->LastBar = 60;
        chart.Label58 = "AAPL";
    }
    QWidget* Frame() { return frame.get(); }

    PretendSystem pretend;
    std::unique_ptr<WorkingSeries> series = std::make_unique<WorkingSeries>();
    ChartSession chart;
};

struct WindowRow {
    const char* name;
    // The button that Enter presses from a field; empty where Enter belongs to the fields or lists.
    const char* defaultButton;
    std::function<QWidget*(Ground&)> make;
};

inline const std::vector<WindowRow>& Windows() {
    static const std::vector<WindowRow> rows = {
        {"frmAbout", "OK", [](Ground& on) { return new frmAbout(on.Frame()); }},
        {"frmDisclaimer", "Continue", [](Ground& on) { return new frmDisclaimer(on.person, on.Frame()); }},
        {"frmForumLogin", "Log In", [](Ground& on) { return new frmForumLogin(on.store, on.Frame()); }},
        {"frmHelp", "", [](Ground&) { return new frmHelp(SourceFolder() / "assets/Help", nullptr); }},
        {"frmEnable", "",
         [](Ground& on) { return new frmEnable(on.session.run, RunStop::KeepsWhatIsDone, on.Frame()); }},
        {"frmLowMemory", "Continue", [](Ground& on) { return new frmLowMemory(on.session.run, on.Frame()); }},
        {"frmPopulate", "Populate", [](Ground& on) { return new frmPopulate(on.session, on.Frame()); }},
        {"frmImportHistory", "Import",
         [](Ground& on) { return new frmImportHistory(on.session, {"T1"}, on.Frame()); }},
        {"frmSources", "", [](Ground& on) { return new frmSources(on.session, on.web, on.Frame()); }},
        {"frmFiredAlarms", "", [](Ground& on) { return new frmFiredAlarms(on.session, on.Frame()); }},
        {"frmAlarmMail", "OK", [](Ground& on) { return new frmAlarmMail(on.session, on.Frame()); }},
        {"frmNewList", "Create",
         [](Ground& on) { return new frmNewList(on.session, on.web, NewListOf::Tickers, on.Frame()); }},
        {"frmNewList", "Create",
         [](Ground& on) { return new frmNewList(on.session, on.web, NewListOf::Market, on.Frame()); }},
        {"frmSchedule", "Install",
         [](Ground& on) {
             return new frmSchedule(on.session, on.pretend.System(on.folder / "units"),
                                    {on.folder / "brantlow", on.folder.Get(), {{"DISPLAY", ":7"}}},
                                    on.Frame());
         }},
        {"frmVersionUpdate", "Yes", [](Ground& on) { return new frmVersionUpdate(on.Frame()); }},
        {"frmGraphNoData", "Next", [](Ground& on) { return new frmGraphNoData([] {}, on.Frame()); }},
        {"frmReturn", "Exit",
         [](Ground& on) {
             return new frmReturn({on.session.settings, *on.series, on.chart}, on.Frame());
         }},
        {"frmApplicationSettings", "",
         [](Ground& on) { return new frmApplicationSettings(on.session, on.hosts, on.Frame()); }},
        {"frmSetupWizard", "Next>>",
         [](Ground& on) { return new frmSetupWizard(on.session, on.hosts, on.Frame()); }},
        {"frmStockSelectorSettings", "",
         [](Ground& on) { return new frmStockSelectorSettings(on.session, on.Frame()); }},
        {"frmErrorReport", "Close",
         [](Ground& on) { return new frmErrorReport(on.session.DataFile("ErrorReport.txt"), on.Frame()); }},
        {"frmSelectorSelection", "Continue",
         [](Ground& on) { return new frmSelectorSelection(kTestDay, on.Frame()); }},
        {"frmSplitFactor", "Continue", [](Ground& on) { return new frmSplitFactor("T1", on.Frame()); }},
        {"frmKeys", "Close", [](Ground& on) { return new frmKeys(on.Frame()); }},
        {"frmCommandPalette", "",
         [](Ground& on) {
             PaletteStart start;
             start.commands = PaletteCommands({true, true, true}, [](const MenuEntry&) { return true; });
             start.tickers = {"T1", "T2"};
             return new frmCommandPalette(std::move(start), on.Frame());
         }},
        {"frmDeleteFile", "",
         [](Ground& on) {
             return new frmDeleteFile(on.person, ChangePlaceOf(on.session), on.session.DataFolder(),
                                      on.Frame());
         }},
        {"frmDeleteQuoteDataBase", "Keep History",
         [](Ground& on) { return new frmDeleteQuoteDataBase("T1", on.Frame()); }},
        {"TextEditor", "Save",
         [](Ground& on) { return new TextEditor(on.session.DataFile("Jan.ddq"), on.Frame()); }},
    };
    return rows;
}

// Each window in each of its states: every tab of its tabs, every step of the wizard.
inline void ForEachState(QWidget& window, const std::function<void(const QString&)>& look) {
    auto* tabs = window.findChild<QTabBar*>();
    auto* next = window.findChild<QPushButton*>(QStringLiteral("cmdNext"));
    const int states = tabs ? tabs->count() : next ? 6 : 1;
    for (int state = 0; state < states; ++state) {
        if (tabs) tabs->setCurrentIndex(state);
        if (!tabs && state > 0) next->click();
        QCoreApplication::processEvents();
        look(QStringLiteral("%1 #%2: ").arg(window.objectName()).arg(state));
    }
}

}  // namespace brantlow
