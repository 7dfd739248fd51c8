#include "selector/window_bars.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "indicators/bar_formulas.h"

namespace brantlow {

namespace {

// Where a member stands in its struct, counted in members' smallest size: a key for small tables.
template <class Member>
std::size_t PlaceOfMember(Member member) {
    static_assert(sizeof member == sizeof(std::ptrdiff_t));
    return std::bit_cast<std::size_t>(member) / alignof(NumberSeries);
}

constexpr std::array<IndicatorArray, 2> kVolumeWMA = {&Indicators::VolumeWMA15, &Indicators::VolumeWMA30};
constexpr std::array<IndicatorArray, 4> kDer = {&Indicators::MLRDer15, &Indicators::MLRDer30,
                                                &Indicators::MLRDer60, &Indicators::MLRDer90};
constexpr std::array<IndicatorArray, 3> kMomentum = {&Indicators::Momentum15, &Indicators::Momentum30,
                                                     &Indicators::Momentum60};
constexpr std::array<IndicatorArray, 2> kRSI = {&Indicators::RSI15, &Indicators::RSI30};
constexpr std::array<IndicatorArray, 2> kMcClellan = {&Indicators::McClellan15, &Indicators::McClellan30};
constexpr std::array<IndicatorArray, 4> kStochastic = {&Indicators::Stochastic15, &Indicators::Stochastic30,
                                                       &Indicators::Stochastic60, &Indicators::Stochastic90};
constexpr std::array<IndicatorArray, 2> kMACD = {&Indicators::MACD15, &Indicators::MACD30};

template <std::size_t Count, class Member>
bool Has(const std::array<Member, Count>& members, Member member) {
    return std::find(members.begin(), members.end(), member) != members.end();
}

}  // namespace

WindowInputs InputsOf(IndicatorArray array) {
    static constexpr std::array kVolume = {kVolumeSlot};
    static constexpr std::array kRange = {kLowSlot, kHighSlot};
    static constexpr std::array kFundamentals = {kPERatioSlot, kEPSttmSlot, kEPSestSlot, kPriceToSalesSlot,
                                                 kMarketCapSlot};
    if (Has(kVolumeWMA, array) || array == &Indicators::LRVolume) return {kVolume, {}};
    if (Has(kStochastic, array)) return {kRange, {}};
    if (Has(kRatioSlots, SlotOf(array))) return {{}, kFundamentals};
    return {};
}

NumberSlot InputOf(WindowScalar scalar) {
    constexpr std::array<WindowScalar, 4> kOfVolume = {&Indicators::MaxVolume, &Indicators::AverageVolume,
                                                       &Indicators::VolumeTightUCL,
                                                       &Indicators::VolumeLooseUCL};
    return Has(kOfVolume, scalar) ? kVolumeSlot : kCloseSlot;
}

WindowBars::WindowBars() {
    for (std::size_t k = 1; k < squares_.size(); ++k) {
        const auto x = static_cast<double>(k);
        squares_[k] = squares_[k - 1] + x * x;
    }
    storedSlots_.resize(sizeof(WorkingSeries) / alignof(NumberSeries));
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot)
        storedSlots_[PlaceOfMember(kNumberFields[slot].series)] = static_cast<std::uint8_t>(slot);
    computedSlots_.resize(sizeof(Indicators) / alignof(NumberSeries));
    for (IndicatorSlot slot = 0; slot < kIndicatorArrays.size(); ++slot) {
        computedSlots_[PlaceOfMember(kIndicatorArrays[slot].array)] = static_cast<std::uint8_t>(slot);
        places_[slot].firstBar = kIndicatorArrays[slot].firstBar;
    }
    Enter(kMA, Family::MA);
    Enter(kWMA, Family::WMA);
    Enter(kVolumeWMA, Family::VolumeWMA);
    Enter(kMLR, Family::MLR);
    Enter(kMLRSlope, Family::Slope);
    Enter(kMLRIntercept, Family::Intercept);
    Enter(kLooseUCL, Family::LooseUCL);
    Enter(kLooseLCL, Family::LooseLCL);
    Enter(kTightUCL, Family::TightUCL);
    Enter(kTightLCL, Family::TightLCL);
    Enter(std::array<IndicatorArray, 1>{&Indicators::LRPrice}, Family::PriceLine);
    Enter(std::array<IndicatorArray, 1>{&Indicators::LRVolume}, Family::VolumeLine);
    Enter(kDer, Family::Derivative);
    Enter(kMomentum, Family::Momentum);
    Enter(kRSI, Family::RSI);
    Enter(kMcClellan, Family::McClellan);
    Enter(kStochastic, Family::Stochastic);
    Enter(kMACD, Family::MACD);
    for (std::size_t r = 0; r < kRatioSlots.size(); ++r) places_[kRatioSlots[r]].index = r;
}

