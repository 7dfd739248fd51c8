#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "market/market_command.h"
#include "market/market_reply.h"
#include "market_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kPlainTarget = "/d/quotes.txt?s=A,T,ZZZ&f=sl1";

MarketReply Faulty(const std::string& fault) {
    return Ask(kPlainTarget + "&fault=" + fault);
}

TEST(Faults, AreAStatusOfAChoice) {
    struct Row {
        std::string fault;
        int status;
        unsigned retryAfter;
    };
    for (const Row& row : {Row{"status404", 404, 0}, Row{"status429", 429, 1}, Row{"status500", 500, 0},
                           Row{"status503", 503, 1}}) {
        EXPECT_EQ(Faulty(row.fault).status, row.status);
        EXPECT_EQ(Faulty(row.fault).retryAfterSeconds, row.retryAfter) << row.fault;
        EXPECT_THAT(Faulty(row.fault).body, StartsWith("The practice market plays "));
    }
}

TEST(Faults, ChangeWhatIsSent) {
    const std::string whole = Ask(kPlainTarget).body;
    EXPECT_EQ(whole, "\"A\",71.250\n\"T\",38.070\n\"ZZZ\",N/A\n");
    EXPECT_EQ(Faulty("empty").body, "");
    EXPECT_EQ(Faulty("empty").status, 200);
    EXPECT_EQ(Faulty("cut").body, whole);
    EXPECT_EQ(Faulty("cut").sentBytes, whole.size() / 2);
    EXPECT_EQ(Faulty("slow").body, whole);
    EXPECT_EQ(Faulty("slow").bytesPerSecond, 200u);
    EXPECT_EQ(Faulty("reversed").body, "\"ZZZ\",N/A\n\"T\",38.070\n\"A\",71.250\n");
    EXPECT_THAT(Faulty("html").body, StartsWith("<!DOCTYPE html>"));
    EXPECT_THAT(Faulty("html").contentType, StartsWith("text/html"));
    const auto flood = LinesOf(Faulty("flood").body);
    ASSERT_EQ(flood.size(), 18000u);
    EXPECT_EQ(flood[0], "\"A\",71.250");
    EXPECT_EQ(flood[17999], "\"ZZZ\",N/A");
}

TEST(Faults, SendJunkThatIsTheSameEachTimeAndHoldsEveryByte) {
    const MarketReply junk = Faulty("junk");
    ASSERT_EQ(junk.body.size(), 4096u);
    EXPECT_EQ(junk.body, Faulty("junk").body);
    EXPECT_NE(junk.body, Ask("/table.txt?s=A&fault=junk").body);
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_NE(junk.body.find(static_cast<char>(byte)), std::string::npos) << byte;
    }
}

TEST(Faults, AreThereForEveryAddress) {
    for (const std::string path :
         {"/table.txt?s=A", "/d/quotes.txt?s=A", "/q/ks?s=A", "/q/ao?s=A", "/q/ae?s=A", "/c/s.html?",
          "/Updates/brantlow/updateme.htm?", "/send_stock_alert.asp?EA=a", "/alerts?", "/mt?u", "/?"}) {
        EXPECT_EQ(Ask(path + "&fault=status500").status, 500) << path;
        EXPECT_EQ(Ask("/fault=status500" + path).status, 500) << path;
        EXPECT_EQ(Ask(path).status, 200) << path;
    }
}

TEST(Faults, ThatNobodyKnowsAreRefused) {
    EXPECT_EQ(Faulty("nonsense").status, 400);
    EXPECT_EQ(Faulty("nonsense").body, "The practice market knows no such fault; --help lists them.\n");
    EXPECT_EQ(Faulty("").status, 200);
}

TEST(Faults, AreAllInTheHelp) {
    for (const std::string fault : {"status404", "status429", "status500", "status503", "empty", "cut",
                                    "slow", "junk", "html", "reversed", "flood"}) {
        EXPECT_THAT(MarketHelp(), HasSubstr("\n  " + fault + ' '));
        EXPECT_NE(FindFault(fault), nullptr);
    }
}

