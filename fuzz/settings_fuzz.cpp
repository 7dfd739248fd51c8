// The settings files and what stands in them: each read, written and read back, the conditions compiled and
// evaluated. Input: a byte for the file, its bytes.
#include <algorithm>

#include "fuzz_session.h"
#include "selector/evaluation.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/settings_files.h"
#include "store/table_files.h"

using namespace brantlow;

namespace {

void UseConditions(const SettingsTables& settings) {
    const ConditionSet set = ParseConditionSet(settings.SelectorSettings);
    FormatConditionSet(set);
    ConditionSummary(settings);
    static const auto analysis = std::make_unique<Analysis>();
    ConditionResults results;
    CompiledConditions(settings).Evaluate(*analysis, results);
}

// Whether the lines hold nothing that their form cannot: a quote inside a text, a line end alone.
bool IsPlain(std::string_view text) {
    for (std::string_view line : LinesOf(text)) {
        if (line.ends_with('\r')) line.remove_suffix(1);
        const auto quotes = std::count(line.begin(), line.end(), '"');
        if (quotes != 0 && (quotes != 2 || !line.starts_with('"') || !line.ends_with('"'))) return false;
        if (line.find('\r') != std::string_view::npos) return false;
    }
    return true;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = BytesOf(data, size);
    const SettingsFileForm& form = kSettingsFiles[TakeByte(input) % kSettingsFiles.size()];
    FuzzSession fuzz;
    SettingsTables& settings = fuzz.session.settings;
    const std::string name = "Data/" + std::string(form.fileName);
    fuzz.Write(name, input);
    LoadSettingsFile(form.file, AppFolder().Get(), settings);
    UseConditions(settings);
    const std::string once = SettingsFileText(form.file, settings);
    fuzz.Write(name, once);
    SettingsTables again;
    LoadSettingsFile(form.file, AppFolder().Get(), again);
    // Lines of VTRNETset.ini are printed raw, whatever was read.
    if (form.file == SettingsFile::Net || !IsPlain(once)) return 0;
    Demand(SettingsFileText(form.file, again) == once, "written settings do not read back as themselves");
    return 0;
}
