#include "acquire/web/giving_up_web.h"

#include <gmock/gmock.h>

#include "acquire/web/fetch_queue.h"
#include "acquire/web/memory_web.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;

const std::string kDead = "http://dead.test/page";
const std::string kLive = "http://live.test/page";

class GivingUpWebTest : public ::testing::Test {
  protected:
    GivingUpWebTest() { inner.Answer(kLive, MemoryWeb::Page("here")); }

    void DeadGives(WebFailure failure, int status = 0) {
        WebReply reply = FailedReply(failure, "no");
        reply.status = status;
        inner.Answer(kDead, reply);
    }
    WebFailure Ask(const std::string& url) { return web.Fetch({.url = url}).failure; }

    MemoryWeb inner;
    GivingUpWeb web{inner};
};

TEST_F(GivingUpWebTest, AfterThreeMissedRepliesInARowTheHostIsAskedNoMore) {
    DeadGives(WebFailure::NoConnection);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Ask(kDead), WebFailure::NoConnection) << i;
    const WebReply reply = web.Fetch({.url = kDead});
    EXPECT_EQ(reply.failure, WebFailure::GivenUp);
    EXPECT_EQ(FailureSentence(kDead, reply),
              "http://dead.test was given up after 3 requests without a reply");
    EXPECT_EQ(inner.Addresses.size(), 3U);
    EXPECT_TRUE(web.IsGivenUp("http://dead.test/another/page"));
}

TEST_F(GivingUpWebTest, OtherHostsAreAskedAllTheSame) {
    DeadGives(WebFailure::Silent);
    for (int i = 0; i < 5; ++i) Ask(kDead);
    EXPECT_EQ(Ask(kLive), WebFailure::None);
    EXPECT_FALSE(web.IsGivenUp(kLive));
}

TEST_F(GivingUpWebTest, AReplyBetweenStartsTheCountAnew) {
    for (int i = 0; i < 4; ++i) {
        DeadGives(WebFailure::TimedOut);
        for (int k = 0; k < 2; ++k) EXPECT_EQ(Ask(kDead), WebFailure::TimedOut);
        inner.Answer(kDead, MemoryWeb::Page("here"));
        EXPECT_EQ(Ask(kDead), WebFailure::None);
    }
}

TEST_F(GivingUpWebTest, WhatCountsAsAMissedReply) {
    struct Row {
        WebFailure failure;
        int status;
        bool isMissed;
    };
    constexpr Row kRows[] = {{WebFailure::NoHost, 0, true},      {WebFailure::NoConnection, 0, true},
                             {WebFailure::Certificate, 0, true}, {WebFailure::Redirected, 302, true},
                             {WebFailure::TooLarge, 200, true},  {WebFailure::TimedOut, 0, true},
                             {WebFailure::Silent, 200, true},    {WebFailure::Broken, 0, true},
                             {WebFailure::Broken, 200, false},   {WebFailure::Status, 404, false},
                             {WebFailure::Status, 500, false},   {WebFailure::Status, 429, true},
                             {WebFailure::Status, 503, true},    {WebFailure::Stopped, 0, false},
                             {WebFailure::Busy, 0, false},       {WebFailure::Offline, 0, false},
                             {WebFailure::BadAddress, 0, false}};
    for (const Row& row : kRows) {
        WebReply reply = FailedReply(row.failure, "no");
        reply.status = row.status;
        EXPECT_EQ(IsMissedReply(reply), row.isMissed) << static_cast<int>(row.failure) << ' ' << row.status;
    }
    EXPECT_FALSE(IsMissedReply(MemoryWeb::Page("")));
}

TEST_F(GivingUpWebTest, RequestsUnderWayToAHostThatIsGivenUpAreForgotten) {
    DeadGives(WebFailure::NoConnection);
    std::size_t asked = 0;
    FetchQueue queue(web, [&]() -> std::optional<WebRequest> {
        if (asked++ == 10) return std::nullopt;
        return WebRequest{.url = kDead};
    });
    std::vector<WebFailure> failures;
    while (const auto fetched = queue.Next()) failures.push_back(fetched->reply.failure);
    ASSERT_EQ(failures.size(), 10U);
    EXPECT_EQ(failures[2], WebFailure::NoConnection);
    for (std::size_t i = 3; i < failures.size(); ++i) EXPECT_EQ(failures[i], WebFailure::GivenUp) << i;
    // Three replies, and what was under way when the third did not come.
    EXPECT_EQ(inner.Addresses.size(), 3U + kRequestsPerHost - 1);
    EXPECT_EQ(inner.Abandoned, kRequestsPerHost - 1);
}

TEST_F(GivingUpWebTest, WhatNobodyTookIsAbandonedAtTheEnd) {
    {
        GivingUpWeb run(inner);
        run.Start({.url = kLive});
        const WebTicket ticket = run.Start({.url = kLive});
        run.Abandon(ticket);
        EXPECT_EQ(run.Finish(ticket).failure, WebFailure::Stopped);
    }
    EXPECT_EQ(inner.Abandoned, 2U);
}

TEST_F(GivingUpWebTest, TheStateOfTheWebLayerIsPassedOn) {
    web.SetConnectedState(kStateDisconnectedByUser, 1);
    EXPECT_FALSE(inner.Online);
}

}  // namespace
}  // namespace brantlow
