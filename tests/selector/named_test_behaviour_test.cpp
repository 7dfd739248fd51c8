// The evaluator's kept oddities and its reading of old, empty and missing elements.
#include <gtest/gtest.h>

#include "constant_names.h"
#include "scene.h"
#include "selector/evaluation.h"

namespace brantlow {
namespace {

TEST(NamedTest, WholeWindowBandNamesPassWhateverThePrices) {
    Scene scene;
    for (const char* values : {"", "ClosePrice=1,1 LRTightUCL=50 LRLooseUCL=90 LRPrice=100,100",
                               "ClosePrice=999,1 LRTightLCL=-50 LRLooseLCL=-90 LRPrice=100,100"}) {
        scene.Show(values);
        for (const std::size_t bar : {16U, 700U}) {
            for (const char* name : kAlwaysPassing)
                EXPECT_EQ(EvaluateNameAt(name, scene.Get(), bar), TestState::True) << name;
        }
    }
}

TEST(NamedTest, TheCatalogueSpellingLooseUclTestsNothing) {
    Scene scene;
    EXPECT_EQ(EvaluateName("Close Price Broke Above LR LooseUCL", scene.Get()), TestState::Undecided);
}

TEST(NamedTest, BreaksOfDifference30NeverHold) {
    Scene scene;
    for (const char* values : {"MLR30=5,5 MLR60=4,6", "MLR30=5,5 MLR60=6,4", "MLR30=6,4", "MLR30=-6,6", ""}) {
        scene.Show(values);
        for (const char* name : kNeverHolding)
            EXPECT_EQ(EvaluateName(name, scene.Get()), TestState::False) << name << ": " << values;
    }
    for (const char* name : kNeverHolding) {
        EXPECT_EQ(EvaluateNameAt(name, scene.Get(), 30), TestState::Undecided) << name;
        EXPECT_EQ(EvaluateNameAt(name, scene.Get(), 31), TestState::False) << name;
    }
}

TEST(NamedTest, Difference15ReadsOldContentsOfTheLongerLine) {
    Scene scene(16);
    scene.Show("MLR15=5 MLR30=4");
    EXPECT_EQ(EvaluateName("MLR Dif 15 Positive", scene.Get()), TestState::True);
}

TEST(NamedTest, Wma60AboveMa60WaitsForMoreBarsThanAWindowHolds) {
    Scene scene(279);
    scene.Show("WMA60=9 MA60=10");
    EXPECT_EQ(EvaluateName("WMA60 Above MA60", scene.Get()), TestState::Undecided);
    EXPECT_EQ(EvaluateName("WMA60 Below MA60", scene.Get()), TestState::True);
}

TEST(NamedTest, Momentum15AboveItsMaximumShareIsTrueForAnyPositiveMomentum) {
    Scene scene(20);
    scene.Show("Momentum15=0.0001,900,900,900");
    EXPECT_EQ(EvaluateName("Momentum 15 > 75% Momentum 15 Max", scene.Get()), TestState::True);
}

TEST(NamedTest, TenDaysNamesTakeTheLevelBelowTheWindowAsZero) {
    Scene scene(16);
    // Bars 7 to 14 have no level of the 15 bar band: any close above 0 is above it.
    scene.Show("ClosePrice=5,5,5 TightUCL15=3,3 MLR15=50,50");
    EXPECT_EQ(EvaluateName("Close Price Above Tight MLR 15 UCL", scene.Get()), TestState::False);
    EXPECT_EQ(EvaluateName("Close Price Above Tight MLR 15 UCL 10 Days", scene.Get()), TestState::True);
}

TEST(NamedTest, ElementsNeverWrittenOrEmptiedReadAsZero) {
    Scene scene(20);
    EXPECT_EQ(EvaluateName("MLR Der 15 Positive", scene.Get()), TestState::False);
    EXPECT_EQ(EvaluateName("Momentum 15 Positive", scene.Get()), TestState::True);
    scene.Mutable().series.EPSttm.Set(19, -1);
    scene.Mutable().series.EPSttm.Set(20, 77);
    scene.Mutable().series.EPSttm.Empty(20);
    EXPECT_EQ(EvaluateName("EPS ttm Change Increase", scene.Get()), TestState::True);
}

TEST(NamedTest, RunsAtAnyBarAsIfItWereTheNewest) {
    Scene scene(100);
    scene.Show("ClosePrice@50=11,9 MA15@50=10,10");
    EXPECT_EQ(EvaluateNameAt("Close Price Broke Above MA 15", scene.Get(), 50), TestState::True);
    EXPECT_EQ(EvaluateNameAt("Close Price Broke Above MA 15", scene.Get(), 51), TestState::False);
    EXPECT_EQ(EvaluateNameAt("Close Price Broke Above MA 15", scene.Get(), 15), TestState::Undecided);
}

TEST(NamedTest, PassesWhereItLooksOutsideTheArrays) {
    Scene scene(100);
    for (const char* name : {"EPS ttm Change Increase", "Close Price Broke Above LR Price"}) {
        EXPECT_EQ(EvaluateNameAt(name, scene.Get(), 0), TestState::True) << name;
        EXPECT_EQ(EvaluateNameAt(name, scene.Get(), 1), TestState::False) << name;
        EXPECT_EQ(EvaluateNameAt(name, scene.Get(), kMostRows), TestState::False) << name;
        EXPECT_EQ(EvaluateNameAt(name, scene.Get(), kMostRows + 1), TestState::True) << name;
    }
}

TEST(NamedTest, PassesWhereTheLevelOverflows) {
    Scene scene(100);
    scene.Show("ClosePrice=1 LooseUCL15=1.7e308 MLR15=1.7e308");
    EXPECT_EQ(EvaluateName("Close Price Above Loose MLR 15 UCL", scene.Get()), TestState::True);
}

}  // namespace
}  // namespace brantlow
