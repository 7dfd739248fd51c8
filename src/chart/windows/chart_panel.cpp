#include "chart/windows/chart_panel.h"

#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

#include "base/windows/display_text.h"
#include "chart/chart_actions.h"
#include "shell/display.h"

namespace brantlow {

namespace {

// Whole pixels that hold `twips`.
int PixelsThatHold(double twips) {
    return static_cast<int>(std::ceil(twips / kTwipsPerPixel));
}

}  // namespace

ChartPanel::ChartPanel(Panel panel, const ChartSession& chart, QWidget* parent)
    : QWidget(parent), panel_(panel), chart_(chart) {
    setObjectName(QString::fromLatin1(FormOf(panel).control));
    resize(OwnSize());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
}

QSize ChartPanel::OwnSize() const {
    return {PixelsThatHold(kPanelWidth), PixelsThatHold(PanelHeight(panel_))};
}

PaintScale ChartPanel::Scale() const {
    const QSize own = OwnSize();
    return {static_cast<double>(width()) / own.width(), static_cast<double>(height()) / own.height()};
}

void ChartPanel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    PaintItems(painter, chart_.Picture(panel_).items, size(), Scale());
}

void ChartPanel::mousePressEvent(QMouseEvent* event) {
    Q_EMIT Pressed(event->position().x() * kTwipsPerPixel / Scale().across);
}

// A tip that is shown follows the pointer.
void ChartPanel::mouseMoveEvent(QMouseEvent* event) {
    const QString tip = Shown(TipText(chart_, panel_, event->position().y() * kTwipsPerPixel / Scale().down));
    setToolTip(tip);
    if (QToolTip::isVisible()) QToolTip::showText(event->globalPosition().toPoint(), tip, this);
}

void ChartPanel::mouseReleaseEvent(QMouseEvent*) {
    Q_EMIT Released(panel_);
}

}  // namespace brantlow
