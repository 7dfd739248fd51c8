// A person for tests of waits: counts how often events ran and runs what a test hands in, and keeps what was
// said.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/person.h"

namespace brantlow {

class WaitingPerson final : public Person {
  public:
    void Say(std::string_view text, std::string_view) override { Said.emplace_back(text); }
    bool Ask(std::string_view, std::string_view) override { return false; }
    void ShowStatusWord(std::string_view) override {}
    void ShowTickerCount(std::size_t) override {}
    void ShowProgress(double) override {}
    void PumpEvents() override {
        ++Pumps;
        if (OnPump) OnPump();
    }
    void Beep() override {}

    std::function<void()> OnPump;
    int Pumps = 0;
    std::vector<std::string> Said;
};

}  // namespace brantlow
