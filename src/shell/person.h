// The engine's one line to a person. The windows, a terminal and a recording test double implement it; the
// engine calls it and knows nothing of them.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace brantlow {

class Person {
  public:
    virtual ~Person() = default;

    // A message box with one button. `title` may be empty: the program's name stands there.
    virtual void Say(std::string_view text, std::string_view title = {}) = 0;
    // A Yes and No question; true for Yes.
    virtual bool Ask(std::string_view text, std::string_view title = {}) = 0;
    // The same before something is deleted or written over: No is what an absent-minded Enter says.
    virtual bool AskBeforeDestroying(std::string_view text, std::string_view title = {});
    // A question before something goes that cannot be fetched again: `yes` is the word of the button that
    // goes on, and Cancel is the default.
    virtual bool AskBeforeLoss(std::string_view text, std::string_view title, std::string_view yes);
    // The one word of status panel 2 for what the program is doing ("Opening", "Selecting", "Complete").
    virtual void ShowStatusWord(std::string_view word) = 0;
    // The number of tickers of the open table in status panel 3.
    virtual void ShowTickerCount(std::size_t count) = 0;
    // Share of the run that is done, 0 to 1. Called for every ticker: a cheap implementation throttles.
    virtual void ShowProgress(double fraction) = 0;
    // Lets waiting window events run. A handler may change the run's control word meanwhile.
    virtual void PumpEvents() = 0;
    // Does work that takes as long as the disk does and touches neither windows nor the session. Windows live
    // on meanwhile, on a thread of their own where they have one; returns when it is done.
    virtual void DoBeside(const std::function<void()>& work);
    virtual void Beep() = 0;
    // The warning of the low-memory watch (memory_status.h), a message unless a person has a better way. It
    // must not stop the caller for long: what a run has gathered is stored after it.
    virtual void WarnLowMemory();
};

}  // namespace brantlow
