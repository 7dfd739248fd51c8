#include "acquire/feeds/archives/history_import.h"

#include <gmock/gmock.h>

#include "acquire/feeds/live/ticker_basis.h"
#include "base/undo_store.h"
#include "shell/session_change.h"
#include "support/session_fixture.h"
#include "support/zip_file.h"

namespace brantlow {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kHead = "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n";

std::string Row(const std::string& symbol, const std::string& day, const std::string& close) {
    return symbol + ",D," + day + ",000000,1,200,0.5," + close + ",1000.4,0\r\n";
}

// A year-file line of the row above.
std::string Line(const std::string& day, const std::string& close) {
    return "\"" + day + "\",\"\"," + close + ",0.5,200,1000,0,0,0,0,0,\"\",\"\",0,0,0,0,0,1\r\n";
}

// The tests' day is 2024-03-15.
class HistoryImports : public SessionTest {
  protected:
    Path Zip(const std::vector<ZipEntry>& entries) const {
        const Path file = folder / "us.zip";
        WriteZip(file.string(), entries);
        return file;
    }

    HistoryImport From(const Path& from, std::optional<std::vector<std::string>> tickers = std::nullopt) {
        return ImportHistories(session, {.from = from, .tickers = std::move(tickers)});
    }

    Path TwoTickers() const {
        return Zip(
            {{"data/daily/us/nasdaq stocks/1/aapl.us.txt",
              kHead + Row("AAPL.US", "20231229", "192.5304") + Row("AAPL.US", "20240102", "185.6")},
             {"data/daily/us/nyse stocks/1/brk-b.us.txt", kHead + Row("BRK-B.US", "20240102", "362")}});
    }

    static std::vector<std::string> Fates(const HistoryImport& import) {
        std::vector<std::string> lines;
        for (const TickerTold& told : import.report.Tickers()) lines.push_back(TickerLine(told));
        return lines;
    }
};

}  // namespace

TEST_F(HistoryImports, AnArchiveBecomesYearFilesAndTellsTheirBasis) {
    const HistoryImport import = From(TwoTickers());
    EXPECT_EQ(Sentence(import.fault), "");
    EXPECT_EQ(import.histories, 2u);
    EXPECT_EQ(import.days, 3u);
    EXPECT_EQ(Read("Quotes/EOD/AAPL.23"), Line("12/29/23", "192.53"));
    EXPECT_EQ(Read("Quotes/EOD/AAPL.24"), Line("01/02/24", "185.6"));
    EXPECT_EQ(Read("Quotes/EOD/BRK.B.24"), Line("01/02/24", "362"));
    EXPECT_EQ(import.report.What(), "Import of us.zip");
    EXPECT_EQ(import.report.Line(), "2 of 2 histories, prices adjusted for splits and dividends");
    Failure fault;
    const TickerBases bases = TickerBases::Load(session.DataFolder(), fault);
    ASSERT_NE(bases.Find("AAPL"), nullptr);
    EXPECT_EQ(bases.Find("AAPL")->source, "stooq");
    EXPECT_EQ(bases.Find("AAPL")->basis, PriceBasis::Adjusted);
    EXPECT_EQ(FormatIsoDate(Date{bases.Find("AAPL")->through}), "2024-01-02");
}

TEST_F(HistoryImports, AFolderGivesTheSameAsItsArchive) {
    From(TwoTickers());
    const std::vector<std::string> byArchive = {Read("Quotes/EOD/AAPL.23"), Read("Quotes/EOD/AAPL.24"),
                                                Read("Quotes/EOD/BRK.B.24")};
    UndoChange(ChangePlaceOf(session), {});
    ASSERT_FALSE(Exists("Quotes/EOD/AAPL.24"));
    Write("in/a/aapl.us.txt",
          kHead + Row("AAPL.US", "20231229", "192.5304") + Row("AAPL.US", "20240102", "185.6"));
    Write("in/brk-b.us.txt", kHead + Row("BRK-B.US", "20240102", "362"));
    const HistoryImport import = From(folder / "in");
    EXPECT_EQ(import.report.What(), "Import of in");
    EXPECT_EQ((std::vector<std::string>{Read("Quotes/EOD/AAPL.23"), Read("Quotes/EOD/AAPL.24"),
                                        Read("Quotes/EOD/BRK.B.24")}),
              byArchive);
}

