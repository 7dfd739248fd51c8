// A few files as they were before a run that may bring nothing: such a run puts them back. Used by runs that
// make their files anew at the start.
#pragma once

#include <initializer_list>
#include <system_error>
#include <vector>

#include "base/files.h"

namespace brantlow {

class FormerFiles {
  public:
    explicit FormerFiles(std::initializer_list<Path> paths);

    // Each file is again what it was, or is gone again. One that could not be read stays as it is now.
    // Returns the first error.
    std::error_code PutBack() const;

  private:
    struct Former {
        Path path;
        ReadResult read;
    };

    std::vector<Former> files_;
};

}  // namespace brantlow
