#include "desktop/start_options.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "acquire/schedule/scheduled_start.h"

namespace brantlow {

namespace {

constexpr const char* kVersionText = "Brantlow " BRANTLOW_VERSION "\n";

// Describes the command line to `app`, which fills what it is given.
void Describe(CLI::App& app, StartOptions& options, bool& help, bool& version) {
    app.name("brantlow");
    app.set_help_flag();
    app.add_flag("-h,--help", help, "prints this");
    app.add_flag("--version", version, "prints the version");
    CLI::Option* const update =
        app.add_flag("--update", options.update, "begins with an update of the quotes");
    app.add_flag("--select", options.select, "begins with a run of the Stock Selector")->excludes(update);
    app.add_flag(kScheduledFlag, options.scheduled, "given by the system's scheduler for the daily run");
    app.add_option("FILE", options.file, "a table of the folder Data to open");
}

}  // namespace

std::optional<StartAnswer> AnswerWithoutWindow(int argc, const char* const* argv) {
    CLI::App app("Quote tables, price history, charts and stock picks for the private investor.");
    StartOptions options;
    bool help = false, version = false;
    Describe(app, options, help, version);
    // The toolkit's own arguments are still there.
    app.allow_extras();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError&) {
        return std::nullopt;
    }
    if (help) return StartAnswer{app.help()};
    if (version) return StartAnswer{kVersionText};
    return std::nullopt;
}

std::optional<StartOptions> ReadStartOptions(int argc, const char* const* argv, StartAnswer& answer) {
    CLI::App app;
    StartOptions options;
    bool help = false, version = false;
    Describe(app, options, help, version);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        answer = {std::string("brantlow: ") + error.what() + "; brantlow --help tells what can be given.\n",
                  true};
        return std::nullopt;
    }
    std::error_code none;
    if (std::filesystem::exists(options.file, none))
        options.file = std::filesystem::absolute(options.file, none).string();
    return options;
}

}  // namespace brantlow
