#include "store/table_files.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "base/values.h"
#include "shell/session_change.h"
#include "shell/settings/condition_lines.h"
#include "store/table_colours.h"

namespace brantlow {

namespace {

// Loading takes half of the progress bar; the columns and colours take the rest.
constexpr double kLoadShare = 0.5;
constexpr int kUnknownKindWidth = 1100;
// The positions of a quote table's own columns, the fixed ticker column left out.
constexpr std::size_t kLastCataloguePosition = kQuoteColumns.size() - 1;

// The first kMostRows lines of a text.
std::vector<std::string_view> FirstLines(std::string_view bytes, bool& cut) {
    std::vector<std::string_view> lines;
    LineReader reader(bytes);
    std::string_view line;
    while (lines.size() < kMostRows && reader.Next(line)) lines.push_back(line);
    cut = reader.Next(line);
    return lines;
}

bool NamesColumn(std::string_view header, FileKind kind) {
    if (kind == FileKind::Efq) return header == "Symbol";
    if (kind != FileKind::Dbe) return FindQuoteColumn(header) != nullptr;
    return std::find(kEvaluationColumns.begin(), kEvaluationColumns.end(), header) !=
           kEvaluationColumns.end();
}

bool HasHeader(const QuoteTable& table, FileKind kind) {
    for (std::size_t column = 0; column < table.ColumnCount(); ++column) {
        if (NamesColumn(table.Header(column), kind)) return true;
    }
    return false;
}

void AppendLines(const std::vector<std::string_view>& lines, QuoteTable& table, Person* progress) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        table.AppendLine(lines[i]);
        if (!progress) continue;
        progress->ShowProgress(static_cast<double>(i + 1) / static_cast<double>(lines.size()) * kLoadShare);
    }
}

std::string TickerFileText(std::string header, const QuoteTable& from) {
    std::string bytes = std::move(header.append(kLineEnd));
    for (std::size_t row = 1; row < from.RowCount(); ++row) bytes.append(from.Ticker(row)).append(kLineEnd);
    return bytes;
}

// What an older table of this name was made of goes with it.
Failure CreateFile(const Session& session, std::string_view what, std::string_view name,
                   std::string_view bytes) {
    const Path file = session.DataFile(name);
    FileChange change(ChangePlaceOf(session), std::string(what),
                      IsRegularFile(file) ? ChangeKeeps::ForUndo : ChangeKeeps::UntilDone);
    Failure fault = change.Write(file, bytes);
    if (!fault) fault = change.Delete(OriginFile(file));
    if (!fault) fault = change.Commit();
    return fault;
}

// Puts the column named `header` at position `to`, as often as the walk over the positions meets it.
void ShowColumn(const std::string& header, std::size_t to, QuoteTable& table) {
    const std::size_t last = std::min(kLastCataloguePosition, table.ColumnCount() - 1);
    for (std::size_t column = 1; column <= last; ++column) {
        if (table.Header(column) != header) continue;
        if (const QuoteColumn* known = FindQuoteColumn(header)) table.SetWidth(column, known->width);
        table.MoveColumn(column, to);
    }
}

bool IsTemplate(const Path& file) {
    return file.filename() == kNewTableName;
}

std::string TextOf(const QuoteTable& table) {
    std::string bytes;
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        table.AppendLineText(row, bytes);
        bytes.append(kLineEnd);
    }
    return bytes;
}

// The table and what stands beside it, both or neither. One without an origin leaves no other's behind.
std::error_code SaveVerdicts(const QuoteTable& table, const Path& file) {
    const std::string bytes = TextOf(table);
    const Path beside = OriginFile(file);
    FileChange change({file.parent_path(), {}}, "Save", ChangeKeeps::Nothing);
    Failure fault = change.Write(file, bytes);
    if (!fault) {
        fault =
            table.Origin() ? change.Write(beside, OriginText(*table.Origin(), bytes)) : change.Delete(beside);
    }
    if (!fault) fault = change.Commit();
    return fault.cause;
}

}  // namespace

void ColumnWidth(FileKind kind, QuoteTable& table) {
    switch (kind) {
        case FileKind::Ddq:
        case FileKind::Db:
            return table.ResetWidths(kTickerWidth, kHiddenWidth);
        case FileKind::Dbe:
            return table.ResetWidths(kTickerWidth, kConditionWidth);
        case FileKind::Efq:
            return table.ResetWidths(kTickerWidth, kFundamentalWidth);
        case FileKind::None:
            break;
    }
    table.ResetWidths(kTickerWidth, kUnknownKindWidth);
}

