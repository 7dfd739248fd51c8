// Running a test over any source of bars: the working series, one that takes down what is read, or bars that
// compute what they are asked for. One verdict for all of them.
//
// A source of bars has Stored(array, bar), Computed(array, bar) and Scalar(scalar), each a double.
#pragma once

#include <cmath>
#include <optional>

#include "base/numbers.h"
#include "selector/candlesticks.h"
#include "selector/named_test.h"
#include "selector/value_slots.h"

namespace brantlow {

// The bars of the working series.
class AnalysisBars {
  public:
    explicit AnalysisBars(const Analysis& analysis) : analysis_(analysis) {}
    double Stored(StoredArray array, std::size_t bar) const { return (analysis_.series.*array)[bar]; }
    double Computed(IndicatorArray array, std::size_t bar) const {
        return (analysis_.indicators.*array)[bar];
    }
    double Scalar(WindowScalar scalar) const { return analysis_.indicators.*scalar; }

  private:
    const Analysis& analysis_;
};

namespace running {

inline constexpr std::size_t kTenBars = 10;

template <class Bars>
std::optional<double> QuantityAt(const Quantity& quantity, const Bars& bars, std::size_t bar) {
    double sum = quantity.constant;
    if (quantity.stored != nullptr) sum += bars.Stored(quantity.stored, bar);
    if (quantity.computed != nullptr) sum += bars.Computed(quantity.computed, bar);
    if (quantity.added != nullptr) sum += bars.Computed(quantity.added, bar);
    if (quantity.subtracted != nullptr) sum -= bars.Computed(quantity.subtracted, bar);
    if (quantity.scalar != nullptr) sum += bars.Scalar(quantity.scalar);
    if (!std::isfinite(sum)) return std::nullopt;
    return sum;
}

inline std::optional<bool> Compare(std::optional<double> left, Relation relation,
                                   std::optional<double> right) {
    if (!left || !right) return std::nullopt;
    return Holds(*left, relation, *right);
}

template <class Bars>
std::optional<bool> HoldsAt(const NamedTest& test, const Bars& bars, std::size_t bar) {
    const std::optional<double> left = QuantityAt(test.left, bars, bar);
    return Compare(left, test.relation, QuantityAt(test.right, bars, bar));
}

template <class Bars>
std::optional<bool> CrossesAt(const NamedTest& test, const Bars& bars, std::size_t bar) {
    if (bar == 0) return std::nullopt;
    const std::optional<bool> today = HoldsAt(test, bars, bar);
    const std::optional<bool> yesterday = HoldsAt(test, bars, bar - 1);
    if (!today || !yesterday) return std::nullopt;
    return *today && !*yesterday;
}

template <class Bars>
std::optional<bool> HoldsWithinTenBars(const NamedTest& test, const Bars& bars, std::size_t bar) {
    if (bar + 1 < kTenBars) return std::nullopt;
    bool any = false;
    for (std::size_t back = 0; back < kTenBars; ++back) {
        const std::optional<bool> holds = HoldsAt(test, bars, bar - back);
        if (!holds) return std::nullopt;
        any = any || *holds;
    }
    return any;
}

template <class Bars>
std::optional<bool> ComparesWithYesterday(const NamedTest& test, const Bars& bars, std::size_t bar) {
    if (bar == 0) return std::nullopt;
    const std::optional<double> today = QuantityAt(test.left, bars, bar);
    return Compare(today, test.relation, QuantityAt(test.left, bars, bar - 1));
}

template <class Bars>
std::optional<bool> Compute(const NamedTest& test, const Bars& bars, std::size_t bar) {
    if (bar > kMostRows) return std::nullopt;
    switch (test.kind) {
        case TestKind::Today:
            return HoldsAt(test, bars, bar);
        case TestKind::Crossing:
            return CrossesAt(test, bars, bar);
        case TestKind::WithinTenBars:
            return HoldsWithinTenBars(test, bars, bar);
        case TestKind::FromYesterday:
            return ComparesWithYesterday(test, bars, bar);
        case TestKind::Pattern:
            return PatternHolds(*test.pattern, BarSource(bars), bar);
        case TestKind::NeverComputes:
            break;
    }
    return std::nullopt;
}

template <class Bars>
double OperandAt(const Operand& operand, const Bars& bars, std::size_t bar) {
    if (operand.scalar != nullptr) return bars.Scalar(operand.scalar);
    const std::size_t at = operand.oldest ? 1 : bar - operand.back;
    return operand.stored != nullptr ? bars.Stored(operand.stored, at) : bars.Computed(operand.computed, at);
}

// Scales a slope in price per bar over a price to percent per 240 bars.
inline constexpr double kYearlyPercent = 24000;

inline SlotValue Finite(std::optional<double> value) {
    if (!value || !std::isfinite(*value)) return {SlotValue::Outcome::Failed};
    return {SlotValue::Outcome::Computed, *value};
}

// Price over earnings to come, less price over earnings a unit of growth.
template <class At>
SlotValue FiveYearChange(const At& at) {
    const double estimated = at(0);
    const double growth = at(1);
    if (estimated == 0 || growth == 0) return {SlotValue::Outcome::Skipped};
    const std::optional<double> forward = Divide(at(2), estimated);
    const std::optional<double> trailing = Divide(at(3), growth);
    if (!forward || !trailing) return {SlotValue::Outcome::Failed};
    return Finite(100 * (*forward - *trailing));
}

// At the bar where the look-back meets element 0 the guard decides; before it the look-back itself fails.
template <class At>
SlotValue SlopeOverOldClose(const ValueSlot& slot, const At& at, std::size_t bar) {
    if (slot.length != 0 && bar < slot.length) return {SlotValue::Outcome::Failed};
    if (slot.length != 0 && bar == slot.length) return {SlotValue::Outcome::BelowGuard};
    const double slope = at(0) * kYearlyPercent;
    return Finite(Divide(slope, at(1)));
}

// Here value and guard are one computation: a close of 0 fails it even below the guard.
template <class At>
SlotValue SlopeOverClose(const ValueSlot& slot, const At& at, std::size_t bar) {
    const double slope = kYearlyPercent * at(0);
    const std::optional<double> share = Divide(slope, at(1));
    if (share && bar <= slot.length) return {SlotValue::Outcome::BelowGuard};
    return Finite(share);
}

template <class Bars>
SlotValue SlotValueAt(const ValueSlot& slot, const Bars& bars, std::size_t bar) {
    if (bar > kMostRows) return {SlotValue::Outcome::Failed};
    const auto at = [&](std::size_t i) { return OperandAt(slot.operands[i], bars, bar); };
    switch (slot.form) {
        case SlotForm::Plain:
            return Finite(at(0));
        case SlotForm::AsText:
            return Finite(RoundToGeneralForm(at(0)));
        case SlotForm::ShareOfMean: {
            const double mean = at(1);
            if (mean == 0) return {SlotValue::Outcome::Skipped};
            return Finite(Divide(at(0), mean));
        }
        case SlotForm::Percent: {
            const double share = at(0) * 100;
            return Finite(Divide(share, at(1)));
        }
        case SlotForm::ChangeInPercent: {
            const double from = at(0);
            if (from == 0) return {SlotValue::Outcome::Skipped};
            return Finite(Divide((at(1) - from) * 100, from));
        }
        case SlotForm::FiveYearChange:
            return FiveYearChange(at);
        case SlotForm::SlopeOverOldClose:
            return SlopeOverOldClose(slot, at, bar);
        case SlotForm::SlopeOverClose:
            break;
    }
    return SlopeOverClose(slot, at, bar);
}

}  // namespace running

// Undecided where the guard is not met. A test that cannot be computed, because it looks at a bar before
// element 0 or at a sum beyond a double, is True.
template <class Bars>
TestState RunNamedTestOver(const NamedTest& test, const Bars& bars, std::size_t bar) {
    if (test.guard != kNoGuard && bar <= test.guard) return TestState::Undecided;
    return Judge(running::Compute(test, bars, bar));
}

// What a slot's value comes to against its number.
inline TestState JudgeSlot(const SlotValue& value, Relation relation, double x) {
    switch (value.outcome) {
        case SlotValue::Outcome::Skipped:
            return TestState::Undecided;
        case SlotValue::Outcome::BelowGuard:
            return TestState::False;
        case SlotValue::Outcome::Failed:
            return Judge(std::nullopt);
        case SlotValue::Outcome::Computed:
            break;
    }
    return Judge(Holds(value.value, relation, x));
}

template <class Bars>
TestState RunValueSlotOver(const ValueSlot& slot, double x, const Bars& bars, std::size_t bar) {
    return JudgeSlot(running::SlotValueAt(slot, bars, bar), slot.relation, x);
}

}  // namespace brantlow
