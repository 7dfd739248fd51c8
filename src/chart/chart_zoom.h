// Zoom and pan: which stretch of a ticker's history the chart shows, from 20 bars to all that there are.
//
// The chart's own window, its newest 279 bars, is drawn from the chart's session; a stretch within it is a
// view of the lists that stand there. Any other stretch has a session and an analysis of its own, computed
// over the bars that it shows, 279 at least, so that its studies are those that a chart of that day would
// have had.
#pragma once

#include <cstddef>
#include <future>
#include <memory>
#include <optional>
#include <string>

#include "chart/chart_actions.h"
#include "chart/chart_view.h"
#include "indicators/analysis.h"

namespace brantlow {

// Counted from the newest bar of the history: how many are to the right of the panel, and how many are shown.
struct ChartSpan {
    std::size_t back = 0;
    std::size_t count = kWholeView;
    bool operator==(const ChartSpan&) const = default;
};

class ChartZoom {
  public:
    // `own` is the chart's own; its parts outlive this.
    explicit ChartZoom(const ChartContext& own) : own_(own) {}

    // What is drawn from: the chart's own or that of another stretch. Its lists are painted.
    ChartContext Shown() const;
    const ChartView& View() const { return view_; }
    const ChartSpan& Span() const { return span_; }
    bool IsWide() const { return wide_ != nullptr && isWide_; }

    // The next three read the whole history where the chart's own window does not reach. One that cannot be
    // read is told to the person, and the chart stays in its window.

    // Zooms by `factor`, above 1 to more bars, about the bar at `x` twips of the panel.
    void ZoomAbout(double x, double factor);
    // Moves the stretch by so many bars, to older ones above 0. False where there are no bars to go to.
    bool PanBy(std::ptrdiff_t bars);
    // To the oldest bar and to the newest.
    void PanToOldest();
    void PanToNewest();
    // The chart's own window.
    void Reset();

    // The chart's own window was painted anew: with other series, or anew from another ticker, time frame or
    // day, for which the stretch stays what it is as far as there are bars.
    void PaintedAgain();
    void Reloaded();
    // The same for a chart that is not zoomed: the history is read anew when it is needed.
    void ForgetHistory();

    // Reads the whole history on a thread of its own, so that the first step that leaves the chart's own
    // window has it. Nothing where it is read already, or on the way.
    void ReadAhead();
    // Until what is on the way has come.
    void AwaitReading() const;

    // Where a day stands among the bars of the lists: the first bar that is not before it, counted from 1.
    // Below 1 and beyond the newest bar as far as the whole history goes, and by the usual days of a bar from
    // there.
    double BarOf(const Date& day);
    // The day of such a bar; the oldest or the newest one where there is no further.
    std::optional<Date> DayOf(std::ptrdiff_t bar);

    // What a person is to know of the stretch: over which bars its studies are computed. Empty in the chart's
    // own window.
    std::string Remark() const;

  private:
    struct History {
        WorkingSeries series;
        Failure failure;
    };
    // What is to be read, apart from the session and its clock: a closed chart may outlive them by its
    // reading.
    struct Reading {
        std::string quoteFolder;
        Date today;
        std::optional<Date> lastDay;
        std::string ticker;
        Interval interval;

        std::unique_ptr<History> Read() const;
    };
    Reading NextReading() const;

    // The stretch that is in work.
    struct Wide {
        Analysis analysis;
        ChartSession chart;
    };

    std::size_t OwnBars() const { return own_.analysis.series.BarCount; }
    // Bars of the history; those of the chart's own window where it cannot be read.
    std::size_t AllBars();
    // Bars of the history that are newer than the last one of the lists.
    std::size_t NewerThanLists() const;
    // Bars of the history that are older than the first one of the lists; 0 where it cannot be read.
    std::size_t OlderThanLists();
    // What of `span` there is.
    ChartSpan Within(ChartSpan span);
    void Show(ChartSpan span);
    void ShowWhole();
    // Fills the stretch's session with the bars up to `newest` of the history and paints it.
    void MakeStretch(std::size_t newest, std::size_t bars);
    void PaintStretch();

    ChartContext own_;
    ChartSpan span_;
    ChartView view_;
    std::unique_ptr<Wide> wide_;
    // Null until it is needed; meanwhile it can be on the way.
    std::unique_ptr<History> history_;
    struct Ahead {
        std::unique_ptr<History> history;
        std::unique_ptr<Wide> wide;
    };
    std::future<Ahead> ahead_;
    bool isWide_ = false;
};

}  // namespace brantlow
