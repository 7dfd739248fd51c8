#include "acquire/feeds/live/company_facts.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "acquire/feeds/live/derived_cells.h"
#include "acquire/feeds/live/reply_values.h"
#include "base/numbers.h"
#include "shell/status_words.h"
#include "store/row_reading.h"

namespace brantlow {

namespace {

using nlohmann::json;
using std::chrono::sys_days;

constexpr std::string_view kPerShare = "USD/shares";
constexpr std::string_view kDollars = "USD";
constexpr std::string_view kShares = "shares";

// Taxonomy and tag, the first choice first.
const std::vector<std::string_view> kEarningsTags = {
    "us-gaap/EarningsPerShareDiluted", "us-gaap/EarningsPerShareBasicAndDiluted",
    "us-gaap/EarningsPerShareBasic", "us-gaap/IncomeLossFromContinuingOperationsPerDilutedShare"};
const std::vector<std::string_view> kSalesTags = {
    "us-gaap/RevenueFromContractWithCustomerExcludingAssessedTax", "us-gaap/Revenues",
    "us-gaap/RevenueFromContractWithCustomerIncludingAssessedTax", "us-gaap/SalesRevenueNet",
    "us-gaap/RevenuesNetOfInterestExpense"};
const std::vector<std::string_view> kIncomeTags = {"us-gaap/NetIncomeLoss"};
const std::vector<std::string_view> kWeightedTags = {
    "us-gaap/WeightedAverageNumberOfDilutedSharesOutstanding"};
const std::vector<std::string_view> kShareTags = {"dei/EntityCommonStockSharesOutstanding",
                                                  "us-gaap/CommonStockSharesOutstanding",
                                                  "us-gaap/WeightedAverageNumberOfDilutedSharesOutstanding"};
const std::vector<std::string_view> kDividendTags = {"us-gaap/CommonStockDividendsPerShareDeclared",
                                                     "us-gaap/CommonStockDividendsPerShareCashPaid"};

std::optional<sys_days> DayAt(const json& fact, const char* pointer) {
    return DayOf(Lead(fact, pointer), ReplyDate::Iso, NewYorkZone(), {});
}

std::optional<FiledFact> ReadFact(const json& entry) {
    const auto end = DayAt(entry, "/end");
    const auto filed = DayAt(entry, "/filed");
    const ReplyNumber value = NumberOf(Lead(entry, "/val"));
    if (!end || !filed || value.state != NumberState::Read) return std::nullopt;
    return FiledFact{DayAt(entry, "/start"), *end, value.value, TextOf(Lead(entry, "/form")), *filed};
}

void PutNumber(json& entry, const char* name, const std::optional<double>& value) {
    if (value) entry[name] = *value;
}

std::optional<double> NumberAt(const json& entry, const char* pointer) {
    const ReplyNumber number = NumberOf(Lead(entry, pointer));
    return number.state == NumberState::Read ? std::optional(number.value) : std::nullopt;
}

json ReadKept(const Path& file) {
    json kept = json::parse(BytesOrEmpty(file), nullptr, false);
    return kept.is_object() ? kept : json::object();
}

}  // namespace

CompanyFacts::CompanyFacts(SourceWorld& world, SourceClient& client)
    : world_(world), client_(client), today_(world.session.clock.Today()) {}

bool CompanyFacts::LoadCompanies(SourceOutcome& outcome) {
    if (!ciks_.empty()) return true;
    const CapabilityForm& form = client_.Source().FormOf(Capability::Fundamentals);
    const std::string bytes = client_.Fetch(form.addresses.front(), outcome);
    // Not a company is unknown then, but all of them.
    if (outcome.result == SourceResult::UnknownSymbol) {
        outcome = {.result = SourceResult::ChangedFormat, .words = "the list of companies is not there"};
    }
    if (!outcome.Done()) return false;
    const json document = ParsedReply(bytes);
    if (document.is_object()) {
        for (const auto& [index, company] : document.items()) {
            const std::string symbol = TextOf(Lead(company, "/ticker"));
            const ReplyNumber cik = NumberOf(Lead(company, "/cik_str"));
            constexpr double kMostCik = 9'999'999'999;
            const bool fits = cik.state == NumberState::Read && cik.value > 0 && cik.value <= kMostCik;
            // Of a symbol that is there twice the first entry is the right one.
            if (fits && !symbol.empty()) ciks_.emplace(symbol, fmt::format("{:010.0f}", cik.value));
        }
    }
    if (ciks_.empty())
        outcome = {.result = SourceResult::ChangedFormat, .words = "the list of companies is empty"};
    return !ciks_.empty();
}

std::vector<FiledFact> CompanyFacts::FactsOf(const std::string& cik, std::string_view tag,
                                             std::string_view unit, SourceOutcome& outcome) {
    const CapabilityForm& form = client_.Source().FormOf(Capability::Fundamentals);
    std::vector<FiledFact> facts;
    const std::string bytes =
        client_.Fetch(fmt::format("{}CIK{}/{}.json", form.addresses.back(), cik, tag), outcome);
    // A tag that was never used has no page.
    if (outcome.result == SourceResult::UnknownSymbol) outcome = {};
    if (!outcome.Done() || bytes.empty()) return facts;
    const json document = ParsedReply(bytes);
    const json* units = document.is_object() ? Lead(document, "/units") : nullptr;
    if (units == nullptr || !units->is_object()) {
        outcome = {.result = SourceResult::ChangedFormat, .words = "a company's facts lack their units"};
        return facts;
    }
    const auto rows = units->find(unit);
    if (rows == units->end() || !rows->is_array()) return facts;
    for (const json& row : *rows) {
        if (auto fact = ReadFact(row)) facts.push_back(std::move(*fact));
    }
    return facts;
}

std::vector<FiledFact> CompanyFacts::RecentFacts(const std::string& cik,
                                                 const std::vector<std::string_view>& tags,
                                                 std::string_view unit, SourceOutcome& outcome) {
    for (const std::string_view tag : tags) {
        std::vector<FiledFact> facts = FactsOf(cik, tag, unit, outcome);
        if (!outcome.Done()) return {};
        if (NewestValue(facts, today_)) return facts;
    }
    return {};
}

CompanyYear CompanyFacts::AskYear(const std::string& cik) {
    CompanyYear year;
    const auto recent = [&](const std::vector<std::string_view>& tags, std::string_view unit) {
        return year.outcome.Done() ? RecentFacts(cik, tags, unit, year.outcome) : std::vector<FiledFact>{};
    };
    std::vector<FiledFact> earnings = recent(kEarningsTags, kPerShare);
    const std::vector<FiledFact> sales = recent(kSalesTags, kDollars);
    const std::vector<FiledFact> shares = recent(kShareTags, kShares);
    std::vector<FiledFact> dividends = recent(kDividendTags, kPerShare);
    const bool needsIncome = !earnings.empty();
    const std::vector<FiledFact> income =
        needsIncome ? recent(kIncomeTags, kDollars) : std::vector<FiledFact>{};
    const std::vector<FiledFact> weighted =
        needsIncome ? recent(kWeightedTags, kShares) : std::vector<FiledFact>{};
    if (!year.outcome.Done()) return year;
    std::vector<FiledSplit> splits;
    for (const FiledFact& ratio : FactsOf(cik, "us-gaap/StockSplitConversionRatio", "pure", year.outcome)) {
        if (ratio.value > 0) splits.push_back({ratio.end, ratio.value});
    }
    ScaleForSplits(earnings, splits);
    ScaleForSplits(dividends, splits);
    if (const auto eps = EarningsOfYear(earnings, income, weighted, today_)) {
        year.earningsPerShare = eps->value;
        year.end = eps->end;
    }
    if (const auto sum = SumOfYear(sales, MayBeNegative::No, today_)) {
        year.sales = sum->value;
        if (!year.end || sum->end > *year.end) year.end = sum->end;
    }
    if (const auto newest = NewestValue(shares, today_)) year.shares = newest->value;
    if (const auto sum = SumOfYear(dividends, MayBeNegative::No, today_)) year.dividends = sum->value;
    if (!year.earningsPerShare && !year.sales && !year.shares && year.outcome.Done()) {
        year.outcome = {.result = SourceResult::NoData, .words = {}};
    }
    return year;
}

std::optional<CompanyYear> CompanyFacts::KeptYear(const std::string& cik) const {
    const json kept = ReadKept(world_.session.DataFolder() / kSourceFactsName);
    const auto found = kept.find(cik);
    if (found == kept.end() || DayAt(*found, "/asked") != today_) return std::nullopt;
    CompanyYear year;
    year.earningsPerShare = NumberAt(*found, "/eps");
    year.sales = NumberAt(*found, "/sales");
    year.shares = NumberAt(*found, "/shares");
    year.dividends = NumberAt(*found, "/dividends");
    year.end = DayAt(*found, "/end");
    if (!year.earningsPerShare && !year.sales && !year.shares) year.outcome.result = SourceResult::NoData;
    return year;
}

void CompanyFacts::KeepYear(const std::string& cik, const CompanyYear& year) const {
    const Path file = world_.session.DataFolder() / kSourceFactsName;
    json kept = ReadKept(file);
    json entry = {{"asked", FormatIsoDate(Date{today_})}, {"derived", true}};
    PutNumber(entry, "eps", year.earningsPerShare);
    PutNumber(entry, "sales", year.sales);
    PutNumber(entry, "shares", year.shares);
    PutNumber(entry, "dividends", year.dividends);
    if (year.end) entry["end"] = FormatIsoDate(Date{*year.end});
    kept[cik] = std::move(entry);
    // What cannot be kept is asked for again.
    (void)WriteWholeFile(file, kept.dump(0) + "\n", Flush::Later);
}

CompanyYear CompanyFacts::YearOf(const std::string& ticker) {
    CompanyYear year;
    const auto symbol = SpellSymbol(client_.Source().notation, ticker);
    if (!symbol) {
        year.outcome = {.result = SourceResult::UnknownSymbol, .words = "it cannot be spelled there"};
        return year;
    }
    if (!LoadCompanies(year.outcome)) return year;
    const auto cik = ciks_.find(*symbol);
    if (cik == ciks_.end()) {
        year.outcome = {.result = SourceResult::UnknownSymbol, .words = {}};
        return year;
    }
    if (auto kept = KeptYear(cik->second)) return std::move(*kept);
    year = AskYear(cik->second);
    if (year.outcome.Done() || year.outcome.result == SourceResult::NoData) KeepYear(cik->second, year);
    return year;
}

namespace {

// What a company's year says at a price, in the arrays of a row.
void TakeYear(const CompanyYear& year, std::size_t row, QuoteArrays& rows) {
    constexpr double kMillion = 1e6;
    const double price = LeadingNumber(rows.LastPrices[row]);
    const auto put = [&](std::string& cell, std::optional<double> value) {
        if (cell.empty() && value) cell = ShortestNumber(RoundDecimals(*value, kShareDecimals));
    };
    put(rows.EpsTtm[row], year.earningsPerShare);
    put(rows.Dividends[row], year.dividends);
    if (price > 0 && year.earningsPerShare && *year.earningsPerShare > 0) {
        put(rows.PeTtm[row], price / *year.earningsPerShare);
    }
    if (!(price > 0) || !year.shares) return;
    const double value = *year.shares * price;
    if (rows.MarketCapText[row].empty()) rows.MarketCapText[row] = ShortestNumber(value / kMillion) + 'M';
    if (year.sales && *year.sales > 0) put(rows.PsValues[row], value / *year.sales);
}

// The cells that filings tell; what else a row lacks follows from them and from its prices.
struct ToldCell {
    std::string_view header;
    QuoteArray QuoteArrays::*array;
};
constexpr std::array<ToldCell, 5> kToldCells = {{{"EPS ttm.", &QuoteArrays::EpsTtm},
                                                 {"Dividend", &QuoteArrays::Dividends},
                                                 {"P/E ttm.", &QuoteArrays::PeTtm},
                                                 {"P/S", &QuoteArrays::PsValues},
                                                 {"Market Cap (M)", &QuoteArrays::MarketCapText}}};

bool IsTold(std::string_view header) {
    return std::any_of(kToldCells.begin(), kToldCells.end(),
                       [&](const ToldCell& cell) { return cell.header == header; });
}

// What filings told before is asked of them again.
void ForgetTold(const DerivedCells& cells, const QuoteTable& table, std::size_t row, QuoteArrays& rows) {
    for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
        const std::string& header = table.Header(column);
        if (!cells.IsOwn(table.Ticker(row), header, table.Text(row, column))) continue;
        for (const ToldCell& cell : kToldCells) {
            if (cell.header == header) (rows.*cell.array)[row].clear();
        }
    }
}

bool IsFillable(const DerivedCells& cells, const std::string& ticker, const std::string& header,
                const std::string& text) {
    if (text.empty() || cells.IsOwn(ticker, header, text)) return true;
    return !IsTold(header) && cells.WasOwn(ticker, header);
}

// Writes what was computed into the cells that are empty or hold what was worked out before; the headers of
// those that changed.
std::vector<std::string> FillCells(const QuoteArrays& rows, std::size_t row, QuoteTable& table,
                                   DerivedCells& cells) {
    std::vector<std::string> filled;
    const std::string ticker = table.Ticker(row);
    for (std::size_t column = 1; column < table.ColumnCount(); ++column) {
        const std::string& header = table.Header(column);
        const std::string& shown = table.Text(row, column);
        std::string text;
        if (!IsFillable(cells, ticker, header, shown) || !CellText(rows, row, header, text)) continue;
        const bool isNothing = text.empty() || (header == "Market Cap (M)" && !(LeadingNumber(text) > 0));
        if (isNothing || text == shown) continue;
        table.SetText(row, column, text);
        cells.Set(ticker, header, text);
        filled.push_back(header);
    }
    return filled;
}

}  // namespace

