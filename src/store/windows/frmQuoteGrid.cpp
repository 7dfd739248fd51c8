#include "store/windows/frmQuoteGrid.h"

#include <QCloseEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <unordered_set>

#include "base/text.h"
#include "base/windows/display_text.h"
#include "shell/display.h"
#include "store/file_names.h"
#include "store/table_figures.h"
#include "store/table_road.h"
#include "store/windows/frozen_table_view.h"
#include "store/windows/quote_grid_model.h"
#include "store/windows/quote_strip.h"
#include "store/windows/verdict_legend.h"

namespace brantlow {

namespace {

// While a run works its row is the last of this many rows from the top.
constexpr std::size_t kRowsAbove = 19;
constexpr int kCellPadding = 18;
// More characters than this are no number that a table holds.
constexpr std::size_t kLongestNumber = 20;
constexpr std::size_t kSeparatorEvery = 3;
// Distance of the empty table's sentence from the header.
constexpr int kEmptyMargin = 48;

// The one ticker that `now` has and `before` had not; empty where there is none or are several.
std::string OnlyFurtherTicker(const QuoteTable& before, const QuoteTable& now) {
    const std::vector<std::string> known = before.Tickers();
    const std::unordered_set<std::string_view> tickers(known.begin(), known.end());
    std::string further;
    for (std::size_t row = 1; row <= now.TickerCount(); ++row) {
        if (tickers.contains(now.Ticker(row))) continue;
        if (!further.empty()) return {};
        further = now.Ticker(row);
    }
    return further;
}

// The bytes of the longest text in each column, row by row as they lie in memory.
std::vector<std::size_t> LongestTexts(const QuoteTable& table) {
    std::vector<std::size_t> longest(table.ColumnCount());
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        for (std::size_t column = 0; column < longest.size(); ++column)
            longest[column] = std::max(longest[column], table.Text(row, column).size());
    }
    return longest;
}

}  // namespace

