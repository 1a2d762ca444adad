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
#include "tools/runs/Description.h"

#include <vaultry/foundation/CodePage.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

// As many as one dungeon has: more are looked at one by one, with "vaultry map".
constexpr std::size_t kMostKnown = 100;

std::uint64_t CountCreatures(const PluginCell& cell, const Report::PieceIndex& pieces) {
    return static_cast<std::uint64_t>(std::ranges::count_if(cell.refs, [&](const PluginRef& ref) {
        return !ref.deleted && pieces.SortOf(ref.id) == RefSort::Creature;
    }));
}

std::int64_t Treasure(const PluginFile& file, const Report::ContentWorth& worth) {
    std::int64_t sum = 0;
    for (const PluginContainer& container : file.containers) {
        for (const PluginItem& item : container.items) {
            sum = Report::AddUpTo(sum, worth.StackValue(item.id, item.count));
        }
    }
    return sum;
}

// Adds what is known of what a built-in configuration made: where one arrives, and more to count.
void AddKnown(Report::Inspection& inspection) {
    const PluginFile& file = inspection.file;
    std::vector<const PluginCell*> cells;
    for (const PluginCell& cell : file.cells) {
        cells.push_back(&cell);
    }
    if (cells.empty() || cells.size() > kMostKnown) {
        return;
    }
    const ChosenPieces chosen = ChoosePieces(kBuiltin, false, cells);
    if (chosen.known == 0) {
        return;
    }
    Report::KnownTotals totals{chosen.config, 0, 0, Treasure(file, chosen.worth)};
    Report::PluginLevels levels(cells, file, chosen.pieces);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const Report::LevelMap& level = levels.Level(i);
        totals.areas += level.rooms.size();
        totals.creatures += CountCreatures(*cells[i], chosen.pieces);
        if (level.arrival) {
            inspection.arrivals.push_back(*level.arrival);
            inspection.arrivals.back().level = i;
        }
    }
    inspection.known = std::move(totals);
}

// The line that made the plug-in, where it tells.
std::string CommandOf(const Report::LoadedPlugin& plugin, const Console& console) {
    std::string description = ToUtf8(plugin.file.header.description);
    std::string path = plugin.path;
    const bool beside = Report::StandsBeside(description);
    if (beside) {
        description = Report::DescriptionBeside(path);
        path = Report::PathBeside(path);
    }
    std::string command = Report::CommandIn(description);
    if (Report::IsKeptBack(description)) {
        console.Warn("\"" + path +
                     "\" holds the line that made the plug-in, which is not repeated "
                     "since not every shell reads it alike");
    } else if (beside && command.empty()) {
        console.Warn("\"" + path + "\" is to say how the plug-in was made, and does not");
    }
    return command;
}

} // namespace

ExitStatus RunVerb(const InspectOptions& options, const Console& console) {
    const EndingSignals ending;
    const LibraryLog log(std::nullopt);
    const Report::LoadedPlugin plugin = Report::LoadPlugin(options.plugin);
    const std::vector<PluginFinding> findings = Report::FindInconsistencies(plugin.file);
    Report::Inspection inspection{
        plugin.path, plugin.file, findings, {}, CommandOf(plugin, console)};
    AddKnown(inspection);
    if (options.json) {
        console.out << Report::ToJson(inspection);
    } else {
        Report::PrintInspection(inspection, options.refs, console.out);
    }
    return findings.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace Tarnex::Cli
