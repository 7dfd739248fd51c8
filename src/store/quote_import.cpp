#include "store/quote_import.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "base/failure.h"
#include "base/numbers.h"
#include "base/text.h"
#include "shell/file_kind.h"
#include "shell/run_control.h"
#include "shell/session_change.h"
#include "shell/settings/field_lists.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_files.h"
#include "shell/status_words.h"
#include "store/own_files.h"
#include "store/quote_fields.h"
#include "store/quote_rows.h"
#include "store/table_colours.h"
#include "store/table_files.h"
#include "store/update_list.h"
#include "store/year_files.h"
#include "store/year_growth.h"

namespace brantlow {

namespace {

constexpr std::size_t kDeviceNameLength = 3;
constexpr std::string_view kFullTableReason = "a table has no more than 18000 lines";
constexpr std::string_view kLostRowReason = "the letters of its name begin another line of the file";

// By the start of the line alone: a ticker CONX goes with CON.
bool BeginsWithDeviceName(std::string_view line) {
    const std::string start = UpperCase(line.substr(0, kDeviceNameLength));
    return std::find(kDeviceNames.begin(), kDeviceNames.end(), start) != kDeviceNames.end();
}

char ImportSeparator(const SettingsTables& settings) {
    return Get(settings, kImportType) == TextFileType::Comma ? ',' : '\t';
}

// The rows of the table whose ticker begins no line of the file.
std::vector<std::size_t> RowsWithoutLine(const QuoteTable& table, const std::vector<std::string>& lines) {
    std::vector<std::string_view> sorted(lines.begin(), lines.end());
    std::sort(sorted.begin(), sorted.end());
    std::vector<std::size_t> rows;
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        const std::string& ticker = table.Ticker(row);
        if (ticker.empty()) continue;
        const auto found = std::lower_bound(sorted.begin(), sorted.end(), ticker);
        if (found == sorted.end() || !found->starts_with(ticker)) rows.push_back(row);
    }
    return rows;
}

// What the import does with a column of the table.
struct ColumnUse {
    // The array that fills the column has one field of the file, with this place in the line.
    std::optional<std::size_t> part;
    bool isFilled = false;  // by a field or by a calculation
};

struct FilePart {
    std::size_t part;
    const QuoteField* field;
};

// The fields of a line that have an array.
std::vector<FilePart> FilePartsOf(const SettingsTables& settings) {
    std::vector<FilePart> parts;
    const std::vector<std::string> names = FieldsOf(FieldList::Import, settings);
    for (std::size_t place = 0; place < names.size(); ++place) {
        const QuoteField* field = FindQuoteField(names[place]);
        if (field != nullptr) parts.push_back({place, field});
    }
    return parts;
}

// One import from its lines on.
class ImportWalk {
  public:
    ImportWalk(Session& session, QuoteTable& table, DayStore& days, DayRun& run, QuoteImport& result)
        : session_(session),
          table_(table),
          former_(table),
          days_(days),
          run_(run),
          result_(result),
          separator_(ImportSeparator(session.settings)),
          parts_(FilePartsOf(session.settings)) {
        for (std::size_t row = former_.TickerCount(); row >= 1; --row) formerRows_[former_.Ticker(row)] = row;
    }

    // Tells of the tickers that the table held before and holds no longer: those whose letters begin
    // another's line, and of the table's own rows `ownRows` those for which there was no room.
    void TellLostRows(const std::vector<std::size_t>& ownRows) {
        std::unordered_set<std::string_view> present;
        for (std::size_t row = 1; row <= table_.TickerCount(); ++row) present.insert(table_.Ticker(row));
        const std::unordered_set<std::size_t> own(ownRows.begin(), ownRows.end());
        std::vector<std::string> named;
        std::vector<std::string> crowdedOut;
        for (std::size_t row = 1; row <= former_.TickerCount(); ++row) {
            const std::string& ticker = former_.Ticker(row);
            if (ticker.empty() || present.count(ticker) > 0) continue;
            const bool isOwn = own.count(row) > 0;
            (isOwn ? crowdedOut : named).push_back(ticker);
            result_.report.Tell(ticker, TickerFate::Skipped,
                                std::string(isOwn ? kFullTableReason : kLostRowReason));
        }
        AddLoss(named, kLostRowReason);
        AddLoss(crowdedOut, kFullTableReason);
    }

