#include "base/values.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

Value Value::OfText(std::string_view text) {
    std::string kept(text);
    std::erase_if(kept, [](char c) { return c == '"' || c == '\r' || c == '\n'; });
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
    if (field.front() == '"') {
        field.remove_prefix(1);
        return {Kind::Text, std::string(field.substr(0, field.find('"')))};
    }
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
    return "\"" + OfText(text_).text_ + "\"";
}

std::vector<Value> ParseRecord(std::string_view line) {
    std::vector<Value> values;
    for (;;) {
        std::size_t end = 0;
        bool quoted = false;
        while (end < line.size() && (quoted || line[end] != ',')) {
            if (line[end] == '"') quoted = !quoted;
            ++end;
        }
        values.push_back(Value::Parse(line.substr(0, end)));
        if (end == line.size()) return values;
        line.remove_prefix(end + 1);
    }
}

}  // namespace brantlow
