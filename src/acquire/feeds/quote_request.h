// The address under which a batch of quotes is asked for: the standard source's, which always names fifteen
// tickers, or the user's own template.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "shell/settings/settings_tables.h"
#include "store/quote_table.h"

namespace brantlow {

// Where the settings say that quotes come from.
enum class QuoteSource { Standard, User };

// The user's own where the settings name it; any other word stands for the standard source.
QuoteSource QuoteSourceOf(const SettingsTables& settings);

inline constexpr std::size_t kTickersPerRequest = 15;

// Rows from one batch to the next: line 6 of the net settings, kTickersPerRequest when that is below 1.
std::size_t BatchStep(const SettingsTables& settings);

// Whether the standard source is asked for the ticker of a row; the others' places close up.
bool IsAskedFor(const QuoteTable& table, std::size_t row);

// The standard source's address for the rows from `firstRow` on. It names kTickersPerRequest tickers: where a
// row is not asked for, and past the end of the table, there are fewer, and those at the end are empty.
std::string StandardQuoteUrl(std::string_view quoteHost, const QuoteTable& table, std::size_t firstRow);

inline constexpr std::string_view kTickerPlaceholder = "QUOTESYMBOL";

struct UserQuoteUrl {
    std::string url;
    std::size_t tickers = 0;  // placeholders that the template held
};

// The user's template with each placeholder replaced by the ticker of the next row.
UserQuoteUrl FillQuoteTemplate(std::string_view quoteTemplate, const QuoteTable& table, std::size_t firstRow);

}  // namespace brantlow