template <std::size_t Count>
void WindowBars::Enter(const std::array<IndicatorArray, Count>& arrays, Family family) {
    for (std::size_t i = 0; i < Count; ++i) {
        Place& place = places_[SlotOf(arrays[i])];
        place.family = family;
        place.index = i;
    }
}

void WindowBars::Look(const WindowColumns& columns, std::size_t barCount) {
    columns_ = columns;
    barCount_ = barCount;
    leftovers_ = LookedAtLeftovers::None;
    ++look_;
}

// What an element holds that the pass computes so: nothing of this window where it is not finite.
double WindowBars::Settled(double value) const {
    if (std::isfinite(value)) return value;
    if (leftovers_ == LookedAtLeftovers::None) leftovers_ = LookedAtLeftovers::Gaps;
    return 0;
}

BarView WindowBars::View() const {
    return {barCount_,
            Column(kCloseSlot),
            Column(kLowSlot),
            Column(kHighSlot),
            Column(kVolumeSlot),
            Column(kPERatioSlot),
            Column(kEPSttmSlot),
            Column(kEPSestSlot),
            Column(kPriceToSalesSlot),
            Column(kMarketCapSlot)};
}

double WindowBars::Stored(StoredArray array, std::size_t bar) const {
    return columns_[storedSlots_[PlaceOfMember(array)]][bar];
}

double WindowBars::Computed(IndicatorArray array, std::size_t bar) const {
    const Place& place = places_[computedSlots_[PlaceOfMember(array)]];
    return bar < place.firstBar ? 0 : Value(place, bar);
}

double WindowBars::Value(const Place& place, std::size_t bar) const {
    const std::size_t l = place.index;
    const auto band = [&](const std::array<double, kWindowsAtOnce> Block::*values) {
        const Spot spot = BandsAt(l, bar);
        return (spot.block->*values)[spot.lane];
    };
    const auto line = [&](const std::array<double, kWindowsAtOnce> Block::*values) {
        const Spot spot = BlockAt(l, bar);
        return (spot.block->*values)[spot.lane];
    };
    switch (place.family) {
        case Family::MA: {
            const Spot spot = BlockAt(l, bar);
            return Settled(spot.block->means.mean[spot.lane]);
        }
        case Family::WMA: {
            const Spot spot = BlockAt(l, bar);
            return Settled(spot.block->means.weightedMean[spot.lane]);
        }
        case Family::MLR:
            return line(&Block::level);
        case Family::Slope:
            return line(&Block::slope);
        case Family::Intercept:
            return line(&Block::intercept);
        case Family::LooseUCL:
            return band(&Block::looseUpper);
        case Family::LooseLCL:
            return band(&Block::looseLower);
        case Family::TightUCL:
            return band(&Block::tightUpper);
        case Family::TightLCL:
            return band(&Block::tightLower);
        case Family::PriceLine:
            return PriceLine().level[bar];
        case Family::VolumeLine:
            return VolumeLine().level[bar];
        case Family::VolumeWMA:
            return VolumeAverageAt(l, bar);
        case Family::Derivative:
            return DerivativeOf(l, bar);
        case Family::Momentum:
            return MomentumAt(l, bar);
        case Family::RSI:
            return StrengthAt(l, bar);
        case Family::McClellan:
            return McClellanAt(l, bar);
        case Family::Stochastic:
            return StochasticAt(l, bar);
        case Family::MACD:
            return MomentumDifferenceAt(l, bar);
        case Family::Ratio:
            break;
    }
    if (bar == 1) TellElementZero();
    return Settled(RatiosAt(View(), bar)[l]);
}

