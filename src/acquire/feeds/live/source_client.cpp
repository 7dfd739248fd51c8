#include "acquire/feeds/live/source_client.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>

#include "acquire/feeds/live/address_template.h"
#include "acquire/feeds/live/error_rules.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kMarketBytes = std::size_t{16} * 1024 * 1024;
constexpr std::size_t kReplyBytes = std::size_t{6} * 1024 * 1024;
constexpr std::size_t kMostPages = 500;
constexpr std::size_t kMostRowsOfAnswer = 3'000'000;
constexpr std::size_t kShownBytes = 400;
constexpr std::array<double, kMostRepeats> kNetworkWaits = {1, 2, 4};
// A refusal without a time of its own.
constexpr double kLeastMinuteWait = 15;
constexpr double kLeastBlock = 900;
// Longer waits than this are for the person to decide on.
constexpr double kLongestMinuteWait = 90;

std::string Joined(const std::vector<std::string>& symbols) {
    return fmt::format("{}", fmt::join(symbols, ","));
}

std::string OfSource(const SourceDefinition& source, std::string_view words) {
    return source.title + ": " + std::string(words);
}

}  // namespace

SourceClient::SourceClient(SourceWorld& world, const SourceDefinition& source)
    : world_(world),
      source_(source),
      limits_(source.limits),
      pauseSeconds_(source.pauseSeconds),
      base_(world.hosts.Address(source.name)),
      key_(ReadSourceKey(source, world.session.DataFolder(), world.environment)) {
    if (const auto limit = world.hosts.Limit(source.name)) {
        limits_ = {*limit};
        pauseSeconds_ = 0;
    }
}

double SourceClient::SecondsPerRequest() const {
    double seconds = pauseSeconds_;
    for (const RequestLimit& limit : limits_) {
        seconds = std::max(seconds, limit.seconds / static_cast<double>(limit.count));
    }
    return seconds;
}

// False when the run was stopped meanwhile.
bool SourceClient::Sleep(double seconds) {
    constexpr double kSlice = 0.1;
    const SourceTime& time = world_.state.Time();
    const double end = time.now() + seconds;
    while (world_.session.run.ProcessCommand != kStopRun) {
        const double left = end - time.now();
        if (left <= 0) return true;
        time.sleep(std::min(left, kSlice));
        world_.session.person.PumpEvents();
    }
    return false;
}

SourceOutcome SourceClient::WaitForTurn() {
    const SourceOutcome stopped{.result = SourceResult::Stopped, .words = {}};
    for (;;) {
        const SourceState::Turn turn = world_.state.TakeTurn(source_.name, limits_, pauseSeconds_);
        wasBlocked_ = turn.wasBlocked;
        if (turn.isTaken) return {};
        if (turn.blockedUntil > 0) {
            return {.result = SourceResult::RateLimited,
                    .words = turn.blockedWords,
                    .scope = LimitScope::Hour,
                    .until = turn.blockedUntil};
        }
        if (turn.waitSeconds > kLongestMinuteWait) {
            return {
                .result = SourceResult::RateLimited,
                .words = OfSource(source_, "the requests of this span are used up"),
                .scope = turn.waitSeconds > SecondsOf(LimitScope::Hour) ? LimitScope::Day : LimitScope::Hour,
                .until = world_.state.Time().now() + turn.waitSeconds};
        }
        if (!Sleep(turn.waitSeconds)) return stopped;
    }
}

ServiceReply SourceClient::Send(const std::string& address) {
    ServiceRequest request;
    request.url = address;
    request.limitSeconds = source_.timeoutSeconds;
    request.limitBytes = kMarketBytes;
    request.run = &world_.session.run;
    request.headers = source_.headers;
    for (const std::string& header : source_.key.headers) {
        request.headers.push_back(WithKey(header, *key_.key, KeyPlace::Header));
    }
    if (usesSecondAgent_) request.headers.push_back(source_.secondAgent);
    return world_.web.Ask(request);
}

SourceOutcome SourceClient::Judge(const ServiceReply& reply) const {
    if (reply.failure == WebFailure::None) return JudgeReply(source_, reply.status, reply.bytes);
    if (reply.failure == WebFailure::Stopped) return {.result = SourceResult::Stopped, .words = {}};
    const bool isLarge = reply.failure == WebFailure::TooLarge;
    return {.result = isLarge ? SourceResult::ChangedFormat : SourceResult::Network,
            .words = ServerWords(reply.error)};
}