LiveReport FillFundamentals(SourceWorld& world, const SourceDefinition& source, QuoteTable& table) {
    Session& session = world.session;
    LiveReport report;
    report.title = source.title;
    SourceClient client(world, source);
    CompanyFacts facts(world, client);
    DerivedCells cells = DerivedCells::Load(session.DataFolder());
    QuoteArrays rows;
    rows.MakeRoom(table.TickerCount());
    SourceOutcome end;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        const std::string ticker = table.Ticker(row);
        report.stopped = ShouldStop(session.run, session.person);
        if (report.stopped) break;
        session.person.ShowProgress(static_cast<double>(row) / static_cast<double>(table.TickerCount()));
        CompanyYear year;
        year.outcome = end;
        if (end.Done()) year = facts.YearOf(ticker);
        if (EndsRun(year.outcome) || year.outcome.result == SourceResult::Network) end = year.outcome;
        report.tickers.push_back({ticker, year.outcome, 0});
        if (!year.outcome.Done()) continue;
        ReadRow(table, row, rows);
        ForgetTold(cells, table, row, rows);
        TakeYear(year, row, rows);
        CalculateRow(rows, row, RatioGuard::AboveZero, session.clock.Today());
        const std::vector<std::string> filled = FillCells(rows, row, table, cells);
        report.tickers.back().days = filled.empty() ? 0 : 1;
        if (filled.empty()) continue;
        report.tickers.back().outcome.words = fmt::format(
            "derived from filings to {}: {}", year.end ? FormatIsoDate(Date{*year.end}) : "an unknown day",
            fmt::join(filled, ", "));
    }
    const auto isFilled = [](const LiveTicker& row) { return row.days > 0; };
    const bool any = std::any_of(report.tickers.begin(), report.tickers.end(), isFilled);
    if (any) cells.Save(session.DataFolder());
    return report;
}

}  // namespace brantlow
