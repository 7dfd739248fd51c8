#include "folder_image.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <set>

#include "base/text.h"

namespace brantlow {

namespace {

constexpr std::array<std::string_view, 4> kFolders = {"Data", "Quotes/EOD", "Back Up/Data", "Back Up/Quotes"};

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    LineReader reader(text);
    for (std::string_view line; reader.Next(line);) lines.emplace_back(line);
    return lines;
}

bool EndsWhole(std::string_view text) {
    return text.empty() || text.ends_with('\n');
}

// The old lines and the last of the new ones, or the old ones and the first of what is added behind them.
bool IsYearFileBetween(const std::string& before, const std::string& after, const std::string& now) {
    if (!EndsWhole(now)) return false;
    if (after.starts_with(before) && now.starts_with(before) && after.starts_with(now)) return true;
    const std::vector<std::string> old = LinesOf(before);
    const std::vector<std::string> fresh = LinesOf(after);
    const std::vector<std::string> lines = LinesOf(now);
    for (std::size_t kept = 0; kept <= std::min(old.size(), lines.size()); ++kept) {
        const std::size_t rest = lines.size() - kept;
        const bool beginsOld =
            std::equal(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept), old.begin());
        if (!beginsOld) return false;
        if (rest <= fresh.size() && std::equal(lines.begin() + static_cast<std::ptrdiff_t>(kept), lines.end(),
                                               fresh.end() - static_cast<std::ptrdiff_t>(rest)))
            return true;
    }
    return false;
}

// Some of the rows that a command adds or takes: every row is one of before or after, none is lost that both
// have.
bool IsTableBetween(const std::string& before, const std::string& after, const std::string& now) {
    if (!EndsWhole(now)) return false;
    const std::vector<std::string> old = LinesOf(before);
    const std::vector<std::string> fresh = LinesOf(after);
    const std::vector<std::string> lines = LinesOf(now);
    const std::set<std::string> oldSet(old.begin(), old.end());
    const std::set<std::string> freshSet(fresh.begin(), fresh.end());
    const std::set<std::string> nowSet(lines.begin(), lines.end());
    const bool known = std::all_of(lines.begin(), lines.end(), [&](const std::string& line) {
        return oldSet.contains(line) || freshSet.contains(line);
    });
    return known && std::all_of(old.begin(), old.end(), [&](const std::string& line) {
               return !freshSet.contains(line) || nowSet.contains(line);
           });
}

// What is known of some of the tickers' histories: each entry is one of before or after, none is lost that
// both have.
bool IsTickersBetween(const std::string& before, const std::string& after, const std::string& now) {
    const auto parse = [](const std::string& text) { return nlohmann::json::parse(text, nullptr, false); };
    const nlohmann::json old = parse(before);
    const nlohmann::json fresh = parse(after);
    const nlohmann::json here = parse(now);
    if (!here.is_object()) return false;
    const auto holds = [](const nlohmann::json& document, const std::string& ticker) {
        return document.is_object() && document.contains(ticker);
    };
    for (const auto& [ticker, entry] : here.items()) {
        const bool isOld = holds(old, ticker) && old[ticker] == entry;
        if (!isOld && !(holds(fresh, ticker) && fresh[ticker] == entry)) return false;
    }
    if (!old.is_object()) return true;
    const auto tickers = old.items();
    return std::all_of(tickers.begin(), tickers.end(), [&](const auto& entry) {
        return !holds(fresh, entry.key()) || holds(here, entry.key());
    });
}

bool IsBetween(const std::string& name, const std::string& before, const std::string& after,
               const std::string& now) {
    if (name.ends_with("QuoteList.ddq")) return IsYearFileBetween(before, after, now);
    if (name.starts_with("Quotes/")) return IsYearFileBetween(before, after, now);
    if (name.ends_with("Source Histories.json")) return IsTickersBetween(before, after, now);
    return name.ends_with(".ddq") && IsTableBetween(before, after, now);
}

// What tells how the last run went, and when sources were asked.
bool IsOfTheRun(std::string_view name) {
    return name == "Last Run.txt" || name == "Source State.json";
}

const std::string* Find(const FolderImage& image, const std::string& name) {
    const auto found = image.find(name);
    return found == image.end() ? nullptr : &found->second;
}

std::set<std::string> NamesOf(std::initializer_list<const FolderImage*> images) {
    std::set<std::string> names;
    for (const FolderImage* image : images) {
        for (const auto& [name, bytes] : *image) names.insert(name);
    }
    return names;
}

}  // namespace

FolderImage ImageOf(const Path& app) {
    FolderImage image;
    for (const std::string_view folder : kFolders) {
        for (const std::string& name : FileNamesIn(app / folder)) {
            if (IsTemporaryName(name) || IsOfTheRun(name)) continue;
            image[(Path(folder) / name).string()] = BytesOrEmpty(app / folder / name);
        }
    }
    if (IsRegularFile(app / "SplitLog.txt")) image["SplitLog.txt"] = BytesOrEmpty(app / "SplitLog.txt");
    return image;
}

std::vector<std::string> TemporariesIn(const Path& app) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(app)) {
        const std::string name = entry.path().filename().string();
        if (IsTemporaryName(name)) names.push_back(entry.path().lexically_relative(app).string());
    }
    return names;
}

std::vector<std::string> TornFiles(const FolderImage& before, const FolderImage& after,
                                   const FolderImage& now) {
    std::vector<std::string> torn;
    for (const std::string& name : NamesOf({&before, &after, &now})) {
        const std::string* const old = Find(before, name);
        const std::string* const fresh = Find(after, name);
        const std::string* const here = Find(now, name);
        if (here == nullptr) {
            if (old != nullptr && fresh != nullptr) torn.push_back(name + " is gone");
            continue;
        }
        if ((old != nullptr && *here == *old) || (fresh != nullptr && *here == *fresh)) continue;
        const std::string none;
        if (!IsBetween(name, old ? *old : none, fresh ? *fresh : none, *here))
            torn.push_back(name + " is torn");
    }
    return torn;
}

std::vector<std::string> Differences(const FolderImage& one, const FolderImage& other) {
    std::vector<std::string> names;
    for (const std::string& name : NamesOf({&one, &other})) {
        const std::string* const a = Find(one, name);
        const std::string* const b = Find(other, name);
        if (a == nullptr || b == nullptr || *a != *b) names.push_back(name);
    }
    return names;
}

}  // namespace brantlow
