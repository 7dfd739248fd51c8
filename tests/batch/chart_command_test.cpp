#include <gmock/gmock.h>

#include <cmath>
#include <nlohmann/json.hpp>

#include "batch_fixture.h"

namespace brantlow {
namespace {

using nlohmann::json;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kChartDay = "2026-11-21";

class ChartCommand : public BatchTest {
  protected:
    ChartCommand() {
        Write("Data/VTRGRAPHset.ini",
              "\"Default\"\r\n\"Price\"\r\n\"MA 30\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"None\"\r\n"
              "\"None\"\r\n");
        // Bars of 9 to 21 that close at 10 and 20 in turn.
        std::string year;
        for (int i = 0; i < 45; ++i) {
            year += "\"01/02/26\",\"\"," + std::string(i % 2 == 0 ? "10" : "20") +
                    ",9,21,100,0,0,0,0,0,\"\",\"\",0,0,0,0,0,15\r\n";
        }
        for (const char* first : {"06", "23"})
            Write("Quotes/EOD/KO." + std::string(first), "\"a\",\"\",1\r\n");
        Write("Quotes/EOD/KO.26", year);
    }
    CallResult Chart(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"chart", "KO"});
        arguments.insert(arguments.end(), {"--today", std::string(kChartDay)});
        return Call(arguments);
    }
    json List(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--out", "-"});
        const CallResult result = Chart(std::move(arguments));
        EXPECT_EQ(result.status, ExitStatus::Done) << result.err;
        EXPECT_EQ(result.err, "");
        return json::parse(result.out);
    }
    // Lines of one colour.
    static std::vector<json> Lines(const json& panel, const json& rgb) {
        std::vector<json> lines;
        for (const json& item : panel["items"]) {
            if (item.contains("line") && item["rgb"] == rgb) lines.push_back(item["line"]);
        }
        return lines;
    }
    std::string SvgPath() const { return (folder / "ko.svg").string(); }
    void ExpectUsage(const std::vector<std::string>& arguments, const std::string& line) const {
        const CallResult result = Chart(arguments);
        EXPECT_EQ(result.status, ExitStatus::Usage) << line;
        EXPECT_EQ(result.err, line + "\n");
        EXPECT_EQ(result.out, "");
    }
};

TEST_F(ChartCommand, PrintsTheLinesAndLabelsOfThreePanels) {
    const json chart = List({});
    EXPECT_EQ(chart["ticker"], "KO");
    EXPECT_EQ(chart["BarCount"], 45);
    const json& price = chart["price"];
    EXPECT_EQ(price["items"][0], json::parse(R"({"line":[50,50,50,6100],"rgb":[0,0,0]})"));
    EXPECT_EQ(price["items"].back()["rgb"], json({250, 150, 0}));
    EXPECT_EQ(price["items"].back()["circle"][2], 25);
    EXPECT_EQ(price["labels"]["Label51"], "21.00");
    EXPECT_EQ(price["labels"]["Label53"], "9.00");
    EXPECT_EQ(price["labels"]["Label58"], "KO");
    EXPECT_EQ(price["labels"]["Label14"], "MA 30");
    EXPECT_EQ(price["colours"]["Label14"], json({0, 150, 0}));
    EXPECT_EQ(price["colours"].size(), 7U);
    // MA 30 is 15, in the middle, from bar 30 on.
    const std::vector<json> average = Lines(price, {0, 150, 0});
    ASSERT_EQ(average.size(), 15U);
    EXPECT_EQ(average[0], json({1400, 3050, 1445, 3050}));
    EXPECT_EQ(chart["study"]["labels"].size(), 2U);
    EXPECT_EQ(chart["volume"]["labels"]["Label56"], "1");
}

TEST_F(ChartCommand, TakesStyleSeriesStudyAndVolume) {
    const json chart = List({"--style", "candlestick", "--series", "WMA 15, ,MLR 15", "--study", "RSI 15",
                             "--volume", "Average,WMA 30"});
    const json& labels = chart["price"]["labels"];
    EXPECT_EQ(labels["Label13"], "WMA 15") << "the first panel is replaced too";
    EXPECT_EQ(labels["Label14"], "");
    EXPECT_EQ(labels["Label15"], "MLR 15");
    EXPECT_EQ(labels["Label16"], "");
    EXPECT_EQ(Lines(chart["price"], {0, 0, 100}).size(), 30U);
    EXPECT_EQ(Lines(chart["price"], {255, 100, 50}).size(), 30U);
    EXPECT_EQ(chart["study"]["labels"]["Label54"], "100.0000");
    EXPECT_EQ(Lines(chart["volume"], {1, 1, 1}).size(), 45U);
    EXPECT_EQ(Lines(chart["volume"], {180, 70, 255}).size(), 15U);
    EXPECT_EQ(Lines(chart["volume"], {10, 150, 10}).size(), 0U) << "no volume bars";

    const json candles = List({"--style", "candlestick", "--series", "Price"});
    // Opens of 15: 23 bars close at 10 below them, 22 at 20 above.
    EXPECT_EQ(Lines(candles["price"], {100, 10, 10}).size(), 46U);
    EXPECT_EQ(Lines(candles["price"], {10, 100, 10}).size(), 44U);
}

