#include "acquire/feeds/live/address_template.h"

#include <fmt/format.h>

#include <array>
#include <optional>

#include "base/dates.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

std::string IsoDay(sys_days day) {
    return FormatIsoDate(Date{day});
}

std::string UnixDay(sys_days day) {
    return std::to_string(std::chrono::sys_seconds{day}.time_since_epoch().count());
}

std::string UtcDay(sys_days day) {
    return IsoDay(day) + "T00:00:00Z";
}

struct DayName {
    std::string_view name;
    sys_days (*day)(const AddressValues&);
};

constexpr std::array<DayName, 4> kDays = {{
    {"from", [](const AddressValues& values) { return values.from; }},
    {"to", [](const AddressValues& values) { return values.to; }},
    {"before", [](const AddressValues& values) { return values.from - days{1}; }},
    {"after", [](const AddressValues& values) { return values.to + days{1}; }},
}};

struct DayForm {
    std::string_view ending;
    std::string (*text)(sys_days);
};

constexpr std::array<DayForm, 3> kForms = {{{"", IsoDay}, {":unix", UnixDay}, {":utc", UtcDay}}};

std::optional<std::string> ValueOf(std::string_view placeholder, const AddressValues& values) {
    if (placeholder == "symbol" || placeholder == "symbols") return PercentEncoded(values.symbols);
    for (const DayName& day : kDays) {
        if (!placeholder.starts_with(day.name)) continue;
        for (const DayForm& form : kForms) {
            if (placeholder.substr(day.name.size()) == form.ending) return form.text(day.day(values));
        }
    }
    return std::nullopt;
}

// Where path, query or end begin behind scheme and host.
std::size_t EndOfHost(std::string_view address) {
    const std::size_t scheme = address.find("://");
    if (scheme == std::string_view::npos) return 0;
    return std::min(address.find_first_of("/?#", scheme + 3), address.size());
}

}  // namespace

std::string PercentEncoded(std::string_view text) {
    constexpr std::string_view kPlain = "-._~,";
    std::string encoded;
    for (const char c : text) {
        const bool isAlnum = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (isAlnum || kPlain.find(c) != std::string_view::npos) {
            encoded += c;
        } else {
            encoded += fmt::format("%{:02X}", static_cast<unsigned>(static_cast<unsigned char>(c)));
        }
    }
    return encoded;
}

std::string FillAddress(std::string_view pattern, const AddressValues& values) {
    std::string address;
    while (!pattern.empty()) {
        const std::size_t open = pattern.find('{');
        const std::size_t close = open == std::string_view::npos ? open : pattern.find('}', open);
        if (close == std::string_view::npos) break;
        const std::string_view name = pattern.substr(open + 1, close - open - 1);
        address += pattern.substr(0, open);
        address += ValueOf(name, values).value_or("");
        pattern.remove_prefix(close + 1);
    }
    return address.append(pattern);
}

std::string UnknownPlaceholder(std::string_view pattern) {
    for (std::size_t open = pattern.find('{'); open != std::string_view::npos;
         open = pattern.find('{', open + 1)) {
        const std::size_t close = pattern.find('}', open);
        const std::string_view name =
            pattern.substr(open + 1, close == std::string_view::npos ? close : close - open - 1);
        if (close == std::string_view::npos || !ValueOf(name, {})) return std::string(name);
    }
    return {};
}

std::string WithParameter(std::string_view address, std::string_view parameter) {
    if (parameter.empty()) return std::string(address);
    const char mark = address.find('?') == std::string_view::npos ? '?' : '&';
    return std::string(address) + mark + std::string(parameter);
}

std::string Redirected(std::string_view address, std::string_view base, bool keepHost) {
    if (base.empty()) return std::string(address);
    const std::size_t end = EndOfHost(address);
    std::string redirected(base);
    if (keepHost) {
        const std::string_view host = address.substr(address.find("://") + 3, end - address.find("://") - 3);
        redirected.append("/").append(host);
    }
    return redirected.append(address.substr(end));
}

}  // namespace brantlow
