// SPDX-License-Identifier: MIT
#include "cli/PluginPieces.h"

#include "cli/ConfigSource.h"
#include "tools/maps/PluginMap.h"
#include "tools/runs/RunLine.h"

#include <optional>
#include <utility>

namespace Tarnex::Cli {

namespace {

ChosenPieces ReadPieces(const std::string& config, bool keepGoing) {
    const ConfigSource source(config);
    GenMgr manager;
    source.Load(manager);
    if (!keepGoing) {
        source.RequireWhole(manager);
    }
    return {config,
            Report::PieceIndex(manager.config),
            Report::ContentWorth(*manager.config.contentMgr)};
}

// The configurations that may have been used.
std::vector<std::string> Candidates(const std::string& config) {
    if (config != Report::kBuiltin) {
        return {config};
    }
    std::vector<std::string> names;
    for (const BuiltinConfig& builtin : BuiltinConfigs()) {
        names.push_back(std::string(Report::kBuiltin) + ':' + std::string(builtin.name));
    }
    return names;
}

} // namespace

ChosenPieces ChoosePieces(const std::string& config,
                          bool keepGoing,
                          const std::vector<const PluginCell*>& cells) {
    std::optional<ChosenPieces> best;
    for (const std::string& name : Candidates(config)) {
        ChosenPieces chosen = ReadPieces(name, keepGoing);
        chosen.known = Report::CountKnownTiles(cells, chosen.pieces);
        if (!best || chosen.known > best->known) {
            best = std::move(chosen);
        }
    }
    return *std::move(best);
}

} // namespace Tarnex::Cli
