#include "store/table_origin.h"

#include "store/table_files.h"
#include "store_fixture.h"
#include "support/recording_person.h"

namespace brantlow {
namespace {

constexpr Date kDay{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{20}};
constexpr std::string_view kBytes = "Ticker Symbol\tCondition 1\r\nIBM\tBuy\r\n";
const TableOrigin kOrigin{kDay, "Weekly", "Practice.ddq"};

class TableOriginFiles : public ::testing::Test {
  protected:
    QuoteTable Load(const Path& file) {
        QuoteTable table;
        LoadQuoteTable(file, KindOf(file.string()), settings, kDay, table, nullptr);
        return table;
    }
    TestFolder folder;
    SettingsTables settings;
    FixedClock clock{kDay};
    RecordingPerson person;
    Session session{folder.Root(), clock, person};
};

TEST(TableOrigin, ItsTextIsFourLines) {
    // The check is the 64-bit FNV-1a hash: of "a" af63dc4c8601ec8c by its published table.
    EXPECT_EQ(OriginText(kOrigin, "a"),
              "Day: 2026-11-20\r\nInterval: Weekly\r\nTable: Practice.ddq\r\nCheck: af63dc4c8601ec8c\r\n");
    EXPECT_EQ(OriginWords(kOrigin), "Practice.ddq, weekly, 2026-11-20");
}

TEST(TableOrigin, IsReadBack) {
    EXPECT_EQ(ParseOrigin(OriginText(kOrigin, kBytes), kBytes), kOrigin);
}

TEST(TableOrigin, SaysNothingBesideOtherBytesOrInAnotherForm) {
    const std::string text = OriginText(kOrigin, kBytes);
    EXPECT_EQ(ParseOrigin(text, std::string(kBytes) + "X"), std::nullopt);
    EXPECT_EQ(ParseOrigin("", kBytes), std::nullopt);
    EXPECT_EQ(ParseOrigin("Day: soon" + text.substr(15), kBytes), std::nullopt);
    for (std::size_t length = 0; length + 2 < text.size(); ++length)
        EXPECT_EQ(ParseOrigin(text.substr(0, length), kBytes), std::nullopt) << length;
}

TEST_F(TableOriginFiles, ATableIsSavedAndReopenedWithItAndKeepsItsBytes) {
    const Path file = folder.Write("Data/a.dbe", kBytes);
    QuoteTable table = Load(file);
    EXPECT_EQ(table.Origin(), std::nullopt);
    table.SetOrigin(kOrigin);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    EXPECT_EQ(folder.Read("Data/a.dbe"), kBytes);
    EXPECT_EQ(folder.Read("Data/a.dbe.about"), OriginText(kOrigin, kBytes));
    EXPECT_EQ(Load(file).Origin(), kOrigin);
    // Under another name it goes along.
    ASSERT_FALSE(SaveQuoteTable(Load(file), folder.Root() / "Data/b.dbe"));
    EXPECT_EQ(Load(folder.Root() / "Data/b.dbe").Origin(), kOrigin);
}

TEST_F(TableOriginFiles, ATableOfAnotherProgramUnderTheNameHasNone) {
    const Path file = folder.Write("Data/a.dbe", kBytes);
    QuoteTable table = Load(file);
    table.SetOrigin(kOrigin);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    folder.Write("Data/a.dbe", std::string(kBytes) + "KO\tSell\r\n");
    QuoteTable other = Load(file);
    EXPECT_EQ(other.Origin(), std::nullopt);
    // And its save takes the small file away that is not its own.
    ASSERT_FALSE(SaveQuoteTable(other, file));
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"Data/a.dbe"});
}

TEST_F(TableOriginFiles, OnlyATableOfVerdictsHasOne) {
    const Path file = folder.Write("Data/a.ddq", kBytes);
    folder.Write("Data/a.ddq.about", OriginText(kOrigin, kBytes));
    EXPECT_EQ(Load(file).Origin(), std::nullopt);
}

TEST_F(TableOriginFiles, ASmallFileThatCannotBeWrittenLeavesTheTableAsItWas) {
    const Path file = folder.Write("Data/a.dbe", kBytes);
    QuoteTable table = Load(file);
    table.SetText(1, 1, "Sell");
    table.SetOrigin(kOrigin);
    folder.Folder("Data/a.dbe.about");
    EXPECT_TRUE(SaveQuoteTable(table, file));
    EXPECT_EQ(folder.Read("Data/a.dbe"), kBytes);
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"Data/a.dbe"});
}

TEST_F(TableOriginFiles, ANewRunTakesTheOldOneAway) {
    const Path file = folder.Write("Data/Evaluations.dbe", kBytes);
    QuoteTable table = Load(file);
    table.SetOrigin(kOrigin);
    ASSERT_FALSE(SaveQuoteTable(table, file));
    ASSERT_FALSE(CreateEvaluationFile(table, session));
    EXPECT_EQ(folder.Files(), std::vector<std::string>{"Data/Evaluations.dbe"});
}

}  // namespace
}  // namespace brantlow
