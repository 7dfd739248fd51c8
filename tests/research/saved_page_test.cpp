#include "research/saved_page.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace brantlow {
namespace {

TEST(PageFileName, IsTheTitleWithoutWhatNoNameCanHold) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"Practice market", "Practice market"},
        {"News: IBM / Q3 \"up\" 5%?", "News IBM Q3 up 5%"},
        {"a\\b|c<d>e*f", "a b c d e f"},
        {"two\nlines\tand\x01\x7f more", "two lines and more"},
        {"  around  ", "around"},
        {"Jan.htm", "Jan.htm"},
        {"../../etc/passwd", "etc passwd"},
        {".hidden", "hidden"},
        {"", "Page"},
        {".", "Page"},
        {"..", "Page"},
        {". . .", "Page"},
        {"///", "Page"},
        {"\xc3\x9c"
         "bersicht",
         "\xc3\x9c"
         "bersicht"},
    };
    for (const auto& [title, name] : rows) EXPECT_EQ(PageFileName(title), name) << title;
    EXPECT_EQ(PageFileName(std::string_view("a\0b", 3)), "a b");
}

TEST(PageFileName, IsCutBetweenCharacters) {
    EXPECT_EQ(PageFileName(std::string(300, 'x')), std::string(200, 'x'));
    // 199 bytes and characters of two bytes: the one across the border goes whole.
    std::string title(199, 'x');
    for (int i = 0; i < 20; ++i) title += "\xc3\xa4";
    EXPECT_EQ(PageFileName(title), std::string(199, 'x'));
    EXPECT_EQ(PageFileName(std::string(198, 'x') + "\xc3\xa4\xc3\xa4"), std::string(198, 'x') + "\xc3\xa4");
}

TEST(WithPageEnding, AddsTheEndingToANameWithoutIt) {
    const std::pair<std::string, std::string> rows[] = {
        {"Page", "Page.htm"},         {"Page.htm", "Page.htm"},       {"Page.HTM", "Page.HTM"},
        {"Page.Htm", "Page.Htm"},     {"Page.html", "Page.html.htm"}, {"htm", "htm.htm"},
        {"/a.htm/b", "/a.htm/b.htm"},
    };
    for (const auto& [name, file] : rows) EXPECT_EQ(WithPageEnding(name), file) << name;
}

}  // namespace
}  // namespace brantlow
