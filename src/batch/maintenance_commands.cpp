#include "batch/maintenance_commands.h"

#include <array>

#include "batch/run_telling.h"
#include "batch/table_calls.h"
#include "store/back_up.h"
#include "store/combine_tables.h"
#include "store/file_deletion.h"
#include "store/remove_update.h"

namespace brantlow {

namespace {

struct BackedUpWord {
    std::string_view word;
    BackedUp what;
};
constexpr std::array<BackedUpWord, 2> kWords = {
    {{"program", BackedUp::ProgramFiles}, {"database", BackedUp::QuoteDatabase}}};

ExitStatus RunJob(BatchCall& call, bool restores) {
    const std::string& operand = call.arguments.operands.front();
    for (const BackedUpWord& row : kWords) {
        if (row.word != operand) continue;
        const BackUpResult result = RunBackUpJob(BackUpJobOf(row.what, restores), call.session);
        if (result.copy.copied == 0 && !result.refusal.empty()) {
            Refuse(call, result.refusal);
            return result.copy.error.isHalfDone ? ExitStatus::Partly : ExitStatus::Refused;
        }
        call.out << "Files copied: " << result.copy.copied << '\n';
        const ExitStatus status = TellRun(call, result.report);
        return result.copy.stopped ? ExitStatus::Interrupted : status;
    }
    return RefuseUsage(call, "program|database",
                       "'" + OneLine(operand) + "' is neither program nor database");
}

}  // namespace

ExitStatus RunCombine(BatchCall& call) {
    const std::vector<std::string>& names = call.arguments.operands;
    if (!ExistingDataFile(call, names[0]) || !ExistingDataFile(call, names[1])) return ExitStatus::Refused;
    if (!StaysInDataFolder(names[2]))
        return RefuseUsage(call, "OUT", "'" + OneLine(names[2]) + "' is not in Data");
    if (!MayDelete(Path(names[2]).filename().string()))
        return RefuseUsage(call, "OUT", "'" + OneLine(names[2]) + "' is a file of the program");
    const CombinedFile combined = CombineQuoteFiles(call.session, names[0], names[1], names[2]);
    if (combined.unread) return Refuse(call, combined.unread);
    if (combined.error) return RefuseChange(call, "Combine", combined.error);
    call.out << "Rows: " << combined.rows << '\n';
    return ExitStatus::Done;
}

ExitStatus RunRemoveLastUpdate(BatchCall& call) {
    const RemovedUpdate result = RemoveLastUpdate(call.session);
    if (!result.hasList) return Refuse(call, kNoUpdateToRemove);
    if (result.error) return RefuseChange(call, kRemoveLastUpdateChange, result.error);
    if (result.stopped) {
        Refuse(call, kRemoveStopped);
        return ExitStatus::Interrupted;
    }
    call.out << "Records removed: " << result.removed << '\n';
    TellHalfLines(call, result.halfLines);
    return ExitStatus::Done;
}

ExitStatus RunBackUp(BatchCall& call) {
    return RunJob(call, false);
}

ExitStatus RunRestore(BatchCall& call) {
    return RunJob(call, true);
}

}  // namespace brantlow
