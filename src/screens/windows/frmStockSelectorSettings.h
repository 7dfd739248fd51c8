// The editor of the ten selector conditions, one on each tab. Its edits live in its controls until Apply or
// Clear writes them; Exit drops them, after a question where there are any. The main frame opens it.
#pragma once

#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "screens/selector_edits.h"
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

    // Asks before edits are dropped that were not applied.
    void reject() override;

  private:
    void BuildTabs();
    void BuildButtons(QHBoxLayout& row);
    void AddKeys();
    void ShowTab(int tab);
    void ShowUse(std::size_t panel);
    void ShowHits();
    void Apply();
    void Clear();
    void Undo();
    void Copy(std::size_t to);
    void ShowOverview();
    void Edited(std::size_t panel, const std::string& what);
    void ShowState(std::string_view words);
    void ShowUndo();
    std::size_t OnShow() const;
    void FillCopyMenu(QPushButton& button);
    bool Written(const Failure& fault);

    Session& session_;
    SelectorPanels panels_;
    SelectorPanels stored_;  // as Apply or Clear wrote them last
    SelectorEdits edits_;
    std::array<SelectorPanelView*, kConditionCount> picOptions_{};
    QTabWidget* tbsOptions;
    QPushButton* undo_ = nullptr;
    QLabel* state_;
    QLabel* hitsLine_;
    HitCounter* hits_ = nullptr;  // null without a table
};

}  // namespace brantlow
