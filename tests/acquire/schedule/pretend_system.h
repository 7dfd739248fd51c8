// A system that keeps a schedule for tests: systemctl and crontab in memory.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acquire/schedule/start_keeper.h"

namespace brantlow {

inline std::string Joined(const std::vector<std::string>& command) {
    std::string text;
    for (const std::string& word : command) text += (text.empty() ? "" : " ") + word;
    return text;
}

// A system with or without systemd and crontab, which keeps the table as crontab does.
struct PretendSystem {
    bool systemd = false;
    bool crontab = false;
    std::string crontabError;  // what crontab refuses with
    std::string failing;       // the command that fails
    std::optional<std::string> table;
    std::vector<std::string> calls;

    CommandResult Run(const std::vector<std::string>& command, std::string_view input) {
        const std::string text = Joined(command);
        calls.push_back(text);
        if (command.front() == "systemctl") {
            if (!systemd) return {true, 1, "", "Failed to connect to bus: No medium found\n"};
            if (text == failing) return {true, 1, "", "Access denied\n"};
            return {true, 0, "", ""};
        }
        if (!crontab) return {};
        if (!crontabError.empty()) return {true, 1, "", crontabError};
        if (text == failing) return {true, 1, "", "disk full\n"};
        if (text == "crontab -l" && !table) return {true, 1, "", "no crontab for a\n"};
        if (text == "crontab -l") return {true, 0, *table, ""};
        if (text == "crontab -r") table.reset();
        if (text == "crontab -") table = std::string(input);
        return {true, 0, "", ""};
    }
    ScheduleSystem System(const Path& unitFolder) {
        return {[this](const std::vector<std::string>& command, std::string_view input) {
                    return Run(command, input);
                },
                unitFolder};
    }
    bool Called(const std::string& command) const {
        return std::find(calls.begin(), calls.end(), command) != calls.end();
    }
};

}  // namespace brantlow
