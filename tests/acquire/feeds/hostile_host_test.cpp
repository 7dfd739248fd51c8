// The promise "net": populating over the network against hosts that do what no well-behaved host does: every
// history stays, few requests are made, and the report names the host and the reason.
#include <chrono>
#include <thread>

#include "acquire/feeds/history_fixture.h"
#include "acquire/web/curl_web.h"
#include "acquire/web/raw_server.h"
#include "acquire/web/waiting_person.h"
#include "acquire/web/web_test_tools.h"

namespace brantlow {
namespace {

constexpr int kTickers = 30;

class HostileHostTest : public HistoryDownloadFixture {
  protected:
    HostileHostTest() {
        session.CurrentFile = "Mine.ddq";
        session.settings.OwnSettings.Set(1, Value::OfText("Keep"));
        table.AppendLine("Ticker Symbol\tLast Price");
        for (int i = 1; i <= kTickers; ++i) {
            const std::string ticker = "T" + std::to_string(i);
            table.AppendLine(ticker + "\t1");
            Write(ticker + ".25", "old");
        }
        waiting.OnPump = [this] { time.seconds += 1; };
    }
    // Populates from a host that runs `script`; gives the reason that the report has for it.
    std::string ReasonOf(const RawServer::Script& script) {
        time.seconds = 0;
        RawServer host(script);
        const Hosts from = Hosts::Parse("HistoryHost=" + host.Url("") + "\n");
        CurlWeb network(waiting, time.Time());
        const PopulateRun run = PopulateDatabase(session, network, from, table);
        connections = host.Connections();
        EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
        EXPECT_EQ(Files().size(), static_cast<std::size_t>(kTickers));
        EXPECT_EQ(Read("T1.25") + Read("T30.25"), "oldold");
        const std::string line = run.report.Line();
        const std::string head = "No reply from " + host.Url("") + " : ";
        EXPECT_EQ(line.find(head), 0U) << line;
        return line.substr(head.size(), line.find(';') - head.size());
    }
    bool IsGivenUpSoon() const { return connections <= static_cast<int>(kRepliesAwaited + kRequestsPerHost); }

    static constexpr std::size_t kRepliesAwaited = 3;

    QuoteTable table;
    SkippedTime time;
    WaitingPerson waiting;
    int connections = 0;
};

TEST_F(HostileHostTest, ASilentHost) {
    EXPECT_EQ(ReasonOf([](int connection, const std::string&) { RawServer::HoldOpen(connection); }),
              "no whole reply in time");
    EXPECT_TRUE(IsGivenUpSoon()) << connections;
    EXPECT_LE(time.seconds, 200);
}

TEST_F(HostileHostTest, AHostThatDrips) {
    EXPECT_EQ(ReasonOf([](int connection, const std::string&) {
                  RawServer::Send(connection, Head("Connection: close\r\n"));
                  while (RawServer::Send(connection, "x"))
                      std::this_thread::sleep_for(std::chrono::milliseconds(50));
              }),
              "no whole reply in time");
    EXPECT_TRUE(IsGivenUpSoon()) << connections;
    EXPECT_LE(time.seconds, 200);
}

TEST_F(HostileHostTest, AHostThatNeverEnds) {
    const std::string days(65'536, '1');
    EXPECT_EQ(ReasonOf([&](int connection, const std::string&) {
                  RawServer::Send(connection, Head("Connection: close\r\n"));
                  while (RawServer::Send(connection, days)) continue;
              }),
              "the reply is longer than 8388608 bytes");
    EXPECT_TRUE(IsGivenUpSoon()) << connections;
}

TEST_F(HostileHostTest, AHostThatPromisesMoreThanItSends) {
    EXPECT_EQ(ReasonOf([](int connection, const std::string&) {
                  RawServer::Send(connection, Head("Content-Length: 100000\r\n") + kThreeDays);
              }),
              "the reply was cut");
}

TEST_F(HostileHostTest, AHostThatSendsOnAndOn) {
    EXPECT_EQ(ReasonOf([](int connection, const std::string&) {
                  RawServer::Send(connection,
                                  "HTTP/1.1 302 Found\r\nLocation: /again\r\nContent-Length: 0\r\n"
                                  "Connection: close\r\n\r\n");
              }),
              "it redirects without end, or to where no web is");
}

TEST_F(HostileHostTest, AHostThatHangsUpAtOnce) {
    EXPECT_EQ(ReasonOf([](int, const std::string&) {}), "the reply was cut");
    EXPECT_TRUE(IsGivenUpSoon()) << connections;
}

}  // namespace
}  // namespace brantlow
