#include "acquire/feeds/live/source_keys.h"

#include "acquire/feeds/live/address_template.h"
#include "base/failure.h"

namespace brantlow {

namespace {

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

std::string KeyRefusal(const SourceDefinition& source, std::string_view text) {
    if (std::string refusal = KeyTextRefusal(text); !refusal.empty()) return refusal;
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
    const std::string text = FindKey(dataFolder, source.name, environment);
    if (text.empty()) {
        // The key may stand in a file that cannot be read.
        std::string bytes;
        const Failure unread = ReadIfThere(dataFolder / kKeysFileName, bytes);
        if (unread) return {std::nullopt, Sentence(unread)};
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
