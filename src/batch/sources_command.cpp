#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "acquire/feeds/live/source_check.h"
#include "acquire/feeds/live/source_standing.h"
#include "base/text.h"
#include "batch/source_commands.h"

namespace brantlow {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kCheckWord = "check";

Json NamesOf(const std::vector<Capability>& capabilities) {
    Json names = Json::array();
    for (const Capability capability : capabilities) names.push_back(NameOf(capability));
    return names;
}

Json LineOf(const SourceDefinition& source, SourceCall& sources) {
    const SourceStanding standing = StandingOf(sources.World(), source);
    Json line;
    line["name"] = source.name;
    line["title"] = DisplayUtf8(source.title);
    line["needs_key"] = standing.key != KeyStanding::NotNeeded;
    line["has_key"] = standing.key == KeyStanding::InFile || standing.key == KeyStanding::InEnvironment;
    line["capabilities"] = NamesOf(standing.gives);
    line["limits"] = standing.limits;
    line["in_use"] = NamesOf(standing.chosenFor);
    return line;
}

ExitStatus ListSources(BatchCall& call, SourceCall& sources) {
    for (const SourceDefinition& source : sources.Catalogue().sources) {
        call.out << LineOf(source, sources).dump() << '\n';
    }
    for (const std::string& refusal : sources.Catalogue().refusals) call.err << OneLine(refusal) << '\n';
    return sources.Catalogue().refusals.empty() ? ExitStatus::Done : ExitStatus::Partly;
}

ExitStatus CheckSource(BatchCall& call, SourceCall& sources, const std::string& name,
                       const std::string& ticker) {
    const SourceDefinition* source = sources.Catalogue().Find(name);
    if (source == nullptr) return RefuseUsage(call, "NAME", "'" + name + "' is no source that is known here");
    SourceClient client(sources.World(), *source);
    std::size_t failed = 0;
    std::string first;
    const std::vector<Capability> capabilities = StandingOf(sources.World(), *source).gives;
    for (const Capability capability : capabilities) {
        const SourceChecked checked = CheckCapability(sources.World(), client, capability, ticker);
        call.out << NameOf(capability) << ": " << OneLine(checked.words) << '\n';
        if (checked.IsFailure() && failed++ == 0) first = checked.words;
    }
    if (failed == 0) return ExitStatus::Done;
    call.err << OneLine(fmt::format("{}: {} of {} questions failed: {}", source->title, failed,
                                    capabilities.size(), first))
             << '\n';
    return failed == capabilities.size() ? ExitStatus::Refused : ExitStatus::Partly;
}

}  // namespace

ExitStatus RunSources(BatchCall& call) {
    const std::vector<std::string>& operands = call.arguments.operands;
    SourceCall sources(call);
    if (operands.empty()) return ListSources(call, sources);
    if (operands.front() != kCheckWord) {
        return RefuseUsage(call, operands.front(), "sources takes nothing, or check NAME [TICKER]");
    }
    if (operands.size() < 2) return RefuseUsage(call, "NAME", "check takes the name of a source");
    const std::string ticker = operands.size() > 2 ? operands[2] : std::string(kCheckedTicker);
    return CheckSource(call, sources, operands[1], ticker);
}

}  // namespace brantlow
