// A text made of a piece many times over.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace brantlow {

inline std::string Repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

}  // namespace brantlow
