#include "shell/settings/field_lists.h"

#include "shell/settings/lines.h"

namespace brantlow {

namespace {

struct ListLines {
    const SettingsTable& table;
    std::size_t first;  // 0 for a list that is not there
    std::size_t last;
};

ListLines LinesOf(FieldList list, const SettingsTables& tables) {
    constexpr std::size_t kFirstExportLine = LineCountOf(SettingsFile::ImEx) + 1;
    switch (list) {
        case FieldList::Export: {
            const std::size_t import = tables.ImportFieldFirst;
            const std::size_t last = import > 2 ? import - 2 : tables.ImExSettings.Size();
            return {tables.ImExSettings, kFirstExportLine, last};
        }
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
    for (std::size_t line = lines.first; line <= lines.last; ++line) names.push_back(lines.table.Text(line));
    return names;
}

}  // namespace brantlow
