#include "study/study.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <unordered_map>
#include <unordered_set>

#include "selector/selector_run.h"
#include "shell/status_words.h"
#include "store/year_files.h"
#include "study/past_verdicts.h"
#include "study/remaining_time.h"

namespace brantlow {

namespace {

constexpr std::size_t kMostThreads = 8;

std::vector<std::string> DifferentOnes(const std::vector<std::string>& tickers) {
    std::vector<std::string> different;
    std::unordered_set<std::string_view> seen;
    for (const std::string& ticker : tickers)
        if (seen.insert(ticker).second) different.push_back(ticker);
    return different;
}

std::size_t HelpersFor(std::size_t wished, std::size_t tickers) {
    const std::size_t processors =
        std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, kMostThreads);
    const std::size_t helpers = wished == kHelpersOfMachine ? processors - 1 : wished;
    return std::min(helpers, tickers == 0 ? 0 : tickers - 1);
}

// One walk over the tickers; every thread takes the next one that nobody has.
class StudyWalk {
  public:
    StudyWalk(Session& session, std::vector<std::string> tickers, const StudySpan& span)
        : session_(session),
          quoteFolder_(session.settings.QuoteFolder),
          today_(session.clock.Today()),
          span_(span),
          conditions_(session.settings),
          tickers_(std::move(tickers)),
          files_(YearFilesByTicker(quoteFolder_, tickers_, &unread_)),
          found_(tickers_.size()),
          days_(tickers_.size()),
          walked_(tickers_.size()),
          failures_(tickers_.size()) {}

    void Walk(std::size_t helpers) {
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < helpers; ++i) threads.emplace_back([this] { HelpAlong(); });
        LeadOn();
        end_ = true;
        for (std::thread& thread : threads) thread.join();
    }

    ConditionStudy Result() {
        ConditionStudy study;
        study.span = span_;
        study.asked = tickers_.size();
        for (std::size_t i = 1; i <= conditions_.Count(); ++i)
            study.actions.push_back(conditions_.Compiled().Block(i).action);
        for (const auto& days : days_) study.dates.insert(study.dates.end(), days.begin(), days.end());
        std::sort(study.dates.begin(), study.dates.end());
        study.dates.erase(std::unique(study.dates.begin(), study.dates.end()), study.dates.end());
        for (std::size_t i = 0; i < tickers_.size(); ++i) {
            if (walked_[i] == 0) {
                study.stopped = true;
                continue;
            }
            if (failures_[i]) {
                study.unreadable.push_back(std::move(failures_[i]));
                continue;
            }
            SetDates(study.dates, days_[i], found_[i]);
            study.tickers.push_back(std::move(found_[i]));
        }
        return study;
    }

  private:
    // What a thread works with.
    struct Bench {
        explicit Bench(StudyWalk& walk)
            : bars(walk.quoteFolder_, walk.today_, walk.writings_),
              verdicts(walk.quoteFolder_, walk.span_, walk.conditions_) {}
        TickerBars bars;
        PastVerdicts verdicts;
    };

    static void SetDates(const std::vector<StudyDay>& dates, std::vector<StudyDay>& days,
                         StudiedTicker& ticker) {
        ticker.dates.reserve(days.size());
        for (const StudyDay& day : days) {
            const auto place = std::lower_bound(dates.begin(), dates.end(), day);
            ticker.dates.push_back(static_cast<std::uint32_t>(place - dates.begin()));
        }
        std::vector<StudyDay>().swap(days);
    }

    static void TakeBars(const std::vector<TickerBar>& bars, StudiedTicker& ticker,
                         std::vector<StudyDay>& days) {
        days.reserve(bars.size());
        ticker.closes.reserve(bars.size());
        for (const TickerBar& bar : bars) {
            days.push_back(bar.day);
            ticker.closes.push_back(bar.close);
        }
    }

    // Works on the next ticker; false when there is none.
    bool WorkOnOne(Bench& bench) {
        const std::size_t index = next_++;
        if (index >= tickers_.size()) return false;
        const auto files = files_.find(tickers_[index]);
        const std::vector<Path> none;
        StudiedTicker& found = found_[index];
        found.ticker = tickers_[index];
        Failure failure = unread_;
        if (!failure) {
            failure = bench.bars.Load(found.ticker, files == files_.end() ? none : files->second,
                                      span_.interval, span_.from);
        }
        if (!failure) failure = bench.verdicts.Take(found.ticker, bench.bars, found.verdicts);
        if (!failure) TakeBars(bench.bars.Bars(), found, days_[index]);
        failures_[index] = std::move(failure);
        walked_[index] = 1;
        ++done_;
        return true;
    }

    void HelpAlong() {
        Bench bench(*this);
        while (!end_ && WorkOnOne(bench)) {
        }
    }

    // The caller's thread talks to the person between its tickers.
    void LeadOn() {
        Bench bench(*this);
        RemainingTime remaining(session_.clock);
        std::string told;
        for (;;) {
            remaining.BeginPause();
            if (ShouldStop(session_.run, session_.person)) return;
            remaining.EndPause();
            const bool more = WorkOnOne(bench);
            const double share =
                static_cast<double>(done_) / static_cast<double>(std::max<std::size_t>(tickers_.size(), 1));
            session_.run.ProgressFraction = share;
            session_.person.ShowProgress(share);
            const std::string words = remaining.Words(share);
            if (words != told && !words.empty()) session_.person.ShowStatusWord(told = words);
            session_.person.PumpEvents();
            if (!more) return;
        }
    }

    Session& session_;
    const std::string quoteFolder_;
    const Date today_;
    const StudySpan span_;
    const WindowConditions conditions_;
    const std::vector<std::string> tickers_;
    Failure unread_;  // the folder could not be looked through
    const std::unordered_map<std::string, std::vector<Path>> files_;
    DayWritings writings_;
    std::vector<StudiedTicker> found_;
    std::vector<std::vector<StudyDay>> days_;
    std::vector<std::uint8_t> walked_;
    std::vector<Failure> failures_;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<std::size_t> done_ = 0;
    std::atomic<bool> end_ = false;
};

}  // namespace

StudySpan UsualSpan(const Date& today) {
    return {Interval::Daily, AddDays(today, -kStudyDays), today};
}

std::size_t ConditionStudy::Evaluated() const {
    std::size_t count = 0;
    for (const StudiedTicker& ticker : tickers)
        for (std::size_t bar = 0; bar < ticker.verdicts.size(); ++bar)
            if (ticker.IsEvaluated(bar)) ++count;
    return count;
}

ConditionStudy RunStudy(Session& session, const std::vector<std::string>& tickers, const StudySpan& span,
                        std::size_t helpers) {
    BeginRun(session.run);
    session.person.ShowStatusWord(kStatusStudying);
    std::vector<std::string> different = DifferentOnes(tickers);
    helpers = HelpersFor(helpers, different.size());
    session.person.ShowTickerCount(different.size());
    StudyWalk walk(session, std::move(different), span);
    walk.Walk(helpers);
    session.person.ShowStatusWord(kStatusComplete);
    return walk.Result();
}

}  // namespace brantlow
