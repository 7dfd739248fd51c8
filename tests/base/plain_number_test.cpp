#include "base/plain_number.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstring>
#include <random>
#include <string>

namespace brantlow {

namespace {

struct PlainRead {
    std::ptrdiff_t length = -1;  // -1 for a number that has another form
    double value = 0;
};

PlainRead Read(const std::string& text) {
    PlainRead read;
    const char* const at = ReadPlainNumber(text.data(), text.data() + text.size(), read.value);
    if (at != nullptr) read.length = at - text.data();
    return read;
}

std::uint64_t BitsOf(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

}  // namespace

TEST(PlainNumber, TheDigitsAtTheFrontAreRead) {
    struct Row {
        const char* text;
        std::ptrdiff_t length;
        double value;
    };
    for (const Row& row : {Row{"0", 1, 0.0},
                           {"12.5", 4, 12.5},
                           {"-12.5,7", 5, -12.5},
                           {"-0", 2, -0.0},
                           {".5", 2, 0.5},
                           {"5.", 2, 5.0},
                           {"0000012", 7, 12.0},
                           {"1e5", 1, 1.0},
                           {"1.5x", 3, 1.5},
                           {"9007199254740992", 16, 9007199254740992.0}}) {
        const PlainRead read = Read(row.text);
        EXPECT_EQ(read.length, row.length) << row.text;
        EXPECT_EQ(BitsOf(read.value), BitsOf(row.value)) << row.text;
    }
}

TEST(PlainNumber, WhatHasAnotherFormIsLeftToTheGeneralReading) {
    for (const char* text : {"", "-", ".", "-.", "+1", " 1", "x", "9007199254740993", "12345678901234567890",
                             "0.00000000000000000001"}) {
        EXPECT_EQ(Read(text).length, -1) << text;
    }
}

TEST(PlainNumber, EveryNumberHasTheBitsOfTheGeneralReading) {
    std::mt19937_64 random(20261122);
    for (int i = 0; i < 200'000; ++i) {
        std::string text = std::to_string(random() % (i % 2 == 0 ? 1'000'000 : 9'007'199'254'740'992));
        text.insert(random() % text.size() + 1, 1, '.');
        double expected = 0;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        const PlainRead read = Read(text);
        ASSERT_EQ(read.length, static_cast<std::ptrdiff_t>(text.size())) << text;
        ASSERT_EQ(BitsOf(read.value), BitsOf(expected)) << text;
    }
}

}  // namespace brantlow