double WindowBars::Scalar(WindowScalar scalar) const {
    if (InputOf(scalar) == kVolumeSlot) {
        VolumeLine();
    } else {
        PriceLine();
    }
    return scalars_.*static_cast<double IndicatorScalars::*>(scalar);
}

// Blocks are counted back from the newest bar, so that the bars most asked for stand in the first one.
WindowBars::Spot WindowBars::BlockAt(std::size_t length, std::size_t bar) const {
    const std::size_t back = barCount_ - bar;
    Block& block = blocks_[length][back / kWindowsAtOnce];
    if (block.look != look_) {
        const std::size_t newest = barCount_ - back / kWindowsAtOnce * kWindowsAtOnce;
        Fill(length, static_cast<std::ptrdiff_t>(newest) - static_cast<std::ptrdiff_t>(kWindowsAtOnce) + 1,
             block);
    }
    return {&block, kWindowsAtOnce - 1 - back % kWindowsAtOnce};
}

// A line in the block is what the pass would have stored: a part that cannot be computed is 0, and the level
// is made of the parts as they are stored.
void WindowBars::Fill(std::size_t length, std::ptrdiff_t first, Block& block) const {
    const std::size_t bars = kAverageLengths[length];
    AverageEight(Column(kCloseSlot), bars, first, block.means);
    block.look = look_;
    if (length >= kRegressionLengths.size()) return;
    for (std::size_t lane = 0; lane < kWindowsAtOnce; ++lane) {
        const std::ptrdiff_t at = first + static_cast<std::ptrdiff_t>(lane);
        block.slope[lane] = block.intercept[lane] = block.level[lane] = 0;
        if (at < static_cast<std::ptrdiff_t>(bars)) continue;
        const auto k = static_cast<std::size_t>(at);
        double slope = 0;
        double intercept = 0;
        FitOneLine(bars, k, squares_[k] - squares_[k - bars], block.means.mean[lane],
                   block.means.productMean[lane], slope, intercept);
        block.slope[lane] = Settled(slope);
        block.intercept[lane] = Settled(intercept);
        block.level[lane] = Settled(block.slope[lane] * static_cast<double>(k) + block.intercept[lane]);
    }
}

WindowBars::Spot WindowBars::BandsAt(std::size_t length, std::size_t bar) const {
    const Spot spot = BlockAt(length, bar);
    Block& block = blocks_[length][(barCount_ - bar) / kWindowsAtOnce];
    if (block.bandsLook == look_) return spot;
    block.bandsLook = look_;
    const std::ptrdiff_t first = static_cast<std::ptrdiff_t>(bar) - static_cast<std::ptrdiff_t>(spot.lane);
    SpreadEight(Column(kCloseSlot), first,
                {kAverageLengths[length], block.slope.data(), block.intercept.data(), block.looseUpper.data(),
                 block.tightUpper.data(), block.looseLower.data(), block.tightLower.data()});
    for (std::size_t lane = 0; lane < kWindowsAtOnce; ++lane) {
        // A window that begins before bar 1 is not the pass's.
        if (first + static_cast<std::ptrdiff_t>(lane) < static_cast<std::ptrdiff_t>(kAverageLengths[length]))
            continue;
        // The shortest length writes its lower limits only where it has an upper one.
        if (length == 0 && std::isnan(block.tightUpper[lane]))
            block.looseLower[lane] = block.tightLower[lane] = kNotComputed;
        for (auto* const values :
             {&block.looseUpper, &block.tightUpper, &block.looseLower, &block.tightLower})
            (*values)[lane] = Settled((*values)[lane]);
    }
    return spot;
}

double WindowBars::MomentumAt(std::size_t length, std::size_t bar) const {
    const Spot spot = BlockAt(length, bar);
    const double oldest = Column(kCloseSlot)[bar - kRegressionLengths[length] + 1];
    return Settled(spot.block->slope[spot.lane] * kMomentumScale / oldest);
}

