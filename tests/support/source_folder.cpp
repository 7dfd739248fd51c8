#include "support/source_folder.h"

namespace brantlow {

std::filesystem::path SourceFolder() {
    return BRANTLOW_SOURCE_DIR;
}

}  // namespace brantlow
