#include "shell/settings/settings_needs.h"

namespace brantlow {

std::string FirstUnreadable(SettingsNeeds needs, const Path& appPath, const SettingsTables& settings) {
    for (const SettingsFile file : needs) {
        std::string sentence = UnreadableSettings(file, appPath, settings);
        if (!sentence.empty()) return sentence;
    }
    return {};
}

std::string StillUnreadable(SettingsNeeds needs, const Path& appPath, SettingsTables& settings) {
    for (const SettingsFile file : needs) {
        const bool wasUnread = !UnreadableSettings(file, appPath, settings).empty();
        if (wasUnread) LoadSettingsFile(file, appPath, settings);
    }
    return FirstUnreadable(needs, appPath, settings);
}

}  // namespace brantlow
