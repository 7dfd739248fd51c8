#include "shell/frame/run_settings.h"

#include <string>

#include "shell/settings/settings_files.h"

namespace brantlow {

RunReport StartReport(const Session& session) {
    std::string files;
    for (const SettingsFileForm& form : kSettingsFiles) {
        const std::string sentence = UnreadableSettings(form.file, session.AppPath, session.settings);
        if (!sentence.empty()) files += (files.empty() ? "" : "; ") + sentence;
    }
    if (files.empty()) return {};
    RunReport report("Start of the program", "files");
    report.SetHeadline(files + ". Runs that go by it are refused until it can be read");
    return report;
}

}  // namespace brantlow
