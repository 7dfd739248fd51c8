#include "market/market_command.h"

#include <CLI/CLI.hpp>

#include <algorithm>

#include "market/market_hosts.h"
#include "market/market_reply.h"

namespace brantlow {

namespace {

constexpr unsigned kFastest = 1'000'000'000;

std::optional<Date> ReadIsoDay(const std::string& text) {
    const std::optional<Date> day = ParseDate(text);
    return day && FormatIsoDate(*day) == text ? day : std::nullopt;
}

// What the parser fills.
struct Texts {
    std::string today;
    std::string weeks;
    std::string prices;
    std::string hosts;
};

void Describe(CLI::App& app, MarketCommand& command, Texts& texts) {
    app.name("brantlow-market");
    app.set_help_flag();
    app.add_flag("-h,--help", command.help, "prints this");
    app.add_option("--port", command.port, "the port to listen on; 0, the default, is any free one")
        ->check(CLI::Range(0, kHighestPort));
    app.add_option("--speed", command.bytesPerSecond,
                   "bytes a second of every reply; 0, the default, is as fast as it goes")
        ->check(CLI::Range(0U, kFastest));
    app.add_option("--today", texts.today, "the day to serve, as YYYY-MM-DD; else that of the clock");
    app.add_option("--weeks", texts.weeks,
                   "the day by whose weeks the prices stand, so that they go on up to it; else today");
    app.add_option("--prices", texts.prices, "a folder of practice prices; else that of the installation");
    app.add_flag("--with-parent", command.withParent, "ends with the program that started it");
    app.add_option("--hosts", texts.hosts,
                   "a Hosts.ini to point here; a file that the market has not written is left alone");
}

// The sentence for an option's text that is no day; an empty text stands for none.
std::string TakeDay(const char* option, const std::string& text, std::optional<Date>& day) {
    if (text.empty()) return {};
    day = ReadIsoDay(text);
    return day ? std::string() : std::string(option) + ": '" + text + "' is no day; YYYY-MM-DD";
}

std::string TakeTexts(const Texts& texts, MarketCommand& command) {
    if (!texts.prices.empty()) command.prices = texts.prices;
    if (!texts.hosts.empty()) command.hosts = texts.hosts;
    const std::string refusal = TakeDay("--today", texts.today, command.today);
    return refusal.empty() ? TakeDay("--weeks", texts.weeks, command.weeks) : refusal;
}

constexpr std::string_view kServed =
    "\nServes the practice prices on the loopback and prints its address once it listens.\n"
    "\nAddresses:\n"
    "  /d/quotes.txt?s=A,B&f=CODES   quotes of the day\n"
    "  /table.txt?s=A&a=..&f=YEAR    history before today\n"
    "  /q/ks /q/ao /q/ae ?s=A        fundamentals of a ticker\n"
    "  /c/s.html                     the split calendar\n"
    "  /send_stock_alert.asp         notes an alert request; /alerts shows them\n"
    "  the paths of massive, alpaca, yahoo, nasdaq, tiingo and sec, with any key but 'wrong'; several hosts "
    "as\n"
    "  the first part of the path\n"
    "  anything else                 a plain page\n"
    "A market's letters in front (/de, /fr ...) choose the market and with it decimal commas.\n"
    "\nFaults, with any address: fault=NAME in its query, or /fault=NAME in front of its path:\n";

}  // namespace

MarketCommandLine ReadMarketCommand(std::vector<std::string> arguments) {
    MarketCommandLine line;
    Texts texts;
    CLI::App app;
    Describe(app, line.command, texts);
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
        line.refusal = TakeTexts(texts, line.command);
    } catch (const CLI::ParseError& error) {
        line.refusal = error.what();
    }
    return line;
}

std::string MarketHelp() {
    MarketCommand command;
    Texts texts;
    CLI::App app;
    Describe(app, command, texts);
    return app.help().append(kServed).append(FaultHelp());
}

}  // namespace brantlow
