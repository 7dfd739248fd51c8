#include "shell/run_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/control_characters.h"
#include "base/dates.h"
#include "base/values.h"

namespace brantlow {

namespace {

// More names than these make no line that anybody reads.
constexpr std::size_t kMostNames = 8;
constexpr std::size_t kMostLines = 3;
// No more failures are told in a line; the list has them all.
constexpr std::size_t kMostSentences = 6;
constexpr std::string_view kNothingChanged = "nothing was changed";

struct FateName {
    TickerFate fate;
    std::string_view word;
};

constexpr std::array<FateName, 6> kFateNames = {{{TickerFate::Stored, "stored"},
                                                 {TickerFate::NothingNew, "nothing new"},
                                                 {TickerFate::Unknown, "unknown"},
                                                 {TickerFate::Failed, "failed"},
                                                 {TickerFate::LeftOut, "left out"},
                                                 {TickerFate::Skipped, "skipped"}}};

// The words of a server may end with a stop, which ends no line that goes on; dots are none.
void DropStop(std::string& line) {
    if (line.ends_with('.') && !line.ends_with("..")) line.pop_back();
}

void AppendWith(std::string_view separator, std::string_view text, std::string& line) {
    if (text.empty()) return;
    DropStop(line);
    if (!line.empty()) line += separator;
    line += text;
}

}  // namespace

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string CountedTickers(std::size_t count) {
    return Counted(count, "ticker", "tickers");
}

std::string NameList(const std::vector<std::string>& names) {
    std::string line;
    for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i) {
        line.append(i == 0 ? "" : ", ").append(names[i]);
    }
    if (names.size() > kMostNames) line += fmt::format(" and {} more", names.size() - kMostNames);
    return line;
}

std::string_view FateWord(TickerFate fate) {
    return kFateNames.at(static_cast<std::size_t>(fate)).word;
}

std::string TickerLine(const TickerTold& told) {
    std::string line = fmt::format("{}: {}", told.ticker, FateWord(told.fate));
    if (!told.why.empty()) line.append(": ").append(told.why);
    return line;
}

void RunReport::Tell(std::string_view ticker, TickerFate fate, std::string why) {
    std::string name(ticker);
    std::replace_if(name.begin(), name.end(), IsControl, '?');
    if (fate == TickerFate::Failed) GroupOf(why).tickers.push_back(name);
    if (fate == TickerFate::LeftOut) GroupOf("Left out: " + why).tickers.push_back(name);
    tickers_.push_back({std::move(name), fate, std::move(why)});
}

void RunReport::Fail(std::string sentence) {
    GroupOf(std::move(sentence));
}

void RunReport::StopBefore(std::span<const std::string> tickers) {
    for (const std::string& ticker : tickers) Tell(ticker, TickerFate::Skipped, std::string(kStoppedWord));
    Add(std::string(kStoppedWord));
}

void RunReport::TakeFailures(const RunReport& later) {
    for (const Group& failure : later.failures_) {
        std::vector<std::string>& tickers = GroupOf(failure.sentence).tickers;
        tickers.insert(tickers.end(), failure.tickers.begin(), failure.tickers.end());
    }
}

RunReport::Group& RunReport::GroupOf(std::string sentence) {
    const auto found = std::find_if(failures_.begin(), failures_.end(),
                                    [&](const Group& failure) { return failure.sentence == sentence; });
    if (found != failures_.end()) return *found;
    failures_.push_back({std::move(sentence), {}});
    return failures_.back();
}

std::size_t RunReport::CountOf(TickerFate fate) const {
    return static_cast<std::size_t>(std::count_if(tickers_.begin(), tickers_.end(),
                                                  [&](const TickerTold& told) { return told.fate == fate; }));
}

std::vector<std::string> RunReport::NamesOf(TickerFate fate) const {
    std::vector<std::string> names;
    for (const TickerTold& told : tickers_) {
        if (told.fate == fate) names.push_back(told.ticker);
    }
    return names;
}

RunExtent RunReport::Extent() const {
    if (failures_.empty()) return RunExtent::Whole;
    const bool isDone = isChanged_ || CountOf(TickerFate::Stored) + CountOf(TickerFate::NothingNew) > 0;
    return isDone ? RunExtent::Partly : RunExtent::Nothing;
}

std::string RunReport::CountsLine() const {
    const std::size_t got = CountOf(TickerFate::Stored) + CountOf(TickerFate::NothingNew);
    std::string line = headline_;
    if (line.empty()) line = fmt::format("{} of {} {}", got, tickers_.size(), things_);
    const std::vector<std::string> unknown = NamesOf(TickerFate::Unknown);
    if (!unknown.empty()) {
        line += fmt::format(", {} unknown: {}", CountedTickers(unknown.size()), NameList(unknown));
    }
    for (const std::string& note : notes_) line.append(", ").append(note);
    return line;
}

std::string RunReport::NothingLine() const {
    std::string line;
    for (std::size_t i = 0; i < std::min(failures_.size(), kMostSentences); ++i) {
        AppendWith("; ", failures_[i].sentence, line);
    }
    AppendWith("; ", MoreFailures(), line);
    AppendWith("; ", kNothingChanged, line);
    return line;
}

std::string RunReport::Line() const {
    return Extent() == RunExtent::Nothing ? NothingLine() : CountsLine();
}

std::vector<std::string> RunReport::Lines() const {
    std::vector<std::string> lines = {Line()};
    if (Extent() == RunExtent::Nothing) return lines;
    for (std::size_t i = 0; i < std::min(failures_.size(), kMostSentences); ++i) {
        const Group& failure = failures_[i];
        std::string line = failure.sentence;
        if (!failure.tickers.empty()) {
            AppendWith(
                " ",
                fmt::format("({}: {})", CountedTickers(failure.tickers.size()), NameList(failure.tickers)),
                line);
        }
        if (lines.size() < kMostLines) {
            lines.push_back(std::move(line));
        } else {
            AppendWith("; ", line, lines.back());
        }
    }
    AppendWith("; ", MoreFailures(), lines.back());
    return lines;
}

std::string RunReport::MoreFailures() const {
    if (failures_.size() <= kMostSentences) return {};
    return fmt::format("and {} more", Counted(failures_.size() - kMostSentences, "failure", "failures"));
}

std::error_code KeepLastRun(const Path& dataFolder, const RunReport& report, const Clock& clock) {
    constexpr double kSecondsPerMinute = 60;
    const int minutes = static_cast<int>(clock.SecondsSinceMidnight() / kSecondsPerMinute);
    std::string text =
        fmt::format("{}, {} {}{}", report.What(), FormatDate(clock.Today()), FormatTime(minutes), kLineEnd);
    for (const std::string& line : report.Lines()) text.append(line).append(kLineEnd);
    text += kLineEnd;
    for (const TickerTold& told : report.Tickers()) text.append(TickerLine(told)).append(kLineEnd);
    return WriteWholeFile(dataFolder / kLastRunName, text);
}

}  // namespace brantlow
