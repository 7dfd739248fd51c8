// The quote table as rows and columns of a view, read straight from the engine's table: nothing is copied.
// Row r of the model is row r + 1 of the table, whose row 0 is the header, or the r-th that a filter shows.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QPalette>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "shell/file_kind.h"
#include "store/columns.h"
#include "store/quote_table.h"
#include "store/table_colours.h"

namespace brantlow {

// A colour of the table on the palette in use.
QColor ScreenColour(const Colour& colour, QPalette::ColorRole window, const QPalette& palette);

// The colour of a cell's words: that of the style as far as it can be read on its ground; a verdict is black
// or white, whatever the desktop writes in.
QColor WordsOf(CellStyle style, const QPalette& palette);

class QuoteGridModel final : public QAbstractTableModel {
    Q_OBJECT
  public:
    using Summaries = std::array<std::string, kConditionCount + 1>;

    // `table` outlives the model.
    QuoteGridModel(const QuoteTable& table, QObject* parent);

    // The table was filled anew. The summaries are the tool tips of an evaluation table's headers.
    void Reload(FileKind kind, Summaries summaries);
    // Cells hold something else, or have changed places; rows and columns are as many as before.
    void CellsChanged();

    // Shows these rows of the table alone, in their order; all of them where there is no list.
    void ShowRows(std::optional<std::vector<std::size_t>> rows);
    bool IsFiltered() const { return shown_.has_value(); }
    // The table's row (1 the first) behind a row of the model.
    std::size_t TableRow(int row) const;
    // The row of the model that shows the table's row; -1 where it is not shown.
    int ModelRow(std::size_t tableRow) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    Qt::Alignment AlignmentOf(std::size_t column) const;
    QVariant ToolTipOf(std::size_t column) const;

    const QuoteTable& table_;
    FileKind kind_ = FileKind::None;
    Summaries summaries_;
    // Rising, where the rows are filtered.
    std::optional<std::vector<std::size_t>> shown_;
};

}  // namespace brantlow
