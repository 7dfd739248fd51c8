#include "shell/settings/settings_defaults.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/values.h"
#include "shell/settings/condition_set.h"
#include "shell/settings/lines.h"
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

// The numbered lines of the file as rows give them on `today`.
std::string DefaultLinesText(SettingsFile file, std::string_view today = {}) {
    std::string text;
    for (const LineRow& row : kLineRows) {
        if (row.file != file) continue;
        if (row.reset == LineReset::Today) {
            text.append(today).append("\r\n");
        } else if (row.form == LineForm::Written) {
            text += WrittenLine(row.standard);
        } else {
            text.append(row.standard).append("\r\n");
        }
    }
    return text;
}

std::string WrittenLines(std::span<const std::string_view> names) {
    std::string text;
    for (const std::string_view name : names) text += WrittenLine(name);
    return text;
}

struct ExpectedLine {
    std::string_view text;
    LineReset reset = LineReset::Standard;
    LineForm form = LineForm::Written;
};
constexpr LineReset kKeep = LineReset::Keep;
constexpr LineReset kShown = LineReset::KeepShown;
constexpr LineReset kStandard = LineReset::Standard;

void ExpectLines(SettingsFile file, std::span<const ExpectedLine> expected) {
    ASSERT_EQ(LineCountOf(file), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const LineRow* row = RowOf(file, i + 1);
        ASSERT_NE(row, nullptr) << "line " << i + 1;
        EXPECT_EQ(row->standard, expected[i].text) << "line " << i + 1;
        EXPECT_EQ(row->reset, expected[i].reset) << "line " << i + 1;
        EXPECT_EQ(row->form, expected[i].form) << "line " << i + 1;
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
                                          {"Back Up\\Data", kShown},
                                          {"True"},
                                          {"Back Up\\Quotes", kShown},
                                          {"10", kStandard, LineForm::Number},
                                          {"Automatic Save"},
                                          {"Automatic Save"},
                                          {"None"},
                                          {""},
                                          {""},
                                          {"Manual Updates"},
                                          {"", LineReset::Today},
                                          {"None"},
                                          {"", kKeep},
                                          {"Manual"},
                                          {"False"},
                                          {"Quotes\\EOD", kShown},
                                          {"Automatic"}};
    ExpectLines(SettingsFile::Data, kExpected);
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
                                          {"Condition 1", kShown},
                                          {"Condition 2", kShown}};
    ExpectLines(SettingsFile::Graph, kExpected);
}

TEST(DefaultSettings, OfTheQuoteSourceLineByLine) {
    constexpr ExpectedLine kExpected[] = {{"Yahoo", kKeep},
                                          {"", kShown},
                                          {"Yahoo", kKeep},
                                          {"", kShown, LineForm::Printed},
                                          {"", kShown, LineForm::Printed},
                                          {"15", kStandard, LineForm::Printed},
                                          {"0", kStandard, LineForm::Printed},
                                          {"0", kStandard, LineForm::Printed},
                                          {"01/02/04"},
                                          {"Comma"}};
    ExpectLines(SettingsFile::Net, kExpected);
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
    constexpr ExpectedLine kExpected[] = {{"Comma Delimited"},
                                          {"Data", kShown},
                                          {"Export.Txt"},
                                          {"Comma Delimited"},
                                          {"Data", kShown},
                                          {"Import.Txt"},
                                          {"0", kStandard, LineForm::Number},
                                          {"0", kStandard, LineForm::Number},
                                          {"01/02/04"}};
    ExpectLines(SettingsFile::ImEx, kExpected);
    ExpectNames(kDefaultImportSequence,
                {"Ticker Symbol", "Last Price", "Trade Date", "High Price", "Low Price", "Volume"});
    ASSERT_EQ(kDefaultExportSequence.size(), 33U);
    EXPECT_EQ(kDefaultExportSequence.front(), "Ticker Symbol");
    EXPECT_EQ(kDefaultExportSequence[1], "Last Price");
    EXPECT_EQ(kDefaultExportSequence.back(), "Annual Earnings est. (M)");
}

TEST(FirstRunFiles, HoldTheDefaults) {
    for (const SettingsFile file :
         {SettingsFile::Mru, SettingsFile::Lang, SettingsFile::Own, SettingsFile::Src, SettingsFile::Mail}) {
        EXPECT_EQ(ShippedBytes(FormOf(file).fileName), DefaultLinesText(file));
    }
    EXPECT_EQ(ShippedBytes("VTRCOLset.ini"), WrittenLines(kDefaultColumns) + "\"\"\r\n");
    EXPECT_EQ(ShippedBytes("VTRDATAset.ini"), DefaultLinesText(SettingsFile::Data, "#2026-01-02#"));
    EXPECT_EQ(ShippedBytes("VTRGRAPHset.ini"), DefaultLinesText(SettingsFile::Graph));
    EXPECT_EQ(ShippedBytes("VTRNETset.ini"),
              DefaultLinesText(SettingsFile::Net) + WrittenLine(kStartEod) +
                  WrittenLines(kDefaultEodSequence) + WrittenLine(kEndEod) + WrittenLine(kStartHistory) +
                  WrittenLines(kDefaultHistorySequence) + WrittenLine(kEndHistory));
    EXPECT_EQ(ShippedBytes("VTRIMEXset.ini"),
              DefaultLinesText(SettingsFile::ImEx) + WrittenLines(kDefaultExportSequence) +
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
