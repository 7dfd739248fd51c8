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

// The comma-separated values of a record, one after another as they are written; a comma between double
// quotes belongs to its value. An empty line holds one empty value.
class RecordReader {
  public:
    explicit RecordReader(std::string_view line) : rest_(line) {}

    // False behind the last value, with `field` untouched. The field lives as long as the line.
    bool Next(std::string_view& field);

  private:
    std::string_view rest_;
    bool atEnd_ = false;
};

// The values of a record.
std::vector<Value> ParseRecord(std::string_view line);

// Value::Parse(field).Text() into `text`, for readers of many records that keep their texts.
void TakeValueText(std::string_view field, std::string& text);

// Adds `text` in its written form, Value::OfText(text).Written(), to `out`.
void AppendQuoted(std::string_view text, std::string& out);

}  // namespace brantlow
