#include "check/history_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <unordered_map>

#include "base/text.h"
#include "check/day_comparison.h"
#include "check/year_file_check.h"
#include "store/update_list.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

struct YearFile {
    std::string name;
    int year = 0;
};

struct TickerFiles {
    std::string ticker;
    std::vector<YearFile> files;  // oldest first
    // What the look at them gives.
    std::vector<Finding> findings;
    std::vector<YearDays> days;
    std::vector<YearText> mended;
};

std::optional<int> YearOfName(std::string_view name) {
    constexpr std::size_t kDigits = 2;
    if (name.size() != kDigits) return std::nullopt;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (!isDigit(name[0]) || !isDigit(name[1])) return std::nullopt;
    return FullYearOf((name[0] - '0') * 10 + name[1] - '0');
}

// The files of the folder by ticker; a name that is none of theirs is noted.
std::vector<TickerFiles> FilesByTicker(const Path& folder, const std::vector<std::string>& names,
                                       std::vector<Finding>& findings) {
    std::vector<TickerFiles> tickers;
    std::unordered_map<std::string_view, std::size_t> places;
    const std::string listName = UpdateListPath({}).string();
    for (const std::string& name : names) {
        if (name == listName || IsTemporaryName(name)) continue;
        const std::size_t point = name.rfind('.');
        const auto year =
            point == std::string::npos ? std::nullopt : YearOfName(std::string_view(name).substr(point + 1));
        const std::string_view ticker = std::string_view(name).substr(0, point);
        if (!year || !HasDatabaseFiles(ticker)) {
            findings.push_back({FindingKind::YearFileName, folder / name, 0, {}, 0, Mend::None, {}});
            continue;
        }
        const auto [place, isNew] = places.try_emplace(ticker, tickers.size());
        if (isNew) tickers.emplace_back().ticker = ticker;
        tickers[place->second].files.push_back({name, *year});
    }
    for (TickerFiles& ticker : tickers) {
        std::sort(ticker.files.begin(), ticker.files.end(),
                  [](const YearFile& a, const YearFile& b) { return a.year < b.year; });
    }
    return tickers;
}

bool CanBeMended(const std::vector<Finding>& findings) {
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return IsMendable(finding.kind); });
}

bool Holds(const std::vector<Finding>& findings, const Finding& finding) {
    return std::any_of(findings.begin(), findings.end(), [&finding](const Finding& other) {
        return other.kind == finding.kind && other.file == finding.file;
    });
}

// Looks at one ticker after another, with one buffer.
class Looker {
  public:
    explicit Looker(const HistoryTerms& terms) : terms_(terms) {}

    void Look(TickerFiles& ticker) {
        YearFileCheck check(ticker.ticker, terms_.today);
        Failure unread;
        for (const YearFile& file : ticker.files) LookAt(file, check, unread);
        ticker.findings = std::move(check.findings);
        ticker.days = std::move(check.days);
        if (!unread && CanBeMended(ticker.findings)) Mend(ticker);
    }

  private:
    static Finding Unread(const Path& path, const Failure& failure) {
        return {FindingKind::Unreadable, path, 0, failure.cause.message(), 0, brantlow::Mend::None, {}};
    }

    void LookAt(const YearFile& file, YearFileCheck& check, Failure& unread) {
        const Path path = terms_.quoteFolder + file.name;
        std::size_t used = 0;
        if (const Failure failure = ReadBehindIfThere(path, buffer_, used)) {
            KeepFirst(unread, failure);
            check.findings.push_back(Unread(path, failure));
            return;
        }
        if (buffer_.size() <= used) buffer_.resize(used + 1);
        buffer_[used] = '\0';
        check.TakeFile(path, file.year, std::string_view(buffer_.data(), used));
    }

    // What is left of the findings once the files are repaired decides which of them can be.
    void Mend(TickerFiles& ticker) {
        std::vector<YearText> files;
        for (const YearFile& file : ticker.files) {
            const Path path = terms_.quoteFolder + file.name;
            std::string bytes;
            // One that cannot be read any more is not an empty one, which a repair takes away.
            if (const Failure failure = ReadIfThere(path, bytes)) {
                ticker.findings.push_back(Unread(path, failure));
                return;
            }
            files.push_back({path, file.year, std::move(bytes)});
        }
        std::vector<YearText> mended = MendYearFiles(files);
        YearFileCheck after(ticker.ticker, terms_.today);
        for (const YearText& file : mended) {
            if (!file.bytes.empty()) after.TakeFile(file.file, file.year, file.bytes);
        }
        for (const Finding& finding : after.findings) {
            if (IsMendable(finding.kind) && !Holds(ticker.findings, finding)) return;
        }
        for (Finding& finding : ticker.findings) {
            if (IsMendable(finding.kind) && !Holds(after.findings, finding))
                finding.mend = brantlow::Mend::Possible;
        }
        if (!terms_.repairs) return;
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (mended[i].bytes != files[i].bytes || mended[i].bytes.empty())
                ticker.mended.push_back(std::move(mended[i]));
        }
    }

    const HistoryTerms& terms_;
    std::string buffer_;
};

// The tickers shared between threads; the caller's thread waits and lets its person have a look meanwhile.
class SharedLook {
  public:
    SharedLook(const HistoryTerms& terms, std::vector<TickerFiles>& tickers)
        : terms_(terms), tickers_(tickers) {}

