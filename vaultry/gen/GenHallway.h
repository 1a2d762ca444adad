// SPDX-License-Identifier: MIT
// Joining the rooms of a level with halls.
#pragma once

#include <vaultry/gen/GenHallBase.h>
#include <vaultry/gen/GenReport.h>
#include <vaultry/layout/GridJournal.h>

#include <cstdint>
#include <vector>

namespace Tarnex {

/// Where the walk of a hall has come to.
struct HallCursor {
    DiPos place;                      ///< [cells of the level]
    DiPos dest;                       ///< where it is heading [cells of the level]
    const Layout* destRoom = nullptr; ///< where the hall is to end
    const Layout* inside = nullptr;   ///< the room it is inside; null in a hall
    const Tile* tile = nullptr;       ///< at the place; null before the first doorway
    DiPos lastStep;                   ///< (0, 0, 0) before the first one [cells]
    std::uint32_t blocked = 0;        ///< failed steps in a row
    bool finished = false;            ///< has come to the destination room
};

/// Joins every room to the next, and the last to the first, by walking a cursor cell by cell: it
/// lays hall tiles into empty cells, turns hall pieces it meets into corners or junctions and
/// passes through rooms by their walls. Messages are logged under "GenHall".
class GenHallway : public GenHallBase {
public:
    /// Joins the rooms of `main` that `rooms` holds; see GenHallBase for who owns them.
    GenHallway(const GenInfo& info, Layout& main, const RoomInfo& rooms);

    /// Carves all halls. False when two or more could not be made; a single failure is tolerated.
    bool Gen();
    /// The halls that Gen could not make, in the order tried.
    const std::vector<FailedHall>& GetFailedHalls() const { return failedHalls; }
    /// Carves one hall; false after five runs of 300 steps, with the level as it was before.
    bool ConnectRooms(const Layout& from, const Layout& to);

    // The walk: all there is to know of it is the cursor, which each step moves on.

    /// A cursor in the middle of a room, on its way to another.
    HallCursor Prep(const Layout& from, const Layout& to) const;
    /// One step of a cursor in a hall. A step that cannot be made counts as a failure; without a
    /// tile at the cursor nothing happens.
    void NextStep(HallCursor& cursor);
    /// Moves the cursor to a doorway of the room that it is inside, which is made if need be. A
    /// room without a place for one counts as ten failures.
    void LeaveRoom(HallCursor& cursor);

    // Where a cursor may head for.

    /// A room as seen from a place: its middle, or a doorway to be when the middle is not there.
    DiPos TrueDest(const Layout& room, const DiPos& from) const;
    /// A detour through a neighbour of the room that the cursor is inside; where it is heading
    /// already when there is none on the way.
    DiPos AltDest(const HallCursor& cursor) const;
    /// Any place off the border.
    DiPos RandomDest() const;

    // Junctions and doorways.

    /// Whether the cursor may move onto the element with a hall piece of direction `dir`; may
    /// change the element.
    bool CvtElmt(GridElmt& elmt, TileDirT dir, const DiPos& pos);
    /// Turns a wall into a doorway, usually with a door.
    void CvtToDoorway(const DiPos& pos);
    /// Whether the element may become a four-way junction; makes it one unless `testOnly`.
    bool Try4Way(GridElmt& elmt, const DiPos& pos, bool testOnly);
    /// Makes a junction and fits its four neighbours to it.
    void Place4Way(const DiPos& pos);

private:
    struct Walk;
    enum class Reception { Refused, Accepted, OnTrial };
    void SeekDetour(Walk& walk);
    void PassRoom(Walk& walk);
    bool TurnBack(Walk& walk);
    void StepBack();
    void ConvertInPlace(HallCursor& cursor, const HallChoice& choice, const Tile& tile);
    void Move(HallCursor& cursor, const HallChoice& choice, const Tile& tile);
    void MoveOnto(HallCursor& cursor, const GridElmt& elmt) const;
    const DiPtr<Tile>& TileOf(TileKind kind) const;
    void LayTile(const DiPos& pos, TileKind kind);
    void ReplaceTiles(GridElmt& elmt, const DiPos& pos, TileKind kind);
    Reception ReceiveJunction(const Side& side, const DiPos& pos) const;
    bool StandsTrial(const DiPos& pos);
    bool FitToJunction(const Side& side, const DiPos& junction);

    GridJournal journal; ///< of the hall under way
    std::vector<FailedHall> failedHalls;
};

} // namespace Tarnex
