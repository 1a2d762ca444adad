// SPDX-License-Identifier: MIT
#include "tools/stage/CellShape.h"

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

namespace Tarnex::Report {

namespace {

enum class Build { Room, Hall, Stairs, Descent, Jamb, Door };

// Names of kinds by how they begin; the letters behind tell the sides that are closed, or open. The
// longer beginnings come first.
struct KindRow {
    std::string_view start;
    Build build;
    bool lettersAreOpen;
};

constexpr std::array<KindRow, 12> kRows = {{
    {"HALLCORNER", Build::Hall, false},
    {"HALLEND", Build::Hall, false},
    {"HALL4WAY", Build::Hall, false},
    {"HALL", Build::Hall, true},
    {"CORNER", Build::Room, false},
    {"WALL", Build::Room, false},
    {"CENTER", Build::Room, false},
    {"DOORWAY", Build::Room, false},
    {"DOORJAMB", Build::Jamb, false},
    {"DOOR", Build::Door, false},
    {"STAIRSUP", Build::Stairs, false},
    {"STAIRSDN", Build::Descent, false},
}};

// In the order of the turns that bring north there.
constexpr std::string_view kSides = "NESW";
constexpr int kQuarter = 90;

// Measures of the rooms that were measured, in parts of a cell.
constexpr float kWallFace = 116.0F / 256.0F; // from the middle
constexpr float kHallHalf = 80.0F / 256.0F;
constexpr float kHallTop = 224.0F / 256.0F; // above the floor
constexpr float kDoorHalf = 64.0F / 256.0F;
constexpr float kDoorTop = 192.0F / 256.0F;
constexpr float kPost = 12.0F / 256.0F;
constexpr float kPostDepth = 9.0F / 256.0F;
constexpr float kLeafDepth = 4.0F / 256.0F;

bool Has(std::string_view letters, char side) {
    return letters.find(side) != std::string_view::npos;
}

// What the shape of a side needs to know of its cell.
struct Measures {
    float size;
    float wall; // distance of the wall's face from the middle

