// The desktop's own style with a few touches: dialog buttons carry words alone, the cells of a table leave
// air around their text, what stands in an empty box can be read on every desktop, and the rims of boxes to
// tick and the buttons of child windows are seen on a dark one.
#pragma once

#include <QProxyStyle>

namespace brantlow {

class ProgramStyle final : public QProxyStyle {
    Q_OBJECT
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    // Asked for whenever the desktop's colours change.
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
};

}  // namespace brantlow
