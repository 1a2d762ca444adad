// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/Mirroring.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>

namespace Tarnex::Report {

namespace {

// With all that follows from them.
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

// Of a piece and its mirrored ones the first that the set lacks tells enough when it is the source:
// giving it brings the others.
void AddMissing(std::string_view source, const NameSet& names, std::vector<std::string>& missing) {
    if (!names.contains(std::string(source))) {
        missing.emplace_back(source);
    }
    Tile tile;
    tile.kindName = source;
    for (const Tile& derived : MirrorTile(tile)) {
        const std::string& name = derived.kindName.Text();
        if (!names.contains(name) && (missing.empty() || missing.back() != source)) {
            missing.push_back(name);
        }
    }
}

void CheckNeeded(const ConfigElement& tileSet, const NameSet& names, Findings& findings) {
    std::vector<std::string> missing;
    for (const std::string_view kind : kNeeded) {
        AddMissing(kind, names, missing);
    }
    if (missing.empty()) {
        return;
    }
    const bool forHalls = std::ranges::any_of(
        kHallPieces, [&names](std::string_view kind) { return names.contains(std::string(kind)); });
    findings.Add(forHalls ? Weight::Warning : Weight::Note,
                 tileSet.place,
                 "tile set " + InQuotes(AttributeText(tileSet, Tile_TsName)) + " lacks " +
                     JoinWords(missing),
                 forHalls ? "Random levels get holes, or their rooms cannot be joined."
                          : "The set serves fixed layouts; random levels cannot be built with it.");
}

void CheckRequires(const Elements& tiles, const NameSet& names, Findings& findings) {
    for (const ConfigElement* tile : tiles) {
        const std::string required = AttributeText(*tile, Attrib_Requires);
        if (!required.empty() && !names.contains(required)) {
            findings.Add(Weight::Error,
                         PlaceOf(*tile, Attrib_Requires),
                         "the tile set has no tile " + InQuotes(required) + " that " + tile->name +
                             " requires",
                         "The companion is left out without a message.",
                         findings.Nearest(required, {names.begin(), names.end()}));
        }
    }
}

// The names that layouts and other tiles call for.
NameSet CalledFor(const ConfigTree& tree) {
    NameSet names;
    for (const ConfigElement* col : tree.OfClass(ElementClass::Col)) {
        for (const std::string& name : ListedNames(col->text)) {
            names.insert(name);
        }
    }
    for (const ConfigElement* tile : tree.OfClass(ElementClass::Tile)) {
        names.insert(AttributeText(*tile, Attrib_Requires));
    }
    return names;
}

void CheckKinds(const ConfigTree& tree, Findings& findings) {
    const NameSet calledFor = CalledFor(tree);
    for (const ConfigElement* tile : tree.OfClass(ElementClass::Tile)) {
        if (!TileKind::Of(tile->name).IsKnown() && !calledFor.contains(tile->name)) {
            if (FindElementFormat(tile->name) != nullptr) {
                findings.Add(
                    Weight::Error,
                    tile->place,
                    tile->name + " stands inside a tile set",
                    "It is taken for a tile, and nothing is known by its name. Move it behind "
                    "</TileSet>.");
                continue;
            }
            // Without a known kind near it may be meant for layouts that are yet to be drawn.
            const std::string nearest = findings.Nearest(tile->name, TileKindNames());
            findings.Add(nearest.empty() ? Weight::Note : Weight::Warning,
                         tile->place,
                         InQuotes(tile->name) + " is no kind of tile, and no layout calls for it",
                         "It is never placed.",
                         nearest);
        }
    }
}

} // namespace

void CheckTileSets(const ConfigTree& tree, Findings& findings) {
    CheckKinds(tree, findings);
    for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
        const NameSet names = TileNames(tree, *tileSet);
        CheckNeeded(*tileSet, names, findings);
        CheckRequires(tree.Inside(*tileSet), names, findings);
    }
}

} // namespace Tarnex::Report
