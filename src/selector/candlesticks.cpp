#include "selector/candlesticks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

#include "base/numbers.h"

namespace brantlow {

// The bars of one pattern test. `back` counts from the bar under test: 0 is that bar, 1 the one before it. A
// value that cannot be computed reads as 0 and marks the whole test as failed.
class CandleReader {
  public:
    CandleReader(const BarSource& bars, std::size_t bar) : bars_(bars), bar_(bar) {}

    double O(std::size_t back) { return At(&WorkingSeries::OpenPrice, back); }
    double H(std::size_t back) { return At(&WorkingSeries::HighPrice, back); }
    double L(std::size_t back) { return At(&WorkingSeries::LowPrice, back); }
    double C(std::size_t back) { return At(&WorkingSeries::ClosePrice, back); }
    double MLR15(std::size_t back) {
        return Reaches(back) ? bars_.Computed(&Indicators::MLR15, bar_ - back) : Computed(std::nullopt);
    }
    double Low52Week() { return At(&WorkingSeries::Low52Week, 0); }
    double High52Week() { return At(&WorkingSeries::High52Week, 0); }

    bool White(std::size_t back) { return O(back) < C(back); }
    bool Black(std::size_t back) { return O(back) > C(back); }

    // The body as a share of the bar's range.
    double BodyRatio(std::size_t back) {
        return Computed(Divide(std::abs(O(back) - C(back)), H(back) - L(back)));
    }
    double HalfRange(std::size_t back) { return Computed(Divide(H(back) - L(back), 2)); }

    bool Failed() const { return failed_; }

  private:
    bool Reaches(std::size_t back) const { return back <= bar_ && bar_ <= kMostRows; }
    double At(NumberSeries WorkingSeries::*array, std::size_t back) {
        return Reaches(back) ? bars_.Stored(array, bar_ - back) : Computed(std::nullopt);
    }
    double Computed(std::optional<double> value) {
        failed_ = failed_ || !value;
        return value.value_or(0);
    }

