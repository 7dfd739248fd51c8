#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include "batch_fixture.h"

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
                                   "MruSettings", "NetSettings", "QuoteHost", "ImExSettings"));
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
    EXPECT_EQ(Call({"settings"}).status, ExitStatus::Done);
}

TEST_F(SettingsCommand, AFileThatIsNoSettingsFileIsAnUnreadableArgument) {
    Write("Data/Mine.ddq", "x");
    const CallResult result = Call({"settings", "Mine.ddq"});
    EXPECT_EQ(result.status, ExitStatus::Usage);
    EXPECT_EQ(result.err, "FILE.ini: 'Mine.ddq' is no settings file\n");
}

}  // namespace
}  // namespace brantlow
