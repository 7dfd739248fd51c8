#include "acquire/version/signature.h"

#include <openssl/evp.h>
#include <openssl/pem.h>

#include <memory>

namespace brantlow {

namespace {

struct Free {
    void operator()(BIO* bio) const { BIO_free(bio); }
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(EVP_MD_CTX* context) const { EVP_MD_CTX_free(context); }
};

std::unique_ptr<EVP_PKEY, Free> ReadKey(std::string_view pem) {
    const std::unique_ptr<BIO, Free> text(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    if (!text) return nullptr;
    std::unique_ptr<EVP_PKEY, Free> key(PEM_read_bio_PUBKEY(text.get(), nullptr, nullptr, nullptr));
    return key && EVP_PKEY_id(key.get()) == EVP_PKEY_ED25519 ? std::move(key) : nullptr;
}

const unsigned char* Bytes(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

}  // namespace

bool IsSignedBy(std::string_view publicKeyPem, std::string_view bytes, std::string_view signature) {
    const auto key = ReadKey(publicKeyPem);
    const std::unique_ptr<EVP_MD_CTX, Free> context(EVP_MD_CTX_new());
    if (!key || !context) return false;
    if (EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key.get()) != 1) return false;
    return EVP_DigestVerify(context.get(), Bytes(signature), signature.size(), Bytes(bytes), bytes.size()) ==
           1;
}

}  // namespace brantlow
