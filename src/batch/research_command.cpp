#include "batch/commands.h"
#include "batch/table_calls.h"
#include "research/research_catalogue.h"

namespace brantlow {

ExitStatus RunResearch(BatchCall& call) {
    const std::vector<std::string>& operands = call.arguments.operands;
    const std::string& command = operands.front();
    if (command == kForumCommand) {
        return Refuse(call, command + ": the address holds the user's password and is not printed");
    }
    if (!IsResearchCommand(command)) {
        return RefuseUsage(call, "COMMAND", "'" + command + "' is no research command");
    }
    const bool hasTicker = operands.size() > 1;
    const ResearchPage* page = FindResearchPage(command);
    if (page != nullptr && IsTickerPage(*page) && !hasTicker) {
        return RefuseUsage(call, "TICKER", command + " opens the page of a ticker, and none is given");
    }
    const std::optional<Hosts> hosts = ReadHosts(call);
    if (!hosts) return ExitStatus::Refused;
    const ResearchTarget target =
        TargetOf(command, {*hosts, call.session.settings}, hasTicker ? operands[1] : std::string());
    if (!target.refusal.empty()) return Refuse(call, target.refusal);
    if (target.opensIn != OpensIn::Nothing) call.out << OneLine(target.address) << '\n';
    return ExitStatus::Done;
}

}  // namespace brantlow
