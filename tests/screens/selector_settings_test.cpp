#include "screens/selector_settings.h"

#include <algorithm>
#include <set>

#include "base/undo_store.h"
#include "screens/slot_rows.h"
#include "selector/catalogue.h"
#include "selector/evaluation.h"
#include "selector/scene.h"
#include "selector/value_slots.h"
#include "shell/settings/settings_files.h"
#include "support/repeated.h"
#include "support/session_fixture.h"

namespace brantlow {
namespace {

constexpr const char* kFile = "Data/VTRSELset.ini";

std::string Line(std::string_view text) {
    return "\"" + std::string(text) + "\"\r\n";
}

// A block as the file holds it, its first slots filled.
std::string Block(std::string_view action, const std::vector<std::string>& names,
                  std::vector<std::string> slots = {}) {
    std::string text = Line("Condition") + Line(action);
    for (const std::string& name : names) text += Line(name);
    text += Line("Value");
    slots.resize(kSlotCount);
    for (const std::string& slot : slots) text += Line(slot);
    return text;
}

std::string EmptyBlocks(std::size_t count) {
    return Repeated(Block("Buy", {}), count);
}

std::size_t LineCount(std::string_view bytes) {
    return static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
}

class SelectorEditor : public SessionTest {
  protected:
    // The editor over a file with these bytes, as the program has it after its start.
    SelectorPanels& Open(std::string_view bytes) {
        Write(kFile, bytes);
        LoadSettingsFile(SettingsFile::Selector, folder.Get(), settings);
        return panels = OpenPanels(settings.SelectorSettings);
    }
    Failure Apply() { return ApplyPanels(panels, folder.Get(), settings); }
    Failure Clear(std::size_t panel) {
        return ClearPanel(panels, panel, {folder.Get(), "2024-03-15 12:00:00"}, settings);
    }

