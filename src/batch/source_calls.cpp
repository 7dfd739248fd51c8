#include "batch/source_calls.h"

#include <fmt/format.h>

#include "batch/run_telling.h"

namespace brantlow {

std::optional<std::string> RefuseSourceName(std::string_view text) {
    if (!text.empty()) return std::nullopt;
    return "a source's name is missing";
}

SourceCall::SourceCall(BatchCall& call)
    : call_(call),
      catalogue_(LoadSources(call.session.DataFolder())),
      web_(call.session.person),
      hosts_(LoadSourceHosts(call.session.DataFolder())),
      state_(call.session.DataFolder(), SystemSourceTime()),
      world_{call.session, web_, hosts_, state_} {
    std::error_code error;
    choices_ = LoadSourceChoices(call.session.DataFolder(), error);
    if (error) {
        status_ = Refuse(call, std::string(kSourceChoicesName) + ": cannot be read: " + error.message());
    }
}

const SourceDefinition* SourceCall::Choose(Capability capability) {
    if (status_ != ExitStatus::Done) return nullptr;
    const bool isNamed = call_.arguments.Has(kSourceOptionName);
    const std::string name = call_.arguments.Text(kSourceOptionName);
    const ChosenSource chosen =
        isNamed ? SourceNamed(catalogue_, name, capability) : SourceOf(choices_, catalogue_, capability);
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
    if (chosen.source != nullptr && chosen.source->asksConsent &&
        state_.TellsTermsFirst(chosen.source->name)) {
        call_.err << chosen.source->title << ": " << chosen.source->terms << '\n';
    }
    return chosen.source;
}

const SourceDefinition* SourceCall::Beside(const SourceDefinition* first, Capability capability) const {
    const ChosenSource chosen = SourceOf(choices_, catalogue_, capability);
    const bool isNamed = call_.arguments.Has(kSourceOptionName);
    if (first != nullptr && first->Form(capability) != nullptr && (isNamed || chosen.source == nullptr)) {
        return first;
    }
    return chosen.source;
}

const SourceDefinition* SourceCall::Fallback() const {
    return FallbackSourceOf(choices_, catalogue_).source;
}

std::string FaultSentence(const FileFault& fault) {
    return fmt::format("{}: {}", fault.file.string(), fault.code.message());
}

ExitStatus PrintReport(BatchCall& call, const LiveReport& report, const RunReport& run) {
    call.out << OneLine(ReportSummary(report)) << '\n';
    const ExitStatus status = TellRun(call, run);
    const bool isInterrupted = report.stopped && call.interrupted();
    return isInterrupted ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
