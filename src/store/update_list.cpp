#include "store/update_list.h"

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

namespace {

constexpr std::string_view kUpdateListName = "QuoteList.ddq";

std::error_code AppendValue(const std::string& quoteFolder, const Value& value) {
    return AppendToFile(UpdateListPath(quoteFolder), value.Written().append(kLineEnd));
}

}  // namespace

Path UpdateListPath(const std::string& quoteFolder) {
    return Path(quoteFolder + std::string(kUpdateListName));
}

bool DeleteUpdateList(const std::string& quoteFolder) {
    return DeleteOneFile(UpdateListPath(quoteFolder));
}

std::error_code AppendUpdateCount(const std::string& quoteFolder, std::size_t tickerCount) {
    return AppendValue(quoteFolder, Value::OfNumber(static_cast<double>(tickerCount)));
}

std::error_code AppendUpdatedTicker(const std::string& quoteFolder, std::string_view ticker) {
    return AppendValue(quoteFolder, Value::OfText(ticker));
}

UpdateList ReadUpdateList(const std::string& quoteFolder) {
    const ReadResult read = ReadWholeFile(UpdateListPath(quoteFolder));
    UpdateList list;
    list.outcome = read.outcome;
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
