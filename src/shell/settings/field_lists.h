// The lists of names that settings files hold behind their numbered lines, up to their markers: the columns
// shown, the fields of a source's replies, of an export and of an import file.
#pragma once

#include <string>
#include <vector>

#include "shell/settings/settings_tables.h"

namespace brantlow {

enum class FieldList { Columns, Export, Import, SourceQuotes, SourceHistory };

// The names in the file's order, empty ones included. A list without its first marker has none; an export
// without its closing marker goes on to the end of the file.
std::vector<std::string> FieldsOf(FieldList list, const SettingsTables& tables);

}  // namespace brantlow
