// The columns of frmQuoteGrid as its header's menu has them: chosen, moved, sized.
#include <QHeaderView>
#include <QMenu>
#include <algorithm>

#include "base/windows/display_text.h"
#include "shell/display.h"
#include "shell/settings/settings_draft.h"
#include "store/columns.h"
#include "store/windows/column_menu.h"
#include "store/windows/frmQuoteGrid.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/quote_grid_model.h"

namespace brantlow {

namespace {

constexpr int kCellAir = 24;

// The next column that is shown, to the left (-1) or right (1) of one; 0 where there is none.
int NextShown(const QuoteTable& table, int column, int step) {
    for (int next = column + step; next > 0 && next < static_cast<int>(table.ColumnCount()); next += step) {
        if (table.Width(static_cast<std::size_t>(next)) > 0) return next;
    }
    return 0;
}

}  // namespace

void frmQuoteGrid::ShowColumnMenu(int column, const QPoint& place) {
    if (!enabled_) return;
    std::vector<MenuColumn> columns;
    for (std::size_t i = 1; i < table_.ColumnCount(); ++i)
        columns.push_back({i, Shown(table_.Header(i)), table_.Width(i) > 0});
    std::sort(columns.begin(), columns.end(),
              [](const MenuColumn& a, const MenuColumn& b) { return a.header < b.header; });
    ColumnActions actions;
    actions.sortAscending = [this, column] { SortBy(column, SortOrder::Ascending); };
    actions.sortDescending = [this, column] { SortBy(column, SortOrder::Descending); };
    const int left = column > 0 ? NextShown(table_, column, -1) : 0;
    const int right = column > 0 ? NextShown(table_, column, 1) : 0;
    if (left > 0) actions.moveLeft = [this, column, left] { MoveColumn(column, left); };
    if (right > 0) actions.moveRight = [this, column, right] { MoveColumn(column, right); };
    actions.fit = [this, column] {
        FitColumn(static_cast<std::size_t>(column));
        ApplyWidths();
    };
    actions.fitAll = [this] {
        for (std::size_t i = 0; i < table_.ColumnCount(); ++i) FitColumn(i);
        ApplyWidths();
    };
    if (column > 0) actions.hide = [this, column] { ToggleColumn(static_cast<std::size_t>(column)); };
    actions.toggle = [this](std::size_t toggled) { ToggleColumn(toggled); };
    MakeColumnMenu(this, columns, actions)->popup(place);
}

// Shows a hidden column behind the others, or hides a shown one. The columns of quote tables are a setting,
// which goes by the columns as they stand now.
void frmQuoteGrid::ToggleColumn(std::size_t column) {
    const std::size_t current = CurrentColumn();
    if (table_.Width(column) > 0) {
        table_.SetWidth(column, 0);
    } else {
        const QuoteColumn* const known = FindQuoteColumn(table_.Header(column));
        const int width = KindOf(session_.CurrentFile) == FileKind::Dbe ? kConditionWidth : kFundamentalWidth;
        table_.SetWidth(column, known ? known->width : width);
    }
    if (ShowsChosenColumns()) {
        KeepChosenColumns();
        RebuildColumns();
    } else {
        ApplyWidths();
    }
    view_->SetCurrentColumn(static_cast<int>(std::min(current, table_.ColumnCount() - 1)));
}

// Of quote tables; the columns of results are those of their file.
bool frmQuoteGrid::ShowsChosenColumns() const {
    const FileKind kind = KindOf(session_.CurrentFile);
    return kind == FileKind::Ddq || kind == FileKind::Db;
}

// A chosen column that this table has not stays chosen for the others.
void frmQuoteGrid::KeepChosenColumns() {
    std::vector<std::string> chosen;
    for (std::size_t i = 1; i < table_.ColumnCount(); ++i) {
        if (table_.Width(i) > 0) chosen.push_back(table_.Header(i));
    }
    SettingsTables draft = session_.settings;
    for (std::size_t line = 1; line <= draft.ColumnSettings.Size(); ++line) {
        const std::string& header = draft.ColumnSettings.Text(line);
        if (!header.empty() && !table_.ColumnOf(header)) chosen.push_back(header);
    }
    draft.ColumnSettings.Clear();
    for (std::size_t i = 0; i < chosen.size(); ++i) draft.ColumnSettings.Set(i + 1, Value::OfText(chosen[i]));
    const Failure failure =
        ApplySettings(draft, SettingsFile::Columns, OrdinaryChange(session_.AppPath), session_.settings);
    if (failure) session_.person.Say(Sentence(failure));
}

void frmQuoteGrid::FitColumn(std::size_t column) {
    if (table_.Width(column) <= 0) return;
    table_.SetWidth(column, TwipsOf(view_->ContentWidth(static_cast<int>(column)) + kCellAir));
}

}  // namespace brantlow
