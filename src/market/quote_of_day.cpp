#include "market/quote_of_day.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <vector>

#include "base/text.h"
#include "market/company.h"
#include "market/practice_dice.h"

namespace brantlow {

namespace {

constexpr int kYearOfDays = 365;
// Quotes are told as they stand after the close.
constexpr std::string_view kCloseTime = "4:00pm";

struct Range {
    double low;
    double high;
};

// The range of the year up to the newest day, on the newest day's scale.
Range YearRange(const TradedDays& days) {
    const std::size_t newest = days.Count() - 1;
    Range range{days.At(newest).low, days.At(newest).high};
    for (std::size_t i = days.FirstFrom(AddDays(days.DateOf(newest), -kYearOfDays)); i < newest; ++i) {
        range.low = std::min(range.low, days.At(i).low * days.SplitFactorAt(i));
        range.high = std::max(range.high, days.At(i).high * days.SplitFactorAt(i));
    }
    return range;
}

void TakePrices(const TradedDays& days, QuoteOfDay& quote) {
    const std::size_t newest = days.Count() - 1;
    const MarketDay& bar = days.At(newest);
    const std::size_t previous = newest > 0 ? newest - 1 : 0;
    const Range year = YearRange(days);
    quote.day = days.DateOf(newest);
    quote.time = kCloseTime;
    quote.last = bar.close;
    quote.open = bar.open;
    quote.high = bar.high;
    quote.low = bar.low;
    quote.volume = bar.volume;
    quote.previousClose = days.At(previous).close * days.SplitFactorAt(previous);
    quote.change = bar.close - *quote.previousClose;
    quote.low52 = year.low;
    quote.high52 = year.high;
}

void TakeCompany(const Company& company, QuoteOfDay& quote) {
    constexpr double kNarrowest = 0.01;
    constexpr double kWidest = 0.06;
    quote.ask = company.price + Between(company.tickerAndDay, "ask", kNarrowest, kWidest);
    quote.bid =
        std::max(company.price - Between(company.tickerAndDay, "bid", kNarrowest, kWidest), kNarrowest);
    quote.dividend = company.dividend;
    quote.exDate = company.exDate;
    quote.payDate = company.payDate;
    quote.earningsPerShare = company.earningsPerShare;
    quote.earningsEstimate = company.earningsEstimate;
    quote.pegRatio = company.pegRatio;
    quote.marketValue = MarketValue(company);
    if (company.earningsPerShare > 0) quote.priceToEarnings = company.price / company.earningsPerShare;
    if (company.salesPerShare > 0) quote.priceToSales = company.price / company.salesPerShare;
}

// One field of a line in its written form, without the market's separators.
using Field = std::string (*)(const QuoteOfDay&);

// What cannot stand in a quoted field is left out.
std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    std::copy_if(text.begin(), text.end(), std::back_inserter(quoted),
                 [](char c) { return c != '"' && static_cast<unsigned char>(c) >= ' '; });
    return quoted + '"';
}

template <auto member>
std::string TextField(const QuoteOfDay& quote) {
    return Quoted((quote.*member).value_or(std::string(kMissing)));
}

// As "1/15/2027".
template <auto member>
std::string DateField(const QuoteOfDay& quote) {
    const std::optional<Date>& date = quote.*member;
    if (!date) return Quoted(kMissing);
    return fmt::format("\"{}/{}/{}\"", static_cast<unsigned>(date->month()),
                       static_cast<unsigned>(date->day()), static_cast<int>(date->year()));
}

template <auto member, int decimals>
std::string NumberField(const QuoteOfDay& quote) {
    const std::optional<double>& number = quote.*member;
    return number ? fmt::format("{:.{}f}", *number, decimals) : std::string(kMissing);
}

std::string TickerField(const QuoteOfDay& quote) {
    return Quoted(quote.ticker);
}

std::string MarketValueField(const QuoteOfDay& quote) {
    return quote.marketValue ? ScaledNumber(*quote.marketValue) : std::string(kMissing);
}

struct FieldRow {
    std::string_view code;
    Field write;
};

using Q = QuoteOfDay;

// Prices have the three decimals of the database.
constexpr std::array<FieldRow, 25> kFields = {{{"s", TickerField},
                                               {"l1", NumberField<&Q::last, 3>},
                                               {"d1", DateField<&Q::day>},
                                               {"t1", TextField<&Q::time>},
                                               {"r1", DateField<&Q::payDate>},
                                               {"c1", NumberField<&Q::change, 3>},
                                               {"n", TextField<&Q::name>},
                                               {"x", TextField<&Q::exchange>},
                                               {"q", DateField<&Q::exDate>},
                                               {"a", NumberField<&Q::ask, 3>},
                                               {"b", NumberField<&Q::bid, 3>},
                                               {"o", NumberField<&Q::open, 3>},
                                               {"h", NumberField<&Q::high, 3>},
                                               {"d", NumberField<&Q::dividend, 2>},
                                               {"j", NumberField<&Q::low52, 3>},
                                               {"k", NumberField<&Q::high52, 3>},
                                               {"e", NumberField<&Q::earningsPerShare, 2>},
                                               {"g", NumberField<&Q::low, 3>},
                                               {"r", NumberField<&Q::priceToEarnings, 2>},
                                               {"v", NumberField<&Q::volume, 0>},
                                               {"r5", NumberField<&Q::pegRatio, 2>},
                                               {"e7", NumberField<&Q::earningsEstimate, 2>},
                                               {"p", NumberField<&Q::previousClose, 3>},
                                               {"j1", MarketValueField},
                                               {"p5", NumberField<&Q::priceToSales, 2>}}};

std::string MissingField(const QuoteOfDay&) {
    return std::string(kMissing);
}

Field FieldOf(std::string_view code) {
    const auto found =
        std::find_if(kFields.begin(), kFields.end(), [&](const FieldRow& row) { return row.code == code; });
    return found == kFields.end() ? MissingField : found->write;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The fields that codes such as "sl1d1" name: each a letter with the digits behind it.
std::vector<Field> FieldsOf(std::string_view codes) {
    std::vector<Field> fields;
    while (!codes.empty()) {
        std::size_t length = 1;
        while (length < codes.size() && IsDigit(codes[length])) ++length;
        fields.push_back(FieldOf(codes.substr(0, length)));
        codes.remove_prefix(length);
    }
    if (!fields.empty()) return fields;
    for (const FieldRow& row : kFields) fields.push_back(row.write);
    return fields;
}

// A field with the market's decimals. Quoted text and dates have none.
std::string ForMarket(std::string field, Decimals decimals) {
    if (decimals == Decimals::Comma && !field.starts_with('"')) {
        std::replace(field.begin(), field.end(), '.', ',');
    }
    return field;
}

void AppendQuote(const QuoteOfDay& quote, const std::vector<Field>& fields, Decimals decimals,
                 std::string& out) {
    const char separator = decimals == Decimals::Comma ? ';' : ',';
    for (const Field field : fields) out.append(ForMarket(field(quote), decimals)).append(1, separator);
    out.back() = '\n';
}

}  // namespace

QuoteOfDay MakeQuote(std::string_view ticker, const MarketData& data, const Date& today) {
    QuoteOfDay quote;
    quote.ticker = ticker;
    const MarketTicker* known = data.Find(ticker);
    if (known == nullptr) return quote;
    const TradedDays days(*known, today);
    if (days.Count() == 0) return quote;
    quote.name = known->about.name;
    quote.exchange = known->about.exchange;
    TakePrices(days, quote);
    if (const auto company = CompanyOf(*known, today)) TakeCompany(*company, quote);
    return quote;
}

std::string QuotesReply(const MarketRequest& request, const MarketData& data, const Date& today) {
    const std::string asked = UpperCase(QueryValue(request.query, "s"));
    const std::vector<Field> fields = FieldsOf(QueryValue(request.query, "f"));
    const std::size_t end = asked.find_last_not_of(',') + 1;
    std::string reply;
    if (end == 0) return reply;
    for (const std::string_view ticker : SplitAt(std::string_view(asked).substr(0, end), ',')) {
        AppendQuote(MakeQuote(ticker, data, today), fields, request.decimals, reply);
    }
    return reply;
}

std::string ScaledNumber(double value) {
    struct Scale {
        double unit;
        char letter;
    };
    for (const Scale& scale : {Scale{1e9, 'B'}, Scale{1e6, 'M'}}) {
        if (std::abs(value) >= scale.unit) return fmt::format("{:.2f}{}", value / scale.unit, scale.letter);
    }
    return fmt::format("{:.2f}K", value / 1e3);
}

}  // namespace brantlow
