// The live sources without a window, against the practice market on the loopback: what is clicked in the
// windows does the same in a script.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "acquire/feeds/live/source_keys.h"
#include "base/dates.h"
#include "base/text.h"
#include "batch_fixture.h"
#include "market/market_hosts.h"
#include "market/market_server.h"

namespace brantlow {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr Date November(unsigned day) {
    return Date{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{day}};
}

class LiveCommands : public BatchTest {
  protected:
    LiveCommands() {
        EXPECT_TRUE(server_.Bind(0));
        server_.Run();
        Write("Data/Hosts.ini", MarketHostsText(server_.Address()));
        Write("Data/Keys.ini", "massive=any\r\nalpaca=an-id:a-secret\r\nsec=me@example.org\r\n");
        // The settings of a new folder, without the histories that come with them.
        EXPECT_EQ(CallOn(13, {"practice"}).status, ExitStatus::Done);
        std::filesystem::remove_all(folder / "Quotes/EOD");
        std::filesystem::create_directories(folder / "Quotes/EOD");
        Write("Data/Mine.ddq",
              "Ticker Symbol\tLast Price\tP/E ttm.\tEPS ttm.\tHigh Alarm\tLow Alarm\r\n"
              "NFLX\t\t\t\t\t\r\nAMD\t\t\t\t\t\r\nBRK.B\t\t\t\t\t\r\nZZZZ\t\t\t\t\t\r\n");
    }

    // In the evening of New York.
    CallResult CallOn(unsigned day, std::vector<std::string> arguments) {
        clock_.Set(November(day), 0);
        arguments.insert(arguments.begin(), {"--today", FormatIsoDate(November(day)), "--time", "22:30"});
        return Call(arguments);
    }

    // "11/13/26 12.95" of the newest records.
    std::vector<std::string> Newest(const std::string& file, std::size_t count) const {
        const std::string bytes = Read("Quotes/EOD/" + file);
        std::vector<std::string> rows;
        LineReader lines(bytes);
        for (std::string_view line; lines.Next(line);) {
            const auto cells = SplitAt(line, ',');
            rows.push_back(std::string(cells[0].substr(1, cells[0].size() - 2)) + " " +
                           std::string(cells[2]));
        }
        rows.erase(rows.begin(), rows.end() - static_cast<std::ptrdiff_t>(std::min(count, rows.size())));
        return rows;
    }

