#include "batch/maintenance_commands.h"
#include "check/check_run.h"
#include "shell/run_control.h"

namespace brantlow {

namespace {

ExitStatus StatusOf(const CheckReport& report, bool isStrict) {
    if (report.stopped) return ExitStatus::Interrupted;
    const bool isClean = report.Faults() == 0 && (!isStrict || report.Notes() == 0);
    return isClean ? ExitStatus::Done : ExitStatus::Partly;
}

// A file that could not be read is a failure of the call too.
void TellUnread(BatchCall& call, const CheckReport& report) {
    for (const Finding& finding : report.findings) {
        if (finding.kind != FindingKind::Unreadable) continue;
        call.err << ShownFile(finding, call.session.AppPath) << ": " << WordsOf(finding) << '\n';
        return;
    }
}

}  // namespace

bool CheckWrites(const Arguments& arguments) {
    return arguments.Has(kRepairOption);
}

ExitStatus RunCheck(BatchCall& call) {
    const bool repairs = call.arguments.Has(kRepairOption);
    BeginRun(call.session.run);
    const CheckReport report = CheckDatabase(call.session, repairs ? CheckMode::Repair : CheckMode::Look);
    for (const Finding& finding : report.findings)
        call.out << FindingLine(finding, call.session.AppPath) << '\n';
    if (report.fault) return RefuseChange(call, kRepairChange, report.fault);
    const ExitStatus status = StatusOf(report, call.arguments.Has(kStrictOption));
    TellUnread(call, report);
    (status == ExitStatus::Done ? call.out : call.err) << CheckSentence(report) << '\n';
    return status;
}

}  // namespace brantlow
