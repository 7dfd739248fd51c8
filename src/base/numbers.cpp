#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "base/plain_number.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr int kGeneralFormDigits = 15;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Length of the number at the front of `text` (no leading blanks), 0 when there is none.
std::size_t NumberLength(std::string_view text) {
    std::size_t i = 0;
    const auto at = [&](std::size_t k) { return k < text.size() ? text[k] : '\0'; };
    if (at(i) == '+' || at(i) == '-') ++i;
    const std::size_t digitsStart = i;
    while (IsDigit(at(i))) ++i;
    std::size_t digits = i - digitsStart;
    if (at(i) == '.') {
        const std::size_t fraction = i + 1;
        std::size_t end = fraction;
        while (IsDigit(at(end))) ++end;
        digits += end - fraction;
        if (digits > 0) i = end;
    }
    if (digits == 0) return 0;
    if (at(i) == 'e' || at(i) == 'E') {
        std::size_t end = i + 1;
        if (at(end) == '+' || at(end) == '-') ++end;
        if (IsDigit(at(end))) {
            while (IsDigit(at(end))) ++end;
            i = end;
        }
    }
    return i;
}

double Convert(std::string_view number) {
    if (!number.empty() && number.front() == '+') number.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    return result.ec == std::errc() ? value : 0;
}

// A finite value as its shortest decimal digits: 0.DIGITS times ten to the power `point`.
struct Decimal {
    bool negative = false;
    std::string digits;  // no leading zero unless the value is 0
    int point = 0;
};

Decimal ToDecimal(double value) {
    Decimal decimal;
    decimal.negative = std::signbit(value);
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific).ptr;
    const std::string_view text(buffer, static_cast<std::size_t>(end - buffer));
    const std::size_t e = text.find('e');
    for (const char c : text.substr(0, e)) {
        if (c != '.') decimal.digits += c;
    }
    std::string_view exponent = text.substr(e + 1);
    if (exponent.front() == '+') exponent.remove_prefix(1);
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.point);
    ++decimal.point;
    if (decimal.digits == "0") decimal = Decimal{false, "0", 1};
    return decimal;
}

// Half away from zero at `decimals` places behind the point.
void RoundAt(Decimal& decimal, int decimals) {
    const int keep = decimal.point + decimals;
    if (keep < 0) {
        decimal = Decimal{false, "0", 1};
        return;
    }
    const auto kept = static_cast<std::size_t>(keep);
    if (kept >= decimal.digits.size()) return;
    const bool up = decimal.digits[kept] >= '5';
    decimal.digits.resize(kept);
    if (up) {
        std::size_t i = kept;
        while (i > 0 && decimal.digits[i - 1] == '9') decimal.digits[--i] = '0';
        if (i > 0) {
            ++decimal.digits[i - 1];
        } else {
            decimal.digits.insert(decimal.digits.begin(), '1');
            ++decimal.point;
        }
    }
    if (decimal.digits.find_first_not_of('0') == std::string::npos) decimal = Decimal{false, "0", 1};
}

std::string WholeDigits(const Decimal& decimal) {
    if (decimal.point <= 0) return {};
    const auto count = static_cast<std::size_t>(decimal.point);
    std::string whole = decimal.digits.substr(0, count);
    whole.append(count - whole.size(), '0');
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    return whole;
}

std::string FractionDigits(const Decimal& decimal) {
    const std::size_t zeros = decimal.point < 0 ? static_cast<std::size_t>(-decimal.point) : 0;
    const std::size_t start = decimal.point > 0 ? static_cast<std::size_t>(decimal.point) : 0;
    std::string fraction(zeros, '0');
    if (start < decimal.digits.size()) fraction += decimal.digits.substr(start);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return fraction;
}

struct Picture {
    std::string_view prefix;
    std::size_t wholeZeros = 0;
    std::size_t fractionZeros = 0;
    std::size_t fractionPlaces = 0;
};

Picture ParsePicture(std::string_view text) {
    Picture picture;
    std::size_t at = 0;
    while (at < text.size() && text[at] != '0' && text[at] != '#' && text[at] != '.') ++at;
    picture.prefix = text.substr(0, at);
    for (; at < text.size() && text[at] != '.'; ++at) picture.wholeZeros += text[at] == '0' ? 1U : 0U;
    if (at == text.size()) return picture;
    picture.fractionPlaces = text.size() - at - 1;
    for (++at; at < text.size(); ++at) picture.fractionZeros += text[at] == '0' ? 1U : 0U;
    return picture;
}

constexpr std::array<double, 7> kPowersOfTen = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};

// A number of at most fifteen digits, `places` of them behind the point, without its point.
struct Scaled {
    double whole = 0;
    std::size_t places = 0;

    // The double that the number reads as.
    double Value() const { return whole / kPowersOfTen[places]; }
};

// `value` with so many decimals where that takes no look at its digits; the others take the long road. It
// takes none where a number so short reads as the value, as most prices do: no other one of fifteen digits
// does. And none where what is cut off is far from a half, measured by what the product may be wrong by.
std::optional<Scaled> ScaledTo(double value, std::size_t places) {
    constexpr double kFifteenDigits = 1e15;
    constexpr double kSafeSize = 1e11;
    constexpr double kSafeRest = 0.499;
    if (places >= kPowersOfTen.size()) return std::nullopt;
    const double product = value * kPowersOfTen[places];
    const Scaled scaled{std::nearbyint(product), places};
    if (std::abs(scaled.whole) < kFifteenDigits && scaled.Value() == value) return scaled;
    if (std::abs(product) < kSafeSize && std::abs(product - scaled.whole) < kSafeRest) return scaled;
    return std::nullopt;
}

