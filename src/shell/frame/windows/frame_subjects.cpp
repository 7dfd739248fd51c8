#include "shell/frame/windows/frame_subjects.h"

#include "shell/frame/run_settings.h"

namespace brantlow {

FrameSubjects::FrameSubjects(const Start& start)
    : userStore(start.userStore),
      children(start.area, start.applyRules),
      runs(start.window, start.session, start.person, start.applyRules),
      hands{start.window, start.session, start.person, start.web, start.hosts, children, runs},
      place(hands, userStore),
      file(hands, place.OfScreen()),
      print(hands),
      edit(hands),
      upkeep(hands),
      longRuns(hands, start.analysis),
      browser(hands, userStore, start.browser),
      alarms(hands),
      updates(hands, start.analysis),
      daily(hands, [this] { return updates.UpdateNewest(); }),
      fundamentals(hands, browser.Cache()),
      chart(hands, start.analysis, userStore),
      setup(hands),
      study(hands),
      explain(hands),
      help(hands, browser.Cache()),
      welcome(hands),
      drops(hands) {
    hands.table = file.Table();
    hands.applyRules = start.applyRules;
    hands.closeChildren = [this] {
        browser.CloseForm();
        file.CloseForm();
        chart.CloseForm();
    };
    hands.openNamed = [this](const std::string& name) { file.OpenNamed(name); };
    hands.openQuoteFile = [this](const Path& path) { drops.OpenQuoteFile(path); };
    hands.fillTable = [this](RunReport& histories) {
        const Filling filling = longRuns.Populate(histories);
        if (filling != Filling::Done) return filling;
        return updates.Update() ? Filling::Done : Filling::Ended;
    };
    hands.begin = [this](StartWay way) { welcome.BeginWith(way); };
    hands.run = [this](std::string_view command) { Run(command); };
    hands.pictureOperations = [this](QWidget& chartForm, std::function<QImage()> picture,
                                     std::function<std::string()> svg) {
        return print.PictureOperations(chartForm, std::move(picture), std::move(svg));
    };
    hands.printTable = [this](const TableOnPaper& paper) { print.PrintTable(paper); };
    hands.rowToRestore = [this] { return edit.RowToRestore(); };
    hands.restoreRow = [this] { edit.RestoreDeletedRow(); };
    hands.showUndone = [this](std::size_t change, const std::function<void()>& show) {
        updates.ShowUndone(change, show);
    };
    hands.rowChosen = [this] { chart.FollowRow(); };
    hands.forgetRows = [this] { updates.ForgetRows(); };
    hands.openChart = [this](const ChartWish& wish) { chart.Show(wish); };
    hands.alarmsFired = [this](const std::vector<FiredAlarm>& fired, const MailTold& mail) {
        alarms.TakeRun(fired, mail);
    };
    hands.isMailing = [this] { return alarms.IsMailing(); };
    hands.openAlarmMail = [this](QWidget* asking) { alarms.OpenMail(asking); };
    hands.openPage = [this](const std::string& address) { browser.OpenPage(address); };
    for (const CommandRows& rows :
         {children.Rows(), place.Rows(), file.Rows(), print.Rows(), edit.Rows(), upkeep.Rows(),
          longRuns.Rows(), browser.Rows(), alarms.Rows(), updates.Rows(), fundamentals.Rows(), chart.Rows(),
          setup.Rows(), study.Rows(), explain.Rows(), help.Rows(), welcome.Rows()})
        Add(rows);
}

void FrameSubjects::Add(const CommandRows& rows) {
    for (const CommandRow& row : rows) routines_.emplace(row.id, row.run);
}

void FrameSubjects::Run(std::string_view command) {
    const auto found = routines_.find(command);
    if (found == routines_.end()) return browser.OpenResearch(command);
    if (!RefusedBySettings(hands, NeedsOf(command))) found->second();
}

}  // namespace brantlow
