// The editor of the ten selector conditions behind its window frmStockSelectorSettings: what stands in the
// lists, boxes and ticks of each tab, how names and values move, and what Apply and Clear write.
//
// Everything is bytes, as the file holds it; a name that the catalogue does not know is carried along.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_change.h"
#include "base/files.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// A value slot: only the tick decides whether its text is stored.
struct SelectorSlot {
    std::string text;
    bool ticked = false;

    bool operator==(const SelectorSlot&) const = default;
};

// What one tab shows.
struct SelectorPanel {
    std::string action;
    std::vector<std::string> selected;
    // In catalogue order at the opening; a name that comes back stands at the end.
    std::vector<std::string> available;
    std::array<SelectorSlot, kSlotCount> slots;

    bool operator==(const SelectorPanel&) const = default;
};

using SelectorPanels = std::array<SelectorPanel, kConditionCount>;

// The ten tabs at the opening, from every entry of `selectorSettings`.
SelectorPanels OpenPanels(const SettingsTable& selectorSettings);

// The condition as it would be stored.
Condition ConditionOf(const SelectorPanel& panel);

// Moves an entry of one list to the end of the other; an entry that is not there moves nothing. True when
// one moved.
bool SelectName(SelectorPanel& panel, std::size_t entry);
bool ReturnName(SelectorPanel& panel, std::size_t entry);

// A box that is given text sets its tick, one that is emptied clears it.
void EnterSlotText(SelectorSlot& slot, std::string_view text);

// Writes all ten conditions and reads the file back. SelectorLineCount stays: until the next start or Clear
// the evaluator walks as many lines as before. On an error nothing is changed.
Failure ApplyPanels(const SelectorPanels& panels, const Path& appPath, SettingsTables& settings);

// The same with the condition of `panels[panel]` emptied but for its action, and SelectorLineCount is set
// anew. Then empties that panel's names and slots; its "Available:" names do not come back before the next
// opening. What the file held is kept for undoing. On an error nothing is changed.
Failure ClearPanel(SelectorPanels& panels, std::size_t panel, const ChangePlace& place,
                   SettingsTables& settings);

// False when the lines that the evaluator walks are another set than `panels`: one that has grown is cut
// short there, one that has shrunk is followed by old lines.
bool IsWholeSetInForce(const SelectorPanels& panels, const SettingsTables& settings);

// What a person should know of a name in the lists: that no test answers to it, that it always or never
// holds, or that it tests less than it says. Empty for all others.
std::string_view NameRemark(std::string_view name);
// What a name means and how it is tested, two lines; empty for one that no test answers to.
std::string NameMeaning(std::string_view name);

// What a slot's text counts as where it is no number, or that it is a word of the file's own; empty for a
// number and for an empty text.
std::string SlotRemark(std::string_view text);

// Whether `name` holds every word of `filter`, in any order and case. An empty filter lets every name pass.
bool PassesFilter(std::string_view name, std::string_view filter);
// Whether `filter` is the whole of `name`, case and blanks at its ends aside.
bool IsExactly(std::string_view name, std::string_view filter);

}  // namespace brantlow
