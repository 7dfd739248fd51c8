#include "selector/test_table.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

namespace brantlow {
namespace {

using Rows = std::vector<TestRow>;

// One sense of a comparison as names spell it.
struct Direction {
    std::string_view word;
    Relation relation;
};

constexpr std::array<Direction, 2> kDirections = {{{"Above", Relation::Above}, {"Below", Relation::Below}}};

// A line that names speak of with its length: "MA 15", or "MA15" among two averages.
struct Average {
    std::string_view kind;
    std::size_t length;
    IndicatorArray line;
};

template <std::size_t N>
std::vector<Average> AveragesOf(std::string_view kind, const std::array<IndicatorArray, N>& lines) {
    std::vector<Average> averages;
    for (std::size_t i = 0; i < N; ++i) averages.push_back({kind, kAverageLengths[i], lines[i]});
    return averages;
}

Quantity Close() {
    return {.stored = &WorkingSeries::ClosePrice};
}
Quantity LineOf(const Average& average) {
    return {.computed = average.line};
}
// The level of a band: its offset plus a regression line.
Quantity LevelOf(IndicatorArray offset, IndicatorArray line) {
    return {.computed = offset, .added = line};
}

void Add(Rows& rows, std::string name, const NamedTest& test, TestRemark remark = TestRemark::None) {
    rows.push_back({std::move(name), test, remark});
}

void AddFiftyTwoWeek(Rows& rows) {
    Add(rows, "Hit 52 Week Low",
        {.left = {.stored = &WorkingSeries::LowPrice},
         .relation = Relation::AtMost,
         .right = {.stored = &WorkingSeries::Low52Week}});
    Add(rows, "Hit 52 Week High",
        {.left = {.stored = &WorkingSeries::HighPrice},
         .relation = Relation::AtLeast,
         .right = {.stored = &WorkingSeries::High52Week}});
}

// "Close Price " and "Close Price Broke " against one line or level, in one direction.
void AddClosePair(Rows& rows, const Direction& direction, std::string_view target, const Quantity& level,
                  std::size_t guard) {
    Add(rows, fmt::format("Close Price {} {}", direction.word, target),
        {TestKind::Today, Close(), direction.relation, level, guard});
    Add(rows, fmt::format("Close Price Broke {} {}", direction.word, target),
        {TestKind::Crossing, Close(), direction.relation, level, guard});
}

void AddCloseAgainstAverages(Rows& rows, const std::vector<Average>& averages) {
    for (const Average& average : averages)
        for (const Direction& direction : kDirections)
            AddClosePair(rows, direction, fmt::format("{} {}", average.kind, average.length), LineOf(average),
                         average.length);
}

// One side of a moving band: names look above an upper limit and below a lower one.
struct BandSide {
    std::string_view width;
    std::string_view limit;
    Direction direction;
    std::array<IndicatorArray, 5> offsets;
};

constexpr std::array<BandSide, 4> kBandSides = {{{"Loose", "UCL", kDirections[0], kLooseUCL},
                                                 {"Loose", "LCL", kDirections[1], kLooseLCL},
                                                 {"Tight", "UCL", kDirections[0], kTightUCL},
                                                 {"Tight", "LCL", kDirections[1], kTightLCL}}};

void AddCloseAgainstBands(Rows& rows) {
    for (const BandSide& side : kBandSides) {
        for (std::size_t i = 0; i < kRegressionLengths.size(); ++i) {
            const std::size_t length = kRegressionLengths[i];
            const Quantity level = LevelOf(side.offsets[i], kMLR[i]);
            const std::string target = fmt::format("{} MLR {} {}", side.width, length, side.limit);
            AddClosePair(rows, side.direction, target, level, length);
            Add(rows, fmt::format("Close Price {} {} 10 Days", side.direction.word, target),
                {TestKind::WithinTenBars, Close(), side.direction.relation, level, length});
        }
    }
}

// The offsets of the whole-window bands are single numbers, yet these names ask for them bar by bar. That
// fails, and condition sets count on the outcome. "Close Price Broke Above LR Loose UCL" is
// not in the catalogue, which spells it "LR LooseUCL"; that spelling has no test.
struct WindowBand {
    std::string_view target;
    Relation relation;
    WindowScalar offset;
};
constexpr std::array<WindowBand, 4> kWindowBands = {
    {{"Above LR Tight UCL", Relation::Above, &Indicators::LRTightUCL},
     {"Below LR Tight LCL", Relation::Below, &Indicators::LRTightLCL},
     {"Above LR Loose UCL", Relation::Above, &Indicators::LRLooseUCL},
     {"Below LR Loose LCL", Relation::Below, &Indicators::LRLooseLCL}}};

void AddCloseAgainstWindowLine(Rows& rows) {
    for (const Direction& direction : kDirections)
        AddClosePair(rows, direction, "LR Price", {.computed = &Indicators::LRPrice}, kNoGuard);
    for (const WindowBand& band : kWindowBands) {
        const NamedTest test = {TestKind::NeverComputes,
                                Close(),
                                band.relation,
                                {.computed = &Indicators::LRPrice, .scalar = band.offset}};
        Add(rows, fmt::format("Close Price {}", band.target), test, TestRemark::AlwaysHolds);
        Add(rows, fmt::format("Close Price Broke {}", band.target), test, TestRemark::AlwaysHolds);
    }
}

// This one test alone waits for far more bars than a window holds by default.
constexpr std::string_view kLongGuardName = "WMA60 Above MA60";
constexpr std::size_t kLongGuard = 600;

void AddAveragePair(Rows& rows, const Average& left, const Average& right) {
    for (const Direction& direction : kDirections) {
        std::string name =
            fmt::format("{}{} {} {}{}", left.kind, left.length, direction.word, right.kind, right.length);
        const bool isLong = name == kLongGuardName;
        const std::size_t guard = isLong ? kLongGuard : std::max(left.length, right.length);
        Add(rows, std::move(name), {TestKind::Today, LineOf(left), direction.relation, LineOf(right), guard},
            isLong ? TestRemark::NeverRuns : TestRemark::None);
    }
}

// The averages of 15, 30 and 60 bars stand on the left. Within a kind the right one is longer; across kinds
// every length stands on the right.
constexpr std::size_t kLongestLeft = 60;

void AddAveragesAgainst(Rows& rows, const std::vector<Average>& lefts, const std::vector<Average>& rights) {
    for (const Average& left : lefts) {
        if (left.length > kLongestLeft) continue;
        for (const Average& right : rights)
            if (left.kind != right.kind || left.length < right.length) AddAveragePair(rows, left, right);
    }
}

// The Tight bands of 60 and 90 against the longest averages. Those of 90 are laid on the line of 60:
// condition sets count on that outcome.
struct TightBand {
    std::size_t length;
    IndicatorArray lower;
    IndicatorArray upper;
};

constexpr std::array<TightBand, 2> kTightBands = {{{60, &Indicators::TightLCL60, &Indicators::TightUCL60},
                                                   {90, &Indicators::TightLCL90, &Indicators::TightUCL90}}};

void AddBandsAgainstAverages(Rows& rows, const std::vector<Average>& longAverages) {
    for (const TightBand& band : kTightBands) {
        for (const Average& average : longAverages) {
            const std::string target = fmt::format("{}{}", average.kind, average.length);
            const std::size_t guard = std::max(band.length, average.length);
            Add(rows, fmt::format("Tight MLR {} LCL Above {}", band.length, target),
                {TestKind::Today, LevelOf(band.lower, &Indicators::MLR60), Relation::Above, LineOf(average),
                 guard});
            Add(rows, fmt::format("Tight MLR {} UCL Below {}", band.length, target),
                {TestKind::Today, LevelOf(band.upper, &Indicators::MLR60), Relation::Below, LineOf(average),
                 guard});
        }
    }
}

constexpr std::size_t kShortGuard = 15;

void AddVolumeLimits(Rows& rows) {
    const Quantity volume = {.stored = &WorkingSeries::Volume};
    Add(rows, "Volume Above Tight UCL",
        {TestKind::Today,
         volume,
         Relation::Above,
         {.computed = &Indicators::LRVolume, .scalar = &Indicators::VolumeTightUCL},
         kShortGuard});
    Add(rows, "Volume Above Loose UCL",
        {TestKind::Today,
         volume,
         Relation::Above,
         {.computed = &Indicators::LRVolume, .scalar = &Indicators::VolumeLooseUCL},
         kShortGuard});
}

// What a name says of a series, behind the series' own name.
struct SeriesState {
    std::string_view words;
    TestKind kind;
    Relation relation;
};

// The derivatives are strict at zero on both sides; everywhere else zero counts as positive.
constexpr std::array<SeriesState, 4> kStrictSigns = {
    {{" Broke To Positive", TestKind::Crossing, Relation::Above},
     {" Broke To Negative", TestKind::Crossing, Relation::Below},
     {" Positive", TestKind::Today, Relation::Above},
     {" Negative", TestKind::Today, Relation::Below}}};
constexpr std::array<SeriesState, 2> kBreaks = {
    {{" Broke To Positive", TestKind::Crossing, Relation::AtLeast},
     {" Broke To Negative", TestKind::Crossing, Relation::Below}}};
constexpr std::array<SeriesState, 2> kSigns = {
    {{" Positive", TestKind::Today, Relation::AtLeast}, {" Negative", TestKind::Today, Relation::Below}}};
constexpr std::array<SeriesState, 2> kTrends = {{{" Increasing", TestKind::FromYesterday, Relation::Above},
                                                 {" Decreasing", TestKind::FromYesterday, Relation::Below}}};
// Of all trends only those of the regression differences take equal as increasing.
constexpr std::array<SeriesState, 2> kDifferenceTrends = {
    {{" Increasing", TestKind::FromYesterday, Relation::AtLeast},
     {" Decreasing", TestKind::FromYesterday, Relation::Below}}};
constexpr std::array<SeriesState, 2> kChanges = {
    {{" Change Increase", TestKind::FromYesterday, Relation::Above},
     {" Change Decrease", TestKind::FromYesterday, Relation::Below}}};

struct SeriesRow {
    std::string_view name;
    Quantity series;
    std::size_t guard;
    std::span<const SeriesState> states;
    TestRemark remark = TestRemark::None;
};

constexpr Quantity Of(IndicatorArray series) {
    return {.computed = series};
}
constexpr Quantity Difference(IndicatorArray from, IndicatorArray taken) {
    return {.computed = from, .subtracted = taken};
}
constexpr Quantity Stored(StoredArray series) {
    return {.stored = series};
}

using I = Indicators;
using W = WorkingSeries;

// Kept oddities: the breaks of the difference 30 take a line from itself and so never hold, those of 60 take
// the line of 30 in place of that of 90, the difference 15 does not wait for the line of 30, and four names
// of MACD 15 have two blanks.
constexpr SeriesRow kSeriesRows[] = {
    {"MLR Der 15", Of(&I::MLRDer15), 15, kStrictSigns},
    {"MLR Der 15", Of(&I::MLRDer15), 15, kTrends},
    {"MLR Der 30", Of(&I::MLRDer30), 30, kStrictSigns},
    {"MLR Der 30", Of(&I::MLRDer30), 30, kTrends},
    {"MLR Der 60", Of(&I::MLRDer60), 60, kStrictSigns},
    {"MLR Der 60", Of(&I::MLRDer60), 60, kTrends},
    {"MLR Der 90", Of(&I::MLRDer90), 90, kStrictSigns},
    {"MLR Der 90", Of(&I::MLRDer90), 90, kTrends},
    {"MLR Dif 15", Difference(&I::MLR15, &I::MLR30), 15, kBreaks},
    {"MLR Dif 15", Difference(&I::MLR15, &I::MLR30), 15, kSigns},
    {"MLR Dif 15", Difference(&I::MLR15, &I::MLR30), 15, kDifferenceTrends},
    {"MLR Dif 30", Difference(&I::MLR30, &I::MLR30), 30, kBreaks, TestRemark::NeverHolds},
    {"MLR Dif 30", Difference(&I::MLR30, &I::MLR60), 30, kSigns},
    {"MLR Dif 30", Difference(&I::MLR30, &I::MLR60), 30, kDifferenceTrends},
    {"MLR Dif 60", Difference(&I::MLR60, &I::MLR30), 60, kBreaks},
    {"MLR Dif 60", Difference(&I::MLR60, &I::MLR90), 60, kSigns},
    {"MLR Dif 60", Difference(&I::MLR60, &I::MLR90), 60, kDifferenceTrends},
    {"Momentum 15", Of(&I::Momentum15), 15, kBreaks},
    {"Momentum 15", Of(&I::Momentum15), 15, kSigns},
    {"Momentum 15", Of(&I::Momentum15), 15, kTrends},
    {"Momentum 30", Of(&I::Momentum30), 30, kBreaks},
    {"Momentum 30", Of(&I::Momentum30), 30, kSigns},
    {"Momentum 30", Of(&I::Momentum30), 30, kTrends},
    {"Momentum 60", Of(&I::Momentum60), 60, kBreaks},
    {"Momentum 60", Of(&I::Momentum60), 60, kSigns},
    {"Momentum 60", Of(&I::Momentum60), 60, kTrends},
    {"McClellan Oscillator 15", Of(&I::McClellan15), 15, kBreaks},
    {"McClellan Oscillator 15", Of(&I::McClellan15), 15, kSigns},
    {"McClellan Oscillator 15", Of(&I::McClellan15), 15, kTrends},
    {"McClellan Oscillator 30", Of(&I::McClellan30), 30, kBreaks},
    {"McClellan Oscillator 30", Of(&I::McClellan30), 30, kSigns},
    {"McClellan Oscillator 30", Of(&I::McClellan30), 30, kTrends},
    {"Stochastic 15", Of(&I::Stochastic15), 15, kSigns, TestRemark::NearConstant},
    {"Stochastic 15", Of(&I::Stochastic15), 15, kTrends},
    {"Stochastic 30", Of(&I::Stochastic30), 30, kSigns, TestRemark::NearConstant},
    {"Stochastic 30", Of(&I::Stochastic30), 30, kTrends},
    {"Stochastic 60", Of(&I::Stochastic60), 60, kSigns, TestRemark::NearConstant},
    {"Stochastic 60", Of(&I::Stochastic60), 60, kTrends},
    {"Stochastic 90", Of(&I::Stochastic90), 90, kSigns, TestRemark::NearConstant},
    {"Stochastic 90", Of(&I::Stochastic90), 90, kTrends},
    {"MACD 15 ", Of(&I::MACD15), 15, kBreaks},
    {"MACD 15 ", Of(&I::MACD15), 15, kSigns},
    {"MACD 15", Of(&I::MACD15), 15, kTrends},
    {"MACD 30", Of(&I::MACD30), 30, kBreaks},
    {"MACD 30", Of(&I::MACD30), 30, kSigns},
    {"MACD 30", Of(&I::MACD30), 30, kTrends},
    {"EPS ttm", Stored(&W::EPSttm), kNoGuard, kChanges},
    {"EPS est", Stored(&W::EPSest), kNoGuard, kChanges},
    {"PEG", Stored(&W::PEGRatio), kNoGuard, kChanges},
    {"SPS", Of(&I::SalesPerShare), kNoGuard, kChanges},
    {"E/S", Of(&I::EarningsPerSales), kNoGuard, kChanges},
};

void AddSeriesStates(Rows& rows) {
    for (const SeriesRow& row : kSeriesRows)
        for (const SeriesState& state : row.states)
            Add(rows, fmt::format("{}{}", row.name, state.words),
                {state.kind, row.series, state.relation, {}, row.guard}, row.remark);
}

struct LimitRow {
    std::string_view name;
    IndicatorArray series;
    Relation relation;
    double limit;
    std::size_t guard;
};

constexpr LimitRow kRsiRows[] = {
    {"RSI 15 Above 70", &I::RSI15, Relation::Above, 70, 15},
    {"RSI 15 Below 30", &I::RSI15, Relation::Below, 30, 15},
    {"RSI 30 Above 65", &I::RSI30, Relation::Above, 65, 30},
    {"RSI 30 Below 35", &I::RSI30, Relation::Below, 35, 30},
};

void AddRelativeStrength(Rows& rows) {
    for (const LimitRow& row : kRsiRows)
        Add(rows, std::string(row.name),
            {TestKind::Today, Of(row.series), row.relation, {.constant = row.limit}, row.guard});
}

// The extreme that these names speak of is not handed to the evaluator: it is 0 there, and three quarters of
// it are too.
struct ExtremeRow {
    std::string_view name;
    std::string_view extreme;
    IndicatorArray series;
    std::size_t guard;
};

constexpr ExtremeRow kExtremeRows[] = {
    {"MLR Der 15", "MLR 15", &I::MLRDer15, 15},
    {"MLR Der 30", "MLR 30", &I::MLRDer30, 30},
    {"MLR Der 60", "MLR 60", &I::MLRDer60, 60},
    {"MLR Der 90", "MLR 90", &I::MLRDer90, 90},
    {"Momentum 15", "Momentum 15", &I::Momentum15, 15},
    {"Momentum 30", "Momentum 30", &I::Momentum30, 30},
    {"Momentum 60", "Momentum 60", &I::Momentum60, 60},
    {"McClellanOscillator 15", "McClellanOscillator 15", &I::McClellan15, 15},
    {"McClellanOscillator 30", "McClellanOscillator 30", &I::McClellan30, 30},
    {"MACD 15", "MACD 15", &I::MACD15, 15},
    {"MACD 30", "MACD 30", &I::MACD30, 30},
};

void AddSharesOfExtremes(Rows& rows) {
    for (const ExtremeRow& row : kExtremeRows) {
        Add(rows, fmt::format("{} > 75% {} Max", row.name, row.extreme),
            {TestKind::Today, Of(row.series), Relation::Above, {}, row.guard}, TestRemark::SignOnly);
        Add(rows, fmt::format("{} < 75% {} Min", row.name, row.extreme),
            {TestKind::Today, Of(row.series), Relation::Below, {}, row.guard}, TestRemark::SignOnly);
    }
}

void AddCandlePatterns(Rows& rows) {
    for (const CandlePattern& pattern : CandlePatterns())
        Add(rows, std::string(pattern.name),
            {.kind = TestKind::Pattern, .guard = kShortGuard, .pattern = &pattern});
}

Rows BuildRows() {
    Rows rows;
    const std::vector<Average> simple = AveragesOf("MA", kMA);
    const std::vector<Average> weighted = AveragesOf("WMA", kWMA);
    const std::vector<Average> regression = AveragesOf("MLR", kMLR);
    AddFiftyTwoWeek(rows);
    for (const auto* averages : {&simple, &weighted, &regression}) AddCloseAgainstAverages(rows, *averages);
    AddCloseAgainstBands(rows);
    AddCloseAgainstWindowLine(rows);
    for (const auto& [left, right] : {std::pair{&simple, &simple}, std::pair{&weighted, &weighted},
                                      std::pair{&weighted, &simple}, std::pair{&regression, &regression},
                                      std::pair{&regression, &simple}, std::pair{&regression, &weighted}})
        AddAveragesAgainst(rows, *left, *right);
    AddBandsAgainstAverages(rows, {simple[4], simple[5], weighted[4], weighted[5], regression[4]});
    AddVolumeLimits(rows);
    AddSeriesStates(rows);
    AddRelativeStrength(rows);
    AddSharesOfExtremes(rows);
    AddCandlePatterns(rows);
    return rows;
}

const Rows& TestRows() {
    static const Rows rows = BuildRows();
    return rows;
}

std::unordered_map<std::string_view, const TestRow*> IndexByName(const Rows& rows) {
    std::unordered_map<std::string_view, const TestRow*> index;
    for (const TestRow& row : rows) index.emplace(row.name, &row);
    return index;
}

}  // namespace

std::span<const TestRow> NamedTests() {
    return TestRows();
}

const TestRow* FindTestRow(std::string_view name) {
    static const auto index = IndexByName(TestRows());
    const auto found = index.find(name);
    return found == index.end() ? nullptr : found->second;
}

const NamedTest* FindTest(std::string_view name) {
    const TestRow* const row = FindTestRow(name);
    return row == nullptr ? nullptr : &row->test;
}

}  // namespace brantlow
