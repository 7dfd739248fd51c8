#include "acquire/feeds/archives/history_import.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <unordered_map>

#include "acquire/feeds/archives/bundle_reading.h"
#include "acquire/feeds/archives/downloaded_history.h"
#include "acquire/feeds/live/bar_store.h"
#include "acquire/feeds/live/ticker_basis.h"
#include "base/text.h"
#include "shell/session_change.h"
#include "shell/status_words.h"
#include "store/year_files.h"

namespace brantlow {

namespace {

using std::chrono::sys_days;

std::optional<std::string> TickerOfSymbol(std::string_view symbol) {
    std::string lower(symbol);
    for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return ReadSymbol(ArchiveNotation(), lower);
}

// The tickers of a choice as the table writes them, by their spelling in one form.
class Wanted {
  public:
    explicit Wanted(const HistoryImportChoice& choice) : isAll_(!choice.tickers) {
        if (isAll_) return;
        for (const std::string& ticker : *choice.tickers) {
            names_.emplace(TickerOfParts(PartsOfTicker(ticker)), ticker);
        }
    }

    // The table's spelling of a ticker; nothing for one that is not wanted.
    std::optional<std::string> NameOf(const std::string& ticker) const {
        if (isAll_) return ticker;
        const auto found = names_.find(ticker);
        return found == names_.end() ? std::nullopt : std::optional(found->second);
    }

    // The wanted ticker of a file, by its name.
    std::optional<std::string> NameOfFile(std::string_view file) const {
        if (!IsHistoryFileName(file)) return std::nullopt;
        const auto ticker = TickerOfSymbol(SymbolOfFileName(file));
        return ticker ? NameOf(*ticker) : std::nullopt;
    }

    const std::map<std::string, std::string>& Names() const { return names_; }

  private:
    bool isAll_;
    std::map<std::string, std::string> names_;
};

// The wanted tickers of a bundle by the names of its files, and how much there is to read.
struct WantedFiles {
    std::vector<std::string> tickers;
    std::uintmax_t bytes = 0;
};

WantedFiles FilesOf(const BundleList& list, const Wanted& wanted) {
    WantedFiles files;
    for (const BundleEntry& entry : list.entries) {
        const auto ticker = wanted.NameOfFile(entry.name);
        if (!ticker) continue;
        files.tickers.push_back(*ticker);
        files.bytes += entry.bytes;
    }
    return files;
}

std::string BundleName(const Path& from) {
    const Path bare = from.filename().empty() ? from.parent_path().filename() : from.filename();
    return bare.string();
}

Failure Refused(const Path& file, std::size_t line, std::string why) {
    Failure failure;
    failure.kind = FailureKind::Other;
    failure.file = file;
    failure.line = line;
    failure.text = std::move(why);
    return failure;
}

class Import {
  public:
    Import(Session& session, const HistoryImportChoice& choice)
        : session_(session),
          choice_(choice),
          wanted_(choice),
          today_(session.clock.Today()),
          what_("Import of " + BundleName(choice.from)),
          change_(ChangePlaceOf(session), what_) {
        result_.report = RunReport(what_, "histories");
    }

    HistoryImport Run() {
        BeginRun(session_.run);
        session_.person.ShowStatusWord(kStatusImportingHistory);
        const std::string ticker = session_.CurrentTicker;
        if (Failure fault = Prepare()) Fail(std::move(fault));
        if (!result_.fault) ReadAll();
        if (!result_.fault) TellMissing();
        if (!result_.fault && result_.histories > 0) Store();
        if (result_.fault) {
            TellFault();
        } else {
            AddNotes();
        }
        session_.CurrentTicker = ticker;
        session_.run.ProgressFraction = 0;
        session_.person.ShowProgress(0);
        session_.person.ShowStatusWord(kStatusComplete);
        return std::move(result_);
    }

  private:
    void Fail(Failure fault) { KeepFirst(result_.fault, fault); }

    Failure Prepare() {
        list_ = ListBundle(choice_.from);
        if (list_.fault) return list_.fault;
        const bool holdsAny = std::any_of(list_.entries.begin(), list_.entries.end(),
                                          [](const auto& entry) { return IsHistoryFileName(entry.name); });
        if (!holdsAny) return Refused(choice_.from, 0, "holds no file of a ticker");
        const WantedFiles files = FilesOf(list_, wanted_);
        bytes_ = files.bytes;
        Failure fault;
        files_ = YearFilesByTicker(session_.settings.QuoteFolder, files.tickers, &fault);
        if (fault) return fault;
        // A ticker that has no files yet is not looked for again, in a folder that the run fills.
        for (const std::string& ticker : files.tickers) files_.try_emplace(ticker);
        bases_ = TickerBases::Load(session_.DataFolder(), fault);
        return fault;
    }

