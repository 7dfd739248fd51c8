// Gives the buttons of every dialog a letter that Alt and its key press, where nobody chose one and a letter
// of their words is free. The words stay.
#pragma once

#include <QObject>

class QWidget;

namespace brantlow {

// As an event filter of the application it looks at each dialog as that is shown.
class ButtonKeys final : public QObject {
    Q_OBJECT
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// The same for one window.
void GiveButtonsKeys(QWidget& window);

}  // namespace brantlow
