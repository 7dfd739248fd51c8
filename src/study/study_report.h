// The report of a study as one HTML page with its pictures: what was asked, a table of the conditions, what
// followed each in words, the warnings. The study window saves it in Data/ and prints it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "study/study_figures.h"
#include "study/study_words.h"

namespace brantlow {

// One row of the table of conditions, as texts in the order of StudyColumns.
std::vector<std::string> StudyColumns(const ConditionStudy& study, const StudyTerms& terms,
                                      std::size_t detail);
std::vector<std::string> StudyCells(const ConditionStudy& study, const StudyTerms& terms,
                                    const StudyFigures& figures, std::size_t condition, std::size_t detail);

struct ReportPicture {
    std::string caption;
    std::string svg;
    std::string words = {};  // above the picture
};

// `picture` makes the markup of a picture; for a file its SVG stands in the page itself. `detail` is the
// place of the horizon whose shares, excess and halves are told.
std::string StudyReport(const std::string& file, const ConditionStudy& study, const StudyTerms& terms,
                        const StudyFigures& figures, std::size_t detail,
                        const std::vector<ReportPicture>& pictures,
                        const std::function<std::string(std::size_t)>& picture);

// "Study 2026-11-21.html".
std::string StudyReportName(const Date& today);

}  // namespace brantlow
