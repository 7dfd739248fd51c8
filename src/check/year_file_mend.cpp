#include "check/year_file_mend.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string_view>

#include "base/text.h"
#include "base/values.h"
#include "check/year_record.h"
#include "store/history_record.h"

namespace brantlow {

namespace {

constexpr std::array kMendableYearFaults = {
    FindingKind::NulBytes,  FindingKind::EmptyFile,  FindingKind::EmptyRecord,    FindingKind::HalfRecord,
    FindingKind::WrongYear, FindingKind::OutOfOrder, FindingKind::SameRecordTwice};

struct Line {
    std::string text;                // without its end
    std::string_view end;            // empty, "\n" or kLineEnd
    std::optional<RecordDate> date;  // of a record with all its fields
};

struct MendedFile {
    const YearText* from = nullptr;
    std::vector<Line> lines;
    std::map<int, std::string> days;  // the first line of each day of its year
};

std::optional<RecordDate> DateOfRecord(std::string_view text) {
    const std::vector<std::string_view> fields = SplitAt(text, ',');
    if (fields.size() != kHistoryFieldCount || fields.front().size() < 2) return std::nullopt;
    return ReadRecordDate(fields.front().substr(1, fields.front().size() - 2));
}

// Without the bytes of value 0, where a record is left then.
std::string WithoutNul(std::string_view text) {
    std::string kept(text);
    std::erase(kept, '\0');
    return Trim(kept).empty() || DateOfRecord(kept) ? kept : std::string(text);
}

bool IsCutOff(const Line& line) {
    return line.end.empty() && SplitAt(line.text, ',').size() < kHistoryFieldCount;
}

std::vector<Line> LinesOf(std::string_view bytes) {
    std::vector<Line> lines;
    while (!bytes.empty()) {
        const std::size_t feed = bytes.find('\n');
        std::string_view text = bytes.substr(0, feed);
        bytes.remove_prefix(feed == std::string_view::npos ? bytes.size() : feed + 1);
        Line line;
        if (feed != std::string_view::npos) line.end = "\n";
        if (!line.end.empty() && text.ends_with('\r')) {
            text.remove_suffix(1);
            line.end = kLineEnd;
        }
        line.text = WithoutNul(text);
        line.date = DateOfRecord(line.text);
        if (!Trim(line.text).empty() && !IsCutOff(line)) lines.push_back(std::move(line));
    }
    return lines;
}

void DropTwice(std::vector<Line>& lines) {
    std::array<std::string_view, kDaysInGrid> first{};
    std::vector<Line> kept;
    kept.reserve(lines.size());  // the views into its texts stay good
    for (Line& line : lines) {
        std::string_view* const seen = line.date ? &first[static_cast<std::size_t>(line.date->day)] : nullptr;
        if (seen != nullptr && *seen == line.text) continue;
        kept.push_back(std::move(line));
        if (seen != nullptr && seen->empty()) *seen = kept.back().text;
    }
    lines = std::move(kept);
}

MendedFile* FileOfYear(std::vector<MendedFile>& files, int year) {
    const auto found = std::find_if(files.begin(), files.end(),
                                    [year](const MendedFile& file) { return file.from->year == year; });
    return found == files.end() ? nullptr : &*found;
}

// Takes the record to the file of its year, where that has no other line for the day.
bool Move(const Line& line, std::vector<MendedFile>& files) {
    MendedFile* const target = FileOfYear(files, line.date->year);
    if (target == nullptr) return false;
    const auto [first, isNew] = target->days.try_emplace(line.date->day, line.text);
    if (!isNew) return first->second == line.text;
    target->lines.push_back(line);
    return true;
}

void MoveToTheirYears(std::vector<MendedFile>& files) {
    for (MendedFile& file : files) {
        std::vector<Line> stay;
        std::vector<Line> lines = std::move(file.lines);
        file.lines.clear();
        for (Line& line : lines) {
            const bool isAway = line.date && line.date->year != file.from->year && Move(line, files);
            if (!isAway) stay.push_back(std::move(line));
        }
        // A record that an earlier file sent here stands behind them.
        stay.insert(stay.end(), std::make_move_iterator(file.lines.begin()),
                    std::make_move_iterator(file.lines.end()));
        file.lines = std::move(stay);
    }
}

// Days are put in order where every line has one.
void PutInOrder(MendedFile& file) {
    const bool allDated = std::all_of(file.lines.begin(), file.lines.end(), [&file](const Line& line) {
        return line.date && line.date->year == file.from->year;
    });
    if (!allDated) return;
    std::stable_sort(file.lines.begin(), file.lines.end(),
                     [](const Line& a, const Line& b) { return a.date->day < b.date->day; });
}

std::string BytesOf(const std::vector<Line>& lines) {
    std::string bytes;
    for (const Line& line : lines) {
        const bool isLast = &line == &lines.back();
        bytes.append(line.text).append(line.end.empty() && !isLast ? kLineEnd : line.end);
    }
    return bytes;
}

}  // namespace

bool IsMendable(FindingKind kind) {
    return std::find(kMendableYearFaults.begin(), kMendableYearFaults.end(), kind) !=
           kMendableYearFaults.end();
}

std::vector<YearText> MendYearFiles(std::span<const YearText> files) {
    std::vector<MendedFile> mended;
    for (const YearText& file : files) {
        MendedFile& next = mended.emplace_back();
        next.from = &file;
        next.lines = LinesOf(file.bytes);
        DropTwice(next.lines);
        for (const Line& line : next.lines) {
            if (line.date && line.date->year == file.year) next.days.try_emplace(line.date->day, line.text);
        }
    }
    MoveToTheirYears(mended);
    std::vector<YearText> texts;
    for (MendedFile& file : mended) {
        PutInOrder(file);
        texts.push_back({file.from->file, file.from->year, BytesOf(file.lines)});
    }
    return texts;
}

}  // namespace brantlow
