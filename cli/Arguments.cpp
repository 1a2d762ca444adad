// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include "cli/CommandHelp.h"
#include "cli/Verbs.h"
#include "tools/text/UsageError.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kHelpColumn = 34;

constexpr const char* kOverview =
    "Generates dungeon interiors as plug-ins for the game.\n"
    "\n"
    "Exit status: 0 done, 1 nothing generated or a file not written whole (inspect, diff, check:\n"
    "something found; search: a seed could not be judged), 2 wrong arguments, 130 cancelled.";
constexpr const char* kOverviewExample =
    "Example:\n"
    "  vaultry generate --levels 3 --creature-theme Undead -o crypt.esp\n"
    "\n"
    "\"vaultry VERB --help\" describes a verb.";

void SetUp(CLI::App& app) {
    app.footer(kOverviewExample);
    app.set_version_flag("--version", "vaultry " VAULTRY_VERSION, "Print the version and exit");
    app.require_subcommand(0, 1);
    app.allow_windows_style_options(false);
    app.get_formatter()->column_width(kHelpColumn);
}

CLI::App& AddVerb(CLI::App& app, const Verb& row) {
    CLI::App& verb = *app.add_subcommand(row.name, row.help);
    verb.footer(row.footer);
    verb.allow_windows_style_options(false);
    return verb;
}

// The parser's own words for these two speak of counts.
std::string WrongCount(const CLI::ArgumentMismatch& e) {
    const std::string text = e.what();
    const bool missing = text.find("missing") != std::string::npos;
    return text.substr(0, text.find(':')) + (missing ? ": a value is missing" : ": given twice");
}

// The words that an option offers stand behind the colon of its help.
std::vector<std::string> WordsOf(const OptionHelp& option) {
    std::vector<std::string> words;
    if (option.value != "WORD") {
        return words;
    }
    std::size_t begin = option.text.find(": ");
    while (begin != std::string::npos) {
        begin += 2;
        const std::size_t end = option.text.find(", ", begin);
        words.push_back(option.text.substr(begin, end - begin));
        begin = end;
    }
    return words;
}

OptionHelp Describe(const CLI::Option& option) {
    OptionHelp help;
    for (const std::string& name : option.get_snames()) {
        help.names.push_back("-" + name);
    }
    for (const std::string& name : option.get_lnames()) {
        help.names.push_back("--" + name);
    }
    help.value = option.get_items_expected_max() > 0 ? option.get_type_name() : "";
    help.text = option.get_description();
    help.words = WordsOf(help);
    return help;
}

CommandHelp Describe(const CLI::App& app) {
    CommandHelp help{app.get_description() + "\n\n" + app.get_footer(), {}};
    for (const CLI::App* verb : app.get_subcommands({})) {
        VerbHelp& entry = help.verbs.emplace_back();
        entry = {verb->get_name(), verb->get_description(), verb->get_footer(), {}};
        for (const CLI::Option* option : verb->get_options()) {
            entry.options.push_back(Describe(*option));
        }
    }
    return help;
}

// The words that print the help of the verb in use.
std::string WordsForHelp(const CLI::App& app) {
    const std::vector<CLI::App*> verbs = app.get_subcommands();
    return "vaultry " + (verbs.empty() ? "" : verbs.front()->get_name() + ' ') + "--help";
}

// Declaring options takes longer than reading them: only verbs among the arguments get theirs.
Request Parse(CLI::App& app, const std::vector<std::string>& arguments) {
    Asked asked;
    for (const Verb& row : Verbs()) {
        CLI::App& verb = AddVerb(app, row);
        if (std::ranges::find(arguments, row.name) != arguments.end()) {
            row.declare(verb, asked);
        }
    }
    // The parser takes the words from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    for (const Verb& row : Verbs()) {
        if (app.got_subcommand(row.name)) {
            return row.request(asked);
        }
    }
    return NoVerb{app.help()};
}

} // namespace

CommandHelp DescribeCommandLine() {
    CLI::App app(kOverview, "vaultry");
    SetUp(app);
    Asked asked;
    for (const Verb& row : Verbs()) {
        row.declare(AddVerb(app, row), asked);
    }
    return Describe(app);
}

std::uint64_t ParseWhole(const std::string& option,
                         const std::string& text,
                         std::uint64_t lowest,
                         std::uint64_t highest) {
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc() || stop != end || number < lowest || number > highest) {
        throw UsageError(option + ": \"" + text + "\" is not a whole number from " +
                         std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return number;
}

Request ParseArguments(const std::vector<std::string>& arguments) {
    CLI::App app(kOverview, "vaultry");
    SetUp(app);
    try {
        return Parse(app, arguments);
    } catch (const CLI::CallForHelp&) {
        return PrintText{app.help()};
    } catch (const CLI::CallForVersion& version) {
        return PrintText{std::string(version.what()) + '\n'};
    } catch (const CLI::ArgumentMismatch& e) {
        throw UsageError(WrongCount(e));
    } catch (const CLI::ParseError& e) {
        throw UsageError(std::string(e.what()) + "; see \"" + WordsForHelp(app) + '"');
    }
}

} // namespace Tarnex::Cli
