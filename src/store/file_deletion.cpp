#include "store/file_deletion.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "store/file_names.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 4> kProtectedEndings = {"INI", "DLL", "EXE", "DB"};

}  // namespace

bool MayDelete(std::string_view fileName) {
    const std::string name = UpperCase(fileName);
    if (name == UpperCase(kEvaluationsName)) return false;
    return std::none_of(kProtectedEndings.begin(), kProtectedEndings.end(),
                        [&](std::string_view ending) { return name.ends_with(ending); });
}

}  // namespace brantlow
