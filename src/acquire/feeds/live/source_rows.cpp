#include "acquire/feeds/live/source_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "acquire/feeds/live/reply_values.h"
#include "base/numbers.h"
#include "base/text.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

namespace {

using nlohmann::json;
using std::chrono::sys_days;

// A row's field as a price; nothing, with the ticker refused, for text that is no number.
std::optional<double> PriceOf(const ReplyScene& scene, const json& row, RowField field, SourceBars& ticker,
                              bool& isMissing) {
    const std::string& pointer = scene.form.Field(field);
    const ReplyNumber number = pointer.empty() ? ReplyNumber{} : NumberOf(Lead(row, pointer));
    if (number.state == NumberState::Missing) isMissing = true;
    if (number.state == NumberState::Bad) {
        ticker.Refuse(fmt::format("its {} is no number", kRowFieldNames[static_cast<std::size_t>(field)]));
        return std::nullopt;
    }
    return number.value * scene.form.factor;
}

void TakeSplitFactor(const ReplyScene& scene, const json& row, sys_days day, const std::string& symbol,
                     SourceBars& ticker) {
    const std::string& pointer = scene.form.Field(RowField::SplitFactor);
    if (pointer.empty()) return;
    const ReplyNumber factor = NumberOf(Lead(row, pointer));
    if (factor.state != NumberState::Read || factor.value == 1) return;
    if (!(factor.value > 0 && factor.value < kHighestPrice)) return ticker.Refuse("its split factor is none");
    ticker.splits.push_back({symbol, day, factor.value});
}

void TakeBar(const ReplyScene& scene, const json& row, const json* date, const std::string& symbol,
             SourceBars& ticker) {
    const auto day = DayOf(date, scene.form.dateForm, *scene.source.zone, scene.from);
    if (!day) return ticker.Refuse("a row has no date that can be read");
    bool isMissing = false;
    bool hasNoVolume = false;
    const auto open = PriceOf(scene, row, RowField::Open, ticker, isMissing);
    const auto high = PriceOf(scene, row, RowField::High, ticker, isMissing);
    const auto low = PriceOf(scene, row, RowField::Low, ticker, isMissing);
    const auto close = PriceOf(scene, row, RowField::Close, ticker, isMissing);
    const std::string& volumePointer = scene.form.Field(RowField::Volume);
    const ReplyNumber volume = volumePointer.empty() ? ReplyNumber{} : NumberOf(Lead(row, volumePointer));
    hasNoVolume = volume.state == NumberState::Missing;
    if (volume.state == NumberState::Bad) ticker.Refuse("its volume is no number");
    if (!open || !high || !low || !close) return;
    TakeSplitFactor(scene, row, *day, symbol, ticker);
    if (isMissing) {
        ++ticker.withoutPrice;
        return;
    }
    AddBar(scene, {*day, *open, *high, *low, *close, hasNoVolume ? 0 : volume.value}, ticker);
}

// "4 : 1" and "1.5:1" are shares; "5.000%" is a dividend in shares.
double FactorOfRatio(std::string_view text) {
    const auto part = [](std::string_view piece) { return LeadingNumber(Trim(piece)); };
    constexpr double kWhole = 100;
    if (Trim(text).ends_with('%')) return 1 + part(text) / kWhole;
    const std::size_t mark = text.find_first_of(":/");
    if (mark == std::string_view::npos) return 0;
    return Divide(part(text.substr(0, mark)), part(text.substr(mark + 1))).value_or(0);
}

void TakeSplit(const ReplyScene& scene, const json& row, SourceReply& reply) {
    const CapabilityForm& form = scene.form;
    const std::string symbol = TextOf(Lead(row, form.Field(RowField::Symbol)));
    const auto day =
        DayOf(Lead(row, form.Field(RowField::Day)), form.dateForm, *scene.source.zone, scene.from);
    double factor = 0;
    if (!form.Field(RowField::Ratio).empty()) {
        factor = FactorOfRatio(TextOf(Lead(row, form.Field(RowField::Ratio))));
    } else {
        const ReplyNumber bought = NumberOf(Lead(row, form.Field(RowField::NewShares)));
        const ReplyNumber given = NumberOf(Lead(row, form.Field(RowField::OldShares)));
        factor = Divide(bought.value, given.value).value_or(0);
    }
    constexpr double kLargestFactor = 10'000;
    const bool isSplit = factor > 1 / kLargestFactor && factor < kLargestFactor && factor != 1;
    // A calendar holds entries without a day or a ratio; they are no splits yet.
    if (day && isSplit && !symbol.empty()) reply.splits.push_back({std::string(Trim(symbol)), *day, factor});
}

std::string NameOfCode(const std::vector<std::pair<std::string, std::string>>& names, const std::string& code,
                       std::string_view otherwise) {
    for (const auto& [from, to] : names) {
        if (from == code) return to;
    }
    return std::string(otherwise);
}

void TakeSymbol(const ReplyScene& scene, const json& row, SourceReply& reply) {
    const CapabilityForm& form = scene.form;
    const auto ticker = ReadSymbol(scene.source.notation, TextOf(Lead(row, form.Field(RowField::Symbol))));
    if (!ticker) return;
    const auto text = [&](RowField field) {
        return form.Field(field).empty() ? std::string() : TextOf(Lead(row, form.Field(field)));
    };
    const std::string code = text(RowField::Exchange);
    reply.symbols.push_back({*ticker, ServerWords(text(RowField::Name)),
                             NameOfCode(form.exchanges, code, code),
                             NameOfCode(form.kinds, text(RowField::Kind), "other")});
}

void TakeRow(const ReplyScene& scene, const json& row, const json* date, const std::string& group,
             SourceReply& reply) {
    ++reply.rows;
    const CapabilityForm& form = scene.form;
    if (&form == scene.source.Form(Capability::Splits)) return TakeSplit(scene, row, reply);
    if (&form == scene.source.Form(Capability::Symbols)) return TakeSymbol(scene, row, reply);
    std::string symbol = group;
    if (!form.groups && form.tickers != 1) symbol = TextOf(Lead(row, form.Field(RowField::Symbol)));
    if (symbol.empty()) return;
    TakeBar(scene, row, date, symbol, reply.bySymbol[symbol]);
}

// The rows of a reply or of a group of it. False where there are none of that shape.
bool TakeRowsOf(const ReplyScene& scene, const json& value, const std::string& group, SourceReply& reply) {
    for (const std::string& pointer : scene.form.rows) {
        const json* rows = Lead(value, pointer);
        if (rows == nullptr) continue;
        if (scene.form.dateIsName) {
            if (!rows->is_object()) return false;
            for (const auto& [name, row] : rows->items()) {
                const json date = name;
                TakeRow(scene, row, &date, group, reply);
            }
            continue;
        }
        if (!rows->is_array()) return false;
        for (const json& row : *rows) {
            const std::string& field = scene.form.Field(RowField::Day);
            TakeRow(scene, row, field.empty() ? nullptr : Lead(row, field), group, reply);
        }
    }
    return true;
}

bool TakeGroups(const ReplyScene& scene, const json& document, SourceReply& reply) {
    const json* groups = Lead(document, *scene.form.groups);
    if (groups == nullptr) return true;
    if (!groups->is_object()) return false;
    for (const auto& [symbol, group] : groups->items()) {
        if (!TakeRowsOf(scene, group, symbol, reply)) return false;
    }
    return true;
}

bool HasShape(const CapabilityForm& form, const json& document) {
    if (form.shapePointer.empty()) return true;
    const json* value = Lead(document, form.shapePointer);
    if (value == nullptr) return false;
    if (form.shapeTexts.empty()) return true;
    const std::string text = TextOf(value);
    return std::find(form.shapeTexts.begin(), form.shapeTexts.end(), text) != form.shapeTexts.end();
}

// No table and no history of the program holds more days.
void KeepNewest(std::vector<SourceBar>& bars) {
    if (bars.size() > kMostRows)
        bars.erase(bars.begin(), bars.end() - static_cast<std::ptrdiff_t>(kMostRows));
}

}  // namespace

