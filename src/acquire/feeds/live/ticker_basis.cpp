#include "acquire/feeds/live/ticker_basis.h"

#include "acquire/feeds/live/reply_values.h"

namespace brantlow {

namespace {

using nlohmann::json;

std::optional<std::chrono::sys_days> DayAt(const json& value) {
    return DayOf(&value, ReplyDate::Iso, NewYorkZone(), {});
}

TickerBasis ReadBasis(const json& entry) {
    TickerBasis basis;
    const auto text = [&](const char* pointer) { return TextOf(Lead(entry, pointer)); };
    basis.source = text("/source");
    basis.basis = BasisOfName(text("/basis")).value_or(PriceBasis::Raw);
    basis.currency = text("/currency");
    if (const json* day = Lead(entry, "/through")) basis.through = DayAt(*day).value_or(basis.through);
    const json* restated = Lead(entry, "/restated");
    if (restated == nullptr || !restated->is_array()) return basis;
    for (const json& day : *restated) {
        if (const auto read = DayAt(day)) basis.restated.push_back(*read);
    }
    return basis;
}

json WrittenBasis(const TickerBasis& basis) {
    json entry = {{"source", basis.source},
                  {"basis", std::string(BasisName(basis.basis))},
                  {"currency", basis.currency},
                  {"through", FormatIsoDate(basis.through)}};
    json days = json::array();
    for (const auto day : basis.restated) days.push_back(FormatIsoDate(day));
    if (!days.empty()) entry["restated"] = std::move(days);
    return entry;
}

bool HoldsDividends(PriceBasis basis) {
    return basis == PriceBasis::Adjusted;
}

}  // namespace

TickerBases TickerBases::Load(const Path& dataFolder, Failure& fault) {
    TickerBases bases;
    const Path file = dataFolder / kSourceHistoriesName;
    std::string bytes;
    if (Failure failure = ReadIfThere(file, bytes)) fault = std::move(failure);
    const json document = json::parse(bytes, nullptr, false);
    if (!document.is_object()) return bases;
    for (const auto& [ticker, entry] : document.items()) {
        if (entry.is_object()) bases.entries_[ticker] = ReadBasis(entry);
    }
    return bases;
}

const TickerBasis* TickerBases::Find(std::string_view ticker) const {
    const auto found = entries_.find(ticker);
    return found == entries_.end() ? nullptr : &found->second;
}

Failure TickerBases::Save(const Path& dataFolder, FileChange& change) const {
    json document = json::object();
    for (const auto& [ticker, basis] : entries_) document[ticker] = WrittenBasis(basis);
    const auto replace = json::error_handler_t::replace;
    return change.Write(dataFolder / kSourceHistoriesName, document.dump(0, ' ', false, replace) + "\n");
}

std::string MixRefusal(const TickerBasis* stored, const SourceDefinition& source, PriceBasis basis,
                       std::string_view currency) {
    if (stored == nullptr) return {};
    if (!currency.empty() && !stored->currency.empty() && currency != stored->currency) {
        return "its history is in " + stored->currency + ", " + source.title + " tells " +
               std::string(currency) + ": populate it anew";
    }
    if (HoldsDividends(stored->basis) == HoldsDividends(basis)) return {};
    return std::string("its history is ") + (HoldsDividends(stored->basis) ? "" : "not ") +
           "adjusted for dividends, the prices of " + source.title + " are" +
           (HoldsDividends(basis) ? "" : " not") + ": populate it anew";
}

}  // namespace brantlow
