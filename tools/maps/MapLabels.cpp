// SPDX-License-Identifier: MIT
#include "tools/maps/MapLabels.h"

#include "tools/maps/MapStyle.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tarnex::Report {

namespace {

constexpr double kLetter = 7.0; // mean width of a letter
constexpr double kLine = 13.0;  // height of a line
constexpr double kReach = 96.0; // how far from its door a label may stand
constexpr double kStepX = 6.0;
constexpr double kStepY = 6.0;
constexpr double kNear = 14.0; // from the door's middle; further away a line is needed
constexpr std::size_t kMostLetters = 30;
constexpr double kAround = 30.0; // of the margin around the grid

// What is worse outweighs any number of what is less bad.
constexpr double kOverLabel = 100000.0;
constexpr double kOverMark = 1000.0;
constexpr double kOverFloor = 60.0;
constexpr double kWithLine = 25.0;

bool IsDrawn(const MapCell& cell) {
    return cell.tile != PlanTile::Empty || !cell.contents.empty();
}

bool BeginsLetter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
}

std::size_t Letters(const std::string& text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, BeginsLetter));
}

// The start of a text that is longer than that many letters.
std::string FirstLetters(const std::string& text, std::size_t count) {
    std::size_t end = 0;
    while (!BeginsLetter(text[end]) || count-- > 0) {
        ++end;
    }
    return text.substr(0, end);
}

// The start that the names of all levels of a dungeon share is left out.
std::string LabelText(const LevelMap& map, const MapCell& cell) {
    constexpr std::string_view kBreak = ", ";
    std::string level = cell.leadsTo.empty() ? "outside" : cell.leadsTo;
    const std::size_t end = map.name.rfind(kBreak);
    if (end != std::string::npos && level.starts_with(map.name.substr(0, end + kBreak.size()))) {
        level.erase(0, end + kBreak.size());
    }
    if (Letters(level) > kMostLetters) {
        level = FirstLetters(level, kMostLetters - 1) + "…";
    }
    return "→ " + level;
}

struct Point {
    double x;
    double y;
};

Point DoorMiddle(const MapCell& cell, const DiPos& place) {
    constexpr double kHalf = kCell / 2.0;
    Point middle{place.x * kCell + kHalf, place.y * kCell + kHalf};
    middle.x += (cell.doorway & SideBit(DirE)) != 0 ? kHalf : 0.0;
    middle.x -= (cell.doorway & SideBit(DirW)) != 0 ? kHalf : 0.0;
    middle.y += (cell.doorway & SideBit(DirS)) != 0 ? kHalf : 0.0;
    middle.y -= (cell.doorway & SideBit(DirN)) != 0 ? kHalf : 0.0;
    return middle;
}

double Distance(const MapBox& box, const Point& point) {
    const double x = std::max({box.x - point.x, point.x - box.x - box.width, 0.0});
    const double y = std::max({box.y - point.y, point.y - box.y - box.height, 0.0});
    return std::hypot(x, y);
}

class LabelPlacer {
public:
    explicit LabelPlacer(const LevelMap& levelMap)
        : map(levelMap),
          numbered(static_cast<std::size_t>(map.width) * static_cast<std::size_t>(map.height)) {
        for (const DiPos& place : RoomNumberPlaces(map)) {
            numbered[Index(place.x, place.y)] = true;
        }
        if (const MapCell* arrival = map.ArrivalCell()) {
            numbered[Index(arrival->place.x, arrival->place.y)] = true;
        }
    }

    MapLabel Place(const DiPos& cell) {
        const std::string text = LabelText(map, map.At(cell.x, cell.y));
        const Point door = DoorMiddle(map.At(cell.x, cell.y), cell);
        MapBox best;
        double lowest = std::numeric_limits<double>::max();
        MapBox box{0, 0, static_cast<double>(Letters(text)) * kLetter, kLine};
        for (box.y = door.y - kReach; box.y < door.y + kReach; box.y += kStepY) {
            for (box.x = door.x - kReach - box.width; box.x < door.x + kReach; box.x += kStepX) {
                const double cost = Cost(box, door);
                if (cost < lowest) {
                    lowest = cost;
                    best = box;
                }
            }
        }
        placed.push_back(best);
        return {text, best, door.x, door.y, Distance(best, door) > kNear};
    }

private:
    std::size_t Index(std::int32_t x, std::int32_t y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(map.width) +
               static_cast<std::size_t>(x);
    }

