// CurlWeb against a host whose certificate nobody has signed.
#include <gtest/gtest.h>
#include <httplib.h>
#include <openssl/evp.h>
#include <openssl/x509.h>

#include <memory>
#include <thread>

#include "acquire/web/curl_web.h"
#include "acquire/web/waiting_person.h"

namespace brantlow {
namespace {

struct FreeOpenSsl {
    void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
    void operator()(X509* certificate) const { X509_free(certificate); }
};
using Key = std::unique_ptr<EVP_PKEY, FreeOpenSsl>;
using Certificate = std::unique_ptr<X509, FreeOpenSsl>;

Certificate SelfSigned(const Key& key) {
    constexpr long kDay = 86'400;
    Certificate certificate(X509_new());
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -kDay);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), kDay);
    X509_set_pubkey(certificate.get(), key.get());
    X509_NAME* name = X509_get_subject_name(certificate.get());
    const unsigned char host[] = "127.0.0.1";
    X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, host, -1, -1, 0);
    X509_set_issuer_name(certificate.get(), name);
    X509_sign(certificate.get(), key.get(), EVP_sha256());
    return certificate;
}

TEST(CurlWebCertificate, AHostThatNobodyVouchesForIsToldAsThat) {
    const Key key(EVP_EC_gen("P-256"));
    const Certificate certificate = SelfSigned(key);
    httplib::SSLServer server(certificate.get(), key.get());
    ASSERT_TRUE(server.is_valid());
    server.Get("/", [](const httplib::Request&, httplib::Response& response) {
        response.set_content("Date,Open\n", "text/plain");
    });
    const int port = server.bind_to_any_port("127.0.0.1");
    std::thread thread([&] { server.listen_after_bind(); });
    WaitingPerson person;
    CurlWeb web(person);
    const std::string url = "https://127.0.0.1:" + std::to_string(port) + "/";
    const WebReply reply = web.Fetch({.url = url});
    while (!server.is_running()) std::this_thread::yield();
    server.stop();
    thread.join();
    EXPECT_FALSE(reply.ok);
    EXPECT_EQ(reply.failure, WebFailure::Certificate);
    EXPECT_EQ(reply.bytes, "");
    const std::string sentence = FailureSentence(url, reply);
    EXPECT_EQ(sentence.find("No reply from https://127.0.0.1:" + std::to_string(port) +
                            " : its certificate is not valid ("),
              0U)
        << sentence;
}

}  // namespace
}  // namespace brantlow