TEST_F(HistoryImports, OnlyTheTickersOfTheTableAreTakenInItsSpelling) {
    const Path zip = Zip({{"aapl.us.txt", kHead + Row("AAPL.US", "20240102", "185")},
                          {"ko.us.txt", kHead + Row("KO.US", "20240102", "60")},
                          {"bac_k.us.txt", kHead + Row("BAC_K.US", "20240102", "23")},
                          {"^spx.txt", kHead + Row("^SPX", "20240102", "4700")}});
    const HistoryImport import = From(zip, std::vector<std::string>{"KO", "BAC PK", "^GSPC", "GONE"});
    EXPECT_THAT(Fates(import), ElementsAre("KO: stored", "BAC PK: stored", "^GSPC: stored", "GONE: unknown"));
    EXPECT_TRUE(Exists("Quotes/EOD/BAC PK.24"));
    EXPECT_TRUE(Exists("Quotes/EOD/^GSPC.24"));
    EXPECT_FALSE(Exists("Quotes/EOD/AAPL.24"));
    EXPECT_EQ(import.report.Line(),
              "3 of 4 histories, 1 ticker unknown: GONE, prices adjusted for splits and dividends");
}

TEST_F(HistoryImports, TheStoredHistoryGoesAsAWholeAndComesBackByUndo) {
    const std::string raw = Line("01/03/23", "400") + Line("12/29/23", "385");
    Write("Quotes/EOD/AAPL.23", raw);
    Write("Quotes/EOD/AAPL.20", Line("08/31/20", "129"));
    From(Zip(
        {{"aapl.us.txt", kHead + Row("AAPL.US", "20231229", "192.5") + Row("AAPL.US", "20240102", "185")}}));
    // Nothing of the old basis stands beside the new one.
    EXPECT_FALSE(Exists("Quotes/EOD/AAPL.20"));
    EXPECT_EQ(Read("Quotes/EOD/AAPL.23"), Line("12/29/23", "192.5"));
    const UndoResult undone = UndoChange(ChangePlaceOf(session), {});
    EXPECT_EQ(undone.change.what, "Import of us.zip");
    EXPECT_EQ(Read("Quotes/EOD/AAPL.23"), raw);
    EXPECT_TRUE(Exists("Quotes/EOD/AAPL.20"));
    EXPECT_FALSE(Exists("Quotes/EOD/AAPL.24"));
    EXPECT_FALSE(Exists("Data/Source Histories.json"));
}

TEST_F(HistoryImports, AHistoryWithNewerDaysStaysUnlessItIsToGo) {
    const std::string stored = Line("03/13/24", "171") + Line("03/14/24", "173");
    Write("Quotes/EOD/AAPL.24", stored);
    const HistoryImport import = From(TwoTickers());
    EXPECT_EQ(Read("Quotes/EOD/AAPL.24"), stored);
    EXPECT_FALSE(Exists("Quotes/EOD/AAPL.23"));
    EXPECT_THAT(Fates(import), ElementsAre("AAPL: nothing new: its stored days go to 2024-03-14, those of "
                                           "data/daily/us/nasdaq stocks/1/aapl.us.txt to 2024-01-02",
                                           "BRK.B: stored"));
    const HistoryImport replacing =
        ImportHistories(session, {.from = folder / "us.zip", .replacesNewer = true});
    EXPECT_EQ(replacing.histories, 2u);
    EXPECT_EQ(Read("Quotes/EOD/AAPL.24"), Line("01/02/24", "185.6"));
}

TEST_F(HistoryImports, TheNewestYearsAloneAreTakenWhereTheyAreNamed) {
    const Path zip =
        Zip({{"aapl.us.txt", kHead + Row("AAPL.US", "20220314", "150") + Row("AAPL.US", "20220317", "160") +
                                 Row("AAPL.US", "20240102", "185")},
             {"old.us.txt", kHead + Row("OLD.US", "20010102", "5")}});
    const HistoryImport import = ImportHistories(session, {.from = zip, .years = 2});
    EXPECT_EQ(Read("Quotes/EOD/AAPL.22"), Line("03/17/22", "160"));
    EXPECT_THAT(Fates(import), ElementsAre("AAPL: stored", "OLD: unknown: old.us.txt: no days in the span"));
}

TEST_F(HistoryImports, AFileThatCannotBeRightCostsItsTickerAlone) {
    Write("Quotes/EOD/BAD.24", Line("01/02/24", "9"));
    const Path zip =
        Zip({{"us/bad.us.txt", kHead + Row("BAD.US", "20240102", "9") + Row("BAD.US", "20240103", "x")},
             {"us/good.us.txt", kHead + Row("GOOD.US", "20240102", "5")},
             {"us/empty.us.txt", ""},
             {"us/_prn.us.txt", kHead + Row("PRN.US", "20240102", "5")},
             {"us/evil.us.txt", kHead + Row("../../EVIL.US", "20240102", "5")},
             {"us/2/good.us.txt", kHead + Row("GOOD.US", "20240103", "6")},
             {"us/readme.md", "not a history"}});
    const HistoryImport import = From(zip);
    EXPECT_THAT(Fates(import),
                ElementsAre("BAD: failed: us/bad.us.txt, line 3: 'x' is no price", "GOOD: stored",
                            "EMPTY: unknown: us/empty.us.txt: no days in the span",
                            "PRN: left out: PRN: no file can have this name",
                            "EVIL: left out: us/evil.us.txt: ../../EVIL.US can be no ticker"));
    EXPECT_EQ(Read("Quotes/EOD/BAD.24"), Line("01/02/24", "9"));
    EXPECT_EQ(Read("Quotes/EOD/GOOD.24"), Line("01/02/24", "5"));
    EXPECT_THAT(import.report.Lines().back(),
                HasSubstr("us/2/good.us.txt: GOOD was read from another file already"));
    EXPECT_EQ(import.report.Extent(), RunExtent::Partly);
}

