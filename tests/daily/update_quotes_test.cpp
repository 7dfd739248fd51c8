#include "daily/update_quotes.h"

#include "daily/update_fixture.h"
#include "store/columns.h"
#include "store/table_colours.h"

namespace brantlow {
namespace {

using Lines = std::vector<std::string>;

class UpdateQuotesTest : public UpdateTest {
  protected:
    // Every ticker that is asked for has a quote of this day.
    void AnswerWithQuotesOf(const std::string& day) {
        web.AnswerWith([day](const WebRequest& request) {
            std::string text;
            for (const std::string& ticker : AskedTickers(request.url)) {
                if (!ticker.empty()) text += ReplyLine(ticker).With(3, "\"" + day + "\"").Text();
            }
            return MemoryWeb::Page(text);
        });
    }
};

constexpr const char* kSampleRecord =
    ",110,10,111,109,99,112,12345,22,5,2,\"03/01/24\",\"02/01/24\",101,50,120,\"Name, Inc\",\"NYSE\","
    "\"03/15/24\",\"16:01\",6,1.5,3,100,1200,101\r\n";

TEST_F(UpdateQuotesTest, EveryColumnOfTheTableIsFilled) {
    table = QuoteTable();
    table.AppendLine(QuoteHeader());
    table.AppendLine("IBM");
    EXPECT_EQ(Update().accepted, 1U);
    const Lines cells = {"IBM",      "110.000",  "10.000",  "10.000",  "111.000", "109.000", "99.000",
                         "112.000",  "12345",    "101.000", "100.000", "50.000",  "120.000", "Name, Inc",
                         "NYSE",     "03/15/24", "16:01",   "22.000",  "18.33",   "5.000",   "6.000",
                         "33.33333", "0.13636",  "1.500",   "3.000",   "2.000",   "2.000",   "03/01/24",
                         "02/01/24", "1200",     "400.00",  "54.545",  "72.000",  "",        ""};
    ASSERT_EQ(table.ColumnCount(), cells.size());
    for (std::size_t c = 0; c < cells.size(); ++c) EXPECT_EQ(table.Text(1, c), cells[c]) << table.Header(c);
}

TEST_F(UpdateQuotesTest, TheRecordIsWrittenByteForByte) {
    table = Tickers(2);
    Update();
    EXPECT_EQ(Read("Import.Txt"), std::string("\"T1\"") + kSampleRecord + "\"T2\"" + kSampleRecord);
    EXPECT_FALSE(Exists("Temp.txt"));
}

TEST_F(UpdateQuotesTest, ColumnsInAnyOrderAndUnknownOnes) {
    table = TableOf({"Ticker Symbol\tVolume\tMine\tLast Price", "T1\t\tmy note\t"});
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t12345\tmy note\t110.000");
}

TEST_F(UpdateQuotesTest, ATableWithOneDataRowAsksForFifteenTickers) {
    Update();
    EXPECT_EQ(web.Addresses, Lines{"http://quotes.test/d/quotes.txt?s=T1,,,,,,,,,,,,,,"
                                   "&f=sl1d1t1r1c1nxqabohdjkegrvr5e7pj1p5&e"});
}

TEST_F(UpdateQuotesTest, TheLastBatchStopsAtTheRowCount) {
    table = Tickers(17);
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(outcome.batches, 2U);
    EXPECT_EQ(outcome.accepted, 17U);
    EXPECT_EQ(AskedTickers(web.Addresses.at(1)),
              (Lines{"T16", "T17", "", "", "", "", "", "", "", "", "", "", "", "", ""}));
    for (std::size_t row = 1; row <= 17; ++row) EXPECT_EQ(table.Text(row, 1), "110.000") << row;
    EXPECT_EQ(table.RowCount(), 18U);
    EXPECT_DOUBLE_EQ(person.progress.back(), 1);
}

TEST_F(UpdateQuotesTest, AtMostFourRequestsAreAheadAndRowsComeInOrder) {
    table = Tickers(200);
    Update();
    EXPECT_EQ(web.MostStarted, 4U);
    EXPECT_EQ(web.Addresses.size(), 14U);
    for (std::size_t i = 0; i < web.Addresses.size(); ++i) {
        EXPECT_EQ(AskedTickers(web.Addresses[i]).front(), "T" + std::to_string(i * 15 + 1));
    }
    EXPECT_TRUE(std::is_sorted(person.progress.begin(), person.progress.end()));
    EXPECT_EQ(Read("Import.Txt").substr(0, 4), "\"T1\"");
}

TEST_F(UpdateQuotesTest, AStepUnderFifteenOverlapsTheRequests) {
    table = Tickers(25);
    Set(session.settings.NetSettings, 6, "10");
    EXPECT_EQ(Update().accepted, 25U);
    ASSERT_EQ(web.Addresses.size(), 3U);
    EXPECT_EQ(AskedTickers(web.Addresses[1]).front(), "T11");
    EXPECT_EQ(AskedTickers(web.Addresses[1]).back(), "T25");
    EXPECT_EQ(AskedTickers(web.Addresses[1]).size(), 15U);
}

TEST_F(UpdateQuotesTest, AStepBelowOneCountsAsFifteen) {
    table = Tickers(16);
    for (const char* step : {"0", "-5", ""}) {
        Set(session.settings.NetSettings, 6, step);
        web.Addresses.clear();
        Update();
        EXPECT_EQ(web.Addresses.size(), 2U) << step;
    }
}

TEST_F(UpdateQuotesTest, HeaderLinesShiftTheRowsOfTheStandardSourceToo) {
    table = Tickers(4);
    Set(session.settings.NetSettings, 7, "1");
    web.AnswerWith([](const WebRequest&) {
        return MemoryWeb::Page(ReplyLine("T2").Text() + ReplyLine("T3").Text() + ReplyLine("T4").Text());
    });
    Update();
    EXPECT_EQ(LinesOf(table),
              (Lines{"Ticker Symbol\tLast Price", "T1\t", "T2\t110.000", "T3\t110.000", "T4\t110.000"}));
}

TEST_F(UpdateQuotesTest, FooterLinesLengthenABatch) {
    table = Tickers(4);
    Set(session.settings.NetSettings, 6, "2");
    Set(session.settings.NetSettings, 8, "1");
    web.AnswerWith([this](const WebRequest& request) {
        const std::string first = AskedTickers(request.url).front();
        return MemoryWeb::Page(first == "T1" ? ReplyLine("T1").Text() + ReplyLine("T2").Text() +
                                                   ReplyLine("T3").Text() + ReplyLine("T4").Text()
                                             : std::string());
    });
    Update();
    EXPECT_EQ(table.Text(3, 1), "110.000");
    EXPECT_EQ(table.Text(4, 1), "");
}

TEST_F(UpdateQuotesTest, AnOldQuoteUpdatesTheTableAndIsNotRecorded) {
    struct Row {
        const char* date;
        std::size_t accepted;
    };
    // Today is 03/15/24.
    constexpr Row kRows[] = {{"\"3/15/2024\"", 1}, {"\"3/14/2024\"", 1}, {"\"3/13/2024\"", 1},
                             {"\"3/12/2024\"", 1}, {"\"3/11/2024\"", 0}, {"\"3/16/2024\"", 0},
                             {"\"N/A\"", 0},       {"\"\"", 0}};
    table = Tickers(1, "\tLast Price\tTrade Date");
    double price = 200;
    for (const Row& row : kRows) {
        ++price;
        lines["T1"] =
            ReplyLine("T1").With(2, std::to_string(static_cast<int>(price))).With(3, row.date).Text();
        EXPECT_EQ(Update().accepted, row.accepted) << row.date;
        EXPECT_EQ(Exists("Import.Txt"), row.accepted == 1) << row.date;
        EXPECT_EQ(table.Text(1, 1), std::to_string(static_cast<int>(price)) + ".000");
    }
}

TEST_F(UpdateQuotesTest, APriceOfZeroIsNotRecorded) {
    for (const char* price : {"0", "N/A", "-1", "0.00"}) {
        lines["T1"] = ReplyLine("T1").With(2, price).Text();
        EXPECT_EQ(Update().accepted, 0U) << price;
        EXPECT_FALSE(Exists("Import.Txt"));
    }
}

TEST_F(UpdateQuotesTest, MarketCapsByTheirUnit) {
    struct Row {
        const char* text;
        const char* cell;
    };
    constexpr Row kRows[] = {
        {"1.2B", "1200"}, {"850.5M", "850.5"}, {"300K", "0.3"}, {"N/A", "0"}, {"12", "0"}};
    table = Tickers(1, "\tMarket Cap (M)");
    for (const Row& row : kRows) {
        lines["T1"] = ReplyLine("T1").With(24, row.text).Text();
        Update();
        EXPECT_EQ(table.Text(1, 1), row.cell) << row.text;
    }
}

TEST_F(UpdateQuotesTest, ADividendOfZeroClearsBothDateCells) {
    table = Tickers(1, "\tDividend Date\tX Dividend Date\tYield (%)");
    table.SetText(1, 1, "old");
    lines["T1"] = ReplyLine("T1").With(14, "0").Text();
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t\t\t");
}

TEST_F(UpdateQuotesTest, APayDateInJanuaryAfterADecemberExDateGetsNextYear) {
    clock.Set(Date{std::chrono::year{2024}, std::chrono::month{12}, std::chrono::day{20}}, 0);
    table = Tickers(1, "\tDividend Date\tX Dividend Date");
    lines["T1"] = ReplyLine("T1").With(5, "\"1/15/2024\"").With(9, "\"12/10/2024\"").Text();
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t01/15/25\t12/10/24");
}

TEST_F(UpdateQuotesTest, APayDateThatIsMissingStaysEmpty) {
    table = Tickers(1, "\tDividend Date\tX Dividend Date");
    for (const char* date : {"\"N/A\"", "\"\""}) {
        lines["T1"] = ReplyLine("T1").With(5, date).Text();
        Update();
        EXPECT_EQ(LineText(table, 1), "T1\t\t02/01/24") << date;
    }
}

TEST_F(UpdateQuotesTest, MissingValuesBecomeEmptyCells) {
    table = Tickers(1, "\tLast Price\tBid Price\tAsk Price\tName\tOpen Price");
    lines["T1"] = ReplyLine("T1")
                      .With(2, "9000")
                      .With(11, "0.01")
                      .With(10, "N/A")
                      .With(7, "\"N/A\"")
                      .With(12, "9000.01")
                      .Text();
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t\t\t\t\t9000.010");
}

TEST_F(UpdateQuotesTest, AnUnknownTickersLineOfNotAvailableGivesEmptyCells) {
    table = QuoteTable();
    table.AppendLine(QuoteHeader());
    table.AppendLine("T1");
    ReplyLine line("T1");
    for (std::size_t field = 2; field <= 25; ++field) line.With(field, "N/A");
    lines["T1"] = line.Text();
    EXPECT_EQ(Update().accepted, 0U);
    for (std::size_t c = 1; c < table.ColumnCount(); ++c) {
        EXPECT_EQ(table.Text(1, c), table.Header(c) == "Market Cap (M)" ? "0" : "") << table.Header(c);
    }
}

TEST_F(UpdateQuotesTest, AlarmCellsKeepTheirValues) {
    table = TableOf({"Ticker Symbol\tHigh Alarm\tLow Alarm\tLast Price", "T1\t9000.000\t0.010\t5"});
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t9000.000\t0.010\t110.000");
}

TEST_F(UpdateQuotesTest, WhatCannotBeComputedStaysFromTheUpdateBefore) {
    table = Tickers(1, "\tAnnual Earnings (M)\tP/E est.\tE/S");
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t54.545\t18.33\t0.13636");
    lines["T1"] = ReplyLine("T1").With(19, "-22").Text();
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t54.545\t-18.33\t0.13636");
}

TEST_F(UpdateQuotesTest, TheValuesOfAnotherTableAreForgotten) {
    table = Tickers(1, "\tAnnual Earnings (M)");
    Update();
    table = TableOf({"Ticker Symbol\tAnnual Earnings (M)", "OTHER"});
    lines["OTHER"] = ReplyLine("OTHER").With(19, "0").Text();
    Update();
    EXPECT_EQ(LineText(table, 1), "OTHER\t");
}

TEST_F(UpdateQuotesTest, AGermanHostsCommasAndSemicolons) {
    session.settings.QuoteHost = "http://de.test";
    table = Tickers(1, "\tLast Price\tChange\tName");
    lines["T1"] = ReplyLine("T1").With(2, "1,5").With(6, "2,5").With(7, "\"AG, Neu\"").Text(';');
    EXPECT_EQ(Update().accepted, 1U);
    EXPECT_EQ(LineText(table, 1), "T1\t1.500\t2.500\tAG. Neu");
    EXPECT_TRUE(web.Addresses.front().starts_with("http://de.test/d/quotes.txt?s=T1,"));
}

TEST_F(UpdateQuotesTest, EachBatchOfAGermanHostFillsItsOwnRows) {
    session.settings.QuoteHost = "http://de.test";
    table = Tickers(31, "\tLast Price");
    for (int i = 1; i <= 31; ++i) {
        const std::string ticker = "T" + std::to_string(i);
        lines[ticker] = ReplyLine(ticker).With(2, std::to_string(i) + ",5").Text(';');
    }
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(outcome.batches, 3U);
    EXPECT_EQ(outcome.accepted, 31U);
    for (std::size_t row = 1; row <= 31; ++row)
        EXPECT_EQ(table.Text(row, 1), std::to_string(row) + ".500") << row;
    EXPECT_FALSE(Exists("Temp.txt"));
}

TEST_F(UpdateQuotesTest, ADecimalCommaMarketFillsTheRowWhateverTheTicker) {
    session.settings.QuoteHost = "http://de.test";
    lines["T1"] = ReplyLine("T1.DE").With(2, "1,5").Text(';');
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(LineText(table, 1), "T1\t1.500");
    EXPECT_EQ(rows.Symbols[1], "T1");
    // No file of the database is named after a ticker that only the reply knows.
    EXPECT_EQ(outcome.accepted, 0U);
}

TEST_F(UpdateQuotesTest, AnotherHostsSemicolonsAreNotTouched) {
    lines["T1"] = ReplyLine("T1").Text(';');
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t");
}

TEST_F(UpdateQuotesTest, AMisorderedReplyChangesNoCellsOfARowWhoseTickerDiffers) {
    table = TableOf({"Ticker Symbol\tLast Price", "T1\t1.000", "T2\t2.000", "T3\t3.000"});
    web.AnswerWith([](const WebRequest&) {
        return MemoryWeb::Page(ReplyLine("T2").Text() + ReplyLine("T1").Text() + ReplyLine("T3").Text());
    });
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(LinesOf(table), (Lines{"Ticker Symbol\tLast Price", "T1\t1.000", "T2\t2.000", "T3\t110.000"}));
    // Each record carries its own ticker.
    EXPECT_EQ(outcome.accepted, 3U);
    EXPECT_EQ(Read("Import.Txt"),
              std::string("\"T2\"") + kSampleRecord + "\"T1\"" + kSampleRecord + "\"T3\"" + kSampleRecord);
}

TEST_F(UpdateQuotesTest, ATickerInLowerCaseInTheReplyIsItsRows) {
    lines["T1"] = ReplyLine("t1").Text();
    Update();
    EXPECT_EQ(LineText(table, 1), "T1\t110.000");
    EXPECT_EQ(Read("Import.Txt").substr(0, 5), "\"T1\",");
}

TEST_F(UpdateQuotesTest, OldWorkFilesGoAtTheStart) {
    Write("Import.Txt", "of yesterday");
    web.AnswerWith([](const WebRequest&) { return FailedReply(WebFailure::NoConnection, "refused"); });
    Update();
    EXPECT_FALSE(Exists("Import.Txt"));
}

TEST_F(UpdateQuotesTest, AnotherKindOfFileIsLeftAlone) {
    Write("Import.Txt", "stays");
    for (const char* name : {"Evaluations.dbe", "New EOD Quotes.db", ""}) {
        session.CurrentFile = name;
        Update();
        EXPECT_TRUE(web.Addresses.empty()) << name;
        EXPECT_EQ(Read("Import.Txt"), "stays");
    }
}

TEST_F(UpdateQuotesTest, AWordThatNamesNoSourceStandsForTheStandardOne) {
    for (const char* word : {"", "yahoo", "Somebody"}) {
        Set(session.settings.NetSettings, 3, word);
        web.Addresses.clear();
        EXPECT_EQ(Update().batches, 1U) << word;
        ASSERT_EQ(web.Addresses.size(), 1U) << word;
        EXPECT_EQ(web.Addresses.front().find("http://quotes.test/d/quotes.txt?s=T1,"), 0U) << word;
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(UpdateQuotesTest, TickersThatCannotBeAskedForLeaveTheirPlacesToTheOthers) {
    table = TableOf({"Ticker Symbol\tLast Price", "A&B\t1.000", "T1\t", "A B\t2.000", "T2\t", "T3\t"});
    const UpdateOutcome outcome = Update();
    ASSERT_EQ(web.Addresses.size(), 1U);
    EXPECT_EQ(web.Addresses.front().find("http://quotes.test/d/quotes.txt?s=T1,T2,T3,,,,,,,,,,,,&f="), 0U)
        << web.Addresses.front();
    EXPECT_EQ(LineText(table, 1), "A&B\t1.000");
    EXPECT_EQ(LineText(table, 2), "T1\t110.000");
    EXPECT_EQ(LineText(table, 3), "A B\t2.000");
    EXPECT_EQ(LineText(table, 4), "T2\t110.000");
    EXPECT_EQ(LineText(table, 5), "T3\t110.000");
    EXPECT_EQ(outcome.accepted, 3U);
    ASSERT_EQ(outcome.tickers.size(), 5U);
    EXPECT_EQ(TickerLine(outcome.tickers[0]),
              "A&B: left out: a ticker with a blank or one of & # ? % , cannot be asked for");
    EXPECT_EQ(TickerLine(outcome.tickers[1]), "T1: stored");
}

TEST_F(UpdateQuotesTest, ABatchOfTickersThatCannotBeAskedForMakesNoRequest) {
    std::vector<std::string> text = {"Ticker Symbol\tLast Price"};
    for (int i = 0; i < 15; ++i) text.push_back("A&" + std::to_string(i));
    text.emplace_back("T1\t");
    table = TableOf(text);
    EXPECT_EQ(Update().batches, 1U);
    EXPECT_EQ(web.Addresses.size(), 1U);
    EXPECT_EQ(table.Text(16, 1), "110.000");
}

TEST_F(UpdateQuotesTest, EachRowIsToldOf) {
    table = Tickers(4);
    lines["T2"] = ReplyLine("T2").With(2, "N/A").With(3, "\"N/A\"").Text();
    lines["T3"] = ReplyLine("T3").With(3, "\"2/1/2024\"").Text();
    lines["T4"] = "";
    const UpdateOutcome outcome = Update();
    std::vector<std::string> told;
    for (const TickerTold& ticker : outcome.tickers) told.push_back(TickerLine(ticker));
    EXPECT_EQ(told, (std::vector<std::string>{"T1: stored", "T2: unknown",
                                              "T3: nothing new: a quote too old for the database",
                                              "T4: unknown: no line of the reply"}));
}

TEST_F(UpdateQuotesTest, ATableWithoutTickersAsksNothing) {
    table = Tickers(0);
    EXPECT_EQ(Update().batches, 0U);
    EXPECT_TRUE(web.Addresses.empty());
}

// --- The user's own source ---

class UserSourceTest : public UpdateTest {
  protected:
    UserSourceTest() {
        SetLines(
            session.settings.NetSettings,
            {"Yahoo", "", "User Selected String", "http://user.test/q?s=QUOTESYMBOL,QUOTESYMBOL", "", "2",
             "0", "0", "20040102", "Tab", "StartEOD", "Ticker Symbol", "Last Price", "Trade Date", "EndEOD"});
        session.settings.NetEodFirst = 12;
        session.settings.NetEodLast = 14;
        table = Tickers(3, "\tLast Price\tTrade Date");
    }
};

TEST_F(UserSourceTest, FetchesByTheTemplateAndReadsByTheSequence) {
    clock.Set(Date{std::chrono::year{2024}, std::chrono::month{3}, std::chrono::day{3}}, 0);
    web.Answer("http://user.test/q?s=T1,T2",
               MemoryWeb::Page("\"T1\"\t11\t\"20240303\"\n\"T2\"\t12\t\"20240315\"\n"));
    web.Answer("http://user.test/q?s=T3,", MemoryWeb::Page("\"T3\"\t13\t\"20240303\"\n"));
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(web.Addresses, (Lines{"http://user.test/q?s=T1,T2", "http://user.test/q?s=T3,"}));
    EXPECT_EQ(LinesOf(table), (Lines{"Ticker Symbol\tLast Price\tTrade Date", "T1\t11.000\t03/03/24",
                                     "T2\t12.000\t15/15/2024", "T3\t13.000\t03/03/24"}));
    EXPECT_EQ(outcome.accepted, 2U);
    EXPECT_TRUE(person.said.empty());
}

TEST_F(UserSourceTest, WithoutATemplateItSaysSoAndLeaves) {
    Set(session.settings.NetSettings, 4, "");
    const UpdateOutcome outcome = Update();
    EXPECT_TRUE(outcome.noTemplate);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text,
              "Go to Settings, Application, Quote and Web Settings to set up Quote Downloads.");
    EXPECT_TRUE(web.Addresses.empty());
}

TEST_F(UserSourceTest, AnotherCountOfTickersIsToldAndTheRunGoesOn) {
    Set(session.settings.NetSettings, 6, "3");
    web.Answer("http://user.test/q?s=T1,T2", MemoryWeb::Page("\"T1\"\t11\t\"20240303\"\n"));
    Update();
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text, "Number of Ticker Symbols per String does not match");
    EXPECT_EQ(table.Text(1, 1), "11.000");
}

TEST_F(UserSourceTest, HeaderLinesShiftTheRows) {
    Set(session.settings.NetSettings, 7, "1");
    web.AnswerWith(
        [](const WebRequest&) { return MemoryWeb::Page("Symbol\tLast\tDate\n\"T3\"\t13\t\"20240303\"\n"); });
    Update();
    // The header line stands at row 2, the line of T3 at row 3.
    EXPECT_EQ(table.Text(1, 1), "");
    EXPECT_EQ(table.Text(2, 1), "");
}

TEST_F(UserSourceTest, WithoutASequenceNoRowIsTouched) {
    session.settings.NetEodFirst = 0;
    session.settings.NetEodLast = 0;
    table.SetText(1, 1, "5.000");
    web.AnswerWith([](const WebRequest&) { return MemoryWeb::Page("\"T1\"\t11\t\"20240303\"\n"); });
    Update();
    EXPECT_EQ(table.Text(1, 1), "5.000");
}

// --- Alarms, memory, stopping ---

TEST_F(UpdateQuotesTest, TwoUpdatesWithTheAlarmStillMetBeepTwiceAndAskForOneMail) {
    Set(session.settings.DataSettings, 14, "E-mail Alerts");
    Set(session.settings.DataSettings, 15, "me@home.test");
    table = TableOf({"Ticker Symbol\tLast Price\tHigh Alarm", "T1\t\t110"});
    const std::string alert = "http://vendor.test/send_stock_alert.asp?EA=me@home.test&TS=T1";
    web.Answer(alert, MemoryWeb::Page("sent"));
    Update();
    Update();
    EXPECT_EQ(person.beeps, 2);
    EXPECT_EQ(std::count(web.Addresses.begin(), web.Addresses.end(), alert), 1);
    EXPECT_EQ(table.Style(1, 1), CellStyle::Rising);
}

TEST_F(UpdateQuotesTest, LaterBatchesMayBeAskedForBeforeTheAlertOfAnEarlierOne) {
    Set(session.settings.DataSettings, 14, "E-mail Alerts");
    Set(session.settings.DataSettings, 15, "me@home.test");
    table = TableOf({"Ticker Symbol\tLast Price\tHigh Alarm"});
    for (int row = 1; row <= 40; ++row)
        table.AppendLine("T" + std::to_string(row) + "\t\t" + (row == 1 || row == 40 ? "110" : ""));
    const auto alert = [](const char* ticker) {
        return "http://vendor.test/send_stock_alert.asp?EA=me@home.test&TS=" + std::string(ticker);
    };
    web.Answer(alert("T1"), MemoryWeb::Page("sent"));
    web.Answer(alert("T40"), MemoryWeb::Page("sent"));
    EXPECT_EQ(Update().accepted, 40U);
    ASSERT_EQ(web.Addresses.size(), 5U);
    // Each alert once, in the order of the rows; all three batches, in theirs.
    Lines alerts, batches;
    for (const std::string& address : web.Addresses)
        (address.find("alert") != std::string::npos ? alerts : batches).push_back(address);
    EXPECT_EQ(alerts, (Lines{alert("T1"), alert("T40")}));
    ASSERT_EQ(batches.size(), 3U);
    EXPECT_EQ(web.Addresses.front(), batches.front());
    for (std::size_t i = 0; i < batches.size(); ++i)
        EXPECT_EQ(AskedTickers(batches[i]).front(), "T" + std::to_string(i * 15 + 1));
    EXPECT_EQ(table.Text(1, 1), "110.000");
    EXPECT_EQ(table.Text(40, 1), "110.000");
}

TEST_F(UpdateQuotesTest, TheMemoryWatchStopsAfterTheBatch) {
    table = Tickers(40);
    work.memoryInfo = LittleMemory;
    const UpdateOutcome outcome = Update();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.batches, 1U);
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_NE(person.said[0].text.find("You are experiencing low memory"), std::string::npos);
    EXPECT_EQ(table.Text(15, 1), "110.000");
    EXPECT_EQ(table.Text(16, 1), "");
    EXPECT_EQ(session.run.ProcessCommand, "True");
    // The requests that had left are given up.
    EXPECT_EQ(web.Abandoned, web.Addresses.size() - 1);
}

TEST_F(UpdateQuotesTest, AStopEndsTheRunAtTheNextBatch) {
    table = Tickers(40);
    person.events.push_back([this] { session.run.ProcessCommand = "True"; });
    const UpdateOutcome outcome = Update();
    EXPECT_TRUE(outcome.stopped);
    EXPECT_EQ(outcome.accepted, 15U);
    EXPECT_FALSE(Exists("Temp.txt"));
}

TEST_F(UpdateQuotesTest, NamesTheTickerInWorkAndThenTheSelectedOneAgain) {
    table = Tickers(40);
    session.CurrentTicker = "T7";
    std::vector<std::string> inWork;
    for (int i = 0; i < 3; ++i) person.events.push_back([&] { inWork.push_back(session.CurrentTicker); });
    Update();
    EXPECT_EQ(inWork, (std::vector<std::string>{"T15", "T30", "T40"}));
    EXPECT_EQ(session.CurrentTicker, "T7");
}

TEST_F(UpdateQuotesTest, AStopOfAnEarlierRunDoesNotCount) {
    session.run.ProcessCommand = "True";
    EXPECT_EQ(Update().accepted, 1U);
}

TEST_F(UpdateQuotesTest, TheTopRowFollowsTheBatch) {
    table = Tickers(46);
    std::vector<std::size_t> tops;
    for (int i = 0; i < 4; ++i) person.events.push_back([&] { tops.push_back(session.run.TopRow); });
    Update();
    EXPECT_EQ(tops, (std::vector<std::size_t>{0, 1, 16, 31}));
    EXPECT_EQ(session.run.TopRow, 0U);
}

TEST_F(UpdateQuotesTest, QuotesOlderThanFourDaysAreCountedAndDoNotStopTheRun) {
    table = Tickers(40);
    AnswerWithQuotesOf("3/10/2024");
    const UpdateOutcome outcome = Update();
    EXPECT_EQ(outcome.StaleCount, 40U);
    EXPECT_FALSE(outcome.stopped);
    lines.clear();
}

TEST_F(UpdateQuotesTest, AQuoteOfExactlyFourDaysIsNotStale) {
    lines["T1"] = ReplyLine("T1").With(3, "\"3/11/2024\"").Text();
    EXPECT_EQ(Update().StaleCount, 0U);
    lines["T1"] = ReplyLine("T1").With(3, "\"3/10/2024\"").Text();
    EXPECT_EQ(Update().StaleCount, 1U);
    lines["T1"] = ReplyLine("T1").With(3, "\"N/A\"").Text();
    EXPECT_EQ(Update().StaleCount, 0U);
}

TEST_F(UpdateQuotesTest, StaleRowsThatComeAgainAndAgainStopTheRun) {
    // Each batch of one row takes in all the rows behind it.
    table = Tickers(60);
    Set(session.settings.NetSettings, 6, "1");
    Set(session.settings.NetSettings, 8, "14");
    AnswerWithQuotesOf("3/10/2024");
    const UpdateOutcome outcome = Update();
    EXPECT_TRUE(outcome.stopped);
    // 15 rows a batch pass 1.9 times 61 rows long before batch 16, the first that is looked at.
    EXPECT_EQ(outcome.batches, 16U);
}

}  // namespace
}  // namespace brantlow
