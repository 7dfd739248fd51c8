#include "splits/split_calendar_page.h"

#include <gtest/gtest.h>

#include "acquire/web/memory_web.h"

namespace brantlow {
namespace {

const std::string kUrl = "https://biz.brantlow.example/c/s.html";
const std::string kMarkup = "<td valign=middle>Mar 2</td>";

TEST(SplitCalendarPage, IsTheMarkupOfItsAddress) {
    MemoryWeb web;
    web.Answer(kUrl, MemoryWeb::Page(kMarkup, "text/html"));
    EXPECT_EQ(SplitCalendarUrl(Hosts()), kUrl);
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()), kMarkup);
}

TEST(SplitCalendarPage, ThatNeverCompletesIsWhatCameInItsTime) {
    MemoryWeb web;
    web.NeverComplete(kUrl, kMarkup);
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()), kMarkup);
}

TEST(SplitCalendarPage, ThatCannotBeFetchedIsEmpty) {
    MemoryWeb web;
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()), "");
    WebReply missing = FailedReply(WebFailure::Status, "404");
    missing.status = 404;
    missing.bytes = kMarkup;
    web.Answer(kUrl, missing);
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()), "");
}

}  // namespace
}  // namespace brantlow
