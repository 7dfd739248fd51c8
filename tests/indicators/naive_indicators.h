// The indicator formulas once more, written as plain loops over one window after another, for comparison with
// the engine's pass. An element that nothing wrote has no value.
#pragma once

#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "indicators/working_series.h"

namespace brantlow::naive {

class Array {
  public:
    double Get(std::size_t i) const { return values_[i].value_or(0); }
    bool Has(std::size_t i) const { return values_[i].has_value(); }
    void Put(std::size_t i, double value) {
        if (std::isfinite(value)) values_[i] = value;
    }

  private:
    std::vector<std::optional<double>> values_ = std::vector<std::optional<double>>(kMostRows + 1);
};

struct Results {
    std::map<std::string, Array> arrays;
    std::map<std::string, double> scalars;
};

struct Fit {
    double slope;
    double intercept;
};

template <class Series>
Fit LeastSquares(const Series& y, std::size_t from, std::size_t to, double m) {
    double sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (std::size_t j = from; j <= to; ++j) {
        const double x = static_cast<double>(j);
        sx = sx + x;
        sy = sy + y(j);
        sxx = sxx + x * x;
        sxy = sxy + x * y(j);
    }
    const double mx = sx / m, my = sy / m, mxx = sxx / m, mxy = sxy / m;
    return {(mxy - mx * my) / (mxx - mx * mx), (mxx * my - mxy * mx) / (mxx - mx * mx)};
}

inline void Ratios(const WorkingSeries& s, std::size_t i, Results& out) {
    const double price = s.ClosePrice[i - 1];
    const double capital = s.MarketCap[i] * 1000000;
    if (s.PriceToSales[i] != 0 && price > 0) {
        out.arrays["Sales"].Put(i, (price / s.PriceToSales[i]) * (capital / price));
        out.arrays["SalesPerShare"].Put(i, price / s.PriceToSales[i]);
    }
    if (s.PERatio[i] != 0) {
        out.arrays["Earnings"].Put(i, capital / s.PERatio[i]);
        out.arrays["EarningsPerSales"].Put(i, s.PriceToSales[i] / s.PERatio[i]);
    }
    if (price > 0) {
        out.arrays["EstimatedEarnings"].Put(i, s.EPSest[i] * (capital / price));
        out.arrays["PercentChange"].Put(i, ((s.ClosePrice[i] - price) / price) * 100);
    }
    if (s.EPSest[i] != 0) out.arrays["ForwardPE"].Put(i, s.PERatio[i] * s.EPSttm[i] / s.EPSest[i]);
}

inline void Averages(const WorkingSeries& s, Results& out) {
    const std::size_t n = s.BarCount;
    for (std::size_t i = 1; i <= n; ++i) {
        for (const std::size_t L : {15U, 30U, 60U, 90U, 120U, 180U}) {
            const std::size_t k = i + L - 1;
            if (k > n) continue;
            const std::string length = std::to_string(L);
            double closes = 0, weighted = 0, weights = 0, volumes = 0, stochastic = 0;
            for (std::size_t j = i; j <= k; ++j) {
                const double w = static_cast<double>(j - i + 1);
                closes = closes + s.ClosePrice[j];
                weighted = weighted + s.ClosePrice[j] * w;
                weights = weights + w;
                volumes = volumes + s.Volume[j] * w;
                if (s.HighPrice[j] > s.LowPrice[j]) {
                    const double part = (s.ClosePrice[j] - s.LowPrice[j]) / (s.HighPrice[j] - s.LowPrice[j]);
                    if (std::isfinite(part)) stochastic = stochastic + part;
                }
            }
            out.arrays["MA" + length].Put(k, closes / static_cast<double>(L));
            out.arrays["WMA" + length].Put(k, weighted / weights);
            if (L <= 30) out.arrays["VolumeWMA" + length].Put(k, volumes / weights);
            if (L <= 90) out.arrays["Stochastic" + length].Put(k, stochastic / static_cast<double>(L));
        }
        if (const std::size_t k = i + 14; k <= n) {
            out.arrays["McClellan15"].Put(k, out.arrays["WMA15"].Get(k) - out.arrays["WMA30"].Get(k));
        }
        if (const std::size_t k = i + 29; k <= n) {
            out.arrays["McClellan30"].Put(k, out.arrays["WMA30"].Get(k) - out.arrays["WMA60"].Get(k));
        }
    }
}

inline void WholeWindow(const WorkingSeries& s, Results& out) {
    const std::size_t n = s.BarCount;
    const double m = static_cast<double>(n);
    Fit price = LeastSquares([&](std::size_t j) { return s.ClosePrice[j]; }, 1, n, m);
    Fit volume = LeastSquares([&](std::size_t j) { return s.Volume[j]; }, 1, n, m);
    for (double* part : {&price.slope, &price.intercept, &volume.slope, &volume.intercept}) {
        if (!std::isfinite(*part)) *part = 0;
    }
    auto& scalars = out.scalars;
    scalars["LRSlope"] = price.slope;
    scalars["LRIntercept"] = price.intercept;
    double total = 0, above = 0, aboveCount = 0, below = 0, belowCount = 0, volumes = 0, volumeCount = 0;
    for (std::size_t i = 1; i <= n; ++i) {
        const double x = static_cast<double>(i);
        total = total + s.Volume[i];
        if (s.Volume[i] > scalars["MaxVolume"]) scalars["MaxVolume"] = s.Volume[i];
        Ratios(s, i, out);
        out.arrays["LRPrice"].Put(i, price.slope * x + price.intercept);
        const double d = s.ClosePrice[i] - out.arrays["LRPrice"].Get(i);
        out.arrays["LRVolume"].Put(i, volume.slope * x + volume.intercept);
        const double e = s.Volume[i] - out.arrays["LRVolume"].Get(i);
        if (d >= 0) above = above + d, aboveCount = aboveCount + 1;
        if (d <= 0) below = below + d, belowCount = belowCount + 1;
        if (d > scalars["LRMaxResidual"]) scalars["LRMaxResidual"] = d;
        if (d < scalars["LRMinResidual"]) scalars["LRMinResidual"] = d;
        if (e > 0) volumes = volumes + e, volumeCount = volumeCount + 1;
    }
    scalars["AverageVolume"] = total / m;
    scalars["LRTightUCL"] = aboveCount > 0 ? 2.658 * above / aboveCount : 1;
    scalars["LRLooseUCL"] = aboveCount > 0 ? 3.865 * above / aboveCount : 1;
    scalars["LRTightLCL"] = belowCount > 0 ? 2.658 * below / belowCount : 0;
    scalars["LRLooseLCL"] = belowCount > 0 ? 3.865 * below / belowCount : 0;
    scalars["VolumeTightUCL"] = volumeCount > 0 ? 2.658 * volumes / volumeCount : 1;
    scalars["VolumeLooseUCL"] = volumeCount > 0 ? 3.865 * volumes / volumeCount : 1;
}

inline void Strength(const WorkingSeries& s, std::size_t L, std::size_t k, Results& out) {
    double up = 0, down = 0;
    for (std::size_t j = k - L + 1; j <= k; ++j) {
        if (s.ClosePrice[j] > s.ClosePrice[j - 1]) up = up + 1;
        if (s.ClosePrice[j] < s.ClosePrice[j - 1]) down = down + 1;
    }
    if (up + down != 0) {
        out.arrays["RSI" + std::to_string(L)].Put(k, (((up - down) / (up + down)) / 2 + 0.5) * 100);
    }
}

inline void Macd(std::size_t L, std::size_t k, double& scale, Results& out) {
    if (k < 2 * L) return;
    const double fast = out.arrays["Momentum" + std::to_string(L)].Get(k);
    const double slow = out.arrays["Momentum" + std::to_string(2 * L)].Get(k);
    const double sum = std::fabs(fast) + std::fabs(slow);
    if (sum == 0) return;
    if (sum > scale) scale = sum;
    out.arrays["MACD" + std::to_string(L)].Put(k, 100 * (fast - slow) / scale);
}

inline void Bands(const WorkingSeries& s, std::size_t L, std::size_t k, Results& out) {
    const std::string length = std::to_string(L);
    double above = 0, aboveCount = 0, below = 0, belowCount = 0;
    for (std::size_t j = k - L + 1; j <= k; ++j) {
        const double line = out.arrays["MLRSlope" + length].Get(k) * static_cast<double>(j) +
                            out.arrays["MLRIntercept" + length].Get(k);
        const double r = s.ClosePrice[j] - line;
        if (r >= 0) above = above + r, aboveCount = aboveCount + 1;
        if (r <= 0) below = below + r, belowCount = belowCount + 1;
    }
    if (aboveCount != 0) {
        out.arrays["LooseUCL" + length].Put(k, 3.865 * above / aboveCount);
        out.arrays["TightUCL" + length].Put(k, 2.658 * above / aboveCount);
    }
    if (belowCount != 0 && (L != 15 || aboveCount > 0)) {
        out.arrays["LooseLCL" + length].Put(k, 3.865 * below / belowCount);
        out.arrays["TightLCL" + length].Put(k, 2.658 * below / belowCount);
    }
}

inline void Regressions(const WorkingSeries& s, Results& out) {
    const std::size_t n = s.BarCount;
    for (const std::size_t L : {120U, 90U, 60U, 30U, 15U}) {
        const std::string length = std::to_string(L);
        double scale = 0;
        for (std::size_t k = L; k <= n; ++k) {
            const Fit fit = LeastSquares([&](std::size_t j) { return s.ClosePrice[j]; }, k - L + 1, k,
                                         static_cast<double>(L));
            out.arrays["MLRSlope" + length].Put(k, fit.slope);
            out.arrays["MLRIntercept" + length].Put(k, fit.intercept);
            const double slope = out.arrays["MLRSlope" + length].Get(k);
            out.arrays["MLR" + length].Put(
                k, slope * static_cast<double>(k) + out.arrays["MLRIntercept" + length].Get(k));
            if (L <= 60 && s.ClosePrice[k - L + 1] != 0) {
                out.arrays["Momentum" + length].Put(k, slope * 24000 / s.ClosePrice[k - L + 1]);
            }
            if (L <= 30) Strength(s, L, k, out);
            Bands(s, L, k, out);
            if (L <= 30) Macd(L, k, scale, out);
        }
        if (L == 120) continue;
        const Array& level = out.arrays["MLR" + length];
        for (std::size_t k = L + 3; k <= n; ++k) {
            const Fit fit = LeastSquares([&](std::size_t j) { return level.Get(j); }, k - 3, k, 4);
            out.arrays["MLRDer" + length].Put(k, fit.slope);
        }
    }
}

// One run of the pass over `s`, on top of what earlier runs left in `out`.
inline void Compute(const WorkingSeries& s, Results& out) {
    for (const char* name :
         {"LRSlope", "LRIntercept", "LRTightUCL", "LRLooseUCL", "LRTightLCL", "LRLooseLCL", "LRMaxResidual",
          "LRMinResidual", "MaxVolume", "AverageVolume", "VolumeTightUCL", "VolumeLooseUCL"}) {
        out.scalars[name] = 0;
    }
    if (s.BarCount <= 3) return;
    WholeWindow(s, out);
    Averages(s, out);
    Regressions(s, out);
}

}  // namespace brantlow::naive
