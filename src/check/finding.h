// What the check of the database says of the files: one finding a fault, with file and line. The kinds are a
// table of words; check_run.h collects findings, the batch tool prints them and a window lists them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"

namespace brantlow {

enum class FindingKind : unsigned char {
    // Any file.
    Unreadable,
    NulBytes,
    TooManyLines,
    EmptyFile,
    Leftover,
    // Year files.
    YearFileName,
    CaseTwin,
    NoTable,
    EmptyRecord,
    HalfRecord,
    FieldCount,
    FieldUnquoted,
    DateUnreadable,
    TimeUnreadable,
    DividendDate,
    NumberUnreadable,
    WrongYear,
    OutOfOrder,
    SameRecordTwice,
    DayTwice,
    FutureDay,
    CloseNotPositive,
    VolumeNegative,
    NoDayRange,
    HighBelowLow,
    OutsideRange,
    SplitJump,
    FreshJump,
    MissingDays,
    // Tables.
    NoHeader,
    HeaderTwice,
    UnknownHeader,
    CellCount,
    EmptyRow,
    NoTicker,
    TickerTwice,
    TickerWithoutFiles,
    CellNoNumber,
    CellNoDate,
    // Settings and lists.
    ShortSettings,
    UnknownWord,
    NumberOutside,
    SettingNoTime,
    SettingNoDate,
    MarkerMissing,
    UnknownName,
    NameTwice,
    ConditionForm,
    RecentMissing,
    HostLine,
    ListLine,
    SplitLogLine,
    NoJson,
    NoDrawings,
    // Changes that can be undone.
    OpenChange,
    ChangeWithoutCopy,
    ChangeWithoutList,
};

// A fault keeps the program from reading what the file is to hold; a note is worth a look and may be right: a
// source's odd price, a day without trade, a history without a table.
enum class Grade : unsigned char { Fault, Note };

struct FindingRow {
    FindingKind kind;
    Grade grade;
    // With "{}" where the finding's own text belongs.
    std::string_view words;
};
const FindingRow& FindingRowOf(FindingKind kind);

// Whether a finding can be repaired without guessing.
enum class Mend : unsigned char { None, Possible, Done };

struct Finding {
    FindingKind kind{};
    Path file;
    std::size_t line = 0;  // from 1; 0 where the whole file is meant
    std::string detail;    // fills the row's words
    std::size_t more = 0;  // further lines of the file of which the same holds
    Mend mend = Mend::None;
    std::string ticker;  // of a year file
};

inline bool IsFault(const Finding& finding) {
    return FindingRowOf(finding.kind).grade == Grade::Fault;
}

// The finding in words: "03/02/26 stands behind 03/05/26 (and 2 further lines)".
std::string WordsOf(const Finding& finding);
// The file as a person reads it: below the application folder without that folder.
std::string ShownFile(const Finding& finding, const Path& appPath);
// "Quotes/EOD/KO.26:12: 03/02/26 stands behind 03/05/26", with "note: " before the words of a note and what a
// repair does behind them.
std::string FindingLine(const Finding& finding, const Path& appPath);

// The findings of one file: the first line of each kind, and how many further ones there are.
class FileFindings {
  public:
    FileFindings(Path file, std::string ticker) : file_(std::move(file)), ticker_(std::move(ticker)) {}
    explicit FileFindings(Path file) : FileFindings(std::move(file), {}) {}

    void Add(FindingKind kind, std::size_t line, std::string detail = {});
    bool Has(FindingKind kind) const;
    bool Empty() const { return findings_.empty(); }
    std::vector<Finding> Take() { return std::move(findings_); }

  private:
    Path file_;
    std::string ticker_;
    std::vector<Finding> findings_;
};

// Text of a file as it may stand in a line for a person: control characters as "?", a long one cut.
std::string InLine(std::string_view text);

}  // namespace brantlow
