#include "acquire/feeds/live/derived_cells.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(DerivedCellsTest, TellItsOwnCellsFromThoseOfOthersAfterASave) {
    const TempFolder folder;
    DerivedCells cells = DerivedCells::Load(folder.Get());
    cells.Set("KO", "P/E ttm.", "23.1");
    cells.Save(folder.Get());
    const DerivedCells kept = DerivedCells::Load(folder.Get());
    EXPECT_TRUE(kept.IsOwn("KO", "P/E ttm.", "23.1"));
    EXPECT_FALSE(kept.IsOwn("KO", "P/E ttm.", "24"));
    EXPECT_TRUE(kept.WasOwn("KO", "P/E ttm."));
    EXPECT_FALSE(kept.WasOwn("KO", "P/S"));
    EXPECT_FALSE(kept.WasOwn("PEP", "P/E ttm."));
}

TEST(DerivedCellsTest, AFileThatHoldsSomethingElseHasNone) {
    const TempFolder folder;
    for (const char* text : {"", "{", "[1]", R"({"KO": 3, "PEP": {"P/S": 4}})"}) {
        ASSERT_FALSE(WriteWholeFile(folder / kSourceCellsName, text));
        const DerivedCells cells = DerivedCells::Load(folder.Get());
        EXPECT_FALSE(cells.WasOwn("KO", "P/S")) << text;
        EXPECT_FALSE(cells.WasOwn("PEP", "P/S")) << text;
    }
}

// An unreadable file is read again by the next run.
TEST(DerivedCellsTest, AFileThatCannotBeReadIsNotOverwritten) {
    const TempFolder folder;
    // A link to itself.
    const Path file = folder / kSourceCellsName;
    std::filesystem::create_symlink(kSourceCellsName, file);
    DerivedCells cells = DerivedCells::Load(folder.Get());
    cells.Set("PEP", "P/S", "5");
    cells.Save(folder.Get());
    EXPECT_TRUE(std::filesystem::is_symlink(file));
}

}  // namespace
}  // namespace brantlow
