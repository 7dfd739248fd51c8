// One panel of the chart on the screen: shows what stands on it, tells where the mouse is pressed and
// released, and gives the value under the pointer as its tip. In whatever size it is given it shows all of
// the panel.
#pragma once

#include <QWidget>

#include "chart/chart_session.h"
#include "chart/windows/chart_painter.h"

namespace brantlow {

class ChartPanel final : public QWidget {
    Q_OBJECT
  public:
    // `chart` outlives the panel.
    ChartPanel(Panel panel, const ChartSession& chart, QWidget* parent = nullptr);

    // Whole pixels that hold the panel in its own size.
    QSize OwnSize() const;
    PaintScale Scale() const;

  Q_SIGNALS:
    // At `x` twips from the left edge.
    void Pressed(double x);
    void Released(Panel panel);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    Panel panel_;
    const ChartSession& chart_;
};

}  // namespace brantlow
