#include "acquire/web/page_text.h"
#include "support/repeated.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

struct Row {
    const char* html;
    const char* text;
};

TEST(VisibleText, CellsOfARowRunTogetherAndRowsEndALine) {
    constexpr Row kRows[] = {
        {"<table><tr><td>1.23</td><td>1.45</td></tr></table>", "1.231.45"},
        {"<table><tr><th>Earnings Est</th><th>Current Qtr</th></tr><tr><td>Avg. "
         "Estimate</td><td>0.50</td></tr>"
         "</table>",
         "Earnings EstCurrent Qtr\r\nAvg. Estimate0.50"},
        {"<table>\n <tr>\n  <td> a </td>\n  <td>\n b\n</td>\n </tr>\n <tr>\n  <td>c</td>\n </tr>\n</table>",
         "ab\r\nc"},
        {"<table><tr><td>Market Cap (intraday):</td><td><b>1.50B</b></td></tr></table>",
         "Market Cap (intraday):1.50B"},
        {"<table><tr><td>Beta:</td><td><div>1.05</div></td><td><p>x</p></td></tr></table>", "Beta:1.05x"},
        {"<table><tr><td>Earnings Est<td>Current Qtr<br>Mar-07<td>Next "
         "Qtr<br>Jun-07<tr><td>Avg.<td>1</table>",
         "Earnings EstCurrent Qtr\r\nMar-07Next Qtr\r\nJun-07\r\nAvg.1"},
        {"<table><tr><td><table><tr><td>a</td><td>b</td></tr></table></td><td>c</td></tr></table>",
         "ab\r\nc"},
        {"<table><thead><tr><th>h</th></tr></thead><tbody><tr><td>b</td></tr></tbody></table>", "h\r\nb"},
        {"<table><tr></tr><tr><td></td></tr><tr><td>a</td></tr></table>", "a"},
        {"x<table><caption>c</caption><tr><td>a</td></tr></table>y", "x\r\nc\r\na\r\ny"},
    };
    for (const Row& row : kRows) EXPECT_EQ(VisibleText(row.html), row.text) << row.html;
}

TEST(VisibleText, BlocksBreakLines) {
    constexpr Row kRows[] = {
        {"a<br>b", "a\r\nb"},
        {"a<br><br>b", "a\r\n\r\nb"},
        {"<div>a</div><br>b", "a\r\n\r\nb"},
        {"<div>a<br></div><div>b</div>", "a\r\nb"},
        {"<p>a</p><p>b</p>", "a\r\nb"},
        {"<p>a<p>b", "a\r\nb"},
        {"<div>a</div>b<div>c</div>", "a\r\nb\r\nc"},
        {"<div><div><div>a</div></div></div><div></div><div>b</div>", "a\r\nb"},
        {"<h1>a</h1>b<h6>c</h6>", "a\r\nb\r\nc"},
        {"<ul><li>a<li>b</ul>c", "a\r\nb\r\nc"},
        {"<dl><dt>a<dd>b</dl>", "a\r\nb"},
        {"a<hr>b", "a\r\nb"},
        {"<span>a</span><b>b</b><i>c</i>", "abc"},
        {"a <b> b </b> c", "a b c"},
        {"<div>a</div><table><tr><td>b</td></tr></table><div>c</div>", "a\r\nb\r\nc"},
        {"<select><option>a<option>b</select>", "a\r\nb"},
        {"<body>a</body>", "a"},
        {"", ""},
        {"   \n\t ", ""},
    };
    for (const Row& row : kRows) EXPECT_EQ(VisibleText(row.html), row.text) << row.html;
}

TEST(VisibleText, WhiteSpaceCollapsesExceptInPre) {
    constexpr Row kRows[] = {
        {"<p>  a \n\t b  </p>", "a b"},
        {"a <br> b", "a\r\nb"},
        {"<pre>a  b\n\n c</pre>d", "a  b\r\n\r\n c\r\nd"},
        {"<pre>\na\n</pre>b", "a\r\nb"},
        {"<pre>a<b>  b</b>\r\nc</pre>", "a  b\r\nc"},
        {"x<pre>y</pre>", "x\r\ny"},
        {"a&nbsp;&nbsp;b", "a  b"},
        {"a &nbsp;b", "a  b"},
        {"<table><tr><td>a&nbsp;</td><td>b</td></tr></table>", "a b"},
        {"<pre>a&nbsp;b</pre>", "a b"},
    };
    for (const Row& row : kRows) EXPECT_EQ(VisibleText(row.html), row.text) << row.html;
}

TEST(VisibleText, WhatIsNotSeenGivesNoText) {
    constexpr Row kRows[] = {
        {"<head><title>t</title><style>p{}</style><script>s</script></head><body>a</body>", "a"},
        {"a<script>document.write('<p>b</p>')</script>c", "ac"},
        {"a<style>b</style>c", "ac"},
        {"a<!-- b -->c", "ac"},
        {"a<noscript>b</noscript>c", "ac"},
        {"a<template>b</template>c", "ac"},
        {"a<iframe>b</iframe>c", "ac"},
        {"a<textarea>b</textarea>c", "ac"},
        {"a<p hidden>b</p>c", "ac"},
        {"a<input type=hidden value=b>c", "ac"},
        {"<!DOCTYPE html><html><body>a</body></html>", "a"},
    };
    for (const Row& row : kRows) EXPECT_EQ(VisibleText(row.html), row.text) << row.html;
}

