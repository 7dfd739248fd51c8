#include "selector/named_test.h"

#include <cmath>

namespace brantlow {
namespace {

constexpr std::size_t kTenBars = 10;

std::optional<double> QuantityAt(const Quantity& quantity, const Analysis& analysis, std::size_t bar) {
    double sum = quantity.constant;
    if (quantity.stored != nullptr) sum += (analysis.series.*quantity.stored)[bar];
    if (quantity.computed != nullptr) sum += (analysis.indicators.*quantity.computed)[bar];
    if (quantity.added != nullptr) sum += (analysis.indicators.*quantity.added)[bar];
    if (quantity.subtracted != nullptr) sum -= (analysis.indicators.*quantity.subtracted)[bar];
    if (quantity.scalar != nullptr) sum += analysis.indicators.*quantity.scalar;
    if (!std::isfinite(sum)) return std::nullopt;
    return sum;
}

std::optional<bool> Compare(std::optional<double> left, Relation relation, std::optional<double> right) {
    if (!left || !right) return std::nullopt;
    return Holds(*left, relation, *right);
}

std::optional<bool> HoldsAt(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    return Compare(QuantityAt(test.left, analysis, bar), test.relation,
                   QuantityAt(test.right, analysis, bar));
}

std::optional<bool> CrossesAt(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    if (bar == 0) return std::nullopt;
    const std::optional<bool> today = HoldsAt(test, analysis, bar);
    const std::optional<bool> yesterday = HoldsAt(test, analysis, bar - 1);
    if (!today || !yesterday) return std::nullopt;
    return *today && !*yesterday;
}

std::optional<bool> HoldsWithinTenBars(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    if (bar + 1 < kTenBars) return std::nullopt;
    bool any = false;
    for (std::size_t back = 0; back < kTenBars; ++back) {
        const std::optional<bool> holds = HoldsAt(test, analysis, bar - back);
        if (!holds) return std::nullopt;
        any = any || *holds;
    }
    return any;
}

std::optional<bool> ComparesWithYesterday(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    if (bar == 0) return std::nullopt;
    return Compare(QuantityAt(test.left, analysis, bar), test.relation,
                   QuantityAt(test.left, analysis, bar - 1));
}

std::optional<bool> Compute(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    if (bar > kMostRows) return std::nullopt;
    switch (test.kind) {
        case TestKind::Today:
            return HoldsAt(test, analysis, bar);
        case TestKind::Crossing:
            return CrossesAt(test, analysis, bar);
        case TestKind::WithinTenBars:
            return HoldsWithinTenBars(test, analysis, bar);
        case TestKind::FromYesterday:
            return ComparesWithYesterday(test, analysis, bar);
        case TestKind::Pattern:
            return PatternHolds(*test.pattern, analysis, bar);
        case TestKind::NeverComputes:
            break;
    }
    return std::nullopt;
}

}  // namespace

TestState RunNamedTest(const NamedTest& test, const Analysis& analysis, std::size_t bar) {
    if (test.guard != kNoGuard && bar <= test.guard) return TestState::Undecided;
    return Judge(Compute(test, analysis, bar));
}

}  // namespace brantlow
