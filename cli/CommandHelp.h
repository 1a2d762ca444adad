// SPDX-License-Identifier: MIT
// What the command line understands, apart from the parser that reads it.
#pragma once

#include <string>
#include <vector>

namespace Tarnex::Cli {

/// One switch or argument of a verb.
struct OptionHelp {
    std::vector<std::string> names; ///< with their dashes, short ones first; empty for an argument
    std::string value;              ///< the kind of its value, such as "FILE"; empty for none
    std::string text;
    std::string words; ///< the values it takes, between blanks, when they are few
};

struct VerbHelp {
    std::string name;
    std::string text;
    std::string footer; ///< conditions, exit status and examples, line by line
    std::vector<OptionHelp> options;
};

struct CommandHelp {
    std::string text;
    std::vector<VerbHelp> verbs;
};

/// The whole command line.
CommandHelp DescribeCommandLine();

/// The page of `man vaultry`, for the system's formatter.
std::string ManualPage(const CommandHelp& help);

/// What a shell reads to complete the program's arguments.
std::string BashCompletion(const CommandHelp& help);
std::string ZshCompletion(const CommandHelp& help);

} // namespace Tarnex::Cli
