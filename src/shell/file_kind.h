// The kind of an open file. It stands nowhere but at the end of the file's name and is read from there every
// time it matters: what a command may do, which cells are coloured, what a window shows.
#pragma once

#include <string_view>

namespace brantlow {

enum class FileKind { None, Ddq, Db, Dbe, Efq };

// Compared case and all: a name that ends in ".DDQ" has no kind.
FileKind KindOf(std::string_view fileName);

}  // namespace brantlow
