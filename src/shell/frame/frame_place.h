// Where the main frame opens: where and as large as it was closed, on a screen that still exists, or, while
// "Remember Window Size" is off, in its own size. The per-user store keeps the place and the choice.
#pragma once

#include <optional>
#include <span>
#include <system_error>

#include "base/files.h"
#include "shell/display.h"

namespace brantlow {

// In pixels.
struct ScreenRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenRect&) const = default;
};

// The frame as it stands, without its title bar.
struct FramePlace {
    ScreenRect rect;
    bool maximised = false;

    bool operator==(const FramePlace&) const = default;
};

// What the store knows of the frame.
struct KeptFrame {
    // As kRemembersWindowSize says.
    bool remembers = true;
    // Nothing before the frame was closed for the first time.
    std::optional<FramePlace> place;

    bool operator==(const KeptFrame&) const = default;
};

KeptFrame LoadKeptFrame(const Path& storeFile);
std::error_code SaveFramePlace(const Path& storeFile, const FramePlace& place);

// The smallest size of a first start, where the screen has it: the frame's own.
inline constexpr int kLeastFirstWidth = 1033;
inline constexpr int kLeastFirstHeight = 747;

// Where the frame opens when it remembers. `kept` is where it was closed; without it the frame takes three
// quarters of the first screen, or kLeastFirstWidth by kLeastFirstHeight, or all that a smaller screen has.
// `screens` are the free areas, the first screen in front; there is one at least. `titleBar` is the height of
// the title bar, which stands above the place and is on the screen too. A frame that reaches beyond all
// screens is moved and cut to the one that shows most of it.
FramePlace PlaceToOpen(const std::optional<FramePlace>& kept, std::span<const ScreenRect> screens,
                       int titleBar);

}  // namespace brantlow