    float Half() const { return size / 2.0F; }
    float Low() const { return -Half(); }
    float Of(float part) const { return part * size; }
};

// A wall in the north with a hole for the door, the depth of the hole and what is seen of it from
// the hall behind.
void AddDoorway(Shape& shape, const Measures& m) {
    const float half = m.Half();
    const float door = m.Of(kDoorHalf);
    const float top = m.Of(kDoorTop);
    const float low = m.Low();
    const auto wall = [&](Surface surface, float x0, float x1, float y, float z, float height) {
        AddWall(shape, surface, {x0, y, z}, {x1, y, z}, height);
    };
    for (const auto& [surface, y, way] :
         {std::tuple(Surface::Wall, m.wall, 1.0F), std::tuple(Surface::HallWall, half, -1.0F)}) {
        wall(surface, -half * way, -door * way, y, low, m.size);
        wall(surface, door * way, half * way, y, low, m.size);
        wall(surface, -door * way, door * way, y, low + top, m.size - top);
    }
    AddWall(shape, Surface::Frame, {-door, m.wall, low}, {-door, half, low}, top);
    AddWall(shape, Surface::Frame, {door, half, low}, {door, m.wall, low}, top);
    AddCeiling(shape, {-door, m.wall, low}, {door, half, low + top});
}

Shape RoomCell(const Measures& m, std::string_view closed, std::string_view doors) {
    Shape shape;
    const float half = m.Half();
    AddFloor(shape, Surface::Floor, {-half, -half, m.Low()}, {half, half, m.Low()});
    AddCeiling(shape, {-half, -half, half}, {half, half, half});
    Shape wall;
    AddWall(wall, Surface::Wall, {-half, m.wall, m.Low()}, {half, m.wall, m.Low()}, m.size);
    Shape doorway;
    AddDoorway(doorway, m);
    for (std::size_t side = 0; side < kSides.size(); ++side) {
        const Frame turn{kQuarter * static_cast<int>(side), {}};
        if (Has(doors, kSides[side])) {
            AddShape(shape, PlacedIn(turn, doorway));
        } else if (Has(closed, kSides[side])) {
            AddShape(shape, PlacedIn(turn, wall));
        }
    }
    return shape;
}

// An arm of a hall from its middle to the border in the north.
Shape HallArm(const Measures& m) {
    const float hall = m.Of(kHallHalf);
    const float top = m.Of(kHallTop);
    Shape arm;
    AddFloor(arm, Surface::HallFloor, {-hall, hall, m.Low()}, {hall, m.Half(), m.Low()});
    AddCeiling(arm, {-hall, hall, m.Low()}, {hall, m.Half(), m.Low() + top});
    AddWall(arm, Surface::HallWall, {-hall, hall, m.Low()}, {-hall, m.Half(), m.Low()}, top);
    AddWall(arm, Surface::HallWall, {hall, m.Half(), m.Low()}, {hall, hall, m.Low()}, top);
    return arm;
}

Shape HallCell(const Measures& m, std::string_view closed) {
    const float hall = m.Of(kHallHalf);
    const float top = m.Of(kHallTop);
    Shape shape;
    AddFloor(shape, Surface::HallFloor, {-hall, -hall, m.Low()}, {hall, hall, m.Low()});
    AddCeiling(shape, {-hall, -hall, m.Low()}, {hall, hall, m.Low() + top});
    Shape wall;
    AddWall(wall, Surface::HallWall, {-hall, hall, m.Low()}, {hall, hall, m.Low()}, top);
    const Shape arm = HallArm(m);
    for (std::size_t side = 0; side < kSides.size(); ++side) {
        const Frame turn{kQuarter * static_cast<int>(side), {}};
        AddShape(shape, PlacedIn(turn, Has(closed, kSides[side]) ? wall : arm));
    }
    return shape;
}

// A slope that climbs north: on steps a walker is caught now and then.
Shape StairsCell(const Measures& m, float climb) {
    const float half = m.Half();
    const float hall = m.Of(kHallHalf);
    const float top = m.Of(kHallTop);
    const Di3Point southWest{-hall, -half, m.Low()};
    const Di3Point southEast{hall, -half, m.Low()};
    const Di3Point northEast{hall, half, m.Low() + climb};
    const Di3Point northWest{-hall, half, m.Low() + climb};
    const Di3Point up{0.0F, 0.0F, top};
    Shape shape;
    AddQuad(shape, Surface::Stairs, {southWest, southEast, northEast, northWest});
    AddQuad(
        shape, Surface::Ceiling, {northWest + up, northEast + up, southEast + up, southWest + up});
    AddWall(shape, Surface::HallWall, southWest, northWest, top);
    AddWall(shape, Surface::HallWall, northEast, southEast, top);
    return shape;
}

Shape JambOf(const Measures& m) {
    const float half = m.Half();
    const float door = m.Of(kDoorHalf);
    const float post = door + m.Of(kPost);
    const float south = half - m.Of(kPostDepth);
    const float north = half + m.Of(kPostDepth);
    const float top = m.Low() + m.Of(kDoorTop);
    Shape shape;
    AddBox(shape, Surface::Frame, {-post, south, m.Low()}, {-door, north, top});
    AddBox(shape, Surface::Frame, {door, south, m.Low()}, {post, north, top});
    AddBox(shape, Surface::Frame, {-post, south, top}, {post, north, top + m.Of(kPost)});
    return shape;
}

Shape LeafOf(const Measures& m) {
    const float half = m.Half();
    const float door = m.Of(kDoorHalf);
    const float depth = m.Of(kLeafDepth);
    Shape shape;
    AddBox(shape,
           Surface::Door,
           {-door, half - depth, m.Low()},
           {door, half + depth, m.Low() + m.Of(kDoorTop)});
    return shape;
}

struct Sides {
    std::string closed;
    std::string doors;
};

// "NW_W": closed in the north and west, with the door in the west.
Sides SidesOf(const KindRow& row, std::string_view letters) {
    const bool doorway = row.start == "DOORWAY";
    if (doorway && letters.size() > 2) {
        return {std::string(letters.substr(0, 2)), std::string(letters.substr(3))};
    }
    if (doorway) {
        return {"", std::string(letters)};
    }
    if (!row.lettersAreOpen && row.start != "HALLEND") {
        return {std::string(letters), ""};
    }
    // Of an end the closed side is named, and only the opposite one is open.
    constexpr std::string_view kOpposite = "SWNE";
    std::string open(letters.substr(0, letters.find('_')));
    if (row.start == "HALLEND" && !open.empty()) {
        open = kOpposite.substr(kSides.find(open.front()), 1);
    }
    Sides sides{std::string(kSides), ""};
    std::erase_if(sides.closed, [&open](char side) { return Has(open, side); });
    return sides;
}

int TurnOf(std::string_view letters) {
    return kQuarter * static_cast<int>(letters.empty() ? 0 : kSides.find(letters.front()));
}

Shape Built(const KindRow& row, std::string_view letters, const CellKind& cell) {
    const Measures m{cell.size, cell.area == AreaFull ? kWallFace * cell.size : 0.0F};
    const Sides sides = SidesOf(row, letters);
    const Frame turn{TurnOf(letters), {}};
    switch (row.build) {
    case Build::Room:
        return RoomCell(m, sides.closed, sides.doors);
    case Build::Hall:
        return HallCell(m, sides.closed);
    case Build::Stairs:
        return PlacedIn(turn, StairsCell(m, cell.climb));
    case Build::Descent:
        return PlacedIn(turn, StairsCell(m, -cell.climb));
    case Build::Jamb:
        return PlacedIn(turn, JambOf(m));
    case Build::Door:
        return PlacedIn(turn, LeafOf(m));
    }
    return {};
}

} // namespace

std::optional<Shape> CellShape(const CellKind& cell) {
    if (!TileKind::Of(cell.kind).IsKnown()) {
        return std::nullopt;
    }
    const std::string name = ToUpper(cell.kind);
    const auto row = std::ranges::find_if(
        kRows, [&name](const KindRow& known) { return name.starts_with(known.start); });
    return Built(*row, std::string_view(name).substr(row->start.size()), cell);
}

} // namespace Tarnex::Report
