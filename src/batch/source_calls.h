// What the commands that ask live sources share: which source a call uses, the world it is asked in, and the
// lines and exit status of a report.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_report.h"
#include "acquire/feeds/live/live_world.h"
#include "acquire/web/curl_web.h"
#include "batch/source_option.h"

namespace brantlow {

// The live sources of a call and the world in which they are asked.
class SourceCall {
  public:
    explicit SourceCall(BatchCall& call);

    const SourceCatalogue& Catalogue() const { return catalogue_; }
    SourceWorld& World() { return live_.World(); }
    // The web behind it, for what else a call fetches.
    Web& Network() { return web_; }

    // The source that --source names, else the chosen one, for a capability. Nothing where the standard
    // source serves. A refusal is written, and its status kept.
    const SourceDefinition* Choose(Capability capability);
    // That of a further capability, where the first choice has it, else the chosen one; a refusal as above.
    const SourceDefinition* Beside(const SourceDefinition* first, Capability capability);
    const SourceDefinition* Fallback();
    // Prints the summary on standard output and tells the run as every run is told; behind it, once a folder,
    // the terms of a source that wants them told. A call that is refused has its one line.
    ExitStatus Print(const LiveReport& report, const RunReport& run);
    // Done unless a choice was refused.
    ExitStatus Status() const { return status_; }

  private:
    const SourceDefinition* Taken(const ChosenSource& chosen);
    void TellTerms(ExitStatus status, std::size_t toldLines);

    BatchCall& call_;
    SourceCatalogue catalogue_;
    CurlWeb web_;
    LiveWorld live_;
    ExitStatus status_ = ExitStatus::Done;
    // The source of the call and the one behind it: their terms may have to be told.
    std::array<const SourceDefinition*, 2> asked_ = {};
};

// For a command that asks the chosen source without a choice of its own: whoever wrote the choice down and
// calls agrees to the terms, which are told once.
void AgreeByCall(BatchCall& call, Capability capability);

}  // namespace brantlow
