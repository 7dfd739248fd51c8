#include "market/market_server.h"

#include <fmt/format.h>
#include <httplib.h>
#include <sys/socket.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "market/market_answer.h"

namespace brantlow {

namespace {

constexpr const char* kLoopback = "127.0.0.1";

// Connections held open at one time: each takes a thread, and a browser holds several.
constexpr std::size_t kThreads = 48;
constexpr std::size_t kRequestsPerConnection = 1'000'000;
// An idle connection ends after this time, and with it the wait for its thread at the end.
constexpr time_t kIdleSeconds = 1;

// Slow replies go out in slices of this time.
constexpr std::chrono::milliseconds kSlice{50};

// The slower of two speeds, of which 0 is the fastest.
unsigned SlowerOf(unsigned a, unsigned b) {
    if (a == 0 || b == 0) return std::max(a, b);
    return std::min(a, b);
}

std::size_t SliceBytes(unsigned bytesPerSecond) {
    const auto slices = std::chrono::seconds{1} / kSlice;
    return std::max<std::size_t>(1, bytesPerSecond / static_cast<std::size_t>(slices));
}

// Waits for one slice of `bytes` at a speed.
void WaitForSlice(std::size_t bytes, unsigned bytesPerSecond) {
    std::this_thread::sleep_for(std::chrono::duration<double>(static_cast<double>(bytes) / bytesPerSecond));
}

}  // namespace

struct MarketServer::Wire {
    Wire(const MarketData& d, const Clock& c, AlertList& a, unsigned speed)
        : data(d), clock(c), alerts(a), bytesPerSecond(speed) {}

    void SetUp();
    void Reply(const httplib::Request& request, httplib::Response& response);
    void Send(MarketReply reply, httplib::Response& response);
    bool SendPiece(const MarketReply& reply, std::size_t offset, httplib::DataSink& sink) const;

    const MarketData& data;
    const Clock& clock;
    AlertList& alerts;
    unsigned bytesPerSecond;
    int port = 0;
    std::atomic<bool> stopping = false;
    httplib::Server server;
    std::thread thread;
};

void MarketServer::Wire::SetUp() {
    server.set_tcp_nodelay(true);
    server.set_keep_alive_max_count(kRequestsPerConnection);
    server.set_keep_alive_timeout(kIdleSeconds);
    server.new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    // A port that another server holds is in use, even for a server of the same user.
    server.set_socket_options([](socket_t socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
    server.set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
        Reply(request, response);
        return httplib::Server::HandlerResponse::Handled;
    });
}

void MarketServer::Wire::Reply(const httplib::Request& request, httplib::Response& response) {
    constexpr int kMethodNotAllowed = 405;
    if (request.method != "GET" && request.method != "HEAD") {
        response.status = kMethodNotAllowed;
        response.set_header("Allow", "GET, HEAD");
        return;
    }
    const auto header = [&](const char* name) { return request.get_header_value(name); };
    const MarketHeaders headers{header("Authorization"), header("APCA-API-KEY-ID"),
                                header("APCA-API-SECRET-KEY"), header("User-Agent")};
    Send(Answer(request.target, data, clock.Today(), alerts, headers), response);
}

void MarketServer::Wire::Send(MarketReply reply, httplib::Response& response) {
    response.status = reply.status;
    response.set_header("Cache-Control", "no-store");
    if (reply.retryAfterSeconds > 0) {
        response.set_header("Retry-After", std::to_string(reply.retryAfterSeconds));
    }
    reply.bytesPerSecond = SlowerOf(reply.bytesPerSecond, bytesPerSecond);
    // The server would compress a body that is set as a whole, which takes far longer than sending it here.
    if (reply.body.empty()) {
        response.set_content(std::string(), reply.contentType.c_str());
        return;
    }
    const std::size_t length = reply.body.size();
    const std::string contentType = reply.contentType;
    response.set_content_provider(
        length, contentType.c_str(),
        [this, reply = std::move(reply)](std::size_t offset, std::size_t, httplib::DataSink& sink) {
            return SendPiece(reply, offset, sink);
        });
}

// False ends the connection.
bool MarketServer::Wire::SendPiece(const MarketReply& reply, std::size_t offset,
                                   httplib::DataSink& sink) const {
    const std::size_t end = std::min(reply.sentBytes, reply.body.size());
    if (offset >= end || stopping) return false;
    std::size_t length = end - offset;
    if (reply.bytesPerSecond > 0) {
        length = std::min(length, SliceBytes(reply.bytesPerSecond));
        WaitForSlice(length, reply.bytesPerSecond);
    }
    return sink.write(reply.body.data() + offset, length);
}

MarketServer::MarketServer(const MarketData& data, const Clock& clock, AlertList& alerts,
                           unsigned bytesPerSecond)
    : wire_(std::make_unique<Wire>(data, clock, alerts, bytesPerSecond)) {
    wire_->SetUp();
}

MarketServer::~MarketServer() {
    Stop();
}

bool MarketServer::Bind(int port) {
    const bool bound = port == 0 ? (wire_->port = wire_->server.bind_to_any_port(kLoopback)) > 0
                                 : wire_->server.bind_to_port(kLoopback, port);
    if (bound && port != 0) wire_->port = port;
    return bound;
}

std::string MarketServer::Address() const {
    return fmt::format("http://{}:{}", kLoopback, wire_->port);
}

void MarketServer::Run() {
    wire_->thread = std::thread([this] { wire_->server.listen_after_bind(); });
    while (!wire_->server.is_running()) std::this_thread::yield();
}

void MarketServer::Stop() {
    wire_->stopping = true;
    wire_->server.stop();
    if (wire_->thread.joinable()) wire_->thread.join();
}

}  // namespace brantlow
