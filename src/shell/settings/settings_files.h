// The settings files in Data/, between bytes and tables. Order of calls: LoadAllSettings once the application
// folder stands; then settings change by settings_draft.h, or within a larger FileChange by Prepare...,
// Commit and LoadSettingsFile, which sets what is derived too. Errors: a missing or short file is none; one
// that cannot be read keeps its table, stands in ReadErrors and fails each Prepare. A value's meaning is its
// line number (lines.h), or its place between two marker lines; its form stands in base/values.h. Lines 4 to
// 8 of VTRNETset.ini are printed raw, since a web address holds commas and quotes.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>

#include "base/file_change.h"
#include "base/files.h"
#include "shell/settings/lines.h"
#include "shell/settings/settings_tables.h"

namespace brantlow {

// Which application folders get a file: every one that lacks it, or only one that is made anew. A folder that
// goes without a file of the second kind keeps behaving as if there were none.
enum class ShippedTo { EveryFolder, NewFolders };

struct SettingsFileForm {
    SettingsFile file;
    std::string_view fileName;
    std::string_view tableName;
    // Null for VTRLANGset.ini, whose one value is SettingsTables::QuoteHost.
    SettingsTable SettingsTables::*table;
    // Lines beyond these are not read.
    std::size_t linesRead;
    // A written file has at least and at most this many lines; missing entries are empty texts.
    std::size_t fewestWritten;
    std::size_t mostWritten;
    ShippedTo shippedTo = ShippedTo::EveryFolder;
};

inline constexpr std::size_t kDataLines = LineCountOf(SettingsFile::Data);
inline constexpr std::size_t kGraphLines = LineCountOf(SettingsFile::Graph);
inline constexpr std::size_t kMruLines = LineCountOf(SettingsFile::Mru);
inline constexpr std::size_t kOwnLines = LineCountOf(SettingsFile::Own);
inline constexpr std::size_t kSrcLines = LineCountOf(SettingsFile::Src);
inline constexpr std::size_t kMailLines = LineCountOf(SettingsFile::Mail);

inline constexpr std::array<SettingsFileForm, kSettingsFileCount> kSettingsFiles = {{
    {SettingsFile::Columns, "VTRCOLset.ini", "ColumnSettings", &SettingsTables::ColumnSettings, kMostRows, 1,
     kMostRows},
    {SettingsFile::Data, "VTRDATAset.ini", "DataSettings", &SettingsTables::DataSettings, kMostRows,
     kDataLines, kDataLines},
    // With fewer than six chart variables the lines behind them move up, as they do in the table.
    {SettingsFile::Graph, "VTRGRAPHset.ini", "GraphSettings", &SettingsTables::GraphSettings, kMostRows, 0,
     kGraphLines},
    {SettingsFile::Selector, "VTRSELset.ini", "SelectorSettings", &SettingsTables::SelectorSettings,
     kMostRows, 0, kMostRows},
    {SettingsFile::Mru, "VTRMRUset.ini", "MruSettings", &SettingsTables::MruSettings, kMruLines, kMruLines,
     kMruLines},
    {SettingsFile::Net, "VTRNETset.ini", "NetSettings", &SettingsTables::NetSettings, kMostRows, 0,
     kMostRows},
    {SettingsFile::Lang, "VTRLANGset.ini", "QuoteHost", nullptr, 1, 1, 1},
    {SettingsFile::ImEx, "VTRIMEXset.ini", "ImExSettings", &SettingsTables::ImExSettings, kMostRows, 0,
     kMostRows},
    {SettingsFile::Own, "VTROWNset.ini", "OwnSettings", &SettingsTables::OwnSettings, kMostRows, kOwnLines,
     kOwnLines, ShippedTo::NewFolders},
    {SettingsFile::Src, "VTRSRCset.ini", "SrcSettings", &SettingsTables::SrcSettings, kMostRows, kSrcLines,
     kSrcLines, ShippedTo::NewFolders},
    {SettingsFile::Mail, "VTRMAILset.ini", "MailSettings", &SettingsTables::MailSettings, kMostRows,
     kMailLines, kMailLines, ShippedTo::NewFolders},
}};

constexpr const SettingsFileForm& FormOf(SettingsFile file) {
    return kSettingsFiles[static_cast<std::size_t>(file)];
}

std::string SettingsFileName(SettingsFile file);
Path SettingsFilePath(SettingsFile file, const Path& appPath);

// Reads all files of `appPath`/Data in their order. A file that is missing or short leaves its entries empty,
// and an empty value acts as no option chosen. QuoteHost is never empty afterwards. A file that is there and
// cannot be read leaves its table as it was and says why in ReadErrors.
void LoadAllSettings(const Path& appPath, SettingsTables& settings);

// Reads one file into its table and sets what is derived from it: ColumnCount, SelectorLineCount, the
// sequence indexes (0 where a marker is missing), QuoteFolder. The table is emptied first, except
// SelectorSettings: lines that a longer earlier set left behind the file's last line stay there. Gives the
// file's entry of ReadErrors.
std::error_code LoadSettingsFile(SettingsFile file, const Path& appPath, SettingsTables& settings);

// The table of a file whose bytes are at hand, with what is derived from it but for the quote folder. Lines
// that a longer set left behind the selector's last line stay there.
void TakeSettingsText(SettingsFile file, std::string_view bytes, SettingsTables& settings);

// The sentence for a file that could not be read when it was last loaded; empty for any other.
std::string UnreadableSettings(SettingsFile file, const Path& appPath, const SettingsTables& settings);

// The text of the file. Values keep their types: a number stays bare, a date stays between number signs. An
// address of lines 4 and 5 of NetSettings keeps its quotes when it is set as a raw line.
std::string SettingsFileText(SettingsFile file, const SettingsTables& settings);

// Prepares that the file in `appPath`/Data is replaced by that text, or by another one. One that could not be
// read when it was last loaded stands, and is the failure: the tables would put nothing in its place.
Failure PrepareSettingsFile(SettingsFile file, const Path& appPath, const SettingsTables& settings,
                            FileChange& change);
Failure PrepareSettingsText(SettingsFile file, std::string_view text, const Path& appPath,
                            const SettingsTables& settings, FileChange& change);

// A folder named by a settings line as a path of this platform: a relative one lies in the application
// folder.
Path FolderOfSetting(const Path& appPath, std::string_view text);

// Where the quote database lies in the application folder.
inline constexpr std::string_view kOwnDatabaseFolder = "Quotes/EOD";

// The folder of the quote database, with a separator at its end: the one that the settings name when they say
// that it lies elsewhere and the name can be one, else its own in the application folder.
std::string DeriveQuoteFolder(const Path& appPath, const SettingsTables& settings);

}  // namespace brantlow
