#include "study/study_figures.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

// Wider than a double, so that the order of so many additions does not show.
using Sum = long double;

constexpr double kAsGoodAsNoError = 1e-12;

struct Total {
    std::size_t n = 0;
    std::size_t higher = 0;
    Sum sum = 0;
    void Add(double value) {
        ++n;
        if (value > 0) ++higher;
        sum += value;
    }
    void Add(const Total& other) {
        n += other.n;
        higher += other.higher;
        sum += other.sum;
    }
    Mean Result() const {
        if (n == 0) return {};
        return {n, static_cast<double>(sum / static_cast<Sum>(n)),
                static_cast<double>(higher) / static_cast<double>(n)};
    }
    std::optional<double> MeanOrNothing() const {
        return n == 0 ? std::nullopt : std::optional(Result().mean);
    }
};

struct DatedReturn {
    std::uint32_t date;
    double value;
};

// The signals of one condition, place by place.
template <class Visit>
void ForEachSignal(const ConditionStudy& study, std::size_t condition, bool everyDay, const Visit& visit) {
    for (const StudiedTicker& ticker : study.tickers)
        for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar)
            if (IsSignal(ticker, condition, bar, everyDay)) visit(ticker, bar);
}

Mean BaselineOf(const ConditionStudy& study, std::size_t horizon, double cost) {
    Total total;
    for (const StudiedTicker& ticker : study.tickers) {
        Total ofTicker;
        for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar) {
            if (!ticker.IsEvaluated(bar)) continue;
            if (const auto value = ReturnAfter(ticker, bar, horizon, cost)) ofTicker.Add(*value);
        }
        total.Add(ofTicker);
    }
    return total.Result();
}

// The middle one of the evaluated dates, or nothing where there is none.
std::optional<std::uint32_t> MiddleDate(const ConditionStudy& study) {
    std::vector<std::uint8_t> evaluated(study.dates.size());
    for (const StudiedTicker& ticker : study.tickers)
        for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar)
            if (ticker.IsEvaluated(bar)) evaluated[ticker.dates[bar]] = 1;
    std::vector<std::uint32_t> dates;
    for (std::uint32_t date = 0; date < evaluated.size(); ++date)
        if (evaluated[date] != 0) dates.push_back(date);
    return dates.empty() ? std::nullopt : std::optional(dates[dates.size() / 2]);
}

double Median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 != 0) return *middle;
    return (*std::max_element(values.begin(), middle) + *middle) / 2;
}

// Signals of one date rise and fall together, so their deviations are summed before they are squared.
struct DateError {
    double se = 0;
    std::size_t dates = 0;
};
DateError ErrorByDate(const std::vector<DatedReturn>& returns, double mean, std::size_t dateCount) {
    std::vector<Sum> deviations(dateCount, 0);
    std::vector<std::uint8_t> counts(dateCount, 0);
    for (const DatedReturn& one : returns) {
        deviations[one.date] += static_cast<Sum>(one.value) - static_cast<Sum>(mean);
        counts[one.date] = 1;
    }
    Sum squares = 0;
    for (const Sum deviation : deviations) squares += deviation * deviation;
    const Sum se = std::sqrt(squares) / static_cast<Sum>(returns.size());
    const auto dates = std::count(counts.begin(), counts.end(), std::uint8_t{1});
    return {static_cast<double>(se), static_cast<std::size_t>(dates)};
}

void TakeHalves(const std::vector<DatedReturn>& returns, std::uint32_t middle, HorizonFigures& figures) {
    Total first;
    Total second;
    for (const DatedReturn& one : returns) (one.date < middle ? first : second).Add(one.value);
    figures.firstHalf = first.MeanOrNothing();
    figures.secondHalf = second.MeanOrNothing();
}

