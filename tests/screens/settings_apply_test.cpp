// What Apply writes, tab by tab, and what it leaves alone.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "settings_dialog_fixture.h"

namespace brantlow {
namespace {

Lines Concat(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

Lines Quoted(const Lines& names) {
    Lines lines;
    for (const std::string& name : names) lines.push_back("\"" + name + "\"");
    return lines;
}

TEST_F(SettingsDialog, ApplyWithoutAnEditLeavesTheShippedFilesByteForByte) {
    const std::vector<std::string> before = Everything();
    for (const TabRow& tab : kSettingsTabs) {
        if (tab.tab != SettingsTab::DataAutomation && tab.tab != SettingsTab::Network) Apply(tab.tab);
    }
    EXPECT_EQ(Everything(), before);
    // The place of the database is spelled out, and the market is one's own.
    Apply(SettingsTab::DataAutomation);
    Apply(SettingsTab::Network);
    const Lines data = FileLines("VTRDATAset.ini");
    EXPECT_EQ(data[17], "\"" + (folder / "Quotes/EOD").string() + "\"");
    EXPECT_EQ(FileLines("VTRLANGset.ini"), (Lines{"\"https://quotes.brantlow.example\""}));
}

TEST_F(SettingsDialog, ApplyOfTheColumnsWritesThemInOrderAndOneEmptyLine) {
    while (Items("List7").size() > 2) dialog.Move("Command15", 2);
    MoveNamed("Command14", "List8", "Name");
    Apply(SettingsTab::Columns);
    EXPECT_EQ(Read(FileOf("VTRCOLset.ini")), "\"Last Price\"\r\n\"Change\"\r\n\"Name\"\r\n\"\"\r\n");
    EXPECT_EQ(session.settings.ColumnCount, 3U);
    EXPECT_EQ(session.settings.ColumnSettings.Text(3), "Name");
    while (!Items("List7").empty()) dialog.Move("Command15", 0);
    Apply(SettingsTab::Columns);
    EXPECT_EQ(Read(FileOf("VTRCOLset.ini")), "\"\"\r\n");
    EXPECT_EQ(session.settings.ColumnCount, 0U);
}

TEST_F(SettingsDialog, TheOpenTableTakesNewColumnsOnlyWhenItIsAQuoteFile) {
    const std::pair<std::string_view, bool> rows[] = {{"Jan.ddq", true},
                                                      {"New EOD Quotes.db", false},
                                                      {"Evaluations.dbe", false},
                                                      {"x.efq", false},
                                                      {"", false}};
    for (const auto& [name, rebuilt] : rows) {
        session.CurrentFile = name;
        EXPECT_EQ(dialog.Apply(SettingsTab::Columns).rebuildColumns, rebuilt) << name;
        EXPECT_EQ(dialog.Default(SettingsTab::Columns).rebuildColumns, rebuilt) << name;
        EXPECT_FALSE(dialog.Apply(SettingsTab::Graphics).rebuildColumns) << name;
    }
}

TEST_F(SettingsDialog, ApplyOfTheGraphicsWritesTenLines) {
    dialog.Choose("Option25");
    dialog.Move("Command3", 0);
    MoveNamed("Command2", "List6", "WMA 15");
    dialog.SetText("Combo14", "Condition 3");
    dialog.SetText("Combo15", "None");
    Apply(SettingsTab::Graphics);
    EXPECT_EQ(FileLines("VTRGRAPHset.ini"),
              Quoted({"CandleStick", "Price", "LR T.CL", "MA 180", "MLR 60", "MLR 60 L.CL", "MLR 90",
                      "WMA 15", "Condition 3", "None"}));
    EXPECT_EQ(session.settings.GraphSettings.Text(1), "CandleStick");
    EXPECT_EQ(session.settings.GraphSettings.Text(9), "Condition 3");
}

TEST_F(SettingsDialog, FewerThanSixVariablesMoveTheBuyAndSellLinesUp) {
    dialog.Move("Command3", 5);
    dialog.Move("Command3", 4);
    dialog.SetText("Combo14", "Condition 3");
    dialog.SetText("Combo15", "Condition 2");
    Apply(SettingsTab::Graphics);
    EXPECT_EQ(FileLines("VTRGRAPHset.ini"), Quoted({"Default", "Price", "LR MINMAX CL", "LR T.CL", "MA 180",
                                                    "MLR 60", "Condition 3", "Condition 2"}));
    EXPECT_EQ(session.settings.GraphSettings.Text(7), "Condition 3");
    EXPECT_EQ(session.settings.GraphSettings.Text(9), "");
    EXPECT_TRUE(person.said.empty());
    EXPECT_EQ(Text("Combo14"), "Condition 3");
    // Opened again, the shifted lines are no variables; six variables make the file right again.
    Open();
    EXPECT_EQ(Items("List5"), (Lines{"LR MINMAX CL", "LR T.CL", "MA 180", "MLR 60"}));
    EXPECT_EQ(Text("Combo14"), "None");
    dialog.Move("Command2", 0);
    dialog.Move("Command2", 0);
    EXPECT_FALSE(dialog.Move("Command2", 0));
    EXPECT_EQ(person.said.back().text, "Maximum of 6 Variables on Graphics");
    dialog.SetText("Combo14", "Condition 3");
    Apply(SettingsTab::Graphics);
    EXPECT_EQ(FileLines("VTRGRAPHset.ini").size(), 10U);
    EXPECT_EQ(session.settings.GraphSettings.Text(9), "Condition 3");
}

// Every control of the data tab, one after the other, and the line that it writes.
TEST_F(SettingsDialog, ApplyOfTheDataWritesEachControlToItsLine) {
    struct Row {
        std::string_view control;
        std::size_t line;
        std::string_view written;
    };
    constexpr Row kOptions[] = {
        {"Option2", 1, "\"Weekly\""},
        {"Option3", 1, "\"Monthly\""},
        {"Option4", 1, "\"Manually\""},
        {"Option9", 6, "2"},
        {"Option10", 6, "5"},
        {"Option11", 6, "10"},
        {"Option12", 6, "20"},
        {"Option30", 7, "\"Manual Save\""},
        {"Option29", 7, "\"Automatic Save\""},
        {"Option6", 8, "\"Manual Save\""},
        {"Option13", 8, "\"Automatic Save\""},
        {"Option16", 9, "\"EOD\""},
        {"Option36", 9, "\"None\""},
        {"Option20", 16, "\"Automatic\""},
        {"Option5", 16, "\"Manual\""},
        {"Option19", 19, "\"Manual\""},
        {"Option18", 19, "\"Automatic\""},
    };
    Apply(SettingsTab::DataAutomation);
    for (const Row& row : kOptions) {
        dialog.Choose(row.control);
        const Lines expected = With("VTRDATAset.ini", row.line, row.written);
        Apply(SettingsTab::DataAutomation);
        EXPECT_EQ(FileLines("VTRDATAset.ini"), expected) << row.control;
        EXPECT_EQ(session.settings.DataSettings.At(row.line).Written(), row.written) << row.control;
    }
    struct CheckBoxRow {
        std::string_view control;
        std::size_t line;
        std::string_view on, off;
    };
    constexpr CheckBoxRow kChecks[] = {
        {"Check1", 2, "\"True\"", "\"False\""},
        {"Check3", 4, "\"True\"", "\"False\""},
        {"Check12", 12, "\"Automatic Updates\"", "\"Manual Updates\""},
        {"Check2", 14, "\"E-mail Alerts\"", "\"None\""},
        {"Check4", 17, "\"True\"", "\"False\""},
    };
    for (const CheckBoxRow& row : kChecks) {
        for (const bool on : {false, true}) {
            dialog.Check(row.control, on);
            const Lines expected = With("VTRDATAset.ini", row.line, on ? row.on : row.off);
            Apply(SettingsTab::DataAutomation);
            EXPECT_EQ(FileLines("VTRDATAset.ini"), expected) << row.control << ' ' << on;
        }
    }
    struct BoxRow {
        std::string_view control;
        std::size_t line;
        std::string_view text;
    };
    constexpr BoxRow kBoxes[] = {{"Text2", 3, "/backup/data"},
                                 {"Text3", 5, "E:\\quotes"},
                                 {"Text1", 15, "me@example.org"},
                                 {"Text4", 18, "\\\\lan\\quotes"}};
    for (const BoxRow& row : kBoxes) {
        dialog.SetText(row.control, row.text);
        const Lines expected = With("VTRDATAset.ini", row.line, "\"" + std::string(row.text) + "\"");
        Apply(SettingsTab::DataAutomation);
        EXPECT_EQ(FileLines("VTRDATAset.ini"), expected) << row.control;
    }
}

TEST_F(SettingsDialog, LineSixIsEmptyWhileNoHistoryIsWanted) {
    dialog.Check("Check11", false);
    Apply(SettingsTab::DataAutomation);
    EXPECT_EQ(FileLines("VTRDATAset.ini")[5], "\"\"");
    // Ticked without years there is nothing to fetch either.
    dialog.Check("Check11", true);
    Apply(SettingsTab::DataAutomation);
    EXPECT_EQ(FileLines("VTRDATAset.ini")[5], "\"\"");
    dialog.Choose("Option10");
    Apply(SettingsTab::DataAutomation);
    EXPECT_EQ(FileLines("VTRDATAset.ini")[5], "5");
}

TEST_F(SettingsDialog, TheDateOfTheLastBackUpKeepsItsValue) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"#2004-01-02#", "#2004-01-02#"}, {"\"01/02/04\"", "#2004-01-02#"}, {"\"junk\"", "#2024-03-15#"},
        {"\"\"", "#2024-03-15#"},         {"17", "#2024-03-15#"},
    };
    for (const auto& [stored, written] : rows) {
        OpenWith("VTRDATAset.ini", With("VTRDATAset.ini", 13, stored));
        Apply(SettingsTab::DataAutomation);
        EXPECT_EQ(FileLines("VTRDATAset.ini")[12], written) << stored;
    }
}