char DigitOf(std::uint64_t value) {
    return static_cast<char>('0' + value);
}

// Adds the number's digits to `out`, at least so many before and behind the point, after the minus sign and
// `prefix`. The form asks for no more places than the number has.
void AppendScaled(const Scaled& scaled, const Picture& form, std::string& out) {
    constexpr std::uint64_t kTen = 10;
    constexpr std::size_t kMostDigits = 24;
    std::array<char, kMostDigits> buffer;
    char* const end = buffer.data() + buffer.size();
    auto digits = static_cast<std::uint64_t>(std::abs(scaled.whole));
    std::size_t places = scaled.places;
    for (; places > form.fractionZeros && digits % kTen == 0; digits /= kTen) --places;

    char* begin = end;
    for (std::size_t i = 0; i < places; ++i, digits /= kTen) *--begin = DigitOf(digits % kTen);
    if (places > 0) *--begin = '.';
    const char* const point = begin;
    for (; digits != 0; digits /= kTen) *--begin = DigitOf(digits % kTen);
    const auto wholeSize = static_cast<std::size_t>(point - begin);

    if (scaled.whole < 0) out += '-';
    out += form.prefix;
    if (form.wholeZeros > wholeSize) out.append(form.wholeZeros - wholeSize, '0');
    out.append(begin, end);
}

}  // namespace

double LeadingNumber(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    double value = 0;
    const char* const end = text.data() + text.size();
    const char* const behind = ReadPlainNumber(text.data(), end, value);
    const bool isPlain = behind != nullptr && (behind == end || (*behind != 'e' && *behind != 'E'));
    return isPlain ? value : Convert(text.substr(0, NumberLength(text)));
}

std::optional<double> WholeNumber(std::string_view text) {
    text = Trim(text);
    double value = 0;
    const char* const end = text.data() + text.size();
    if (ReadPlainNumber(text.data(), end, value) == end && !text.empty()) return value;
    if (text.empty() || NumberLength(text) != text.size()) return std::nullopt;
    return Convert(text);
}

std::string ShortestNumber(double value) {
    std::string text;
    AppendShortestNumber(value, text);
    return text;
}

void AppendShortestNumber(double value, std::string& out) {
    constexpr double kPlainLow = 1e-5;
    constexpr double kPlainHigh = 1e16;
    constexpr std::size_t kMostPlaces = 3;
    constexpr Picture kPlain{
        .prefix = {}, .wholeZeros = 1, .fractionZeros = 0, .fractionPlaces = kMostPlaces};
    if (!std::isfinite(value)) value = 0;
    const auto scaled = ScaledTo(value, kMostPlaces);
    if (scaled && scaled->Value() == value) return AppendScaled(*scaled, kPlain, out);
    const double size = std::fabs(value);
    char buffer[64];
    const auto end = size >= kPlainLow && size < kPlainHigh
                         ? std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr
                         : std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    out.append(buffer, end);
}

std::string FormatPicture(std::string_view text, double value) {
    const Picture picture = ParsePicture(text);
    std::string out;
    if (const auto scaled = ScaledTo(value, picture.fractionPlaces)) {
        AppendScaled(*scaled, picture, out);
        return out;
    }
    Decimal decimal = ToDecimal(std::isfinite(value) ? value : 0);
    RoundAt(decimal, static_cast<int>(picture.fractionPlaces));
    std::string whole = WholeDigits(decimal);
    if (whole.size() < picture.wholeZeros) whole.insert(0, picture.wholeZeros - whole.size(), '0');
    std::string fraction = FractionDigits(decimal);
    if (fraction.size() < picture.fractionZeros) {
        fraction.append(picture.fractionZeros - fraction.size(), '0');
    }
    if (decimal.negative) out += '-';
    out.append(picture.prefix).append(whole);
    if (!fraction.empty()) out.append(1, '.').append(fraction);
    return out;
}

std::string FormatPictureText(std::string_view picture, std::string_view text) {
    const std::optional<double> value = WholeNumber(text);
    return value ? FormatPicture(picture, *value) : std::string(text);
}

double RoundDecimals(double value, int decimals) {
    if (!std::isfinite(value)) return 0;
    if (decimals >= 0) {
        // Adding 0 takes the sign from a zero that a small negative value is rounded to.
        if (const auto scaled = ScaledTo(value, static_cast<std::size_t>(decimals)))
            return scaled->Value() + 0.0;
    }
    Decimal decimal = ToDecimal(value);
    RoundAt(decimal, decimals);
    const std::string text =
        (decimal.negative ? "-0." : "0.") + decimal.digits + "e" + std::to_string(decimal.point);
    return Convert(text);
}

double RoundToGeneralForm(double value) {
    char buffer[64];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, kGeneralFormDigits)
            .ptr;
    return Convert(std::string_view(buffer, static_cast<std::size_t>(end - buffer)));
}

std::optional<double> Divide(double a, double b) {
    if (b == 0) return std::nullopt;
    const double quotient = a / b;
    if (!std::isfinite(quotient)) return std::nullopt;
    return quotient;
}

}  // namespace brantlow
