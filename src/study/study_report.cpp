#include "study/study_report.h"

#include <fmt/format.h>

#include "shell/run_report.h"

namespace brantlow {

namespace {

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '<') {
            escaped += "&lt;";
        } else if (c == '&') {
            escaped += "&amp;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string TableRow(const std::vector<std::string>& cells, std::string_view tag) {
    std::string row = "<tr>";
    for (const std::string& cell : cells) row += fmt::format("<{0}>{1}</{0}>", tag, Escaped(cell));
    return row + "</tr>\n";
}

std::string Sentences(const ConditionStudy& study, const StudyTerms& terms, const StudyFigures& figures) {
    std::string text;
    for (const ConditionFigures& condition : figures.conditions) {
        if (condition.signals == 0) continue;
        text += fmt::format("<p><b>Condition {} ({})</b>, {}:", condition.condition,
                            Escaped(study.actions[condition.condition - 1]),
                            Counted(condition.signals, "signal", "signals"));
        for (std::size_t i = 0; i < terms.horizons.size(); ++i)
            text.append(" ").append(HorizonSentence(condition.horizons[i], figures.baseline[i],
                                                    terms.horizons[i], study.span.interval));
        text += "</p>\n";
    }
    return text;
}

constexpr std::string_view kStyle =
    "body { font-family: sans-serif; color: #1d2733; } h1, h2 { color: #24507f; } "
    "table { border-collapse: collapse; } th { background-color: #dbe5f1; } "
    "th, td { border: 1px solid #aab7c4; padding: 3px 7px; text-align: right; }";

}  // namespace

std::vector<std::string> StudyColumns(const ConditionStudy& study, const StudyTerms& terms,
                                      std::size_t detail) {
    std::vector<std::string> columns = {"Condition", "Action", "Signals", "Tickers"};
    for (const std::size_t horizon : terms.horizons)
        columns.push_back("Mean " + AfterText(horizon, study.span.interval));
    const std::string after = AfterText(terms.horizons[detail], study.span.interval);
    columns.insert(columns.end(), {"Above 0 " + after, "Any day's mean", "Excess", "Its error", "First half",
                                   "Second half"});
    return columns;
}

std::vector<std::string> StudyCells(const ConditionStudy& study, const StudyTerms& terms,
                                    const StudyFigures& figures, std::size_t condition, std::size_t detail) {
    const ConditionFigures& row = figures.conditions[condition - 1];
    std::vector<std::string> cells = {std::to_string(condition), study.actions[condition - 1],
                                      std::to_string(row.signals), std::to_string(row.tickers)};
    for (std::size_t i = 0; i < terms.horizons.size(); ++i)
        cells.push_back(PercentText(row.horizons[i].mean, true));
    const HorizonFigures& told = row.horizons[detail];
    const Mean& baseline = figures.baseline[detail];
    const std::optional<double> any = baseline.n == 0 ? std::nullopt : std::optional(baseline.mean);
    cells.insert(cells.end(), {PercentText(told.hit), PercentText(any, true), PercentText(told.excess, true),
                               PercentText(told.se), PercentText(told.firstHalf, true),
                               PercentText(told.secondHalf, true)});
    return cells;
}

std::string StudyReport(const std::string& file, const ConditionStudy& study, const StudyTerms& terms,
                        const StudyFigures& figures, std::size_t detail,
                        const std::vector<ReportPicture>& pictures,
                        const std::function<std::string(std::size_t)>& picture) {
    std::string html = fmt::format(
        "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>Study of the Conditions</title>\n"
        "<style>{}</style>\n</head>\n<body>\n<h1>Study of the Conditions</h1>\n",
        kStyle);
    html += fmt::format(
        "<p>{}, {}, {} to {}, {}. {} Bought at the close of the bar after a signal, costs {} % each "
        "time.</p>\n",
        Escaped(file), study.span.interval == Interval::Weekly ? "weekly" : "daily",
        FormatIsoDate(study.span.from), FormatIsoDate(study.span.to), CountedTickers(study.asked),
        JudgedWords(study), terms.cost);
    if (study.stopped)
        html += fmt::format("<p><b>Ended after {}: the figures are of these alone.</b></p>\n",
                            CountedTickers(study.tickers.size()));
    html += fmt::format("<p>{}</p>\n<table>\n", kStudyWarnings[0]);
    html += TableRow(StudyColumns(study, terms, detail), "th");
    for (std::size_t condition = 1; condition <= study.actions.size(); ++condition)
        html += TableRow(StudyCells(study, terms, figures, condition, detail), "td");
    html += fmt::format("</table>\n<p>{}</p>\n<h2>In words</h2>\n", kStudyWarnings[1]);
    html += Sentences(study, terms, figures);
    html += fmt::format("<p>{}</p>\n", kStudyWarnings[2]);
    for (std::size_t i = 0; i < pictures.size(); ++i)
        html += fmt::format("<h2>{}</h2>\n<p>{}</p>\n<p>{}</p>\n", Escaped(pictures[i].caption),
                            Escaped(pictures[i].words), picture(i));
    return html + "</body>\n</html>\n";
}

std::string StudyReportName(const Date& today) {
    return "Study " + FormatIsoDate(today) + ".html";
}

}  // namespace brantlow
