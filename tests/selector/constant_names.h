// Names whose outcome no price decides, shared by the evaluator's tests.
#pragma once

namespace brantlow {

inline constexpr const char* kAlwaysPassing[] = {
    "Close Price Broke Above LR Tight UCL", "Close Price Broke Below LR Tight LCL",
    "Close Price Broke Above LR Loose UCL", "Close Price Broke Below LR Loose LCL",
    "Close Price Above LR Tight UCL",       "Close Price Below LR Tight LCL",
    "Close Price Above LR Loose UCL",       "Close Price Below LR Loose LCL"};
inline constexpr const char* kNeverHolding[] = {"MLR Dif 30 Broke To Positive",
                                                "MLR Dif 30 Broke To Negative"};

}  // namespace brantlow
