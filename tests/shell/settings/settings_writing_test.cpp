#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/files.h"
#include "shell/settings/settings_draft.h"
#include "support/repeated.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

class SettingsWriting : public ::testing::Test {
  protected:
    SettingsWriting() { std::filesystem::create_directory(app_ / "Data"); }

    Path FileOf(SettingsFile file) const { return app_.Get() / "Data" / SettingsFileName(file); }
    Failure Written(SettingsFile file, const SettingsTables& settings) {
        SettingsTables inForce;
        return ApplySettings(settings, file, OrdinaryChange(app_.Get()), inForce);
    }
    // Loads the file with these bytes, writes it and returns what then stands in it.
    std::string Rewritten(SettingsFile file, std::string_view bytes) {
        EXPECT_FALSE(WriteWholeFile(FileOf(file), bytes, Flush::Later));
        SettingsTables settings;
        LoadSettingsFile(file, app_.Get(), settings);
        EXPECT_FALSE(Written(file, settings));
        return BytesOrEmpty(FileOf(file));
    }

    TempFolder app_;
};

const std::string kDataFile =
    "\"Weekly\"\r\n\"True\"\r\n\"Back Up\\Data\"\r\n\"False\"\r\n\"\"\r\n10\r\n\"Manual Save\"\r\n"
    "\"Automatic Save\"\r\n\"EOD\"\r\n\"07\"\r\n\"05\"\r\n\"Manual Updates\"\r\n#2004-01-02#\r\n\"None\"\r\n"
    "\"me@example\"\r\n\"Manual\"\r\n\"True\"\r\n\"\\\\lan\\quotes\"\r\n\"Automatic\"\r\n";

const std::string kNetFile =
    "\"Yahoo\"\r\n\"https://broker.example/?a=1,2\"\r\n\"User Selected String\"\r\n"
    "http://host/q?s=\"A\",\"B\"&f=l1,d1\r\n "
    "http://host/h?\"x\"\r\n12\r\n1\r\n2\r\n\"Jan-2-2004\"\r\n\"Tab\"\r\n"
    "\"StartEOD\"\r\n\"Ticker Symbol\"\r\n\"Variable\"\r\n\"EndEOD\"\r\n\"StartH\"\r\n\"Trade "
    "Date\"\r\n\"EndH\"\r\n";

TEST_F(SettingsWriting, EveryFileSurvivesARewriteByteForByte) {
    struct Row {
        SettingsFile file;
        std::string bytes;
    };
    const Row kRows[] = {
        {SettingsFile::Columns, "\"Volume\"\r\n\"52 Week Low\"\r\n\"\"\r\n"},
        {SettingsFile::Columns, "\"\"\r\n"},
        {SettingsFile::Data, kDataFile},
        {SettingsFile::Graph,
         "\"CandleStick\"\r\n\"Price\"\r\n\"MA 15\"\r\n\"MA 30\"\r\n\"MA 60\"\r\n\"MA 90\"\r\n\"LR L.CL\"\r\n"
         "\"LR T.CL\"\r\n\"None\"\r\n\"Condition 10\"\r\n"},
        {SettingsFile::Selector, "\"Condition\"\r\n\"Buy\"\r\n\"MACD 15  Positive\"\r\n\"Value\"\r\n" +
                                     Repeated("\"\"\r\n", 37) + "\"-1.5\"\r\n"},
        {SettingsFile::Mru, "\"Practice.ddq\"\r\n\"\"\r\n\"Sub\\b.ddq\"\r\n\"\"\r\n"},
        {SettingsFile::Net, kNetFile},
        {SettingsFile::Lang, "\"https://de.quotes.example\"\r\n"},
        {SettingsFile::ImEx,
         "\"Tab Delimited\"\r\n\"Data\"\r\n\"Export.Txt\"\r\n\"Comma Delimited\"\r\n\"Data\"\r\n"
         "\"Import.Txt\"\r\n1\r\n2\r\n\"20040102\"\r\n\"Ticker Symbol\"\r\n\"End Export File\"\r\n"
         "\"Ticker Symbol\"\r\n\"End Import File\"\r\n"}};
    for (const Row& row : kRows) EXPECT_EQ(Rewritten(row.file, row.bytes), row.bytes) << row.bytes;
}

TEST_F(SettingsWriting, TheDateOfTheLastBackUpStaysADateBetweenNumberSigns) {
    const std::string bytes = Rewritten(SettingsFile::Data, kDataFile);
    EXPECT_NE(bytes.find("\"Manual Updates\"\r\n#2004-01-02#\r\n\"None\"\r\n"), std::string::npos);
}

TEST_F(SettingsWriting, ANewDateAndANewNumberAreWrittenBare) {
    SettingsTables settings;
    settings.DataSettings.Set(6, Value::OfNumber(20));
    settings.DataSettings.Set(
        13, Value::OfDate(Date{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}}));
    EXPECT_EQ(SettingsFileText(SettingsFile::Data, settings),
              Repeated("\"\"\r\n", 5) + "20\r\n" + Repeated("\"\"\r\n", 6) + "#2026-11-21#\r\n" +
                  Repeated("\"\"\r\n", 6));
}

TEST_F(SettingsWriting, AnAddressWithCommasAndQuotesIsPrintedRawAndReadWhole) {
    SettingsTables settings;
    LoadAllSettings(app_.Get(), settings);
    const std::string url = R"(https://host/q?s="%1,%2"&f="a","b",)";
    settings.NetSettings.Set(4, Value::OfRawLine(url));
    settings.NetSettings.Set(5, Value::OfRawLine("\"" + url));
    ASSERT_FALSE(Written(SettingsFile::Net, settings));
    EXPECT_EQ(BytesOrEmpty(FileOf(SettingsFile::Net)),
              "\"\"\r\n\"\"\r\n\"\"\r\n" + url + "\r\n\"" + url + "\r\n");
    SettingsTables reloaded;
    LoadSettingsFile(SettingsFile::Net, app_.Get(), reloaded);
    EXPECT_EQ(reloaded.NetSettings.Text(4), url);
    EXPECT_EQ(reloaded.NetSettings.Text(5), "\"" + url);
}