    SettingsTables settings;
    SelectorPanels panels;
};

TEST_F(SelectorEditor, OpensOnTenEmptyConditionsThatSayBuyWhereThereIsNoFile) {
    panels = OpenPanels(settings.SelectorSettings);
    const std::vector<std::string> catalogue(ConditionNames().begin(), ConditionNames().end());
    ASSERT_EQ(catalogue.size(), 488u);
    for (const SelectorPanel& panel : panels) {
        EXPECT_EQ(panel.action, "Buy");
        EXPECT_TRUE(panel.selected.empty());
        EXPECT_EQ(panel.available, catalogue);
        for (const SelectorSlot& slot : panel.slots) EXPECT_EQ(slot, SelectorSlot{});
    }
}

TEST_F(SelectorEditor, FillsEachTabFromTheBlockOfItsNumber) {
    std::string bytes;
    for (int i = 1; i <= 10; ++i) bytes += Block(i % 2 ? "Sell" : "Hold", {"Name " + std::to_string(i)});
    Open(bytes);
    for (std::size_t i = 0; i < 10; ++i) {
        EXPECT_EQ(panels[i].action, i % 2 ? "Hold" : "Sell") << i;
        EXPECT_EQ(panels[i].selected, std::vector<std::string>{"Name " + std::to_string(i + 1)});
    }
}

TEST_F(SelectorEditor, ShowsASelectedNameInOneListOnly) {
    Open(Block("Buy", {"Shaven Head", "Hit 52 Week High"}));
    EXPECT_EQ(panels[0].selected, (std::vector<std::string>{"Shaven Head", "Hit 52 Week High"}));
    EXPECT_EQ(panels[0].available.size(), 486u);
    for (const std::string& name : panels[0].selected) {
        EXPECT_EQ(std::count(panels[0].available.begin(), panels[0].available.end(), name), 0) << name;
    }
    EXPECT_EQ(panels[0].available.front(), "Hit 52 Week Low");
    EXPECT_EQ(panels[1].available.size(), 488u);
}

TEST_F(SelectorEditor, KeepsANameThatTheCatalogueDoesNotKnow) {
    Open(Block("Buy", {"No Such Name", "Shaven Head"}));
    EXPECT_EQ(panels[0].selected, (std::vector<std::string>{"No Such Name", "Shaven Head"}));
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Buy", {"No Such Name", "Shaven Head"}) + EmptyBlocks(9));
}

TEST_F(SelectorEditor, TicksTheSlotsThatHoldAText) {
    Open(Block("Buy", {}, {"1.5", "", "abc"}));
    EXPECT_EQ(panels[0].slots[0], (SelectorSlot{"1.5", true}));
    EXPECT_EQ(panels[0].slots[1], (SelectorSlot{"", false}));
    EXPECT_EQ(panels[0].slots[2], (SelectorSlot{"abc", true}));
}

TEST_F(SelectorEditor, TakesInTheLinesThatALongerEarlierSetHasLeft) {
    Open(EmptyBlocks(9) + Block("Sell", {"Shaven Head"}));
    Open(EmptyBlocks(2));
    EXPECT_EQ(settings.SelectorLineCount, 82u);
    EXPECT_EQ(panels[9].action, "Sell");
    EXPECT_EQ(panels[9].selected, std::vector<std::string>{"Shaven Head"});
}

TEST_F(SelectorEditor, MovesANameToTheEndOfTheOtherList) {
    Open(Block("Buy", {"Shaven Head"}));
    SelectorPanel& panel = panels[0];
    EXPECT_TRUE(SelectName(panel, 1));
    EXPECT_EQ(panel.selected, (std::vector<std::string>{"Shaven Head", "Hit 52 Week High"}));
    EXPECT_EQ(panel.available[1], "Close Price Broke Above MA 15");
    EXPECT_TRUE(ReturnName(panel, 0));
    EXPECT_EQ(panel.selected, std::vector<std::string>{"Hit 52 Week High"});
    EXPECT_EQ(panel.available.back(), "Shaven Head");
    EXPECT_EQ(panel.available.size(), 487u);
}

TEST_F(SelectorEditor, MovesNothingWhereNothingIsSelected) {
    Open("");
    const SelectorPanels before = panels;
    EXPECT_FALSE(SelectName(panels[0], 488));
    EXPECT_FALSE(ReturnName(panels[0], 0));
    EXPECT_EQ(panels, before);
}

TEST_F(SelectorEditor, TextSetsTheTickAndAnEmptiedBoxClearsIt) {
    SelectorSlot slot;
    EnterSlotText(slot, "5");
    EXPECT_EQ(slot, (SelectorSlot{"5", true}));
    EnterSlotText(slot, "");
    EXPECT_EQ(slot, (SelectorSlot{"", false}));
}

TEST_F(SelectorEditor, AValueWithoutItsTickIsNotWritten) {
    Open("");
    EnterSlotText(panels[0].slots[0], "5");
    EnterSlotText(panels[0].slots[1], "7");
    panels[0].slots[0].ticked = false;
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Buy", {}, {"", "7"}) + EmptyBlocks(9));
    EXPECT_EQ(panels[0].slots[0].text, "5");
}

TEST_F(SelectorEditor, ATickedSlotWithoutATextIsWrittenEmpty) {
    Open("");
    panels[0].slots[0].ticked = true;
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), EmptyBlocks(10));
}

TEST_F(SelectorEditor, TenBlocksAreWrittenEvenIfAllAreEmpty) {
    Open("");
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), EmptyBlocks(10));
    EXPECT_EQ(LineCount(Read(kFile)), 410u);
}

TEST_F(SelectorEditor, ApplyingWithoutAChangeRewritesTheSameLines) {
    const std::string bytes = Block("Sell", {"MACD 15  Positive", "Shaven Head"}, {"", "2", "", "abc"}) +
                              EmptyBlocks(8) + Block("Hold", {"Hit 52 Week Low"});
    Open(bytes);
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), bytes);
}

TEST_F(SelectorEditor, NamesAreStoredUpToTheFirstEmptyOne) {
    Open(Block("Buy", {"Shaven Head", "", "Shaven Bottom"}));
    EXPECT_EQ(panels[0].selected.size(), 3u);
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Buy", {"Shaven Head"}) + EmptyBlocks(9));
}

