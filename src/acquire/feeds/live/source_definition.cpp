#include "acquire/feeds/live/source_definition.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "acquire/feeds/live/address_template.h"
#include "acquire/feeds/live/definition_reader.h"
#include "acquire/feeds/live/source_name.h"
#include "acquire/web/web.h"

namespace brantlow {

namespace {

using nlohmann::json;

constexpr double kMostTickers = 1000;
constexpr double kMostRequests = 1'000'000;
constexpr double kLongestPause = 3600;
constexpr double kLongestTimeout = 120;

template <typename T, std::size_t count>
struct NameTable {
    std::array<std::pair<std::string_view, T>, count> rows;

    std::optional<T> Find(std::string_view name) const {
        for (const auto& [text, value] : rows) {
            if (text == name) return value;
        }
        return std::nullopt;
    }
};

constexpr NameTable<ReplyDate, 7> kDateForms = {{{{"YYYY-MM-DD", ReplyDate::Iso},
                                                  {"UTC", ReplyDate::IsoUtc},
                                                  {"M/D/YYYY", ReplyDate::American},
                                                  {"YYYYMMDD", ReplyDate::Compact},
                                                  {"seconds", ReplyDate::Seconds},
                                                  {"milliseconds", ReplyDate::Milliseconds},
                                                  {"asked", ReplyDate::Asked}}}};
constexpr NameTable<ReplyReader, 5> kReaders = {{{{"rows", ReplyReader::Rows},
                                                  {"yahoo-chart", ReplyReader::YahooChart},
                                                  {"yahoo-spark", ReplyReader::YahooSpark},
                                                  {"symbol-directory", ReplyReader::SymbolDirectory},
                                                  {"sec-facts", ReplyReader::SecFacts}}}};
constexpr NameTable<PriceBasis, 3> kBases = {
    {{{"raw", PriceBasis::Raw}, {"split", PriceBasis::Split}, {"adjusted", PriceBasis::Adjusted}}}};
constexpr NameTable<SourceResult, 2> kEmptyMeanings = {
    {{{"no data", SourceResult::NoData}, {"unknown symbol", SourceResult::UnknownSymbol}}}};
constexpr NameTable<KeyKind, 4> kKeyKinds = {{{{"none", KeyKind::None},
                                               {"one", KeyKind::One},
                                               {"id and secret", KeyKind::Pair},
                                               {"contact address", KeyKind::Contact}}}};

// The value that a text entry names; `otherwise` where it is missing.
template <typename Table, typename T>
T Named(EntryReader& reader, std::string_view name, const Table& table, T otherwise) {
    const auto text = reader.Text(name);
    if (!text) return otherwise;
    const auto value = table.Find(*text);
    if (!value) reader.Complain(name, "'" + *text + "' is none of those that there are");
    return value.value_or(otherwise);
}

void TakeAddresses(EntryReader& reader, CapabilityForm& form) {
    form.addresses = reader.Texts("address");
    if (form.addresses.empty()) reader.Complain("address", "is missing");
    for (const std::string& address : form.addresses) {
        if (!IsWebAddress(address)) reader.Complain("address", "is no http or https address");
        const std::string unknown = UnknownPlaceholder(address);
        if (!unknown.empty()) reader.Complain("address", "{" + unknown + "} stands for nothing");
    }
}

void TakeTickers(EntryReader& reader, CapabilityForm& form) {
    const json* value = reader.Find("tickers");
    if (value == nullptr) return;
    if (value->is_string()) {
        if (value->get<std::string>() != "market")
            reader.Complain("tickers", "is neither a number nor market");
        form.tickers = 0;
        return;
    }
    form.tickers = static_cast<std::size_t>(reader.Number("tickers", 1, kMostTickers).value_or(1));
}

void TakeFields(EntryReader& reader, CapabilityForm& form) {
    const json* value = reader.Find("fields");
    if (value == nullptr) return;
    EntryReader fields(*value, reader.PlaceOf("fields"), reader.Complaints());
    for (std::size_t i = 0; i < kRowFieldCount; ++i) {
        const auto pointer = fields.Pointer(kRowFieldNames[i]);
        if (!pointer) continue;
        form.fields[i] = *pointer;
        if (pointer->empty()) fields.Complain(kRowFieldNames[i], "is empty");
    }
    fields.EndOfEntries();
}

void TakePaging(EntryReader& reader, CapabilityForm& form) {
    const json* value = reader.Find("next");
    if (value == nullptr) return;
    EntryReader next(*value, reader.PlaceOf("next"), reader.Complaints());
    Paging paging;
    const auto pointer = next.Pointer("pointer");
    if (!pointer || pointer->empty()) next.Complain("pointer", "is missing");
    paging.pointer = pointer.value_or("");
    paging.parameter = next.Text("parameter").value_or("");
    next.EndOfEntries();
    form.paging = std::move(paging);
}

void TakeShape(EntryReader& reader, CapabilityForm& form) {
    const json* value = reader.Find("shape");
    if (value == nullptr) return;
    EntryReader shape(*value, reader.PlaceOf("shape"), reader.Complaints());
    form.shapePointer = shape.Pointer("pointer").value_or("");
    if (form.shapePointer.empty()) shape.Complain("pointer", "is missing");
    form.shapeTexts = shape.Texts("in");
    shape.EndOfEntries();
}

void TakeRows(EntryReader& reader, CapabilityForm& form) {
    form.groups = reader.Pointer("groups");
    const std::vector<std::string> rows = reader.Texts("rows");
    if (!rows.empty()) form.rows = rows;
    for (const std::string& pointer : form.rows) {
        if (!IsJsonPointer(pointer)) reader.Complain("rows", "is no JSON pointer");
    }
    form.dateIsName = reader.Switch("dateIsName");
    TakeFields(reader, form);
    form.dateForm = Named(reader, "date", kDateForms, ReplyDate::Iso);
}

// The fields without which the rows of a capability are none.
std::vector<RowField> NeededFields(Capability capability, const CapabilityForm& form) {
    if (capability == Capability::Symbols) return {RowField::Symbol};
    if (capability == Capability::Splits) return {RowField::Symbol, RowField::Day};
    std::vector<RowField> fields = {RowField::Open, RowField::High, RowField::Low, RowField::Close};
    if (!form.dateIsName && form.dateForm != ReplyDate::Asked) fields.push_back(RowField::Day);
    if (form.tickers != 1 && !form.groups) fields.push_back(RowField::Symbol);
    return fields;
}

void CheckNeeded(EntryReader& reader, Capability capability, const CapabilityForm& form) {
    if (form.reader != ReplyReader::Rows) return;
    if (capability == Capability::Fundamentals) reader.Complain("reader", "has to be one in code");
    for (const RowField field : NeededFields(capability, form)) {
        if (form.Field(field).empty()) {
            reader.Complain("fields/" + std::string(kRowFieldNames[static_cast<std::size_t>(field)]),
                            "is missing");
        }
    }
    const bool hasRatio = !form.Field(RowField::Ratio).empty() || (!form.Field(RowField::NewShares).empty() &&
                                                                   !form.Field(RowField::OldShares).empty());
    if (capability == Capability::Splits && !hasRatio) reader.Complain("fields/ratio", "is missing");
}

CapabilityForm ReadForm(const json& value, const std::string& place, Capability capability,
                        Complaint& complaint) {
    EntryReader reader(value, place, complaint);
    CapabilityForm form;
    TakeAddresses(reader, form);
    TakeTickers(reader, form);
    form.reader = Named(reader, "reader", kReaders, ReplyReader::Rows);
    TakeRows(reader, form);
    form.factor = reader.Number("factor", 1e-6, 1e6).value_or(1);
    form.currency = reader.Pointer("currency").value_or("");
    form.basis = Named(reader, "basis", kBases, PriceBasis::Raw);
    form.empty = Named(reader, "empty", kEmptyMeanings, SourceResult::NoData);
    TakePaging(reader, form);
    TakeShape(reader, form);
    form.exchanges = reader.Pairs("exchanges");
    form.kinds = reader.Pairs("kinds");
    reader.EndOfEntries();
    CheckNeeded(reader, capability, form);
    return form;
}

void TakeKey(EntryReader& reader, SourceDefinition& source) {
    const json* value = reader.Find("key");
    if (value == nullptr) return;
    EntryReader key(*value, reader.PlaceOf("key"), reader.Complaints());
    source.key.kind = Named(key, "kind", kKeyKinds, KeyKind::None);
    source.key.headers = key.Texts("headers");
    source.key.parameter = key.Text("parameter").value_or("");
    source.key.hint = key.Text("hint").value_or("");
    key.EndOfEntries();
    const bool isUsed = !source.key.headers.empty() || !source.key.parameter.empty();
    if (source.key.kind != KeyKind::None && !isUsed) key.Complain("headers", "nor a parameter takes the key");
}

void TakeNotation(EntryReader& reader, SourceDefinition& source) {
    const json* value = reader.Find("notation");
    if (value == nullptr) return;
    EntryReader notation(*value, reader.PlaceOf("notation"), reader.Complaints());
    SymbolNotation& form = source.notation;
    form.classMark = notation.Text("class");
    form.classEnd = notation.Text("classEnd").value_or("");
    form.preferredMark = notation.Text("preferred");
    form.unitEnd = notation.Text("unit");
    form.warrantEnd = notation.Text("warrant");
    form.foreignMark = notation.Text("foreign");
    form.asIsIndices = notation.Switch("indices");
    form.ending = notation.Text("ending").value_or("");
    form.lowerCase = notation.Switch("lowerCase");
    form.names = notation.Pairs("names");
    notation.EndOfEntries();
}

void TakeLimits(EntryReader& reader, SourceDefinition& source) {
    const json* value = reader.Find("limits");
    if (value == nullptr) return;
    EntryReader limits(*value, reader.PlaceOf("limits"), reader.Complaints());
    constexpr std::array<std::string_view, 5> kNames = {"second", "minute", "hour", "day", "month"};
    constexpr std::array<double, 5> kSeconds = {1, 60, 3600, 86'400, 2'592'000};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if (const auto count = limits.Number(kNames[i], 1, kMostRequests)) {
            source.limits.push_back({static_cast<std::size_t>(*count), kSeconds[i]});
        }
    }
    source.pauseSeconds = limits.Number("pause", 0, kLongestPause).value_or(0);
    limits.EndOfEntries();
}

ErrorRule ReadRule(const json& value, const std::string& place, Complaint& complaint) {
    EntryReader reader(value, place, complaint);
    ErrorRule rule;
    if (const auto status = reader.Number("status", 100, 599)) rule.status = static_cast<int>(*status);
    rule.pointer = reader.Pointer("pointer").value_or("");
    rule.equals = reader.Text("equals").value_or("");
    rule.contains = reader.Text("contains").value_or("");
    const std::string outcome = reader.RequiredText("outcome");
    const auto result = ResultOfName(outcome);
    if (!result || *result == SourceResult::Rows)
        reader.Complain("outcome", "'" + outcome + "' is no failure");
    rule.outcome.result = result.value_or(SourceResult::ChangedFormat);
    const std::string scope = reader.Text("scope").value_or("minute");
    const auto known = ScopeOfName(scope);
    if (!known) reader.Complain("scope", "'" + scope + "' is none of minute, hour, day, month");
    rule.outcome.scope = known.value_or(LimitScope::Minute);
    rule.outcome.waitSeconds = reader.Number("wait", 0, SecondsOf(LimitScope::Month)).value_or(0);
    reader.EndOfEntries();
    if (!rule.status && rule.pointer.empty() && rule.contains.empty()) {
        complaint.Add(place, "applies to every reply");
    }
    return rule;
}

void TakeRules(EntryReader& reader, SourceDefinition& source) {
    const json* value = reader.Find("errors");
    if (value == nullptr) return;
    if (!value->is_array()) return reader.Complain("errors", "is no array");
    for (std::size_t i = 0; i < value->size(); ++i) {
        const std::string place = fmt::format("{}/{}", reader.PlaceOf("errors"), i);
        source.errors.push_back(ReadRule((*value)[i], place, reader.Complaints()));
    }
}

void TakeCapabilities(EntryReader& reader, SourceDefinition& source) {
    std::set<std::string> hosts;
    bool any = false;
    for (std::size_t i = 0; i < kCapabilityCount; ++i) {
        const json* value = reader.Find(kCapabilityNames[i]);
        if (value == nullptr) continue;
        any = true;
        source.capabilities[i] = ReadForm(*value, reader.PlaceOf(kCapabilityNames[i]),
                                          static_cast<Capability>(i), reader.Complaints());
        for (const std::string& address : source.capabilities[i]->addresses) hosts.insert(HostOf(address));
    }
    if (!any) reader.Complain("history", "is missing, and so is everything else that a source can give");
    source.hasSeveralHosts = hosts.size() > 1;
}

void TakeHead(EntryReader& reader, SourceDefinition& source) {
    source.name = reader.RequiredText("name");
    if (!IsSourceName(source.name))
        reader.Complain("name", "may hold small letters, digits and hyphens only");
    source.title = reader.RequiredText("title");
    source.home = reader.Text("home").value_or("");
    source.terms = reader.RequiredText("terms");
    source.asksConsent = reader.Switch("consent");
    source.headers = reader.Texts("headers");
    source.secondAgent = reader.Text("secondAgent").value_or("");
    const std::string zone = reader.Text("zone").value_or("America/New_York");
    source.zone = FindZone(zone);
    if (source.zone == nullptr) reader.Complain("zone", "'" + zone + "' is no time zone that is known here");
    source.timeoutSeconds = reader.Number("timeout", 1, kLongestTimeout).value_or(source.timeoutSeconds);
}

}  // namespace

std::string_view BasisName(PriceBasis basis) {
    return kBases.rows[static_cast<std::size_t>(basis)].first;
}

std::optional<PriceBasis> BasisOfName(std::string_view name) {
    return kBases.Find(name);
}

DefinitionRead ReadSourceDefinition(std::string_view text) {
    const json document = json::parse(text, nullptr, false);
    if (document.is_discarded()) return {std::nullopt, "/: is no JSON"};
    Complaint complaint;
    EntryReader reader(document, "", complaint);
    SourceDefinition source;
    TakeHead(reader, source);
    TakeKey(reader, source);
    TakeNotation(reader, source);
    TakeLimits(reader, source);
    TakeRules(reader, source);
    TakeCapabilities(reader, source);
    reader.EndOfEntries();
    if (!complaint.text.empty()) return {std::nullopt, complaint.text};
    return {std::move(source), {}};
}

}  // namespace brantlow
