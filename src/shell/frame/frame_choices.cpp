#include "shell/frame/frame_choices.h"

#include "shell/user_store.h"

namespace brantlow {

namespace {

constexpr std::string_view kSection = "Settings";
// Every installation writes it when it is closed.
constexpr std::string_view kWidthKey = "MainWidth";
constexpr std::string_view kTrue = "True";
constexpr std::string_view kFalse = "False";

}  // namespace

bool WasClosedOnce(const Path& storeFile) {
    return !GetSetting(storeFile, kSection, kWidthKey, "").empty();
}

bool LoadFrameFlag(const Path& storeFile, std::string_view key, bool byDefault) {
    return GetSetting(storeFile, kSection, key, byDefault ? kTrue : kFalse) == kTrue;
}

std::error_code SaveFrameFlag(const Path& storeFile, std::string_view key, bool on) {
    return SaveSetting(storeFile, kSection, key, on ? kTrue : kFalse);
}

bool LoadFrameChoice(const Path& storeFile, const FrameChoice& choice) {
    return LoadFrameFlag(storeFile, choice.key, choice.isOnWhenNew && !WasClosedOnce(storeFile));
}

std::error_code SaveFrameChoice(const Path& storeFile, const FrameChoice& choice, bool on) {
    return SaveFrameFlag(storeFile, choice.key, on);
}

}  // namespace brantlow
