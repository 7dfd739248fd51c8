// The strip above the quote table: the Symbol box, the boxes of a ticker's alarms and the buttons that work
// on the open table. The kind of the open file says which of them are shown; what a press does is the main
// frame's.
#pragma once

#include <QWidget>
#include <array>
#include <string_view>

#include "shell/open_states.h"

class QLineEdit;

namespace brantlow {

// A box with its words, both in a frame of their own.
struct StripBox {
    std::string_view frame;
    std::string_view box;
    std::string_view words;
    std::string_view toolTip;
    int width;
    OpenStates shown;
};

inline constexpr std::array kStripBoxes = {
    StripBox{"Frame1", "Text1", "S&ymbol", "Type the first letters of a ticker to find its row", 100,
             kWithTable},
    StripBox{"Frame2", "Text2", "High &Alarm", "The price from which the alarm fires; empty for none", 62,
             kWithDdq | kWithDb},
    StripBox{"Frame3", "Text3", "&Low Alarm", "The price down to which the alarm fires; empty for none", 62,
             kWithDdq | kWithDb},
    StripBox{"Frame4", "txtFilter", "Filte&r",
             "Show some rows alone: a text, \"Change > 2\", \"Volume > 1M and Exchange = NYSE\", or \"hit in "
             "condition 3\" in a Stock Selector file. Escape shows all.",
             240, kWithTable},
};

struct StripButton {
    std::string_view id;
    std::string_view words;
    std::string_view toolTip;
    std::string_view command;  // the frame's routine behind it
    OpenStates shown;
};

inline constexpr std::array kStripButtons = {
    StripButton{"CmdAdd", "Add Symbol", "Add Ticker Symbol to Database", "CmdAdd", kWithDdq | kWithDb},
    StripButton{"CmdDelete", "Delete Symbol", "Delete Ticker Symbol from the Database", "CmdDelete",
                kWithDdq | kWithDb},
    StripButton{"CmdAlarm", "Edit Alarm", "Add or Edit High and Low Price Alarms", "CmdAlarm",
                kWithDdq | kWithDb},
    StripButton{"CmdUpdateQuotes", "Update Quotes", "Continuous Update of Intraday Real Time Quotes",
                "mnuFileUpdateQuotes", kWithDdq | kWithDb},
    StripButton{"CommandImport", "Import File", "Import quotes from another program's file",
                "mnuFileImportQuotes", kWithDdq | kWithDb},
    StripButton{"CommandExport", "Export File", "Export End of Day (EOD), Detailed Quotes to Another Program",
                "mnuFileExportQuotes", kWithTable},
};

class QuoteStrip final : public QWidget {
    Q_OBJECT
  public:
    explicit QuoteStrip(QWidget* parent = nullptr);

    QLineEdit* Symbol() const { return boxes_[0]; }
    QLineEdit* HighAlarm() const { return boxes_[1]; }
    QLineEdit* LowAlarm() const { return boxes_[2]; }
    QLineEdit* Filter() const { return boxes_[3]; }
    // Empties the boxes of a ticker; the next one can be typed.
    void ClearBoxes();
    // Shows what belongs to the open table; `enabled` is false while a run stands still over it.
    void ApplyRules(OpenStates state, bool enabled);

  Q_SIGNALS:
    void Pressed(std::string_view command);

  private:
    void AddBox(std::size_t index);
    void AddButton(const StripButton& rule);

    std::array<QLineEdit*, kStripBoxes.size()> boxes_{};
};

}  // namespace brantlow
