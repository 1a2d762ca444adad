// SPDX-License-Identifier: MIT
#include "tools/maps/MapLabels.h"

#include "tools/maps/MapPanel.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/SvgText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace Tarnex::Report {

namespace {

constexpr double kSize = 10.0;                               // of the letters
constexpr double kPadding = 1.5;                             // of a plate, on both sides
constexpr double kLine = 13.0;                               // height of a line
constexpr std::array kReaches = {96.0, 192.0, 384.0, 768.0}; // within which a place is looked for
constexpr double kStep = 6.0;
constexpr double kNear = 14.0; // from the door's middle; further away a line is needed
constexpr double kWithLine = 25.0;
constexpr std::size_t kMostLetters = 30;
constexpr double kOutermost = 14.0;                    // to where marks outside of a cell are drawn
constexpr MapBox kAroundGrid{62.0, 20.0, 124.0, 46.0}; // up to heading, scale and the panel's edges

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

MapBox Widened(const MapBox& box, double by) {
    return {box.x - by, box.y - by, box.width + 2.0 * by, box.height + 2.0 * by};
}

// How far beyond its edges a cell is drawn: walls are lines, and some marks stand outside.
double Overhang(const MapCell& cell) {
    if (cell.tile == PlanTile::Empty && cell.contents.empty()) {
        return -kCell;
    }
    return cell.waysIn != 0 ? kOutermost : cell.loose != 0 ? 7.0 : cell.door ? 4.0 : 2.0;
}

class LabelPlacer {
public:
    explicit LabelPlacer(const LevelMap& levelMap)
        : map(levelMap), room{-kAroundGrid.x,
                              -kAroundGrid.y,
                              PanelWidth(map) - 2.0 * kPanelMargin + kAroundGrid.width,
                              map.height * kCell + kAroundGrid.height} {}

    // Nothing where everything around is drawn on.
    std::optional<MapLabel> Place(const MapCell& cell) {
        const std::string text = LabelText(map, cell);
        const Point door = DoorMiddle(cell, cell.place);
        for (const double reach : kReaches) {
            if (const auto box =
                    NearestFree(BoldWidth(text, kSize) + 2.0 * kPadding, door, reach)) {
                placed.push_back(*box);
                return MapLabel{text, *box, door.x, door.y, Distance(*box, door) > kNear};
            }
        }
        return std::nullopt;
    }

private:
    std::optional<MapBox> NearestFree(double width, const Point& door, double reach) const {
        std::optional<MapBox> best;
        double lowest = std::numeric_limits<double>::max();
        MapBox box{0, 0, width, kLine};
        for (box.y = door.y - reach; box.y < door.y + reach; box.y += kStep) {
            for (box.x = door.x - reach - width; box.x < door.x + reach; box.x += kStep) {
                const double distance = Distance(box, door);
                const double cost = distance + (distance > kNear ? kWithLine : 0.0);
                if (cost < lowest && IsFree(box)) {
                    lowest = cost;
                    best = box;
                }
            }
        }
        return best;
    }

    bool IsFree(const MapBox& box) const {
        return room.Holds(box) &&
               std::ranges::none_of(placed,
                                    [&box](const MapBox& other) { return box.Overlaps(other); }) &&
               IsClearOfCells(box);
    }

    bool IsClearOfCells(const MapBox& box) const {
        const auto cellAt = [](double at) {
            return static_cast<std::int32_t>(std::floor(at / kCell));
        };
        const MapBox around = Widened(box, kOutermost);
        for (std::int32_t y = cellAt(around.y); y <= cellAt(around.y + around.height); ++y) {
            for (std::int32_t x = cellAt(around.x); x <= cellAt(around.x + around.width); ++x) {
                const MapBox area{x * double{kCell}, y * double{kCell}, kCell, kCell};
                if (map.IsInside(DiPos(x, y, 0)) &&
                    box.Overlaps(Widened(area, Overhang(map.At(x, y))))) {
                    return false;
                }
            }
        }
        return true;
    }

    const LevelMap& map;
    MapBox room; // that labels may take
    std::vector<MapBox> placed;
};

} // namespace

std::vector<MapLabel> PlaceLabels(const LevelMap& map) {
    LabelPlacer placer(map);
    std::vector<MapLabel> labels;
    for (const MapCell& cell : map.cells) {
        if (cell.teleport && labels.size() < kMostLabels) {
            if (auto label = placer.Place(cell)) {
                labels.push_back(*std::move(label));
            }
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
