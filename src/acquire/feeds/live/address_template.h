// Addresses of live sources: placeholders in braces are replaced by percent-encoded values.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace brantlow {

struct AddressValues {
    std::string symbols;  // in the source's spelling, with commas between them
    // The asked days, both included.
    std::chrono::sys_days from;
    std::chrono::sys_days to;
};

// {symbol} and {symbols}: the spelled symbols. {from}, {to}, {before} (the day before the first), {after}
// (the day after the last) as YYYY-MM-DD, or with :unix behind the name as seconds since 1970 at midnight
// UTC, with :utc as YYYY-MM-DDT00:00:00Z.
std::string FillAddress(std::string_view pattern, const AddressValues& values);

// The first placeholder of a pattern that stands for nothing; empty when there is none. An open brace counts.
std::string UnknownPlaceholder(std::string_view pattern);

// Every byte that is no letter, digit, "-", ".", "_", "~" or comma as %XX.
std::string PercentEncoded(std::string_view text);

// `address` with `parameter` ("name=value", as it may stand there) behind its query.
std::string WithParameter(std::string_view address, std::string_view parameter);

// `address` with scheme and host replaced by `base` where that is not empty; `keepHost` puts the host in
// front of the path.
std::string Redirected(std::string_view address, std::string_view base, bool keepHost);

}  // namespace brantlow
