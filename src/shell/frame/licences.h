// What the program is built on, by name and licence, as the About window tells it; docs/licences.md says
// more.
#pragma once

#include <array>
#include <string_view>

namespace brantlow {

struct LicenceRow {
    std::string_view library;
    std::string_view licence;
};

inline constexpr std::string_view kOwnLicence =
    "Brantlow is free software under the GNU General Public License, version 3 or any later version. It "
    "comes "
    "without any warranty. It is built on:";

inline constexpr std::array kLicences = {
    LicenceRow{"Qt 6", "LGPL-3.0 or GPL-2.0 or later"},
    LicenceRow{"Qt WebEngine", "LGPL-3.0 or GPL-2.0 or later, BSD-3-Clause and others"},
    LicenceRow{"libcurl", "curl"},
    LicenceRow{"OpenSSL", "Apache-2.0"},
    LicenceRow{"fmt", "MIT"},
    LicenceRow{"CLI11", "BSD-3-Clause"},
    LicenceRow{"JSON for Modern C++", "MIT"},
    LicenceRow{"gumbo", "Apache-2.0"},
    LicenceRow{"cpp-httplib", "MIT"},
};

}  // namespace brantlow