frmQuoteGrid::frmQuoteGrid(Session& session)
    : session_(session),
      model_(new QuoteGridModel(table_, this)),
      view_(new FrozenTableView(this)),
      strip_(new QuoteStrip),
      Text1(strip_->Symbol()),
      empty_(new QLabel(view_)) {
    setObjectName(QStringLiteral("frmQuoteGrid"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);

    layout->addWidget(strip_);
    layout->addWidget(view_, 1);
    auto* legend = new VerdictLegend;
    legend->hide();
    layout->addWidget(legend);

    empty_->setObjectName(QStringLiteral("lblEmpty"));
    empty_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    empty_->setWordWrap(true);
    empty_->setAttribute(Qt::WA_TransparentForMouseEvents);

    ConnectBoxes();
    ConnectView();
}

void frmQuoteGrid::ConnectBoxes() {
    connect(strip_, &QuoteStrip::Pressed, this, &frmQuoteGrid::CommandPressed);
    connect(Text1, &QLineEdit::textChanged, this, &frmQuoteGrid::Text1_Change);
    ConnectFilter();
    for (const QLineEdit* box : {Text1, strip_->HighAlarm(), strip_->LowAlarm()}) {
        connect(box, &QLineEdit::returnPressed, this, [this, box] { EnterTicker(*box); });
    }
}

void frmQuoteGrid::ConnectView() {
    for (QAbstractItemView* const view :
         {static_cast<QAbstractItemView*>(view_), static_cast<QAbstractItemView*>(view_->FrozenView())}) {
        view->setContextMenuPolicy(Qt::CustomContextMenu);
        view->installEventFilter(this);
        connect(view, &QWidget::customContextMenuRequested, this,
                [this, view](const QPoint& place) { AskPopUp(*view, place); });
        // A row that is selected already comes into the boxes too.
        connect(view, &QAbstractItemView::clicked, this, [this](const QModelIndex& cell) {
            const bool isSelected = view_->selectionModel()->isRowSelected(cell.row());
            if (isSelected && Text1->text() != Shown(selectedTicker_)) RowSelected(cell.row());
        });
    }
    connect(view_, &FrozenTableView::ColumnMoved, this, &frmQuoteGrid::MoveColumn);
    connect(view_, &FrozenTableView::SortAsked, this, &frmQuoteGrid::SortByTurns);
    connect(view_, &FrozenTableView::CellDoubleClicked, this, &frmQuoteGrid::CellDoubleClicked);
    connect(view_, &FrozenTableView::RowEntered, this, &frmQuoteGrid::RowEntered);
    connect(view_, &FrozenTableView::HeaderMenuAsked, this, &frmQuoteGrid::ShowColumnMenu);
    connect(view_, &FrozenTableView::ColumnResized, this, [this](int column, int pixels) {
        table_.SetWidth(static_cast<std::size_t>(column), TwipsOf(pixels));
    });
}

TableLoad frmQuoteGrid::Read(QuoteTable& table) const {
    return LoadQuoteTable(session_.DataFile(session_.CurrentFile), KindOf(session_.CurrentFile),
                          session_.settings, session_.clock.Today(), table, &session_.person);
}

TableLoad frmQuoteGrid::Load() {
    const TableLoad load = Read(table_);
    ReloadModel();
    ShowTable();
    return load;
}

TableLoad frmQuoteGrid::Reload() {
    QuoteTable table;
    TableLoad load = Read(table);
    if (!load.Done()) return load;
    const std::string back = OnlyFurtherTicker(table_, table);
    table_ = std::move(table);
    if (RowOfTicker(table_, selectedTicker_) == 0)
        selectedTicker_ = table_.TickerCount() > 0 ? table_.Ticker(1) : std::string();
    Mean(selectedTicker_);
    NameChanged();
    TableChanged();
    if (!back.empty()) SelectTicker(back);
    return load;
}

void frmQuoteGrid::ReloadModel() {
    const FileKind kind = KindOf(session_.CurrentFile);
    QuoteGridModel::Summaries summaries;
    if (kind == FileKind::Dbe) summaries = ConditionSummary(session_.settings);
    model_->Reload(kind, std::move(summaries));
    ShowFilteredRows();
}

void frmQuoteGrid::TableChanged() {
    const int column = static_cast<int>(CurrentColumn());
    ReloadModel();
    ApplyWidths();
    ShowEmptySentence();
    view_->ShowSorted(-1, Qt::AscendingOrder);
    SelectAgain(column);
    Q_EMIT RowsLineChanged();
}

void frmQuoteGrid::CellsChanged() {
    model_->CellsChanged();
    Q_EMIT RowsLineChanged();
}

std::size_t frmQuoteGrid::CurrentColumn() const {
    return static_cast<std::size_t>(std::max(0, view_->currentIndex().column()));
}

void frmQuoteGrid::RebuildColumns() {
    const FileKind kind = KindOf(session_.CurrentFile);
    ColumnWidth(kind, table_);
    ColumnLocation(kind, session_.settings, table_);
    ApplyWidths();
    model_->CellsChanged();
    view_->ShowSorted(-1, Qt::AscendingOrder);
}

void frmQuoteGrid::ApplyRules(OpenStates state, bool enabled) {
    enabled_ = enabled;
    strip_->ApplyRules(state, enabled);
    findChild<VerdictLegend*>()->setVisible((state & kWithDbe) != 0);
}

void frmQuoteGrid::ShowTable() {
    view_->SetGridModel(model_);
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        const QModelIndex current = view_->currentIndex();
        if (current.isValid() && view_->selectionModel()->isRowSelected(current.row()))
            RowSelected(current.row());
        Q_EMIT RowsLineChanged();
    });
    connect(view_->selectionModel(), &QItemSelectionModel::currentColumnChanged, this,
            [this] { Q_EMIT RowsLineChanged(); });
    ApplyWidths();
    ShowEmptySentence();
    if (table_.TickerCount() > 0) Mean(selectedTicker_ = table_.Ticker(1));
    SelectAgain(0);
    NameChanged();
    Q_EMIT RowsLineChanged();
}

void frmQuoteGrid::ShowEmptySentence() {
    empty_->setText(EmptySentence());
    empty_->setVisible(!empty_->text().isEmpty());
}

QString frmQuoteGrid::EmptySentence() const {
    if (model_->IsFiltered() && model_->rowCount() == 0)
        return QStringLiteral("No row meets the filter. Escape in the box shows all.");
    if (table_.TickerCount() > 0) return {};
    if (KindOf(session_.CurrentFile) == FileKind::Db) {
        return QStringLiteral(
            "This is a new quote file without tickers.\nSave it under a name of your own to "
            "begin (File, Save).");
    }
    return QStringLiteral("This file holds no tickers.");
}

