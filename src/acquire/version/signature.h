// Detached Ed25519 signatures (RFC 8032), by which a downloaded program is known to come from its maker.
#pragma once

#include <string_view>

namespace brantlow {

// True when `signature`, 64 bytes, is that of `bytes` by the owner of the public key `publicKeyPem` (a PEM
// text "BEGIN PUBLIC KEY"). False for everything else, a key that cannot be read among it.
bool IsSignedBy(std::string_view publicKeyPem, std::string_view bytes, std::string_view signature);

}  // namespace brantlow
