// The 38 value slots of one condition: for each a tick box with the slot's label and a box for X, two to a
// row where a quantity can be wanted at least and at most X, and a line that says what the slot in hand
// means.
#pragma once

#include <QWidget>
#include <array>

#include "screens/selector_settings.h"
#include "screens/slot_rows.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace brantlow {

class SlotGrid final : public QWidget {
    Q_OBJECT
  public:
    using Slots = std::array<SelectorSlot, kSlotCount>;

    // `slotsOfPanel` outlives the grid.
    explicit SlotGrid(Slots& slotsOfPanel);

    // Shows the slots anew.
    void ShowAll();

  Q_SIGNALS:
    // A tick or a text was changed by hand.
    void Edited();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // One slot's widgets, and the row it stands in.
    struct Cell {
        QCheckBox* tick = nullptr;
        QLineEdit* text = nullptr;
        const SlotRow* row = nullptr;
    };

    QWidget* BuildRows();
    void AddHeading(QGridLayout& grid, int line, std::string_view words);
    void AddCell(QGridLayout& grid, int line, int column, std::size_t slot, const SlotRow& row);
    void Ticked(std::size_t slot, bool on);
    void TextEntered(std::size_t slot, const QString& text);
    void ShowSlot(std::size_t slot);
    void ShowMeaning(std::size_t slot);

    Slots& slots_;
    // Element 0 is not used.
    std::array<Cell, kSlotCount + 1> cells_;
    QLabel* meaning_;
};

}  // namespace brantlow
