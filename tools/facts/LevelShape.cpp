// SPDX-License-Identifier: MIT
#include "tools/facts/LevelShape.h"

#include <vaultry/foundation/Groups.h>
#include <vaultry/layout/Sides.h>

#include <algorithm>
#include <array>
#include <span>

namespace Tarnex::Report {

namespace {

constexpr std::size_t kNowhere = SIZE_MAX;
constexpr unsigned kBranches = 3; // ways that make a piece of hall a junction

bool Has(SideBits sides, TileDirT side) {
    return (sides & SideBit(side)) != 0;
}

// A cell that one can stand in; the cells that it leads to, or kNowhere.
struct Place {
    const MapCell* cell = nullptr;
    std::array<std::size_t, 4> next{kNowhere, kNowhere, kNowhere, kNowhere};

    bool IsHall() const { return cell->tile != PlanTile::Room; }
    unsigned Ways() const {
        return static_cast<unsigned>(
            std::ranges::count_if(next, [](std::size_t place) { return place != kNowhere; }));
    }
    bool IsJunction() const { return IsHall() && Ways() >= kBranches; }
    bool IsDeadEnd() const { return cell->tile == PlanTile::Hall && Ways() <= 1; }
};

using Places = std::vector<Place>;

Places PlacesOf(const LevelMap& map) {
    Places places;
    std::vector<std::size_t> numbers(map.cells.size(), kNowhere);
    for (std::size_t i = 0; i < map.cells.size(); ++i) {
        if (map.cells[i].tile != PlanTile::Empty && map.cells[i].sameFloor) {
            numbers[i] = places.size();
            places.emplace_back().cell = &map.cells[i];
        }
    }
    for (Place& place : places) {
        for (std::size_t way = 0; way < Sides().size(); ++way) {
            const Side& side = Sides()[way];
            const MapCell* next = map.Next(*place.cell, side.dir);
            // Wherever its door leads, a doorway belongs to the shape of the level.
            if (next != nullptr && Has(place.cell->open, side.dir) &&
                Has(next->open, side.opposite)) {
                place.next[way] = numbers[map.NumberOf(*next)];
            }
        }
    }
    return places;
}

// Calls `use` with the two ends of each step between neighbours, once per pair.
template <typename Use>
void ForEachPair(const Places& places, const Use& use) {
    for (std::size_t i = 0; i < places.size(); ++i) {
        for (const auto way : {std::size_t{DirS}, std::size_t{DirE}}) {
            if (places[i].next[way] != kNowhere) {
                use(i, places[i].next[way], Sides()[way]);
            }
        }
    }
}

bool InOneChamber(const Place& from, const Place& to, const Side& side) {
    return !from.IsHall() && !to.IsHall() && from.cell->room == to.cell->room &&
           !Has(from.cell->doorway, side.dir) && !Has(to.cell->doorway, side.opposite);
}

Groups Chambers(const Places& places) {
    Groups chambers(places.size());
    ForEachPair(places, [&](std::size_t from, std::size_t to, const Side& side) {
        if (InOneChamber(places[from], places[to], side)) {
            chambers.Join(from, to);
        }
    });
    return chambers;
}

std::uint32_t CountHalls(const Places& places) {
    const auto belongs = [&](std::size_t i) {
        return places[i].IsHall() && !places[i].IsJunction();
    };
    Groups halls(places.size());
    ForEachPair(places, [&](std::size_t from, std::size_t to, const Side&) {
        if (belongs(from) && belongs(to)) {
            halls.Join(from, to);
        }
    });
    std::uint32_t count = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        count += belongs(i) && halls.IsLeader(i) ? 1U : 0U;
    }
    return count;
}

// Whether the place is the north-western one of four pieces of hall that are open to each other.
bool BeginsSquare(const Places& places, std::size_t place) {
    const std::size_t south = places[place].next[DirS];
    const std::size_t east = places[place].next[DirE];
    if (south == kNowhere || east == kNowhere) {
        return false;
    }
    const std::size_t corner = places[east].next[DirS];
    return corner != kNowhere && places[south].next[DirE] == corner && places[place].IsHall() &&
           places[south].IsHall() && places[east].IsHall() && places[corner].IsHall();
}

// Edges - nodes + parts is the number of cycles; the squares among them are no way round.
std::uint32_t CountLoops(const Places& places, Groups& chambers) {
    Groups joined = chambers;
    std::size_t edges = 0;
    ForEachPair(places, [&](std::size_t from, std::size_t to, const Side&) {
        edges += chambers.Of(from) != chambers.Of(to) ? 1U : 0U;
        joined.Join(from, to);
    });
    std::size_t parts = 0;
    std::size_t nodes = 0;
    std::size_t squares = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        parts += joined.IsLeader(i) ? 1U : 0U;
        nodes += chambers.IsLeader(i) ? 1U : 0U;
        squares += BeginsSquare(places, i) ? 1U : 0U;
    }
    return static_cast<std::uint32_t>(edges + parts - nodes - squares);
}

