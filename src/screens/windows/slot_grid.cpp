#include "screens/windows/slot_grid.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "base/windows/display_text.h"
#include "selector/value_slots.h"

namespace brantlow {

namespace {

constexpr int kColumnsPerCell = 2;
constexpr int kLettersInBox = 8;
constexpr int kMeaningLines = 3;
constexpr int kGapBetweenGroups = 10;
// Of the screen's width.
constexpr double kLargestShare = 0.6;
constexpr const char* kSlotProperty = "slot";

const QString& Introduction() {
    static const QString words = QStringLiteral(
        "Tick a value and enter the number X. All ticked values and all selected names must hold; a value "
        "equal to X holds too.");
    return words;
}

QString MeaningOf(std::size_t slot, const SlotRow& row, const std::string& text) {
    const QString bound =
        slot == row.atLeast ? QStringLiteral("holds at X or more") : QStringLiteral("holds at X or less");
    const QString meaning =
        QStringLiteral("%1: %2. %3").arg(Name(ValueSlotLabel(slot)), bound, Name(row.meaning));
    const std::string remark = SlotRemark(text);
    return remark.empty() ? meaning : meaning + QLatin1Char(' ') + Shown(remark);
}

}  // namespace

SlotGrid::SlotGrid(Slots& slotsOfPanel)
    : slots_(slotsOfPanel),
      area_(new QScrollArea),
      grid_(new QGridLayout),
      meaning_(new QLabel(Introduction())) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    area_->setWidgetResizable(true);
    area_->setFocusPolicy(Qt::NoFocus);
    auto* rows = new QWidget;
    rows->setLayout(grid_);
    BuildCells();
    PlaceCells(Rows::OfOne);
    const int widthOfOne = rows->minimumSizeHint().width();
    PlaceCells(Rows::OfTwo);
    widthOfTwo_ = rows->minimumSizeHint().width();
    area_->setWidget(rows);
    // All of the tab's own colour.
    area_->viewport()->setAutoFillBackground(false);
    rows->setAutoFillBackground(false);
    // All of a row is seen, but where large letters on a small screen leave no room for the names beside it.
    const auto largest = static_cast<int>(screen()->availableSize().width() * kLargestShare);
    const bool haveRoom = widthOfTwo_ + WidthAround() <= largest;
    area_->setMinimumWidth((haveRoom ? widthOfTwo_ : widthOfOne) + WidthAround());
    layout->addWidget(area_);
    meaning_->setObjectName(QStringLiteral("Meaning"));
    meaning_->setWordWrap(true);
    meaning_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    meaning_->setMinimumHeight(kMeaningLines * meaning_->fontMetrics().lineSpacing());
    layout->addWidget(meaning_);
}

