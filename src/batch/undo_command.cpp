#include <fmt/format.h>

#include "base/undo_store.h"
#include "batch/json_line.h"
#include "batch/maintenance_commands.h"
#include "shell/session_change.h"

namespace brantlow {

namespace {

ExitStatus ListChanges(BatchCall& call) {
    Failure unread;
    for (const KeptChange& change : KeptChanges(ChangePlaceOf(call.session), &unread)) {
        JsonLine line;
        const auto text = [&](std::string_view key, std::string_view value) {
            line.Key(key);
            line.Text(value);
        };
        const auto number = [&](std::string_view key, std::uintmax_t value) {
            line.Key(key);
            line.Number(static_cast<double>(value));
        };
        line.BeginObject();
        text("id", std::to_string(change.number));
        text("when", change.when);
        text("what", change.what);
        number("files", change.files);
        number("bytes", change.bytes);
        line.EndObject();
        call.out << line.Line() << '\n';
    }
    // A change that cannot be read is kept all the same.
    if (unread) call.err << OneLine(FailedSentence("The list of changes", unread)) << '\n';
    return unread ? ExitStatus::Partly : ExitStatus::Done;
}

}  // namespace

bool UndoWrites(const Arguments& arguments) {
    return !arguments.Has(kListOption);
}

ExitStatus RunUndo(BatchCall& call) {
    const std::vector<std::string>& operands = call.arguments.operands;
    if (call.arguments.Has(kListOption)) {
        if (!operands.empty()) return RefuseUsage(call, kListOption, "it takes no ID");
        return ListChanges(call);
    }
    const std::string id = operands.empty() ? std::string() : operands.front();
    // What was cut off has just been taken back: that was the newest change.
    if (id.empty() && call.tookChangeBack) return ExitStatus::Done;
    const UndoResult result = UndoChange(ChangePlaceOf(call.session), id);
    if (result.change.number == 0 && result.fault) return RefuseChange(call, "Undo", result.fault);
    if (result.change.number == 0) {
        return Refuse(call, id.empty() ? std::string(kNothingToUndo)
                                       : id + ": no such change; undo --list shows those that are kept");
    }
    if (result.fault) return RefuseChange(call, NameOfUndoing(result.change.what), result.fault);
    call.out << "Undone: " << OneLine(result.change.what) << "\nFiles: " << result.files.size() << '\n';
    return ExitStatus::Done;
}

}  // namespace brantlow
