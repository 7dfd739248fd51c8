// The area of the main frame in which the children stand. While it is empty it tells how to begin.
#pragma once

#include <QMdiArea>

namespace brantlow {

class FrameArea final : public QMdiArea {
    Q_OBJECT
  public:
    FrameArea();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace brantlow
