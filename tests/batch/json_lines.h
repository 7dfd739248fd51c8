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

// The names in an object, in its order.
inline std::vector<std::string> Keys(const nlohmann::ordered_json& object) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items()) keys.push_back(key);
    return keys;
}

}  // namespace brantlow
