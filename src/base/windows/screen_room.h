// The room that a window has on its screen.
#pragma once

#include <QScreen>
#include <QWidget>

namespace brantlow {

// In pixels, without what a window manager puts around the window.
inline QSize RoomOnScreen(const QWidget& window) {
    constexpr QSize kWindowFrame(16, 48);
    return window.screen()->availableSize() - kWindowFrame;
}

}  // namespace brantlow
