// One panel of the chart on the screen: shows what stands on it, tells where the mouse is pressed, moved and
// released, and gives the value under the pointer as its tip. In whatever size it is given it shows all of
// the panel.
//
// What is under the crosshair is painted once and kept until it changes, so that the crosshair moves at once.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <optional>

#include "chart/chart_scene.h"
#include "chart/drawing.h"
#include "chart/windows/chart_painter.h"

class QGestureEvent;
class QNativeGestureEvent;
class QPainter;

namespace brantlow {

// How many times as many bars a notch of the wheel or a key shows.
inline constexpr double kZoomStep = 1.25;

// Who draws by hand on a panel and has the mouse before the chart: places in twips, `freely` with Ctrl held.
struct HandMouse {
    // True where the mouse is theirs until the release.
    std::function<bool(ChartPoint at, bool freely)> press;
    std::function<void(ChartPoint at, bool freely)> move;
    std::function<void(ChartPoint at, bool freely)> release;
    std::function<bool(ChartPoint at)> doubleClick;
};

class ChartPanel final : public QWidget {
    Q_OBJECT
  public:
    // `scene` outlives the panel.
    ChartPanel(Panel panel, const ChartScene& scene, QWidget* parent = nullptr);

    // Whole pixels that hold the panel in its own size.
    QSize OwnSize() const;
    PaintScale Scale() const;
    // From pixels of this panel to its twips.
    double TwipsAcross(double pixels) const;
    double TwipsDown(double pixels) const;
    // What the scene shows has changed.
    void Redraw();
    void GiveHand(HandMouse hand) { hand_ = std::move(hand); }
    // The crosshair at `x` twips, nothing for none; at `y` of the panel over which the pointer is.
    void ShowCrosshair(std::optional<double> x, std::optional<double> y);

  Q_SIGNALS:
    // At `x` twips from the left edge.
    void Pressed(double x);
    void Released(Panel panel);
    // The pointer is at this place of the panel, in twips.
    void Hovered(double x, double y);
    void Left();
    // The pointer was dragged so many twips to the right since it was pressed or since the last such signal.
    void Dragged(double twips);
    // The wheel or two fingers ask for `factor` times as many bars, about `x` twips of the panel.
    void Zoomed(double x, double factor);

  protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void Drag(const QMouseEvent& event);
    // False for a gesture that the panel has no use for.
    bool TakePadGesture(const QNativeGestureEvent& gesture);
    bool TakeScreenGesture(const QGestureEvent& event);
    void Render();
    void PaintCrosshair(QPainter& painter) const;
    void PaintHand(QPainter& painter) const;
    void PaintWords(QPainter& painter, QPointF at, const QString& words) const;
    ChartPoint PlaceOf(const QMouseEvent& event) const;

    Panel panel_;
    const ChartScene& scene_;
    // All but the crosshair. What it was painted on serves the next one too.
    QImage picture_;
    bool isStale_ = true;
    std::optional<double> crosshairX_;
    std::optional<double> crosshairY_;
    // Where the drag has come to in pixels, nothing while no button is held; it begins a few pixels on.
    std::optional<double> dragX_;
    bool isDragging_ = false;
    HandMouse hand_;
    bool handHolds_ = false;
};

}  // namespace brantlow