TEST_F(SettingsDialog, TheQuoteFolderFollowsAtOnce) {
    dialog.Check("Check4", true);
    dialog.SetText("Text4", "/lan/quotes");
    Apply(SettingsTab::DataAutomation);
    EXPECT_EQ(session.settings.QuoteFolder, "/lan/quotes/");
    dialog.Check("Check4", false);
    EXPECT_EQ(Text("Text4"), "/lan/quotes");
    Apply(SettingsTab::DataAutomation);
    const std::string own = (folder / "Quotes/EOD").string();
    EXPECT_EQ(session.settings.QuoteFolder, own + "/");
    EXPECT_EQ(Text("Text4"), own);
    EXPECT_EQ(FileLines("VTRDATAset.ini")[17], "\"" + own + "\"");
    EXPECT_EQ(FileLines("VTRDATAset.ini")[16], "\"False\"");
}

TEST_F(SettingsDialog, TheScheduleIsOfferedOnlyWhenTheRunIsTurnedOnWithItsTime) {
    const auto applied = [this] { return dialog.Apply(SettingsTab::DataAutomation).openScheduler; };
    EXPECT_FALSE(applied());
    dialog.Choose("Option16");
    dialog.SetText("Combo2", "16");
    dialog.SetText("Combo3", "30");
    EXPECT_FALSE(dialog.Apply(SettingsTab::Graphics).openScheduler);
    EXPECT_TRUE(applied());
    EXPECT_EQ(session.settings.DataSettings.Text(9), "EOD");
    EXPECT_EQ(session.settings.DataSettings.Text(10), "16");
    EXPECT_EQ(session.settings.DataSettings.Text(11), "30");
    const Lines data = FileLines("VTRDATAset.ini");
    EXPECT_EQ(Lines(data.begin() + 8, data.begin() + 11), Quoted({"EOD", "16", "30"}));
    // On already: no second time, whatever the time is.
    dialog.SetText("Combo2", "17");
    EXPECT_FALSE(applied());
    EXPECT_EQ(session.settings.DataSettings.Text(10), "17");
    dialog.Choose("Option36");
    EXPECT_FALSE(applied());
    EXPECT_EQ(session.settings.DataSettings.Text(10), "");
    dialog.Choose("Option16");
    dialog.SetText("Combo2", "18");
    EXPECT_FALSE(applied()) << "without a minute";
    EXPECT_EQ(session.settings.DataSettings.Text(9), "EOD");
}

