// Where the main frame stands on the screen, and the choices of the View menu that last: opened as the
// per-user store has them, kept there when they change and when the frame closes.
#pragma once

#include <system_error>

#include "shell/display.h"
#include "shell/frame/frame_choices.h"
#include "shell/frame/frame_place.h"
#include "shell/frame/windows/frame_hands.h"

class QRect;

namespace brantlow {

class PlaceCommands final {
  public:
    // Both outlive this.
    PlaceCommands(const FrameHands& frame, const Path& userStore) : frame_(frame), userStore_(userStore) {}

    CommandRows Rows();

    // The screen as it was when the frame opened; a smallest one before.
    const Display& OfScreen() const { return display_; }
    // Ticks the choices in the menu and shows the frame, where and as large as it was closed.
    void Open();
    // Keeps the place and the choices; what cannot be kept is told. A minimised frame keeps the place of
    // before.
    void Keep();

  private:
    void KeepChoice(const FrameChoice& choice);
    // Either tells whether the frame is to be maximised.
    bool PlaceAsKept(const KeptFrame& kept);
    bool PlaceInOwnSize(const QRect& available);
    void TellUnkept(const std::error_code& error);

    const FrameHands& frame_;
    const Path& userStore_;
    Display display_;
};

}  // namespace brantlow