TEST_F(SelectorEditor, ApplyReadsTheFileBackAndLeavesTheLineCount) {
    Open(EmptyBlocks(10));
    SelectName(panels[0], 0);
    SelectName(panels[0], 0);
    ASSERT_FALSE(Apply());
    EXPECT_EQ(settings.SelectorSettings.Text(3), "Hit 52 Week Low");
    EXPECT_EQ(settings.SelectorSettings.Text(4), "Hit 52 Week High");
    EXPECT_EQ(settings.SelectorSettings.Size(), 412u);
    EXPECT_EQ(settings.SelectorLineCount, 410u);
}

TEST_F(SelectorEditor, ASetThatHasGrownIsCutShortUntilTheNextClear) {
    Open(EmptyBlocks(10));
    SelectName(panels[0], 0);
    EnterSlotText(panels[9].slots[37], "5");
    ASSERT_FALSE(Apply());
    EXPECT_FALSE(IsWholeSetInForce(panels, settings));
    ASSERT_FALSE(Clear(4));
    EXPECT_EQ(settings.SelectorLineCount, 411u);
    EXPECT_TRUE(IsWholeSetInForce(panels, settings));
}

TEST_F(SelectorEditor, ASetThatHasShrunkIsFollowedByOldLinesUntilTheNextClear) {
    const std::vector<std::string> names(45, "Shaven Head");
    Open(EmptyBlocks(9) + Block("Buy", names, {"5"}));
    ASSERT_EQ(settings.SelectorLineCount, 455u);
    panels[9].selected.clear();
    panels[9].slots = {};
    ASSERT_FALSE(Apply());
    EXPECT_EQ(settings.SelectorLineCount, 455u);
    // Behind the 410 lines of the file stand the old ones, the word "Value" and the slots among them.
    EXPECT_EQ(settings.SelectorSettings.Text(411), "Shaven Head");
    EXPECT_EQ(settings.SelectorSettings.Text(417), "Value");
    EXPECT_EQ(settings.SelectorSettings.Text(418), "5");
    EXPECT_FALSE(IsWholeSetInForce(panels, settings));
    ASSERT_FALSE(Clear(0));
    EXPECT_EQ(settings.SelectorLineCount, 410u);
    EXPECT_TRUE(IsWholeSetInForce(panels, settings));
}

TEST_F(SelectorEditor, ASetOfTheSameLengthIsInForceAfterApply) {
    Open(Block("Buy", {"Hit 52 Week Low"}) + EmptyBlocks(9));
    panels[0].action = "Sell";
    ReturnName(panels[0], 0);
    SelectName(panels[0], 0);
    EnterSlotText(panels[9].slots[37], "5");
    ASSERT_FALSE(Apply());
    EXPECT_TRUE(IsWholeSetInForce(panels, settings));
}

TEST_F(SelectorEditor, TheNextEvaluationUsesWhatWasApplied) {
    Open(Block("Buy", {"Close Price Below LR Price"}) + EmptyBlocks(9));
    Scene scene;
    scene.Show("ClosePrice=11 LRPrice=10");
    ConditionResults before;
    EvaluateConditions(settings, scene.Get(), before);
    EXPECT_EQ(before.ConditionResult[1], "False");

    ReturnName(panels[0], 0);
    const std::vector<std::string>& available = panels[0].available;
    const auto listed = std::find(available.begin(), available.end(), "Close Price Above LR Price");
    SelectName(panels[0], static_cast<std::size_t>(listed - available.begin()));
    panels[0].action = "Hold";
    ASSERT_FALSE(Apply());
    ConditionResults after;
    EvaluateConditions(settings, scene.Get(), after);
    EXPECT_EQ(after.ConditionResult[1], "True");
    EXPECT_EQ(after.ConditionAction[1], "Hold");
}

