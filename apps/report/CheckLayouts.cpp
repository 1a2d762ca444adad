// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Tarnex::Report {

namespace {

// The outermost layout around an element, or null.
const ConfigElement* OutermostLayout(const ConfigRecord& record, const ConfigElement& element) {
    const ConfigElement* outermost = nullptr;
    for (std::size_t i = element.parent; i != ConfigElement::kNoParent;
         i = record.elements[i].parent) {
        if (Is(record.elements[i], Layout_Layout)) {
            outermost = &record.elements[i];
        }
    }
    return outermost;
}

void CheckCell(const ConfigElement& col,
               std::string_view type,
               const NameSet& known,
               Findings& findings) {
    for (const std::string& name : ListedNames(col.text)) {
        if (known.contains(name)) {
            continue;
        }
        const bool blank = name.starts_with(' ') || name.ends_with(' ');
        findings.Add(Weight::Error,
                     col,
                     "no " + std::string(type) + " tile set has a tile \"" + name + '"',
                     blank ? "The cell stays without this piece; the blank belongs to the name."
                           : "The cell stays without this piece.",
                     Nearest(name, {known.begin(), known.end()}));
    }
}

struct Opening {
    std::string_view doorway;
    int rows; // to the cell that it opens to, southward
    int cols; // eastward
};

// Random levels close the other doorways with a wall.
constexpr std::array<Opening, 8> kCornerDoorways = {{
    {Tile_DoorwayNE_N, -1, 0},
    {Tile_DoorwayNW_N, -1, 0},
    {Tile_DoorwaySE_S, 1, 0},
    {Tile_DoorwaySW_S, 1, 0},
    {Tile_DoorwayNE_E, 0, 1},
    {Tile_DoorwaySE_E, 0, 1},
    {Tile_DoorwayNW_W, 0, -1},
    {Tile_DoorwaySW_W, 0, -1},
}};

using Cells = std::map<std::pair<int, int>, const ConfigElement*>;

// The filled cells of a layout by row and column.
Cells FilledCells(const ConfigRecord& record, const ConfigElement& layout) {
    Cells cells;
    int rowNumber = 0;
    for (const ConfigElement* row : ChildrenOf(record, layout)) {
        int colNumber = 0;
        for (const ConfigElement* col : ChildrenOf(record, *row)) {
            if (!ListedNames(col->text).empty()) {
                cells[{rowNumber, colNumber}] = col;
            }
            ++colNumber;
        }
        ++rowNumber;
    }
    return cells;
}

// A layout with others inside is left aside: their cells may lie beyond its rim.
bool StandsAlone(const ConfigRecord& record, const ConfigElement& layout) {
    const auto children = ChildrenOf(record, layout);
    return Is(layout, Layout_Layout) && OutermostLayout(record, layout) == nullptr &&
           std::ranges::none_of(
               children, [](const ConfigElement* child) { return Is(*child, Layout_Layout); });
}

void CheckRim(const Cells& cells, Findings& findings) {
    for (const auto& [at, col] : cells) {
        for (const std::string& name : ListedNames(col->text)) {
            for (const Opening& opening : kCornerDoorways) {
                const std::pair beyond(at.first + opening.rows, at.second + opening.cols);
                if (EqualsNoCase(name, opening.doorway) && !cells.contains(beyond)) {
                    findings.Add(Weight::Warning,
                                 *col,
                                 "the corner doorway \"" + name + "\" opens onto nothing",
                                 "Random levels remove it and have nothing to close the corner.");
                }
            }
        }
    }
}

} // namespace

void CheckLayouts(const ConfigRecord& record, Findings& findings) {
    const NameSet rooms = TileNames(record, Tile_Room);
    const NameSet caves = TileNames(record, Tile_Cave);
    for (const ConfigElement& element : record.elements) {
        if (StandsAlone(record, element)) {
            CheckRim(FilledCells(record, element), findings);
        }
        if (!Is(element, Layout_Col)) {
            continue;
        }
        const ConfigElement* layout = OutermostLayout(record, element);
        if (layout == nullptr) {
            continue;
        }
        const bool cave = IsAnyOf(AttributeText(*layout, Attrib_Type), {Tile_Cave});
        // Without a tile set of the type, layouts may be meant for those of the other one.
        const bool useCaves = cave ? !caves.empty() : rooms.empty();
        const NameSet& known = useCaves ? caves : rooms;
        if (!known.empty()) {
            CheckCell(element, useCaves ? Tile_Cave : Tile_Room, known, findings);
        }
    }
}

} // namespace Tarnex::Report
