// SPDX-License-Identifier: MIT
#include "cli/Completion.h"

#include "cli/CommandHelp.h"
#include "cli/Commands.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "tools/facts/DungeonFacts.h"
#include "tools/runs/Offer.h"
#include "tools/text/OrdinaryFile.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/HarmlessText.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace Tarnex::Cli {

namespace {

using Words = std::vector<Completion::Word>;

constexpr std::array<std::string_view, 6> kFileValues = {
    "FILE", "FILE...", "PLUGIN", "CONFIG...", "A", "B"};

// In the order of Completion::Paths.
constexpr std::array<std::string_view, 3> kPathWords = {"none", "files", "folders"};

Completion::Paths PathsOf(const std::string& value) {
    return value == "FOLDER"                                            ? Completion::Paths::Folders
           : std::ranges::find(kFileValues, value) != kFileValues.end() ? Completion::Paths::Files
                                                                        : Completion::Paths::None;
}

// The value that an option has among the arguments; empty for none.
std::string ValueAmong(const std::vector<std::string>& words, const OptionHelp& option) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        for (const std::string& name : option.names) {
            if (words[i] == name && i + 1 < words.size()) {
                return words[i + 1];
            }
            if (words[i].starts_with(name + '=')) {
                return words[i].substr(name.size() + 1);
            }
        }
    }
    return {};
}

const OptionHelp* FindOption(const VerbHelp& verb, const std::string& name) {
    const auto option = std::ranges::find_if(verb.options, [&name](const OptionHelp& row) {
        return std::ranges::find(row.names, name) != row.names.end();
    });
    return option == verb.options.end() ? nullptr : &*option;
}

// The configuration that a run of these words would read.
std::string ConfigAmong(const VerbHelp& verb, const std::vector<std::string>& words) {
    const OptionHelp* const option = FindOption(verb, "--config");
    std::string config = option == nullptr ? "" : ValueAmong(words, *option);
    if (!config.empty()) {
        return config;
    }
    const OptionHelp* const kind = FindOption(verb, "--preset");
    const std::string preset = kind == nullptr ? "" : ValueAmong(words, *kind);
    Report::RunRequest request;
    for (const Report::Preset& row : Report::BuiltinPresetList()) {
        if (EqualsNoCase(row.name, preset)) {
            Report::Apply(row, request);
        }
    }
    return request.config;
}

Words PresetWords() {
    Words words;
    for (const Report::Preset& preset : Report::BuiltinPresetList()) {
        words.push_back({preset.name, preset.description});
    }
    return words;
}

Words FactWords() {
    Words words;
    for (const Report::Fact& fact : Report::Facts()) {
        words.push_back({std::string(fact.name), std::string(fact.help)});
    }
    return words;
}

// What an option takes by name from a configuration. A shell must not wait for the end of a pipe.
Words NamesIn(const std::string& config, std::string_view option) {
    const ConfigSource source(config);
    if (source.Path()) {
        Report::RequireOrdinaryFile(config);
    }
    const LibraryLog log(std::nullopt);
    GenMgr manager;
    source.Load(manager);
    Words words;
    for (const Report::OfferedList& list : Report::OfferedLists(manager)) {
        for (const Report::OfferedName& name : list.names) {
            const std::int32_t level = name.level.value_or(0);
            if (list.option == option && ForTerminal(name.name) == name.name) {
                words.push_back({name.name, level == 0 ? "" : "level " + std::to_string(level)});
            }
        }
    }
    return words;
}

class Completer {
public:
    Completer(const CommandHelp& all, const std::vector<std::string>& words, std::string word)
        : help(all), before(words), typed(std::move(word)) {}

    Completion Answer() && {
        if (before.empty() || before.front() == "help") {
            OfferVerbs();
        } else if (const auto verb = std::ranges::find(help.verbs, before.front(), &VerbHelp::name);
                   verb != help.verbs.end()) {
            OfferFor(*verb);
        }
        return std::move(answer);
    }

private:
    void Offer(const Completion::Word& word, const std::string& start = "") {
        const std::string_view text = typed;
        const bool fits = text.size() <= start.size() + word.text.size() &&
                          EqualsNoCase((start + word.text).substr(0, text.size()), text);
        if (fits) {
            answer.words.push_back({start + word.text, word.help});
        }
    }

    void OfferVerbs() {
        for (const VerbHelp& verb : help.verbs) {
            Offer({verb.name, verb.text});
        }
        if (before.empty()) {
            Offer({"help", "Describes a verb"});
            Offer({"version", "Prints the version"});
        }
    }

    void OfferFor(const VerbHelp& verb) {
        const std::size_t equals = typed.find('=');
        const OptionHelp* const named = equals == std::string::npos
                                            ? FindOption(verb, before.back())
                                            : FindOption(verb, typed.substr(0, equals));
        if (named != nullptr && !named->value.empty()) {
            OfferValues(
                verb, *named, equals == std::string::npos ? "" : typed.substr(0, equals + 1));
            return;
        }
        const auto argument = std::ranges::find_if(
            verb.options, [](const OptionHelp& option) { return !option.argument.empty(); });
        if (argument != verb.options.end() && !typed.starts_with('-')) {
            OfferValues(verb, *argument, "");
        } else {
            OfferSwitches(verb);
        }
    }

    // Those that were not given.
    void OfferSwitches(const VerbHelp& verb) {
        for (const OptionHelp& option : verb.options) {
            const bool given = std::ranges::any_of(option.names, [this](const std::string& name) {
                return std::ranges::any_of(before, [&name](const std::string& word) {
                    return word == name || word.starts_with(name + '=');
                });
            });
            for (const std::string& name : option.names) {
                if (!given && name.starts_with("--")) {
                    Offer({name, option.text});
                }
            }
        }
    }

    void OfferValues(const VerbHelp& verb, const OptionHelp& option, std::string start) {
        answer.paths = PathsOf(option.value);
        const std::string name = option.names.empty() ? "" : option.names.back();
        Words words;
        if (name == "--preset") {
            words = PresetWords();
        } else if (name == "--sort") {
            words = FactWords();
            // Of several keys the last is being typed.
            start = typed.substr(0, std::max(typed.rfind(',') + 1, start.size()));
        } else if (option.value == "NAME" && name.starts_with("--")) {
            words = NamesIn(ConfigAmong(verb, before), std::string_view(name).substr(2));
        } else {
            std::istringstream text(option.words);
            for (std::string word; text >> word;) {
                words.push_back({word, ""});
            }
        }
        for (const Completion::Word& word : words) {
            Offer(word, start);
        }
    }

    const CommandHelp& help;
    const std::vector<std::string>& before;
    std::string typed;
    Completion answer;
};

} // namespace

Completion Complete(const std::vector<std::string>& before, const std::string& typed) try {
    return Completer(DescribeCommandLine(), before, typed).Answer();
} catch (const UsageError&) {
    return {}; // such as a configuration that does not exist
}

ExitStatus RunVerb(const CompleteOptions& options, const Console& console) {
    const Completion completion = Complete(options.before, options.typed);
    console.out << kPathWords.at(static_cast<std::size_t>(completion.paths)) << '\n';
    for (const Completion::Word& word : completion.words) {
        console.out << word.text << '\t' << word.help << '\n';
    }
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
