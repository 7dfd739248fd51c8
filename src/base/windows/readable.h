// Which colours can be read on one another.
#pragma once

#include <QColor>

namespace brantlow {

// Text of this contrast is read without effort.
inline constexpr double kReadableContrast = 4.5;

// How much two colours differ in light, 1 to 21, as accessibility guidelines count it.
double ContrastRatio(const QColor& a, const QColor& b);

// Black or white, whichever is read better there.
QColor FurthestFrom(const QColor& ground);

// `text`, made darker or lighter until it is read on `ground`.
QColor ReadableOn(const QColor& ground, const QColor& text);

}  // namespace brantlow
