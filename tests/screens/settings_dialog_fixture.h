// The settings dialog on an application folder of a test's own, with its files as an installation has
// them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "screens/application_settings.h"
#include "shell/settings/settings_files.h"
#include "support/session_fixture.h"
#include "support/source_folder.h"

namespace brantlow {

using Lines = std::vector<std::string>;

class SettingsDialog : public SessionTest {
  protected:
    SettingsDialog() {
        for (const SettingsFileForm& form : kSettingsFiles) {
            Write(FileOf(form.fileName), BytesOrEmpty(SourceFolder() / "assets/Data" / form.fileName));
        }
        Open();
    }

    static Path FileOf(std::string_view name) { return Path("Data") / name; }

    // As the program starts and the menu entry opens the dialog.
    void Open() {
        session.settings = SettingsTables();
        LoadAllSettings(session.AppPath, session.settings);
        dialog.Load();
    }
    void OpenWith(std::string_view file, const Lines& lines) {
        WriteLines(file, lines);
        Open();
    }
    void WriteLines(std::string_view file, const Lines& lines) {
        std::string bytes;
        for (const std::string& line : lines) bytes += line + "\r\n";
        Write(FileOf(file), bytes);
    }
    Lines FileLines(std::string_view file) const {
        const std::string bytes = Read(FileOf(file));
        Lines lines;
        for (std::size_t begin = 0; begin < bytes.size();) {
            const std::size_t end = bytes.find("\r\n", begin);
            if (end == std::string::npos) {
                ADD_FAILURE() << file << " does not end with a line end";
                break;
            }
            lines.push_back(bytes.substr(begin, end - begin));
            begin = end + 2;
        }
        return lines;
    }
    // The file's lines with line `line` (1 the first) replaced.
    Lines With(std::string_view file, std::size_t line, std::string_view text) const {
        Lines lines = FileLines(file);
        lines.at(line - 1) = text;
        return lines;
    }

    bool On(std::string_view control) const { return dialog.Control(control).on; }
    bool Enabled(std::string_view control) const { return dialog.Control(control).enabled; }
    const std::string& Text(std::string_view control) const { return dialog.Control(control).text; }
    const Lines& Items(std::string_view list) const { return dialog.Control(list).items; }
    std::size_t Find(std::string_view list, std::string_view item) const {
        const Lines& items = Items(list);
        return static_cast<std::size_t>(std::find(items.begin(), items.end(), item) - items.begin());
    }
    // Moves the entry with this name by the arrow, which leads from `list`.
    bool MoveNamed(std::string_view arrow, std::string_view list, std::string_view item) {
        return dialog.Move(arrow, Find(list, item));
    }
    void Apply(SettingsTab tab) { EXPECT_EQ(dialog.Apply(tab).sentence, ""); }
    void Default(SettingsTab tab) { EXPECT_EQ(dialog.Default(tab).sentence, ""); }

    Hosts hosts;
    ApplicationSettings dialog{session, hosts};
};

}  // namespace brantlow
