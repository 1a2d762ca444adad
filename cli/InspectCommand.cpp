// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/PluginChecks.h"
#include "tools/plugins/PluginLoad.h"

namespace Tarnex::Cli {

ExitStatus RunVerb(const InspectOptions& options, const Console& console) {
    const EndingSignals ending;
    const Report::LoadedPlugin plugin = Report::LoadPlugin(options.plugin);
    const std::vector<PluginFinding> findings = Report::FindInconsistencies(plugin.file);
    const Report::Inspection inspection{plugin.path, plugin.file, findings};
    if (options.json) {
        console.out << Report::ToJson(inspection);
    } else {
        Report::PrintInspection(inspection, options.refs, console.out);
    }
    return findings.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace Tarnex::Cli
