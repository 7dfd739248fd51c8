#include "shell/recent_files.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace brantlow {
namespace {

using Captions = std::array<std::string, 4>;

SettingsTable TableOf(const Captions& captions) {
    SettingsTable table;
    for (std::size_t i = 0; i < captions.size(); ++i) table.Set(i + 1, Value::OfText(captions[i]));
    return table;
}

Captions CaptionsOf(const SettingsTable& table) {
    return {table.Text(1), table.Text(2), table.Text(3), table.Text(4)};
}

TEST(RecentFiles, ANameMovesToTheTopFromEachPlace) {
    struct Row {
        const char* caption;
        Captions before;
        Captions after;
    };
    const Row rows[] = {
        {"d", {"a", "b", "c", "d"}, {"d", "a", "b", "c"}},
        {"c", {"a", "b", "c", "d"}, {"c", "a", "b", "d"}},
        {"b", {"a", "b", "c", "d"}, {"b", "a", "c", "d"}},
        {"a", {"a", "b", "c", "d"}, {"a", "b", "c", "d"}},
        {"e", {"a", "b", "c", "d"}, {"e", "a", "b", "c"}},
        {"e", {"", "", "", ""}, {"e", "", "", ""}},
        {"e", {"a", "", "", ""}, {"e", "a", "", ""}},
        {"b", {"a", "b", "", ""}, {"b", "a", "", ""}},
        {"", {"a", "b", "", ""}, {"a", "b", "", ""}},
        // Case-exact, and a name that stands twice leaves its lower place.
        {"A", {"a", "b", "c", "d"}, {"A", "a", "b", "c"}},
        {"a", {"a", "b", "c", "a"}, {"a", "a", "b", "c"}},
        {"b", {"a", "b", "b", "d"}, {"b", "a", "b", "d"}},
    };
    for (const Row& row : rows) {
        SettingsTable table = TableOf(row.before);
        UpdateRecentFiles(row.caption, table);
        EXPECT_EQ(CaptionsOf(table), row.after) << '"' << row.caption << "\" into " << row.before[0];
    }
}

TEST(RecentFiles, AnEmptyTableGetsItsFourEntries) {
    SettingsTable table;
    UpdateRecentFiles("Jan.ddq", table);
    EXPECT_EQ(table.Size(), 4U);
    EXPECT_EQ(CaptionsOf(table), (Captions{"Jan.ddq", "", "", ""}));
}

TEST(RecentFiles, AFifthDistinctFileDropsTheOldest) {
    SettingsTable table;
    for (const char* name : {"1.ddq", "2.ddq", "3.ddq", "4.ddq", "5.ddq"}) UpdateRecentFiles(name, table);
    EXPECT_EQ(CaptionsOf(table), (Captions{"5.ddq", "4.ddq", "3.ddq", "2.ddq"}));
    EXPECT_EQ(table.Size(), 4U);
}

TEST(RecentFiles, OpeningTheSecondSwapsTheFirstTwo) {
    SettingsTable table = TableOf({"Jan.ddq", "sub/Feb.ddq", "c", "d"});
    UpdateRecentFiles("sub/Feb.ddq", table);
    EXPECT_EQ(CaptionsOf(table), (Captions{"sub/Feb.ddq", "Jan.ddq", "c", "d"}));
}

TEST(RecentFiles, ANameWithAQuoteIsKnownAgain) {
    // A line of the settings file cannot hold the quote; without it the name still finds its place.
    SettingsTable table;
    UpdateRecentFiles("my \"best\".ddq", table);
    UpdateRecentFiles("my \"best\".ddq", table);
    EXPECT_EQ(CaptionsOf(table), (Captions{"my best.ddq", "", "", ""}));
}

}  // namespace
}  // namespace brantlow