TEST_F(SettingsDialog, ApplyOfTheNetworkWritesBothFilesLineByLine) {
    dialog.Choose("Option22");
    dialog.SetText("Combo1", "https://broker.example/?a=1,2");
    dialog.Choose("Option8");
    dialog.SetText("Text11", "http://q?s=\"QUOTESYMBOL\",x");
    dialog.SetText("Text13", "http://h/TICKER,\"");
    dialog.SetText("Combo6", "10");
    dialog.SetText("Combo11", "1");
    dialog.SetText("Combo12", "2");
    dialog.SetText("Combo9", "Jan-2-2004");
    dialog.Choose("Option15");
    while (Items("List12").size() > 2) dialog.Move("Command26", 2);
    MoveNamed("Command25", "List11", "Variable");
    while (Items("List16").size() > 1) dialog.Move("Command34", 1);
    dialog.Choose("Option73");
    Apply(SettingsTab::Network);
    EXPECT_EQ(Read(FileOf("VTRNETset.ini")),
              "\"NASDAQ\"\r\n\"https://broker.example/?a=1,2\"\r\n\"User Selected String\"\r\n"
              "http://q?s=\"QUOTESYMBOL\",x\r\nhttp://h/TICKER,\"\r\n10\r\n1\r\n2\r\n\"Jan-2-2004\"\r\n"
              "\"Tab\"\r\n\"StartEOD\"\r\n\"Ticker Symbol\"\r\n\"Last Price\"\r\n\"Variable\"\r\n"
              "\"EndEOD\"\r\n\"StartH\"\r\n\"Trade Date\"\r\n\"EndH\"\r\n");
    EXPECT_EQ(Read(FileOf("VTRLANGset.ini")), "\"https://de.quotes.brantlow.example\"\r\n");
    const SettingsTables& read = session.settings;
    EXPECT_EQ(read.QuoteHost, "https://de.quotes.brantlow.example");
    EXPECT_EQ(read.NetSettings.Text(4), "http://q?s=\"QUOTESYMBOL\",x");
    EXPECT_EQ(read.NetEodFirst, 12U);
    EXPECT_EQ(read.NetEodLast, 14U);
    EXPECT_EQ(read.NetHistFirst, 17U);
    EXPECT_EQ(read.NetHistLast, 17U);
}

