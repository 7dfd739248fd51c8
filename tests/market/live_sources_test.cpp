// The live sources as the practice market plays them, asked by the adapters themselves: a week of a table of
// 43 tickers gives the year files that the standard source gives, but for what a source cannot give.
#include <gtest/gtest.h>

#include <array>
#include <map>

#include "acquire/feeds/history_download.h"
#include "acquire/feeds/live/company_facts.h"
#include "acquire/feeds/live/live_history.h"
#include "acquire/feeds/live/market_days.h"
#include "acquire/feeds/live/source_catalogue.h"
#include "acquire/feeds/live/symbol_table.h"
#include "acquire/web/memory_web.h"
#include "alerts/price_alarms.h"
#include "base/numbers.h"
#include "daily/daily_update.h"
#include "market/market_fixture.h"
#include "store/columns.h"
#include "store/year_files.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

std::string HeaderOf(const ServiceRequest& request, std::string_view name) {
    for (const std::string& header : request.headers) {
        if (header.starts_with(std::string(name) + ": ")) return header.substr(name.size() + 2);
    }
    return {};
}

// The prices by the weeks of Saturday the 21st: they go on from day to day, and NFLX is split on the 18th.
const MarketData& OneWeek() {
    static const MarketData data = MarketData::Read(ShippedPrices(), kSaturday);
    return data;
}

// An application folder of its own whose web is the practice market.
class MarketFolder {
    // The live sources.
    struct MarketServices final : ServiceWeb {
        explicit MarketServices(MarketFolder& owner) : folder(owner) {}
        ServiceReply Ask(const ServiceRequest& request) override {
            const MarketReply answer = folder.Answered(
                request.url, {HeaderOf(request, "Authorization"), HeaderOf(request, "APCA-API-KEY-ID"),
                              HeaderOf(request, "APCA-API-SECRET-KEY"), HeaderOf(request, "User-Agent")});
            ServiceReply reply;
            reply.status = answer.status;
            reply.bytes = answer.body;
            return reply;
        }
        MarketFolder& folder;
    };

  public:
    explicit MarketFolder(sys_days today, const MarketData& prices = ShippedData()) : data_(prices) {
        std::filesystem::create_directories(folder / "Data");
        std::filesystem::create_directories(folder / "Quotes/EOD");
        session.settings.QuoteFolder = (folder / "Quotes/EOD").string() + "/";
        session.CurrentFile = "Mine.ddq";
        session.settings.DataSettings.Set(6, Value::OfNumber(2));
        session.settings.DataSettings.Set(8, Value::OfText("Automatic Save"));
        session.settings.DataSettings.Set(19, Value::OfText("Automatic"));
        session.settings.NetSettings.Set(3, Value::OfText("Yahoo"));
        session.settings.NetSettings.Set(6, Value::OfNumber(15));
        table.AppendLine(QuoteHeader());
        for (const auto& [name, ticker] : ShippedData().Tickers()) table.AppendLine(name);
        standardWeb.AnswerWith([this](const WebRequest& request) {
            const MarketReply answer = Answered(request.url, {});
            WebReply reply = MemoryWeb::Page(answer.body, answer.contentType);
            reply.status = answer.status;
            reply.ok = answer.status == 200;
            return reply;
        });
        SetDay(today);
    }

    // Half past six in the evening of New York; the tests' zone is UTC.
    void SetDay(sys_days day) { clock.Set(Date{day}, 23.5 * 3600); }

    std::vector<std::string> Tickers() const {
        std::vector<std::string> tickers;
        for (std::size_t row = 1; row <= table.TickerCount(); ++row) tickers.push_back(table.Ticker(row));
        return tickers;
    }

    DailyUpdate Update(const SourceDefinition* source) {
        return Update({source, source == nullptr ? nullptr : &SplitsOf(*source), nullptr});
    }

    // Who is asked for what; without quotes the standard source is.
    struct Asked {
        const SourceDefinition* quotes = nullptr;
        const SourceDefinition* splits = nullptr;
        const SourceDefinition* fundamentals = nullptr;
    };
    DailyUpdate Update(const Asked& asked) {
        QuoteArrays rows;
        AlertedTickers alerted;
        DayStore store;
        WorkingSeries series;
        const SourceDefinition* const source = asked.quotes;
        LiveSources live{world, source, asked.splits};
        live.fundamentals = asked.fundamentals;
        UpdateWork work{session, table, standardWeb, standardHosts, rows, alerted};
        if (source != nullptr) work.live = &live;
        return RunDailyUpdate(work, store, series);
    }

