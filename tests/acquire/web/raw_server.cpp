#include "acquire/web/raw_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace brantlow {

namespace {

int BoundSocket(int& port) {
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    if (listener < 0 || ::bind(listener, plain, length) != 0 ||
        ::getsockname(listener, plain, &length) != 0) {
        throw std::runtime_error("no loopback socket");
    }
    port = ntohs(address.sin_port);
    return listener;
}

std::string ReadRequest(int connection) {
    std::string request;
    std::array<char, 1024> chunk;
    while (request.find("\r\n\r\n") == std::string::npos) {
        const ssize_t count = ::recv(connection, chunk.data(), chunk.size(), 0);
        if (count <= 0) break;
        request.append(chunk.data(), static_cast<std::size_t>(count));
    }
    return request;
}

}  // namespace

RawServer::RawServer(Script script) : script_(std::move(script)), listener_(BoundSocket(port_)) {
    constexpr int kWaiting = 16;
    if (::listen(listener_, kWaiting) != 0) throw std::runtime_error("no loopback server");
    acceptor_ = std::thread([this] { Listen(); });
}

RawServer::~RawServer() {
    ::shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    for (std::thread& server : servers_) server.join();
    ::close(listener_);
}

std::string RawServer::Url(std::string_view path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + std::string(path);
}

void RawServer::Listen() {
    for (;;) {
        const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0) return;
        ++connections_;
        servers_.emplace_back([this, connection] { Serve(connection); });
    }
}

void RawServer::Serve(int connection) {
    const std::string request = ReadRequest(connection);
    if (!request.empty()) script_(connection, request);
    ::close(connection);
}

bool RawServer::Send(int connection, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::send(connection, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void RawServer::HoldOpen(int connection) {
    std::array<char, 1024> chunk;
    while (::recv(connection, chunk.data(), chunk.size(), 0) > 0) {
    }
}

void RawServer::ResetAtClose(int connection) {
    const linger reset{1, 0};
    ::setsockopt(connection, SOL_SOCKET, SO_LINGER, &reset, sizeof reset);
}

int FreePort() {
    int port = 0;
    ::close(BoundSocket(port));
    return port;
}

}  // namespace brantlow
