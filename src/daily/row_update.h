// One reply line of an end-of-day update at its row: values, derived columns, the record for the database,
// the row's cells and its alarms. UpdateQuotes walks the batches and calls it for each line.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "acquire/feeds/quote_reply.h"
#include "acquire/feeds/quote_request.h"
#include "daily/update_quotes.h"
#include "store/table_colours.h"

namespace brantlow {

// What a reply line was at its row.
enum class LineTaken {
    Unreadable,   // it does not hold the source's fields
    OtherTicker,  // it is another ticker's: the row's cells stay
    Unknown,      // the source has no quote of the row's ticker
    Old,          // a quote too old for the database
    Accepted,     // a record was written
};

// A day of a live source.
struct LiveQuote {
    Date day;
    int minutes = 0;  // of its last trade, since midnight
    double open = 0;
    double high = 0;
    double low = 0;
    double close = 0;
    double volume = 0;
    std::optional<double> previousClose;
};

class RowUpdate {
  public:
    RowUpdate(const UpdateWork& work, UpdateOutcome& outcome);

    // The lines that follow belong to the batch that begins at `batchRow`; the columns of the table stay in
    // their places meanwhile.
    void BeginBatch(std::size_t batchRow);

    // Takes a reply line at row `row` of the table. A record goes to the end of `records`. A line that does
    // not hold the source's fields changes nothing.
    LineTaken TakeLine(std::string_view line, std::size_t row, std::string& records);

    // Takes a day of a live source at row `row`. Cells of columns that the source does not give, and that
    // nothing new can be computed for, stay as they are. A day that may enter the database adds its record to
    // `records`; null for one that is not over. Only a shown day changes the table and its alarms.
    void TakeQuote(const LiveQuote& quote, std::size_t row, bool isShown, std::string* records);
    // Looks at the alarms of a row whose source has nothing newer than what the row shows.
    void TakeShown(std::size_t row);
    // Whether the day is young enough for Import.Txt.
    bool IsYoung(std::string_view tradeDate) const;

    bool HasDecimalCommas() const { return decimalCommas_; }

  private:
    static constexpr std::size_t kAcceptedDays = 4;

    struct FilledColumn {
        std::size_t column;
        CellSource source;
    };

    bool ReadLine(std::string_view line, std::string_view ticker);
    void FillRow(std::size_t row);
    void CountIfStale(std::string_view tradeDate);
    bool HasStorableQuote(const QuoteArrays& rows, std::size_t row) const;
    void WriteCells(std::size_t row);
    void TakePrices(const LiveQuote& quote, std::size_t row);
    void Scan(std::size_t row);
    void NoteAlarm(std::size_t row);

    const UpdateWork& work_;
    UpdateOutcome& outcome_;
    Date today_;
    bool standardSource_;
    UserQuoteForm userForm_;
    // What the source sends; null for a piece that is skipped.
    std::vector<const QuoteField*> fields_;
    bool decimalCommas_;
    std::size_t batchRow_ = 1;
    ColumnPositions columns_;
    std::vector<FilledColumn> filledColumns_;
    // The newest days that enter the database, as they stand in a row.
    std::array<std::string, kAcceptedDays> acceptedDates_;
    // In capitals.
    std::unordered_set<std::string> tickers_;
    // Each line is read here, in row 1; one for another ticker than its row's is worked out here as well.
    QuoteArrays spare_;
};

}  // namespace brantlow