    static const SourceCatalogue& Shipped() {
        static const SourceCatalogue catalogue = LoadSources("/nonexistent");
        return catalogue;
    }
    static const SourceDefinition& Source(std::string_view name) { return *Shipped().Find(name); }
    static const SourceDefinition& SplitsOf(const SourceDefinition& source) {
        return source.Form(Capability::Splits) != nullptr ? source : Source("nasdaq");
    }

    // The stored days of a ticker as "date close low high volume open" in order.
    std::vector<std::string> Days(const std::string& ticker) const {
        std::vector<std::pair<Date, std::string>> rows;
        for (const Path& file : YearFilesOf(session.settings.QuoteFolder, ticker)) {
            const std::string bytes = BytesOrEmpty(file);
            LineReader lines(bytes);
            for (std::string_view line; lines.Next(line);) {
                const HistoryRecord record = ParseHistoryLine(line);
                std::string text = record.HistoryDate;
                for (const double value : {record.HistoryClose, record.HistoryLow, record.HistoryHigh,
                                           record.HistoryVolume, record.HistoryOpen}) {
                    text += " " + ShortestNumber(value);
                }
                rows.emplace_back(*ParseDate(record.HistoryDate), std::move(text));
            }
        }
        std::stable_sort(rows.begin(), rows.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        std::vector<std::string> texts;
        for (auto& [date, text] : rows) texts.push_back(std::move(text));
        return texts;
    }

    TempFolder folder;
    FixedClock clock{Date{}};
    RecordingPerson person;
    Session session{folder.Get(), clock, person};
    SourceHosts hosts = SourceHosts::Parse(
        "Limit.massive=100000/1\nLimit.alpaca=100000/1\nLimit.yahoo=100000/1\nLimit.tiingo=100000/1\n"
        "Limit.nasdaq=100000/1\nLimit.sec=100000/1\n");
    MemoryWeb standardWeb;
    Hosts standardHosts;
    MarketServices web{*this};
    QuoteTable table;
    double seconds = 1'795'000'000;
    SourceState state{folder / "Data",
                      {[this] { return seconds; }, [this](double slept) { seconds += slept; }}};
    SourceWorld world{session, web, hosts, state, [](const char* name) -> const char* {
                          return std::string_view(name) == "BRANTLOW_KEY_SEC" ? "me@example.org"
                                                                              : "some-id:some-key";
                      }};
    std::size_t requests = 0;
    std::string fault;
    std::size_t faultFrom = 0;  // the request with which it begins

  private:
    MarketReply Answered(const std::string& url, const MarketHeaders& headers) {
        ++requests;
        const std::size_t host = url.find("://") + 3;
        const std::string path = url.substr(url.find('/', host));
        const std::string name = url.substr(host, url.find('/', host) - host);
        const bool isSeveral = name.find("yahoo") != std::string::npos ||
                               name.find("nasdaq") != std::string::npos ||
                               name.find("sec.gov") != std::string::npos;
        const std::string target = (fault.empty() || requests < faultFrom ? "" : "/fault=" + fault) +
                                   (isSeveral ? "/" + name : "") + path;
        AlertList alerts;
        return Answer(target, data_, clock.Today(), alerts, headers);
    }

    const MarketData& data_;
};

sys_days DayOfDate(int year, unsigned month, unsigned day) {
    return sys_days{Day(year, month, day)};
}

// Whether the practice prices of a ticker are moved by the same time on both days: they go on by weeks.
bool StaysInPlace(const std::string& ticker, sys_days from, sys_days to) {
    const Date last{ShippedData().Find(ticker)->days.back().day};
    return DaysToMoveTicker(ticker, last, Date{from}) == DaysToMoveTicker(ticker, last, Date{to});
}

}  // namespace

