#include "indicators/history_row.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

#include "base/numbers.h"
#include "support/bits.h"

namespace brantlow {
namespace {

void ExpectReadsAsLeadingNumber(const std::string& text) {
    const std::string line = text + ",7";
    const char* at = line.data();
    const double value = ReadNumberField(at, line.data() + line.size());
    const std::string field = line.substr(0, line.find(','));
    EXPECT_EQ(Bits(value), Bits(LeadingNumber(field))) << '"' << text << '"';
    EXPECT_EQ(at - line.data(), static_cast<std::ptrdiff_t>(field.size())) << '"' << text << '"';
}

TEST(ReadNumberField, EqualsLeadingNumberOnChosenTexts) {
    for (const char* text : {"",
                             "0",
                             "-0",
                             "12.5",
                             "-12.5",
                             "5.",
                             ".5",
                             ".",
                             "-",
                             "-.",
                             "+3",
                             " 7",
                             "7 ",
                             "\t-8",
                             "1e3",
                             "1e",
                             "1e999",
                             "1e-999",
                             "1.2.3",
                             "12a",
                             "a12",
                             "0x10",
                             "inf",
                             "nan",
                             "-inf",
                             "\"12\"",
                             "--1",
                             "000000000000000000001",
                             "0.1",
                             "0.2",
                             "0.3",
                             "1234.567",
                             "99999.999",
                             "3.1415926",
                             "9007199254740992",
                             "9007199254740993",
                             "9007199254740991.5",
                             "18446744073709551615",
                             "18446744073709551616",
                             "99999999999999999999999",
                             "0.0000000000000000000000001",
                             "0.00000000000000000001",
                             "123456789012345678.9",
                             "1\r",
                             "2\0003"}) {
        ExpectReadsAsLeadingNumber(text);
    }
}

TEST(ReadNumberField, EqualsLeadingNumberOnRandomDecimals) {
    std::mt19937_64 random(20260302);
    for (int i = 0; i < 200000; ++i) {
        std::string text = random() % 4 == 0 ? "-" : "";
        for (std::size_t digits = random() % 12; digits > 0; --digits)
            text += static_cast<char>('0' + random() % 10);
        if (random() % 4 != 0) text += '.';
        for (std::size_t digits = random() % 12; digits > 0; --digits)
            text += static_cast<char>('0' + random() % 10);
        ExpectReadsAsLeadingNumber(text);
    }
}

TEST(ReadNumberField, EqualsLeadingNumberOnRandomJunk) {
    constexpr std::string_view kBytes = "0123456789+-.eE \t\"xinf\r\x80";
    std::mt19937_64 random(7);
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        for (std::size_t size = random() % 14; size > 0; --size) text += kBytes[random() % kBytes.size()];
        ExpectReadsAsLeadingNumber(text);
    }
}

HistoryRow Parsed(std::string_view line) {
    HistoryRow row;
    ParseHistoryRow(line, row);
    return row;
}

TEST(ParseHistoryRow, PutsEachFieldIntoItsSeries) {
    const HistoryRow row = Parsed("\"0x\",\"1x\",2,3,4,5,6,7,8,9,10,\"11x\",\"12x\",13,14,15,16,17,18");
    EXPECT_EQ(row.fields, 19U);
    for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot) {
        EXPECT_EQ(row.numbers[slot], static_cast<double>(kNumberFields[slot].field))
            << kNumberFields[slot].name;
    }
    for (std::size_t slot = 0; slot < kTextFields.size(); ++slot) {
        EXPECT_EQ(row.texts[slot], std::to_string(kTextFields[slot].field) + "x") << kTextFields[slot].name;
    }
}

