#include "store/quote_export.h"

#include <fmt/format.h>

#include <vector>

#include "base/text.h"
#include "base/values.h"
#include "shell/settings/field_lists.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_defaults.h"
#include "shell/settings/settings_files.h"
#include "store/own_files.h"

namespace brantlow {

namespace {

// The separator of an export form; the screen's other forms have none.
std::string_view ExportSeparator(const SettingsTables& settings) {
    const auto form = Known(settings, kExportType);
    if (form == TextFileType::Tab) return "\t";
    if (form == TextFileType::Comma) return ",";
    return {};
}

// The columns to write, in their order: a quote table's as often as the settings name them, others once.
std::vector<std::size_t> ExportColumns(const SettingsTables& settings, FileKind kind,
                                       const QuoteTable& table) {
    const std::vector<std::string> chosen = FieldsOf(FieldList::Export, settings);
    std::vector<std::size_t> columns;
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        const bool isChosen = kind == FileKind::Ddq;
        const auto times = isChosen ? std::count(chosen.begin(), chosen.end(), table.Header(column)) : 1;
        columns.insert(columns.end(), static_cast<std::size_t>(times), column);
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
    return FolderOfSetting(appPath, Get(settings, kExportFolder)) / PlatformPath(Get(settings, kExportName));
}

std::string ExportText(const SettingsTables& settings, FileKind kind, const QuoteTable& table,
                       Person& progress) {
    const std::vector<std::size_t> columns = ExportColumns(settings, kind, table);
    const std::string_view separator = ExportSeparator(settings);
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
    std::error_code written;
    session.person.DoBeside([&] { written = WriteWholeFile(file, text); });
    Failure error = FailedTo(FailureKind::Write, file, written);
    const ExportOutcome outcome = error ? ExportOutcome::Failed : ExportOutcome::Done;
    return {outcome, std::move(error), LineCount(text)};
}

}  // namespace brantlow