    // What came of a file, before it is taken.
    struct ReadFile {
        std::string refusal;
        DownloadedHistory history;
    };

    void ReadAll() {
        const BundleReading reading = {
            [this](const BundleEntry& entry) { return wanted_.NameOfFile(entry.name).has_value(); },
            [this](std::size_t slot, const BundleEntry& entry, const BundleText& text) {
                read_[slot].refusal = text.refusal;
                if (text.refusal.empty())
                    read_[slot].history = ReadDownloadedHistory(entry.name, text.bytes, today_);
            },
            [this](std::size_t slot, const BundleEntry& entry) { return Take(entry, read_[slot]); }};
        if (Failure fault = ReadBundle(choice_.from, list_, reading)) Fail(std::move(fault));
    }

    // False, with every file from this one on told, when the person has ended the run.
    bool GoesOn(const BundleEntry& entry) {
        result_.stopped = ShouldStop(session_.run, session_.person);
        if (!result_.stopped) return true;
        bool isBehind = false;
        for (const BundleEntry& each : list_.entries) {
            isBehind = isBehind || &each == &entry;
            const auto ticker = isBehind ? wanted_.NameOfFile(each.name) : std::nullopt;
            if (ticker) Tell(*ticker, TickerFate::Skipped, "stopped");
        }
        return false;
    }

    void ShowProgress(const BundleEntry& entry) {
        done_ += entry.bytes;
        if (bytes_ > 0) {
            session_.run.ProgressFraction =
                std::min(1.0, static_cast<double>(done_) / static_cast<double>(bytes_));
        }
        session_.person.ShowProgress(session_.run.ProgressFraction);
        session_.person.PumpEvents();
    }

    void Tell(const std::string& ticker, TickerFate fate, std::string why) {
        told_.insert(ticker);
        result_.report.Tell(ticker, fate, std::move(why));
    }

    // False ends the reading.
    bool Take(const BundleEntry& entry, ReadFile& file) {
        if (!GoesOn(entry)) return false;
        session_.CurrentTicker = *wanted_.NameOfFile(entry.name);
        ShowProgress(entry);
        if (!file.refusal.empty()) {
            Tell(session_.CurrentTicker, TickerFate::Failed, entry.name + ": " + file.refusal);
            return true;
        }
        const auto read = TickerOfSymbol(file.history.symbol);
        const auto ticker = read ? wanted_.NameOf(*read) : std::nullopt;
        if (!ticker) {
            // A table's ticker by the file's name, and another one by its rows.
            const std::string why = entry.name + ": " + ServerWords(file.history.symbol) +
                                    (read ? " is not the file's ticker" : " can be no ticker");
            Tell(session_.CurrentTicker, TickerFate::LeftOut, why);
            return true;
        }
        TakeHistory(entry, *ticker, file.history);
        return !result_.fault;
    }

    void TakeHistory(const BundleEntry& entry, const std::string& ticker, DownloadedHistory& history) {
        if (told_.contains(ticker)) {
            return result_.report.Fail(entry.name + ": " + ticker + " was read from another file already");
        }
        if (!history.days.refusal.empty()) {
            const Failure refused = Refused(entry.name, history.line, history.days.refusal);
            return Tell(ticker, TickerFate::Failed, Sentence(refused));
        }
        if (!HasDatabaseFiles(ticker)) {
            return Tell(ticker, TickerFate::LeftOut, ticker + ": no file can have this name");
        }
        CutYears(history.days.bars);
        if (history.days.bars.empty()) {
            return Tell(ticker, TickerFate::Unknown, entry.name + ": no days in the span");
        }
        if (auto stays = WhyItStays(entry, ticker, history.days.bars.back().day)) {
            return Tell(ticker, stays->fate, std::move(stays->why));
        }
        if (!result_.fault) Put(ticker, history.days);
    }

    void CutYears(std::vector<SourceBar>& bars) const {
        constexpr int kDaysInYear = 365;
        if (choice_.years <= 0) return;
        const sys_days from = today_ - std::chrono::days{choice_.years * kDaysInYear};
        std::erase_if(bars, [&](const SourceBar& bar) { return bar.day < from; });
    }

