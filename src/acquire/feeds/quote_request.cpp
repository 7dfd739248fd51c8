#include "acquire/feeds/quote_request.h"

#include <algorithm>
#include <cmath>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kSourceLine = 3;
constexpr std::size_t kStepLine = 6;

// The codes of the fields, in the order of kQuoteFields.
constexpr std::string_view kFieldCodes = "&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e";

}  // namespace

QuoteSource QuoteSourceOf(const SettingsTables& settings) {
    const std::string& source = settings.NetSettings.Text(kSourceLine);
    if (source == "Yahoo") return QuoteSource::Standard;
    if (source == "User Selected String") return QuoteSource::User;
    return QuoteSource::None;
}

std::size_t BatchStep(const SettingsTables& settings) {
    const double step = std::nearbyint(settings.NetSettings.Number(kStepLine));
    if (!(step >= 1)) return kTickersPerRequest;
    return static_cast<std::size_t>(std::min(step, static_cast<double>(kMostRows)));
}

std::string StandardQuoteUrl(std::string_view quoteHost, const QuoteTable& table, std::size_t firstRow) {
    std::string url(quoteHost);
    url += "/d/quotes.txt?s=";
    for (std::size_t i = 0; i < kTickersPerRequest; ++i) {
        if (i > 0) url += ',';
        url += UpperCase(table.Ticker(firstRow + i));
    }
    return url.append(kFieldCodes);
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
