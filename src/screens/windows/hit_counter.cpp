#include "screens/windows/hit_counter.h"

#include <fmt/format.h>

#include <QTimer>

#include "base/windows/display_text.h"
#include "screens/selector_edits.h"

namespace brantlow {

namespace {

constexpr int kLookMilliseconds = 100;

}  // namespace

HitCounter::HitCounter(const HistorySource& source, std::vector<std::string> tickers, QObject* parent)
    : QObject(parent),
      quoteFolder_(source.QuoteFolder),
      clock_(source.NewestDay()),
      tickers_(std::move(tickers)),
      thread_([this] { Walk(); }) {
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer] {
        Look();
        if (ready_) timer->stop();
    });
    timer->start(kLookMilliseconds);
}

HitCounter::~HitCounter() {
    end_ = true;
    thread_.join();
}

void HitCounter::Walk() {
    walked_ =
        WalkForHits({quoteFolder_, clock_}, Interval::Daily, tickers_, store_, [this](std::size_t done) {
            done_ = done;
            return !end_;
        });
}

void HitCounter::Look() {
    ready_ = walked_;
    Q_EMIT Counted();
}

std::optional<std::size_t> HitCounter::Hits(const Condition& condition) const {
    if (!ready_) return std::nullopt;
    return store_.Count(condition).hits;
}

QString HitCounter::Sentence(const Condition& condition) const {
    if (!ready_)
        return QStringLiteral("Reading the tickers, to count what an edit finds: %1 of %2")
            .arg(done_.load())
            .arg(tickers_.size());
    const ConditionHits hits = store_.Count(condition);
    const std::vector<std::string> lines = LinesOf(condition);
    std::string text = fmt::format("Finds {} of {} tickers now, on daily bars.", hits.hits, tickers_.size());
    for (std::size_t i = 0; i < hits.lines.size(); ++i)
        text += fmt::format("{}{} leaves {} (alone {})", i == 0 ? " " : ", ", lines[i], hits.lines[i].left,
                            hits.lines[i].alone);
    return Shown(text);
}

}  // namespace brantlow
