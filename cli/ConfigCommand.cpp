// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/ConfigSource.h"

namespace Tarnex::Cli {

ExitStatus RunVerb(const ConfigOptions& options, const Console& console) {
    // As --config names it too.
    const std::string prefix = std::string(kBuiltin) + ':';
    const bool prefixed = options.name.starts_with(prefix);
    console.out << FindBuiltin(prefixed ? options.name.substr(prefix.size()) : options.name).text;
    return ExitStatus::Success;
}

} // namespace Tarnex::Cli