// Tells how long a refusal lasts, and keeps one that outlasts the minute for later runs.
void SourceClient::KeepLimit(SourceOutcome& outcome, const ServiceReply& reply) {
    const double now = world_.state.Time().now();
    const auto limit = world_.hosts.Limit(source_.name);
    double wait = reply.retryAfterSeconds > 0 ? reply.retryAfterSeconds : outcome.waitSeconds;
    if (outcome.scope == LimitScope::Minute) {
        if (limit && reply.retryAfterSeconds <= 0) wait = limit->seconds;
        if (wait <= 0) wait = kLeastMinuteWait;
        outcome.waitSeconds = wait;
        outcome.until = now + wait;
        if (wait <= kLongestMinuteWait) return;
        outcome.scope = LimitScope::Hour;
    }
    const double least = wait > 0 ? wait : kLeastBlock;
    outcome.waitSeconds = world_.state.NextBackOff(source_.name, least);
    outcome.until = now + outcome.waitSeconds;
    world_.state.Block(source_.name, outcome.until, outcome.waitSeconds, outcome.words);
}

SourceOutcome SourceClient::FetchOnce(const std::string& address, ServiceReply& reply) {
    if (SourceOutcome turn = WaitForTurn(); !turn.Done()) return turn;
    reply = Send(address);
    lastReplyBegin_ = ServerWords(std::string_view(reply.bytes).substr(0, kShownBytes));
    SourceOutcome outcome = Judge(reply);
    // A service may dislike how the program calls itself: the other name is tried once.
    if (outcome.result == SourceResult::RateLimited && !source_.secondAgent.empty() && !usesSecondAgent_) {
        usesSecondAgent_ = true;
        return FetchOnce(address, reply);
    }
    if (outcome.result == SourceResult::RateLimited) KeepLimit(outcome, reply);
    if (outcome.Done() && wasBlocked_) world_.state.Unblock(source_.name);
    return outcome;
}

// A host that was waited for to the end of its time would be waited for as long again.
bool SourceClient::IsRepeated(const SourceOutcome& outcome, const ServiceReply& reply) const {
    const bool isLate = reply.failure == WebFailure::TimedOut || reply.failure == WebFailure::Silent;
    return (outcome.result == SourceResult::Network && !isLate) ||
           (outcome.result == SourceResult::RateLimited && outcome.scope == LimitScope::Minute);
}

std::string SourceClient::Fetch(const std::string& address, SourceOutcome& outcome) {
    if (!world_.hosts.refusal.empty()) {
        outcome = {.result = SourceResult::Refused, .words = world_.hosts.refusal};
        return {};
    }
    if (!key_.key) {
        outcome = {.result = SourceResult::NoKey, .words = key_.refusal};
        return {};
    }
    const std::string own = WithParameter(Redirected(address, base_, source_.hasSeveralHosts),
                                          WithKey(source_.key.parameter, *key_.key, KeyPlace::Address));
    lastAddress_ = MaskedAddress(own);
    ServiceReply reply;
    for (int repeat = 0;; ++repeat) {
        outcome = FetchOnce(own, reply);
        if (!IsRepeated(outcome, reply) || repeat == kMostRepeats) break;
        const double wait = outcome.result == SourceResult::Network
                                ? kNetworkWaits.at(static_cast<std::size_t>(repeat))
                                : outcome.waitSeconds;
        if (!Sleep(wait)) {
            outcome = {.result = SourceResult::Stopped, .words = {}};
            break;
        }
    }
    if (outcome.result == SourceResult::Network || outcome.result == SourceResult::ChangedFormat) {
        outcome.words = HostOf(own) + ": " + outcome.words;
    }
    outcome.words = WithoutKey(outcome.words, *key_.key);
    lastReplyBegin_ = WithoutKey(lastReplyBegin_, *key_.key);
    return outcome.Done() ? std::move(reply.bytes) : std::string();
}

std::string SourceClient::NextAddress(const std::string& first, const std::string& next,
                                      const CapabilityForm& form) const {
    if (!form.paging->parameter.empty()) {
        return WithParameter(first, form.paging->parameter + "=" + PercentEncoded(next));
    }
    const std::string home = base_.empty() ? first : base_;
    if (!IsWebAddress(next) || HostOf(next) != HostOf(home)) return {};
    return next;
}

