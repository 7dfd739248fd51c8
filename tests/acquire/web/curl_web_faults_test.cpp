// CurlWeb against hosts that break off, promise too much, send junk or never end.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "acquire/web/curl_web.h"
#include "acquire/web/downloads.h"
#include "acquire/web/waiting_person.h"
#include "acquire/web/web_test_tools.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

// Between the single bytes of a host that drips.
constexpr auto kDrip = std::chrono::milliseconds(50);

class CurlWebFaultTest : public ::testing::Test {
  protected:
    WebReply Fetch(const std::string& url) { return web.Fetch({.url = url}); }

    WaitingPerson person;
    SkippedTime time;
    CurlWeb web{person, time.Time()};
};

TEST_F(CurlWebFaultTest, TakesAnyStatusButOkAsFailed) {
    for (const int status : {204, 206, 304, 400, 404, 500, 502}) {
        RawServer raw([status](int connection, const std::string&) {
            const bool empty = status == 204 || status == 304;
            RawServer::Send(connection, fmt::format("HTTP/1.1 {} Told\r\nContent-Length: {}\r\n\r\n{}",
                                                    status, empty ? 0 : 4, empty ? "" : "page"));
        });
        const WebReply reply = Fetch(raw.Url());
        EXPECT_FALSE(reply.ok) << status;
        EXPECT_EQ(reply.status, status);
        EXPECT_EQ(reply.failure, WebFailure::Status) << status;
        EXPECT_EQ(reply.bytes, "") << status;
        EXPECT_EQ(reply.error, fmt::format("The host answered with status {}.", status));
    }
}

TEST_F(CurlWebFaultTest, APageThatNeverCompletesIsWaitedForUntilTheRunIsStopped) {
    std::atomic<bool> sent = false;
    RawServer raw(NeverCompletes(sent));
    RunControl run{.ProcessCommand = kRunning};
    constexpr double kDay = 86'400;
    person.OnPump = [&] {
        time.seconds += kDay;
        if (person.Pumps == 5) run.ProcessCommand = kStopRun;
    };
    const WebReply reply = web.Fetch({.url = raw.Url(), .run = &run});
    EXPECT_EQ(reply.failure, WebFailure::Stopped);
    EXPECT_EQ(reply.error, "The run was stopped.");
    EXPECT_EQ(person.Pumps, 5);
}

TEST_F(CurlWebFaultTest, APageThatNeverCompletesGivesWhatItHoldsAfterTenSeconds) {
    std::atomic<bool> sent = false;
    RawServer raw(NeverCompletes(sent));
    int seconds = 0;
    person.OnPump = [&] {
        if (!sent) return;
        time.seconds += 1;
        ++seconds;
    };
    EXPECT_EQ(FetchPageText(web, raw.Url(), kPageSeconds), "so far\r\nand");
    EXPECT_EQ(seconds, 10);
}

TEST_F(CurlWebFaultTest, AWordOtherThanTrueStopsNothing) {
    std::atomic<bool> sent = false;
    RawServer raw(NeverCompletes(sent));
    RunControl run;
    const char* const words[] = {kRunning, kPauseRun, "", kResumeRun, kStopRun};
    std::size_t next = 0;
    person.OnPump = [&] { run.ProcessCommand = words[next++]; };
    EXPECT_EQ(web.Fetch({.url = raw.Url(), .run = &run}).failure, WebFailure::Stopped);
    EXPECT_EQ(next, std::size(words));
}

TEST_F(CurlWebFaultTest, ARequestAbandonedDuringItsWaitEndsIt) {
    std::atomic<bool> sent = false;
    RawServer slow(NeverCompletes(sent));
    const WebTicket ticket = web.Start({.url = slow.Url()});
    person.OnPump = [&] { web.Abandon(ticket); };
    EXPECT_EQ(web.Finish(ticket).failure, WebFailure::Stopped);
    EXPECT_EQ(web.Finish(ticket).failure, WebFailure::Stopped);
    EXPECT_EQ(web.Finish(0).failure, WebFailure::Stopped);
}

TEST_F(CurlWebFaultTest, RefusesAReplyOfAGigabyte) {
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection, Head("Content-Length: 1073741824\r\n") + "first bytes");
        RawServer::HoldOpen(connection);
    });
    const WebReply reply = Fetch(raw.Url());
    EXPECT_EQ(reply.failure, WebFailure::TooLarge);
    EXPECT_EQ(reply.error, "The reply is longer than 67108864 bytes.");
    EXPECT_EQ(reply.bytes, "");
}

