#include "selector/catalogue.h"

#include <array>

namespace brantlow {
namespace {

// Spellings, blanks and order are part of the settings file's format: stored condition sets depend on them.
// That holds for the odd ones too: two blanks in "MACD 15  Positive" and its like, none in
// "McClellanOscillator", "MLR 15 Max" for an extreme of the derivative, and "LooseUCL" in a name that no test
// knows.
constexpr std::array<std::string_view, kConditionNameCount> kConditionNames = {
    // Fifty-two week
    "Hit 52 Week Low", "Hit 52 Week High",
    // Close crossing an average
    "Close Price Broke Above MA 15", "Close Price Broke Below MA 15", "Close Price Broke Above MA 30",
    "Close Price Broke Below MA 30", "Close Price Broke Above MA 60", "Close Price Broke Below MA 60",
    "Close Price Broke Above MA 90", "Close Price Broke Below MA 90", "Close Price Broke Above MA 120",
    "Close Price Broke Below MA 120", "Close Price Broke Above MA 180", "Close Price Broke Below MA 180",
    // Close against an average
    "Close Price Above MA 15", "Close Price Below MA 15", "Close Price Above MA 30",
    "Close Price Below MA 30", "Close Price Above MA 60", "Close Price Below MA 60",
    "Close Price Above MA 90", "Close Price Below MA 90", "Close Price Above MA 120",
    "Close Price Below MA 120", "Close Price Above MA 180", "Close Price Below MA 180",
    // Close crossing an average
    "Close Price Broke Above WMA 15", "Close Price Broke Below WMA 15", "Close Price Broke Above WMA 30",
    "Close Price Broke Below WMA 30", "Close Price Broke Above WMA 60", "Close Price Broke Below WMA 60",
    "Close Price Broke Above WMA 90", "Close Price Broke Below WMA 90", "Close Price Broke Above WMA 120",
    "Close Price Broke Below WMA 120", "Close Price Broke Above WMA 180", "Close Price Broke Below WMA 180",
    // Close against an average
    "Close Price Above WMA 15", "Close Price Below WMA 15", "Close Price Above WMA 30",
    "Close Price Below WMA 30", "Close Price Above WMA 60", "Close Price Below WMA 60",
    "Close Price Above WMA 90", "Close Price Below WMA 90", "Close Price Above WMA 120",
    "Close Price Below WMA 120", "Close Price Above WMA 180", "Close Price Below WMA 180",
    // Close crossing an average
    "Close Price Broke Above MLR 15", "Close Price Broke Below MLR 15", "Close Price Broke Above MLR 30",
    "Close Price Broke Below MLR 30", "Close Price Broke Above MLR 60", "Close Price Broke Below MLR 60",
    "Close Price Broke Above MLR 90", "Close Price Broke Below MLR 90", "Close Price Broke Above MLR 120",
    "Close Price Broke Below MLR 120",
    // Close against an average
    "Close Price Above MLR 15", "Close Price Below MLR 15", "Close Price Above MLR 30",
    "Close Price Below MLR 30", "Close Price Above MLR 60", "Close Price Below MLR 60",
    "Close Price Above MLR 90", "Close Price Below MLR 90", "Close Price Above MLR 120",
    "Close Price Below MLR 120",
    // Close crossing a moving band
    "Close Price Broke Above Loose MLR 15 UCL", "Close Price Broke Below Loose MLR 15 LCL",
    "Close Price Broke Above Loose MLR 30 UCL", "Close Price Broke Below Loose MLR 30 LCL",
    "Close Price Broke Above Loose MLR 60 UCL", "Close Price Broke Below Loose MLR 60 LCL",
    "Close Price Broke Above Loose MLR 90 UCL", "Close Price Broke Below Loose MLR 90 LCL",
    "Close Price Broke Above Loose MLR 120 UCL", "Close Price Broke Below Loose MLR 120 LCL",
    "Close Price Broke Above Tight MLR 15 UCL", "Close Price Broke Below Tight MLR 15 LCL",
    "Close Price Broke Above Tight MLR 30 UCL", "Close Price Broke Below Tight MLR 30 LCL",
    "Close Price Broke Above Tight MLR 60 UCL", "Close Price Broke Below Tight MLR 60 LCL",
    "Close Price Broke Above Tight MLR 90 UCL", "Close Price Broke Below Tight MLR 90 LCL",
    "Close Price Broke Above Tight MLR 120 UCL", "Close Price Broke Below Tight MLR 120 LCL",
    // Close against a moving band
    "Close Price Above Loose MLR 15 UCL", "Close Price Below Loose MLR 15 LCL",
    "Close Price Above Loose MLR 30 UCL", "Close Price Below Loose MLR 30 LCL",
    "Close Price Above Loose MLR 60 UCL", "Close Price Below Loose MLR 60 LCL",
    "Close Price Above Loose MLR 90 UCL", "Close Price Below Loose MLR 90 LCL",
    "Close Price Above Loose MLR 120 UCL", "Close Price Below Loose MLR 120 LCL",
    "Close Price Above Tight MLR 15 UCL", "Close Price Below Tight MLR 15 LCL",
    "Close Price Above Tight MLR 30 UCL", "Close Price Below Tight MLR 30 LCL",
    "Close Price Above Tight MLR 60 UCL", "Close Price Below Tight MLR 60 LCL",
    "Close Price Above Tight MLR 90 UCL", "Close Price Below Tight MLR 90 LCL",
    "Close Price Above Tight MLR 120 UCL", "Close Price Below Tight MLR 120 LCL",
    // Close outside a moving band within ten bars
    "Close Price Above Loose MLR 15 UCL 10 Days", "Close Price Below Loose MLR 15 LCL 10 Days",
    "Close Price Above Loose MLR 30 UCL 10 Days", "Close Price Below Loose MLR 30 LCL 10 Days",
    "Close Price Above Loose MLR 60 UCL 10 Days", "Close Price Below Loose MLR 60 LCL 10 Days",
    "Close Price Above Loose MLR 90 UCL 10 Days", "Close Price Below Loose MLR 90 LCL 10 Days",
    "Close Price Above Loose MLR 120 UCL 10 Days", "Close Price Below Loose MLR 120 LCL 10 Days",
    "Close Price Above Tight MLR 15 UCL 10 Days", "Close Price Below Tight MLR 15 LCL 10 Days",
    "Close Price Above Tight MLR 30 UCL 10 Days", "Close Price Below Tight MLR 30 LCL 10 Days",
    "Close Price Above Tight MLR 60 UCL 10 Days", "Close Price Below Tight MLR 60 LCL 10 Days",
    "Close Price Above Tight MLR 90 UCL 10 Days", "Close Price Below Tight MLR 90 LCL 10 Days",
    "Close Price Above Tight MLR 120 UCL 10 Days", "Close Price Below Tight MLR 120 LCL 10 Days",
    // Close against the whole-window line and bands
    "Close Price Above LR Price", "Close Price Below LR Price", "Close Price Broke Above LR Price",
    "Close Price Broke Below LR Price", "Close Price Broke Above LR Tight UCL",
    "Close Price Broke Below LR Tight LCL", "Close Price Broke Above LR LooseUCL",
    "Close Price Broke Below LR Loose LCL", "Close Price Above LR Tight UCL",
    "Close Price Below LR Tight LCL", "Close Price Above LR Loose UCL", "Close Price Below LR Loose LCL",
    // Average against average
    "MA15 Above MA30", "MA15 Above MA60", "MA15 Above MA90", "MA15 Above MA120", "MA15 Above MA180",
    "MA15 Below MA30", "MA15 Below MA60", "MA15 Below MA90", "MA15 Below MA120", "MA15 Below MA180",
    "MA30 Above MA60", "MA30 Above MA90", "MA30 Above MA120", "MA30 Above MA180", "MA30 Below MA60",
    "MA30 Below MA90", "MA30 Below MA120", "MA30 Below MA180", "MA60 Above MA90", "MA60 Above MA120",
    "MA60 Above MA180", "MA60 Below MA90", "MA60 Below MA120", "MA60 Below MA180", "WMA15 Above WMA30",
    "WMA15 Above WMA60", "WMA15 Above WMA90", "WMA15 Above WMA120", "WMA15 Above WMA180", "WMA15 Below WMA30",
    "WMA15 Below WMA60", "WMA15 Below WMA90", "WMA15 Below WMA120", "WMA15 Below WMA180", "WMA30 Above WMA60",
    "WMA30 Above WMA90", "WMA30 Above WMA120", "WMA30 Above WMA180", "WMA30 Below WMA60", "WMA30 Below WMA90",
    "WMA30 Below WMA120", "WMA30 Below WMA180", "WMA60 Above WMA90", "WMA60 Above WMA120",
    "WMA60 Above WMA180", "WMA60 Below WMA90", "WMA60 Below WMA120", "WMA60 Below WMA180", "WMA15 Above MA15",
    "WMA15 Above MA30", "WMA15 Above MA60", "WMA15 Above MA90", "WMA15 Above MA120", "WMA15 Above MA180",
    "WMA15 Below MA15", "WMA15 Below MA30", "WMA15 Below MA60", "WMA15 Below MA90", "WMA15 Below MA120",
    "WMA15 Below MA180", "WMA30 Above MA15", "WMA30 Above MA30", "WMA30 Above MA60", "WMA30 Above MA90",
    "WMA30 Above MA120", "WMA30 Above MA180", "WMA30 Below MA15", "WMA30 Below MA30", "WMA30 Below MA60",
    "WMA30 Below MA90", "WMA30 Below MA120", "WMA30 Below MA180", "WMA60 Above MA15", "WMA60 Above MA30",
    "WMA60 Above MA60", "WMA60 Above MA90", "WMA60 Above MA120", "WMA60 Above MA180", "WMA60 Below MA15",
    "WMA60 Below MA30", "WMA60 Below MA60", "WMA60 Below MA90", "WMA60 Below MA120", "WMA60 Below MA180",
    "MLR15 Above MLR30", "MLR15 Above MLR60", "MLR15 Above MLR90", "MLR15 Above MLR120", "MLR15 Below MLR30",
    "MLR15 Below MLR60", "MLR15 Below MLR90", "MLR15 Below MLR120", "MLR30 Above MLR60", "MLR30 Above MLR90",
    "MLR30 Above MLR120", "MLR30 Below MLR60", "MLR30 Below MLR90", "MLR30 Below MLR120", "MLR60 Above MLR90",
    "MLR60 Above MLR120", "MLR60 Below MLR90", "MLR60 Below MLR120", "MLR15 Above MA15", "MLR15 Above MA30",
    "MLR15 Above MA60", "MLR15 Above MA90", "MLR15 Above MA120", "MLR15 Above MA180", "MLR15 Below MA15",
    "MLR15 Below MA30", "MLR15 Below MA60", "MLR15 Below MA90", "MLR15 Below MA120", "MLR15 Below MA180",
    "MLR30 Above MA15", "MLR30 Above MA30", "MLR30 Above MA60", "MLR30 Above MA90", "MLR30 Above MA120",
    "MLR30 Above MA180", "MLR30 Below MA15", "MLR30 Below MA30", "MLR30 Below MA60", "MLR30 Below MA90",
    "MLR30 Below MA120", "MLR30 Below MA180", "MLR60 Above MA15", "MLR60 Above MA30", "MLR60 Above MA60",
    "MLR60 Above MA90", "MLR60 Above MA120", "MLR60 Above MA180", "MLR60 Below MA15", "MLR60 Below MA30",
    "MLR60 Below MA60", "MLR60 Below MA90", "MLR60 Below MA120", "MLR60 Below MA180", "MLR15 Above WMA15",
    "MLR15 Above WMA30", "MLR15 Above WMA60", "MLR15 Above WMA90", "MLR15 Above WMA120", "MLR15 Above WMA180",
    "MLR15 Below WMA15", "MLR15 Below WMA30", "MLR15 Below WMA60", "MLR15 Below WMA90", "MLR15 Below WMA120",
    "MLR15 Below WMA180", "MLR30 Above WMA15", "MLR30 Above WMA30", "MLR30 Above WMA60", "MLR30 Above WMA90",
    "MLR30 Above WMA120", "MLR30 Above WMA180", "MLR30 Below WMA15", "MLR30 Below WMA30", "MLR30 Below WMA60",
    "MLR30 Below WMA90", "MLR30 Below WMA120", "MLR30 Below WMA180", "MLR60 Above WMA15", "MLR60 Above WMA30",
    "MLR60 Above WMA60", "MLR60 Above WMA90", "MLR60 Above WMA120", "MLR60 Above WMA180", "MLR60 Below WMA15",
    "MLR60 Below WMA30", "MLR60 Below WMA60", "MLR60 Below WMA90", "MLR60 Below WMA120", "MLR60 Below WMA180",
    // Band against average
    "Tight MLR 60 LCL Above MA120", "Tight MLR 60 LCL Above MA180", "Tight MLR 60 UCL Below MA120",
    "Tight MLR 60 UCL Below MA180", "Tight MLR 90 LCL Above MA120", "Tight MLR 90 LCL Above MA180",
    "Tight MLR 90 UCL Below MA120", "Tight MLR 90 UCL Below MA180", "Tight MLR 60 LCL Above WMA120",
    "Tight MLR 60 LCL Above WMA180", "Tight MLR 60 UCL Below WMA120", "Tight MLR 60 UCL Below WMA180",
    "Tight MLR 90 LCL Above WMA120", "Tight MLR 90 LCL Above WMA180", "Tight MLR 90 UCL Below WMA120",
    "Tight MLR 90 UCL Below WMA180", "Tight MLR 60 LCL Above MLR120", "Tight MLR 60 UCL Below MLR120",
    "Tight MLR 90 LCL Above MLR120", "Tight MLR 90 UCL Below MLR120",
    // Volume limits
    "Volume Above Tight UCL", "Volume Above Loose UCL",
    // Regression derivative
    "MLR Der 15 Broke To Positive", "MLR Der 15 Broke To Negative", "MLR Der 15 Positive",
    "MLR Der 15 Negative", "MLR Der 15 Increasing", "MLR Der 15 Decreasing",
    // Share of extreme
    "MLR Der 15 > 75% MLR 15 Max", "MLR Der 15 < 75% MLR 15 Min",
    // Regression derivative
    "MLR Der 30 Broke To Positive", "MLR Der 30 Broke To Negative", "MLR Der 30 Positive",
    "MLR Der 30 Negative", "MLR Der 30 Increasing", "MLR Der 30 Decreasing",
    // Share of extreme
    "MLR Der 30 > 75% MLR 30 Max", "MLR Der 30 < 75% MLR 30 Min",
    // Regression derivative
    "MLR Der 60 Broke To Positive", "MLR Der 60 Broke To Negative", "MLR Der 60 Positive",
    "MLR Der 60 Negative", "MLR Der 60 Increasing", "MLR Der 60 Decreasing",
    // Share of extreme
    "MLR Der 60 > 75% MLR 60 Max", "MLR Der 60 < 75% MLR 60 Min",
    // Regression derivative
    "MLR Der 90 Broke To Positive", "MLR Der 90 Broke To Negative", "MLR Der 90 Positive",
    "MLR Der 90 Negative", "MLR Der 90 Increasing", "MLR Der 90 Decreasing",
    // Share of extreme
    "MLR Der 90 > 75% MLR 90 Max", "MLR Der 90 < 75% MLR 90 Min",
    // Regression difference
    "MLR Dif 15 Broke To Positive", "MLR Dif 15 Broke To Negative", "MLR Dif 15 Positive",
    "MLR Dif 15 Negative", "MLR Dif 15 Increasing", "MLR Dif 15 Decreasing", "MLR Dif 30 Broke To Positive",
    "MLR Dif 30 Broke To Negative", "MLR Dif 30 Positive", "MLR Dif 30 Negative", "MLR Dif 30 Increasing",
    "MLR Dif 30 Decreasing", "MLR Dif 60 Broke To Positive", "MLR Dif 60 Broke To Negative",
    "MLR Dif 60 Positive", "MLR Dif 60 Negative", "MLR Dif 60 Increasing", "MLR Dif 60 Decreasing",
    // Momentum
    "Momentum 15 Broke To Positive", "Momentum 15 Broke To Negative", "Momentum 15 Positive",
    "Momentum 15 Negative", "Momentum 15 Increasing", "Momentum 15 Decreasing",
    // Share of extreme
    "Momentum 15 > 75% Momentum 15 Max", "Momentum 15 < 75% Momentum 15 Min",
    // Momentum
    "Momentum 30 Broke To Positive", "Momentum 30 Broke To Negative", "Momentum 30 Positive",
    "Momentum 30 Negative", "Momentum 30 Increasing", "Momentum 30 Decreasing",
    // Share of extreme
    "Momentum 30 > 75% Momentum 30 Max", "Momentum 30 < 75% Momentum 30 Min",
    // Momentum
    "Momentum 60 Broke To Positive", "Momentum 60 Broke To Negative", "Momentum 60 Positive",
    "Momentum 60 Negative", "Momentum 60 Increasing", "Momentum 60 Decreasing",
    // Share of extreme
    "Momentum 60 > 75% Momentum 60 Max", "Momentum 60 < 75% Momentum 60 Min",
    // Relative strength
    "RSI 15 Above 70", "RSI 15 Below 30", "RSI 30 Above 65", "RSI 30 Below 35",
    // McClellan Oscillator
    "McClellan Oscillator 15 Increasing", "McClellan Oscillator 15 Decreasing",
    "McClellan Oscillator 15 Broke To Positive", "McClellan Oscillator 15 Broke To Negative",
    "McClellan Oscillator 15 Positive", "McClellan Oscillator 15 Negative",
    // Share of extreme
    "McClellanOscillator 15 > 75% McClellanOscillator 15 Max",
    "McClellanOscillator 15 < 75% McClellanOscillator 15 Min",
    // McClellan Oscillator
    "McClellan Oscillator 30 Increasing", "McClellan Oscillator 30 Decreasing",
    "McClellan Oscillator 30 Broke To Positive", "McClellan Oscillator 30 Broke To Negative",
    "McClellan Oscillator 30 Positive", "McClellan Oscillator 30 Negative",
    // Share of extreme
    "McClellanOscillator 30 > 75% McClellanOscillator 30 Max",
    "McClellanOscillator 30 < 75% McClellanOscillator 30 Min",
    // Stochastic
    "Stochastic 15 Increasing", "Stochastic 15 Decreasing", "Stochastic 15 Positive",
    "Stochastic 15 Negative", "Stochastic 30 Increasing", "Stochastic 30 Decreasing",
    "Stochastic 30 Positive", "Stochastic 30 Negative", "Stochastic 60 Increasing",
    "Stochastic 60 Decreasing", "Stochastic 60 Positive", "Stochastic 60 Negative",
    "Stochastic 90 Increasing", "Stochastic 90 Decreasing", "Stochastic 90 Positive",
    "Stochastic 90 Negative",
    // MACD
    "MACD 15 Increasing", "MACD 15 Decreasing", "MACD 15  Broke To Positive", "MACD 15  Broke To Negative",
    "MACD 15  Positive", "MACD 15  Negative",
    // Share of extreme
    "MACD 15 > 75% MACD 15 Max", "MACD 15 < 75% MACD 15 Min",
    // MACD
    "MACD 30 Increasing", "MACD 30 Decreasing", "MACD 30 Broke To Positive", "MACD 30 Broke To Negative",
    "MACD 30 Positive", "MACD 30 Negative",
    // Share of extreme
    "MACD 30 > 75% MACD 30 Max", "MACD 30 < 75% MACD 30 Min",
    // Candlestick patterns
    "Bullish Abandoned Baby", "Bearish Abandoned Baby", "Bullish Morning Doji Star",
    "Bearish Evening Doji Star", "Bullish Morning Star", "Bearish Evening Star", "Bearish Kicking",
    "Bullish Matching Low", "Bullish Rising Three Methods", "Bearish Dark Cloud Cover",
    "Bullish Three White Soldiers", "Bearish Three Black Crows", "Shaven Bottom", "Shaven Head",
    // Fundamental changes
    "EPS ttm Change Increase", "EPS ttm Change Decrease", "EPS est Change Increase",
    "EPS est Change Decrease", "PEG Change Increase", "PEG Change Decrease", "SPS Change Increase",
    "SPS Change Decrease", "E/S Change Increase", "E/S Change Decrease"};

}  // namespace

std::span<const std::string_view> ConditionNames() {
    return kConditionNames;
}

}  // namespace brantlow
