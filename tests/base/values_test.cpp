#include "base/values.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

using namespace std::chrono_literals;

TEST(Value, ParsesEachWrittenFormWithItsType) {
    struct Row {
        std::string_view field;
        Value::Kind kind;
        std::string_view text;
    };
    constexpr Row kRows[] = {
        {"\"Manually\"", Value::Kind::Text, "Manually"},
        {"\"\"", Value::Kind::Text, ""},
        {"", Value::Kind::Text, ""},
        {"   ", Value::Kind::Text, ""},
        {" \"a b\" ", Value::Kind::Text, "a b"},
        {"\" a \"", Value::Kind::Text, " a "},
        {"\"10\"", Value::Kind::Text, "10"},
        {"\"a,b\"", Value::Kind::Text, "a,b"},
        {"\"open", Value::Kind::Text, "open"},
        {"\"", Value::Kind::Text, ""},
        {"\"a\"b\"", Value::Kind::Text, "a"},
        {"10", Value::Kind::Number, "10"},
        {"-12.5", Value::Kind::Number, "-12.5"},
        {"1e3", Value::Kind::Number, "1e3"},
        {" 7 ", Value::Kind::Number, "7"},
        {"12x", Value::Kind::Text, "12x"},
        {"True", Value::Kind::Text, "True"},
        {"nan", Value::Kind::Text, "nan"},
        {"#2004-01-02#", Value::Kind::Day, "2004-01-02"},
        {"#01/02/2004#", Value::Kind::Day, "2004-01-02"},
        {"#2004-13-02#", Value::Kind::Text, "#2004-13-02#"},
        {"#", Value::Kind::Text, "#"},
        {"##", Value::Kind::Text, "##"},
        {"#2004-01-02", Value::Kind::Text, "#2004-01-02"},
        {std::string_view("\"a\0b\"", 5), Value::Kind::Text, std::string_view("a\0b", 3)},
        {"\"\xE4\"", Value::Kind::Text, "\xE4"},
        // What could not be written again.
        {"\"a\rb\"", Value::Kind::Text, "ab"},
        {"\"\r\"", Value::Kind::Text, ""},
    };
    for (const Row& row : kRows) {
        const Value value = Value::Parse(row.field);
        EXPECT_EQ(value.ValueKind(), row.kind) << row.field;
        EXPECT_EQ(value.Text(), row.text) << row.field;
    }
}

TEST(Value, WritesEachTypeInItsForm) {
    EXPECT_EQ(Value::OfText("Manually").Written(), "\"Manually\"");
    EXPECT_EQ(Value().Written(), "\"\"");
    EXPECT_EQ(Value::OfNumber(10).Written(), "10");
    EXPECT_EQ(Value::OfNumber(-0.5).Written(), "-0.5");
    EXPECT_EQ(Value::OfDate(Date{2004y, std::chrono::January, 2d}).Written(), "#2004-01-02#");
}

TEST(Value, ComesBackAsItWasWritten) {
    const Value values[] = {Value(),
                            Value::OfText("Automatic Save"),
                            Value::OfText("10"),
                            Value::OfText("#2004-01-02#"),
                            Value::OfText("  a, b\t"),
                            Value::OfText("\x80\xFF"),
                            Value::OfNumber(0),
                            Value::OfNumber(-1234567.125),
                            Value::OfNumber(1e300),
                            Value::OfDate(Date{1999y, std::chrono::December, 31d})};
    for (const Value& value : values) EXPECT_EQ(Value::Parse(value.Written()), value) << value.Written();
}

TEST(Value, TextLosesWhatAWrittenLineCannotHold) {
    EXPECT_EQ(Value::OfText("say \"hi\"\r\nnow").Text(), "say hinow");
    EXPECT_EQ(Value::OfText("say \"hi\"").Written(), "\"say hi\"");
}

TEST(Value, ARawLineIsKeptByteForByte) {
    constexpr std::string_view kAddress = "http://host/q?s=\"A\",\"B\"&f=l1,d1 ";
    EXPECT_EQ(Value::OfRawLine(kAddress).Text(), kAddress);
    EXPECT_EQ(Value::OfRawLine("10").ValueKind(), Value::Kind::Text);
    EXPECT_EQ(Value::OfRawLine("a\"b").Written(), "\"ab\"");
}

TEST(ParseRecord, SplitsAtCommasOutsideQuotes) {
    struct Row {
        std::string_view line;
        std::vector<std::string> texts;
    };
    const Row rows[] = {{"\"01/02/04\",\"\",12.5,0", {"01/02/04", "", "12.5", "0"}},
                        {"", {""}},
                        {",", {"", ""}},
                        {"1,2,", {"1", "2", ""}},
                        {"\"a,b\",c", {"a,b", "c"}},
                        {"\"a,b,c", {"a,b,c"}},
                        {"a\"b,c\"d,e", {"a\"b,c\"d", "e"}},
                        {" 1 , \"x\" ", {"1", "x"}}};
    for (const Row& row : rows) {
        std::vector<std::string> texts;
        for (const Value& value : ParseRecord(row.line)) texts.push_back(value.Text());
        EXPECT_EQ(texts, row.texts) << row.line;
    }
}

TEST(TakeValueText, GivesTheTextOfEachWrittenForm) {
    struct Row {
        const char* field;
        const char* text;
    };
    constexpr Row kRows[] = {{"\"a,b\"", "a,b"},
                             {" \"a\"b ", "a"},
                             {"\"open", "open"},
                             {"\"", ""},
                             {" 1.50 ", "1.50"},
                             {"N/A", "N/A"},
                             {"", ""},
                             {"  ", ""},
                             {"#2004-01-02#", "2004-01-02"},
                             {"#1/2/2004#", "2004-01-02"},
                             {"#x#", "#x#"}};
    std::string text = "left over";
    for (const Row& row : kRows) {
        TakeValueText(row.field, text);
        EXPECT_EQ(text, row.text) << row.field;
        EXPECT_EQ(text, Value::Parse(row.field).Text()) << row.field;
    }
}

TEST(AppendQuoted, LeavesOutWhatALineCannotHold) {
    std::string out = "1,";
    AppendQuoted("a\"b\r\nc\t,", out);
    AppendQuoted("", out);
    EXPECT_EQ(out, "1,\"abc\t,\"\"\"");
}

TEST(ParseRecord, TakesAnyNumberOfFields) {
    EXPECT_EQ(ParseRecord(std::string(100'000, ',')).size(), 100'001U);
}

}  // namespace
}  // namespace brantlow
