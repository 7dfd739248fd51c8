// A record of Import.Txt, the work file between an end-of-day update and the quote database: one accepted
// quote as a line of 26 comma-separated values, text in double quotes, numbers bare, lines ended by CR LF.
//
// The update writes it in the application folder and the end-of-day import reads it. A user's import file of
// the same name lies in the import folder and is another file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/files.h"
#include "store/quote_rows.h"

namespace brantlow {

// Import.Txt in the application folder.
Path ImportRecordFile(const Path& appPath);

inline constexpr std::size_t kImportFieldCount = 26;

// Adds the record of row `row`, for which room was made, with its line end. Prices and ratios keep three
// decimals; what is no number is written as 0; the ticker is written in capitals.
void AppendImportRecord(const QuoteArrays& rows, std::size_t row, std::string& out);

// Takes the values of a line into row `row`, for which room was made. Missing values leave their arrays as
// they are, further ones are ignored.
void TakeImportRecord(std::string_view line, std::size_t row, QuoteArrays& rows);

}  // namespace brantlow
