// The commands that edit a table: add, delete and alarm.
#include <span>

#include "acquire/feeds/add_ticker.h"
#include "acquire/web/curl_web.h"
#include "acquire/web/giving_up_web.h"
#include "alerts/alarm_edit.h"
#include "base/numbers.h"
#include "base/text.h"
#include "batch/run_telling.h"
#include "batch/source_calls.h"
#include "batch/table_calls.h"
#include "batch/table_commands.h"
#include "shell/session_change.h"
#include "shell/settings/choices.h"
#include "store/table_files.h"

namespace brantlow {

namespace {

// Opens the table of the first operand; false after the sentence was written.
bool OpenTable(BatchCall& call, QuoteTable& table) {
    const std::string& name = call.arguments.operands.front();
    if (!ExistingDataFile(call, name) || !LoadTable(call, name, table)) return false;
    call.session.CurrentFile = name;
    return true;
}

// The edits of one call, one after another, and the saving of what they left.
class TableEdits {
  public:
    TableEdits(BatchCall& call, const QuoteTable& table) : call_(call), table_(table) {}

    // False when the person was told of a refusal, or a file could not be written.
    bool Take(const TableEdit& edit, std::string_view word, std::string_view symbol) {
        isRefused_ = edit.outcome == EditOutcome::Refused;
        fault_ = edit.fault;
        if (fault_) return false;
        if (edit.outcome == EditOutcome::Changed) {
            told_.append(word).append(": ").append(OneLine(TableSpelling(symbol))).append("\n");
            isChanged_ = true;
        }
        error_ = edit.saveError;
        return !isRefused_ && !error_;
    }

    // An edit of a call is kept, whether the settings save by themselves or not.
    ExitStatus Finish() {
        Session& session = call_.session;
        if (isChanged_ && !error_ && !fault_ && !SavesTable(session.settings)) {
            error_ = SaveQuoteTable(table_, session.DataFile(session.CurrentFile));
        }
        if (error_) return Refuse(call_, FailedTo(FailureKind::Write, session.CurrentFile, error_));
        return fault_ ? ToldOfPart() : Told();
    }

    // The same where the edits are parts of a change, which takes the table too.
    ExitStatus Finish(FileChange& change, std::string_view what) {
        if (isChanged_ && !fault_) {
            fault_ = PrepareQuoteTable(table_, call_.session.DataFile(call_.session.CurrentFile), change);
        }
        if (!fault_) fault_ = change.Commit();
        return fault_ ? RefuseChange(call_, what, fault_) : Told();
    }

  private:
    ExitStatus Told() const {
        call_.out << told_;
        return isRefused_ ? ExitStatus::Refused : ExitStatus::Done;
    }

    // The edits before the one that failed are kept.
    ExitStatus ToldOfPart() const {
        call_.out << told_;
        if (!isChanged_) return RefuseChange(call_, "The edit", fault_);
        const bool isKept = !fault_.isHalfDone;
        Refuse(call_, isKept ? FailedSentence("The edit", fault_) + "; what was edited before it is kept"
                             : ChangeSentence("The edit", fault_));
        return ExitStatus::Partly;
    }

    BatchCall& call_;
    const QuoteTable& table_;
    std::string told_;
    bool isChanged_ = false;
    bool isRefused_ = false;
    std::error_code error_;
    Failure fault_;
};

// Edits the table by each TICKER of the call, until one is refused or Ctrl-C is pressed; `finish` saves.
template <typename Edit, typename Finish>
ExitStatus EditByTickers(BatchCall& call, std::string_view word, const Edit& edit, const Finish& finish) {
    QuoteTable table;
    if (!OpenTable(call, table)) return ExitStatus::Refused;
    TableEdits edits(call, table);
    const std::vector<std::string>& operands = call.arguments.operands;
    bool interrupted = false;
    for (std::size_t i = 1; i < operands.size() && !interrupted; ++i) {
        if (!edits.Take(edit(table, operands[i]), word, operands[i])) break;
        interrupted = call.interrupted();
    }
    const ExitStatus status = finish(edits);
    return interrupted && status == ExitStatus::Done ? ExitStatus::Interrupted : status;
}

ExitStatus FinishEdits(TableEdits& edits) {
    return edits.Finish();
}

// The tickers of the call for the name of its change, in capitals.
std::string TickersInWords(const std::vector<std::string>& operands) {
    std::string words;
    for (std::size_t i = 1; i < operands.size(); ++i) {
        words.append(i == 1 ? "" : ", ").append(TableSpelling(operands[i]));
    }
    return words;
}

std::optional<std::string> AlarmText(const Arguments& arguments, std::string_view option) {
    if (!arguments.Has(option)) return std::nullopt;
    return arguments.Text(option);
}

}  // namespace

ExitStatus RunAdd(BatchCall& call) {
    // Before any of them is added.
    for (const std::string& symbol : std::span(call.arguments.operands).subspan(1)) {
        const std::string refusal = RefusedTickerName(TableSpelling(symbol), call.session.settings);
        if (symbol != " " && !refusal.empty()) return Refuse(call, refusal);
    }
    Session& session = call.session;
    CurlWeb network(session.person);
    GivingUpWeb web(network);
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;
    AgreeByCall(call, Capability::History);
    RunReport report("Adding to " + call.arguments.operands.front(), "histories");
    const ExitStatus status = EditByTickers(
        call, "Added",
        [&](QuoteTable& table, const std::string& symbol) {
            const AddedTicker added =
                AddTicker(session, web, *hosts, table, {symbol}, 0, TableSaving::Always);
            if (added.history) TellHistory(TableSpelling(symbol), *added.history, report);
            return TableEdit(added);
        },
        FinishEdits);
    if (report.Tickers().empty() || status != ExitStatus::Done) return status;
    // Its row was added, whatever became of its history.
    report.MarkChanged();
    const ExitStatus told = TellRun(call, report);
    return status == ExitStatus::Done ? told : status;
}

ExitStatus RunDelete(BatchCall& call) {
    const bool withHistory = call.arguments.Has(kHistoryOption);
    const std::string what = "Delete " + TickersInWords(call.arguments.operands);
    FileChange change(ChangePlaceOf(call.session), what,
                      withHistory ? ChangeKeeps::ForUndo : ChangeKeeps::UntilDone);
    return EditByTickers(
        call, "Deleted",
        [&](QuoteTable& table, const std::string& symbol) {
            return PrepareDeletion(
                call.session, table, symbol, [&](const std::string&) { return withHistory; }, change);
        },
        [&](TableEdits& edits) { return edits.Finish(change, what); });
}

std::optional<std::string> RefuseAlarm(std::string_view text) {
    if (text.empty() || WholeNumber(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no number";
}

ExitStatus RunAlarm(BatchCall& call) {
    const AlarmTexts alarms{AlarmText(call.arguments, kHighOption), AlarmText(call.arguments, kLowOption)};
    if (!alarms.high && !alarms.low) return RefuseUsage(call, kHighOption, "neither it nor --low is given");
    return EditByTickers(
        call, "Alarms set",
        [&](QuoteTable& table, const std::string& symbol) {
            return EditAlarms(call.session, table, symbol, alarms);
        },
        FinishEdits);
}

}  // namespace brantlow
