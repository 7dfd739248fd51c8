#include "acquire/feeds/live/source_state.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <nlohmann/json.hpp>
#include <thread>

namespace brantlow {

namespace {

using nlohmann::json;

constexpr double kLongestBackOff = 86'400;  // seconds
// More moments than any limit counts are not kept.
constexpr std::size_t kMostMoments = 20'000;

// The folder itself is what is locked: a file that is replaced cannot hold a lock.
class FolderHold {
  public:
    explicit FolderHold(const Path& folder)
        : descriptor_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (descriptor_ >= 0) flock(descriptor_, LOCK_EX);
    }
    ~FolderHold() {
        if (descriptor_ >= 0) close(descriptor_);
    }
    FolderHold(const FolderHold&) = delete;
    FolderHold& operator=(const FolderHold&) = delete;

  private:
    int descriptor_;
};

double NumberNamed(const json& entry, const char* name) {
    const auto found = entry.find(name);
    return found != entry.end() && found->is_number() ? found->get<double>() : 0;
}

// The moments of earlier requests, oldest first.
std::vector<double> SentOf(const json& entry, double now) {
    std::vector<double> sent;
    const auto found = entry.find("sent");
    if (found == entry.end() || !found->is_array()) return sent;
    for (const json& moment : *found) {
        // A clock that was put back does not hold requests up for longer than the limits do.
        if (moment.is_number() && moment.get<double>() <= now) sent.push_back(moment.get<double>());
    }
    std::sort(sent.begin(), sent.end());
    return sent;
}

std::string WordsAt(const json& entry) {
    const auto words = entry.find("words");
    return words != entry.end() && words->is_string() ? words->get<std::string>() : std::string();
}

// Seconds until a request has room.
double WaitOf(const std::vector<double>& sent, const std::vector<RequestLimit>& limits, double pause,
              double now) {
    double wait = sent.empty() ? 0 : std::max(0.0, sent.back() + pause - now);
    for (const RequestLimit& limit : limits) {
        if (sent.size() < limit.count) continue;
        wait = std::max(wait, sent[sent.size() - limit.count] + limit.seconds - now);
    }
    return wait;
}

void DropOld(std::vector<double>& sent, const std::vector<RequestLimit>& limits, double now) {
    double longest = 1;
    std::size_t most = 1;
    for (const RequestLimit& limit : limits) {
        longest = std::max(longest, limit.seconds);
        most = std::max(most, limit.count);
    }
    sent.erase(sent.begin(), std::lower_bound(sent.begin(), sent.end(), now - longest));
    most = std::min(most, kMostMoments);
    if (sent.size() > most) sent.erase(sent.begin(), sent.end() - static_cast<std::ptrdiff_t>(most));
}

}  // namespace

SourceTime SystemSourceTime() {
    return {[] {
                const auto now = std::chrono::system_clock::now().time_since_epoch();
                return std::chrono::duration<double>(now).count();
            },
            [](double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }};
}

template <typename Change>
void SourceState::With(const std::string& source, const Change& change) {
    const FolderHold hold(dataFolder_);
    const Path file = dataFolder_ / kSourceStateName;
    const ReadResult read = ReadWholeFile(file);
    json state = json::parse(isInMemory_ ? memory_ : read.bytes, nullptr, false);
    if (!state.is_object()) state = json::object();
    json& entry = state[source];
    if (!entry.is_object()) entry = json::object();
    if (!change(entry)) return;
    memory_ = state.dump();
    // A state that cannot be kept holds for this run.
    isInMemory_ = read.outcome == ReadOutcome::Failed || WriteWholeFile(file, memory_, Flush::Later);
}

SourceState::Turn SourceState::TakeTurn(const std::string& source, const std::vector<RequestLimit>& limits,
                                        double pauseSeconds) {
    Turn turn;
    With(source, [&](json& entry) {
        const double now = time_.now();
        turn.blockedUntil = NumberNamed(entry, "blockedUntil");
        if (turn.blockedUntil > now) {
            turn.blockedWords = WordsAt(entry);
            return false;
        }
        turn.blockedUntil = 0;
        turn.wasBlocked = entry.find("backOff") != entry.end();
        std::vector<double> sent = SentOf(entry, now);
        turn.waitSeconds = WaitOf(sent, limits, pauseSeconds, now);
        if (turn.waitSeconds > 0) return false;
        turn.isTaken = true;
        sent.push_back(now);
        DropOld(sent, limits, now);
        entry["sent"] = sent;
        return true;
    });
    return turn;
}

void SourceState::Block(const std::string& source, double until, double backOffSeconds,
                        std::string_view words) {
    With(source, [&](json& entry) {
        entry["blockedUntil"] = until;
        entry["backOff"] = backOffSeconds;
        entry["words"] = std::string(words);
        return true;
    });
}

void SourceState::Unblock(const std::string& source) {
    With(source, [](json& entry) {
        return entry.erase("blockedUntil") + entry.erase("backOff") + entry.erase("words") > 0;
    });
}

double SourceState::NextBackOff(const std::string& source, double least) {
    double wait = least;
    With(source, [&](json& entry) {
        wait = std::clamp(2 * NumberNamed(entry, "backOff"), least, std::max(least, kLongestBackOff));
        return false;
    });
    return wait;
}

SourceState::Rest SourceState::RestOf(const std::string& source) {
    Rest rest;
    With(source, [&](json& entry) {
        const double until = NumberNamed(entry, "blockedUntil");
        if (until > time_.now()) rest = {until, WordsAt(entry)};
        return false;
    });
    return rest;
}

bool SourceState::HasToldTerms(const std::string& source) {
    bool hasTold = false;
    With(source, [&](json& entry) {
        hasTold = entry.find("termsTold") != entry.end();
        return false;
    });
    return hasTold;
}

bool SourceState::TellsTermsFirst(const std::string& source) {
    bool first = false;
    With(source, [&](json& entry) {
        first = entry.find("termsTold") == entry.end();
        if (first) entry["termsTold"] = true;
        return first;
    });
    return first;
}

}  // namespace brantlow
