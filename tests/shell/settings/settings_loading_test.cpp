#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/files.h"
#include "shell/settings/settings_files.h"
#include "support/repeated.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

// An application folder with an empty Data/.
class SettingsLoading : public ::testing::Test {
  protected:
    SettingsLoading() { std::filesystem::create_directory(app_ / "Data"); }

    void Put(std::string_view name, std::string_view bytes) {
        ASSERT_FALSE(WriteWholeFile(app_.Get() / "Data" / name, bytes, Flush::Later));
    }
    void Load() { LoadAllSettings(app_.Get(), settings_); }
    void PutAndLoad(std::string_view name, std::string_view bytes) {
        Put(name, bytes);
        Load();
    }
    std::string Folder(std::string_view rest) const { return app_.Get().string() + std::string(rest); }

    TempFolder app_;
    SettingsTables settings_;
};

std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\r\n";
    return text;
}

std::vector<std::string> TextsOf(const SettingsTable& table) {
    std::vector<std::string> texts;
    for (std::size_t i = 1; i <= table.Size(); ++i) texts.push_back(table.Text(i));
    return texts;
}

TEST(SettingsFileForms, NameEachFileAndItsTableInLoadingOrder) {
    struct Row {
        SettingsFile file;
        const char* fileName;
        const char* tableName;
        SettingsTable SettingsTables::*table;
    };
    constexpr Row kRows[] = {
        {SettingsFile::Columns, "VTRCOLset.ini", "ColumnSettings", &SettingsTables::ColumnSettings},
        {SettingsFile::Data, "VTRDATAset.ini", "DataSettings", &SettingsTables::DataSettings},
        {SettingsFile::Graph, "VTRGRAPHset.ini", "GraphSettings", &SettingsTables::GraphSettings},
        {SettingsFile::Selector, "VTRSELset.ini", "SelectorSettings", &SettingsTables::SelectorSettings},
        {SettingsFile::Mru, "VTRMRUset.ini", "MruSettings", &SettingsTables::MruSettings},
        {SettingsFile::Net, "VTRNETset.ini", "NetSettings", &SettingsTables::NetSettings},
        {SettingsFile::Lang, "VTRLANGset.ini", "QuoteHost", nullptr},
        {SettingsFile::ImEx, "VTRIMEXset.ini", "ImExSettings", &SettingsTables::ImExSettings},
        {SettingsFile::Own, "VTROWNset.ini", "OwnSettings", &SettingsTables::OwnSettings},
        {SettingsFile::Src, "VTRSRCset.ini", "SrcSettings", &SettingsTables::SrcSettings},
        {SettingsFile::Mail, "VTRMAILset.ini", "MailSettings", &SettingsTables::MailSettings}};
    ASSERT_EQ(std::size(kRows), kSettingsFiles.size());
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        EXPECT_EQ(kSettingsFiles[i].file, kRows[i].file) << kRows[i].fileName;
        EXPECT_EQ(kSettingsFiles[i].tableName, kRows[i].tableName);
        EXPECT_EQ(kSettingsFiles[i].table, kRows[i].table) << kRows[i].fileName;
        EXPECT_EQ(SettingsFileName(kRows[i].file), kRows[i].fileName);
    }
}

TEST_F(SettingsLoading, EachFileFillsItsOwnTable) {
    for (const SettingsFileForm& form : kSettingsFiles) {
        Put(form.fileName, "\"" + std::string(form.tableName) + "\"\r\n");
    }
    Load();
    for (const SettingsFileForm& form : kSettingsFiles) {
        if (form.table == nullptr) continue;
        EXPECT_EQ((settings_.*form.table).Text(1), form.tableName);
    }
    EXPECT_EQ(settings_.QuoteHost, "QuoteHost");
}

TEST_F(SettingsLoading, OneFileAloneLeavesTheOtherTablesAsTheyAre) {
    Put("VTRDATAset.ini", "\"Weekly\"\r\n");
    Put("VTRGRAPHset.ini", "\"CandleStick\"\r\n");
    settings_.DataSettings.Set(1, Value::OfText("Monthly"));
    LoadSettingsFile(SettingsFile::Graph, app_.Get(), settings_);
    EXPECT_EQ(settings_.GraphSettings.Text(1), "CandleStick");
    EXPECT_EQ(settings_.DataSettings.Text(1), "Monthly");
}

