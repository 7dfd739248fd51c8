// Every name of the catalogue, in a situation where it holds and in one where it does not, and at its guard.
// The names are put together here from the rules of each family, on their own road, and must come out as the
// catalogue has them.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "constant_names.h"
#include "scene.h"
#include "selector/catalogue.h"
#include "selector/evaluation.h"
#include "selector/test_table.h"

namespace brantlow {
namespace {

struct Situation {
    std::string values;
    bool holds;
};

struct NameCase {
    std::string name;
    std::size_t guard;  // 0: none
    std::vector<Situation> situations;
};

using Cases = std::vector<NameCase>;

std::string Filled(std::string text, const std::map<std::string, std::string>& words) {
    for (const auto& [mark, word] : words) {
        for (std::size_t at = text.find(mark); at != std::string::npos;
             at = text.find(mark, at + word.size()))
            text.replace(at, mark.size(), word);
    }
    return text;
}

// Adds the case with every {mark} in its name and values replaced.
void AddFilled(Cases& cases, const std::string& name, std::size_t guard,
               const std::vector<Situation>& situations, const std::map<std::string, std::string>& words) {
    NameCase filled{Filled(name, words), guard, {}};
    for (const Situation& situation : situations)
        filled.situations.push_back({Filled(situation.values, words), situation.holds});
    cases.push_back(filled);
}

struct Line {
    std::string kind;
    std::size_t length;
    std::string Series() const { return kind + std::to_string(length); }
};

std::vector<Line> AllLines() {
    std::vector<Line> lines;
    for (const char* kind : {"MA", "WMA"})
        for (const std::size_t length : {15U, 30U, 60U, 90U, 120U, 180U}) lines.push_back({kind, length});
    for (const std::size_t length : {15U, 30U, 60U, 90U, 120U}) lines.push_back({"MLR", length});
    return lines;
}

const std::vector<Situation> kCloseAbove = {
    {"ClosePrice=11 {A}=10", true}, {"ClosePrice=10 {A}=10", false}, {"ClosePrice=9 {A}=10", false}};
const std::vector<Situation> kCloseBelow = {
    {"ClosePrice=9 {A}=10", true}, {"ClosePrice=10 {A}=10", false}, {"ClosePrice=11 {A}=10", false}};
const std::vector<Situation> kBrokeAbove = {{"ClosePrice=11,9 {A}=10,10", true},
                                            {"ClosePrice=11,10 {A}=10,10", true},
                                            {"ClosePrice=10,9 {A}=10,10", false},
                                            {"ClosePrice=11,10.5 {A}=10,10", false},
                                            {"ClosePrice=9,11 {A}=10,10", false}};
const std::vector<Situation> kBrokeBelow = {{"ClosePrice=9,11 {A}=10,10", true},
                                            {"ClosePrice=9,10 {A}=10,10", true},
                                            {"ClosePrice=10,11 {A}=10,10", false},
                                            {"ClosePrice=9,9.5 {A}=10,10", false},
                                            {"ClosePrice=11,9 {A}=10,10", false}};

void AddCloseNames(Cases& cases) {
    cases.push_back({"Hit 52 Week Low",
                     0,
                     {{"LowPrice=5 Low52Week=5", true},
                      {"LowPrice=4 Low52Week=5", true},
                      {"LowPrice=6 Low52Week=5", false}}});
    cases.push_back({"Hit 52 Week High",
                     0,
                     {{"HighPrice=5 High52Week=5", true},
                      {"HighPrice=6 High52Week=5", true},
                      {"HighPrice=4 High52Week=5", false}}});
    for (const Line& line : AllLines()) {
        const std::map<std::string, std::string> words = {
            {"{A}", line.Series()}, {"{N}", line.kind + " " + std::to_string(line.length)}};
        AddFilled(cases, "Close Price Above {N}", line.length, kCloseAbove, words);
        AddFilled(cases, "Close Price Below {N}", line.length, kCloseBelow, words);
        AddFilled(cases, "Close Price Broke Above {N}", line.length, kBrokeAbove, words);
        AddFilled(cases, "Close Price Broke Below {N}", line.length, kBrokeBelow, words);
    }
    const std::map<std::string, std::string> words = {{"{A}", "LRPrice"}};
    AddFilled(cases, "Close Price Above LR Price", 0, kCloseAbove, words);
    AddFilled(cases, "Close Price Below LR Price", 0, kCloseBelow, words);
    AddFilled(cases, "Close Price Broke Above LR Price", 0, kBrokeAbove, words);
    AddFilled(cases, "Close Price Broke Below LR Price", 0, kBrokeBelow, words);
}

// The upper level is 8 + 2 = 10, the lower 12 - 2 = 10.
void AddBandNames(Cases& cases) {
    for (const char* width : {"Loose", "Tight"}) {
        for (const std::size_t length : {15U, 30U, 60U, 90U, 120U}) {
            const std::map<std::string, std::string> words = {{"{W}", width},
                                                              {"{L}", std::to_string(length)}};
            AddFilled(cases, "Close Price Above {W} MLR {L} UCL", length,
                      {{"ClosePrice=10.5 {W}UCL{L}=2 MLR{L}=8", true},
                       {"ClosePrice=10 {W}UCL{L}=2 MLR{L}=8", false},
                       {"ClosePrice=9 {W}UCL{L}=2 MLR{L}=8", false}},
                      words);
            AddFilled(cases, "Close Price Below {W} MLR {L} LCL", length,
                      {{"ClosePrice=9.5 {W}LCL{L}=-2 MLR{L}=12", true},
                       {"ClosePrice=10 {W}LCL{L}=-2 MLR{L}=12", false},
                       {"ClosePrice=11 {W}LCL{L}=-2 MLR{L}=12", false}},
                      words);
            AddFilled(cases, "Close Price Broke Above {W} MLR {L} UCL", length,
                      {{"ClosePrice=10.5,10 {W}UCL{L}=2,2 MLR{L}=8,8", true},
                       {"ClosePrice=10.5,10.5 {W}UCL{L}=2,2 MLR{L}=8,8", false},
                       {"ClosePrice=10.5,10.5 {W}UCL{L}=2,3 MLR{L}=8,8", true},
                       {"ClosePrice=10,9 {W}UCL{L}=2,2 MLR{L}=8,8", false}},
                      words);
            AddFilled(cases, "Close Price Broke Below {W} MLR {L} LCL", length,
                      {{"ClosePrice=9.5,10 {W}LCL{L}=-2,-2 MLR{L}=12,12", true},
                       {"ClosePrice=9.5,9.5 {W}LCL{L}=-2,-2 MLR{L}=12,12", false},
                       {"ClosePrice=9.5,9.5 {W}LCL{L}=-2,-3 MLR{L}=12,12", true},
                       {"ClosePrice=10,11 {W}LCL{L}=-2,-2 MLR{L}=12,12", false}},
                      words);
            AddFilled(cases, "Close Price Above {W} MLR {L} UCL 10 Days", length,
                      {{"ClosePrice=10.5 {W}UCL{L}=2 MLR{L}=8", true},
                       {"ClosePrice@9=10.5 {W}UCL{L}@9=2 MLR{L}@9=8", true},
                       {"ClosePrice@10=10.5 {W}UCL{L}@10=2 MLR{L}@10=8", false},
                       {"ClosePrice@4=10 {W}UCL{L}@4=2 MLR{L}@4=8 {W}UCL{L}@3=5", false},
                       {"ClosePrice=10 {W}UCL{L}=2 MLR{L}=8", false}},
                      words);
            AddFilled(cases, "Close Price Below {W} MLR {L} LCL 10 Days", length,
                      {{"ClosePrice=9.5 {W}LCL{L}=-2 MLR{L}=12", true},
                       {"ClosePrice@9=9.5 {W}LCL{L}@9=-2 MLR{L}@9=12", true},
                       {"ClosePrice@10=9.5 {W}LCL{L}@10=-2 MLR{L}@10=12", false},
                       {"ClosePrice=10 {W}LCL{L}=-2 MLR{L}=12", false}},
                      words);
        }
    }
}

void AddPair(Cases& cases, const Line& left, const Line& right) {
    const std::size_t guard = std::max(left.length, right.length);
    const std::map<std::string, std::string> words = {{"{A}", left.Series()}, {"{B}", right.Series()}};
    const bool longGuard = left.Series() == "WMA60" && right.Series() == "MA60";
    AddFilled(cases, "{A} Above {B}", longGuard ? 600 : guard,
              {{"{A}=11 {B}=10", true}, {"{A}=10 {B}=10", false}, {"{A}=9 {B}=10", false}}, words);
    AddFilled(cases, "{A} Below {B}", guard,
              {{"{A}=9 {B}=10", true}, {"{A}=10 {B}=10", false}, {"{A}=11 {B}=10", false}}, words);
}

void AddAverageNames(Cases& cases) {
    for (const Line& left : AllLines()) {
        if (left.length > 60) continue;
        for (const Line& right : AllLines()) {
            const bool sameKind = left.kind == right.kind && left.length < right.length;
            const bool listedPair = (left.kind == "WMA" && right.kind == "MA") ||
                                    (left.kind == "MLR" && right.kind == "MA") ||
                                    (left.kind == "MLR" && right.kind == "WMA");
            if (sameKind || listedPair) AddPair(cases, left, right);
        }
    }
    // Both bands are laid on the line of 60; the line of 90 does not matter.
    for (const char* length : {"60", "90"}) {
        for (const Line& line :
             {Line{"MA", 120}, Line{"MA", 180}, Line{"WMA", 120}, Line{"WMA", 180}, Line{"MLR", 120}}) {
            const std::map<std::string, std::string> words = {{"{L}", length}, {"{B}", line.Series()}};
            AddFilled(cases, "Tight MLR {L} LCL Above {B}", line.length,
                      {{"TightLCL{L}=-2 MLR60=13 MLR90=1 {B}=10", true},
                       {"TightLCL{L}=-2 MLR60=12 MLR90=99 {B}=10", false},
                       {"TightLCL{L}=-2 MLR60=11 MLR90=99 {B}=10", false}},
                      words);
            AddFilled(cases, "Tight MLR {L} UCL Below {B}", line.length,
                      {{"TightUCL{L}=2 MLR60=7 MLR90=99 {B}=10", true},
                       {"TightUCL{L}=2 MLR60=8 MLR90=1 {B}=10", false},
                       {"TightUCL{L}=2 MLR60=9 MLR90=1 {B}=10", false}},
                      words);
        }
    }
}

// The states of one series: where zero counts as positive, and where it counts as neither.
void AddStates(Cases& cases, const std::string& name, const std::string& series, std::size_t guard,
               bool strict) {
    const std::map<std::string, std::string> words = {{"{S}", series}};
    AddFilled(cases, name + " Positive", guard, {{"{S}=1", true}, {"{S}=0", !strict}, {"{S}=-1", false}},
              words);
    AddFilled(cases, name + " Negative", guard, {{"{S}=-1", true}, {"{S}=0", false}, {"{S}=1", false}},
              words);
    AddFilled(cases, name + " Broke To Positive", guard,
              {{"{S}=1,-1", true},
               {"{S}=1,0", strict},
               {"{S}=0,-1", !strict},
               {"{S}=1,1", false},
               {"{S}=-1,1", false}},
              words);
    AddFilled(cases, name + " Broke To Negative", guard,
              {{"{S}=-1,1", true},
               {"{S}=-1,0", true},
               {"{S}=0,1", false},
               {"{S}=-1,-1", false},
               {"{S}=1,-1", false}},
              words);
}

void AddTrends(Cases& cases, const std::string& name, const std::string& series, std::size_t guard) {
    const std::map<std::string, std::string> words = {{"{S}", series}};
    AddFilled(cases, name + " Increasing", guard, {{"{S}=2,1", true}, {"{S}=1,1", false}, {"{S}=1,2", false}},
              words);
    AddFilled(cases, name + " Decreasing", guard, {{"{S}=1,2", true}, {"{S}=1,1", false}, {"{S}=2,1", false}},
              words);
}

void AddExtremes(Cases& cases, const std::string& name, const std::string& extreme, const std::string& series,
                 std::size_t guard) {
    const std::map<std::string, std::string> words = {{"{S}", series}};
    AddFilled(cases, name + " > 75% " + extreme + " Max", guard,
              {{"{S}=0.001,500", true}, {"{S}=0", false}, {"{S}=-1", false}}, words);
    AddFilled(cases, name + " < 75% " + extreme + " Min", guard,
              {{"{S}=-0.001,-500", true}, {"{S}=0", false}, {"{S}=1", false}}, words);
}

void AddOscillatorNames(Cases& cases) {
    for (const std::size_t length : {15U, 30U, 60U, 90U}) {
        const std::string l = std::to_string(length);
        AddStates(cases, "MLR Der " + l, "MLRDer" + l, length, true);
        AddTrends(cases, "MLR Der " + l, "MLRDer" + l, length);
        AddExtremes(cases, "MLR Der " + l, "MLR " + l, "MLRDer" + l, length);
        AddTrends(cases, "Stochastic " + l, "Stochastic" + l, length);
        cases.push_back({"Stochastic " + l + " Positive",
                         length,
                         {{"Stochastic" + l + "=0", true}, {"Stochastic" + l + "=-0.1", false}}});
        cases.push_back({"Stochastic " + l + " Negative",
                         length,
                         {{"Stochastic" + l + "=-0.1", true}, {"Stochastic" + l + "=0", false}}});
    }
    for (const std::size_t length : {15U, 30U, 60U}) {
        const std::string name = "Momentum " + std::to_string(length);
        const std::string series = "Momentum" + std::to_string(length);
        AddStates(cases, name, series, length, false);
        AddTrends(cases, name, series, length);
        AddExtremes(cases, name, name, series, length);
    }
    for (const std::size_t length : {15U, 30U}) {
        const std::string l = std::to_string(length);
        AddStates(cases, "McClellan Oscillator " + l, "McClellan" + l, length, false);
        AddTrends(cases, "McClellan Oscillator " + l, "McClellan" + l, length);
        AddExtremes(cases, "McClellanOscillator " + l, "McClellanOscillator " + l, "McClellan" + l, length);
        AddStates(cases, length == 15 ? "MACD 15 " : "MACD 30", "MACD" + l, length, false);
        AddTrends(cases, "MACD " + l, "MACD" + l, length);
        AddExtremes(cases, "MACD " + l, "MACD " + l, "MACD" + l, length);
    }
    cases.push_back({"RSI 15 Above 70", 15, {{"RSI15=70.1", true}, {"RSI15=70", false}}});
    cases.push_back({"RSI 15 Below 30", 15, {{"RSI15=29.9", true}, {"RSI15=30", false}}});
    cases.push_back({"RSI 30 Above 65", 30, {{"RSI30=65.1", true}, {"RSI30=65", false}}});
    cases.push_back({"RSI 30 Below 35", 30, {{"RSI30=34.9", true}, {"RSI30=35", false}}});
}

// The difference of two lines, today and yesterday, from values of the three lines involved.
void AddDifferenceNames(Cases& cases) {
    struct Difference {
        std::size_t length;
        const char *from, *taken;
    };
    for (const Difference& d : {Difference{15, "MLR15", "MLR30"}, Difference{30, "MLR30", "MLR60"},
                                Difference{60, "MLR60", "MLR90"}}) {
        const std::map<std::string, std::string> words = {{"{F}", d.from}, {"{T}", d.taken}};
        const std::string name = "MLR Dif " + std::to_string(d.length);
        AddFilled(cases, name + " Positive", d.length,
                  {{"{F}=5 {T}=4", true}, {"{F}=5 {T}=5", true}, {"{F}=5 {T}=6", false}}, words);
        AddFilled(cases, name + " Negative", d.length,
                  {{"{F}=5 {T}=6", true}, {"{F}=5 {T}=5", false}, {"{F}=5 {T}=4", false}}, words);
        AddFilled(cases, name + " Increasing", d.length,
                  {{"{F}=5,5 {T}=3,4", true}, {"{F}=5,5 {T}=4,4", true}, {"{F}=5,5 {T}=4,3", false}}, words);
        AddFilled(cases, name + " Decreasing", d.length,
                  {{"{F}=5,5 {T}=4,3", true}, {"{F}=5,5 {T}=4,4", false}, {"{F}=5,5 {T}=3,4", false}}, words);
    }
    for (const auto& [length, lines] :
         {std::pair{15U, std::pair{"MLR15", "MLR30"}}, std::pair{60U, std::pair{"MLR60", "MLR30"}}}) {
        const std::map<std::string, std::string> words = {{"{F}", lines.first}, {"{T}", lines.second}};
        const std::string name = "MLR Dif " + std::to_string(length);
        AddFilled(cases, name + " Broke To Positive", length,
                  {{"{F}=5,5 {T}=4,6", true},
                   {"{F}=5,5 {T}=5,6", true},
                   {"{F}=5,5 {T}=4,5", false},
                   {"{F}=5,5 {T}=6,4", false}},
                  words);
        AddFilled(cases, name + " Broke To Negative", length,
                  {{"{F}=5,5 {T}=6,4", true},
                   {"{F}=5,5 {T}=6,5", true},
                   {"{F}=5,5 {T}=5,4", false},
                   {"{F}=5,5 {T}=4,6", false}},
                  words);
    }
}

void AddVolumeAndChangeNames(Cases& cases) {
    for (const char* width : {"Tight", "Loose"}) {
        const std::map<std::string, std::string> words = {{"{W}", width}};
        AddFilled(cases, "Volume Above {W} UCL", 15,
                  {{"Volume=151 Volume{W}UCL=50 LRVolume=100", true},
                   {"Volume=150 Volume{W}UCL=50 LRVolume=100", false},
                   {"Volume=149 Volume{W}UCL=50 LRVolume=100", false}},
                  words);
    }
    for (const auto& [name, series] :
         {std::pair{"EPS ttm", "EPSttm"}, std::pair{"EPS est", "EPSest"}, std::pair{"PEG", "PEGRatio"},
          std::pair{"SPS", "SalesPerShare"}, std::pair{"E/S", "EarningsPerSales"}}) {
        const std::map<std::string, std::string> words = {{"{S}", series}};
        AddFilled(cases, std::string(name) + " Change Increase", 0,
                  {{"{S}=2,1", true}, {"{S}=1,1", false}, {"{S}=1,2", false}}, words);
        AddFilled(cases, std::string(name) + " Change Decrease", 0,
                  {{"{S}=1,2", true}, {"{S}=1,1", false}, {"{S}=2,1", false}}, words);
    }
}

Cases ComparingNames() {
    Cases cases;
    AddCloseNames(cases);
    AddBandNames(cases);
    AddAverageNames(cases);
    AddOscillatorNames(cases);
    AddDifferenceNames(cases);
    AddVolumeAndChangeNames(cases);
    return cases;
}

const char* const kPatterns[] = {"Bullish Abandoned Baby",
                                 "Bearish Abandoned Baby",
                                 "Bullish Morning Doji Star",
                                 "Bearish Evening Doji Star",
                                 "Bullish Morning Star",
                                 "Bearish Evening Star",
                                 "Bearish Kicking",
                                 "Bullish Matching Low",
                                 "Bullish Rising Three Methods",
                                 "Bearish Dark Cloud Cover",
                                 "Bullish Three White Soldiers",
                                 "Bearish Three Black Crows",
                                 "Shaven Bottom",
                                 "Shaven Head"};

TEST(NamedTest, EveryNameHoldsAndFailsAsItsFamilySays) {
    Scene scene;
    for (const NameCase& row : ComparingNames()) {
        for (const Situation& situation : row.situations) {
            scene.Show(situation.values);
            EXPECT_EQ(Word(EvaluateName(row.name, scene.Get())), situation.holds ? "True" : "False")
                << row.name << ": " << situation.values;
        }
    }
}

TEST(NamedTest, IsSkippedUpToItsGuardAndRunBeyond) {
    Scene scene;
    for (const NameCase& row : ComparingNames()) {
        if (row.guard == 0) continue;
        for (const Situation& situation : row.situations) {
            scene.Clear();
            scene.SetBar(row.guard);
            scene.Put(situation.values);
            EXPECT_EQ(Word(EvaluateName(row.name, scene.Get())), "") << row.name << ": " << situation.values;
            scene.Clear();
            scene.SetBar(row.guard + 1);
            scene.Put(situation.values);
            EXPECT_EQ(Word(EvaluateName(row.name, scene.Get())), situation.holds ? "True" : "False")
                << row.name << ": " << situation.values;
        }
    }
}

TEST(NamedTest, ANameWithoutGuardIsRunAtTheFirstBar) {
    Scene scene(1);
    for (const NameCase& row : ComparingNames()) {
        if (row.guard != 0) continue;
        for (const Situation& situation : row.situations) {
            scene.Show(situation.values);
            EXPECT_EQ(Word(EvaluateName(row.name, scene.Get())), situation.holds ? "True" : "False")
                << row.name << ": " << situation.values;
        }
    }
}

TEST(NamedTest, EveryNameHasSituationsOfBothKinds) {
    for (const NameCase& row : ComparingNames()) {
        std::set<bool> outcomes;
        for (const Situation& situation : row.situations) outcomes.insert(situation.holds);
        EXPECT_EQ(outcomes.size(), 2U) << row.name;
    }
}

TEST(NamedTest, FamiliesMakeUpTheCatalogueButForOneSpelling) {
    std::multiset<std::string> tested;
    for (const NameCase& row : ComparingNames()) tested.insert(row.name);
    tested.insert(std::begin(kAlwaysPassing), std::end(kAlwaysPassing));
    tested.insert(std::begin(kNeverHolding), std::end(kNeverHolding));
    tested.insert(std::begin(kPatterns), std::end(kPatterns));
    std::multiset<std::string> listed(ConditionNames().begin(), ConditionNames().end());
    listed.erase("Close Price Broke Above LR LooseUCL");
    listed.insert("Close Price Broke Above LR Loose UCL");
    EXPECT_EQ(tested, listed);
}

TEST(TestTable, HoldsEveryNameOnce) {
    std::multiset<std::string> known;
    for (const TestRow& row : NamedTests()) known.insert(row.name);
    std::multiset<std::string> listed(ConditionNames().begin(), ConditionNames().end());
    listed.erase("Close Price Broke Above LR LooseUCL");
    listed.insert("Close Price Broke Above LR Loose UCL");
    EXPECT_EQ(known, listed);
}

TEST(TestTable, MatchesTheNameInCaseAndBlanks) {
    EXPECT_NE(FindTest("MACD 15  Positive"), nullptr);
    for (const char* name :
         {"MACD 15 Positive", "macd 15  positive", " MACD 15  Positive", "MACD 15  Positive ", "", "Buy",
          "Close Price Broke Above LR LooseUCL", "MA15 above MA30", "MA180 Above MA15"})
        EXPECT_EQ(FindTest(name), nullptr) << name;
}

TEST(Catalogue, Holds488DistinctNamesInOrder) {
    const auto names = ConditionNames();
    EXPECT_EQ(names.size(), 488U);
    EXPECT_EQ(std::set<std::string_view>(names.begin(), names.end()).size(), 488U);
    EXPECT_EQ(names.front(), "Hit 52 Week Low");
    EXPECT_EQ(names[2], "Close Price Broke Above MA 15");
    EXPECT_EQ(names[25], "Close Price Below MA 180");
    EXPECT_EQ(names.back(), "E/S Change Decrease");
}

}  // namespace
}  // namespace brantlow