int SlotGrid::WidthAround() const {
    return 2 * area_->frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void SlotGrid::BuildCells() {
    std::string_view group;
    for (const SlotRow& row : kSlotRows) {
        if (row.group != group) headings_.push_back(BuildHeading(group = row.group));
        BuildCell(row.atLeast, row);
        if (row.atMost != 0) BuildCell(row.atMost, row);
    }
}

QLabel* SlotGrid::BuildHeading(std::string_view words) {
    auto* heading = new QLabel(Name(words));
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    if (!headings_.empty()) heading->setContentsMargins(0, kGapBetweenGroups, 0, 0);
    return heading;
}

void SlotGrid::BuildCell(std::size_t slot, const SlotRow& row) {
    Cell& cell = cells_[slot];
    const QString number = QString::number(slot);
    cell = {new QCheckBox(Name(ValueSlotLabel(slot))), new QLineEdit, &row};
    cell.tick->setObjectName(QStringLiteral("Check") + number);
    cell.text->setObjectName(QStringLiteral("Text") + number);
    cell.text->setAccessibleName(Name(ValueSlotLabel(slot)));
    cell.text->setFixedWidth(kLettersInBox * cell.text->fontMetrics().averageCharWidth());
    cell.text->setEnabled(false);
    for (QWidget* widget : {static_cast<QWidget*>(cell.tick), static_cast<QWidget*>(cell.text)}) {
        widget->setProperty(kSlotProperty, QVariant::fromValue(static_cast<qulonglong>(slot)));
        widget->installEventFilter(this);
    }
    connect(cell.tick, &QCheckBox::toggled, this, [this, slot](bool on) { Ticked(slot, on); });
    connect(cell.text, &QLineEdit::textChanged, this,
            [this, slot](const QString& text) { TextEntered(slot, text); });
}

// Their order is the same both ways, and so is that of the Tab key.
void SlotGrid::PlaceCells(Rows rows) {
    rows_ = rows;
    while (QLayoutItem* item = grid_->takeAt(0)) delete item;
    const bool areTwo = rows == Rows::OfTwo;
    grid_->setColumnStretch(0, 1);
    grid_->setColumnStretch(kColumnsPerCell, areTwo ? 1 : 0);
    std::string_view group;
    auto heading = headings_.begin();
    int line = 0;
    for (const SlotRow& row : kSlotRows) {
        if (row.group != group) grid_->addWidget(*heading++, line++, 0, 1, 2 * kColumnsPerCell);
        group = row.group;
        PlaceCell(line, 0, row.atLeast);
        if (row.atMost != 0) PlaceCell(areTwo ? line : ++line, areTwo ? kColumnsPerCell : 0, row.atMost);
        ++line;
    }
    for (int i = 0; i < grid_->rowCount(); ++i) grid_->setRowStretch(i, i == line ? 1 : 0);
    grid_->setRowStretch(line, 1);
}

void SlotGrid::PlaceCell(int line, int column, std::size_t slot) {
    grid_->addWidget(cells_[slot].tick, line, column);
    grid_->addWidget(cells_[slot].text, line, column + 1);
}

void SlotGrid::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const Rows rows = width() >= widthOfTwo_ + WidthAround() ? Rows::OfTwo : Rows::OfOne;
    if (rows != rows_) PlaceCells(rows);
}

void SlotGrid::Ticked(std::size_t slot, bool on) {
    const Cell& cell = cells_[slot];
    slots_[slot - 1].ticked = on;
    cell.text->setEnabled(on);
    if (on && cell.tick->hasFocus()) cell.text->setFocus(Qt::TabFocusReason);
    Q_EMIT Edited();
}

void SlotGrid::TextEntered(std::size_t slot, const QString& text) {
    EnterSlotText(slots_[slot - 1], text.toStdString());
    ShowSlot(slot);
    ShowMeaning(slot);
    Q_EMIT Edited();
}

void SlotGrid::ShowAll() {
    for (std::size_t slot = 1; slot <= kSlotCount; ++slot) {
        const QSignalBlocker keepsBytes(cells_[slot].text);
        cells_[slot].text->setText(Shown(slots_[slot - 1].text));
        cells_[slot].text->setCursorPosition(0);
        ShowSlot(slot);
    }
    meaning_->setText(Introduction());
}

// A box that is emptied while it is being typed in stays open until the focus leaves it.
void SlotGrid::ShowSlot(std::size_t slot) {
    const Cell& cell = cells_[slot];
    const bool ticked = slots_[slot - 1].ticked;
    const QSignalBlocker shownOnly(cell.tick);
    cell.tick->setChecked(ticked);
    cell.text->setEnabled(ticked || cell.text->hasFocus());
}

void SlotGrid::ShowMeaning(std::size_t slot) {
    meaning_->setText(MeaningOf(slot, *cells_[slot].row, slots_[slot - 1].text));
}

bool SlotGrid::eventFilter(QObject* watched, QEvent* event) {
    const auto slot = static_cast<std::size_t>(watched->property(kSlotProperty).toULongLong());
    if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn) ShowMeaning(slot);
    if (event->type() == QEvent::FocusOut && watched == cells_[slot].text) {
        cells_[slot].text->setEnabled(slots_[slot - 1].ticked);
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace brantlow
