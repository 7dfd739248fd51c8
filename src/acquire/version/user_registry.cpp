#include "acquire/version/user_registry.h"

#include <fmt/format.h>

#include <charconv>

#include "base/numbers.h"
#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::size_t kBufferBytes = 2048;
constexpr std::size_t kNumberBytes = 4;
constexpr unsigned kBitsPerByte = 8;
constexpr std::string_view kNumberMark = "dword:";
constexpr std::string_view kBytesMark = "hex:";

std::string MapKey(std::string_view rootKey, std::string_view subkey, std::string_view name) {
    return UpperCase(fmt::format("{}\\{}\\{}", rootKey, subkey, name));
}

RegistryValue TextValue(std::string_view text) {
    return {kTextValue, std::string(text) + '\0'};
}

RegistryValue NumberValue(std::uint32_t number) {
    RegistryValue value{kNumberValue, {}};
    for (std::size_t i = 0; i < kNumberBytes; ++i) {
        value.bytes += static_cast<char>(number & 0xFFU);
        number >>= kBitsPerByte;
    }
    return value;
}

template <typename Number>
std::optional<Number> Hexadecimal(std::string_view text) {
    constexpr int kBase = 16;
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, kBase);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<RegistryValue> BytesValue(std::string_view list) {
    RegistryValue value{kBytesValue, {}};
    if (Trim(list).empty()) return value;
    for (const std::string_view piece : SplitAt(list, ',')) {
        const auto byte = Hexadecimal<unsigned char>(Trim(piece));
        if (!byte) return std::nullopt;
        value.bytes += static_cast<char>(*byte);
    }
    return value;
}

// A value as a line of the file writes it; what is no number and no list of bytes is text.
RegistryValue ParseValue(std::string_view text) {
    if (EqualIgnoringCase(text.substr(0, kNumberMark.size()), kNumberMark)) {
        if (const auto number = Hexadecimal<std::uint32_t>(text.substr(kNumberMark.size())))
            return NumberValue(*number);
    }
    if (EqualIgnoringCase(text.substr(0, kBytesMark.size()), kBytesMark)) {
        if (auto bytes = BytesValue(text.substr(kBytesMark.size()))) return *bytes;
    }
    return TextValue(text);
}

std::uint32_t NumberOf(std::string_view bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < std::min(bytes.size(), kNumberBytes); ++i)
        number |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (kBitsPerByte * i);
    return number;
}

std::string HexadecimalText(std::string_view bytes) {
    std::string text;
    for (const char c : bytes) text += fmt::format("{:02X}", static_cast<unsigned char>(c));
    return text;
}

}  // namespace

UserRegistry UserRegistry::Parse(std::string_view text) {
    UserRegistry registry;
    std::string_view section;
    LineReader lines(text);
    for (std::string_view line; lines.Next(line);) {
        line = Trim(line);
        const std::size_t equals = line.find('=');
        if (!line.empty() && line.front() == '[') {
            section = line.substr(1, line.find(']') - 1);
        } else if (equals != std::string_view::npos) {
            const std::size_t root = section.find('\\');
            const std::string_view subkey =
                root == std::string_view::npos ? std::string_view() : section.substr(root + 1);
            registry.Set(section.substr(0, root), subkey, Trim(line.substr(0, equals)),
                         ParseValue(Trim(line.substr(equals + 1))));
        }
    }
    return registry;
}

void UserRegistry::SetText(std::string_view rootKey, std::string_view subkey, std::string_view name,
                           std::string_view text) {
    Set(rootKey, subkey, name, TextValue(text));
}

void UserRegistry::Set(std::string_view rootKey, std::string_view subkey, std::string_view name,
                       RegistryValue value) {
    values_.insert_or_assign(MapKey(rootKey, subkey, name), std::move(value));
}

const RegistryValue* UserRegistry::Find(std::string_view rootKey, std::string_view subkey,
                                        std::string_view name) const {
    const auto found = values_.find(MapKey(rootKey, subkey, name));
    return found == values_.end() ? nullptr : &found->second;
}

UserRegistry LoadUserRegistry(const Path& file) {
    return UserRegistry::Parse(BytesOrEmpty(file));
}

std::string ReadRegistryValue(const UserRegistry& registry, std::string_view rootKey, std::string_view subkey,
                              std::string_view name) {
    const RegistryValue* value = registry.Find(rootKey, subkey, name);
    if (value == nullptr || value->bytes.size() > kBufferBytes) return {};
    if (value->type == kNumberValue) return FormatPicture("000", NumberOf(value->bytes));
    if (value->type == kBytesValue) return HexadecimalText(value->bytes);
    return value->bytes.substr(0, value->bytes.empty() ? 0 : value->bytes.size() - 1);
}

}  // namespace brantlow
