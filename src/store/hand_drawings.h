// Lines and words that a person has put into the chart of a ticker by hand, and the file that keeps them:
// `Data/Drawings/<ticker>.json`. Places are days and prices, so that they hold in every stretch and time
// frame; after a split they are restated with the history (splits/split_adjustment.h).
//
// A file that cannot be read, or that holds anything else, is told and never written over.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/dates.h"
#include "base/failure.h"
#include "base/file_change.h"
#include "shell/session_change.h"

namespace brantlow {

enum class HandKind : unsigned char { Trend, Horizontal, Channel, Text };

struct HandForm {
    HandKind kind;
    // As the file names it.
    std::string_view name;
    // The names of its places there; those that are empty it does not have.
    std::array<std::string_view, 3> points;

    constexpr std::size_t PointCount() const {
        return points[1].empty() ? 1 : (points[2].empty() ? 2 : points.size());
    }
};

// A trend line goes through two places and on to the newest bar. A channel is that and a second line, which
// runs along it through a third place. A horizontal line has the price of its place, at every day.
inline constexpr std::array<HandForm, 4> kHandForms = {{
    {HandKind::Trend, "trend", {"from", "to", ""}},
    {HandKind::Horizontal, "horizontal", {"at", "", ""}},
    {HandKind::Channel, "channel", {"from", "to", "through"}},
    {HandKind::Text, "text", {"at", "", ""}},
}};

constexpr const HandForm& FormOf(HandKind kind) {
    return kHandForms[static_cast<std::size_t>(kind)];
}

struct HandPoint {
    Date day;
    double price = 0;
    bool operator==(const HandPoint&) const = default;
};

struct HandDrawing {
    HandKind kind = HandKind::Trend;
    // As many as its form has.
    std::vector<HandPoint> points;
    // Of HandKind::Text: UTF-8 of at most kLongestHandText bytes, without control characters.
    std::string text = {};
    bool operator==(const HandDrawing&) const = default;
};

using HandDrawings = std::vector<HandDrawing>;

inline constexpr std::size_t kMostHandDrawings = 1000;
inline constexpr std::size_t kLongestHandText = 200;

Path DrawingsFolder(const Path& dataFolder);
// The ticker's file there; nothing for a ticker that no file can be named after.
std::optional<Path> DrawingsFile(const Path& dataFolder, std::string_view ticker);

// What `bytes` hold. `complaint` is what is wrong with them, empty where nothing is: then there are none.
HandDrawings ReadHandDrawings(std::string_view bytes, std::string& complaint);
std::string TextOfHandDrawings(const HandDrawings& drawings);

struct KeptDrawings {
    HandDrawings drawings;
    // Of the file; none where it is missing.
    std::string bytes;
    Failure failure;
};
// Those of a ticker; a missing file holds none.
KeptDrawings LoadHandDrawings(const Path& dataFolder, std::string_view ticker);

// Puts the drawings in place of the ticker's file, or takes the file away where there are none. Refused where
// the file no longer holds `known`, or what it holds cannot be read: somebody else wrote it.
Failure SaveHandDrawings(const Path& dataFolder, std::string_view ticker, const HandDrawings& drawings,
                         std::string_view known);

// Divides the prices of the places that lie before `firstDay`; false where there are none.
bool RestateHandDrawings(const Date& firstDay, double factor, HandDrawings& drawings);
// The same in the ticker's file as a part of `change`. A file that cannot be read is a failure of kind Read.
Failure PrepareRestatedDrawings(const Path& dataFolder, std::string_view ticker, const Date& firstDay,
                                double factor, FileChange& change);

}  // namespace brantlow