    // Takes the file's lines, its header and footer left out, and behind them the table's own rows `ownRows`.
    void TakeLines(const std::vector<std::string>& lines, const std::vector<std::size_t>& ownRows) {
        const std::size_t header = static_cast<std::size_t>(Get(session_.settings, kImportHeader));
        const std::size_t footer = static_cast<std::size_t>(Get(session_.settings, kImportFooter));
        const std::size_t lastTaken = lines.size() - std::min(footer, lines.size());
        const std::size_t count = std::min(lines.size() + ownRows.size(), kMostRows);
        rows_.MakeRoom(lines.size());
        table_.SetRowCount(count + 1);
        FindColumnUses();
        for (std::size_t i = 1; i <= count; ++i) {
            ShowLine(i, count);
            if (ShouldStop(session_.run, session_.person)) return Stop();
            if (i > lines.size()) {
                CopyRow(ownRows[i - lines.size() - 1], i);
            } else if (i <= header || i > lastTaken) {
                CopyRow(kNoRow, i);
            } else {
                TakeLine(lines[i - 1], i);
            }
        }
    }

  private:
    void Stop() {
        table_ = former_;
        result_.outcome = ImportOutcome::Stopped;
    }

    void AddLoss(const std::vector<std::string>& tickers, std::string_view reason) {
        if (tickers.empty()) return;
        result_.report.Add(fmt::format("{} left the table, because {}: {}", CountedTickers(tickers.size()),
                                       reason, NameList(tickers)));
    }

    void FindColumnUses() {
        std::string text;
        uses_.resize(table_.ColumnCount());
        for (std::size_t column = 0; column < uses_.size(); ++column) {
            const std::string& header = table_.Header(column);
            uses_[column].isFilled = CellText(rows_, 1, header, text);
            for (const FilePart& part : parts_) {
                if (part.field->name == header) uses_[column].part = part.part;
            }
        }
    }

    void ShowLine(std::size_t line, std::size_t count) {
        session_.run.CurrentRow = line;
        session_.run.ProgressFraction = static_cast<double>(line) / static_cast<double>(count);
        session_.person.ShowProgress(session_.run.ProgressFraction);
        session_.person.PumpEvents();
    }

    // Puts a row of the table before the import at `row`; kNoRow empties it.
    void CopyRow(std::size_t formerRow, std::size_t row) {
        for (std::size_t column = 0; column < table_.ColumnCount(); ++column) {
            table_.SetText(row, column, former_.Text(formerRow, column));
        }
    }

    void TakeLine(std::string_view line, std::size_t row) {
        const std::vector<std::string_view> pieces = SplitAt(line, separator_);
        for (const FilePart& part : parts_) {
            if (part.part < pieces.size()) TakeField(*part.field, pieces[part.part], row);
        }
        session_.CurrentTicker = rows_.Symbols[row];
        rows_.TradeDates[row] =
            ConvertTradeDate(rows_.TradeDates[row], TextOf(session_.settings, kImportDateForm));
        CalculateRow(rows_, row, RatioGuard::NotZero, session_.clock.Today());
        WriteRow(rows_, row, table_);
        KeepFormerCells(row, pieces.size());
        ++result_.rows;
        Store(row);
    }

    void TakeField(const QuoteField& field, std::string_view piece, std::size_t row) {
        std::string& entry = (rows_.*field.array)[row];
        if (field.form == FieldForm::Number) {
            entry = ShortestNumber(LeadingNumber(piece));
        } else {
            entry = piece;
        }
    }

