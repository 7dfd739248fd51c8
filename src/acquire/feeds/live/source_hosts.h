// What Data/Hosts.ini says of live sources: another address to ask in place of a source's own hosts, and
// other limits, for tests and for paid plans.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "acquire/feeds/live/source_definition.h"
#include "base/files.h"

namespace brantlow {

class SourceHosts {
  public:
    // Lines `Source.NAME=address` and `Limit.NAME=COUNT/SECONDS`; others are for other readers.
    static SourceHosts Parse(std::string_view text);

    // Empty where the source is asked at its own hosts.
    const std::string& Address(std::string_view source) const;
    std::optional<RequestLimit> Limit(std::string_view source) const;

    // Why the file, which is there, cannot be read: nobody is asked then, for it may name other hosts.
    std::string refusal;

  private:
    std::map<std::string, std::string, std::less<>> addresses_;
    std::map<std::string, RequestLimit, std::less<>> limits_;
};

SourceHosts LoadSourceHosts(const Path& dataFolder);

}  // namespace brantlow
