#include "check/list_check.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "acquire/web/hosts.h"
#include "base/change_list.h"
#include "base/dates.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/undo_store.h"
#include "base/values.h"
#include "store/hand_drawings.h"

namespace brantlow {

namespace {

// A line without anything in it.
bool IsBlank(std::string_view line) {
    return line.find_first_not_of(std::string_view("\0 \t\r", 4)) == std::string_view::npos;
}

enum class BlankLines { Told, Usual };

// Gives each line to `take`, but for blank ones and those with a byte of value 0, which are told here.
template <class Take>
std::vector<Finding> CheckLines(const Path& file, std::string_view bytes, Take&& take,
                                BlankLines blank = BlankLines::Told) {
    FileFindings found(file);
    LineReader reader(bytes);
    std::string_view line;
    for (std::size_t number = 1; reader.Next(line); ++number) {
        if (line.find('\0') != std::string_view::npos) {
            found.Add(FindingKind::NulBytes, number);
        } else if (IsBlank(line)) {
            if (blank == BlankLines::Told) found.Add(FindingKind::EmptyRow, number);
        } else {
            take(line, number, found);
        }
    }
    return found.Take();
}

bool IsQuotedText(std::string_view field) {
    return field.size() > 2 && field.front() == '"' && field.find('"', 1) == field.size() - 1;
}

bool IsMonthAndDay(std::string_view text) {
    constexpr std::size_t kLength = 5;
    constexpr std::string_view kLeapYear = "/2004";
    return text.size() == kLength && ParseDate(std::string(text).append(kLeapYear)).has_value();
}

bool IsSplitLine(std::string_view line) {
    const std::vector<Value> values = ParseRecord(line);
    constexpr std::size_t kFields = 3;
    if (values.size() != kFields || values[0].Text().empty()) return false;
    const auto factor = WholeNumber(values[2].Text());
    return IsMonthAndDay(values[1].Text()) && factor && *factor >= 0;
}

bool NamesHost(std::string_view name) {
    constexpr std::string_view kMarket = "Market.";
    for (const std::string_view prefix : {std::string_view("Source."), std::string_view("Limit.")}) {
        if (name.starts_with(prefix) && name.size() > prefix.size()) return true;
    }
    if (name.starts_with(kMarket)) {
        return std::any_of(kMarkets.begin(), kMarkets.end(), [&](const MarketRow& market) {
            return market.name == name.substr(kMarket.size());
        });
    }
    return std::any_of(kHosts.begin(), kHosts.end(),
                       [name](const HostRow& host) { return host.name == name; });
}

bool IsHostLine(std::string_view line) {
    line = Trim(line);
    if (line.starts_with('#')) return true;
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view name = Trim(line.substr(0, equals));
    const std::string_view value = Trim(line.substr(equals + 1));
    if (name.starts_with("Limit.")) return NamesHost(name) && !value.empty();
    return NamesHost(name) && (value.starts_with("http://") || value.starts_with("https://"));
}

Finding CannotBeRead(const Path& file, std::error_code error) {
    return {FindingKind::Unreadable, file, 0, error.message(), 0, Mend::None, {}};
}

// What is said of a kept change whose line and list could be read.
std::vector<Finding> CheckKeptChange(const Path& folder, const ChangeList& list,
                                     const std::optional<ChangeSummary>& summary) {
    FileFindings found(folder);
    if (!summary || summary->files != list.entries.size()) {
        found.Add(FindingKind::ChangeWithoutList, 0);
        return found.Take();
    }
    for (const FileChange::Entry& entry : list.entries) {
        const bool isKept = entry.was == FileChange::Entry::Was::Kept;
        if (isKept && !IsRegularFile(CopyOf(entry, folder)))
            found.Add(FindingKind::ChangeWithoutCopy, 0, Path(entry.path).filename().string());
    }
    return found.Take();
}

std::vector<Finding> CheckChange(const Path& appPath, const Path& folder) {
    const bool isOpen = folder.filename().native().starts_with(kOpenChange);
    if (isOpen && !IsLeftOpen(folder)) return {};
    Failure unread;
    const auto summary = isOpen ? std::nullopt : ReadChangeSummary(folder, &unread);
    if (unread) return {CannotBeRead(unread.file, unread.cause)};
    const Path file = folder / kChangeList;
    const ReadResult read = ReadWholeFile(file);
    if (read.outcome == ReadOutcome::Failed) return {CannotBeRead(file, read.error)};
    const ChangeList list = ParseChangeList(read.bytes, appPath);
    if (!isOpen) return CheckKeptChange(folder, list, summary);
    FileFindings found(folder);
    found.Add(FindingKind::OpenChange, 0, InLine(list.what));
    return found.Take();
}

}  // namespace

std::vector<Finding> CheckUpdateList(const Path& file, std::string_view bytes) {
    return CheckLines(file, bytes, [](std::string_view line, std::size_t number, FileFindings& found) {
        // An import that follows no update makes a list without its first line.
        const bool isCount = number == 1 && WholeNumber(line).has_value();
        if (!isCount && !IsQuotedText(line)) found.Add(FindingKind::ListLine, number, InLine(line));
    });
}

std::vector<Finding> CheckSplitLog(const Path& file, std::string_view bytes) {
    return CheckLines(file, bytes, [](std::string_view line, std::size_t number, FileFindings& found) {
        if (!IsSplitLine(line)) found.Add(FindingKind::SplitLogLine, number, InLine(line));
    });
}

std::vector<Finding> CheckHosts(const Path& file, std::string_view bytes) {
    const auto take = [](std::string_view line, std::size_t number, FileFindings& found) {
        if (!IsHostLine(line)) found.Add(FindingKind::HostLine, number, InLine(line));
    };
    return CheckLines(file, bytes, take, BlankLines::Usual);
}

std::vector<Finding> CheckJson(const Path& file, std::string_view bytes) {
    FileFindings found(file);
    if (!nlohmann::json::accept(bytes)) found.Add(FindingKind::NoJson, 0);
    return found.Take();
}

std::vector<Finding> CheckDrawings(const Path& file, std::string_view bytes) {
    FileFindings found(file);
    std::string complaint;
    ReadHandDrawings(bytes, complaint);
    if (!complaint.empty()) found.Add(FindingKind::NoDrawings, 0, complaint);
    return found.Take();
}

std::vector<Finding> CheckLeftovers(const Path& folder) {
    std::vector<Finding> findings;
    for (const std::string& name : LeftTemporaries(folder))
        findings.push_back({FindingKind::Leftover, folder / name, 0, {}, 0, Mend::None, {}});
    return findings;
}

std::vector<Finding> CheckUndo(const Path& appPath, const Path& undoFolder) {
    std::vector<Path> folders;
    std::error_code error;
    for (auto it = std::filesystem::directory_iterator(undoFolder, error);
         !error && it != std::filesystem::directory_iterator(); it.increment(error)) {
        std::error_code ignored;
        if (it->is_directory(ignored)) folders.push_back(it->path());
    }
    std::vector<Finding> findings;
    if (error && error != std::errc::no_such_file_or_directory)
        findings.push_back(CannotBeRead(undoFolder, error));
    std::sort(folders.begin(), folders.end());
    for (const Path& folder : folders) {
        for (Finding& finding : CheckChange(appPath, folder)) findings.push_back(std::move(finding));
    }
    return findings;
}

std::string MendList(std::string_view bytes) {
    std::string mended;
    LineReader reader(bytes);
    std::string_view line;
    while (reader.Next(line)) {
        if (!IsBlank(line)) mended.append(line).append(kLineEnd);
    }
    return mended;
}

bool IsListMendable(FindingKind kind) {
    return kind == FindingKind::NulBytes || kind == FindingKind::EmptyRow;
}

}  // namespace brantlow
