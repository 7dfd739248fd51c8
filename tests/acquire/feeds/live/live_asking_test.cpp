// The time that a run over a live source still takes, told while it asks.
#include "acquire/feeds/live/live_asking.h"

#include <gmock/gmock.h>

#include "source_fixture.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LiveAsking : public SourceTest {
  protected:
    void Ask(std::string_view source, const std::vector<std::string>& tickers, std::string_view word) {
        Reply(R"({"status":"OK","results":[]})");
        SourceClient client(world, Source(source));
        std::vector<std::string> answered;
        AskTickers(client, world,
                   {.capability = Capability::History,
                    .from = DayOf(2026, 11, 2),
                    .to = DayOf(2026, 11, 20),
                    .statusWord = word},
                   tickers,
                   [&](const std::string& ticker, const TickerAnswer&) { answered.push_back(ticker); });
        EXPECT_EQ(answered, tickers);
    }
};

TEST(LeftText, IsInWholeMinutesRoundedUp) {
    struct Row {
        double seconds;
        const char* text;
    };
    constexpr Row kRows[] = {{0, "1 min left"},        {1, "1 min left"},          {60, "1 min left"},
                             {60.5, "2 min left"},     {720, "12 min left"},       {3540, "59 min left"},
                             {3541, "1 h 0 min left"}, {3600, "1 h 0 min left"},   {6000, "1 h 40 min left"},
                             {7199, "2 h 0 min left"}, {86'400, "24 h 0 min left"}};
    for (const Row& row : kRows) EXPECT_EQ(LeftText(row.seconds), row.text) << row.seconds;
}

// Five requests a minute: twelve seconds each.
TEST_F(LiveAsking, TheTimeLeftIsToldFromAMinuteOnAndShrinksWithTheRequests) {
    Ask("massive", {"A", "B", "C", "D", "E", "F", "G"}, "Populating");
    EXPECT_THAT(person.statusWords,
                ElementsAre("Populating, 2 min left", "Populating, 2 min left", "Populating, 1 min left"));
}

TEST_F(LiveAsking, AShortRunAndOneWithoutAWordTellNoTime) {
    Ask("massive", {"A", "B", "C", "D"}, "Populating");
    Ask("massive", {"A", "B", "C", "D", "E", "F"}, "");
    EXPECT_THAT(person.statusWords, IsEmpty());
}

TEST_F(LiveAsking, ALimitOfThePersonsOwnCountsInPlaceOfTheSources) {
    hosts = SourceHosts::Parse("Limit.massive=1/600\n");
    Ask("massive", {"A", "B"}, "Updating");
    EXPECT_THAT(person.statusWords, ElementsAre("Updating, 20 min left", "Updating, 10 min left"));
}

}  // namespace
}  // namespace brantlow