TEST(LiveSources, AnAdaptersWeekGivesTheYearFilesOfTheStandardSource) {
    // Monday to Sunday.
    const sys_days first = DayOfDate(2026, 11, 16);
    MarketFolder standard(first);
    DownloadTickerHistory(standard.session, standard.standardWeb, standard.standardHosts, "BAC");
    PopulateDatabase(standard.session, standard.standardWeb, standard.standardHosts, standard.table);
    for (int day = 0; day < 7; ++day) {
        standard.SetDay(first + days{day});
        standard.Update(nullptr);
    }
    for (const char* name : {"massive", "alpaca", "yahoo", "tiingo"}) {
        SCOPED_TRACE(name);
        MarketFolder live(first);
        const LiveReport populated =
            PopulateFromSource(live.world, MarketFolder::Source(name), live.Tickers());
        EXPECT_EQ(populated.Answered(), 43u) << ReportSummary(populated);
        for (int day = 0; day < 7; ++day) {
            live.SetDay(first + days{day});
            const DailyUpdate update = live.Update(&MarketFolder::Source(name));
            ASSERT_TRUE(update.live);
            EXPECT_EQ(update.live->Failed(), 0u) << ReportFailures(*update.live).front();
            EXPECT_FALSE(update.live->fault);
        }
        for (const std::string& ticker : live.Tickers()) {
            const std::vector<std::string> ours = live.Days(ticker);
            const std::vector<std::string> theirs = standard.Days(ticker);
            // Its split moves on with the weeks of the practice prices, a week later each week. The week with
            // a split below holds them still, and compares all 43 tickers.
            if (ticker != "NFLX") {
                EXPECT_EQ(ours, theirs) << ticker;
            }
            EXPECT_GT(ours.size(), 400u) << ticker;
        }
    }
}

namespace {

// Who gives what in a week's run. Nasdaq gives splits, and filings the figures of companies, neither of them
// prices.
struct WeekRow {
    const char* quotes;
    const char* splits;
    const char* fundamentals = "";
};
constexpr std::array<WeekRow, 7> kWeekRows = {{{"massive", "massive"},
                                               {"massive", "nasdaq"},
                                               {"alpaca", "alpaca"},
                                               {"alpaca", "nasdaq"},
                                               {"yahoo", "nasdaq"},
                                               {"tiingo", "nasdaq"},
                                               {"massive", "massive", "sec"}}};

MarketFolder::Asked AskedOf(const WeekRow& row) {
    MarketFolder::Asked asked{&MarketFolder::Source(row.quotes), &MarketFolder::Source(row.splits), nullptr};
    if (*row.fundamentals != '\0') asked.fundamentals = &MarketFolder::Source(row.fundamentals);
    return asked;
}

std::map<std::string, std::vector<std::string>> DaysOfAll(const MarketFolder& market) {
    std::map<std::string, std::vector<std::string>> all;
    for (const std::string& ticker : market.Tickers()) all[ticker] = market.Days(ticker);
    return all;
}

// The standard way of restating goes over the working series, which begins with the second record and loses
// the last one of a year where the next year's file follows. A live source's restatement loses none.
std::vector<std::string> WithoutTurnsOfTheYear(const std::vector<std::string>& rows) {
    constexpr std::size_t kYear = 6;  // of "mm/dd/yy ..."
    std::vector<std::string> kept;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const bool isTurn = i + 1 < rows.size() && rows[i].compare(kYear, 2, rows[i + 1], kYear, 2) != 0;
        if (!isTurn) kept.push_back(rows[i]);
    }
    return kept;
}

void ExpectSameDays(const MarketFolder& market,
                    const std::map<std::string, std::vector<std::string>>& expected) {
    auto all = DaysOfAll(market);
    for (auto& [ticker, found] : all) {
        EXPECT_GT(found.size(), 400u) << ticker;
        if (ticker == "NFLX") found = WithoutTurnsOfTheYear(found);
        const std::vector<std::string>& rows = expected.at(ticker);
        ASSERT_EQ(found.size(), rows.size()) << ticker;
        const auto [ours, theirs] = std::mismatch(found.begin(), found.end(), rows.begin());
        if (ours != found.end()) {
            ADD_FAILURE() << ticker << ": " << *ours << "\nin place of " << *theirs;
        }
    }
}

}  // namespace

