#include "store/history_record.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/values.h"

namespace brantlow {

namespace {

using TextMember = std::string HistoryRecord::*;
using NumberMember = double HistoryRecord::*;

// Where a field lives in the record: one of the two is set.
struct FieldPlace {
    TextMember text;
    NumberMember number;

    constexpr FieldPlace(TextMember member) : text(member), number(nullptr) {}
    constexpr FieldPlace(NumberMember member) : text(nullptr), number(member) {}
};

constexpr std::array<FieldPlace, kHistoryFieldCount> kFieldPlaces = {&HistoryRecord::HistoryDate,
                                                                     &HistoryRecord::HistoryTime,
                                                                     &HistoryRecord::HistoryClose,
                                                                     &HistoryRecord::HistoryLow,
                                                                     &HistoryRecord::HistoryHigh,
                                                                     &HistoryRecord::HistoryVolume,
                                                                     &HistoryRecord::HistoryPE,
                                                                     &HistoryRecord::HistoryEPS,
                                                                     &HistoryRecord::HistoryPEG,
                                                                     &HistoryRecord::HistoryEPSest,
                                                                     &HistoryRecord::HistoryDividend,
                                                                     &HistoryRecord::HistoryDividendDate,
                                                                     &HistoryRecord::HistoryXDividendDate,
                                                                     &HistoryRecord::HistoryPreviousClose,
                                                                     &HistoryRecord::History52WeekLow,
                                                                     &HistoryRecord::History52WeekHigh,
                                                                     &HistoryRecord::HistoryPS,
                                                                     &HistoryRecord::HistoryMarketCap,
                                                                     &HistoryRecord::HistoryOpen};

constexpr int kDecimals = 3;

std::string_view WithoutEnds(std::string_view text) {
    return text.size() < 2 ? std::string_view{} : text.substr(1, text.size() - 2);
}

// Takes the text up to the next comma from the front of `rest`.
std::string_view NextField(std::string_view& rest) {
    const std::string_view field = rest.substr(0, rest.find(','));
    rest.remove_prefix(std::min(field.size() + 1, rest.size()));
    return field;
}

double RoundedTo(HistoryForm form, double value) {
    if (form == HistoryForm::ThreeDecimals) return RoundDecimals(value, kDecimals);
    return form == HistoryForm::Whole ? RoundDecimals(value, 0) : value;
}

}  // namespace

HistoryRecord ParseHistoryLine(std::string_view line) {
    HistoryRecord record;
    for (const FieldPlace& place : kFieldPlaces) {
        const std::string_view field = NextField(line);
        if (place.text) {
            record.*place.text = WithoutEnds(field);
        } else {
            record.*place.number = LeadingNumber(field);
        }
    }
    return record;
}

void RoundHistoryRecord(HistoryRecord& record) {
    for (std::size_t i = 0; i < kHistoryFieldCount; ++i) {
        if (kFieldPlaces[i].text) continue;
        double& number = record.*kFieldPlaces[i].number;
        number = RoundedTo(kHistoryForms[i], number);
    }
}

void AppendHistoryLine(const HistoryRecord& record, std::string& out) {
    for (std::size_t i = 0; i < kHistoryFieldCount; ++i) {
        if (i > 0) out += ',';
        if (kFieldPlaces[i].text) {
            AppendQuoted(record.*kFieldPlaces[i].text, out);
        } else {
            AppendShortestNumber(record.*kFieldPlaces[i].number, out);
        }
    }
    out += kLineEnd;
}

std::string_view YearDigits(std::string_view tradeDate) {
    constexpr std::size_t kDigits = 2;
    return tradeDate.substr(tradeDate.size() - std::min(kDigits, tradeDate.size()));
}

}  // namespace brantlow
