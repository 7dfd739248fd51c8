// A mail server on the loopback for one test: it says what the test tells it to, encrypted by a certificate
// of its own, and keeps what it was told.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "base/files.h"

namespace brantlow {

class MailServer {
  public:
    struct Script {
        bool isEncryptedAtOnce = true;
        bool offersStartTls = false;
        // By the first word of a line, "" for the greeting: what is said in place of consent.
        std::map<std::string, std::string> replies = {};
        // So many connections say this to MAIL before it is accepted.
        int greyConnections = 0;
    };

    explicit MailServer(Script script) : script_(std::move(script)) {
        MakeCertificate();
        listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const plain = static_cast<sockaddr*>(static_cast<void*>(&address));
        MustBe(::bind(listener_, plain, size) == 0);
        MustBe(::listen(listener_, 8) == 0);
        ::getsockname(listener_, plain, &size);
        port = ntohs(address.sin_port);
        thread_ = std::thread([this] { Listen(); });
    }
    ~MailServer() {
        ::shutdown(listener_, SHUT_RDWR);
        thread_.join();
        ::close(listener_);
        SSL_CTX_free(context_);
    }
    MailServer(const MailServer&) = delete;
    MailServer& operator=(const MailServer&) = delete;

    // Its certificate, for who is to trust it.
    std::string Certificate() const { return certificate_; }
    // What clients said, a line each, with "(encrypted) " in front of what nobody else could read.
    std::vector<std::string> Told() {
        const std::lock_guard lock(mutex_);
        return told_;
    }
    std::vector<std::string> Mails() {
        const std::lock_guard lock(mutex_);
        return mails_;
    }

    int port = 0;

  private:
    struct Line {
        int connection = -1;
        SSL* ssl = nullptr;

        bool Read(std::string& line) const {
            line.clear();
            for (char c = 0;;) {
                const int got =
                    ssl != nullptr ? SSL_read(ssl, &c, 1) : static_cast<int>(::recv(connection, &c, 1, 0));
                if (got <= 0) return false;
                if (c == '\n') return true;
                if (c != '\r') line += c;
            }
        }
        void Say(const std::string& words) const {
            const std::string bytes = words + "\r\n";
            const int size = static_cast<int>(bytes.size());
            if (ssl != nullptr) {
                SSL_write(ssl, bytes.data(), size);
            } else {
                ::send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
            }
        }
    };

    // A test without its server says nothing, so it ends.
    static void MustBe(bool isThere) {
        if (!isThere) std::abort();
    }

    void MakeCertificate() {
        EVP_PKEY* const key = EVP_EC_gen("P-256");
        X509* const made = X509_new();
        constexpr long kDay = 86'400;
        X509_set_version(made, 2);
        ASN1_INTEGER_set(X509_get_serialNumber(made), 1);
        X509_gmtime_adj(X509_getm_notBefore(made), -kDay);
        X509_gmtime_adj(X509_getm_notAfter(made), kDay);
        X509_set_pubkey(made, key);
        X509_NAME* const name = X509_get_subject_name(made);
        const unsigned char host[] = "127.0.0.1";
        X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, host, -1, -1, 0);
        X509_set_issuer_name(made, name);
        X509_EXTENSION* const names =
            X509V3_EXT_conf_nid(nullptr, nullptr, NID_subject_alt_name, "IP:127.0.0.1");
        X509_add_ext(made, names, -1);
        X509_EXTENSION_free(names);
        X509_sign(made, key, EVP_sha256());
        context_ = SSL_CTX_new(TLS_server_method());
        MustBe(SSL_CTX_use_certificate(context_, made) == 1);
        MustBe(SSL_CTX_use_PrivateKey(context_, key) == 1);
        BIO* const text = BIO_new(BIO_s_mem());
        PEM_write_bio_X509(text, made);
        char* bytes = nullptr;
        const long size = BIO_get_mem_data(text, &bytes);
        certificate_.assign(bytes, static_cast<std::size_t>(size));
        BIO_free(text);
        X509_free(made);
        EVP_PKEY_free(key);
    }

    void Listen() {
        for (int connection = 0; (connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
            ++connections_;
            Line line{connection, nullptr};
            if (!script_.isEncryptedAtOnce || Encrypt(line)) Serve(line);
            if (line.ssl != nullptr) SSL_free(line.ssl);
            ::close(connection);
        }
    }

    bool Encrypt(Line& line) {
        line.ssl = SSL_new(context_);
        SSL_set_fd(line.ssl, line.connection);
        return SSL_accept(line.ssl) == 1;
    }

    void Note(const Line& line, const std::string& text) {
        const std::lock_guard lock(mutex_);
        told_.push_back((line.ssl != nullptr ? "(encrypted) " : "") + text);
    }

    // What the script has for the word, else `usual`; false where that is a refusal.
    bool Answer(const Line& line, const std::string& word, const std::string& usual) {
        const auto found = script_.replies.find(word);
        const std::string reply = found == script_.replies.end() ? usual : found->second;
        line.Say(reply);
        return reply[0] < '4';
    }

    void Serve(Line& line) {
        if (!Answer(line, "", "220 test ESMTP")) return;
        std::string text;
        while (line.Read(text)) {
            Note(line, text);
            const std::string word = text.substr(0, text.find_first_of(" :"));
            if (word == "EHLO" && !script_.replies.contains(word)) {
                line.Say("250-test");
                if (script_.offersStartTls && line.ssl == nullptr) line.Say("250-STARTTLS");
                line.Say("250 AUTH PLAIN");
            } else if (word == "STARTTLS") {
                if (Answer(line, word, "220 go on") && !Encrypt(line)) return;
            } else if (word == "AUTH") {
                line.Say("334 ");
                if (!line.Read(text)) return;
                Note(line, text);
                Answer(line, word, "235 welcome");
            } else if (word == "MAIL" && connections_ <= script_.greyConnections) {
                line.Say("451 4.7.1 come again");
            } else if (word == "DATA") {
                line.Say("354 go on");
                TakeMail(line);
            } else if (!Answer(line, word, word == "QUIT" ? "221 bye" : "250 yes") || word == "QUIT") {
                if (word == "QUIT") return;
            }
        }
    }

    void TakeMail(const Line& line) {
        std::string mail;
        for (std::string text; line.Read(text) && text != ".";) mail += text + "\n";
        {
            const std::lock_guard lock(mutex_);
            mails_.push_back(mail);
        }
        Answer(line, "DATA", "250 queued");
    }

    Script script_;
    SSL_CTX* context_ = nullptr;
    std::string certificate_;
    int listener_ = -1;
    int connections_ = 0;
    std::mutex mutex_;
    std::vector<std::string> told_;
    std::vector<std::string> mails_;
    std::thread thread_;
};

}  // namespace brantlow
