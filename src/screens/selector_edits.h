// The undoing of edits in the condition editor: what each edit, Clear or copy made of one panel, newest last.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "screens/selector_settings.h"

namespace brantlow {

class SelectorEdits {
  public:
    // Begins with the panels as they are.
    explicit SelectorEdits(const SelectorPanels& panels) : last_(panels) {}

    // To be called after every change of `panels`; panels that are what they were take no step. Typing on in
    // one slot is one step. `what` is the change in words: "Clear of Condition 3"; empty for an edit.
    void Note(const SelectorPanels& panels, std::string what = {});

    bool CanUndo() const { return !steps_.empty(); }
    // "Undo edit of Condition 3"; empty when there is nothing to undo.
    std::string Words() const;
    // Puts the newest step's panel back and gives its place; nothing when there is no step.
    std::optional<std::size_t> Undo(SelectorPanels& panels);

  private:
    struct Step {
        std::size_t panel = 0;
        SelectorPanel before;
        std::optional<std::size_t> slot;  // the only thing that the step changed
        std::string what;
    };

    bool GoesOn(const Step& step) const;

    SelectorPanels last_;
    std::vector<Step> steps_;
};

// Condition `from` in place of condition `to`, action, names and values.
void CopyPanel(SelectorPanels& panels, std::size_t from, std::size_t to);

// Whether Apply would store another set of conditions than `stored` would.
bool AreOther(const SelectorPanels& panels, const SelectorPanels& stored);

// The lines of a condition as a person knows them: the names, then the filled values with their numbers.
std::vector<std::string> LinesOf(const Condition& condition);

}  // namespace brantlow
