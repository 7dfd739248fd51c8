#include "chart/round_scale.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace brantlow {

namespace {

constexpr double kTen = 10;

// The smallest step of 1, 2 or 5 times a power of ten that is at least `step`.
double RoundStep(double step) {
    const double power = std::pow(kTen, std::floor(std::log10(step)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        // What floating point adds to a step that is round already is no reason for the next one.
        if (power * factor >= step * (1 - 1e-9)) return power * factor;
    }
    return power * kTen;
}

int DecimalsOf(double step) {
    constexpr int kMostDecimals = 10;
    return std::clamp(static_cast<int>(-std::floor(std::log10(step) + 1e-9)), 0, kMostDecimals);
}

// A factor and its letter.
struct Unit {
    double factor;
    std::string_view letter;
};
constexpr std::array kUnits = {Unit{1e12, "T"}, Unit{1e9, "B"}, Unit{1e6, "M"}, Unit{1e3, "K"}, Unit{1, ""}};

// Three digits that count, without zeros at the end of the decimals.
std::string ThreeDigits(double value) {
    constexpr double kHundred = 100;
    const int decimals = value >= kHundred ? 0 : value >= kTen ? 1 : 2;
    std::string text = fmt::format("{:.{}f}", value, decimals);
    if (decimals > 0) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text;
}

}  // namespace

std::vector<RoundLevel> RoundLevels(double bottom, double top, std::size_t most) {
    std::vector<RoundLevel> levels;
    const double range = top - bottom;
    if (!std::isfinite(range) || range <= 0 || most == 0) return levels;
    const double step = RoundStep(range / static_cast<double>(most));
    const int decimals = DecimalsOf(step);
    const double first = std::ceil(bottom / step - 1e-9);
    for (std::size_t i = 0; i < most; ++i) {
        // Zero has no sign.
        const double value = (first + static_cast<double>(i)) * step + 0.0;
        if (!(value <= top + step * 1e-9)) break;
        levels.push_back({value, fmt::format("{:.{}f}", value, decimals)});
    }
    return levels;
}

std::string ShortNumber(double value) {
    if (!std::isfinite(value)) return "-";
    const std::string_view sign = value < 0 ? "-" : "";
    const double size = std::fabs(value);
    // 999,600 is 1M and not 1000K.
    constexpr double kRoundsUp = 0.9995;
    for (const Unit& unit : kUnits) {
        if (size >= unit.factor * kRoundsUp || unit.factor == 1)
            return fmt::format("{}{}{}", sign, ThreeDigits(size / unit.factor), unit.letter);
    }
    return {};
}

std::string GroupedNumber(double value) {
    if (!std::isfinite(value)) return "-";
    constexpr std::size_t kGroup = 3;
    std::string digits = fmt::format("{:.0f}", std::fabs(value));
    for (std::size_t at = digits.size(); at > kGroup;) {
        at -= kGroup;
        digits.insert(at, 1, ',');
    }
    return value <= -0.5 ? "-" + digits : digits;
}

}  // namespace brantlow
