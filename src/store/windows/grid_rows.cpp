// The rows of frmQuoteGrid as a person works on them: the filter, the selection, copying, the alarms of the
// selected row.
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <functional>
#include <unordered_set>
#include <utility>

#include "base/windows/display_text.h"
#include "store/table_figures.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/quote_grid_model.h"
#include "store/windows/quote_strip.h"

namespace brantlow {

namespace {

// Does something when Escape is pressed in a box, which it belongs to.
class EscapeKey final : public QObject {
  public:
    EscapeKey(QLineEdit& box, std::function<void()> act) : QObject(&box), act_(std::move(act)) {
        box.installEventFilter(this);
    }
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool pressed =
            event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        if (!pressed) return QObject::eventFilter(object, event);
        act_();
        return true;
    }

  private:
    std::function<void()> act_;
};

}  // namespace

void frmQuoteGrid::ConnectFilter() {
    QLineEdit* const filter = strip_->Filter();
    connect(filter, &QLineEdit::textChanged, this, &frmQuoteGrid::ApplyFilter);
    connect(filter, &QLineEdit::returnPressed, this, [this] {
        view_->setFocus();
        if (!view_->selectionModel()->hasSelection() && model_->rowCount() > 0) view_->selectRow(0);
    });
    new EscapeKey(*filter, [this, filter] {
        filter->clear();
        view_->setFocus();
    });
}

void frmQuoteGrid::ApplyFilter() {
    const int column = static_cast<int>(CurrentColumn());
    filter_ = RowFilter::Parse(strip_->Filter()->text().toStdString(), table_);
    ShowFilteredRows();
    ShowEmptySentence();
    SelectAgain(column);
    Q_EMIT RowsLineChanged();
}

// The columns may be others than those that the filter was made for.
void frmQuoteGrid::ShowFilteredRows() {
    const std::string typed = strip_->Filter()->text().toStdString();
    filter_ = RowFilter::Parse(typed, table_);
    if (!filter_.PassesAll()) return model_->ShowRows(filter_.Rows(table_));
    if (model_->IsFiltered()) model_->ShowRows(std::nullopt);
}

std::size_t frmQuoteGrid::RowAt(const QModelIndex& cell) const {
    return model_->TableRow(cell.row());
}

std::vector<std::size_t> frmQuoteGrid::ShownRows() const {
    std::vector<std::size_t> rows;
    for (int row = 0; row < model_->rowCount(); ++row) rows.push_back(model_->TableRow(row));
    return rows;
}

std::vector<std::size_t> frmQuoteGrid::SelectedRows() const {
    std::vector<std::size_t> rows;
    if (!view_->selectionModel()) return rows;
    for (const QItemSelectionRange& range : view_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(model_->TableRow(row));
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

// Silent, as SelectAgain is.
void frmQuoteGrid::SelectAlso(const std::vector<std::string>& tickers) {
    const std::unordered_set<std::string_view> wanted(tickers.begin(), tickers.end());
    QItemSelection selection;
    const int last = model_->columnCount() - 1;
    for (int row = 0; row < model_->rowCount(); ++row) {
        if (!wanted.contains(table_.Ticker(model_->TableRow(row)))) continue;
        int end = row;
        while (end + 1 < model_->rowCount() && wanted.contains(table_.Ticker(model_->TableRow(end + 1))))
            ++end;
        selection.append(QItemSelectionRange(model_->index(row, 0), model_->index(end, last)));
        row = end;
    }
    const QSignalBlocker quiet(view_->selectionModel());
    view_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    view_->viewport()->update();
    view_->FrozenView()->viewport()->update();
}

void frmQuoteGrid::SelectTicker(const std::string& ticker) {
    const std::size_t row = RowOfTicker(table_, ticker);
    if (row == 0) return;
    if (model_->ModelRow(row) < 0) strip_->Filter()->clear();
    selectedTicker_ = ticker;
    Mean(ticker);
    SelectAgain(static_cast<int>(CurrentColumn()));
    view_->scrollTo(model_->index(model_->ModelRow(row), static_cast<int>(CurrentColumn())));
    Q_EMIT RowChosen();
    Q_EMIT RowsLineChanged();
}

void frmQuoteGrid::SelectAllRows() {
    view_->setFocus();
    view_->selectAll();
}

void frmQuoteGrid::CopyRows() {
    const std::vector<std::size_t> rows = SelectedRows();
    if (rows.empty()) return;
    QGuiApplication::clipboard()->setText(
        Shown(RowsText(table_, rows, ShownColumns(table_), CellsBetween::Tabs)));
}

void frmQuoteGrid::FindRows() {
    strip_->Filter()->setFocus();
    strip_->Filter()->selectAll();
}

std::string frmQuoteGrid::RowsLine() const {
    if (!filter_.Complaint().empty()) return filter_.Complaint();
    const std::vector<std::size_t> selected = SelectedRows();
    const RowCounts counts{table_.TickerCount(), static_cast<std::size_t>(model_->rowCount()),
                           selected.size()};
    return LineOf(counts, selected);
}

// Of several selected rows the sum is theirs, else that of all that are shown.
std::string frmQuoteGrid::LineOf(const RowCounts& counts, const std::vector<std::size_t>& selected) const {
    if (selected.size() > 1) return brantlow::RowsLine(counts, table_, selected, CurrentColumn());
    return brantlow::RowsLine(counts, table_, ShownRows(), CurrentColumn());
}

// The boxes show the alarms of the ticker that is typed or selected, 0 for none of the table. What was typed
// into them since stays.
void frmQuoteGrid::ShowAlarmsOf(std::size_t row) {
    if (KindOf(session_.CurrentFile) != FileKind::Ddq) return;
    const auto show = [&](QLineEdit& box, std::string_view header, std::string& shown) {
        const auto column = table_.ColumnOf(header);
        const bool wasTyped = !box.text().isEmpty() && box.text() != Shown(shown);
        if (wasTyped || !column) return;
        shown = row > 0 ? table_.Text(row, *column) : std::string();
        box.setText(Shown(shown));
    };
    show(*strip_->HighAlarm(), "High Alarm", shownHigh_);
    show(*strip_->LowAlarm(), "Low Alarm", shownLow_);
}

void frmQuoteGrid::ForgetShownAlarms() {
    shownHigh_ = strip_->HighAlarm()->text().toStdString();
    shownLow_ = strip_->LowAlarm()->text().toStdString();
}

}  // namespace brantlow
