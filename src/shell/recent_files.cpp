#include "shell/recent_files.h"

#include <algorithm>

namespace brantlow {

namespace {

using Entries = std::array<Value, kRecentFileCount>;

Entries EntriesOf(const SettingsTable& mruSettings) {
    Entries entries;
    for (std::size_t i = 0; i < entries.size(); ++i) entries[i] = mruSettings.At(i + 1);
    return entries;
}

}  // namespace

RecentFileNames RecentFiles(const SettingsTables& settings) {
    const Entries entries = EntriesOf(settings.MruSettings);
    RecentFileNames names;
    std::transform(entries.begin(), entries.end(), names.begin(),
                   [](const Value& entry) { return entry.Text(); });
    return names;
}

void UpdateRecentFiles(std::string_view caption, SettingsTable& mruSettings) {
    const Value newest = Value::OfText(caption);
    if (newest.Text().empty()) return;
    Entries entries = EntriesOf(mruSettings);
    // The list closes up to the caption's own place, the lower one of a name that stands twice; a new one
    // takes the last.
    const auto known = std::find_if(entries.rbegin(), entries.rend(),
                                    [&](const Value& entry) { return entry.Text() == newest.Text(); });
    const auto end = known == entries.rend() ? entries.end() : known.base();
    std::move_backward(entries.begin(), end - 1, end);
    entries.front() = newest;
    for (std::size_t i = 0; i < entries.size(); ++i) mruSettings.Set(i + 1, entries[i]);
}

}  // namespace brantlow
