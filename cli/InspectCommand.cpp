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
#include "tools/text/OrdinaryFile.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <algorithm>
#include <fstream>

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

// The first bytes of a file, as many as the longest line that is read; empty when it cannot be
// read.
std::string StartOf(const std::string& path) try {
    constexpr std::size_t kMost = 65536;
    const std::size_t size = std::min<std::size_t>(Report::RequireOrdinaryFile(path), kMost);
    std::string text(size, '\0');
    std::ifstream stream(PathFromUtf8(path), std::ios::binary);
    stream.read(text.data(), static_cast<std::streamsize>(size));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
} catch (const UsageError&) {
    return {};
}

// The line that made the plug-in, where it tells.
std::string CommandOf(const Report::LoadedPlugin& plugin, const Console& console) {
    const std::string description = ToUtf8(plugin.file.header.description);
    if (!Report::StandsBeside(description)) {
        return Report::CommandIn(description);
    }
    const std::string path = Report::PathBeside(plugin.path);
    std::string command = Report::CommandIn(StartOf(path));
    if (command.empty()) {
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
    const Report::Inspection inspection{
        plugin.path, plugin.file, findings, ArrivalsIn(plugin.file), CommandOf(plugin, console)};
    if (options.json) {
        console.out << Report::ToJson(inspection);
    } else {
        Report::PrintInspection(inspection, options.refs, console.out);
    }
    return findings.empty() ? ExitStatus::Success : ExitStatus::Failure;
}

} // namespace Tarnex::Cli
