#include "store/update_list.h"

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

namespace {

constexpr std::string_view kUpdateListName = "QuoteList.ddq";

}  // namespace

Path UpdateListPath(const std::string& quoteFolder) {
    return Path(quoteFolder + std::string(kUpdateListName));
}

bool DeleteUpdateList(const std::string& quoteFolder) {
    return DeleteOneFile(UpdateListPath(quoteFolder));
}

std::string UpdateCountLine(std::size_t tickerCount) {
    return std::to_string(tickerCount).append(kLineEnd);
}

std::string UpdatedTickerLine(std::string_view ticker) {
    std::string line;
    AppendQuoted(ticker, line);
    return line.append(kLineEnd);
}

UpdateList ReadUpdateList(const std::string& quoteFolder) {
    const ReadResult read = ReadWholeFile(UpdateListPath(quoteFolder));
    UpdateList list;
    list.outcome = read.outcome;
    list.error = read.error;
    LineReader reader(read.bytes);
    std::string_view line;
    if (!reader.Next(line)) return list;
    const double count = LeadingNumber(Value::Parse(line).Text());
    while (static_cast<double>(list.tickers.size()) < count && list.tickers.size() < kMostRows &&
           reader.Next(line)) {
        list.tickers.push_back(Value::Parse(line).Text());
    }
    return list;
}

}  // namespace brantlow
