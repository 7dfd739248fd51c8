// Splits that a source tells, and what they do to stored histories.
#include "acquire/feeds/live/live_splits.h"

#include "acquire/feeds/live/bar_store.h"
#include "acquire/feeds/live/live_history.h"
#include "acquire/feeds/live/source_fixture.h"
#include "shell/session_change.h"
#include "store/hand_drawings.h"

namespace brantlow {

namespace {

// Five days around the split of Wednesday the 18th, four new shares for one.
constexpr const char* kStored =
    "\"11/16/26\",\"\",100,99,101,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,100\r\n"
    "\"11/17/26\",\"16:00\",104,100,105,2000,20,5.2,1,6,2,\"\",\"\",100,80,120,3,5000,101\r\n"
    "\"11/18/26\",\"\",26,25,27,9000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,26\r\n";
constexpr const char* kRestated =
    "\"11/16/26\",\"\",25,24.75,25.25,4000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n"
    "\"11/17/26\",\"16:00\",26,25,26.25,8000,20,1.3,1,1.5,0.5,\"\",\"\",25,20,30,3,5000,25.25\r\n"
    "\"11/18/26\",\"\",26,25,27,9000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,26\r\n";

class LiveSplits : public SourceTest {
  protected:
    void Known(std::chrono::sys_days through) {
        Failure fault;
        TickerBases bases = TickerBases::Load(folder / "Data", fault);
        TickerBasis basis;
        basis.source = "massive";
        basis.basis = PriceBasis::Split;
        basis.through = through;
        bases.Set("KO", basis);
        FileChange change(ChangePlaceOf(session), "test");
        EXPECT_FALSE(bases.Save(folder / "Data", change));
        EXPECT_FALSE(change.Commit());
    }

    LiveSplitCheck Check() {
        ServiceReply reply = Answer(200, R"({"status":"OK","results":[
            {"ticker":"KO","execution_date":"2026-11-18","split_from":1,"split_to":4},
            {"ticker":"KO","execution_date":"2026-11-18","split_from":1,"split_to":4},
            {"ticker":"ELSE","execution_date":"2026-11-19","split_from":1,"split_to":2}]})");
        Reply({reply});
        return CheckLiveSplits(world, Source("massive"), {"KO"});
    }

    const Path file = "Quotes/EOD/KO.26";
};

}  // namespace

TEST_F(LiveSplits, WhatWasDrawnByHandIsRestatedOnceWithTheHistory) {
    const auto line = [](double price) {
        return TextOfHandDrawings({{HandKind::Horizontal, {{Date{DayOf(2026, 11, 17)}, price}}},
                                   {HandKind::Horizontal, {{Date{DayOf(2026, 11, 18)}, 30}}}});
    };
    Write(file, kStored);
    Write("Data/Drawings/KO.json", line(104));
    Known(DayOf(2026, 11, 17));
    ASSERT_EQ(Check().applied.size(), 1u);
    EXPECT_EQ(Read("Data/Drawings/KO.json"), line(26));
    EXPECT_TRUE(Check().applied.empty());
    EXPECT_EQ(Read("Data/Drawings/KO.json"), line(26));
}

TEST_F(LiveSplits, WhereTheDrawingsCannotBeReadTheHistoryStays) {
    Write(file, kStored);
    Write("Data/Drawings/KO.json", "[]");
    Known(DayOf(2026, 11, 17));
    EXPECT_EQ(Sentence(Check().fault),
              (folder / "Data/Drawings/KO.json").string() + ": cannot be read; it holds no list of drawings");
    EXPECT_EQ(Read(file), kStored);
}

