// SPDX-License-Identifier: MIT
// The verbs of the command line and their options.
#pragma once

#include "cli/Options.h"

#include <span>
#include <string>

namespace CLI {
class App;
}

namespace Tarnex::Cli {

/// What may be asked for; the options of each verb write into its part.
struct Asked {
    GenerateOptions generate;
    MapOptions map;
    SearchOptions search;
    ListOptions list;
    ConfigOptions config;
    InspectOptions inspect;
    DiffOptions diff;
    CheckOptions check;
    std::string shell; ///< to print completion for
};

/// One verb.
struct Verb {
    const char* name;
    const char* help;
    const char* footer; ///< exit status and examples
    /// Declares the options, which write into `asked`; it must outlive the parser.
    void (*declare)(CLI::App& verb, Asked& asked);
    /// What was asked for, once the options are read; takes it out of `asked`. Throws UsageError.
    Request (*request)(Asked& asked);
};

/// All verbs, in the order in which the help lists them.
std::span<const Verb> Verbs();

} // namespace Tarnex::Cli
