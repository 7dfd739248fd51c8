#include "acquire/web/downloads.h"

#include <gtest/gtest.h>

#include "acquire/web/memory_web.h"
#include "acquire/web/waiting_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

constexpr const char* kUrl = "http://h/table.txt?s=A";

TEST(DownloadFile, ReplacesTheTargetByTheReply) {
    TempFolder folder;
    const Path target = folder / "A.txt";
    ASSERT_FALSE(WriteWholeFile(target, "a longer old text"));
    MemoryWeb web;
    web.Answer(kUrl, MemoryWeb::Page("Date,Open\n2004-01-02,1\n"));
    EXPECT_TRUE(DownloadFile(web, kUrl, target));
    EXPECT_EQ(BytesOrEmpty(target), "Date,Open\n2004-01-02,1\n");
}

TEST(DownloadFile, OfAnEmptyReplyIsAnEmptyFile) {
    TempFolder folder;
    MemoryWeb web;
    web.Answer(kUrl, MemoryWeb::Page(""));
    EXPECT_TRUE(DownloadFile(web, kUrl, folder / "A.txt"));
    EXPECT_EQ(ReadWholeFile(folder / "A.txt").outcome, ReadOutcome::Done);
}

TEST(DownloadFile, FailsWithoutTouchingTheTarget) {
    TempFolder folder;
    const Path target = folder / "A.txt";
    ASSERT_FALSE(WriteWholeFile(target, "old"));
    MemoryWeb web;
    web.NeverComplete("http://h/slow", "half");
    EXPECT_FALSE(DownloadFile(web, "http://h/missing", target));
    EXPECT_FALSE(DownloadFile(web, "http://h/slow", target));
    EXPECT_EQ(BytesOrEmpty(target), "old");
    EXPECT_FALSE(DownloadFile(web, "http://h/missing", folder / "new.txt"));
    EXPECT_EQ(FileNamesIn(folder.Get()), std::vector<std::string>{"A.txt"});
}

TEST(DownloadFile, FailsWhereTheTargetCannotBeWritten) {
    TempFolder folder;
    MemoryWeb web;
    web.Answer(kUrl, MemoryWeb::Page("x"));
    EXPECT_FALSE(DownloadFile(web, kUrl, folder / "no folder/A.txt"));
    EXPECT_FALSE(DownloadFile(web, kUrl, folder.Get()));
}

TEST(FetchPageText, GivesThePagesVisibleText) {
    MemoryWeb web;
    web.Answer("http://h/page", MemoryWeb::Page("<p>a</p><p>b</p>", "text/html"));
    web.Answer("http://h/quotes", MemoryWeb::Page("\"A\",1.5\n"));
    EXPECT_EQ(FetchPageText(web, "http://h/page", std::nullopt), "a\r\nb");
    EXPECT_EQ(FetchPageText(web, "http://h/quotes", std::nullopt), "\"A\",1.5\n");
    EXPECT_EQ(FetchPageText(web, "http://h/missing", std::nullopt), std::nullopt);
}

TEST(FetchPageText, APageThatNeverCompletesGivesWhatItHoldsAtTheLimit) {
    MemoryWeb web;
    web.NeverComplete("http://h/slow", "<p>so far");
    EXPECT_EQ(FetchPageText(web, "http://h/slow", kPageSeconds), "so far");
}

TEST(FetchPageText, APageThatNeverCompletesIsWaitedForUntilTheRunIsStopped) {
    WaitingPerson person;
    MemoryWeb web(&person);
    web.NeverComplete("http://h/slow", "<p>so far");
    RunControl run{.ProcessCommand = kRunning};
    person.OnPump = [&] {
        if (person.Pumps == 100) run.ProcessCommand = kStopRun;
    };
    EXPECT_EQ(FetchPageText(web, {.url = "http://h/slow", .run = &run}), std::nullopt);
    EXPECT_EQ(person.Pumps, 100);
}

TEST(MarkupOfReply, GivesThePageItselfInUtf8) {
    MemoryWeb web;
    web.Answer("http://h/c", MemoryWeb::Page("<middle>2-1</middle>\xE4", "text/html; charset=iso-8859-1"));
    web.NeverComplete("http://h/slow", "<middle>");
    EXPECT_EQ(MarkupOfReply(web.Fetch({.url = "http://h/c"})), "<middle>2-1</middle>\xC3\xA4");
    EXPECT_EQ(MarkupOfReply(web.Fetch({.url = "http://h/slow", .limitSeconds = 10})), "<middle>");
    EXPECT_EQ(MarkupOfReply(web.Fetch({.url = "http://h/missing"})), std::nullopt);
}

TEST(TextOfReply, OfAFailedReplyIsNothing) {
    WebReply late = FailedReply(WebFailure::TimedOut, "late");
    EXPECT_EQ(TextOfReply(late), std::nullopt);
    late.status = 503;
    EXPECT_EQ(TextOfReply(late), std::nullopt);
    late.status = 200;
    EXPECT_EQ(TextOfReply(late), "");
    WebReply broken = FailedReply(WebFailure::Broken, "cut");
    broken.status = 200;
    broken.bytes = "half";
    EXPECT_EQ(TextOfReply(broken), std::nullopt);
}

TEST(WriteTextFile, WritesTheTextWithOneLineEnd) {
    TempFolder folder;
    const Path file = folder / "Temp.txt";
    ScratchFile scratch(file);
    for (const std::string_view line : {"a\r\nb and a longer line", "c", ""}) {
        std::string text(line);
        EXPECT_FALSE(WriteTextFile(scratch, text));
        EXPECT_EQ(text, std::string(line) + "\r\n");
        EXPECT_EQ(BytesOrEmpty(file), text);
    }
    ScratchFile nowhere(folder / "no folder/Temp.txt");
    std::string text = "c";
    EXPECT_TRUE(WriteTextFile(nowhere, text));
}

}  // namespace
}  // namespace brantlow
