// One reply line of an end-of-day update at its row: values, derived columns, the record for the database,
// the row's cells and its alarms. UpdateQuotes walks the batches and calls it for each line.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

#include "acquire/quote_reply.h"
#include "acquire/quote_request.h"
#include "daily/update_quotes.h"
#include "store/table_colours.h"

namespace brantlow {

class RowUpdate {
  public:
    RowUpdate(const UpdateWork& work, UpdateOutcome& outcome);

    // Takes a reply line at row `row` of the table, in the batch that begins at `batchRow`. A record goes to
    // the end of `records`. A line that does not hold the source's fields changes nothing.
    void TakeLine(std::string_view line, std::size_t row, std::size_t batchRow, std::string& records);

    bool HasDecimalCommas() const { return decimalCommas_; }

  private:
    static constexpr std::size_t kAcceptedDays = 4;

    bool ReadLine(std::string_view line, std::size_t row, QuoteArrays& rows) const;
    void CountIfStale(std::string_view tradeDate, std::size_t batchRow);
    bool IsAccepted(const QuoteArrays& rows, std::size_t row) const;
    void WriteCells(std::size_t row);
    void Scan(std::size_t row);

    const UpdateWork& work_;
    UpdateOutcome& outcome_;
    Date today_;
    bool standardSource_;
    UserQuoteForm userForm_;
    bool decimalCommas_;
    ColumnPositions columns_;
    // The newest days that enter the database, as they stand in a row.
    std::array<std::string, kAcceptedDays> acceptedDates_;
    // In capitals.
    std::unordered_set<std::string> tickers_;
    // A line for another ticker than its row's is worked out here, in row 1.
    QuoteArrays spare_;
};

}  // namespace brantlow