TEST_F(SelectorEditor, ClearEmptiesTheThirdConditionAndLeavesTheOtherNine) {
    std::string bytes;
    std::string expected;
    for (int i = 1; i <= 10; ++i) {
        const std::string block = Block("Sell", {"Shaven Head"}, {std::to_string(i)});
        bytes += block;
        expected += i == 3 ? Block("Sell", {}) : block;
    }
    Open(bytes);
    ASSERT_FALSE(Clear(2));
    EXPECT_EQ(Read(kFile), expected);
    EXPECT_EQ(settings.SelectorLineCount, 419u);
    EXPECT_EQ(panels[2].action, "Sell");
    EXPECT_TRUE(panels[2].selected.empty());
    for (const SelectorSlot& slot : panels[2].slots) EXPECT_EQ(slot, SelectorSlot{});
}

TEST_F(SelectorEditor, ClearLeavesTheClearedNamesOutOfTheAvailableOnesUntilTheNextOpening) {
    Open(Block("Buy", {"Shaven Head", "Shaven Bottom"}));
    ASSERT_FALSE(Clear(0));
    EXPECT_EQ(panels[0].available.size(), 486u);
    EXPECT_EQ(OpenPanels(settings.SelectorSettings)[0].available.size(), 488u);
}

TEST_F(SelectorEditor, ClearWritesTheEditsOfTheOtherTabsToo) {
    Open(EmptyBlocks(10));
    panels[1].action = "Hold";
    ASSERT_FALSE(Clear(0));
    EXPECT_EQ(Read(kFile), EmptyBlocks(1) + Block("Hold", {}) + EmptyBlocks(8));
}

TEST_F(SelectorEditor, ClearCanBeUndoneAndApplyLeavesNothingBehind) {
    const std::string bytes = Block("Buy", {"Shaven Head"}) + EmptyBlocks(9);
    Open(bytes);
    const ChangePlace place{folder.Get(), ""};
    ASSERT_FALSE(Apply());
    EXPECT_TRUE(KeptChanges(place).empty());
    ASSERT_FALSE(Clear(0));
    ASSERT_NE(Read(kFile), bytes);
    ASSERT_EQ(KeptChanges(place).size(), 1u);
    EXPECT_EQ(KeptChanges(place).front().what, "Clear of Condition 1");
    EXPECT_FALSE(UndoChange(place, "").fault);
    EXPECT_EQ(Read(kFile), bytes);
}

TEST_F(SelectorEditor, AFileThatCannotBeWrittenStaysAndNothingIsChanged) {
    const std::string bytes = Block("Buy", {"Shaven Head"}) + EmptyBlocks(9);
    Open(bytes);
    SelectName(panels[0], 0);
    const SelectorPanels edited = panels;
    const Path nowhere = folder / "nowhere";
    EXPECT_TRUE(ApplyPanels(panels, nowhere, settings));
    EXPECT_TRUE(ClearPanel(panels, 0, {nowhere, ""}, settings));
    EXPECT_EQ(panels, edited);
    EXPECT_EQ(settings.SelectorSettings.Text(4), "Value");
    EXPECT_EQ(settings.SelectorLineCount, 411u);
    EXPECT_EQ(Read(kFile), bytes);
}

TEST_F(SelectorEditor, QuotesAndLineEndsThatALineCannotHoldAreLeftOut) {
    Open("");
    EnterSlotText(panels[0].slots[0], "\"4\"\r\n2");
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Buy", {}, {"42"}) + EmptyBlocks(9));
}

// Files rewritten by hand.

TEST_F(SelectorEditor, AFileInTheWrongOrderOpensAndIsWrittenInOrder) {
    Open(Line("7") + Line("Shaven Head") + Line("Condition") + Line("Shaven Bottom") + Line("Hold") +
         Line("Shaven Head") + Line("Condition") + Line("Sell") + Line("Buy"));
    EXPECT_EQ(panels[0].action, "Hold");
    EXPECT_EQ(panels[0].selected, std::vector<std::string>{"Shaven Head"});
    EXPECT_EQ(panels[1].action, "Buy");
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Hold", {"Shaven Head"}) + EmptyBlocks(9));
}

