// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "tools/check/ConfigCheck.h"

namespace Tarnex::Cli {

ExitStatus RunVerb(const CheckOptions& options, const Console& console) {
    const EndingSignals ending;
    const ConfigSource source(options.config);
    LibraryLog log(std::nullopt);
    const Report::ConfigCheck check = Report::CheckConfig(options.config, source.Record());
    if (options.json) {
        console.out << Report::ToJson(check);
    } else {
        Report::PrintCheck(check, console.out);
    }
    if (!check.usable) {
        return ExitStatus::Usage;
    }
    return Report::HasWeight(check) ? ExitStatus::Failure : ExitStatus::Success;
}

} // namespace Tarnex::Cli
