#include "shell/settings/settings_files.h"

#include <algorithm>

#include "base/failure.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/settings/default_hosts.h"
#include "shell/settings/settings_defaults.h"

namespace brantlow {

namespace {

// Behind the numbered lines the sequences of a supplier's fields begin.
constexpr std::size_t kStartEodLine = LineCountOf(SettingsFile::Net) + 1;

static_assert(std::is_sorted(kSettingsFiles.begin(), kSettingsFiles.end(),
                             [](const auto& a, const auto& b) { return a.file < b.file; }),
              "FormOf finds a file's form by its place");

bool IsPrinted(SettingsFile file, std::size_t line) {
    const LineRow* row = RowOf(file, line);
    return row != nullptr && row->form == LineForm::Printed;
}

// A printed number is read like any other value.
bool IsReadWhole(SettingsFile file, std::size_t line) {
    return IsPrinted(file, line) && line <= kQuotesPerRequest.row->number;
}

// Fills `table` from the lines of `bytes` and returns how many there were, up to the form's limit.
std::size_t ReadLines(const SettingsFileForm& form, std::string_view bytes, SettingsTable& table) {
    LineReader reader(bytes);
    std::string_view line;
    std::size_t count = 0;
    while (count < form.linesRead && reader.Next(line)) {
        ++count;
        table.Set(count, IsReadWhole(form.file, count) ? Value::OfRawLine(line) : Value::Parse(line));
        // The empty line behind the last column ends the list.
        if (form.file == SettingsFile::Columns && table.Text(count).empty()) break;
    }
    return count;
}

std::size_t CountColumns(const SettingsTable& columns) {
    std::size_t count = 0;
    while (!columns.Text(count + 1).empty()) ++count;
    return count;
}

// Without its opening marker in its place no sequence counts: a user-defined source then has no fields.
void FindNetSequences(SettingsTables& settings) {
    const SettingsTable& net = settings.NetSettings;
    settings.NetEodFirst = settings.NetEodLast = settings.NetHistFirst = settings.NetHistLast = 0;
    if (net.Text(kStartEodLine) != kStartEod) return;
    for (std::size_t i = 1; i <= net.Size(); ++i) {
        const std::string& text = net.Text(i);
        if (text == kStartEod) settings.NetEodFirst = i + 1;
        if (text == kEndEod) {
            settings.NetEodLast = i - 1;
            settings.NetHistFirst = i + 2;
        }
        if (text == kEndHistory) settings.NetHistLast = i - 1;
    }
}

void FindImportSequence(SettingsTables& settings) {
    const SettingsTable& imEx = settings.ImExSettings;
    settings.ImportFieldFirst = settings.ImportFieldLast = 0;
    for (std::size_t i = 1; i <= imEx.Size(); ++i) {
        if (imEx.Text(i) == kEndExportFile) settings.ImportFieldFirst = i + 1;
        if (imEx.Text(i) == kEndImportFile) settings.ImportFieldLast = i - 1;
    }
}

void LoadQuoteHost(std::string_view bytes, SettingsTables& settings) {
    std::string_view line;
    LineReader(bytes).Next(line);
    settings.QuoteHost = Value::Parse(line).Text();
    if (settings.QuoteHost.empty()) settings.QuoteHost = kUnitedStatesQuoteHost;
}

void AppendLine(std::string& text, std::string_view line) {
    text += line;
    text += kLineEnd;
}

// A raw line as it can be printed: a line end inside it would move every line behind it.
std::string PrintedForm(const Value& value) {
    std::string text = value.Text();
    std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
    return text;
}

}  // namespace

void TakeSettingsText(SettingsFile file, std::string_view bytes, SettingsTables& settings) {
    const SettingsFileForm& form = FormOf(file);
    if (form.table == nullptr) return LoadQuoteHost(bytes, settings);
    SettingsTable& table = settings.*form.table;
    if (file != SettingsFile::Selector) table.Clear();
    const std::size_t lines = ReadLines(form, bytes, table);
    if (file == SettingsFile::Columns) settings.ColumnCount = CountColumns(table);
    if (file == SettingsFile::Selector) settings.SelectorLineCount = lines;
    if (file == SettingsFile::Net) FindNetSequences(settings);
    if (file == SettingsFile::ImEx) FindImportSequence(settings);
}

std::string SettingsFileName(SettingsFile file) {
    return std::string(FormOf(file).fileName);
}

Path SettingsFilePath(SettingsFile file, const Path& appPath) {
    return appPath / "Data" / FormOf(file).fileName;
}

void LoadAllSettings(const Path& appPath, SettingsTables& settings) {
    for (const SettingsFileForm& form : kSettingsFiles) LoadSettingsFile(form.file, appPath, settings);
}

std::string UnreadableSettings(SettingsFile file, const Path& appPath, const SettingsTables& settings) {
    const std::error_code& error = settings.ReadErrors[static_cast<std::size_t>(file)];
    return Sentence(FailedTo(FailureKind::Read, SettingsFilePath(file, appPath), error));
}

std::error_code LoadSettingsFile(SettingsFile file, const Path& appPath, SettingsTables& settings) {
    const ReadResult read = ReadWholeFile(SettingsFilePath(file, appPath));
    std::error_code& error = settings.ReadErrors[static_cast<std::size_t>(file)];
    error = read.outcome == ReadOutcome::Failed ? read.error : std::error_code{};
    if (!error) TakeSettingsText(file, read.bytes, settings);
    // Without its line the folder is the standard one, so that it is never empty.
    if (file == SettingsFile::Data) settings.QuoteFolder = DeriveQuoteFolder(appPath, settings);
    if (settings.QuoteHost.empty()) settings.QuoteHost = kUnitedStatesQuoteHost;
    return error;
}

std::string SettingsFileText(SettingsFile file, const SettingsTables& settings) {
    const SettingsFileForm& form = FormOf(file);
    std::string text;
    if (form.table == nullptr) {
        AppendLine(text, Value::OfText(settings.QuoteHost).Written());
        return text;
    }
    const SettingsTable& table = settings.*form.table;
    // The columns end with their empty line, whatever the table holds behind it.
    const std::size_t lines = file == SettingsFile::Columns
                                  ? std::min(CountColumns(table) + 1, form.mostWritten)
                                  : std::clamp(table.Size(), form.fewestWritten, form.mostWritten);
    for (std::size_t i = 1; i <= lines; ++i) {
        const Value& value = table.At(i);
        AppendLine(text, IsPrinted(file, i) ? PrintedForm(value) : value.Written());
    }
    return text;
}

Failure PrepareSettingsFile(SettingsFile file, const Path& appPath, const SettingsTables& settings,
                            FileChange& change) {
    return PrepareSettingsText(file, SettingsFileText(file, settings), appPath, settings, change);
}

Failure PrepareSettingsText(SettingsFile file, std::string_view text, const Path& appPath,
                            const SettingsTables& settings, FileChange& change) {
    const Path path = SettingsFilePath(file, appPath);
    const std::error_code& unread = settings.ReadErrors[static_cast<std::size_t>(file)];
    return unread ? FailedTo(FailureKind::Write, path, unread) : change.Write(path, text);
}

Path FolderOfSetting(const Path& appPath, std::string_view text) {
    return appPath / PlatformPath(text);
}

std::string DeriveQuoteFolder(const Path& appPath, const SettingsTables& settings) {
    const std::string& elsewhere = Get(settings, kDatabaseFolder);
    // A folder cannot be named by nothing, nor by a text with a NUL, which the system would cut short.
    const bool namesFolder = !elsewhere.empty() && elsewhere.find('\0') == std::string::npos;
    const bool isElsewhere = Get(settings, kDatabaseIsElsewhere) && namesFolder;
    const std::string_view place = isElsewhere ? std::string_view(elsewhere) : kOwnDatabaseFolder;
    std::string folder = FolderOfSetting(appPath, place).string();
    if (!folder.ends_with('/')) folder += '/';
    return folder;
}

}  // namespace brantlow