void ChangeFormat(SourceReply& reply, std::string_view reason) {
    reply.outcome = {.result = SourceResult::ChangedFormat, .words = ServerWords(reason)};
}

void ReadReply(const ReplyScene& scene, std::string_view bytes, SourceReply& reply) {
    const CapabilityForm& form = scene.form;
    if (form.reader == ReplyReader::YahooChart) return ReadYahooChart(scene, bytes, reply);
    if (form.reader == ReplyReader::YahooSpark) return ReadYahooSpark(scene, bytes, reply);
    if (form.reader == ReplyReader::SymbolDirectory) return ReadSymbolDirectory(scene, bytes, reply);
    const json document = ParsedReply(bytes);
    if (document.is_discarded()) return ChangeFormat(reply, "the reply is no whole JSON");
    if (!HasShape(form, document)) return ChangeFormat(reply, "the reply lacks what a good one has");
    const bool read =
        form.groups ? TakeGroups(scene, document, reply) : TakeRowsOf(scene, document, scene.symbol, reply);
    if (!read) return ChangeFormat(reply, "the rows are not where they were");
    if (!form.currency.empty()) {
        for (auto& [symbol, ticker] : reply.bySymbol) ticker.currency = TextOf(Lead(document, form.currency));
    }
    reply.next = form.paging ? TextOf(Lead(document, form.paging->pointer)) : std::string();
}

