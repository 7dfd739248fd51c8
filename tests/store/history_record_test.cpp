#include "store/history_record.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

std::string LineOfRecord(const HistoryRecord& record) {
    std::string line;
    AppendHistoryLine(record, line);
    return line;
}

TEST(HistoryRecord, FieldsStandInTheirOrder) {
    const HistoryRecord record = ParseHistoryLine(
        "\"01/02/04\",\"16:01\",2,3,4,5,6,7,8,9,10,\"11/11/11\",\"12/12/12\",13,14,15,16,17,18");
    EXPECT_EQ(record.HistoryDate, "01/02/04");
    EXPECT_EQ(record.HistoryTime, "16:01");
    EXPECT_EQ(record.HistoryClose, 2);
    EXPECT_EQ(record.HistoryLow, 3);
    EXPECT_EQ(record.HistoryHigh, 4);
    EXPECT_EQ(record.HistoryVolume, 5);
    EXPECT_EQ(record.HistoryPE, 6);
    EXPECT_EQ(record.HistoryEPS, 7);
    EXPECT_EQ(record.HistoryPEG, 8);
    EXPECT_EQ(record.HistoryEPSest, 9);
    EXPECT_EQ(record.HistoryDividend, 10);
    EXPECT_EQ(record.HistoryDividendDate, "11/11/11");
    EXPECT_EQ(record.HistoryXDividendDate, "12/12/12");
    EXPECT_EQ(record.HistoryPreviousClose, 13);
    EXPECT_EQ(record.History52WeekLow, 14);
    EXPECT_EQ(record.History52WeekHigh, 15);
    EXPECT_EQ(record.HistoryPS, 16);
    EXPECT_EQ(record.HistoryMarketCap, 17);
    EXPECT_EQ(record.HistoryOpen, 18);
}

TEST(HistoryRecord, ALineIsReadAndWrittenByteForByte) {
    const std::string lines[] = {
        "\"01/02/04\",\"16:01\",12.5,12.001,13,1234567,21.3,1.1,0.9,1.2,0.32,\"03/01/04\",\"02/01/"
        "04\",12,9.5,14,"
        "3.2,274123.4567891,12.1\r\n",
        "\"12/31/99\",\"\",0.5,0.4,0.6,0,0,0,0,0,0,\"\",\"\",0,0,0,0,0,0.45\r\n",
        "\"01/02/04\",\"\",-1,0,0,12345678901,0,0,0,0,0,\"\",\"\",0,0,0,0,0.3333333333333333,0\r\n"};
    for (const std::string& line : lines) {
        EXPECT_EQ(LineOfRecord(ParseHistoryLine(std::string_view(line).substr(0, line.size() - 2))), line);
    }
}

TEST(HistoryRecord, ADownloadedRecordHasZerosAndEmptyTexts) {
    HistoryRecord record;
    record.HistoryDate = "01/02/04";
    record.HistoryClose = 12.5;
    record.HistoryLow = 12;
    record.HistoryHigh = 13;
    record.HistoryVolume = 100;
    record.HistoryOpen = 12.25;
    EXPECT_EQ(LineOfRecord(record),
              "\"01/02/04\",\"\",12.5,12,13,100,0,0,0,0,0,\"\",\"\",0,0,0,0,0,12.25\r\n");
}

TEST(HistoryRecord, RoundsEveryNumberToItsForm) {
    constexpr double kLong = 1234.56789;
    HistoryRecord record;
    double HistoryRecord::*const threeDecimals[] = {
        &HistoryRecord::HistoryClose,         &HistoryRecord::HistoryLow,
        &HistoryRecord::HistoryHigh,          &HistoryRecord::HistoryPE,
        &HistoryRecord::HistoryEPS,           &HistoryRecord::HistoryPEG,
        &HistoryRecord::HistoryEPSest,        &HistoryRecord::HistoryDividend,
        &HistoryRecord::HistoryPreviousClose, &HistoryRecord::History52WeekLow,
        &HistoryRecord::History52WeekHigh,    &HistoryRecord::HistoryPS,
        &HistoryRecord::HistoryOpen};
    for (const auto member : threeDecimals) record.*member = kLong;
    record.HistoryVolume = kLong;
    record.HistoryMarketCap = kLong;
    RoundHistoryRecord(record);
    for (const auto member : threeDecimals) EXPECT_EQ(record.*member, 1234.568);
    EXPECT_EQ(record.HistoryVolume, 1235);
    EXPECT_EQ(record.HistoryMarketCap, kLong);
}

TEST(HistoryRecord, OddLinesReadAsFarAsTheyGo) {
    struct Row {
        const char* line;
        const char* date;
        const char* time;
        double close;
        double open;
    };
    const Row rows[] = {
        {"", "", "", 0, 0},
        {"\"", "", "", 0, 0},
        {"\"\"", "", "", 0, 0},
        {"\"01/02/04\",\"\",5", "01/02/04", "", 5, 0},
        {"x01/02/04x,abc,N/A", "01/02/04", "b", 0, 0},
        {",,,,,,,,,,,,,,,,,,3,4,5,6", "", "", 0, 3},
        {"\"01/02/04\",\"\",inf,nan,0x10", "01/02/04", "", 0, 0},
    };
    for (const Row& row : rows) {
        const HistoryRecord record = ParseHistoryLine(row.line);
        EXPECT_EQ(record.HistoryDate, row.date) << row.line;
        EXPECT_EQ(record.HistoryTime, row.time) << row.line;
        EXPECT_EQ(record.HistoryClose, row.close) << row.line;
        EXPECT_EQ(record.HistoryOpen, row.open) << row.line;
    }
}

TEST(HistoryRecord, QuotesDoNotProtectACommaInALine) {
    // The comma ends the first field inside its quotes; each piece loses its ends.
    const HistoryRecord record = ParseHistoryLine("\"a9z,b8y\",\"c\"");
    EXPECT_EQ(record.HistoryDate, "a9");
    EXPECT_EQ(record.HistoryTime, "8y");
}

TEST(HistoryRecord, TextOfARecordCannotBreakItsLine) {
    HistoryRecord record;
    record.HistoryDate = "01/02\"/04\r\n";
    EXPECT_TRUE(LineOfRecord(record).starts_with("\"01/02/04\",\"\",0,"));
}

TEST(HistoryRecord, YearDigitsAreTheLastTwoCharacters) {
    EXPECT_EQ(YearDigits("01/02/04"), "04");
    EXPECT_EQ(YearDigits("15/15/2004"), "04");
    EXPECT_EQ(YearDigits("4"), "4");
    EXPECT_EQ(YearDigits(""), "");
}

TEST(HistoryRecord, FormsByPosition) {
    for (std::size_t i = 0; i < kHistoryFieldCount; ++i) {
        const bool isText = i == 0 || i == 1 || i == 11 || i == 12;
        const HistoryForm expected = isText    ? HistoryForm::Text
                                     : i == 5  ? HistoryForm::Whole
                                     : i == 17 ? HistoryForm::Full
                                               : HistoryForm::ThreeDecimals;
        EXPECT_EQ(kHistoryForms[i], expected) << i;
    }
}

}  // namespace
}  // namespace brantlow
