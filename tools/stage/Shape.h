// SPDX-License-Identifier: MIT
// What a piece looks like: flat faces with four corners.
#pragma once

#include <vaultry/foundation/Di3Point.h>

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// What a face is of; it has its colour from that.
enum class Surface : std::uint8_t {
    Floor,
    HallFloor,
    Stairs,
    Ceiling,
    Wall,
    HallWall,
    Frame,
    Door,
    Rock,
    RockFloor,
    Plank,
    Chest,
    Furniture,
    Cloth,
    Light,
    Creature,
    Unknown,
};

/// A surface as it is named and painted.
struct SurfaceLook {
    std::string_view name;
    std::array<std::uint8_t, 3> color; ///< red, green, blue
};

/// All of them, in the order of Surface.
inline constexpr std::size_t kSurfaces = 17;
const std::array<SurfaceLook, kSurfaces>& SurfaceLooks();

/// Four corners in a plane, counter-clockwise as they are seen from the side on which the face is
/// drawn. [world units]
struct Face {
    Surface surface = Surface::Unknown;
    std::array<Di3Point, 4> corners;

    bool operator==(const Face&) const = default;
};

using Shape = std::vector<Face>;

/// Where a piece stands in a frame of another: turned clockwise seen from above, then moved.
struct Frame {
    int turn = 0; ///< [degrees]
    Di3Point offset;

    bool operator==(const Frame&) const = default;
};

/// The point as it is in the surrounding frame.
Di3Point PlacedIn(const Frame& frame, const Di3Point& point);
/// The shape as it is in the surrounding frame.
Shape PlacedIn(const Frame& frame, Shape shape);
/// The way back: from the surrounding frame into the piece's own.
Shape TakenOutOf(const Frame& frame, Shape shape);

/// Parts of shapes, each added to `shape`.
/// @{

void AddQuad(Shape& shape, Surface surface, const std::array<Di3Point, 4>& corners);
void AddShape(Shape& shape, const Shape& part);

/// Seen from outside.
void AddBox(Shape& shape, Surface surface, const Di3Point& low, const Di3Point& high);

/// A rectangle between two corners, seen from above; z is that of `low`.
void AddFloor(Shape& shape, Surface surface, const Di3Point& low, const Di3Point& high);
/// Likewise seen from below; z is that of `high`.
void AddCeiling(Shape& shape, const Di3Point& low, const Di3Point& high);

/// A wall that stands on the line from `from` to `to`, seen from the right of who goes along it,
/// up to `height` above the line.
void AddWall(Shape& shape, Surface surface, const Di3Point& from, const Di3Point& to, float height);

/// @}

/// Triangles, as a renderer wants them.
struct Triangles {
    std::vector<Di3Point> vertices;
    std::vector<std::array<std::uint32_t, 3>> faces; ///< counter-clockwise from the drawn side
    std::vector<Surface> surfaces;                   ///< one for each of `faces`
};

Triangles TrianglesOf(const Shape& shape);

} // namespace Tarnex::Report
