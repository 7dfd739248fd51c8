// Sizes on the screen: the frame's layout size and the unit of all layout and drawing constants, the twip.
// The windows scale by it. The display mode is read, never changed.
#pragma once

#include <algorithm>
#include <cmath>

namespace brantlow {

inline constexpr int kTwipsPerPixel = 15;

// The smallest layout, and the screen width at which the frame starts maximised.
inline constexpr int kSmallestLayoutWidth = 1024;
inline constexpr int kSmallestLayoutHeight = 768;

// Size of the frame at start, in twips, where it is not maximised.
inline constexpr int kFrameWidth = 15500;
inline constexpr int kFrameHeight = 11200;

// Size of a quote table window in twips on the smallest layout; it grows with the layout.
inline constexpr int kTableWidth = 15380;
inline constexpr int kTableHeight = 10290;

// The screen in pixels, as it was found at start.
struct Display {
    int ScreenWidth = kSmallestLayoutWidth;
    int ScreenHeight = kSmallestLayoutHeight;

    // The size in pixels that child windows scale to.
    int LayoutWidth() const { return std::max(ScreenWidth, kSmallestLayoutWidth); }
    int LayoutHeight() const { return std::max(ScreenHeight, kSmallestLayoutHeight); }
    bool FrameStartsMaximised() const { return ScreenWidth == kSmallestLayoutWidth; }
};

// Whole pixels nearest to `twips`.
inline int PixelsOf(double twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

inline int TwipsOf(int pixels) {
    return pixels * kTwipsPerPixel;
}

// Twips of `size`, made for the smallest layout, on this display.
inline double ScaledWidth(const Display& display, double size) {
    return size * display.LayoutWidth() / kSmallestLayoutWidth;
}
inline double ScaledHeight(const Display& display, double size) {
    return size * display.LayoutHeight() / kSmallestLayoutHeight;
}

}  // namespace brantlow
