#include "acquire/web/web.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(RequestAddress, CutsLineEndsOutAndEncodesWhatNoRequestLineHolds) {
    struct Row {
        std::string_view url;
        const char* address;
    };
    constexpr std::string_view kWithNul("http://h/a\0b", 12);
    const Row kRows[] = {{"http://h/d/quotes.txt?s=A,B,,&f=sl1&e", "http://h/d/quotes.txt?s=A,B,,&f=sl1&e"},
                         {"http://h/x\r\nHost: evil", "http://h/xHost:%20evil"},
                         {"http://h/x\n\n\r", "http://h/x"},
                         {"http://h/a b", "http://h/a%20b"},
                         {"http://h/q?s=^DJI", "http://h/q?s=^DJI"},
                         {"http://h/q?s=A%20B", "http://h/q?s=A%20B"},
                         {"http://h/\xC3\xA4", "http://h/%C3%A4"},
                         {"http://h/a\tb\x7F", "http://h/ab"},
                         {kWithNul, "http://h/ab"},
                         {"", ""}};
    for (const Row& row : kRows) EXPECT_EQ(RequestAddress(row.url), row.address) << row.url;
}

TEST(IsWebAddress, TakesHttpAndHttpsWithAHost) {
    struct Row {
        const char* address;
        bool isWeb;
    };
    constexpr Row kRows[] = {{"http://a", true},      {"https://a/b", true},
                             {"HTTP://A", true},      {"http://", false},
                             {"http:///etc", false},  {"http://?x", false},
                             {"ftp://a", false},      {"file:///etc/x", false},
                             {"a.example/b", false},  {"", false},
                             {"http:/a", false},      {"javascript:x", false},
                             {"http://:80/x", false}, {"https://127.0.0.1:1", true}};
    for (const Row& row : kRows) EXPECT_EQ(IsWebAddress(row.address), row.isWeb) << row.address;
}

TEST(HostOf, IsSchemeHostAndPortInLowerCase) {
    struct Row {
        const char* address;
        const char* host;
    };
    constexpr Row kRows[] = {{"http://Host.Example:8080/D/x", "http://host.example:8080"},
                             {"https://a?x", "https://a"},
                             {"https://a#x", "https://a"},
                             {"http://a", "http://a"}};
    for (const Row& row : kRows) EXPECT_EQ(HostOf(row.address), row.host) << row.address;
}

}  // namespace
}  // namespace brantlow
