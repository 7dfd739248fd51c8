#include "store/days_ahead.h"

#include <algorithm>

namespace brantlow {

DaysAhead::DaysAhead(const std::string& quoteFolder, QuoteArrays& rows, std::size_t entries, DayRun& run)
    : rows_(rows),
      entries_(entries),
      run_(run),
      parts_(YearPartsOf(rows, entries)),
      blocks_((entries + kRowsPerBlock - 1) / kRowsPerBlock, 1,
              [this, quoteFolder](std::size_t place, Block& block) {
                  const std::size_t first = place * kRowsPerBlock + 1;
                  const std::size_t count = std::min(kRowsPerBlock, entries_ + 1 - first);
                  for (std::size_t i = 0; i < count; ++i)
                      ReadYearAhead(quoteFolder, rows_, first + i, parts_[first + i], block[i]);
              }) {}

ReadYear* DaysAhead::Of(std::size_t row) {
    const std::size_t at = (row - 1) % kRowsPerBlock;
    if (at == 0) BeginBlock(row);
    ReadYear& read = (*block_)[at];
    if (read.isRead && MayHaveGrown(read.end.extent)) {
        const std::optional<FileExtent> now = read.opened->Extent();
        read.isRead = now && now->length == read.end.extent.length;
    }
    anyInTurn_ |= !read.isRead;
    return read.isRead ? &read : nullptr;
}

// By another name, in the turn of a row before.
bool DaysAhead::MayHaveGrown(const FileExtent& extent) {
    return !taken_.insert(extent.number).second || anyInTurn_;
}

// What has been touched since it was read is read again in its turn. The lengths of the others are noted with
// one write; where that fails, each is noted in its turn.
void DaysAhead::BeginBlock(std::size_t first) {
    if (block_ != nullptr) blocks_.Advance();
    block_ = &blocks_.Await();
    const std::size_t count = std::min(kRowsPerBlock, entries_ + 1 - first);
    std::vector<FileChange::Growth> growing;
    for (std::size_t i = 0; i < count; ++i) {
        ReadYear& read = (*block_)[i];
        if (!read.isRead) continue;
        const Path& file = *read.year.file;
        const auto isThisFile = [&](const ReadYear& other) {
            return other.isRead && other.year.file->native() == file.native();
        };
        read.isRead =
            !run_.change.Touches(file) &&
            std::none_of(block_->begin(), block_->begin() + static_cast<std::ptrdiff_t>(i), isThisFile);
        if (read.isRead && !read.line.empty()) growing.push_back({&file, read.end.extent});
    }
    static_cast<void>(run_.change.WillGrow(growing));
}

}  // namespace brantlow
