#include "batch/json_line.h"

#include <nlohmann/json.hpp>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

void JsonLine::Separate() {
    if (!first_) line_ += ',';
    first_ = false;
}

void JsonLine::Open(char bracket) {
    Separate();
    line_ += bracket;
    first_ = true;
}

void JsonLine::Close(char bracket) {
    line_ += bracket;
    first_ = false;
}

void JsonLine::Key(std::string_view name) {
    Text(name);
    line_ += ':';
    first_ = true;
}

void JsonLine::Number(double value) {
    Separate();
    line_ += ShortestNumber(value);
}

void JsonLine::Text(std::string_view text) {
    Separate();
    line_ += nlohmann::json(DisplayUtf8(text)).dump();
}

void JsonLine::Null() {
    Separate();
    line_ += "null";
}

void JsonLine::Element(ElementState state, double value) {
    switch (state) {
        case ElementState::NeverWritten:
            return Null();
        case ElementState::Emptied:
            return Text({});
        case ElementState::Written:
            return Number(value);
    }
}

void JsonLine::Elements(const NumberSeries& series, std::size_t count) {
    BeginArray();
    for (std::size_t i = 1; i <= count; ++i) Element(series.State(i), series[i]);
    EndArray();
}

void JsonLine::Elements(const TextSeries& series, std::size_t count) {
    BeginArray();
    for (std::size_t i = 1; i <= count; ++i) {
        if (series.State(i) == ElementState::NeverWritten) {
            Null();
        } else {
            Text(series[i]);
        }
    }
    EndArray();
}

}  // namespace brantlow
