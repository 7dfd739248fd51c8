// What a live source is: where it is asked, with which key, within which limits, and how its replies are
// read. A definition is data (assets/Sources/*.json, the user's Data/Sources/*.json); source_catalogue.h
// loads them, source_client.h asks by them. docs/sources.md tells the form to whoever writes one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/feeds/live/source_outcome.h"
#include "acquire/feeds/live/symbol_notation.h"
#include "acquire/feeds/live/zone_time.h"

namespace brantlow {

// In the order of the lines of VTRSRCset.ini.
enum class Capability : std::uint8_t { Quotes, History, Splits, Fundamentals, Symbols };
inline constexpr std::size_t kCapabilityCount = 5;
inline constexpr std::array<std::string_view, kCapabilityCount> kCapabilityNames = {
    "quotes", "history", "splits", "fundamentals", "symbols"};

// Who makes rows of a reply: the paths of the definition, or one of the readers in code.
enum class ReplyReader : std::uint8_t { Rows, YahooChart, YahooSpark, SymbolDirectory, SecFacts };

enum class ReplyDate : std::uint8_t {
    Iso,           // begins with YYYY-MM-DD
    IsoUtc,        // a moment in UTC; its day is that of the source's zone
    American,      // M/D/YYYY
    Compact,       // YYYYMMDD
    Seconds,       // since 1970; its day is that of the source's zone
    Milliseconds,  // the same in thousandths
    Asked,         // the day that was asked for
};

// What later splits and dividends have done to the prices of earlier days.
enum class PriceBasis : std::uint8_t { Raw, Split, Adjusted };
std::string_view BasisName(PriceBasis basis);
std::optional<PriceBasis> BasisOfName(std::string_view name);

// The fields of a row, by the names under which a definition lists them.
enum class RowField : std::uint8_t {
    Day,
    Open,
    High,
    Low,
    Close,
    Volume,
    SplitFactor,
    Symbol,
    Name,
    Exchange,
    Kind,
    NewShares,
    OldShares,
    Ratio,
};
inline constexpr std::size_t kRowFieldCount = 14;
inline constexpr std::array<std::string_view, kRowFieldCount> kRowFieldNames = {
    "date",   "open", "high",     "low",  "close", "volume", "split",
    "symbol", "name", "exchange", "kind", "new",   "old",    "ratio"};

// A reply goes on where `pointer` leads to something: to a whole address, or to the value of `parameter`.
struct Paging {
    std::string pointer;
    std::string parameter;  // empty for a whole address
};

struct CapabilityForm {
    // The second is asked where the first cannot be reached or is gone; those of symbols are all read, and a
    // reader in code knows what its own are.
    std::vector<std::string> addresses;
    // How many tickers a request takes; 0 is the whole market of a day.
    std::size_t tickers = 1;
    ReplyReader reader = ReplyReader::Rows;
    // JSON pointers: to an object of groups by symbol, and to the rows in a reply or a group; each of an
    // object of rows has its date as its name. Several rows pointers are read one after another.
    std::optional<std::string> groups;
    std::vector<std::string> rows = {""};
    bool dateIsName = false;
    // JSON pointers within a row; empty for a field that the source does not send.
    std::array<std::string, kRowFieldCount> fields;
    ReplyDate dateForm = ReplyDate::Iso;
    double factor = 1;
    std::string currency;  // a JSON pointer in the reply, or empty
    PriceBasis basis = PriceBasis::Raw;
    // What it means that a ticker has no row in a long span: some services do not say that they do not know
    // it.
    SourceResult empty = SourceResult::NoData;
    std::optional<Paging> paging;
    // A reply counts only where this pointer leads to one of these texts, or to anything without texts.
    std::string shapePointer;
    std::vector<std::string> shapeTexts;
    // The exchange codes of symbols by the names that a person chooses.
    std::vector<std::pair<std::string, std::string>> exchanges;
    std::vector<std::pair<std::string, std::string>> kinds;

    const std::string& Field(RowField field) const { return fields[static_cast<std::size_t>(field)]; }
};

enum class KeyKind : std::uint8_t { None, One, Pair, Contact };

struct KeyForm {
    KeyKind kind = KeyKind::None;
    // With {key}, {id} and {secret} in it.
    std::vector<std::string> headers;
    std::string parameter;  // added to each address: "apikey={key}"
    std::string hint;       // where a person gets one
};

struct RequestLimit {
    std::size_t count = 0;
    double seconds = 0;

    bool operator==(const RequestLimit&) const = default;
};

// A reply to which all that is set here applies has this outcome.
struct ErrorRule {
    std::optional<int> status;
    std::string pointer;   // leads to something
    std::string equals;    // the text there
    std::string contains;  // in the text there, or in the whole reply without a pointer; case does not count
    SourceOutcome outcome;
};

struct SourceDefinition {
    std::string name;
    std::string title;
    std::string home;
    std::string terms;
    // A person has to agree to the terms before the source is used.
    bool asksConsent = false;
    KeyForm key;
    std::vector<std::string> headers;
    // The header of a second try after a 429; empty for none.
    std::string secondAgent;
    SymbolNotation notation;
    const ZoneRule* zone = nullptr;
    std::vector<RequestLimit> limits;
    double pauseSeconds = 0;
    double timeoutSeconds = 30;
    std::vector<ErrorRule> errors;
    std::array<std::optional<CapabilityForm>, kCapabilityCount> capabilities;
    // Several hosts: an override puts the host in front of the path.
    bool hasSeveralHosts = false;

    const CapabilityForm* Form(Capability capability) const {
        const auto& form = capabilities[static_cast<std::size_t>(capability)];
        return form ? &*form : nullptr;
    }
    // The form of what the source is known to give; throws std::bad_optional_access where it gives none.
    const CapabilityForm& FormOf(Capability capability) const {
        return capabilities[static_cast<std::size_t>(capability)].value();
    }
};

struct DefinitionRead {
    std::optional<SourceDefinition> definition;
    // Place and reason ("/history/address: is missing") when there is no definition.
    std::string refusal;
};

// Reads a definition. Whatever is missing, of the wrong type, unknown or out of range is refused.
DefinitionRead ReadSourceDefinition(std::string_view json);

}  // namespace brantlow
