// One array of the working series or of the indicators: elements 0 to 18,000 that remember whether anything
// was ever written to them. Element 1 is the oldest bar.
//
// Nothing clears an array between tickers: elements that a ticker does not write keep what an earlier ticker
// left there, and callers count on it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "shell/settings/settings_tables.h"

namespace brantlow {

enum class ElementState : std::uint8_t {
    NeverWritten,  // reads as 0
    Written,
    Emptied,  // holds an empty text; reads as 0
};

class NumberSeries {
  public:
    double operator[](std::size_t i) const { return values_[i]; }
    ElementState State(std::size_t i) const { return states_[i]; }
    void Set(std::size_t i, double value) {
        values_[i] = value;
        states_[i] = ElementState::Written;
    }
    void Empty(std::size_t i) {
        values_[i] = 0;
        states_[i] = ElementState::Emptied;
    }
    // Element `to` becomes what element `from` is, its state included.
    void Copy(std::size_t to, std::size_t from) {
        values_[to] = values_[from];
        states_[to] = states_[from];
    }
    // Element 0; elements that hold no number are 0.
    const double* Values() const { return values_.data(); }

    double* MutableValues() { return values_.data(); }
    ElementState* MutableStates() { return states_.data(); }

  private:
    std::vector<double> values_ = std::vector<double>(kMostRows + 1, 0.0);
    std::vector<ElementState> states_ = std::vector<ElementState>(kMostRows + 1, ElementState::NeverWritten);
};

class TextSeries {
  public:
    const std::string& operator[](std::size_t i) const { return values_[i]; }
    ElementState State(std::size_t i) const { return states_[i]; }
    void Set(std::size_t i, std::string_view text) {
        values_[i].assign(text);
        states_[i] = ElementState::Written;
    }
    void Copy(std::size_t to, std::size_t from) {
        values_[to] = values_[from];
        states_[to] = states_[from];
    }

  private:
    std::vector<std::string> values_ = std::vector<std::string>(kMostRows + 1);
    std::vector<ElementState> states_ = std::vector<ElementState>(kMostRows + 1, ElementState::NeverWritten);
};

}  // namespace brantlow
