#include "screens/setup_wizard.h"

#include "acquire/web/hosts.h"
#include "shell/settings/settings_defaults.h"
#include "shell/settings/settings_files.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

constexpr const char* kNet = "Data/VTRNETset.ini";
constexpr const char* kLang = "Data/VTRLANGset.ini";
constexpr const char* kData = "Data/VTRDATAset.ini";

std::string ReplaceOnce(std::string text, std::string_view from, std::string_view to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(WizardDriver, StartsAtTheFirstStepOfSix) {
    WizardDriver driver;
    EXPECT_EQ(driver.StepToShow(), std::nullopt);
    driver.Start();
    EXPECT_EQ(driver.StepToShow(), 1u);
}

TEST(WizardDriver, NextAndBackMoveByOneStep) {
    WizardDriver driver;
    driver.Start();
    driver.Next();
    driver.Next();
    EXPECT_EQ(driver.StepToShow(), 3u);
    driver.Back();
    EXPECT_EQ(driver.StepToShow(), 2u);
    driver.Next();
    EXPECT_EQ(driver.StepToShow(), 3u);
}

TEST(WizardDriver, NothingMovesPastEitherEnd) {
    WizardDriver driver;
    driver.Start();
    driver.Back();
    EXPECT_EQ(driver.StepToShow(), 1u);
    for (int i = 0; i < 9; ++i) driver.Next();
    EXPECT_EQ(driver.StepToShow(), 6u);
}

TEST(WizardDriver, ANewStartAfterTheEndBeginsAtTheFirstStep) {
    WizardDriver driver;
    driver.Start();
    for (int i = 0; i < 5; ++i) driver.Next();
    driver.End();
    EXPECT_EQ(driver.StepToShow(), std::nullopt);
    driver.Start();
    EXPECT_EQ(driver.StepToShow(), 1u);
}

TEST(WizardDriver, NothingMovesOnceItWasLeftHalfWay) {
    WizardDriver driver;
    driver.Start();
    driver.Next();
    driver.End();
    driver.Next();
    driver.Back();
    EXPECT_EQ(driver.StepToShow(), std::nullopt);
}

TEST(WizardSteps, HaveTheirFormsAndHeads) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"frmSetupWizard1", "Step 1:                                                    Overview"},
        {"frmSetupWizard2", "Step 2:                                                Quote Supplier"},
        {"frmSetupWizard3", "Step 3:                                  Yahoo Market and Web Content"},
        {"frmSetupWizard4", "Step 4:                                                      LAN Settings"},
        {"frmSetupWizard5", "Step 5:                                Automatic Quote Database Updates"},
        {"frmSetupWizard6", "Step 6:                                            Basic Setup Complete"},
    };
    ASSERT_EQ(kWizardSteps.size(), std::size(rows));
    for (std::size_t i = 0; i < kWizardSteps.size(); ++i) {
        EXPECT_EQ(kWizardSteps[i].form, rows[i].first);
        EXPECT_EQ(kWizardSteps[i].head, rows[i].second);
    }
    EXPECT_EQ(kWizardTitle, "Cadrel' Setup Wizard");
    EXPECT_EQ(kWizardHead, "Brantlow Setup Wizard");
}

class SetupWizardFiles : public SessionTest {
  protected:
    void Load(const char* name, std::string_view bytes) {
        Write(name, bytes);
        LoadAllSettings(folder.Get(), settings);
    }

    const std::string net =
        "\"NASDAQ\"\r\n\"https://broker.example\"\r\n\"Yahoo\"\r\nhttp://q.example/a?s=\"x\",y\r\n"
        "http://h.example/\r\n12\r\n3\r\n4\r\n\"20040102\"\r\n\"Tab\"\r\n\"StartEOD\"\r\n\"Ticker "
        "Symbol\"\r\n"
        "\"Last Price\"\r\n\"EndEOD\"\r\n\"StartH\"\r\n\"Trade Date\"\r\n\"EndH\"\r\n";
    const std::string data =
        "\"Weekly\"\r\n\"True\"\r\n\"Back\"\r\n\"False\"\r\n\"Back2\"\r\n10\r\n\"Automatic Save\"\r\n"
        "\"Manual Save\"\r\n\"None\"\r\n\"\"\r\n\"\"\r\n\"Manual Updates\"\r\n#2004-01-02#\r\n\"None\"\r\n"
        "\"a@b.example\"\r\n\"Manual\"\r\n\"False\"\r\n\"/app/Quotes/EOD\"\r\n\"Automatic\"\r\n";
    SettingsTables settings;
};

TEST_F(SetupWizardFiles, StepTwoWritesTheSupplierAndKeepsAllOtherLines) {
    const std::pair<const char*, const char*> rows[] = {{"Option7", "\r\n\"Yahoo\"\r\nhttp"},
                                                        {"Option8", "\r\n\"User Selected String\"\r\nhttp"}};
    for (const auto& [option, line] : rows) {
        Load(kNet, net);
        const WizardOutcome outcome = SaveQuoteSupplier(option, folder.Get(), settings);
        EXPECT_EQ(outcome.sentence, "");
        EXPECT_FALSE(outcome.stays);
        EXPECT_EQ(Read(kNet), ReplaceOnce(net, "\r\n\"Yahoo\"\r\nhttp", line)) << option;
    }
    EXPECT_EQ(settings.NetSettings.Text(3), "User Selected String");
    EXPECT_EQ(settings.NetEodFirst, 12u);
    EXPECT_EQ(settings.NetHistLast, 16u);
}

