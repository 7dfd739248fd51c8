#include "shell/frame/windows/frame_hands.h"

#include "shell/frame/windows/window_person.h"
#include "store/windows/frmQuoteGrid.h"

namespace brantlow {

std::string TickerMeant(const TableHands& table, Session& session) {
    if (const frmQuoteGrid* const form = table.form()) session.CurrentTicker = form->TickerMeant();
    return session.CurrentTicker;
}

bool RefusedBySettings(const FrameHands& frame, SettingsNeeds needs) {
    const std::string sentence = StillUnreadable(needs, frame.session.AppPath, frame.session.settings);
    if (!sentence.empty()) frame.person.Say(sentence);
    return !sentence.empty();
}

}  // namespace brantlow
