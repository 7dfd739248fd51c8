#include "batch/terminal_person.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "shell/status_words.h"

namespace brantlow {

namespace {

constexpr std::string_view kClearLine = "\r\x1b[K";
constexpr auto kRedrawEvery = std::chrono::milliseconds(100);

std::string MinutesAndSeconds(double seconds) {
    constexpr long kMinute = 60;
    const long whole = std::lround(std::ceil(seconds));
    return fmt::format("{}:{:02}", whole / kMinute, whole % kMinute);
}

}  // namespace

std::string ProgressLine(double fraction, std::size_t count, double seconds) {
    constexpr std::size_t kBarWidth = 30;
    constexpr double kPercent = 100;
    const double share = std::clamp(fraction, 0.0, 1.0);
    const auto filled = static_cast<std::size_t>(share * kBarWidth);
    std::string line = fmt::format("[{}{}] {:3.0f}%", std::string(filled, '#'),
                                   std::string(kBarWidth - filled, ' '), std::floor(share * kPercent));
    if (count > 0) {
        const double done = std::round(share * static_cast<double>(count));
        line += fmt::format("  {:.0f}/{}", done, count);
        if (seconds > 0 && done > 0) line += fmt::format("  {:.0f}/s", done / seconds);
    }
    if (seconds > 0 && share > 0 && share < 1) {
        line += fmt::format("  {} to go", MinutesAndSeconds(seconds * (1 - share) / share));
    }
    return line;
}

void TerminalPerson::Say(std::string_view text, std::string_view) {
    ClearBar();
    err_ << text << '\n';
}

bool TerminalPerson::Ask(std::string_view text, std::string_view) {
    if (answerYes_) return true;
    ClearBar();
    err_ << text << '\n';
    return false;
}

void TerminalPerson::ShowStatusWord(std::string_view word) {
    // The words of a run at work, the row in hand among them, leave its bar alone.
    if (word == kStatusComplete) ClearBar();
}

void TerminalPerson::ShowProgress(double fraction) {
    if (!isTerminal_) return;
    const SteadyClock::time_point now = SteadyClock::now();
    const bool newRun = started_ == SteadyClock::time_point{} || fraction < lastFraction_;
    if (newRun) started_ = lastDrawn_ = now;
    lastFraction_ = fraction;
    if (newRun || now - lastDrawn_ < kRedrawEvery) return;
    lastDrawn_ = now;
    const std::chrono::duration<double> seconds = now - started_;
    err_ << kClearLine << ProgressLine(fraction, tickerCount_, seconds.count()) << std::flush;
    barShown_ = true;
}

void TerminalPerson::PumpEvents() {
    if (run_ != nullptr && interrupted_()) run_->ProcessCommand = kStopRun;
}

void TerminalPerson::Beep() {
    if (isTerminal_) err_ << '\a' << std::flush;
}

void TerminalPerson::ClearBar() {
    if (!barShown_) return;
    err_ << kClearLine << std::flush;
    barShown_ = false;
}

}  // namespace brantlow
