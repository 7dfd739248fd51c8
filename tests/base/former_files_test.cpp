#include "base/former_files.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace brantlow {
namespace {

TEST(FormerFiles, ArePutBackAsTheyWere) {
    TempFolder folder;
    for (const char* name : {"kept", "changed", "gone"}) ASSERT_FALSE(WriteWholeFile(folder / name, "old"));
    const FormerFiles former({folder / "kept", folder / "changed", folder / "gone", folder / "new"});
    ASSERT_FALSE(WriteWholeFile(folder / "changed", "new"));
    ASSERT_FALSE(WriteWholeFile(folder / "new", "new"));
    ASSERT_TRUE(DeleteOneFile(folder / "gone"));
    EXPECT_FALSE(former.PutBack());
    for (const char* name : {"kept", "changed", "gone"})
        EXPECT_EQ(BytesOrEmpty(folder / name), "old") << name;
    EXPECT_EQ(FileNamesIn(folder.Get()), (std::vector<std::string>{"changed", "gone", "kept"}));
}

TEST(FormerFiles, WhatCouldNotBeReadStaysAsItIs) {
    TempFolder folder;
    std::filesystem::create_directories(folder / "folder");
    const FormerFiles former({folder / "folder"});
    EXPECT_FALSE(former.PutBack());
    EXPECT_TRUE(std::filesystem::is_directory(folder / "folder"));
}

}  // namespace
}  // namespace brantlow