TEST_F(CurlWebFaultTest, RefusesAnUnannouncedReplyThatNeverEnds) {
    RawServer raw([](int connection, const std::string&) {
        const std::string chunk(65'536, 'x');
        RawServer::Send(connection, Head("Connection: close\r\n"));
        while (RawServer::Send(connection, chunk)) {
        }
    });
    const WebReply reply = web.Fetch({.url = raw.Url(), .limitBytes = 1'000'000});
    EXPECT_EQ(reply.failure, WebFailure::TooLarge);
    EXPECT_EQ(reply.bytes, "");
}

// A thousand letters "a", compressed.
constexpr std::string_view kPackedLetters(
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\x4b\x4c\x1c\x05\xa3\x60\x14\x0c\x77\x00\x00\x03\xda\x38\x9a\xe8"
    "\x03\x00\x00",
    29);

TEST_F(CurlWebFaultTest, UnpacksACompressedReply) {
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection, Head(fmt::format("Content-Encoding: gzip\r\nContent-Length: {}\r\n",
                                                     kPackedLetters.size())));
        RawServer::Send(connection, kPackedLetters);
    });
    EXPECT_EQ(Fetch(raw.Url()).bytes, std::string(1000, 'a'));
    EXPECT_EQ(web.Fetch({.url = raw.Url(), .limitBytes = 1000}).bytes.size(), 1000U);
    EXPECT_EQ(web.Fetch({.url = raw.Url(), .limitBytes = 999}).failure, WebFailure::TooLarge);
}

TEST_F(CurlWebFaultTest, ABodyCutAnywhereIsAFailedDownload) {
    const std::string body = "Date,Open\n2004-01-02,1.5\n";
    const std::string whole = Head(fmt::format("Content-Length: {}\r\n", body.size())) + body;
    std::atomic<std::size_t> cut = 0;
    RawServer raw([&](int connection, const std::string&) {
        RawServer::Send(connection, std::string_view(whole).substr(0, cut));
    });
    for (cut = 0; cut < whole.size(); ++cut) {
        const WebReply reply = Fetch(raw.Url());
        EXPECT_FALSE(reply.ok) << cut;
        EXPECT_EQ(reply.bytes, "") << cut;
        EXPECT_NE(reply.error, "") << cut;
    }
    EXPECT_EQ(Fetch(raw.Url()).bytes, body);
}

TEST_F(CurlWebFaultTest, AResetInMidReplyIsAFailedDownload) {
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection, Head("Connection: close\r\n") + "half a line");
        RawServer::ResetAtClose(connection);
    });
    const WebReply reply = Fetch(raw.Url());
    EXPECT_FALSE(reply.ok);
    EXPECT_EQ(reply.failure, WebFailure::Broken);
}

TEST_F(CurlWebFaultTest, JunkInPlaceOfAnAnswerIsAFailedDownload) {
    const std::string kJunk[] = {std::string(4096, '\0'), "no head at all\n", "HTTP/1.1 abc\r\n\r\n",
                                 "HTTP/1.1 200 OK\r\nContent-Length: -5\r\n\r\nx",
                                 "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nzz\r\nx"};
    for (const std::string& junk : kJunk) {
        RawServer raw([&](int connection, const std::string&) { RawServer::Send(connection, junk); });
        const WebReply reply = Fetch(raw.Url());
        EXPECT_FALSE(reply.ok) << junk.substr(0, 40);
        EXPECT_EQ(reply.bytes, "");
    }
}

TEST_F(CurlWebFaultTest, ARefusedConnectionIsAFailedDownload) {
    const WebReply reply = Fetch(fmt::format("http://127.0.0.1:{}/", FreePort()));
    EXPECT_EQ(reply.failure, WebFailure::NoConnection);
    EXPECT_EQ(reply.status, 0);
    EXPECT_NE(reply.error, "");
}

TEST_F(CurlWebFaultTest, AFailedDownloadLeavesTheTargetAsItWas) {
    TempFolder folder;
    const Path target = folder / "A.txt";
    ASSERT_FALSE(WriteWholeFile(target, "old"));
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection, Head("Content-Length: 1000\r\n") + "half");
    });
    EXPECT_FALSE(DownloadFile(web, raw.Url(), target));
    EXPECT_EQ(BytesOrEmpty(target), "old");
    EXPECT_EQ(FileNamesIn(folder.Get()), std::vector<std::string>{"A.txt"});
}

