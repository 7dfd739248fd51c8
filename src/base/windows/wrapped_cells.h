// Lets long words in columns of a list go on in the next line instead of ending in dots.
#pragma once

#include <initializer_list>

class QTreeView;

namespace brantlow {

// The rows of a list without branches become as high as the words of `columns` need in the columns' widths,
// and follow when those change.
void WrapCells(QTreeView& list, std::initializer_list<int> columns);

}  // namespace brantlow
