#include "store/dropped_tickers.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(DroppedTickers, AreThoseOfAListOrTheFirstOfEachLine) {
    struct Row {
        std::string text;
        std::vector<std::string> tickers;
    };
    const Row rows[] = {
        {"", {}},
        {"AAPL", {"AAPL"}},
        {"aapl", {"AAPL"}},
        {"AAPL\nMSFT\r\n\r\nKO\n", {"AAPL", "MSFT", "KO"}},
        {"AAPL, MSFT;KO\tIBM BRK-B ^GSPC", {"AAPL", "MSFT", "KO", "IBM", "BRK-B", "^GSPC"}},
        {"AAPL MSFT AAPL", {"AAPL", "MSFT"}},
        {"AAPL,Apple Inc.,NASDAQ\nKO,Coca-Cola,NYSE", {"AAPL", "KO"}},
        {"AAPL,123.5,3/6/2026\nMSFT,400,3/6/2026", {"AAPL", "MSFT"}},
        {"\"AAPL\",\"Apple\"\n\"KO\",\"Coke\"", {"AAPL", "KO"}},
        {"Ticker Symbol\tLast Price\nT1\t11.000\n", {"T1"}},
        {"Symbol,Name\naapl,Apple\n", {"AAPL"}},
        {"123\n45.6,7\n- -\n", {}},
        {"AVERYLONGWORDTHATISNOTICKER", {}},
    };
    for (const Row& row : rows) EXPECT_EQ(TickersIn(row.text), row.tickers) << row.text;
}

}  // namespace
}  // namespace brantlow
