// The two kinds of line in the program's own text files, shared by readers and writers.
//
// A written line holds delimited values: text in double quotes ("Manually", "" when empty), a number bare
// (10), a date between number signs in ISO order (#2004-01-02#); several values of one record stand behind
// one another with commas. A printed line holds raw text. Every line ends with CR LF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"

namespace brantlow {

inline constexpr std::string_view kLineEnd = "\r\n";

// One value with the type that its written form has, so that a file rewritten keeps its types.
class Value {
  public:
    enum class Kind { Text, Number, Day };

    Value() = default;
    // Text; double quotes and line ends, which a written line cannot hold, are left out.
    static Value OfText(std::string_view text);
    static Value OfNumber(double number);
    static Value OfDate(const Date& date);
    // Raw text of a whole line, quotes and commas included.
    static Value OfRawLine(std::string_view line);
    // Reads one written value: `field` is a line, or one field of a record.
    static Value Parse(std::string_view field);

    Kind ValueKind() const { return kind_; }
    // The text without its quotes, the number as it stands in the file, the date as yyyy-mm-dd.
    const std::string& Text() const { return text_; }
    // The form in a written line, without the line end.
    std::string Written() const;

    bool operator==(const Value&) const = default;

  private:
    Value(Kind kind, std::string text) : kind_(kind), text_(std::move(text)) {}

    Kind kind_ = Kind::Text;
    std::string text_;
};

// The comma-separated values of a record; a comma between double quotes belongs to its value.
std::vector<Value> ParseRecord(std::string_view line);

}  // namespace brantlow
