#include "base/numbers.h"

#include <gtest/gtest.h>

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

TEST(RoundDecimals, KeepsThreeDecimalsAsAPictureDoes) {
    EXPECT_EQ(RoundDecimals(1.0005, 3), 1.001);
    EXPECT_EQ(RoundDecimals(-1.0005, 3), -1.001);
    EXPECT_EQ(RoundDecimals(0.0004, 3), 0);
    EXPECT_EQ(RoundDecimals(123456.7, 0), 123457);
}

TEST(Divide, FailsOnZeroAndOnOverflow) {
    EXPECT_EQ(Divide(1, 4), 0.25);
    EXPECT_FALSE(Divide(1, 0));
    EXPECT_FALSE(Divide(0, 0));
    EXPECT_FALSE(Divide(1e300, 1e-300));
}

}  // namespace
}  // namespace brantlow
