#include "alerts/stock_alert.h"

#include "acquire/web/memory_web.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

constexpr const char* kVendor = "https://vendor.test";

class StockAlertTest : public SessionTest {
  protected:
    StockAlertTest() {
        Set(session.settings.DataSettings, 14, "E-mail Alerts");
        Set(session.settings.DataSettings, 15, "me@home.test");
        web.AnswerWith([](const WebRequest&) { return MemoryWeb::Page("sent"); });
    }
    void Send(std::string_view ticker) {
        SendStockAlert(web, hosts, session.settings, ticker, alerted, &session.run);
    }

    Hosts hosts = Hosts::Parse(std::string("VendorHost=") + kVendor);
    MemoryWeb web;
    AlertedTickers alerted;
};

TEST_F(StockAlertTest, AsksTheVendorsSite) {
    Send("AAA");
    EXPECT_EQ(web.Addresses,
              std::vector<std::string>{"https://vendor.test/send_stock_alert.asp?EA=me@home.test&TS=AAA"});
}

TEST_F(StockAlertTest, OnceATickerInARun) {
    for (const char* ticker : {"AAA", "AAA", "BBB", "AAA", "BBB"}) Send(ticker);
    EXPECT_EQ(web.Addresses.size(), 2U);
}

TEST_F(StockAlertTest, AFailedRequestIsNotRepeated) {
    web.AnswerWith([](const WebRequest&) { return FailedReply(WebFailure::NoConnection, "refused"); });
    Send("AAA");
    Send("AAA");
    EXPECT_EQ(web.Addresses.size(), 1U);
}

TEST_F(StockAlertTest, IsWaitedForTenSecondsAtMost) {
    std::optional<double> limit;
    web.AnswerWith([&](const WebRequest& request) {
        limit = request.limitSeconds;
        return MemoryWeb::Page("sent");
    });
    Send("AAA");
    EXPECT_EQ(limit, std::optional(10.0));
}

TEST_F(StockAlertTest, NothingIsAskedWhileAlertsAreOff) {
    for (const char* word : {"None", "", "e-mail alerts"}) {
        Set(session.settings.DataSettings, 14, word);
        Send("AAA");
        EXPECT_TRUE(web.Addresses.empty()) << word;
    }
    Set(session.settings.DataSettings, 14, "E-mail Alerts");
    Send("AAA");
    EXPECT_EQ(web.Addresses.size(), 1U);
}

TEST_F(StockAlertTest, AnEmptyAddressStillMakesARequest) {
    Set(session.settings.DataSettings, 15, "");
    Send("AAA");
    EXPECT_EQ(web.Addresses, std::vector<std::string>{"https://vendor.test/send_stock_alert.asp?EA=&TS=AAA"});
}

TEST_F(StockAlertTest, LineEndsAreCutOutAndNothingElseIsEncoded) {
    EXPECT_EQ(StockAlertUrl(hosts, "me@home.test\r\nX-Evil: 1", "A&B\n"),
              "https://vendor.test/send_stock_alert.asp?EA=me@home.testX-Evil: 1&TS=A&B");
}

TEST_F(StockAlertTest, AtMostEighteenThousandTickersAreHeld) {
    for (std::size_t i = 1; i <= kMostRows + 5; ++i) Send("T" + std::to_string(i));
    EXPECT_EQ(web.Addresses.size(), kMostRows);
    EXPECT_EQ(alerted.tickers.size(), kMostRows);
}

TEST_F(StockAlertTest, ASiteThatNeverEndsDoesNotHoldTheUpdate) {
    web.NeverComplete(StockAlertUrl(hosts, "me@home.test", "AAA"), "");
    Send("AAA");
    EXPECT_EQ(web.Addresses.size(), 1U);
}

TEST_F(StockAlertTest, ABusyHostIsAskedOnceAndWaitedForForTenSecondsAtMost) {
    web.AnswerWith([](const WebRequest& request) {
        EXPECT_FALSE(request.isRepeated);
        EXPECT_EQ(request.limitSeconds, 10);
        return FailedReply(WebFailure::Status, "busy");
    });
    Send("AAA");
    EXPECT_EQ(web.Addresses.size(), 1U);
}

TEST_F(StockAlertTest, ATickerThatCannotStandInAnAddressIsLeftOut) {
    for (const char* ticker : {"A&B", "A#B", "A?B", "A%42", "A B"}) {
        const AlertOutcome outcome =
            SendStockAlert(web, hosts, session.settings, ticker, alerted, &session.run);
        EXPECT_EQ(outcome, AlertOutcome::LeftOut) << ticker;
    }
    EXPECT_TRUE(web.Addresses.empty());
}

}  // namespace
}  // namespace brantlow