  private:
    // By the weeks of Saturday the 21st: NFLX is split on Wednesday.
    MarketData data_ = MarketData::Read(kAssets / "practice", November(21));
    FixedClock clock_{November(13)};
    AlertList alerts_;
    MarketServer server_{data_, clock_, alerts_};
};

struct LiveSourceRow {
    const char* name;
    const char* title;
    const char* splits;  // who tells them
};

// The test's name does not hang on where its texts lie.
void PrintTo(const LiveSourceRow& row, std::ostream* out) {
    *out << row.name;
}

class LiveWeek : public LiveCommands, public ::testing::WithParamInterface<LiveSourceRow> {};

TEST_P(LiveWeek, IsPopulatedMissedAndCaughtUpWithItsSplitAndItsAlarm) {
    const std::string source = GetParam().name;
    const std::string line = "3 of 4 from " + std::string(GetParam().title) + ", 1 ";
    const CallResult populated = CallOn(13, {"populate", "Mine.ddq", "--years", "2", "--source", source});
    EXPECT_EQ(populated.status, ExitStatus::Done) << populated.err;
    EXPECT_EQ(populated.out, "Tickers: 4\nWith data: 3\n" + line + "unknown\n");
    EXPECT_THAT(populated.err, HasSubstr(line + "ticker unknown: ZZZZ\n"));
    EXPECT_EQ(populated.err.find("terms") != std::string::npos, source == "yahoo") << populated.err;
    EXPECT_THAT(Newest("NFLX.26", 1), ElementsAre("11/13/26 680.6"));

    EXPECT_EQ(CallOn(20, {"alarm", "Mine.ddq", "AMD", "--high", "1"}).status, ExitStatus::Done);
    const CallResult updated = CallOn(20, {"update", "Mine.ddq", "--source", source});
    EXPECT_EQ(updated.status, ExitStatus::Done) << updated.err;
    EXPECT_THAT(updated.out, StartsWith("Tickers: 4\nQuotes for the database: 3\nDays stored: 15\n"
                                        "Histories adjusted: 1\nNFLX: split 7 for 1 on 2026-11-18, "));
    EXPECT_THAT(updated.out, EndsWith(line + "unknown\n"));
    EXPECT_THAT(updated.err, Not(HasSubstr("terms")));
    EXPECT_THAT(Newest("AMD.26", 6), ElementsAre("11/13/26 12.95", "11/16/26 13.32", "11/17/26 12.87",
                                                 "11/18/26 13.74", "11/19/26 13.25", "11/20/26 12.45"));
    EXPECT_THAT(Newest("NFLX.26", 4),
                ElementsAre("11/17/26 100.371", "11/18/26 98.13", "11/19/26 115.81", "11/20/26 114.77"));
    const auto fired = nlohmann::json::parse(CallOn(20, {"alarms"}).out);
    EXPECT_EQ(fired["ticker"], "AMD");
    EXPECT_EQ(fired["price"], "12.450");
    EXPECT_EQ(fired["when"], "2026-11-20 16:00");

    // What was restated once is not restated again.
    const CallResult checked = CallOn(20, {"split-calendar", "--source", GetParam().splits});
    EXPECT_EQ(checked.status, ExitStatus::Done) << checked.err;
    EXPECT_EQ(checked.out, "Told: 1\nRestated: 0\n");
    EXPECT_THAT(Newest("NFLX.26", 4)[0], "11/17/26 100.371");
}

INSTANTIATE_TEST_SUITE_P(Sources, LiveWeek,
                         ::testing::Values(LiveSourceRow{"massive", "Massive", "massive"},
                                           LiveSourceRow{"alpaca", "Alpaca", "alpaca"},
                                           LiveSourceRow{"yahoo", "Yahoo", "nasdaq"}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(LiveCommands, FundamentalsFillEmptyCellsAndAreSaved) {
    CallOn(20, {"update", "Mine.ddq", "--source", "massive"});
    const CallResult filled = CallOn(20, {"fundamentals", "Mine.ddq", "--source", "sec"});
    EXPECT_EQ(filled.status, ExitStatus::Done) << filled.err;
    EXPECT_THAT(filled.out, StartsWith("Saved: Mine.ddq\nNFLX: derived from filings to 2026-"));
    EXPECT_THAT(filled.out, EndsWith("3 of 4 from SEC EDGAR, 1 unknown\n"));
    EXPECT_THAT(Read("Data/Mine.ddq"), HasSubstr("AMD\t12.450\t33.649\t0.370\t"));
}

TEST_F(LiveCommands, SymbolsBecomeANewTableAndNeverTakeTheOneThatIsThere) {
    const std::vector<std::string> call = {"symbols",     "--source", "nasdaq", "--exchange",
                                           "nyse,NASDAQ", "--type",   "stock",  "--match",
                                           "berkshire",   "--out",    "New.ddq"};
    const CallResult made = CallOn(20, call);
    EXPECT_EQ(made.status, ExitStatus::Done) << made.err;
    EXPECT_EQ(made.out, "Symbols: 1\nSaved: New.ddq\n");
    const std::string table = Read("Data/New.ddq");
    EXPECT_THAT(table, HasSubstr("\r\nBRK.B\t"));
    EXPECT_THAT(table, HasSubstr("\tNYSE\t"));
    const CallResult again = CallOn(20, call);
    EXPECT_EQ(again.status, ExitStatus::Refused);
    EXPECT_EQ(again.err, "New.ddq: exists already\n");
    EXPECT_EQ(Read("Data/New.ddq"), table);
    EXPECT_EQ(CallOn(20, {"symbols", "--source", "nasdaq", "--exchange", "Moon", "--out", "X.ddq"}).err,
              "--exchange: 'Moon' is no exchange that is known here\n");
    EXPECT_EQ(Read("Data/X.ddq"), "");
}

TEST_F(LiveCommands, SourcesTellTheirKeysAndWhatIsWrongWithThem) {
    std::vector<std::string> withKey;
    const std::string listed = CallOn(20, {"sources"}).out;
    LineReader lines(listed);
    for (std::string_view line; lines.Next(line);) {
        const auto source = nlohmann::json::parse(line);
        if (source["needs_key"] == true && source["has_key"] == true) withKey.push_back(source["name"]);
    }
    EXPECT_THAT(withKey, ElementsAre("alpaca", "massive", "sec"));
    const CallResult good = CallOn(20, {"sources", "check", "massive", "AMD"});
    EXPECT_EQ(good.status, ExitStatus::Done) << good.err;
    EXPECT_THAT(good.out, StartsWith("quotes: 42 rows, 2026-11-20 to 2026-11-20\nhistory: "));
    Write("Data/Keys.ini", "massive=wrong\r\n");
    const CallResult bad = CallOn(20, {"sources", "check", "massive", "AMD"});
    EXPECT_EQ(bad.status, ExitStatus::Refused);
    EXPECT_THAT(bad.out, StartsWith("quotes: bad key: Unknown API Key\n"));
    EXPECT_THAT(bad.out + bad.err, Not(HasSubstr("wrong")));
}

}  // namespace
}  // namespace brantlow
