// What the controls of the settings dialog show, and what a click does to the others.
#include <gtest/gtest.h>

#include <set>

#include "settings_dialog_fixture.h"

namespace brantlow {
namespace {

struct Words {
    std::string_view control;
    std::string_view words;
};

TEST(SettingsControls, TabsHaveTheirIndexCaptionAndToolTip) {
    struct Row {
        int index;
        std::string_view control, caption, toolTip;
    };
    constexpr Row kRows[] = {
        {1, "Picture1", "Import / Export", "File Import / Export Settings"},
        {2, "Picture2", "Data & Automation Settings", ""},
        {3, "Picture3", "Graphics Display", "Graphics Display Settings"},
        {4, "Picture4", "Grid Column Display", "Grid Column Display Settings"},
        {5, "Picture5", "Network and Web Settings", "Quote and Web Settings"},
    };
    ASSERT_EQ(kSettingsTabs.size(), std::size(kRows));
    for (std::size_t i = 0; i < kSettingsTabs.size(); ++i) {
        EXPECT_EQ(static_cast<int>(kSettingsTabs[i].tab), kRows[i].index);
        EXPECT_EQ(kSettingsTabs[i].control, kRows[i].control);
        EXPECT_EQ(kSettingsTabs[i].caption, kRows[i].caption);
        EXPECT_EQ(kSettingsTabs[i].toolTip, kRows[i].toolTip);
    }
}

TEST(SettingsControls, OptionsAndCheckBoxesHaveTheirWords) {
    constexpr Words kOptions[] = {
        {"Option23", "Text Comma Delimited"},
        {"Option24", "Text Tab Delimited"},
        {"Option26", "MetaStock 6"},
        {"Option27", "MetaStock 7"},
        {"Option33", "Text Comma Delimited"},
        {"Option34", "Text Tab Delimited"},
        {"Option28", "MetaStock 6"},
        {"Option31", "MetaStock 7"},
        {"Option4", "Manually"},
        {"Option2", "Weekly"},
        {"Option3", "Monthly"},
        {"Option9", "2 Years"},
        {"Option10", "5 Years"},
        {"Option11", "10Years"},
        {"Option12", "20 Years"},
        {"Option29", "Automatic Save"},
        {"Option30", "Manual Save"},
        {"Option13", "Automatic Save"},
        {"Option6", "Manual Save"},
        {"Option16", "Auto Run:                   hh:mm"},
        {"Option36", "Auto Data Collection Disabled"},
        {"Option20", "Automatic Run"},
        {"Option5", "Manual Run"},
        {"Option18", "Automatic Split"},
        {"Option19", "Manual Split"},
        {"Option21", "High, Low, Close"},
        {"Option25", "Candle Stick"},
        {"Option1", "Yahoo"},
        {"Option22", "NASDAQ"},
        {"Option7", "Yahoo"},
        {"Option8", "User Selected"},
        {"Option14", "Comma Delimited"},
        {"Option15", "Tab Delimited"},
    };
    ASSERT_EQ(kOptionRows.size(), std::size(kOptions));
    for (std::size_t i = 0; i < kOptionRows.size(); ++i) {
        EXPECT_EQ(kOptionRows[i].control, kOptions[i].control);
        EXPECT_EQ(kOptionRows[i].words, kOptions[i].words) << kOptions[i].control;
    }
    constexpr Words kChecks[] = {
        {"Check1", "Back Up Application Files"},
        {"Check3", "Back Up Quote Database"},
        {"Check12", "Automatically Check for new Version Updates."},
        {"Check2", "Activate"},
        {"Check4", "Access Quote Database on the LAN"},
    };
    ASSERT_EQ(kCheckRows.size(), std::size(kChecks));
    for (std::size_t i = 0; i < kCheckRows.size(); ++i) {
        EXPECT_EQ(kCheckRows[i].control, kChecks[i].control);
        EXPECT_EQ(kCheckRows[i].words, kChecks[i].words);
    }
    EXPECT_EQ(kHistoryCheck, "Check11");
    EXPECT_EQ(kHistoryCheckWords, "Update quote database when adding ticker symbol.");
}

TEST(SettingsControls, TwentyNineBrokerageHomePagesAreOfferedEachOnce) {
    std::set<std::string_view> seen;
    for (const std::string_view address : kBrokerageAddresses) {
        EXPECT_TRUE(address.starts_with("https://www.")) << address;
        EXPECT_TRUE(seen.insert(address).second) << address;
    }
    EXPECT_EQ(seen.size(), 29U);
}

TEST(SettingsControls, ThirtyChartVariablesAreOffered) {
    constexpr std::string_view kNames[] = {
        "MA 15",       "MA 30",        "MA 60",        "MA 90",       "MA 120",       "MA 180",
        "WMA 15",      "WMA 30",       "WMA 60",       "WMA 90",      "WMA 120",      "WMA 180",
        "MLR 15",      "MLR 30",       "MLR 60",       "MLR 90",      "MLR 120",      "MLR 15 L.CL",
        "MLR 15 T.CL", "MLR 30 L.CL",  "MLR 30 T.CL",  "MLR 60 L.CL", "MLR 60 T.CL",  "MLR 90 L.CL",
        "MLR 90 T.CL", "MLR 120 L.CL", "MLR 120 T.CL", "LR L.CL",     "LR MINMAX CL", "LR T.CL"};
    EXPECT_EQ(std::set<std::string_view>(kChartVariables.begin(), kChartVariables.end()),
              std::set<std::string_view>(std::begin(kNames), std::end(kNames)));
    EXPECT_EQ(kChartVariables.size(), std::size(kNames));
}

// Each option of each line, by the word that stands in the file.
TEST_F(SettingsDialog, EveryOptionIsShownForItsWord) {
    struct Row {
        std::string_view file;
        std::size_t line;
        std::string_view written, control;
    };
    constexpr Row kRows[] = {
        {"VTRIMEXset.ini", 1, "\"Comma Delimited\"", "Option23"},
        {"VTRIMEXset.ini", 1, "\"Tab Delimited\"", "Option24"},
        {"VTRIMEXset.ini", 1, "\"MetaStock 6\"", "Option26"},
        {"VTRIMEXset.ini", 1, "\"MetaStock 7\"", "Option27"},
        {"VTRIMEXset.ini", 4, "\"Comma Delimited\"", "Option33"},
        {"VTRIMEXset.ini", 4, "\"Tab Delimited\"", "Option34"},
        {"VTRIMEXset.ini", 4, "\"MetaStock 6\"", "Option28"},
        {"VTRIMEXset.ini", 4, "\"MetaStock 7\"", "Option31"},
        {"VTRDATAset.ini", 1, "\"Manually\"", "Option4"},
        {"VTRDATAset.ini", 1, "\"Weekly\"", "Option2"},
        {"VTRDATAset.ini", 1, "\"Monthly\"", "Option3"},
        {"VTRDATAset.ini", 6, "2", "Option9"},
        {"VTRDATAset.ini", 6, "5", "Option10"},
        {"VTRDATAset.ini", 6, "10", "Option11"},
        {"VTRDATAset.ini", 6, "20", "Option12"},
        {"VTRDATAset.ini", 7, "\"Automatic Save\"", "Option29"},
        {"VTRDATAset.ini", 7, "\"Manual Save\"", "Option30"},
        {"VTRDATAset.ini", 8, "\"Automatic Save\"", "Option13"},
        {"VTRDATAset.ini", 8, "\"Manual Save\"", "Option6"},
        {"VTRDATAset.ini", 9, "\"EOD\"", "Option16"},
        {"VTRDATAset.ini", 9, "\"None\"", "Option36"},
        {"VTRDATAset.ini", 16, "\"Automatic\"", "Option20"},
        {"VTRDATAset.ini", 16, "\"Manual\"", "Option5"},
        {"VTRDATAset.ini", 19, "\"Automatic\"", "Option18"},
        {"VTRDATAset.ini", 19, "\"Manual\"", "Option19"},
        {"VTRGRAPHset.ini", 1, "\"Default\"", "Option21"},
        {"VTRGRAPHset.ini", 1, "\"CandleStick\"", "Option25"},
        {"VTRNETset.ini", 1, "\"Yahoo\"", "Option1"},
        {"VTRNETset.ini", 1, "\"NASDAQ\"", "Option22"},
        {"VTRNETset.ini", 3, "\"Yahoo\"", "Option7"},
        {"VTRNETset.ini", 3, "\"User Selected String\"", "Option8"},
        {"VTRNETset.ini", 10, "\"Comma\"", "Option14"},
        // What a line without a known word does, that is shown.
        {"VTRIMEXset.ini", 1, "\"commas\"", "Option23"},
        {"VTRIMEXset.ini", 4, "7", "Option34"},
        {"VTRDATAset.ini", 1, "#2026-01-01#", "Option4"},
        {"VTRDATAset.ini", 7, "", "Option30"},
        {"VTRDATAset.ini", 8, "\"manual save\"", "Option6"},
        {"VTRDATAset.ini", 9, "12", "Option36"},
        {"VTRDATAset.ini", 16, "\"\xFF\"", "Option5"},
        {"VTRDATAset.ini", 19, "\"Yes\"", "Option19"},
        {"VTRGRAPHset.ini", 1, "\"\"", "Option21"},
        {"VTRNETset.ini", 1, "\"\"", "Option1"},
        {"VTRNETset.ini", 3, "\"User\"", "Option7"},
    };
    for (const Row& row : kRows) {
        OpenWith(row.file, With(row.file, row.line, row.written));
        for (const OptionRow& option : kOptionRows) {
            if (FormOf(option.line->file).fileName != row.file || option.line->number != row.line) continue;
            EXPECT_EQ(On(option.control), option.control == row.control)
                << row.file << ' ' << row.line << ' ' << row.written << ' ' << option.control;
        }
    }
}

TEST_F(SettingsDialog, CheckBoxesShowTheirLines) {
    struct Row {
        std::size_t line;
        std::string_view written, control;
        bool on;
    };
    constexpr Row kRows[] = {
        {2, "\"True\"", "Check1", true},
        {2, "\"False\"", "Check1", false},
        {2, "1", "Check1", false},
        {4, "\"True\"", "Check3", true},
        {4, "\"False\"", "Check3", false},
        {6, "10", "Check11", true},
        {6, "\"\"", "Check11", false},
        {12, "\"Automatic Updates\"", "Check12", true},
        {12, "\"Manual Updates\"", "Check12", false},
        {14, "\"E-mail Alerts\"", "Check2", true},
        {14, "\"None\"", "Check2", false},
        {17, "\"True\"", "Check4", true},
        {17, "\"False\"", "Check4", false},
        {17, "\"true\"", "Check4", false},
    };
    for (const Row& row : kRows) {
        OpenWith("VTRDATAset.ini", With("VTRDATAset.ini", row.line, row.written));
        EXPECT_EQ(On(row.control), row.on) << row.line << ' ' << row.written;
    }
}

TEST_F(SettingsDialog, BoxesAndListsShowTheirLines) {
    struct Row {
        std::string_view file;
        std::size_t line;
        std::string_view written, control, text;
    };
    constexpr Row kRows[] = {
        {"VTRIMEXset.ini", 2, "\"C:\\Out\"", "Text7", "C:\\Out"},
        {"VTRIMEXset.ini", 3, "\"Mine.txt\"", "Text21", "Mine.txt"},
        {"VTRIMEXset.ini", 5, "\"/in\"", "Text8", "/in"},
        {"VTRIMEXset.ini", 6, "\"Day.csv\"", "Text31", "Day.csv"},
        {"VTRIMEXset.ini", 7, "2", "Combo7", "2"},
        {"VTRIMEXset.ini", 8, "15", "Combo8", "15"},
        {"VTRIMEXset.ini", 9, "\"20040102\"", "Combo10", "20040102"},
        {"VTRDATAset.ini", 3, "\"/backup/data\"", "Text2", "/backup/data"},
        {"VTRDATAset.ini", 5, "\"/backup/quotes\"", "Text3", "/backup/quotes"},
        {"VTRDATAset.ini", 15, "\"me@example.org\"", "Text1", "me@example.org"},
        {"VTRDATAset.ini", 18, "\"\\\\lan\\quotes\"", "Text4", "\\\\lan\\quotes"},
        {"VTRNETset.ini", 2, "\"https://broker.example\"", "Combo1", "https://broker.example"},
        {"VTRNETset.ini", 4, "http://q?s=\"A\",\"B\"", "Text11", "http://q?s=\"A\",\"B\""},
        {"VTRNETset.ini", 5, "http://h,x", "Text13", "http://h,x"},
        // What no list holds.
        {"VTRIMEXset.ini", 7, "\"two\"", "Combo7", "0"},
        {"VTRIMEXset.ini", 8, "-1", "Combo8", "0"},
        {"VTRIMEXset.ini", 7, "40", "Combo7", "40"},
        {"VTRIMEXset.ini", 8, "1.5", "Combo8", "0"},
        {"VTRIMEXset.ini", 9, "\"2004-01-02\"", "Combo10", "01/02/04"},
    };
    for (const Row& row : kRows) {
        OpenWith(row.file, With(row.file, row.line, row.written));
        EXPECT_EQ(Text(row.control), row.text) << row.control << ' ' << row.written;
    }
}

TEST_F(SettingsDialog, TheUsersSourceShowsItsOwnNumbers) {
    struct Row {
        std::size_t line;
        std::string_view written, control, text;
    };
    constexpr Row kRows[] = {{6, "12", "Combo6", "12"},     {6, "20", "Combo6", "20"},
                             {6, "0", "Combo6", "15"},      {6, "x", "Combo6", "15"},
                             {6, "1e9", "Combo6", "15"},    {7, "3", "Combo11", "3"},
                             {7, "", "Combo11", "0"},       {8, "4", "Combo12", "4"},
                             {8, "\"4\"", "Combo12", "4"},  {9, "\"Jan-2-2004\"", "Combo9", "Jan-2-2004"},
                             {9, "3", "Combo9", "01/02/04"}};
    const Lines shipped = With("VTRNETset.ini", 3, "\"User Selected String\"");
    for (const Row& row : kRows) {
        Lines lines = shipped;
        lines[row.line - 1] = row.written;
        OpenWith("VTRNETset.ini", lines);
        EXPECT_EQ(Text(row.control), row.text) << row.control << ' ' << row.written;
    }
    Lines tab = shipped;
    tab[9] = "\"Tab\"";
    OpenWith("VTRNETset.ini", tab);
    EXPECT_TRUE(On("Option15"));
    EXPECT_FALSE(On("Option14"));
    // Anything but "Comma" separates at tabs.
    tab[9] = "\"Semicolon\"";
    OpenWith("VTRNETset.ini", tab);
    EXPECT_TRUE(On("Option15"));
}

TEST_F(SettingsDialog, DropDownListsOfferTheirValues) {
    const auto numbers = [](int first, int last, bool twoDigits) {
        Lines lines;
        for (int i = first; i <= last; ++i) {
            lines.push_back((twoDigits && i < 10 ? "0" : "") + std::to_string(i));
        }
        return lines;
    };
    EXPECT_EQ(Items("Combo6"), numbers(10, 15, false));
    for (const char* control : {"Combo7", "Combo8", "Combo11", "Combo12"}) {
        EXPECT_EQ(Items(control), numbers(0, 15, false)) << control;
    }
    EXPECT_EQ(Items("Combo2"), numbers(0, 23, true));
    EXPECT_EQ(Items("Combo3"), numbers(0, 59, true));
    const Lines dateForms = {"01/02/04", "Jan-2-2004", "20040102", "040102"};
    EXPECT_EQ(Items("Combo9"), dateForms);
    EXPECT_EQ(Items("Combo10"), dateForms);
    EXPECT_EQ(Items("Combo1").size(), 29U);
}

TEST_F(SettingsDialog, TheTimeOfTheDailyRunIsShownInTwoDigits) {
    struct Row {
        std::string_view word, hour, minute, shownHour, shownMinute;
    };
    constexpr Row kRows[] = {
        {"\"EOD\"", "\"07\"", "\"05\"", "07", "05"}, {"\"EOD\"", "7", "5", "07", "05"},
        {"\"EOD\"", "\"24\"", "\"60\"", "", ""},     {"\"EOD\"", "\"x\"", "\"-1\"", "", ""},
        {"\"EOD\"", "\"\"", "\"30\"", "", "30"},     {"\"None\"", "\"16\"", "\"30\"", "", ""}};
    for (const Row& row : kRows) {
        Lines lines = FileLines("VTRDATAset.ini");
        lines[8] = row.word;
        lines[9] = row.hour;
        lines[10] = row.minute;
        OpenWith("VTRDATAset.ini", lines);
        EXPECT_EQ(Text("Combo2"), row.shownHour) << row.hour;
        EXPECT_EQ(Text("Combo3"), row.shownMinute) << row.minute;
    }
}

TEST_F(SettingsDialog, AvailableHoldsWhatIsNotSelected) {
    EXPECT_EQ(Items("List5"),
              (Lines{"LR MINMAX CL", "LR T.CL", "MA 180", "MLR 60", "MLR 60 L.CL", "MLR 90"}));
    EXPECT_EQ(Items("List6").size(), 24U);
    EXPECT_EQ(Items("List6").front(), "MA 15");
    EXPECT_EQ(Items("List6").back(), "LR L.CL");
    EXPECT_EQ(Items("List7").size(), 34U);
    EXPECT_TRUE(Items("List8").empty());
    EXPECT_EQ(Items("List2").size(), 33U);
    EXPECT_EQ(Items("List1"), (Lines{"High Alarm", "Low Alarm"}));
    EXPECT_EQ(Items("List4"),
              (Lines{"Ticker Symbol", "Last Price", "Trade Date", "High Price", "Low Price", "Volume"}));
    EXPECT_EQ(Items("List3").size(), 20U);
    EXPECT_EQ(Items("List12").size(), 25U);
    EXPECT_EQ(Items("List11"), (Lines{"Change (%)", "Variable"}));
    EXPECT_EQ(Items("List16"), (Lines{"Trade Date", "Open Price", "High Price", "Low Price", "Last Price",
                                      "Volume", "Variable"}));
    EXPECT_EQ(Items("List15"), (Lines{"Variable"}));
    for (const ListRow& row : kListRows) {
        for (const std::string& name : Items(row.available)) {
            EXPECT_TRUE(name == "Variable" || Find(row.selected, name) == Items(row.selected).size())
                << row.available << ' ' << name;
        }
    }
}

TEST_F(SettingsDialog, EveryArrowMovesAnEntryToTheEndOfTheOtherList) {
    struct Row {
        std::string_view select, back, selected, available;
        bool userSource;
    };
    constexpr Row kRows[] = {
        {"Command5", "Command6", "List2", "List1", false},
        {"Command9", "Command10", "List4", "List3", false},
        {"Command2", "Command3", "List5", "List6", false},
        {"Command14", "Command15", "List7", "List8", false},
        {"Command25", "Command26", "List12", "List11", true},
        {"Command33", "Command34", "List16", "List15", true},
    };
    for (const Row& row : kRows) {
        Open();
        if (row.userSource) dialog.Choose("Option8");
        const Lines selected = Items(row.selected);
        const Lines available = Items(row.available);
        ASSERT_TRUE(dialog.Move(row.back, 1)) << row.back;
        EXPECT_EQ(Items(row.selected).size(), selected.size() - 1) << row.back;
        EXPECT_EQ(Items(row.selected)[1], selected[2]) << row.back;
        EXPECT_EQ(Items(row.available).back(), selected[1]) << row.back;
        EXPECT_EQ(Items(row.available).size(), available.size() + 1) << row.back;
        ASSERT_TRUE(dialog.Move(row.select, Items(row.available).size() - 1)) << row.select;
        EXPECT_EQ(Items(row.selected).back(), selected[1]) << row.select;
        EXPECT_EQ(Items(row.selected).size(), selected.size()) << row.select;
        EXPECT_EQ(Items(row.available), available) << row.select;
    }
    EXPECT_TRUE(person.said.empty());
}

TEST_F(SettingsDialog, AnArrowWithoutAnEntryMovesNothing) {
    const Lines selected = Items("List7");
    EXPECT_FALSE(dialog.Move("Command14", 0));
    EXPECT_FALSE(dialog.Move("Command15", 34));
    EXPECT_FALSE(dialog.Move("Command99", 0));
    EXPECT_EQ(Items("List7"), selected);
}

TEST_F(SettingsDialog, AFieldToBeSkippedCanBeSelectedAnyNumberOfTimes) {
    dialog.Choose("Option8");
    ASSERT_TRUE(MoveNamed("Command25", "List11", "Variable"));
    ASSERT_TRUE(MoveNamed("Command25", "List11", "Variable"));
    EXPECT_EQ(Items("List12").size(), 27U);
    EXPECT_EQ(Items("List12").back(), "Variable");
    EXPECT_EQ(Items("List11"), (Lines{"Change (%)", "Variable"}));
    ASSERT_TRUE(dialog.Move("Command26", 26));
    EXPECT_EQ(Items("List12").size(), 26U);
    EXPECT_EQ(Items("List11"), (Lines{"Change (%)", "Variable"}));
}

TEST_F(SettingsDialog, ASeventhVariableIsRefused) {
    const Lines selected = Items("List5");
    const Lines available = Items("List6");
    EXPECT_FALSE(dialog.Move("Command2", 0));
    ASSERT_EQ(person.said.size(), 1U);
    EXPECT_EQ(person.said[0].text, "Maximum of 6 Variables on Graphics");
    EXPECT_EQ(Items("List5"), selected);
    EXPECT_EQ(Items("List6"), available);
    ASSERT_TRUE(dialog.Move("Command3", 0));
    EXPECT_TRUE(dialog.Move("Command2", 0));
    EXPECT_EQ(Items("List5").back(), "MA 15");
    EXPECT_EQ(person.said.size(), 1U);
}

TEST_F(SettingsDialog, ControlsAreEnabledByTheOneThatGovernsThem) {
    struct Row {
        std::string_view control, governor;
    };
    constexpr Row kRows[] = {
        {"Combo2", "Option16"},   {"Combo3", "Option16"},   {"Drive1", "Check1"},
        {"Dir3", "Check1"},       {"Text2", "Check1"},      {"Drive2", "Check3"},
        {"Dir4", "Check3"},       {"Text3", "Check3"},      {"Drive3", "Check4"},
        {"Dir5", "Check4"},       {"Text4", "Check4"},      {"Text1", "Check2"},
        {"Option9", "Check11"},   {"Option10", "Check11"},  {"Option11", "Check11"},
        {"Option12", "Check11"},  {"Combo6", "Option8"},    {"Combo11", "Option8"},
        {"Combo12", "Option8"},   {"Combo9", "Option8"},    {"Option14", "Option8"},
        {"Option15", "Option8"},  {"List11", "Option8"},    {"List12", "Option8"},
        {"List15", "Option8"},    {"List16", "Option8"},    {"Command25", "Option8"},
        {"Command26", "Option8"}, {"Command33", "Option8"}, {"Command34", "Option8"},
        {"Text11", "Option8"},    {"Text13", "Option8"},
    };
    const std::pair<std::string_view, std::string_view> opposite[] = {{"Option16", "Option36"},
                                                                      {"Option8", "Option7"}};
    for (const Row& row : kRows) {
        Open();
        std::string_view other;
        for (const auto& [option, off] : opposite) {
            if (option == row.governor) other = off;
        }
        if (other.empty()) {
            dialog.Check(row.governor, true);
            EXPECT_TRUE(Enabled(row.control)) << row.control;
            dialog.Check(row.governor, false);
        } else {
            dialog.Choose(row.governor);
            EXPECT_TRUE(Enabled(row.control)) << row.control;
            dialog.Choose(other);
        }
        EXPECT_FALSE(Enabled(row.control)) << row.control;
    }
}

TEST_F(SettingsDialog, TheMetaStockOptionsAreDisabledAndNothingElseIsForGood) {
    dialog.Choose("Option8");
    dialog.Choose("Option16");
    for (const char* check : {"Check1", "Check2", "Check3", "Check4", "Check11"}) dialog.Check(check, true);
    for (const OptionRow& row : kOptionRows) {
        EXPECT_EQ(Enabled(row.control), !row.words.starts_with("MetaStock")) << row.control;
    }
    dialog.Choose("Option26");
    EXPECT_TRUE(On("Option23"));
    EXPECT_FALSE(On("Option26"));
}

TEST_F(SettingsDialog, TheEnablingOfTheFilesHoldsAtTheOpening) {
    EXPECT_FALSE(Enabled("Combo2"));
    EXPECT_TRUE(Enabled("Text2"));
    EXPECT_TRUE(Enabled("Text3"));
    EXPECT_FALSE(Enabled("Text4"));
    EXPECT_FALSE(Enabled("Text1"));
    EXPECT_TRUE(Enabled("Option11"));
    EXPECT_FALSE(Enabled("Text11"));
    Lines data = FileLines("VTRDATAset.ini");
    data[1] = "\"False\"";
    data[5] = "\"\"";
    data[8] = "\"EOD\"";
    data[13] = "\"E-mail Alerts\"";
    data[16] = "\"True\"";
    WriteLines("VTRDATAset.ini", data);
    OpenWith("VTRNETset.ini", With("VTRNETset.ini", 3, "\"User Selected String\""));
    EXPECT_TRUE(Enabled("Combo2"));
    EXPECT_FALSE(Enabled("Text2"));
    EXPECT_TRUE(Enabled("Text4"));
    EXPECT_TRUE(Enabled("Text1"));
    EXPECT_FALSE(Enabled("Option11"));
    EXPECT_TRUE(Enabled("Text11"));
}

TEST_F(SettingsDialog, TheDisabledRunClearsItsTime) {
    dialog.Choose("Option16");
    dialog.SetText("Combo2", "16");
    dialog.SetText("Combo3", "30");
    dialog.Choose("Option36");
    EXPECT_EQ(Text("Combo2"), "");
    EXPECT_EQ(Text("Combo3"), "");
}

TEST_F(SettingsDialog, ATimeSetElsewhereIsShownAndOtherEditsStay) {
    dialog.SetText("Text2", "/edited");
    session.settings.DataSettings.Set(9, Value::OfText("EOD"));
    session.settings.DataSettings.Set(10, Value::OfText("17"));
    session.settings.DataSettings.Set(11, Value::OfText("05"));
    dialog.ShowDailyRun();
    EXPECT_TRUE(On("Option16"));
    EXPECT_FALSE(On("Option36"));
    EXPECT_EQ(Text("Combo2"), "17");
    EXPECT_EQ(Text("Combo3"), "05");
    EXPECT_TRUE(Enabled("Combo2"));
    EXPECT_EQ(Text("Text2"), "/edited");
}

TEST_F(SettingsDialog, HistoryOfANewTickerStartsWithNoYearsChosen) {
    EXPECT_TRUE(On("Option11"));
    dialog.Check("Check11", false);
    EXPECT_FALSE(Enabled("Option11"));
    dialog.Check("Check11", true);
    for (const char* option : {"Option9", "Option10", "Option11", "Option12"}) {
        EXPECT_TRUE(Enabled(option)) << option;
        EXPECT_FALSE(On(option)) << option;
    }
    dialog.Choose("Option9");
    dialog.Choose("Option12");
    EXPECT_FALSE(On("Option9"));
    EXPECT_TRUE(On("Option12"));
}

TEST_F(SettingsDialog, AChoiceThatIsNotCompleteIsTold) {
    EXPECT_EQ(dialog.Note("lblTimeNote"), "");
    EXPECT_EQ(dialog.Note("lblYearsNote"), "");
    EXPECT_EQ(dialog.Note("lblVariablesNote"), "");
    dialog.Choose("Option16");
    EXPECT_EQ(dialog.Note("lblTimeNote"), "Choose an hour and a minute.");
    dialog.SetText("Combo2", "16");
    EXPECT_EQ(dialog.Note("lblTimeNote"), "Choose an hour and a minute.");
    dialog.SetText("Combo3", "00");
    EXPECT_EQ(dialog.Note("lblTimeNote"), "");
    dialog.Check("Check11", false);
    EXPECT_EQ(dialog.Note("lblYearsNote"), "");
    dialog.Check("Check11", true);
    EXPECT_EQ(dialog.Note("lblYearsNote"), "Choose the number of years.");
    dialog.Choose("Option10");
    EXPECT_EQ(dialog.Note("lblYearsNote"), "");
    dialog.Move("Command3", 0);
    EXPECT_EQ(dialog.Note("lblVariablesNote"),
              "With fewer than six variables the Buy and Sell conditions have no effect.");
}

TEST_F(SettingsDialog, TheStandardSourceCannotBeMisconfigured) {
    dialog.Choose("Option8");
    dialog.SetText("Combo6", "12");
    dialog.SetText("Combo11", "2");
    dialog.SetText("Combo12", "3");
    dialog.SetText("Combo9", "040102");
    dialog.Choose("Option15");
    dialog.SetText("Text11", "http://mine");
    dialog.Choose("Option7");
    EXPECT_EQ(Text("Combo6"), "15");
    EXPECT_EQ(Text("Combo11"), "0");
    EXPECT_EQ(Text("Combo12"), "0");
    EXPECT_EQ(Text("Combo9"), "01/02/04");
    EXPECT_TRUE(On("Option14"));
    EXPECT_FALSE(On("Option15"));
    EXPECT_EQ(Text("Text11"), "http://mine");
    dialog.SetText("Combo6", "10");
    dialog.Choose("Option15");
    EXPECT_FALSE(dialog.Move("Command26", 0));
    EXPECT_EQ(Text("Combo6"), "15");
    EXPECT_TRUE(On("Option14"));
}

TEST_F(SettingsDialog, TheUsersSourceThatIsChosenAlreadyKeepsItsFormat) {
    OpenWith("VTRNETset.ini", With("VTRNETset.ini", 3, "\"User Selected String\""));
    dialog.SetText("Combo6", "11");
    dialog.SetText("Combo11", "2");
    dialog.SetText("Combo12", "3");
    dialog.SetText("Combo9", "040102");
    dialog.Choose("Option15");
    dialog.Choose("Option8");
    EXPECT_EQ(Text("Combo6"), "11");
    EXPECT_EQ(Text("Combo11"), "2");
    EXPECT_EQ(Text("Combo12"), "3");
    EXPECT_EQ(Text("Combo9"), "040102");
    EXPECT_TRUE(On("Option15"));
    EXPECT_FALSE(On("Option14"));
}

TEST_F(SettingsDialog, TheUsersSourceStartsAtItsPresetsWhenItIsChosenAnew) {
    OpenWith("VTRNETset.ini", With("VTRNETset.ini", 3, "\"User Selected String\""));
    dialog.SetText("Combo11", "2");
    dialog.SetText("Combo12", "3");
    dialog.SetText("Combo9", "040102");
    dialog.Choose("Option15");
    dialog.Choose("Option7");
    dialog.Choose("Option8");
    EXPECT_EQ(Text("Combo6"), "15");
    EXPECT_EQ(Text("Combo11"), "0");
    EXPECT_EQ(Text("Combo12"), "0");
    EXPECT_EQ(Text("Combo9"), "01/02/04");
    EXPECT_TRUE(On("Option14"));
}

TEST_F(SettingsDialog, EveryMarketIsShownForItsAddress) {
    EXPECT_TRUE(On("Option70"));
    for (const MarketRow& chosen : kMarkets) {
        OpenWith("VTRLANGset.ini", {"\"" + std::string(chosen.builtIn) + "\""});
        for (const MarketRow& market : kMarkets) {
            EXPECT_EQ(On(market.control), market.control == chosen.control) << chosen.name;
        }
    }
    OpenWith("VTRLANGset.ini", {"\"https://elsewhere.example\""});
    for (const MarketRow& market : kMarkets) EXPECT_FALSE(On(market.control)) << market.name;
}

TEST_F(SettingsDialog, ConditionsAreOfferedToTheSideTheyReport) {
    OpenWith("VTRSELset.ini", {"\"Condition\"", "\"Sell\"", "\"MA15 Above MA30\"", "\"Value\"", "\"\"",
                               "\"Condition\"", "\"Buy\"", "\"Value\"", "\"\"", "\"Condition\"", "\"Hold\"",
                               "\"Value\"", "\"Condition\"", "\"Buy\"", "\"Value\""});
    WriteLines("VTRGRAPHset.ini", With("VTRGRAPHset.ini", 9, "\"Condition 4\""));
    OpenWith("VTRGRAPHset.ini", With("VTRGRAPHset.ini", 10, "\"None\""));
    EXPECT_EQ(Items("Combo14"), (Lines{"None", "Condition 2", "Condition 4"}));
    EXPECT_EQ(Items("Combo15"), (Lines{"None", "Condition 1"}));
    EXPECT_EQ(Text("Combo14"), "Condition 4");
    EXPECT_EQ(Text("Combo15"), "None");
}

TEST_F(SettingsDialog, AStoredConditionOfTheOtherSideStaysChosenAndJunkIsNone) {
    OpenWith("VTRSELset.ini", {"\"Condition\"", "\"Hold\"", "\"Value\""});
    WriteLines("VTRGRAPHset.ini", With("VTRGRAPHset.ini", 9, "\"Condition 1\""));
    OpenWith("VTRGRAPHset.ini", With("VTRGRAPHset.ini", 10, "\"Condition 11\""));
    EXPECT_EQ(Items("Combo14"), (Lines{"None", "Condition 1"}));
    EXPECT_EQ(Text("Combo14"), "Condition 1");
    EXPECT_EQ(Items("Combo15"), (Lines{"None"}));
    EXPECT_EQ(Text("Combo15"), "None");
}

// The evaluator's count of lines belongs to the start and to the editor of the conditions.
TEST_F(SettingsDialog, OpeningDoesNotReadTheConditionsAnew) {
    const std::size_t lines = session.settings.SelectorLineCount;
    ASSERT_GT(lines, 1U);
    WriteLines("VTRSELset.ini", {"\"Condition\"", "\"Sell\"", "\"Value\""});
    dialog.Load();
    EXPECT_EQ(session.settings.SelectorLineCount, lines);
}

TEST_F(SettingsDialog, OpeningReadsTheFilesOfTheTabsAfresh) {
    session.settings.GraphSettings.Set(1, Value::OfText("CandleStick"));
    session.settings.DataSettings.Set(1, Value::OfText("Weekly"));
    dialog.Load();
    EXPECT_TRUE(On("Option21"));
    EXPECT_TRUE(On("Option4"));
    EXPECT_EQ(session.settings.GraphSettings.Text(1), "Default");
}

}  // namespace
}  // namespace brantlow