TEST_F(SettingsLoading, MissingFilesLeaveEverythingEmptyButTheHostAndTheQuoteFolder) {
    std::filesystem::remove(app_ / "Data");
    Load();
    for (const SettingsFileForm& form : kSettingsFiles) {
        if (form.table == nullptr) continue;
        EXPECT_EQ((settings_.*form.table).Size(), 0U) << form.fileName;
        EXPECT_EQ((settings_.*form.table).Text(1), "") << form.fileName;
    }
    EXPECT_EQ(settings_.ColumnCount, 0U);
    EXPECT_EQ(settings_.SelectorLineCount, 0U);
    EXPECT_EQ(settings_.NetEodFirst + settings_.NetEodLast, 0U);
    EXPECT_EQ(settings_.NetHistFirst + settings_.NetHistLast, 0U);
    EXPECT_EQ(settings_.ImportFieldFirst + settings_.ImportFieldLast, 0U);
    EXPECT_EQ(settings_.QuoteHost, "https://quotes.brantlow.example");
    EXPECT_EQ(settings_.QuoteFolder, Folder("/Quotes/EOD/"));
}

TEST_F(SettingsLoading, ValuesKeepTheirTypes) {
    PutAndLoad("VTRDATAset.ini", "\"Manually\"\r\n10\r\n#2004-01-02#\r\n\"10\"\r\n\"\"\r\n\r\nbare\r\n");
    struct Row {
        Value::Kind kind;
        const char* text;
    };
    constexpr Row kRows[] = {{Value::Kind::Text, "Manually"},  {Value::Kind::Number, "10"},
                             {Value::Kind::Day, "2004-01-02"}, {Value::Kind::Text, "10"},
                             {Value::Kind::Text, ""},          {Value::Kind::Text, ""},
                             {Value::Kind::Text, "bare"}};
    ASSERT_EQ(settings_.DataSettings.Size(), std::size(kRows));
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        EXPECT_EQ(settings_.DataSettings.At(i + 1).ValueKind(), kRows[i].kind) << "line " << i + 1;
        EXPECT_EQ(settings_.DataSettings.Text(i + 1), kRows[i].text) << "line " << i + 1;
    }
}

TEST_F(SettingsLoading, ALineIsOneValueWhateverCommasItHolds) {
    PutAndLoad("VTRIMEXset.ini", "\"a, b\"\r\n\"c\"\r\n");
    EXPECT_EQ(TextsOf(settings_.ImExSettings), (std::vector<std::string>{"a, b", "c"}));
}

TEST_F(SettingsLoading, LineFeedsAloneAndAMissingLastLineEndAreRead) {
    PutAndLoad("VTRGRAPHset.ini", "\"CandleStick\"\n\"Price\"\r\n\"MA 15\"");
    EXPECT_EQ(TextsOf(settings_.GraphSettings), (std::vector<std::string>{"CandleStick", "Price", "MA 15"}));
}

TEST_F(SettingsLoading, TheColumnListEndsAtItsFirstEmptyLine) {
    PutAndLoad("VTRCOLset.ini", Lines({"\"Volume\"", "\"Name\"", "\"\"", "\"Change\""}));
    EXPECT_EQ(settings_.ColumnCount, 2U);
    EXPECT_EQ(TextsOf(settings_.ColumnSettings), (std::vector<std::string>{"Volume", "Name", ""}));
}

TEST_F(SettingsLoading, AColumnListWithoutItsEmptyLineEndsWithTheFile) {
    PutAndLoad("VTRCOLset.ini", Lines({"\"Volume\"", "\"Name\""}));
    EXPECT_EQ(settings_.ColumnCount, 2U);
}

TEST_F(SettingsLoading, AnEmptyFirstLineGivesNoColumns) {
    PutAndLoad("VTRCOLset.ini", Lines({"\"\"", "\"Volume\""}));
    EXPECT_EQ(settings_.ColumnCount, 0U);
    EXPECT_EQ(settings_.ColumnSettings.Text(2), "");
}

TEST_F(SettingsLoading, AShorterColumnListLeavesNothingOfTheLongerOne) {
    PutAndLoad("VTRCOLset.ini", Lines({"\"Volume\"", "\"Name\"", "\"Change\"", "\"\""}));
    PutAndLoad("VTRCOLset.ini", Lines({"\"Name\"", "\"\""}));
    EXPECT_EQ(settings_.ColumnCount, 1U);
    EXPECT_EQ(TextsOf(settings_.ColumnSettings), (std::vector<std::string>{"Name", ""}));
}

