#include "store/own_files.h"

#include <gtest/gtest.h>

#include "store/file_stamp.h"
#include "support/recording_person.h"
#include "support/temp_folder.h"

namespace brantlow {
namespace {

class OwnFiles : public ::testing::Test {
  protected:
    OwnFiles() {
        std::filesystem::create_directories(folder / "Data");
        std::filesystem::create_directories(folder / "Quotes/EOD");
        session.settings.QuoteFolder = (folder / "Quotes/EOD").string() + "/";
        session.CurrentFile = "Mine.ddq";
    }
    std::string Words(const std::string& name, ExchangeWay way) const {
        return OwnFileWords(session, folder / name, way);
    }

    TempFolder folder;
    RecordingPerson person;
    FixedClock clock{std::chrono::year{2026} / 11 / 21};
    Session session{folder.Get(), clock, person};
};

struct OwnRow {
    std::string file;
    std::string exported;
    std::string imported;
};

TEST_F(OwnFiles, AreToldFromAUsersFiles) {
    const std::vector<OwnRow> rows = {
        {"Data/Export.Txt", "", ""},
        {"Data/notes.csv", "", ""},
        {"Data/Mine.ddq", "the open table", "the open table"},
        {"Data/./Mine.ddq", "the open table", "the open table"},
        {"Data/Other.ddq", "a table of the program", ""},
        {"Data/Evaluations.dbe", "a table of the program", ""},
        {"Data/New EOD Quotes.db", "a table of the program", ""},
        {"Data/Old.efq", "a table of the program", ""},
        {"Data/VTRSELset.ini", "a settings file of the program", "a settings file of the program"},
        {"Data/Hosts.ini", "a settings file of the program", "a settings file of the program"},
        {"Quotes/EOD/KO.26", "a file of the quote database", "a file of the quote database"},
        {"Quotes/EOD/QuoteList.ddq", "a file of the quote database", "a file of the quote database"},
        {"Brantlow.lock", "a file of the program", "a file of the program"},
        {"Data/Drawings/KO.json", "a file of the program", "a file of the program"},
        {"SplitLog.txt", "a file of the program", "a file of the program"},
        {"Export.Txt", "", ""},
        {"Elsewhere/Other.ddq", "", ""},
    };
    for (const OwnRow& row : rows) {
        EXPECT_EQ(Words(row.file, ExchangeWay::Export), row.exported) << row.file;
        EXPECT_EQ(Words(row.file, ExchangeWay::Import), row.imported) << row.file;
    }
}

TEST_F(OwnFiles, ALinkIsWhatItLeadsTo) {
    ASSERT_FALSE(WriteWholeFile(folder / "Data/Mine.ddq", "x"));
    std::filesystem::create_symlink(folder / "Data/Mine.ddq", folder / "out.csv");
    EXPECT_EQ(Words("out.csv", ExchangeWay::Export), "the open table");
}

TEST_F(OwnFiles, AreTouchedOnlyWhereThePersonGivesThemUp) {
    EXPECT_TRUE(MayExchange(session, folder / "Data/Export.Txt", ExchangeWay::Export));
    EXPECT_TRUE(person.asked.empty());
    person.answer = false;
    EXPECT_FALSE(MayExchange(session, folder / "Data/Mine.ddq", ExchangeWay::Export));
    ASSERT_EQ(person.asked.size(), 1U);
    EXPECT_EQ(person.asked[0].text, (folder / "Data/Mine.ddq").string() +
                                        " is the open table. Do you want to write the export over it?");
    person.answer = true;
    EXPECT_TRUE(MayExchange(session, folder / "Data/VTRSELset.ini", ExchangeWay::Import));
}

TEST(FileStamp, ChangesWithTheBytesAlone) {
    const TempFolder folder;
    const Path file = folder / "Mine.ddq";
    const FileStamp none = StampOf(file);
    EXPECT_FALSE(HasChanged(none, file));
    ASSERT_FALSE(WriteWholeFile(file, "one"));
    EXPECT_TRUE(HasChanged(none, file));

    const FileStamp stamp = StampOf(file);
    EXPECT_FALSE(HasChanged(stamp, file));
    ASSERT_FALSE(WriteWholeFile(file, "one"));
    EXPECT_FALSE(HasChanged(stamp, file)) << "the same bytes in a new file";
    ASSERT_FALSE(WriteWholeFile(file, "two"));
    EXPECT_TRUE(HasChanged(stamp, file));
    std::filesystem::remove(file);
    EXPECT_TRUE(HasChanged(stamp, file));
}

}  // namespace
}  // namespace brantlow
