// Drawing by hand on the price panel: what presses, moves and releases of the mouse, and keys, do with the
// lines and words of a ticker. The window hands on what the person does, shows Shown(), and keeps Kept() when
// it has changed.
//
// A drawing is made by a drag from place to place, or by a click for each place. A drawing that is pressed is
// chosen, and goes along with the pointer; one of its rings alone where that was pressed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "chart/hand_lines.h"
#include "store/hand_drawings.h"

namespace brantlow {

inline constexpr std::size_t kMostHandUndo = 100;

class HandEditor {
  public:
    // What was kept of a ticker. Nothing is chosen, nothing can be undone.
    void Load(HandDrawings drawings);

    // As they are to be kept.
    const HandDrawings& Kept() const { return now_.kept; }
    // With the one that is being made or moved.
    HandDrawings Shown() const;
    std::optional<std::size_t> Chosen() const { return chosen_; }

    // What the next press begins; nothing for choosing.
    std::optional<HandKind> Tool() const { return tool_; }
    void TakeTool(std::optional<HandKind> tool);
    // Whether places go to highs, lows and closes that are near.
    bool Pulls() const { return pulls_; }
    void SetPulls(bool pulls) { pulls_ = pulls; }

    // True where the mouse is the editor's until it is released. `freely` places without a pull.
    bool Press(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool freely);
    // True where what is shown has changed.
    bool Move(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool freely);
    bool Release(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool freely);

    // The place of a text that waits for its words, and the words that it has by now.
    const std::optional<HandPoint>& TextPlace() const { return textPlace_; }
    std::string TextWords() const;
    // Gives it its words; without any it is taken away, or not made. Control characters become blanks, what
    // is too long is cut.
    void EnterText(std::string words);
    // The chosen text asks for its words again; false where none is chosen.
    bool EditText();
    // Chooses the drawing at this place; false where there is none.
    bool Choose(const HandSheet& sheet, ChartPoint at, const HandReach& reach);

    // Gives up what is being made, else the tool, else the choice; false where there is nothing of it.
    bool Cancel();
    // The next drawing is chosen, the first one after the last; false where there are none.
    bool ChooseNext();
    bool MoveChosen(const HandSheet& sheet, std::ptrdiff_t bars, double height);
    bool DeleteChosen();
    bool DeleteAll();
    bool Undo();
    bool Redo();
    bool CanUndo() const { return !now_.undo.empty(); }
    bool CanRedo() const { return !now_.redo.empty(); }
    // The last change could not be kept: all is as it was before it.
    void TakeBack();

  private:
    struct Grip {
        // A place of the chosen drawing, or all of it.
        std::optional<std::size_t> point;
        ChartPoint at;
        HandDrawing before;
    };
    bool Grab(const HandSheet& sheet, ChartPoint at, const HandReach& reach);
    bool Drag(const HandSheet& sheet, ChartPoint at, const HandReach& reach, bool pull);
    void PlaceFrom(std::size_t place, const HandPoint& point);
    void Finish();
    void Change(HandDrawings drawings);
    void Drop();

    struct History {
        HandDrawings kept;
        std::vector<HandDrawings> undo;
        std::vector<HandDrawings> redo;
    };

    History now_;
    History former_;
    std::optional<std::size_t> chosen_;
    std::optional<HandKind> tool_;
    bool pulls_ = true;
    // The one that is being made, how many of its places stand, and where it was begun.
    std::optional<HandDrawing> making_;
    std::size_t placed_ = 0;
    bool isBeginning_ = false;
    ChartPoint begunAt_;
    // The chosen one while it is moved.
    std::optional<Grip> grip_;
    std::optional<HandDrawing> moving_;
    std::optional<HandPoint> textPlace_;
};

}  // namespace brantlow
