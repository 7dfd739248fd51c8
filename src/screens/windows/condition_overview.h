// All ten conditions of the editor at a glance: what each marks, its lines, and how many tickers of the open
// table it finds now.
#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "screens/selector_settings.h"

class QTableWidget;

namespace brantlow {

class ConditionOverview final : public QDialog {
    Q_OBJECT
  public:
    // How many tickers a condition finds; nothing while that is not known.
    using CountHits = std::function<std::optional<std::size_t>(const Condition& condition)>;

    // Both outlive the window.
    ConditionOverview(const SelectorPanels& panels, CountHits hits, QWidget* parent);

    // What the conditions are and find now; `condition`, from 0, is selected.
    void ShowAll();
    void Select(std::size_t condition);

  Q_SIGNALS:
    // A row was double-clicked, or Enter pressed on it; the window has closed.
    void ConditionChosen(int condition);

  private:
    void Choose();

    const SelectorPanels& panels_;
    const CountHits hits_;
    QTableWidget* table_;
};

}  // namespace brantlow
