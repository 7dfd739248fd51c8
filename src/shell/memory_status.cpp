#include "shell/memory_status.h"

#include <charconv>

#include "base/text.h"

namespace brantlow {

namespace {

// The figure of a line "Name:   12345 kB", or nothing.
std::optional<std::uint64_t> Figure(std::string_view meminfo, std::string_view name) {
    LineReader lines(meminfo);
    for (std::string_view line; lines.Next(line);) {
        if (!line.starts_with(name) || line.substr(name.size()).substr(0, 1) != ":") continue;
        const std::string_view text = Trim(line.substr(name.size() + 1));
        std::uint64_t value = 0;
        const auto error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
        if (error == std::errc()) return value;
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

std::optional<MemoryStatus> ParseMemoryStatus(std::string_view meminfo) {
    const auto total = Figure(meminfo, "MemTotal");
    const auto available = Figure(meminfo, "MemAvailable");
    if (!total || !available) return std::nullopt;
    const MemoryStatus status{*total + Figure(meminfo, "SwapTotal").value_or(0),
                              *available + Figure(meminfo, "SwapFree").value_or(0)};
    if (status.totalPageFile == 0) return std::nullopt;
    return status;
}

const std::string& MemoryLook::At(TimePoint now) {
    if (text_.empty() || now - when_ >= kFresh) {
        text_ = BytesOrEmpty(file_);
        when_ = now;
    }
    return text_;
}

std::string ReadMemoryInfo() {
    thread_local MemoryLook look("/proc/meminfo");
    return look.At(std::chrono::steady_clock::now());
}

double PercentAvailable(const MemoryStatus& status) {
    constexpr double kPercent = 100;
    return static_cast<double>(status.availablePageFile) * kPercent /
           static_cast<double>(status.totalPageFile);
}

bool Person::AskBeforeDestroying(std::string_view text, std::string_view title) {
    return Ask(text, title);
}

bool Person::AskBeforeLoss(std::string_view text, std::string_view title, std::string_view) {
    return Ask(text, title);
}

void Person::DoBeside(const std::function<void()>& work) {
    work();
}

void Person::WarnLowMemory() {
    std::string text(kLowMemoryHeading);
    text.append("\n\n").append(kLowMemoryText).append("\n\n").append(kLowMemoryAdvice);
    Say(text, kLowMemoryTitle);
}

void WatchMemory(std::string_view meminfo, RunControl& run, Person& person) {
    const auto status = ParseMemoryStatus(meminfo);
    if (!status || PercentAvailable(*status) >= kLowMemoryPercent) return;
    person.WarnLowMemory();
    run.ProcessCommand = kStopRun;
}

}  // namespace brantlow
