#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "acquire/feeds/live/company_facts.h"
#include "base/text.h"
#include "batch/source_commands.h"

namespace brantlow {

namespace {

using Json = nlohmann::ordered_json;
using std::chrono::days;
using std::chrono::sys_days;

constexpr std::string_view kCheckWord = "check";
constexpr std::string_view kUsualTicker = "AAPL";
constexpr days kCheckedDays{30};

std::vector<Capability> CapabilitiesOf(const SourceDefinition& source) {
    std::vector<Capability> capabilities;
    for (std::size_t i = 0; i < kCapabilityCount; ++i) {
        if (source.capabilities[i]) capabilities.push_back(static_cast<Capability>(i));
    }
    return capabilities;
}

std::string_view NameOf(Capability capability) {
    return kCapabilityNames[static_cast<std::size_t>(capability)];
}

std::string LimitText(const RequestLimit& limit) {
    constexpr std::array<std::pair<double, std::string_view>, 5> kSpans = {
        {{1, "second"}, {60, "minute"}, {3600, "hour"}, {86'400, "day"}, {2'592'000, "month"}}};
    for (const auto& [seconds, name] : kSpans) {
        if (limit.seconds == seconds) return fmt::format("{} a {}", limit.count, name);
    }
    return fmt::format("{} in {} seconds", limit.count, limit.seconds);
}

Json LimitsOf(const SourceDefinition& source, const SourceHosts& hosts) {
    Json limits = Json::array();
    if (const auto replaced = hosts.Limit(source.name)) {
        limits.push_back(LimitText(*replaced));
        return limits;
    }
    for (const RequestLimit& limit : source.limits) limits.push_back(LimitText(limit));
    if (source.pauseSeconds > 0) limits.push_back(fmt::format("{} seconds between two", source.pauseSeconds));
    return limits;
}

Json LineOf(const SourceDefinition& source, SourceCall& sources) {
    const SourceWorld& world = sources.World();
    Json line;
    line["name"] = source.name;
    line["title"] = DisplayUtf8(source.title);
    line["needs_key"] = source.key.kind != KeyKind::None;
    line["has_key"] = source.key.kind != KeyKind::None &&
                      ReadSourceKey(source, world.session.DataFolder(), world.environment).key.has_value();
    line["capabilities"] = Json::array();
    line["limits"] = LimitsOf(source, world.hosts);
    line["in_use"] = Json::array();
    for (const Capability capability : CapabilitiesOf(source)) {
        line["capabilities"].push_back(NameOf(capability));
        if (ChosenName(world.session.settings, capability) == source.name) {
            line["in_use"].push_back(NameOf(capability));
        }
    }
    return line;
}

ExitStatus ListSources(BatchCall& call, SourceCall& sources) {
    for (const SourceDefinition& source : sources.Catalogue().sources) {
        call.out << LineOf(source, sources).dump() << '\n';
    }
    for (const std::string& refusal : sources.Catalogue().refusals) call.err << OneLine(refusal) << '\n';
    return sources.Catalogue().refusals.empty() ? ExitStatus::Done : ExitStatus::Partly;
}

std::string DayText(sys_days day) {
    return FormatIsoDate(Date{day});
}

// What one question of the check brought.
struct Checked {
    SourceOutcome outcome;
    std::string words;
};

std::string RowsText(std::size_t rows, std::optional<std::pair<sys_days, sys_days>> span) {
    std::string text = fmt::format("{} row{}", rows, rows == 1 ? "" : "s");
    if (span) text += fmt::format(", {} to {}", DayText(span->first), DayText(span->second));
    return text;
}

Checked CheckDays(SourceClient& client, Capability capability, const std::string& ticker, sys_days to) {
    const CapabilityForm& form = client.Source().FormOf(capability);
    if (form.tickers == 0) {
        for (int i = 0; i < 5; ++i, to = WeekdayBefore(to)) {
            const SourceReply reply = client.Ask({capability, {}, to, to});
            const bool isEmpty = reply.outcome.Done() && reply.rows == 0;
            if (isEmpty || reply.outcome.result == SourceResult::NotYetPublished) continue;
            return {reply.outcome, RowsText(reply.rows, std::pair(to, to))};
        }
        return {{.result = SourceResult::NoData, .words = {}}, {}};
    }
    const TickerAnswer answer = AskTicker(client, capability, ticker, to - kCheckedDays, to);
    if (!answer.outcome.Done()) return {answer.outcome, {}};
    const auto& bars = answer.bars.bars;
    return {{}, RowsText(bars.size(), std::pair(bars.front().day, bars.back().day))};
}

Checked CheckSplits(SourceClient& client, sys_days to) {
    const SourceReply reply = client.Ask({Capability::Splits, {}, to - kCheckedDays, to});
    if (!reply.outcome.Done() || reply.splits.empty())
        return {reply.outcome, RowsText(reply.splits.size(), {})};
    const auto [first, last] =
        std::minmax_element(reply.splits.begin(), reply.splits.end(),
                            [](const SourceSplit& a, const SourceSplit& b) { return a.day < b.day; });
    return {reply.outcome, RowsText(reply.splits.size(), std::pair(first->day, last->day))};
}

Checked CheckSymbols(SourceClient& client) {
    const SourceReply reply = client.Ask({Capability::Symbols, {}, {}, {}});
    return {reply.outcome, fmt::format("{} symbols", reply.symbols.size())};
}

Checked CheckFundamentals(SourceWorld& world, SourceClient& client, const std::string& ticker) {
    CompanyFacts facts(world, client);
    const CompanyYear year = facts.YearOf(ticker);
    if (!year.outcome.Done()) return {year.outcome, {}};
    return {{}, "twelve months to " + (year.end ? DayText(*year.end) : std::string("an unknown day"))};
}

Checked Check(SourceWorld& world, SourceClient& client, Capability capability, const std::string& ticker) {
    const sys_days newest = NewestEndedDay(*client.Source().zone, EpochOf(world.session.clock));
    switch (capability) {
        case Capability::Splits:
            return CheckSplits(client, newest);
        case Capability::Symbols:
            return CheckSymbols(client);
        case Capability::Fundamentals:
            return CheckFundamentals(world, client, ticker);
        default:
            return CheckDays(client, capability, ticker, newest);
    }
}

ExitStatus CheckSource(BatchCall& call, SourceCall& sources, const std::string& name,
                       const std::string& ticker) {
    const SourceDefinition* source = sources.Catalogue().Find(name);
    if (source == nullptr) return RefuseUsage(call, "NAME", "'" + name + "' is no source that is known here");
    SourceClient client(sources.World(), *source);
    std::size_t failed = 0;
    std::string first;
    const std::vector<Capability> capabilities = CapabilitiesOf(*source);
    for (const Capability capability : capabilities) {
        const Checked checked = Check(sources.World(), client, capability, ticker);
        const bool isFailure = !checked.outcome.Done();
        const std::string what = isFailure ? OutcomeText(checked.outcome) : checked.words;
        call.out << NameOf(capability) << ": " << OneLine(what) << '\n';
        if (!isFailure || IsAnswer(checked.outcome.result)) continue;
        if (failed++ == 0) first = what;
    }
    if (failed == 0) return ExitStatus::Done;
    call.err << OneLine(fmt::format("{}: {} of {} questions failed: {}", source->title, failed,
                                    capabilities.size(), first))
             << '\n';
    return failed == capabilities.size() ? ExitStatus::Refused : ExitStatus::Partly;
}

}  // namespace

ExitStatus RunSources(BatchCall& call) {
    const std::vector<std::string>& operands = call.arguments.operands;
    SourceCall sources(call);
    if (operands.empty()) return ListSources(call, sources);
    if (operands.front() != kCheckWord) {
        return RefuseUsage(call, operands.front(), "sources takes nothing, or check NAME [TICKER]");
    }
    if (operands.size() < 2) return RefuseUsage(call, "NAME", "check takes the name of a source");
    const std::string ticker = operands.size() > 2 ? operands[2] : std::string(kUsualTicker);
    return CheckSource(call, sources, operands[1], ticker);
}

}  // namespace brantlow