    const std::vector<Path>& OldFiles(const std::string& ticker) {
        const auto found = files_.find(ticker);
        if (found != files_.end()) return found->second;
        // By its file's name it was another ticker.
        Failure fault;
        std::vector<Path> files = YearFilesOf(session_.settings.QuoteFolder, ticker, &fault);
        if (fault) Fail(std::move(fault));
        return files_.emplace(ticker, std::move(files)).first->second;
    }

    // Nothing where the history is to be replaced.
    std::optional<TickerTold> WhyItStays(const BundleEntry& entry, const std::string& ticker,
                                         sys_days newest) {
        const std::vector<Path>& files = OldFiles(ticker);
        if (files.empty() || choice_.replacesNewer) return std::nullopt;
        Failure fault;
        const StoredEnd end = ReadStoredEnd(files, today_, fault);
        if (fault) return TickerTold{ticker, TickerFate::Failed, Sentence(fault)};
        if (!end.day || *end.day <= newest) return std::nullopt;
        return TickerTold{ticker, TickerFate::NothingNew,
                          "its stored days go to " + FormatIsoDate(Date{*end.day}) + ", those of " +
                              entry.name + " to " + FormatIsoDate(Date{newest})};
    }

    void Put(const std::string& ticker, const SourceBars& days) {
        HistoryWrite write =
            WriteHistory(session_.settings.QuoteFolder, ticker, days.bars, OldFiles(ticker), change_);
        if (write.fault) return Fail(std::move(write.fault));
        if (write.days == 0) return Tell(ticker, TickerFate::Unknown, "no price that the database can hold");
        TickerBasis basis;
        basis.source = kArchiveSource;
        basis.basis = PriceBasis::Adjusted;
        // Splits since then are not in the prices.
        basis.through = days.bars.back().day;
        bases_.Set(ticker, std::move(basis));
        ++result_.histories;
        result_.days += write.days;
        Tell(ticker, TickerFate::Stored, {});
    }

    void TellMissing() {
        const TickerFate fate = result_.stopped ? TickerFate::Skipped : TickerFate::Unknown;
        for (const auto& [spelled, ticker] : wanted_.Names()) {
            if (!told_.contains(ticker)) Tell(ticker, fate, result_.stopped ? "stopped" : "");
        }
    }

    void Store() {
        change_.AlsoKeep(session_.DataFile(kLastRunName));
        session_.person.ShowStatusWord(kStatusSaving);
        if (Failure fault = bases_.Save(session_.DataFolder(), change_)) return Fail(std::move(fault));
        if (Failure fault = CommitBeside(session_, change_)) return Fail(std::move(fault));
    }

    void AddNotes() {
        if (result_.histories > 0) result_.report.Add(std::string(kArchiveBasisWords).append(""));
        if (list_.links > 0) result_.report.Add(Counted(list_.links, "link", "links") + " passed over");
        if (result_.stopped) result_.report.Add("stopped");
    }

    // Nothing came of any ticker.
    void TellFault() {
        result_.histories = 0;
        result_.days = 0;
        result_.report = RunReport(what_, "histories");
        result_.report.Fail(FailedSentence(what_, result_.fault));
        if (result_.fault.isHalfDone) result_.report.MarkChanged();
    }

    Session& session_;
    const HistoryImportChoice& choice_;
    Wanted wanted_;
    BundleList list_;
    std::array<ReadFile, kReadAhead> read_;
    sys_days today_;
    std::string what_;
    FileChange change_;
    HistoryImport result_;
    TickerBases bases_;
    std::unordered_map<std::string, std::vector<Path>> files_;
    std::set<std::string> told_;
    std::uintmax_t bytes_ = 0;
    std::uintmax_t done_ = 0;
};

}  // namespace

ImportOutlook LookIntoArchive(const Session& session, const HistoryImportChoice& choice) {
    ImportOutlook outlook;
    const BundleList list = ListBundle(choice.from);
    if ((outlook.fault = list.fault)) return outlook;
    const std::vector<std::string> tickers = FilesOf(list, Wanted(choice)).tickers;
    outlook.histories = tickers.size();
    const auto files = YearFilesByTicker(session.settings.QuoteFolder, tickers, &outlook.fault);
    for (const auto& [ticker, paths] : files) {
        if (!paths.empty()) ++outlook.stored;
    }
    return outlook;
}

HistoryImport ImportHistories(Session& session, const HistoryImportChoice& choice) {
    return Import(session, choice).Run();
}

}  // namespace brantlow
