// What the commands that ask live sources share: which source a call uses, the world it is asked in, and the
// lines and exit status of a report.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_report.h"
#include "acquire/feeds/live/source_client.h"
#include "acquire/web/service_web.h"
#include "batch/source_option.h"

namespace brantlow {

// The live sources of a call and the world in which they are asked.
class SourceCall {
  public:
    explicit SourceCall(BatchCall& call);

    const SourceCatalogue& Catalogue() const { return catalogue_; }
    SourceWorld& World() { return world_; }
    const SourceChoices& Choices() const { return choices_; }

    // The source that --source names, else the chosen one, for a capability. Nothing where the standard
    // source serves. A refusal is written, and its status kept.
    const SourceDefinition* Choose(Capability capability);
    // That of a further capability, where the first choice has it, else the chosen one; never a refusal.
    const SourceDefinition* Beside(const SourceDefinition* first, Capability capability) const;
    const SourceDefinition* Fallback() const;
    // Done unless a choice was refused.
    ExitStatus Status() const { return status_; }

  private:
    BatchCall& call_;
    SourceCatalogue catalogue_;
    CurlServiceWeb web_;
    SourceHosts hosts_;
    SourceState state_;
    SourceWorld world_;
    SourceChoices choices_;
    ExitStatus status_ = ExitStatus::Done;
};

// Prints the summary on standard output and tells the run as every run is told.
ExitStatus PrintReport(BatchCall& call, const LiveReport& report, const RunReport& run);

// "Quotes/EOD/KO.26 could not be written: No space left on device".
std::string FaultSentence(const FileFault& fault);

}  // namespace brantlow
