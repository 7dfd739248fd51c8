#include "check/check_run.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <set>

#include "acquire/web/hosts.h"
#include "base/failure.h"
#include "base/undo_store.h"
#include "check/history_check.h"
#include "check/list_check.h"
#include "check/settings_check.h"
#include "check/table_check.h"
#include "shell/run_control.h"
#include "shell/run_report.h"
#include "shell/session_change.h"
#include "shell/settings/settings_files.h"
#include "splits/split_calendar.h"
#include "store/hand_drawings.h"
#include "store/update_list.h"

namespace brantlow {

namespace {

// What a file becomes; without bytes it goes.
struct Repair {
    Path file;
    std::string bytes;
};

// How one small file is looked at and repaired.
struct SmallFile {
    std::function<std::vector<Finding>(std::string_view bytes)> check;
    std::function<std::string(std::string_view bytes)> mend = nullptr;  // null where nothing can be repaired
    bool (*isMendable)(FindingKind kind) = nullptr;
};

bool Holds(const std::vector<Finding>& findings, FindingKind kind) {
    return std::any_of(findings.begin(), findings.end(),
                       [kind](const Finding& finding) { return finding.kind == kind; });
}

class CheckRun {
  public:
    CheckRun(Session& session, CheckMode mode) : session_(session), mode_(mode) {}

    CheckReport Run() {
        CheckSettings();
        CheckTables();
        CheckLists();
        CheckAllDrawings();
        CheckLeft();
        if (!ShouldStop(session_.run, session_.person)) CheckAllHistories();
        report_.stopped = report_.stopped || ShouldStop(session_.run, session_.person);
        if (mode_ == CheckMode::Repair && !report_.stopped) CarryOut();
        return std::move(report_);
    }

  private:
    void Append(std::vector<Finding> findings) {
        std::move(findings.begin(), findings.end(), std::back_inserter(report_.findings));
    }

    // The bytes of a file that is there; a failure is a finding.
    std::optional<std::string> Read(const Path& file) {
        ReadResult read = ReadWholeFile(file);
        if (read.outcome == ReadOutcome::Missing) return std::nullopt;
        ++report_.files;
        session_.person.PumpEvents();
        if (read.outcome == ReadOutcome::Done) return std::move(read.bytes);
        Append({{FindingKind::Unreadable, file, 0, read.error.message(), 0, Mend::None, {}}});
        return std::nullopt;
    }

    void Check(const Path& file, std::string_view bytes, const SmallFile& how) {
        std::vector<Finding> findings = how.check(bytes);
        const bool canBeMended =
            how.mend && std::any_of(findings.begin(), findings.end(),
                                    [&](const Finding& f) { return how.isMendable(f.kind); });
        if (canBeMended) MarkMended(file, how, bytes, findings);
        Append(std::move(findings));
    }

    // What is still found in the repaired file decides which findings the repair is for.
    void MarkMended(const Path& file, const SmallFile& how, std::string_view bytes,
                    std::vector<Finding>& findings) {
        std::string mended = how.mend(bytes);
        const std::vector<Finding> after = how.check(mended);
        for (const Finding& finding : after) {
            if (how.isMendable(finding.kind) && !Holds(findings, finding.kind)) return;
        }
        for (Finding& finding : findings) {
            if (how.isMendable(finding.kind) && !Holds(after, finding.kind)) finding.mend = Mend::Possible;
        }
        if (mended != bytes) repairs_.push_back({file, std::move(mended)});
    }

    void CheckSettings() {
        for (const SettingsFileForm& form : kSettingsFiles) {
            const Path file = SettingsFilePath(form.file, session_.AppPath);
            const auto bytes = Read(file);
            if (!bytes) continue;
            const SettingsFile which = form.file;
            Check(file, *bytes,
                  {[this, which](std::string_view text) {
                       return CheckSettingsText(which, session_.AppPath, text);
                   },
                   [which](std::string_view text) { return MendSettingsText(which, text); },
                   IsSettingsMendable});
        }
    }

    void CheckTables() {
        std::vector<std::string> names;
        const Failure failure = ListFiles(session_.DataFolder(), names);
        if (failure)
            Append({{FindingKind::Unreadable, failure.file, 0, failure.cause.message(), 0, Mend::None, {}}});
        for (const std::string& name : names) {
            if (KindOf(name) != FileKind::None) CheckTableFile(name);
        }
    }

    void CheckTableFile(const std::string& name) {
        const Path file = session_.DataFile(name);
        const auto bytes = Read(file);
        if (!bytes) return;
        const FileKind kind = KindOf(name);
        const auto check = [&](std::string_view text) {
            return CheckTable(file, kind, text, session_.clock.Today()).findings;
        };
        // The template is never written.
        const bool isTemplate = kind == FileKind::Db;
        Check(file, *bytes, isTemplate ? SmallFile{check} : SmallFile{check, MendTable, IsTableMendable});
        if (kind != FileKind::Ddq) return;
        for (std::string& ticker : CheckTable(file, kind, *bytes, session_.clock.Today()).tickers)
            tickers_.insert(std::move(ticker));
    }

