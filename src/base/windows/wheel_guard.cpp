#include "base/windows/wheel_guard.h"

#include <QEvent>

namespace brantlow {

namespace {

class WheelGuard : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel) return false;
        const auto* list = qobject_cast<QWidget*>(watched);
        if (list == nullptr || list->hasFocus()) return false;
        event->ignore();
        return true;
    }
};

}  // namespace

void GuardWheel(QComboBox& list) {
    list.setFocusPolicy(Qt::StrongFocus);
    list.installEventFilter(new WheelGuard(&list));
}

}  // namespace brantlow
