// Asks on which interval the Stock Selector is to analyse the quote database, and up to which day: a past one
// gives the verdicts of that evening. Under the automatic setting it does not ask: the interval is then daily
// and the day today.
#pragma once

#include <QDialog>
#include <optional>

#include "base/dates.h"
#include "indicators/working_series.h"

class QDateEdit;
class QRadioButton;
class QVBoxLayout;

namespace brantlow {

class frmSelectorSelection final : public QDialog {
    Q_OBJECT
  public:
    frmSelectorSelection(const Date& today, QWidget* parent);

    // The option that is set; "Daily" when the window opens.
    Interval SelectorInterval() const;
    // The day up to which history counts; nothing for today.
    std::optional<Date> LastDay() const;

  Q_SIGNALS:
    // Continue was pressed; the window has hidden itself.
    void Continued(Interval interval);
    // Exit was pressed or the window closed.
    void Exited();

  private:
    void AddDay(QVBoxLayout& layout);

    QRadioButton* Option2;
    QRadioButton* Option3;
    QRadioButton* Option4;
    QDateEdit* asOf_;
};

}  // namespace brantlow
