#include "shell/frame/frame_choices.h"

#include "shell/user_store.h"

namespace brantlow {

namespace {

constexpr std::string_view kSection = "Settings";
// Stands in the store of every installation that was closed once.
constexpr std::string_view kWidthKey = "MainWidth";
constexpr std::string_view kTrue = "True";
constexpr std::string_view kFalse = "False";

}  // namespace

bool LoadFrameChoice(const Path& storeFile, const FrameChoice& choice) {
    const bool isNew = GetSetting(storeFile, kSection, kWidthKey, "").empty();
    return GetSetting(storeFile, kSection, choice.key, isNew ? kTrue : kFalse) == kTrue;
}

std::error_code SaveFrameChoice(const Path& storeFile, const FrameChoice& choice, bool on) {
    return SaveSetting(storeFile, kSection, choice.key, on ? kTrue : kFalse);
}

}  // namespace brantlow
