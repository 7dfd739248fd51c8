// The strip above the quote table: the Symbol box and the buttons that work on the open table. The kind of
// the open file says which of them are shown; what a press does is the main frame's.
#pragma once

#include <QWidget>
#include <array>
#include <string_view>

#include "shell/commands.h"

class QHBoxLayout;
class QLineEdit;

namespace brantlow {

struct StripButton {
    std::string_view id;
    std::string_view words;
    std::string_view toolTip;
    std::string_view command;  // the frame's routine behind it
    OpenStates shown;
};

inline constexpr std::array kStripButtons = {
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

    QLineEdit* Symbol() const { return Text1; }
    // Shows what belongs to the open table; `enabled` is false while a run stands still over it.
    void ApplyRules(OpenStates state, bool enabled);

  Q_SIGNALS:
    void Pressed(std::string_view command);

  private:
    void AddSymbolBox(QHBoxLayout& row);
    void AddButtons(QHBoxLayout& row);

    QLineEdit* Text1;
};

}  // namespace brantlow