// The places of each room that has any.
std::vector<std::vector<std::size_t>> RoomsOf(const LevelMap& map, const Places& places) {
    std::vector<std::vector<std::size_t>> rooms(map.rooms.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i].cell->room > 0) {
            rooms[places[i].cell->room - 1].push_back(i);
        }
    }
    std::erase_if(rooms, [](const auto& room) { return room.empty(); });
    return rooms;
}

// The steps to every place from the nearest of `starts`, or kNowhere.
void Walk(const Places& places,
          std::span<const std::size_t> starts,
          std::vector<std::size_t>& steps,
          std::vector<std::size_t>& queue) {
    steps.assign(places.size(), kNowhere);
    queue.assign(starts.begin(), starts.end());
    for (const std::size_t start : starts) {
        steps[start] = 0;
    }
    for (std::size_t i = 0; i < queue.size(); ++i) {
        const std::size_t place = queue[i];
        for (const std::size_t next : places[place].next) {
            if (next != kNowhere && steps[next] == kNowhere) {
                steps[next] = steps[place] + 1;
                queue.push_back(next);
            }
        }
    }
}

void MeasureWays(const LevelMap& map,
                 const Places& places,
                 const JobStatus* status,
                 LevelShape& shape) {
    const auto rooms = RoomsOf(map, places);
    std::vector<std::size_t> steps;
    std::vector<std::size_t> queue;
    for (std::size_t from = 0; from < rooms.size(); ++from) {
        if (status != nullptr && status->HasBeenCanceled()) {
            return;
        }
        Walk(places, rooms[from], steps, queue);
        for (std::size_t to = from + 1; to < rooms.size(); ++to) {
            std::size_t way = kNowhere;
            for (const std::size_t place : rooms[to]) {
                way = std::min(way, steps[place]);
            }
            if (way == kNowhere) {
                shape.connected = false;
            } else {
                shape.longestWay = std::max(shape.longestWay, static_cast<std::uint32_t>(way));
            }
        }
    }
}

void CountCells(const LevelMap& map, LevelShape& shape) {
    for (const MapCell& cell : map.cells) {
        shape.area += cell.tile != PlanTile::Empty ? 1U : 0U;
        for (const Side& side : Sides()) {
            shape.openings += Has(cell.loose | cell.waysIn, side.dir) ? 1U : 0U;
        }
    }
}

} // namespace

LevelShape ShapeOf(const LevelMap& map, const JobStatus* status) {
    LevelShape shape;
    shape.rooms = static_cast<std::uint32_t>(map.rooms.size());
    CountCells(map, shape);
    const Places places = PlacesOf(map);
    for (const Place& place : places) {
        shape.junctions += place.IsJunction() ? 1U : 0U;
        shape.deadEnds += place.IsDeadEnd() ? 1U : 0U;
    }
    Groups chambers = Chambers(places);
    shape.halls = CountHalls(places);
    shape.loops = CountLoops(places, chambers);
    MeasureWays(map, places, status, shape);
    return shape;
}

} // namespace Tarnex::Report
