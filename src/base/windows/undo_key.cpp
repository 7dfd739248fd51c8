#include "base/windows/undo_key.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace brantlow {

namespace {

class UndoKeyOfWindow final : public QObject {
  public:
    explicit UndoKeyOfWindow(QLineEdit& box) : QObject(&box), box_(box) { box.installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        const bool isUndo = event->type() == QEvent::ShortcutOverride &&
                            static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo);
        if (!isUndo || box_.isUndoAvailable()) return QObject::eventFilter(object, event);
        event->ignore();
        return true;
    }

  private:
    const QLineEdit& box_;
};

}  // namespace

void LeaveUndoToWindow(QLineEdit& box) {
    new UndoKeyOfWindow(box);
}

}  // namespace brantlow
