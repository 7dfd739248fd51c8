// The chart's three panels one over the other, with the labels of their scales beside the lines that they
// name.
#pragma once

#include <QList>
#include <QWidget>
#include <array>

#include "chart/chart_session.h"

class QLabel;

namespace brantlow {

class ChartPanel;

class PanelStack final : public QWidget {
    Q_OBJECT
  public:
    explicit PanelStack(const ChartSession& chart, QWidget* parent = nullptr);

    ChartPanel& PanelAt(Panel panel) const { return *panels_[static_cast<std::size_t>(panel)]; }
    // y of a panel's upper edge in pixels.
    int TopOf(Panel panel) const;
    // Brings the labels to their lines; the room for them is as wide as the widest of their usual texts.
    void PlaceLabels();

  private:
    void PlaceLabel(Panel panel, double share, QLabel& label, int room) const;

    std::array<ChartPanel*, kPanels.size()> panels_;
    QList<QLabel*> labels_;
};

}  // namespace brantlow
