#include "acquire/feeds/history_reply.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace brantlow {
namespace {

constexpr std::string_view kHeader = "Date,Open,High,Low,Close,Volume,Adj. Close*\n";

HistoryReplyForm Form(std::string_view dateForm = "01/02/04") {
    return {0, 0, dateForm, true};
}

// The dates and closes that come of a reply, "01/02/26 10.75" a day.
std::string Days(std::string_view reply, const HistoryReplyForm& form = Form()) {
    std::string days;
    for (const HistoryRecord& record : RecordsOfReply(reply, form)) {
        if (!days.empty()) days += "; ";
        std::string line;
        AppendHistoryLine(record, line);
        const std::size_t close = line.find("\"\",") + 3;
        days += record.HistoryDate + " " + line.substr(close, line.find(',', close) - close);
    }
    return days;
}

std::string Reply(const std::string& lines) {
    return std::string(kHeader) + lines;
}

TEST(HistoryReply, GivesTheDaysOldestFirst) {
    EXPECT_EQ(Days(Reply("5-Jan-26,1,2,3,4,5,6\n2-Jan-26,1,2,3,7,5,6\n31-Dec-25,1,2,3,8,5,6\n")),
              "12/31/25 8; 01/02/26 7; 01/05/26 4");
}

TEST(HistoryReply, ARecordHoldsWhatTheLineHolds) {
    const auto records = RecordsOfReply(Reply("2-Jan-26,10.5,11,9.12345,10.75,1200.6,99\n"), Form());
    ASSERT_EQ(records.size(), 1U);
    std::string line;
    AppendHistoryLine(records[0], line);
    EXPECT_EQ(line, "\"01/02/26\",\"\",10.75,9.123,11,1201,0,0,0,0,0,\"\",\"\",0,0,0,0,0,10.5\r\n");
}

TEST(HistoryReply, ALineEndsAtTheLineFeedAndACarriageReturnDoesNoHarm) {
    EXPECT_EQ(Days("Date,...\r\n2-Jan-26,1,2,3,7,5\r\n31-Dec-25,1,2,3,8,5,6\r\n"), "12/31/25 8; 01/02/26 7");
}

TEST(HistoryReply, WhatStandsBehindTheLastLineFeedIsNoLine) {
    EXPECT_EQ(Days(Reply("2-Jan-26,1,2,3,7,5,6\n31-Dec-25,1,2,3,8,5,6")), "01/02/26 7");
    EXPECT_EQ(Days("2-Jan-26,1,2,3,7,5,6"), "");
}

TEST(HistoryReply, AHeaderAloneGivesNothing) {
    EXPECT_EQ(Days(kHeader), "");
    EXPECT_EQ(Days(""), "");
    EXPECT_EQ(Days("\n"), "");
    EXPECT_EQ(Days("\n\n\n"), "");
}

TEST(HistoryReply, HeaderAndFooterLinesOfTheSettingsAreLeftOut) {
    const std::string reply =
        "h0\nh1\n5-Jan-26,1,2,3,4,5,6\n2-Jan-26,1,2,3,7,5,6\n31-Dec-25,1,2,3,8,5,6\nf\n";
    HistoryReplyForm form = Form();
    struct Line {
        double header;
        double footer;
        std::string days;
    };
    const std::vector<Line> lines = {
        {1, 1, "12/31/25 8; 01/02/26 7; 01/05/26 4"},
        {0, 0, "12/31/25 8; 01/02/26 7; 01/05/26 4"},
        {2, 0, "12/31/25 8; 01/02/26 7"},
        {2, 2, "01/02/26 7"},
        {3, 2, ""},
        {3, 3, ""},
        {100, 0, ""},
        {0, 100, ""},
        {1e300, 1e300, ""},
        // As many days as lines between the first and the end are taken, from line 0 on.
        {-1, 0, "12/31/25 8; 01/02/26 7; 01/05/26 4"},
        {-1e300, -1e300, "12/31/25 8; 01/02/26 7; 01/05/26 4"},
    };
    for (const Line& line : lines) {
        form.headerLines = line.header;
        form.footerLines = line.footer;
        EXPECT_EQ(Days(reply, form), line.days) << line.header << ", " << line.footer;
    }
}

TEST(HistoryReply, NegativeHeaderLinesLoseTheOldestDay) {
    HistoryReplyForm form = Form();
    form.headerLines = -1;
    EXPECT_EQ(Days("5-Jan-26,1,2,3,4,5,6\n2-Jan-26,1,2,3,7,5,6\n31-Dec-25,1,2,3,8,5,6\n", form),
              "01/02/26 7; 01/05/26 4");
}

TEST(HistoryReply, DateFormsByTheSettings) {
    struct Line {
        std::string form;
        std::string date;
        std::string stored;
    };
    const std::vector<Line> lines = {
        {"01/02/04", "01/02/04", "01/02/04"},   {"01/02/04", "1/2/2004", "01/02/04"},
        {"01/02/04", "2-Jan-04", "01/02/04"},   {"Jan-2-2004", "Jan-2-2004", "01/02/04"},
        {"20040102", "20040102", "02/02/04"},    // the day stands for the month as well
        {"20040102", "20040122", "22/22/2004"},  // no date, and passes on
        {"040102", "040102", "02/02/04"},       {"040102", "041231", "31/31/04"},
        {"", "01/02/04", "01/02/04"},           {"01/02/04", "2000-01-03", "01/03/00"},
    };
    for (const Line& line : lines) {
        EXPECT_EQ(Days(Reply(line.date + ",1,2,3,4,5,6\n"), Form(line.form)), line.stored + " 4")
            << line.form << " " << line.date;
    }
}

TEST(HistoryReply, ADayWithoutALastPriceIsLeftOut) {
    for (const char* last : {"0", "", "N/A", "-3", "0.0004", "12abc", "1e400"}) {
        EXPECT_EQ(Days(Reply("2-Jan-26,1,2,3," + std::string(last) + ",5,6\n")), "") << last;
    }
    EXPECT_EQ(Days(Reply("2-Jan-26,1,2,3,0.0005,5,6\n")), "01/02/26 0.001");
    EXPECT_EQ(Days(Reply("2-Jan-26,1,2,3, 4.5 ,5,6\n")), "01/02/26 4.5");
}

TEST(HistoryReply, OtherValuesThatCannotBeReadAreZero) {
    const auto records = RecordsOfReply(Reply("2-Jan-26,N/A,,x3,4,-\n"), Form());
    ASSERT_EQ(records.size(), 1U);
    HistoryRecord expected;
    expected.HistoryDate = "01/02/26";
    expected.HistoryClose = 4;
    EXPECT_EQ(records[0], expected);
}

TEST(HistoryReply, ADateThatNamesNoYearIsLeftOut) {
    for (const char* date : {"", "2", "today", "2-Jan-2x", "../..", "<td>", "02.", "\x01\x02"}) {
        EXPECT_EQ(Days(Reply(std::string(date) + ",1,2,3,4,5,6\n")), "") << date;
    }
}

TEST(HistoryReply, AQuotedCommaBelongsToItsValueInTheStandardSourceOnly) {
    const std::string reply = Reply("2-Jan-26,\"1,000\",2,3,4,5,6\n");
    EXPECT_EQ(Days(Reply("\"Jan 2, 2026\",1,2,3,4,5,6\n")), "01/02/26 4");
    EXPECT_EQ(Days(reply), "01/02/26 4");
    HistoryReplyForm user = Form();
    user.quotesProtect = false;
    EXPECT_EQ(Days(reply, user), "01/02/26 3") << "the last price is the fifth piece";
    EXPECT_EQ(Days(Reply("\"2-Jan-26\",\"1\",\"2\",\"3\",\"4\",\"5\"\n"), user), "01/02/26 4");
}

TEST(HistoryReply, OfTooManyDaysTheNewestAreTaken) {
    // One line more than a ticker may have, newest first, each with its own close.
    std::string reply(kHeader);
    for (int i = 1; i <= 18001; ++i) reply += "2-Jan-26,1,2,3," + std::to_string(i) + ",5,6\n";
    const auto records = RecordsOfReply(reply, Form());
    ASSERT_EQ(records.size(), 18000U);
    EXPECT_EQ(records.front().HistoryClose, 18000);
    EXPECT_EQ(records.back().HistoryClose, 1);
}

TEST(HistoryReply, APageInPlaceOfQuotesGivesNothing) {
    EXPECT_EQ(Days("<html>\n<head><title>Sorry, not found, 404, a, b, c</title></head>\n<body>\n"
                   "<td style=\"rgb(1,2,3,4,5,6,7)\">1,2,3,4,5,6</td>\n</body>\n</html>\n"),
              "");
}

TEST(HistoryReply, AnyBytesAreTaken) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string junk;
    for (int i = 0; i < 200000; ++i) junk += static_cast<char>(i % 11 == 0 ? '\n' : byte(random));
    EXPECT_EQ(Days(junk), "");
    EXPECT_EQ(Days(std::string("h\n2-Jan-26\0,1,2,3,4,5,6\n", 25)), "");
    EXPECT_EQ(Days(std::string(1000000, ',')), "");
    EXPECT_EQ(Days(std::string(1000000, '\n')), "");
}

TEST(HistoryReply, AReplyCutAnywhereGivesTheWholeLinesThatCame) {
    const std::string reply = Reply("5-Jan-26,1,2,3,4,5,6\n2-Jan-26,1,2,3,7,5,6\n31-Dec-25,1,2,3,8,5,6\n");
    const std::vector<std::string> byLines = {"", "", "01/05/26 4", "01/02/26 7; 01/05/26 4",
                                              "12/31/25 8; 01/02/26 7; 01/05/26 4"};
    for (std::size_t length = 0; length <= reply.size(); ++length) {
        const std::string cut = reply.substr(0, length);
        const auto lineEnds = static_cast<std::size_t>(std::count(cut.begin(), cut.end(), '\n'));
        ASSERT_EQ(Days(cut), byLines[lineEnds]) << length;
    }
}

}  // namespace
}  // namespace brantlow
