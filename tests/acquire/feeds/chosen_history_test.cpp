// Histories without a named source where VTRSRCset.ini chooses a live one: the web that the caller hands in
// is asked, and the change is kept like that of the standard source.
#include "acquire/feeds/add_ticker.h"
#include "acquire/feeds/history_fixture.h"
#include "base/undo_store.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::string_view kDay =
    R"([{"date":"2026-02-27T00:00:00.000Z","close":25,"high":26,"low":24,"open":25,"volume":40}])";

class ChosenHistoryTest : public HistoryDownloadFixture {
  protected:
    ChosenHistoryTest() {
        std::filesystem::create_directories(folder / "Data");
        Keep("Data/Keys.ini", "tiingo=practice-token\neodhd=other-token\n");
        session.CurrentFile = "Mine.ddq";
        Choose(2, "tiingo");
        web.AnswerWith([this](const WebRequest& request) {
            asked.push_back(request);
            const auto found = statuses.find(TickerIn(request.url));
            WebReply reply =
                MemoryWeb::Page(found == statuses.end() ? std::string(kDay) : R"({"detail":"Not found."})");
            if (found != statuses.end()) reply.status = found->second;
            return reply;
        });
    }
    void Choose(std::size_t line, std::string_view name) {
        session.settings.SrcSettings.Set(line, Value::OfText(name));
    }
    void Keep(const Path& name, std::string_view bytes) const {
        ASSERT_FALSE(WriteWholeFile(folder / name, bytes, Flush::Later));
    }
    std::string Kept(const Path& name) const { return BytesOrEmpty(folder / name); }
    static std::string TickerIn(const std::string& url) {
        const std::string mark = url.find("/daily/") != std::string::npos ? "/daily/" : "/eod/";
        const std::size_t begin = url.find(mark) + mark.size();
        return url.substr(begin, url.find_first_of("/?", begin) - begin);
    }
    PopulateRun Populate(const std::vector<std::string>& tickers, Years years = Years::AsTheyAre) {
        QuoteTable table;
        table.AppendLine("Ticker Symbol");
        for (const std::string& ticker : tickers) table.AppendLine(ticker);
        return PopulateDatabase(session, web, hosts, table, years);
    }

    std::vector<std::string> Said() const {
        std::vector<std::string> texts;
        for (const RecordingPerson::Message& message : person.said) texts.push_back(message.text);
        return texts;
    }

    std::map<std::string, int> statuses;
    std::vector<WebRequest> asked;
    const std::string record = Record("02/27/26", "25,24,26,40", "25");
};

TEST_F(ChosenHistoryTest, TheHandedInWebIsAskedWithTheKeyAndTakesAnyAnswer) {
    const HistoryDownload download = Download("KO");
    EXPECT_EQ(download.outcome, HistoryOutcome::Stored);
    EXPECT_EQ(download.days, 1U);
    EXPECT_EQ(Read("KO.26"), record);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_THAT(asked[0].url, testing::StartsWith("https://api.tiingo.com/tiingo/daily/KO/prices?"));
    EXPECT_THAT(asked[0].headers, testing::Contains("Authorization: Token practice-token"));
    EXPECT_TRUE(asked[0].takesAnyStatus);
    EXPECT_FALSE(asked[0].isRepeated);
    EXPECT_THAT(person.said, IsEmpty());
}

TEST_F(ChosenHistoryTest, APopulateIsOneChangeThatBringsHistoriesAndTheLastRunBack) {
    Write("KO.26", "old\r\n");
    Write("PEP.25", "older\r\n");
    Keep("Data/Last Run.txt", "of the run before");
    EXPECT_EQ(Populate({"KO", "PEP"}).stored, 2U);
    Keep("Data/Last Run.txt", "of this run");
    EXPECT_THAT(Files(), ElementsAre("KO.26", "PEP.26"));
    const std::vector<KeptChange> changes = KeptChanges(ChangePlaceOf(session));
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].what, "Populate from Tiingo");
    const UndoResult undone = UndoChange(ChangePlaceOf(session), "");
    EXPECT_FALSE(undone.fault);
    EXPECT_EQ(Read("KO.26"), "old\r\n");
    EXPECT_THAT(Files(), ElementsAre("KO.26", "PEP.25"));
    EXPECT_EQ(Kept("Data/Last Run.txt"), "of the run before");
    EXPECT_EQ(Kept("Data/Source Histories.json"), "");
}

TEST_F(ChosenHistoryTest, TickersThatTheFirstDoesNotKnowAreAskedOfTheFallbackInTheSameChange) {
    Choose(6, "eodhd");
    statuses = {{"PEP", 404}};
    const PopulateRun run = Populate({"KO", "PEP"});
    EXPECT_EQ(run.report.Line(), "2 of 2 from Tiingo and EODHD");
    EXPECT_THAT(Files(), ElementsAre("KO.26", "PEP.26"));
    EXPECT_EQ(KeptChanges(ChangePlaceOf(session)).size(), 1U);
}