// A header has to be read whole, whatever font the desktop uses and with the mark of a sorted column beside
// it, and so has every number: one that is cut would be taken for another.
int frmQuoteGrid::ShownWidth(std::size_t column, std::size_t longest) const {
    const int twips = table_.Width(column);
    if (twips <= 0) return 0;
    const QHeaderView& header = *view_->horizontalHeader();
    const int mark = style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, &header) +
                     style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, view_);
    const int words = header.fontMetrics().horizontalAdvance(Shown(table_.Header(column))) + mark;
    return std::max({PixelsOf(twips), words + kCellPadding, NumberWidth(column, longest) + kCellPadding});
}

// Of the longest number in a column, 0 for a column of words.
int frmQuoteGrid::NumberWidth(std::size_t column, std::size_t longest) const {
    const QVariant alignment =
        model_->headerData(static_cast<int>(column), Qt::Horizontal, Qt::TextAlignmentRole);
    if (!alignment.value<Qt::Alignment>().testFlag(Qt::AlignRight)) return 0;
    if (ShowsSeparators(table_.Header(column))) longest += longest / kSeparatorEvery;
    QFont bold = view_->font();
    bold.setBold(true);
    const int digit = QFontMetrics(bold).horizontalAdvance(QLatin1Char('0'));
    return static_cast<int>(std::min(longest, kLongestNumber)) * digit;
}

void frmQuoteGrid::ApplyWidths() {
    const std::vector<std::size_t> longest = LongestTexts(table_);
    for (std::size_t column = 0; column < table_.ColumnCount(); ++column)
        view_->SetColumnWidth(static_cast<int>(column), ShownWidth(column, longest[column]));
}

