// The names of the files that a person opens and saves, and what a name says about the file.
//
// The kind of a table stands nowhere but at the end of its name. CurrentFile is a name relative to the Data
// folder; the windows and the batch tool cut it from a chosen path with CutCurrentFile.
#pragma once

#include <string>
#include <string_view>

#include "base/dates.h"
#include "base/files.h"
#include "shell/file_kind.h"

namespace brantlow {

// The template of a new table; it is read and never written.
inline constexpr std::string_view kNewTableName = "New EOD Quotes.db";
// Working names: every selector run and every collection overwrites them.
inline constexpr std::string_view kEvaluationsName = "Evaluations.dbe";
inline constexpr std::string_view kFundamentalsName = "ExtendedFundamentals.efq";

// The name that Save proposes: the open file's, empty for the template.
std::string SaveName(std::string_view currentFile);
// The name that Save As proposes: the open file's for a quote table, "SS" or "EF" with the day for a selector
// run or a collection, empty for the template and for a name without a kind.
std::string SaveAsName(std::string_view currentFile, const Date& today);
// The name that a finished collection of fundamentals takes: the day and ".efq".
std::string CollectedFundamentalsName(const Date& today);
// The filter of the Save dialogs; empty for a name without a kind.
std::string_view SaveFilter(FileKind kind);

// A day as it can stand in a file name: "mm-dd-yy".
std::string DayInFileName(const Date& date);

// A chosen file as CurrentFile, or the sentence that refuses it.
struct ChosenFile {
    std::string CurrentFile;  // relative to Data/, with the platform's separators; empty when refused
    std::string refusal;
};

// Takes <appPath>/Data/ away from the front of `chosen`; a file of a folder below Data keeps that folder's
// name. A path outside the Data folder, links and ".." followed, is refused.
ChosenFile CutCurrentFile(const Path& appPath, const Path& chosen);

}  // namespace brantlow
