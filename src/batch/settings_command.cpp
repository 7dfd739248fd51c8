#include "batch/commands.h"
#include "batch/json_line.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

void PrintValue(const SettingsTable& table, std::size_t line, JsonLine& json) {
    if (table.At(line).ValueKind() == Value::Kind::Number) {
        json.Number(table.Number(line));
    } else {
        json.Text(table.Text(line));
    }
}

// QuoteHost is one text, every other table an array whose first element is line 1.
void PrintTable(const SettingsFileForm& form, const SettingsTables& settings, JsonLine& json) {
    json.Key(form.tableName);
    if (form.table == nullptr) {
        json.Text(settings.QuoteHost);
        return;
    }
    const SettingsTable& table = settings.*form.table;
    json.BeginArray();
    for (std::size_t line = 1; line <= table.Size(); ++line) PrintValue(table, line, json);
    json.EndArray();
}

const SettingsFileForm* FindForm(std::string_view fileName) {
    for (const SettingsFileForm& form : kSettingsFiles) {
        if (form.fileName == fileName) return &form;
    }
    return nullptr;
}

}  // namespace

ExitStatus RunSettings(BatchCall& call) {
    const SettingsFileForm* only = nullptr;
    if (!call.arguments.operands.empty()) {
        const std::string& name = call.arguments.operands.front();
        if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
        only = FindForm(name);
        if (only == nullptr) return RefuseUsage(call, "FILE.ini", "'" + name + "' is no settings file");
    }
    const SettingsTables& settings = call.session.settings;
    JsonLine json;
    json.BeginObject();
    for (const SettingsFileForm& form : kSettingsFiles) {
        if (only != nullptr && only != &form) continue;
        const std::string sentence = UnreadableSettings(form.file, call.session.AppPath, settings);
        if (!sentence.empty()) return Refuse(call, sentence);
        PrintTable(form, settings, json);
    }
    json.EndObject();
    call.out << json.Line() << '\n';
    return ExitStatus::Done;
}

}  // namespace brantlow
