#include "check/settings_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <set>
#include <span>

#include "base/numbers.h"
#include "base/text.h"
#include "chart/pick_lists.h"
#include "selector/catalogue.h"
#include "shell/settings/condition_lines.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_defaults.h"
#include "shell/settings/settings_files.h"
#include "store/columns.h"
#include "store/quote_fields.h"

namespace brantlow {

namespace {

std::string Quoted(std::string_view text) {
    return fmt::format("\"{}\"", InLine(text));
}

bool IsIn(std::span<const std::string_view> names, std::string_view text) {
    return std::find(names.begin(), names.end(), text) != names.end();
}

// What is wrong with the text of a numbered line, nothing where the row allows it.
struct LineFault {
    FindingKind kind{};
    std::string words;
};

std::optional<LineFault> FaultOfNumber(const LineRow& row, const std::string& text) {
    // A number that counts as 0 where it is missing may be missing.
    if (text.empty() && row.fallback == 0) return std::nullopt;
    const auto number = WholeNumber(text);
    if (number && *number >= row.least && *number <= row.most) return std::nullopt;
    return LineFault{FindingKind::NumberOutside, fmt::format("{}: {} is no number from {} to {}", row.name,
                                                             Quoted(text), row.least, row.most)};
}

std::optional<LineFault> FaultOf(const LineRow& row, const SettingsTables& tables) {
    const std::string& text = TextOf(tables, row);
    switch (row.kind) {
        case LineKind::Flag:
        case LineKind::Choice:
            if (ChoiceOf(row, text)) return std::nullopt;
            return LineFault{FindingKind::UnknownWord,
                             fmt::format("{}: {} is none of its words", row.name, Quoted(text))};
        case LineKind::Number:
            return FaultOfNumber(row, text);
        case LineKind::Time:
            if (text.empty() || Get(tables, TimeLine(row))) return std::nullopt;
            return LineFault{FindingKind::SettingNoTime,
                             fmt::format("{}: {} is none from 0 to {}", row.name, Quoted(text), row.most)};
        case LineKind::Day:
            if (text.empty() || ParseDate(text)) return std::nullopt;
            return LineFault{FindingKind::SettingNoDate,
                             fmt::format("{}: {} is no date", row.name, Quoted(text))};
        case LineKind::Text:
            break;
    }
    return std::nullopt;
}

// A settings file in memory: its table as the program reads it, and how many lines it has.
struct LoadedFile {
    SettingsFile file;
    Path appPath;
    SettingsTables tables;
    std::size_t lines = 0;
};

bool IsNumbered(const LoadedFile& loaded, const LineRow& row) {
    return row.file == loaded.file && row.number <= loaded.lines;
}

void CheckNumbered(const LoadedFile& loaded, FileFindings& found) {
    for (const LineRow& row : kLineRows) {
        if (!IsNumbered(loaded, row)) continue;
        if (auto fault = FaultOf(row, loaded.tables))
            found.Add(fault->kind, row.number, std::move(fault->words));
    }
    const std::size_t wanted = LineCountOf(loaded.file);
    if (loaded.lines < wanted)
        found.Add(FindingKind::ShortSettings, loaded.lines,
                  fmt::format("{} lines of {}: the others count as empty", loaded.lines, wanted));
}

// The names from line `first` to `last`, each of them known.
template <class IsKnown>
void CheckNames(const SettingsTable& table, std::size_t first, std::size_t last, IsKnown&& isKnown,
                FileFindings& found) {
    for (std::size_t line = first; line <= last; ++line) {
        if (!isKnown(table.Text(line)))
            found.Add(FindingKind::UnknownName, line, Quoted(table.Text(line)) + " is no name of the list");
    }
}

bool IsColumn(std::string_view name) {
    return FindQuoteColumn(name) != nullptr;
}

bool IsField(std::string_view name) {
    return FindQuoteField(name) != nullptr || name == "Variable" || IsColumn(name);
}

void CheckColumns(const LoadedFile& loaded, FileFindings& found) {
    const SettingsTable& columns = loaded.tables.ColumnSettings;
    CheckNames(columns, 1, loaded.tables.ColumnCount, IsColumn, found);
    std::set<std::string_view> seen;
    for (std::size_t line = 1; line <= loaded.tables.ColumnCount; ++line) {
        if (!seen.insert(columns.Text(line)).second)
            found.Add(FindingKind::NameTwice, line, std::string(columns.Text(line)));
    }
}

void CheckGraph(const LoadedFile& loaded, FileFindings& found) {
    const SettingsTable& graph = loaded.tables.GraphSettings;
    for (std::size_t slot = 1; slot <= kChartSeries; ++slot) {
        const LineRow& row = ChartSeriesRow(slot);
        if (!IsNumbered(loaded, row) || graph.Text(row.number).empty()) continue;
        CheckNames(
            graph, row.number, row.number,
            [](std::string_view name) { return IsIn(kPriceSeriesItems, name); }, found);
    }
    for (const TextLine line : {kBuyCondition, kSellCondition}) {
        if (!IsNumbered(loaded, *line.row)) continue;
        const std::string& text = Get(loaded.tables, line);
        bool isKnown = text.empty() || text == kNoConditionWord;
        for (std::size_t i = 1; i <= kConditionCount; ++i) isKnown |= text == fmt::format("Condition {}", i);
        if (!isKnown)
            found.Add(FindingKind::UnknownName, line.row->number,
                      Quoted(text) + " is neither \"None\" nor a condition");
    }
}

// The place of a marker, 0 where it is missing, which is told.
std::size_t PlaceOf(const SettingsTable& table, std::size_t lines, std::string_view marker,
                    FileFindings& found) {
    for (std::size_t line = 1; line <= lines; ++line) {
        if (table.Text(line) == marker) return line;
    }
    found.Add(FindingKind::MarkerMissing, lines, std::string(marker));
    return 0;
}

void CheckSequence(const SettingsTable& table, std::size_t first, std::size_t last, FileFindings& found) {
    if (first > 0 && last > 0) CheckNames(table, first + 1, last - 1, IsField, found);
}

void CheckNet(const LoadedFile& loaded, FileFindings& found) {
    const SettingsTable& net = loaded.tables.NetSettings;
    const auto place = [&](std::string_view marker) { return PlaceOf(net, loaded.lines, marker, found); };
    const std::size_t startEod = place(kStartEod);
    CheckSequence(net, startEod, place(kEndEod), found);
    const std::size_t startHistory = place(kStartHistory);
    CheckSequence(net, startHistory, place(kEndHistory), found);
}

void CheckImEx(const LoadedFile& loaded, FileFindings& found) {
    const SettingsTable& imEx = loaded.tables.ImExSettings;
    const std::size_t exported = PlaceOf(imEx, loaded.lines, kEndExportFile, found);
    CheckSequence(imEx, LineCountOf(SettingsFile::ImEx), exported, found);
    CheckSequence(imEx, exported, PlaceOf(imEx, loaded.lines, kEndImportFile, found), found);
}

void CheckRecent(const LoadedFile& loaded, FileFindings& found) {
    for (const LineRow& row : kLineRows) {
        if (!IsNumbered(loaded, row)) continue;
        const std::string& name = TextOf(loaded.tables, row);
        if (!name.empty() && !IsRegularFile(loaded.appPath / "Data" / PlatformPath(name)))
            found.Add(FindingKind::RecentMissing, row.number, Quoted(name));
    }
}

// One block after another: "Condition", the action, names, "Value", 38 slots.
class ConditionLook {
  public:
    explicit ConditionLook(FileFindings& found) : found_(found) {}

