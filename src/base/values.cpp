#include "base/values.h"

#include <algorithm>
#include <iterator>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

// What a written line cannot hold within its quotes.
bool IsUnwritable(char c) {
    return c == '"' || c == '\r' || c == '\n';
}

// The text of a field that begins with a quote.
std::string_view InsideQuotes(std::string_view field) {
    field.remove_prefix(1);
    return field.substr(0, field.find('"'));
}

}  // namespace

Value Value::OfText(std::string_view text) {
    std::string kept(text);
    std::erase_if(kept, IsUnwritable);
    return {Kind::Text, std::move(kept)};
}

Value Value::OfNumber(double number) {
    return {Kind::Number, ShortestNumber(number)};
}

Value Value::OfDate(const brantlow::Date& date) {
    return {Kind::Day, FormatIsoDate(date)};
}

Value Value::OfRawLine(std::string_view line) {
    return {Kind::Text, std::string(line)};
}

Value Value::Parse(std::string_view field) {
    field = Trim(field);
    if (field.empty()) return {};
    if (field.front() == '"') return OfText(InsideQuotes(field));
    if (field.front() == '#' && field.size() > 2 && field.back() == '#') {
        const std::string_view inner = field.substr(1, field.size() - 2);
        if (const auto date = ParseDate(inner)) return OfDate(*date);
        return {Kind::Text, std::string(field)};
    }
    return {WholeNumber(field) ? Kind::Number : Kind::Text, std::string(field)};
}

std::string Value::Written() const {
    switch (kind_) {
        case Kind::Number:
            return text_;
        case Kind::Day:
            return "#" + text_ + "#";
        case Kind::Text:
            break;
    }
    std::string written;
    AppendQuoted(text_, written);
    return written;
}

bool RecordReader::Next(std::string_view& field) {
    if (atEnd_) return false;
    std::size_t end = 0;
    bool quoted = false;
    while (end < rest_.size() && (quoted || rest_[end] != ',')) {
        if (rest_[end] == '"') quoted = !quoted;
        ++end;
    }
    field = rest_.substr(0, end);
    atEnd_ = end == rest_.size();
    if (!atEnd_) rest_.remove_prefix(end + 1);
    return true;
}

std::vector<Value> ParseRecord(std::string_view line) {
    std::vector<Value> values;
    RecordReader reader(line);
    std::string_view field;
    while (reader.Next(field)) values.push_back(Value::Parse(field));
    return values;
}

void TakeValueText(std::string_view field, std::string& text) {
    field = Trim(field);
    if (field.starts_with('#')) {
        text = Value::Parse(field).Text();
    } else {
        text = field.starts_with('"') ? InsideQuotes(field) : field;
    }
}

void AppendQuoted(std::string_view text, std::string& out) {
    out += '"';
    if (std::none_of(text.begin(), text.end(), IsUnwritable)) {
        out += text;
    } else {
        std::remove_copy_if(text.begin(), text.end(), std::back_inserter(out), IsUnwritable);
    }
    out += '"';
}

}  // namespace brantlow
