#include "base/windows/program_style.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QStyleOption>
#include <algorithm>
#include <array>

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

// Of a title bar and of the corner of the menu, beside the edge of a button of their own.
struct WindowButton {
    QStyle::SubControl inTitle;
    QStyle::SubControl inMenu;
};
constexpr std::array kWindowButtons = {
    WindowButton{QStyle::SC_TitleBarMinButton, QStyle::SC_MdiMinButton},
    WindowButton{QStyle::SC_TitleBarMaxButton, QStyle::SC_None},
    WindowButton{QStyle::SC_TitleBarNormalButton, QStyle::SC_MdiNormalButton},
    WindowButton{QStyle::SC_TitleBarCloseButton, QStyle::SC_MdiCloseButton},
};
constexpr int kSignPixels = 9;
constexpr int kAroundSign = 3;
constexpr int kSmallSquare = 5;

// The sign of a button of a window over that of the usual style.
void PaintSign(QPainter& painter, QStyle::SubControl button, const QRect& rect) {
    const QRect sign(rect.center() - QPoint(kSignPixels / 2, kSignPixels / 2),
                     QSize(kSignPixels, kSignPixels));
    painter.fillRect(sign.adjusted(-kAroundSign, -kAroundSign, kAroundSign, kAroundSign),
                     painter.background());
    const QRect small(QPoint(), QSize(kSmallSquare, kSmallSquare));
    switch (button) {
        case QStyle::SC_TitleBarMinButton:
            return painter.fillRect(sign.left(), sign.bottom() - 1, kSignPixels, 2, painter.pen().color());
        case QStyle::SC_TitleBarMaxButton:
            return painter.drawRect(sign.adjusted(0, 0, -1, -1));
        case QStyle::SC_TitleBarNormalButton:
            painter.drawRect(small.translated(sign.topRight() - QPoint(kSmallSquare, 0)));
            return painter.drawRect(small.translated(sign.bottomLeft() - QPoint(0, kSmallSquare)));
        default:
            painter.drawLine(sign.topLeft(), sign.bottomRight());
            painter.drawLine(sign.topRight(), sign.bottomLeft());
    }
}

// Of the two that share a place only one is.
bool IsShown(const QStyleOptionTitleBar& bar, QStyle::SubControl button) {
    const bool isMaximised = bar.titleBarState & Qt::WindowMaximized;
    const bool isMinimised = bar.titleBarState & Qt::WindowMinimized;
    if (button == QStyle::SC_TitleBarMinButton) return !isMinimised;
    if (button == QStyle::SC_TitleBarMaxButton) return !isMaximised;
    if (button == QStyle::SC_TitleBarNormalButton) return isMaximised || isMinimised;
    return true;
}

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

// The signs on the buttons of a child window are black, and cannot be seen on the bars of a dark desktop.
void ProgramStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto* const bar = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
    const bool isMenu = control == CC_MdiControls;
    const bool isTitle = control == CC_TitleBar && bar && !(bar->titleBarState & State_Active);
    if ((!isMenu && !isTitle) || !IsDark(option->palette.color(QPalette::Window))) return;
    painter->save();
    painter->setPen(option->palette.color(QPalette::WindowText));
    painter->setBackground(option->palette.color(QPalette::Window));
    for (const WindowButton& button : kWindowButtons) {
        const SubControl part = isMenu ? button.inMenu : button.inTitle;
        const QRect rect = part == SC_None || !(option->subControls & part)
                               ? QRect()
                               : proxy()->subControlRect(control, option, part, widget);
        if (rect.isValid() && (isMenu || IsShown(*bar, part))) PaintSign(*painter, button.inTitle, rect);
    }
    painter->restore();
}

void ProgramStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    // Pictures of what is off are made of the window's colours, and were kept with those of before.
    QPixmapCache::clear();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::PlaceholderText, QuietColour(palette, group, kReadableContrast));
}

}  // namespace brantlow
