// SPDX-License-Identifier: MIT
// What the command line understands, apart from the parser that reads it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace Tarnex::Cli {

/// Under what help lists the options of a verb that has many, in this order. The first are those of
/// OptionGroup.
enum class Heading { Dungeon, Shape, Chance, Repeat, Plugin, Playable, Maps, Searching, Reports };

/// The texts, in the order of Heading.
inline constexpr std::array<const char*, 9> kHeadings = {"What a dungeon is made of",
                                                         "The shape of random levels",
                                                         "Leaving things to chance",
                                                         "Repeating a run",
                                                         "The plug-in",
                                                         "Playable without an editor",
                                                         "Maps and pages",
                                                         "Searching",
                                                         "Reports"};

/// One switch or argument of a verb.
struct OptionHelp {
    std::vector<std::string> names; ///< with their dashes, short ones first; empty for an argument
    std::string value;              ///< the kind of its value, such as "FILE"; empty for none
    std::string text;
    std::string words;    ///< the values it takes, between blanks, when they are few
    std::string argument; ///< its sign in the line of usage, if it needs no switch
    std::string heading;  ///< of kHeadings, or anything
};

struct VerbHelp {
    std::string name;
    std::string text;
    std::string footer; ///< conditions, exit status and examples: paragraphs and indented lines
    std::vector<OptionHelp> options;
};

struct CommandHelp {
    std::string text;
    std::string footer; ///< likewise
    std::vector<VerbHelp> verbs;
};

/// The whole command line.
CommandHelp DescribeCommandLine();

/// The columns of help.
inline constexpr std::size_t kHelpWidth = 80;

/// What `vaultry help VERB` prints, in these columns; without a verb of that name, of all verbs.
std::string HelpText(const CommandHelp& help, const std::string& verb);

/// A footer in so many columns; lines that are indented stay as they are.
std::string WrappedLines(const std::string& footer, std::size_t width = kHelpWidth);

/// The page of `man vaultry`, for the system's formatter.
std::string ManualPage(const CommandHelp& help);

} // namespace Tarnex::Cli
