// Between the engine's bytes and the text that windows show.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "base/files.h"
#include "base/text.h"

namespace brantlow {

// Bytes of a file or a message for display: UTF-8, else Windows-1252.
inline QString Shown(std::string_view bytes) {
    return QString::fromStdString(DisplayUtf8(bytes));
}

// A name of the program's own tables: ASCII.
inline QString Name(std::string_view name) {
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

inline QString ShownPath(const Path& path) {
    return QString::fromStdString(path.string());
}

inline Path PathOf(const QString& text) {
    return Path(text.toStdString());
}

}  // namespace brantlow