TEST(VisibleText, DecodesEntities) {
    constexpr Row kRows[] = {
        {"AT&amp;T", "AT&T"},         {"&lt;b&gt;", "<b>"},       {"&quot;A&quot;,1.5", "\"A\",1.5"},
        {"&#65;&#x42;", "AB"},        {"&euro;", "\xE2\x82\xAC"}, {"a & b", "a & b"},
        {"?s=A&f=sl1", "?s=A&f=sl1"}, {"&nosuch;", "&nosuch;"},
    };
    for (const Row& row : kRows) EXPECT_EQ(VisibleText(row.html), row.text) << row.html;
}

TEST(VisibleText, BrokenMarkupStillGivesItsText) {
    constexpr Row kRows[] = {
        {"<b>a<i>b</b>c</i>d", "abcd"},
        {"</div></table>a</p>b", "a\r\nb"},
        {"<p>a<div>b</p>c", "a\r\nb\r\nc"},
        {"a<", "a<"},
        {"a<b", "a"},
        {"<table>a<tr><td>b", "a\r\nb"},
        {"<td>a</td><td>b</td>", "ab"},
        {"<<<>>>", "<<<>>>"},
        {"a<!--", "a"},
    };
    for (const Row& row : kRows) EXPECT_EQ(VisibleText(row.html), row.text) << row.html;
}

TEST(VisibleText, DeepNestingCostsNoStack) {
    // Spans nest without the look through all open elements that a block's start costs.
    EXPECT_EQ(VisibleText(Repeated("<span>", 100'000) + "deep"), "deep");
    EXPECT_EQ(VisibleText(Repeated("<div>", 3'000) + "deep" + Repeated("</div>", 3'000) + "after"),
              "deep\r\nafter");
}

TEST(VisibleText, APageOverALimitHasNoText) {
    const std::string page = "<p>a" + Repeated("<div>", 20'000) + "</p>";
    EXPECT_EQ(VisibleText(page, {.seconds = 0}), "");
    EXPECT_EQ(VisibleText(page, {.memoryBytes = 100'000}), "");
    EXPECT_EQ(VisibleText("<p>abc</p>", {.inputBytes = 4}), "a");
}

TEST(VisibleText, SurvivesPagesMadeToExhaustIt) {
    const PageLimits limits{.memoryBytes = 64'000'000, .seconds = 0.2};
    std::string manyAttributes = "<p";
    for (int i = 0; i < 200'000; ++i) manyAttributes += " a" + std::to_string(i);
    std::string manyFormats;
    for (int i = 0; i < 5'000; ++i) manyFormats += "<b id=" + std::to_string(i) + ">";
    const std::string kPages[] = {Repeated("<div>", 500'000),
                                  Repeated("<table><tr><td>", 100'000),
                                  manyAttributes + ">x",
                                  manyFormats + Repeated("<p>x", 50'000),
                                  Repeated("<div><table></div></table>", 100'000),
                                  Repeated("&#0;", 100'000)};
    for (const std::string& page : kPages) {
        const std::string text = VisibleText(page, limits);
        EXPECT_LE(text.size(), page.size() * 3) << page.substr(0, 30);
    }
}

TEST(VisibleText, TakesAnyBytes) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    const std::string text = VisibleText("<p>begin</p>" + Repeated(bytes, 50) + "<p>end");
    EXPECT_EQ(text.substr(0, 7), "begin\r\n");
}

TEST(PageText, OnlyHtmlIsReadAsAPage) {
    struct Case {
        const char* contentType;
        const char* bytes;
        const char* text;
    };
    constexpr Case kCases[] = {
        {"text/plain", "\"A\",1.5\n\"B\",2\n", "\"A\",1.5\n\"B\",2\n"},
        {"text/plain", "a <b>b</b>\r\n  c", "a <b>b</b>\r\n  c"},
        {"text/plain; charset=iso-8859-1", "\xE4\n", "\xE4\n"},
        {"text/csv", "a\nb", "a\nb"},
        {"application/octet-stream", "a\nb", "a\nb"},
        {"text/html", "<p>a</p>\n<p>b</p>", "a\r\nb"},
        {"TEXT/HTML; charset=utf-8", "<p>a</p>", "a"},
        {"application/xhtml+xml", "<p>a</p>", "a"},
        {"text/html", "\"A\",1.5\n\"B\",2\n", "\"A\",1.5\n\"B\",2\n"},
        {"", "  <p>a</p>", "a"},
        {"", "a\n<b>", "a\n<b>"},
        {"", "", ""},
        {"text/html", "", ""},
        {"text/html; charset=iso-8859-1", "<p>\xE4</p>", "\xC3\xA4"},
    };
    for (const Case& one : kCases) {
        EXPECT_EQ(PageText(one.bytes, one.contentType), one.text) << one.contentType << ' ' << one.bytes;
    }
}

}  // namespace
}  // namespace brantlow
