// What a quote source replies: lines of fields that fill the per-ticker arrays.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/files.h"
#include "shell/settings/settings_tables.h"
#include "store/quote_fields.h"

namespace brantlow {

// Rewrites a reply file whose numbers have decimal commas between semicolons to points between commas. Lines
// beyond kMostRows are dropped.
std::error_code NormaliseDecimalComma(const Path& file);

// Takes a line of the standard source into row `row`, for which room was made. A comma between double quotes
// belongs to its field. False, with nothing changed, for a line that does not hold all 25 fields.
bool TakeStandardLine(std::string_view line, std::size_t row, QuoteArrays& rows);

// The form in which a user's own source sends its lines, as the settings describe it.
struct UserQuoteForm {
    char separator = '\t';
    std::string dateForm;
    // The field of each piece of a line; null for one that is skipped. Ends at the first empty name.
    std::vector<const QuoteField*> fields;
};

UserQuoteForm UserQuoteFormOf(const SettingsTables& settings);

// Takes a line of a user's source, split at every separator. Text fields lose their first and last character,
// the quotes; the trade date takes its final form. False, with nothing changed, for a line that has fewer
// pieces than the form, and for a form without fields.
bool TakeUserLine(std::string_view line, const UserQuoteForm& form, std::size_t row, QuoteArrays& rows);

}  // namespace brantlow