TEST_F(SettingsDialog, TheStandardSourceStillWritesTheUsersAddresses) {
    dialog.Choose("Option8");
    dialog.SetText("Text11", "http://eod");
    dialog.SetText("Text13", "http://hist");
    dialog.SetText("Combo6", "12");
    dialog.Choose("Option7");
    Apply(SettingsTab::Network);
    const Lines net = FileLines("VTRNETset.ini");
    EXPECT_EQ(Lines(net.begin() + 2, net.begin() + 8),
              (Lines{"\"Yahoo\"", "http://eod", "http://hist", "15", "0", "0"}));
}

TEST_F(SettingsDialog, EveryMarketWritesItsAddress) {
    for (const MarketRow& market : kMarkets) {
        dialog.Choose(market.control);
        Apply(SettingsTab::Network);
        EXPECT_EQ(FileLines("VTRLANGset.ini"), Quoted({std::string(market.builtIn)})) << market.name;
        EXPECT_EQ(session.settings.QuoteHost, market.builtIn);
        EXPECT_EQ(hosts.QuoteHostInForce(session.settings), market.builtIn);
    }
}

TEST_F(SettingsDialog, AnAddressOfOnesOwnStaysWhileNoMarketIsChosen) {
    OpenWith("VTRLANGset.ini", {"\"https://elsewhere.example\""});
    Apply(SettingsTab::Network);
    EXPECT_EQ(FileLines("VTRLANGset.ini"), (Lines{"\"https://elsewhere.example\""}));
}

TEST_F(SettingsDialog, AMarketOfAHostsFileIsStoredByTheMarketAndAskedAtItsHost) {
    const Hosts practice = Hosts::Parse("Market.Germany=http://127.0.0.1:8080/de\n");
    ApplicationSettings other(session, practice);
    other.Load();
    other.Choose("Option73");
    EXPECT_EQ(other.Apply(SettingsTab::Network).sentence, "");
    EXPECT_EQ(FileLines("VTRLANGset.ini"), (Lines{"\"https://de.quotes.brantlow.example\""}));
    EXPECT_EQ(practice.QuoteHostInForce(session.settings), "http://127.0.0.1:8080/de");
    OpenWith("VTRLANGset.ini", {"\"http://127.0.0.1:8080/de\""});
    other.Load();
    EXPECT_TRUE(other.Control("Option73").on);
}

