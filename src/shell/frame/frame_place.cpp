#include "shell/frame/frame_place.h"

#include <algorithm>
#include <string_view>

#include "shell/frame/frame_choices.h"
#include "shell/user_store.h"

namespace brantlow {

namespace {

constexpr std::string_view kMaximisedKey = "MainMaximised";

int Overlap(int from, int length, int otherFrom, int otherLength) {
    return std::max(0, std::min(from + length, otherFrom + otherLength) - std::max(from, otherFrom));
}

// In pixels of the frame that the screen shows.
long long Shared(const ScreenRect& frame, const ScreenRect& screen) {
    return static_cast<long long>(Overlap(frame.left, frame.width, screen.left, screen.width)) *
           Overlap(frame.top, frame.height, screen.top, screen.height);
}

bool Shows(std::span<const ScreenRect> screens, int x, int y) {
    return std::any_of(screens.begin(), screens.end(), [&](const ScreenRect& screen) {
        return x >= screen.left && x <= screen.left + screen.width && y >= screen.top &&
               y <= screen.top + screen.height;
    });
}

// Whether all four corners are on a screen: a frame may stand across two of them.
bool IsInSight(const ScreenRect& frame, std::span<const ScreenRect> screens) {
    for (const int x : {frame.left, frame.left + frame.width}) {
        for (const int y : {frame.top, frame.top + frame.height}) {
            if (!Shows(screens, x, y)) return false;
        }
    }
    return true;
}

const ScreenRect& ScreenOf(const ScreenRect& frame, std::span<const ScreenRect> screens) {
    return *std::max_element(screens.begin(), screens.end(), [&](const ScreenRect& a, const ScreenRect& b) {
        return Shared(frame, a) < Shared(frame, b);
    });
}

ScreenRect MovedInto(ScreenRect frame, const ScreenRect& screen) {
    frame.width = std::min(frame.width, screen.width);
    frame.height = std::min(frame.height, screen.height);
    frame.left = std::clamp(frame.left, screen.left, screen.left + screen.width - frame.width);
    frame.top = std::clamp(frame.top, screen.top, screen.top + screen.height - frame.height);
    return frame;
}

// The place and the title bar above it.
ScreenRect WithTitleBar(ScreenRect place, int titleBar) {
    place.top -= titleBar;
    place.height += titleBar;
    return place;
}

FramePlace FirstPlace(const ScreenRect& screen, int titleBar) {
    const auto sizeOf = [](int whole, int least) { return std::min(whole, std::max(whole * 3 / 4, least)); };
    const int width = sizeOf(screen.width, kLeastFirstWidth);
    const int height = std::min(sizeOf(screen.height, kLeastFirstHeight), screen.height - titleBar);
    const ScreenRect place{screen.left + (screen.width - width) / 2,
                           screen.top + titleBar + (screen.height - titleBar - height) / 2, width, height};
    return {place, screen.width == kSmallestLayoutWidth};
}

}  // namespace

KeptFrame LoadKeptFrame(const Path& storeFile) {
    KeptFrame kept;
    kept.remembers = LoadFrameChoice(storeFile, kRemembersWindowSize);
    if (!WasClosedOnce(storeFile)) return kept;
    const FrameGeometry geometry = LoadFrameGeometry(storeFile);
    kept.place = FramePlace{{PixelsOf(geometry.MainLeft), PixelsOf(geometry.MainTop),
                             PixelsOf(geometry.MainWidth), PixelsOf(geometry.MainHeight)},
                            LoadFrameFlag(storeFile, kMaximisedKey, false)};
    return kept;
}

std::error_code SaveFramePlace(const Path& storeFile, const FramePlace& place) {
    const ScreenRect& rect = place.rect;
    const std::error_code error = SaveFrameGeometry(
        storeFile, {static_cast<double>(TwipsOf(rect.left)), static_cast<double>(TwipsOf(rect.top)),
                    static_cast<double>(TwipsOf(rect.width)), static_cast<double>(TwipsOf(rect.height))});
    return error ? error : SaveFrameFlag(storeFile, kMaximisedKey, place.maximised);
}

FramePlace PlaceToOpen(const std::optional<FramePlace>& kept, std::span<const ScreenRect> screens,
                       int titleBar) {
    if (!kept) return FirstPlace(screens.front(), titleBar);
    const ScreenRect outer = WithTitleBar(kept->rect, titleBar);
    if (IsInSight(outer, screens)) return *kept;
    return {WithTitleBar(MovedInto(outer, ScreenOf(outer, screens)), -titleBar), kept->maximised};
}

}  // namespace brantlow
