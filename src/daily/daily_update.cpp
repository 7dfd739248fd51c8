#include "daily/daily_update.h"

#include "shell/status_words.h"
#include "splits/split_calendar_page.h"
#include "store/table_edit.h"

namespace brantlow {

namespace {

// A line of the data settings that switches a step on by one word.
struct StepSwitch {
    std::size_t line;
    std::string_view word;

    bool IsOn(const SettingsTables& settings) const { return settings.DataSettings.Text(line) == word; }
};

constexpr StepSwitch kStoreInDatabase{8, "Automatic Save"};
constexpr StepSwitch kRunSelector{16, "Automatic"};
constexpr StepSwitch kAdjustSplits{19, "Automatic"};

SplitCheck AdjustSplits(const UpdateWork& work, WorkingSeries& series) {
    if (work.showAdjustSplits) work.showAdjustSplits(true);
    SplitCheck check = CheckSplitCalendar(work.session, FetchSplitCalendarPage(work.web, work.hosts),
                                          work.memoryInfo(), series);
    if (work.showAdjustSplits) work.showAdjustSplits(false);
    return check;
}

}  // namespace

DailyUpdate RunDailyUpdate(const UpdateWork& work, DayStore& days, WorkingSeries& series) {
    Session& session = work.session;
    DailyUpdate result;
    if (KindOf(session.CurrentFile) != FileKind::Ddq) return result;
    session.person.ShowStatusWord(kStatusUpdating);
    result.quotes = UpdateQuotes(work);
    const auto goesOn = [&] { return session.run.ProcessCommand != kStopRun; };
    if (kStoreInDatabase.IsOn(session.settings)) result.database = ImportEndOfDay(session, work.table, days);
    if (goesOn() && kAdjustSplits.IsOn(session.settings)) result.splits = AdjustSplits(work, series);
    result.isSaved = SavesAutomatically(session.settings);
    result.saveError = AutomaticSave(session, work.table);
    session.person.ShowStatusWord(kStatusComplete);
    result.stopped = !goesOn();
    result.selectorFollows = goesOn() && kRunSelector.IsOn(session.settings);
    return result;
}

}  // namespace brantlow
