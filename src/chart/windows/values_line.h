// What the chart shows at one bar, in one or two lines over the panels: that under the crosshair, else the
// newest.
#pragma once

#include <QLabel>
#include <vector>

#include "chart/hover_values.h"

namespace brantlow {

class ValuesLine final : public QLabel {
    Q_OBJECT
  public:
    explicit ValuesLine(QWidget* parent = nullptr);

    // Names of series stand in the colours of their lines, on the ground of the panels.
    void ShowValues(const std::vector<HoverValue>& values, const ChartPalette& palette,
                    const QString& remark);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void TakeRoom();

    qsizetype count_ = 0;
};

}  // namespace brantlow
