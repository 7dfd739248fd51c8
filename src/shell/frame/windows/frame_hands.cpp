#include "shell/frame/windows/frame_hands.h"

#include "shell/frame/windows/window_person.h"

namespace brantlow {

void TellDatabaseError(const FrameHands& frame, const std::error_code& error) {
    frame.person.Say(frame.session.settings.QuoteFolder + ": a file of the database cannot be written (" +
                     error.message() + ")");
}

}  // namespace brantlow
