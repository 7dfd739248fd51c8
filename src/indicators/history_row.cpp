#include "indicators/history_row.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/numbers.h"

namespace brantlow {

namespace {

constexpr std::size_t kNoSlot = kHistoryFieldCount;

struct FieldPlace {
    bool isText = false;
    std::size_t slot = kNoSlot;
};

constexpr std::array<FieldPlace, kHistoryFieldCount> PlacesOfFields() {
    std::array<FieldPlace, kHistoryFieldCount> places{};
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot) {
        places[kNumberFields[slot].field] = {false, slot};
    }
    for (std::size_t slot = 0; slot < kTextFields.size(); ++slot) {
        places[kTextFields[slot].field] = {true, slot};
    }
    return places;
}

constexpr std::array<FieldPlace, kHistoryFieldCount> kPlaces = PlacesOfFields();

constexpr bool AgreesWithTheWrittenForm() {
    for (std::size_t field = 0; field < kHistoryFieldCount; ++field) {
        if (kPlaces[field].slot == kNoSlot) return false;
        if (kPlaces[field].isText != (kHistoryForms[field] == HistoryForm::Text)) return false;
    }
    return true;
}
static_assert(AgreesWithTheWrittenForm());

// Both factors of digits / 10^n are exact doubles up to these bounds, so the one division rounds correctly.
constexpr std::uint64_t kLargestExactWhole = std::uint64_t{1} << 53U;
constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// No whole number of so many digits overflows 64 bits.
constexpr std::ptrdiff_t kMostPlainDigits = 19;

const char* FindComma(const char* text, const char* end) {
    const void* comma = std::memchr(text, ',', static_cast<std::size_t>(end - text));
    return comma == nullptr ? end : static_cast<const char*>(comma);
}

unsigned DigitAt(const char* text) {
    return static_cast<unsigned>(static_cast<unsigned char>(*text)) - '0';
}

const char* ReadDigits(const char* text, const char* end, std::uint64_t& whole) {
    for (; text != end; ++text) {
        const unsigned digit = DigitAt(text);
        if (digit > 9) break;
        whole = whole * 10 + digit;
    }
    return text;
}

std::string_view ReadTextField(const char*& text, const char* end) {
    // Quoted dates and times are short: a plain loop meets the comma sooner than a call.
    const char* const start = text;
    while (text != end && *text != ',') ++text;
    const auto length = static_cast<std::size_t>(text - start);
    return length < 2 ? std::string_view() : std::string_view(start + 1, length - 2);
}

}  // namespace

double ReadNumberField(const char*& text, const char* end) {
    const char* const start = text;
    const bool negative = start != end && *start == '-';
    const char* const digits = start + (negative ? 1 : 0);
    std::uint64_t whole = 0;
    const char* at = ReadDigits(digits, end, whole);
    std::ptrdiff_t count = at - digits;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == '.') {
        const char* const fraction = at + 1;
        at = ReadDigits(fraction, end, whole);
        decimals = at - fraction;
        count += decimals;
    }
    const bool plain =
        (at == end || *at == ',') && count > 0 && count <= kMostPlainDigits && whole <= kLargestExactWhole;
    if (!plain) {
        text = FindComma(at, end);
        return LeadingNumber(std::string_view(start, static_cast<std::size_t>(text - start)));
    }
    text = at;
    const double value = static_cast<double>(whole) / kPowersOfTen[static_cast<std::size_t>(decimals)];
    return negative ? -value : value;
}

void ParseHistoryRow(std::string_view line, HistoryRow& row) {
    const char* text = line.data();
    const char* const end = text + line.size();
    row.fields = 0;
    for (const FieldPlace& place : kPlaces) {
        if (place.isText) {
            row.texts[place.slot] = ReadTextField(text, end);
        } else {
            row.numbers[place.slot] = ReadNumberField(text, end);
        }
        ++row.fields;
        if (text == end) return;
        ++text;
    }
}

void StoreHistoryRow(const HistoryRow& row, std::size_t i, WorkingSeries& series) {
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot) {
        const NumberField& field = kNumberFields[slot];
        if (field.field < row.fields) (series.*field.series).Set(i, row.numbers[slot]);
    }
    for (std::size_t slot = 0; slot < kTextFields.size(); ++slot) {
        const TextField& field = kTextFields[slot];
        if (field.field < row.fields) (series.*field.series).Set(i, row.texts[slot]);
    }
}

}  // namespace brantlow
