// What the tests of the store share: a folder of their own and files in it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "shell/person.h"
#include "shell/settings/settings_tables.h"
#include "support/temp_folder.h"

namespace brantlow {

// A folder that is gone with its owner.
class TestFolder {
  public:
    const Path& Root() const { return folder_.Get(); }
    // A folder in it, ending in a separator as QuoteFolder does.
    std::string Folder(std::string_view name) const {
        const Path folder = Root() / Path(name);
        std::filesystem::create_directories(folder);
        return folder.string() + "/";
    }
    Path Write(std::string_view name, std::string_view bytes) const {
        const Path file = Root() / Path(name);
        std::filesystem::create_directories(file.parent_path());
        EXPECT_FALSE(WriteWholeFile(file, bytes, Flush::Later)) << file;
        return file;
    }
    std::string Read(std::string_view name) const { return BytesOrEmpty(Root() / Path(name)); }
    // Every file below the folder by its relative name, sorted; what is kept for undoing is left out.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Root())) {
            const std::string name = entry.path().lexically_relative(Root()).string();
            if (entry.is_regular_file() && !name.starts_with("Back Up/Undo/")) names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

  private:
    TempFolder folder_;
};

// Remembers the progress it is shown.
class ProgressRecorder final : public Person {
  public:
    void Say(std::string_view, std::string_view) override {}
    bool Ask(std::string_view, std::string_view) override { return false; }
    void ShowStatusWord(std::string_view) override {}
    void ShowTickerCount(std::size_t) override {}
    void ShowProgress(double fraction) override { fractions.push_back(fraction); }
    void PumpEvents() override {}
    void Beep() override {}

    std::vector<double> fractions;
};

inline Date Day(int year, unsigned month, unsigned day) {
    return Date{std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{day}};
}

inline const Date kQuoteDay = Day(2024, 3, 15);

inline void SetLines(SettingsTable& table, const std::vector<std::string>& lines) {
    for (std::size_t i = 0; i < lines.size(); ++i) table.Set(i + 1, Value::OfText(lines[i]));
}

}  // namespace brantlow