// Monday to Sunday, the split on Wednesday: day by day, and by one update after the week was missed.
TEST(LiveSources, AWeekWithASplitGivesTheYearFilesOfTheStandardSourceFromEachSource) {
    const sys_days first = DayOfDate(2026, 11, 16);
    const sys_days last = DayOfDate(2026, 11, 22);
    MarketFolder standard(first, OneWeek());
    PopulateDatabase(standard.session, standard.standardWeb, standard.standardHosts, standard.table);
    for (sys_days day = first; day <= last; day += days{1}) {
        standard.SetDay(day);
        standard.Update(nullptr);
    }
    const auto expected = DaysOfAll(standard);
    ASSERT_EQ(expected.size(), 43u);
    for (const WeekRow& row : kWeekRows) {
        SCOPED_TRACE(std::string(row.quotes) + ", splits by " + row.splits);
        MarketFolder daily(first, OneWeek());
        MarketFolder late(first, OneWeek());
        for (MarketFolder* folder : {&daily, &late}) {
            const LiveReport populated =
                PopulateFromSource(folder->world, MarketFolder::Source(row.quotes), folder->Tickers());
            EXPECT_EQ(populated.Answered(), 43u) << ReportSummary(populated);
        }
        std::size_t splits = 0;
        for (sys_days day = first; day <= last; day += days{1}) {
            daily.SetDay(day);
            splits += daily.Update(AskedOf(row)).liveSplits.size();
        }
        EXPECT_EQ(splits, 1u);
        ExpectSameDays(daily, expected);
        late.SetDay(last);
        EXPECT_EQ(late.Update(AskedOf(row)).liveSplits.size(), 1u);
        ExpectSameDays(late, expected);
    }
}

TEST(LiveSources, AMissedWeekIsFetchedInOneUpdate) {
    // The practice prices move on by a week on Thursdays.
    const sys_days first = DayOfDate(2026, 11, 12);
    for (const char* name : {"massive", "alpaca", "yahoo", "tiingo"}) {
        SCOPED_TRACE(name);
        MarketFolder daily(first);
        MarketFolder late(first);
        PopulateFromSource(daily.world, MarketFolder::Source(name), daily.Tickers());
        PopulateFromSource(late.world, MarketFolder::Source(name), late.Tickers());
        for (int day = 0; day <= 6; ++day) {
            daily.SetDay(first + days{day});
            daily.Update(&MarketFolder::Source(name));
        }
        late.SetDay(first + days{6});
        late.Update(&MarketFolder::Source(name));
        std::size_t compared = 0;
        for (const std::string& ticker : daily.Tickers()) {
            if (!StaysInPlace(ticker, first, first + days{6})) continue;
            EXPECT_EQ(late.Days(ticker), daily.Days(ticker)) << ticker;
            ++compared;
        }
        EXPECT_GT(compared, 35u);
    }
}

TEST(LiveSources, APopulateByDaysOfTheMarketIsThatByTickers) {
    const sys_days today = DayOfDate(2026, 11, 20);
    MarketFolder byTickers(today);
    MarketFolder byDays(today);
    const std::vector<std::string> tickers = byDays.Tickers();
    std::vector<std::string> many = tickers;
    for (char c = 'A'; c <= 'Z'; ++c) many.push_back(std::string("ZZZ") + c);
    const LiveReport report = PopulateFromSource(byDays.world, MarketFolder::Source("massive"), many);
    PopulateFromSource(byTickers.world, MarketFolder::Source("massive"), tickers);
    EXPECT_EQ(report.Answered(), 43u);
    EXPECT_EQ(report.Count(SourceResult::UnknownSymbol), 26u);
    EXPECT_EQ(ReportSummary(report), "43 of 69 from Massive, 26 unknown");
    for (const std::string& ticker : tickers) {
        if (ticker == "NFLX") continue;  // rounded from other numbers
        EXPECT_EQ(byDays.Days(ticker), byTickers.Days(ticker)) << ticker;
    }
    EXPECT_FALSE(std::filesystem::exists(byDays.folder / "Data" / kSourceDaysFolder));
}

