#include "study/study_picture.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace brantlow {

namespace {

constexpr double kWidth = 640;
constexpr double kHeight = 300;
constexpr double kLeft = 60;
constexpr double kRight = 16;
constexpr double kTop = 28;
constexpr double kBottom = 34;
constexpr int kRows = 5;

// One line of a picture with its name.
struct Curve {
    std::string_view name;
    std::string_view colour;
    std::vector<double> values;  // by place from the left; NaN where there is none
};

class Plot {
  public:
    Plot(std::size_t places, double low, double high, const PictureColours& colours)
        : places_(places), low_(low), high_(high), colours_(colours) {
        if (!(high_ > low_)) high_ = low_ + 1;
        const double air = (high_ - low_) / 20;
        low_ -= air;
        high_ += air;
        text_ = fmt::format(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 {0} {1}\" width=\"{0}\" height=\"{1}\" "
            "font-family=\"sans-serif\" font-size=\"11\"><rect width=\"{0}\" height=\"{1}\" "
            "fill=\"{2}\"/>\n",
            kWidth, kHeight, colours_.ground);
    }

    double X(std::size_t place) const {
        const double steps = static_cast<double>(std::max<std::size_t>(places_, 2) - 1);
        return kLeft + (kWidth - kLeft - kRight) * static_cast<double>(place) / steps;
    }
    double Y(double value) const {
        return kTop + (kHeight - kTop - kBottom) * (high_ - value) / (high_ - low_);
    }

    void Rows(std::string_view unit) {
        for (int row = 0; row <= kRows; ++row) {
            const double value = low_ + (high_ - low_) * row / kRows;
            text_ += fmt::format(
                "<line x1=\"{}\" y1=\"{:.1f}\" x2=\"{}\" y2=\"{:.1f}\" stroke=\"{}\"/>"
                "<text x=\"{}\" y=\"{:.1f}\" fill=\"{}\" text-anchor=\"end\">{:.2f}{}</text>\n",
                kLeft, Y(value), kWidth - kRight, Y(value), colours_.grid, kLeft - 4, Y(value) + 4,
                colours_.words, value, unit);
        }
    }
    void Below(std::size_t place, std::string_view words) {
        text_ += fmt::format("<text x=\"{:.1f}\" y=\"{}\" fill=\"{}\" text-anchor=\"middle\">{}</text>\n",
                             X(place), kHeight - kBottom + 16, colours_.words, words);
    }
    void Band(const std::vector<double>& lower, const std::vector<double>& upper) {
        std::string points;
        for (std::size_t i = 0; i < upper.size(); ++i)
            if (std::isfinite(upper[i])) points += fmt::format("{:.1f},{:.1f} ", X(i), Y(upper[i]));
        for (std::size_t i = lower.size(); i-- > 0;)
            if (std::isfinite(lower[i])) points += fmt::format("{:.1f},{:.1f} ", X(i), Y(lower[i]));
        text_ += fmt::format("<polygon points=\"{}\" fill=\"{}\" fill-opacity=\"0.15\"/>\n", points,
                             colours_.signals);
    }
    void Draw(const Curve& curve) {
        std::string points;
        for (std::size_t i = 0; i < curve.values.size(); ++i)
            if (std::isfinite(curve.values[i]))
                points += fmt::format("{:.1f},{:.1f} ", X(i), Y(curve.values[i]));
        text_ += fmt::format("<polyline points=\"{}\" fill=\"none\" stroke=\"{}\" stroke-width=\"2\"/>\n",
                             points, curve.colour);
        text_ += fmt::format("<text x=\"{}\" y=\"16\" fill=\"{}\">{}</text>\n", kLeft + legend_, curve.colour,
                             curve.name);
        legend_ += kLegendStep;
    }
    std::string Text() && { return std::move(text_) + "</svg>\n"; }

  private:
    static constexpr double kLegendStep = 240;

    std::size_t places_;
    double low_;
    double high_;
    PictureColours colours_;
    double legend_ = 0;
    std::string text_;
};

struct Range {
    double low = 0;
    double high = 0;
    void Take(const std::vector<double>& values) {
        for (const double value : values) {
            if (!std::isfinite(value)) continue;
            low = std::min(low, value);
            high = std::max(high, value);
        }
    }
};

}  // namespace

std::string PathPicture(const std::vector<PathPoint>& path, Interval interval,
                        const PictureColours& colours) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    Curve mean{"after a signal, with two errors", colours.signals, {}};
    Curve any{"any day", colours.baseline, {}};
    std::vector<double> lower;
    std::vector<double> upper;
    for (const PathPoint& point : path) {
        const double value = point.signals.mean ? *point.signals.mean * kPercent : kNone;
        const double error = point.signals.se.value_or(0) * 2 * kPercent;
        mean.values.push_back(value);
        lower.push_back(value - error);
        upper.push_back(value + error);
        any.values.push_back(point.baseline.n == 0 ? kNone : point.baseline.mean * kPercent);
    }
    Range range;
    for (const auto* values : {&lower, &upper, &any.values}) range.Take(*values);
    Plot plot(path.size(), range.low, range.high, colours);
    plot.Rows(" %");
    constexpr std::size_t kStep = 10;
    const std::string_view unit = interval == Interval::Weekly ? "weeks" : "days";
    for (std::size_t i = 0; i < path.size(); i += kStep)
        plot.Below(i, i == 0 ? fmt::format("0 {}", unit) : std::to_string(i));
    plot.Band(lower, upper);
    plot.Draw(mean);
    plot.Draw(any);
    return std::move(plot).Text();
}

std::string EquityPicture(const ConditionStudy& study, const Portfolio& portfolio,
                          const PictureColours& colours) {
    const Curve equity{"the signals, a few at a time", colours.signals, portfolio.equity};
    const Curve all{"all tickers, held", colours.baseline, portfolio.benchmark};
    Range range{1, 1};
    range.Take(equity.values);
    range.Take(all.values);
    Plot plot(portfolio.dates.size(), range.low, range.high, colours);
    plot.Rows("");
    const std::size_t places = portfolio.dates.size();
    constexpr std::size_t kParts = 4;
    for (std::size_t part = 0; part <= kParts && places > 0; ++part) {
        const std::size_t place = (places - 1) * part / kParts;
        plot.Below(place, FormatIsoDate(study.DateOf(portfolio.dates[place])));
    }
    plot.Draw(equity);
    plot.Draw(all);
    return std::move(plot).Text();
}

}  // namespace brantlow
