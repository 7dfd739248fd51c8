#include "base/numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace brantlow {
namespace {

TEST(LeadingNumber, TakesTheLongestNumericFront) {
    struct Row {
        const char* text;
        double value;
    };
    constexpr Row kRows[] = {{"12.5", 12.5}, {"  7", 7},   {"+3", 3},     {"-0.5x", -0.5},    {"1,5", 1},
                             {"1e3", 1000},  {"1e", 1},    {".5", 0.5},   {"5.", 5},          {"abc", 0},
                             {"", 0},        {"inf", 0},   {"nan", 0},    {"0x1F", 0},        {"-", 0},
                             {".", 0},       {"1e999", 0}, {"12 34", 12}, {"1.231.45", 1.231}};
    for (const Row& row : kRows) EXPECT_EQ(LeadingNumber(row.text), row.value) << row.text;
}

TEST(LeadingNumber, IsTheNearestDoubleOfAnyPlainDecimal) {
    std::mt19937_64 random(20261122);
    for (int i = 0; i < 200000; ++i) {
        std::string text = random() % 4 == 0 ? "-" : "";
        for (std::size_t digits = 1 + random() % 20; digits > 0; --digits)
            text += static_cast<char>('0' + random() % 10);
        if (random() % 4 != 0) text += '.';
        for (std::size_t digits = text.back() == '.' ? random() % 24 : 0; digits > 0; --digits)
            text += static_cast<char>('0' + random() % 10);
        const double nearest = std::strtod(text.c_str(), nullptr);
        for (const char* behind : {"", ",7", "x", " 1", ".5", "-", "E", "e+"}) {
            // A point ends a number that has one, and is the number's own in one that has none.
            if (behind == std::string_view(".5") && text.find('.') == std::string::npos) continue;
            const double value = LeadingNumber(text + behind);
            ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(nearest))
                << text << behind;
        }
    }
}

TEST(FormatPicture, RoundsHalfAwayFromZeroOnTheShortestDecimalForm) {
    struct Row {
        const char* picture;
        double value;
        const char* text;
    };
    constexpr Row kRows[] = {{"#####0.000", 1.0005, "1.001"},
                             {"#####0.000", 12.5, "12.500"},
                             {"#####0.000", -1.0005, "-1.001"},
                             {"#####0.000", 0.0004, "0.000"},
                             {"#####0.000", -0.0004, "0.000"},
                             {"#####0.000", 999.9996, "1000.000"},
                             {"######0.###", 1200, "1200"},
                             {"######0.###", 850.5, "850.5"},
                             {"######0.###", 0.3, "0.3"},
                             {"######0.###", 0.00049, "0"},
                             {"##########0", 1234567.5, "1234568"},
                             {"##########0", 1e15, "1000000000000000"},
                             {"$#.00", 5, "$5.00"},
                             {"$#.00", -5, "-$5.00"},
                             {"$#.00", 0.5, "$.50"},
                             {"#########0.00000", 1.0 / 3, "0.33333"},
                             {"000", 7, "007"},
                             {"#####0.000", 1e300, nullptr}};
    for (const Row& row : kRows) {
        if (row.text == nullptr) {
            EXPECT_EQ(FormatPicture(row.picture, row.value).size(), 301U + 4U);
            continue;
        }
        EXPECT_EQ(FormatPicture(row.picture, row.value), row.text) << row.picture << ' ' << row.value;
    }
}

TEST(FormatPictureText, PassesWhatIsNoNumberUnchanged) {
    EXPECT_EQ(FormatPictureText("#####0.000", "N/A"), "N/A");
    EXPECT_EQ(FormatPictureText("#####0.000", ""), "");
    EXPECT_EQ(FormatPictureText("#####0.000", "12.5"), "12.500");
    EXPECT_EQ(FormatPictureText("#####0.000", "12x"), "12x");
}

TEST(ShortestNumber, ReadsBackToTheSameDouble) {
    struct Row {
        double value;
        const char* text;
    };
    constexpr Row kRows[] = {
        {0.5, "0.5"},      {100000, "100000"}, {-0.0, "0"},   {1.0 / 3, "0.3333333333333333"},
        {1e300, "1e+300"}, {1e-7, "1e-07"},    {12.5, "12.5"}};
    for (const Row& row : kRows) EXPECT_EQ(ShortestNumber(row.value), row.text);
}

