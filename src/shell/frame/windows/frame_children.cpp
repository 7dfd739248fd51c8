#include "shell/frame/windows/frame_children.h"

#include <QAction>
#include <QIcon>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QStyle>
#include <utility>

namespace brantlow {

namespace {

constexpr double kCascadeShare = 0.8;
constexpr int kCascadeGap = 6;

}  // namespace

FrameChildren::FrameChildren(QMdiArea& area, std::function<void()> applyRules)
    : area_(area), applyRules_(std::move(applyRules)) {}

CommandRows FrameChildren::Rows() {
    static constexpr SubjectRow<FrameChildren> kRows[] = {
        {"mnuWindowCascade", &FrameChildren::Cascade},
        {"mnuWindowTileHorizontal", &FrameChildren::TileHorizontal},
        {"mnuWindowTileVertical", &FrameChildren::TileVertical},
        {"mnuWindowArrangeIcons", &FrameChildren::ArrangeIcons},
    };
    return RowsOf(*this, kRows);
}

QMdiSubWindow* FrameChildren::Add(QWidget& form) {
    QMdiSubWindow* const child = area_.addSubWindow(&form);
    child->setWindowIcon(area_.window()->windowIcon());
    // The area's own close key would stand against that of the Close command.
    for (QAction* action : child->systemMenu()->actions()) action->setShortcut({});
    return child;
}

void FrameChildren::Remove(QMdiSubWindow* child) {
    if (!child) return;
    const bool filled = child->isMaximized();
    area_.removeSubWindow(child);
    // Later: the window may be the one whose own close button led here.
    child->hide();
    child->deleteLater();
    const QList<QMdiSubWindow*> left = Shown();
    if (filled && !left.isEmpty()) left.constLast()->showMaximized();
}

bool FrameChildren::HasOneAtMost() const {
    return area_.subWindowList().size() <= 1;
}

QSize FrameChildren::AreaSize() const {
    return area_.size();
}

QSize FrameChildren::ViewSize() const {
    return area_.viewport()->size();
}

QWidget* FrameChildren::FormInFront() const {
    const QMdiSubWindow* child = area_.activeSubWindow();
    return child ? child->widget() : nullptr;
}

void FrameChildren::SetOperations(QWidget& child, ChildOperations operations) {
    operations_.removeIf([](const HeldOperations& held) { return held.child.isNull(); });
    operations_.append({&child, std::move(operations)});
    applyRules_();
}

const ChildOperations* FrameChildren::ActiveOperations() const {
    const QMdiSubWindow* active = area_.currentSubWindow();
    if (!active || !active->widget()) return nullptr;
    for (const HeldOperations& held : operations_) {
        if (held.child == active->widget()) return &held.operations;
    }
    return nullptr;
}

// With a copy: what a command does can take the child away.
bool FrameChildren::Operate(std::function<void()> ChildOperations::*operation) const {
    const ChildOperations* active = ActiveOperations();
    const std::function<void()> run = active ? active->*operation : nullptr;
    if (run) run();
    return run != nullptr;
}

// One over another, each a title bar lower than the one before and large enough to be read.
void FrameChildren::Cascade() {
    const QSize size = ViewSize() * kCascadeShare;
    const int step = area_.window()->style()->pixelMetric(QStyle::PM_TitleBarHeight) + kCascadeGap;
    int offset = 0;
    for (QMdiSubWindow* child : Shown()) {
        child->showNormal();
        child->setGeometry(QRect(QPoint(offset, offset), size));
        child->raise();
        offset += step;
    }
}

void FrameChildren::TileHorizontal() {
    Tile(Qt::Vertical);
}

void FrameChildren::TileVertical() {
    Tile(Qt::Horizontal);
}

QList<QMdiSubWindow*> FrameChildren::Shown() const {
    QList<QMdiSubWindow*> children;
    for (QMdiSubWindow* child : area_.subWindowList()) {
        if (child->isVisible() && !child->isMinimized()) children.append(child);
    }
    return children;
}

// Shares the area among the windows, one below another or side by side.
void FrameChildren::Tile(Qt::Orientation stacked) {
    const QList<QMdiSubWindow*> children = Shown();
    const QSize whole = ViewSize();
    const int count = static_cast<int>(children.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow* child = children.at(i);
        child->showNormal();
        if (stacked == Qt::Vertical) {
            child->setGeometry(0, whole.height() * i / count, whole.width(), whole.height() / count);
        } else {
            child->setGeometry(whole.width() * i / count, 0, whole.width() / count, whole.height());
        }
    }
}

// Minimised windows in a row along the lower edge.
void FrameChildren::ArrangeIcons() {
    int left = 0;
    for (QMdiSubWindow* child : area_.subWindowList()) {
        if (!child->isMinimized()) continue;
        child->move(left, ViewSize().height() - child->height());
        left += child->width();
    }
}

}  // namespace brantlow
