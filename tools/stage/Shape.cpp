// SPDX-License-Identifier: MIT
#include "tools/stage/Shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tarnex::Report {

namespace {

// Libraries differ in the last digit of a sine; beyond this they must not be seen to.
float Rounded(double value) {
    constexpr double kParts = 64.0;
    return static_cast<float>(std::round(value * kParts) / kParts + 0.0);
}

Di3Point Turned(const Di3Point& point, int degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {Rounded(point.x * c + point.y * s), Rounded(point.y * c - point.x * s), point.z};
}

} // namespace

const std::array<SurfaceLook, kSurfaces>& SurfaceLooks() {
    static constexpr std::array<SurfaceLook, kSurfaces> kLooks = {{
        {"floor", {120, 120, 128}},
        {"hallfloor", {96, 120, 150}},
        {"stairs", {170, 150, 90}},
        {"ceiling", {70, 66, 62}},
        {"wall", {150, 120, 90}},
        {"hallwall", {110, 120, 140}},
        {"frame", {200, 140, 60}},
        {"door", {40, 90, 170}},
        {"rock", {110, 90, 70}},
        {"rockfloor", {95, 85, 70}},
        {"plank", {150, 110, 60}},
        {"chest", {160, 100, 30}},
        {"furniture", {70, 140, 70}},
        {"cloth", {160, 60, 120}},
        {"light", {250, 230, 120}},
        {"creature", {200, 50, 40}},
        {"unknown", {230, 0, 230}},
    }};
    return kLooks;
}

Di3Point PlacedIn(const Frame& frame, const Di3Point& point) {
    return Turned(point, frame.turn) + frame.offset;
}

Shape PlacedIn(const Frame& frame, Shape shape) {
    for (Face& face : shape) {
        for (Di3Point& corner : face.corners) {
            corner = PlacedIn(frame, corner);
        }
    }
    return shape;
}

Shape TakenOutOf(const Frame& frame, Shape shape) {
    for (Face& face : shape) {
        for (Di3Point& corner : face.corners) {
            corner -= frame.offset;
            corner = Turned(corner, -frame.turn);
        }
    }
    return shape;
}

void AddQuad(Shape& shape, Surface surface, const std::array<Di3Point, 4>& corners) {
    Face face{surface, corners};
    for (Di3Point& corner : face.corners) {
        corner = {Rounded(corner.x), Rounded(corner.y), Rounded(corner.z)};
    }
    shape.push_back(face);
}

void AddShape(Shape& shape, const Shape& part) {
    shape.insert(shape.end(), part.begin(), part.end());
}

void AddBox(Shape& shape, Surface surface, const Di3Point& low, const Di3Point& high) {
    const float height = high.z - low.z;
    const Di3Point& a = low;
    const Di3Point b{high.x, low.y, low.z};
    const Di3Point c{high.x, high.y, low.z};
    const Di3Point d{low.x, high.y, low.z};
    AddFloor(shape, surface, {a.x, a.y, high.z}, c);
    AddQuad(shape, surface, {d, c, b, a});
    AddWall(shape, surface, a, b, height);
    AddWall(shape, surface, b, c, height);
    AddWall(shape, surface, c, d, height);
    AddWall(shape, surface, d, a, height);
}

void AddFloor(Shape& shape, Surface surface, const Di3Point& low, const Di3Point& high) {
    const float z = low.z;
    AddQuad(shape,
            surface,
            {{{low.x, low.y, z}, {high.x, low.y, z}, {high.x, high.y, z}, {low.x, high.y, z}}});
}

void AddCeiling(Shape& shape, const Di3Point& low, const Di3Point& high) {
    const float z = high.z;
    AddQuad(shape,
            Surface::Ceiling,
            {{{low.x, high.y, z}, {high.x, high.y, z}, {high.x, low.y, z}, {low.x, low.y, z}}});
}

void AddWall(
    Shape& shape, Surface surface, const Di3Point& from, const Di3Point& to, float height) {
    const Di3Point up(0.0F, 0.0F, height);
    AddQuad(shape, surface, {from, to, to + up, from + up});
}

Triangles TrianglesOf(const Shape& shape) {
    Triangles triangles;
    for (const Face& face : shape) {
        const auto first = static_cast<std::uint32_t>(triangles.vertices.size());
        triangles.vertices.insert(
            triangles.vertices.end(), face.corners.begin(), face.corners.end());
        triangles.faces.push_back({first, first + 1, first + 2});
        triangles.faces.push_back({first, first + 2, first + 3});
        triangles.surfaces.insert(triangles.surfaces.end(), 2, face.surface);
    }
    return triangles;
}

} // namespace Tarnex::Report
