#include "store/import_record.h"

#include <gtest/gtest.h>

#include "store/quote_fields.h"

namespace brantlow {
namespace {

// Each array of row 1 with a value of its own.
QuoteArrays SampleRow() {
    QuoteArrays rows;
    rows.MakeRoom(1);
    rows.Symbols[1] = "ibm";
    rows.LastPrices[1] = "187.6249";
    rows.ChangeValues[1] = "-1.5";
    rows.AskPrices[1] = "187.7";
    rows.BidPrices[1] = "187.5";
    rows.LowPrices[1] = "186.0005";
    rows.HighPrices[1] = "189";
    rows.Volumes[1] = "4123456";
    rows.PeTtm[1] = "22.91";
    rows.EpsTtm[1] = "8.19";
    rows.Dividends[1] = "6.64";
    rows.DividendDates[1] = "03/09/24";
    rows.XDividendDates[1] = "02/08/24";
    rows.OpenPrices[1] = "188.25";
    rows.Low52[1] = "120.55";
    rows.High52[1] = "199.18";
    rows.Names[1] = "Machines, \"Intl\"";
    rows.Exchanges[1] = "NYSE";
    rows.TradeDates[1] = "03/15/24";
    rows.TradeTimes[1] = "16:01";
    rows.EpsEst[1] = "10.11";
    rows.PegValues[1] = "4.2";
    rows.PsValues[1] = "2.78";
    rows.PreviousCloses[1] = "189.1249";
    rows.MarketCaps[1] = 171234.56789;
    return rows;
}

constexpr const char* kSampleLine =
    "\"IBM\",187.625,-1.5,187.7,187.5,186.001,189,4123456,22.91,8.19,6.64,\"03/09/24\",\"02/08/24\",188.25,"
    "120.55,199.18,\"Machines, Intl\",\"NYSE\",\"03/15/24\",\"16:01\",10.11,4.2,2.78,189.125,171234.56789,"
    "188.25\r\n";

TEST(ImportRecord, IsWrittenByteForByte) {
    std::string out = "before\r\n";
    AppendImportRecord(SampleRow(), 1, out);
    EXPECT_EQ(out, std::string("before\r\n") + kSampleLine);
}

TEST(ImportRecord, WhatIsNoNumberIsWrittenAsZero) {
    QuoteArrays rows;
    rows.MakeRoom(1);
    rows.Symbols[1] = "x";
    for (const QuoteField& field : kQuoteFields) {
        if (field.form == FieldForm::Number) (rows.*field.array)[1] = "N/A";
    }
    std::string out;
    AppendImportRecord(rows, 1, out);
    EXPECT_EQ(out, "\"X\",0,0,0,0,0,0,0,0,0,0,\"\",\"\",0,0,0,\"\",\"\",\"\",\"\",0,0,0,0,0,0\r\n");
}

TEST(ImportRecord, IsReadBackIntoItsArrays) {
    QuoteArrays rows;
    rows.MakeRoom(3);
    TakeImportRecord(std::string_view(kSampleLine).substr(0, std::string_view(kSampleLine).size() - 2), 3,
                     rows);
    EXPECT_EQ(rows.Symbols[3], "IBM");
    EXPECT_EQ(rows.LastPrices[3], "187.625");
    EXPECT_EQ(rows.ChangeValues[3], "-1.5");
    EXPECT_EQ(rows.AskPrices[3], "187.7");
    EXPECT_EQ(rows.BidPrices[3], "187.5");
    EXPECT_EQ(rows.LowPrices[3], "186.001");
    EXPECT_EQ(rows.HighPrices[3], "189");
    EXPECT_EQ(rows.Volumes[3], "4123456");
    EXPECT_EQ(rows.PeTtm[3], "22.91");
    EXPECT_EQ(rows.EpsTtm[3], "8.19");
    EXPECT_EQ(rows.Dividends[3], "6.64");
    EXPECT_EQ(rows.DividendDates[3], "03/09/24");
    EXPECT_EQ(rows.XDividendDates[3], "02/08/24");
    EXPECT_EQ(rows.OpenPrices[3], "188.25");
    EXPECT_EQ(rows.Low52[3], "120.55");
    EXPECT_EQ(rows.High52[3], "199.18");
    EXPECT_EQ(rows.Names[3], "Machines, Intl");
    EXPECT_EQ(rows.Exchanges[3], "NYSE");
    EXPECT_EQ(rows.TradeDates[3], "03/15/24");
    EXPECT_EQ(rows.TradeTimes[3], "16:01");
    EXPECT_EQ(rows.EpsEst[3], "10.11");
    EXPECT_EQ(rows.PegValues[3], "4.2");
    EXPECT_EQ(rows.PsValues[3], "2.78");
    EXPECT_EQ(rows.PreviousCloses[3], "189.125");
    EXPECT_EQ(rows.MarketCaps[3], 171234.56789);
    EXPECT_EQ(rows.Symbols[1], "");
}

TEST(ImportRecord, TheLastOpenPriceStands) {
    QuoteArrays rows;
    rows.MakeRoom(1);
    TakeImportRecord("\"A\",1,2,3,4,5,6,7,8,9,10,\"\",\"\",14,15,16,\"\",\"\",\"\",\"\",21,22,23,24,25,26", 1,
                     rows);
    EXPECT_EQ(rows.OpenPrices[1], "26");
}

TEST(ImportRecord, ALineCutAnywhereLeavesTheRestEmpty) {
    const std::string_view whole(kSampleLine);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        QuoteArrays rows;
        rows.MakeRoom(1);
        TakeImportRecord(whole.substr(0, length), 1, rows);
        const bool hasVolume = length > whole.find("4123456");
        EXPECT_EQ(rows.Volumes[1].empty(), !hasVolume) << length;
        EXPECT_EQ(rows.MarketCaps[1] == 0, length <= whole.find("171234")) << length;
    }
}

TEST(ImportRecord, FurtherValuesAreIgnored) {
    QuoteArrays rows;
    rows.MakeRoom(1);
    TakeImportRecord(std::string(kSampleLine).substr(0, std::string(kSampleLine).size() - 2) + ",99,98", 1,
                     rows);
    EXPECT_EQ(rows.OpenPrices[1], "188.25");
}

}  // namespace
}  // namespace brantlow
