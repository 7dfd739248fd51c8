// A quote table laid out over printed pages: the header on each, the tickers in front of every part of the
// columns, the file's name, the page's number and the day at the foot.
#pragma once

#include <QString>
#include <cstddef>
#include <functional>
#include <vector>

#include "store/quote_table.h"

class QPagedPaintDevice;

namespace brantlow {

struct TableOnPaper {
    const QuoteTable& table;
    std::vector<std::size_t> rows;     // 1 the first
    std::vector<std::size_t> columns;  // the tickers' first
    QString title;
    QString day;
};

// Which columns, by their places among those given, stand on one page beside the first: as many as fit, one
// at least. `widths` are theirs, `gap` stands behind each, `across` is the page's width.
std::vector<std::vector<std::size_t>> ColumnParts(const std::vector<int>& widths, int gap, int across);

// Told the share of the pages that is painted, after each; false ends the painting.
using PageDone = std::function<bool(double share)>;
// The pages; 0 when the device takes none, or `pageDone`, which may be empty, ended them.
int PaintTablePages(QPagedPaintDevice& device, const TableOnPaper& paper, const PageDone& pageDone = {});

}  // namespace brantlow