HorizonFigures FiguresOfReturns(const std::vector<DatedReturn>& returns, std::size_t open,
                                const Mean& baseline, std::optional<std::uint32_t> middle,
                                std::size_t dateCount) {
    HorizonFigures figures;
    figures.n = returns.size();
    figures.open = open;
    if (returns.empty()) return figures;
    Total total;
    std::vector<double> values;
    values.reserve(returns.size());
    for (const DatedReturn& one : returns) {
        total.Add(one.value);
        values.push_back(one.value);
    }
    const double mean = total.Result().mean;
    figures.mean = mean;
    figures.median = Median(values);
    figures.hit = total.Result().hit;
    figures.excess = mean - baseline.mean;
    const DateError error = ErrorByDate(returns, mean, dateCount);
    figures.se = error.se;
    if (error.dates >= 2 && error.se >= kAsGoodAsNoError) figures.t = *figures.excess / error.se;
    if (middle) TakeHalves(returns, *middle, figures);
    return figures;
}

HorizonFigures FiguresAfter(const ConditionStudy& study, std::size_t condition, std::size_t horizon,
                            const StudyTerms& terms, const Mean& baseline,
                            std::optional<std::uint32_t> middle) {
    std::vector<DatedReturn> returns;
    std::size_t open = 0;
    ForEachSignal(study, condition, terms.everyDay, [&](const StudiedTicker& ticker, std::size_t bar) {
        if (const auto value = ReturnAfter(ticker, bar, horizon, terms.cost)) {
            returns.push_back({ticker.dates[bar], *value});
        } else {
            ++open;
        }
    });
    return FiguresOfReturns(returns, open, baseline, middle, study.dates.size());
}

// Holding pairs and signals, tickers and days that have one.
ConditionFigures CountsOf(const ConditionStudy& study, std::size_t condition, bool everyDay) {
    ConditionFigures figures;
    figures.condition = condition;
    std::vector<std::uint8_t> dates(study.dates.size());
    for (const StudiedTicker& ticker : study.tickers) {
        bool any = false;
        for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar) {
            if (ticker.Holds(condition, bar)) ++figures.holding;
            if (!IsSignal(ticker, condition, bar, everyDay)) continue;
            ++figures.signals;
            any = true;
            dates[ticker.dates[bar]] = 1;
        }
        if (any) ++figures.tickers;
    }
    figures.days = static_cast<std::size_t>(std::count(dates.begin(), dates.end(), std::uint8_t{1}));
    return figures;
}

// A field of the file: quoted where a comma, a quote or a line end would break the line.
std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    quoted += '"';
    return quoted;
}

void AppendSignal(const ConditionStudy& study, const StudyTerms& terms, const StudySignal& signal,
                  std::string& csv) {
    const StudiedTicker& ticker = study.tickers[signal.ticker];
    const std::size_t entry = signal.bar + 1;
    const bool entered = entry < ticker.closes.size();
    csv += FormatIsoDate(study.DateOf(signal.date)) + ',' + CsvField(ticker.ticker) + ',' +
           std::to_string(signal.condition) + ',' + CsvField(study.actions[signal.condition - 1]) + ',';
    if (entered) csv += FormatIsoDate(study.DateOf(ticker.dates[entry]));
    csv += ',';
    if (entered) AppendShortestNumber(ticker.closes[entry], csv);
    for (const std::size_t horizon : terms.horizons) {
        csv += ',';
        if (const auto value = ReturnAfter(ticker, signal.bar, horizon, terms.cost))
            AppendShortestNumber(*value, csv);
    }
    csv += '\n';
}

}  // namespace

