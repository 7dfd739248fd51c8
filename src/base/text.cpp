#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace brantlow {

namespace {

// A blank, a tab or one of the line ends that stand between it and CR in ASCII: LF, VT, FF.
bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Code points of the Windows-1252 bytes 0x80 to 0x9F; the five unassigned ones keep their own number.
constexpr std::array<std::uint16_t, 32> kWindows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, std::uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0U | (code >> 6U));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    } else {
        out += static_cast<char>(0xE0U | (code >> 12U));
        out += static_cast<char>(0x80U | ((code >> 6U) & 0x3FU));
        out += static_cast<char>(0x80U | (code & 0x3FU));
    }
}

// Length of the valid UTF-8 sequence at the front of `text`, 0 when there is none (overlong forms,
// surrogates and code points above U+10FFFF are not valid).
std::size_t SequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return 0;
    }
    const unsigned second = byte(1);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F)) return 0;
    if ((lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F)) return 0;
    return length;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = SequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace

std::vector<std::string_view> SplitAt(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    for (std::size_t end = text.find(separator); end != std::string_view::npos;
         end = text.find(separator, start)) {
        pieces.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    pieces.push_back(text.substr(start));
    return pieces;
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::size_t LineCount(std::string_view text) {
    std::size_t ends = 0;
    // As many bytes as a byte can count, so that a register counts for each of its bytes.
    constexpr std::size_t kBytesAtOnce = 255;
    for (std::size_t at = 0; at < text.size(); at += kBytesAtOnce) {
        std::uint8_t found = 0;
        for (const char c : text.substr(at, kBytesAtOnce))
            found = static_cast<std::uint8_t>(found + (c == '\n'));
        ends += found;
    }
    return ends + (text.empty() || text.back() == '\n' ? 0 : 1);
}

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = UpperAscii(c);
    return upper;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (UpperAscii(a[i]) != UpperAscii(b[i])) return false;
    }
    return true;
}

std::string DisplayUtf8(std::string_view text) {
    if (IsUtf8(text)) return std::string(text);
    std::string out;
    out.reserve(text.size() + text.size() / 4);
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(out, byte >= 0x80 && byte < 0xA0 ? kWindows1252High[byte - 0x80U] : byte);
    }
    return out;
}

bool LineReader::Next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t end = rest_.find('\n');
    line = rest_.substr(0, end);
    if (end == std::string_view::npos) {
        rest_ = {};
    } else {
        rest_.remove_prefix(end + 1);
    }
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return true;
}

}  // namespace brantlow
