// The per-user store of typed values that the platform's web layer is steered by, and the text rules by which
// the program reads it.
//
// On disk its values stand in the per-user settings store (shell/user_store.h): a section
// [HKEY_CURRENT_USER\Some\Key] for each key, and in it lines `Name=dword:0000000a`, `Name=hex:0a,ff` or
// `Name=any text`. Keys and names match in any case.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/files.h"

namespace brantlow {

inline constexpr std::string_view kCurrentUserKey = "HKEY_CURRENT_USER";

// Value types, by the numbers they carry.
inline constexpr std::uint32_t kTextValue = 1;
inline constexpr std::uint32_t kBytesValue = 3;
inline constexpr std::uint32_t kNumberValue = 4;

struct RegistryValue {
    std::uint32_t type = kTextValue;
    // A text with its terminating character; a number as four bytes, low byte first.
    std::string bytes;
};

class UserRegistry {
  public:
    UserRegistry() = default;
    static UserRegistry Parse(std::string_view text);

    void SetText(std::string_view rootKey, std::string_view subkey, std::string_view name,
                 std::string_view text);
    void Set(std::string_view rootKey, std::string_view subkey, std::string_view name, RegistryValue value);

    // Null when there is no such value.
    const RegistryValue* Find(std::string_view rootKey, std::string_view subkey, std::string_view name) const;

  private:
    // By "ROOT\KEY\NAME" in capitals.
    std::map<std::string, RegistryValue> values_;
};

// The store in a file; empty when there is none.
UserRegistry LoadUserRegistry(const Path& file);

// A value as text. A number has at least three digits (7 reads "007"), bytes are two hexadecimal digits each,
// any other value loses its terminating character. Empty when there is no such value or it is longer than
// 2,048 bytes.
std::string ReadRegistryValue(const UserRegistry& registry, std::string_view rootKey, std::string_view subkey,
                              std::string_view name);

}  // namespace brantlow
