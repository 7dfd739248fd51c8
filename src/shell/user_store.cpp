#include "shell/user_store.h"

#include <array>
#include <cmath>

#include "base/numbers.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

constexpr std::string_view kFrameSection = "Settings";
// Farther than any screen reaches.
constexpr double kFarthestTwips = 1e6;

struct GeometryKey {
    std::string_view name;
    double FrameGeometry::*field;
    bool isSize;
};

constexpr std::array<GeometryKey, 4> kGeometryKeys = {{{"MainLeft", &FrameGeometry::MainLeft, false},
                                                       {"MainTop", &FrameGeometry::MainTop, false},
                                                       {"MainWidth", &FrameGeometry::MainWidth, true},
                                                       {"MainHeight", &FrameGeometry::MainHeight, true}}};

// Where a key's line stands in the file's text, and where a new key of its section goes.
struct KeyPlace {
    bool found = false;
    std::size_t lineStart = 0;
    std::size_t lineEnd = 0;  // without the line end
    std::string_view value;
    bool sectionFound = false;
    std::size_t insertAt = 0;  // behind the last line of the section that holds anything
};

bool IsSection(std::string_view line, std::string_view section) {
    return line.size() == section.size() + 2 && line.front() == '[' && line.back() == ']' &&
           line.substr(1, section.size()) == section;
}

KeyPlace FindKey(std::string_view text, std::string_view section, std::string_view key) {
    KeyPlace place;
    bool inside = false;
    LineReader lines(text);
    for (std::string_view raw; lines.Next(raw);) {
        const auto start = static_cast<std::size_t>(raw.data() - text.data());
        const std::string_view line = Trim(raw);
        if (line.starts_with('[')) {
            inside = IsSection(line, section);
        } else if (const std::size_t equals = line.find('='); inside && equals != std::string_view::npos) {
            if (Trim(line.substr(0, equals)) == key) {
                place.found = true;
                place.lineStart = start;
                place.lineEnd = start + raw.size();
                place.value = Trim(line.substr(equals + 1));
                return place;
            }
        }
        if (!inside || line.empty()) continue;
        place.sectionFound = true;
        const std::size_t lineFeed = text.find('\n', start);
        place.insertAt = lineFeed == std::string_view::npos ? text.size() : lineFeed + 1;
    }
    return place;
}

bool CanStandInLine(std::string_view text, std::string_view forbidden) {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos &&
           text.find_first_of(forbidden) == std::string_view::npos;
}

bool IsName(std::string_view name, std::string_view forbidden) {
    return !name.empty() && Trim(name) == name && CanStandInLine(name, forbidden);
}

// `text` with the key's line replaced or added.
std::string WithSetting(std::string text, std::string_view section, std::string_view key,
                        std::string_view value) {
    const KeyPlace place = FindKey(text, section, key);
    const std::string line = std::string(key) + '=' + std::string(value);
    if (place.found) return text.replace(place.lineStart, place.lineEnd - place.lineStart, line);
    if (!text.empty() && text.back() != '\n') text += kLineEnd;
    if (!place.sectionFound) {
        if (!text.empty()) text += kLineEnd;
        return text.append("[").append(section).append("]").append(kLineEnd).append(line).append(kLineEnd);
    }
    const std::size_t at =
        place.insertAt == 0 || text[place.insertAt - 1] != '\n' ? text.size() : place.insertAt;
    return text.insert(at, line + std::string(kLineEnd));
}

std::error_code WriteStore(const Path& storeFile, const std::string& text) {
    std::error_code error;
    std::filesystem::create_directories(storeFile.parent_path(), error);
    return error ? error : WriteWholeFile(storeFile, text);
}

bool IsPlausible(double twips, bool isSize) {
    return std::fabs(twips) <= kFarthestTwips && (!isSize || twips > 0);
}

// The store's text, to be changed and written back; an unreadable store is not taken for an empty one.
std::error_code ReadStore(const Path& storeFile, std::string& text) {
    ReadResult read = ReadWholeFile(storeFile);
    text = std::move(read.bytes);
    return read.outcome == ReadOutcome::Failed ? read.error : std::error_code{};
}

}  // namespace

Path UserStoreFile(const std::string& configHome, const Path& home) {
    const Path folder(configHome);
    return (folder.is_absolute() ? folder : home / ".config") / "Brantlow" / "Brantlow.ini";
}

std::string GetSetting(const Path& storeFile, std::string_view section, std::string_view key,
                       std::string_view fallback) {
    const std::string text = BytesOrEmpty(storeFile);
    const KeyPlace place = FindKey(text, section, key);
    return std::string(place.found ? place.value : fallback);
}

std::error_code SaveSetting(const Path& storeFile, std::string_view section, std::string_view key,
                            std::string_view value) {
    const bool isComment = key.starts_with(';') || key.starts_with('#') || key.starts_with('[');
    if (!IsName(section, "]") || !IsName(key, "=") || isComment || !CanStandInLine(value, "")) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    std::string text;
    if (const auto error = ReadStore(storeFile, text)) return error;
    return WriteStore(storeFile, WithSetting(std::move(text), section, key, value));
}

FrameGeometry LoadFrameGeometry(const Path& storeFile) {
    FrameGeometry geometry;
    for (const GeometryKey& key : kGeometryKeys) {
        const auto value = WholeNumber(GetSetting(storeFile, kFrameSection, key.name, ""));
        if (value && IsPlausible(*value, key.isSize)) geometry.*key.field = *value;
    }
    return geometry;
}

std::error_code SaveFrameGeometry(const Path& storeFile, const FrameGeometry& geometry) {
    std::string text;
    if (const auto error = ReadStore(storeFile, text)) return error;
    for (const GeometryKey& key : kGeometryKeys) {
        text = WithSetting(std::move(text), kFrameSection, key.name, ShortestNumber(geometry.*key.field));
    }
    return WriteStore(storeFile, text);
}

}  // namespace brantlow