SourceOutcome SourceClient::AskPages(const ReplyScene& scene, const std::string& first, SourceReply& reply) {
    std::set<std::string> seen;
    std::string address = first;
    for (std::size_t page = 0; page < kMostPages; ++page) {
        SourceOutcome outcome;
        const std::string bytes = Fetch(address, outcome);
        if (!outcome.Done()) return outcome;
        if (scene.form.tickers != 0 && bytes.size() > kReplyBytes) {
            ChangeFormat(reply, fmt::format("the reply is longer than {} bytes", kReplyBytes));
            return reply.outcome;
        }
        reply.next.clear();
        ReadReply(scene, bytes, reply);
        if (!reply.outcome.Done() || reply.next.empty()) return reply.outcome;
        const std::string next = NextAddress(first, reply.next, scene.form);
        if (next.empty()) {
            ChangeFormat(reply, "its next page is on another host");
            return reply.outcome;
        }
        if (!seen.insert(next).second || next == address || reply.rows > kMostRowsOfAnswer) {
            ChangeFormat(reply, "its pages repeat without end");
            return reply.outcome;
        }
        address = next;
    }
    ChangeFormat(reply, "its pages do not end");
    return reply.outcome;
}

SourceReply SourceClient::AskAt(const Question& question, const std::string& pattern) {
    const CapabilityForm& form = source_.FormOf(question.capability);
    const std::string single =
        question.symbols.size() == 1 && form.tickers == 1 ? question.symbols.front() : "";
    const ReplyScene scene{source_, form, single, question.from, question.to, EpochOf(world_.session.clock)};
    const std::string address = FillAddress(pattern, {Joined(question.symbols), question.from, question.to});
    SourceReply reply;
    SourceOutcome outcome = AskPages(scene, address, reply);
    reply.outcome = std::move(outcome);
    return reply;
}

SourceReply SourceClient::Ask(const Question& question) {
    const CapabilityForm* form = source_.Form(question.capability);
    SourceReply reply;
    if (form == nullptr) {
        const auto capability = kCapabilityNames[static_cast<std::size_t>(question.capability)];
        reply.outcome = {.result = SourceResult::NotInPlan,
                         .words = OfSource(source_, "it gives no " + std::string(capability))};
        return reply;
    }
    const bool readsAll = question.capability == Capability::Symbols;
    for (const std::string& pattern : form->addresses) {
        SourceReply part = AskAt(question, pattern);
        if (readsAll) {
            part.symbols.insert(part.symbols.begin(), std::make_move_iterator(reply.symbols.begin()),
                                std::make_move_iterator(reply.symbols.end()));
        }
        reply = std::move(part);
        const SourceResult result = reply.outcome.result;
        // That a ticker is unknown is an answer; that an address is, is not.
        const bool triesNext = result == SourceResult::Network ||
                               (result == SourceResult::UnknownSymbol && question.symbols.empty());
        if (readsAll ? !reply.outcome.Done() : !triesNext) break;
    }
    return reply;
}

TickerAnswer AnswerOf(const SourceClient& client, Capability capability, SourceReply& reply,
                      const std::string& symbol) {
    if (!reply.outcome.Done()) return {reply.outcome, {}};
    const CapabilityForm& form = client.Source().FormOf(capability);
    const SourceOutcome nothing{.result = form.empty, .words = {}};
    const auto found = reply.bySymbol.find(symbol);
    if (found == reply.bySymbol.end()) return {nothing, {}};
    TickerAnswer answer{{}, std::move(found->second)};
    FinishBars(answer.bars, form.reader != ReplyReader::Rows);
    if (!answer.bars.refusal.empty()) {
        answer.outcome = {.result = SourceResult::Refused, .words = answer.bars.refusal};
    } else if (answer.bars.bars.empty()) {
        answer.outcome = nothing;
    }
    return answer;
}

TickerAnswer AskTicker(SourceClient& client, Capability capability, const std::string& ticker,
                       std::chrono::sys_days from, std::chrono::sys_days to) {
    const auto symbol = SpellSymbol(client.Source().notation, ticker);
    if (!symbol) {
        return {{.result = SourceResult::UnknownSymbol, .words = "it cannot be spelled there"}, {}};
    }
    SourceReply reply = client.Ask({capability, {*symbol}, from, to});
    return AnswerOf(client, capability, reply, *symbol);
}

}  // namespace brantlow
