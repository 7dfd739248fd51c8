// Mail over a server of the user's: one message at a time, over an encrypted connection or not at all.
// CurlMail talks to the network, tests hand in a door of their own. Nothing here knows what a mail is about.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/person.h"
#include "shell/settings/choices.h"

namespace brantlow {

struct MailRequest {
    std::string host;
    int port = 0;
    MailSecurity security = MailSecurity::Tls;
    // Without a user nobody logs in.
    std::string user;
    std::string password;
    // Bare addresses, "me@example.org".
    std::string sender;
    std::vector<std::string> recipients;
    // Header lines "Name: value" beside those of the form of the text, which is UTF-8.
    std::vector<std::string> headers;
    std::string text;
    double limitSeconds = 60;
    // Asked during the wait, which ends when it says so; may be empty.
    std::function<bool()> isStopped = {};
};

enum class MailOutcome {
    Sent,
    Later,    // no connection, or the server asked to come back: worth another try
    Refused,  // by the server for good, or because the connection would not have been safe
    Stopped,
};

struct MailReply {
    MailOutcome outcome = MailOutcome::Sent;
    // The server's own last words ("535 5.7.8 Authentication failed"), or what was wrong with the connection.
    // Never the password.
    std::string words;
    // It was not the server that refused: what it offered would not have been safe, and nothing was sent.
    bool isUnsafe = false;
};

class MailWeb {
  public:
    virtual ~MailWeb() = default;
    virtual MailReply Send(const MailRequest& request) = 0;
};

// Window events run during the wait where a person is handed in; without one it can be used on any thread.
// Certificates are checked against those of the system, or of the file
// that the variable SSL_CERT_FILE names.
class CurlMail final : public MailWeb {
  public:
    CurlMail() = default;
    explicit CurlMail(Person& person) : person_(&person) {}

    MailReply Send(const MailRequest& request) override;

  private:
    Person* person_ = nullptr;
};

}  // namespace brantlow