TEST_F(HistoryImports, AFilesNameAndItsRowsThatTellDifferentTickersAreToldApart) {
    const Path zip = Zip({{"aapl.us.txt", kHead + Row("MSFT.US", "20240102", "370")}});
    const HistoryImport import = From(zip, std::vector<std::string>{"AAPL"});
    EXPECT_THAT(Fates(import), ElementsAre("AAPL: left out: aapl.us.txt: MSFT.US is not the file's ticker"));
    EXPECT_EQ(From(zip).histories, 1u);
    EXPECT_TRUE(Exists("Quotes/EOD/MSFT.24"));
}

TEST_F(HistoryImports, AHostileArchiveChangesNothing) {
    Write("Quotes/EOD/AAPL.24", Line("01/02/24", "9"));
    const std::vector<std::string> before = Everything();
    const std::string good = kHead + Row("AAPL.US", "20240110", "5");
    for (const ZipEntry& entry :
         std::vector<ZipEntry>{{"../out.us.txt", good}, {"x.txt", "", "/etc/passwd"}}) {
        const Path zip = Zip({{"aapl.us.txt", good}, entry});
        const HistoryImport import = From(zip);
        std::filesystem::remove(zip);
        EXPECT_TRUE(import.fault);
        EXPECT_EQ(import.report.Extent(), RunExtent::Nothing);
        EXPECT_THAT(import.report.Line(), StartsWith("Import of us.zip failed: "));
        EXPECT_THAT(import.report.Line(), HasSubstr("; nothing was changed"));
        EXPECT_EQ(Everything(), before);
        EXPECT_TRUE(KeptChanges(ChangePlaceOf(session)).empty());
    }
}

TEST_F(HistoryImports, WhatHoldsNoHistoriesIsTold) {
    Write("in/readme.md", "x");
    EXPECT_EQ(From(folder / "in").report.Line(), "Import of in failed: " + (folder / "in").string() +
                                                     ": holds no file of a ticker; nothing was changed");
    EXPECT_EQ(From(folder / "gone").report.Line(),
              "Import of gone failed: " + (folder / "gone").string() +
                  ": cannot be read (No such file or directory); nothing was changed");
}

TEST_F(HistoryImports, AStopKeepsWhatCameUntilThen) {
    const Path zip = TwoTickers();
    person.events.push_back([this] { session.run.ProcessCommand = kStopRun; });
    const HistoryImport import = From(zip);
    EXPECT_TRUE(import.stopped);
    EXPECT_THAT(Fates(import), ElementsAre("AAPL: stored", "BRK.B: skipped: stopped"));
    EXPECT_TRUE(Exists("Quotes/EOD/AAPL.24"));
    EXPECT_EQ(import.report.Line(), "1 of 2 histories, prices adjusted for splits and dividends, stopped");
}

TEST_F(HistoryImports, TheSameImportAgainLeavesTheSameFiles) {
    From(TwoTickers());
    const std::vector<std::string> first = Everything();
    From(folder / "us.zip");
    EXPECT_EQ(Everything(), first);
}

TEST_F(HistoryImports, ALookBeforehandCountsWhatIsThereAndWhatGoes) {
    Write("Quotes/EOD/AAPL.20", Line("08/31/20", "129"));
    const Path zip = TwoTickers();
    const ImportOutlook all = LookIntoArchive(session, {.from = zip});
    EXPECT_EQ(all.histories, 2u);
    EXPECT_EQ(all.stored, 1u);
    const ImportOutlook one =
        LookIntoArchive(session, {.from = zip, .tickers = std::vector<std::string>{"BRK.B", "GONE"}});
    EXPECT_EQ(one.histories, 1u);
    EXPECT_EQ(one.stored, 0u);
    EXPECT_TRUE(LookIntoArchive(session, {.from = folder / "gone.zip"}).fault);
}

TEST_F(HistoryImports, ALiveSourceWhosePricesAreNotAdjustedAddsNoDays) {
    From(TwoTickers());
    Failure fault;
    const TickerBases bases = TickerBases::Load(session.DataFolder(), fault);
    SourceDefinition massive;
    massive.title = "Massive";
    EXPECT_EQ(MixRefusal(bases.Find("AAPL"), massive, PriceBasis::Raw, "USD"),
              "its history is adjusted for dividends, the prices of Massive are not: populate it anew");
    EXPECT_EQ(MixRefusal(bases.Find("AAPL"), massive, PriceBasis::Adjusted, "USD"), "");
}

}  // namespace brantlow
