// The chart's three panels one over the other, with the labels of their scales beside the lines that they
// name. They take the room that the stack is given, or stand in their own size, as the options say.
#pragma once

#include <QList>
#include <QWidget>
#include <array>

#include "chart/chart_options.h"
#include "chart/chart_scene.h"

class QLabel;
class QPainter;

namespace brantlow {

class ChartPanel;
class PanelBorder;

class PanelStack final : public QWidget {
    Q_OBJECT
  public:
    // Both outlive the stack, which changes the shares of `options` where a border is dragged.
    PanelStack(ChartScene& scene, ChartOptions& options, QWidget* parent = nullptr);

    ChartPanel& PanelAt(Panel panel) const { return *panels_[static_cast<std::size_t>(panel)]; }
    // y of a panel's upper edge in pixels.
    int TopOf(Panel panel) const;
    // Updates the scene and shows it, panels and labels in their places; the room for the labels is as wide
    // as the widest of their usual texts. To be called when what stands on the panels or an option has
    // changed.
    void Arrange();
    // The stack with the panels in their own size.
    QSize OwnSize() const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    // A double click on an axis, beside the panels or below them.
    void AxisDoubleClicked();
    // The person has given the panels other shares of the height.
    void SharesChosen();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    void AddBorder(Panel above);
    int LabelRoom() const;
    int TimeAxisHeight() const;
    int RoundPriceRoom() const;
    AxisRoom RoomOnAxes() const;
    void ShowScale();
    void PaintTimeAxis(QPainter& painter) const;
    void PaintRoundPrices(QPainter& painter) const;
    // The heights that panels of `size` have, one below the other.
    std::array<int, kPanels.size()> HeightsIn(int height) const;
    int WidthIn(int width) const;
    QSize SizeAround(QSize panels) const;
    void PlacePanels(int room);
    void PlaceLabel(Panel panel, double share, QLabel& label, int room) const;

    ChartScene& scene_;
    ChartOptions& options_;
    std::array<ChartPanel*, kPanels.size()> panels_;
    QList<PanelBorder*> borders_;
    QList<QLabel*> labels_;
};

}  // namespace brantlow
