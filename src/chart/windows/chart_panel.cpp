#include "chart/windows/chart_panel.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QToolTip>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "base/windows/display_text.h"
#include "chart/chart_actions.h"
#include "shell/display.h"

namespace brantlow {

namespace {

// A press that trembles is no drag yet.
constexpr double kDragBegins = 5;
constexpr int kTextRimPixels = 2;

// Whole pixels that hold `twips`.
int PixelsThatHold(double twips) {
    return static_cast<int>(std::ceil(twips / kTwipsPerPixel));
}

}  // namespace

ChartPanel::ChartPanel(Panel panel, const ChartScene& scene, QWidget* parent)
    : QWidget(parent), panel_(panel), scene_(scene) {
    setObjectName(QString::fromLatin1(FormOf(panel).control));
    resize(OwnSize());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    grabGesture(Qt::PinchGesture);
}

QSize ChartPanel::OwnSize() const {
    return {PixelsThatHold(kPanelWidth), PixelsThatHold(PanelHeight(panel_))};
}

PaintScale ChartPanel::Scale() const {
    const QSize own = OwnSize();
    return {static_cast<double>(width()) / own.width(), static_cast<double>(height()) / own.height()};
}

double ChartPanel::TwipsAcross(double pixels) const {
    return pixels * kTwipsPerPixel / Scale().across;
}

double ChartPanel::TwipsDown(double pixels) const {
    return pixels * kTwipsPerPixel / Scale().down;
}

void ChartPanel::Redraw() {
    isStale_ = true;
    update();
}

void ChartPanel::ShowCrosshair(std::optional<double> x, std::optional<double> y) {
    if (x == crosshairX_ && y == crosshairY_) return;
    crosshairX_ = x;
    crosshairY_ = y;
    update();
}

void ChartPanel::paintEvent(QPaintEvent*) {
    // A scale of the screen that is no whole number rounds, so only whole pixels can be compared.
    const QSize pixels = size() * devicePixelRatio();
    if (picture_.size() != pixels) {
        picture_ = QImage(pixels, QImage::Format_RGB32);
        isStale_ = true;
    }
    if (isStale_ || picture_.devicePixelRatio() != devicePixelRatio()) Render();
    QPainter painter(this);
    painter.drawImage(0, 0, picture_);
    PaintCrosshair(painter);
}

void ChartPanel::Render() {
    isStale_ = false;
    picture_.setDevicePixelRatio(devicePixelRatio());
    picture_.fill(ColourOf(scene_.Palette().ground));
    QPainter painter(&picture_);
    PaintItems(painter, scene_.GridLines(panel_), size(), {.scale = Scale()});
    const ChartOptions& options = scene_.Options();
    PaintItems(painter, scene_.Items(panel_), size(),
               {Scale(), &scene_.Colours(), panel_, options.wideLines});
    if (panel_ == Panel::Price) PaintHand(painter);
}

void ChartPanel::PaintHand(QPainter& painter) const {
    const HandItems& drawn = scene_.Drawn();
    PaintItems(painter, drawn.lines, size(), {.scale = Scale(), .wide = true});
    for (const HandText& text : drawn.texts) {
        const QPointF at(text.x / TwipsAcross(1), text.y / TwipsDown(1) - fontMetrics().descent());
        PaintWords(painter, at, QString::fromStdString(text.text));
    }
}

// As letters, whose pictures the font keeps: their outlines depend on what the font was asked for before, so
// two pictures of one chart would differ by a trace.
void ChartPanel::PaintWords(QPainter& painter, QPointF at, const QString& words) const {
    painter.setFont(font());
    // A rim of the ground keeps them apart from the bars behind them.
    painter.setPen(ColourOf(scene_.Palette().ground));
    for (int across = -kTextRimPixels; across <= kTextRimPixels; ++across) {
        for (int down = -kTextRimPixels; down <= kTextRimPixels; ++down)
            painter.drawText(at + QPointF(across, down), words);
    }
    painter.setPen(ColourOf(scene_.Palette().hand));
    painter.drawText(at, words);
}

ChartPoint ChartPanel::PlaceOf(const QMouseEvent& event) const {
    return {TwipsAcross(event.position().x()), TwipsDown(event.position().y())};
}

void ChartPanel::PaintCrosshair(QPainter& painter) const {
    if (!crosshairX_) return;
    const PanelForm& form = FormOf(panel_);
    const Rgb colour = scene_.Palette().quiet;
    std::vector<DrawnItem> lines = {
        LineBetween({*crosshairX_, form.topY}, {*crosshairX_, form.bottomY}, colour)};
    if (crosshairY_)
        lines.emplace_back(LineBetween({kPanelLeft, *crosshairY_}, {kPanelRight, *crosshairY_}, colour));
    PaintItems(painter, lines, size(), {.scale = Scale()});
}

void ChartPanel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && hand_.press) {
        handHolds_ = hand_.press(PlaceOf(*event), event->modifiers().testFlag(Qt::ControlModifier));
        if (handHolds_) return;
    }
    if (event->button() == Qt::LeftButton && scene_.Options().fitToWindow) dragX_ = event->position().x();
    Q_EMIT Pressed(TwipsAcross(event->position().x()));
}

