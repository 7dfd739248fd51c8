// The lines of the settings files, one row a line: where it stands, what it may hold, what it starts with and
// what an unknown text means. The engine, the dialogs, the wizard, the documents and the tests read the rows;
// no line number stands anywhere else.
//
// A line is read by its handle: Get(tables, kKeepsHistory). A text that the row does not know, an empty or a
// missing line gives the row's fallback.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "shell/settings/settings_tables.h"

namespace brantlow {

enum class LineKind {
    Flag,    // the first of two words, and anything else
    Number,  // a whole number
};

// The words that a line may hold; a flag's are that for yes and that for no.
using LineChoices = std::span<const std::string_view>;

struct LineRow {
    std::string_view name;
    SettingsFile file;
    std::size_t number;
    LineKind kind;
    // As a new application folder has it, without quotes.
    std::string_view standard;
    // What it decides, as docs/files.md says it.
    std::string_view words;
    LineChoices choices = {};
    // Of a number: the range that counts, and what a text that is no number stands for. A number outside the
    // range counts as the nearest one in it.
    int least = 0;
    int most = 0;
    int fallback = 0;
};

inline constexpr std::string_view kKeepWords[] = {"Keep", "Replace"};

inline constexpr LineRow kLineRows[] = {
    {"KeepsHistory", SettingsFile::Own, 1, LineKind::Flag, "Keep",
     "what becomes of the stored history of a ticker whose download failed", kKeepWords},
    {"UndoChanges",
     SettingsFile::Own,
     2,
     LineKind::Number,
     "20",
     "how many changes can be undone",
     {},
     1,
     10000,
     20},
    {"UndoMegabytes",
     SettingsFile::Own,
     3,
     LineKind::Number,
     "2048",
     "how many megabytes are kept for undoing",
     {},
     1,
     1000000,
     2048},
};

// The row of that name and kind; a handle for a row that is not there does not compile.
consteval const LineRow& RowNamed(std::string_view name, LineKind kind) {
    for (const LineRow& row : kLineRows) {
        if (row.name == name && row.kind == kind) return row;
    }
    throw "no such row";
}

struct FlagLine {
    consteval explicit FlagLine(std::string_view name) : row(&RowNamed(name, LineKind::Flag)) {}
    const LineRow* row;
};

struct NumberLine {
    consteval explicit NumberLine(std::string_view name) : row(&RowNamed(name, LineKind::Number)) {}
    const LineRow* row;
};

inline constexpr FlagLine kKeepsHistory{"KeepsHistory"};
inline constexpr NumberLine kUndoChanges{"UndoChanges"};
inline constexpr NumberLine kUndoMegabytes{"UndoMegabytes"};

// True for the row's first word, exactly as it is spelled.
bool Get(const SettingsTables& tables, FlagLine line);
// A whole number within the row's range.
int Get(const SettingsTables& tables, NumberLine line);

}  // namespace brantlow
