#include "acquire/web/fetch_queue.h"

#include <gtest/gtest.h>

#include "acquire/web/memory_web.h"

namespace brantlow {
namespace {

// Requests for "http://h/1" to "http://h/<count>".
FetchQueue::NextRequest Numbered(int count) {
    return [next = 0, count]() mutable -> std::optional<WebRequest> {
        if (next == count) return std::nullopt;
        return WebRequest{.url = "http://h/" + std::to_string(++next)};
    };
}

MemoryWeb::Answerer Echo() {
    return [](const WebRequest& request) { return MemoryWeb::Page("page of " + request.url); };
}

TEST(FetchQueue, GivesRepliesInTheOrderAskedFor) {
    MemoryWeb web;
    web.AnswerWith(Echo());
    FetchQueue queue(web, Numbered(10));
    for (int i = 1; i <= 10; ++i) {
        const auto fetched = queue.Next();
        ASSERT_TRUE(fetched) << i;
        EXPECT_EQ(fetched->request.url, "http://h/" + std::to_string(i));
        EXPECT_EQ(fetched->reply.bytes, "page of http://h/" + std::to_string(i));
    }
    EXPECT_FALSE(queue.Next());
    EXPECT_FALSE(queue.Next());
}

TEST(FetchQueue, KeepsFourRequestsUnderWay) {
    MemoryWeb web;
    web.AnswerWith(Echo());
    FetchQueue queue(web, Numbered(10));
    EXPECT_TRUE(web.Addresses.empty());
    ASSERT_TRUE(queue.Next());
    EXPECT_EQ(web.Addresses.size(), 5U);
    EXPECT_EQ(web.MostStarted, 4U);
}

TEST(FetchQueue, SendsNothingAheadWhenToldOneAtATime) {
    MemoryWeb web;
    web.AnswerWith(Echo());
    FetchQueue queue(web, Numbered(3), 1);
    while (queue.Next()) {
    }
    EXPECT_EQ(web.MostStarted, 1U);
    EXPECT_EQ(web.Addresses.size(), 3U);
}

TEST(FetchQueue, GoesOnAfterAFailedReply) {
    MemoryWeb web;
    web.Answer("http://h/1", MemoryWeb::Page("one"));
    web.Answer("http://h/3", MemoryWeb::Page("three"));
    FetchQueue queue(web, Numbered(3));
    EXPECT_TRUE(queue.Next()->reply.ok);
    EXPECT_EQ(queue.Next()->reply.failure, WebFailure::NoConnection);
    EXPECT_EQ(queue.Next()->reply.bytes, "three");
}

TEST(FetchQueue, AbandonsWhatNobodyTook) {
    MemoryWeb web;
    web.AnswerWith(Echo());
    {
        FetchQueue queue(web, Numbered(10));
        queue.Next();
    }
    EXPECT_EQ(web.Abandoned, 4U);
}

TEST(FetchQueue, OfNoRequestsIsEmpty) {
    MemoryWeb web;
    FetchQueue queue(web, Numbered(0));
    EXPECT_FALSE(queue.Next());
    EXPECT_TRUE(web.Addresses.empty());
}

}  // namespace
}  // namespace brantlow
