// SPDX-License-Identifier: MIT
#include "cli/RunSetup.h"

#include "cli/ConsoleStatus.h"
#include "cli/MapFiles.h"
#include "cli/NameCheck.h"
#include "tools/text/UsageError.h"

#include <vaultry/foundation/CodePage.h>

#include <cstdint>
#include <random>

namespace Tarnex::Cli {

namespace {

// As many as a program that reads numbers as floating-point ones keeps apart.
constexpr unsigned kStampBits = 53;

// Each name is looked for before it is set, since the library ignores some unknown names.
void ChooseNames(GenMgr& manager, const GenerateOptions& options) {
    const auto choose = [](const auto& name, const char* what, const auto& list, auto set) {
        if (name) {
            set(RequireName(what, *name, NamesOf(list)).c_str());
        }
    };
    choose(options.tileSet, "room tile set", manager.GetRoomTileSets(), [&](const char* name) {
        manager.SetDefaultTileSet(name, false);
    });
    choose(options.caveTileSet, "cave tile set", manager.GetCaveTileSets(), [&](const char* name) {
        manager.SetDefaultTileSet(name, true);
    });
    choose(options.layout, "room layout", manager.GetRoomLayouts(), [&](const char* name) {
        manager.SetDefaultTemplate(name, false);
    });
    choose(options.caveLayout, "cave layout", manager.GetCaveLayouts(), [&](const char* name) {
        manager.SetDefaultTemplate(name, true);
    });
    choose(options.theme, "theme", manager.GetThemes(), [&](const char* name) {
        manager.SetDefaultTheme(name);
    });
    choose(options.creatureTheme, "creature theme", manager.GetCreatureThemes(), [&](auto name) {
        manager.SetDefaultCreatureTheme(name);
    });
    choose(options.treasureTheme, "treasure theme", manager.GetTreasureThemes(), [&](auto name) {
        manager.SetDefaultTreasureTheme(name);
    });
}

} // namespace

void CheckText(const GenerateOptions& options) {
    if (options.cell.empty()) {
        throw UsageError("--cell: the name of the cell is empty");
    }
    if (options.ensureWalkable && options.fixed) {
        throw UsageError("--ensure-walkable is for random levels, not for --fixed");
    }
    CheckMapOptions(options.maps);
    if (options.master && options.master->empty()) {
        throw UsageError("--master: the name of the master file is empty");
    }
}

void FixChance(GenerateOptions& options) {
    std::random_device chance;
    if (!options.seed) {
        options.seed = chance();
    }
    if (!options.stamp) {
        const std::uint64_t number = std::uint64_t{chance()} << 32U | chance();
        options.stamp = static_cast<std::int64_t>(number >> (64U - kStampBits));
    }
}

bool Configure(GenMgr& manager,
               const GenerateOptions& options,
               const ConfigSource& source,
               const CancelSignals& signals,
               const LibraryLog& log,
               const Console& console) try {
    source.Load(manager, ConsoleStatus(nullptr, signals, 0));
    if (signals.Requested()) {
        return false;
    }
    if (!options.keepGoing || options.strict) {
        source.RequireWhole(manager);
    }
    ChooseNames(manager, options);
    const std::string master = FromUtf8(options.master.value_or(""));
    manager.SetMasterFile(options.master ? master.c_str() : nullptr,
                          options.masterSize.value_or(0));
    manager.SetAddPlatforms(options.platforms);
    manager.SetRandomInfo(options.random);
    manager.SetNameSingleLevel(true);
    return true;
} catch (const UsageError&) {
    console.Show(log.Errors());
    throw;
}

} // namespace Tarnex::Cli
