// SPDX-License-Identifier: MIT
// What hall carving asks of the grid.
#pragma once

#include <vaultry/gen/GenInfo.h>
#include <vaultry/gen/HallStep.h>
#include <vaultry/gen/Sides.h>
#include <vaultry/layout/ElmtKind.h>
#include <vaultry/layout/RoomInfo.h>

namespace Tarnex {

/// The level and room grid being joined, and the questions that carving asks of them: where a
/// doorway may be cut, which room covers a place, how a hall piece may be changed. Positions are in
/// cells of the level. Messages of hall carving are logged under "GenHall".
class VAULTRY_API GenHallBase : public DiRcObject {
public:
    /// Nothing is owned: all three must outlive the object.
    GenHallBase(const GenInfo& info, Layout& main, RoomInfo& rooms);

    /// Joins the rooms; false when it could not be done.
    virtual bool Gen() = 0;
    /// Whether the element may become a four-way junction; makes it one unless `testOnly`.
    virtual bool Try4Way(GridElmt& elmt, const DiPos& pos, bool testOnly) = 0;

protected:
    /// The source of messages in the log.
    static constexpr const char* S_LogSrc = "GenHall";

    /// Whether the tile is of the type that the function names.
    /// @{

    static bool IsCenter(const Tile& tile) { return GetTileType(tile) == TileCenter; }
    static bool IsCorner(const Tile& tile) { return GetTileType(tile) == TileCorner; }
    static bool IsDoorway(const Tile& tile) { return GetTileType(tile) == TileDoorway; }
    static bool IsHall(const Tile& tile) { return GetTileType(tile) == TileHall; }
    static bool IsWall(const Tile& tile) { return GetTileType(tile) == TileWall; }

    /// @}

    /// The element of the level there, or null.
    const DiPtr<GridElmt>& ElmtAt(const DiPos& pos) const;
    /// Whether the place lies in the level at all.
    bool IsInside(const DiPos& pos) const;
    /// True on the outer border of the level, where nothing may open outward.
    bool IsOnBorder(const DiPos& pos) const;

    /// The middle of the room's own grid, to the south-east of it when a side is even.
    DiPos FindCenter(const Layout& room) const;
    /// The first room, row by row, that covers the place. A place one cell past a room's southern
    /// or eastern edge counts as the room's, on purpose.
    DiPtr<Layout> PosToRoom(const DiPos& pos) const;
    /// To be called when rooms have moved since PosToRoom was first asked.
    void ForgetRoomPlaces() { roomAt.clear(); }

    /// A wall or doorway of the room, drawn from those that look the way `way` goes, or, when there
    /// is none, the way its other axis goes; (0, 0, 0) for none.
    DiPos FindForDoorway(const Layout& room, const DiDirection& way) const;

    /// A wall or doorway of the side that the function names, or one that faces aside if `way`
    /// leads there too; drawn among those that are safe, (0, 0, 0) for none.
    /// @{

    DiPos FindForDoorwayN(const Layout& room, const DiDirection& way) const;
    DiPos FindForDoorwayS(const Layout& room, const DiDirection& way) const;
    DiPos FindForDoorwayE(const Layout& room, const DiDirection& way) const;
    DiPos FindForDoorwayW(const Layout& room, const DiDirection& way) const;

    /// @}

    /// Whether the wall may be opened: not at the border, and nothing in the way outside.
    bool IsSafeForDoor(const Tile& tile, const DiPos& pos) const;
    /// How the hall piece there may be changed without moving on; CvtNone where there is none.
    CvtAction CanInPlaceCvt(const DiPos& pos) const;

    const GenInfo& info; ///< of the run; the halls are built from its tile set
    Layout& main;        ///< the level
    RoomInfo& rooms;     ///< which rooms lie where in it

private:
    void MapRooms() const;
    struct SearchRow;
    DiPos SearchDoorway(const Layout& room, const DiDirection& way, const SearchRow& search) const;
    void AddIfSafe(std::vector<DiPos>& candidates,
                   const Layout& room,
                   const DiPos& cell,
                   SideBits facings) const;
    bool IsThroughHall(const DiPos& pos, const Side& side) const;

    // For each cell of the level the first room that covers it, made when first asked for: a hall
    // asks at every doorway.
    mutable std::vector<Layout*> roomAt;
};

} // namespace Tarnex
