// The trial of a source, how it stands with it, its terms, and definitions copied to be edited.
#include "acquire/feeds/live/source_check.h"

#include <gmock/gmock.h>

#include "acquire/feeds/chosen_history.h"
#include "acquire/feeds/live/source_choices.h"
#include "acquire/feeds/live/source_consent.h"
#include "acquire/feeds/live/source_copy.h"
#include "acquire/feeds/live/source_fixture.h"
#include "acquire/feeds/live/source_standing.h"
#include "acquire/web/memory_web.h"
#include "daily/live_setup.h"

namespace brantlow {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SourceCheck : public SourceTest {
  protected:
    SourceChecked Check(std::string_view source, Capability capability) {
        SourceClient client(world, Source(source));
        return CheckCapability(world, client, capability, "KO");
    }

    // Eight days of one ticker, from Monday the 9th on.
    static std::string EightDays() {
        std::string rows;
        const std::chrono::sys_days monday = DayOf(2026, 11, 9);
        for (const int day : {0, 1, 2, 3, 4, 7, 8, 9}) {
            const auto moment = EpochOf(NewYorkZone(), monday + std::chrono::days{day}, 0);
            if (!rows.empty()) rows += ',';
            rows += R"({"v":1500,"o":10,"c":)" + std::to_string(11 + day) + R"(,"h":30,"l":9.5,"t":)" +
                    std::to_string(moment) + "000}";
        }
        return R"({"status":"OK","results":[)" + rows + "]}";
    }
};

TEST_F(SourceCheck, TellsTheFirstAndTheLastThreeRows) {
    Reply(EightDays());
    const SourceChecked checked = Check("massive", Capability::History);
    EXPECT_FALSE(checked.IsFailure());
    EXPECT_EQ(checked.words, "8 rows, 2026-11-09 to 2026-11-18");
    EXPECT_THAT(checked.rows,
                ElementsAre("2026-11-09 10 30 9.5 11 1500", "2026-11-10 10 30 9.5 12 1500",
                            "2026-11-11 10 30 9.5 13 1500", "...", "2026-11-16 10 30 9.5 18 1500",
                            "2026-11-17 10 30 9.5 19 1500", "2026-11-18 10 30 9.5 20 1500"));
    EXPECT_EQ(CheckedText(checked).substr(0, 72),
              "history: 8 rows, 2026-11-09 to 2026-11-18\n    2026-11-09 10 30 9.5 11 15");
}

TEST_F(SourceCheck, TellsAFailureInTheServersWordsWithTheReplysBegin) {
    Reply(401, R"({"status":"ERROR","request_id":"x","error":"Unknown API Key practice-key"})");
    const SourceChecked checked = Check("massive", Capability::History);
    EXPECT_TRUE(checked.IsFailure());
    EXPECT_THAT(checked.words, HasSubstr("bad key: Unknown API Key ***"));
    const std::string text = CheckedText(checked);
    EXPECT_THAT(text, HasSubstr("asked: https://api.massive.com/v2/aggs/ticker/KO/range/1/day/"));
    EXPECT_THAT(text, HasSubstr(R"(reply: {"status":"ERROR")"));
    EXPECT_EQ(text.find("practice-key"), std::string::npos);
    EXPECT_THAT(checked.rows, IsEmpty());
}

TEST_F(SourceCheck, OfAWholeMarketTheFirstAndLastSymbolsAreTold) {
    std::string rows;
    for (const char* symbol : {"A", "B", "C", "D", "E", "F", "G"}) {
        if (!rows.empty()) rows += ',';
        rows += std::string(R"({"T":")") + symbol + R"(","v":1,"o":1,"c":2,"h":3,"l":1})";
    }
    Reply(R"({"status":"OK","results":[)" + rows + "]}");
    const SourceChecked checked = Check("massive", Capability::Quotes);
    EXPECT_EQ(checked.words, "7 rows, 2026-11-20 to 2026-11-20");
    EXPECT_THAT(checked.rows, ElementsAre("A 2026-11-20 1 3 1 2 1", "B 2026-11-20 1 3 1 2 1",
                                          "C 2026-11-20 1 3 1 2 1", "...", "E 2026-11-20 1 3 1 2 1",
                                          "F 2026-11-20 1 3 1 2 1", "G 2026-11-20 1 3 1 2 1"));
}

TEST_F(SourceCheck, WithoutItsKeyASourceIsNotAsked) {
    variables.clear();
    const SourceChecked checked = Check("massive", Capability::Splits);
    EXPECT_EQ(checked.outcome.result, SourceResult::NoKey);
    EXPECT_TRUE(requests.empty());
    EXPECT_EQ(CheckedText(checked).find("reply:"), std::string::npos);
}

TEST_F(SourceTest, TermsAreAskedOnceAndANoIsAskedAgain) {
    person.answer = false;
    EXPECT_FALSE(MayBeAsked(world, Source("yahoo")));
    EXPECT_FALSE(MayBeAsked(world, Source("yahoo")));
    ASSERT_EQ(person.asked.size(), 2u);
    EXPECT_EQ(person.asked.front().title, "Yahoo");
    EXPECT_EQ(person.asked.front().text,
              Source("yahoo").terms + "\r\n\r\nDo you agree, and want Yahoo to be asked for prices?");
    person.answer = true;
    EXPECT_TRUE(MayBeAsked(world, Source("yahoo")));
    EXPECT_TRUE(MayBeAsked(world, Source("yahoo")));
    EXPECT_EQ(person.asked.size(), 3u);
    EXPECT_FALSE(state.TellsTermsFirst("yahoo"));
    EXPECT_TRUE(MayBeAsked(world, Source("massive")));
    EXPECT_EQ(person.asked.size(), 3u);
}

TEST_F(SourceTest, AChosenSourceWhoseTermsAreRefusedIsNotReplacedByAnother) {
    ASSERT_EQ(KeepChoices(session, ChosenForPrices({}, &Source("yahoo"))), "");
    person.answer = false;
    MemoryWeb network;
    LiveSetup live(session, network);
    EXPECT_EQ(live.Sources(), nullptr);
    EXPECT_EQ(live.Refusal(),
              "Yahoo was not asked: its terms have not been agreed to. Settings, Quote Sources tells them");
    const auto populated = PopulateFromChosen(session, network, {"KO"}, Years::AsTheyAre);
    ASSERT_TRUE(populated);
    EXPECT_EQ(populated->report.Extent(), RunExtent::Nothing);
    EXPECT_TRUE(network.Addresses.empty());
}

TEST_F(SourceTest, ChoicesAreKeptAndInForceAtOnce) {
    SourceChoices choices = ChosenForPrices({}, &Source("yahoo"));
    choices.Fallback() = "tiingo";
    ASSERT_EQ(KeepChoices(session, choices), "");
    EXPECT_EQ(Read("Data/VTRSRCset.ini"), "\"yahoo\"\r\n\"yahoo\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"tiingo\"\r\n");
    EXPECT_EQ(ChoicesOf(session.settings).names, choices.names);
    EXPECT_EQ(AskedWords(session, Capability::Quotes), "Yahoo, for tickers unknown there Tiingo");
    EXPECT_EQ(AskedWords(session, Capability::Splits), "");
}

TEST_F(SourceTest, AStandingTellsWhatASourceIsChosenForAndItsRest) {
    variables.clear();
    SourceChoices choices = ChosenForPrices({}, &Source("massive"));
    choices.Fallback() = "massive";
    ASSERT_EQ(KeepChoices(session, choices), "");
    ASSERT_FALSE(WriteSourceKey(folder / "Data", "massive", "some-key"));
    state.Block("massive", seconds + 500, 500, "slow down");
    const SourceStanding standing = StandingOf(world, Source("massive"));
    EXPECT_EQ(CapabilityWords(standing.gives), "quotes, history, splits, symbols");
    EXPECT_EQ(CapabilityWords(standing.chosenFor), "quotes, history, splits");
    EXPECT_TRUE(standing.isFallback);
    EXPECT_EQ(standing.key, KeyStanding::InFile);
    EXPECT_THAT(standing.limits, ElementsAre("5 a minute"));
    EXPECT_EQ(standing.rest.until, seconds + 500);
    EXPECT_EQ(standing.rest.words, "slow down");
    EXPECT_EQ(StandingOf(world, Source("alpaca")).key, KeyStanding::Missing);
    EXPECT_EQ(StandingOf(world, Source("nasdaq")).key, KeyStanding::NotNeeded);
    EXPECT_EQ(StandingOf(world, Source("nasdaq")).rest.until, 0);
    variables["BRANTLOW_KEY_MASSIVE"] = "another";
    EXPECT_EQ(StandingOf(world, Source("massive")).key, KeyStanding::InEnvironment);
}

TEST_F(SourceTest, TheTimeOfARunFollowsFromTheLimits) {
    // 5 a minute: 43 requests of a ticker each; 522 days of the whole market.
    EXPECT_EQ(SecondsOfPopulate(world, Source("massive"), 43, 2), 43 * 12);
    EXPECT_EQ(SecondsOfPopulate(world, Source("massive"), 8000, 2), 522 * 12);
    EXPECT_EQ(SecondsOfUpdate(world, Source("massive"), 8000), 12);
    EXPECT_EQ(DurationWords(43 * 12), "about 9 minutes");
    EXPECT_EQ(DurationWords(522 * 12), "about 105 minutes");
    EXPECT_EQ(DurationWords(7200), "about 2 hours");
    EXPECT_EQ(DurationWords(60), "about 1 minute");
    EXPECT_EQ(DurationWords(59), "a moment");
}

TEST_F(SourceTest, ACopyIsASourceOfItsOwn) {
    const SourceCopy copy =
        CopySource(LoadSources(folder / "Data"), folder / "Data", "massive", "my-massive");
    ASSERT_EQ(copy.refusal, "");
    EXPECT_EQ(copy.file, folder / "Data/Sources/my-massive.json");
    const SourceCatalogue catalogue = LoadSources(folder / "Data");
    EXPECT_TRUE(catalogue.refusals.empty());
    const SourceDefinition* own = catalogue.Find("my-massive");
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->title, "Massive (my-massive)");
    EXPECT_EQ(own->terms, Source("massive").terms);
    EXPECT_EQ(own->Form(Capability::History)->addresses,
              Source("massive").Form(Capability::History)->addresses);
    EXPECT_EQ(OwnDefinitionFile(folder / "Data", "my-massive"), copy.file);
    EXPECT_EQ(OwnDefinitionFile(folder / "Data", "massive"), std::nullopt);
}

TEST_F(SourceTest, EveryBuiltInSourceCanBeCopied) {
    for (const SourceDefinition& source : Shipped().sources) {
        ASSERT_EQ(CopySource(LoadSources(folder / "Data"), folder / "Data", source.name, source.name).refusal,
                  "");
    }
    const SourceCatalogue catalogue = LoadSources(folder / "Data");
    EXPECT_TRUE(catalogue.refusals.empty());
    EXPECT_EQ(catalogue.sources.size(), Shipped().sources.size());
    EXPECT_EQ(catalogue.Find("yahoo")->title, "Yahoo");
}

TEST_F(SourceTest, ACopyNeedsANameThatIsFreeAndFits) {
    Write("Data/Sources/mine.json", "{}");
    Write("Data/Sources/other.json", R"({"name": "free"})");
    const SourceCatalogue catalogue = LoadSources(folder / "Data");
    const std::string form = "a source's name has small letters, digits and hyphens, at most 40 of them";
    const std::pair<std::string, std::string> rows[] = {
        {"", form},
        {"Mine", form},
        {"-mine", form},
        {"../mine", form},
        {"a b", form},
        {std::string(41, 'a'), form},
        {"mine", "Data/Sources/mine.json is there already"},
        {"massive", ""},
        {std::string(40, 'a'), ""},
    };
    for (const auto& [name, refusal] : rows) {
        EXPECT_EQ(CopyNameRefusal(catalogue, folder / "Data", name), refusal) << name;
    }
    EXPECT_EQ(CopySource(catalogue, folder / "Data", "massive", "mine").refusal,
              "Data/Sources/mine.json is there already");
    EXPECT_EQ(Read("Data/Sources/mine.json"), "{}");
}

}  // namespace brantlow
