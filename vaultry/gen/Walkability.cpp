// SPDX-License-Identifier: MIT
#include <vaultry/gen/Walkability.h>

#include <vaultry/foundation/Numeric.h>
#include <vaultry/gen/Sides.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/Passages.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <vector>

namespace Tarnex {

namespace {

constexpr float kSameFloor = 1.0F; // how far a part may be raised or lowered [cells]

DiPos OriginOf(const Layout& layout) {
    return {TruncToInt(layout.GetOffset().x), TruncToInt(layout.GetOffset().y), 0};
}

// The level as one walks it: for each cell the sides across which one can leave it, and those of
// halls and doorways that must lead somewhere. Closed cells all around the level spare a look at
// the border.
class WalkMap {
public:
    explicit WalkMap(const Layout& main)
        : size(main.GetSize()), stride(main.GetWidth() + 2),
          cells(stride * (std::size_t{main.GetHeight()} + 2)) {
        for (const Side& side : Sides()) {
            distances[static_cast<std::size_t>(side.dir)] =
                side.step.y * static_cast<std::ptrdiff_t>(stride) + side.step.x;
        }
        AddGrid(main, DiPos());
        for (const DiPtr<Layout>& part : main.GetChildren()) {
            if (std::abs(part->GetOffset().z) <= kSameFloor) {
                AddGrid(*part, OriginOf(*part));
            }
        }
        JoinNeighbours();
    }

    std::uint32_t CountOpenEnds() const {
        std::uint32_t count = 0;
        for (const Cell& cell : cells) {
            if (const auto blind = static_cast<SideBits>(cell.openings & ~cell.passable)) {
                count += static_cast<std::uint32_t>(std::popcount(blind));
            }
        }
        return count;
    }

    // Walks from every cell of the room.
    void WalkFrom(const Layout& room) {
        std::vector<Cell*> open;
        const auto visit = [&open](Cell& cell) {
            if (!cell.visited) {
                cell.visited = true;
                open.push_back(&cell);
            }
        };
        ForEachCell(room, visit);
        while (!open.empty()) {
            Cell& cell = *open.back();
            open.pop_back();
            for (std::size_t side = 0; side < distances.size(); ++side) {
                if ((cell.passable >> side & 1U) != 0) {
                    visit(*(&cell + distances[side]));
                }
            }
        }
    }

    bool IsReached(const Layout& room) {
        bool reached = false;
        ForEachCell(room, [&reached](const Cell& cell) { reached = reached || cell.visited; });
        return reached;
    }

private:
    struct Cell {
        bool filled = false;
        bool visited = false;
        SideBits walkable = 0; // sides that do not keep one from leaving
        SideBits passable = 0; // those of them where the neighbour lets one in
        SideBits openings = 0;
    };

    void JoinNeighbours() {
        for (std::size_t i = stride; i + stride < cells.size(); ++i) {
            Cell& cell = cells[i];
            unsigned entered = 0;
            for (const Side& side : Sides()) {
                const auto to = static_cast<std::size_t>(side.dir);
                const Cell& next = *(&cell + distances[to]);
                entered |= (next.walkable >> static_cast<unsigned>(side.opposite) & 1U) << to;
            }
            cell.passable = static_cast<SideBits>(cell.walkable & entered);
        }
    }

    bool IsInside(const DiPos& pos) const {
        return pos.x >= 0 && pos.y >= 0 && pos.x < size.x && pos.y < size.y;
    }

    Cell& At(const DiPos& pos) {
        return cells[(static_cast<std::size_t>(pos.y) + 1) * stride +
                     static_cast<std::size_t>(pos.x) + 1];
    }

    // Visits the cells of the level that a room has tiles in.
    template <typename Visitor>
    void ForEachCell(const Layout& room, const Visitor& visit) {
        ForEachElmt(room, OriginOf(room), [&visit](Cell& cell, const GridElmt&) { visit(cell); });
    }

    template <typename Visitor>
    void ForEachElmt(const Layout& layout, const DiPos& origin, const Visitor& visit) {
        DiPos pos = origin;
        for (std::uint32_t row = 0; row < layout.GetHeight(); ++row, ++pos.y) {
            pos.x = origin.x;
            for (const DiPtr<GridElmt>& elmt : layout.GetRow(row)) {
                if (elmt && !elmt->tiles.empty() && IsInside(pos)) {
                    visit(At(pos), *elmt);
                }
                ++pos.x;
            }
        }
    }

    void AddGrid(const Layout& layout, const DiPos& origin) {
        ForEachElmt(layout, origin, [](Cell& cell, const GridElmt& elmt) {
            if (!cell.filled) {
                cell = {true, false, WalkableSides(elmt), 0, OpenSides(elmt)};
            }
        });
    }

    DiPos size;
    std::size_t stride;
    std::vector<Cell> cells;
    std::array<std::ptrdiff_t, 4> distances{}; // from a cell to the next on each side
};

} // namespace

void JudgeWalkability(LevelReport& report, const Layout& main, const RoomInfo& rooms) {
    WalkMap map(main);
    const auto list = rooms.GetRoomList();
    report.openEnds = map.CountOpenEnds();
    report.rooms.clear();
    if (list.empty()) {
        return;
    }
    map.WalkFrom(*list.front());
    for (const DiPtr<Layout>& room : list) {
        RoomReport& entry = report.rooms.emplace_back();
        entry.slot = rooms.GetLogicalRoomPos(*room);
        entry.origin = OriginOf(*room);
        entry.size = room->GetSize();
        entry.reachable = map.IsReached(*room);
    }
}

} // namespace Tarnex
