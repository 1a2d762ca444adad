// SPDX-License-Identifier: MIT
// A level as one walks it, drawn up once for whoever judges or draws it.
#pragma once

#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/Layout.h>
#include <vaultry/layout/Sides.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Tarnex {

/// How far a part may be raised or lowered and still be on the floor of its level. [cells]
inline constexpr float kSameFloor = 1.0F;

/// What a cell of a plan is.
enum class PlanTile : std::uint8_t { Empty, Room, Hall, Stairs };

/// One cell of a plan. Few bytes: a level has to fit into the processor's nearest cache.
struct PlanCell {
    PlanTile tile = PlanTile::Empty; ///< what stands there
    SideBits open = 0;               ///< sides without a wall
    SideBits doorway = 0;            ///< the open side that holds a doorway
    SideBits ways = 0;  ///< sides across which one comes to the neighbour, see JoinNeighbours
    SideBits loose = 0; ///< openings of halls and doorways, after JoinNeighbours those onto nothing
    bool teleport = false;  ///< behind the doorway is another level
    bool sameFloor = false; ///< stands on the level's own floor, see kSameFloor
    bool even = false;      ///< neither raised nor lowered at all, and without a platform
    bool reduced = false;   ///< a half or quarter tile: its walls run through the middle
    std::uint32_t room = 0; ///< its number from 1; 0 outside of rooms
};

/// One element as it stands by itself, on the level's floor.
VAULTRY_API PlanCell PlanCellOf(const GridElmt& elmt);

/// No more of it than where one can walk; without `even`, `reduced` and doorways to neighbours.
/// Half the memory of the elements is enough for that, which tells in a search over thousands of
/// levels.
PlanCell WaysOf(const GridElmt& elmt);

/// A plan of nothing but what decides where one can walk.
class LevelPlan {
public:
    /// All places row by row from the north-western corner, with a border of empty ones all around
    /// that spares a look at the edge.
    std::vector<PlanCell> cells;

    /// A plan without anything on it. [cells]
    explicit LevelPlan(const DiPos& newSize);

    /// The cell there. `place` is inside.
    /// @{
    const PlanCell& At(const DiPos& place) const { return cells[Index(place)]; }
    PlanCell& At(const DiPos& place) { return cells[Index(place)]; }
    /// @}

    /// Where a cell of `cells` is.
    DiPos PlaceOf(const PlanCell& cell) const;

    /// The neighbour of a cell that is inside.
    /// @{
    const PlanCell* Next(const PlanCell& from, TileDirT side) const {
        return &from + steps[static_cast<std::size_t>(side)];
    }
    PlanCell* Next(PlanCell& from, TileDirT side) {
        return &from + steps[static_cast<std::size_t>(side)];
    }
    /// @}

    /// Calls `visit` with the cell and the element for each element of a layout that has tiles and
    /// lies on the plan, for a layout that begins at `origin`.
    template <typename Visitor>
    void UnderTiles(const Layout& layout, const DiPos& origin, const Visitor& visit) {
        // A configuration may put a layout anywhere at all.
        const std::int64_t west = origin.x;
        const std::int64_t north = origin.y;
        const std::int64_t first = std::max<std::int64_t>(0, -west);
        const std::int64_t last = std::min<std::int64_t>(layout.GetSize().x, size.x - west);
        const std::int64_t lastRow = std::min<std::int64_t>(layout.GetSize().y, size.y - north);
        for (std::int64_t row = std::max<std::int64_t>(0, -north); first < last && row < lastRow;
             ++row) {
            PlanCell* cell = &At(DiPos(static_cast<std::int32_t>(west + first),
                                       static_cast<std::int32_t>(north + row),
                                       0));
            const Layout::Row& elmts = layout.GetRow(static_cast<std::uint32_t>(row));
            for (std::int64_t col = first; col < last; ++col, ++cell) {
                const DiPtr<GridElmt>& elmt = elmts[static_cast<std::size_t>(col)];
                if (elmt && !elmt->tiles.empty()) {
                    visit(*cell, *elmt);
                }
            }
        }
    }

private:
    std::size_t Index(const DiPos& place) const {
        return static_cast<std::size_t>(place.y + 1) * (static_cast<std::size_t>(size.x) + 2) +
               static_cast<std::size_t>(place.x + 1);
    }

    DiPos size;
    std::array<std::ptrdiff_t, 4> steps{}; // from a cell to the next on each side
};

/// No part is farther out than that: what lies there is far from any level, and a few sums of such
/// places are still in range. [cells]
inline constexpr std::int32_t kFarthestOrigin = 1 << 28;

