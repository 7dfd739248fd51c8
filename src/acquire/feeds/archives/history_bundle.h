// What a person has downloaded, a zip archive, a folder or one text file, as files that are read one after
// another into memory. Nothing is unpacked to the disk and nothing outside is read: links are not followed,
// and an archive with an entry that is a link, or whose name leads out of it, is refused as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"

namespace brantlow {

struct BundleEntry {
    std::string name;          // within the bundle, with slashes
    std::uintmax_t bytes = 0;  // as the bundle tells it
};

// What a reading may cost, whatever the bundle tells of itself.
struct BundleLimits {
    std::size_t files = 500'000;
    std::uintmax_t bytesOfFile = std::uintmax_t{16} * 1024 * 1024;
    std::uintmax_t bytes = std::uintmax_t{32} * 1024 * 1024 * 1024;
};

struct BundleList {
    std::vector<BundleEntry> entries;  // in the order in which they are read
    std::size_t links = 0;             // of a folder: links, which are passed over
    Failure fault;                     // the bundle cannot be read, or is refused
};

// The files of the bundle, folders left out.
BundleList ListBundle(const Path& from, const BundleLimits& limits = {});

// The bytes of a file, which live until the next one is read, or why it has none: a sentence without a full
// stop ("its packed bytes are damaged").
struct BundleText {
    std::string_view bytes;
    std::string refusal;
};

struct BundleReading {
    // Whether the file is to be read.
    std::function<bool(const BundleEntry&)> wants;
    // Takes a file that was; false ends the reading.
    std::function<bool(const BundleEntry&, const BundleText&)> take;
};

// Reads the files that are wanted, in the order of the list. The fault is that of the bundle as a whole: what
// was handed out before it is as good as it was.
Failure ReadBundle(const Path& from, const BundleReading& reading, const BundleLimits& limits = {});

}  // namespace brantlow
