#include "shell/settings/settings_defaults.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/values.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/settings_files.h"
#include "support/source_folder.h"

namespace brantlow {
namespace {

Path ShippedFolder() {
    return SourceFolder() / "assets";
}

std::string ShippedBytes(std::string_view name) {
    const ReadResult file = ReadWholeFile(ShippedFolder() / "Data" / name);
    EXPECT_EQ(file.outcome, ReadOutcome::Done) << name;
    return file.bytes;
}

std::string WrittenLine(std::string_view text) {
    return "\"" + std::string(text) + "\"\r\n";
}

// `line` as it stands in a file whose defaults were written on `today`.
std::string DefaultLineText(const DefaultLine& line, std::string_view today) {
    switch (line.kind) {
        case DefaultKind::Number:
        case DefaultKind::Raw:
        case DefaultKind::KeptRaw:
            return std::string(line.text) + "\r\n";
        case DefaultKind::Today:
            return std::string(today) + "\r\n";
        case DefaultKind::Text:
        case DefaultKind::Kept:
            break;
    }
    return WrittenLine(line.text);
}

std::string DefaultLinesText(std::span<const DefaultLine> lines, std::string_view today = {}) {
    std::string text;
    for (const DefaultLine& line : lines) text += DefaultLineText(line, today);
    return text;
}

std::string WrittenLines(std::span<const std::string_view> names) {
    std::string text;
    for (const std::string_view name : names) text += WrittenLine(name);
    return text;
}

struct ExpectedLine {
    std::string_view text;
    DefaultKind kind = DefaultKind::Text;
};

void ExpectLines(std::span<const DefaultLine> actual, std::span<const ExpectedLine> expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_EQ(actual[i].text, expected[i].text) << "line " << i + 1;
        EXPECT_EQ(actual[i].kind, expected[i].kind) << "line " << i + 1;
    }
}

void ExpectNames(std::span<const std::string_view> actual, const std::vector<std::string_view>& expected) {
    EXPECT_EQ(std::vector<std::string_view>(actual.begin(), actual.end()), expected);
}

TEST(DefaultSettings, NameEveryColumnInOrder) {
    ExpectNames(kDefaultColumns, {"Last Price",
                                  "Change",
                                  "Change (%)",
                                  "Ask Price",
                                  "Bid Price",
                                  "Low Price",
                                  "High Price",
                                  "Volume",
                                  "Open Price",
                                  "Previous Close",
                                  "52 Week Low",
                                  "52 Week High",
                                  "Name",
                                  "Exchange",
                                  "Trade Date",
                                  "Trade Time",
                                  "P/E ttm.",
                                  "P/E est.",
                                  "EPS ttm.",
                                  "EPS est.",
                                  "SPS",
                                  "E/S",
                                  "PEG",
                                  "P/S",
                                  "Dividend",
                                  "Yield (%)",
                                  "Dividend Date",
                                  "X Dividend Date",
                                  "Market Cap (M)",
                                  "Annual Sales (M)",
                                  "Annual Earnings (M)",
                                  "Annual Earnings est. (M)",
                                  "High Alarm",
                                  "Low Alarm"});
}

TEST(DefaultSettings, OfDataAndAutomationLineByLine) {
    constexpr ExpectedLine kExpected[] = {{"Manually"},
                                          {"True"},
                                          {"Back Up\\Data", DefaultKind::Kept},
                                          {"True"},
                                          {"Back Up\\Quotes", DefaultKind::Kept},
                                          {"10", DefaultKind::Number},
                                          {"Automatic Save"},
                                          {"Automatic Save"},
                                          {"None"},
                                          {""},
                                          {""},
                                          {"Manual Updates"},
                                          {"", DefaultKind::Today},
                                          {"None"},
                                          {"", DefaultKind::Kept},
                                          {"Manual"},
                                          {"False"},
                                          {"Quotes\\EOD", DefaultKind::Kept},
                                          {"Automatic"}};
    ExpectLines(kDefaultDataSettings, kExpected);
}

TEST(DefaultSettings, OfTheChartLineByLine) {
    constexpr ExpectedLine kExpected[] = {{"Default"},
                                          {"Price"},
                                          {"LR MINMAX CL"},
                                          {"LR T.CL"},
                                          {"MA 180"},
                                          {"MLR 60"},
                                          {"MLR 60 L.CL"},
                                          {"MLR 90"},
                                          {"Condition 1", DefaultKind::Kept},
                                          {"Condition 2", DefaultKind::Kept}};
    ExpectLines(kDefaultGraphSettings, kExpected);
}

TEST(DefaultSettings, OfTheQuoteSourceLineByLine) {
    constexpr ExpectedLine kExpected[] = {{"Yahoo", DefaultKind::Kept},
                                          {"", DefaultKind::Kept},
                                          {"Yahoo", DefaultKind::Kept},
                                          {"", DefaultKind::KeptRaw},
                                          {"", DefaultKind::KeptRaw},
                                          {"15", DefaultKind::Raw},
                                          {"0", DefaultKind::Raw},
                                          {"0", DefaultKind::Raw},
                                          {"01/02/04"},
                                          {"Comma"}};
    ExpectLines(kDefaultNetSettings, kExpected);
    ExpectNames(kDefaultEodSequence,
                {"Ticker Symbol", "Last Price", "Trade Date",     "Trade Time",      "Dividend Date",
                 "Change",        "Name",       "Exchange",       "X Dividend Date", "Ask Price",
                 "Bid Price",     "Open Price", "High Price",     "Dividend",        "52 Week Low",
                 "52 Week High",  "EPS ttm.",   "Low Price",      "P/E ttm.",        "Volume",
                 "PEG",           "EPS est.",   "Previous Close", "Market Cap (M)",  "P/S"});
    ExpectNames(kDefaultHistorySequence,
                {"Trade Date", "Open Price", "High Price", "Low Price", "Last Price", "Volume", "Variable"});
}

TEST(DefaultSettings, OfImportAndExportLineByLine) {
    constexpr ExpectedLine kExpected[] = {
        {"Comma Delimited"},        {"Data", DefaultKind::Kept}, {"Export.Txt"},
        {"Comma Delimited"},        {"Data", DefaultKind::Kept}, {"Import.Txt"},
        {"0", DefaultKind::Number}, {"0", DefaultKind::Number},  {"01/02/04"}};
    ExpectLines(kDefaultImExSettings, kExpected);
    ExpectNames(kDefaultImportSequence,
                {"Ticker Symbol", "Last Price", "Trade Date", "High Price", "Low Price", "Volume"});
    ASSERT_EQ(kDefaultExportSequence.size(), 33U);
    EXPECT_EQ(kDefaultExportSequence.front(), "Ticker Symbol");
    EXPECT_EQ(kDefaultExportSequence[1], "Last Price");
    EXPECT_EQ(kDefaultExportSequence.back(), "Annual Earnings est. (M)");
}

TEST(FirstRunFiles, HoldTheDefaults) {
    EXPECT_EQ(ShippedBytes("VTRCOLset.ini"), WrittenLines(kDefaultColumns) + "\"\"\r\n");
    EXPECT_EQ(ShippedBytes("VTRDATAset.ini"), DefaultLinesText(kDefaultDataSettings, "#2026-01-02#"));
    EXPECT_EQ(ShippedBytes("VTRGRAPHset.ini"), DefaultLinesText(kDefaultGraphSettings));
    EXPECT_EQ(ShippedBytes("VTRNETset.ini"),
              DefaultLinesText(kDefaultNetSettings) + WrittenLine(kStartEod) +
                  WrittenLines(kDefaultEodSequence) + WrittenLine(kEndEod) + WrittenLine(kStartHistory) +
                  WrittenLines(kDefaultHistorySequence) + WrittenLine(kEndHistory));
    EXPECT_EQ(ShippedBytes("VTRIMEXset.ini"),
              DefaultLinesText(kDefaultImExSettings) + WrittenLines(kDefaultExportSequence) +
                  WrittenLine(kEndExportFile) + WrittenLines(kDefaultImportSequence) +
                  WrittenLine(kEndImportFile));
}

TEST(FirstRunFiles, NameThePracticeTableAndNoMarket) {
    EXPECT_EQ(ShippedBytes("VTRMRUset.ini"), "\"Practice.ddq\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n");
    EXPECT_EQ(ShippedBytes("VTRLANGset.ini"), "\"\"\r\n");
}

TEST(FirstRunFiles, TheTemplateOfANewTableIsOneHeaderLine) {
    std::string header(kTickerColumn);
    for (const std::string_view column : kDefaultColumns) header += "\t" + std::string(column);
    EXPECT_EQ(ShippedBytes("New EOD Quotes.db"), header + "\r\n");
    EXPECT_EQ(kTickerColumn, "Ticker Symbol");
}

TEST(FirstRunFiles, SurviveALoadAndARewriteByteForByte) {
    SettingsTables settings;
    LoadAllSettings(ShippedFolder(), settings);
    for (const SettingsFileForm& form : kSettingsFiles) {
        if (form.file == SettingsFile::Lang) continue;
        EXPECT_EQ(SettingsFileText(form.file, settings), ShippedBytes(form.fileName)) << form.fileName;
    }
}

TEST(FirstRunFiles, LoadWithEveryCountAndIndex) {
    SettingsTables settings;
    LoadAllSettings(ShippedFolder(), settings);
    EXPECT_EQ(settings.ColumnCount, 34U);
    EXPECT_EQ(settings.NetEodFirst, 12U);
    EXPECT_EQ(settings.NetEodLast, 36U);
    EXPECT_EQ(settings.NetHistFirst, 39U);
    EXPECT_EQ(settings.NetHistLast, 45U);
    EXPECT_EQ(settings.ImExSettings.Text(10), "Ticker Symbol");
    EXPECT_EQ(settings.ImportFieldFirst, 44U);
    EXPECT_EQ(settings.ImportFieldLast, 49U);
    EXPECT_EQ(settings.DataSettings.At(13).ValueKind(), Value::Kind::Day);
    EXPECT_EQ(settings.QuoteHost, "https://quotes.brantlow.example");
    EXPECT_EQ(settings.QuoteFolder, (ShippedFolder() / "Quotes" / "EOD" / "").string());
}

TEST(FirstRunFiles, HoldTenConditionsThatAllTestSomething) {
    SettingsTables settings;
    LoadAllSettings(ShippedFolder(), settings);
    const ConditionSet set = ParseConditionSet(settings.SelectorSettings);
    EXPECT_EQ(FormatConditionSet(set), ShippedBytes("VTRSELset.ini"));
    std::vector<std::string> actions;
    for (std::size_t i = 0; i < set.size(); ++i) {
        EXPECT_GE(set[i].names.size(), 2U) << "condition " << i + 1;
        for (std::size_t other = 0; other < i; ++other) EXPECT_NE(set[i], set[other]) << i + 1;
        actions.push_back(set[i].action);
    }
    EXPECT_EQ(actions, (std::vector<std::string>{"Buy", "Sell", "Buy", "Buy", "Sell", "Hold", "Hold", "Buy",
                                                 "Buy", "Sell"}));
}

TEST(FirstRunFiles, TheChartsConditionsAreABuyAndASell) {
    SettingsTables settings;
    LoadAllSettings(ShippedFolder(), settings);
    const ConditionSet set = ParseConditionSet(settings.SelectorSettings);
    EXPECT_EQ(settings.GraphSettings.Text(9), "Condition 1");
    EXPECT_EQ(set[0].action, "Buy");
    EXPECT_EQ(settings.GraphSettings.Text(10), "Condition 2");
    EXPECT_EQ(set[1].action, "Sell");
}

}  // namespace
}  // namespace brantlow