TEST(LiveSources, APopulateByDaysThatBrokeOffGoesOnWhereItWas) {
    const sys_days today = DayOfDate(2026, 11, 20);
    MarketFolder whole(today);
    MarketFolder broken(today);
    for (MarketFolder* folder : {&whole, &broken})
        folder->session.settings.DataSettings.Set(6, Value::OfNumber(0.5));
    std::vector<std::string> many = whole.Tickers();
    for (char c = 'A'; c <= 'Z'; ++c) many.push_back(std::string("ZZZ") + c);
    const SourceDefinition& massive = MarketFolder::Source("massive");
    PopulateFromSource(whole.world, massive, many);
    const std::size_t all = whole.requests;
    ASSERT_GT(all, 120u);

    const std::string old = "\"11/19/26\",\"\",5,5,5,5\r\n";
    ASSERT_FALSE(WriteWholeFile(broken.folder / "Quotes/EOD/BAC.26", old));
    broken.fault = "status500";
    broken.faultFrom = 101;
    const LiveReport first = PopulateFromSource(broken.world, massive, many);
    // Without a history a ticker has what came; one with a history keeps it until all is there.
    EXPECT_EQ(first.Answered(), 42u);
    EXPECT_EQ(broken.Days("CL").back(), whole.Days("CL").back());
    EXPECT_LT(broken.Days("CL").size(), 101u);
    EXPECT_EQ(first.unfinished,
              "100 of " + std::to_string(all - 1) + " days are there; the same call goes on from them");
    EXPECT_EQ(BytesOrEmpty(broken.folder / "Quotes/EOD/BAC.26"), old);

    broken.fault.clear();
    broken.requests = 0;
    const LiveReport second = PopulateFromSource(broken.world, massive, many);
    EXPECT_EQ(ReportSummary(second), "43 of 69 from Massive, 26 unknown");
    EXPECT_EQ(broken.requests, all - 100);
    for (const std::string& ticker : whole.Tickers())
        EXPECT_EQ(broken.Days(ticker), whole.Days(ticker)) << ticker;
    EXPECT_FALSE(std::filesystem::exists(broken.folder / "Data" / kSourceDaysFolder));
}

TEST(LiveSources, ARefusedKeyEndsTheRunAndLeavesEveryHistory) {
    MarketFolder live(DayOfDate(2026, 11, 20));
    PopulateFromSource(live.world, MarketFolder::Source("alpaca"), live.Tickers());
    const std::vector<std::string> before = live.Days("BAC");
    for (const char* name : {"massive", "alpaca", "tiingo"}) {
        live.fault = "badkey";
        live.requests = 0;
        const LiveReport report = PopulateFromSource(live.world, MarketFolder::Source(name), live.Tickers());
        EXPECT_EQ(report.Answered(), 0u);
        EXPECT_EQ(report.Failed(), 43u);
        EXPECT_EQ(live.requests, 1u) << name;
        EXPECT_EQ(live.Days("BAC"), before);
    }
}

TEST(LiveSources, AnUnknownTickerKeepsItsHistoryAndIsTold) {
    MarketFolder live(DayOfDate(2026, 11, 20));
    const Path file = live.folder / "Quotes/EOD/GONE.26";
    ASSERT_FALSE(WriteWholeFile(file, "\"11/19/26\",\"\",5,5,5,5\r\n"));
    for (const char* name : {"massive", "alpaca", "yahoo", "tiingo"}) {
        const LiveReport report = PopulateFromSource(live.world, MarketFolder::Source(name), {"BAC", "GONE"});
        EXPECT_EQ(report.Count(SourceResult::UnknownSymbol), 1u) << name << ReportSummary(report);
        const std::string told = RunReportOf(report, "History").Line();
        EXPECT_NE(told.find("unknown: GONE"), std::string::npos) << told;
        EXPECT_TRUE(IsRegularFile(file)) << name;
    }
}

// A limit that is set behind the day's update fires at the next one, though nothing new has come.
TEST(LiveSources, AnAlarmFiresFromEverySourceAlsoWhereNothingIsNew) {
    for (const char* name : {"massive", "alpaca", "yahoo", "tiingo"}) {
        MarketFolder live(DayOfDate(2026, 11, 20));
        const SourceDefinition& source = MarketFolder::Source(name);
        PopulateFromSource(live.world, source, live.Tickers());
        live.Update(&source);
        const std::optional<std::size_t> high = live.table.ColumnOf(kHighAlarmColumn);
        ASSERT_TRUE(high);
        for (std::size_t row = 1; row <= live.table.TickerCount(); ++row) {
            if (live.table.Ticker(row) == "BAC") live.table.SetText(row, *high, "1");
        }
        for (int run = 0; run < 2; ++run) {
            const DailyUpdate update = live.Update(&source);
            ASSERT_EQ(update.quotes.alarms.size(), 1u) << name;
            EXPECT_EQ(update.quotes.alarms[0].ticker, "BAC");
            EXPECT_EQ(update.quotes.alarms[0].when, "2026-11-20 16:00") << name;
        }
    }
}

