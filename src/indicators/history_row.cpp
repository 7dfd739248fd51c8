#include "indicators/history_row.h"

#include <algorithm>
#include <cstring>

#include "base/numbers.h"
#include "base/plain_number.h"

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

const char* FindComma(const char* text, const char* end) {
    const void* comma = std::memchr(text, ',', static_cast<std::size_t>(end - text));
    return comma == nullptr ? end : static_cast<const char*>(comma);
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
    double value = 0;
    const char* const at = ReadPlainNumber(text, end, value);
    if (at != nullptr && (at == end || *at == ',')) {
        text = at;
        return value;
    }
    text = FindComma(start, end);
    return LeadingNumber(std::string_view(start, static_cast<std::size_t>(text - start)));
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

void ReadNumberFields(std::string_view line, std::span<const NumberSlot> slots,
                      std::array<double, kNumberFields.size()>& numbers) {
    const char* text = line.data();
    const char* const end = text + line.size();
    std::size_t field = 0;
    for (const NumberSlot slot : slots) {
        for (; field < kNumberFields[slot].field && text != end; ++text) field += *text == ',' ? 1 : 0;
        numbers[slot] = ReadNumberField(text, end);
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
