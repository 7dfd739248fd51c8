#include "shell/settings/field_lists.h"

#include "shell/settings/lines.h"
#include "shell/settings/settings_defaults.h"

namespace brantlow {

namespace {

struct ListLines {
    const SettingsTable& table;
    std::size_t first;  // 0 for a list that is not there
    std::size_t last;
    std::string_view end = {};  // the line that ends the list before its last; none where it is empty
};

ListLines LinesOf(FieldList list, const SettingsTables& tables) {
    constexpr std::size_t kFirstExportLine = LineCountOf(SettingsFile::ImEx) + 1;
    switch (list) {
        case FieldList::Export:
            return {tables.ImExSettings, kFirstExportLine, tables.ImExSettings.Size(), kEndExportFile};
        case FieldList::Import:
            return {tables.ImExSettings, tables.ImportFieldFirst, tables.ImportFieldLast};
        case FieldList::SourceQuotes:
            return {tables.NetSettings, tables.NetEodFirst, tables.NetEodLast};
        case FieldList::SourceHistory:
            return {tables.NetSettings, tables.NetHistFirst, tables.NetHistLast};
        case FieldList::Columns:
            break;
    }
    return {tables.ColumnSettings, 1, tables.ColumnCount};
}

}  // namespace

std::vector<std::string> FieldsOf(FieldList list, const SettingsTables& tables) {
    const ListLines lines = LinesOf(list, tables);
    std::vector<std::string> names;
    if (lines.first == 0) return names;
    for (std::size_t line = lines.first; line <= lines.last; ++line) {
        const std::string& name = lines.table.Text(line);
        if (!lines.end.empty() && name == lines.end) break;
        names.push_back(name);
    }
    return names;
}

}  // namespace brantlow
