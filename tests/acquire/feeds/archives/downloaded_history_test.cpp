#include "acquire/feeds/archives/downloaded_history.h"

#include <gtest/gtest.h>

#include "base/dates.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

constexpr sys_days kToday{std::chrono::year{2026} / 11 / 20};
const std::string kFileHead = "<TICKER>,<PER>,<DATE>,<TIME>,<OPEN>,<HIGH>,<LOW>,<CLOSE>,<VOL>,<OPENINT>\r\n";

std::string Row(const std::string& day, const std::string& close = "187") {
    return "AAPL.US,D," + day + ",000000,185,188,183," + close + ",1000000,0\r\n";
}

DownloadedHistory ReadFile(const std::string& bytes) {
    return ReadDownloadedHistory("data/daily/us/nasdaq stocks/1/aapl.us.txt", bytes, kToday);
}

std::vector<std::string> DaysOf(const DownloadedHistory& history) {
    std::vector<std::string> days;
    for (const SourceBar& bar : history.days.bars) days.push_back(FormatIsoDate(Date{bar.day}));
    return days;
}

}  // namespace

TEST(DownloadedHistory, ReadsTheDaysOfTheArchivesForm) {
    const DownloadedHistory history =
        ReadFile(kFileHead + "AAPL.US,D,20240102,000000,185.1234567,188.5,183,187.25,1000000.375,0\r\n" +
                 Row("20240103"));
    EXPECT_EQ(history.days.refusal, "");
    EXPECT_EQ(history.symbol, "AAPL.US");
    ASSERT_EQ(DaysOf(history), (std::vector<std::string>{"2024-01-02", "2024-01-03"}));
    const SourceBar& bar = history.days.bars.front();
    EXPECT_EQ(bar.open, 185.1234567);
    EXPECT_EQ(bar.high, 188.5);
    EXPECT_EQ(bar.low, 183);
    EXPECT_EQ(bar.close, 187.25);
    EXPECT_EQ(bar.volume, 1000000.375);
}

TEST(DownloadedHistory, ReadsTheFormOfOneSymbolsPage) {
    const DownloadedHistory history = ReadDownloadedHistory(
        "brk-b.us.csv",
        "\xEF\xBB\xBF"
        "Date,Open,High,Low,Close,Volume\n2024-01-02,1,3,0.5,2,7\n\n2024-01-03,1,3,0.5,2.5,\n",
        kToday);
    EXPECT_EQ(history.days.refusal, "");
    EXPECT_EQ(history.symbol, "brk-b.us");
    ASSERT_EQ(history.days.bars.size(), 2u);
    EXPECT_EQ(history.days.bars[1].close, 2.5);
    EXPECT_EQ(history.days.bars[1].volume, 0);
}

TEST(DownloadedHistory, FindsColumnsByTheirNamesInAnyOrderWithoutTheVolume) {
    const DownloadedHistory history =
        ReadDownloadedHistory("ko.us.txt", "close,low,HIGH,Open,<date>,note\n2,1,3,1.5,20240102,x\n", kToday);
    EXPECT_EQ(history.days.refusal, "");
    ASSERT_EQ(history.days.bars.size(), 1u);
    EXPECT_EQ(history.days.bars.front().open, 1.5);
    EXPECT_EQ(history.days.bars.front().close, 2);
    EXPECT_EQ(history.days.bars.front().volume, 0);
}

TEST(DownloadedHistory, AnEmptyFileAndAFirstLineAloneHaveNoDays) {
    for (const std::string& bytes : {std::string(), kFileHead, kFileHead + "\r\n"}) {
        const DownloadedHistory history = ReadFile(bytes);
        EXPECT_EQ(history.days.refusal, "");
        EXPECT_TRUE(history.days.bars.empty());
        EXPECT_EQ(history.symbol, "aapl.us");
    }
}

