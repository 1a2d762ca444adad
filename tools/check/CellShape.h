// SPDX-License-Identifier: MIT
// What the pieces of a cell show on its four sides.
#pragma once

#include <vaultry/layout/Sides.h>

#include <array>
#include <optional>

namespace Tarnex::Report {

/// The place of a side in tables of sides.
constexpr std::size_t SideIndex(TileDirT side) {
    return static_cast<std::size_t>(side);
}

/// The side on which the next cell has it.
TileDirT Opposite(TileDirT side);

/// One side of a cell.
enum class Edge {
    Closed,  ///< a wall
    Floor,   ///< nothing: the floor goes on in the next cell
    Doorway, ///< a wall with an opening
    Passage, ///< the open end of a hall or of stairs
    Any,     ///< not known: the cell has a piece that is no known kind
};

/// The sides in the order N, S, E, W.
struct CellShape {
    std::array<Edge, 4> edges{};
    TileDirT farSide = DirNone; ///< of stairs: the side that lies higher or lower
    int climbs = 0;             ///< of stairs: 1 when that side lies higher, -1 when lower

    Edge On(TileDirT side) const { return edges.at(SideIndex(side)); }

    bool operator==(const CellShape&) const = default;
};

/// Of a cell with that piece alone; none for what has no floor and for no known kind.
std::optional<CellShape> ShapeOf(TileKind kind);

/// The side on which the piece has a doorway, or DirNone.
TileDirT DoorwayOf(TileKind kind);

/// The side in whose doorway the piece belongs, a door or its frame; DirNone for other pieces.
TileDirT FittingOf(TileKind kind);

/// Whether two cells with these sides to each other leave no gap.
bool Fit(Edge one, Edge other);

/// Whether one can walk through the side as far as this cell is concerned.
bool Leads(Edge edge);

} // namespace Tarnex::Report
