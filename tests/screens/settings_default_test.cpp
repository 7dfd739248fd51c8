// What Default writes, tab by tab, and what it keeps.
#include <gtest/gtest.h>

#include "settings_dialog_fixture.h"

#include "base/undo_store.h"
#include "shell/session_change.h"

namespace brantlow {
namespace {

// Every line of every file of the tabs holds something that is no default.
class SettingsDefault : public SettingsDialog {
  protected:
    SettingsDefault() {
        WriteLines("VTRCOLset.ini", {"\"Volume\"", "\"\""});
        WriteLines("VTRDATAset.ini",
                   {"\"Weekly\"", "\"False\"", "\"/b1\"", "\"False\"", "\"/b2\"", "5", "\"Manual Save\"",
                    "\"Manual Save\"", "\"EOD\"", "\"07\"", "\"05\"", "\"Automatic Updates\"", "#2001-01-01#",
                    "\"E-mail Alerts\"", "\"me@example.org\"", "\"Automatic\"", "\"True\"", "\"/lan\"",
                    "\"Manual\""});
        WriteLines("VTRGRAPHset.ini",
                   {"\"CandleStick\"", "\"Price\"", "\"MA 15\"", "\"MA 30\"", "\"MA 60\"", "\"MA 90\"",
                    "\"MA 120\"", "\"WMA 15\"", "\"Condition 3\"", "\"None\""});
        WriteLines("VTRNETset.ini",
                   {"\"NASDAQ\"", "\"https://broker.example\"", "\"User Selected String\"", "http://e",
                    "http://h", "12", "1", "2", "\"040102\"", "\"Tab\"", "\"StartEOD\"", "\"Volume\"",
                    "\"EndEOD\"", "\"StartH\"", "\"Volume\"", "\"EndH\""});
        WriteLines("VTRLANGset.ini", {"\"https://de.quotes.brantlow.example\""});
        WriteLines("VTRIMEXset.ini", {"\"Tab Delimited\"", "\"/out\"", "\"Out.csv\"", "\"Tab Delimited\"",
                                      "\"/in\"", "\"In.csv\"", "1", "2", "\"040102\"", "\"Volume\"",
                                      "\"End Export File\"", "\"Volume\"", "\"End Import File\""});
        Open();
    }
};

const std::string kColumnNames =
    "\"Last Price\"\r\n\"Change\"\r\n\"Change (%)\"\r\n\"Ask Price\"\r\n\"Bid Price\"\r\n\"Low Price\"\r\n"
    "\"High Price\"\r\n\"Volume\"\r\n\"Open Price\"\r\n\"Previous Close\"\r\n\"52 Week Low\"\r\n"
    "\"52 Week High\"\r\n\"Name\"\r\n\"Exchange\"\r\n\"Trade Date\"\r\n\"Trade Time\"\r\n\"P/E ttm.\"\r\n"
    "\"P/E est.\"\r\n\"EPS ttm.\"\r\n\"EPS est.\"\r\n\"SPS\"\r\n\"E/S\"\r\n\"PEG\"\r\n\"P/S\"\r\n"
    "\"Dividend\"\r\n\"Yield (%)\"\r\n\"Dividend Date\"\r\n\"X Dividend Date\"\r\n\"Market Cap (M)\"\r\n"
    "\"Annual Sales (M)\"\r\n\"Annual Earnings (M)\"\r\n\"Annual Earnings est. (M)\"\r\n";

TEST_F(SettingsDefault, OfTheColumnsIsEveryColumnInTheOrderOfTheVocabulary) {
    Default(SettingsTab::Columns);
    EXPECT_EQ(Read(FileOf("VTRCOLset.ini")), kColumnNames + "\"High Alarm\"\r\n\"Low Alarm\"\r\n\"\"\r\n");
    EXPECT_EQ(session.settings.ColumnCount, 34U);
    EXPECT_EQ(Items("List7").size(), 34U);
    EXPECT_TRUE(Items("List8").empty());
}

TEST_F(SettingsDefault, OfTheDataKeepsFoldersAsShownAndTheAddressAsStored) {
    dialog.SetText("Text4", "/shown");
    dialog.SetText("Text1", "not applied");
    dialog.Check("Check1", true);
    dialog.SetText("Text2", "/shown1");
    Default(SettingsTab::DataAutomation);
    EXPECT_EQ(
        FileLines("VTRDATAset.ini"),
        (Lines{"\"Manually\"", "\"True\"", "\"/shown1\"", "\"True\"", "\"/b2\"", "10", "\"Automatic Save\"",
               "\"Automatic Save\"", "\"None\"", "\"\"", "\"\"", "\"Manual Updates\"", "#2024-03-15#",
               "\"None\"", "\"me@example.org\"", "\"Manual\"", "\"False\"", "\"/shown\"", "\"Automatic\""}));
    EXPECT_EQ(session.settings.QuoteFolder, (folder / "Quotes/EOD").string() + "/");
    EXPECT_TRUE(On("Option4"));
    EXPECT_TRUE(On("Option11"));
    EXPECT_TRUE(On("Option36"));
    EXPECT_FALSE(On("Check4"));
    EXPECT_FALSE(Enabled("Text4"));
    EXPECT_EQ(Text("Text4"), "/shown");
    EXPECT_EQ(Text("Text1"), "me@example.org");
}

TEST_F(SettingsDefault, CanBeUndone) {
    const auto before = Read(FileOf("VTRNETset.ini"));
    Default(SettingsTab::Network);
    ASSERT_NE(Read(FileOf("VTRNETset.ini")), before);
    const ChangePlace place = ChangePlaceOf(session);
    const std::vector<KeptChange> kept = KeptChanges(place);
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept.front().what, "Default of Network and Web Settings");
    EXPECT_FALSE(UndoChange(place, "").fault);
    EXPECT_EQ(Read(FileOf("VTRNETset.ini")), before);
}

TEST_F(SettingsDefault, OfTheGraphicsKeepsTheConditionsAsShown) {
    dialog.SetText("Combo15", "Condition 2");
    Default(SettingsTab::Graphics);
    EXPECT_EQ(FileLines("VTRGRAPHset.ini"),
              (Lines{"\"Default\"", "\"Price\"", "\"LR MINMAX CL\"", "\"LR T.CL\"", "\"MA 180\"",
                     "\"MLR 60\"", "\"MLR 60 L.CL\"", "\"MLR 90\"", "\"Condition 3\"", "\"Condition 2\""}));
    EXPECT_TRUE(On("Option21"));
    EXPECT_EQ(Items("List5").size(), 6U);
    EXPECT_EQ(Text("Combo15"), "Condition 2");
}

TEST_F(SettingsDefault, OfTheNetworkKeepsSourcesAsStoredAndAddressesAsShown) {
    dialog.Choose("Option1");
    dialog.SetText("Text11", "http://shown");
    dialog.SetText("Combo1", "https://shown.example");
    dialog.Choose("Option70");
    Default(SettingsTab::Network);
    const std::string expected =
        "\"NASDAQ\"\r\n\"https://shown.example\"\r\n\"User Selected String\"\r\nhttp://shown\r\nhttp://h\r\n"
        "15\r\n0\r\n0\r\n\"01/02/04\"\r\n\"Comma\"\r\n\"StartEOD\"\r\n"
        "\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"Trade Date\"\r\n\"Trade Time\"\r\n\"Dividend Date\"\r\n"
        "\"Change\"\r\n\"Name\"\r\n\"Exchange\"\r\n\"X Dividend Date\"\r\n\"Ask Price\"\r\n\"Bid Price\"\r\n"
        "\"Open Price\"\r\n\"High Price\"\r\n\"Dividend\"\r\n\"52 Week Low\"\r\n\"52 Week High\"\r\n"
        "\"EPS ttm.\"\r\n\"Low Price\"\r\n\"P/E ttm.\"\r\n\"Volume\"\r\n\"PEG\"\r\n\"EPS est.\"\r\n"
        "\"Previous Close\"\r\n\"Market Cap (M)\"\r\n\"P/S\"\r\n\"EndEOD\"\r\n\"StartH\"\r\n\"Trade "
        "Date\"\r\n"
        "\"Open Price\"\r\n\"High Price\"\r\n\"Low Price\"\r\n\"Last "
        "Price\"\r\n\"Volume\"\r\n\"Variable\"\r\n"
        "\"EndH\"\r\n";
    EXPECT_EQ(Read(FileOf("VTRNETset.ini")), expected);
    // The market has no default.
    EXPECT_EQ(FileLines("VTRLANGset.ini"), (Lines{"\"https://de.quotes.brantlow.example\""}));
    EXPECT_TRUE(On("Option73"));
    EXPECT_TRUE(On("Option22"));
    EXPECT_TRUE(On("Option8"));
    EXPECT_EQ(Text("Text11"), "http://shown");
}

TEST_F(SettingsDefault, OfImportAndExportKeepsTheFoldersAsShown) {
    dialog.SetText("Text7", "/shown out");
    dialog.SetText("Text21", "Shown.csv");
    Default(SettingsTab::ImportExport);
    EXPECT_EQ(Read(FileOf("VTRIMEXset.ini")),
              "\"Comma Delimited\"\r\n\"/shown out\"\r\n\"Export.Txt\"\r\n\"Comma Delimited\"\r\n\"/in\"\r\n"
              "\"Import.Txt\"\r\n0\r\n0\r\n\"01/02/04\"\r\n\"Ticker Symbol\"\r\n" +
                  kColumnNames +
                  "\"End Export File\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"Trade Date\"\r\n"
                  "\"High Price\"\r\n\"Low Price\"\r\n\"Volume\"\r\n\"End Import File\"\r\n");
    EXPECT_EQ(Text("Text21"), "Export.Txt");
    EXPECT_EQ(session.settings.ImportFieldFirst, 44U);
    EXPECT_EQ(session.settings.ImportFieldLast, 49U);
}

TEST_F(SettingsDefault, WritesTheFileOfItsTabAlone) {
    // What is kept for undoing lies beside the data.
    const auto dataFiles = [this] {
        auto files = Everything();
        std::erase_if(files, [](const std::string& file) { return !file.starts_with("Data"); });
        return files;
    };
    for (const TabRow& tab : kSettingsTabs) {
        const auto before = dataFiles();
        Default(tab.tab);
        const auto after = dataFiles();
        ASSERT_EQ(after.size(), before.size());
        int changed = 0;
        for (std::size_t i = 0; i < after.size(); ++i) changed += after[i] != before[i] ? 1 : 0;
        EXPECT_EQ(changed, 1) << tab.caption;
    }
}

TEST_F(SettingsDefault, FillsEveryTabFromTheFilesAgain) {
    dialog.SetText("Text21", "not applied");
    Default(SettingsTab::Columns);
    EXPECT_EQ(Text("Text21"), "Out.csv");
}

TEST_F(SettingsDefault, ASourceWithoutSenseBecomesTheOneInEffect) {
    WriteLines("VTRNETset.ini", {"17", "\"\"", "\"x\""});
    Open();
    Default(SettingsTab::Network);
    const Lines net = FileLines("VTRNETset.ini");
    EXPECT_EQ(net[0], "\"Yahoo\"");
    EXPECT_EQ(net[2], "\"Yahoo\"");
    EXPECT_EQ(net.size(), 46U);
}

}  // namespace
}  // namespace brantlow
