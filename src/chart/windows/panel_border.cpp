#include "chart/windows/panel_border.h"

#include <QMouseEvent>

namespace brantlow {

PanelBorder::PanelBorder(QWidget* parent) : QWidget(parent) {
    setCursor(Qt::SplitVCursor);
    setToolTip(
        QStringLiteral("Drag to share the height out between the panels; double-click for the usual shares"));
    setAccessibleName(QStringLiteral("Border between two panels"));
}

void PanelBorder::mousePressEvent(QMouseEvent* event) {
    lastY_ = event->globalPosition().toPoint().y();
}

// It moves along with the panels under it, so only places on the screen tell how far it was dragged.
void PanelBorder::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const int y = event->globalPosition().toPoint().y();
    Q_EMIT Dragged(y - lastY_);
    lastY_ = y;
}

void PanelBorder::mouseReleaseEvent(QMouseEvent*) {
    Q_EMIT Dropped();
}

void PanelBorder::mouseDoubleClickEvent(QMouseEvent*) {
    Q_EMIT Reset();
}

}  // namespace brantlow
