// The promise "path", as far as addresses go.
#include "base/askable_ticker.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

TEST(AskableTicker, WhatMeansSomethingInAnAddressCannotBeAskedFor) {
    for (const char* ticker : {"A&B", "A#B", "A?B", "A%42", "A B", "A,B", "A\nB", "A\tB", "A\x7F", " A"}) {
        EXPECT_FALSE(IsAskableTicker(ticker)) << ticker;
    }
}

TEST(AskableTicker, TheOtherCharactersOfTickersCan) {
    for (const char* ticker :
         {"", "AAPL", "^DJI", "BRK.A", "BRK-B", "ES=F", "BF/B", "ABC+", "PRN.X", "\xC3\x84X", "$A", "A_B"}) {
        EXPECT_TRUE(IsAskableTicker(ticker)) << ticker;
    }
}

TEST(AskableTicker, TheSentenceNamesTheTickerInOneLine) {
    EXPECT_EQ(UnaskableTickerSentence("A&B"),
              "A&B: a ticker with a blank or one of & # ? % , cannot be asked for");
    EXPECT_EQ(UnaskableTickerSentence("A\nB"),
              "A?B: a ticker with a blank or one of & # ? % , cannot be asked for");
}

}  // namespace
}  // namespace brantlow
