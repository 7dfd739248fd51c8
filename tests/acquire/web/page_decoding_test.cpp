#include "acquire/web/page_decoding.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

using namespace std::string_literals;

TEST(CharsetOf, ReadsTheParameter) {
    struct Row {
        const char* contentType;
        const char* charset;
    };
    constexpr Row kRows[] = {{"text/html; charset=utf-8", "utf-8"},
                             {"text/html;charset=\"ISO-8859-1\"; x=y", "ISO-8859-1"},
                             {"text/html; CharSet = gb2312 ", "gb2312"},
                             {"text/html; charset", ""},
                             {"text/html; charset=", ""},
                             {"text/html; mycharset; charset=big5", "big5"},
                             {"text/html", ""},
                             {"", ""}};
    for (const Row& row : kRows) EXPECT_EQ(CharsetOf(row.contentType), row.charset) << row.contentType;
}

TEST(DecodePage, FindsTheEncoding) {
    struct Row {
        const char* why;
        std::string bytes;
        const char* contentType;
        std::string text;
    };
    const std::string umlaut = "\xC3\xA4";
    const Row kRows[] = {
        {"header, Latin 1", "\xE4", "text/html; charset=iso-8859-1", umlaut},
        {"header, Latin 1 means Windows-1252", "\x80", "text/html; charset=ISO-8859-1", "\xE2\x82\xAC"},
        {"header, Latin 1 over valid UTF-8", umlaut, "text/html; charset=latin1", "\xC3\x83\xC2\xA4"},
        {"header, UTF-8", umlaut, "text/html; charset=utf-8", umlaut},
        {"header, UTF-8 with a byte that is none", "a\xE4z", "text/html; charset=utf-8", "a\xEF\xBF\xBDz"},
        {"header, Chinese", "\xC4\xE3", "text/html; charset=gb2312", "\xE4\xBD\xA0"},
        {"header, Korean", "\xB0\xA1", "text/html; charset=euc-kr", "\xEA\xB0\x80"},
        {"header, Japanese", "\x83\x41", "text/html; charset=Shift_JIS", "\xE3\x82\xA2"},
        {"header wins over meta", "<meta charset=utf-8>\xE4", "text/html; charset=windows-1252",
         "<meta charset=utf-8>" + umlaut},
        {"meta charset", "<meta charset=\"windows-1252\">\xE4", "text/html",
         "<meta charset=\"windows-1252\">" + umlaut},
        {"meta http-equiv", "<META http-equiv=Content-Type content=\"text/html; charset=iso-8859-1\">\xE4",
         "text/html", "<META http-equiv=Content-Type content=\"text/html; charset=iso-8859-1\">" + umlaut},
        {"meta that cannot be true", "<meta charset=utf-16>" + umlaut, "", "<meta charset=utf-16>" + umlaut},
        {"meta too far down", std::string(1024, ' ') + "<meta charset=latin1>" + umlaut, "",
         std::string(1024, ' ') + "<meta charset=latin1>" + umlaut},
        {"unknown name", umlaut, "text/html; charset=nosuch", umlaut},
        {"a converter's options do not pass", "a\xE4z", "text/html; charset=utf-8//IGNORE", "a\xEF\xBF\xBDz"},
        {"nothing said, valid UTF-8", umlaut, "", umlaut},
        {"nothing said, no UTF-8", "\xE4", "", umlaut},
        {"mark of UTF-8", "\xEF\xBB\xBF" + umlaut, "text/html; charset=latin1", umlaut},
        {"mark of UTF-16, low byte first", "\xFF\xFE\xE4\x00"s, "", umlaut},
        {"mark of UTF-16, high byte first", "\xFE\xFF\x00\xE4"s, "", umlaut},
        {"UTF-16 cut in mid-letter", "\xFF\xFE\xE4\x00\x41"s, "", umlaut + "\xEF\xBF\xBD"},
        {"nothing", "", "text/html; charset=utf-8", ""},
    };
    for (const Row& row : kRows) EXPECT_EQ(DecodePage(row.bytes, row.contentType), row.text) << row.why;
}

TEST(DecodePage, TakesLongPages) {
    std::string bytes;
    std::string text;
    for (int i = 0; i < 10'000; ++i) {
        bytes += "abc\xE4";
        text += "abc\xC3\xA4";
    }
    EXPECT_EQ(DecodePage(bytes, "text/html; charset=iso-8859-1"), text);
}

}  // namespace
}  // namespace brantlow
