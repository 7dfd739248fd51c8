#include "acquire/web/curl_web.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <httplib.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

#include "acquire/web/fetch_queue.h"
#include "acquire/web/service_web.h"
#include "acquire/web/waiting_person.h"
#include "acquire/web/web_test_tools.h"

namespace brantlow {
namespace {

// A well-behaved server on the loopback.
class LoopbackServer {
  public:
    LoopbackServer() {
        server.set_tcp_nodelay(true);
        server.set_keep_alive_max_count(1000);
        port_ = server.bind_to_any_port("127.0.0.1");
    }
    ~LoopbackServer() {
        server.stop();
        if (thread_.joinable()) thread_.join();
    }
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    void Run() {
        thread_ = std::thread([this] { server.listen_after_bind(); });
        while (!server.is_running()) std::this_thread::yield();
    }
    std::string Url(const std::string& path) const {
        return fmt::format("http://127.0.0.1:{}{}", port_, path);
    }

    httplib::Server server;

  private:
    int port_ = 0;
    std::thread thread_;
};

class CurlWebTest : public ::testing::Test {
  protected:
    WebReply Fetch(const std::string& url) { return web.Fetch({.url = url}); }

    // Before `web`, so that its connections are closed when the server stops.
    LoopbackServer site;
    WaitingPerson person;
    SkippedTime time;
    CurlWeb web{person, time.Time()};
};

TEST_F(CurlWebTest, FetchesAPageWithFreshHeaders) {
    std::string cacheControl;
    std::string pragma;
    std::string encodings;
    site.server.Get("/d/quotes.txt", [&](const httplib::Request& request, httplib::Response& response) {
        cacheControl = request.get_header_value("Cache-Control");
        pragma = request.get_header_value("Pragma");
        encodings = request.get_header_value("Accept-Encoding");
        response.set_content(request.get_param_value("s"), "text/plain");
    });
    site.Run();
    const WebReply reply = Fetch(site.Url("/d/quotes.txt?s=A,B,,&f=sl1&e"));
    EXPECT_TRUE(reply.ok) << reply.error;
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.bytes, "A,B,,");
    EXPECT_EQ(reply.contentType, "text/plain");
    EXPECT_EQ(reply.failure, WebFailure::None);
    EXPECT_EQ(reply.error, "");
    EXPECT_EQ(cacheControl, "no-cache");
    EXPECT_EQ(pragma, "no-cache");
    EXPECT_NE(encodings.find("gzip"), std::string::npos);
}

TEST_F(CurlWebTest, AServiceIsAskedWithHeadersOfTheRequestAndTheProgramsOwn) {
    std::multimap<std::string, std::string> came;
    site.server.Get("/bars", [&](const httplib::Request& request, httplib::Response& response) {
        for (const auto& [name, value] : request.headers) came.emplace(name, value);
        response.set_content("{}", "application/json");
    });
    site.Run();
    WebServices services(web);
    ServiceRequest request;
    request.url = site.Url("/bars");
    request.headers = {"Authorization: Bearer practice-key", "User-Agent: Somebody else"};
    EXPECT_EQ(services.Ask(request).bytes, "{}");
    const auto value = [&](const char* name) {
        const auto found = came.find(name);
        return found == came.end() ? std::string("none") : found->second;
    };
    EXPECT_EQ(value("Authorization"), "Bearer practice-key");
    EXPECT_EQ(value("User-Agent"), "Somebody else");
    EXPECT_EQ(value("Cache-Control"), "no-cache");
    EXPECT_EQ(came.count("User-Agent"), 1U);
    // The next request has none of them.
    came.clear();
    EXPECT_TRUE(Fetch(site.Url("/bars")).ok);
    EXPECT_EQ(value("Authorization"), "none");
    EXPECT_NE(value("User-Agent").find("Brantlow/"), std::string::npos);
}

TEST_F(CurlWebTest, AServicesRefusalIsAnAnswerAndItsRedirectIsNotFollowed) {
    int asked = 0;
    site.server.Get("/limit", [&](const httplib::Request&, httplib::Response& response) {
        ++asked;
        response.status = 429;
        response.set_header("Retry-After", "90");
        response.set_content("slow down", "text/plain");
    });
    site.server.Get("/moved", [&](const httplib::Request&, httplib::Response& response) {
        response.set_redirect("/limit");
        response.set_content("over there", "text/plain");
    });
    site.Run();
    WebServices services(web);
    ServiceRequest request;
    request.url = site.Url("/limit");
    ServiceReply reply = services.Ask(request);
    EXPECT_EQ(reply.failure, WebFailure::None);
    EXPECT_EQ(reply.status, 429);
    EXPECT_EQ(reply.bytes, "slow down");
    EXPECT_EQ(reply.retryAfterSeconds, 90);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(time.seconds, 0);
    request.url = site.Url("/moved");
    reply = services.Ask(request);
    EXPECT_EQ(reply.status, 302);
    EXPECT_EQ(reply.bytes, "over there");
    EXPECT_EQ(asked, 1);
}

TEST_F(CurlWebTest, AServicesReplyHasItsLimitOfBytesAndItsLimitOfTime) {
    std::atomic<bool> sent = false;
    RawServer slow(NeverCompletes(sent));
    site.server.Get("/long", [&](const httplib::Request&, httplib::Response& response) {
        response.set_content(std::string(5000, 'x'), "text/plain");
    });
    site.Run();
    WebServices services(web);
    ServiceRequest request;
    request.url = site.Url("/long");
    request.limitBytes = 4999;
    const ServiceReply large = services.Ask(request);
    EXPECT_EQ(large.failure, WebFailure::TooLarge);
    EXPECT_EQ(large.status, 0);
    EXPECT_EQ(large.bytes, "");
    request.limitBytes = 5000;
    EXPECT_EQ(services.Ask(request).bytes.size(), 5000U);
    request.url = slow.Url();
    request.limitSeconds = 0;
    const ServiceReply late = services.Ask(request);
    EXPECT_EQ(late.failure, WebFailure::TimedOut);
    EXPECT_EQ(late.error, "no whole answer within 0 seconds");
}

TEST_F(CurlWebTest, FollowsRedirectsToAnEnd) {
    site.server.Get("/old", [](const httplib::Request&, httplib::Response& response) {
        response.set_redirect("/new");
        response.set_content("moved", "text/plain");
    });
    site.server.Get("/new", [](const httplib::Request&, httplib::Response& response) {
        response.set_content("new page", "text/plain");
    });
    site.server.Get("/round", [](const httplib::Request&, httplib::Response& response) {
        response.set_redirect("/round");
    });
    site.Run();
    EXPECT_EQ(Fetch(site.Url("/old")).bytes, "new page");
    const WebReply round = Fetch(site.Url("/round"));
    EXPECT_FALSE(round.ok);
    EXPECT_EQ(round.failure, WebFailure::Redirected);
}

TEST_F(CurlWebTest, NeverLeavesTheWeb) {
    site.server.Get("/file", [](const httplib::Request&, httplib::Response& response) {
        response.set_redirect("file:///etc/hostname");
    });
    site.Run();
    const WebReply redirected = Fetch(site.Url("/file"));
    EXPECT_FALSE(redirected.ok);
    EXPECT_EQ(redirected.bytes, "");
    for (const char* url : {"file:///etc/hostname", "ftp://127.0.0.1/x", "quotes", "", "http://"}) {
        const WebReply reply = Fetch(url);
        EXPECT_EQ(reply.failure, WebFailure::BadAddress) << url;
        EXPECT_EQ(reply.error, std::string("No web address: ") + url);
    }
}

TEST_F(CurlWebTest, CutsLineEndsOutOfAnAddress) {
    bool smuggled = false;
    site.server.Get("/page", [&](const httplib::Request& request, httplib::Response& response) {
        smuggled = request.has_header("X-Smuggled");
        response.set_content(request.get_param_value("s"), "text/plain");
    });
    site.Run();
    const WebReply reply = Fetch(site.Url("/page?s=A\r\nX-Smuggled: 1"));
    EXPECT_TRUE(reply.ok) << reply.error;
    EXPECT_EQ(reply.bytes, "AX-Smuggled: 1");
    EXPECT_FALSE(smuggled);
}

// Answers the first `refusals` requests with `status`, the others with a page.
struct BusyPage {
    int status = 429;
    int refusals = 0;
    const char* retryAfter = nullptr;
    std::atomic<int> asked = 0;

