#include "selector/value_slots.h"

#include "selector/test_running.h"

namespace brantlow {
namespace {

using I = Indicators;
using W = WorkingSeries;
constexpr Relation kAtLeast = Relation::AtLeast;
constexpr Relation kAtMost = Relation::AtMost;

constexpr Operand OperandOf(StoredArray array, std::size_t back = 0) {
    return {.stored = array, .back = back};
}
constexpr Operand OperandOf(IndicatorArray array) {
    return {.computed = array};
}
constexpr Operand OperandOf(WindowScalar scalar) {
    return {.scalar = scalar};
}

// The rows of each form, whatever their label and relation.
constexpr ValueSlot Plain(std::string_view label, Relation relation, const Operand& value) {
    return {label, relation, SlotForm::Plain, {value}};
}
constexpr ValueSlot VolumeShare(std::string_view label, Relation relation) {
    return {label, relation, SlotForm::ShareOfMean, {OperandOf(&W::Volume), OperandOf(&I::AverageVolume)}};
}
// The divisor is the close `length` bars back, one bar older than the window of the slope.
constexpr ValueSlot RegressionSlope(std::string_view label, Relation relation, IndicatorArray slope,
                                    std::size_t length) {
    return {label,
            relation,
            SlotForm::SlopeOverOldClose,
            {OperandOf(slope), OperandOf(&W::ClosePrice, length)},
            length};
}
constexpr ValueSlot WindowSlope(std::string_view label, Relation relation) {
    return {label,
            relation,
            SlotForm::SlopeOverOldClose,
            {OperandOf(&I::LRSlope), Operand{.stored = &W::ClosePrice, .oldest = true}}};
}
constexpr ValueSlot PriceChange(std::string_view label, Relation relation) {
    return {label, relation, SlotForm::AsText, {OperandOf(&I::PercentChange)}};
}
constexpr ValueSlot DividendYield(std::string_view label, Relation relation) {
    return {label, relation, SlotForm::Percent, {OperandOf(&W::DividendPerShare), OperandOf(&W::ClosePrice)}};
}
constexpr ValueSlot EarningsChange(std::string_view label, Relation relation) {
    return {label, relation, SlotForm::ChangeInPercent, {OperandOf(&W::EPSttm), OperandOf(&W::EPSest)}};
}
constexpr ValueSlot FiveYearEarningsChange(std::string_view label, Relation relation) {
    return {
        label,
        relation,
        SlotForm::FiveYearChange,
        {OperandOf(&W::EPSest), OperandOf(&W::PEGRatio), OperandOf(&W::ClosePrice), OperandOf(&W::PERatio)}};
}
constexpr ValueSlot DerivativeSlope(std::string_view label, Relation relation, IndicatorArray derivative,
                                    std::size_t length) {
    return {label,
            relation,
            SlotForm::SlopeOverClose,
            {OperandOf(derivative), OperandOf(&W::ClosePrice)},
            length};
}

// The labels of slots 2 to 11 say "LR" where the values are moving regression slopes.
constexpr std::array<ValueSlot, kSlotCount> kValueSlots = {{
    VolumeShare("Volume/Average Volume > X", kAtLeast),
    RegressionSlope("LR 15 Slope (%/yr) > X", kAtLeast, &I::MLRSlope15, 15),
    RegressionSlope("LR 30 Slope (%/yr) > X", kAtLeast, &I::MLRSlope30, 30),
    RegressionSlope("LR 60 Slope (%/yr) > X", kAtLeast, &I::MLRSlope60, 60),
    RegressionSlope("LR 90 Slope (%/yr) > X", kAtLeast, &I::MLRSlope90, 90),
    RegressionSlope("LR 120 Slope (%/yr) > X", kAtLeast, &I::MLRSlope120, 120),
    RegressionSlope("LR 15 Slope (%/yr) < X", kAtMost, &I::MLRSlope15, 15),
    RegressionSlope("LR 30 Slope (%/yr) < X", kAtMost, &I::MLRSlope30, 30),
    RegressionSlope("LR 60 Slope (%/yr) < X", kAtMost, &I::MLRSlope60, 60),
    RegressionSlope("LR 90 Slope (%/yr) < X", kAtMost, &I::MLRSlope90, 90),
    RegressionSlope("LR 120 Slope (%/yr) < X", kAtMost, &I::MLRSlope120, 120),
    WindowSlope("LR Slope (%/yr) > X", kAtLeast),
    WindowSlope("LR Slope (%/yr) < X", kAtMost),
    PriceChange("% Change > X", kAtLeast),
    PriceChange("% Change < X", kAtMost),
    DividendYield("% Div. Yield > X", kAtLeast),
    Plain("P/E > X", kAtLeast, OperandOf(&W::PERatio)),
    Plain("P/E < X", kAtMost, OperandOf(&W::PERatio)),
    Plain("P/S > X", kAtLeast, OperandOf(&W::PriceToSales)),
    Plain("P/S < X", kAtMost, OperandOf(&W::PriceToSales)),
    Plain("EPS ttm > X", kAtLeast, OperandOf(&W::EPSttm)),
    Plain("EPS ttm < X", kAtMost, OperandOf(&W::EPSttm)),
    Plain("EPS est > X", kAtLeast, OperandOf(&W::EPSest)),
    Plain("EPS est < X", kAtMost, OperandOf(&W::EPSest)),
    Plain("PEG > X", kAtLeast, OperandOf(&W::PEGRatio)),
    Plain("PEG < X", kAtMost, OperandOf(&W::PEGRatio)),
    Plain("SPS > X", kAtLeast, OperandOf(&I::SalesPerShare)),
    Plain("SPS < X", kAtMost, OperandOf(&I::SalesPerShare)),
    Plain("E/S > X", kAtLeast, OperandOf(&I::EarningsPerSales)),
    Plain("E/S < X", kAtMost, OperandOf(&I::EarningsPerSales)),
    EarningsChange("Earnings Change est (%/yr) > X", kAtLeast),
    EarningsChange("Earnings Change est (%/yr) < X", kAtMost),
    FiveYearEarningsChange("Earnings Change est (%/5 yr) > X", kAtLeast),
    FiveYearEarningsChange("Earnings Change est (%/5 yr) < X", kAtMost),
    DerivativeSlope("MLR 30 Slope (%/yr) > X", kAtLeast, &I::MLRDer30, 30),
    DerivativeSlope("MLR 60 Slope (%/yr) > X", kAtLeast, &I::MLRDer60, 60),
    DerivativeSlope("MLR 30 Slope (%/yr) < X", kAtMost, &I::MLRDer30, 30),
    DerivativeSlope("MLR 60 Slope (%/yr) < X", kAtMost, &I::MLRDer60, 60),
}};

}  // namespace

const ValueSlot* FindSlot(std::size_t slot) {
    return slot >= 1 && slot <= kSlotCount ? &kValueSlots[slot - 1] : nullptr;
}

std::string_view ValueSlotLabel(std::size_t slot) {
    const ValueSlot* const row = FindSlot(slot);
    return row == nullptr ? std::string_view() : row->label;
}

TestState RunValueSlot(std::size_t slot, double x, const Analysis& analysis, std::size_t bar) {
    const ValueSlot* const row = FindSlot(slot);
    if (row == nullptr) return TestState::Undecided;
    return RunValueSlotOver(*row, x, AnalysisBars(analysis), bar);
}

}  // namespace brantlow
