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
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()).markup, kMarkup);
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()).failure, "");
}

TEST(SplitCalendarPage, ThatNeverCompletesIsWhatCameInItsTime) {
    MemoryWeb web;
    web.NeverComplete(kUrl, kMarkup);
    const SplitCalendarPage page = FetchSplitCalendarPage(web, Hosts());
    EXPECT_EQ(page.markup, kMarkup);
    EXPECT_EQ(page.failure, "No reply from https://biz.brantlow.example : no whole reply in time");
}

TEST(SplitCalendarPage, ThatCannotBeFetchedIsEmpty) {
    MemoryWeb web;
    const SplitCalendarPage none = FetchSplitCalendarPage(web, Hosts());
    EXPECT_EQ(none.markup, "");
    EXPECT_EQ(none.failure, "No reply from https://biz.brantlow.example : could not connect");
    WebReply missing = FailedReply(WebFailure::Status, "404");
    missing.status = 404;
    missing.bytes = kMarkup;
    web.Answer(kUrl, missing);
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()).markup, "");
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()).failure,
              "No reply from https://biz.brantlow.example : 404");
    web.Answer(kUrl, MemoryWeb::Page("<html>Sign in</html>", "text/html"));
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()).failure,
              "No data from https://biz.brantlow.example : a web page in place of data");
    web.Answer(kUrl, MemoryWeb::Page(" \n"));
    EXPECT_EQ(FetchSplitCalendarPage(web, Hosts()).failure,
              "No data from https://biz.brantlow.example : an empty reply");
}

}  // namespace
}  // namespace brantlow
