#include "store/file_names.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace brantlow {

namespace {

struct FilterRow {
    FileKind kind;
    std::string_view saveFilter;
};

// A new table becomes a quote table when it is saved, so the template has the filter of a quote table.
constexpr std::array<FilterRow, 4> kFilters = {{{FileKind::Ddq, "All Files (*.ddq)|*.ddq"},
                                                {FileKind::Db, "All Files (*.ddq)|*.ddq"},
                                                {FileKind::Dbe, "All Files (*.dbe)|*.dbe"},
                                                {FileKind::Efq, "All Files (*.efq)|*.efq"}}};

constexpr std::string_view kSelectorRunPrefix = "SS";
constexpr std::string_view kFundamentalsPrefix = "EF";

Path Resolved(const Path& path) {
    std::error_code error;
    Path resolved = std::filesystem::weakly_canonical(path, error);
    return error ? path.lexically_normal() : resolved;
}

}  // namespace

std::string_view SaveFilter(FileKind kind) {
    const auto row =
        std::find_if(kFilters.begin(), kFilters.end(), [&](const FilterRow& r) { return r.kind == kind; });
    return row == kFilters.end() ? std::string_view{} : row->saveFilter;
}

std::string DayInFileName(const Date& date) {
    std::string day = FormatDate(date);
    std::replace(day.begin(), day.end(), '/', '-');
    return day;
}

std::string SaveName(std::string_view currentFile) {
    return currentFile == kNewTableName ? std::string() : std::string(currentFile);
}

std::string SaveAsName(std::string_view currentFile, const Date& today) {
    switch (KindOf(currentFile)) {
        case FileKind::Ddq:
            return std::string(currentFile);
        case FileKind::Dbe:
            return std::string(kSelectorRunPrefix) + DayInFileName(today) + ".dbe";
        case FileKind::Efq:
            return std::string(kFundamentalsPrefix) + DayInFileName(today) + ".efq";
        case FileKind::Db:
        case FileKind::None:
            break;
    }
    return {};
}

std::string CollectedFundamentalsName(const Date& today) {
    return DayInFileName(today) + ".efq";
}

ChosenFile CutCurrentFile(const Path& appPath, const Path& chosen) {
    const Path dataFolder = Resolved(appPath / "Data");
    const Path relative = Resolved(chosen).lexically_relative(dataFolder);
    const bool inside = !relative.empty() && relative != "." && *relative.begin() != "..";
    if (inside && relative.has_filename()) return {relative.string(), {}};
    return {{}, chosen.string() + " does not lie in the folder " + dataFolder.string() + "."};
}

}  // namespace brantlow
