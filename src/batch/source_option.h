// The option --source, which every command takes that a live source may serve.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "batch/command.h"

namespace brantlow {

inline constexpr std::string_view kSourceOptionName = "--source";
std::optional<std::string> RefuseSourceName(std::string_view text);
inline constexpr CommandOption kSourceOption = {
    kSourceOptionName, "NAME", "a live source for this call in place of the chosen one", RefuseSourceName};

}  // namespace brantlow