    // False when it was stopped.
    bool Run(const std::function<bool(double)>& proceed) {
        const std::size_t count = std::max(1U, std::thread::hardware_concurrency());
        working_ = count;
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < count; ++i) threads.emplace_back([this] { Work(); });
        while (!WaitForEnd()) {
            if (!proceed(Share())) isStopped_ = true;
        }
        return !isStopped_;
    }

  private:
    static constexpr std::size_t kBlock = 8;
    static constexpr std::chrono::milliseconds kPatience{20};

    void Work() {
        Looker looker(terms_);
        while (!isStopped_) {
            const std::size_t from = next_.fetch_add(kBlock);
            if (from >= tickers_.size()) break;
            const std::size_t to = std::min(from + kBlock, tickers_.size());
            for (std::size_t i = from; i < to; ++i) looker.Look(tickers_[i]);
        }
        const std::lock_guard lock(mutex_);
        if (--working_ == 0) ended_.notify_one();
    }

    bool WaitForEnd() {
        std::unique_lock lock(mutex_);
        return ended_.wait_for(lock, kPatience, [this] { return working_ == 0; });
    }

    double Share() const {
        const std::size_t taken = std::min(next_.load(), tickers_.size());
        return tickers_.empty() ? 1 : static_cast<double>(taken) / static_cast<double>(tickers_.size());
    }

    const HistoryTerms& terms_;
    std::vector<TickerFiles>& tickers_;
    std::atomic<std::size_t> next_ = 0;
    std::atomic<bool> isStopped_ = false;
    std::mutex mutex_;
    std::condition_variable ended_;
    std::size_t working_ = 0;
};

Path PathOfYear(const HistoryTerms& terms, const TickerFiles& ticker, int year) {
    const auto found = std::find_if(ticker.files.begin(), ticker.files.end(),
                                    [year](const YearFile& file) { return file.year == year; });
    return terms.quoteFolder + found->name;
}

// The line of a file that bears the date, 0 where there is none any more.
std::size_t LineOfDay(const Path& file, const RecordDate& date) {
    const std::string bytes = BytesOrEmpty(file);
    LineReader reader(bytes);
    std::string_view line;
    for (std::size_t number = 1; reader.Next(line); ++number) {
        constexpr std::size_t kDate = 8;
        if (line.size() > kDate && ReadRecordDate(line.substr(1, kDate)) == date) return number;
    }
    return 0;
}

void NoteHoles(const HistoryTerms& terms, std::vector<TickerFiles>& tickers) {
    std::vector<TickerDays> days;
    days.reserve(tickers.size());
    for (TickerFiles& ticker : tickers) days.push_back({ticker.ticker, std::move(ticker.days)});
    for (const Hole& hole : FindHoles(days)) {
        TickerFiles& ticker = tickers[hole.ticker];
        const Path file = PathOfYear(terms, ticker, hole.next.year);
        const bool isKnown =
            std::any_of(ticker.findings.begin(), ticker.findings.end(), [&](Finding& finding) {
                const bool isSame = finding.kind == FindingKind::MissingDays && finding.file == file;
                if (isSame) ++finding.more;
                return isSame;
            });
        if (isKnown) continue;
        ticker.findings.push_back({FindingKind::MissingDays, file, LineOfDay(file, hole.next),
                                   fmt::format("{} day{} before it that the other tickers have", hole.days,
                                               hole.days == 1 ? " is missing" : "s are missing"),
                                   0, Mend::None, ticker.ticker});
    }
}

void NoteNames(const HistoryTerms& terms, const std::vector<TickerFiles>& tickers,
               std::vector<Finding>& findings) {
    std::unordered_map<std::string, const std::string*> byCapitals;
    for (const TickerFiles& ticker : tickers) {
        const Path file = terms.quoteFolder + ticker.files.front().name;
        if (!terms.tickers.empty() && !terms.tickers.contains(ticker.ticker))
            findings.push_back(
                {FindingKind::NoTable, file, 0, InLine(ticker.ticker), 0, Mend::None, ticker.ticker});
        const auto [twin, isNew] = byCapitals.try_emplace(UpperCase(ticker.ticker), &ticker.ticker);
        if (!isNew)
            findings.push_back(
                {FindingKind::CaseTwin, file, 0, InLine(*twin->second), 0, Mend::None, ticker.ticker});
    }
}

}  // namespace

HistoryCheck CheckHistories(const HistoryTerms& terms, const std::function<bool(double)>& proceed) {
    HistoryCheck check;
    std::vector<std::string> names;
    check.failure = ListFiles(terms.quoteFolder, names);
    if (check.failure) return check;
    std::vector<TickerFiles> tickers = FilesByTicker(terms.quoteFolder, names, check.findings);
    check.files = check.findings.size();
    for (const TickerFiles& ticker : tickers) check.files += ticker.files.size();
    check.stopped = !SharedLook(terms, tickers).Run(proceed);
    for (const TickerFiles& ticker : tickers) check.withHistory.insert(ticker.ticker);
    if (!check.stopped) NoteHoles(terms, tickers);
    NoteNames(terms, tickers, check.findings);
    for (TickerFiles& ticker : tickers) {
        std::move(ticker.findings.begin(), ticker.findings.end(), std::back_inserter(check.findings));
        std::move(ticker.mended.begin(), ticker.mended.end(), std::back_inserter(check.mended));
    }
    return check;
}

}  // namespace brantlow