    bool IsOutside(const MapBox& box) const {
        return box.x < -kAround || box.y < -kLine ||
               box.x + box.width > map.width * kCell + kAround ||
               box.y + box.height > map.height * kCell + kLine;
    }

    double Cost(const MapBox& box, const Point& door) const {
        const double distance = Distance(box, door);
        double cost = distance + (distance > kNear ? kWithLine : 0.0);
        cost += IsOutside(box) ? kOverMark : 0.0;
        for (const MapBox& other : placed) {
            cost += box.Overlaps(other) ? kOverLabel : 0.0;
        }
        const auto first = [](double at) {
            return static_cast<std::int32_t>(std::floor(at / kCell));
        };
        for (std::int32_t y = first(box.y - 1); y <= first(box.y + box.height + 1); ++y) {
            for (std::int32_t x = first(box.x - 1); x <= first(box.x + box.width + 1); ++x) {
                cost += map.IsInside(DiPos(x, y, 0)) ? CellCost(x, y, box) : 0.0;
            }
        }
        return cost;
    }

    double CellCost(std::int32_t x, std::int32_t y, const MapBox& box) const {
        const MapCell& cell = map.At(x, y);
        const Point door = DoorMiddle(cell, DiPos(x, y, 0));
        const bool overDoor =
            cell.doorway != 0 && box.Overlaps({door.x - 7.0, door.y - 7.0, 14.0, 14.0});
        const MapBox area{x * double{kCell}, y * double{kCell}, kCell, kCell};
        const bool over = box.Overlaps(area);
        const bool marked = !cell.contents.empty() || cell.loose != 0 || numbered[Index(x, y)];
        return (overDoor || (over && marked) ? kOverMark : 0.0) +
               (over && IsDrawn(cell) ? kOverFloor : 0.0);
    }

    const LevelMap& map;
    std::vector<bool> numbered;
    std::vector<MapBox> placed;
};

} // namespace

std::vector<MapLabel> PlaceLabels(const LevelMap& map) {
    LabelPlacer placer(map);
    std::vector<MapLabel> labels;
    for (const MapCell& cell : map.cells) {
        if (cell.teleport && labels.size() < kMostLabels) {
            labels.push_back(placer.Place(cell.place));
        }
    }
    return labels;
}

std::vector<DiPos> RoomNumberPlaces(const LevelMap& map) {
    constexpr std::int32_t kTaken = 100000; // further away than any free cell
    constexpr std::int32_t kBeside = 6;     // what a cell at a wall is held to be further away
    std::vector<DiPos> places;
    for (const MapRoom& room : map.rooms) {
        places.push_back(room.origin);
    }
    const MapCell* arrival = map.ArrivalCell();
    std::vector<std::int32_t> nearest(map.rooms.size(), std::numeric_limits<std::int32_t>::max());
    for (const MapCell& cell : map.cells) {
        if (cell.room == 0 || cell.tile != PlanTile::Room) {
            continue;
        }
        const MapRoom& room = map.rooms[cell.room - 1];
        const std::int32_t distance =
            std::abs(2 * (cell.place.x - room.origin.x) + 1 - room.size.x) +
            std::abs(2 * (cell.place.y - room.origin.y) + 1 - room.size.y) +
            (cell.contents.empty() && &cell != arrival ? 0 : kTaken) +
            (cell.open == 0xF && cell.doorway == 0 ? 0 : kBeside);
        if (distance < nearest[cell.room - 1]) {
            nearest[cell.room - 1] = distance;
            places[cell.room - 1] = cell.place;
        }
    }
    return places;
}

} // namespace Tarnex::Report
