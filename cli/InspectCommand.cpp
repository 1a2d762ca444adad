// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/LibraryLog.h"
#include "cli/PluginPieces.h"
#include "tools/maps/PluginMap.h"
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/PluginChecks.h"
#include "tools/plugins/PluginLoad.h"

namespace Tarnex::Cli {

namespace {

// As many as one dungeon has: more are looked at one by one, with "vaultry map".
constexpr std::size_t kMostArrivals = 100;

// Where one arrives in what a built-in configuration made.
std::vector<Arrival> ArrivalsIn(const PluginFile& file) {
    std::vector<const PluginCell*> cells;
    for (const PluginCell& cell : file.cells) {
        cells.push_back(&cell);
    }
    std::vector<Arrival> arrivals;
    if (cells.empty() || cells.size() > kMostArrivals) {
        return arrivals;
    }
    const ChosenPieces chosen = ChoosePieces(kBuiltin, false, cells);
    Report::PluginLevels levels(cells, file, chosen.pieces);
    for (std::size_t i = 0; chosen.known > 0 && i < cells.size(); ++i) {
        if (const auto& arrival = levels.Level(i).arrival) {
            arrivals.push_back(*arrival);
            arrivals.back().level = i;
        }
    }
    return arrivals;
}

} // namespace

ExitStatus RunVerb(const InspectOptions& options, const Console& console) {
    const EndingSignals ending;
    const LibraryLog log(std::nullopt);
    const Report::LoadedPlugin plugin = Report::LoadPlugin(options.plugin);
    const std::vector<PluginFinding> findings = Report::FindInconsistencies(plugin.file);
    const Report::Inspection inspection{
        plugin.path, plugin.file, findings, ArrivalsIn(plugin.file)};
    if (options.json) {
        console.out << Report::ToJson(inspection);
    } else {
        Report::PrintInspection(inspection, options.refs, console.out);
    }
    return findings.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace Tarnex::Cli
