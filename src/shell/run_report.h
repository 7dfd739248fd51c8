// What a run over tickers did, told the same way by every face of the program: a line for the status bar and
// the terminal, and the fate of each ticker for "Last Run.txt" in the Data folder. Runs fill a report, the
// windows and the batch tool show it.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/clock.h"
#include "base/files.h"

namespace brantlow {

enum class TickerFate {
    Stored,
    NothingNew,  // an answer came that the database holds already, or that is too old for it
    Unknown,     // the source does not know it, or has nothing of it in the span: an answer too
    Failed,
    LeftOut,  // it could not be asked for, which counts like a failure
    Skipped,  // nobody asks for such a ticker
};

struct TickerTold {
    std::string ticker;
    TickerFate fate = TickerFate::Stored;
    std::string why;
};

// How much of what was asked of a run was done.
enum class RunExtent { Whole, Partly, Nothing };

class RunReport {
  public:
    RunReport() = default;
    // `what` heads the kept text ("Update of Practice.ddq"), `things` is what is counted ("quotes").
    RunReport(std::string what, std::string things) : what_(std::move(what)), things_(std::move(things)) {}

    // `why` is a sentence without its full stop; tickers that share it are told of together. Control
    // characters of a ticker become "?".
    void Tell(std::string_view ticker, TickerFate fate, std::string why = {});
    // A failure that belongs to no ticker.
    void Fail(std::string sentence);
    // The line of a run that does not count tickers ("43 rows written to ...").
    void SetHeadline(std::string line) { headline_ = std::move(line); }
    // Words behind the line ("stopped").
    void Add(std::string words) { notes_.push_back(std::move(words)); }
    // The person ended the run before these tickers, which were wanted all the same: they count as skipped,
    // and the line says "stopped".
    void StopBefore(std::span<const std::string> tickers);
    // Something was changed although no ticker counts as done.
    void MarkChanged() { isChanged_ = true; }
    // Joins what a later step of the same run tells.
    void TakeFailures(const RunReport& later);

    RunExtent Extent() const;
    const std::string& What() const { return what_; }
    const std::vector<TickerTold>& Tickers() const { return tickers_; }

    // "41 of 43 quotes, 2 tickers unknown: ZZZ, QQQ"; where nothing came, why, and "nothing was changed".
    std::string Line() const;
    // The line and, of a run done in part, up to two more with the first few kinds of failure.
    std::vector<std::string> Lines() const;

  private:
    // Tickers that share a sentence.
    struct Group {
        std::string sentence;
        std::vector<std::string> tickers;
    };

    std::size_t CountOf(TickerFate fate) const;
    std::vector<std::string> NamesOf(TickerFate fate) const;
    Group& GroupOf(std::string sentence);
    std::string CountsLine() const;
    std::string NothingLine() const;
    std::string MoreFailures() const;

    std::string what_;
    std::string things_;
    std::string headline_;
    std::vector<std::string> notes_;
    std::vector<TickerTold> tickers_;
    std::vector<Group> failures_;
    bool isChanged_ = false;
};

// Of a run that the person ended, and of the tickers that it did not reach.
inline constexpr std::string_view kStoppedWord = "stopped";

inline constexpr std::string_view kLastRunName = "Last Run.txt";

// "1 row", "2 rows".
std::string Counted(std::size_t count, std::string_view one, std::string_view many);
std::string CountedTickers(std::size_t count);

// "A, B, C", the first few of many: "A, B and 40 more".
std::string NameList(const std::vector<std::string>& names);

// The fate as it stands in the list: "stored", "nothing new", "unknown", "failed", "left out",
// "skipped".
std::string_view FateWord(TickerFate fate);

// "AAPL: stored", "ZZZ: failed: No reply from ...", in the order of the run.
std::string TickerLine(const TickerTold& told);

// Replaces "Last Run.txt" of the Data folder: what ran and when, the report's lines, an empty line, and a
// line a ticker.
std::error_code KeepLastRun(const Path& dataFolder, const RunReport& report, const Clock& clock);

}  // namespace brantlow