TEST_F(SettingsDialog, ApplyOfImportAndExportWritesEveryLine) {
    dialog.Choose("Option24");
    dialog.SetText("Text7", "/out");
    dialog.SetText("Text21", "Out.csv");
    dialog.Choose("Option34");
    dialog.SetText("Text8", "/in");
    dialog.SetText("Text31", "In.csv");
    dialog.SetText("Combo7", "1");
    dialog.SetText("Combo8", "2");
    dialog.SetText("Combo10", "040102");
    while (Items("List2").size() > 2) dialog.Move("Command6", 2);
    MoveNamed("Command5", "List1", "High Alarm");
    dialog.Move("Command10", 5);
    MoveNamed("Command9", "List3", "Variable");
    Apply(SettingsTab::ImportExport);
    EXPECT_EQ(FileLines("VTRIMEXset.ini"),
              Concat({Quoted({"Tab Delimited", "/out", "Out.csv", "Tab Delimited", "/in", "In.csv"}),
                      {"1", "2"},
                      Quoted({"040102", "Ticker Symbol", "Last Price", "High Alarm", "End Export File",
                              "Ticker Symbol", "Last Price", "Trade Date", "High Price", "Low Price",
                              "Variable", "End Import File"})}));
    EXPECT_EQ(session.settings.ImportFieldFirst, 14U);
    EXPECT_EQ(session.settings.ImportFieldLast, 19U);
}

TEST_F(SettingsDialog, ApplyOnOneTabLeavesTheOtherTabsEditsUnsaved) {
    const auto before = Everything();
    dialog.Choose("Option25");
    dialog.SetText("Text21", "Other.txt");
    dialog.Move("Command15", 0);
    Apply(SettingsTab::Columns);
    EXPECT_EQ(FileLines("VTRGRAPHset.ini")[0], "\"Default\"");
    EXPECT_EQ(FileLines("VTRIMEXset.ini")[2], "\"Export.Txt\"");
    EXPECT_EQ(FileLines("VTRCOLset.ini")[0], "\"Change\"");
    EXPECT_TRUE(On("Option25"));
    EXPECT_EQ(Text("Text21"), "Other.txt");
    Apply(SettingsTab::Graphics);
    Apply(SettingsTab::ImportExport);
    EXPECT_EQ(FileLines("VTRGRAPHset.ini")[0], "\"CandleStick\"");
    EXPECT_EQ(FileLines("VTRIMEXset.ini")[2], "\"Other.txt\"");
}

TEST_F(SettingsDialog, ATextCannotMoveTheLinesBehindIt) {
    dialog.Choose("Option8");
    dialog.SetText("Text11", "http://a\r\nb");
    dialog.SetText("Combo1", "http://c\n\"d");
    dialog.SetText("Text21", "a\"b\r\nc");
    Apply(SettingsTab::Network);
    Apply(SettingsTab::ImportExport);
    EXPECT_EQ(FileLines("VTRNETset.ini")[3], "http://ab");
    EXPECT_EQ(FileLines("VTRNETset.ini")[1], "\"http://cd\"");
    EXPECT_EQ(FileLines("VTRNETset.ini")[10], "\"StartEOD\"");
    EXPECT_EQ(FileLines("VTRIMEXset.ini")[2], "\"abc\"");
}

// A folder in a file's place cannot be written over, by whomever the test runs.
TEST_F(SettingsDialog, AFileThatCannotBeWrittenIsToldAndNothingIsLost) {
    struct Row {
        SettingsTab tab;
        std::string_view file;
    };
    constexpr Row kRows[] = {{SettingsTab::ImportExport, "VTRIMEXset.ini"},
                             {SettingsTab::DataAutomation, "VTRDATAset.ini"},
                             {SettingsTab::Graphics, "VTRGRAPHset.ini"},
                             {SettingsTab::Columns, "VTRCOLset.ini"},
                             {SettingsTab::Network, "VTRNETset.ini"}};
    dialog.Choose("Option24");
    dialog.Choose("Option16");
    dialog.SetText("Combo2", "16");
    dialog.SetText("Combo3", "30");
    dialog.Choose("Option25");
    dialog.Move("Command15", 0);
    dialog.Choose("Option22");
    for (const Row& row : kRows) {
        std::filesystem::remove(folder / FileOf(row.file));
        std::filesystem::create_directory(folder / FileOf(row.file));
        const SettingsOutcome outcome = dialog.Apply(row.tab);
        EXPECT_EQ(outcome.sentence, std::string(row.file) + ": cannot be saved (Is a directory)");
        EXPECT_FALSE(outcome.openScheduler) << row.file;
        EXPECT_FALSE(outcome.rebuildColumns) << row.file;
        EXPECT_EQ(dialog.Default(row.tab).sentence, outcome.sentence);
    }
    EXPECT_EQ(session.settings.ImExSettings.Text(1), "Comma Delimited");
    EXPECT_EQ(session.settings.DataSettings.Text(9), "None");
    EXPECT_EQ(session.settings.DataSettings.Text(10), "");
    EXPECT_EQ(session.settings.GraphSettings.Text(1), "Default");
    EXPECT_EQ(session.settings.ColumnCount, 34U);
    EXPECT_EQ(session.settings.NetSettings.Text(1), "Yahoo");
    EXPECT_TRUE(On("Option24"));
    EXPECT_EQ(Text("Combo2"), "16");
    EXPECT_EQ(Items("List7").size(), 33U);
}

