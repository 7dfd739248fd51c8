// The 38 value slots of one condition: for each a tick box with the slot's label and a box for X, two to a
// row where a quantity can be wanted at least and at most X, or one below the other where the room is too
// narrow for both, and a line that says what the slot in hand means.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

#include "screens/selector_settings.h"
#include "screens/slot_rows.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QScrollArea;

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
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    // One slot's widgets, and the row it stands in.
    struct Cell {
        QCheckBox* tick = nullptr;
        QLineEdit* text = nullptr;
        const SlotRow* row = nullptr;
    };

    void BuildCells();
    QLabel* BuildHeading(std::string_view words);
    void BuildCell(std::size_t slot, const SlotRow& row);
    enum class Rows : unsigned char { OfTwo, OfOne };
    void PlaceCells(Rows rows);
    void PlaceCell(int line, int column, std::size_t slot);
    // That the scroll area takes beside the rows.
    int WidthAround() const;
    void Ticked(std::size_t slot, bool on);
    void TextEntered(std::size_t slot, const QString& text);
    void ShowSlot(std::size_t slot);
    void ShowMeaning(std::size_t slot);

    Slots& slots_;
    // Element 0 is not used.
    std::array<Cell, kSlotCount + 1> cells_;
    // Of the groups, in the order of their first rows.
    std::vector<QLabel*> headings_;
    QScrollArea* area_;
    QGridLayout* grid_;
    Rows rows_ = Rows::OfTwo;
    int widthOfTwo_ = 0;
    QLabel* meaning_;
};

}  // namespace brantlow
