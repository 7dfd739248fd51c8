#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/values.h"
#include "shell/settings/condition_set.h"
#include "support/repeated.h"

namespace brantlow {
namespace {

SettingsTable TableOf(const std::vector<std::string>& lines) {
    SettingsTable table;
    for (std::size_t i = 0; i < lines.size(); ++i) table.Set(i + 1, Value::OfText(lines[i]));
    return table;
}

SettingsTable TableOfFile(std::string_view bytes) {
    SettingsTable table;
    LineReader reader(bytes);
    std::string_view line;
    for (std::size_t i = 1; reader.Next(line); ++i) table.Set(i, Value::Parse(line));
    return table;
}

const std::string kEmptyBlock = "\"Condition\"\r\n\"Buy\"\r\n\"Value\"\r\n" + Repeated("\"\"\r\n", 38);

void Append(std::vector<std::string>& lines, const std::vector<std::string>& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

TEST(ConditionSetForm, TenBlocksAreWrittenEvenIfAllAreEmpty) {
    const std::string text = FormatConditionSet(ConditionSet{});
    EXPECT_EQ(text, Repeated(kEmptyBlock, 10));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 410);
}

TEST(ConditionSetForm, NamesStandBetweenTheActionAndTheWordValue) {
    ConditionSet set;
    set[0].action = "Hold";
    set[0].names = {"MACD 15  Positive", "Shaven Head"};
    set[0].slots[0] = "1.5";
    set[0].slots[37] = "abc";
    EXPECT_EQ(
        FormatConditionSet(set),
        "\"Condition\"\r\n\"Hold\"\r\n\"MACD 15  Positive\"\r\n\"Shaven Head\"\r\n\"Value\"\r\n\"1.5\"\r\n" +
            Repeated("\"\"\r\n", 36) + "\"abc\"\r\n" + Repeated(kEmptyBlock, 9));
}

TEST(ConditionSetForm, TheWordValueFollowsTheActionAtOnceWhereThereIsNoName) {
    EXPECT_EQ(FormatConditionSet(ConditionSet{}).find("\"Buy\"\r\n\"Value\"\r\n"),
              std::string("\"Condition\"\r\n").size());
}

TEST(ConditionSetForm, NamesEndAtTheFirstEmptyOne) {
    ConditionSet set;
    set[9].names = {"Shaven Head", "", "Shaven Bottom"};
    const std::string text = FormatConditionSet(set);
    EXPECT_NE(text.find("\"Shaven Head\"\r\n\"Value\"\r\n"), std::string::npos);
    EXPECT_EQ(text.find("Shaven Bottom"), std::string::npos);
}

TEST(ConditionSetForm, ABlockHoldsAtMostItsListsEntries) {
    ConditionSet set;
    set[0].names.assign(18002, "x");
    const std::string text = FormatConditionSet(set);
    EXPECT_EQ(std::count(text.begin(), text.end(), 'x'), 18001);
}

TEST(ConditionSetForm, AFullSetReadsBackAsItWasWritten) {
    ConditionSet set;
    for (std::size_t i = 0; i < set.size(); ++i) {
        set[i].action = kConditionActions[i % kConditionActions.size()];
        for (std::size_t name = 0; name < i; ++name) set[i].names.push_back("Name " + std::to_string(name));
        for (std::size_t slot = i; slot < kSlotCount; slot += 3) {
            set[i].slots[slot] = std::to_string(slot) + ".5";
        }
    }
    const std::string text = FormatConditionSet(set);
    EXPECT_EQ(ParseConditionSet(TableOfFile(text)), set);
    EXPECT_EQ(FormatConditionSet(ParseConditionSet(TableOfFile(text))), text);
}

TEST(ConditionSetForm, ClearingOneConditionLeavesTheOtherNineAsTheyAre) {
    ConditionSet set;
    for (std::size_t i = 0; i < set.size(); ++i) set[i].names = {"Name " + std::to_string(i)};
    const ConditionSet before = set;
    set[2] = Condition{set[2].action, {}, {}};
    const ConditionSet after = ParseConditionSet(TableOfFile(FormatConditionSet(set)));
    for (std::size_t i = 0; i < set.size(); ++i) {
        EXPECT_EQ(after[i], i == 2 ? Condition{} : before[i]) << i + 1;
    }
}

TEST(ConditionSetForm, AnEmptyTableIsTenEmptyConditions) {
    EXPECT_EQ(ParseConditionSet(SettingsTable{}), ConditionSet{});
}

TEST(ConditionSetForm, UnknownNamesAreKept) {
    const ConditionSet set = ParseConditionSet(TableOf({"Condition", "Sell", "No Such Name", "Value"}));
    EXPECT_EQ(set[0].action, "Sell");
    EXPECT_EQ(set[0].names, std::vector<std::string>{"No Such Name"});
}

TEST(ConditionSetForm, LinesBeforeTheFirstAndBehindTheTenthBlockArePassedOver) {
    std::vector<std::string> lines = {"junk", "Hold", "Shaven Head"};
    for (int block = 1; block <= 12; ++block) {
        Append(lines, {"Condition", "Sell", "Block " + std::to_string(block), "Value"});
        lines.insert(lines.end(), kSlotCount, "");
    }
    const ConditionSet set = ParseConditionSet(TableOf(lines));
    for (std::size_t i = 0; i < set.size(); ++i) {
        EXPECT_EQ(set[i].names, std::vector<std::string>{"Block " + std::to_string(i + 1)});
        EXPECT_EQ(set[i].slots, Condition{}.slots) << i + 1;
    }
}

TEST(ConditionSetForm, SlotsBehindTheLastArePassedOver) {
    std::vector<std::string> lines = {"Condition", "Buy", "Value"};
    lines.insert(lines.end(), 45, "1");
    const ConditionSet set = ParseConditionSet(TableOf(lines));
    EXPECT_EQ(set[0].slots[37], "1");
    EXPECT_EQ(set[1], Condition{});
}

TEST(ConditionSetForm, AnActionOrTheWordValueAmongTheSlotsActsAsSuchALine) {
    const ConditionSet set = ParseConditionSet(
        TableOf({"Condition", "Buy", "Value", "1", "Sell", "Shaven Head", "Value", "2", "3"}));
    EXPECT_EQ(set[0].action, "Sell");
    EXPECT_EQ(set[0].names, std::vector<std::string>{"Shaven Head"});
    EXPECT_EQ(set[0].slots[0], "2");
    EXPECT_EQ(set[0].slots[1], "3");
}

TEST(ConditionSetForm, ABlockLineRightBehindAWholeBlockFillsNoSlot) {
    std::vector<std::string> lines = {"Condition", "Buy", "Value"};
    lines.insert(lines.end(), kSlotCount, "5");
    Append(lines, {"Condition", "Hold", "Shaven Head"});
    const ConditionSet set = ParseConditionSet(TableOf(lines));
    EXPECT_EQ(set[1].slots, Condition{}.slots);
    EXPECT_EQ(set[1].action, "Hold");
}

TEST(ConditionSetForm, ABlockLineBehindACutOffBlockTakesUpASlotOfTheNext) {
    const ConditionSet set =
        ParseConditionSet(TableOf({"Condition", "Buy", "Value", "1", "Condition", "Hold"}));
    EXPECT_EQ(set[0].slots[0], "1");
    EXPECT_EQ(set[1].slots[1], "Condition");
    EXPECT_EQ(set[1].action, "Hold");
}

TEST(ConditionSetForm, JunkLinesDoNoHarm) {
    std::vector<std::string> lines(18000, std::string("\0\xFF junk", 7));
    EXPECT_EQ(ParseConditionSet(TableOf(lines)), ConditionSet{});
    lines[0] = "Buy";
    EXPECT_EQ(ParseConditionSet(TableOf(lines)), ConditionSet{});
    lines.assign(18000, "Condition");
    EXPECT_EQ(ParseConditionSet(TableOf(lines)), ConditionSet{});
    lines.assign(18000, "Value");
    EXPECT_EQ(ParseConditionSet(TableOf(lines)), ConditionSet{});
}

}  // namespace
}  // namespace brantlow
