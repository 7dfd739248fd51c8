// The JSON lines of the study command.
#pragma once

#include <string>

#include "batch/command.h"
#include "study/portfolio.h"
#include "study/study_figures.h"

namespace brantlow {

// The figures of all conditions.
std::string StudyLine(const std::string& file, const ConditionStudy& study, const StudyTerms& terms);

// The equity curve of one condition beside holding all tickers.
std::string PortfolioLine(const std::string& file, const ConditionStudy& study, const PortfolioTerms& terms);

}  // namespace brantlow
