#include "scene.h"

#include <charconv>
#include <map>
#include <stdexcept>

namespace brantlow {
namespace {

NumberSeries& SeriesNamed(std::string_view name, Analysis& a) {
#define STORED(x)                                    \
    {                                                \
#x, [](Analysis & b) { return &b.series.x; } \
    }
#define MADE(x)                                          \
    {                                                    \
#x, [](Analysis & b) { return &b.indicators.x; } \
    }
    using Getter = NumberSeries* (*)(Analysis&);
    static const std::map<std::string_view, Getter> kSeries = {STORED(ClosePrice),
                                                               STORED(LowPrice),
                                                               STORED(HighPrice),
                                                               STORED(OpenPrice),
                                                               STORED(Volume),
                                                               STORED(PERatio),
                                                               STORED(EPSttm),
                                                               STORED(PEGRatio),
                                                               STORED(EPSest),
                                                               STORED(Low52Week),
                                                               STORED(High52Week),
                                                               STORED(PriceToSales),
                                                               STORED(DividendPerShare),
                                                               MADE(MA15),
                                                               MADE(MA30),
                                                               MADE(MA60),
                                                               MADE(MA90),
                                                               MADE(MA120),
                                                               MADE(MA180),
                                                               MADE(WMA15),
                                                               MADE(WMA30),
                                                               MADE(WMA60),
                                                               MADE(WMA90),
                                                               MADE(WMA120),
                                                               MADE(WMA180),
                                                               MADE(MLR15),
                                                               MADE(MLR30),
                                                               MADE(MLR60),
                                                               MADE(MLR90),
                                                               MADE(MLR120),
                                                               MADE(MLRSlope15),
                                                               MADE(MLRSlope30),
                                                               MADE(MLRSlope60),
                                                               MADE(MLRSlope90),
                                                               MADE(MLRSlope120),
                                                               MADE(LooseUCL15),
                                                               MADE(LooseUCL30),
                                                               MADE(LooseUCL60),
                                                               MADE(LooseUCL90),
                                                               MADE(LooseUCL120),
                                                               MADE(LooseLCL15),
                                                               MADE(LooseLCL30),
                                                               MADE(LooseLCL60),
                                                               MADE(LooseLCL90),
                                                               MADE(LooseLCL120),
                                                               MADE(TightUCL15),
                                                               MADE(TightUCL30),
                                                               MADE(TightUCL60),
                                                               MADE(TightUCL90),
                                                               MADE(TightUCL120),
                                                               MADE(TightLCL15),
                                                               MADE(TightLCL30),
                                                               MADE(TightLCL60),
                                                               MADE(TightLCL90),
                                                               MADE(TightLCL120),
                                                               MADE(LRPrice),
                                                               MADE(LRVolume),
                                                               MADE(MLRDer15),
                                                               MADE(MLRDer30),
                                                               MADE(MLRDer60),
                                                               MADE(MLRDer90),
                                                               MADE(Momentum15),
                                                               MADE(Momentum30),
                                                               MADE(Momentum60),
                                                               MADE(RSI15),
                                                               MADE(RSI30),
                                                               MADE(McClellan15),
                                                               MADE(McClellan30),
                                                               MADE(Stochastic15),
                                                               MADE(Stochastic30),
                                                               MADE(Stochastic60),
                                                               MADE(Stochastic90),
                                                               MADE(MACD15),
                                                               MADE(MACD30),
                                                               MADE(PercentChange),
                                                               MADE(SalesPerShare),
                                                               MADE(EarningsPerSales)};
#undef STORED
#undef MADE
    return *kSeries.at(name)(a);
}

double* ScalarNamed(std::string_view name, Indicators& i) {
    const std::map<std::string_view, double*> scalars = {
        {"AverageVolume", &i.AverageVolume},   {"VolumeTightUCL", &i.VolumeTightUCL},
        {"VolumeLooseUCL", &i.VolumeLooseUCL}, {"LRSlope", &i.LRSlope},
        {"LRTightUCL", &i.LRTightUCL},         {"LRLooseUCL", &i.LRLooseUCL},
        {"LRTightLCL", &i.LRTightLCL},         {"LRLooseLCL", &i.LRLooseLCL}};
    const auto found = scalars.find(name);
    return found == scalars.end() ? nullptr : found->second;
}

template <class Number>
Number Read(std::string_view text) {
    Number number{};
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size())
        throw std::invalid_argument("no number: " + std::string(text));
    return number;
}

}  // namespace

void Scene::Clear() {
    for (const Written& place : written_) place.series->Set(place.bar, 0);
    for (double* scalar : scalars_) *scalar = 0;
    written_.clear();
    scalars_.clear();
}

void Scene::Show(std::string_view values) {
    Clear();
    Put(values);
}

void Scene::Put(std::string_view values) {
    while (!values.empty()) {
        const std::size_t end = values.find(' ');
        if (end != 0) PutWord(values.substr(0, end));
        values = end == std::string_view::npos ? std::string_view() : values.substr(end + 1);
    }
}

void Scene::PutWord(std::string_view word) {
    const std::size_t equals = word.find('=');
    std::string_view name = word.substr(0, equals);
    std::string_view list = word.substr(equals + 1);
    std::size_t bar = Bar();
    if (const std::size_t at = name.find_first_of("@#"); at != std::string_view::npos) {
        const auto offset = Read<std::size_t>(name.substr(at + 1));
        bar = name[at] == '@' ? bar - offset : offset;
        name = name.substr(0, at);
    }
    if (double* scalar = ScalarNamed(name, analysis_.indicators)) {
        *scalar = Read<double>(list);
        scalars_.push_back(scalar);
        return;
    }
    NumberSeries& series = SeriesNamed(name, analysis_);
    for (; !list.empty(); --bar) {
        const std::size_t comma = list.find(',');
        series.Set(bar, Read<double>(list.substr(0, comma)));
        written_.push_back({&series, bar});
        list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    }
}

}  // namespace brantlow
