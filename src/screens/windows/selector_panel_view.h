// One tab of the condition editor, a panel `picOptions`: what a hit reports, the two lists of names with the
// arrows between them, and the value slots.
#pragma once

#include <QWidget>

#include "screens/selector_settings.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace brantlow {

class NameList;
class SlotGrid;

class SelectorPanelView final : public QWidget {
    Q_OBJECT
  public:
    // `panel` outlives the view.
    explicit SelectorPanelView(SelectorPanel& panel);

    // Shows the panel anew.
    void ShowAll();
    void FocusFilter();

  Q_SIGNALS:
    // Something was changed by hand.
    void Edited();

  private:
    QWidget* BuildNames();
    QWidget* BuildValues();
    QWidget* BuildAction();
    QPushButton* AddArrow(const QString& name, const QString& words, const QString& toolTip, int picture);
    void Select();
    void Return();
    void ApplyRules();
    void ShowMeaning(const NameList& list);

    SelectorPanel& panel_;
    QComboBox* Combo1;
    NameList* available_;
    NameList* selected_;
    QPushButton* Command5 = nullptr;
    QPushButton* Command6 = nullptr;
    QLabel* meaning_;
    SlotGrid* slots_;
};

}  // namespace brantlow