TEST(LiveSources, ATodayThatIsNotOutYetFallsBackToTheDayBefore) {
    for (const char* name : {"massive", "alpaca"}) {
        MarketFolder live(DayOfDate(2026, 11, 19));
        PopulateFromSource(live.world, MarketFolder::Source(name), live.Tickers());
        live.SetDay(DayOfDate(2026, 11, 20));
        live.fault = "notyet";
        const DailyUpdate update = live.Update(&MarketFolder::Source(name));
        ASSERT_TRUE(update.live);
        EXPECT_EQ(live.Days("BAC").back().substr(0, 8), "11/19/26") << name;
    }
}

TEST(LiveSources, TheBarOfADayThatIsNotOverIsShownAndNotStored) {
    MarketFolder live(DayOfDate(2026, 11, 19));
    PopulateFromSource(live.world, MarketFolder::Source("yahoo"), live.Tickers());
    // Noon in New York.
    live.clock.Set(Day(2026, 11, 20), 17 * 3600);
    live.Update(&MarketFolder::Source("yahoo"));
    EXPECT_EQ(live.Days("BAC").back().substr(0, 8), "11/19/26");
    std::size_t row = 1;
    while (live.table.Ticker(row) != "BAC") ++row;
    std::string shown;
    for (std::size_t column = 0; column < live.table.ColumnCount(); ++column) {
        if (live.table.Header(column) == "Trade Date") shown = live.table.Text(row, column);
    }
    EXPECT_EQ(shown, "11/20/26");
}

TEST(LiveSources, SymbolsOfTheDirectoriesMakeATable) {
    MarketFolder live(DayOfDate(2026, 11, 20));
    const SymbolList all = AskSymbols(live.world, MarketFolder::Source("nasdaq"), {});
    EXPECT_EQ(all.symbols.size(), 43u);
    const SymbolList chosen =
        AskSymbols(live.world, MarketFolder::Source("massive"), {{"NYSE"}, "stock", "berkshire"});
    ASSERT_EQ(chosen.symbols.size(), 1u);
    const QuoteTable table = TableOfSymbols(chosen.symbols);
    EXPECT_EQ(table.Ticker(1), "BRK.B");
}

TEST(LiveSources, TheIndexIsKnownByTheSpellingOfEachSource) {
    MarketFolder live(DayOfDate(2026, 11, 20));
    live.table = QuoteTable();
    for (const char* line : {"Ticker Symbol\tLast Price", "SPX\t", "^GSPC\t"}) live.table.AppendLine(line);
    live.Update(&MarketFolder::Source("yahoo"));
    EXPECT_EQ(live.table.Text(1, 1), live.table.Text(2, 1));
    EXPECT_NE(live.table.Text(2, 1), "");

    const auto days = [](const std::string& symbol) {
        return Ask("/v2/aggs/ticker/" + symbol + "/range/1/day/2026-11-02/2026-11-13?apiKey=any").body;
    };
    std::string index = days("I:SPX");
    EXPECT_NE(index.find("\"results\""), std::string::npos) << index;
    index.replace(index.find("I:SPX"), 5, "SPX");
    EXPECT_EQ(index, days("SPX"));
}

TEST(LiveSources, FilingsFillWhatARowLacks) {
    MarketFolder live(DayOfDate(2026, 11, 20));
    live.Update(&MarketFolder::Source("alpaca"));
    const LiveReport report = FillFundamentals(live.world, MarketFolder::Source("sec"), live.table);
    // SPX is an index, which files nothing.
    EXPECT_EQ(report.Answered(), 42u) << ReportSummary(report);
    EXPECT_EQ(report.Count(SourceResult::NoData), 1u);
    ASSERT_FALSE(report.tickers.empty());
    EXPECT_EQ(report.tickers.front().days, 1u);
    EXPECT_NE(report.tickers.front().outcome.words.find("derived from filings to 2026-10-06"),
              std::string::npos)
        << report.tickers.front().outcome.words;
    // A second time nothing is asked and nothing is empty.
    live.requests = 0;
    const LiveReport again = FillFundamentals(live.world, MarketFolder::Source("sec"), live.table);
    EXPECT_LE(live.requests, 1u);
    for (const LiveTicker& row : again.tickers) EXPECT_EQ(row.days, 0u) << row.ticker;
}

}  // namespace brantlow
