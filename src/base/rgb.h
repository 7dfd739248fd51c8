// A colour as red, green and blue, for whatever the program draws: cells of the quote table, lines of a
// chart.
#pragma once

namespace brantlow {

struct Rgb {
    unsigned char red = 0;
    unsigned char green = 0;
    unsigned char blue = 0;
    bool operator==(const Rgb&) const = default;
};

inline constexpr Rgb kBlack = {0, 0, 0};

}  // namespace brantlow
