// Which rows of a table are shown: the filter that is typed above it.
//
//     Change > 2                     a column and a number; > < >= <= = !=
//     Volume > 1,000,000             separators may stand in it, and K, M or B behind it
//     Exchange = NYSE                a column and a text, which the cell is, in any case
//     hit in condition 3             a Buy or a Sell of that condition; "buy in", "sell in", "hold in";
//                                    "hit in 3" is the same
//     bank                           any cell holds the text, in any case
//     Change > 2 and Volume > 1M     all of them
//
// A column goes by its header in any case, or by a beginning of it that no other header has.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/quote_table.h"

namespace brantlow {

class RowFilter {
  public:
    // The filter that `text` is for a table of these columns.
    static RowFilter Parse(std::string_view text, const QuoteTable& table);

    // Every row passes: nothing was typed, or what was typed is no filter.
    bool PassesAll() const { return terms_.empty(); }
    // What is wrong with the text, a sentence; empty where nothing is.
    const std::string& Complaint() const { return complaint_; }
    // Whether the row, 1 the first, is shown. The table has the columns of the one that the filter was made
    // for.
    bool Passes(const QuoteTable& table, std::size_t row) const;
    // The rows that pass, in order.
    std::vector<std::size_t> Rows(const QuoteTable& table) const;

  private:
    enum class Comparison { Greater, Less, AtLeast, AtMost, Equal, Unequal };
    struct Term {
        // No column: any of them.
        std::optional<std::size_t> column;
        Comparison comparison = Comparison::Equal;
        // No number: the text is compared.
        std::optional<double> number;
        std::vector<std::string> texts;  // in capitals; one of them
        bool contains = false;           // the cell holds the text, else it is the text
    };

    bool Add(std::string_view words, const QuoteTable& table);
    bool AddComparison(std::string_view words, std::size_t at, const QuoteTable& table);
    bool AddVerdict(std::string_view words, const QuoteTable& table, bool& isVerdict);
    static bool CellPasses(const Term& term, const std::string& cell);

    std::vector<Term> terms_;
    std::string complaint_;
};

// The number of a cell: without a percent sign behind it; nothing for a text.
std::optional<double> CellNumber(std::string_view cell);

}  // namespace brantlow
