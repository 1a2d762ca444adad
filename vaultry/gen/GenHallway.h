// SPDX-License-Identifier: MIT
// Joining the rooms of a level with halls.
#pragma once

#include <vaultry/gen/GenHallBase.h>
#include <vaultry/gen/GenReport.h>
#include <vaultry/layout/GridJournal.h>

#include <deque>
#include <vector>

namespace Tarnex {

/// Joins every room to the next, and the last to the first, by walking a cursor cell by cell: it
/// lays hall tiles into empty cells, turns hall pieces it meets into corners or junctions and
/// passes through rooms by their walls.
class VAULTRY_API GenHallway : public GenHallBase {
public:
    /// Joins the rooms of `main` that `rooms` holds; see GenHallBase for who owns them.
    GenHallway(const GenInfo& info, Layout& main, RoomInfo& rooms);

    /// False when two halls or more could not be made; a single failure is tolerated.
    bool Gen() override;
    bool Try4Way(GridElmt& elmt, const DiPos& pos, bool testOnly) override;

    /// The halls that could not be made, in the order tried.
    const std::vector<FailedHall>& GetFailedHalls() const { return failedHalls; }

protected:
    // Carving.

    /// Carves one hall; false after five runs of 300 steps, with the level as it was before.
    bool ConnectRooms(const DiPtr<Layout>& from, const DiPtr<Layout>& to);
    /// Puts the cursor into the middle of the source room.
    void Prep();
    /// Moves the cursor along the hall by one cell, or counts that it could not.
    void NextStep();
    /// Moves the cursor to a doorway of the room that it is inside, which is made if need be.
    void LeaveRoom();
    /// Sets and returns the finished flag: the cursor stands on an element of the destination.
    bool CheckFinished();
    /// Starts over from the other end.
    void ReverseDir();
    /// Turns a way onto its other axis.
    static void GetBlockedDir(DiDirection& way);
    /// Where to head for in a room: its middle, or a doorway to be when the middle is not there.
    DiPos TrueDest(const Layout& room) const;
    /// A detour through a neighbour of the room.
    DiPos AltDest(const Layout& room) const;
    /// Any place off the border.
    DiPos RandomDest() const;

    // Junctions and doorways.

    /// Whether the cursor may move onto the element with a hall piece of direction `dir`; may
    /// change the element.
    bool CvtElmt(GridElmt& elmt, TileDirT dir, const DiPos& pos);
    /// Turns a wall into a doorway, usually with a door.
    void CvtToDoorway(const DiPos& pos);
    /// Makes a junction and fits its four neighbours to it.
    void Place4Way(const DiPos& pos);

    DiPos curXY;                     ///< the cursor
    DiPos destXY;                    ///< where it is heading
    std::deque<DiDirection> history; ///< the steps taken, newest at the back
    DiPtr<Layout> sourceRoom;        ///< where the hall begins
    DiPtr<Layout> destRoom;          ///< where it is to end
    DiPtr<Layout> insideRoom;        ///< the room the cursor is inside; null in a hall
    DiPtr<Tile> curTile;             ///< the tile at the cursor
    std::uint32_t blocked = 0;       ///< failed steps in a row
    bool finished = false;           ///< the hall has reached the destination

private:
    struct Walk;
    enum class Reception { Refused, Accepted, OnTrial };
    void StepBack();
    void SeekDetour(Walk& walk);
    void PassRoom(Walk& walk);
    bool TurnBack(Walk& walk);
    void ConvertInPlace(const HallChoice& choice, const DiPtr<Tile>& tile);
    void Move(const HallChoice& choice, const DiPtr<Tile>& tile);
    void MoveOnto(const GridElmt& elmt);
    void EnterRoom();
    void ShuffleRooms(std::vector<DiPtr<Layout>>& list) const;
    const DiPtr<Tile>& TileOf(TileKind kind) const;
    void ReplaceTiles(GridElmt& elmt, const DiPos& pos, TileKind kind);
    Reception ReceiveJunction(const Side& side, const DiPos& pos) const;
    bool StandsTrial(const DiPos& pos);
    bool FitToJunction(const Side& side, const DiPos& junction);

    GridJournal journal; ///< of the hall under way
    std::vector<FailedHall> failedHalls;
};

} // namespace Tarnex