TEST_F(LiveSplits, ASplitBehindTheHistoryRestatesEveryEarlierRecordOnce) {
    Write(file, kStored);
    Known(DayOf(2026, 11, 17));
    const LiveSplitCheck first = Check();
    ASSERT_EQ(first.applied.size(), 1u);
    EXPECT_EQ(SplitSentence(first.applied.front()), "KO: split 4 for 1 on 2026-11-18, 2 days restated");
    EXPECT_EQ(Read(file), kRestated);
    EXPECT_EQ(Read(Path("Data") / kSourceSplitsName), "2026-11-18 KO 4 2\r\n");
    EXPECT_TRUE(Check().applied.empty());
    EXPECT_EQ(Read(file), kRestated);
}

TEST_F(LiveSplits, ALineThatWasCutOffGoesAndIsTold) {
    Write(file, kStored + std::string("\"11/20/26\",\"\",2"));
    Known(DayOf(2026, 11, 17));
    const LiveSplitCheck check = Check();
    ASSERT_EQ(check.applied.size(), 1u);
    EXPECT_EQ(
        SplitSentence(check.applied.front()),
        "KO: split 4 for 1 on 2026-11-18, 2 days restated, the half line at the end of KO.26 was taken out");
    EXPECT_EQ(Read(file), kRestated);
}

TEST_F(LiveSplits, AHistoryThatWasFetchedAfterTheSplitIsNotRestated) {
    Write(file, kRestated);
    Known(DayOf(2026, 11, 19));
    EXPECT_TRUE(Check().applied.empty());
    EXPECT_EQ(Read(file), kRestated);
}

TEST_F(LiveSplits, AHistoryOfUnknownOriginIsRestatedWhereItsPricesJump) {
    Write(file, kStored);
    EXPECT_EQ(Check().applied.size(), 1u);
    EXPECT_EQ(Read(file), kRestated);
    EXPECT_TRUE(Check().applied.empty());
}

TEST_F(LiveSplits, ARecordThatRoundsToNothingIsNotLost) {
    Write(file, "\"11/17/26\",\"\",0.001,0.001,0.001,5,0,0,0,0,0,\"\",\"\",0,0,0,0,0,0.001\r\n");
    Known(DayOf(2026, 11, 16));
    EXPECT_EQ(Check().applied.size(), 1u);
    EXPECT_EQ(Read(file), "\"11/17/26\",\"\",0,0,0,20,0,0,0,0,0,\"\",\"\",0,0,0,0,0,0\r\n");
}

TEST_F(LiveSplits, AnotherBasisOrCurrencyDoesNotFollow) {
    TickerBasis stored;
    stored.basis = PriceBasis::Adjusted;
    stored.currency = "USD";
    const SourceDefinition& massive = Source("massive");
    EXPECT_NE(MixRefusal(&stored, massive, PriceBasis::Raw, "").find("adjusted for dividends"),
              std::string::npos);
    EXPECT_NE(MixRefusal(&stored, massive, PriceBasis::Adjusted, "GBP").find("is in USD"), std::string::npos);
    EXPECT_EQ(MixRefusal(&stored, massive, PriceBasis::Adjusted, "USD"), "");
    EXPECT_EQ(MixRefusal(nullptr, massive, PriceBasis::Raw, "USD"), "");
    stored.basis = PriceBasis::Split;
    EXPECT_EQ(MixRefusal(&stored, massive, PriceBasis::Raw, "USD"), "");
}

TEST_F(LiveSplits, RawDaysAreBroughtOnOneBasisByTheirSplits) {
    std::vector<SourceBar> bars = {{DayOf(2026, 11, 17), 100, 104, 96, 100, 10},
                                   {DayOf(2026, 11, 18), 25, 26, 24, 25, 40}};
    AdjustBars(bars, {{"KO", DayOf(2026, 11, 18), 4}});
    EXPECT_EQ(bars[0].close, 25);
    EXPECT_EQ(bars[0].volume, 40);
    EXPECT_EQ(bars[1].close, 25);
}

