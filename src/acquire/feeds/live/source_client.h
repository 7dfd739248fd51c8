// Asks a live source: addresses, keys, limits, pages and repeats on one side, rows or an outcome on the
// other. Runs over a table, the check of a source and the windows all ask through it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "acquire/feeds/live/source_hosts.h"
#include "acquire/feeds/live/source_keys.h"
#include "acquire/feeds/live/source_rows.h"
#include "acquire/feeds/live/source_state.h"
#include "acquire/web/service_web.h"
#include "shell/session.h"

namespace brantlow {

// What every use of live sources needs of the world.
struct SourceWorld {
    Session& session;
    ServiceWeb& web;
    const SourceHosts& hosts;
    SourceState& state;
    Environment environment = SystemEnvironment();
};

// Repeats of a request that met a dead network or a limit by the minute.
inline constexpr int kMostRepeats = 3;

class SourceClient {
  public:
    SourceClient(SourceWorld& world, const SourceDefinition& source);

    const SourceDefinition& Source() const { return source_; }

    // What is asked for. `symbols` are in the source's spelling and as many as a request of the capability
    // takes; none for a whole market, for splits and for symbols of the whole source.
    struct Question {
        Capability capability = Capability::History;
        std::vector<std::string> symbols = {};
        std::chrono::sys_days from = {};
        std::chrono::sys_days to = {};
    };
    // All pages of the answer. Rows that came before a page failed are not handed on.
    SourceReply Ask(const Question& question);

    // The text behind an address that only a reader in code knows; `reply` takes a failure.
    std::string Fetch(const std::string& address, SourceOutcome& outcome);

    // The first lines of the last reply, for a person who looks for what was wrong.
    const std::string& LastReplyBegin() const { return lastReplyBegin_; }
    // The last address as it may be shown.
    const std::string& LastAddress() const { return lastAddress_; }
    // Seconds between two requests that the limits allow in the long run.
    double SecondsPerRequest() const;

  private:
    SourceReply AskAt(const Question& question, const std::string& pattern);
    SourceOutcome AskPages(const ReplyScene& scene, const std::string& first, SourceReply& reply);
    ServiceReply Send(const std::string& address);
    SourceOutcome WaitForTurn();
    bool Sleep(double seconds);
    SourceOutcome Judge(const ServiceReply& reply) const;
    SourceOutcome FetchOnce(const std::string& address, ServiceReply& reply);
    void KeepLimit(SourceOutcome& outcome, const ServiceReply& reply);
    bool IsRepeated(const SourceOutcome& outcome, const ServiceReply& reply) const;
    std::string NextAddress(const std::string& first, const std::string& next,
                            const CapabilityForm& form) const;

    SourceWorld& world_;
    const SourceDefinition& source_;
    std::vector<RequestLimit> limits_;
    double pauseSeconds_ = 0;
    std::string base_;
    KeyRead key_;
    bool usesSecondAgent_ = false;
    bool wasBlocked_ = false;
    std::string lastReplyBegin_;
    std::string lastAddress_;
};

// The days of `from` to `to` with the symbols of a table asked of a source that takes several or one a
// request. Splits and bars by the table's spelling; a ticker that the source cannot spell or does not know is
// unknown.
struct TickerAnswer {
    SourceOutcome outcome;
    SourceBars bars;
};

// A ticker's days; the symbol is spelled, rows are finished.
TickerAnswer AskTicker(SourceClient& client, Capability capability, const std::string& ticker,
                       std::chrono::sys_days from, std::chrono::sys_days to);

// What became of the rows of one symbol in a reply that came.
TickerAnswer AnswerOf(const SourceClient& client, Capability capability, SourceReply& reply,
                      const std::string& symbol);

}  // namespace brantlow
