#include "screens/selector_edits.h"

#include <gtest/gtest.h>

namespace brantlow {
namespace {

SelectorPanels Empty() {
    SelectorPanels panels;
    for (SelectorPanel& panel : panels) {
        panel.action = "Buy";
        panel.available = {"One", "Two", "Three"};
    }
    return panels;
}

TEST(SelectorEdits, EachEditIsTakenBackInTurn) {
    const SelectorPanels first = Empty();
    SelectorPanels panels = first;
    SelectorEdits edits(panels);
    EXPECT_FALSE(edits.CanUndo());
    EXPECT_EQ(edits.Words(), "");
    EXPECT_EQ(edits.Undo(panels), std::nullopt);
    SelectName(panels[2], 1);
    edits.Note(panels);
    const SelectorPanels second = panels;
    panels[4].action = "Sell";
    edits.Note(panels);
    EXPECT_EQ(edits.Words(), "Undo edit of Condition 5");
    EXPECT_EQ(edits.Undo(panels), 4U);
    EXPECT_EQ(panels, second);
    EXPECT_EQ(edits.Undo(panels), 2U);
    EXPECT_EQ(panels, first);
    EXPECT_FALSE(edits.CanUndo());
}

TEST(SelectorEdits, WhatChangedNothingIsNoStep) {
    SelectorPanels panels = Empty();
    SelectorEdits edits(panels);
    edits.Note(panels);
    EXPECT_FALSE(edits.CanUndo());
}

TEST(SelectorEdits, TypingOnInOneSlotIsOneStep) {
    const SelectorPanels first = Empty();
    SelectorPanels panels = first;
    SelectorEdits edits(panels);
    for (const char* text : {"3", "30", "30."}) {
        EnterSlotText(panels[0].slots[7], text);
        edits.Note(panels);
    }
    const SelectorPanels typed = panels;
    EnterSlotText(panels[0].slots[8], "1");
    edits.Note(panels);
    edits.Undo(panels);
    EXPECT_EQ(panels, typed);
    edits.Undo(panels);
    EXPECT_EQ(panels, first);
}

TEST(SelectorEdits, AnEditAfterAnUndoGoesBackToWhatTheUndoLeft) {
    const SelectorPanels first = Empty();
    SelectorPanels panels = first;
    SelectorEdits edits(panels);
    EnterSlotText(panels[0].slots[0], "1");
    edits.Note(panels);
    edits.Undo(panels);
    edits.Note(panels);
    EXPECT_FALSE(edits.CanUndo());
    panels[0].action = "Hold";
    edits.Note(panels);
    edits.Undo(panels);
    EXPECT_EQ(panels, first);
}

TEST(SelectorEdits, ACopyIsTheWholeConditionAndOneStep) {
    SelectorPanels panels = Empty();
    panels[0].action = "Sell";
    SelectName(panels[0], 0);
    EnterSlotText(panels[0].slots[3], "5");
    const SelectorPanels before = panels;
    SelectorEdits edits(panels);
    CopyPanel(panels, 0, 9);
    EXPECT_EQ(panels[9], before[0]);
    edits.Note(panels, "copy of Condition 1 to Condition 10");
    EXPECT_EQ(edits.Words(), "Undo copy of Condition 1 to Condition 10");
    EXPECT_EQ(edits.Undo(panels), 9U);
    EXPECT_EQ(panels, before);
}

TEST(SelectorEdits, OnlyWhatWouldBeStoredMakesAnotherSet) {
    const SelectorPanels stored = Empty();
    SelectorPanels panels = stored;
    EXPECT_FALSE(AreOther(panels, stored));
    // A name that went and came back stands elsewhere in its list, and the set is the same.
    SelectName(panels[0], 0);
    EXPECT_TRUE(AreOther(panels, stored));
    ReturnName(panels[0], 0);
    EXPECT_NE(panels, stored);
    EXPECT_FALSE(AreOther(panels, stored));
    // A text without its tick is not stored.
    panels[1].slots[0].text = "5";
    EXPECT_FALSE(AreOther(panels, stored));
    panels[1].slots[0].ticked = true;
    EXPECT_TRUE(AreOther(panels, stored));
}

TEST(SelectorEdits, NoMoreThanTwoHundredStepsAreKept) {
    SelectorPanels panels = Empty();
    SelectorEdits edits(panels);
    for (int i = 0; i < 250; ++i) {
        panels[static_cast<std::size_t>(i % 10)].action = i / 10 % 2 == 0 ? "Sell" : "Buy";
        edits.Note(panels);
    }
    int steps = 0;
    while (edits.Undo(panels)) ++steps;
    EXPECT_EQ(steps, 200);
}

TEST(SelectorEdits, TheLinesOfAConditionAreItsNamesThenItsValues) {
    Condition condition;
    condition.names = {"Shaven Head"};
    condition.slots[0] = "0.5";
    const std::vector<std::string> lines = LinesOf(condition);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], "Shaven Head");
    EXPECT_TRUE(lines[1].ends_with(" 0.5")) << lines[1];
}

}  // namespace
}  // namespace brantlow
