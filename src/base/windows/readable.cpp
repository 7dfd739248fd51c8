#include "base/windows/readable.h"

#include <algorithm>
#include <cmath>

namespace brantlow {

namespace {

constexpr int kDarkeningPercent = 112;
constexpr int kMostSteps = 24;

double LinearShare(double channel) {
    constexpr double kKnee = 0.04045;
    return channel <= kKnee ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * LinearShare(colour.redF()) + 0.7152 * LinearShare(colour.greenF()) +
           0.0722 * LinearShare(colour.blueF());
}

}  // namespace

double ContrastRatio(const QColor& a, const QColor& b) {
    constexpr double kGlare = 0.05;
    const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
    return (lighter + kGlare) / (darker + kGlare);
}

QColor FurthestFrom(const QColor& ground) {
    return ContrastRatio(ground, Qt::black) >= ContrastRatio(ground, Qt::white) ? Qt::black : Qt::white;
}

QColor ReadableOn(const QColor& ground, const QColor& text) {
    const QColor furthest = FurthestFrom(ground);
    QColor readable = text;
    for (int step = 0; step < kMostSteps && ContrastRatio(ground, readable) < kReadableContrast; ++step) {
        if (text == Qt::black || text == Qt::white) return furthest;
        readable =
            furthest == Qt::black ? readable.darker(kDarkeningPercent) : readable.lighter(kDarkeningPercent);
    }
    return ContrastRatio(ground, readable) < kReadableContrast ? furthest : readable;
}

}  // namespace brantlow