    // What the line does not hold stays with its ticker: the columns that no file supplies, and those behind
    // the end of a short line.
    void KeepFormerCells(std::size_t row, std::size_t pieceCount) {
        const auto found = formerRows_.find(table_.Ticker(row));
        const std::size_t formerRow = found == formerRows_.end() ? kNoRow : found->second;
        for (std::size_t column = 1; column < uses_.size(); ++column) {
            const ColumnUse& use = uses_[column];
            const bool isMissing = use.part && *use.part >= pieceCount;
            if (!use.isFilled || isMissing) table_.SetText(row, column, former_.Text(formerRow, column));
        }
    }

    void Store(std::size_t row) {
        const StoredDay stored = StoreDay(session_.settings.QuoteFolder, rows_, row, days_, run_);
        if (stored.outcome == DayOutcome::Appended || stored.outcome == DayOutcome::Replaced) {
            ++result_.stored;
        }
        if (!result_.error) result_.error = stored.error;
        TellDay(rows_.Symbols[row], stored);
    }

    void TellDay(const std::string& ticker, const StoredDay& stored) {
        if (ticker.empty()) return;
        if (stored.outcome == DayOutcome::Failed) {
            result_.report.Tell(ticker, TickerFate::Failed, Sentence(stored.error));
        } else if (stored.outcome == DayOutcome::Skipped) {
            result_.report.Tell(ticker, TickerFate::Skipped,
                                "its row is in the table, without a day to store");
        } else {
            const bool isNew = stored.outcome != DayOutcome::Unchanged;
            result_.report.Tell(ticker, isNew ? TickerFate::Stored : TickerFate::NothingNew);
        }
    }

    // No table has such a row.
    static constexpr std::size_t kNoRow = kMostRows;

    Session& session_;
    QuoteTable& table_;
    const QuoteTable former_;
    DayStore& days_;
    DayRun& run_;
    QuoteImport& result_;
    char separator_;
    std::vector<FilePart> parts_;
    std::vector<ColumnUse> uses_;
    std::unordered_map<std::string, std::size_t> formerRows_;
    QuoteArrays rows_;
};

bool TakesImports(const std::string& currentFile) {
    const FileKind kind = KindOf(currentFile);
    return kind == FileKind::Ddq || kind == FileKind::Db;
}

// An import adds its tickers to the list of the last update.
Failure PrepareUpdateList(const std::string& quoteFolder, DayRun& run) {
    if (run.listed.empty()) return {};
    const Path list = UpdateListPath(quoteFolder);
    std::string bytes;
    if (Failure failure = ReadIfThere(list, bytes)) return failure;
    return run.change.Write(list, bytes + run.listed);
}

ImportOutcome ReadAndTake(Session& session, QuoteTable& table, DayStore& days, DayRun& run,
                          QuoteImport& result) {
    const Path file = ImportFile(session.AppPath, session.settings);
    std::string bytes;
    if (Failure failure = ReadIfThere(file, bytes)) {
        result.error = std::move(failure);
        return ImportOutcome::Failed;
    }
    const std::vector<std::string> lines = ImportLinesOf(bytes);
    if (lines.empty()) {
        result.report.SetHeadline("Nothing to import in " + file.string());
        return ImportOutcome::NothingToRead;
    }
    const std::vector<std::size_t> ownRows = RowsWithoutLine(table, lines);
    if (lines.size() + ownRows.size() >= kImportLimit &&
        !session.person.AskBeforeDestroying(kImportLimitQuestion, kImportLimitTitle)) {
        return ImportOutcome::Declined;
    }
    run.growth = GrowthOfRun(lines.size());
    ImportWalk walk(session, table, days, run, result);
    walk.TakeLines(lines, ownRows);
    if (result.outcome == ImportOutcome::Stopped) return ImportOutcome::Stopped;
    walk.TellLostRows(ownRows);
    if (result.rows > 0) result.report.MarkChanged();
    ColorChange(table, KindOf(session.CurrentFile), session.clock.Today(), nullptr);
    return result.error ? ImportOutcome::Failed : ImportOutcome::Done;
}

// The line of the report; of an import that failed nothing is left to tell of.
void TellImport(QuoteImport& result) {
    if (result.outcome == ImportOutcome::NothingToRead) return;
    if (result.outcome == ImportOutcome::Stopped) {
        result.report = RunReport(result.report.What(), "rows");
        return result.report.SetHeadline(std::string(kImportStopped));
    }
    if (result.outcome == ImportOutcome::Failed) {
        result.report = RunReport(result.report.What(), "rows");
        result.report.Fail(FailedSentence("The import", result.error));
        if (result.error.isHalfDone) result.report.MarkChanged();
        return;
    }
    result.report.SetHeadline(fmt::format("{} imported, {} stored", Counted(result.rows, "row", "rows"),
                                          Counted(result.stored, "day", "days")));
    TellHalfLines(result.halfLines, result.report);
}

// Puts what the import prepared in place; after a failure all files are as they were.
void CommitImport(Session& session, const QuoteTable& table, const Path* saveTo, DayRun& run,
                  QuoteImport& result) {
    if (!result.error) result.error = PrepareUpdateList(session.settings.QuoteFolder, run);
    if (!result.error && saveTo != nullptr && result.outcome == ImportOutcome::Done) {
        result.error = PrepareQuoteTable(table, *saveTo, run.change);
    }
    if (!result.error) result.error = run.change.Delete(ImportFile(session.AppPath, session.settings));
    if (!result.error) result.error = CommitBeside(session, run.change);
    if (!result.error) return;
    result.outcome = ImportOutcome::Failed;
    result.stored = 0;
    if (TakeBackBeside(session, run.change)) result.error.isHalfDone = true;
}

}  // namespace

