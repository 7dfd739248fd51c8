// The bytes of a page as UTF-8. Page text is taken from UTF-8 only.
#pragma once

#include <string>
#include <string_view>

namespace brantlow {

// `bytes` as UTF-8. The encoding is that of a byte order mark, else the one `contentType` (the reply's
// header) names, else the one a meta element near the page's begin names, else UTF-8 when the bytes are valid
// UTF-8, else Windows-1252. A name nobody knows counts as none. Bytes that stand for nothing become U+FFFD.
std::string DecodePage(std::string_view bytes, std::string_view contentType);

// The charset a content type such as `text/html; charset="utf-8"` names, empty when it names none.
std::string_view CharsetOf(std::string_view contentType);

}  // namespace brantlow