std::optional<double> ReturnAfter(const StudiedTicker& ticker, std::size_t bar, std::size_t horizon,
                                  double cost) {
    const std::size_t entry = bar + 1;
    const std::size_t exit = entry + horizon;
    if (exit >= ticker.closes.size()) return std::nullopt;
    const double paid = ticker.closes[entry];
    const double received = ticker.closes[exit];
    if (!(paid > 0) || !(received > 0)) return std::nullopt;
    const double value = received * (1 - cost / kPercent) / (paid * (1 + cost / kPercent)) - 1;
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

bool IsSignal(const StudiedTicker& ticker, std::size_t condition, std::size_t bar, bool everyDay) {
    return everyDay ? ticker.Holds(condition, bar) : ticker.Begins(condition, bar);
}

StudyFigures FiguresOf(const ConditionStudy& study, const StudyTerms& terms) {
    StudyFigures figures;
    for (const std::size_t horizon : terms.horizons)
        figures.baseline.push_back(BaselineOf(study, horizon, terms.cost));
    const std::optional<std::uint32_t> middle = MiddleDate(study);
    for (std::size_t condition = 1; condition <= study.actions.size(); ++condition) {
        ConditionFigures ofCondition = CountsOf(study, condition, terms.everyDay);
        for (std::size_t i = 0; i < terms.horizons.size(); ++i)
            ofCondition.horizons.push_back(
                FiguresAfter(study, condition, terms.horizons[i], terms, figures.baseline[i], middle));
        figures.conditions.push_back(std::move(ofCondition));
    }
    return figures;
}

std::vector<PathPoint> MeanPath(const ConditionStudy& study, std::size_t condition, const StudyTerms& terms,
                                std::size_t bars) {
    std::vector<PathPoint> path;
    for (std::size_t bar = 0; bar <= bars; ++bar) {
        const Mean baseline = BaselineOf(study, bar, terms.cost);
        path.push_back({FiguresAfter(study, condition, bar, terms, baseline, std::nullopt), baseline});
    }
    return path;
}

std::vector<StudySignal> SignalsOf(const ConditionStudy& study, bool everyDay) {
    std::vector<StudySignal> signals;
    for (std::size_t t = 0; t < study.tickers.size(); ++t) {
        const StudiedTicker& ticker = study.tickers[t];
        for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar) {
            for (std::size_t condition = 1; condition <= study.actions.size(); ++condition) {
                if (!IsSignal(ticker, condition, bar, everyDay)) continue;
                signals.push_back({ticker.dates[bar], static_cast<std::uint32_t>(t),
                                   static_cast<std::uint32_t>(bar), static_cast<std::uint32_t>(condition)});
            }
        }
    }
    const auto key = [&study](const StudySignal& signal) {
        return std::tuple<std::int32_t, std::string_view, std::uint32_t>(
            study.dates[signal.date].day, study.tickers[signal.ticker].ticker, signal.condition);
    };
    std::sort(signals.begin(), signals.end(),
              [&key](const StudySignal& a, const StudySignal& b) { return key(a) < key(b); });
    return signals;
}

std::string SignalsCsv(const ConditionStudy& study, const StudyTerms& terms) {
    std::string csv = "date,ticker,condition,action,entry,entry_close";
    for (const std::size_t horizon : terms.horizons) csv += ",r_" + std::to_string(horizon);
    csv += '\n';
    for (const StudySignal& signal : SignalsOf(study, terms.everyDay))
        AppendSignal(study, terms, signal, csv);
    return csv;
}

std::optional<std::vector<std::size_t>> ReadHorizons(std::string_view text) {
    std::vector<std::size_t> horizons;
    for (const std::string_view part : SplitAt(text, ',')) {
        constexpr std::size_t kMostDigits = 4;
        const bool digits = !part.empty() && part.size() <= kMostDigits && part.front() != '0' &&
                            part.find_first_not_of("0123456789") == std::string_view::npos;
        if (!digits) return std::nullopt;
        const auto horizon = static_cast<std::size_t>(LeadingNumber(part));
        const bool known = std::find(horizons.begin(), horizons.end(), horizon) != horizons.end();
        if (horizon > kLongestHorizon || known) return std::nullopt;
        horizons.push_back(horizon);
    }
    return horizons;
}

}  // namespace brantlow