TEST_F(SetupWizardFiles, StepTwoDropsLinesBehindTheLastSequence) {
    Load(kNet, net + "\"left over\"\r\n\"\"\r\n");
    SaveQuoteSupplier("Option7", folder.Get(), settings);
    EXPECT_EQ(Read(kNet), net);
}

TEST_F(SetupWizardFiles, StepTwoKeepsEverythingWhereTheLastMarkerIsMissing) {
    const std::string bytes = ReplaceOnce(net, "\"EndH\"", "\"End\"") + "\"more\"\r\n";
    Load(kNet, bytes);
    SaveQuoteSupplier("Option7", folder.Get(), settings);
    EXPECT_EQ(Read(kNet), bytes);
}

TEST_F(SetupWizardFiles, StepTwoRepairsNumbersThatAreEmpty) {
    Load(kNet, ReplaceOnce(net, "\r\n12\r\n3\r\n4\r\n", "\r\n\r\n\r\n\"\"\r\n"));
    SaveQuoteSupplier("Option7", folder.Get(), settings);
    EXPECT_EQ(Read(kNet), ReplaceOnce(net, "\r\n12\r\n3\r\n4\r\n", "\r\n15\r\n0\r\n0\r\n"));
}

TEST_F(SetupWizardFiles, StepTwoWritesAFileThatWasMissing) {
    SaveQuoteSupplier("Option8", folder.Get(), settings);
    EXPECT_EQ(Read(kNet), "\"\"\r\n\"\"\r\n\"User Selected String\"\r\n\r\n\r\n15\r\n0\r\n0\r\n");
}

TEST_F(SetupWizardFiles, StepThreeWritesTheContentAndTheAddressOfEveryMarket) {
    const std::string expected = ReplaceOnce(net, "\"NASDAQ\"", "\"Yahoo\"");
    for (std::size_t market = 0; market < kMarkets.size(); ++market) {
        Load(kNet, net);
        const WizardOutcome outcome = SaveMarketAndContent("Option1", market, folder.Get(), settings);
        EXPECT_EQ(outcome.sentence, "");
        EXPECT_EQ(Read(kNet), expected);
        EXPECT_EQ(Read(kLang), "\"" + std::string(kMarkets[market].builtIn) + "\"\r\n");
        EXPECT_EQ(settings.QuoteHost, kMarkets[market].builtIn);
    }
    SaveMarketAndContent("Option22", 0, folder.Get(), settings);
    EXPECT_EQ(Read(kNet), net);
    EXPECT_EQ(settings.NetSettings.Text(1), "NASDAQ");
}

TEST_F(SetupWizardFiles, StepThreeKeepsAnAddressOfTheUsersOwn) {
    Load(kNet, net);
    Load(kLang, "\"https://mine.example\"\r\n");
    SaveMarketAndContent("Option22", std::nullopt, folder.Get(), settings);
    EXPECT_EQ(Read(kLang), "\"https://mine.example\"\r\n");
    EXPECT_EQ(settings.QuoteHost, "https://mine.example");
}

TEST_F(SetupWizardFiles, StepFourYesPutsTheDatabaseIntoItsFolder) {
    Load(kData, data);
    const WizardOutcome outcome = SaveDatabasePlace("/lan/quotes", folder.Get(), settings);
    EXPECT_EQ(outcome.sentence, "");
    EXPECT_EQ(Read(kData),
              ReplaceOnce(data, "\"False\"\r\n\"/app/Quotes/EOD\"", "\"True\"\r\n\"/lan/quotes\""));
    EXPECT_EQ(settings.QuoteFolder, "/lan/quotes/");
}

TEST_F(SetupWizardFiles, StepFourNoPutsTheDatabaseBackIntoItsOwnPlace) {
    const std::string own = (folder / "Quotes/EOD").string();
    Load(kData, ReplaceOnce(data, "\"False\"\r\n\"/app/Quotes/EOD\"", "\"True\"\r\n\"/lan/quotes\""));
    EXPECT_EQ(settings.QuoteFolder, "/lan/quotes/");
    SaveDatabasePlace(std::nullopt, folder.Get(), settings);
    EXPECT_EQ(Read(kData), ReplaceOnce(data, "/app/Quotes/EOD", own));
    EXPECT_EQ(settings.QuoteFolder, own + "/");
}

TEST_F(SetupWizardFiles, StepFiveWantsATimeForTheDailyRun) {
    Load(kData, data);
    for (const auto& [hour, minute] : {std::pair{"", ""}, std::pair{"17", ""}, std::pair{"", "30"}}) {
        const WizardOutcome outcome = SaveDailyRun(true, hour, minute, folder.Get(), settings);
        EXPECT_EQ(
            outcome.sentence,
            "You must select a time. Please enter the time you want Brantlow to begin collecting data.");
        EXPECT_TRUE(outcome.stays);
        EXPECT_FALSE(outcome.openScheduler);
    }
    EXPECT_EQ(Read(kData), data);
    EXPECT_EQ(settings.DataSettings.Text(9), "None");
}

