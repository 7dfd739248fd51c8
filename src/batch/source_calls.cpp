#include "batch/source_calls.h"

#include <fmt/format.h>

#include "batch/run_telling.h"

namespace brantlow {

namespace {

// Once a folder, to whom the call's errors go; nothing for no source, or one whose terms need no telling.
void TellTermsOf(BatchCall& call, SourceState& state, const SourceDefinition* source) {
    if (source == nullptr || !source->asksConsent || !state.TellsTermsFirst(source->name)) return;
    call.err << source->title << ": " << source->terms << '\n';
}

}  // namespace

std::optional<std::string> RefuseSourceName(std::string_view text) {
    if (!text.empty()) return std::nullopt;
    return "a source's name is missing";
}

SourceCall::SourceCall(BatchCall& call)
    : call_(call),
      catalogue_(LoadSources(call.session.DataFolder())),
      web_(call.session.person),
      live_(call.session, web_) {
    const std::string& refusal = live_.World().hosts.refusal;
    if (!refusal.empty()) status_ = Refuse(call, refusal);
}

// The source of a choice; null, with the sentence written, for one that does not hold.
const SourceDefinition* SourceCall::Taken(const ChosenSource& chosen) {
    if (!chosen.refusal.empty()) status_ = Refuse(call_, chosen.refusal);
    return chosen.source;
}

const SourceDefinition* SourceCall::Choose(Capability capability) {
    if (status_ != ExitStatus::Done) return nullptr;
    const bool isNamed = call_.arguments.Has(kSourceOptionName);
    const std::string name = call_.arguments.Text(kSourceOptionName);
    const ChosenSource chosen = isNamed ? SourceNamed(catalogue_, name, capability)
                                        : SourceOf(call_.session.settings, catalogue_, capability);
    if (!chosen.refusal.empty()) {
        std::string sentence = chosen.refusal;
        if (isNamed && catalogue_.Find(name) == nullptr) {
            for (const std::string& refusal : catalogue_.refusals) sentence += "; " + refusal;
            status_ = RefuseUsage(call_, kSourceOptionName, sentence);
        } else {
            status_ = Refuse(call_, sentence);
        }
        return nullptr;
    }
    asked_[0] = chosen.source;
    return chosen.source;
}

ExitStatus SourceCall::Print(const LiveReport& report, const RunReport& run) {
    call_.out << OneLine(ReportSummary(report)) << '\n';
    const auto [status, lines] = TellRunCounted(call_, run);
    TellTerms(status, lines);
    const bool isInterrupted = report.stopped && call_.interrupted();
    return isInterrupted ? ExitStatus::Interrupted : status;
}

void SourceCall::TellTerms(ExitStatus status, std::size_t toldLines) {
    const bool hasRoom =
        status == ExitStatus::Done || (status == ExitStatus::Partly && toldLines < kMostToldLines);
    if (!hasRoom) return;
    for (const SourceDefinition* source : asked_) TellTermsOf(call_, live_.State(), source);
}

const SourceDefinition* SourceCall::Beside(const SourceDefinition* first, Capability capability) {
    const bool isNamed = call_.arguments.Has(kSourceOptionName);
    const bool isChosen = !ChosenName(call_.session.settings, capability).empty();
    if (first != nullptr && first->Form(capability) != nullptr && (isNamed || !isChosen)) return first;
    return Taken(SourceOf(call_.session.settings, catalogue_, capability));
}

const SourceDefinition* SourceCall::Fallback() {
    asked_[1] = Taken(FallbackSourceOf(call_.session.settings, catalogue_));
    return asked_[1];
}

void AgreeByCall(BatchCall& call, Capability capability) {
    const SettingsTables& settings = call.session.settings;
    if (ChosenName(settings, capability).empty()) return;
    const SourceCatalogue catalogue = LoadSources(call.session.DataFolder());
    SourceState state(call.session.DataFolder(), SystemSourceTime());
    TellTermsOf(call, state, SourceOf(settings, catalogue, capability).source);
    TellTermsOf(call, state, FallbackSourceOf(settings, catalogue).source);
}

}  // namespace brantlow