    const BarSource& bars_;
    std::size_t bar_;
    bool failed_ = false;
};

namespace {

constexpr double kLongBody = 0.8;
constexpr double kSoldierBody = 0.75;
constexpr double kDojiBody = 0.15;

// The list is built, and so every clause computed, before the first one is looked at.
bool All(std::initializer_list<bool> clauses) {
    return std::all_of(clauses.begin(), clauses.end(), [](bool clause) { return clause; });
}

bool BullishAbandonedBaby(CandleReader& b) {
    return All({b.BodyRatio(2) > kLongBody, b.BodyRatio(0) > kLongBody, b.Black(2), b.H(1) <= b.C(2),
                b.L(1) > b.Low52Week(), b.BodyRatio(1) < kDojiBody, b.C(0) > b.O(2)});
}

bool BearishAbandonedBaby(CandleReader& b) {
    return All({b.BodyRatio(2) > kLongBody, b.BodyRatio(0) > kLongBody, b.White(2), b.L(1) >= b.C(2),
                b.H(1) < b.High52Week(), b.BodyRatio(1) < kDojiBody, b.C(0) < b.O(2)});
}

bool BullishMorningDojiStar(CandleReader& b) {
    return All({b.Black(2), b.H(1) < b.L(2), b.L(1) > b.Low52Week(), b.BodyRatio(2) > kLongBody,
                b.BodyRatio(1) < kDojiBody, b.C(0) > b.O(2)});
}

bool BearishEveningDojiStar(CandleReader& b) {
    return All({b.White(2), b.L(1) > b.H(2), b.H(1) < b.High52Week(), b.BodyRatio(2) > kLongBody,
                b.BodyRatio(1) < kDojiBody, b.C(0) < b.O(2)});
}

// The plain stars measure the gap from the first bar's close, and their middle bar need only not be long.
bool BullishMorningStar(CandleReader& b) {
    return All({b.Black(2), b.H(1) <= b.C(2), b.L(1) > b.Low52Week(), b.BodyRatio(2) > kLongBody,
                b.BodyRatio(1) < kLongBody, b.C(0) > b.O(2)});
}

bool BearishEveningStar(CandleReader& b) {
    return All({b.White(2), b.L(1) >= b.C(2), b.H(1) < b.High52Week(), b.BodyRatio(2) > kLongBody,
                b.BodyRatio(1) < kLongBody, b.C(0) < b.O(2)});
}

bool BearishKicking(CandleReader& b) {
    return All(
        {b.O(1) == b.L(1), b.C(1) == b.H(1), b.White(1), b.O(0) == b.H(0), b.C(0) == b.L(0), b.Black(0)});
}

bool BullishMatchingLow(CandleReader& b) {
    return All({b.MLR15(0) < b.MLR15(1), b.Black(1), b.Black(0), b.C(0) == b.C(1)});
}

bool BullishRisingThreeMethods(CandleReader& b) {
    return All({b.BodyRatio(4) > kLongBody, b.BodyRatio(0) > kLongBody, b.Black(3), b.Black(2), b.Black(1),
                b.C(3) > b.C(4), b.C(2) > b.C(4), b.C(1) > b.C(4), b.C(0) > b.C(4)});
}

bool BearishDarkCloudCover(CandleReader& b) {
    return All({b.White(1), b.BodyRatio(1) > kLongBody, b.BodyRatio(0) > kLongBody, b.Black(0),
                b.C(0) <= b.L(1) + b.HalfRange(1)});
}

bool BullishThreeWhiteSoldiers(CandleReader& b) {
    return All({b.BodyRatio(2) > kSoldierBody, b.BodyRatio(1) > kSoldierBody, b.BodyRatio(0) > kSoldierBody,
                b.White(2), b.White(1), b.White(0), b.L(2) < b.L(1), b.L(1) < b.L(0), b.H(2) < b.H(1),
                b.H(1) < b.H(0)});
}

bool BearishThreeBlackCrows(CandleReader& b) {
    return All({b.BodyRatio(2) > kSoldierBody, b.BodyRatio(1) > kSoldierBody, b.BodyRatio(0) > kSoldierBody,
                b.Black(2), b.Black(1), b.Black(0), b.L(2) > b.L(1), b.L(1) > b.L(0), b.H(2) > b.H(1),
                b.H(1) > b.H(0)});
}

bool ShavenBottom(CandleReader& b) {
    return All({b.C(1) < b.O(0), b.C(0) < b.O(0), b.C(0) == b.L(0), b.O(0) < b.H(0) - b.HalfRange(0)});
}

bool ShavenHead(CandleReader& b) {
    return All({b.C(1) > b.O(0), b.C(0) > b.O(0), b.C(0) == b.H(0), b.O(0) > b.L(0) + b.HalfRange(0)});
}

constexpr std::array<CandlePattern, 14> kPatterns = {{
    {"Bullish Abandoned Baby", BullishAbandonedBaby},
    {"Bearish Abandoned Baby", BearishAbandonedBaby},
    {"Bullish Morning Doji Star", BullishMorningDojiStar},
    {"Bearish Evening Doji Star", BearishEveningDojiStar},
    {"Bullish Morning Star", BullishMorningStar},
    {"Bearish Evening Star", BearishEveningStar},
    {"Bearish Kicking", BearishKicking},
    {"Bullish Matching Low", BullishMatchingLow},
    {"Bullish Rising Three Methods", BullishRisingThreeMethods},
    {"Bearish Dark Cloud Cover", BearishDarkCloudCover},
    {"Bullish Three White Soldiers", BullishThreeWhiteSoldiers},
    {"Bearish Three Black Crows", BearishThreeBlackCrows},
    {"Shaven Bottom", ShavenBottom},
    {"Shaven Head", ShavenHead},
}};

}  // namespace

std::span<const CandlePattern> CandlePatterns() {
    return kPatterns;
}

std::optional<bool> PatternHolds(const CandlePattern& pattern, const BarSource& bars, std::size_t bar) {
    CandleReader reader(bars, bar);
    const bool holds = pattern.holds(reader);
    if (reader.Failed()) return std::nullopt;
    return holds;
}

}  // namespace brantlow