TEST_F(SettingsWriting, LinesFourToEightOfTheSourcesAndNoOthersArePrinted) {
    SettingsTables settings;
    for (std::size_t i = 1; i <= 10; ++i) settings.NetSettings.Set(i, Value::OfText("t"));
    EXPECT_EQ(SettingsFileText(SettingsFile::Net, settings),
              Repeated("\"t\"\r\n", 3) + Repeated("t\r\n", 5) + Repeated("\"t\"\r\n", 2));
}

TEST_F(SettingsWriting, ALineEndInsideAPrintedLineDoesNotMoveTheLinesBehindIt) {
    SettingsTables settings;
    settings.NetSettings.Set(4, Value::OfRawLine("http://a\r\nb"));
    settings.NetSettings.Set(5, Value::OfRawLine("http://c"));
    EXPECT_EQ(SettingsFileText(SettingsFile::Net, settings),
              "\"\"\r\n\"\"\r\n\"\"\r\nhttp://ab\r\nhttp://c\r\n");
}

TEST_F(SettingsWriting, ADoubleQuoteIsLeftOutOfAWrittenValue) {
    SettingsTables settings;
    settings.QuoteHost = "http://\"x\"";
    EXPECT_EQ(SettingsFileText(SettingsFile::Lang, settings), "\"http://x\"\r\n");
}

TEST_F(SettingsWriting, TheColumnListIsClosedByOneEmptyLine) {
    SettingsTables settings;
    EXPECT_EQ(SettingsFileText(SettingsFile::Columns, settings), "\"\"\r\n");
    settings.ColumnSettings.Set(1, Value::OfText("Name"));
    settings.ColumnSettings.Set(3, Value::OfText("Volume"));
    EXPECT_EQ(SettingsFileText(SettingsFile::Columns, settings), "\"Name\"\r\n\"\"\r\n");
}

TEST_F(SettingsWriting, ShortAndLongTablesAreWrittenWithTheLinesOfTheirFile) {
    struct Row {
        SettingsFile file;
        std::size_t entries;
        std::size_t lines;
    };
    constexpr Row kRows[] = {
        {SettingsFile::Data, 3, 19},   {SettingsFile::Data, 25, 19}, {SettingsFile::Graph, 8, 8},
        {SettingsFile::Graph, 12, 10}, {SettingsFile::Mru, 0, 4},    {SettingsFile::Mru, 6, 4},
        {SettingsFile::Net, 13, 13},   {SettingsFile::ImEx, 44, 44}, {SettingsFile::Selector, 410, 410}};
    for (const Row& row : kRows) {
        SettingsTables settings;
        for (std::size_t i = 1; i <= row.entries; ++i) {
            (settings.*FormOf(row.file).table).Set(i, Value::OfText("x"));
        }
        const std::string text = SettingsFileText(row.file, settings);
        EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')), row.lines)
            << SettingsFileName(row.file) << ' ' << row.entries;
    }
}

TEST_F(SettingsWriting, FewerChartVariablesMoveTheConditionsUp) {
    const std::string bytes =
        "\"Default\"\r\n\"Price\"\r\n\"MA 15\"\r\n\"Condition 1\"\r\n\"Condition 2\"\r\n";
    EXPECT_EQ(Rewritten(SettingsFile::Graph, bytes), bytes);
    SettingsTables settings;
    LoadSettingsFile(SettingsFile::Graph, app_.Get(), settings);
    EXPECT_EQ(settings.GraphSettings.Text(4), "Condition 1");
    EXPECT_EQ(settings.GraphSettings.Text(9), "");
    EXPECT_EQ(settings.GraphSettings.Text(10), "");
}

TEST_F(SettingsWriting, ReplacesTheWholeFileAndLeavesNothingElseBehind) {
    EXPECT_EQ(Rewritten(SettingsFile::Mru, "\"a.ddq\"\n" + Repeated("\"junk\"\n", 100)),
              "\"a.ddq\"\r\n\"junk\"\r\n\"junk\"\r\n\"junk\"\r\n");
    EXPECT_EQ(FileNamesIn(app_ / "Data"), std::vector<std::string>{"VTRMRUset.ini"});
}

TEST_F(SettingsWriting, AFolderInTheFilesPlaceIsAnErrorAndStands) {
    std::filesystem::create_directory(FileOf(SettingsFile::Data));
    EXPECT_EQ(Written(SettingsFile::Data, SettingsTables{}).cause, std::errc::is_a_directory);
    EXPECT_TRUE(std::filesystem::is_directory(FileOf(SettingsFile::Data)));
    EXPECT_TRUE(FileNamesIn(app_ / "Data").empty());
}

TEST_F(SettingsWriting, AMissingDataFolderIsAnError) {
    std::filesystem::remove_all(app_ / "Data");
    EXPECT_EQ(Written(SettingsFile::Data, SettingsTables{}).cause, std::errc::no_such_file_or_directory);
}

TEST_F(SettingsWriting, AFullTableOfColumnsStaysReadable) {
    const std::string bytes = Repeated("\"Volume\"\r\n", 18000);
    EXPECT_EQ(Rewritten(SettingsFile::Columns, bytes), bytes);
}

}  // namespace
}  // namespace brantlow
