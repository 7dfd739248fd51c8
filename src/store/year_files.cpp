#include "store/year_files.h"

#include <unordered_set>

#include "base/text.h"

namespace brantlow {

namespace {

// A file name holds 255 bytes; the point and the year take three.
constexpr std::size_t kLongestTicker = 250;

bool CanStandInFileName(std::string_view text) {
    return text.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

// The ticker whose file `name` is: what stands before the last point. Nothing for a name without a point.
std::optional<std::string_view> TickerOfFile(std::string_view name) {
    const std::size_t point = name.rfind('.');
    if (point == std::string_view::npos) return std::nullopt;
    return name.substr(0, point);
}

std::unordered_set<std::string_view> TickersWithFiles(std::span<const std::string> tickers) {
    std::unordered_set<std::string_view> withFiles;
    for (const std::string& ticker : tickers) {
        if (HasDatabaseFiles(ticker)) withFiles.insert(ticker);
    }
    return withFiles;
}

// Without a file where the folder cannot be looked through.
std::vector<std::string> NamesIn(const std::string& quoteFolder, Failure* failure) {
    std::vector<std::string> names;
    Failure met = ListFiles(quoteFolder, names);
    if (met) names.clear();
    if (failure != nullptr) *failure = std::move(met);
    return names;
}

}  // namespace

bool IsDeviceName(std::string_view ticker) {
    const std::string upper = UpperCase(ticker);
    for (const std::string_view name : kDeviceNames) {
        if (!upper.starts_with(name)) continue;
        if (upper.size() == name.size() || upper[name.size()] == '.') return true;
    }
    return false;
}

bool HasDatabaseFiles(std::string_view ticker) {
    return !ticker.empty() && ticker != "." && ticker != ".." && ticker.size() <= kLongestTicker &&
           CanStandInFileName(ticker) && !IsDeviceName(ticker);
}

std::optional<Path> YearFilePath(const std::string& quoteFolder, std::string_view ticker,
                                 std::string_view yy) {
    constexpr std::size_t kYearDigits = 2;
    if (!HasDatabaseFiles(ticker) || yy.size() > kYearDigits || !CanStandInFileName(yy)) return std::nullopt;
    std::string path = quoteFolder;
    path.append(ticker).append(1, '.').append(yy);
    return Path(std::move(path));
}

std::vector<Path> YearFilesOf(const std::string& quoteFolder, std::string_view ticker, Failure* failure) {
    std::vector<Path> files;
    if (!HasDatabaseFiles(ticker)) return files;
    for (const std::string& name : NamesIn(quoteFolder, failure)) {
        if (TickerOfFile(name) == ticker) files.push_back(Path(quoteFolder) / name);
    }
    return files;
}

std::unordered_map<std::string, std::vector<Path>> YearFilesByTicker(const std::string& quoteFolder,
                                                                     std::span<const std::string> tickers,
                                                                     Failure* failure) {
    const std::unordered_set<std::string_view> wanted = TickersWithFiles(tickers);
    std::unordered_map<std::string, std::vector<Path>> files;
    if (wanted.empty()) return files;
    for (const std::string& name : NamesIn(quoteFolder, failure)) {
        const auto ticker = TickerOfFile(name);
        if (!ticker || !wanted.contains(*ticker)) continue;
        files[std::string(*ticker)].push_back(Path(quoteFolder) / name);
    }
    return files;
}

}  // namespace brantlow
