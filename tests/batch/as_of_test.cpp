// Looking back with --as-of gives what the same call gives on a database that ends on that day.
#include <fmt/format.h>
#include <gmock/gmock.h>

#include <cstdio>
#include <random>

#include "base/text.h"
#include "batch_fixture.h"

namespace brantlow {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

// Year, month and day as one number, of "mm/dd/yy"; nothing for any other text.
std::optional<int> DayNumber(const std::string& text) {
    int month = 0;
    int day = 0;
    int year = 0;
    int end = 0;
    const bool read = std::sscanf(text.c_str(), "%2d/%2d/%2d%n", &month, &day, &year, &end) == 3;
    if (!read || end != 8 || text.size() != 8 || month < 1 || month > 12 || day < 1) return std::nullopt;
    return (year < 30 ? 2000 + year : 1900 + year) * 10000 + month * 100 + day;
}

// The records of a file up to a day, by a route of its own.
std::string Truncated(const std::string& bytes, int lastDay) {
    std::string kept;
    bool keep = true;
    std::istringstream in(bytes);
    for (std::string line; std::getline(in, line);) {
        const std::size_t quote = line.find('"', 1);
        if (line.starts_with('"') && quote != std::string::npos) {
            const auto day = DayNumber(line.substr(1, quote - 1));
            if (day) keep = *day <= lastDay;
        }
        if (keep) kept += line + "\n";
    }
    return kept;
}

class AsOf : public BatchTest {
  protected:
    AsOf() {
        EXPECT_EQ(Call({"--today", "2026-11-21", "practice"}).status, ExitStatus::Done);
        LineReader lines(table_ = Read("Data/Practice.ddq"));
        std::string_view line;
        lines.Next(line);
        while (lines.Next(line)) tickers_.emplace_back(line.substr(0, line.find('\t')));
        SpoilSomeFiles();
    }

    // Records that a look back has to tell apart: without a date, out of order, with fields missing, and a
    // ticker whose history has a gap.
    void SpoilSomeFiles() {
        const std::string one = Read("Quotes/EOD/" + tickers_[0] + ".26");
        const std::size_t half = one.find('\n', one.size() / 2) + 1;
        Write("Quotes/EOD/" + tickers_[0] + ".26",
              "\"\",\"\",9,9,9\r\n" + one.substr(0, half) + "\"no day\",\"\",7,6,8,100\r\n" +
                  one.substr(half) + "\"01/05/26\",\"\",5,4,6,1,1,1,1,1,1,\"\",\"\",1,1,1,1,1,5\r\n\r\n");
        Write("Quotes/EOD/" + tickers_[1] + ".25", "");
        std::filesystem::remove(folder / ("Quotes/EOD/" + tickers_[2] + ".24"));
    }

    // The folder with a database that ends on the day.
    void TruncateInto(const TempFolder& copy, int lastDay) const {
        std::filesystem::copy(folder.Get(), copy.Get(), std::filesystem::copy_options::recursive);
        for (const auto& entry : std::filesystem::directory_iterator(copy / "Quotes/EOD")) {
            const std::string bytes = Truncated(BytesOrEmpty(entry.path()), lastDay);
            ASSERT_FALSE(WriteWholeFile(entry.path(), bytes, Flush::Later));
        }
    }
    static CallResult CallIn(const TempFolder& place, std::vector<std::string> arguments) {
        return CallWith(arguments, place / "brantlow-batch", [] { return false; });
    }
    std::vector<std::string> SomeTickers(std::mt19937& dice) const {
        std::vector<std::string> some = {tickers_[dice() % 3]};
        for (int i = 0; i < 4; ++i) some.push_back(tickers_[dice() % tickers_.size()]);
        std::shuffle(some.begin(), some.end(), dice);
        return some;
    }

