// The helper that brings a new version in, and the signature that it needs.
#include "acquire/version/updater.h"

#include <openssl/evp.h>
#include <openssl/pem.h>

#include <memory>

#include "acquire/version/signature.h"
#include "acquire/web/memory_web.h"
#include "store/store_fixture.h"

namespace brantlow {
namespace {

// A pair of keys that lives as long as the test.
class Keys {
  public:
    Keys() : key_(EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519")) {}
    ~Keys() { EVP_PKEY_free(key_); }
    Keys(const Keys&) = delete;
    Keys& operator=(const Keys&) = delete;

    std::string PublicPem() const {
        BIO* bio = BIO_new(BIO_s_mem());
        PEM_write_bio_PUBKEY(bio, key_);
        char* text = nullptr;
        const long length = BIO_get_mem_data(bio, &text);
        const std::string pem(text, static_cast<std::size_t>(length));
        BIO_free(bio);
        return pem;
    }
    std::string Sign(const std::string& bytes) const {
        EVP_MD_CTX* context = EVP_MD_CTX_new();
        std::string signature(64, '\0');
        std::size_t length = signature.size();
        EVP_DigestSignInit(context, nullptr, nullptr, nullptr, key_);
        EVP_DigestSign(context, reinterpret_cast<unsigned char*>(signature.data()), &length,
                       reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
        EVP_MD_CTX_free(context);
        return signature;
    }

  private:
    EVP_PKEY* key_;
};

std::string FromHex(std::string_view hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    }
    return bytes;
}

// RFC 8032, section 7.1, TEST 2: the message is the byte 72.
constexpr const char* kRfcKey =
    "-----BEGIN PUBLIC KEY-----\n"
    "MCowBQYDK2VwAyEAPUAXw+hDiVqStwqnTRt+vJyYLM8uxJaMwM1V8Sr0Zgw=\n"
    "-----END PUBLIC KEY-----\n";
constexpr const char* kRfcSignature =
    "92a009a9f0d4cab8720e820b5f642540a2b27b5416503f8fb3762223ebdb69da"
    "085ac1e43e15996e458f3613d0f11d8c387b2eaeb4302aeeb00d291612bb0c00";

TEST(Signature, AgreesWithThePublishedExample) {
    EXPECT_TRUE(IsSignedBy(kRfcKey, "\x72", FromHex(kRfcSignature)));
    EXPECT_FALSE(IsSignedBy(kRfcKey, "\x73", FromHex(kRfcSignature)));
}

TEST(Signature, JunkIsNoSignature) {
    const Keys keys;
    const std::string good = keys.Sign("bytes");
    EXPECT_TRUE(IsSignedBy(keys.PublicPem(), "bytes", good));
    EXPECT_FALSE(IsSignedBy(keys.PublicPem(), "bytes", good.substr(1)));
    EXPECT_FALSE(IsSignedBy(keys.PublicPem(), "bytes", good + "x"));
    EXPECT_FALSE(IsSignedBy(keys.PublicPem(), "bytes", ""));
    EXPECT_FALSE(IsSignedBy("", "bytes", good));
    EXPECT_FALSE(IsSignedBy("-----BEGIN PUBLIC KEY-----\njunk\n", "bytes", good));
    EXPECT_FALSE(IsSignedBy(Keys().PublicPem(), "bytes", good));
}

class UpdaterTest : public ::testing::Test {
  protected:
    UpdaterTest() {
        folder.Write("App/Updater", "old helper");
        folder.Write("key.pem", keys.PublicPem());
    }
    void Publish(const std::string& program, const std::string& signature) {
        web.Answer("https://www.brantlow.example/Updates/brantlow/Updater", MemoryWeb::Page(program));
        web.Answer("https://www.brantlow.example/Updates/brantlow/Updater.sig", MemoryWeb::Page(signature));
    }
    FetchedUpdater Fetch() {
        return FetchUpdater(web, hosts, folder.Root() / "App", folder.Root() / "key.pem");
    }

    TestFolder folder;
    Keys keys;
    MemoryWeb web;
    Hosts hosts;
};

TEST_F(UpdaterTest, AGoodHelperTakesThePlaceOfTheOldOneWhichIsKept) {
    Publish("new helper", keys.Sign("new helper"));
    const FetchedUpdater fetched = Fetch();
    EXPECT_EQ(fetched.refusal, "");
    EXPECT_EQ(fetched.program, folder.Root() / "App/Updater");
    EXPECT_EQ(folder.Read("App/Updater"), "new helper");
    EXPECT_EQ(folder.Read("App/Back Up/Updater"), "old helper");
    const auto rights = std::filesystem::status(fetched.program).permissions();
    EXPECT_NE(rights & std::filesystem::perms::owner_exec, std::filesystem::perms::none);
}

TEST_F(UpdaterTest, AHelperOfAnotherMakerIsDeletedAndTold) {
    Publish("new helper", Keys().Sign("new helper"));
    const FetchedUpdater fetched = Fetch();
    EXPECT_TRUE(fetched.program.empty());
    EXPECT_EQ(
        fetched.refusal,
        "The downloaded update does not bear the signature of its maker. It was deleted and nothing was "
        "changed.");
    EXPECT_EQ(folder.Files(), (std::vector<std::string>{"App/Back Up/Updater", "App/Updater", "key.pem"}));
    EXPECT_EQ(folder.Read("App/Updater"), "old helper");
}

TEST_F(UpdaterTest, WithoutTheSignatureOrTheKeyNothingIsStarted) {
    web.Answer("https://www.brantlow.example/Updates/brantlow/Updater", MemoryWeb::Page("new helper"));
    EXPECT_EQ(Fetch().refusal, "The update could not be downloaded.");
    EXPECT_EQ(folder.Read("App/Updater"), "old helper");
    Publish("new helper", keys.Sign("new helper"));
    folder.Write("key.pem", "");
    EXPECT_NE(Fetch().refusal, "");
    EXPECT_EQ(folder.Read("App/Updater"), "old helper");
}

TEST_F(UpdaterTest, TheWordsOfTheOfferStandAsTheyAre) {
    EXPECT_EQ(
        kNewVersionText,
        "A new version of Brantlow is available for download. To review the changes of the new version, "
        "click the About link, below. Would you like to update to the new version at this time?");
    EXPECT_EQ(kCloseHelpText, "If help file is open, close help file before continuing.");
}

}  // namespace
}  // namespace brantlow
