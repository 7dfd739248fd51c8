#include "shell/keys.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <optional>

#include "base/control_characters.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

constexpr std::size_t kLongestKey = 1000;

// The key's text in the file; nothing where no line names the source.
std::optional<std::string> KeyInFile(const Path& file, std::string_view name) {
    const std::string bytes = BytesOrEmpty(file);
    LineReader lines(bytes);
    std::optional<std::string> key;
    for (std::string_view line; lines.Next(line);) {
        const std::size_t equals = line.find('=');
        if (line.starts_with('#') || equals == std::string_view::npos) continue;
        if (Trim(line.substr(0, equals)) == name) key = Trim(line.substr(equals + 1));
    }
    return key;
}

// A file that others could read is closed to them.
void CloseToOthers(const Path& file) {
    using std::filesystem::perms;
    std::error_code error;
    std::filesystem::permissions(file, perms::group_all | perms::others_all,
                                 std::filesystem::perm_options::remove, error);
}

}  // namespace

Environment SystemEnvironment() {
    return [](const char* name) -> const char* { return std::getenv(name); };
}

std::string KeyVariable(std::string_view name) {
    std::string variable = "BRANTLOW_KEY_" + UpperCase(name);
    std::replace(variable.begin(), variable.end(), '-', '_');
    return variable;
}

std::string KeyTextRefusal(std::string_view text) {
    if (HasControls(text)) return "the key holds a line feed or another control character";
    if (text.size() > kLongestKey) return "the key is too long";
    return {};
}

std::string FindKey(const Path& dataFolder, std::string_view name, const Environment& environment) {
    const char* variable = environment(KeyVariable(name).c_str());
    if (variable != nullptr && *variable != '\0') return variable;
    const Path file = dataFolder / kKeysFileName;
    if (IsRegularFile(file)) CloseToOthers(file);
    return KeyInFile(file, name).value_or("");
}

std::error_code WriteSourceKey(const Path& dataFolder, std::string_view name, std::string_view text) {
    const Path file = dataFolder / kKeysFileName;
    const ReadResult old = ReadWholeFile(file);
    if (old.outcome == ReadOutcome::Failed) return old.error;
    std::string bytes;
    LineReader lines(old.bytes);
    for (std::string_view line; lines.Next(line);) {
        const bool isOwn = !line.starts_with('#') && line.find('=') != std::string_view::npos &&
                           Trim(line.substr(0, line.find('='))) == name;
        if (!isOwn) bytes.append(line).append(kLineEnd);
    }
    if (!text.empty()) bytes.append(name).append("=").append(text).append(kLineEnd);
    // A file that is replaced keeps its mode.
    if (old.outcome == ReadOutcome::Missing) {
        const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (made < 0) return {errno, std::generic_category()};
        close(made);
    }
    CloseToOthers(file);
    return WriteWholeFile(file, bytes);
}

}  // namespace brantlow
