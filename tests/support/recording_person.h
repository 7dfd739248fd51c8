// A person who takes down what the engine said and answers questions as told; pumping events plays the next
// of a row of prepared actions.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "shell/person.h"

namespace brantlow {

class RecordingPerson final : public Person {
  public:
    struct Message {
        std::string text;
        std::string title;
        bool operator==(const Message&) const = default;
    };

    void Say(std::string_view text, std::string_view title = {}) override {
        said.push_back({std::string(text), std::string(title)});
    }
    bool Ask(std::string_view text, std::string_view title = {}) override {
        asked.push_back({std::string(text), std::string(title)});
        return answer;
    }
    void ShowStatusWord(std::string_view word) override { statusWords.emplace_back(word); }
    void ShowTickerCount(std::size_t count) override { tickerCounts.push_back(count); }
    void ShowProgress(double fraction) override { progress.push_back(fraction); }
    void PumpEvents() override {
        ++pumps;
        if (events.empty()) return;
        const auto event = events.front();
        events.pop_front();
        event();
    }
    void DoBeside(const std::function<void()>& work) override {
        ++beside;
        if (aroundBeside) aroundBeside();
        work();
        if (aroundBeside) aroundBeside();
    }
    void Beep() override { ++beeps; }

    std::vector<Message> said;
    std::vector<Message> asked;
    std::vector<std::string> statusWords;
    std::vector<std::size_t> tickerCounts;
    std::vector<double> progress;
    std::deque<std::function<void()>> events;
    // Called before and after what is done beside the windows.
    std::function<void()> aroundBeside;
    bool answer = true;
    int pumps = 0;
    int beside = 0;
    int beeps = 0;
};

}  // namespace brantlow
