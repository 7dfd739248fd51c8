#include "indicators/record_days.h"

#include <cstring>

namespace brantlow {

namespace {

constexpr std::size_t kShortForm = 8;  // mm/dd/yy
constexpr int kFirstYearOfLastCentury = 30;

// The number of two digits, or a negative one.
int TwoDigits(const char* text) {
    const auto digit = [](char c) { return static_cast<unsigned>(static_cast<unsigned char>(c)) - '0'; };
    const unsigned tens = digit(text[0]);
    const unsigned ones = digit(text[1]);
    return tens > 9 || ones > 9 ? -1 : static_cast<int>(tens * 10 + ones);
}

// The form in which the database is written, by a shorter road than that of all forms.
std::optional<Date> ShortFormDay(std::string_view field) {
    if (field.size() != kShortForm || field[2] != '/' || field[5] != '/') return std::nullopt;
    const int month = TwoDigits(field.data());
    const int day = TwoDigits(field.data() + 3);
    const int year = TwoDigits(field.data() + 6);
    if (month < 0 || day < 0 || year < 0) return std::nullopt;
    const Date date{std::chrono::year{year + (year < kFirstYearOfLastCentury ? 2000 : 1900)},
                    std::chrono::month{static_cast<unsigned>(month)},
                    std::chrono::day{static_cast<unsigned>(day)}};
    return date.ok() ? std::optional(date) : std::nullopt;
}

std::size_t PlaceIn(const std::string& text, const void* found) {
    return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

}  // namespace

std::optional<Date> DayOfField(std::string_view field) {
    const std::optional<Date> day = ShortFormDay(field);
    return day ? day : ParseDate(field);
}

std::optional<Date> RecordDay(std::string_view line) {
    const std::string_view field = line.substr(0, line.find(','));
    return field.size() < 2 ? std::nullopt : DayOfField(field.substr(1, field.size() - 2));
}

void DropRecordsAfter(const Date& last, std::string& text, std::size_t from, std::size_t& to) {
    std::size_t kept = from;
    bool keep = true;
    for (std::size_t at = from; at < to;) {
        const void* const lineEnd = std::memchr(text.data() + at, '\n', to - at);
        const std::size_t next = lineEnd == nullptr ? to : PlaceIn(text, lineEnd) + 1;
        const std::optional<Date> day = RecordDay(std::string_view(text).substr(at, next - at));
        if (day) keep = *day <= last;
        if (keep) {
            std::memmove(text.data() + kept, text.data() + at, next - at);
            kept += next - at;
        }
        at = next;
    }
    to = kept;
}

}  // namespace brantlow
