// The exchanges' symbol directories: lines of fields between bars, a header, and a footer with the time of
// their making, without which the file is cut short.
#include <array>
#include <vector>

#include "acquire/feeds/live/source_rows.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::string_view kFooter = "File Creation Time";

struct ExchangeCode {
    std::string_view code;
    std::string_view name;
};
constexpr std::array<ExchangeCode, 6> kExchangeCodes = {{{"A", "NYSE American"},
                                                         {"N", "NYSE"},
                                                         {"P", "NYSE Arca"},
                                                         {"Z", "Cboe"},
                                                         {"V", "IEX"},
                                                         {"M", "Chicago"}}};

// The places of the columns that are read; npos for one that the file does not have.
struct DirectoryColumns {
    std::size_t symbol = std::string::npos;
    std::size_t name = std::string::npos;
    std::size_t exchange = std::string::npos;
    std::size_t test = std::string::npos;
    std::size_t etf = std::string::npos;
};

DirectoryColumns ColumnsOf(const std::vector<std::string_view>& header) {
    DirectoryColumns columns;
    for (std::size_t i = 0; i < header.size(); ++i) {
        const std::string_view name = Trim(header[i]);
        if (name == "Symbol" || name == "ACT Symbol") columns.symbol = i;
        if (name == "Security Name") columns.name = i;
        if (name == "Exchange") columns.exchange = i;
        if (name == "Test Issue") columns.test = i;
        if (name == "ETF") columns.etf = i;
    }
    return columns;
}

std::string_view FieldAt(const std::vector<std::string_view>& fields, std::size_t column) {
    return column < fields.size() ? Trim(fields[column]) : std::string_view{};
}

std::string ExchangeName(std::string_view code) {
    for (const ExchangeCode& row : kExchangeCodes) {
        if (row.code == code) return std::string(row.name);
    }
    return std::string(code);
}

// The directory's spelling of preferreds and classes; a plain symbol stands as it is.
SymbolNotation DirectoryNotation() {
    SymbolNotation notation;
    notation.classMark = ".";
    notation.preferredMark = "$";
    notation.unitEnd = ".U";
    notation.warrantEnd = ".WS";
    notation.foreignMark = ".";
    return notation;
}

void TakeLine(const std::vector<std::string_view>& fields, const DirectoryColumns& columns,
              const SymbolNotation& notation, SourceReply& reply) {
    ++reply.rows;
    if (FieldAt(fields, columns.test) == "Y") return;
    const auto ticker = ReadSymbol(notation, FieldAt(fields, columns.symbol));
    if (!ticker) return;
    const std::string exchange =
        columns.exchange == std::string::npos ? "NASDAQ" : ExchangeName(FieldAt(fields, columns.exchange));
    const bool isEtf = FieldAt(fields, columns.etf) == "Y";
    reply.symbols.push_back(
        {*ticker, ServerWords(FieldAt(fields, columns.name)), exchange, isEtf ? "etf" : "stock"});
}

}  // namespace

void ReadSymbolDirectory(const ReplyScene&, std::string_view bytes, SourceReply& reply) {
    LineReader reader(bytes);
    std::string_view line;
    if (!reader.Next(line)) return ChangeFormat(reply, "the directory is empty");
    const DirectoryColumns columns = ColumnsOf(SplitAt(line, '|'));
    if (columns.symbol == std::string::npos || columns.name == std::string::npos) {
        return ChangeFormat(reply, "the directory lacks its header: " + std::string(line));
    }
    const SymbolNotation notation = DirectoryNotation();
    while (reader.Next(line)) {
        if (line.starts_with(kFooter)) return;
        TakeLine(SplitAt(line, '|'), columns, notation, reply);
    }
    ChangeFormat(reply, "the directory is cut short: its last line is missing");
}

}  // namespace brantlow
