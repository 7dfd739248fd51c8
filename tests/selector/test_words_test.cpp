#include "selector/test_words.h"

#include <gtest/gtest.h>

#include <map>

#include "scene.h"
#include "selector/catalogue.h"
#include "selector/explanation.h"

namespace brantlow {
namespace {

const TestRow& Row(std::string_view name) {
    const TestRow* const row = FindTestRow(name);
    EXPECT_NE(row, nullptr) << name;
    return *row;
}

TEST(TestWords, EveryListedNameButTheOneWithoutATestHasMeaningAndFormula) {
    std::size_t without = 0;
    for (const std::string_view name : ConditionNames()) {
        const TestRow* const row = FindTestRow(name);
        if (row == nullptr) {
            ++without;
            EXPECT_EQ(name, "Close Price Broke Above LR LooseUCL");
            continue;
        }
        EXPECT_FALSE(MeaningOf(row->test).empty()) << name;
        EXPECT_FALSE(FormulaOf(row->test).empty()) << name;
        // No name of the source is left without words.
        EXPECT_EQ(MeaningOf(row->test).find("  "), std::string::npos) << MeaningOf(row->test);
        EXPECT_EQ(FormulaOf(row->test).find("ClosePrice"), std::string::npos) << FormulaOf(row->test);
    }
    EXPECT_EQ(without, 1u);
}

TEST(TestWords, RemarksStandWhereANamePromisesWhatItsTestDoesNot) {
    std::map<TestRemark, std::size_t> counts;
    for (const TestRow& row : NamedTests()) ++counts[row.remark];
    EXPECT_EQ(counts[TestRemark::AlwaysHolds], 8u);
    EXPECT_EQ(counts[TestRemark::NeverHolds], 2u);
    EXPECT_EQ(counts[TestRemark::SignOnly], 22u);
    EXPECT_EQ(counts[TestRemark::NeverRuns], 1u);
    EXPECT_EQ(counts[TestRemark::NearConstant], 8u);
    EXPECT_EQ(Row("WMA60 Above MA60").remark, TestRemark::NeverRuns);
    EXPECT_EQ(Row("MLR Dif 30 Broke To Negative").remark, TestRemark::NeverHolds);
    EXPECT_EQ(Row("MLR Dif 30 Positive").remark, TestRemark::None);
    EXPECT_EQ(Row("Close Price Above LR Tight UCL").remark, TestRemark::AlwaysHolds);
    EXPECT_EQ(RemarkText(TestRemark::SignOnly),
              "Looks at the sign only: the extreme in its name counts as 0.");
}

TEST(TestWords, FormulasReadAsTheTestRuns) {
    EXPECT_EQ(FormulaOf(Row("Close Price Broke Above MA 15").test),
              "Close > MA 15 and Close[-1] <= MA 15[-1]; more than 15 bars");
    EXPECT_EQ(FormulaOf(Row("Close Price Below Loose MLR 30 LCL 10 Days").test),
              "Close < Loose LCL 30 + MLR 30 on one of the bars 0 to -9; more than 30 bars");
    EXPECT_EQ(FormulaOf(Row("Tight MLR 90 UCL Below MA120").test),
              "Tight UCL 90 + MLR 60 < MA 120; more than 120 bars");
    EXPECT_EQ(FormulaOf(Row("MLR Dif 15 Increasing").test),
              "MLR 15 - MLR 30 >= (MLR 15 - MLR 30)[-1]; more than 15 bars");
    EXPECT_EQ(FormulaOf(Row("Momentum 15 > 75% Momentum 15 Max").test), "Momentum 15 > 0; more than 15 bars");
    EXPECT_EQ(FormulaOf(Row("Hit 52 Week Low").test), "Low <= 52 week low");
    EXPECT_EQ(MeaningOf(Row("EPS ttm Change Increase").test),
              "EPS ttm is above its value on the bar before.");
}

std::string Sentence(const TestedLine& line, const Scene& scene) {
    const LineExplanation explained = ExplainLine(line, scene.Get(), scene.Bar());
    return LineSentence(line, explained, scene.Get(), scene.Bar());
}

TEST(TestWords, ALineReadsAsASentenceWithItsNumbers) {
    Scene scene;
    const auto name = [](const std::string& text) {
        return TestedLine{text, false, {.test = FindTest(text)}};
    };
    scene.Show("ClosePrice=71.25,69.9 MA60=70.1,70.02");
    EXPECT_EQ(Sentence(name("Close Price Above MA 60"), scene), "Close 71.25 above MA 60 70.10");
    EXPECT_EQ(Sentence(name("Close Price Broke Above MA 60"), scene),
              "Close against MA 60: before 69.90 < 70.02, now 71.25 > 70.10");
    EXPECT_EQ(Sentence(name("No Such Name"), scene), "passed over: unknown name");
    EXPECT_EQ(Sentence(name("WMA60 Above MA60"), Scene(279)), "passed over: too few bars");
    EXPECT_EQ(Sentence(name("Close Price Above LR Tight UCL"), scene),
              "could not be tested, and what cannot be tested passes");
    scene.Show("ClosePrice@90=24000 MLRSlope90=45.1");
    EXPECT_EQ(Sentence({"LR 90 Slope (%/yr) > X", true, {.slot = 5, .x = 30}}, scene),
              "LR 90 Slope (%/yr) 45.10; wanted at least 30.00");
    EXPECT_EQ(Sentence({"MLR 60 Slope (%/yr) > X", true, {.slot = 36, .x = 30}}, Scene(50)),
              "could not be tested, and what cannot be tested passes");
}

// The explanation of each name comes to the selector's verdict, in scenes of all kinds.
TEST(TestWords, EveryExplanationComesToTheSelectorsVerdict) {
    Scene scene;
    for (const std::size_t bar : {20U, 40U, 100U, 130U, 700U}) {
        scene.SetBar(bar);
        scene.Show(
            "ClosePrice=11,9 OpenPrice=9,12 LowPrice=8,8 HighPrice=12,12 MLRDer30=1,-1 Momentum15=2,3");
        for (const std::string_view name : ConditionNames()) {
            const TestedLine line{std::string(name), false, {.test = FindTest(name)}};
            const LineExplanation explained = ExplainLine(line, scene.Get(), bar);
            ASSERT_EQ(explained.state, EvaluateName(name, scene.Get())) << name;
            ASSERT_EQ(explained.reason != PassedOver::No, explained.state == TestState::Undecided) << name;
            const bool tested = explained.computed && explained.reason == PassedOver::No;
            ASSERT_TRUE(!tested || !explained.values.empty()) << name;
            for (const LookedAt& value : explained.values) ASSERT_FALSE(NameOf(value).empty()) << name;
        }
    }
}

}  // namespace
}  // namespace brantlow