// A tip that is shown follows the pointer.
void ChartPanel::mouseMoveEvent(QMouseEvent* event) {
    if (hand_.move) hand_.move(PlaceOf(*event), event->modifiers().testFlag(Qt::ControlModifier));
    if (!handHolds_) Drag(*event);
    const double y = TwipsDown(event->position().y());
    const QString tip = Shown(TipText(scene_.Axis(panel_), panel_, y));
    setToolTip(tip);
    if (QToolTip::isVisible()) QToolTip::showText(event->globalPosition().toPoint(), tip, this);
    Q_EMIT Hovered(TwipsAcross(event->position().x()), y);
}

void ChartPanel::Drag(const QMouseEvent& event) {
    if (!dragX_ || !(event.buttons() & Qt::LeftButton)) return;
    const double way = event.position().x() - *dragX_;
    if (!isDragging_ && std::abs(way) < kDragBegins) return;
    isDragging_ = true;
    dragX_ = event.position().x();
    Q_EMIT Dragged(TwipsAcross(way));
}

void ChartPanel::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / static_cast<double>(QWheelEvent::DefaultDeltasPerStep);
    if (!scene_.Options().fitToWindow || notches == 0) return event->ignore();
    const double x = TwipsAcross(event->position().x());
    Q_EMIT Zoomed(x, std::pow(kZoomStep, -notches));
    // Another stretch has taken the crosshair away, and the pointer has not moved.
    Q_EMIT Hovered(x, TwipsDown(event->position().y()));
    event->accept();
}

// Two fingers on a touch pad, and on a touch screen.
bool ChartPanel::event(QEvent* event) {
    if (!scene_.Options().fitToWindow) return QWidget::event(event);
    if (event->type() == QEvent::NativeGesture && TakePadGesture(*static_cast<QNativeGestureEvent*>(event)))
        return true;
    if (event->type() == QEvent::Gesture && TakeScreenGesture(*static_cast<QGestureEvent*>(event)))
        return true;
    return QWidget::event(event);
}

bool ChartPanel::TakePadGesture(const QNativeGestureEvent& gesture) {
    if (gesture.gestureType() != Qt::ZoomNativeGesture || gesture.value() <= -1) return false;
    Q_EMIT Zoomed(TwipsAcross(gesture.position().x()), 1 / (1 + gesture.value()));
    return true;
}

bool ChartPanel::TakeScreenGesture(const QGestureEvent& event) {
    const auto* const pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (!pinch || pinch->scaleFactor() <= 0) return false;
    if (pinch->changeFlags().testFlag(QPinchGesture::ScaleFactorChanged)) {
        const QPointF centre = mapFromGlobal(pinch->centerPoint());
        Q_EMIT Zoomed(TwipsAcross(centre.x()), 1 / pinch->scaleFactor());
    }
    return true;
}

void ChartPanel::mouseReleaseEvent(QMouseEvent* event) {
    if (std::exchange(handHolds_, false))
        return hand_.release(PlaceOf(*event), event->modifiers().testFlag(Qt::ControlModifier));
    dragX_.reset();
    isDragging_ = false;
    Q_EMIT Released(panel_);
}

// The second press of a double click is one, where nobody has another use for it.
void ChartPanel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && hand_.doubleClick && hand_.doubleClick(PlaceOf(*event))) return;
    mousePressEvent(event);
}

void ChartPanel::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    Q_EMIT Left();
}

}  // namespace brantlow
