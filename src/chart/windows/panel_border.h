// The border between two panels of the chart: dragged, it gives height of one panel to the other.
#pragma once

#include <QWidget>

namespace brantlow {

class PanelBorder final : public QWidget {
    Q_OBJECT
  public:
    explicit PanelBorder(QWidget* parent);

  Q_SIGNALS:
    // By so many pixels since it was taken or since the last such signal.
    void Dragged(int down);
    void Dropped();
    // A double click: the panels get their usual heights back.
    void Reset();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    int lastY_ = 0;
};

}  // namespace brantlow