// The network tab writes two files: when the second cannot be written, the first is as it was too.
TEST_F(SettingsDialog, ANetworkTabOfWhichOneFileCannotBeWrittenChangesNothing) {
    dialog.Choose("Option22");
    dialog.Choose("Option73");
    const std::string net = Read(FileOf("VTRNETset.ini"));
    std::filesystem::remove(folder / FileOf("VTRLANGset.ini"));
    std::filesystem::create_directory(folder / FileOf("VTRLANGset.ini"));
    const std::string host = session.settings.QuoteHost;
    EXPECT_EQ(dialog.Apply(SettingsTab::Network).sentence,
              "VTRLANGset.ini: cannot be saved (Is a directory)");
    EXPECT_EQ(Read(FileOf("VTRNETset.ini")), net);
    EXPECT_EQ(session.settings.NetSettings.Text(1), "Yahoo");
    EXPECT_EQ(session.settings.QuoteHost, host);
    EXPECT_TRUE(On("Option22"));
    std::filesystem::remove(folder / FileOf("VTRLANGset.ini"));
    EXPECT_EQ(dialog.Apply(SettingsTab::Network).sentence, "");
    EXPECT_EQ(session.settings.NetSettings.Text(1), "NASDAQ");
}

TEST_F(SettingsDialog, AFileThatCouldNotBeReadIsNotWrittenOver) {
    std::filesystem::remove(folder / FileOf("VTRGRAPHset.ini"));
    std::filesystem::create_directory(folder / FileOf("VTRGRAPHset.ini"));
    Open();
    std::filesystem::remove(folder / FileOf("VTRGRAPHset.ini"));
    EXPECT_EQ(dialog.Apply(SettingsTab::Graphics).sentence,
              "VTRGRAPHset.ini: cannot be saved (Is a directory)");
    EXPECT_FALSE(std::filesystem::exists(folder / FileOf("VTRGRAPHset.ini")));
}

// Every tab's Apply is refused for want of permission.
bool RefusesEveryTab(ApplicationSettings& dialog) {
    return std::all_of(kSettingsTabs.begin(), kSettingsTabs.end(), [&](const TabRow& tab) {
        return dialog.Apply(tab.tab).sentence.ends_with("set.ini: cannot be saved (Permission denied)");
    });
}

TEST_F(SettingsDialog, AReadOnlyFolderIsToldForEveryTab) {
    const auto before = Everything();
    if (::geteuid() == 0) {
        // Nothing is read-only for the superuser; another user tries it in a child process.
        std::filesystem::permissions(folder.Get(), static_cast<std::filesystem::perms>(0755));
        constexpr uid_t kNobody = 65534;
        const pid_t child = ::fork();
        if (child == 0) ::_exit(::setuid(kNobody) == 0 && RefusesEveryTab(dialog) ? 0 : 1);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    } else {
        std::filesystem::permissions(folder / "Data", static_cast<std::filesystem::perms>(0500));
        EXPECT_TRUE(RefusesEveryTab(dialog));
        std::filesystem::permissions(folder / "Data", static_cast<std::filesystem::perms>(0700));
    }
    EXPECT_EQ(Everything(), before);
}

