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

SlotGrid::SlotGrid(Slots& slotsOfPanel) : slots_(slotsOfPanel), meaning_(new QLabel(Introduction())) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    QWidget* rows = BuildRows();
    area->setWidget(rows);
    // All of the tab's own colour.
    area->viewport()->setAutoFillBackground(false);
    rows->setAutoFillBackground(false);
    // All of a row is seen, but where large letters on a small screen leave no room for the names beside it.
    const int whole = rows->minimumSizeHint().width() + 2 * area->frameWidth() +
                      style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    area->setMinimumWidth(
        std::min(whole, static_cast<int>(screen()->availableSize().width() * kLargestShare)));
    layout->addWidget(area);
    meaning_->setObjectName(QStringLiteral("Meaning"));
    meaning_->setWordWrap(true);
    meaning_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    meaning_->setMinimumHeight(kMeaningLines * meaning_->fontMetrics().lineSpacing());
    layout->addWidget(meaning_);
}

QWidget* SlotGrid::BuildRows() {
    auto* rows = new QWidget;
    auto* grid = new QGridLayout(rows);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(kColumnsPerCell, 1);
    std::string_view group;
    int line = 0;
    for (const SlotRow& row : kSlotRows) {
        if (row.group != group) AddHeading(*grid, line++, group = row.group);
        AddCell(*grid, line, 0, row.atLeast, row);
        if (row.atMost != 0) AddCell(*grid, line, kColumnsPerCell, row.atMost, row);
        ++line;
    }
    grid->setRowStretch(line, 1);
    return rows;
}

void SlotGrid::AddHeading(QGridLayout& grid, int line, std::string_view words) {
    auto* heading = new QLabel(Name(words));
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    if (line > 0) heading->setContentsMargins(0, kGapBetweenGroups, 0, 0);
    grid.addWidget(heading, line, 0, 1, 2 * kColumnsPerCell);
}

void SlotGrid::AddCell(QGridLayout& grid, int line, int column, std::size_t slot, const SlotRow& row) {
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
    grid.addWidget(cell.tick, line, column);
    grid.addWidget(cell.text, line, column + 1);
    connect(cell.tick, &QCheckBox::toggled, this, [this, slot](bool on) { Ticked(slot, on); });
    connect(cell.text, &QLineEdit::textChanged, this,
            [this, slot](const QString& text) { TextEntered(slot, text); });
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
