// SPDX-License-Identifier: MIT
#include "tools/check/CellShape.h"

#include <algorithm>
#include <string_view>

namespace Tarnex::Report {

namespace {

using Edges = std::array<Edge, 4>;

constexpr std::array<std::string_view, 12> kSidesOfDir = {
    "N", "S", "E", "W", "NW", "NE", "SW", "SE", "NS", "EW", "NSEW", ""};

// The letter of a side in the names of pieces.
constexpr std::string_view kLetters = "NSEW";

void SetSides(Edges& edges, std::string_view letters, Edge edge) {
    for (const char letter : letters) {
        edges.at(kLetters.find(letter)) = edge;
    }
}

Edges AllBut(Edge most, std::string_view letters, Edge edge) {
    Edges edges;
    edges.fill(most);
    SetSides(edges, letters, edge);
    return edges;
}

// "DoorwayNW_W" is a corner closed to the north and west with a doorway in the west.
constexpr std::string_view kDoorway = "Doorway";

Edges CornerDoorway(std::string_view name) {
    const std::size_t bar = name.find('_');
    Edges edges =
        AllBut(Edge::Floor, name.substr(kDoorway.size(), bar - kDoorway.size()), Edge::Closed);
    SetSides(edges, name.substr(bar + 1), Edge::Doorway);
    return edges;
}

std::optional<CellShape> DoorwayShape(TileKind kind) {
    if (!kind.Name().starts_with(kDoorway)) {
        return std::nullopt; // a frame or a door
    }
    if (kind.Dir() == DirNone) {
        return CellShape{CornerDoorway(kind.Name())};
    }
    return CellShape{AllBut(Edge::Floor, kSidesOfDir.at(SideIndex(kind.Dir())), Edge::Doorway)};
}

// "StairsUpN" and "StairsDnN_2" lead along an axis; the letter names the far end.
std::optional<CellShape> StairsShape(TileKind kind) {
    constexpr std::string_view kUp = "StairsUp";
    if (!kind.IsKnown()) {
        return std::nullopt;
    }
    CellShape shape{AllBut(Edge::Closed, kSidesOfDir.at(SideIndex(kind.Dir())), Edge::Passage)};
    shape.farSide = static_cast<TileDirT>(kLetters.find(kind.Name().at(kUp.size())));
    shape.climbs = kind.Name().starts_with(kUp) ? 1 : -1;
    return shape;
}

} // namespace

std::optional<CellShape> ShapeOf(TileKind kind) {
    const std::string_view sides = kSidesOfDir.at(SideIndex(kind.Dir()));
    switch (kind.Type()) {
    case TileCenter:
        return CellShape{AllBut(Edge::Floor, "", Edge::Floor)};
    case TileCorner:
    case TileWall:
        return CellShape{AllBut(Edge::Floor, sides, Edge::Closed)};
    case TileDoorway:
        return DoorwayShape(kind);
    case TileHallEnd:
        return CellShape{
            AllBut(Edge::Closed, kSidesOfDir.at(SideIndex(Opposite(kind.Dir()))), Edge::Passage)};
    case TileHall: {
        const bool corner = kind.Dir() >= DirNW && kind.Dir() <= DirSE;
        return CellShape{corner ? AllBut(Edge::Passage, sides, Edge::Closed)
                                : AllBut(Edge::Closed, sides, Edge::Passage)};
    }
    case TileNone:
        break;
    }
    return StairsShape(kind);
}

TileDirT DoorwayOf(TileKind kind) {
    const CellShape shape = ShapeOf(kind).value_or(CellShape{});
    const auto* const at = std::ranges::find(shape.edges, Edge::Doorway);
    return at == shape.edges.end() ? DirNone : static_cast<TileDirT>(at - shape.edges.begin());
}

TileDirT FittingOf(TileKind kind) {
    return kind.Type() == TileDoorway && !kind.Name().starts_with(kDoorway) ? kind.Dir() : DirNone;
}

TileDirT Opposite(TileDirT side) {
    return Sides().at(SideIndex(side)).opposite;
}

bool Leads(Edge edge) {
    return edge == Edge::Doorway || edge == Edge::Passage;
}

bool Fit(Edge one, Edge other) {
    return one == Edge::Any || other == Edge::Any || one == other || (Leads(one) && Leads(other));
}

} // namespace Tarnex::Report