    void Take(const ConditionLine& line, std::size_t number) {
        if (line.token == ConditionToken::Begin) {
            EndBlock(number);
            isOpen_ = true;
            slots_ = 0;
            hasAction_ = inSlots_ = false;
        } else if (!isOpen_) {
            if (!line.text.empty())
                found_.Add(FindingKind::ConditionForm, number,
                           Quoted(line.text) + " stands before the first \"Condition\"");
        } else if (!hasAction_) {
            hasAction_ = true;
            if (line.token != ConditionToken::Action)
                found_.Add(FindingKind::ConditionForm, number,
                           Quoted(line.text) + " is none of \"Buy\", \"Sell\", \"Hold\"");
        } else if (line.token == ConditionToken::Values && !inSlots_) {
            inSlots_ = true;
        } else {
            TakeText(line.text, number);
        }
    }

    // Behind the last line.
    void EndBlock(std::size_t number) {
        if (isOpen_ && slots_ != kSlotCount)
            found_.Add(FindingKind::ConditionForm, number - 1,
                       fmt::format("the condition ends after {} values of {}", slots_, kSlotCount));
    }

  private:
    void TakeText(const std::string& text, std::size_t number) {
        if (inSlots_) {
            ++slots_;
            if (!text.empty() && !WholeNumber(text))
                found_.Add(FindingKind::NumberOutside, number, "the value " + Quoted(text) + " is no number");
        } else if (!IsIn(ConditionNames(), text)) {
            found_.Add(FindingKind::UnknownName, number, Quoted(text) + " is no test of the catalogue");
        }
    }

