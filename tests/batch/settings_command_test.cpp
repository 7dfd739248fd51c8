#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "batch/command_table.h"
#include "batch_fixture.h"
#include "shell/settings/settings_files.h"

namespace brantlow {
namespace {

using nlohmann::ordered_json;
using ::testing::ElementsAre;

class SettingsCommand : public BatchTest {
  protected:
    SettingsCommand() {
        Write("Data/VTRCOLset.ini", "\"Last Price\"\r\n\"Volume\"\r\n\"\"\r\n\"ignored\"\r\n");
        Write("Data/VTRDATAset.ini", "\"Manually\"\r\n10\r\n#2004-01-02#\r\n2.5\r\n\"\"\r\n\"caf\xe9\"\r\n");
        Write("Data/VTRLANGset.ini", "\"http://quotes.example\"\r\n");
    }
};

TEST_F(SettingsCommand, PrintsEveryTableByItsNameInOneLine) {
    const CallResult result = Call({"settings"});
    EXPECT_EQ(result.status, ExitStatus::Done);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 1);
    const auto tables = ordered_json::parse(result.out);
    std::vector<std::string> names;
    for (const auto& [name, table] : tables.items()) names.push_back(name);
    EXPECT_THAT(names, ElementsAre("ColumnSettings", "DataSettings", "GraphSettings", "SelectorSettings",
                                   "MruSettings", "NetSettings", "QuoteHost", "ImExSettings", "OwnSettings",
                                   "SrcSettings", "MailSettings"));
    EXPECT_EQ(tables["QuoteHost"], "http://quotes.example");
    EXPECT_EQ(tables["SelectorSettings"], ordered_json::array());
}

TEST_F(SettingsCommand, ValuesKeepTheirTypes) {
    const CallResult result = Call({"settings", "VTRDATAset.ini"});
    EXPECT_EQ(result.out, "{\"DataSettings\":[\"Manually\",10,\"2004-01-02\",2.5,\"\",\"caf\xc3\xa9\"]}\n");
}

TEST_F(SettingsCommand, RefusesAFileThatIsNotThere) {
    for (const std::string name :
         {"VTRSELset.ini", "nothing.ini", "../Data/VTRCOLset.ini", "", "/etc/passwd"}) {
        const CallResult result = Call({"settings", name});
        EXPECT_EQ(result.status, ExitStatus::Refused) << name;
        EXPECT_EQ(result.err, name + ": no such file in Data\n");
        EXPECT_EQ(result.out, "");
    }
}

TEST_F(SettingsCommand, RefusesAFolderInPlaceOfAFile) {
    std::filesystem::create_directories(folder / "Data/VTRSELset.ini");
    EXPECT_EQ(Call({"settings", "VTRSELset.ini"}).err, "VTRSELset.ini: no such file in Data\n");
}

TEST_F(SettingsCommand, RefusesToPrintAFileThatCannotBeRead) {
    std::filesystem::create_directories(folder / "Data/VTRSELset.ini");
    const CallResult result = Call({"settings"});
    EXPECT_EQ(result.status, ExitStatus::Refused);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, (folder / "Data/VTRSELset.ini").string() + ": cannot be read (Is a directory)\n");
    EXPECT_EQ(Call({"settings", "VTRDATAset.ini"}).status, ExitStatus::Done);
}

// Every command whose row names the file refuses and changes nothing, whatever else is in the folder.
TEST_F(SettingsCommand, CommandsThatGoByAnUnreadableFileRefuse) {
    for (const SettingsFileForm& form : kSettingsFiles) {
        const TempFolder app;
        std::filesystem::create_directories(app / "Data" / form.fileName);
        for (const Command& command : Commands()) {
            if (std::ranges::find(command.settings, form.file) == command.settings.end()) continue;
            std::vector<std::string> arguments = {"--app", app.Get().string(), std::string(command.name)};
            arguments.insert(arguments.end(), command.fewestOperands, "A/2");
            const CallResult result = Call(arguments);
            EXPECT_EQ(result.status, ExitStatus::Refused) << command.name << ' ' << form.fileName;
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err,
                      (app / "Data" / form.fileName).string() + ": cannot be read (Is a directory)\n")
                << command.name;
        }
        EXPECT_EQ(std::distance(std::filesystem::recursive_directory_iterator(app.Get()), {}), 2);
    }
}

TEST_F(SettingsCommand, AFileThatIsNoSettingsFileIsAnUnreadableArgument) {
    Write("Data/Mine.ddq", "x");
    const CallResult result = Call({"settings", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Usage);
    EXPECT_EQ(result.err, "FILE.ini: 'Mine.ddq' is no settings file\n");
}

}  // namespace
}  // namespace brantlow
