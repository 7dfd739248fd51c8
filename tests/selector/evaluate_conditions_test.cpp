#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "scene.h"
#include "selector/evaluation.h"
#include "support/condition_block.h"

namespace brantlow {
namespace {

SettingsTables Settings(const Lines& lines) {
    SettingsTables settings;
    for (std::size_t i = 0; i < lines.size(); ++i)
        settings.SelectorSettings.Set(i + 1, Value::OfText(lines[i]));
    settings.SelectorLineCount = lines.size();
    return settings;
}

Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

ConditionResults Evaluated(const Lines& lines, const Scene& scene) {
    ConditionResults results;
    EvaluateConditions(Settings(lines), scene.Get(), results);
    return results;
}

std::string FirstResult(const Lines& lines, const Scene& scene) {
    return Evaluated(lines, scene).ConditionResult[1];
}

constexpr const char* kHoldsAlways = "Close Price Above LR Price";
constexpr const char* kFails = "Close Price Below LR Price";
constexpr const char* kScene = "ClosePrice=11 LRPrice=10 PERatio=20";

TEST(EvaluateConditions, ASkippedGuardAloneGivesNoHit) {
    Scene scene(150);
    scene.Show(kScene);
    EXPECT_EQ(FirstResult(Block("Buy", {"Close Price Above MA 180"}), scene), "");
}

TEST(EvaluateConditions, ASkippedGuardBesideANameThatHoldsGivesAHit) {
    Scene scene(150);
    scene.Show(kScene);
    EXPECT_EQ(FirstResult(Block("Buy", {"Close Price Above MA 180", kHoldsAlways}), scene), "True");
}

TEST(EvaluateConditions, ATestThatIsSkippedLaterLeavesTheStateAsItIs) {
    Scene scene(150);
    scene.Show(kScene);
    EXPECT_EQ(FirstResult(Block("Buy", {kHoldsAlways, "Close Price Above MA 180"}), scene), "True");
    // The average volume is 0, so slot 1 is skipped.
    EXPECT_EQ(FirstResult(Block("Buy", {kHoldsAlways}, {"5"}), scene), "True");
}

TEST(EvaluateConditions, TheFirstFalseSticksToTheEndOfTheBlock) {
    Scene scene;
    scene.Show(kScene);
    EXPECT_EQ(FirstResult(Block("Buy", {kFails, kHoldsAlways, kHoldsAlways}), scene), "False");
    EXPECT_EQ(FirstResult(Block("Buy", {kHoldsAlways, kFails}), scene), "False");
    Lines slots(38);
    slots[16] = "10";
    EXPECT_EQ(FirstResult(Block("Buy", {kFails}, slots), scene), "False");
    EXPECT_EQ(FirstResult(Block("Buy", {kHoldsAlways}, slots), scene), "True");
    slots[16] = "30";
    EXPECT_EQ(FirstResult(Block("Buy", {kHoldsAlways}, slots), scene), "False");
}

TEST(EvaluateConditions, ABlockWithoutNamesAndValuesIsUndecided) {
    Scene scene;
    scene.Show(kScene);
    const ConditionResults results = Evaluated(Block("Hold", {}), scene);
    EXPECT_EQ(results.ConditionResult[1], "");
    EXPECT_EQ(results.ConditionAction[1], "Hold");
    EXPECT_EQ(results.blocks, 1U);
}

TEST(EvaluateConditions, AverageNamesAreTestedBeyondTheLongerLength) {
    Scene scene(30);
    scene.Show("MA15=9 MA30=10");
    EXPECT_EQ(FirstResult(Block("Buy", {"MA15 Above MA30"}), scene), "");
    scene.Clear();
    scene.SetBar(31);
    scene.Put("MA15=9 MA30=10");
    EXPECT_EQ(FirstResult(Block("Buy", {"MA15 Above MA30"}), scene), "False");
}

TEST(EvaluateConditions, ABlockOfValuesAloneIsDecidedByThem) {
    Scene scene;
    scene.Show(kScene);
    Lines slots(38);
    slots[16] = "20";
    slots[17] = "20";
    EXPECT_EQ(FirstResult(Block("Sell", {}, slots), scene), "True");
    slots[37] = "abc";
    slots[17] = "0";
    EXPECT_EQ(FirstResult(Block("Sell", {}, slots), scene), "False");
}

TEST(EvaluateConditions, TenBlocksEachHaveTheirOwnStateAndAction) {
    Scene scene;
    scene.Show(kScene);
    Lines lines;
    for (int block = 1; block <= 10; ++block)
        lines = lines + Block(block % 3 == 0   ? "Hold"
                              : block % 2 == 0 ? "Sell"
                                               : "Buy",
                              {block % 4 == 0 ? kFails : kHoldsAlways});
    const ConditionResults results = Evaluated(lines, scene);
    EXPECT_EQ(results.blocks, 10U);
    const char* const kActions[] = {"",     "Buy", "Sell", "Hold", "Sell", "Buy",
                                    "Hold", "Buy", "Sell", "Hold", "Sell"};
    for (std::size_t block = 1; block <= 10; ++block) {
        EXPECT_EQ(results.ConditionAction[block], kActions[block]) << block;
        EXPECT_EQ(results.ConditionResult[block], block % 4 == 0 ? "False" : "True") << block;
    }
}

TEST(EvaluateConditions, BlocksAfterTheTenthArePassedOver) {
    Scene scene;
    scene.Show(kScene);
    Lines lines;
    for (int block = 1; block <= 300; ++block)
        lines = lines + Block("Buy", {block > 10 ? kFails : kHoldsAlways});
    const ConditionResults results = Evaluated(lines, scene);
    EXPECT_EQ(results.blocks, 10U);
    for (std::size_t block = 1; block <= 10; ++block)
        EXPECT_EQ(results.ConditionResult[block], "True") << block;
}

TEST(EvaluateConditions, OnlyTheLinesCountedAreWalked) {
    Scene scene;
    scene.Show(kScene);
    SettingsTables settings = Settings({"Condition", "Buy", kHoldsAlways, kFails});
    settings.SelectorLineCount = 3;
    ConditionResults results;
    EvaluateConditions(settings, scene.Get(), results);
    EXPECT_EQ(results.ConditionResult[1], "True");
    settings.SelectorLineCount = 18000;
    EvaluateConditions(settings, scene.Get(), results);
    EXPECT_EQ(results.ConditionResult[1], "False");
    settings.SelectorLineCount = 0;
    ConditionResults empty;
    EvaluateConditions(settings, scene.Get(), empty);
    EXPECT_EQ(empty.ConditionResult[1], "");
    EXPECT_EQ(empty.blocks, 0U);
}

TEST(EvaluateConditions, UnknownLinesAmongTheNamesDoNothing) {
    Scene scene;
    scene.Show(kScene);
    EXPECT_EQ(FirstResult(Block("Buy", {"nothing of the kind", "close price below lr price",
                                        "Close Price Broke Above LR LooseUCL"}),
                          scene),
              "");
    EXPECT_EQ(FirstResult(Block("Buy", {"nothing of the kind", kHoldsAlways}), scene), "True");
}

TEST(EvaluateConditions, NamesBeforeTheFirstActionAreNotTested) {
    Scene scene;
    scene.Show(kScene);
    EXPECT_EQ(FirstResult({"Condition", kFails, "Buy", kHoldsAlways}, scene), "True");
    EXPECT_EQ(FirstResult({"Condition", kFails}, scene), "");
}

TEST(EvaluateConditions, NamesAfterAMissingActionAreNotTestedInTheValuePhaseOfTheBlockBefore) {
    Scene scene;
    scene.Show(kScene);
    const ConditionResults results =
        Evaluated(Block("Buy", {kHoldsAlways}) + Lines{"Condition", kFails, "Value"}, scene);
    EXPECT_EQ(results.ConditionResult[1], "True");
    EXPECT_EQ(results.ConditionResult[2], "");
    EXPECT_EQ(results.ConditionAction[2], "");
}

TEST(EvaluateConditions, AConditionLineInTheValuePhaseUsesUpTheNextSlotOfTheNewBlock) {
    Scene scene;
    // 16 slot lines, so that the second "Condition" line is slot 17, P/E > 0.
    Lines shortBlock = {"Condition", "Buy", "Value"};
    shortBlock.resize(shortBlock.size() + 16);
    scene.Show("PERatio=-1");
    EXPECT_EQ(Evaluated(shortBlock + Lines{"Condition", "Sell"}, scene).ConditionResult[2], "False");
    scene.Show("PERatio=1");
    EXPECT_EQ(Evaluated(shortBlock + Lines{"Condition", "Sell"}, scene).ConditionResult[2], "True");
    // A whole block leaves slot 39 to it, which tests nothing.
    EXPECT_EQ(Evaluated(Block("Buy", {}) + Lines{"Condition", "Sell"}, scene).ConditionResult[2], "");
}

TEST(EvaluateConditions, ALineBuyAmongTheValuesOpensTheNamesAgain) {
    Scene scene;
    scene.Show(kScene);
    const ConditionResults results = Evaluated({"Condition", "Sell", "Value", "", "Buy", kFails}, scene);
    EXPECT_EQ(results.ConditionAction[1], "Buy");
    EXPECT_EQ(results.ConditionResult[1], "False");
}

TEST(EvaluateConditions, ALineValueAmongTheValuesCountsTheSlotsFromOneAgain) {
    Scene scene;
    scene.Show("Volume=500 AverageVolume=100");
    EXPECT_EQ(FirstResult({"Condition", "Buy", "Value", "", "", "Value", "5"}, scene), "True");
    EXPECT_EQ(FirstResult({"Condition", "Buy", "Value", "", "", "Value", "6"}, scene), "False");
}

TEST(EvaluateConditions, BlocksThatTheSettingsDoNotHoldKeepWhatTheyHeld) {
    Scene scene;
    scene.Show(kScene);
    ConditionResults results;
    EvaluateConditions(Settings(Block("Buy", {kHoldsAlways}) + Block("Sell", {kHoldsAlways})), scene.Get(),
                       results);
    EvaluateConditions(Settings(Block("Hold", {kFails})), scene.Get(), results);
    EXPECT_EQ(results.ConditionResult[1], "False");
    EXPECT_EQ(results.ConditionAction[1], "Hold");
    EXPECT_EQ(results.ConditionResult[2], "True");
    EXPECT_EQ(results.ConditionAction[2], "Sell");
    EXPECT_EQ(results.blocks, 1U);
}

TEST(EvaluateConditions, CompiledOnceGivesTheSameForEveryTicker) {
    Scene scene;
    const Lines lines = Block("Buy", {kHoldsAlways}) + Block("Sell", {kFails});
    const CompiledConditions compiled(Settings(lines));
    for (const char* values :
         {"ClosePrice=11 LRPrice=10", "ClosePrice=9 LRPrice=10", "ClosePrice=10 LRPrice=10"}) {
        scene.Show(values);
        ConditionResults once;
        compiled.Evaluate(scene.Get(), once);
        const ConditionResults again = Evaluated(lines, scene);
        EXPECT_EQ(once.ConditionResult, again.ConditionResult) << values;
        EXPECT_EQ(once.ConditionAction, again.ConditionAction) << values;
    }
    scene.Show("ClosePrice=9 LRPrice=10");
    ConditionResults results;
    compiled.Evaluate(scene.Get(), results);
    EXPECT_EQ(results.ConditionResult[1], "False");
    EXPECT_EQ(results.ConditionResult[2], "True");
}

}  // namespace
}  // namespace brantlow
