// The rows of the command table that keep house: joining tables, taking an update back, back-ups.
#pragma once

#include <array>

#include "batch/command.h"

namespace brantlow {

ExitStatus RunCombine(BatchCall& call);
inline constexpr Command kCombineCommand = {
    .name = "combine",
    .usage = "A B OUT",
    .operand = "A B OUT",
    .fewestOperands = 3,
    .mostOperands = 3,
    .summary = "Joins two end-of-day files to a third",
    .help =
        R"(The rows of A, then those of B, whose first row takes the place of the last row of A. Tickers of
both files stay twice. OUT gets a header when its name ends in ddq. Prints the count of rows.
)",
    .settings = kChangeSettings,
    .writes = AlwaysWrites,
    .run = RunCombine,
};

ExitStatus RunRemoveLastUpdate(BatchCall& call);
inline constexpr Command kRemoveLastUpdateCommand = {
    .name = "remove-last-update",
    .usage = "",
    .operand = "",
    .summary = "Takes the last day of the last update out of the database",
    .help =
        R"(The last record of this year's file of each ticker that the update touched goes, whatever its date;
a second call takes a further day. Prints the count of records removed.
)",
    .settings = kChangeSettings,
    .writes = AlwaysWrites,
    .run = RunRemoveLastUpdate,
};

inline constexpr std::string_view kListOption = "--list";
inline constexpr std::array<CommandOption, 1> kUndoOptions = {
    {{kListOption, "", "print the changes that can be undone, newest first, one line of JSON each"}}};
bool UndoWrites(const Arguments& arguments);
ExitStatus RunUndo(BatchCall& call);
inline constexpr Command kUndoCommand = {
    .name = "undo",
    .usage = "[ID]",
    .operand = "ID",
    .mostOperands = 1,
    .options = kUndoOptions,
    .summary = "Brings the files of the newest change, or of the change ID, back",
    .help =
        R"(Changes that can be undone: populate, split, split-calendar, delete --history, import,
import-history, remove-last-update, restore, combine over a file, fundamentals over a file,
practice --replace, check --repair, and the splits that an update restates.
The undoing is a change itself: a second undo brings the first change back. The newest changes are
kept in Back Up/Undo, as many as VTROWNset.ini says (20 changes, 2 GB).
)",
    .writes = UndoWrites,
    .run = RunUndo,
};

inline constexpr std::string_view kRepairOption = "--repair";
inline constexpr std::string_view kStrictOption = "--strict";
inline constexpr std::array<CommandOption, 2> kCheckOptions = {{
    {kRepairOption, "", "repair what can be repaired without guessing; undo takes it back"},
    {kStrictOption, "", "notes count as faults in the exit status"},
}};
bool CheckWrites(const Arguments& arguments);
ExitStatus RunCheck(BatchCall& call);
inline constexpr Command kCheckCommand = {
    .name = "check",
    .usage = "",
    .operand = "",
    .options = kCheckOptions,
    .summary = "Looks through settings, tables and the quote database for faults",
    .help =
        R"(One line a finding: FILE:LINE: what is wrong; the first line of each kind in a file, and how many
further ones there are. A note is worth a look and may be right: a price outside its day's range, days that
the other tickers have, a history without a table. The last line counts them. Exit status 0 without faults,
3 with some; a repair that leaves none is 0. Repaired are empty and cut-off lines, lines that stand twice or
in the file of another year, days out of order, cells that are missing at a line's end, and settings that say
what they cannot say.
)",
    .settings = kChangeSettings,
    .writes = CheckWrites,
    .run = RunCheck,
};

ExitStatus RunBackUp(BatchCall& call);
inline constexpr Command kBackUpCommand = {
    .name = "backup",
    .usage = "program|database",
    .operand = "program|database",
    .fewestOperands = 1,
    .mostOperands = 1,
    .summary = "Copies the program's files or the quote database to the back-up folder",
    .help = "The folders stand in VTRDATAset.ini. Prints the count of files copied.\n",
    .settings = kDatabaseSettings,
    .writes = AlwaysWrites,
    .run = RunBackUp,
};

ExitStatus RunRestore(BatchCall& call);
inline constexpr Command kRestoreCommand = {
    .name = "restore",
    .usage = "program|database",
    .operand = "program|database",
    .fewestOperands = 1,
    .mostOperands = 1,
    .summary = "Copies the files of a back-up back",
    .help = "Files of the same name are replaced, others stay. Prints the count of files copied.\n",
    .settings = kDatabaseSettings,
    .writes = AlwaysWrites,
    .run = RunRestore,
};

}  // namespace brantlow