TEST_F(SettingsLoading, LinesBeyondThoseInUseAreReadToo) {
    PutAndLoad("VTRDATAset.ini", Repeated("\"x\"\r\n", 25));
    EXPECT_EQ(settings_.DataSettings.Size(), 25U);
}

TEST_F(SettingsLoading, SelectorLineCountIsTheNumberOfLinesRead) {
    PutAndLoad("VTRSELset.ini", Lines({"\"Condition\"", "\"Buy\"", "\"Value\"", "\"\""}));
    EXPECT_EQ(settings_.SelectorLineCount, 4U);
}

TEST_F(SettingsLoading, AShorterConditionSetIsFollowedByTheLinesOfTheLongerOne) {
    PutAndLoad("VTRSELset.ini", Lines({"\"Condition\"", "\"Buy\"", "\"RSI 15 Below 30\""}));
    PutAndLoad("VTRSELset.ini", Lines({"\"Condition\"", "\"Sell\""}));
    EXPECT_EQ(settings_.SelectorLineCount, 2U);
    EXPECT_EQ(TextsOf(settings_.SelectorSettings),
              (std::vector<std::string>{"Condition", "Sell", "RSI 15 Below 30"}));
}

TEST_F(SettingsLoading, NoMoreThanFourRecentFilesAreRead) {
    PutAndLoad("VTRMRUset.ini", Lines({"\"a.ddq\"", "\"\"", "\"c.ddq\"", "\"d.ddq\"", "\"e.ddq\""}));
    EXPECT_EQ(TextsOf(settings_.MruSettings), (std::vector<std::string>{"a.ddq", "", "c.ddq", "d.ddq"}));
}

// Ten lines above the sequences, as the settings window writes them.
std::vector<std::string> NetHead() {
    return {"\"Yahoo\"",    "\"\"",     "\"User Selected String\"", "", "", "15", "0", "0",
            "\"01/02/04\"", "\"Comma\""};
}

std::string NetFile(const std::vector<std::string>& sequences) {
    return Lines(NetHead()) + Lines(sequences);
}

TEST_F(SettingsLoading, TheSequenceIndexesStandBetweenTheirMarkers) {
    PutAndLoad("VTRNETset.ini",
               NetFile({"\"StartEOD\"", "\"Ticker Symbol\"", "\"Last Price\"", "\"Volume\"", "\"EndEOD\"",
                        "\"StartH\"", "\"Trade Date\"", "\"Last Price\"", "\"EndH\""}));
    EXPECT_EQ(settings_.NetEodFirst, 12U);
    EXPECT_EQ(settings_.NetEodLast, 14U);
    EXPECT_EQ(settings_.NetHistFirst, 17U);
    EXPECT_EQ(settings_.NetHistLast, 18U);
    EXPECT_EQ(settings_.NetSettings.Text(settings_.NetEodFirst), "Ticker Symbol");
    EXPECT_EQ(settings_.NetSettings.Text(settings_.NetHistLast), "Last Price");
}

TEST_F(SettingsLoading, AnEmptySequenceEndsBeforeItBegins) {
    PutAndLoad("VTRNETset.ini", NetFile({"\"StartEOD\"", "\"EndEOD\"", "\"StartH\"", "\"EndH\""}));
    EXPECT_EQ(settings_.NetEodFirst, 12U);
    EXPECT_EQ(settings_.NetEodLast, 11U);
    EXPECT_EQ(settings_.NetHistFirst, 14U);
    EXPECT_EQ(settings_.NetHistLast, 13U);
}

TEST_F(SettingsLoading, WithoutTheStartMarkerOnLineElevenTheSequenceIndexesStayUnset) {
    const std::vector<std::vector<std::string>> kSequences = {
        {"\"Ticker Symbol\"", "\"EndEOD\"", "\"StartH\"", "\"Trade Date\"", "\"EndH\""},
        {"\"x\"", "\"StartEOD\"", "\"Ticker Symbol\"", "\"EndEOD\"", "\"StartH\"", "\"EndH\""},
        {}};
    for (const auto& sequences : kSequences) {
        settings_.NetEodFirst = settings_.NetEodLast = settings_.NetHistFirst = settings_.NetHistLast = 7;
        PutAndLoad("VTRNETset.ini", NetFile(sequences));
        EXPECT_EQ(settings_.NetEodFirst, 0U) << sequences.size();
        EXPECT_EQ(settings_.NetEodLast, 0U) << sequences.size();
        EXPECT_EQ(settings_.NetHistFirst, 0U) << sequences.size();
        EXPECT_EQ(settings_.NetHistLast, 0U) << sequences.size();
    }
}