    void Serve(LoopbackServer& site) {
        site.server.Get("/page", [this](const httplib::Request&, httplib::Response& response) {
            response.set_content("page", "text/plain");
            if (asked++ >= refusals) return;
            response.status = status;
            if (retryAfter != nullptr) response.set_header("Retry-After", retryAfter);
        });
        site.Run();
    }
};

TEST_F(CurlWebTest, WaitsForABusyHost) {
    struct Row {
        int status;
        int refusals;
        const char* retryAfter;
        bool ok;
        int asked;
        double waited;
    };
    constexpr Row kRows[] = {
        {429, 1, nullptr, true, 2, 1},   {503, 2, nullptr, true, 3, 1 + 2}, {429, 4, nullptr, true, 5, 15},
        {429, 5, nullptr, false, 5, 15}, {503, 99, nullptr, false, 5, 15},  {429, 1, "7", true, 2, 7},
        {429, 2, "3", true, 3, 6},       {503, 1, "86400", true, 2, 60},    {429, 1, "0", true, 2, 1},
        {429, 1, "soon", true, 2, 1},    {500, 1, "7", false, 1, 0}};
    BusyPage page;
    page.Serve(site);
    for (const Row& row : kRows) {
        SCOPED_TRACE(fmt::format("{} x {} {}", row.status, row.refusals,
                                 row.retryAfter == nullptr ? "-" : row.retryAfter));
        page.status = row.status;
        page.refusals = row.refusals;
        page.retryAfter = row.retryAfter;
        page.asked = 0;
        time.seconds = 0;
        CurlWeb fresh(person, time.Time());
        const WebReply reply = fresh.Fetch({.url = site.Url("/page")});
        EXPECT_EQ(reply.ok, row.ok) << reply.error;
        EXPECT_EQ(reply.bytes, row.ok ? "page" : "");
        EXPECT_EQ(reply.status, row.ok ? 200 : row.status);
        EXPECT_EQ(page.asked, row.asked);
        EXPECT_NEAR(time.seconds, row.waited, 0.2);
    }
}

TEST_F(CurlWebTest, KeepsARequestFromABusyHostUntilItsTimeHasCome) {
    BusyPage page{.refusals = 1, .retryAfter = "5"};
    page.Serve(site);
    std::vector<int> askedAtPump;
    WebTicket second = 0;
    person.OnPump = [&] {
        if (second == 0 && page.asked == 1 && time.seconds > 1)
            second = web.Start({.url = site.Url("/page")});
        if (time.seconds < 5) askedAtPump.push_back(page.asked);
    };
    EXPECT_EQ(Fetch(site.Url("/page")).bytes, "page");
    ASSERT_NE(second, 0U);
    ASSERT_FALSE(askedAtPump.empty());
    EXPECT_EQ(askedAtPump.back(), 1);
    EXPECT_EQ(web.Finish(second).bytes, "page");
    EXPECT_EQ(page.asked, 3);
}

TEST_F(CurlWebTest, EndsTheWaitForABusyHostAtTheLimitAndAtTheStop) {
    BusyPage page{.status = 503, .refusals = 99, .retryAfter = "60"};
    page.Serve(site);
    const WebReply limited = web.Fetch({.url = site.Url("/page"), .limitSeconds = 10});
    EXPECT_EQ(limited.failure, WebFailure::TimedOut);
    EXPECT_EQ(limited.bytes, "");
    EXPECT_NEAR(time.seconds, 10, 0.2);
    RunControl run;
    person.OnPump = [&] { run.ProcessCommand = kStopRun; };
    EXPECT_EQ(web.Fetch({.url = site.Url("/page"), .run = &run}).failure, WebFailure::Stopped);
}

TEST_F(CurlWebTest, AWaitInsideAWaitIsRefused) {
    std::atomic<bool> sent = false;
    RawServer slow(NeverCompletes(sent));
    site.server.Get("/page", [](const httplib::Request&, httplib::Response& response) {
        response.set_content("page", "text/plain");
    });
    site.Run();
    WebReply inner;
    WebTicket ahead = 0;
    RunControl run;
    person.OnPump = [&] {
        if (person.Pumps == 1) {
            inner = Fetch(site.Url("/page"));
            ahead = web.Start({.url = site.Url("/page")});
        }
        if (person.Pumps == 3) run.ProcessCommand = kStopRun;
    };
    EXPECT_EQ(web.Fetch({.url = slow.Url(), .run = &run}).failure, WebFailure::Stopped);
    EXPECT_EQ(inner.failure, WebFailure::Busy);
    EXPECT_EQ(inner.error, "Another request is being waited for.");
    person.OnPump = nullptr;
    EXPECT_EQ(web.Finish(ahead).bytes, "page");
}

TEST_F(CurlWebTest, KeepsItsConnectionOpen) {
    std::set<int> ports;
    site.server.Get("/page", [&](const httplib::Request& request, httplib::Response& response) {
        ports.insert(request.remote_port);
        response.set_content("page", "text/plain");
    });
    site.Run();
    for (int i = 0; i < 50; ++i) ASSERT_TRUE(Fetch(site.Url("/page")).ok) << i;
    EXPECT_EQ(ports.size(), 1U);
}

// Lets four requests in, and each out only when four are in or the others have ended.
struct Turnstile {
    std::mutex mutex;
    std::condition_variable changed;
    int inside = 0;
    int most = 0;
    int left = 0;

