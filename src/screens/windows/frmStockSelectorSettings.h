// The editor of the ten selector conditions, one on each tab. Its edits live in its controls until Apply or
// Clear writes them; Exit drops them. The main frame opens it.
#pragma once

#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "screens/selector_settings.h"
#include "shell/session.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QTabWidget;

namespace brantlow {

class HitCounter;
class SelectorPanelView;

class frmStockSelectorSettings final : public QDialog {
    Q_OBJECT
  public:
    // `session` outlives the window. Shows the conditions of its SelectorSettings.
    // With the tickers of the open table it counts how many each edit finds.
    frmStockSelectorSettings(Session& session, QWidget* parent, std::vector<std::string> tickers = {});

  private:
    void BuildTabs();
    QPushButton* AddButton(QHBoxLayout& row, const QString& name, const QString& words,
                           const QString& toolTip);
    void BuildButtons(QHBoxLayout& row);
    void AddKeys();
    void ShowTab(int tab);
    void ShowUse(std::size_t panel);
    void ShowHits();
    void Apply();
    void Clear();
    bool Written(const FileFault& fault);

    Session& session_;
    SelectorPanels panels_;
    std::array<SelectorPanelView*, kConditionCount> picOptions_{};
    QTabWidget* tbsOptions;
    QLabel* state_;
    QLabel* hitsLine_;
    HitCounter* hits_ = nullptr;  // null without a table
};

}  // namespace brantlow
