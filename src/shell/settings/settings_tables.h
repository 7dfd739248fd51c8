// The settings tables in memory. Entry n of a table is line n of its file; consumers read the lines by the
// names that lines.h gives them. Loading and writing the files is in settings_files.h.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <system_error>
#include <vector>

#include "base/values.h"

namespace brantlow {

// The size of the program's world: no table has more rows and no file more lines than this.
inline constexpr std::size_t kMostRows = 18000;

// The settings files in the order in which they are loaded.
enum class SettingsFile { Columns, Data, Graph, Selector, Mru, Net, Lang, ImEx, Own, Src, Mail };
inline constexpr std::size_t kSettingsFileCount = 11;

// A 1-based table of at most kMostRows values. Reading past its end gives an empty text.
class SettingsTable {
  public:
    const std::string& Text(std::size_t line) const { return At(line).Text(); }
    double Number(std::size_t line) const;
    const Value& At(std::size_t line) const;
    // Grows the table as needed; a line outside 1 to kMostRows is passed over.
    void Set(std::size_t line, Value value);
    // The number of the last entry that was ever filled.
    std::size_t Size() const { return values_.size(); }
    void Clear() { values_.clear(); }

  private:
    std::vector<Value> values_;
};

struct SettingsTables {
    SettingsTable ColumnSettings;
    SettingsTable DataSettings;
    SettingsTable GraphSettings;
    SettingsTable SelectorSettings;
    SettingsTable MruSettings;
    SettingsTable NetSettings;
    SettingsTable ImExSettings;
    SettingsTable OwnSettings;
    SettingsTable SrcSettings;
    SettingsTable MailSettings;
    std::string QuoteHost;
    // By SettingsFile: why a file that is there could not be read when it was last loaded. A missing file is
    // no error.
    std::array<std::error_code, kSettingsFileCount> ReadErrors;

    std::size_t ColumnCount = 0;
    std::size_t SelectorLineCount = 0;
    // 0 while unset.
    std::size_t NetEodFirst = 0;
    std::size_t NetEodLast = 0;
    std::size_t NetHistFirst = 0;
    std::size_t NetHistLast = 0;
    std::size_t ImportFieldFirst = 0;
    std::size_t ImportFieldLast = 0;
    // Folder of the quote database, ending in the platform's separator.
    std::string QuoteFolder;
};

}  // namespace brantlow
