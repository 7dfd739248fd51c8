// Asks on which interval the Stock Selector is to analyse the quote database. Under the automatic setting it
// does not ask: the interval is then daily.
#pragma once

#include <QDialog>

#include "indicators/working_series.h"

class QRadioButton;

namespace brantlow {

class frmSelectorSelection final : public QDialog {
    Q_OBJECT
  public:
    explicit frmSelectorSelection(QWidget* parent);

    // The option that is set; "Daily" when the window opens.
    Interval SelectorInterval() const;

  Q_SIGNALS:
    // Continue was pressed; the window has hidden itself.
    void Continued(Interval interval);
    // Exit was pressed or the window closed.
    void Exited();

  private:
    QRadioButton* Option2;
    QRadioButton* Option3;
    QRadioButton* Option4;
};

}  // namespace brantlow
