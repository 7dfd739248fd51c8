// The children in the main frame's area: they come and go here, are laid out by the Window menu, and hand in
// what the File menu does with them while they are in front.
#pragma once

#include <QList>
#include <QPointer>
#include <functional>

#include "shell/frame/windows/child_operations.h"
#include "shell/frame/windows/frame_hands.h"

class QMdiArea;
class QMdiSubWindow;
class QSize;
class QWidget;

namespace brantlow {

class FrameChildren final {
  public:
    // `area` outlives this. `applyRules` is called when a child hands its operations in.
    FrameChildren(QMdiArea& area, std::function<void()> applyRules);

    // The child around `form`, not shown yet.
    QMdiSubWindow* Add(QWidget& form);
    // Takes a child away, null included. The one that comes to the front takes the whole area when the one
    // before it did.
    void Remove(QMdiSubWindow* child);
    // The room that children share.
    QSize AreaSize() const;
    QSize ViewSize() const;
    // Whether there is one child at most.
    bool HasOneAtMost() const;
    // The form of the child in front, null without one.
    QWidget* FormInFront() const;

    // What the File menu does with this child of the frame; forgotten when the child is gone.
    void SetOperations(QWidget& child, ChildOperations operations);
    // Those of the active child, null where there are none.
    const ChildOperations* ActiveOperations() const;
    // Does this to the active child; false where it means nothing to it.
    bool Operate(std::function<void()> ChildOperations::*operation) const;

    // The Window menu.
    CommandRows Rows();

  private:
    struct HeldOperations {
        QPointer<QWidget> child;  // null once it is gone
        ChildOperations operations;
    };

    void Cascade();
    void TileHorizontal();
    void TileVertical();
    void ArrangeIcons();
    void Tile(Qt::Orientation stacked);
    QList<QMdiSubWindow*> Shown() const;

    QMdiArea& area_;
    std::function<void()> applyRules_;
    QList<HeldOperations> operations_;
};

}  // namespace brantlow
