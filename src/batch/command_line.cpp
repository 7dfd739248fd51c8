#include "batch/command_line.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iterator>

#include "batch/command_table.h"

namespace brantlow {

namespace {

// The parser takes an argument in brackets for a list and loses what "--" means for a list of operands. A
// shield in front of an argument keeps it as it is and an operand.
constexpr char kShield = '\x01';

// What the parser calls a command's operands: newer ones of it take no name with a blank.
constexpr const char* kOperands = "OPERANDS";

std::vector<std::string> Shielded(std::span<const std::string> arguments) {
    std::vector<std::string> shielded;
    bool onlyOperands = false;
    for (const std::string& argument : arguments) {
        if (!onlyOperands && argument == "--") {
            onlyOperands = true;
        } else if (onlyOperands || argument.starts_with('[') || argument.starts_with(kShield)) {
            shielded.push_back(kShield + argument);
        } else {
            shielded.push_back(argument);
        }
    }
    return shielded;
}

std::string Bare(const std::string& argument) {
    return argument.starts_with(kShield) ? argument.substr(1) : argument;
}

// The values that the parser fills for one level of options.
using OptionValues = std::map<std::string, std::string, std::less<>>;

void AddOption(CLI::App& app, const CommandOption& option, OptionValues& values) {
    const std::string name(option.name);
    if (option.value.empty()) {
        app.add_flag_callback(name, [&values, name] { values[name]; });
        return;
    }
    CLI::Option* added = app.add_option_function<std::string>(
        name, [&values, name](const std::string& text) { values[name] = Bare(text); });
    added->type_name(std::string(option.value))->multi_option_policy(CLI::MultiOptionPolicy::Throw);
    added->expected(1)->allow_extra_args(false);
    if (option.refuse != nullptr) {
        const auto refuse = option.refuse;
        added->check(
            [refuse](const std::string& text) { return refuse(Bare(text)).value_or(std::string()); });
    }
}

void AddCommand(CLI::App& app, const Command& command, CommandLine& line) {
    CLI::App* sub = app.add_subcommand(std::string(command.name));
    sub->fallthrough();
    sub->set_help_flag("-h,--help");
    sub->callback([&line, &command] { line.command = &command; });
    for (const CommandOption& option : command.options) AddOption(*sub, option, line.arguments.options);
    if (command.mostOperands == 0) return;
    const auto most = static_cast<int>(
        std::min(command.mostOperands, static_cast<std::size_t>(CLI::detail::expected_max_vector_size)));
    const auto fewest = static_cast<int>(std::max<std::size_t>(command.fewestOperands, 1));
    sub->add_option_function<std::vector<std::string>>(
           kOperands,
           [&line](const std::vector<std::string>& operands) {
               std::transform(operands.begin(), operands.end(), std::back_inserter(line.arguments.operands),
                              Bare);
           })
        ->expected(fewest, most)
        ->allow_extra_args(most > 1)
        ->required(command.fewestOperands > 0);
}

void TakeGlobalOptions(const OptionValues& values, CommandLine& line) {
    if (const auto app = values.find("--app"); app != values.end()) line.app = Path(app->second);
    if (const auto today = values.find("--today"); today != values.end()) {
        line.today = ReadIsoDate(today->second);
    }
    if (const auto time = values.find("--time"); time != values.end()) {
        line.minutes = ReadClockTime(time->second);
    }
    if (const auto wait = values.find("--wait"); wait != values.end()) line.wait = ReadSeconds(wait->second);
}

// True for a command whose number of operands is not what it takes.
bool IsWrongCount(const Command* command, const CLI::ParseError& error) {
    if (command == nullptr || dynamic_cast<const CLI::ArgumentMismatch*>(&error) == nullptr) return false;
    return std::string_view(error.what()).starts_with(std::string(kOperands) + ":");
}

// What the parser says, with the command's own name for its operands.
std::string Words(const CLI::ParseError& error, const Command* command) {
    std::string words = error.what();
    const std::size_t at = words.find(kOperands);
    if (command == nullptr || at == std::string::npos) return words;
    return words.replace(at, std::string_view(kOperands).size(), command->operand);
}

// Why a call cannot be read, the argument first.
std::string Explain(const CLI::App& app, const CLI::ParseError& error) {
    const auto chosen = app.get_subcommands();
    const std::vector<std::string> unread = app.remaining(true);
    const bool extras = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    const bool missing = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
    if (missing && chosen.empty() && unread.empty()) return "COMMAND: missing; --help lists the commands";
    const Command* command = chosen.empty() ? nullptr : FindCommand(chosen.front()->get_name());
    if (IsWrongCount(command, error)) {
        return std::string(command->operand) + ": " + std::string(command->name) + " takes " +
               std::string(command->usage);
    }
    if (unread.empty() || !(extras || missing)) return Words(error, command);
    const std::string first = Bare(unread.front());
    const std::string kind = first.starts_with('-') ? "option" : chosen.empty() ? "command" : "argument";
    if (chosen.empty()) return first + ": no such " + kind + "; --help lists what there is";
    return first + ": " + chosen.front()->get_name() + " takes no such " + kind;
}

}  // namespace

CommandLine ParseCommandLine(std::span<const std::string> arguments) {
    CommandLine line;
    OptionValues globals;
    CLI::App app;
    app.name("brantlow-batch");
    app.set_help_flag("-h,--help");
    app.require_subcommand(1);
    for (const CommandOption& option : GlobalOptions()) AddOption(app, option, globals);
    for (const Command& command : Commands()) AddCommand(app, command, line);
    std::vector<std::string> reversed = Shielded(arguments);
    std::reverse(reversed.begin(), reversed.end());
    try {
        app.parse(std::move(reversed));
        TakeGlobalOptions(globals, line);
    } catch (const CLI::CallForHelp&) {
        const auto chosen = app.get_subcommands();
        const Command* command = chosen.empty() ? nullptr : FindCommand(chosen.front()->get_name());
        line.help = command != nullptr ? CommandHelp(*command) : ToolHelp();
    } catch (const CLI::ParseError& error) {
        line.error = OneLine(Explain(app, error));
    }
    return line;
}

}  // namespace brantlow
