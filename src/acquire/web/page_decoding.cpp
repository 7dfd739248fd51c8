#include "acquire/web/page_decoding.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

#include "base/text.h"

namespace brantlow {

namespace {

// Where a page may name its own encoding, in bytes from its begin.
constexpr std::size_t kMetaReach = 1024;

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

struct EncodingMark {
    std::string_view bytes;
    const char* encoding;
};
constexpr std::array<EncodingMark, 3> kMarks = {
    {{"\xEF\xBB\xBF", "UTF-8"}, {"\xFE\xFF", "UTF-16BE"}, {"\xFF\xFE", "UTF-16LE"}}};

// Names under which pages announce one encoding and mean its superset, as browsers read them.
struct EncodingAlias {
    std::string_view announced;
    const char* meant;
};
constexpr std::array<EncodingAlias, 14> kAliases = {{{"ISO-8859-1", "CP1252"},
                                                     {"LATIN1", "CP1252"},
                                                     {"US-ASCII", "CP1252"},
                                                     {"ASCII", "CP1252"},
                                                     {"WINDOWS-1252", "CP1252"},
                                                     {"UTF8", "UTF-8"},
                                                     {"GB2312", "GB18030"},
                                                     {"GBK", "GB18030"},
                                                     {"SHIFT_JIS", "CP932"},
                                                     {"X-SJIS", "CP932"},
                                                     {"EUC-KR", "CP949"},
                                                     {"KS_C_5601-1987", "CP949"},
                                                     {"BIG5", "BIG5-HKSCS"},
                                                     {"ISO-8859-9", "CP1254"}}};

std::size_t FindIgnoringCase(std::string_view text, std::string_view word, std::size_t from = 0) {
    for (std::size_t i = from; i + word.size() <= text.size(); ++i) {
        if (EqualIgnoringCase(text.substr(i, word.size()), word)) return i;
    }
    return std::string_view::npos;
}

// Letters, digits and the few signs that names of encodings hold; a converter's own options ("//") do not
// pass.
bool IsEncodingName(std::string_view name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_' || c == ':' || c == '.';
    });
}

std::string EncodingMeant(std::string_view announced) {
    for (const EncodingAlias& alias : kAliases) {
        if (EqualIgnoringCase(announced, alias.announced)) return alias.meant;
    }
    return std::string(announced);
}

// A converter to UTF-8, closed with its owner.
class Converter {
  public:
    explicit Converter(const std::string& from) : descriptor_(::iconv_open("UTF-8", from.c_str())) {}
    ~Converter() {
        if (IsOpen()) ::iconv_close(descriptor_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // iconv reports failure by this value of a pointer type.
    bool IsOpen() const { return descriptor_ != reinterpret_cast<iconv_t>(-1); }

    std::string Convert(std::string_view bytes) const {
        constexpr std::size_t kChunk = 4096;
        std::array<char, kChunk> chunk;
        std::string text;
        // iconv takes a pointer to non-const and writes nothing through it.
        char* in = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        while (left > 0) {
            char* out = chunk.data();
            std::size_t room = chunk.size();
            const bool failed = ::iconv(descriptor_, &in, &left, &out, &room) == static_cast<std::size_t>(-1);
            const int reason = errno;
            text.append(chunk.data(), static_cast<std::size_t>(out - chunk.data()));
            if (!failed || reason == E2BIG) continue;
            text += kReplacement;
            ++in;
            --left;
        }
        return text;
    }

  private:
    iconv_t descriptor_;
};

std::optional<std::string> ConvertFrom(std::string_view announced, std::string_view bytes) {
    if (!IsEncodingName(announced)) return std::nullopt;
    const Converter converter(EncodingMeant(announced));
    if (!converter.IsOpen()) return std::nullopt;
    return converter.Convert(bytes);
}

std::string_view CharsetInMeta(std::string_view page) {
    const std::string_view begin = page.substr(0, kMetaReach);
    constexpr std::string_view kMeta = "<meta";
    for (std::size_t at = FindIgnoringCase(begin, kMeta); at != std::string_view::npos;
         at = FindIgnoringCase(begin, kMeta, at + kMeta.size())) {
        const std::string_view element = begin.substr(at, begin.find('>', at) - at);
        const std::string_view charset = CharsetOf(element);
        // A page whose meta element can be read byte by byte is not in UTF-16, whatever it says.
        if (EqualIgnoringCase(charset.substr(0, 6), "UTF-16")) return "UTF-8";
        if (!charset.empty()) return charset;
    }
    return {};
}

}  // namespace

std::string_view CharsetOf(std::string_view contentType) {
    constexpr std::string_view kWord = "charset";
    for (std::size_t at = FindIgnoringCase(contentType, kWord); at != std::string_view::npos;
         at = FindIgnoringCase(contentType, kWord, at + kWord.size())) {
        std::string_view rest = Trim(contentType.substr(at + kWord.size()));
        if (rest.empty() || rest.front() != '=') continue;
        rest = Trim(rest.substr(1));
        if (!rest.empty() && (rest.front() == '"' || rest.front() == '\'')) rest.remove_prefix(1);
        return rest.substr(0, rest.find_first_of("\"'; \t\r\n/>"));
    }
    return {};
}

std::string DecodePage(std::string_view bytes, std::string_view contentType) {
    for (const EncodingMark& mark : kMarks) {
        if (bytes.substr(0, mark.bytes.size()) != mark.bytes) continue;
        bytes.remove_prefix(mark.bytes.size());
        if (auto text = ConvertFrom(mark.encoding, bytes)) return *text;
    }
    for (const std::string_view announced : {CharsetOf(contentType), CharsetInMeta(bytes)}) {
        if (auto text = ConvertFrom(announced, bytes)) return *text;
    }
    return DisplayUtf8(bytes);
}

}  // namespace brantlow