void frmQuoteGrid::MoveColumn(int from, int to) {
    if (!enabled_) return;
    table_.MoveColumn(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    ApplyWidths();
    model_->CellsChanged();
    view_->ShowSorted(-1, Qt::AscendingOrder);
    view_->SetCurrentColumn(to);
    if (ShowsChosenColumns()) KeepChosenColumns();
}

void frmQuoteGrid::Sort(SortOrder order) {
    SortBy(static_cast<int>(CurrentColumn()), order);
}

void frmQuoteGrid::SortByTurns(int column) {
    if (!enabled_) return;
    view_->SetCurrentColumn(column);
    SortBy(column, nextOrder_);
    nextOrder_ = nextOrder_ == SortOrder::Ascending ? SortOrder::Descending : SortOrder::Ascending;
}

void frmQuoteGrid::SortBy(int column, SortOrder order) {
    std::vector<std::string> selected;
    for (const std::size_t row : SelectedRows()) selected.push_back(table_.Ticker(row));
    SortTable(table_, static_cast<std::size_t>(column), order);
    ShowFilteredRows();
    model_->CellsChanged();
    view_->ShowSorted(column, order == SortOrder::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    SelectAgain(column);
    if (selected.size() > 1) SelectAlso(selected);
}

// The rows have changed places, or are others: the ticker that was selected is selected where it stands now.
// The selection is silent meanwhile, so the views have to be told to paint.
void frmQuoteGrid::SelectAgain(int column) {
    const QSignalBlocker quiet(view_->selectionModel());
    view_->selectionModel()->clear();
    SelectedRow = selectedTicker_.empty() ? 0 : RowOfTicker(table_, selectedTicker_);
    const int row = SelectedRow > 0 ? model_->ModelRow(SelectedRow) : -1;
    if (row >= 0) {
        view_->selectionModel()->setCurrentIndex(
            model_->index(row, column), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    } else {
        view_->SetCurrentColumn(column);
    }
    view_->viewport()->update();
    view_->FrozenView()->viewport()->update();
}

NewTicker frmQuoteGrid::Typed() const {
    const auto textOf = [](const QLineEdit* box) { return box->text().simplified().toStdString(); };
    return {textOf(Text1), textOf(strip_->HighAlarm()), textOf(strip_->LowAlarm())};
}

void frmQuoteGrid::ShowTableRowAtTop(std::size_t row) {
    const int place = model_->ModelRow(row);
    if (place >= 0) view_->ShowAtTop(place);
}

void frmQuoteGrid::ClearSymbolBox() {
    Text1->clear();
}

void frmQuoteGrid::ClearBoxes() {
    strip_->ClearBoxes();
}

// Enter in a box adds the ticker; behind the alarms of one that the table holds, or of none, it sets them.
void frmQuoteGrid::EnterTicker(const QLineEdit& box) {
    const std::string ticker = TableSpelling(Typed().symbol);
    const bool setsAlarm = &box != Text1 && (Trim(ticker).empty() || RowOfTicker(table_, ticker) > 0);
    auto* button = strip_->findChild<QPushButton*>(Name(setsAlarm ? "CmdAlarm" : "CmdAdd"));
    if (button->isVisible()) button->click();
}

void frmQuoteGrid::RowSelected(int row) {
    if (row < 0) return;
    SelectedRow = model_->TableRow(row);
    selectedTicker_ = table_.Ticker(SelectedRow);
    Mean(selectedTicker_);
    {
        const QSignalBlocker quiet(Text1);
        Text1->setText(Shown(selectedTicker_));
    }
    ForgetShownAlarms();
    ShowAlarmsOf(SelectedRow);
    Q_EMIT RowChosen();
}

void frmQuoteGrid::Mean(const std::string& ticker) {
    tickerMeant_ = ticker;
    session_.CurrentTicker = ticker;
}

// The commands of the menu work on the ticker in the Symbol box, so a click selects the row under it first;
// one that is highlighted already has to come into the box too.
void frmQuoteGrid::AskPopUp(const QAbstractItemView& view, const QPoint& place) {
    if (!HasSavedKind()) return;
    const QModelIndex cell = view.indexAt(place);
    if (cell.isValid()) {
        // Sums, sorting and the explanation of a verdict go by the current column.
        view_->selectionModel()->setCurrentIndex(
            view_->model()->index(cell.row(), cell.column()),
            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        RowSelected(cell.row());
    }
    Mean(TableSpelling(Typed().symbol));
    Q_EMIT PopUpAsked(view.viewport()->mapToGlobal(place));
}

// Of a kind that is looked through; a new table has no rows yet.
bool frmQuoteGrid::HasSavedKind() const {
    const FileKind kind = KindOf(session_.CurrentFile);
    return kind == FileKind::Ddq || kind == FileKind::Dbe || kind == FileKind::Efq;
}

void frmQuoteGrid::Text1_Change(const QString& text) {
    if (!HasSavedKind()) return;
    const std::string typed = text.toStdString();
    Mean(TableSpelling(typed));
    ShowAlarmsOf(RowOfTicker(table_, TableSpelling(typed)));
    const std::size_t row = FindTickerRow(table_, typed);
    if (row == 0) return;
    SelectedRow = row;
    // Every ticker begins like an empty text: the table goes to its top, and no row is meant.
    selectedTicker_ = typed.empty() ? std::string() : table_.Ticker(row);
    SelectAgain(static_cast<int>(CurrentColumn()));
    ShowTableRowAtTop(row);
    Q_EMIT RowChosen();
}

void frmQuoteGrid::ShowRowInWork(std::size_t row, std::size_t topRow) {
    if (row == 0) return;
    if (topRow == 0 && row > kRowsAbove + 1) topRow = row - kRowsAbove;
    if (topRow > 0) ShowTableRowAtTop(topRow);
    view_->viewport()->update();
    view_->FrozenView()->viewport()->update();
}

void frmQuoteGrid::ShowFirstRow() {
    view_->ShowAtTop(0);
    view_->viewport()->update();
}

void frmQuoteGrid::NameChanged() {
    std::string title = session_.CurrentFile;
    if (table_.Origin()) title = OriginWords(*table_.Origin()) + " - " + title;
    setWindowTitle(Shown(title));
}

// Enter on a verdict asks why it is as it is.
bool frmQuoteGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || KindOf(session_.CurrentFile) != FileKind::Dbe)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return QWidget::eventFilter(watched, event);
    Q_EMIT CommandPressed("mnuViewExplain");
    return true;
}

void frmQuoteGrid::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int top = view_->horizontalHeader()->sizeHint().height() + kEmptyMargin;
    empty_->setGeometry(0, top, view_->width(), std::max(0, view_->height() - top));
}

// The road of Close asks, tells and cleans up; the window itself never just goes away.
void frmQuoteGrid::closeEvent(QCloseEvent* event) {
    event->ignore();
    Q_EMIT CloseAsked();
}

}  // namespace brantlow