TEST_F(SetupWizardFiles, StepFiveYesTurnsTheRunOnAndOpensTheScheduleOnce) {
    Load(kData, data);
    WizardOutcome outcome = SaveDailyRun(true, "09", "30", folder.Get(), settings);
    EXPECT_TRUE(outcome.openScheduler);
    EXPECT_FALSE(outcome.stays);
    EXPECT_EQ(outcome.sentence, "");
    EXPECT_EQ(Read(kData), ReplaceOnce(data, "\"None\"\r\n\"\"\r\n\"\"", "\"EOD\"\r\n\"09\"\r\n\"30\""));
    EXPECT_EQ(settings.DataSettings.Text(9), "EOD");

    outcome = SaveDailyRun(true, "10", "45", folder.Get(), settings);
    EXPECT_FALSE(outcome.openScheduler);
    EXPECT_EQ(Read(kData), ReplaceOnce(data, "\"None\"\r\n\"\"\r\n\"\"", "\"EOD\"\r\n\"10\"\r\n\"45\""));
}

TEST_F(SetupWizardFiles, StepFiveNoTurnsTheRunOff) {
    Load(kData, ReplaceOnce(data, "\"None\"\r\n\"\"\r\n\"\"", "\"EOD\"\r\n\"09\"\r\n\"30\""));
    const WizardOutcome outcome = SaveDailyRun(false, "", "", folder.Get(), settings);
    EXPECT_FALSE(outcome.openScheduler);
    EXPECT_FALSE(outcome.stays);
    EXPECT_EQ(Read(kData), data);
}

TEST_F(SetupWizardFiles, ALongerDataFileIsCutToItsNineteenLinesAndAShortOneFilled) {
    Load(kData, data + "\"more\"\r\n");
    SaveDailyRun(false, "", "", folder.Get(), settings);
    EXPECT_EQ(Read(kData), data);
    Load(kData, "\"Weekly\"\r\n");
    SaveDailyRun(false, "", "", folder.Get(), settings);
    const std::string written = Read(kData);
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'), 19);
    EXPECT_TRUE(written.starts_with("\"Weekly\"\r\n\"\"\r\n"));
}

TEST_F(SetupWizardFiles, AFileThatCannotBeWrittenIsToldAndNothingIsChanged) {
    Load(kNet, net);
    Load(kData, data);
    const std::string host = settings.QuoteHost;
    const std::string place = settings.QuoteFolder;
    const Path nowhere = folder / "nowhere";
    const std::pair<WizardOutcome, std::string> rows[] = {
        {SaveQuoteSupplier("Option8", nowhere, settings), "VTRNETset.ini: cannot be saved ("},
        {SaveMarketAndContent("Option1", 3, nowhere, settings), "VTRNETset.ini: cannot be saved ("},
        {SaveDatabasePlace("/lan", nowhere, settings), "VTRDATAset.ini: cannot be saved ("},
        {SaveDailyRun(true, "09", "30", nowhere, settings), "VTRDATAset.ini: cannot be saved ("},
    };
    for (const auto& [outcome, start] : rows) {
        EXPECT_TRUE(outcome.sentence.starts_with(start)) << outcome.sentence;
        EXPECT_FALSE(outcome.openScheduler);
    }
    EXPECT_EQ(settings.NetSettings.Text(1), "NASDAQ");
    EXPECT_EQ(settings.NetSettings.Text(3), "Yahoo");
    EXPECT_EQ(settings.QuoteHost, host);
    EXPECT_EQ(settings.QuoteFolder, place);
    EXPECT_EQ(settings.DataSettings.Text(9), "None");
    EXPECT_EQ(Read(kNet), net);
    EXPECT_EQ(Read(kData), data);
}

TEST_F(SetupWizardFiles, TheShippedFilesKeepEveryOtherLine) {
    std::string bytes;
    for (std::size_t number = 1; number <= LineCountOf(SettingsFile::Net); ++number) {
        const LineRow& line = *RowOf(SettingsFile::Net, number);
        const std::string text(line.standard);
        bytes += (line.form == LineForm::Printed ? text : "\"" + text + "\"") + "\r\n";
    }
    bytes += "\"StartEOD\"\r\n";
    for (const std::string_view name : kDefaultEodSequence) bytes += "\"" + std::string(name) + "\"\r\n";
    bytes += "\"EndEOD\"\r\n\"StartH\"\r\n";
    for (const std::string_view name : kDefaultHistorySequence) bytes += "\"" + std::string(name) + "\"\r\n";
    bytes += "\"EndH\"\r\n";
    Load(kNet, bytes);
    SaveQuoteSupplier("Option7", folder.Get(), settings);
    SaveMarketAndContent("Option1", 0, folder.Get(), settings);
    EXPECT_EQ(Read(kNet), bytes);
}

}  // namespace
}  // namespace brantlow
