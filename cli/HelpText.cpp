// SPDX-License-Identifier: MIT
#include "cli/CommandHelp.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

namespace Tarnex::Cli {

namespace {

constexpr std::size_t kTextColumn = 31;
// A verb with no more options lists them without headings.
constexpr std::size_t kFewOptions = 8;

// The words of a text in lines, those behind the first indented.
std::string Wrapped(const std::string& text,
                    std::size_t column,
                    std::size_t indent,
                    std::size_t width = kHelpWidth) {
    std::istringstream words(text);
    std::string wrapped;
    for (std::string word; words >> word;) {
        if (std::string value; word == "(default:" && words >> value) {
            word += ' ' + value;
        }
        if (column + 1 + word.size() > width && column > indent) {
            wrapped += '\n' + std::string(indent, ' ');
            column = indent;
        } else if (!wrapped.empty()) {
            wrapped += ' ';
            ++column;
        }
        wrapped += word;
        column += word.size();
    }
    return wrapped;
}

std::string Entry(const std::string& name, const std::string& text, std::size_t textColumn) {
    const std::size_t gap = std::max(textColumn, name.size() + 2) - name.size();
    return name + std::string(gap, ' ') + Wrapped(text, name.size() + gap, textColumn) + '\n';
}

// Short names have a column of their own.
std::string NameOf(const OptionHelp& option) {
    std::string name = option.names.size() == 1 ? "      " : "  ";
    for (const std::string& spelling : option.names) {
        name += spelling + (&spelling == &option.names.back() ? "" : ", ");
    }
    return option.value.empty() ? name : name + ' ' + option.value;
}

template <typename Choose>
std::string Section(std::string_view heading, const VerbHelp& verb, Choose choose) {
    std::string entries;
    for (const OptionHelp& option : verb.options) {
        if (!option.names.empty() && choose(option)) {
            entries += Entry(NameOf(option), option.text, kTextColumn);
        }
    }
    return entries.empty() ? "" : '\n' + std::string(heading) + ":\n" + entries;
}

std::string Options(const VerbHelp& verb) {
    if (verb.options.size() <= kFewOptions) {
        return Section("Options", verb, [](const OptionHelp&) { return true; });
    }
    std::string text;
    for (const char* const heading : kHeadings) {
        text += Section(heading, verb, [heading](const OptionHelp& option) {
            return option.heading == heading;
        });
    }
    return text;
}

std::string HelpOfVerb(const VerbHelp& verb) {
    std::string usage = "Usage: vaultry " + verb.name + " [OPTIONS]";
    std::string arguments;
    for (const OptionHelp& option : verb.options) {
        if (!option.argument.empty()) {
            usage += ' ' + option.argument;
        }
        if (option.names.empty()) {
            arguments += Entry("  " + option.value, option.text, kTextColumn);
        }
    }
    return verb.text + '\n' + usage + '\n' + (arguments.empty() ? "" : "\nArguments:\n") +
           arguments + Options(verb) +
           (verb.footer.empty() ? "" : '\n' + WrappedLines(verb.footer));
}

std::string Overview(const CommandHelp& help) {
    constexpr std::size_t kVerbColumn = 15;
    std::string text = help.text + "\nUsage: vaultry VERB [OPTIONS]\n\nVerbs:\n";
    for (const VerbHelp& verb : help.verbs) {
        text += Entry("  " + verb.name, verb.text, kVerbColumn);
    }
    text += Entry("  help [VERB]", "Describes a verb, as --help behind it does", kVerbColumn);
    text += Entry("  version", "Prints the version, as --version does", kVerbColumn);
    return text + '\n' + WrappedLines(help.footer);
}

} // namespace

std::string WrappedLines(const std::string& text, std::size_t width) {
    std::string wrapped;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        wrapped += (line.starts_with(' ') ? line : Wrapped(line, 0, 0, width)) + '\n';
    }
    return wrapped;
}

std::string HelpText(const CommandHelp& help, const std::string& verb) {
    const auto row = std::ranges::find(help.verbs, verb, &VerbHelp::name);
    return row == help.verbs.end() ? Overview(help) : HelpOfVerb(*row);
}

} // namespace Tarnex::Cli