TEST_F(LiveSplits, AFailedDownloadKeepsTheHistoryAndAGoodOneReplacesIt) {
    session.settings.DataSettings.Set(6, Value::OfNumber(2));
    Write(file, kStored);
    Write("Quotes/EOD/KO.25", kStored);
    Reply(503, "");
    EXPECT_EQ(PopulateFromSource(world, Source("tiingo"), {"KO"}).Failed(), 1u);
    EXPECT_EQ(Read(file), kStored);
    Reply(R"([{"date":"2026-11-19T00:00:00.000Z","close":25,"high":26,"low":24,"open":25,"volume":40}])");
    const LiveReport report = PopulateFromSource(world, Source("tiingo"), {"KO"});
    EXPECT_EQ(ReportSummary(report), "1 of 1 from Tiingo");
    EXPECT_EQ(Read(file), "\"11/19/26\",\"\",25,24,26,40,0,0,0,0,0,\"\",\"\",0,0,0,0,0,25\r\n");
    EXPECT_FALSE(Exists("Quotes/EOD/KO.25"));
}

TEST_F(LiveSplits, TheBarOfADayThatIsNotOverIsNoHistory) {
    session.settings.DataSettings.Set(6, Value::OfNumber(2));
    const std::string days =
        R"([{"date":"2026-11-19T00:00:00.000Z","close":25,"high":26,"low":24,"open":25,"volume":40},
            {"date":"2026-11-20T00:00:00.000Z","close":27,"high":27,"low":27,"open":27,"volume":4}])";
    Reply(days);
    clock.Set(Date{DayOf(2026, 11, 20)}, 20.75 * 3600);  // 15:45 in New York
    EXPECT_EQ(PopulateFromSource(world, Source("tiingo"), {"KO"}).Answered(), 1u);
    EXPECT_EQ(Read(file).find("11/20/26"), std::string::npos) << Read(file);
    clock.Set(Date{DayOf(2026, 11, 20)}, 21.25 * 3600);
    EXPECT_EQ(PopulateFromSource(world, Source("tiingo"), {"KO"}).Answered(), 1u);
    EXPECT_NE(Read(file).find("11/20/26"), std::string::npos) << Read(file);
}

TEST_F(LiveSplits, AHistoryWhoseNewestDayIsNotOutIsAskedWithoutItAndSoAreThoseBehindIt) {
    session.settings.DataSettings.Set(6, Value::OfNumber(2));
    const ServiceReply early = Answer(
        403,
        R"({"status":"NOT_AUTHORIZED","message":"Attempted to request today's data before end of day."})");
    const ServiceReply rows =
        Answer(200, R"({"status":"OK","results":[{"v":40,"o":25,"h":26,"l":24,"c":25,"t":1795064400000}]})");
    Reply({early, rows});
    const LiveReport report = PopulateFromSource(world, Source("massive"), {"KO", "PEP"});
    EXPECT_EQ(ReportSummary(report), "2 of 2 from Massive");
    ASSERT_EQ(requests.size(), 3u);
    EXPECT_NE(requests[0].url.find("ticker/KO/range/1/day/2024-11-20/2026-11-20?"), std::string::npos);
    EXPECT_NE(requests[1].url.find("ticker/PEP/range/1/day/2024-11-20/2026-11-19?"), std::string::npos);
    EXPECT_NE(requests[2].url.find("ticker/KO/range/1/day/2024-11-20/2026-11-19?"), std::string::npos);
}

TEST_F(LiveSplits, ADayThatIsNotOutYetIsToldOnTheLineOfTheRun) {
    session.settings.DataSettings.Set(6, Value::OfNumber(2));
    Reply(403,
          R"({"status":"NOT_AUTHORIZED","message":"Attempted to request today's data before end of day."})");
    const LiveReport report = PopulateFromSource(world, Source("massive"), {"KO"});
    EXPECT_EQ(RunReportOf(report, "Populate").Line(), "1 of 1 from Massive, 1 not yet published");
}

}  // namespace brantlow