    FileFindings& found_;
    bool isOpen_ = false;
    bool hasAction_ = false;
    bool inSlots_ = false;
    std::size_t slots_ = 0;
};

void CheckConditions(const LoadedFile& loaded, FileFindings& found) {
    ConditionLook look(found);
    std::size_t number = 0;
    WalkConditionLines(loaded.tables, [&](const ConditionLine& line) { look.Take(line, ++number); });
    look.EndBlock(number + 1);
}

// What a file holds beyond its numbered lines.
struct FileLook {
    SettingsFile file;
    void (*look)(const LoadedFile& loaded, FileFindings& found);
};
constexpr std::array<FileLook, 6> kLooks = {{
    {SettingsFile::Columns, CheckColumns},
    {SettingsFile::Graph, CheckGraph},
    {SettingsFile::Selector, CheckConditions},
    {SettingsFile::Mru, CheckRecent},
    {SettingsFile::Net, CheckNet},
    {SettingsFile::ImEx, CheckImEx},
}};

// The text that the line counts as.
std::string CountsAs(const LineRow& row, const SettingsTables& tables) {
    switch (row.kind) {
        case LineKind::Flag:
            return std::string(row.choices[1]);
        case LineKind::Choice:
            return std::string(row.choices[static_cast<std::size_t>(row.fallback)]);
        case LineKind::Number:
            return ShortestNumber(Get(tables, NumberLine(row)));
        default:
            return {};
    }
}

constexpr std::array kMendableSettings = {FindingKind::UnknownWord, FindingKind::NumberOutside,
                                          FindingKind::SettingNoTime, FindingKind::SettingNoDate};

}  // namespace

std::vector<Finding> CheckSettingsText(SettingsFile file, const Path& appPath, std::string_view bytes) {
    FileFindings found(SettingsFilePath(file, appPath));
    LoadedFile loaded{file, appPath, {}, LineCount(bytes)};
    TakeSettingsText(file, bytes, loaded.tables);
    LineReader reader(bytes);
    std::string_view line;
    for (std::size_t number = 1; reader.Next(line); ++number) {
        if (line.find('\0') != std::string_view::npos) found.Add(FindingKind::NulBytes, number);
        if (number == kMostRows + 1) found.Add(FindingKind::TooManyLines, number);
    }
    CheckNumbered(loaded, found);
    for (const FileLook& look : kLooks) {
        if (look.file == file) look.look(loaded, found);
    }
    return found.Take();
}

bool IsSettingsMendable(FindingKind kind) {
    return std::find(kMendableSettings.begin(), kMendableSettings.end(), kind) != kMendableSettings.end();
}

std::string MendSettingsText(SettingsFile file, std::string_view bytes) {
    SettingsTables tables;
    TakeSettingsText(file, bytes, tables);
    const std::size_t lines = LineCount(bytes);
    for (const LineRow& row : kLineRows) {
        if (row.file != file || row.number > lines || !FaultOf(row, tables)) continue;
        SetText(tables, row, CountsAs(row, tables));
    }
    return SettingsFileText(file, tables);
}

}  // namespace brantlow
