#include <fmt/format.h>

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "batch/commands.h"
#include "batch/left_out.h"
#include "batch/study_lines.h"
#include "batch/table_calls.h"

namespace brantlow {

namespace {

constexpr std::string_view kStudyNeedsQuoteFile =
    "To study the conditions, you will need to open an End of Day Quote File";
constexpr double kWholePrice = 100;

std::optional<double> ReadCost(std::string_view text) {
    const std::optional<double> cost = WholeNumber(text);
    if (!cost || *cost < 0 || *cost >= kWholePrice) return std::nullopt;
    return cost;
}

StudyTerms TermsOf(const Arguments& arguments) {
    StudyTerms terms;
    if (arguments.Has("--horizons")) terms.horizons = *ReadHorizons(arguments.Text("--horizons"));
    if (arguments.Has("--cost")) terms.cost = *ReadCost(arguments.Text("--cost"));
    terms.everyDay = arguments.Has("--every-day");
    return terms;
}

// A whole number of 1 to `most`, or nothing.
std::optional<std::size_t> ReadCount(std::string_view text, std::size_t most) {
    const auto numbers = ReadHorizons(text);
    if (!numbers || numbers->size() != 1 || numbers->front() > most) return std::nullopt;
    return numbers->front();
}

// The first condition whose hits are bought, 1 where there is none.
std::size_t FirstBuy(const ConditionStudy& study) {
    const auto found = std::find(study.actions.begin(), study.actions.end(), kConditionActions[0]);
    return found == study.actions.end() ? 1 : static_cast<std::size_t>(found - study.actions.begin()) + 1;
}

PortfolioTerms PortfolioTermsOf(const Arguments& arguments, const ConditionStudy& study) {
    PortfolioTerms terms;
    const auto take = [&arguments](std::string_view option, std::size_t& value) {
        if (arguments.Has(option)) value = *ReadCount(arguments.Text(option), kLongestHorizon);
    };
    terms.cost = TermsOf(arguments).cost;
    terms.buy = FirstBuy(study);
    take("--portfolio", terms.most);
    take("--buy", terms.buy);
    take("--sell", terms.sell);
    take("--hold", terms.hold);
    return terms;
}

StudySpan SpanOf(const BatchCall& call) {
    const Date to = ReadIsoDate(call.arguments.Text("--to")).value_or(call.session.clock.Today());
    StudySpan span = UsualSpan(to);
    span.from = ReadIsoDate(call.arguments.Text("--from")).value_or(span.from);
    span.interval = ChosenInterval(call.arguments);
    return span;
}

// What the figures alone do not say.
void TellLimits(BatchCall& call, const ConditionStudy& study) {
    if (study.stopped)
        call.err << fmt::format("Stopped after {} of {} tickers: the figures are of these alone\n",
                                study.tickers.size() + study.unreadable.size(), study.asked);
    if (study.Evaluated() == 0)
        call.err << fmt::format(
            "No day could be evaluated: no ticker has a bar from {} to {} with enough history before it\n",
            FormatIsoDate(study.span.from), FormatIsoDate(study.span.to));
    if (study.actions.empty()) call.err << "The stored set holds no condition\n";
}

}  // namespace

std::optional<std::string> RefuseStudyInterval(std::string_view text) {
    const std::optional<Interval> interval = ParseInterval(text);
    if (interval && *interval != Interval::Monthly) return std::nullopt;
    return "'" + std::string(text) + "' is none of daily, weekly";
}

std::optional<std::string> RefuseHorizons(std::string_view text) {
    if (ReadHorizons(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no list of different whole numbers from 1 to 1000";
}

std::optional<std::string> RefuseCost(std::string_view text) {
    if (ReadCost(text)) return std::nullopt;
    return "'" + std::string(text) + "' is no percentage from 0 to below 100";
}

std::optional<std::string> RefuseHoldings(std::string_view text) {
    if (ReadCount(text, kLongestHorizon)) return std::nullopt;
    return "'" + std::string(text) + "' is no whole number from 1 to 1000";
}

std::optional<std::string> RefuseCondition(std::string_view text) {
    if (ReadCount(text, kConditionCount)) return std::nullopt;
    return "'" + std::string(text) + "' is no condition, 1 to 10";
}

std::optional<std::string> RefuseFileName(std::string_view text) {
    if (!text.empty()) return std::nullopt;
    return "a file's name is missing";
}

ExitStatus RunStudyCommand(BatchCall& call) {
    const std::string& name = call.arguments.operands.front();
    const StudyTerms terms = TermsOf(call.arguments);
    const StudySpan span = SpanOf(call);
    if (span.from > span.to)
        return RefuseUsage(call, "--from", FormatIsoDate(span.from) + " is after " + FormatIsoDate(span.to));
    if (!ExistingDataFile(call, name)) return ExitStatus::Refused;
    if (KindOf(name) != FileKind::Ddq) return Refuse(call, kStudyNeedsQuoteFile);
    QuoteTable table;
    if (!LoadTable(call, name, table)) return ExitStatus::Refused;

    const ConditionStudy study = RunStudy(call.session, table.Tickers(), span);
    const bool isRefused = !study.unreadable.empty() && study.unreadable.size() == study.asked;
    if (isRefused) return TellLeftOut(call, study.unreadable, study.asked, "tickers");
    const bool asPortfolio = call.arguments.Has("--portfolio");
    call.out << (asPortfolio ? PortfolioLine(name, study, PortfolioTermsOf(call.arguments, study))
                             : StudyLine(name, study, terms))
             << '\n';
    TellLimits(call, study);
    if (call.arguments.Has("--signals")) {
        const Path file(call.arguments.Text("--signals"));
        if (const auto error = WriteWholeFile(file, SignalsCsv(study, terms)))
            return Refuse(call, FailedTo(FailureKind::Write, file, error));
    }
    const ExitStatus status = TellLeftOut(call, study.unreadable, study.asked, "tickers");
    return study.stopped ? ExitStatus::Interrupted : status;
}

}  // namespace brantlow
