// The words of status panel 2: what the program is doing. Every run ends on kStatusComplete.
#pragma once

#include <string_view>

namespace brantlow {

inline constexpr std::string_view kStatusOpening = "Opening";
inline constexpr std::string_view kStatusSaving = "Saving";
inline constexpr std::string_view kStatusComplete = "Complete";
inline constexpr std::string_view kStatusImporting = "Importing EODQ";
inline constexpr std::string_view kStatusImportingHistory = "Importing History";
inline constexpr std::string_view kStatusUpdating = "Updating";
inline constexpr std::string_view kStatusSelecting = "Selecting";
inline constexpr std::string_view kStatusPopulating = "Populating";
inline constexpr std::string_view kStatusStudying = "Studying";
inline constexpr std::string_view kStatusPrinting = "Printing";
inline constexpr std::string_view kStatusRemoving = "Removing";
inline constexpr std::string_view kStatusCopying = "Copying";
inline constexpr std::string_view kStatusUndoing = "Undoing";

}  // namespace brantlow