    std::string table_;
    std::vector<std::string> tickers_;
};

std::string Iso(int day) {
    return fmt::format("{:04}-{:02}-{:02}", day / 10000, day / 100 % 100, day % 100);
}

TEST_F(AsOf, EveryCommandSeesTheDatabaseThatEndsOnTheDay) {
    std::mt19937 dice(20261121);
    const std::vector<std::string> commands = {"series",  "indicators", "evaluate",
                                               "explain", "signals",    "backtest"};
    const std::vector<int> days = {20261120, 20260102, 20251231, 20260105, 20250617, 20260314, 20240229};
    for (const int day : days) {
        const TempFolder copy;
        ASSERT_NO_FATAL_FAILURE(TruncateInto(copy, day));
        for (const std::string& command : commands) {
            for (const std::string interval : {"daily", "weekly", "monthly"}) {
                std::vector<std::string> call = {"--today", Iso(day), command, "--interval", interval};
                const auto some = SomeTickers(dice);
                call.insert(call.end(), some.begin(), some.end());
                const CallResult then = CallIn(copy, call);
                call[1] = "2026-11-21";
                call.insert(call.end(), {"--as-of", Iso(day)});
                const CallResult now = Call(call);
                ASSERT_EQ(then.status, ExitStatus::Done) << then.err;
                ASSERT_EQ(now.status, ExitStatus::Done) << now.err;
                ASSERT_EQ(now.out, then.out) << command << " " << interval << " " << day;
            }
        }
    }
}

TEST_F(AsOf, ASelectorRunWritesItsOwnTableOnly) {
    for (const std::string interval : {"daily", "weekly", "monthly"}) {
        const int day = 20260313;
        const TempFolder copy;
        ASSERT_NO_FATAL_FAILURE(TruncateInto(copy, day));
        Write("Data/Evaluations.dbe", "old");
        Write("Data/Error Report.txt", "old");
        const CallResult then = CallIn(copy, {"--today", Iso(day), "select", "Practice.ddq", "--interval",
                                              interval, "--out", "Then.dbe"});
        const auto before = Everything();
        const CallResult now = Call({"--today", "2026-11-21", "select", "Practice.ddq", "--interval",
                                     interval, "--out", "Then.dbe", "--as-of", Iso(day)});
        ASSERT_EQ(now.status, ExitStatus::Done) << now.err;
        EXPECT_EQ(now.out, then.out);
        EXPECT_EQ(Read("Data/Then.dbe"), BytesOrEmpty(copy / "Data/Then.dbe"));
        EXPECT_THAT(Read("Data/Then.dbe"), HasSubstr("\tBuy\t"));
        std::filesystem::remove(folder / "Data/Then.dbe");
        EXPECT_EQ(Everything(), before);
    }
}

TEST_F(AsOf, ARunWithoutItsOwnTableIsWrongUsage) {
    const auto before = Everything();
    const CallResult result = Call({"select", "Practice.ddq", "--as-of", "2026-03-13"});
    EXPECT_EQ(result.status, ExitStatus::Usage);
    EXPECT_EQ(result.err, "--as-of: a look back needs --out, a table of its own\n");
    EXPECT_EQ(Everything(), before);
}

TEST_F(AsOf, AWrongDayIsWrongUsage) {
    for (const std::string day : {"2026-02-30", "yesterday", "02/03/2026", "26-02-03", ""}) {
        for (const std::string command :
             {"series", "indicators", "evaluate", "explain", "signals", "backtest"}) {
            const CallResult result = Call({command, tickers_[0], "--as-of", day});
            EXPECT_EQ(result.status, ExitStatus::Usage) << command << " " << day;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
            EXPECT_THAT(result.err, HasSubstr("--as-of"));
        }
    }
}

TEST_F(AsOf, ACenturyEarlierTheFilesOfTheSameDigitsHoldNothing) {
    const CallResult result = Call({"series", tickers_[3], "--as-of", "1926-03-01"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_THAT(result.out, HasSubstr("\"BarCount\":0,"));
}

TEST_F(AsOf, ARecordWithoutADateSharesTheFateOfTheOneAbove) {
    const auto record = [](const std::string& date, const std::string& close) {
        return "\"" + date + "\",\"\"," + close + ",1,1,1,0,0,0,0,0,\"\",\"\",0,0,0,0,0,1\r\n";
    };
    Write("Quotes/EOD/ODD.26", record("", "1") + record("01/02/26", "2") + record("?", "3") +
                                   record("01/05/26", "4") + record("99/99/26", "5") +
                                   record("01/01/26", "6"));
    Write("Quotes/EOD/ODD.23", record("12/29/23", "9") + record("12/29/23", "9"));
    const CallResult result = Call({"series", "ODD", "--as-of", "2026-01-02"});
    EXPECT_THAT(result.out, HasSubstr("\"ClosePrice\":[9,1,2,3,6]"));
}

}  // namespace
}  // namespace brantlow