// The word stands in the box where the evaluator takes it for a value too, and the person can take it out.
TEST_F(SelectorEditor, ABlockWithTooFewValuesLeavesTheNextBlocksWordInASlot) {
    Open(Line("Condition") + Line("Buy") + Line("Value") + Line("1") + Line("2") + Block("Sell", {}));
    EXPECT_EQ(panels[0].slots[1], (SelectorSlot{"2", true}));
    EXPECT_EQ(panels[1].slots[2], (SelectorSlot{"Condition", true}));
    EXPECT_EQ(SlotRemark(panels[1].slots[2].text),
              "This word has a meaning of its own in the file: the next opening will not find it here.");
    EnterSlotText(panels[1].slots[2], "");
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Buy", {}, {"1", "2"}) + Block("Sell", {}) + EmptyBlocks(8));
}

TEST_F(SelectorEditor, MissingBlocksAreEmptyAndAreWritten) {
    Open(Block("Sell", {"Shaven Head"}, {"3"}) + Line("Condition") + Line("Hold"));
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), Block("Sell", {"Shaven Head"}, {"3"}) + Block("Hold", {}) + EmptyBlocks(8));
}

TEST_F(SelectorEditor, ANameThatStandsTwiceIsListedTwiceAndKept) {
    const std::string bytes = Block("Buy", {"Shaven Head", "Shaven Head"}) + EmptyBlocks(9);
    Open(bytes);
    EXPECT_EQ(panels[0].selected.size(), 2u);
    EXPECT_EQ(panels[0].available.size(), 487u);
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), bytes);
}

TEST_F(SelectorEditor, JunkBytesPassThroughAsTheyAre) {
    const std::string junk = "\xff\xfe\x01 \xe4 \x80 \t";
    const std::string bytes = Block("Buy", {junk, std::string(5000, 'x')}, {junk}) + EmptyBlocks(9);
    Open(bytes);
    EXPECT_EQ(panels[0].selected[0], junk);
    EXPECT_EQ(panels[0].slots[0], (SelectorSlot{junk, true}));
    ASSERT_FALSE(Apply());
    EXPECT_EQ(Read(kFile), bytes);
}

TEST_F(SelectorEditor, AFileOfEighteenThousandLinesIsReadToItsLimitAndKept) {
    std::string bytes = Line("Condition") + Line("Buy");
    for (int i = 0; i < 20000; ++i) bytes += Line("Name " + std::to_string(i));
    Open(bytes);
    EXPECT_EQ(settings.SelectorLineCount, 18000u);
    ASSERT_EQ(panels[0].selected.size(), 17998u);
    EXPECT_EQ(panels[0].selected.back(), "Name 17997");
    ASSERT_FALSE(Apply());
    EXPECT_TRUE(
        Read(kFile).ends_with(Line("Name 17997") + Line("Value") + Repeated(Line(""), 38) + EmptyBlocks(9)));
    EXPECT_EQ(settings.SelectorSettings.Size(), 18000u);
}

// What the window tells about names and values.

