// What a person has downloaded, a zip archive, a folder or one text file, as files that are read one after
// another into memory. Nothing is unpacked to the disk and nothing outside is read: links are not followed,
// and an archive with an entry that is a link, or whose name leads out of it, is refused as a whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"

namespace brantlow {

class ZipReader;

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
    Path folder;                       // where they lie; empty for an archive
    std::size_t links = 0;             // of a folder: links, which are passed over
    Failure fault;                     // the bundle cannot be read, or is refused
};

// The bundle cannot be taken: `why` as a sentence without its subject and full stop.
Failure BundleRefusal(const Path& from, std::string why);

// The files of the bundle, folders left out.
BundleList ListBundle(const Path& from, const BundleLimits& limits = {});

// The bytes of a file, which live until the next one is read, or why it has none: a sentence without a full
// stop ("its packed bytes are damaged").
struct BundleText {
    std::string_view bytes;
    std::string refusal;
    // The archive was opened anew behind this file, or has to be.
    bool isBroken = false;
};

// Reads files of a bundle one after another, in the order of the list. Several threads may read one bundle,
// each with a reader of its own.
class BundleReader {
  public:
    // All of them outlive the reader.
    BundleReader(const Path& from, const BundleList& list, const BundleLimits& limits);
    ~BundleReader();
    BundleReader(const BundleReader&) = delete;
    BundleReader& operator=(const BundleReader&) = delete;

    // The file at this place of the list, which stands behind all that were read. `fault` is that of the
    // bundle as a whole.
    BundleText Read(std::size_t place, Failure& fault);

  private:
    std::string ReadLoose(const BundleEntry& entry);
    BundleText ReadPacked(std::size_t place, Failure& fault);
    Failure GoTo(std::size_t place);

    const Path& from_;
    const BundleList& list_;
    const BundleLimits& limits_;
    std::string buffer_;
    std::size_t used_ = 0;
    std::unique_ptr<ZipReader> zip_;
    std::size_t next_ = 0;  // the entry behind the one in hand
};

}  // namespace brantlow