Path ImportFile(const Path& appPath, const SettingsTables& settings) {
    return FolderOfSetting(appPath, Get(settings, kImportFolder)) / PlatformPath(Get(settings, kImportName));
}

std::vector<std::string> ImportLinesOf(std::string_view bytes) {
    std::vector<std::string> lines;
    LineReader reader(bytes);
    std::string_view line;
    for (std::size_t count = 0; count < kMostRows && reader.Next(line); ++count) {
        if (!BeginsWithDeviceName(line)) lines.emplace_back(line);
    }
    return lines;
}

QuoteImport ImportQuotes(Session& session, QuoteTable& table, DayStore& days, const Path* saveTo) {
    QuoteImport result;
    if (!TakesImports(session.CurrentFile)) {
        session.person.Say(kImportNeedsQuoteFile);
        result.outcome = ImportOutcome::NeedsQuoteFile;
        return result;
    }
    if (!MayExchange(session, ImportFile(session.AppPath, session.settings), ExchangeWay::Import)) {
        result.outcome = ImportOutcome::Declined;
        return result;
    }
    BeginRun(session.run);
    const std::string selected = session.CurrentTicker;
    result.report = RunReport("Import into " + session.CurrentFile, "rows");
    FileChange change(ChangePlaceOf(session), "Import " + session.CurrentFile);
    change.AlsoKeep(session.DataFile(kLastRunName));
    // A window leaves the table's saving to its person.
    if (!saveTo && KindOf(session.CurrentFile) == FileKind::Ddq)
        change.AlsoKeep(session.DataFile(session.CurrentFile));
    DayRun run{change, YearGrowth::Replaced, {}, {}};
    result.outcome = ReadAndTake(session, table, days, run, result);
    if (result.outcome == ImportOutcome::Declined) return result;
    if (result.outcome == ImportOutcome::Stopped) {
        result.rows = result.stored = 0;
        TakeBackBeside(session, run.change);
    } else {
        CommitImport(session, table, saveTo, run, result);
    }
    if (result.outcome == ImportOutcome::Done) result.halfLines = std::move(run.halfLines);
    TellImport(result);
    session.run.CurrentRow = 0;
    session.CurrentTicker = selected;
    session.person.ShowTickerCount(table.TickerCount());
    session.person.ShowStatusWord(kStatusComplete);
    return result;
}

}  // namespace brantlow
