#include "check/finding.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "shell/run_report.h"

namespace brantlow {

namespace {

constexpr auto kFindingRows = std::to_array<FindingRow>({
    {FindingKind::Unreadable, Grade::Fault, "cannot be read ({})"},
    {FindingKind::NulBytes, Grade::Fault, "holds bytes of value 0"},
    {FindingKind::TooManyLines, Grade::Fault, "lines behind the 18,000th are not read"},
    {FindingKind::EmptyFile, Grade::Fault, "the file is empty"},
    {FindingKind::Leftover, Grade::Fault, "was left unfinished by a program that has ended"},
    {FindingKind::YearFileName, Grade::Note, "is no file of the quote database, by its name"},
    {FindingKind::CaseTwin, Grade::Note, "differs from {} by small and capital letters alone"},
    {FindingKind::NoTable, Grade::Note, "no quote table holds the ticker {}"},
    {FindingKind::EmptyRecord, Grade::Fault, "an empty line"},
    {FindingKind::HalfRecord, Grade::Fault, "the last line was cut off"},
    {FindingKind::FieldCount, Grade::Fault, "{} fields instead of 19"},
    {FindingKind::FieldUnquoted, Grade::Fault, "{} stands in no double quotes"},
    {FindingKind::DateUnreadable, Grade::Fault, "'{}' is no date mm/dd/yy"},
    {FindingKind::TimeUnreadable, Grade::Fault, "'{}' is no time hh:mm"},
    {FindingKind::DividendDate, Grade::Note, "{} is no date mm/dd/yy"},
    {FindingKind::NumberUnreadable, Grade::Fault, "{} is no number"},
    {FindingKind::WrongYear, Grade::Fault, "{} belongs into the file of another year"},
    {FindingKind::OutOfOrder, Grade::Fault, "{}"},
    {FindingKind::SameRecordTwice, Grade::Fault, "the same line for {} once more"},
    {FindingKind::DayTwice, Grade::Fault, "another line for {}"},
    {FindingKind::FutureDay, Grade::Fault, "{} is still to come"},
    {FindingKind::CloseNotPositive, Grade::Fault, "the close is {}"},
    {FindingKind::VolumeNegative, Grade::Fault, "the volume is {}"},
    {FindingKind::NoDayRange, Grade::Note, "the day's low is {}"},
    {FindingKind::HighBelowLow, Grade::Note, "the high {} is below the low"},
    {FindingKind::OutsideRange, Grade::Note, "{} is not between the day's low and high"},
    {FindingKind::SplitJump, Grade::Fault, "the price jumps as after a split of {} that was not restated"},
    {FindingKind::FreshJump, Grade::Note,
     "the price jumps as after a split of {}; the split calendar may restate it yet"},
    {FindingKind::MissingDays, Grade::Note, "{}"},
    {FindingKind::NoHeader, Grade::Fault, "the first line names no column of this kind of file"},
    {FindingKind::HeaderTwice, Grade::Fault, "the column {} stands twice"},
    {FindingKind::UnknownHeader, Grade::Note, "the column {} is not known"},
    {FindingKind::CellCount, Grade::Fault, "{}"},
    {FindingKind::EmptyRow, Grade::Fault, "an empty line"},
    {FindingKind::NoTicker, Grade::Fault, "the line has no ticker"},
    {FindingKind::TickerTwice, Grade::Note, "{}"},
    {FindingKind::TickerWithoutFiles, Grade::Note, "{} can have no files in the quote database"},
    {FindingKind::CellNoNumber, Grade::Fault, "{} is no number"},
    {FindingKind::CellNoDate, Grade::Note, "{} is no date mm/dd/yy"},
    {FindingKind::ShortSettings, Grade::Note, "{}"},
    {FindingKind::UnknownWord, Grade::Fault, "{}"},
    {FindingKind::NumberOutside, Grade::Fault, "{}"},
    {FindingKind::SettingNoTime, Grade::Fault, "{}"},
    {FindingKind::SettingNoDate, Grade::Fault, "{}"},
    {FindingKind::MarkerMissing, Grade::Fault, "the line \"{}\" is missing"},
    {FindingKind::UnknownName, Grade::Fault, "{}"},
    {FindingKind::NameTwice, Grade::Fault, "\"{}\" stands twice"},
    {FindingKind::ConditionForm, Grade::Fault, "{}"},
    {FindingKind::RecentMissing, Grade::Note, "the recent file {} is not in Data"},
    {FindingKind::HostLine, Grade::Fault, "'{}' gives no host an address"},
    {FindingKind::ListLine, Grade::Fault, "'{}' is no ticker in double quotes"},
    {FindingKind::SplitLogLine, Grade::Fault, "'{}' is no ticker, day and factor"},
    {FindingKind::NoJson, Grade::Fault, "holds no JSON"},
    {FindingKind::NoDrawings, Grade::Fault, "holds no drawings of a chart: {}"},
    {FindingKind::OpenChange, Grade::Fault, "\"{}\" was cut off; the next command that writes takes it back"},
    {FindingKind::ChangeWithoutCopy, Grade::Fault, "the copy of {} is missing: it cannot be undone"},
    {FindingKind::ChangeWithoutList, Grade::Fault, "holds no list of files: it cannot be undone"},
});

constexpr bool IsByKind() {
    for (std::size_t i = 0; i < kFindingRows.size(); ++i) {
        if (static_cast<std::size_t>(kFindingRows[i].kind) != i) return false;
    }
    return true;
}
static_assert(IsByKind(), "FindingRowOf finds a row by its place");

constexpr std::string_view kHole = "{}";
constexpr std::size_t kLongestShown = 60;

std::string Printable(std::string_view text) {
    std::string printable(text);
    constexpr unsigned char kDelete = 127;
    for (char& c : printable) {
        const auto code = static_cast<unsigned char>(c);
        if (code < ' ' || code == kDelete) c = '?';
    }
    return printable;
}

std::string_view MendWords(Mend mend) {
    switch (mend) {
        case Mend::Possible:
            return " [can be repaired]";
        case Mend::Done:
            return " [repaired]";
        case Mend::None:
            break;
    }
    return {};
}

}  // namespace

const FindingRow& FindingRowOf(FindingKind kind) {
    return kFindingRows[static_cast<std::size_t>(kind)];
}

std::string WordsOf(const Finding& finding) {
    std::string words(FindingRowOf(finding.kind).words);
    const std::size_t hole = words.find(kHole);
    if (hole != std::string::npos) words.replace(hole, kHole.size(), finding.detail);
    if (finding.more > 0)
        words += fmt::format(" (and {})", Counted(finding.more, "further line", "further lines"));
    return words;
}

std::string ShownFile(const Finding& finding, const Path& appPath) {
    const Path near = finding.file.lexically_relative(appPath);
    const bool isBelow = !near.empty() && *near.begin() != "..";
    return Printable((isBelow ? near : finding.file).native());
}

std::string FindingLine(const Finding& finding, const Path& appPath) {
    std::string line = ShownFile(finding, appPath);
    if (finding.line > 0) line += fmt::format(":{}", finding.line);
    line += IsFault(finding) ? ": " : ": note: ";
    return line.append(WordsOf(finding)).append(MendWords(finding.mend));
}

void FileFindings::Add(FindingKind kind, std::size_t line, std::string detail) {
    const auto found = std::find_if(findings_.begin(), findings_.end(),
                                    [kind](const Finding& finding) { return finding.kind == kind; });
    if (found != findings_.end()) {
        ++found->more;
        return;
    }
    findings_.push_back({kind, file_, line, std::move(detail), 0, Mend::None, ticker_});
}

bool FileFindings::Has(FindingKind kind) const {
    return std::any_of(findings_.begin(), findings_.end(),
                       [kind](const Finding& finding) { return finding.kind == kind; });
}

std::string InLine(std::string_view text) {
    std::string shown = Printable(text.substr(0, kLongestShown));
    return text.size() > kLongestShown ? shown.append("...") : shown;
}

}  // namespace brantlow