TEST(ParseHistoryRow, TableNamesTheNineteenFieldsOfARecord) {
    const std::vector<std::pair<std::size_t, std::string_view>> numbers = {
        {2, "ClosePrice"},        {3, "LowPrice"},       {4, "HighPrice"},  {5, "Volume"},
        {6, "PERatio"},           {7, "EPSttm"},         {8, "PEGRatio"},   {9, "EPSest"},
        {10, "DividendPerShare"}, {13, "PreviousClose"}, {14, "Low52Week"}, {15, "High52Week"},
        {16, "PriceToSales"},     {17, "MarketCap"},     {18, "OpenPrice"}};
    ASSERT_EQ(kNumberFields.size(), numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        EXPECT_EQ(kNumberFields[i].field, numbers[i].first);
        EXPECT_EQ(kNumberFields[i].name, numbers[i].second);
    }
    EXPECT_EQ(kNumberFields[kOpenSlot].name, "OpenPrice");
    EXPECT_EQ(kNumberFields[kMarketCapSlot].name, "MarketCap");
    EXPECT_EQ(kNumberFields[kPriceToSalesSlot].name, "PriceToSales");
    EXPECT_EQ(kNumberFields[kVolumeSlot].name, "Volume");
    EXPECT_EQ(kNumberFields[kEPSestSlot].name, "EPSest");
}

TEST(ParseHistoryRow, SplitsAtEveryCommaAlsoBetweenQuotes) {
    const HistoryRow row = Parsed("\"01/02/03\",\"a,b\",5");
    EXPECT_EQ(row.fields, 4U);
    EXPECT_EQ(row.texts[1], "");
    EXPECT_EQ(row.numbers[kCloseSlot], 0);  // b" is no number
    EXPECT_EQ(row.numbers[kLowSlot], 5);
}

TEST(ParseHistoryRow, TextLosesItsFirstAndLastCharacterWhateverTheyAre) {
    EXPECT_EQ(Parsed("abcd,x").texts[0], "bc");
    EXPECT_EQ(Parsed("\"\",x").texts[0], "");
    EXPECT_EQ(Parsed("\",x").texts[0], "");
    EXPECT_EQ(Parsed("").texts[0], "");
}

TEST(ParseHistoryRow, CountsTheFieldsOfShortAndLongRows) {
    EXPECT_EQ(Parsed("").fields, 1U);
    EXPECT_EQ(Parsed("a").fields, 1U);
    EXPECT_EQ(Parsed("a,").fields, 2U);
    EXPECT_EQ(Parsed(std::string(18, ',')).fields, 19U);
    EXPECT_EQ(Parsed(std::string(300, ',')).fields, 19U);
}

TEST(ReadNumberFields, GivesTheNumbersOfTheWholeRow) {
    std::mt19937_64 random(5);
    constexpr const char* kFields[] = {"",    "0",      "-1.5", "12.625",   "1e3",    "\"01/02/26\"", "x9",
                                       "7.x", "99.999", "\"\"", "12345678", "1e-400", " 3",           "."};
    for (int round = 0; round < 5000; ++round) {
        std::string line;
        const std::size_t commas = kHistoryFieldCount - 1 + random() % 3;
        for (std::size_t i = 0; i <= commas; ++i) {
            if (i > 0) line += ',';
            line += kFields[random() % std::size(kFields)];
        }
        const HistoryRow row = Parsed(line);
        std::vector<NumberSlot> slots;
        for (std::size_t slot = 0; slot < kNumberFields.size(); ++slot)
            if (random() % 3 == 0) slots.push_back(static_cast<NumberSlot>(slot));
        constexpr double kUntouched = -77;
        std::array<double, kNumberFields.size()> numbers;
        numbers.fill(kUntouched);
        ReadNumberFields(line, slots, numbers);
        std::array<double, kNumberFields.size()> wanted;
        wanted.fill(kUntouched);
        for (const NumberSlot slot : slots) wanted[slot] = row.numbers[slot];
        for (std::size_t slot = 0; slot < wanted.size(); ++slot)
            ASSERT_EQ(Bits(numbers[slot]), Bits(wanted[slot])) << line << " slot " << slot;
    }
}

}  // namespace
}  // namespace brantlow
