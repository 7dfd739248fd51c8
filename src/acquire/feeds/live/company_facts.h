// Fundamentals of companies of the United States out of their filings: the last twelve months' earnings a
// share, sales and dividends, and the shares. What a table's rows lack is filled from them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/live_report.h"
#include "acquire/feeds/live/source_client.h"
#include "acquire/feeds/live/trailing_year.h"
#include "store/quote_table.h"

namespace brantlow {

// What was worked out of filings is kept here for the day, with the end of its period.
inline constexpr const char* kSourceFactsName = "Source Facts.json";

// Of the figures of a share in a table's cells.
inline constexpr int kShareDecimals = 5;

struct CompanyYear {
    SourceOutcome outcome;
    std::optional<double> earningsPerShare;
    std::optional<double> sales;  // dollars
    std::optional<double> shares;
    std::optional<double> dividends;           // a share
    std::optional<std::chrono::sys_days> end;  // of the twelve months
};

class CompanyFacts {
  public:
    // The client's source gives fundamentals by the reader of filings.
    CompanyFacts(SourceWorld& world, SourceClient& client);

    // Asks for a company at most once a day; the answer is kept in Data/Source Facts.json.
    CompanyYear YearOf(const std::string& ticker);

  private:
    bool LoadCompanies(SourceOutcome& outcome);
    std::vector<FiledFact> FactsOf(const std::string& cik, std::string_view tag, std::string_view unit,
                                   SourceOutcome& outcome);
    // The first of several tags whose facts are recent.
    std::vector<FiledFact> RecentFacts(const std::string& cik, const std::vector<std::string_view>& tags,
                                       std::string_view unit, SourceOutcome& outcome);
    CompanyYear AskYear(const std::string& cik);
    std::optional<CompanyYear> KeptYear(const std::string& cik) const;
    void KeepYear(const std::string& cik, const CompanyYear& year) const;

    SourceWorld& world_;
    SourceClient& client_;
    std::chrono::sys_days today_;
    std::map<std::string, std::string, std::less<>> ciks_;  // by the source's spelling
};

// Fills the cells of each row that are empty, or that it filled before (derived_cells.h): EPS ttm., P/E ttm.,
// P/S, Market Cap (M), Dividend and what follows from them. The words of each ticker with such cells, whose
// `days` are 1, tell what was derived and up to which day.
LiveReport FillFundamentals(SourceWorld& world, const SourceDefinition& source, QuoteTable& table);

}  // namespace brantlow