void ColumnLocation(FileKind kind, const SettingsTables& settings, QuoteTable& table) {
    if (kind == FileKind::Ddq || kind == FileKind::Db) {
        for (std::size_t k = 1; k < table.ColumnCount(); ++k) {
            const std::string& header = settings.ColumnSettings.Text(k);
            if (!header.empty()) ShowColumn(header, k, table);
        }
    } else if (kind == FileKind::Efq) {
        for (std::size_t column = 1; column < kFundamentalColumnCount; ++column) {
            table.SetWidth(column, FundamentalWidth(column));
        }
    }
}

TableLoad LoadQuoteTable(const Path& file, FileKind kind, const SettingsTables& settings, const Date& today,
                         QuoteTable& table, Person* progress) {
    const ReadResult read = ReadWholeFile(file);
    TableLoad load;
    load.outcome = read.outcome;
    load.error = read.error;
    if (load.Done()) {
        load = LoadTableText(read.bytes, kind, settings, today, table, progress);
        table.SetSource(file, StampOf(file, read.bytes));
        if (kind == FileKind::Dbe) table.SetOrigin(ReadOrigin(file, read.bytes));
        return load;
    }
    table = QuoteTable();
    ColumnWidth(kind, table);
    return load;
}

TableLoad LoadTableText(std::string_view bytes, FileKind kind, const SettingsTables& settings,
                        const Date& today, QuoteTable& table, Person* progress) {
    if (kind == FileKind::Db) progress = nullptr;
    table = QuoteTable();
    ColumnWidth(kind, table);
    TableLoad load;
    load.outcome = ReadOutcome::Done;
    AppendLines(FirstLines(bytes, load.cut), table, progress);
    load.empty = table.RowCount() == 0;
    load.hasHeader = HasHeader(table, kind);
    ColumnLocation(kind, settings, table);
    ColorChange(table, kind, today, progress);
    if (progress) progress->ShowProgress(1);
    return load;
}

std::string TableLoadSentence(const TableLoad& load, const std::string& name) {
    if (load.outcome == ReadOutcome::Missing) return name + ": no such file in Data";
    if (load.error == std::errc::is_a_directory) return name + ": a folder, not a quote file";
    if (load.outcome == ReadOutcome::Failed) return Sentence(FailedTo(FailureKind::Read, name, load.error));
    if (load.cut) return name + ": " + std::string(kTooManyLines);
    if (load.empty) return name + ": the file is empty, it has no header line";
    if (!load.hasHeader)
        return name + ": the first line is no header, it names no column of this kind of file";
    return {};
}

std::error_code SaveQuoteTable(const QuoteTable& table, const Path& file) {
    if (KindOf(file.native()) == FileKind::Dbe) return SaveVerdicts(table, file);
    if (IsTemplate(file)) return std::make_error_code(std::errc::operation_not_permitted);
    return WriteWholeFile(file, TextOf(table));
}

Failure PrepareQuoteTable(const QuoteTable& table, const Path& file, FileChange& change) {
    if (IsTemplate(file))
        return FailedTo(FailureKind::Write, file, std::make_error_code(std::errc::operation_not_permitted));
    return change.Write(file, TextOf(table));
}

void MakeEvaluationTable(const QuoteTable& from, QuoteTable& table) {
    table = QuoteTable();
    ColumnWidth(FileKind::Dbe, table);
    table.AppendLine(EvaluationHeader());
    for (std::size_t row = 1; row < from.RowCount(); ++row) table.AppendLine(from.Ticker(row));
}

std::string FundamentalFileText(const QuoteTable& from) {
    return TickerFileText(EfqHeader(), from);
}

Failure CreateEvaluationFile(const QuoteTable& from, const Session& session) {
    return CreateFile(session, kSelectorChange, kEvaluationsName, TickerFileText(EvaluationHeader(), from));
}

Failure CreateFundamentalFile(const QuoteTable& from, const Session& session) {
    return CreateFile(session, kFundamentalsChange, kFundamentalsName, FundamentalFileText(from));
}

std::array<std::string, kConditionCount + 1> ConditionSummary(const SettingsTables& settings) {
    std::array<std::string, kConditionCount + 1> summaries;
    std::size_t run = 0;
    bool inNames = false;
    const auto take = [&](const ConditionLine& line) {
        if (line.token == ConditionToken::Begin) {
            run = 0;
            return;
        }
        if (line.token == ConditionToken::Action) inNames = true;
        if (line.token == ConditionToken::Values) inNames = false;
        if (!inNames) return;
        ++run;
        if (line.block >= summaries.size()) return;
        if (run > 1) summaries[line.block].append(",  ");
        summaries[line.block].append(line.text);
    };
    WalkConditionLines(settings.SelectorSettings, settings.SelectorSettings.Size(), take);
    return summaries;
}

}  // namespace brantlow
