#include "shell/settings/lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/file_change.h"
#include "base/numbers.h"
#include "shell/settings/choices.h"
#include "shell/settings/settings_draft.h"
#include "support/source_folder.h"
#include "support/temp_folder.h"

namespace brantlow {

// The name of a row's test, the same in every run.
inline void PrintTo(const LineRow& row, std::ostream* out) {
    *out << row.name;
}

namespace {

namespace fs = std::filesystem;

class OwnSettings : public testing::Test {
  protected:
    void Load(std::string_view text) {
        fs::create_directories(app_ / "Data");
        ASSERT_FALSE(WriteWholeFile(app_ / "Data/VTROWNset.ini", text));
        LoadAllSettings(app_.Get(), settings_);
    }

    TempFolder app_;
    SettingsTables settings_;
};

TEST_F(OwnSettings, ShippedKeepHistoryAndTwentyChangesOfTwoGigabytes) {
    LoadAllSettings(SourceFolder() / "assets", settings_);
    EXPECT_TRUE(KeepsHistoryOnFailure(settings_));
    EXPECT_EQ(UndoLimitsOf(settings_).changes, 20);
    EXPECT_EQ(UndoLimitsOf(settings_).bytes, 2147483648u);
}

TEST_F(OwnSettings, WithoutTheFileHistoryGoesAndUndoIsLimitedAsUsual) {
    LoadAllSettings(app_.Get(), settings_);
    EXPECT_FALSE(settings_.ReadErrors[std::size_t(SettingsFile::Own)]);
    EXPECT_FALSE(KeepsHistoryOnFailure(settings_));
    EXPECT_EQ(UndoLimitsOf(settings_).changes, 20);
    EXPECT_EQ(UndoLimitsOf(settings_).bytes, 2147483648u);
}

TEST_F(OwnSettings, OnlyTheExactWordKeeps) {
    for (const char* text : {"\"keep\"\r\n", "\"\"\r\n", "", "\"Keep \"\r\n", "\"Replace\"\r\n"}) {
        Load(text);
        EXPECT_FALSE(KeepsHistoryOnFailure(settings_)) << text;
    }
    for (const char* text : {"\"Keep\"\r\n", "\"Keep\"", "\"Keep\"\n"}) {
        Load(text);
        EXPECT_TRUE(KeepsHistoryOnFailure(settings_)) << text;
    }
}

TEST_F(OwnSettings, LimitsAreWholeNumbersWithinTheirRange) {
    struct Row {
        const char* lines;
        int changes;
        std::uintmax_t bytes;
    };
    constexpr std::uintmax_t kMegabyte = 1024 * 1024;
    constexpr Row kRows[] = {{"3\r\n1\r\n", 3, kMegabyte},
                             {"\"3\"\r\n\"5\"\r\n", 3, 5 * kMegabyte},
                             {"2.9\r\n1e3\r\n", 2, 1000 * kMegabyte},
                             {"0\r\n-7\r\n", 20, 2048 * kMegabyte},
                             {"99999999\r\n1e300\r\n", 10000, 1000000 * kMegabyte},
                             {"\"many\"\r\n\"\"\r\n", 20, 2048 * kMegabyte},
                             {"4", 4, 2048 * kMegabyte}};
    for (const Row& row : kRows) {
        Load(std::string("\"Keep\"\r\n") + row.lines);
        EXPECT_EQ(UndoLimitsOf(settings_).changes, row.changes) << row.lines;
        EXPECT_EQ(UndoLimitsOf(settings_).bytes, row.bytes) << row.lines;
    }
}

TEST_F(OwnSettings, AFileThatCannotBeReadIsToldAndTheTableStays) {
    Load("\"Keep\"\r\n7\r\n");
    fs::remove(app_ / "Data/VTROWNset.ini");
    fs::create_directory(app_ / "Data/VTROWNset.ini");
    LoadAllSettings(app_.Get(), settings_);
    EXPECT_TRUE(settings_.ReadErrors[std::size_t(SettingsFile::Own)]);
    EXPECT_EQ(UnreadableSettings(SettingsFile::Own, app_.Get(), settings_),
              (app_ / "Data/VTROWNset.ini").string() + ": cannot be read (Is a directory)");
    EXPECT_EQ(UnreadableSettings(SettingsFile::Data, app_.Get(), settings_), "");
    EXPECT_TRUE(KeepsHistoryOnFailure(settings_));
    EXPECT_EQ(UndoLimitsOf(settings_).changes, 7);
    EXPECT_EQ(ApplySettings(settings_, SettingsFile::Own, OrdinaryChange(app_.Get()), settings_).cause,
              std::errc::is_a_directory);
}

// Tables with the line's text as a file has it.
SettingsTables With(const LineRow& row, std::string_view written) {
    SettingsTables tables;
    const auto table = FormOf(row.file).table;
    if (table == nullptr) {
        tables.QuoteHost = Value::Parse(written).Text();
    } else {
        (tables.*table).Set(row.number, Value::Parse(written));
    }
    return tables;
}

// What a typed handle of the row's kind gives, in words that one comparison serves.
std::string Gives(const LineRow& row, const SettingsTables& tables) {
    switch (row.kind) {
        case LineKind::Flag: {
            const auto place = ChoiceOf(row, TextOf(tables, row));
            return place == 0 ? "yes" : "no";
        }
        case LineKind::Choice:
            return std::to_string(ChoiceOf(row, TextOf(tables, row)).value_or(std::size_t(row.fallback)));
        case LineKind::Number:
        case LineKind::Time:
        case LineKind::Day:
        case LineKind::Text:
            break;
    }
    return TextOf(tables, row);
}

class EveryLine : public testing::TestWithParam<LineRow> {};

TEST_P(EveryLine, HasAPlaceOfItsOwnBehindTheLineBefore) {
    const LineRow& row = GetParam();
    std::size_t same = 0;
    for (const LineRow& other : kLineRows) {
        if (other.name == row.name) ++same;
        if (other.file == row.file && other.number == row.number) {
            EXPECT_EQ(other.name, row.name);
        }
    }
    EXPECT_EQ(same, 1U);
    EXPECT_FALSE(row.words.empty());
    if (row.number > 1) {
        EXPECT_NE(RowOf(row.file, row.number - 1), nullptr);
    }
    EXPECT_LE(row.number, LineCountOf(row.file));
}

TEST_P(EveryLine, FitsItsKind) {
    const LineRow& row = GetParam();
    const bool ofWords = row.kind == LineKind::Flag || row.kind == LineKind::Choice;
    const bool ofRange = row.kind == LineKind::Number || row.kind == LineKind::Time;
    EXPECT_EQ(ofWords, !row.choices.empty() && row.kind != LineKind::Number);
    EXPECT_EQ(ofRange, row.least < row.most);
    if (row.kind == LineKind::Flag) {
        EXPECT_EQ(row.choices.size(), 2U);
    }
    if (ofWords) {
        EXPECT_TRUE(ChoiceOf(row, row.standard)) << "a new folder starts with an unknown word";
        EXPECT_LT(std::size_t(row.fallback), row.choices.size());
        EXPECT_LT(row.Shown(), row.choices.size());
    }
    if (row.kind == LineKind::Number) {
        const auto standard = WholeNumber(row.standard);
        ASSERT_TRUE(standard);
        EXPECT_GE(*standard, row.least);
        EXPECT_LE(*standard, row.most);
    }
}

TEST_P(EveryLine, KnowsEachOfItsChoicesAndNoOtherText) {
    const LineRow& row = GetParam();
    for (std::size_t i = 0; i < row.choices.size(); ++i) {
        EXPECT_EQ(ChoiceOf(row, row.choices[i]), i) << row.choices[i];
        EXPECT_EQ(ChoiceOf(row, std::string(row.choices[i]) + " "), std::nullopt);
    }
    for (const char* unknown : {"", "no such word", "true", "\xff"}) {
        EXPECT_EQ(ChoiceOf(row, unknown), std::nullopt) << unknown;
    }
}

TEST_P(EveryLine, AnUnknownTextCountsAsTheFallback) {
    const LineRow& row = GetParam();
    for (const char* unknown : {"\"\"", "\"no such word\"", "\"\xff\""}) {
        const SettingsTables tables = With(row, unknown);
        switch (row.kind) {
            case LineKind::Flag:
                EXPECT_EQ(Gives(row, tables), "no") << unknown;
                break;
            case LineKind::Choice:
                EXPECT_EQ(Gives(row, tables), std::to_string(row.fallback)) << unknown;
                break;
            case LineKind::Number:
                EXPECT_EQ(Get(tables, NumberLine(row)), row.fallback) << unknown;
                break;
            case LineKind::Time:
                EXPECT_EQ(Get(tables, TimeLine(row)), std::nullopt) << unknown;
                break;
            case LineKind::Day:
                EXPECT_EQ(Get(tables, DateLine(row)), std::nullopt) << unknown;
                break;
            case LineKind::Text:
                EXPECT_EQ(Get(tables, TextLine(row)), Value::Parse(unknown).Text());
                break;
        }
    }
}

// Texts that the line may hold.
std::vector<std::string> Texts(const LineRow& row) {
    std::vector<std::string> texts(row.choices.begin(), row.choices.end());
    texts.emplace_back(row.standard);
    if (row.kind == LineKind::Text) texts.insert(texts.end(), {"", "/a, b/c\\d", "https://a?b=1,2&c=\xe9"});
    if (row.kind == LineKind::Number) {
        texts.insert(texts.end(), {std::to_string(row.least), std::to_string(row.most)});
    }
    if (row.kind == LineKind::Time) texts.insert(texts.end(), {"00", "09", std::to_string(row.most)});
    return texts;
}

TEST_P(EveryLine, IsWrittenAndReadBackAsItWasSet) {
    const LineRow& row = GetParam();
    const TempFolder app;
    fs::create_directories(app / "Data");
    for (const std::string& text : Texts(row)) {
        SettingsTables tables;
        LoadAllSettings(SourceFolder() / "assets", tables);
        SetText(tables, row, text);
        SettingsTables read;
        ASSERT_FALSE(ApplySettings(tables, row.file, OrdinaryChange(app.Get()), read));
        if (row.file == SettingsFile::Lang && text.empty()) continue;  // then it is the built-in host
        EXPECT_EQ(TextOf(read, row), text);
        for (const LineRow& other : kLineRows) {
            if (other.file == row.file && other.number != row.number) {
                EXPECT_EQ(TextOf(read, other), TextOf(tables, other)) << other.name;
            }
        }
    }
}

TEST_P(EveryLine, StandsInTheFilesOfANewFolderAsItsRowSays) {
    const LineRow& row = GetParam();
    SettingsTables shipped;
    LoadAllSettings(SourceFolder() / "assets", shipped);
    if (row.file == SettingsFile::Lang || row.kind == LineKind::Day) return;
    EXPECT_EQ(TextOf(shipped, row), row.standard);
}

// What any other text counts as.
std::string OtherText(const LineRow& row) {
    switch (row.kind) {
        case LineKind::Flag:
            return '"' + std::string(row.choices.back()) + '"';
        case LineKind::Choice:
            return '"' + std::string(row.choices[std::size_t(row.fallback)]) + '"';
        case LineKind::Number:
            return std::to_string(row.fallback);
        case LineKind::Time:
        case LineKind::Day:
            return "none";
        case LineKind::Text:
            break;
    }
    return {};
}

// The line as docs/files.md lists it.
std::string DocumentedAs(const LineRow& row) {
    const bool bare = row.kind == LineKind::Number;
    std::string values;
    for (const std::string_view choice : row.choices) {
        if (!values.empty()) values += ", ";
        values += bare ? std::string(choice) : '"' + std::string(choice) + '"';
    }
    if (row.choices.empty() && row.most > 0) {
        values = std::to_string(row.least) + " to " + std::to_string(row.most);
    }
    if (row.kind == LineKind::Text) values = row.form == LineForm::Printed ? "text, printed" : "text";
    if (row.kind == LineKind::Day) values = "a date";
    const std::string standard = bare ? std::string(row.standard) : '"' + std::string(row.standard) + '"';
    return "| " + std::to_string(row.number) + " | " + std::string(row.words) + " | " + values + " | " +
           (row.reset == LineReset::Today ? "today" : standard) + " | " + OtherText(row) + " |";
}

TEST_P(EveryLine, IsDocumented) {
    const LineRow& row = GetParam();
    const std::string page = BytesOrEmpty(SourceFolder() / "docs/files.md");
    const std::string head = "### `" + SettingsFileName(row.file) + "`";
    const std::size_t begin = page.find(head);
    ASSERT_NE(begin, std::string::npos) << head;
    const std::string section = page.substr(begin, page.find("\n##", begin + head.size()) - begin);
    EXPECT_NE(section.find(DocumentedAs(row)), std::string::npos) << DocumentedAs(row);
}

INSTANTIATE_TEST_SUITE_P(Settings, EveryLine, testing::ValuesIn(kLineRows),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace brantlow
