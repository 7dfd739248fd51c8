// The row of the command table for the chart's picture.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "batch/command.h"

namespace brantlow {

std::optional<std::string> RefuseStyle(std::string_view text);
std::optional<std::string> RefusePriceSeries(std::string_view text);
std::optional<std::string> RefuseStudy(std::string_view text);
std::optional<std::string> RefuseVolumeSeries(std::string_view text);
std::optional<std::string> RefusePicture(std::string_view text);

inline constexpr std::array<CommandOption, 6> kChartOptions = {{
    {"--style", "STYLE", "default (high, low, close) or candlestick; the settings' own without it",
     RefuseStyle},
    kIntervalOption,
    {"--series", "LIST", "up to seven series of the price panel in place of the settings' own",
     RefusePriceSeries},
    {"--study", "NAME", "the study; \"MLR Der 30\" without it", RefuseStudy},
    {"--volume", "LIST", "up to six series of the volume panel", RefuseVolumeSeries},
    {kOutOption, "FILE", "the picture's file, .svg or .png, always asked for; - prints its lines as JSON",
     RefusePicture},
}};
ExitStatus RunChart(BatchCall& call);
inline constexpr Command kChartCommand = {
    .name = "chart",
    .usage = "TICKER",
    .operand = "TICKER",
    .fewestOperands = 1,
    .mostOperands = 1,
    .options = kChartOptions,
    .summary = "Draws a ticker's chart into a picture file",
    .help =
        R"(The three panels of the chart window with their labels. A LIST holds names as the window's lists have
them, with commas between: --series "Price,MA 30". With --out - the picture is one JSON object: for
each panel its lines and circles in drawing order, in twips, the texts of its labels, and the colours
of those that have one.
)",
    .settings = kChartSettings,
    .run = RunChart,
};

}  // namespace brantlow
