#include "shell/settings/lines.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "shell/settings/settings_files.h"

namespace brantlow {

namespace {

const std::string& TextOf(const SettingsTables& tables, const LineRow& row) {
    const auto table = FormOf(row.file).table;
    return table == nullptr ? tables.QuoteHost : (tables.*table).Text(row.number);
}

}  // namespace

bool Get(const SettingsTables& tables, FlagLine line) {
    return TextOf(tables, *line.row) == line.row->choices.front();
}

int Get(const SettingsTables& tables, NumberLine line) {
    const LineRow& row = *line.row;
    const auto number = WholeNumber(TextOf(tables, row));
    if (!number) return row.fallback;
    return static_cast<int>(std::clamp(std::floor(*number), double(row.least), double(row.most)));
}

}  // namespace brantlow