TEST(DownloadedHistory, WhatCannotBeRightIsRefusedWithItsLine) {
    struct BadFile {
        const char* what;
        std::string bytes;
        std::size_t line;
        const char* words;
    };
    const std::vector<BadFile> files = {
        {"another first line", "<html><title>Sorry</title></html>\n", 1, "it names no column DATE"},
        {"no first line", Row("20240102"), 1, "it names no column DATE"},
        {"no close", "Date,Open,High,Low\n", 1, "it names no column CLOSE"},
        {"too many columns", "Date,Open,High,Low,Close" + std::string(40, ',') + "\n", 1,
         "it names too many columns"},
        {"a line that is cut", kFileHead + Row("20240102") + "AAPL.US,D,20240103,000000,185,18", 3,
         "6 fields in place of 10"},
        {"text for a price", kFileHead + Row("20240102", "high"), 2, "'high' is no price"},
        {"a price with something behind it", kFileHead + Row("20240102", "187x"), 2, "'187x' is no price"},
        {"no price", kFileHead + Row("20240102", ""), 2, "'' is no price"},
        {"NaN", kFileHead + Row("20240102", "nan"), 2, "'nan' is no price"},
        {"no end of a price", kFileHead + Row("20240102", "inf"), 2, "'inf' is no price"},
        {"1e308", kFileHead + Row("20240102", "1e308"), 2, "'1e308' is no price"},
        {"a number beyond all", kFileHead + Row("20240102", "1e999"), 2, "'1e999' is no price"},
        {"a volume below 0", kFileHead + "AAPL.US,D,20240102,000000,1,1,1,1,-5,0\r\n", 2,
         "'-5' is no volume"},
        {"a volume of text", kFileHead + "AAPL.US,D,20240102,000000,1,1,1,1,many,0\r\n", 2,
         "'many' is no volume"},
        {"a day to come", kFileHead + Row("20240102") + Row("20261121"), 3, "2026-11-21 is still to come"},
        {"a day twice", kFileHead + Row("20240102") + Row("20240103") + Row("20240103"), 4,
         "2024-01-03 stands there twice"},
        {"a day twice apart", kFileHead + Row("20240102") + Row("20240103") + Row("20240102"), 0,
         "it has two rows for 2024-01-02"},
        {"the 30th of February", kFileHead + Row("20240230"), 2, "'20240230' is no day"},
        {"a day in words", kFileHead + Row("Jan 2"), 2, "'Jan 2' is no day"},
        {"the rows of minutes", kFileHead + "AAPL.US,5,20240102,153000,1,1,1,1,5,0\r\n", 2,
         "its period is '5', no day"},
        {"the day of all tickers", kFileHead + Row("20240102") + "MSFT.US,D,20240102,000000,1,1,1,1,5,0\r\n",
         3, "a row of 'MSFT.US' behind those of AAPL.US"},
        {"no ticker", kFileHead + ",D,20240102,000000,1,1,1,1,5,0\r\n", 2, "a row of no ticker"},
        {"prices of 0", kFileHead + Row("20240102", "0") + Row("20240103"), 0,
         "more than one row in ten has no price"},
    };
    for (const BadFile& file : files) {
        SCOPED_TRACE(file.what);
        const DownloadedHistory history = ReadFile(file.bytes);
        EXPECT_EQ(history.days.refusal, file.words);
        EXPECT_EQ(history.line, file.line);
    }
}

TEST(DownloadedHistory, OneRowInTenWithoutAPriceIsPassedOver) {
    std::string bytes = kFileHead + Row("20240102", "0");
    for (int day = 10; day < 20; ++day) bytes += Row("202401" + std::to_string(day));
    const DownloadedHistory history = ReadFile(bytes);
    EXPECT_EQ(history.days.refusal, "");
    EXPECT_EQ(history.days.bars.size(), 10u);
}

TEST(DownloadedHistory, DaysThatStandNewestFirstAreTurnedRound) {
    const DownloadedHistory history =
        ReadFile(kFileHead + Row("20240104") + Row("20240103") + Row("20240102"));
    EXPECT_EQ(DaysOf(history), (std::vector<std::string>{"2024-01-02", "2024-01-03", "2024-01-04"}));
}

TEST(DownloadedHistory, DaysBefore1930AreLeftOut) {
    const DownloadedHistory history = ReadFile(kFileHead + Row("19291231") + Row("19300102"));
    EXPECT_EQ(history.days.refusal, "");
    EXPECT_EQ(DaysOf(history), (std::vector<std::string>{"1930-01-02"}));
}

// A file is read while it grows, or the disk was full when it came.
TEST(DownloadedHistory, AFileThatIsCutAnywhereIsReadOrRefusedAndNeverMore) {
    const std::string whole = kFileHead + Row("20240102") + Row("20240103");
    const std::size_t days = ReadFile(whole).days.bars.size();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_LE(ReadFile(whole.substr(0, length)).days.bars.size(), days) << length;
    }
}

TEST(DownloadedHistory, TellsTheTickerByItsName) {
    struct Name {
        const char* file;
        bool isHistory;
        const char* symbol;
    };
    const std::vector<Name> names = {
        {"data/daily/us/nasdaq stocks/1/aapl.us.txt", true, "aapl.us"},
        {"AAPL.US.TXT", true, "AAPL.US"},
        {"_prn.us.txt", true, "prn.us"},
        {"us\\2\\ko.us.csv", true, "ko.us"},
        {"^spx.txt", true, "^spx"},
        {"._aapl.us.txt", false, "._aapl.us"},
        {"readme.html", false, "readme"},
        {".txt", false, ""},
    };
    for (const Name& name : names) {
        EXPECT_EQ(IsHistoryFileName(name.file), name.isHistory) << name.file;
        if (name.isHistory) {
            EXPECT_EQ(SymbolOfFileName(name.file), name.symbol) << name.file;
        }
    }
}

TEST(DownloadedHistory, SymbolsAreThoseOfTheTable) {
    struct Symbol {
        const char* symbol;
        const char* ticker;
    };
    for (const Symbol& row : std::vector<Symbol>{{"aapl.us", "AAPL"},
                                                 {"brk-b.us", "BRK.B"},
                                                 {"bac_k.us", "BAC pK"},
                                                 {"^spx", "^GSPC"},
                                                 {"^dji", "^DJI"},
                                                 {"7203.jp", "7203.JP"},
                                                 {"prn.us", "PRN"}}) {
        EXPECT_EQ(ReadSymbol(ArchiveNotation(), row.symbol), row.ticker);
        EXPECT_EQ(SpellSymbol(ArchiveNotation(), row.ticker), row.symbol);
    }
    EXPECT_FALSE(ReadSymbol(ArchiveNotation(), "../evil.us"));
    EXPECT_FALSE(ReadSymbol(ArchiveNotation(), "a b.us"));
}

}  // namespace brantlow
