// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/gen/Limits.h>

#include <algorithm>

namespace Tarnex::Report {

namespace {

const std::vector<std::string_view> kPieces = {
    Platform_Floor, Platform_Beam, Tile_nStairsUp, Tile_sStairsUp, Tile_eStairsUp, Tile_wStairsUp};

// The largest cell that a platform may have to fill.
int LargestTileSize(const ConfigTree& tree) {
    int largest = 0;
    for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
        if (IsAnyOf(AttributeText(*tileSet, Tile_TsType), {Tile_Cave})) {
            largest = std::max(largest, WholeOf(*tileSet, Tile_TsSize));
        }
    }
    return largest;
}

void CheckFloor(const ConfigElement& floor, int tileSize, Findings& findings) {
    const double sizeX = RealOf(floor, Attrib_SizeX);
    const double sizeY = RealOf(floor, Attrib_SizeY);
    for (const std::string_view name : {Attrib_SizeX, Attrib_SizeY}) {
        if (RealOf(floor, name) == 0) {
            findings.Add(Weight::Warning,
                         PlaceOf(floor, name),
                         floor.name + " has no " + std::string(name),
                         "No floor is laid.");
        }
    }
    const double pieces = sizeX > 0 && sizeY > 0 ? (tileSize / sizeX) * (tileSize / sizeY) : 0;
    if (pieces > static_cast<double>(kMaxFloorPieces)) {
        findings.Add(Weight::Warning,
                     PlaceOf(floor, Attrib_SizeX),
                     "a cell of " + std::to_string(tileSize) + " takes more than " +
                         std::to_string(kMaxFloorPieces) + " pieces of this floor",
                     "No more than these are laid.");
    }
}

void CheckPieces(const ConfigTree& tree, const ConfigElement& platform, Findings& findings) {
    const ConfigElement* floor = nullptr;
    for (const ConfigElement* piece : tree.Inside(platform)) {
        floor = Is(*piece, Platform_Floor) ? piece : floor;
        if (!IsAnyOf(piece->name, kPieces)) {
            findings.Add(Weight::Warning,
                         piece->place,
                         InQuotes(piece->name) + " is no piece of a platform",
                         "It is never placed.",
                         findings.Nearest(piece->name, {kPieces.begin(), kPieces.end()}));
        }
    }
    if (floor == nullptr) {
        findings.Add(Weight::Warning,
                     platform.place,
                     Titled(platform, Attrib_Name) + " has no " + std::string(Platform_Floor),
                     "Nothing is built where it is chosen.");
        return;
    }
    CheckFloor(*floor, LargestTileSize(tree), findings);
}

} // namespace

void CheckPlatforms(const ConfigTree& tree, Findings& findings) {
    for (const ConfigElement* platform : tree.OfClass(ElementClass::Platform)) {
        CheckPieces(tree, *platform, findings);
    }
}

} // namespace Tarnex::Report
