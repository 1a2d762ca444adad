// SPDX-License-Identifier: MIT
#include "tools/check/DrawingRules.h"

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/catalogue/Vocabulary.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Tarnex::Report {

namespace {

constexpr double kUsualRise = 0.5; // of the game's stairs, where no set has any

// The tile sets of one type.
struct SetsOfType {
    std::string_view type;
    std::vector<std::pair<std::string, NameSet>> sets; // their names and tiles
    NameSet all;
    std::vector<std::string> allList; // likewise
    // Of each piece that closes a doorway the sets that lack it, in words; empty when none does.
    std::map<std::string_view, std::string> lacking;
    int tileSize = 0;          // of the first set [world units]
    std::vector<double> rises; // that their stairs climb, in cells
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

void AddSizes(const ConfigTree& tree, const ConfigElement& tileSet, SetsOfType& found) {
    const int size = WholeOf(tileSet, Tile_TsSize);
    found.tileSize = found.tileSize == 0 ? size : found.tileSize;
    for (const ConfigElement* tile : tree.Inside(tileSet)) {
        const std::optional<CellShape> shape = ShapeOf(TileKind::Of(tile->name));
        if (shape && shape->climbs != 0 && size > 0) {
            const double rise = static_cast<double>(WholeOf(*tile, Attrib_DeltaZ)) / size;
            if (std::ranges::find(found.rises, rise) == found.rises.end()) {
                found.rises.push_back(rise);
            }
        }
    }
}

SetsOfType SetsOf(const ConfigTree& tree, std::string_view type) {
    SetsOfType found{type, {}, {}, {}, {}, 0, {}};
    for (const ConfigElement* tileSet : tree.OfClass(ElementClass::TileSet)) {
        if (IsAnyOf(AttributeText(*tileSet, Tile_TsType), {type})) {
            const NameSet names = TileNames(tree, *tileSet);
            found.sets.emplace_back(AttributeText(*tileSet, Tile_TsName), names);
            found.all.insert(names.begin(), names.end());
            AddSizes(tree, *tileSet, found);
        }
    }
    if (found.rises.empty()) {
        found.rises.push_back(kUsualRise);
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

// The piece by which random levels replace a doorway of that facing; empty when there is none.
std::string_view ClosingPiece(TileDirT dir, bool hasHall) {
    const auto* const row = std::ranges::find(kClosings, dir, &ClosingRow::dir);
    return row == kClosings.end() ? std::string_view{} : (hasHall ? row->hallEnd : row->wall);
}

// Random levels look north and south of a doorway that faces there, and east and west of any other.
bool OpensOntoNothing(const Drawing& drawing, const Spot& at, TileDirT dir) {
    const bool vertical = dir == DirN || dir == DirS;
    return !drawing.Has(Beside(at, vertical ? DirN : DirW)) ||
           !drawing.Has(Beside(at, vertical ? DirS : DirE));
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

void CheckRim(const Drawing& drawing, const SetsOfType& sets, Findings& findings) {
    for (const DrawnCell& cell : drawing.Cells()) {
        const std::vector<std::string> names = ListedNames(cell.col->text);
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
        if (OpensOntoNothing(drawing, cell.at, dir)) {
            const bool hasHall = typed(TileHall) != names.end();
            CheckDoorway(*cell.col, *doorway, ClosingPiece(dir, hasHall), sets, findings);
        }
    }
}

// A layout and what is inside: all of it is built from one tile set.
void CheckNames(const ConfigTree& tree,
                const ConfigElement& layout,
                const SetsOfType& sets,
                Findings& findings) {
    CheckSize(tree, layout, findings);
    for (const ConfigElement* row : RowsOf(tree, layout)) {
        for (const ConfigElement* col : ColsOf(tree, *row)) {
            if (!sets.all.empty()) {
                CheckCell(*col, sets, findings);
            }
        }
    }
    bool nests = false;
    for (const ConfigElement* inside : tree.Inside(layout)) {
        if (inside->element == ElementClass::Layout) {
            nests = true;
            CheckNames(tree, *inside, sets, findings);
        }
    }
    // The cells of others inside may lie beyond its rim.
    if (!nests) {
        CheckRim(Drawing(tree, layout, sets.rises), sets, findings);
    }
}

// What a cell with a misspelt piece is meant to be is not known.
void Forgive(Drawing& drawing, const NameSet& tiles) {
    for (DrawnCell& cell : drawing.Cells()) {
        const auto names = ListedNames(cell.col->text);
        if (std::ranges::any_of(names, [&tiles](const std::string& name) {
                return !TileKind::Of(name).IsKnown() && !tiles.contains(name);
            })) {
            cell.shape.edges.fill(Edge::Any);
        }
    }
}

void CheckDrawing(const ConfigTree& tree,
                  const ConfigElement& layout,
                  const SetsOfType& sets,
                  Findings& findings) {
    CheckOffsets(tree, layout, sets.tileSize, findings);
    DrawnLayout drawn{tree, layout, sets.all, Drawing(tree, layout, sets.rises), {}};
    CheckCells(drawn, findings);
    Forgive(drawn.drawing, sets.all);
    CheckOverlaps(drawn.drawing, findings);
    drawn.survey = SurveyOf(drawn.drawing);
    CheckSides(drawn, findings);
    CheckWays(drawn, findings);
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
        const SetsOfType& sets = useCaves ? caves : rooms;
        CheckNames(tree, *layout, sets, findings);
        CheckDrawing(tree, *layout, sets, findings);
    }
}

} // namespace Tarnex::Report
