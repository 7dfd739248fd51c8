#include "acquire/feeds/live/source_keys.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

#include "acquire/feeds/live/address_template.h"
#include "base/text.h"
#include "base/values.h"

namespace brantlow {

namespace {

constexpr std::size_t kLongestKey = 1000;

bool HasControls(std::string_view text) {
    return std::any_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

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

// What a source wants, and how it is written.
struct NeedText {
    std::string_view wants;
    std::string_view form;
};
constexpr NeedText kNeedsKey{" needs a key", "KEY"};
constexpr NeedText kNeedsPair{" needs a key of two parts", "ID:SECRET"};
constexpr NeedText kNeedsContact{" asks for your e-mail address", "ADDRESS"};

const NeedText& NeedOf(KeyKind kind) {
    if (kind == KeyKind::Contact) return kNeedsContact;
    return kind == KeyKind::Pair ? kNeedsPair : kNeedsKey;
}

void Replace(std::string& text, std::string_view placeholder, std::string_view value) {
    const std::size_t at = text.find(placeholder);
    if (at != std::string::npos) text.replace(at, placeholder.size(), value);
}

}  // namespace

Environment SystemEnvironment() {
    return [](const char* name) -> const char* { return std::getenv(name); };
}

std::string KeyVariable(std::string_view sourceName) {
    std::string name = "BRANTLOW_KEY_" + UpperCase(sourceName);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

std::string KeyRefusal(const SourceDefinition& source, std::string_view text) {
    if (HasControls(text)) return "the key holds a line feed or another control character";
    if (text.size() > kLongestKey) return "the key is too long";
    if (source.key.kind == KeyKind::Pair) {
        const std::size_t colon = text.find(':');
        const bool isPair = colon != std::string_view::npos && colon > 0 && colon + 1 < text.size();
        if (!isPair) return "the key has two parts, written id:secret";
    }
    if (source.key.kind == KeyKind::Contact && text.find('@') == std::string_view::npos) {
        return "it wants to be told an e-mail address";
    }
    return {};
}

KeyRead ReadSourceKey(const SourceDefinition& source, const Path& dataFolder,
                      const Environment& environment) {
    if (source.key.kind == KeyKind::None) return {SourceKey{}, {}};
    const Path file = dataFolder / kKeysFileName;
    const char* variable = environment(KeyVariable(source.name).c_str());
    const bool isSet = variable != nullptr && *variable != '\0';
    if (!isSet && IsRegularFile(file)) CloseToOthers(file);
    const std::string text = isSet ? variable : KeyInFile(file, source.name).value_or("");
    if (text.empty()) {
        const NeedText& need = NeedOf(source.key.kind);
        return {std::nullopt, source.title + std::string(need.wants) + ": put " + source.name + "=" +
                                  std::string(need.form) + " into Data/" + std::string(kKeysFileName) +
                                  " or set " + KeyVariable(source.name)};
    }
    if (const std::string refusal = KeyRefusal(source, text); !refusal.empty()) {
        return {std::nullopt, source.title + ": " + refusal};
    }
    const std::size_t colon = source.key.kind == KeyKind::Pair ? text.find(':') : std::string::npos;
    if (colon == std::string::npos) return {SourceKey{text, {}}, {}};
    return {SourceKey{text.substr(0, colon), text.substr(colon + 1)}, {}};
}

std::error_code WriteSourceKey(const Path& dataFolder, std::string_view sourceName, std::string_view text) {
    const Path file = dataFolder / kKeysFileName;
    const ReadResult old = ReadWholeFile(file);
    if (old.outcome == ReadOutcome::Failed) return old.error;
    std::string bytes;
    LineReader lines(old.bytes);
    for (std::string_view line; lines.Next(line);) {
        const bool isOwn = !line.starts_with('#') && line.find('=') != std::string_view::npos &&
                           Trim(line.substr(0, line.find('='))) == sourceName;
        if (!isOwn) bytes.append(line).append(kLineEnd);
    }
    if (!text.empty()) bytes.append(sourceName).append("=").append(text).append(kLineEnd);
    // A file that is replaced keeps its mode.
    if (old.outcome == ReadOutcome::Missing) {
        const int made = open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (made < 0) return {errno, std::generic_category()};
        close(made);
    }
    CloseToOthers(file);
    return WriteWholeFile(file, bytes);
}

std::string WithKey(std::string_view pattern, const SourceKey& key, KeyPlace place) {
    const auto fit = [place](const std::string& text) {
        return place == KeyPlace::Address ? PercentEncoded(text) : text;
    };
    std::string filled(pattern);
    Replace(filled, "{key}", fit(key.id));
    Replace(filled, "{id}", fit(key.id));
    Replace(filled, "{secret}", fit(key.secret));
    return filled;
}

}  // namespace brantlow
