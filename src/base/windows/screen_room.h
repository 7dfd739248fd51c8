// The room that a window has on its screen, and that letters take there.
#pragma once

#include <QScreen>
#include <QWidget>
#include <algorithm>

namespace brantlow {

// In pixels, without what a window manager puts around the window.
inline QSize RoomOnScreen(const QWidget& window) {
    constexpr QSize kWindowFrame(16, 48);
    return window.screen()->availableSize() - kWindowFrame;
}

// A width that holds a text in usual letters, for the letters of the widget.
inline int WidthForLetters(const QWidget& widget, int pixels) {
    constexpr int kUsualLetter = 6;
    return pixels * std::max(kUsualLetter, widget.fontMetrics().averageCharWidth()) / kUsualLetter;
}

}  // namespace brantlow
