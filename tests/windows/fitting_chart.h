// A chart of 279 bars that fills a window of a chosen size.
#pragma once

#include <QMouseEvent>

#include "chart_fixture.h"

namespace brantlow {

class FittingChart : public ChartProgram {
  public:
    explicit FittingChart(QSize frameSize = {1400, 950}) : ChartProgram(kBars, true) {
        Choose("mnuGraphicsHLC");
        SetFrame(frameSize);
    }
    void SetFrame(QSize size) {
        frame->showNormal();
        frame->resize(size);
        QCoreApplication::processEvents();
    }
    ChartPanel* PanelNamed(const char* name) const { return Part<ChartPanel>(name); }
    // All of a part within the sheet.
    QRect PlaceOf(const QWidget& part) const {
        return {part.mapTo(Graph()->ClientArea(), QPoint()), part.size()};
    }
    void Drag(const char* border, int down) {
        auto* const handle = Part<QWidget>(border);
        QVERIFY(handle);
        const QPoint start(50, 4);
        QTest::mousePress(handle, Qt::LeftButton, {}, start);
        const QPointF target(50, 4 + down);
        QMouseEvent move(QEvent::MouseMove, target, handle->mapToGlobal(target), Qt::NoButton, Qt::LeftButton,
                         {});
        QCoreApplication::sendEvent(handle, &move);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, handle->mapFromGlobal(handle->mapToGlobal(start)));
    }
};

}  // namespace brantlow