TEST_F(SettingsLoading, LinesFourToSixOfTheSourcesAreReadWhole) {
    const std::string url = R"( http://host/q?s="A,B"&f="x",#1# )";
    PutAndLoad("VTRNETset.ini",
               Lines({"\"Yahoo\"", "\"\"", "\"Yahoo\"", url, "\"quoted\"", " 12", " 3", "\"4\""}));
    struct Row {
        std::size_t line;
        std::string text;
    };
    const Row kRows[] = {{4, url}, {5, "\"quoted\""}, {6, " 12"}, {7, "3"}, {8, "4"}};
    for (const Row& row : kRows) EXPECT_EQ(settings_.NetSettings.Text(row.line), row.text) << row.line;
    EXPECT_EQ(settings_.NetSettings.Number(6), 12);
}

TEST_F(SettingsLoading, TheQuoteHostIsTheFirstLineOrTheUnitedStatesHost) {
    struct Row {
        const char* bytes;
        const char* host;
    };
    constexpr Row kRows[] = {{"\"http://127.0.0.1:8080/de\"\r\n", "http://127.0.0.1:8080/de"},
                             {"\"http://a\"\r\n\"http://b\"\r\n", "http://a"},
                             {"http://bare", "http://bare"},
                             {"\"\"\r\n\"http://b\"\r\n", "https://quotes.brantlow.example"},
                             {"", "https://quotes.brantlow.example"}};
    for (const Row& row : kRows) {
        PutAndLoad("VTRLANGset.ini", row.bytes);
        EXPECT_EQ(settings_.QuoteHost, row.host) << row.bytes;
    }
}

TEST_F(SettingsLoading, TheImportSequenceStandsBetweenItsMarkers) {
    std::vector<std::string> lines(9, "\"x\"");
    lines.insert(lines.end(), {"\"Ticker Symbol\"", "\"Volume\"", "\"End Export File\"", "\"Ticker Symbol\"",
                               "\"Last Price\"", "\"End Import File\""});
    PutAndLoad("VTRIMEXset.ini", Lines(lines));
    EXPECT_EQ(settings_.ImportFieldFirst, 13U);
    EXPECT_EQ(settings_.ImportFieldLast, 14U);
    PutAndLoad("VTRIMEXset.ini", "\"Comma Delimited\"\r\n");
    EXPECT_EQ(settings_.ImportFieldFirst, 0U);
    EXPECT_EQ(settings_.ImportFieldLast, 0U);
}

TEST(QuoteFolder, IsTheLanFolderOrTheOneOfTheApplication) {
    struct Row {
        const char* appPath;
        const char* onTheLan;
        const char* location;
        const char* folder;
    };
    constexpr Row kRows[] = {{"/app", "False", "/lan/quotes", "/app/Quotes/EOD/"},
                             {"/app/", "False", "/lan/quotes", "/app/Quotes/EOD/"},
                             {"/", "False", "", "/Quotes/EOD/"},
                             {"/app", "", "/lan/quotes", "/app/Quotes/EOD/"},
                             {"/app", "true", "/lan/quotes", "/app/Quotes/EOD/"},
                             {"/app", "True", "/lan/quotes/", "/lan/quotes/"},
                             // The separator that is missing is added behind, never in front.
                             {"/app", "True", "/lan/quotes", "/lan/quotes/"},
                             {"/app", "True", R"(\\server\quotes)", "//server/quotes/"},
                             {"/app", "True", R"(\lan\quotes\)", "/lan/quotes/"},
                             {"/app", "True", R"(Other\EOD)", "/app/Other/EOD/"},
                             {"/app", "True", "Other/EOD/", "/app/Other/EOD/"},
                             {"/app", "True", "", "/app/Quotes/EOD/"}};
    for (const Row& row : kRows) {
        SettingsTables settings;
        settings.DataSettings.Set(17, Value::OfText(row.onTheLan));
        settings.DataSettings.Set(18, Value::OfText(row.location));
        EXPECT_EQ(DeriveQuoteFolder(row.appPath, settings), row.folder)
            << row.appPath << ' ' << row.onTheLan << ' ' << row.location;
    }
}

