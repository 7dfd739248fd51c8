// What the tests of live sources share: a session on Friday 2026-11-20 at 18:00 in New York's evening, a web
// in memory, time that passes only in waits, and keys.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/live/source_client.h"
#include "support/session_fixture.h"

namespace brantlow {

inline std::chrono::sys_days DayOf(int year, unsigned month, unsigned day) {
    return std::chrono::sys_days{std::chrono::year{year} / static_cast<int>(month) / static_cast<int>(day)};
}

// Services in memory.
class MemoryServices final : public ServiceWeb {
  public:
    ServiceReply Ask(const ServiceRequest& request) override { return answer(request); }

    std::function<ServiceReply(const ServiceRequest&)> answer;
};

// What a person is told, without the moment until which a source rests.
inline std::string SentenceOf(SourceOutcome outcome) {
    outcome.until = 0;
    return OutcomeText(outcome);
}

class SourceTest : public SessionTest {
  protected:
    SourceTest() {
        // 23:30 UTC is 18:30 in New York.
        clock.Set(Date{DayOf(2026, 11, 20)}, 23.5 * 3600);
        web.answer = [this](const ServiceRequest& request) { return Reply(request); };
    }

    static const SourceCatalogue& Shipped() {
        static const SourceCatalogue catalogue = LoadSources("/nonexistent");
        return catalogue;
    }
    static const SourceDefinition& Source(std::string_view name) { return *Shipped().Find(name); }

    static ServiceReply Answer(int status, std::string bytes) {
        ServiceReply reply;
        reply.status = status;
        reply.bytes = std::move(bytes);
        return reply;
    }

    // The next replies in their order; the last one stays.
    void Reply(std::vector<ServiceReply> replies) {
        replies_ = std::move(replies);
        next_ = 0;
    }
    void Reply(std::string bytes) { Reply({Answer(200, std::move(bytes))}); }
    void Reply(int status, std::string bytes) { Reply({Answer(status, std::move(bytes))}); }

    TickerAnswer AskFor(std::string_view source, const std::string& ticker,
                        Capability capability = Capability::History) {
        SourceClient client(world, Source(source));
        TickerAnswer answer = AskTicker(client, capability, ticker, DayOf(2026, 11, 2), DayOf(2026, 11, 20));
        address = client.LastAddress();
        return answer;
    }

    SourceHosts hosts;
    MemoryServices web;
    std::map<std::string, std::string> variables = {
        {"BRANTLOW_KEY_MASSIVE", "practice-key"},    {"BRANTLOW_KEY_ALPACA", "practice-id:practice-secret"},
        {"BRANTLOW_KEY_TIINGO", "practice-key"},     {"BRANTLOW_KEY_EODHD", "practice-key"},
        {"BRANTLOW_KEY_TWELVEDATA", "practice-key"}, {"BRANTLOW_KEY_ALPHAVANTAGE", "practice-key"},
        {"BRANTLOW_KEY_FMP", "practice-key"},        {"BRANTLOW_KEY_SEC", "me@example.org"}};
    double seconds = 1'795'000'000;
    SourceState state{folder / "Data",
                      {[this] { return seconds; }, [this](double slept) { seconds += slept; }}};
    SourceWorld world{session, web, hosts, state, [this](const char* name) -> const char* {
                          const auto found = variables.find(name);
                          return found == variables.end() ? nullptr : found->second.c_str();
                      }};
    std::vector<ServiceRequest> requests;
    std::string address;

  private:
    ServiceReply Reply(const ServiceRequest& request) {
        requests.push_back(request);
        if (replies_.empty()) {
            ServiceReply dead;
            dead.failure = WebFailure::NoConnection;
            dead.error = "no such host";
            return dead;
        }
        return replies_[std::min(next_++, replies_.size() - 1)];
    }

    std::vector<ServiceReply> replies_;
    std::size_t next_ = 0;
};

}  // namespace brantlow
