// What has to be known of a live source from one run to the next, and by two programs at a time: when it was
// asked, until when it wants to be left alone, whose terms were told. Kept in Data/Source State.json, which
// is held by one program at a time while it is read and written.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_definition.h"
#include "base/files.h"

namespace brantlow {

inline constexpr const char* kSourceStateName = "Source State.json";

// Real time: seconds since 1970, and a wait.
struct SourceTime {
    std::function<double()> now;
    std::function<void(double seconds)> sleep;
};
SourceTime SystemSourceTime();

class SourceState {
  public:
    SourceState(Path dataFolder, SourceTime time)
        : dataFolder_(std::move(dataFolder)), time_(std::move(time)) {}

    struct Turn {
        bool isTaken = false;     // the request may leave now, and is counted
        double waitSeconds = 0;   // else: until it may
        double blockedUntil = 0;  // else: the source asked to be left alone until then
        std::string blockedWords;
        bool wasBlocked = false;  // a good reply is to end what is left of a refusal
    };

    // Counts a request where the limits have room for it. A state that cannot be read or written counts
    // within this run only.
    Turn TakeTurn(const std::string& source, const std::vector<RequestLimit>& limits, double pauseSeconds);

    // The source is left alone until `until`; the same again doubles what `NextBackOff` gives, a good reply
    // ends it.
    void Block(const std::string& source, double until, double backOffSeconds, std::string_view words);
    void Unblock(const std::string& source);
    // The wait after the next refusal: `least`, or twice the last one, at most a day.
    double NextBackOff(const std::string& source, double least);

    // True the first time that the terms of a source are to be told in this folder; it is remembered.
    bool TellsTermsFirst(const std::string& source);
    // Whether they were told already; nothing is remembered.
    bool HasToldTerms(const std::string& source);

    // Until when the source asked to be left alone, 0 where it may be asked, and its words.
    struct Rest {
        double until = 0;
        std::string words;
    };
    Rest RestOf(const std::string& source);

    const SourceTime& Time() const { return time_; }

  private:
    struct Entry;
    template <typename Change>
    void With(const std::string& source, const Change& change);

    Path dataFolder_;
    SourceTime time_;
    // The last state, which counts where it cannot be written.
    std::string memory_;
    bool isInMemory_ = false;
};

}  // namespace brantlow
