#include "selector/newest_window.h"

#include <algorithm>

namespace brantlow {

namespace {

constexpr std::size_t kColumn = kDefaultWindow + 1 + 2 * kWindowMargin;

std::vector<NumberSlot> SlotsOf(const FieldSet& fields) {
    std::vector<NumberSlot> slots;
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot)
        if (fields.test(kNumberFields[slot].field)) slots.push_back(static_cast<NumberSlot>(slot));
    return slots;
}

}  // namespace

NewestWindow::NewestWindow(const LookedAtFields& fields)
    : ofEveryBar_(SlotsOf(fields.everyBar)),
      ofNewestBars_(SlotsOf(fields.everyBar | fields.newestBars)),
      columns_(kNumberFields.size() * kColumn) {
    for (std::size_t slot = 0; slot < view_.size(); ++slot)
        view_[slot] = columns_.data() + slot * kColumn + kWindowMargin;
}

Failure NewestWindow::Load(const std::string& quoteFolder, std::string_view ticker,
                           std::span<const std::string> years) {
    barCount_ = 0;
    Failure failure = text_.LoadNewest(quoteFolder, ticker, years, kDefaultWindow);
    if (!failure && IsRegular()) ReadBars();
    return failure;
}

void NewestWindow::ReadBars() {
    const std::size_t rows = text_.BarCount();
    barCount_ = std::min(rows, kDefaultWindow);
    const std::size_t firstNew = barCount_ - std::min(barCount_, kNewestBars) + 1;
    for (std::size_t bar = 1; bar <= barCount_; ++bar)
        ReadBar(bar < firstNew ? ofEveryBar_ : ofNewestBars_, rows - barCount_ + bar, bar);
    // A year without a file takes the open of the newest bar.
    if (text_.NewestOpenEmptied()) columns_[kOpenSlot * kColumn + kWindowMargin + barCount_] = 0;
}

void NewestWindow::ReadBar(std::span<const NumberSlot> slots, std::size_t row, std::size_t bar) {
    ReadNumberFields(text_.Row(row), slots, numbers_);
    for (const NumberSlot slot : slots) columns_[slot * kColumn + kWindowMargin + bar] = numbers_[slot];
}

}  // namespace brantlow
