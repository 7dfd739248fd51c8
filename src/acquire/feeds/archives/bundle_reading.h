// The reading of a bundle (history_bundle.h) by several threads: each reads and works on files of its own,
// and the caller takes what came of them one after another, in the order of the list. What is taken is the
// same with any number of threads.
#pragma once

#include <cstddef>
#include <functional>

#include "acquire/feeds/archives/history_bundle.h"

namespace brantlow {

// What is worked on ahead of the caller, and with it the memory, is bounded.
inline constexpr std::size_t kReadAhead = 16;
// As many threads as suit the machine's processors and the bundle, none beside the caller's for a few files.
inline constexpr std::size_t kHelpersOfMachine = static_cast<std::size_t>(-1);

struct BundleReading {
    // Whether the file is to be read; asked of every one before any is.
    std::function<bool(const BundleEntry&)> wants;
    // Works on a file, on any thread. What comes of it is kept under `slot`, below kReadAhead, until it is
    // taken; no two threads work under one slot.
    std::function<void(std::size_t slot, const BundleEntry&, const BundleText&)> work;
    // Takes what came of a file, on the caller's thread; false ends the reading.
    std::function<bool(std::size_t slot, const BundleEntry&)> take;
    std::size_t helpers = kHelpersOfMachine;
};

// Reads the files of the list that are wanted. The fault is that of the bundle as a whole: what was taken
// before it is as good as it was.
Failure ReadBundle(const Path& from, const BundleList& list, const BundleReading& reading,
                   const BundleLimits& limits = {});

}  // namespace brantlow
