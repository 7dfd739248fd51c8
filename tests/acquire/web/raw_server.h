// A server on the loopback that does what no well-behaved server does: a test's script gets each connection
// after its request has come and sends whatever bytes it likes.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace brantlow {

class RawServer {
  public:
    // Runs on a thread of its own, one a connection. The connection is closed behind it.
    using Script = std::function<void(int connection, const std::string& request)>;

    explicit RawServer(Script script);
    ~RawServer();
    RawServer(const RawServer&) = delete;
    RawServer& operator=(const RawServer&) = delete;

    // "http://127.0.0.1:port" and `path` behind it.
    std::string Url(std::string_view path = "/") const;
    int Connections() const { return connections_; }

    // False when the other side has gone.
    static bool Send(int connection, std::string_view bytes);
    // Waits until the other side closes the connection.
    static void HoldOpen(int connection);
    // Makes the close behind the script a reset.
    static void ResetAtClose(int connection);

  private:
    void Listen();
    void Serve(int connection);

    Script script_;
    int port_ = 0;
    int listener_;
    std::atomic<int> connections_ = 0;
    std::thread acceptor_;
    std::vector<std::thread> servers_;
};

// A port of the loopback on which nobody listens.
int FreePort();

}  // namespace brantlow
