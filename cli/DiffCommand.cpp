// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "tools/plugins/DiffReport.h"
#include "tools/plugins/PluginLoad.h"

namespace Tarnex::Cli {

namespace {

Report::LoadedPlugin Load(const std::string& path, const Console& console) {
    Report::LoadedPlugin plugin = Report::LoadPlugin(path);
    if (!plugin.file.complete) {
        console.Warn('"' + path + "\" could be read in part only, see \"vaultry inspect\"");
    }
    return plugin;
}

} // namespace

ExitStatus RunVerb(const DiffOptions& options, const Console& console) {
    const EndingSignals ending;
    const Report::LoadedPlugin a = Load(options.a, console);
    const Report::LoadedPlugin b = Load(options.b, console);
    const Report::DiffResult result = Report::Diff(a, b);
    if (options.json) {
        console.out << Report::ToJson(result);
    } else {
        Report::PrintDiff(result, console.out);
    }
    return result.differences.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace Tarnex::Cli