    void Pass() {
        std::unique_lock lock(mutex);
        ++inside;
        most = std::max(most, inside);
        changed.notify_all();
        changed.wait_for(lock, std::chrono::seconds(5), [&] { return inside >= 4 || left > 0; });
        --inside;
        ++left;
        changed.notify_all();
    }
};

TEST_F(CurlWebTest, HasFourRequestsUnderWayToOneHostAndGivesThemInOrder) {
    Turnstile turnstile;
    site.server.Get("/page", [&](const httplib::Request& request, httplib::Response& response) {
        turnstile.Pass();
        response.set_content(request.get_param_value("n"), "text/plain");
    });
    site.Run();
    int next = 0;
    FetchQueue queue(
        web,
        [&]() -> std::optional<WebRequest> {
            if (next == 12) return std::nullopt;
            return WebRequest{.url = site.Url("/page?n=" + std::to_string(next++))};
        },
        8);
    for (int i = 0; i < 12; ++i) EXPECT_EQ(queue.Next()->reply.bytes, std::to_string(i));
    EXPECT_EQ(turnstile.most, 4);
}

TEST_F(CurlWebTest, StaysOfflineWhenToldSo) {
    site.server.Get("/page", [](const httplib::Request&, httplib::Response& response) {
        response.set_content("page", "text/plain");
    });
    site.Run();
    web.SetConnectedState(kStateDisconnectedByUser, 1);
    const WebReply offline = Fetch(site.Url("/page"));
    EXPECT_EQ(offline.failure, WebFailure::Offline);
    EXPECT_EQ(offline.error, "The web layer is offline.");
    web.SetConnectedState(2, 0);
    EXPECT_EQ(Fetch(site.Url("/page")).failure, WebFailure::Offline);
    web.SetConnectedState(kStateConnected, 0);
    EXPECT_EQ(Fetch(site.Url("/page")).bytes, "page");
}

TEST_F(CurlWebTest, LetsEventsRunDuringAWait) {
    std::mutex mutex;
    std::condition_variable changed;
    bool pumped = false;
    site.server.Get("/page", [&](const httplib::Request&, httplib::Response& response) {
        std::unique_lock lock(mutex);
        const bool ran = changed.wait_for(lock, std::chrono::seconds(10), [&] { return pumped; });
        response.set_content(ran ? "events ran" : "no events", "text/plain");
    });
    site.Run();
    person.OnPump = [&] {
        const std::lock_guard lock(mutex);
        pumped = true;
        changed.notify_all();
    };
    EXPECT_EQ(Fetch(site.Url("/page")).bytes, "events ran");
}

}  // namespace
}  // namespace brantlow
