// SPDX-License-Identifier: MIT
// The plan of a level whose pieces may still be exchanged for others.
#pragma once

#include <vaultry/catalogue/TileSet.h>
#include <vaultry/layout/LevelPlan.h>
#include <vaultry/layout/RoomInfo.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Tarnex {

/// What comes into one cell of a level instead of what stands there.
struct PieceChange {
    DiPos place;   ///< [cells]
    TileKind kind; ///< of the only tile there; none: the cell becomes empty

    /// Whether both say the same.
    bool operator==(const PieceChange&) const = default;
};

/// What of a level can be exchanged for another piece of its set. All else stays as it is.
enum class PlanPart : std::uint8_t {
    Kept,     ///< anything that is none of the following
    Doorway,  ///< in the edge of a room, of nothing but a doorway with its door
    RoomHall, ///< a piece of hall that a room was drawn with
    Hall      ///< a piece between the rooms
};

/// A level as one walks it, to be changed: cells are opened and closed here, and the pieces that
/// come of it are told in the end. The level itself is only read, and only at the beginning.
class HallPlan {
public:
    /// Plans a level whose halls stand and whose doors to other levels do not yet. `tileSet` is
    /// what its pieces are taken from, and must outlive the plan.
    HallPlan(const Layout& level, const RoomInfo& rooms, const TileSet& tileSet);

    /// All cells, empty ones too, row by row; they stay where they are.
    std::vector<PlanCell>& Cells() { return plan.cells; }

    /// The neighbour of a cell that is inside; one beyond the edge is empty.
    PlanCell& Next(PlanCell& cell, TileDirT side) { return *plan.Next(cell, side); }

    /// The place of a cell among Cells.
    std::size_t NumberOf(const PlanCell& cell) const {
        return static_cast<std::size_t>(&cell - plan.cells.data());
    }

    /// What of the level the cell is.
    PlanPart PartOf(const PlanCell& cell) const { return parts[NumberOf(cell)]; }

    /// Whether the set has the piece of a hall that is open on just these sides.
    bool HasHall(SideBits open) const;

    /// Whether the set has all pieces that halls can be made of.
    bool HasAllHalls() const;

    /// Leaves a piece open on just those of its sides, joined or not, and its neighbours closed on
    /// the sides that it gives up. Without any, a hall is taken out.
    void Leave(PlanCell& cell, SideBits open);

    /// Ends the hall that `cell` is part of on that side, in the next cell, which is empty. False
    /// where nothing can stand there: beyond the edge, or without a piece for it.
    bool AddEnd(PlanCell& cell, TileDirT side);

    /// Whether another piece of the set can stand in the cell that is open on just these sides.
    bool CanLeave(const PlanCell& cell, SideBits open) const;

    /// Openings that lead nowhere, of the whole level.
    std::uint32_t CountOpenEnds() const;

    /// What has changed since the beginning, row by row.
    std::vector<PieceChange> Changes() const;

private:
    struct Before {
        PlanTile tile;
        SideBits open;
    };

    bool Has(TileKind kind) const;
    TileKind PieceOf(const PlanCell& cell, SideBits open) const;

    LevelPlan plan;
    DiPos size;
    const TileSet& set;
    std::vector<PlanPart> parts; // of the plan's cells
    std::vector<Before> before;  // likewise
};

/// Exchanges pieces of a level for those of the set, which has them. What stands in a cell that
/// becomes empty goes with it.
void ApplyChanges(Layout& level, const TileSet& set, const std::vector<PieceChange>& changes);

} // namespace Tarnex