double WindowBars::DerivativeOf(std::size_t length, std::size_t bar) const {
    std::array<double, kDerivativeSpan + 1> levels;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        const Spot spot = BlockAt(length, bar - kDerivativeSpan + i);
        levels[i] = spot.block->level[spot.lane];
    }
    const double squareSum = squares_[bar] - squares_[bar - levels.size()];
    return Settled(DerivativeAt(&levels.back(), bar, squareSum));
}

double WindowBars::StrengthAt(std::size_t length, std::size_t bar) const {
    if (bar == kRegressionLengths[length]) TellElementZero();
    const double* const closes = Column(kCloseSlot);
    double up = 0;
    double down = 0;
    for (std::size_t j = bar - kRegressionLengths[length] + 1; j <= bar; ++j) {
        up += closes[j] > closes[j - 1] ? 1 : 0;
        down += closes[j] < closes[j - 1] ? 1 : 0;
    }
    return Settled(RelativeStrength(up, down));
}

double WindowBars::StochasticAt(std::size_t length, std::size_t bar) const {
    double sum = 0;
    for (std::size_t j = bar - kAverageLengths[length] + 1; j <= bar; ++j)
        sum += PositionInRange(Column(kCloseSlot)[j], Column(kLowSlot)[j], Column(kHighSlot)[j]);
    return Settled(sum / static_cast<double>(kAverageLengths[length]));
}

double WindowBars::VolumeAverageAt(std::size_t length, std::size_t bar) const {
    const auto bars = static_cast<double>(kAverageLengths[length]);
    double weighted = 0;
    double weight = 0;
    for (std::size_t j = bar - kAverageLengths[length] + 1; j <= bar; ++j)
        weighted += Column(kVolumeSlot)[j] * ++weight;
    return Settled(weighted / (bars * (bars + 1) / 2));
}

// Below the longer length there is no longer average and it counts 0.
double WindowBars::McClellanAt(std::size_t length, std::size_t bar) const {
    const auto average = [&](std::size_t l) {
        const Spot spot = BlockAt(l, bar);
        return Settled(spot.block->means.weightedMean[spot.lane]);
    };
    const double longer = bar < kAverageLengths[length + 1] ? 0.0 : average(length + 1);
    return Settled(average(length) - longer);
}

// Its scale grows from bar to bar, so all bars are computed together.
double WindowBars::MomentumDifferenceAt(std::size_t length, std::size_t bar) const {
    WholeWindow& all = differences_[length];
    if (all.look != look_) {
        all.look = look_;
        MomentumDifference difference;
        for (std::size_t k = kRegressionLengths[length + 1]; k <= barCount_; ++k)
            all.level[k] = Settled(difference.Next(MomentumAt(length, k), MomentumAt(length + 1, k)));
    }
    return all.level[bar];
}

const WindowBars::WholeWindow& WindowBars::PriceLine() const {
    if (price_.look == look_) return price_;
    price_.look = look_;
    const Line line = FitWholeWindow(barCount_, Column(kCloseSlot), squares_[barCount_]);
    scalars_.LRSlope = line.slope;
    scalars_.LRIntercept = line.intercept;
    scalars_.LRMaxResidual = scalars_.LRMinResidual = 0;
    scalars_.LRTightUCL = scalars_.LRLooseUCL = scalars_.LRTightLCL = scalars_.LRLooseLCL = 0;
    for (std::size_t k = 1; k <= barCount_; ++k) price_.level[k] = Settled(line.At(k));
    TakePriceResiduals(View(), price_.level.data(), scalars_);
    return price_;
}

const WindowBars::WholeWindow& WindowBars::VolumeLine() const {
    if (volume_.look == look_) return volume_;
    volume_.look = look_;
    const Line line = FitWholeWindow(barCount_, Column(kVolumeSlot), squares_[barCount_]);
    scalars_.MaxVolume = scalars_.AverageVolume = 0;
    scalars_.VolumeTightUCL = scalars_.VolumeLooseUCL = 0;
    for (std::size_t k = 1; k <= barCount_; ++k) volume_.level[k] = Settled(line.At(k));
    TakeVolumeResiduals(View(), volume_.level.data(), scalars_);
    return volume_;
}

}  // namespace brantlow
