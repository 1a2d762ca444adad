// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include "cli/CommandHelp.h"
#include "cli/Suggestions.h"
#include "cli/Verbs.h"
#include "tools/text/UsageError.h"

#include <vaultry/run/BuiltinConfigs.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace Tarnex::Cli {

namespace {

constexpr const char* kOverview = "Generates dungeon interiors as plug-ins for the game.";
constexpr const char* kOverviewFooter =
    "Exit status: 0 done, 1 nothing generated or a file not written whole (inspect, diff, check: "
    "something found; search: a seed could not be judged), 2 wrong arguments, 130 cancelled.\n"
    "\n"
    "Example:\n"
    "  vaultry generate --preset tomb -o crypt.esp";

// What may be asked for, by verb.
using Asked = std::map<std::string, Request>;

// Declaring options takes longer than reading them: only verbs among `words` get theirs, or all
// without words.
void SetUp(CLI::App& app, Asked& asked, const std::vector<std::string>* words) {
    app.footer(kOverviewFooter);
    app.set_version_flag("--version", "vaultry " VAULTRY_VERSION, "Print the version and exit");
    app.require_subcommand(0, 1);
    app.allow_windows_style_options(false);
    for (const Verb& row : Verbs()) {
        CLI::App& verb = *app.add_subcommand(row.name, row.help);
        verb.footer(row.footer);
        verb.get_help_ptr()->group(kHeadings.back());
        if (words == nullptr || std::ranges::find(*words, row.name) != words->end()) {
            row.declare(verb, asked[row.name]);
        }
    }
}

// The parser's own words for these two speak of counts.
std::string WrongCount(const CLI::ArgumentMismatch& e) {
    const std::string text = e.what();
    const bool missing = text.find("missing") != std::string::npos;
    return text.substr(0, text.find(':')) + (missing ? ": a value is missing" : ": given twice");
}

// What may stand where a configuration is named, besides files.
std::string BuiltinWords() {
    std::string words = kBuiltin;
    for (const BuiltinConfig& config : BuiltinConfigs()) {
        words += std::string(" ") + kBuiltin + ':' + std::string(config.name);
    }
    return words;
}

// The words that an option offers stand in its help, between a colon and the default.
std::string WordsOf(const OptionHelp& option) {
    if (!option.names.empty() && option.names.back() == "--config") {
        return BuiltinWords();
    }
    const std::size_t colon = option.text.find(": ");
    const std::size_t end = option.text.find(" (");
    const bool listed = option.value == "WORD" || option.value == "NAME" || option.value == "SHELL";
    if (!listed || colon >= std::min(end, option.text.size())) {
        return {};
    }
    std::string words = option.text.substr(colon + 2, end - colon - 2);
    std::erase(words, ',');
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
    help.heading = option.get_group();
    help.words = WordsOf(help);
    if (option.get_positional()) {
        help.argument = option.get_required() ? help.value : '[' + help.value + ']';
    }
    return help;
}

CommandHelp Describe(const CLI::App& app) {
    CommandHelp help{app.get_description(), app.get_footer(), {}};
    for (const CLI::App* verb : app.get_subcommands({})) {
        VerbHelp& entry = help.verbs.emplace_back();
        entry = {verb->get_name(), verb->get_description(), verb->get_footer(), {}};
        for (const CLI::Option* option : verb->get_options()) {
            entry.options.push_back(Describe(*option));
        }
    }
    return help;
}

// The verb in use; empty for none.
std::string VerbOf(const CLI::App& app) {
    const std::vector<CLI::App*> verbs = app.get_subcommands();
    return verbs.empty() ? "" : verbs.front()->get_name();
}

// What one tries first: "help" and "version" stand for switches.
std::vector<std::string> InSwitches(std::vector<std::string> words) {
    const std::string first = words.empty() ? "" : words.front();
    if (first != "help" && first != "version") {
        return words;
    }
    const auto isSuch = [](const std::string& word) { return word == "help" || word == "version"; };
    words.erase(words.begin(), std::ranges::find_if_not(words, isSuch));
    words.insert(words.begin() + (words.empty() ? 0 : 1), "--" + first);
    return words;
}

// What the scripts of shells ask; no verb, since nobody types it.
constexpr const char* kComplete = "__complete";

CompleteOptions AskedByShell(const std::vector<std::string>& words) {
    // Behind a sign, so that no shell drops it when it is empty.
    const std::string typed = words.size() < 2 ? "=" : words.back();
    const auto end = words.end() - (words.size() < 2 ? 0 : 1);
    return {{words.begin() + 1, end}, typed.substr(std::min<std::size_t>(1, typed.size()))};
}

void RequireVerb(const std::vector<std::string>& words) {
    if (!words.empty() && !words.front().starts_with('-') &&
        std::ranges::find(Verbs(), words.front(), &Verb::name) == Verbs().end()) {
        throw UsageError(AnswerToVerb(words.front()));
    }
}

Request Parse(CLI::App& app, const std::vector<std::string>& words) {
    RequireVerb(words);
    Asked asked;
    SetUp(app, asked, &words);
    // The parser takes the words from the back.
    app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    const std::string verb = VerbOf(app);
    return verb.empty() ? NoVerb{HelpText(DescribeCommandLine(), verb)} : std::move(asked[verb]);
}

} // namespace

CommandHelp DescribeCommandLine() {
    CLI::App app(kOverview, "vaultry");
    Asked asked;
    SetUp(app, asked, nullptr);
    return Describe(app);
}

Request ParseArguments(const std::vector<std::string>& arguments) {
    if (!arguments.empty() && arguments.front() == kComplete) {
        return AskedByShell(arguments);
    }
    CLI::App app(kOverview, "vaultry");
    try {
        return Parse(app, InSwitches(arguments));
    } catch (const CLI::CallForHelp&) {
        return PrintText{HelpText(DescribeCommandLine(), VerbOf(app))};
    } catch (const CLI::CallForVersion& version) {
        return PrintText{std::string(version.what()) + '\n'};
    } catch (const CLI::ArgumentMismatch& e) {
        throw UsageError(WrongCount(e));
    } catch (const CLI::ExtrasError&) {
        throw UsageError(AnswerToWords(VerbOf(app), app.remaining(true)));
    } catch (const CLI::RequiredError&) {
        throw UsageError(AnswerToMissing(VerbOf(app), app.remaining(true)));
    } catch (const CLI::ParseError& e) {
        throw UsageError(std::string(e.what()) + "; see \"vaultry " + VerbOf(app) + " --help\"");
    }
}

} // namespace Tarnex::Cli
