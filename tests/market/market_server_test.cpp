// The market on the loopback, fetched from by the program's own client.
#include "market/market_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acquire/web/curl_web.h"
#include "acquire/web/waiting_person.h"
#include "acquire/web/web_test_tools.h"
#include "market_fixture.h"

namespace brantlow {
namespace {

class MarketServerTest : public ::testing::Test {
  protected:
    MarketServerTest() {
        EXPECT_TRUE(server.Bind(0));
        server.Run();
    }
    WebReply Fetch(const std::string& target) { return web.Fetch({.url = server.Address() + target}); }

    FixedClock clock{kSaturday};
    AlertList alerts;
    MarketServer server{ShippedData(), clock, alerts};
    WaitingPerson person;
    SkippedTime time;
    CurlWeb web{person, time.Time()};
};

TEST_F(MarketServerTest, SendsWhatIsAnswered) {
    for (const std::string target : {"/table.txt?s=A&a=0&b=01&c=2020&d=10&e=21&f=2026&g=d&ignore=.txt",
                                     "/de/d/quotes.txt?s=A,T,,,&f=sl1d1&e", "/q/ks?s=A", "/c/s.html",
                                     "/alerts", "/p/B/BRK.B.html", "/", "/mt?u", "/q?s=%5EDJI&d=t"}) {
        const WebReply reply = Fetch(target);
        const MarketReply expected = Ask(target);
        EXPECT_TRUE(reply.ok) << target << ' ' << reply.error;
        EXPECT_EQ(reply.contentType, expected.contentType) << target;
        EXPECT_TRUE(reply.bytes == expected.body) << target;
    }
}

TEST_F(MarketServerTest, ServesManyRequestsOfManyConnections) {
    std::vector<WebTicket> tickets;
    for (int i = 0; i < 200; ++i) {
        tickets.push_back(web.Start({.url = server.Address() + "/d/quotes.txt?s=A,T,BAC&f=sl1"}));
    }
    for (const WebTicket ticket : tickets) EXPECT_EQ(LinesOf(web.Finish(ticket).bytes).size(), 3u);
}

TEST_F(MarketServerTest, NotesAlerts) {
    EXPECT_TRUE(Fetch("/send_stock_alert.asp?EA=me@example.org&TS=T").ok);
    EXPECT_EQ(alerts.All(), (std::vector<StockAlert>{{"me@example.org", "T"}}));
    EXPECT_THAT(Fetch("/alerts").bytes, ::testing::HasSubstr("me@example.org"));
}

TEST_F(MarketServerTest, PlaysFaults) {
    const std::string target = "/d/quotes.txt?s=A,T&f=sl1&fault=";
    EXPECT_EQ(Fetch(target + "status500").status, 500);
    EXPECT_EQ(Fetch(target + "status404").failure, WebFailure::Status);
    EXPECT_EQ(Fetch(target + "status429").status, 429);
    EXPECT_GE(time.seconds, 4);  // four repeats, each after the second that was asked for
    EXPECT_EQ(Fetch(target + "cut").failure, WebFailure::Broken);
    EXPECT_EQ(Fetch(target + "junk").bytes.size(), 4096u);
    EXPECT_TRUE(Fetch(target + "empty").ok);
    EXPECT_EQ(Fetch(target + "empty").bytes, "");
    EXPECT_EQ(Fetch(target + "slow").bytes, "\"A\",71.250\n\"T\",38.070\n");
    EXPECT_EQ(Fetch("/fault=status500/table.txt?s=A").status, 500);
}

TEST_F(MarketServerTest, TakesNoTargetThatIsTooLong) {
    EXPECT_EQ(Fetch('/' + std::string(20'000, 'a')).status, 414);
    EXPECT_TRUE(Fetch("/alerts").ok);
}

TEST_F(MarketServerTest, StopsInTheMidstOfASlowReply) {
    const WebTicket ticket = web.Start({.url = server.Address() + "/table.txt?s=A&fault=slow"});
    const WebTicket other = web.Start({.url = server.Address() + "/alerts"});
    EXPECT_TRUE(web.Finish(other).ok);
    server.Stop();
    EXPECT_EQ(web.Finish(ticket).failure, WebFailure::Broken);
    EXPECT_FALSE(Fetch("/alerts").ok);
}

TEST_F(MarketServerTest, TakesNoPortThatIsInUse) {
    const int port = std::stoi(server.Address().substr(server.Address().rfind(':') + 1));
    MarketServer second(ShippedData(), clock, alerts);
    EXPECT_FALSE(second.Bind(port));
}

TEST_F(MarketServerTest, ServesTheDayOfItsClock) {
    EXPECT_THAT(Fetch("/d/quotes.txt?s=A&f=d1").bytes, "\"11/20/2026\"\n");
}

TEST(MarketServerSpeed, SendsEveryReplyAtTheSpeedThatWasSet) {
    const FixedClock clock{kSaturday};
    AlertList alerts;
    MarketServer server(ShippedData(), clock, alerts, 1'000'000);
    ASSERT_TRUE(server.Bind(0));
    server.Run();
    WaitingPerson person;
    CurlWeb web(person);
    const WebReply reply = web.Fetch({.url = server.Address() + "/table.txt?s=A"});
    EXPECT_TRUE(reply.ok) << reply.error;
    EXPECT_TRUE(reply.bytes == Ask("/table.txt?s=A").body);
}

}  // namespace
}  // namespace brantlow