// Runs a request to `script` whose time is moved by `step` seconds at each look at the events.
class SilentHostTest : public CurlWebFaultTest {
  protected:
    WebReply FetchWatched(const RawServer::Script& script, double step) {
        RawServer raw(script);
        person.OnPump = [this, step] { time.seconds += step; };
        return web.Fetch({.url = raw.Url(), .silentSeconds = 30});
    }
};

TEST_F(SilentHostTest, AHostThatSaysNothingIsLeftAfterItsSilentSeconds) {
    const WebReply reply =
        FetchWatched([](int connection, const std::string&) { RawServer::HoldOpen(connection); }, 1);
    EXPECT_EQ(reply.failure, WebFailure::Silent);
    EXPECT_EQ(reply.bytes, "");
    EXPECT_NEAR(time.seconds, 30, 2);
}

TEST_F(SilentHostTest, AHostThatDripsIsSilentToo) {
    std::atomic<bool> dripping = true;
    const WebReply reply = FetchWatched(
        [&](int connection, const std::string&) {
            RawServer::Send(connection, Head("Content-Length: 100000\r\n"));
            while (dripping && RawServer::Send(connection, "x")) std::this_thread::sleep_for(kDrip);
        },
        5);
    dripping = false;
    EXPECT_EQ(reply.failure, WebFailure::Silent);
    EXPECT_EQ(reply.bytes, "");
}

TEST_F(SilentHostTest, AHostThatSendsEnoughIsWaitedForInAsManyPiecesAsItLikes) {
    const std::string piece(kFewestBytes, 'x');
    constexpr int kPieces = 4;
    std::atomic<int> sent = 0;
    std::atomic<int> wanted = 1;
    RawServer raw([&](int connection, const std::string&) {
        RawServer::Send(connection, Head("Connection: close\r\n"));
        for (int i = 0; i < kPieces; ++i) {
            while (wanted <= i) std::this_thread::yield();
            RawServer::Send(connection, piece);
            ++sent;
        }
    });
    person.OnPump = [&] {
        // What was sent lies ready and is read before the next look at the time.
        if (sent < wanted || wanted == kPieces) return;
        time.seconds += 20;
        ++wanted;
    };
    const WebReply reply = web.Fetch({.url = raw.Url(), .silentSeconds = 30});
    EXPECT_TRUE(reply.ok) << reply.error;
    EXPECT_EQ(reply.bytes.size(), kPieces * kFewestBytes);
    EXPECT_EQ(time.seconds, 60);
}

TEST_F(CurlWebFaultTest, AHostThatSendsOnAndOnIsLeft) {
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection,
                        "HTTP/1.1 302 Found\r\nLocation: /again\r\nContent-Length: 0\r\nConnection: "
                        "close\r\n\r\n");
    });
    const WebReply reply = Fetch(raw.Url());
    EXPECT_EQ(reply.failure, WebFailure::Redirected);
    EXPECT_LE(raw.Connections(), 12);
    EXPECT_EQ(FailureSentence("http://h.test/x", reply),
              "No reply from http://h.test : it redirects without end, or to where no web is");
}

TEST_F(CurlWebFaultTest, AHostThatSendsToAFileIsLeft) {
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection,
                        "HTTP/1.1 302 Found\r\nLocation: file:///etc/hostname\r\nContent-Length: "
                        "0\r\n\r\n");
    });
    EXPECT_EQ(Fetch(raw.Url()).failure, WebFailure::Redirected);
}

TEST_F(CurlWebFaultTest, ARequestThatIsNotToBeRepeatedIsAskedOnceOfABusyHost) {
    RawServer raw([](int connection, const std::string&) {
        RawServer::Send(connection, "HTTP/1.1 503 Busy\r\nContent-Length: 0\r\n\r\n");
    });
    const WebReply reply = web.Fetch({.url = raw.Url(), .isRepeated = false});
    EXPECT_EQ(reply.status, 503);
    EXPECT_EQ(raw.Connections(), 1);
    EXPECT_EQ(time.seconds, 0);
}

}  // namespace
}  // namespace brantlow
