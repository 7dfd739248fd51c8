// The keys that windows answer to beside those of the menu, for the page of all keys.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

struct OwnKey {
    std::string_view keys;
    std::string_view where;
    std::string_view what;
};

inline constexpr std::array kOwnKeys = {
    OwnKey{"F1", "Everywhere", "The help page of the window in front"},
    OwnKey{"Alt and the underlined letter", "Everywhere", "Opens a menu, presses a button, goes to a box"},
    OwnKey{"Escape", "Dialogs", "Closes without doing anything"},
    OwnKey{"Return", "Table", "Opens the chart of the selected row"},
    OwnKey{"Return", "Table of a Stock Selector file", "Explains the verdict of the cell"},
    OwnKey{"Menu key, Shift+F10", "Table", "The commands of the selected row"},
    OwnKey{"Up, Down, Page Up, Page Down, Home, End", "Table", "Go through the rows"},
    OwnKey{"Shift and an arrow key, or a click", "Table", "Selects the rows from the first one on"},
    OwnKey{"Ctrl and a click", "Table", "Adds a row to the selection, or takes it out"},
    OwnKey{"Return", "Symbol box", "Adds the ticker that was typed"},
    OwnKey{"Return", "Alarm boxes", "Sets the alarms of the ticker in the Symbol box"},
    OwnKey{"Return", "Filter box", "Goes to the first row that the filter shows"},
    OwnKey{"Escape", "Filter box", "Shows all rows again"},
    OwnKey{"Left, Right", "Chart", "Move the crosshair by a bar"},
    OwnKey{"+, -", "Chart", "Zoom in and out about the crosshair"},
    OwnKey{"0", "Chart", "The chart's own window again"},
    OwnKey{"Home, End", "Chart", "The oldest bars, the newest bars"},
    OwnKey{"Page Down, Page Up", "Chart", "The next ticker, the one before"},
    OwnKey{"T, H, C, X", "Chart", "Draw a trend line, a horizontal line, a channel, a text"},
    OwnKey{"Enter", "Chart, while drawing", "Puts a place at the close of the bar under the crosshair"},
    OwnKey{"S", "Chart", "Whether what is drawn snaps to high, low and close"},
    OwnKey{"N", "Chart", "Chooses the next of what is drawn"},
    OwnKey{"Arrow keys", "Chart, a drawing chosen", "Move it by a bar or a pixel"},
    OwnKey{"F2", "Chart, a text chosen", "Changes its words"},
    OwnKey{"Delete", "Chart, a drawing chosen", "Deletes it"},
    OwnKey{"Ctrl+Z, Ctrl+Y", "Chart", "Undo what was drawn, and do it again"},
    OwnKey{"Escape", "Chart", "Gives up what is being drawn, then the choice, then closes the chart"},
    OwnKey{"Return", "Study, fired alarms", "Opens the chart of the row"},
    OwnKey{"Ctrl+F", "Settings", "Goes to the box that finds a setting by its words"},
    OwnKey{"Ctrl+F", "Condition editor", "Goes to the filter of the names"},
    OwnKey{"Enter, Delete", "Condition editor, a name", "Selects the name, takes it out"},
    OwnKey{"Ctrl+S, Ctrl+Z", "Condition editor", "Applies the ten conditions, takes the last edit back"},
    OwnKey{"Ctrl+Page Down, Ctrl+Page Up", "Condition editor", "The next condition, the one before"},
    OwnKey{"Alt+Left, Alt+Right", "Browser", "The page before, the next page"},
    OwnKey{"Ctrl+R, Escape", "Browser", "Loads the page again, stops loading"},
    OwnKey{"Ctrl+L", "Browser", "Goes to the address"},
    OwnKey{"Ctrl+F, Ctrl+Shift+F", "Help", "Find words on the page, on all pages"},
    OwnKey{"Ctrl+S", "Text editor", "Saves the file"},
    OwnKey{"Space", "Welcome page", "Opens the table that was open last"},
    OwnKey{"Escape", "While a run is on", "Asks whether to end the run"},
};

}  // namespace brantlow
