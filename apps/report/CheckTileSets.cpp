// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>

#include <array>

namespace Tarnex::Report {

namespace {

constexpr std::array kNeeded = {Tile_NwCorner,
                                Tile_nWall,
                                Tile_Center,
                                Tile_nDoorway,
                                Tile_nDoorjamb,
                                Tile_nDoor,
                                Tile_HallNS,
                                Tile_HallCornerNW,
                                Tile_HallEndN,
                                Tile_Hall4Way};

// A set without any of these is made for drawn layouts.
constexpr std::array kHallPieces = {Tile_HallCornerNW, Tile_HallEndN, Tile_Hall4Way};

void CheckNeeded(const ConfigElement& tileSet, const NameSet& names, Findings& findings) {
    std::string missing;
    for (const std::string_view kind : kNeeded) {
        if (!names.contains(std::string(kind))) {
            missing += (missing.empty() ? "" : ", ") + std::string(kind);
        }
    }
    if (missing.empty()) {
        return;
    }
    bool forHalls = false;
    for (const std::string_view kind : kHallPieces) {
        forHalls |= names.contains(std::string(kind));
    }
    findings.Add(forHalls ? Weight::Warning : Weight::Note,
                 tileSet,
                 "tile set \"" + AttributeText(tileSet, Tile_TsName) + "\" lacks " + missing,
                 forHalls ? "Random levels get holes, or their rooms cannot be joined."
                          : "The set serves fixed layouts; random levels cannot be built with it.");
}

void CheckRequires(const std::vector<const ConfigElement*>& tiles,
                   const NameSet& names,
                   Findings& findings) {
    for (const ConfigElement* tile : tiles) {
        const std::string required = AttributeText(*tile, Attrib_Requires);
        if (!required.empty() && !names.contains(required)) {
            findings.Add(Weight::Error,
                         *tile,
                         "the tile set has no tile \"" + required + "\" that " + tile->name +
                             " requires",
                         "The companion is left out without a message.",
                         Nearest(required, {names.begin(), names.end()}));
        }
    }
}

} // namespace

void CheckTileSets(const ConfigRecord& record, Findings& findings) {
    for (const ConfigElement& element : record.elements) {
        if (!Is(element, Tile_TileSet)) {
            continue;
        }
        const std::vector<const ConfigElement*> tiles = ChildrenOf(record, element);
        NameSet names;
        for (const ConfigElement* tile : tiles) {
            AddDerivedTiles(tile->name, names);
        }
        CheckNeeded(element, names, findings);
        CheckRequires(tiles, names, findings);
    }
}

} // namespace Tarnex::Report
