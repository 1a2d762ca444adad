// SPDX-License-Identifier: MIT
#include "cli/Suggestions.h"

#include "cli/CommandHelp.h"
#include "tools/runs/Presets.h"
#include "tools/text/NearNames.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

using Names = std::vector<std::string>;

// The end of a sentence: the names that come near, or else where to read on.
std::string Offer(const std::string& word, const Names& names, const std::string& help) {
    const Names near = Report::NearestNames(word, names);
    return near.empty() ? "; see \"" + help + '"' : "; " + Report::OfferNames(word, names);
}

// Short names are all near to each other.
Names LongNames(const VerbHelp& verb) {
    Names names;
    for (const OptionHelp& option : verb.options) {
        std::ranges::copy_if(option.names, std::back_inserter(names), [](const std::string& name) {
            return name.starts_with("--");
        });
    }
    return names;
}

bool Takes(const VerbHelp& verb, const std::string& name) {
    return std::ranges::any_of(verb.options, [&name](const OptionHelp& option) {
        return std::ranges::find(option.names, name) != option.names.end();
    });
}

Names VerbsWith(const CommandHelp& help, const std::string& name) {
    Names verbs;
    for (const VerbHelp& verb : help.verbs) {
        if (Takes(verb, name)) {
            verbs.push_back(verb.name);
        }
    }
    return verbs;
}

std::string AnswerToOption(const std::string& verb, const std::string& name) {
    const CommandHelp help = DescribeCommandLine();
    const Names owners = VerbsWith(help, name);
    if (!owners.empty()) {
        const bool early = verb.empty() || std::ranges::find(owners, verb) != owners.end();
        return name + (early ? " stands behind its verb, " + JoinWords(owners, " or ")
                             : " belongs to " + JoinWords(owners) + ", not to " + verb);
    }
    if (verb.empty()) {
        return "there is no option " + name +
               Offer(name, {"--help", "--version"}, "vaultry --help");
    }
    const auto row = std::ranges::find(help.verbs, verb, &VerbHelp::name);
    return verb + " has no option " + name +
           Offer(name, LongNames(*row), "vaultry " + verb + " --help");
}

// The signs of the arguments that a verb cannot do without.
Names Needed(const VerbHelp& verb) {
    Names needed;
    for (const OptionHelp& option : verb.options) {
        if (!option.argument.empty() && !option.argument.starts_with('[')) {
            needed.push_back(option.argument);
        }
    }
    return needed;
}

bool IsPreset(const std::string& word) {
    return std::ranges::any_of(Report::BuiltinPresetList(), [&word](const Report::Preset& preset) {
        return EqualsNoCase(preset.name, word);
    });
}

} // namespace

std::string AnswerToVerb(const std::string& word) {
    Names names = {"help", "version"};
    for (const VerbHelp& verb : DescribeCommandLine().verbs) {
        names.push_back(verb.name);
    }
    return "there is no verb \"" + word + '"' + Offer(word, names, "vaultry --help");
}

std::string AnswerToWords(const std::string& verb, const std::vector<std::string>& words) {
    const std::string& word = words.front();
    const CommandHelp help = DescribeCommandLine();
    const auto row = std::ranges::find(help.verbs, verb, &VerbHelp::name);
    const bool known = row != help.verbs.end();
    if (word.starts_with('-')) {
        const bool file = known && word.find('.') != std::string::npos && !Needed(*row).empty();
        return AnswerToOption(verb, word.substr(0, word.find('='))) +
               (file ? R"(; a file of that name stands behind "--")" : "");
    }
    if (known && Takes(*row, "--preset") && IsPreset(word)) {
        return "\"" + word + "\" is a preset: did you mean \"vaultry " + verb + " --preset " +
               word + "\"?";
    }
    return '"' + word + "\" is one word too many for " + verb +
           ": names with blanks stand in quotation marks; see \"vaultry " + verb + " --help\"";
}

std::string AnswerToMissing(const std::string& verb, const std::vector<std::string>& words) {
    if (!words.empty()) {
        return AnswerToWords(verb, words);
    }
    const CommandHelp help = DescribeCommandLine();
    const Names needed = Needed(*std::ranges::find(help.verbs, verb, &VerbHelp::name));
    return verb + " needs " + JoinWords(needed, " and ") + ": \"vaultry " + verb + ' ' +
           JoinWords(needed, " ") + "\"; see \"vaultry " + verb + " --help\"";
}

} // namespace Tarnex::Cli