void AddBar(const ReplyScene& scene, const SourceBar& bar, SourceBars& ticker) {
    const auto isPrice = [](double price) {
        return std::isfinite(price) && std::abs(price) <= kHighestPrice;
    };
    if (!isPrice(bar.open) || !isPrice(bar.high) || !isPrice(bar.low) || !isPrice(bar.close)) {
        return ticker.Refuse("a price is none");
    }
    if (!std::isfinite(bar.volume) || bar.volume < 0 || bar.volume > kHighestVolume) {
        return ticker.Refuse("a volume is none");
    }
    const sys_days today = MomentIn(*scene.source.zone, scene.now).day;
    // A foreign exchange's day begins earlier than that of the source's zone.
    const bool isForeign = scene.form.reader != ReplyReader::Rows;
    if (bar.day > today + std::chrono::days{isForeign ? 1 : 0}) {
        return ticker.Refuse("a row is dated " + FormatIsoDate(Date{bar.day}) + ", which is still to come");
    }
    if (bar.day < scene.from || bar.day > scene.to) return;
    if (!(bar.close > 0)) {
        ++ticker.withoutPrice;
        return;
    }
    ticker.bars.push_back(bar);
}

void FinishBars(SourceBars& ticker, bool lastStands) {
    std::vector<SourceBar>& bars = ticker.bars;
    constexpr std::size_t kOneIn = 10;
    if (ticker.withoutPrice * kOneIn > bars.size() + ticker.withoutPrice) {
        ticker.Refuse("more than one row in ten has no price");
    }
    const auto isNotAfter = [](const SourceBar& a, const SourceBar& b) { return b.day <= a.day; };
    // Most come in order.
    if (std::adjacent_find(bars.begin(), bars.end(), isNotAfter) == bars.end()) return KeepNewest(bars);
    std::stable_sort(bars.begin(), bars.end(),
                     [](const SourceBar& a, const SourceBar& b) { return a.day < b.day; });
    std::vector<SourceBar> days;
    for (const SourceBar& bar : bars) {
        const bool isAgain = !days.empty() && days.back().day == bar.day;
        if (isAgain && !lastStands) {
            ticker.Refuse("it has two rows for " + FormatIsoDate(Date{bar.day}));
        }
        if (isAgain) {
            days.back() = bar;
        } else {
            days.push_back(bar);
        }
    }
    KeepNewest(days);
    bars = std::move(days);
}

}  // namespace brantlow
