#include "base/windows/program_style.h"

#include <QAbstractItemView>
#include <QPalette>
#include <algorithm>

#include "base/windows/readable.h"

namespace brantlow {

namespace {

constexpr int kCellMargin = 6;

QColor Between(const QColor& from, const QColor& to, float part) {
    const auto mixed = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                            mixed(from.blueF(), to.blueF()));
}

// As quiet as it can be and still be read, in a box and beside one.
QColor QuietWords(const QPalette& palette, QPalette::ColorGroup group) {
    constexpr float kQuiet = 0.5F;
    constexpr float kStep = 0.05F;
    const QColor base = palette.color(group, QPalette::Base);
    const QColor window = palette.color(group, QPalette::Window);
    const QColor words = palette.color(group, QPalette::Text);
    for (float part = kQuiet; part < 1; part += kStep) {
        const QColor quiet = Between(base, words, part);
        if (std::min(ContrastRatio(quiet, base), ContrastRatio(quiet, window)) >= kReadableContrast)
            return quiet;
    }
    return words;
}

}  // namespace

int ProgramStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returned) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

int ProgramStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const bool inTable = qobject_cast<const QAbstractItemView*>(widget) != nullptr;
    if (inTable && (metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin)) return kCellMargin;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

void ProgramStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::PlaceholderText, QuietWords(palette, group));
}

}  // namespace brantlow
