// SPDX-License-Identifier: MIT
// The verbs of the command line and their options.
#pragma once

#include "cli/Options.h"

#include <span>

namespace CLI {
class App;
}

namespace Tarnex::Cli {

/// One verb.
struct Verb {
    const char* name;
    const char* help;
    const char* footer; ///< exit status and examples
    /// Makes `request` one for this verb and declares the options, which write into it and throw
    /// UsageError; it must outlive the parser and stay where it is.
    void (*declare)(CLI::App& verb, Request& request);
};

/// All verbs, in the order in which the help lists them.
std::span<const Verb> Verbs();

} // namespace Tarnex::Cli
