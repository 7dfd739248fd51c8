#include "shell/settings/settings_tables.h"

#include <utility>

#include "base/numbers.h"

namespace brantlow {

double SettingsTable::Number(std::size_t line) const {
    return LeadingNumber(Text(line));
}

const Value& SettingsTable::At(std::size_t line) const {
    static const Value empty;
    return line >= 1 && line <= values_.size() ? values_[line - 1] : empty;
}

void SettingsTable::Set(std::size_t line, Value value) {
    if (line < 1 || line > kMostRows) return;
    if (values_.size() < line) values_.resize(line);
    values_[line - 1] = std::move(value);
}

}  // namespace brantlow
