#include "batch/json_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

namespace brantlow {
namespace {

TEST(JsonLine, SeparatesKeysValuesAndNestedParts) {
    JsonLine line;
    line.BeginObject();
    line.Key("a");
    line.Number(1);
    line.Key("b");
    line.BeginArray();
    line.Text("x");
    line.Null();
    line.BeginObject();
    line.EndObject();
    line.BeginArray();
    line.EndArray();
    line.EndArray();
    line.Key("c");
    line.BeginObject();
    line.Key("d");
    line.Number(-0.5);
    line.EndObject();
    line.EndObject();
    EXPECT_EQ(line.Line(), R"({"a":1,"b":["x",null,{},[]],"c":{"d":-0.5}})");
}

TEST(JsonLine, NumbersTakeTheirShortestFormAndReadBack) {
    struct Row {
        double value;
        std::string text;
    };
    for (const Row& row : {Row{0, "0"}, Row{12.5, "12.5"}, Row{0.1, "0.1"}, Row{1e15, "1000000000000000"},
                           Row{5e-324, "5e-324"}, Row{1.7976931348623157e308, "1.7976931348623157e+308"},
                           Row{1.0 / 3, "0.3333333333333333"}}) {
        JsonLine line;
        line.Number(row.value);
        EXPECT_EQ(line.Line(), row.text);
        EXPECT_EQ(nlohmann::json::parse(line.Line()).get<double>(), row.value) << row.text;
    }
}

TEST(JsonLine, TextIsAlwaysValidAndReadsBackAsItIsShown) {
    struct Row {
        std::string bytes;
        std::string shown;
    };
    for (const Row& row :
         {Row{"plain", "plain"}, Row{"a\"b\\c", "a\"b\\c"}, Row{"tab\tline\nend", "tab\tline\nend"},
          Row{std::string("nul\0x", 5), std::string("nul\0x", 5)}, Row{"\x01\x1f", "\x01\x1f"},
          Row{"caf\xc3\xa9", "caf\xc3\xa9"}, Row{"caf\xe9", "caf\xc3\xa9"}}) {
        JsonLine line;
        line.Text(row.bytes);
        EXPECT_EQ(line.Line().find('\n'), std::string::npos);
        EXPECT_EQ(nlohmann::json::parse(line.Line()).get<std::string>(), row.shown);
    }
}

TEST(JsonLine, ElementsTellWhatWasNeverWrittenAndWhatWasEmptied) {
    NumberSeries numbers;
    numbers.Set(0, 9);
    numbers.Set(1, 1.5);
    numbers.Empty(3);
    numbers.Set(4, 4);
    TextSeries texts;
    texts.Set(2, "");
    JsonLine line;
    line.BeginArray();
    line.Elements(numbers, 3);
    line.Elements(numbers, 0);
    line.Elements(texts, 2);
    line.EndArray();
    EXPECT_EQ(line.Line(), R"([[1.5,null,""],[],[null,""]])");
}

}  // namespace
}  // namespace brantlow
