#include "shell/frame/windows/frame_area.h"

#include <QApplication>
#include <QEvent>
#include <QMdiSubWindow>
#include <algorithm>
#include <utility>

#include "shell/frame/windows/welcome_page.h"

namespace brantlow {

FrameArea::FrameArea() {
    setBackground(AreaGround(QApplication::palette()));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

void FrameArea::AddWelcome(WelcomeActions actions, std::function<std::vector<std::string>()> tables) {
    tables_ = std::move(tables);
    welcome_ = new WelcomePage(std::move(actions), viewport());
    welcome_->hide();
}

bool FrameArea::IsEmpty() const {
    const QList<QMdiSubWindow*> children = subWindowList();
    return std::none_of(children.begin(), children.end(),
                        [](const QMdiSubWindow* child) { return !child->isHidden(); });
}

void FrameArea::ShowWelcome() {
    if (!welcome_) return;
    const bool isEmpty = IsEmpty();
    const bool appears = welcome_->isHidden() && isEmpty;
    if (isEmpty) welcome_->Offer(tables_());
    welcome_->setGeometry(viewport()->rect());
    welcome_->setVisible(isEmpty);
    if (appears) welcome_->setFocus();
}

void FrameArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    if (welcome_) welcome_->setGeometry(viewport()->rect());
}

void FrameArea::changeEvent(QEvent* event) {
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) setBackground(AreaGround(QApplication::palette()));
}

}  // namespace brantlow