TEST_F(ChartCommand, FoldsToWeeksAndMonths) {
    EXPECT_EQ(List({"--interval", "weekly"})["BarCount"], 9);
    EXPECT_EQ(List({"--interval", "monthly"})["BarCount"], 3);
}

TEST_F(ChartCommand, WritesAnSvgFileAndPrintsNothing) {
    const CallResult result = Chart({"--out", SvgPath()});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out + result.err, "");
    const std::string svg = BytesOrEmpty(SvgPath());
    EXPECT_THAT(svg, testing::StartsWith("<?xml"));
    EXPECT_THAT(svg, HasSubstr(">KO</text>"));
    EXPECT_THAT(svg, HasSubstr(">MA 30</text>"));
}

// The size of a PNG file from its head: a signature of 8 bytes, then the length and the name of the first
// chunk, and in it width and height, most significant byte first.
std::pair<int, int> PngSize(const std::string& bytes) {
    if (!bytes.starts_with("\x89PNG\r\n\x1a\n") || bytes.size() < 24 || bytes.substr(12, 4) != "IHDR")
        return {};
    const auto numberAt = [&](std::size_t place) {
        int number = 0;
        for (std::size_t i = 0; i < 4; ++i)
            number = number * 256 + static_cast<unsigned char>(bytes[place + i]);
        return number;
    };
    return {numberAt(16), numberAt(20)};
}

TEST_F(ChartCommand, WritesAPngFileAsLargeAsTheSvgAndPrintsNothing) {
    const std::string file = (folder / "ko.PNG").string();
    const CallResult result = Chart({"--out", file});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.out + result.err, "");
    Chart({"--out", SvgPath()});
    const auto [width, height] = PngSize(BytesOrEmpty(file));
    const std::string svg = BytesOrEmpty(SvgPath());
    const auto lengthOf = [&](const std::string& name) {
        return std::lround(std::stod(svg.substr(svg.find(name + "=\"") + name.size() + 2)));
    };
    EXPECT_GT(width, 12650 / 15);
    EXPECT_EQ(width, lengthOf("width"));
    EXPECT_EQ(height, lengthOf("height"));
}

TEST_F(ChartCommand, APngIsTheSameEveryTimeAndAnotherForAnotherChart) {
    const auto paint = [&](const std::vector<std::string>& arguments) {
        std::vector<std::string> all = arguments;
        const std::string file = (folder / "ko.png").string();
        all.insert(all.end(), {"--out", file});
        Chart(all);
        return BytesOrEmpty(file);
    };
    const std::string first = paint({});
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(paint({}), first);
    EXPECT_NE(paint({"--style", "candlestick"}), first);
    EXPECT_NE(paint({"--study", "RSI 15"}), first);
}

TEST_F(ChartCommand, DrawsATickerWithoutHistoryAsAnEmptyChart) {
    const CallResult result = Call({"chart", "NONE", "--out", SvgPath(), "--today", std::string(kChartDay)});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_THAT(BytesOrEmpty(SvgPath()), HasSubstr("Data does not exist in the Quote Database"));
}

TEST_F(ChartCommand, ChangesNoFileButThePicture) {
    const std::vector<std::string> before = Everything();
    Chart({"--series", "MA 15", "--out", "-"});
    EXPECT_EQ(Everything(), before);
}

TEST_F(ChartCommand, RefusesWhatItCannotRead) {
    ExpectUsage({}, "--out: missing; a file's name, or -");
    ExpectUsage({"--out", "ko.gif"}, "--out: 'ko.gif' does not end in .svg or .png");
    ExpectUsage({"--out", ".svg"}, "--out: '.svg' does not end in .svg or .png");
    ExpectUsage({"--out", "a/.png"}, "--out: 'a/.png' does not end in .svg or .png");
    ExpectUsage({"--out", "-", "--style", "bars"}, "--style: 'bars' is neither default nor candlestick");
    ExpectUsage({"--out", "-", "--series", "Price,MA30"}, "--series: 'MA30' is no series of the panel");
    ExpectUsage({"--out", "-", "--series", "Price,,,,,,,Price"}, "--series: more than 7 series");
    ExpectUsage({"--out", "-", "--study", "RSI"}, "--study: 'RSI' is no study");
    ExpectUsage({"--out", "-", "--volume", "Price"}, "--volume: 'Price' is no series of the panel");
    ExpectUsage({"--out", "-", "--volume", ",,,,,,"}, "--volume: more than 6 series");
}

TEST_F(ChartCommand, AFileThatCannotBeWrittenIsRefused) {
    const std::string file = (folder / "missing/ko.svg").string();
    const CallResult result = Chart({"--out", file});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.err, file + ": cannot be saved (No such file or directory)\n");
    const std::string png = (folder / "missing/ko.png").string();
    EXPECT_EQ(Chart({"--out", png}).err, png + ": cannot be saved (No such file or directory)\n");
}

}  // namespace
}  // namespace brantlow
