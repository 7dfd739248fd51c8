#include "base/text.h"

#include <gtest/gtest.h>

#include <string>

namespace brantlow {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(SplitAt, KeepsEmptyPieces) {
    struct Row {
        std::string_view text;
        char separator;
        Pieces pieces;
    };
    const Row rows[] = {{"a\tb\tc", '\t', {"a", "b", "c"}},
                        {"", ',', {""}},
                        {",", ',', {"", ""}},
                        {",a,,", ',', {"", "a", "", ""}},
                        {"abc", ',', {"abc"}},
                        {std::string_view("a\0b", 3), '\0', {"a", "b"}}};
    for (const Row& row : rows) EXPECT_EQ(SplitAt(row.text, row.separator), row.pieces) << row.text;
}

TEST(Trim, TakesBlanksTabsAndLineEndsFromBothEnds) {
    struct Row {
        std::string_view text, trimmed;
    };
    constexpr Row kRows[] = {{"  a b  ", "a b"}, {"\t\r\n\v\f x\r\n", "x"}, {"", ""}, {" \r\n ", ""},
                             {"x", "x"},         {"\xA0x\xA0", "\xA0x\xA0"}};
    for (const Row& row : kRows) EXPECT_EQ(Trim(row.text), row.trimmed) << row.text;
}

TEST(UpperCase, ChangesAsciiLettersOnly) {
    EXPECT_EQ(UpperCase("brk.b 09_~\xE4\xFF"), "BRK.B 09_~\xE4\xFF");
    EXPECT_EQ(UpperCase("azAZ@[`{"), "AZAZ@[`{");
    EXPECT_EQ(UpperCase(""), "");
}

TEST(EqualIgnoringCase, ComparesLengthAndLetters) {
    struct Row {
        std::string_view a, b;
        bool equal;
    };
    constexpr Row kRows[] = {{"con", "CON", true}, {"", "", true},         {"a", "", false},
                             {"a", "b", false},    {"a", "ab", false},     {"@", "`", false},
                             {"[", "{", false},    {"\xE4", "\xC4", false}};
    for (const Row& row : kRows) EXPECT_EQ(EqualIgnoringCase(row.a, row.b), row.equal) << row.a << row.b;
}

TEST(DisplayUtf8, PassesUtf8AndReadsTheRestAsWindows1252) {
    struct Row {
        std::string_view bytes, shown;
    };
    const Row rows[] = {
        {"", ""},
        {"plain", "plain"},
        {std::string_view("a\0b", 3), std::string_view("a\0b", 3)},
        {"caf\xC3\xA9", "caf\xC3\xA9"},
        {"\xE2\x82\xAC", "\xE2\x82\xAC"},
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
        {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
        {"caf\xE9", "caf\xC3\xA9"},                  // Latin letter
        {"\x80 100", "\xE2\x82\xAC 100"},            // the euro sign of Windows-1252
        {"\x93q\x94", "\xE2\x80\x9Cq\xE2\x80\x9D"},  // its quotes
        {"\x81", "\xC2\x81"},                        // unassigned there
        {"\xFF", "\xC3\xBF"},
        {"\xC3", "\xC3\x83"},                                              // cut sequence
        {"\xC0\x80", "\xC3\x80\xE2\x82\xAC"},                              // overlong NUL
        {"\xE0\x80\xAF", "\xC3\xA0\xE2\x82\xAC\xC2\xAF"},                  // overlong slash
        {"\xED\xA0\x80", "\xC3\xAD\xC2\xA0\xE2\x82\xAC"},                  // surrogate
        {"\xF4\x90\x80\x80", "\xC3\xB4\xC2\x90\xE2\x82\xAC\xE2\x82\xAC"},  // above the last code point
        {"\xF5\x80\x80\x80", "\xC3\xB5\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"},
        {"\xE2\x82", "\xC3\xA2\xE2\x80\x9A"},
    };
    for (const Row& row : rows) EXPECT_EQ(DisplayUtf8(row.bytes), row.shown) << row.bytes.size();
}

TEST(LineReader, AcceptsEveryLineEnd) {
    struct Row {
        std::string_view text;
        Pieces lines;
    };
    const Row rows[] = {{"", {}},
                        {"a", {"a"}},
                        {"a\n", {"a"}},
                        {"a\r\n", {"a"}},
                        {"a\r\nb\nc", {"a", "b", "c"}},
                        {"\n", {""}},
                        {"\r\n\r\n", {"", ""}},
                        {"a\r\r\n", {"a\r"}},
                        {"a\rb\n", {"a\rb"}},
                        {"a\n\nb\n", {"a", "", "b"}},
                        {std::string_view("a\0\nb", 4), {std::string_view("a\0", 2), "b"}}};
    for (const Row& row : rows) {
        Pieces lines;
        LineReader reader(row.text);
        for (std::string_view line; reader.Next(line);) lines.push_back(line);
        EXPECT_EQ(lines, row.lines) << row.text;
    }
}

TEST(LineReader, LeavesTheLineAloneAtTheEnd) {
    LineReader reader("only");
    std::string_view line;
    ASSERT_TRUE(reader.Next(line));
    EXPECT_FALSE(reader.Next(line));
    EXPECT_FALSE(reader.Next(line));
    EXPECT_EQ(line, "only");
}

TEST(LineReader, ALineOfTenMegabytesIsOneLine) {
    const std::string text = std::string(10'000'000, 'x') + "\r\nend";
    LineReader reader(text);
    std::string_view line;
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(line.size(), 10'000'000U);
    ASSERT_TRUE(reader.Next(line));
    EXPECT_EQ(line, "end");
}

}  // namespace
}  // namespace brantlow
