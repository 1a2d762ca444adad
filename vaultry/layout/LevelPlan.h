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

/// One cell of a plan.
struct PlanCell {
    DiPos place;                     ///< on the plan
    PlanTile tile = PlanTile::Empty; ///< what stands there
    SideBits open = 0;               ///< sides without a wall
    SideBits doorway = 0;            ///< the open side that holds a doorway
    SideBits ways = 0;  ///< sides across which one comes to the neighbour, see JoinNeighbours
    SideBits loose = 0; ///< openings of halls and doorways, after JoinNeighbours those onto nothing
    bool teleport = false;  ///< behind the doorway is another level
    bool sameFloor = false; ///< stands on the level's own floor, see kSameFloor
    bool even = false;      ///< neither raised nor lowered at all, and without a platform
    bool reduced = false;   ///< a half or quarter tile: its walls run through the middle
    std::size_t room = 0;   ///< its number from 1; 0 outside of rooms
};

/// One element as it stands by itself, on the level's floor.
VAULTRY_API PlanCell PlanCellOf(const GridElmt& elmt);

/// A grid of PlanCell or what derives from it. Empty cells take next to no memory.
template <typename Cell>
class PlanGrid {
public:
    /// That may hold something, row by row from the north-western corner.
    std::vector<Cell> cells;

    /// Sets the size, and makes a cell for each of the places that `each` calls its argument with;
    /// they are inside and may come several times, in any order. [cells]
    template <typename EachPlace>
    void SetGrid(const DiPos& newSize, const EachPlace& each) {
        size = newSize;
        numbers.assign(Index(DiPos(size.x, size.y, 0)) + 1, 0);
        for (const Side& side : Sides()) {
            steps[static_cast<std::size_t>(side.dir)] =
                Index(side.step) - Index(DiPos()); // wraps around for north and west
        }
        each([this](const DiPos& place) { numbers[Index(place)] = 1; });
        cells.assign(numbers.size() - static_cast<std::size_t>(std::ranges::count(numbers, 0U)),
                     {});
        std::uint32_t count = 0;
        DiPos place;
        for (place.y = 0; place.y < size.y; ++place.y) {
            for (place.x = 0; place.x < size.x; ++place.x) {
                if (std::uint32_t& number = numbers[Index(place)]; number != 0) {
                    cells[count].place = place;
                    number = ++count;
                }
            }
        }
    }

    /// Whether the place is on the grid.
    bool IsInside(const DiPos& place) const {
        return place.x >= 0 && place.y >= 0 && place.x < size.x && place.y < size.y;
    }

    /// The cell there, or null. `place` is inside or next to it.
    /// @{
    const Cell* Find(const DiPos& place) const { return CellAt(cells.data(), Index(place)); }
    Cell* Find(const DiPos& place) { return CellAt(cells.data(), Index(place)); }
    /// @}

    /// The neighbour of one of the cells in `cells`, or null.
    /// @{
    const Cell* Next(const Cell& from, const Side& side) const {
        return CellAt(cells.data(), Index(from.place) + steps[static_cast<std::size_t>(side.dir)]);
    }
    Cell* Next(const Cell& from, const Side& side) {
        return CellAt(cells.data(), Index(from.place) + steps[static_cast<std::size_t>(side.dir)]);
    }
    /// @}

    /// The place of one of the cells in `cells`.
    std::size_t NumberOf(const Cell& cell) const {
        return static_cast<std::size_t>(&cell - cells.data());
    }

private:
    // Empty cells all around spare a look at the border.
    std::size_t Index(const DiPos& place) const {
        return static_cast<std::size_t>(place.y + 1) * (static_cast<std::size_t>(size.x) + 2) +
               static_cast<std::size_t>(place.x + 1);
    }

    template <typename AnyCell>
    AnyCell* CellAt(AnyCell* first, std::size_t index) const {
        const std::uint32_t number = numbers[index];
        return number == 0 ? nullptr : first + (number - 1);
    }

    DiPos size;
    std::vector<std::uint32_t> numbers; // of the cells from 1, or 0, row by row
    std::array<std::size_t, 4> steps{}; // in `numbers` from a cell to the next on each side
};

/// A plan of nothing but what decides where one can walk.
using LevelPlan = PlanGrid<PlanCell>;

/// A layout of a level's tree with its place on the level.
struct LevelPart {
    const Layout* layout; ///< not null
    DiPos origin;         ///< [cells]
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
/// floors is left out. Rooms have no numbers.
LevelPlan PlanOf(const Layout& level);

/// The sides across which one can leave a cell. Behind a teleporting door is another level,
/// whatever stands there on this one.
inline SideBits WaysOut(const PlanCell& cell) {
    return static_cast<SideBits>(cell.open & ~(cell.teleport ? cell.doorway : 0));
}

/// Finds where one can walk: across sides that are open on both cells, to a neighbour on the
/// level's floor. The loose ends that lead somewhere are no longer such.
template <typename Cell>
void JoinNeighbours(PlanGrid<Cell>& grid) {
    for (Cell& cell : grid.cells) {
        cell.ways = 0;
    }
    // Each pair once, from its northern or western cell.
    const std::array<const Side*, 2> ahead = {&Sides()[DirS], &Sides()[DirE]};
    for (Cell& cell : grid.cells) {
        const SideBits out = WaysOut(cell);
        for (const Side* side : ahead) {
            Cell* to = (out & SideBit(side->dir)) != 0 ? grid.Next(cell, *side) : nullptr;
            if (to == nullptr || (WaysOut(*to) & SideBit(side->opposite)) == 0) {
                continue;
            }
            cell.ways |= to->sameFloor ? SideBit(side->dir) : SideBits{0};
            to->ways |= cell.sameFloor ? SideBit(side->opposite) : SideBits{0};
        }
    }
    for (Cell& cell : grid.cells) {
        const unsigned judged = cell.sameFloor ? WaysOut(cell) & ~unsigned{cell.ways} : 0;
        cell.loose = static_cast<SideBits>(cell.loose & judged);
    }
}

/// Walks from the cells of `open` to all neighbours that `enters` (from, to, side) answers true
/// for, and from those on.
template <typename Cell, typename Enters>
void Walk(PlanGrid<Cell>& grid, std::vector<Cell*> open, const Enters& enters) {
    const std::array<Side, 4>& sides = Sides();
    while (!open.empty()) {
        const Cell& from = *open.back();
        open.pop_back();
        for (const Side& side : sides) {
            if ((from.ways & SideBit(side.dir)) == 0) {
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
template <typename Cell>
std::vector<bool> ReachedRooms(PlanGrid<Cell>& grid, std::size_t rooms) {
    std::vector<char> visited(grid.cells.size()); // bytes are faster to walk by than bits
    std::vector<Cell*> start;
    for (Cell& cell : grid.cells) {
        if (cell.room == 1) {
            visited[grid.NumberOf(cell)] = 1;
            start.push_back(&cell);
        }
    }
    Walk(grid, std::move(start), [&](const Cell&, const Cell& to, const Side&) {
        return std::exchange(visited[grid.NumberOf(to)], 1) == 0;
    });
    std::vector<bool> reached(rooms);
    for (const Cell& cell : grid.cells) {
        if (cell.room > 0 && (visited[grid.NumberOf(cell)] != 0 || !cell.sameFloor)) {
            reached[cell.room - 1] = true;
        }
    }
    return reached;
}

} // namespace Tarnex