// Whatever comes over the wire is answered, and no file but the price files is ever in play.
TEST(Answer, TakesAnyTarget) {
    const std::string nul("/q?s=A\0B&d=t", 12);
    std::vector<std::string> targets = {"",
                                        "?",
                                        "&",
                                        "%",
                                        "/%",
                                        "//",
                                        "/..",
                                        "/../../../../etc/passwd",
                                        "/%2e%2e/%2e%2e/etc/passwd",
                                        nul,
                                        "/table.txt?s=../../tickers",
                                        "/table.txt?s=%00",
                                        "/d/quotes.txt?s=%00,%0d%0a,%22",
                                        "/\xFF\xFE\x80",
                                        "/d/quotes.txt?s=\xFF\xFE",
                                        "/q/ks?s=%3Cscript%3Ealert(1)%3C/script%3E",
                                        "/<script>alert(1)</script>",
                                        "http://127.0.0.1/table.txt?s=A",
                                        "/fault=",
                                        "/fault=/x",
                                        "/de/fault=",
                                        std::string(1'000'000, '/'),
                                        '/' + std::string(1'000'000, 'a'),
                                        '/' + std::string(1'000'000, '%'),
                                        "/q?" + std::string(1'000'000, '&'),
                                        "/d/quotes.txt?s=A&f=" + std::string(10'000, '9'),
                                        "/q/ks?s=" + std::string(1'000'000, 'Q')};
    for (const std::string& target : targets) {
        const MarketReply reply = Ask(target);
        EXPECT_TRUE(reply.status == 200 || reply.status == 404) << target.substr(0, 50);
        EXPECT_EQ(reply.body.find("<script"), std::string::npos) << target.substr(0, 50);
        EXPECT_EQ(reply.body.find("root:"), std::string::npos) << target.substr(0, 50);
        // A page is titled with the ticker as it was asked for.
        EXPECT_LT(reply.body.size(), target.size() * 2 + 200'000) << target.substr(0, 50);
    }
}

TEST(Answer, TakesEveryByteInEveryPlace) {
    const std::string whole = "/de/table.txt?s=A&a=0&b=01&c=2026&fault=cut";
    int answered = 0;
    for (std::size_t place = 0; place <= whole.size(); ++place) {
        for (int byte = 0; byte < 256; byte += 5) {
            std::string target = whole.substr(0, place);
            target += static_cast<char>(byte);
            const int status = Ask(target).status;
            answered += status == 200 || status == 400 || status == 404 ? 1 : 0;
        }
    }
    EXPECT_EQ(answered, static_cast<int>(whole.size() + 1) * 52);
}

TEST(MarketCommand, ReadsItsOptions) {
    const MarketCommandLine line =
        ReadMarketCommand({"--port", "8080", "--speed", "5000", "--today", "2026-11-21", "--prices", "p",
                           "--hosts", "h", "--with-parent"});
    EXPECT_EQ(line.refusal, "");
    EXPECT_EQ(line.command.port, 8080);
    EXPECT_EQ(line.command.bytesPerSecond, 5000u);
    EXPECT_EQ(line.command.today, kSaturday);
    EXPECT_EQ(line.command.prices, Path("p"));
    EXPECT_EQ(line.command.hosts, Path("h"));
    EXPECT_TRUE(line.command.withParent);
    const MarketCommandLine bare = ReadMarketCommand({});
    EXPECT_EQ(bare.refusal, "");
    EXPECT_EQ(bare.command.port, 0);
    EXPECT_FALSE(bare.command.today || bare.command.prices || bare.command.hosts || bare.command.help);
}

TEST(MarketCommand, RefusesWhatItCannotRead) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--port", "65536"},
                                                      {"--port", "-1"},
                                                      {"--port", "x"},
                                                      {"--port"},
                                                      {"--speed", "-5"},
                                                      {"--today", "2026-02-30"},
                                                      {"--today", "11/21/26"},
                                                      {"--nonsense"},
                                                      {"operand"}}) {
        EXPECT_NE(ReadMarketCommand(arguments).refusal, "") << arguments[0];
    }
}

}  // namespace
}  // namespace brantlow
