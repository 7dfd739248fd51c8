// Prints the addresses that a run asks the web for, one a line, so that a plain client can ask for the same.
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <optional>
#include <string>

#include "acquire/feeds/history_address.h"
#include "acquire/feeds/quote_request.h"
#include "acquire/web/hosts.h"
#include "base/dates.h"
#include "shell/settings/settings_files.h"
#include "store/table_files.h"

namespace {

using namespace brantlow;

void PrintUpdate(const Hosts& hosts, const SettingsTables& settings, const QuoteTable& table) {
    for (std::size_t row = 1; row <= table.TickerCount(); row += BatchStep(settings)) {
        fmt::print("{}\n", StandardQuoteUrl(hosts.QuoteHostInForce(settings), table, row));
    }
}

void PrintPopulate(const Hosts& hosts, const QuoteTable& table, const HistorySpan& span) {
    for (std::size_t row = 1; row <= table.TickerCount(); ++row) {
        fmt::print("{}\n", StandardHistoryUrl(hosts, table.Ticker(row), span));
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::string folder;
    std::string todayText;
    double years = 0;
    CLI::App app("Prints the addresses of an update of Data/Bench.ddq, or with --years of populating it");
    app.add_option("folder", folder, "Application folder")->required();
    app.add_option("--today", todayText, "The day, YYYY-MM-DD")->required();
    app.add_option("--years", years, "Years to populate");
    CLI11_PARSE(app, argc, argv);
    const std::optional<Date> today = ParseDate(todayText);
    if (!today) {
        fmt::print(stderr, "--today: {} is no date\n", todayText);
        return 2;
    }
    const Path data = Path(folder) / "Data";
    SettingsTables settings;
    LoadAllSettings(folder, settings);
    QuoteTable table;
    LoadQuoteTable(data / "Bench.ddq", FileKind::Ddq, settings, *today, table, nullptr);
    const Hosts hosts = LoadHosts(data);
    if (years > 0) {
        PrintPopulate(hosts, table, HistorySpanOf(*today, years));
    } else {
        PrintUpdate(hosts, settings, table);
    }
    return 0;
}
