// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/ConfigSource.h"

namespace Tarnex::Cli {

ExitStatus RunVerb(const ConfigOptions& options, const Console& console) {
    console.out << FindBuiltin(options.name).text;
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
