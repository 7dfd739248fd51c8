#include "shell/frame/windows/frame_runs.h"

#include <QTimer>
#include <QWidget>
#include <utility>

#include "shell/frame/windows/window_person.h"
#include "store/quote_table.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

namespace {

// A smaller table is on the disk before the eye sees a bar.
constexpr std::size_t kManyRows = 2000;

}  // namespace

FrameRuns::FrameRuns(QWidget& window, Session& session, WindowPerson& person,
                     std::function<void()> applyRules)
    : window_(window), session_(session), person_(person), applyRules_(std::move(applyRules)) {}

void FrameRuns::Begin(frmQuoteGrid& table, RunStop stop) {
    ticker_ = session_.CurrentTicker;
    person_.BeginRun([this, &table] { table.ShowRowInWork(session_.run.CurrentRow, session_.run.TopRow); },
                     stop);
    applyRules_();
}

void FrameRuns::BeginFilling(frmQuoteGrid& table) {
    filling_ = true;
    Begin(table);
}

void FrameRuns::BeginWithoutTable(RunStop stop) {
    ticker_ = std::exchange(session_.CurrentTicker, {});
    person_.BeginRun([] {}, stop);
    applyRules_();
}

bool FrameRuns::End() {
    filling_ = false;
    if (ticker_) session_.CurrentTicker = *std::exchange(ticker_, std::nullopt);
    person_.EndRun();
    // The run was called from a click; the frame goes when that has returned.
    if (closeFrame_) QTimer::singleShot(0, &window_, &QWidget::close);
    return !closeFrame_;
}

bool FrameRuns::EndOn(frmQuoteGrid& table) {
    const bool stays = End();
    // The person may have selected another row while the run stood still.
    session_.CurrentTicker = table.TickerMeant();
    table.ShowFirstRow();
    // What the run did to rows and cells is told in the status bar once it is over.
    if (stays) Q_EMIT table.RowsLineChanged();
    return stays;
}

bool FrameRuns::BeginSaving(const QuoteTable& table) {
    if (table.TickerCount() < kManyRows || person_.InRun()) return false;
    person_.BeginWork();
    return true;
}

void FrameRuns::Saving(const QuoteTable& table, const std::function<void()>& save) {
    const bool isWork = BeginSaving(table);
    save();
    if (isWork) End();
}

bool FrameRuns::TableMayClose() const {
    return !person_.InRun() || filling_;
}

bool FrameRuns::ClosesTableAfterwards() {
    if (!filling_) return false;
    session_.run.ProcessCommand = kStopRun;
    closeTable_ = true;
    return true;
}

bool FrameRuns::TakeCloseTable() {
    return std::exchange(closeTable_, false);
}

bool FrameRuns::ClosesFrameAfterwards() {
    if (!person_.InRun()) return false;
    session_.run.ProcessCommand = kStopRun;
    closeFrame_ = true;
    return true;
}

}  // namespace brantlow
