#include "daily/unattended_run.h"

#include "daily/live_setup.h"
#include "shell/recent_files.h"
#include "shell/settings/settings_needs.h"
#include "store/file_names.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// Names another file as the open one for as long as it lives.
class OpenFileMark {
  public:
    OpenFileMark(Session& session, const std::string& file)
        : session_(session), file_(session.CurrentFile), ticker_(session.CurrentTicker) {
        session.CurrentFile = file;
    }
    ~OpenFileMark() {
        session_.CurrentFile = file_;
        session_.CurrentTicker = ticker_;
    }
    OpenFileMark(const OpenFileMark&) = delete;
    OpenFileMark& operator=(const OpenFileMark&) = delete;

  private:
    Session& session_;
    std::string file_;
    std::string ticker_;
};

QuoteTable EvaluationTable(const QuoteTable& quotes) {
    QuoteTable evaluations;
    evaluations.AppendLine(EvaluationHeader());
    for (std::size_t row = 1; row <= quotes.TickerCount(); ++row) evaluations.AppendLine(quotes.Ticker(row));
    return evaluations;
}

void Select(const UnattendedWork& work, const QuoteTable& quotes, UnattendedRun& run) {
    QuoteTable evaluations = EvaluationTable(quotes);
    const std::string unread =
        StillUnreadable(kSelectorRunSettings, work.session.AppPath, work.session.settings);
    if (!unread.empty()) return run.report.Fail("Stock Selector: " + unread);
    const OpenFileMark mark(work.session, std::string(kEvaluationsName));
    run.selection.emplace();
    RunSelector(work.session, work.analysis, Interval::Daily, evaluations, *run.selection);
    evaluations.SetOrigin(OriginOfRun(work.session, Interval::Daily, run.file));
    if (const auto error = SaveEvaluations(work.session, evaluations)) {
        run.report.Fail(CannotBeSaved(kEvaluationsName, error));
    }
}

}  // namespace

std::string NewestQuoteFile(const Session& session) {
    for (const std::string& name : RecentFiles(session.settings)) {
        if (KindOf(name) == FileKind::Ddq && IsRegularFile(session.DataFile(name))) return name;
    }
    return {};
}

std::error_code SaveEvaluations(const Session& session, const QuoteTable& evaluations) {
    return SaveQuoteTable(evaluations, session.DataFile(kEvaluationsName));
}

UnattendedRun RunUnattended(const UnattendedWork& work) {
    Session& session = work.session;
    UnattendedRun run;
    run.report = RunReport("Daily update", "quotes");
    run.file = NewestQuoteFile(session);
    if (run.file.empty()) {
        run.report.Fail(std::string(kNoRecentQuoteFile));
        return run;
    }
    QuoteTable table;
    const TableLoad load = LoadQuoteTable(session.DataFile(run.file), FileKind::Ddq, session.settings,
                                          session.clock.Today(), table, nullptr);
    if (!load.Done()) {
        run.report.Fail(TableLoadSentence(load, run.file));
        return run;
    }
    const OpenFileMark mark(session, run.file);
    QuoteArrays rows;
    LiveSetup live(session, work.web);
    const UpdateWork update{session,        table,        work.web,        work.hosts,
                            rows,           work.alerted, work.memoryInfo, work.showAdjustSplits,
                            live.Sources(), work.post};
    run.update = RunChosenUpdate(update, live.Refusal(), work.days, work.analysis.series);
    run.report = run.update.report;
    if (run.update.selectorFollows && run.report.Extent() != RunExtent::Nothing) Select(work, table, run);
    return run;
}

}  // namespace brantlow
