// SPDX-License-Identifier: MIT
#include "tests/tools/stage/StageLevel.h"

#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

namespace Tarnex::Test {

namespace {

using Report::Face;

constexpr float kBodyRadius = 30.0F;
constexpr float kBodyHeight = 133.0F;
constexpr float kStep = 34.0F;
constexpr float kSteepest = 0.7F; // a floor's normal upward, about 45 degrees
constexpr float kMostSpacing = 32.0F;
constexpr int kFewestColumns = 8;
constexpr float kSquare = 256.0F;

struct Extent {
    float west, east, south, north;
};

Extent ExtentOf(const Face& face) {
    Extent extent{face.corners[0].x, face.corners[0].x, face.corners[0].y, face.corners[0].y};
    for (const Di3Point& corner : face.corners) {
        extent.west = std::min(extent.west, corner.x);
        extent.east = std::max(extent.east, corner.x);
        extent.south = std::min(extent.south, corner.y);
        extent.north = std::max(extent.north, corner.y);
    }
    return extent;
}

Di3Point Minus(Di3Point a, const Di3Point& b) {
    return a -= b;
}

float Dot(const Di3Point& a, const Di3Point& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Di3Point Cross(const Di3Point& a, const Di3Point& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// Clockwise seen from above.
Di3Point Turned(const Di3Point& point, double radians) {
    const auto c = static_cast<float>(std::cos(radians));
    const auto s = static_cast<float>(std::sin(radians));
    return {point.x * c + point.y * s, point.y * c - point.x * s, point.z};
}

int SquareOf(float way) {
    return static_cast<int>(std::floor(way / kSquare));
}

// Whether the place lies within the face as seen from above.
bool Covers(const Face& face, float x, float y) {
    float least = 0.0F;
    float most = 0.0F;
    for (std::size_t i = 0; i < face.corners.size(); ++i) {
        const Di3Point& a = face.corners[i];
        const Di3Point& b = face.corners[(i + 1) % face.corners.size()];
        const float side = (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
        least = std::min(least, side);
        most = std::max(most, side);
    }
    return least >= -1.0F || most <= 1.0F;
}

float DistanceToLine(float x, float y, const Di3Point& a, const Di3Point& b) {
    const float east = b.x - a.x;
    const float north = b.y - a.y;
    const float square = east * east + north * north;
    const float part = square > 0.0F ? ((x - a.x) * east + (y - a.y) * north) / square : 0.0F;
    const float inside = std::clamp(part, 0.0F, 1.0F);
    return std::hypot(x - a.x - inside * east, y - a.y - inside * north);
}

// Where a look meets a face from the side that is drawn, in parts of the look; beyond it, if not.
bool MeetsFace(const Di3Point& eye, const Di3Point& ahead, const Face& face) {
    const Di3Point normal = NormalOf(face);
    const float against = Dot(ahead, normal);
    if (against >= 0.0F) {
        return false;
    }
    const float part = Dot(Minus(face.corners[0], eye), normal) / against;
    if (part <= 0.0F || part > 1.0F) {
        return false;
    }
    const Di3Point place{eye.x + part * ahead.x, eye.y + part * ahead.y, eye.z + part * ahead.z};
    const float tolerance = -0.002F * Dot(normal, normal);
    for (std::size_t i = 0; i < face.corners.size(); ++i) {
        const Di3Point& a = face.corners[i];
        const Di3Point& b = face.corners[(i + 1) % face.corners.size()];
        if (Dot(Cross(Minus(b, a), Minus(place, a)), normal) < tolerance) {
            return false;
        }
    }
    return true;
}

} // namespace

const Report::MapCell* StageLevel::CellAt(float x, float y) const {
    const auto size = static_cast<float>(map->tileSize);
    const DiPos place(static_cast<int>(std::floor((x - map->corner.x) / size + 0.5F)),
                      static_cast<int>(std::floor((map->corner.y - y) / size + 0.5F)),
                      0);
    return map->IsInside(place) ? map->Find(place) : nullptr;
}

Di3Point StageLevel::MiddleOf(const Report::MapCell& cell) const {
    const auto size = static_cast<float>(map->tileSize);
    return {map->corner.x + static_cast<float>(cell.place.x) * size,
            map->corner.y - static_cast<float>(cell.place.y) * size,
            0.0F};
}

std::vector<StoodThing> Stood(const Cell& cell, const Report::StagePlan& stage) {
    std::vector<StoodThing> things;
    for (const Ref& ref : cell.GetRefs()) {
        const auto standIn = stage.standIns.find(ToUpper(ref.GetName()));
        if (standIn == stage.standIns.end()) {
            continue;
        }
        StoodThing thing;
        thing.id = ref.GetName();
        thing.sort = ref.sort;
        thing.isDoor = standIn->second.sort == Report::StandInSort::Door;
        thing.leadsOut = ref.GetDestination() != nullptr;
        thing.place = ref.position;
        thing.shape = standIn->second.shape;
        for (Face& face : thing.shape) {
            for (Di3Point& corner : face.corners) {
                corner = {corner.x * ref.scale, corner.y * ref.scale, corner.z * ref.scale};
                corner = Turned(corner, ref.rotation.z) + ref.position;
            }
        }
        things.push_back(std::move(thing));
    }
    return things;
}

Di3Point NormalOf(const Report::Face& face) {
    return Cross(Minus(face.corners[1], face.corners[0]), Minus(face.corners[3], face.corners[0]));
}

void FaceMap::Add(const Report::Face& face) {
    const Extent extent = ExtentOf(face);
    for (int i = SquareOf(extent.west); i <= SquareOf(extent.east); ++i) {
        for (int j = SquareOf(extent.south); j <= SquareOf(extent.north); ++j) {
            squares[{i, j}].push_back(&face);
        }
    }
}

bool FaceMap::Meets(const Di3Point& eye, const Di3Point& ahead) const {
    // In parts of a square's width, so that no square is left out but corners of some.
    const int parts = 1 + static_cast<int>(2.0F * std::hypot(ahead.x, ahead.y) / kSquare);
    std::set<std::pair<int, int>> seen;
    for (int part = 0; part < parts; ++part) {
        const float from = static_cast<float>(part) / static_cast<float>(parts);
        const float to = static_cast<float>(part + 1) / static_cast<float>(parts);
        const auto [west, east] = std::minmax({eye.x + from * ahead.x, eye.x + to * ahead.x});
        const auto [south, north] = std::minmax({eye.y + from * ahead.y, eye.y + to * ahead.y});
        for (int i = SquareOf(west); i <= SquareOf(east); ++i) {
            for (int j = SquareOf(south); j <= SquareOf(north); ++j) {
                const auto square = squares.find({i, j});
                if (square != squares.end() && seen.insert({i, j}).second &&
                    std::ranges::any_of(square->second, [&](const Face* face) {
                        return MeetsFace(eye, ahead, *face);
                    })) {
                    return true;
                }
            }
        }
    }
    return false;
}

StageGround::StageGround(const StageLevel& stageLevel)
    : level(stageLevel),
      columns(std::max(kFewestColumns,
                       static_cast<int>(static_cast<float>(level.map->tileSize) / kMostSpacing))),
      spacing(static_cast<float>(level.map->tileSize) / static_cast<float>(columns)),
      width((level.map->width + 2) * columns), height((level.map->height + 2) * columns),
      all(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
    for (const StoodThing& thing : level.things) {
        const bool isPiece = thing.sort == RefSort::Tile || thing.sort == RefSort::Door;
        if (!isPiece || (thing.isDoor && !thing.leadsOut)) {
            continue;
        }
        for (const Face& face : thing.shape) {
            const Di3Point normal = NormalOf(face);
            const bool flat = std::abs(normal.z) >= kSteepest * std::sqrt(Dot(normal, normal));
            flat ? AddFloor(face) : AddWall(face);
        }
    }
}

Di3Point StageGround::PlaceOf(const Stand& stand) const {
    return {level.map->corner.x + static_cast<float>(stand.east) * spacing,
            level.map->corner.y - static_cast<float>(stand.south) * spacing,
            stand.height};
}

template <typename Visitor>
void StageGround::ForEachColumn(const Face& face, float around, const Visitor& visit) const {
    const Extent extent = ExtentOf(face);
    const auto first = [this](float way) { return static_cast<int>(std::ceil(way / spacing)); };
    const auto last = [this](float way) { return static_cast<int>(std::floor(way / spacing)); };
    const Di3Point& corner = level.map->corner;
    const float more = around + 0.01F;
    for (int i = first(extent.west - corner.x - more); i <= last(extent.east - corner.x + more);
         ++i) {
        for (int j = first(corner.y - extent.north - more);
             j <= last(corner.y - extent.south + more);
             ++j) {
            if (i >= -columns && j >= -columns && i < width - columns && j < height - columns) {
                visit(all[IndexOf(i, j)], PlaceOf({i, j, 0.0F}));
            }
        }
    }
}

std::size_t StageGround::IndexOf(int east, int south) const {
    return static_cast<std::size_t>(south + columns) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(east + columns);
}

void StageGround::AddFloor(const Face& face) {
    const Di3Point normal = NormalOf(face);
    const Di3Point& first = face.corners[0];
    ForEachColumn(face, 0.0F, [&](Column& column, const Di3Point& at) {
        if (Covers(face, at.x, at.y)) {
            column.floors.push_back(
                first.z - (normal.x * (at.x - first.x) + normal.y * (at.y - first.y)) / normal.z);
        }
    });
}

void StageGround::AddWall(const Face& face) {
    const auto ends = std::ranges::minmax(face.corners, {}, &Di3Point::z);
    const Wall wall{ends.min.z, ends.max.z};
    ForEachColumn(face, kBodyRadius, [&](Column& column, const Di3Point& at) {
        float distance = std::numeric_limits<float>::max();
        for (std::size_t i = 0; i < face.corners.size(); ++i) {
            const Di3Point& a = face.corners[i];
            const Di3Point& b = face.corners[(i + 1) % face.corners.size()];
            distance = std::min(distance, DistanceToLine(at.x, at.y, a, b));
        }
        if (distance < kBodyRadius) {
            column.walls.push_back(wall);
        }
    });
}

const std::vector<float>& StageGround::StandsIn(int east, int south) const {
    Column& column = all[IndexOf(east, south)];
    if (column.stands) {
        return *column.stands;
    }
    std::vector<float>& heights = column.stands.emplace();
    std::vector<float>& floors = column.floors;
    std::ranges::sort(floors);
    for (std::size_t i = 0; i < floors.size(); ++i) {
        const float height = floors[i];
        const float above =
            i + 1 < floors.size() ? floors[i + 1] - height : std::numeric_limits<float>::max();
        const bool barred = std::ranges::any_of(column.walls, [&](const Wall& wall) {
            return wall.low < height + kBodyHeight && wall.high > height + kStep;
        });
        // The upper of two that are one.
        if (above >= kBodyHeight && !barred) {
            heights.push_back(height);
        }
    }
    return heights;
}

std::vector<StageGround::Stand> StageGround::Reached(const Di3Point& from) const {
    const auto number = [this](float way) { return static_cast<int>(std::lround(way / spacing)); };
    std::vector<Stand> found;
    std::set<Stand> seen;
    const auto step = [&](int east, int south, float height) {
        if (east < -columns || south < -columns || east >= width - columns ||
            south >= this->height - columns) {
            return;
        }
        for (const float there : StandsIn(east, south)) {
            if (std::abs(there - height) <= kStep && seen.insert({east, south, there}).second) {
                found.push_back({east, south, there});
            }
        }
    };
    step(number(from.x - level.map->corner.x), number(level.map->corner.y - from.y), from.z);
    for (std::size_t i = 0; i < found.size(); ++i) {
        const Stand at = found[i];
        step(at.east + 1, at.south, at.height);
        step(at.east - 1, at.south, at.height);
        step(at.east, at.south + 1, at.height);
        step(at.east, at.south - 1, at.height);
    }
    return found;
}

} // namespace Tarnex::Test