TEST(SelectorNames, TheFilterWantsEveryWordInAnyOrderAndCase) {
    struct Row {
        const char *name, *filter;
        bool passes;
    };
    const Row rows[] = {
        {"MA15 Above MA30", "", true},
        {"MA15 Above MA30", "   ", true},
        {"MA15 Above MA30", "above", true},
        {"MA15 Above MA30", "ma30 ABOVE", true},
        {"MA15 Above MA30", "below", false},
        {"MA15 Above MA30", "above below", false},
        {"MACD 15  Positive", "macd 15 positive", true},
        {"MLR Der 15 > 75% MLR 15 Max", "> 75%", true},
        {"", "x", false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(PassesFilter(row.name, row.filter), row.passes) << row.name << " / " << row.filter;
    }
}

TEST(SelectorNames, ANameWithoutATestHasARemark) {
    EXPECT_EQ(NameRemark("Shaven Head"), "");
    EXPECT_EQ(NameRemark("shaven head"), "No test answers to this name: it is kept and decides nothing.");
    EXPECT_EQ(NameRemark("Close Price Broke Above LR LooseUCL"),
              "No test answers to this name: it is kept and decides nothing.");
    EXPECT_EQ(NameRemark(""), "An empty line: it and the names below it are not stored.");
    const auto remarks = std::count_if(ConditionNames().begin(), ConditionNames().end(),
                                       [](std::string_view name) { return !NameRemark(name).empty(); });
    // One that nothing tests, seven that always hold, two that never do, one that never runs, 22 that look at
    // the sign alone, and eight of the stochastics.
    EXPECT_EQ(remarks, 1 + 7 + 2 + 1 + 22 + 8);
    EXPECT_EQ(NameRemark("MLR Dif 30 Broke To Positive"), "Never holds: it compares a line with itself.");
}

TEST(SelectorNames, ANameTellsItsMeaningAndItsFormula) {
    EXPECT_EQ(NameMeaning("Close Price Above MA 15"),
              "Close is above MA 15 on the newest bar.\nClose > MA 15; more than 15 bars");
    EXPECT_EQ(NameMeaning("No Such Name"), "");
}

TEST(SelectorNames, TheWholeNameIsMoreThanAllItsWords) {
    EXPECT_TRUE(IsExactly("Close Price Above MA 15", "close price above ma 15"));
    EXPECT_TRUE(IsExactly("Close Price Above MA 15", " Close Price Above MA 15 "));
    EXPECT_FALSE(IsExactly("Close Price Broke Above MA 15", "close price above ma 15"));
    EXPECT_FALSE(IsExactly("", ""));
}

TEST(SelectorSlots, ATextThatIsNoNumberSaysWhatItCountsAs) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"5", ""},
        {"-1.25", ""},
        {" 5 ", ""},
        {"abc", "X is no number here and counts as 0."},
        {"12abc", "X is no number here and counts as 12."},
        {"1,5", "X is no number here and counts as 1."},
        {"buy", "X is no number here and counts as 0."},
    };
    for (const auto& [text, remark] : rows) EXPECT_EQ(SlotRemark(text), remark) << text;
}

TEST(SelectorSlots, AWordOfTheFileIsNoValue) {
    for (const char* word : {"Condition", "Value", "Buy", "Sell", "Hold"}) {
        EXPECT_EQ(SlotRemark(word),
                  "This word has a meaning of its own in the file: the next opening will not find it here.");
    }
}

TEST(SelectorSlots, EverySlotStandsOnceInTheRowsOnTheSideOfItsLabel) {
    std::set<std::size_t> seen;
    for (const SlotRow& row : kSlotRows) {
        const std::string_view least = ValueSlotLabel(row.atLeast);
        EXPECT_TRUE(seen.insert(row.atLeast).second) << row.atLeast;
        ASSERT_TRUE(least.ends_with(" > X")) << least;
        EXPECT_TRUE(row.meaning.ends_with(".")) << row.meaning;
        if (row.atMost == 0) continue;
        const std::string_view most = ValueSlotLabel(row.atMost);
        EXPECT_TRUE(seen.insert(row.atMost).second) << row.atMost;
        ASSERT_TRUE(most.ends_with(" < X")) << most;
        EXPECT_EQ(least.substr(0, least.size() - 4), most.substr(0, most.size() - 4));
    }
    EXPECT_EQ(seen.size(), 38u);
    EXPECT_EQ(*seen.begin(), 1u);
    EXPECT_EQ(*seen.rbegin(), 38u);
}

TEST(SelectorSlots, AGroupStandsTogether) {
    std::set<std::string_view> groups;
    std::string_view last;
    for (const SlotRow& row : kSlotRows) {
        if (row.group == last) continue;
        EXPECT_TRUE(groups.insert(row.group).second) << row.group;
        last = row.group;
    }
}

}  // namespace
}  // namespace brantlow