TEST(QuoteFolder, ALocationWithANulIsNoFolder) {
    SettingsTables settings;
    settings.DataSettings.Set(17, Value::OfText("True"));
    settings.DataSettings.Set(18, Value::OfText(std::string_view("/etc\0/x", 7)));
    EXPECT_EQ(DeriveQuoteFolder("/app", settings), "/app/Quotes/EOD/");
}

TEST_F(SettingsLoading, TheQuoteFolderFollowsTheFile) {
    PutAndLoad("VTRDATAset.ini", Repeated("\"\"\r\n", 16) + Lines({"\"True\"", "\"D\\Quotes\""}));
    EXPECT_EQ(settings_.QuoteFolder, Folder("/D/Quotes/"));
}

TEST_F(SettingsLoading, NoMoreThanEighteenThousandLinesAreRead) {
    const std::string text = Repeated("\"x\"\r\n", 18000) + "\"beyond\"\r\n\"End Import File\"\r\n";
    for (const SettingsFileForm& form : kSettingsFiles) Put(form.fileName, text);
    Load();
    for (const SettingsFileForm& form : kSettingsFiles) {
        if (form.table == nullptr) continue;
        const std::size_t lines = form.file == SettingsFile::Mru ? 4 : 18000;
        EXPECT_EQ((settings_.*form.table).Size(), lines) << form.fileName;
        EXPECT_EQ((settings_.*form.table).Text(lines), "x") << form.fileName;
    }
    EXPECT_EQ(settings_.ColumnCount, 18000U);
    EXPECT_EQ(settings_.SelectorLineCount, 18000U);
    EXPECT_EQ(settings_.ImportFieldLast, 0U);
}

TEST_F(SettingsLoading, AFolderInPlaceOfAFileReadsAsNoFile) {
    for (const SettingsFileForm& form : kSettingsFiles) {
        std::filesystem::create_directory(app_.Get() / "Data" / form.fileName);
    }
    Load();
    EXPECT_EQ(settings_.DataSettings.Size(), 0U);
    EXPECT_EQ(settings_.SelectorLineCount, 0U);
    EXPECT_EQ(settings_.QuoteHost, "https://quotes.brantlow.example");
}

TEST_F(SettingsLoading, JunkBytesAndNulsAreOneValueALine) {
    const std::string junk("\x01\xFF\0\xFE\"\x80,#\n\"a\0b\"\r\n\r\r\n#99-99-99#\n\"open", 35);
    for (const SettingsFileForm& form : kSettingsFiles) Put(form.fileName, junk);
    Load();
    const SettingsTable& data = settings_.DataSettings;
    ASSERT_EQ(data.Size(), 5U);
    EXPECT_EQ(data.Text(1), std::string("\x01\xFF\0\xFE\"\x80,#", 8));
    EXPECT_EQ(data.Text(2), std::string("a\0b", 3));
    EXPECT_EQ(data.Text(3), "");
    EXPECT_EQ(data.Text(4), "#99-99-99#");
    EXPECT_EQ(data.Text(5), "open");
    EXPECT_EQ(settings_.ColumnCount, 2U);
}

TEST_F(SettingsLoading, ALineOfTenMegabytesIsOneValue) {
    constexpr std::size_t kLength = 10'000'000;
    Put("VTRNETset.ini", "\"" + std::string(kLength, 'x') + "\"\r\n\"second\"\r\n");
    Load();
    EXPECT_EQ(settings_.NetSettings.Text(1).size(), kLength);
    EXPECT_EQ(settings_.NetSettings.Text(2), "second");
}

TEST_F(SettingsLoading, AFileCutAtAnyByteLoadsItsWholeLinesUnchanged) {
    const std::string whole = Lines({"\"Manually\"", "10", "#2004-01-02#", "\"a,b\""});
    PutAndLoad("VTRDATAset.ini", whole);
    const std::vector<std::string> texts = TextsOf(settings_.DataSettings);
    for (std::size_t cut = 0; cut < whole.size(); ++cut) {
        const std::string part = whole.substr(0, cut);
        PutAndLoad("VTRDATAset.ini", part);
        const auto lineEnds = static_cast<std::size_t>(std::count(part.begin(), part.end(), '\n'));
        ASSERT_GE(settings_.DataSettings.Size(), lineEnds) << cut;
        ASSERT_LE(settings_.DataSettings.Size(), lineEnds + 1) << cut;
        for (std::size_t i = 1; i <= lineEnds; ++i) {
            EXPECT_EQ(settings_.DataSettings.Text(i), texts[i - 1]) << cut << ' ' << i;
        }
    }
}

}  // namespace
}  // namespace brantlow
