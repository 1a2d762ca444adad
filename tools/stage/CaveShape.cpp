// SPDX-License-Identifier: MIT
#include "tools/stage/CaveShape.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace Tarnex::Report {

namespace {

// Of a small mouth, and of the chambers behind. [world units]
constexpr float kHalfWidth = 112.0F;
constexpr float kHalfHeight = 112.0F;
constexpr float kEndDepth = 128.0F;
constexpr float kExitDepth = 256.0F; // with room for a door
constexpr float kFramePost = 70.0F;
constexpr float kFrameTop = 76.0F;
constexpr float kFrameDepth = 8.0F;
constexpr float kRim = 256.0F;
constexpr float kChamberHeight = 320.0F;
constexpr float kChamberDrop = 128.0F; // of its pieces below the middle of the mouth that leads in
constexpr float kUneven = 10.0F;       // of its floor above them, which goes up and down by 30
constexpr float kEntranceDepth = 256.0F;
constexpr int kBends = 8; // straight parts of a turn

// A cut across a passage, as who goes through it sees it.
struct Section {
    Di3Point left;
    Di3Point right;
};

Di3Point Ahead(int heading) {
    return PlacedIn({heading, {}}, {0.0F, 1.0F, 0.0F});
}

Di3Point Scaled(const Di3Point& point, float factor) {
    return {point.x * factor, point.y * factor, point.z * factor};
}

Section SectionAt(const Di3Point& middle, const Di3Point& ahead) {
    const Di3Point right{ahead.y * kHalfWidth, -ahead.x * kHalfWidth, -kHalfHeight};
    const Di3Point left{-right.x, -right.y, right.z};
    return {middle + left, middle + right};
}

void AddPassage(Shape& shape, const std::vector<Section>& sections) {
    constexpr float kHeight = 2.0F * kHalfHeight;
    const Di3Point up{0.0F, 0.0F, kHeight};
    for (std::size_t i = 1; i < sections.size(); ++i) {
        const Section& a = sections[i - 1];
        const Section& b = sections[i];
        AddQuad(shape, Surface::RockFloor, {a.left, a.right, b.right, b.left});
        AddQuad(shape, Surface::Ceiling, {b.left + up, b.right + up, a.right + up, a.left + up});
        AddWall(shape, Surface::Rock, a.left, b.left, kHeight);
        AddWall(shape, Surface::Rock, b.right, a.right, kHeight);
    }
}

// Straight, or a quarter of a circle.
std::vector<Section> Way(const Mouth& from, const Mouth& to) {
    const Di3Point in = Ahead(from.heading + 180);
    const Di3Point out = Ahead(to.heading);
    if (in == out) {
        return {SectionAt(from.place, in), SectionAt(to.place, out)};
    }
    const float radius = std::abs(to.place.x - from.place.x);
    std::vector<Section> way;
    for (int i = 0; i <= kBends; ++i) {
        const double angle = std::numbers::pi / 2.0 * i / kBends;
        const auto s = static_cast<float>(std::sin(angle));
        const auto c = static_cast<float>(std::cos(angle));
        way.push_back(
            SectionAt(from.place + Scaled(in, radius * s) + Scaled(out, radius * (1.0F - c)),
                      Scaled(in, c) + Scaled(out, s)));
    }
    return way;
}

Shape Passage(std::span<const Mouth> mouths) {
    Shape shape;
    AddPassage(shape, Way(mouths[0], mouths[1]));
    return shape;
}

// Four arms to the middle.
Shape Crossing(std::span<const Mouth> mouths) {
    Di3Point middle;
    for (const Mouth& mouth : mouths) {
        middle += Scaled(mouth.place, 0.25F);
    }
    Shape shape;
    for (const Mouth& mouth : mouths) {
        const Di3Point out = Ahead(mouth.heading);
        AddPassage(shape,
                   {SectionAt(middle + Scaled(out, kHalfWidth), out), SectionAt(mouth.place, out)});
    }
    const Di3Point corner{kHalfWidth, kHalfWidth, kHalfHeight};
    Di3Point low = middle;
    low -= corner;
    AddFloor(shape, Surface::RockFloor, low, middle + corner);
    AddCeiling(shape, low, middle + corner);
    return shape;
}

Shape Blind(const Mouth& mouth, float depth) {
    const Di3Point in = Ahead(mouth.heading + 180);
    const Section end = SectionAt(mouth.place + Scaled(in, depth), in);
    Shape shape;
    AddPassage(shape, {SectionAt(mouth.place, in), end});
    AddWall(shape, Surface::Rock, end.left, end.right, 2.0F * kHalfHeight);
    return shape;
}

Shape DeadEnd(std::span<const Mouth> mouths) {
    return Blind(mouths[0], kEndDepth);
}

Shape Exit(std::span<const Mouth> mouths) {
    return Blind(mouths[0], kExitDepth);
}

Shape MouthFrame(std::span<const Mouth> /*mouths*/) {
    Shape shape;
    const auto post = [&shape](float x0, float x1, float z0) {
        AddBox(shape, Surface::Frame, {x0, -kFrameDepth, z0}, {x1, kFrameDepth, kHalfHeight});
    };
    post(-kHalfWidth, -kFramePost, -kHalfHeight);
    post(kFramePost, kHalfWidth, -kHalfHeight);
    post(-kFramePost, kFramePost, kFrameTop);
    return shape;
}

Shape ChamberPart(const Di3Point& low, const Di3Point& high) {
    Shape shape;
    AddFloor(shape, Surface::RockFloor, {low.x, low.y, low.z + kUneven}, high);
    AddCeiling(shape, low, high);
    return shape;
}

Shape ChamberFloor(std::span<const Mouth> /*mouths*/) {
    return ChamberPart({-kRim, -kRim, 0.0F}, {kRim, kRim, kChamberHeight});
}

// The pivot stands on the inner edge, the wall a rim to the south.
Shape ChamberWall(std::span<const Mouth> /*mouths*/) {
    Shape shape = ChamberPart({-kRim, -kRim, 0.0F}, {kRim, 0.0F, kChamberHeight});
    AddWall(shape, Surface::Rock, {kRim, -kRim, 0.0F}, {-kRim, -kRim, 0.0F}, kChamberHeight);
    return shape;
}

// The pivot stands on the inner corner, with walls a rim to the south and east.
Shape ChamberCorner(std::span<const Mouth> /*mouths*/) {
    Shape shape = ChamberPart({0.0F, -kRim, 0.0F}, {kRim, 0.0F, kChamberHeight});
    AddWall(shape, Surface::Rock, {kRim, -kRim, 0.0F}, {0.0F, -kRim, 0.0F}, kChamberHeight);
    AddWall(shape, Surface::Rock, {kRim, 0.0F, 0.0F}, {kRim, -kRim, 0.0F}, kChamberHeight);
    return shape;
}

// A passage in the south, then the rim of the chamber, whose wall has a hole for the passage.
Shape ChamberEntrance(std::span<const Mouth> mouths) {
    constexpr float kTop = kChamberHeight - kChamberDrop;
    const Di3Point north = Ahead(0);
    Shape shape =
        ChamberPart({-kRim, kEntranceDepth, -kChamberDrop}, {kRim, kEntranceDepth + kRim, kTop});
    AddPassage(shape,
               {SectionAt(mouths[0].place, north),
                SectionAt(mouths[0].place + Scaled(north, kEntranceDepth), north)});
    const auto wall = [&shape](float x0, float x1, float z, float top) {
        AddWall(shape, Surface::Rock, {x1, kEntranceDepth, z}, {x0, kEntranceDepth, z}, top - z);
    };
    wall(-kRim, -kHalfWidth, -kChamberDrop, kTop);
    wall(kHalfWidth, kRim, -kChamberDrop, kTop);
    wall(-kHalfWidth, kHalfWidth, kHalfHeight, kTop);
    wall(-kHalfWidth, kHalfWidth, -kChamberDrop, -kHalfHeight);
    return shape;
}

struct CaveRow {
    std::string_view sort;
    std::size_t mouths;
    Shape (*make)(std::span<const Mouth> mouths);
};

constexpr std::array<CaveRow, 9> kRows = {{
    {"Passage", 2, Passage},
    {"Crossing", 4, Crossing},
    {"DeadEnd", 1, DeadEnd},
    {"Exit", 1, Exit},
    {"MouthFrame", 1, MouthFrame},
    {"ChamberFloor", 0, ChamberFloor},
    {"ChamberWall", 0, ChamberWall},
    {"ChamberCorner", 0, ChamberCorner},
    {"ChamberEntrance", 1, ChamberEntrance},
}};

} // namespace

std::optional<Shape> CaveShape(std::string_view sort, std::span<const Mouth> mouths) {
    const auto row = std::ranges::find(kRows, sort, &CaveRow::sort);
    if (row == kRows.end() || row->mouths != mouths.size()) {
        return std::nullopt;
    }
    return row->make(mouths);
}

} // namespace Tarnex::Report
