// A host on the loopback that answers paths with prepared text, for tests of commands that reach the web.
#pragma once

#include <httplib.h>

#include <string>
#include <thread>

namespace brantlow {

class LoopbackHost {
  public:
    LoopbackHost() { server_.set_tcp_nodelay(true); }
    ~LoopbackHost() {
        if (!thread_.joinable()) return;
        while (!server_.is_running()) std::this_thread::yield();
        server_.stop();
        thread_.join();
    }
    LoopbackHost(const LoopbackHost&) = delete;
    LoopbackHost& operator=(const LoopbackHost&) = delete;

    // Before the host is started.
    void Answer(const std::string& path, httplib::Server::Handler handler) {
        server_.Get(path, std::move(handler));
    }
    // The host's address.
    std::string Start() {
        const int port = server_.bind_to_any_port("127.0.0.1");
        thread_ = std::thread([this] { server_.listen_after_bind(); });
        return "http://127.0.0.1:" + std::to_string(port);
    }

  private:
    httplib::Server server_;
    std::thread thread_;
};

}  // namespace brantlow
