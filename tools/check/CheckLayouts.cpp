// SPDX-License-Identifier: MIT
#include "tools/check/ConfigRules.h"

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Tarnex::Report {

namespace {

// The tile sets of one type.
struct SetsOfType {
    std::string_view type;
    std::vector<std::pair<std::string, NameSet>> sets; // their names and tiles
    NameSet all;
    std::vector<std::string> allList; // likewise
    // Of each piece that closes a doorway the sets that lack it, in words; empty when none does.
    std::map<std::string_view, std::string> lacking;
};

struct ClosingRow {
    TileDirT dir;
    std::string_view wall;
    std::string_view hallEnd;
};

constexpr std::array<ClosingRow, 4> kClosings = {{
    {DirN, Tile_nWall, Tile_HallEndN},
    {DirS, Tile_sWall, Tile_HallEndS},
    {DirE, Tile_eWall, Tile_HallEndE},
    {DirW, Tile_wWall, Tile_HallEndW},
}};

// The tile sets that lack a piece, the first of them by name.
std::string Lacking(const SetsOfType& sets, std::string_view piece) {
    constexpr std::size_t kNamed = 3;
    std::string lacking;
    std::size_t count = 0;
    for (const auto& [name, tiles] : sets.sets) {
        if (!tiles.contains(std::string(piece)) && ++count <= kNamed) {
            lacking += (lacking.empty() ? "" : ", ") + InQuotes(name);
        }
    }
    return count > kNamed ? lacking + " and " + std::to_string(count - kNamed) + " more" : lacking;
}

SetsOfType SetsOf(const ConfigTree& tree, std::string_view type) {
    SetsOfType found{type, {}, {}, {}, {}};
    for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
        if (IsAnyOf(AttributeText(*tileSet, Tile_TsType), {type})) {
            const NameSet names = TileNames(tree, *tileSet);
            found.sets.emplace_back(AttributeText(*tileSet, Tile_TsName), names);
            found.all.insert(names.begin(), names.end());
        }
    }
    found.allList.assign(found.all.begin(), found.all.end());
    for (const ClosingRow& row : kClosings) {
        for (const std::string_view piece : {row.wall, row.hallEnd}) {
            found.lacking[piece] = Lacking(found, piece);
        }
    }
    return found;
}

void CheckCell(const ConfigElement& col, const SetsOfType& sets, Findings& findings) {
    for (const std::string& name : ListedNames(col.text)) {
        if (sets.all.contains(name)) {
            continue;
        }
        const bool blank = name.starts_with(' ') || name.ends_with(' ');
        findings.Add(Weight::Error,
                     col.place,
                     "no " + std::string(sets.type) + " tile set has a tile " + InQuotes(name),
                     blank ? "The cell stays without this piece; the blank belongs to the name."
                           : "The cell stays without this piece.",
                     findings.Nearest(name, sets.allList));
    }
}

using Cells = std::map<std::pair<int, int>, const ConfigElement*>;

// The filled cells of a layout by row and column; what lies beyond its size is dropped.
Cells FilledCells(const ConfigTree& tree, const ConfigElement& layout) {
    const int height = WholeOf(layout, Attrib_Height);
    const int width = WholeOf(layout, Attrib_Width);
    Cells cells;
    int rowNumber = 0;
    for (const ConfigElement* row : tree.Inside(layout)) {
        if (row->element != ElementClass::Row || rowNumber >= height) {
            continue;
        }
        int colNumber = 0;
        for (const ConfigElement* col : tree.Inside(*row)) {
            if (col->element == ElementClass::Col && colNumber < width &&
                !ListedNames(col->text).empty()) {
                cells[{rowNumber, colNumber}] = col;
            }
            ++colNumber;
        }
        ++rowNumber;
    }
    return cells;
}

// The piece by which random levels replace a doorway of that facing; empty when there is none.
std::string_view ClosingPiece(TileDirT dir, bool hasHall) {
    const auto* const row = std::ranges::find(kClosings, dir, &ClosingRow::dir);
    return row == kClosings.end() ? std::string_view{} : (hasHall ? row->hallEnd : row->wall);
}

// Random levels look north and south of a doorway that faces there, and east and west of any other.
bool OpensOntoNothing(const Cells& cells, const std::pair<int, int>& at, TileDirT dir) {
    const bool vertical = dir == DirN || dir == DirS;
    const int rows = vertical ? 1 : 0;
    const int cols = vertical ? 0 : 1;
    return !cells.contains({at.first - rows, at.second - cols}) ||
           !cells.contains({at.first + rows, at.second + cols});
}

void CheckDoorway(const ConfigElement& col,
                  const std::string& doorway,
                  std::string_view piece,
                  const SetsOfType& sets,
                  Findings& findings) {
    if (piece.empty()) {
        findings.Add(Weight::Warning,
                     col.place,
                     "the corner doorway " + InQuotes(doorway) + " opens onto nothing",
                     "Random levels remove it and have nothing to close the corner.");
        return;
    }
    const std::string& lacking = sets.lacking.at(piece);
    if (!lacking.empty()) {
        findings.Add(Weight::Warning,
                     col.place,
                     "the doorway " + InQuotes(doorway) + " opens onto nothing, and " +
                         std::string(piece) + " is not in tile set " + lacking,
                     "Random levels remove it and have nothing to close the wall.");
    }
}

void CheckRim(const Cells& cells, const SetsOfType& sets, Findings& findings) {
    for (const auto& [at, col] : cells) {
        const std::vector<std::string> names = ListedNames(col->text);
        const auto typed = [&names](TileType type) {
            return std::ranges::find_if(names, [type](const std::string& name) {
                return TileKind::Of(name).Type() == type;
            });
        };
        const auto doorway = typed(TileDoorway);
        if (doorway == names.end()) {
            continue;
        }
        const TileDirT dir = TileKind::Of(*doorway).Dir();
        if (OpensOntoNothing(cells, at, dir)) {
            const bool hasHall = typed(TileHall) != names.end();
            CheckDoorway(*col, *doorway, ClosingPiece(dir, hasHall), sets, findings);
        }
    }
}

// Other sizes without cells are refused when they are loaded.
void CheckSize(const ConfigElement& layout, Findings& findings) {
    for (const std::string_view name : {Attrib_Width, Attrib_Height}) {
        if (WholeOf(layout, name) == 0) {
            findings.Add(Weight::Warning,
                         PlaceOf(layout, name),
                         Titled(layout, Attrib_LayoutName) + " has a " + std::string(name) +
                             " of 0",
                         "The layout has no cells.");
        }
    }
}

// A layout and what is inside: all of it is built from one tile set.
void CheckLayout(const ConfigTree& tree,
                 const ConfigElement& layout,
                 const SetsOfType& sets,
                 Findings& findings) {
    CheckSize(layout, findings);
    bool nests = false;
    for (const ConfigElement* inside : tree.Inside(layout)) {
        const bool nested = inside->element == ElementClass::Layout;
        nests |= nested;
        if (nested) {
            CheckLayout(tree, *inside, sets, findings);
        }
        for (const ConfigElement* col : tree.Inside(*inside)) {
            if (!nested && col->element == ElementClass::Col && !sets.all.empty()) {
                CheckCell(*col, sets, findings);
            }
        }
    }
    // The cells of others inside may lie beyond its rim.
    if (!nests) {
        CheckRim(FilledCells(tree, layout), sets, findings);
    }
}

} // namespace

void CheckLayouts(const ConfigTree& tree, Findings& findings) {
    const SetsOfType rooms = SetsOf(tree, Tile_Room);
    const SetsOfType caves = SetsOf(tree, Tile_Cave);
    for (const ConfigElement* layout : tree.OfClass(ElementClass::Layout)) {
        const ConfigElement* around = tree.Around(*layout);
        if (around != nullptr && around->element == ElementClass::Layout) {
            continue;
        }
        const bool cave = IsAnyOf(AttributeText(*layout, Attrib_Type), {Tile_Cave});
        // Without a tile set of the type, layouts may be meant for those of the other one.
        const bool useCaves = cave ? !caves.all.empty() : rooms.all.empty();
        CheckLayout(tree, *layout, useCaves ? caves : rooms, findings);
    }
}

} // namespace Tarnex::Report
