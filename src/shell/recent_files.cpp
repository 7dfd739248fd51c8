#include "shell/recent_files.h"

namespace brantlow {

void UpdateRecentFiles(std::string_view caption, SettingsTable& mruSettings) {
    const Value newest = Value::OfText(caption);
    if (newest.Text().empty()) return;
    // The place that the list closes up to: the caption's own, the last where it is new. A name that stands
    // twice leaves its lower place.
    std::size_t place = kRecentFileCount;
    while (place > 1 && mruSettings.Text(place) != newest.Text()) --place;
    const bool known = mruSettings.Text(place) == newest.Text();
    for (std::size_t i = known ? place : kRecentFileCount; i > 1; --i) {
        mruSettings.Set(i, mruSettings.At(i - 1));
    }
    mruSettings.Set(1, newest);
}

}  // namespace brantlow
