#include "selector/explanation.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/numbers.h"
#include "indicators/history_row.h"
#include "selector/test_running.h"
#include "selector/test_words.h"

namespace brantlow {

namespace {

// The working series, taking down what is read of it.
class RecordingBars {
  public:
    RecordingBars(const Analysis& analysis, std::size_t bar, std::vector<LookedAt>& values)
        : analysis_(analysis), bar_(bar), values_(values) {}

    double Stored(StoredArray array, std::size_t bar) const {
        const NumberSeries& series = analysis_.series.*array;
        return Take({.stored = array, .bar = bar, .state = series.State(bar), .value = series[bar]});
    }
    double Computed(IndicatorArray array, std::size_t bar) const {
        const NumberSeries& series = analysis_.indicators.*array;
        return Take({.computed = array, .bar = bar, .state = series.State(bar), .value = series[bar]});
    }
    double Scalar(WindowScalar scalar) const {
        return Take({.scalar = scalar, .bar = bar_, .value = analysis_.indicators.*scalar});
    }

  private:
    double Take(const LookedAt& value) const {
        const bool known = std::any_of(values_.begin(), values_.end(),
                                       [&](const LookedAt& other) { return other.IsSame(value); });
        if (!known) values_.push_back(value);
        return value.value;
    }

    const Analysis& analysis_;
    std::size_t bar_;
    std::vector<LookedAt>& values_;
};

PassedOver ReasonOf(const TestedLine& line) {
    if (line.isSlot) return PassedOver::NoData;
    return line.step.test == nullptr ? PassedOver::UnknownName : PassedOver::TooFewBars;
}

std::string Pair(const NamedTest& test, std::string_view sign, const AnalysisBars& bars, std::size_t bar) {
    const double left = running::QuantityAt(test.left, bars, bar).value_or(0);
    const double right = running::QuantityAt(test.right, bars, bar).value_or(0);
    return fmt::format("{} {} {}", NumberText(left), sign, NumberText(right));
}

// Whether one number stands above, below or at another, as it is and not as the test would have it.
std::string_view SignBetween(double left, double right) {
    return left > right ? ">" : left < right ? "<" : "=";
}

std::string ActualPair(const NamedTest& test, const AnalysisBars& bars, std::size_t bar) {
    const double left = running::QuantityAt(test.left, bars, bar).value_or(0);
    const double right = running::QuantityAt(test.right, bars, bar).value_or(0);
    return Pair(test, SignBetween(left, right), bars, bar);
}

std::string TodaySentence(const NamedTest& test, const AnalysisBars& bars, std::size_t bar) {
    const double left = running::QuantityAt(test.left, bars, bar).value_or(0);
    const double right = running::QuantityAt(test.right, bars, bar).value_or(0);
    const std::string_view word = left > right ? "above" : left < right ? "below" : "equal to";
    const bool constant = test.right.stored == nullptr && test.right.computed == nullptr;
    const std::string caption = constant ? std::string() : CaptionOf(test.right) + " ";
    return fmt::format("{} {} {} {}{}", CaptionOf(test.left), NumberText(left), word, caption,
                       NumberText(right));
}

std::string TrendSentence(const NamedTest& test, const AnalysisBars& bars, std::size_t bar) {
    const double today = running::QuantityAt(test.left, bars, bar).value_or(0);
    const double before = running::QuantityAt(test.left, bars, bar - 1).value_or(0);
    return fmt::format("{}: before {}, now {}", CaptionOf(test.left), NumberText(before), NumberText(today));
}

std::string TenBarsSentence(const NamedTest& test, const AnalysisBars& bars, std::size_t bar) {
    for (std::size_t back = 0; back < running::kTenBars; ++back) {
        if (!running::HoldsAt(test, bars, bar - back).value_or(false)) continue;
        return fmt::format("{} bars back: {}", back, ActualPair(test, bars, bar - back));
    }
    return fmt::format("on none of ten bars; newest {}", ActualPair(test, bars, bar));
}

std::string TestSentence(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    const AnalysisBars bars(analysis);
    switch (test.kind) {
        case TestKind::Today:
            return TodaySentence(test, bars, bar);
        case TestKind::Crossing:
            return fmt::format("{} against {}: before {}, now {}", CaptionOf(test.left),
                               CaptionOf(test.right), ActualPair(test, bars, bar - 1),
                               ActualPair(test, bars, bar));
        case TestKind::FromYesterday:
            return TrendSentence(test, bars, bar);
        case TestKind::WithinTenBars:
            return TenBarsSentence(test, bars, bar);
        case TestKind::Pattern:
        case TestKind::NeverComputes:
            break;
    }
    return std::string();
}

std::string SlotSentence(const ValueSlot& slot, double x, const Analysis& analysis, std::size_t bar) {
    const SlotValue value = running::SlotValueAt(slot, AnalysisBars(analysis), bar);
    const std::string_view caption = slot.label.substr(0, slot.label.rfind(' ', slot.label.size() - 3));
    if (value.outcome == SlotValue::Outcome::BelowGuard)
        return fmt::format("{}: no more than {} bars", caption, slot.length);
    return fmt::format("{} {}; wanted {} {}", caption, NumberText(value.value),
                       slot.relation == Relation::AtLeast ? "at least" : "at most", NumberText(x));
}

// Neither passed over nor passed because it could not be computed.
bool IsTested(const LineExplanation& line) {
    return line.reason == PassedOver::No && line.computed;
}

}  // namespace

std::string_view NameOf(const LookedAt& value) {
    for (const NumberField& row : kNumberFields)
        if (row.series == value.stored) return row.name;
    for (const NamedIndicator& row : kIndicatorArrays)
        if (row.array == value.computed) return row.name;
    for (const IndicatorScalarName& row : kIndicatorScalarNames)
        if (row.value == value.scalar) return row.name;
    return {};
}

std::string CaptionOf(const LookedAt& value) {
    if (value.stored != nullptr) return CaptionOf(value.stored);
    return value.computed != nullptr ? CaptionOf(value.computed) : CaptionOf(value.scalar);
}

TestState ResultOf(const std::vector<LineExplanation>& lines) {
    TestState state = TestState::Undecided;
    for (const LineExplanation& line : lines) {
        if (line.state == TestState::False) return TestState::False;
        if (line.state == TestState::True) state = TestState::True;
    }
    return state;
}

std::string_view ReasonText(PassedOver reason) {
    constexpr std::array<std::string_view, 4> kTexts = {"", "too few bars", "unknown name", "no data"};
    return kTexts[static_cast<std::size_t>(reason)];
}

LineExplanation ExplainLine(const TestedLine& line, const Analysis& analysis, std::size_t bar) {
    LineExplanation explained;
    explained.text = line.text;
    explained.isSlot = line.isSlot;
    explained.x = line.step.x;
    const RecordingBars bars(analysis, bar, explained.values);
    if (const NamedTest* const test = line.step.test) {
        explained.state = RunNamedTestOver(*test, bars, bar);
        explained.computed =
            explained.state == TestState::Undecided || running::Compute(*test, bars, bar).has_value();
    } else if (const ValueSlot* const slot = FindSlot(line.step.slot)) {
        const SlotValue value = running::SlotValueAt(*slot, bars, bar);
        explained.state = JudgeSlot(value, slot->relation, line.step.x);
        explained.computed = value.outcome != SlotValue::Outcome::Failed;
    }
    if (explained.state == TestState::Undecided) explained.reason = ReasonOf(line);
    for (LookedAt& value : explained.values) {
        // Percent changes are read as their text stands.
        if (value.computed == &Indicators::PercentChange) value.value = RoundToGeneralForm(value.value);
    }
    return explained;
}

std::string LineSentence(const TestedLine& line, const LineExplanation& explained, const Analysis& analysis,
                         std::size_t bar) {
    if (explained.reason != PassedOver::No) {
        return fmt::format("passed over: {}", ReasonText(explained.reason));
    }
    if (!explained.computed) return "could not be tested, and what cannot be tested passes";
    if (const NamedTest* const test = line.step.test) return TestSentence(*test, analysis, bar);
    const ValueSlot* const slot = FindSlot(line.step.slot);
    return slot == nullptr ? std::string() : SlotSentence(*slot, line.step.x, analysis, bar);
}

ConditionExplanation ExplainCondition(const ConditionBlock& block, const Analysis& analysis) {
    ConditionExplanation explanation;
    explanation.action = block.action;
    for (const TestedLine& line : block.lines)
        explanation.lines.push_back(ExplainLine(line, analysis, analysis.series.LastBar));
    explanation.result = ResultOf(explanation.lines);
    return explanation;
}

bool IsUntestedHit(const ConditionExplanation& explanation) {
    return explanation.result == TestState::True &&
           std::none_of(explanation.lines.begin(), explanation.lines.end(), IsTested);
}

std::string ResultWords(const ConditionExplanation& explanation, std::size_t bars) {
    const std::vector<LineExplanation>& lines = explanation.lines;
    if (lines.empty()) return "it has no line and never holds";
    if (explanation.result == TestState::False) return "fails";
    if (explanation.result == TestState::Undecided) return "nothing could be tested";
    if (!IsUntestedHit(explanation)) return "holds";
    return fmt::format("holds, but 0 of {} tests could be made: {} bars", lines.size(), bars);
}

std::string ShortExplanation(const ConditionBlock& block, const ConditionExplanation& explanation,
                             const Analysis& analysis) {
    constexpr std::size_t kMostLines = 3;
    std::string text = ResultWords(explanation, analysis.series.BarCount);
    std::size_t told = 0;
    std::size_t more = 0;
    for (std::size_t i = 0; i < explanation.lines.size(); ++i) {
        const LineExplanation& line = explanation.lines[i];
        if (!IsTested(line) || line.state != explanation.result) continue;
        if (told == kMostLines) {
            ++more;
            continue;
        }
        const std::string sentence = LineSentence(block.lines[i], line, analysis, analysis.series.LastBar);
        text.append("\n").append(sentence.empty() ? line.text : sentence);
        ++told;
    }
    return more == 0 ? text : text + fmt::format("\nand {} more", more);
}

std::vector<ConditionExplanation> ExplainConditions(const CompiledConditions& conditions,
                                                    const Analysis& analysis) {
    std::vector<ConditionExplanation> explanations;
    for (std::size_t i = 1; i <= conditions.BlockCount(); ++i)
        explanations.push_back(ExplainCondition(conditions.Block(i), analysis));
    return explanations;
}

}  // namespace brantlow