/// A layout of a level's tree with its place on the level.
struct LevelPart {
    const Layout* layout; ///< not null
    DiPos origin;         ///< [cells, up to kFarthestOrigin]
    bool sameFloor;       ///< see kSameFloor
    bool even;            ///< neither raised nor lowered
};

/// The level itself, then the parts on its floor, then all others. Where several have tiles in one
/// cell the first counts.
VAULTRY_API std::vector<LevelPart> PartsOf(const Layout& level);

/// Calls `visit` with each element of a layout that has tiles and its place, for a layout that
/// begins at `origin`.
template <typename Visitor>
void ForEachTiled(const Layout& layout, const DiPos& origin, const Visitor& visit) {
    DiPos place = origin;
    for (std::uint32_t row = 0; row < layout.GetHeight(); ++row, ++place.y) {
        place.x = origin.x;
        for (const DiPtr<GridElmt>& elmt : layout.GetRow(row)) {
            if (elmt && !elmt->tiles.empty()) {
                visit(*elmt, place);
            }
            ++place.x;
        }
    }
}

/// The plan of a level, its neighbours joined; what stands beside the level's own grid or on other
/// floors is left out. Rooms have no numbers. `cellOf` tells what to make of an element:
/// PlanCellOf, or WaysOf where nothing else matters.
LevelPlan PlanOf(const Layout& level, PlanCell (*cellOf)(const GridElmt&) = PlanCellOf);

/// The sides across which one can leave a cell. Behind a teleporting door is another level,
/// whatever stands there on this one.
inline SideBits WaysOut(const PlanCell& cell) {
    return static_cast<SideBits>(cell.open & ~(cell.teleport ? cell.doorway : 0));
}

/// Finds where one can walk: across sides that are open on both cells, to a neighbour on the
/// level's floor. The loose ends that lead somewhere are no longer such.
template <typename Grid>
void JoinNeighbours(Grid& grid) {
    for (auto& cell : grid.cells) {
        const SideBits out = WaysOut(cell);
        cell.ways = 0;
        // Most of a level is empty.
        if (out == 0) {
            continue;
        }
        for (const TileDirT side : kSides) {
            const PlanCell* to = (out & SideBit(side)) != 0 ? grid.Next(cell, side) : nullptr;
            if (to != nullptr && to->sameFloor && (WaysOut(*to) & SideBit(OppositeOf(side))) != 0) {
                cell.ways |= SideBit(side);
            }
        }
        const unsigned judged = cell.sameFloor ? out & ~unsigned{cell.ways} : 0;
        cell.loose = static_cast<SideBits>(cell.loose & judged);
    }
}

/// Walks from the cells of `open` to all neighbours that `enters` (from, to, side) answers true
/// for, and from those on.
template <typename Grid, typename Cell, typename Enters>
void Walk(Grid& grid, std::vector<Cell*> open, const Enters& enters) {
    while (!open.empty()) {
        Cell& from = *open.back();
        open.pop_back();
        for (const TileDirT side : kSides) {
            if ((from.ways & SideBit(side)) == 0) {
                continue;
            }
            Cell* to = grid.Next(from, side);
            if (enters(from, *to, side)) {
                open.push_back(to);
            }
        }
    }
}

/// For each of the rooms whether one can walk to it from the first. What stands on another floor
/// counts as reached: nobody knows how one gets there.
template <typename Grid>
std::vector<bool> ReachedRooms(Grid& grid, std::size_t rooms) {
    using Cell = typename decltype(grid.cells)::value_type;
    const auto numberOf = [first = grid.cells.data()](const Cell& cell) {
        return static_cast<std::size_t>(&cell - first);
    };
    std::vector<char> visited(grid.cells.size()); // bytes are faster to walk by than bits
    std::vector<char> reached(rooms + 1);         // with the cells outside of rooms
    std::vector<Cell*> start;
    for (Cell& cell : grid.cells) {
        if (cell.room == 0) {
            continue;
        }
        if (cell.room == 1) {
            visited[numberOf(cell)] = 1;
            start.push_back(&cell);
        }
        if (cell.room == 1 || !cell.sameFloor) {
            reached[cell.room] = 1;
        }
    }
    Walk(grid, std::move(start), [&](const Cell&, const Cell& to, TileDirT) {
        reached[to.room] = 1;
        return std::exchange(visited[numberOf(to)], 1) == 0;
    });
    return {reached.begin() + 1, reached.end()};
}

} // namespace Tarnex