// Whatever stands in the files, the dialog opens, and after Apply each file has its form.
TEST_F(SettingsDialog, FilesWithoutSenseBecomeRightOnes) {
    std::string junk;
    for (int i = 0; i < 70000; ++i) junk += static_cast<char>(i * 31 + i / 256);
    std::string many;
    for (int i = 0; i < 18000; ++i)
        many += i % 3 == 0 ? "17\r\n" : i % 3 == 1 ? "\"x\"\r\n" : "#2024-01-01#\r\n";
    std::string markers;
    for (int i = 0; i < 18000; ++i) markers += i == 10 ? "\"StartEOD\"\r\n" : "\"a\"\r\n";
    std::string endless = markers;
    endless.replace(endless.size() - 24, 24, "\"EndEOD\"\r\n\"EndH\"\r\n\"EndImportFile\"\r\n");
    const std::string contents[] = {"", "\r\n", "\"", "\"\xFF\xFE\"\r\n\"\"", junk, many, markers, endless};
    for (const std::string& bytes : contents) {
        for (const SettingsFileForm& form : kSettingsFiles) Write(FileOf(form.fileName), bytes);
        Open();
        for (const TabRow& tab : kSettingsTabs) Apply(tab.tab);
        EXPECT_EQ(FileLines("VTRDATAset.ini").size(), 19U);
        EXPECT_TRUE(FileLines("VTRDATAset.ini")[12].starts_with("#20"));
        const Lines graph = FileLines("VTRGRAPHset.ini");
        EXPECT_EQ(graph[0], "\"Default\"");
        EXPECT_EQ(graph[1], "\"Price\"");
        EXPECT_EQ(graph[graph.size() - 2], "\"None\"");
        EXPECT_EQ(FileLines("VTRCOLset.ini").back(), "\"\"");
        const Lines net = FileLines("VTRNETset.ini");
        EXPECT_EQ(net[10], "\"StartEOD\"");
        EXPECT_EQ(net.back(), "\"EndH\"");
        EXPECT_EQ(std::count(net.begin(), net.end(), "\"EndEOD\""), 1);
        EXPECT_EQ(FileLines("VTRLANGset.ini").size(), 1U);
        const Lines imEx = FileLines("VTRIMEXset.ini");
        EXPECT_EQ(std::count(imEx.begin(), imEx.end(), "\"End Export File\""), 1);
        EXPECT_EQ(imEx.back(), "\"End Import File\"");
        // What was written shows again as it was.
        const auto written = Everything();
        Open();
        for (const TabRow& tab : kSettingsTabs) Apply(tab.tab);
        EXPECT_EQ(Everything(), written);
    }
}

TEST_F(SettingsDialog, MissingFilesAreWrittenWhole) {
    for (const SettingsFileForm& form : kSettingsFiles)
        std::filesystem::remove(folder / FileOf(form.fileName));
    Open();
    EXPECT_TRUE(Items("List7").empty());
    EXPECT_EQ(Items("List8").size(), 34U);
    EXPECT_TRUE(On("Option70"));
    for (const TabRow& tab : kSettingsTabs) Apply(tab.tab);
    EXPECT_EQ(FileLines("VTRDATAset.ini").size(), 19U);
    EXPECT_EQ(FileLines("VTRNETset.ini").size(), 14U);
    EXPECT_FALSE(Exists(FileOf("VTRSELset.ini")));
}

TEST_F(SettingsDialog, AFieldThatNoSourceHasKeepsItsPlaceAndAColumnThatNoTableHasIsLeftOut) {
    Lines net = With("VTRNETset.ini", 13, "\"Whatever\"");
    net[13] = "\"\"";
    OpenWith("VTRNETset.ini", net);
    EXPECT_EQ(Items("List12")[0], "Ticker Symbol");
    EXPECT_EQ(Items("List12")[1], "Variable");
    EXPECT_EQ(Items("List12")[2], "Variable");
    EXPECT_EQ(Items("List12")[3], "Trade Time");
    EXPECT_EQ(Items("List11"), (Lines{"Last Price", "Trade Date", "Change (%)", "Variable"}));
    OpenWith("VTRCOLset.ini", {"\"Volume\"", "\"Whatever\"", "\"Volume\"", "\"Name\"", "\"\"", "\"Change\""});
    EXPECT_EQ(Items("List7"), (Lines{"Volume", "Name"}));
    EXPECT_EQ(Items("List8").size(), 32U);
}

}  // namespace
}  // namespace brantlow
