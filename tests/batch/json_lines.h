// The lines that a call of the batch tool printed, each an object.
#pragma once

#include <nlohmann/json.hpp>

#include "batch_fixture.h"

namespace brantlow {

// Of a call that has to succeed.
inline std::vector<nlohmann::ordered_json> JsonLines(const CallResult& result) {
    EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
    std::vector<nlohmann::ordered_json> lines;
    std::istringstream out(result.out);
    for (std::string line; std::getline(out, line);) lines.push_back(nlohmann::ordered_json::parse(line));
    return lines;
}

}  // namespace brantlow
