// SPDX-License-Identifier: MIT
// What hall carving asks of the grid.
#pragma once

#include <vaultry/gen/GenInfo.h>
#include <vaultry/gen/HallStep.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/RoomInfo.h>
#include <vaultry/layout/Sides.h>

#include <vector>

namespace Tarnex {

/// The level and room grid being joined, and the questions that carving asks of them: where a
/// doorway may be cut, which room covers a place, how a hall piece may be changed. Nothing here
/// changes the level. Positions are in cells of the level.
class GenHallBase {
public:
    /// Nothing is owned: all three must outlive the object, and the rooms stay where they are.
    GenHallBase(const GenInfo& info, Layout& main, const RoomInfo& rooms);

    /// The element of the level there, or null.
    GridElmt* ElmtAt(const DiPos& pos) const {
        return main.GetElmt(static_cast<std::uint32_t>(pos.y), static_cast<std::uint32_t>(pos.x))
            .get();
    }
    /// Whether the place lies in the level at all.
    bool IsInside(const DiPos& pos) const;
    /// True on the outer border of the level, where nothing may open outward.
    bool IsOnBorder(const DiPos& pos) const;

    /// The middle of the room's own grid, to the south-east of it when a side is even.
    DiPos FindCenter(const Layout& room) const;
    /// The first room, row by row, that covers the place, which lies in the level; or null. A place
    /// one cell past a room's southern or eastern edge counts as the room's, on purpose.
    const Layout* PosToRoom(const DiPos& pos) const;

    /// A wall or doorway of the room, drawn from those that look the way `way` goes, or, when there
    /// is none, the way its other axis goes; (0, 0, 0) for none. A way without a step looks west.
    DiPos FindForDoorway(const Layout& room, const DiDirection& way) const;
    /// Whether the wall may be opened: not at the border, and nothing in the way outside.
    bool IsSafeForDoor(const Tile& tile, const DiPos& pos) const;
    /// How the hall piece there may be changed without moving on; CvtNone where there is none.
    CvtAction CanInPlaceCvt(const DiPos& pos) const;

protected:
    /// The source of messages in the log.
    static constexpr const char* S_LogSrc = "GenHall";

    const GenInfo& info;   ///< of the run; the halls are built from its tile set
    Layout& main;          ///< the level
    const RoomInfo& rooms; ///< which rooms lie where in it

private:
    DiPos SearchSide(const Layout& room, const Side& side, const DiDirection& way) const;
    void AddIfSafe(std::vector<DiPos>& candidates,
                   const Layout& room,
                   const DiPos& cell,
                   SideBits facings) const;
    bool IsThroughHall(const DiPos& pos, const Side& side) const;
    void MapRoom(const Layout& room);

    // For each cell of the level the first room that covers it: a hall asks at every doorway.
    std::vector<const Layout*> roomAt;
};

} // namespace Tarnex
