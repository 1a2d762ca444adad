// SPDX-License-Identifier: MIT
#include "cli/ListCommand.h"

#include "cli/CancelSignals.h"
#include "cli/ConfigSource.h"
#include "cli/JsonReport.h"
#include "cli/LibraryLog.h"

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/HarmlessText.h>

#include <algorithm>

namespace Tarnex::Cli {

namespace {

template <typename T>
OfferedList ListOf(const char* option,
                   const char* title,
                   const std::vector<DiPtr<T>>& objects,
                   const DiPtr<T>& chosen) {
    constexpr bool levelled = std::is_same_v<T, Theme>;
    OfferedList list{option, title, levelled, {}};
    for (const DiPtr<T>& object : objects) {
        OfferedName& offered = list.names.emplace_back();
        offered.name = ToUtf8(object->GetName());
        offered.isDefault = object == chosen;
        if constexpr (levelled) {
            offered.level = object->level;
        }
    }
    return list;
}

std::vector<OfferedList> OfferedLists(GenMgr& manager) {
    const DiPtr<TileSet> tiles = manager.GetDefaultTileSet();
    const DiPtr<LayoutTemplate> layout = manager.GetDefaultTemplate();
    const DiPtr<Theme> theme = manager.GetDefaultTheme();
    const DiPtr<Theme> creatures = manager.GetDefaultCreatureTheme();
    const DiPtr<Theme> treasure = manager.GetDefaultTreasureTheme();
    return {
        ListOf("tileset", "Room tile sets", manager.GetRoomTileSets(), tiles),
        ListOf("cave-tileset", "Cave tile sets", manager.GetCaveTileSets(), tiles),
        ListOf("template", "Room layouts", manager.GetRoomLayouts(), layout),
        ListOf("cave-template", "Cave layouts", manager.GetCaveLayouts(), layout),
        ListOf("theme", "Furniture themes", manager.GetThemes(), theme),
        ListOf("creature-theme", "Creature themes", manager.GetCreatureThemes(), creatures),
        ListOf("treasure-theme", "Treasure themes", manager.GetTreasureThemes(), treasure),
    };
}

void Print(const OfferedList& list, std::ostream& out) {
    out << list.title << " (--" << list.option << "):\n";
    for (const OfferedName& offered : list.names) {
        out << "  " << ForTerminal(offered.name);
        if (list.levelled && offered.level != 0) {
            out << ", level " << offered.level;
        }
        out << (offered.isDefault ? " [default]\n" : "\n");
    }
    if (list.names.empty()) {
        out << "  (none)\n";
    }
}

} // namespace

ExitStatus RunList(const ListOptions& options, const Console& console) {
    const EndingSignals ending;
    const ConfigSource source(options.config);
    const LibraryLog log(std::nullopt);
    GenMgr manager;
    source.Load(manager);
    if (!options.keepGoing && manager.GetConfigFault()) {
        console.Show(log.Errors());
        source.RequireWhole(manager);
    }
    const Offer offer{options.config, OfferedLists(manager), log.Errors()};
    console.Show(offer.errors);
    if (options.json) {
        console.out << ToJson(offer);
    } else {
        for (const OfferedList& list : offer.lists) {
            Print(list, console.out);
        }
    }
    const bool nothing = std::ranges::all_of(
        offer.lists, [](const OfferedList& list) { return list.names.empty(); });
    return nothing ? ExitStatus::Failure : ExitStatus::Success;
}

} // namespace Tarnex::Cli
