// SPDX-License-Identifier: MIT
#include <vaultry/gen/Walkability.h>

#include <vaultry/foundation/Numeric.h>
#include <vaultry/gen/Sides.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/Passages.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Tarnex {

namespace {

constexpr float kSameFloor = 1.0F; // how far a part may be raised or lowered [cells]

bool HasSide(SideBits sides, TileDirT side) {
    return (sides >> static_cast<unsigned>(side) & 1U) != 0;
}

DiPos OriginOf(const Layout& layout) {
    return {TruncToInt(layout.GetOffset().x), TruncToInt(layout.GetOffset().y), 0};
}

// The level as one walks it: for each cell the sides across which one can leave it, and those of
// halls and doorways that must lead somewhere.
class WalkMap {
public:
    explicit WalkMap(const Layout& main)
        : width(main.GetSize().x), height(main.GetSize().y),
          cells(main.GetWidth() * std::size_t{main.GetHeight()}) {
        AddGrid(main, DiPos());
        for (const DiPtr<Layout>& part : main.GetChildren()) {
            if (std::abs(part->GetOffset().z) <= kSameFloor) {
                AddGrid(*part, OriginOf(*part));
            }
        }
    }

    std::uint32_t CountOpenEnds() const {
        std::uint32_t count = 0;
        for (std::int32_t y = 0; y < height; ++y) {
            for (std::int32_t x = 0; x < width; ++x) {
                const DiPos pos(x, y, 0);
                if (At(pos).openings == 0) {
                    continue;
                }
                for (const Side& side : Sides()) {
                    const bool leads = HasSide(At(pos).openings, side.dir);
                    count += leads && !CanPass(pos, side) ? 1U : 0U;
                }
            }
        }
        return count;
    }

    // Walks from every cell of the room.
    void WalkFrom(const Layout& room) {
        ForEachCell(room, [this](const DiPos& pos) { Visit(pos); });
        while (!open.empty()) {
            const DiPos pos = open.back();
            open.pop_back();
            for (const Side& side : Sides()) {
                if (CanPass(pos, side)) {
                    Visit(pos + side.step);
                }
            }
        }
    }

    bool IsReached(const Layout& room) const {
        bool reached = false;
        ForEachCell(room, [this, &reached](const DiPos& pos) {
            reached = reached || (IsInside(pos) && At(pos).visited);
        });
        return reached;
    }

private:
    struct Cell {
        bool filled = false;
        bool visited = false;
        SideBits walkable = 0;
        SideBits openings = 0;
    };

    bool IsInside(const DiPos& pos) const {
        return pos.x >= 0 && pos.y >= 0 && pos.x < width && pos.y < height;
    }

    std::size_t Index(const DiPos& pos) const {
        return static_cast<std::size_t>(pos.y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(pos.x);
    }

    const Cell& At(const DiPos& pos) const { return cells[Index(pos)]; }
    Cell& At(const DiPos& pos) { return cells[Index(pos)]; }

    bool CanPass(const DiPos& pos, const Side& side) const {
        const DiPos next = pos + side.step;
        return IsInside(next) && HasSide(At(pos).walkable, side.dir) &&
               HasSide(At(next).walkable, side.opposite);
    }

    void Visit(const DiPos& pos) {
        if (IsInside(pos) && At(pos).filled && !At(pos).visited) {
            At(pos).visited = true;
            open.push_back(pos);
        }
    }

    template <typename Visitor>
    static void ForEachCell(const Layout& room, const Visitor& visit) {
        const DiPos origin = OriginOf(room);
        for (std::uint32_t row = 0; row < room.GetHeight(); ++row) {
            for (std::uint32_t col = 0; col < room.GetWidth(); ++col) {
                if (room.HasTiles(row, col)) {
                    visit(origin +
                          DiPos(static_cast<std::int32_t>(col), static_cast<std::int32_t>(row), 0));
                }
            }
        }
    }

    void AddGrid(const Layout& layout, const DiPos& origin) {
        for (std::uint32_t row = 0; row < layout.GetHeight(); ++row) {
            for (std::uint32_t col = 0; col < layout.GetWidth(); ++col) {
                const DiPos pos =
                    origin +
                    DiPos(static_cast<std::int32_t>(col), static_cast<std::int32_t>(row), 0);
                if (layout.HasTiles(row, col) && IsInside(pos) && !At(pos).filled) {
                    Fill(At(pos), *layout.GetElmt(row, col));
                }
            }
        }
    }

    static void Fill(Cell& cell, const GridElmt& elmt) {
        cell.filled = true;
        cell.walkable = WalkableSides(elmt);
        cell.openings = OpenSides(elmt);
    }

    std::int32_t width;
    std::int32_t height;
    std::vector<Cell> cells;
    std::vector<DiPos> open;
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
