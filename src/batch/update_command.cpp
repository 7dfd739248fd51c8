#include "acquire/web/curl_web.h"
#include "alerts/alarm_mail.h"
#include "batch/live_commands.h"
#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "batch/table_commands.h"
#include "daily/daily_update.h"
#include "daily/live_setup.h"
#include "shell/settings/choices.h"
#include "store/file_names.h"

namespace brantlow {

namespace {

DailyUpdate Update(Session& session, const Hosts& hosts, QuoteTable& table) {
    CurlWeb web(session.person);
    LiveSetup live(session, web);
    QuoteArrays rows;
    AlertedTickers alerted;
    DayStore days;
    WorkingSeries series;
    UpdateWork work{session, table, web, hosts, rows, alerted};
    work.live = live.Sources();
    CurlMail mail(session.person);
    AlarmPost post{mail};
    work.post = &post;
    return RunChosenUpdate(work, live.Refusal(), days, series);
}

void PrintUpdate(BatchCall& call, const DailyUpdate& update, const QuoteTable& table,
                 const std::string& name) {
    call.out << "Tickers: " << table.TickerCount() << '\n'
             << "Batches: " << update.quotes.batches << '\n'
             << "Batches without reply: " << update.quotes.failedBatches << '\n'
             << "Quotes for the database: " << update.quotes.accepted << '\n';
    if (update.database) call.out << "Days stored: " << update.database->stored << '\n';
    if (update.splits) call.out << "Histories adjusted: " << update.splits->adjusted << '\n';
    if (update.isSaved && !update.saveError) call.out << "Saved: " << name << '\n';
}

}  // namespace

ExitStatus RunUpdate(BatchCall& call) {
    if (const auto status = UpdateLive(call)) return *status;
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    if (KindOf(name) != FileKind::Ddq) return Refuse(call, name + ": no end-of-day file");
    QuoteTable table;
    if (!LoadTable(call, name, table)) return ExitStatus::Refused;
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;

    Session& session = call.session;
    session.CurrentFile = name;
    session.person.ShowTickerCount(table.TickerCount());
    const DailyUpdate update = Update(session, *hosts, table);
    PrintUpdate(call, update, table, name);
    if (update.quotes.noTemplate) return ExitStatus::Refused;
    const ExitStatus status =
        TellRun(call, update.report,
                SavesTable(session.settings) ? std::string() : "Manual Save: " + name + " stays as it is");
    if (update.stopped && call.interrupted()) return ExitStatus::Interrupted;
    if (status == ExitStatus::Refused) return status;
    if (update.stopped) return ExitStatus::Partly;
    if (!update.selectorFollows) return status;
    const ExitStatus selected = SelectFrom(call, name, Interval::Daily);
    // The quotes are stored, whatever became of the selector.
    if (selected == ExitStatus::Refused) return ExitStatus::Partly;
    return selected == ExitStatus::Done ? status : selected;
}

}  // namespace brantlow
