// What the tests of CurlWeb share: time that a test moves, and the beginning of an answer.
#pragma once

#include <atomic>
#include <string>

#include "acquire/web/raw_server.h"
#include "acquire/web/web_time.h"

namespace brantlow {

// Time that passes only when somebody sleeps or a test moves it.
struct SkippedTime {
    double seconds = 0;

    WebTime Time() {
        return {[this] { return seconds; }, [this](double slept) { seconds += slept; }};
    }
};

// The head of an answer that promises a page; `more` holds further whole lines of it.
inline std::string Head(const std::string& more) {
    return "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\n" + more + "\r\n";
}

// Sends the beginning of a page and nothing more; tells when it has.
inline RawServer::Script NeverCompletes(std::atomic<bool>& sent) {
    return [&sent](int connection, const std::string&) {
        RawServer::Send(connection, Head("Content-Length: 1000\r\n") + "<p>so far</p><p>and");
        sent = true;
        RawServer::HoldOpen(connection);
    };
}

}  // namespace brantlow
