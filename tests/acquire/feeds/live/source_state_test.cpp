// Limits, keys and what is kept of them.
#include <sys/stat.h>

#include <atomic>
#include <thread>

#include "acquire/feeds/live/address_template.h"
#include "acquire/feeds/live/source_fixture.h"
#include "shell/session_change.h"
#include "store/folder_copy.h"

namespace brantlow {

TEST_F(SourceTest, TheSixthRequestOfAMinuteWaits) {
    const std::vector<RequestLimit> limits = {{5, 60}};
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(state.TakeTurn("massive", limits, 0).isTaken) << i;
    const SourceState::Turn sixth = state.TakeTurn("massive", limits, 0);
    EXPECT_FALSE(sixth.isTaken);
    EXPECT_EQ(sixth.waitSeconds, 60);
    seconds += 60.5;
    EXPECT_TRUE(state.TakeTurn("massive", limits, 0).isTaken);
}

TEST_F(SourceTest, ALimitHoldsForTheNextProgramToo) {
    const std::vector<RequestLimit> limits = {{2, 60}};
    state.TakeTurn("massive", limits, 0);
    SourceState other(folder / "Data", state.Time());
    EXPECT_TRUE(other.TakeTurn("massive", limits, 0).isTaken);
    EXPECT_FALSE(state.TakeTurn("massive", limits, 0).isTaken);
    EXPECT_TRUE(state.TakeTurn("tiingo", limits, 0).isTaken);
}

TEST_F(SourceTest, TwoProgramsAtOnceTakeNoMoreThanTheLimitTogether) {
    const std::vector<RequestLimit> limits = {{60, 3600}};
    std::atomic<int> taken = 0;
    const auto program = [&] {
        SourceState own(folder / "Data", {[this] { return seconds; }, [](double) {}});
        for (int i = 0; i < 50; ++i) taken += own.TakeTurn("massive", limits, 0).isTaken ? 1 : 0;
    };
    std::thread first(program);
    std::thread second(program);
    first.join();
    second.join();
    EXPECT_EQ(taken, 60);
}

TEST_F(SourceTest, TheClientWaitsForItsTurn) {
    Reply(R"({"status":"OK","results":[{"v":1,"o":1,"c":5,"h":5,"l":1,"t":1795150800000}]})");
    const double before = seconds;
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(AskFor("massive", "KO").outcome.Done());
    EXPECT_GE(seconds - before, 60);
    EXPECT_LT(seconds - before, 62);
}

TEST_F(SourceTest, LimitsOfHostsIniReplaceTheSourcesOwn) {
    hosts = SourceHosts::Parse("Limit.massive=100/1\n");
    Reply(R"({"status":"OK","results":[{"v":1,"o":1,"c":5,"h":5,"l":1,"t":1795150800000}]})");
    const double before = seconds;
    for (int i = 0; i < 20; ++i) AskFor("massive", "KO");
    EXPECT_EQ(seconds, before);
}

TEST_F(SourceTest, AUsedUpHourIsToldAndNotWaitedFor) {
    Reply("[]");
    for (int i = 0; i < 50; ++i) AskFor("tiingo", "KO");
    const double before = seconds;
    const SourceOutcome outcome = AskFor("tiingo", "KO").outcome;
    EXPECT_EQ(outcome.result, SourceResult::RateLimited);
    EXPECT_EQ(seconds, before);
    EXPECT_EQ(outcome.until, before + 3600);
}

TEST_F(SourceTest, AStateThatIsNoJsonCountsAsNone) {
    Write(Path("Data") / kSourceStateName, "not json");
    EXPECT_TRUE(state.TakeTurn("massive", {{5, 60}}, 0).isTaken);
}

TEST_F(SourceTest, TermsAreToldOnceAFolder) {
    EXPECT_TRUE(state.TellsTermsFirst("yahoo"));
    EXPECT_FALSE(state.TellsTermsFirst("yahoo"));
    SourceState other(folder / "Data", state.Time());
    EXPECT_FALSE(other.TellsTermsFirst("yahoo"));
}

TEST_F(SourceTest, AKeyComesFromTheEnvironmentElseFromTheFile) {
    Write("Data/Keys.ini", "# mine\nmassive=from-file\nalpaca=an-id:a-secret\n");
    const auto read = [&](const char* name) {
        return ReadSourceKey(Source(name), folder / "Data", world.environment);
    };
    EXPECT_EQ(read("massive").key->id, "practice-key");
    variables.clear();
    EXPECT_EQ(read("massive").key->id, "from-file");
    EXPECT_EQ(read("alpaca").key->secret, "a-secret");
    EXPECT_FALSE(read("tiingo").key);
    struct stat status {};
    ASSERT_EQ(stat((folder / "Data/Keys.ini").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(SourceTest, AKeyWithALineFeedIsRefusedAndNotSent) {
    variables["BRANTLOW_KEY_MASSIVE"] = "abc\r\nX-Other: 1";
    const SourceOutcome outcome = AskFor("massive", "KO").outcome;
    EXPECT_EQ(outcome.result, SourceResult::NoKey);
    EXPECT_EQ(outcome.words, "Massive: the key holds a line feed or another control character");
    EXPECT_TRUE(requests.empty());
}

TEST_F(SourceTest, AWrittenKeyIsForTheUsersEyesOnly) {
    variables.clear();
    EXPECT_FALSE(WriteSourceKey(folder / "Data", "massive", "one"));
    EXPECT_FALSE(WriteSourceKey(folder / "Data", "tiingo", "two"));
    EXPECT_FALSE(WriteSourceKey(folder / "Data", "massive", "three"));
    EXPECT_EQ(Read("Data/Keys.ini"), "tiingo=two\r\nmassive=three\r\n");
    struct stat status {};
    ASSERT_EQ(stat((folder / "Data/Keys.ini").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    EXPECT_FALSE(WriteSourceKey(folder / "Data", "massive", ""));
    EXPECT_EQ(Read("Data/Keys.ini"), "tiingo=two\r\n");
}

TEST_F(SourceTest, NoCopyOfTheDataHoldsTheKeys) {
    Write("Data/Keys.ini", "massive=from-file\n");
    Write("Data/Mine.ddq", "Ticker Symbol\r\n");
    FileChange change(ChangePlaceOf(session), "copy");
    EXPECT_EQ(CopyFolderFiles(folder / "Data", folder / "Copy", change, CopyGroups::AllInOne).failed, 0u);
    EXPECT_TRUE(Exists("Copy/Mine.ddq"));
    EXPECT_FALSE(Exists("Copy/Keys.ini"));
}

TEST(SourceKeys, VariablesAreInCapitalsWithUnderscores) {
    EXPECT_EQ(KeyVariable("twelve-data"), "BRANTLOW_KEY_TWELVE_DATA");
}

TEST(AddressTemplate, ValuesArePercentEncoded) {
    EXPECT_EQ(PercentEncoded("^GSPC M&M=X/é,A.B"), "%5EGSPC%20M%26M%3DX%2F%C3%A9,A.B");
    const AddressValues values{"A&B", DayOf(2026, 11, 2), DayOf(2026, 11, 20)};
    EXPECT_EQ(FillAddress("x?s={symbol}&a={from}&b={to:unix}&c={before}&d={after:utc}", values),
              "x?s=A%26B&a=2026-11-02&b=1795132800&c=2026-11-01&d=2026-11-21T00:00:00Z");
}

TEST(AddressTemplate, ShownAddressesHideKeys) {
    EXPECT_EQ(MaskedAddress("https://x.example/a?symbol=KO&apikey=secret&from=1"),
              "https://x.example/a?symbol=KO&apikey=***&from=1");
    EXPECT_EQ(MaskedAddress("https://x.example/a?api_token=secret"), "https://x.example/a?api_token=***");
    EXPECT_EQ(MaskedAddress("https://x.example/a"), "https://x.example/a");
}

}  // namespace brantlow