TEST_F(ChosenHistoryTest, TheYearsAreStoredWithTheHistories) {
    session.settings.DataSettings.Set(6, Value::OfNumber(2));
    Populate({"KO"});
    EXPECT_EQ(Kept("Data/VTRDATAset.ini"), "");
    Populate({"KO"}, Years::Stored);
    EXPECT_THAT(Kept("Data/VTRDATAset.ini"), HasSubstr("\r\n2\r\n"));
}

TEST_F(ChosenHistoryTest, NothingIsChangedWhereNothingCame) {
    Write("KO.26", "old\r\n");
    statuses = {{"KO", 401}};
    const PopulateRun run = Populate({"KO"}, Years::Stored);
    EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
    EXPECT_THAT(run.report.Line(), HasSubstr("Tiingo"));
    EXPECT_EQ(Read("KO.26"), "old\r\n");
    EXPECT_EQ(Kept("Data/VTRDATAset.ini"), "");
    EXPECT_THAT(KeptChanges(ChangePlaceOf(session)), IsEmpty());
}

TEST_F(ChosenHistoryTest, AFileThatCannotBeWrittenFailsTheRunAndNamesIt) {
    std::filesystem::create_directories(folder / "Quotes/KO.26/inside");
    const PopulateRun run = Populate({"KO", "PEP"});
    EXPECT_EQ(run.report.Extent(), RunExtent::Nothing);
    EXPECT_EQ(run.stored, 0U);
    EXPECT_THAT(run.report.Line(), HasSubstr((folder / "Quotes/KO.26").string()));
    EXPECT_FALSE(std::filesystem::exists(folder / "Quotes/PEP.26"));
}

TEST_F(ChosenHistoryTest, TickersOfTheErrorReportAreOneChangeWhateverTheStandardSourceWouldDelete) {
    Keep("Data/Error Report.txt", "Mine.ddq\r\nKO\r\nPEP\r\n");
    Write("PEP.25", "old\r\n");
    statuses = {{"PEP", 404}};
    const PopulateRun run = RepopulateReported(session, web, hosts);
    EXPECT_EQ(run.stored, 1U);
    EXPECT_THAT(Files(), ElementsAre("KO.26", "PEP.25"));
    EXPECT_EQ(KeptChanges(ChangePlaceOf(session)).size(), 1U);
}

TEST_F(ChosenHistoryTest, AnAddedTickersHistoryIsPartOfItsAdding) {
    Keep("Data/Mine.ddq", "Ticker Symbol\r\nPEP\r\n");
    QuoteTable table;
    table.AppendLine("Ticker Symbol");
    table.AppendLine("PEP");
    NewTicker ticker;
    ticker.symbol = "KO";
    const AddedTicker added = AddTicker(session, web, hosts, table, ticker, 0, TableSaving::Always);
    EXPECT_FALSE(added.fault);
    EXPECT_EQ(Read("KO.26"), record);
    EXPECT_EQ(Kept("Data/Mine.ddq"), "Ticker Symbol\r\nKO\r\nPEP\r\n");
}

TEST_F(ChosenHistoryTest, AChoiceThatDoesNotHoldIsToldAndNothingIsAsked) {
    struct Row {
        std::size_t line;
        const char* name;
        const char* sentence;
    };
    constexpr Row kRows[] = {{2, "nobody", "VTRSRCset.ini: 'nobody' is no source that is known here"},
                             {2, "nasdaq", "VTRSRCset.ini: Nasdaq gives no history"},
                             {6, "sec", "VTRSRCset.ini: SEC EDGAR gives no history"}};
    for (const Row& row : kRows) {
        person.said.clear();
        Choose(2, "tiingo");
        Choose(row.line, row.name);
        EXPECT_EQ(Populate({"KO"}).tickers, 0U);
        EXPECT_EQ(Download("KO").days, 0U);
        EXPECT_THAT(Said(), ElementsAre(row.sentence, row.sentence)) << row.name;
        EXPECT_THAT(web.Addresses, IsEmpty());
    }
}

TEST_F(ChosenHistoryTest, AFileOfChoicesThatCannotBeReadIsNoChoiceOfTheStandardSource) {
    std::filesystem::create_directories(folder / "Data/VTRSRCset.ini");
    LoadSettingsFile(SettingsFile::Src, folder.Get(), session.settings);
    Populate({"KO"});
    EXPECT_THAT(Said(),
                ElementsAre((folder / "Data/VTRSRCset.ini").string() + ": cannot be read (Is a directory)"));
    EXPECT_THAT(web.Addresses, IsEmpty());
}

TEST_F(ChosenHistoryTest, AnEmptyLineIsTheStandardSource) {
    Choose(2, "");
    Download("KO");
    EXPECT_THAT(web.Addresses, ElementsAre(UrlOf("KO")));
}

}  // namespace
}  // namespace brantlow
