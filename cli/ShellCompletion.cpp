// SPDX-License-Identifier: MIT
#include "cli/CommandHelp.h"
#include "cli/Commands.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace Tarnex::Cli {

namespace {

// How each shell completes the kinds of value that name something on the disk.
struct PathKind {
    std::string_view value;
    std::string_view bash;
    std::string_view zsh;
};

constexpr std::array<PathKind, 8> kPathKinds = {{
    {"FILE", "-f", "_files"},
    {"FILE...", "-f", "_files"},
    {"PLUGIN", "-f", "_files"},
    {"CONFIG", "-f", "_files"},
    {"CONFIG...", "-f", "_files"},
    {"A", "-f", "_files"},
    {"B", "-f", "_files"},
    {"FOLDER", "-d", "_files -/"},
}};

struct Shell {
    std::string_view name;
    std::string (*completion)(const CommandHelp& help);
};

constexpr std::array<Shell, 2> kShells = {{{"bash", BashCompletion}, {"zsh", ZshCompletion}}};

const PathKind* FindPathKind(const std::string& value) {
    const auto* const kind = std::ranges::find(kPathKinds, value, &PathKind::value);
    return kind == kPathKinds.end() ? nullptr : kind;
}

std::vector<std::string> Switches(const VerbHelp& verb) {
    std::vector<std::string> all;
    for (const OptionHelp& option : verb.options) {
        all.insert(all.end(), option.names.begin(), option.names.end());
    }
    return all;
}

std::vector<std::string> VerbNames(const CommandHelp& help) {
    std::vector<std::string> names;
    for (const VerbHelp& verb : help.verbs) {
        names.push_back(verb.name);
    }
    return names;
}

// One case of the word before the cursor: what may follow the switch. Names of files are read line
// by line: the shell would take them apart at blanks and take their stars for patterns.
void WriteBashValue(std::ostream& script, const std::string& verb, const OptionHelp& option) {
    std::vector<std::string> spellings;
    for (const std::string& name : option.names) {
        spellings.push_back(verb);
        spellings.back().append(":").append(name);
    }
    script << "    " << JoinWords(spellings, "|") << ") ";
    if (!option.words.empty()) {
        script << "COMPREPLY=($(compgen -W '" << option.words << "' -- \"$word\"))";
    } else if (const PathKind* kind = FindPathKind(option.value)) {
        script << "mapfile -t COMPREPLY < <(compgen " << kind->bash << " -- \"$word\")";
    } else {
        script << "COMPREPLY=()"; // a number or a name of the configuration
    }
    script << "; return ;;\n";
}

void WriteBashSwitches(std::ostream& script, const VerbHelp& verb) {
    script << "    " << verb.name << ") switches='" << JoinWords(Switches(verb), " ") << "' ;;\n";
}

// Text inside an entry of _arguments, which is itself quoted.
std::string ZshText(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\'') {
            escaped += "'\\''";
            continue;
        }
        if (c == '[' || c == ']' || c == ':' || c == '\\') {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

std::string ZshAction(const OptionHelp& option) {
    if (!option.words.empty()) {
        return "(" + option.words + ")";
    }
    const PathKind* kind = FindPathKind(option.value);
    return kind != nullptr ? std::string(kind->zsh) : " ";
}

void WriteZshOption(std::ostream& script, const OptionHelp& option) {
    const std::string value =
        option.value.empty() ? "" : ":" + ZshText(option.value) + ":" + ZshAction(option);
    if (option.names.empty()) {
        script << "        '*" << value << "' \\\n";
        return;
    }
    for (const std::string& name : option.names) {
        script << "        '" << name << '[' << ZshText(option.text) << ']' << value << "' \\\n";
    }
}

void WriteZshVerb(std::ostream& script, const VerbHelp& verb) {
    script << "    " << verb.name << ")\n      _arguments \\\n";
    for (const OptionHelp& option : verb.options) {
        WriteZshOption(script, option);
    }
    script << "        && return ;;\n";
}

} // namespace

std::string BashCompletion(const CommandHelp& help) {
    std::ostringstream script;
    script << "# Completion of vaultry for bash.\n"
              "_vaultry() {\n"
              "  local word=${COMP_WORDS[COMP_CWORD]} verb=${COMP_WORDS[1]} switches=''\n"
              "  if ((COMP_CWORD == 1)); then\n"
              "    COMPREPLY=($(compgen -W '"
           << JoinWords(VerbNames(help), " ")
           << " --help --version' -- \"$word\"))\n"
              "    return\n"
              "  fi\n"
              "  case $verb:${COMP_WORDS[COMP_CWORD - 1]} in\n";
    for (const VerbHelp& verb : help.verbs) {
        for (const OptionHelp& option : verb.options) {
            if (!option.names.empty() && !option.value.empty()) {
                WriteBashValue(script, verb.name, option);
            }
        }
    }
    script << "  esac\n  case $verb in\n";
    for (const VerbHelp& verb : help.verbs) {
        WriteBashSwitches(script, verb);
    }
    script << "  esac\n"
              "  if [[ $word == -* ]]; then\n"
              "    COMPREPLY=($(compgen -W \"$switches\" -- \"$word\"))\n"
              "  else\n"
              "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
              "  fi\n"
              "}\n"
              "complete -o filenames -F _vaultry vaultry\n";
    return script.str();
}

std::string ZshCompletion(const CommandHelp& help) {
    std::ostringstream script;
    script << "#compdef vaultry\n"
              "# Completion of vaultry for zsh.\n"
              "_vaultry() {\n"
              "  if ((CURRENT == 2)); then\n"
              "    local -a verbs=(\n";
    for (const VerbHelp& verb : help.verbs) {
        script << "      '" << verb.name << ':' << ZshText(verb.text) << "'\n";
    }
    script << "    )\n"
              "    _describe verb verbs\n"
              "    return\n"
              "  fi\n"
              "  local verb=${words[2]}\n"
              "  shift words\n"
              "  ((CURRENT--))\n"
              "  case $verb in\n";
    for (const VerbHelp& verb : help.verbs) {
        WriteZshVerb(script, verb);
    }
    script << "  esac\n"
              "}\n"
              "_vaultry \"$@\"\n";
    return script.str();
}

ExitStatus RunVerb(const CompletionOptions& options, const Console& console) {
    const auto* const shell = std::ranges::find(kShells, options.shell, &Shell::name);
    if (shell == kShells.end()) {
        throw UsageError("completion: \"" + options.shell + "\" is none of bash, zsh");
    }
    console.out << shell->completion(DescribeCommandLine());
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
