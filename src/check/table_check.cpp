#include "check/table_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <unordered_map>
#include <unordered_set>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "check/year_record.h"
#include "store/columns.h"
#include "store/quote_table.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

using Cells = std::vector<std::string_view>;

// What a source says where it has no value.
constexpr std::array<std::string_view, 3> kNoValues = {"", "N/A", "-"};

bool HasNoValue(std::string_view text) {
    return std::find(kNoValues.begin(), kNoValues.end(), text) != kNoValues.end();
}

bool IsKnownHeader(FileKind kind, std::string_view header) {
    switch (kind) {
        case FileKind::Dbe:
            return std::find(kEvaluationColumns.begin(), kEvaluationColumns.end(), header) !=
                   kEvaluationColumns.end();
        case FileKind::Efq: {
            const std::string all = EfqHeader();
            const Cells names = SplitAt(all, '\t');
            return std::find(names.begin(), names.end(), header) != names.end();
        }
        default:
            return FindQuoteColumn(header) != nullptr;
    }
}

// What the cells of a column are to hold.
enum class CellForm : unsigned char { Text, Number, Day };

CellForm FormOfColumn(FileKind kind, std::string_view header) {
    if (kind != FileKind::Ddq && kind != FileKind::Db) return CellForm::Text;
    if (header == "Trade Date" || header == "Dividend Date" || header == "X Dividend Date")
        return CellForm::Day;
    const QuoteColumn* const column = FindQuoteColumn(header);
    const bool isNumber = column != nullptr && (!column->picture.empty() || header == "Volume" ||
                                                header == "High Alarm" || header == "Low Alarm");
    return isNumber ? CellForm::Number : CellForm::Text;
}

class TableLook {
  public:
    TableLook(const Path& file, FileKind kind, const Date& today)
        : kind_(kind), today_(today), found_(file) {}

    TableCheck Look(std::string_view bytes) {
        if (bytes.empty()) found_.Add(FindingKind::EmptyFile, 0);
        LineReader reader(bytes);
        std::string_view line;
        while (reader.Next(line)) {
            if (++number_ == kMostRows + 1) found_.Add(FindingKind::TooManyLines, number_);
            if (line.find('\0') != std::string_view::npos) found_.Add(FindingKind::NulBytes, number_);
            if (number_ == 1) {
                TakeHeader(line);
            } else {
                TakeLine(line);
            }
        }
        check_.findings = found_.Take();
        return std::move(check_);
    }

  private:
    void TakeHeader(std::string_view line) {
        headers_ = SplitAt(line, '\t');
        const bool knowsOne = std::any_of(headers_.begin(), headers_.end(), [this](std::string_view header) {
            return IsKnownHeader(kind_, header);
        });
        if (!knowsOne) found_.Add(FindingKind::NoHeader, 1);
        std::unordered_set<std::string_view> seen;
        for (const std::string_view header : headers_) {
            forms_.push_back(FormOfColumn(kind_, header));
            if (!knowsOne) continue;
            if (!seen.insert(header).second) {
                found_.Add(FindingKind::HeaderTwice, 1, Quoted(header));
            } else if (!IsKnownHeader(kind_, header)) {
                found_.Add(FindingKind::UnknownHeader, 1, Quoted(header));
            }
        }
    }

    void TakeLine(std::string_view line) {
        if (Trim(line).empty()) return found_.Add(FindingKind::EmptyRow, number_);
        const Cells cells = SplitAt(line, '\t');
        // A run that has not come to a ticker leaves the ticker alone.
        if (cells.size() != headers_.size() && cells.size() != 1)
            found_.Add(FindingKind::CellCount, number_,
                       fmt::format("{} cells, but {} columns", cells.size(), headers_.size()));
        TakeTicker(cells.front());
        for (std::size_t i = 1; i < std::min(cells.size(), forms_.size()); ++i) TakeCell(cells[i], i);
    }

    void TakeTicker(std::string_view ticker) {
        check_.tickers.emplace_back(ticker);
        if (ticker.empty()) return found_.Add(FindingKind::NoTicker, number_);
        if (!HasDatabaseFiles(ticker)) found_.Add(FindingKind::TickerWithoutFiles, number_, Quoted(ticker));
        const auto [first, isNew] = firstLines_.try_emplace(ticker, number_);
        if (!isNew)
            found_.Add(FindingKind::TickerTwice, number_,
                       fmt::format("{} stands in line {} already", InLine(ticker), first->second));
    }

    void TakeCell(std::string_view text, std::size_t column) {
        if (forms_[column] == CellForm::Text || HasNoValue(text)) return;
        if (forms_[column] == CellForm::Number && WholeNumber(text)) return;
        const std::string where = fmt::format("{} '{}'", headers_[column], InLine(text));
        if (forms_[column] == CellForm::Number) return found_.Add(FindingKind::CellNoNumber, number_, where);
        TakeDate(text, where);
    }

    void TakeDate(std::string_view text, const std::string& where) {
        const auto date = ReadRecordDate(text) ? ParseDate(text) : std::nullopt;
        if (!date) return found_.Add(FindingKind::CellNoDate, number_, where);
        // Dividends are announced ahead.
        const bool isTrade = where.starts_with("Trade");
        if (isTrade && *date > AddDays(today_, 1)) found_.Add(FindingKind::FutureDay, number_, where);
    }

    static std::string Quoted(std::string_view text) { return fmt::format("\"{}\"", InLine(text)); }

    FileKind kind_;
    Date today_;
    FileFindings found_;
    TableCheck check_;
    std::size_t number_ = 0;
    Cells headers_;
    std::vector<CellForm> forms_;
    std::unordered_map<std::string_view, std::size_t> firstLines_;
};

constexpr std::array kMendableRows = {FindingKind::EmptyRow, FindingKind::CellCount};

// `line` with as many cells as the header has, where that takes nothing away.
std::string WithCells(std::string_view line, std::size_t columns) {
    std::string mended(line);
    std::size_t cells = static_cast<std::size_t>(std::count(line.begin(), line.end(), '\t')) + 1;
    if (cells == 1 || columns > QuoteTable::kMostColumns) return mended;
    for (; cells < columns; ++cells) mended += '\t';
    for (; cells > columns && mended.ends_with('\t'); --cells) mended.pop_back();
    return mended;
}

}  // namespace

TableCheck CheckTable(const Path& file, FileKind kind, std::string_view bytes, const Date& today) {
    return TableLook(file, kind, today).Look(bytes);
}

bool IsTableMendable(FindingKind kind) {
    return std::find(kMendableRows.begin(), kMendableRows.end(), kind) != kMendableRows.end();
}

std::string MendTable(std::string_view bytes) {
    std::string mended;
    std::size_t columns = 0;
    LineReader reader(bytes);
    std::string_view line;
    while (reader.Next(line)) {
        const bool isHeader = columns == 0;
        if (isHeader) columns = SplitAt(line, '\t').size();
        if (!isHeader && Trim(line).empty()) continue;
        mended.append(isHeader ? std::string(line) : WithCells(line, columns)).append(kLineEnd);
    }
    return mended;
}

}  // namespace brantlow
