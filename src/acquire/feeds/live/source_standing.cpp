#include "acquire/feeds/live/source_standing.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

#include "acquire/feeds/live/chosen_sources.h"
#include "acquire/feeds/live/live_history.h"
#include "acquire/feeds/live/source_choices.h"
#include "base/text.h"
#include "shell/run_report.h"

namespace brantlow {

namespace {

std::string LimitText(const RequestLimit& limit) {
    constexpr std::array<std::pair<double, std::string_view>, 5> kSpans = {
        {{1, "second"}, {60, "minute"}, {3600, "hour"}, {86'400, "day"}, {2'592'000, "month"}}};
    for (const auto& [seconds, name] : kSpans) {
        if (limit.seconds == seconds) return fmt::format("{} a {}", limit.count, name);
    }
    return fmt::format("{} in {} seconds", limit.count, limit.seconds);
}

std::vector<std::string> LimitsOf(const SourceDefinition& source, const SourceHosts& hosts) {
    if (const auto replaced = hosts.Limit(source.name)) return {LimitText(*replaced)};
    std::vector<std::string> limits;
    for (const RequestLimit& limit : source.limits) limits.push_back(LimitText(limit));
    if (source.pauseSeconds > 0) limits.push_back(fmt::format("{} seconds between two", source.pauseSeconds));
    return limits;
}

KeyStanding KeyOf(const SourceDefinition& source, const SourceWorld& world) {
    if (source.key.kind == KeyKind::None) return KeyStanding::NotNeeded;
    if (!ReadSourceKey(source, world.session.DataFolder(), world.environment).key)
        return KeyStanding::Missing;
    const char* const variable = world.environment(KeyVariable(source.name).c_str());
    return variable != nullptr && *variable != '\0' ? KeyStanding::InEnvironment : KeyStanding::InFile;
}

double SecondsOfRequests(SourceWorld& world, const SourceDefinition& source, double requests) {
    return SourceClient(world, source).SecondsPerRequest() * requests;
}

double RequestsFor(const CapabilityForm& form, std::size_t tickers) {
    const auto each = static_cast<double>(std::max<std::size_t>(form.tickers, 1));
    return form.tickers == 0 ? 1 : std::ceil(static_cast<double>(tickers) / each);
}

}  // namespace

SourceStanding StandingOf(SourceWorld& world, const SourceDefinition& source) {
    const SourceChoices choices = ChoicesOf(world.session.settings);
    SourceStanding standing;
    for (std::size_t i = 0; i < kCapabilityCount; ++i) {
        const auto capability = static_cast<Capability>(i);
        if (source.Form(capability) == nullptr) continue;
        standing.gives.push_back(capability);
        if (choices.For(capability) == source.name) standing.chosenFor.push_back(capability);
    }
    standing.isFallback = choices.Fallback() == source.name;
    standing.key = KeyOf(source, world);
    standing.limits = LimitsOf(source, world.hosts);
    standing.rest = world.state.RestOf(source.name);
    return standing;
}

std::string NeedWords(const SourceDefinition& source) {
    constexpr std::array<std::string_view, 4> kNeeds = {"", "a key", "a key of two parts, id and secret",
                                                        "your e-mail address"};
    std::string words(kNeeds.at(static_cast<std::size_t>(source.key.kind)));
    if (!words.empty() && !source.key.hint.empty()) words += ": " + source.key.hint;
    return words;
}

std::string CapabilityWords(const std::vector<Capability>& capabilities) {
    std::vector<std::string_view> names;
    for (const Capability capability : capabilities) names.push_back(NameOf(capability));
    return fmt::format("{}", fmt::join(names, ", "));
}

std::string_view NameOf(Capability capability) {
    return kCapabilityNames.at(static_cast<std::size_t>(capability));
}

double SecondsOfPopulate(SourceWorld& world, const SourceDefinition& source, std::size_t tickers,
                         double years) {
    constexpr double kWeekdaysInYear = 261;
    const CapabilityForm* const quotes = source.Form(Capability::Quotes);
    const CapabilityForm* const history = source.Form(Capability::History);
    const bool byDays = quotes != nullptr && quotes->tickers == 0 && tickers >= kMarketFromTickers;
    if (byDays) return SecondsOfRequests(world, source, years * kWeekdaysInYear);
    return history == nullptr ? 0 : SecondsOfRequests(world, source, RequestsFor(*history, tickers));
}

double SecondsOfUpdate(SourceWorld& world, const SourceDefinition& source, std::size_t tickers) {
    const CapabilityForm* const quotes = source.Form(Capability::Quotes);
    return quotes == nullptr ? 0 : SecondsOfRequests(world, source, RequestsFor(*quotes, tickers));
}

std::string AskedWords(const Session& session, Capability capability) {
    if (ChosenName(session.settings, capability).empty()) return {};
    const SourceCatalogue catalogue = LoadSources(session.DataFolder());
    const SourceDefinition* const source = SourceOf(session.settings, catalogue, capability).source;
    if (source == nullptr) return {};
    const SourceDefinition* const fallback = FallbackSourceOf(session.settings, catalogue).source;
    if (fallback == nullptr || fallback == source) return source->title;
    return source->title + ", for tickers unknown there " + fallback->title;
}

std::string DurationWords(double seconds) {
    constexpr double kMinute = 60;
    constexpr double kHour = 3600;
    if (seconds < kMinute) return "a moment";
    const bool isHours = seconds >= 2 * kHour;
    const auto count = static_cast<std::size_t>(std::ceil(seconds / (isHours ? kHour : kMinute)));
    return "about " + (isHours ? Counted(count, "hour", "hours") : Counted(count, "minute", "minutes"));
}

}  // namespace brantlow
