#include "store/quote_export.h"

#include <fmt/format.h>

#include <vector>

#include "base/text.h"
#include "base/values.h"
#include "shell/settings/settings_defaults.h"
#include "shell/settings/settings_files.h"
#include "store/own_files.h"

namespace brantlow {

namespace {

// Lines of the export settings. The choice of columns is looked for from line 7 on: what stands there before
// the choice begins is no column's name.
constexpr std::size_t kFormLine = 1;
constexpr std::size_t kFolderLine = 2;
constexpr std::size_t kNameLine = 3;
constexpr std::size_t kFirstChoice = 7;

// The separator of an export form; the screen's other forms have none.
std::string_view SeparatorOf(const SettingsTables& settings) {
    const std::string& form = settings.ImExSettings.Text(kFormLine);
    if (form == "Tab Delimited") return "\t";
    if (form == "Comma Delimited") return ",";
    return {};
}

std::size_t TimesChosen(const SettingsTable& choice, std::string_view header) {
    std::size_t times = 0;
    for (std::size_t line = kFirstChoice; line <= choice.Size(); ++line) {
        if (choice.Text(line) == kEndExportFile) break;
        if (choice.Text(line) == header) ++times;
    }
    return times;
}

// The columns to write, in their order: a quote table's as often as the settings name them, others once.
std::vector<std::size_t> ExportColumns(const SettingsTables& settings, FileKind kind,
                                       const QuoteTable& table) {
    std::vector<std::size_t> columns;
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        const bool isChosen = kind == FileKind::Ddq;
        const std::size_t times = isChosen ? TimesChosen(settings.ImExSettings, table.Header(column)) : 1;
        columns.insert(columns.end(), times, column);
    }
    return columns;
}

void AppendRow(const QuoteTable& table, std::size_t row, const std::vector<std::size_t>& columns,
               std::string_view separator, std::string& text) {
    const std::size_t begin = text.size();
    for (const std::size_t column : columns) {
        if (text.size() > begin) text += separator;
        text += table.Text(row, column);
    }
    text += kLineEnd;
}

bool IsExported(FileKind kind) {
    return kind == FileKind::Ddq || kind == FileKind::Dbe || kind == FileKind::Efq;
}

}  // namespace

Path ExportFile(const Path& appPath, const SettingsTables& settings) {
    const SettingsTable& lines = settings.ImExSettings;
    return FolderOfSetting(appPath, lines.Text(kFolderLine)) / PlatformPath(lines.Text(kNameLine));
}

std::string ExportText(const SettingsTables& settings, FileKind kind, const QuoteTable& table,
                       Person& progress) {
    const std::vector<std::size_t> columns = ExportColumns(settings, kind, table);
    const std::string_view separator = SeparatorOf(settings);
    const bool isQuoteTable = kind == FileKind::Ddq;
    const double share = isQuoteTable ? 1 : 0.5;
    std::string text;
    for (std::size_t row = isQuoteTable ? 1 : 0; row < table.RowCount(); ++row) {
        AppendRow(table, row, columns, separator, text);
        if (table.TickerCount() == 0) continue;
        progress.ShowProgress(share * static_cast<double>(row) / static_cast<double>(table.TickerCount()));
    }
    return text;
}

RunReport ExportReport(const std::string& name, std::size_t rows, const Path& target) {
    RunReport report("Export of " + name, "rows");
    report.SetHeadline(fmt::format("{} written to {}", Counted(rows, "row", "rows"), target.string()));
    return report;
}

QuoteExport ExportQuotes(Session& session, const QuoteTable& table) {
    const FileKind kind = KindOf(session.CurrentFile);
    if (!IsExported(kind)) {
        session.person.Say(kExportNeedsTable);
        return {ExportOutcome::NeedsTable, {}, 0};
    }
    const Path file = ExportFile(session.AppPath, session.settings);
    if (!MayExchange(session, file, ExchangeWay::Export)) return {ExportOutcome::Declined, {}, 0};
    const std::string text = ExportText(session.settings, kind, table, session.person);
    Failure error = FailedTo(FailureKind::Write, file, WriteWholeFile(file, text));
    const ExportOutcome outcome = error ? ExportOutcome::Failed : ExportOutcome::Done;
    return {outcome, std::move(error), LineCount(text)};
}

}  // namespace brantlow