    void CheckLists() {
        using CheckRoutine = std::vector<Finding> (*)(const Path&, std::string_view);
        struct Row {
            Path file;
            CheckRoutine check;
            bool mends;
        };
        const std::array<Row, 6> rows = {{
            {UpdateListPath(session_.settings.QuoteFolder), CheckUpdateList, true},
            {session_.AppPath / kSplitLogName, CheckSplitLog, true},
            {session_.DataFile(kHostsFileName), CheckHosts, false},
            {session_.DataFile("Source State.json"), CheckJson, false},
            {session_.DataFile("Source Histories.json"), CheckJson, false},
            {session_.DataFile("Source Facts.json"), CheckJson, false},
        }};
        for (const Row& row : rows) {
            const auto bytes = Read(row.file);
            if (!bytes) continue;
            const auto check = [&row](std::string_view text) { return row.check(row.file, text); };
            Check(row.file, *bytes,
                  row.mends ? SmallFile{check, MendList, IsListMendable} : SmallFile{check});
        }
    }

    void CheckAllDrawings() {
        const Path folder = DrawingsFolder(session_.DataFolder());
        std::vector<std::string> names;
        if (const Failure failure = ListFiles(folder, names))
            Append({{FindingKind::Unreadable, failure.file, 0, failure.cause.message(), 0, Mend::None, {}}});
        for (const std::string& name : names) {
            if (IsTemporaryName(name)) continue;
            const Path file = folder / name;
            const auto check = [&file](std::string_view text) { return CheckDrawings(file, text); };
            if (const auto bytes = Read(file)) Check(file, *bytes, SmallFile{check});
        }
    }

    void CheckLeft() {
        std::set<Path> folders;
        for (const Path& folder : WrittenFolders(session_)) folders.insert(folder.lexically_normal() / "");
        for (const Path& folder : folders) Append(CheckLeftovers(folder));
        Append(CheckUndo(session_.AppPath, ChangePlaceOf(session_).UndoFolder()));
    }

    void CheckAllHistories() {
        const HistoryTerms terms{session_.settings.QuoteFolder, session_.clock.Today(), tickers_,
                                 mode_ == CheckMode::Repair};
        HistoryCheck check = CheckHistories(terms, [this](double share) {
            session_.run.ProgressFraction = share;
            session_.person.ShowProgress(share);
            session_.person.PumpEvents();
            return !ShouldStop(session_.run, session_.person);
        });
        if (check.failure)
            Append({{FindingKind::Unreadable,
                     check.failure.file,
                     0,
                     check.failure.cause.message(),
                     0,
                     Mend::None,
                     {}}});
        report_.files += check.files;
        report_.stopped = check.stopped;
        Append(std::move(check.findings));
        for (YearText& file : check.mended) repairs_.push_back({std::move(file.file), std::move(file.bytes)});
    }

    void CarryOut() {
        FileChange change(ChangePlaceOf(session_), std::string(kRepairChange));
        for (const Repair& repair : repairs_) {
            report_.fault =
                repair.bytes.empty() ? change.Delete(repair.file) : change.Write(repair.file, repair.bytes);
            if (report_.fault) return;
        }
        report_.fault = CommitBeside(session_, change);
        if (report_.fault) return;
        for (const Repair& repair : repairs_) report_.repairedFiles.push_back(repair.file);
        report_.repaired = repairs_.size();
        for (Finding& finding : report_.findings) {
            if (finding.mend == Mend::Possible) finding.mend = Mend::Done;
        }
    }

    Session& session_;
    CheckMode mode_;
    CheckReport report_;
    std::set<std::string, std::less<>> tickers_;
    std::vector<Repair> repairs_;
};

}  // namespace

std::size_t CheckReport::Faults() const {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [](const Finding& finding) { return IsFault(finding) && finding.mend != Mend::Done; }));
}

std::size_t CheckReport::Notes() const {
    return static_cast<std::size_t>(std::count_if(findings.begin(), findings.end(),
                                                  [](const Finding& finding) { return !IsFault(finding); }));
}

std::size_t CheckReport::Count(Mend mend) const {
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [mend](const Finding& finding) { return IsFault(finding) && finding.mend == mend; }));
}

CheckReport CheckDatabase(Session& session, CheckMode mode) {
    return CheckRun(session, mode).Run();
}

std::string CheckSentence(const CheckReport& report) {
    std::string text =
        fmt::format("{} and {} in {}", Counted(report.Faults(), "fault", "faults"),
                    Counted(report.Notes(), "note", "notes"), Counted(report.files, "file", "files"));
    if (const std::size_t possible = report.Count(Mend::Possible))
        text += fmt::format(", {} can be repaired", possible);
    if (const std::size_t done = report.Count(Mend::Done)) text += fmt::format(", {} repaired", done);
    if (report.stopped) text += "; stopped before the end";
    return text;
}

}  // namespace brantlow
