#include "base/windows/program_style.h"

#include <QAbstractItemView>
#include <QPalette>
#include <QStyleOption>
#include <algorithm>

#include "base/windows/colours.h"
#include "base/windows/readable.h"

namespace brantlow {

namespace {

constexpr int kCellMargin = 6;
// What accessibility guidelines ask of the parts of a control.
constexpr double kSeenContrast = 3;
// The usual style draws a rim in the window's colour, darkened by so many percent.
constexpr int kCheckBoxDarkens = 140;
constexpr int kRadioButtonDarkens = 150;

QColor Between(const QColor& from, const QColor& to, float part) {
    const auto mixed = [part](float a, float b) { return a + (b - a) * part; };
    return QColor::fromRgbF(mixed(from.redF(), to.redF()), mixed(from.greenF(), to.greenF()),
                            mixed(from.blueF(), to.blueF()));
}

// As quiet as it can be at this contrast, in a box and beside one.
QColor QuietColour(const QPalette& palette, QPalette::ColorGroup group, double contrast) {
    constexpr float kQuiet = 0.5F;
    constexpr float kStep = 0.05F;
    const QColor base = palette.color(group, QPalette::Base);
    const QColor window = palette.color(group, QPalette::Window);
    const QColor words = palette.color(group, QPalette::Text);
    for (float part = kQuiet; part < 1; part += kStep) {
        const QColor quiet = Between(base, words, part);
        if (std::min(ContrastRatio(quiet, base), ContrastRatio(quiet, window)) >= contrast) return quiet;
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

// On a dark desktop a rim that is darker than the window is not seen.
void ProgramStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    const bool isTicked = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (!isTicked || !button || !IsDark(button->palette.color(QPalette::Window)))
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    QStyleOptionButton seen(*button);
    const QColor rim = QuietColour(seen.palette, seen.palette.currentColorGroup(), kSeenContrast);
    seen.palette.setColor(
        QPalette::Window,
        rim.lighter(element == PE_IndicatorCheckBox ? kCheckBoxDarkens : kRadioButtonDarkens));
    QProxyStyle::drawPrimitive(element, &seen, painter, widget);
}

void ProgramStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::PlaceholderText, QuietColour(palette, group, kReadableContrast));
}

}  // namespace brantlow
