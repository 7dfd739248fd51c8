// One line of JSON, written as it goes. Numbers take the shortest form that reads back to the same double;
// text is decoded for display first, so that a line is always valid UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "indicators/number_series.h"

namespace brantlow {

class JsonLine {
  public:
    void BeginObject() { Open('{'); }
    void EndObject() { Close('}'); }
    void BeginArray() { Open('['); }
    void EndArray() { Close(']'); }
    // The name of the value that follows.
    void Key(std::string_view name);
    void Number(double value);
    void Text(std::string_view text);
    void Null();
    // An element of a series: null where nothing was ever written, "" where a number was emptied.
    void Element(ElementState state, double value);
    // Elements 1 to `count`.
    void Elements(const NumberSeries& series, std::size_t count);
    void Elements(const TextSeries& series, std::size_t count);

    // The text so far, without a line end.
    const std::string& Line() const { return line_; }

  private:
    void Open(char bracket);
    void Close(char bracket);
    void Separate();

    std::string line_;
    bool first_ = true;  // no comma before the next value
};

}  // namespace brantlow
