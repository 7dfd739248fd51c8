#include "acquire/feeds/quote_request.h"

#include <algorithm>
#include <cmath>

#include "base/askable_ticker.h"
#include "base/text.h"
#include "shell/settings/lines.h"

namespace brantlow {

namespace {

// The codes of the fields, in the order of kQuoteFields.
constexpr std::string_view kFieldCodes = "&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e";

}  // namespace

QuoteSource QuoteSourceOf(const SettingsTables& settings) {
    const bool isUsers = Get(settings, kQuoteSource) == SourceChoice::User;
    return isUsers ? QuoteSource::User : QuoteSource::Standard;
}

std::size_t BatchStep(const SettingsTables& settings) {
    return static_cast<std::size_t>(std::nearbyint(Get(settings, kQuotesPerRequest)));
}

bool IsAskedFor(const QuoteTable& table, std::size_t row) {
    return IsAskableTicker(table.Ticker(row));
}

std::string StandardQuoteUrl(std::string_view quoteHost, const QuoteTable& table, std::size_t firstRow) {
    std::string url(quoteHost);
    url += "/d/quotes.txt?s=";
    std::size_t named = 0;
    for (std::size_t row = firstRow; row < firstRow + kTickersPerRequest; ++row) {
        if (!IsAskedFor(table, row)) continue;
        if (named++ > 0) url += ',';
        url += UpperCase(table.Ticker(row));
    }
    return url.append(kTickersPerRequest - std::max<std::size_t>(named, 1), ',').append(kFieldCodes);
}

UserQuoteUrl FillQuoteTemplate(std::string_view quoteTemplate, const QuoteTable& table,
                               std::size_t firstRow) {
    UserQuoteUrl filled;
    for (;;) {
        const std::size_t found = quoteTemplate.find(kTickerPlaceholder);
        filled.url += quoteTemplate.substr(0, found);
        if (found == std::string_view::npos) return filled;
        filled.url += UpperCase(table.Ticker(firstRow + filled.tickers));
        ++filled.tickers;
        quoteTemplate.remove_prefix(found + kTickerPlaceholder.size());
    }
}

}  // namespace brantlow