TEST(LeadingNumber, TakesHostileTextWithoutHarm) {
    EXPECT_EQ(LeadingNumber(std::string_view("1\0002", 3)), 1);
    EXPECT_EQ(LeadingNumber(std::string_view("\0001", 2)), 0);
    EXPECT_EQ(LeadingNumber("\xFF"
                            "1"),
              0);
    EXPECT_EQ(LeadingNumber("\t 12"), 12);
    EXPECT_EQ(LeadingNumber("\n12"), 0);
    EXPECT_EQ(LeadingNumber("+-5"), 0);
    EXPECT_EQ(LeadingNumber("--5"), 0);
    EXPECT_EQ(LeadingNumber("- 5"), 0);
    EXPECT_EQ(LeadingNumber("1e-999"), 0);
    EXPECT_EQ(LeadingNumber("-1e+2,"), -100);
    EXPECT_EQ(LeadingNumber("1e+"), 1);
    EXPECT_EQ(LeadingNumber("1.e2"), 100);
    EXPECT_EQ(LeadingNumber("1e99999999999999999999"), 0);
    EXPECT_EQ(LeadingNumber("0." + std::string(100'000, '0') + "1"), 0);
    EXPECT_EQ(LeadingNumber(std::string(1'000'000, '9')), 0);
    EXPECT_EQ(LeadingNumber(std::string(1'000'000, '0') + "7"), 7);
    EXPECT_EQ(LeadingNumber("1." + std::string(1'000'000, '0')), 1);
}

TEST(WholeNumber, TakesOnlyTextThatIsANumber) {
    for (const char* text : {"", " ", "N/A", "12x", "1,5", "1 2", "1e", "0x1F", "inf", "nan", "-", ".", "+",
                             "1.2.3", "$5", "5%"}) {
        EXPECT_FALSE(WholeNumber(text)) << text;
    }
    EXPECT_FALSE(WholeNumber(std::string_view("5\0", 2)));
    EXPECT_EQ(WholeNumber(" 12.5 \r\n"), 12.5);
    EXPECT_EQ(WholeNumber("+3"), 3);
    EXPECT_EQ(WholeNumber("-1e3"), -1000);
    EXPECT_EQ(WholeNumber(".5"), 0.5);
    EXPECT_EQ(WholeNumber("5."), 5);
}

TEST(FormatPicture, EveryPictureOfTheColumns) {
    struct Row {
        const char* picture;
        double value;
        const char* text;
    };
    constexpr Row kRows[] = {{"#####0.000", 0, "0.000"},
                             {"#####0.000", 0.0005, "0.001"},
                             {"#####0.000", -0.0005, "-0.001"},
                             {"#####0.000", 1234567.8, "1234567.800"},
                             {"#####0.000", 2.0015, "2.002"},
                             {"#####0.000", 1.00049999, "1.000"},
                             {"####0.000", 99999.9996, "100000.000"},
                             {"#########0.00", 0.005, "0.01"},
                             {"#########0.00", 1.005, "1.01"},
                             {"#########0.00", -1.005, "-1.01"},
                             {"#########0.000", 12.3456, "12.346"},
                             {"#########0.00000", 0.000005, "0.00001"},
                             {"#########0.00000", 1e-9, "0.00000"},
                             {"######0.###", 0, "0"},
                             {"######0.###", 0.5, "0.5"},
                             {"######0.###", 0.0504, "0.05"},
                             {"######0.###", 1999.9996, "2000"},
                             {"######0.###", -0.5, "-0.5"},
                             {"##########0", 0.5, "1"},
                             {"##########0", 0.49, "0"},
                             {"##########0", -2.5, "-3"},
                             {"##########0", 12345678901.0, "12345678901"},
                             {"$#.00", 0, "$.00"},
                             {"$#.00", 1234.567, "$1234.57"},
                             {"$#.00", -0.001, "$.00"},
                             {"$#.00", 999.995, "$1000.00"},
                             {"0", 1e22, "10000000000000000000000"}};
    for (const Row& row : kRows) EXPECT_EQ(FormatPicture(row.picture, row.value), row.text) << row.value;
}

TEST(FormatPicture, WhatIsNotFinitePrintsAsZero) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    for (const double value : {kInfinite, -kInfinite, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_EQ(FormatPicture("#####0.000", value), "0.000");
        EXPECT_EQ(ShortestNumber(value), "0");
        EXPECT_EQ(RoundDecimals(value, 3), 0);
    }
}

TEST(FormatPicture, TheSmallestAndTheLargestDoublesPrint) {
    EXPECT_EQ(FormatPicture("#####0.000", 5e-324), "0.000");
    EXPECT_EQ(FormatPicture("##########0", 1.7976931348623157e308).size(), 309U);
}

TEST(ShortestNumber, ComesBackOverTheWholeRange) {
    // A fixed walk over exponents and mantissas of either sign.
    double mantissa = 1;
    for (int exponent = -300; exponent <= 300; ++exponent) {
        mantissa = mantissa * 1.3 < 2 ? mantissa * 1.3 : mantissa * 0.65;
        for (const double sign : {1.0, -1.0}) {
            const double value = sign * mantissa * std::pow(10.0, exponent);
            EXPECT_EQ(LeadingNumber(ShortestNumber(value)), value) << exponent;
        }
    }
}

TEST(ShortestNumber, NeedsNoExponentForPricesAndVolumes) {
    struct Row {
        double value;
        const char* text;
    };
    constexpr Row kRows[] = {{0.00001, "0.00001"},
                             {1e15, "1000000000000000"},
                             {1234567890123, "1234567890123"},
                             {-0.25, "-0.25"},
                             {0.1, "0.1"},
                             {100, "100"},
                             {1e16, "1e+16"}};
    for (const Row& row : kRows) EXPECT_EQ(ShortestNumber(row.value), row.text);
}

TEST(RoundToGeneralForm, KeepsFifteenDigits) {
    EXPECT_EQ(RoundToGeneralForm(0.1 + 0.2), 0.3);
    EXPECT_EQ(RoundToGeneralForm(1.0 / 3), 0.333333333333333);
    EXPECT_EQ(RoundToGeneralForm(-2.5), -2.5);
    EXPECT_EQ(RoundToGeneralForm(123456789012345678.0), 123456789012346000.0);
    EXPECT_EQ(RoundToGeneralForm(0), 0);
}

TEST(RoundDecimals, StaysWithTheShortestDecimalForm) {
    struct Row {
        double value;
        int decimals;
        double rounded;
    };
    constexpr Row kRows[] = {{1.005, 2, 1.01},
                             {2.675, 2, 2.68},
                             {0.5, 0, 1},
                             {-0.5, 0, -1},
                             {0.05, 1, 0.1},
                             {0.04, 1, 0},
                             {0.0499999, 1, 0},
                             {9.9995, 3, 10},
                             {1e300, 3, 1e300},
                             {1e-300, 3, 0},
                             {12345.6789, 9, 12345.6789}};
    for (const Row& row : kRows) EXPECT_EQ(RoundDecimals(row.value, row.decimals), row.rounded) << row.value;
}

TEST(RoundDecimals, KeepsThreeDecimalsAsAPictureDoes) {
    EXPECT_EQ(RoundDecimals(1.0005, 3), 1.001);
    EXPECT_EQ(RoundDecimals(-1.0005, 3), -1.001);
    EXPECT_EQ(RoundDecimals(0.0004, 3), 0);
    EXPECT_EQ(RoundDecimals(123456.7, 0), 123457);
}

TEST(RoundDecimals, AgreesWithThePictureAroundEveryShortPrice) {
    // Prices of three decimals, those that rounding leaves as they are, and their neighbours on either side.
    for (int thousandths = -3000; thousandths < 3000; thousandths += 7) {
        const double price = thousandths / 1000.0;
        for (const double value : {price, std::nextafter(price, -9), std::nextafter(price, 9), price * 1e9}) {
            EXPECT_EQ(RoundDecimals(value, 3), LeadingNumber(FormatPicture("0.000", value))) << value;
            EXPECT_EQ(RoundDecimals(value, 0), LeadingNumber(FormatPicture("0", value))) << value;
        }
    }
}

TEST(FormatPicture, AgreesWithTheDigitsNearEveryHalf) {
    // What stands before a half and its neighbours decides; the digits are those of the shortest form.
    struct Row {
        double value;
        const char* three;
        const char* optional;
    };
    constexpr Row kRows[] = {{0.0005, "0.001", "0.001"},
                             {0.00049999999999999, "0.000", "0"},
                             {-0.0004, "0.000", "0"},
                             {-0.0005, "-0.001", "-0.001"},
                             {0.05, "0.050", "0.05"},
                             {120, "120.000", "120"},
                             {-1234.5, "-1234.500", "-1234.5"},
                             {2.0625, "2.063", "2.063"},
                             {99.9995, "100.000", "100"},
                             {99.99949, "99.999", "99.999"},
                             {99999999.99949, "99999999.999", "99999999.999"},
                             {123456789012.0625, "123456789012.063", "123456789012.063"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(FormatPicture("#####0.000", row.value), row.three) << row.value;
        EXPECT_EQ(FormatPicture("######0.###", row.value), row.optional) << row.value;
        EXPECT_EQ(RoundDecimals(row.value, 3), LeadingNumber(row.three)) << row.value;
    }
}

TEST(AppendShortestNumber, AddsToWhatIsThere) {
    std::string text = "a,";
    AppendShortestNumber(-0.25, text);
    text += ',';
    AppendShortestNumber(1e-9, text);
    EXPECT_EQ(text, "a,-0.25,1e-09");
}

TEST(Divide, FailsOnZeroAndOnOverflow) {
    EXPECT_EQ(Divide(1, 4), 0.25);
    EXPECT_FALSE(Divide(1, 0));
    EXPECT_FALSE(Divide(0, 0));
    EXPECT_FALSE(Divide(1e300, 1e-300));
    EXPECT_FALSE(Divide(std::numeric_limits<double>::quiet_NaN(), 1));
    EXPECT_FALSE(Divide(std::numeric_limits<double>::infinity(), 2));
    EXPECT_FALSE(Divide(1, -0.0));
    EXPECT_EQ(Divide(0, -4), 0);
}

}  // namespace
}  // namespace brantlow
