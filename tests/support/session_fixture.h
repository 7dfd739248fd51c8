// A session in an application folder of a test's own: fixed clock, recording person, settings set by line.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/clock.h"
#include "shell/session.h"
#include "store/quote_table.h"
#include "support/recording_person.h"
#include "support/table_lines.h"
#include "support/temp_folder.h"

namespace brantlow {

class SessionTest : public ::testing::Test {
  protected:
    // Friday.
    static Date Today() { return Date{std::chrono::year{2024}, std::chrono::month{3}, std::chrono::day{15}}; }

    SessionTest() {
        std::filesystem::create_directories(folder / "Data");
        std::filesystem::create_directories(folder / "Quotes/EOD");
        session.settings.QuoteFolder = (folder / "Quotes/EOD").string() + "/";
        session.CurrentFile = "Mine.ddq";
    }

    Path Write(const Path& name, std::string_view bytes) const {
        const Path file = folder / name;
        std::filesystem::create_directories(file.parent_path());
        EXPECT_FALSE(WriteWholeFile(file, bytes, Flush::Later)) << file;
        return file;
    }
    std::string Read(const Path& name) const { return BytesOrEmpty(folder / name); }
    bool Exists(const Path& name) const { return IsRegularFile(folder / name); }

    // Every file below the folder but what is kept for undoing: its name, a colon, its bytes.
    std::vector<std::string> Everything() const {
        std::vector<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Get())) {
            const std::string name = entry.path().lexically_relative(folder.Get()).string();
            if (!entry.is_regular_file() || name.starts_with("Back Up/Undo/")) continue;
            files.push_back(name + ":" + BytesOrEmpty(entry.path()));
        }
        std::sort(files.begin(), files.end());
        return files;
    }

    // What `act` does to files it does beside the windows; how often it did.
    int FilesChangedBesideBy(const std::function<void()>& act) {
        std::vector<std::string> last = Everything();
        bool isBeside = false;
        int changes = 0;
        person.aroundBeside = [&] {
            std::vector<std::string> now = Everything();
            if (isBeside) {
                changes += now == last ? 0 : 1;
            } else {
                EXPECT_EQ(now, last);
            }
            isBeside = !isBeside;
            last = std::move(now);
        };
        act();
        EXPECT_EQ(Everything(), last);
        person.aroundBeside = nullptr;
        return changes;
    }

    void Set(SettingsTable& table, std::size_t line, std::string_view text) const {
        table.Set(line, Value::OfRawLine(text));
    }
    void SetLines(SettingsTable& table, const std::vector<std::string>& lines) const {
        for (std::size_t i = 0; i < lines.size(); ++i) Set(table, i + 1, lines[i]);
    }

    static QuoteTable TableOf(const std::vector<std::string>& lines) {
        QuoteTable table;
        for (const std::string& line : lines) table.AppendLine(line);
        return table;
    }
    static std::vector<std::string> LinesOf(const QuoteTable& table) {
        std::vector<std::string> lines;
        for (std::size_t row = 0; row < table.RowCount(); ++row) lines.push_back(LineText(table, row));
        return lines;
    }

    TempFolder folder;
    FixedClock clock{Today()};
    RecordingPerson person;
    Session session{folder.Get(), clock, person};
};

}  // namespace brantlow
