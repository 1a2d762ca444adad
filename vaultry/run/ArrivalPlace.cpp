// SPDX-License-Identifier: MIT
#include <vaultry/run/ArrivalPlace.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/gen/WorldPlace.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <tuple>
#include <utility>

namespace Tarnex {

namespace {

constexpr double kBodyWidth = 60.0;   // of anybody who walks through the game's doorways
constexpr double kFarEnough = 1024.0; // from a thing: more makes a place no better

// The way one looks at a side, in the order of the sides. [degrees]
constexpr std::array<std::int32_t, 4> kFacings = {0, 180, 90, 270}; // N, S, E, W

// Towards the middle of what is floor. [quarters of a cell]
struct Shift {
    int x = 0;
    int y = 0;
};

Shift InwardShift(const StandingCell& cell) {
    Shift shift;
    for (const Side& side : Sides()) {
        if (cell.reduced && (cell.open & SideBit(side.dir)) == 0) {
            shift.x -= side.step.x;
            shift.y -= side.step.y;
        }
    }
    return shift;
}

// What stands on a level, to be asked for what is near.
class Things {
public:
    Things(const std::vector<Obstacle>& obstacles, const Ground& ground) {
        for (const Obstacle& obstacle : obstacles) {
            const double x = (double{obstacle.place.x} - ground.corner.x) / ground.tileSize;
            const double y = (double{ground.corner.y} - obstacle.place.y) / ground.tileSize;
            const DiPos cell(TruncToInt(std::floor(x + 0.5)), TruncToInt(std::floor(y + 0.5)), 0);
            things.push_back({cell, &obstacle});
        }
        std::ranges::sort(things, {}, [](const Thing& thing) { return Order(thing.cell); });
    }

    // How far it is to the nearest, in whole units: what is less must not decide.
    double Clearance(const Di3Point& feet, const DiPos& cell) const {
        constexpr std::int32_t kAround = 4;
        double nearest = kFarEnough;
        const auto order = [](const Thing& thing) { return Order(thing.cell); };
        for (std::int32_t row = cell.y - kAround; row <= cell.y + kAround; ++row) {
            const auto from = std::pair(row, cell.x - kAround);
            for (auto thing = std::ranges::lower_bound(things, from, {}, order);
                 thing != things.end() && order(*thing) <= std::pair(row, cell.x + kAround);
                 ++thing) {
                const double x = double{thing->obstacle->place.x} - feet.x;
                const double y = double{thing->obstacle->place.y} - feet.y;
                nearest = std::min(nearest,
                                   std::floor(std::sqrt(x * x + y * y) - thing->obstacle->reach));
            }
        }
        return nearest;
    }

private:
    struct Thing {
        DiPos cell;
        const Obstacle* obstacle;
    };

    static std::pair<std::int32_t, std::int32_t> Order(const DiPos& cell) {
        return {cell.y, cell.x};
    }

    std::vector<Thing> things; // row by row
};

// The better place is the smaller one.
using Rank = std::tuple<bool, int, double, int>;

Rank RankOf(const StandingCell& cell, double clearance) {
    const bool good = cell.good && clearance >= kBodyWidth / 2.0;
    return {!good, -std::popcount(cell.open), -clearance, -std::ranges::max(cell.view)};
}

void AddObstacles(const Layout& layout,
                  const Di3Point& offset,
                  std::int32_t tileSize,
                  std::vector<Obstacle>& obstacles) {
    ForEachTiled(layout, DiPos(), [&](const GridElmt& elmt, const DiPos& at) {
        for (const DiPtr<ContentItem>& item : elmt.contents) {
            const auto obstacle =
                ObstacleOf(*item, WorldPosition(at, offset, item->offset, tileSize));
            if (obstacle) {
                obstacles.push_back(*obstacle);
            }
        }
    });
    for (const DiPtr<Layout>& child : layout.GetChildren()) {
        const Di3Point& inside = child->GetOffset();
        AddObstacles(*child,
                     {offset.x + inside.x, offset.y + inside.y, offset.z + inside.z},
                     tileSize,
                     obstacles);
    }
}

bool IsInRoom(const RoomReport& room, const DiPos& place) {
    const DiPos inside(place.x - room.origin.x, place.y - room.origin.y, 0);
    return inside.x >= 0 && inside.y >= 0 && inside.x < room.size.x && inside.y < room.size.y;
}

// A fixed interior has no rooms that one would have to reach.
bool IsReachable(const LevelReport* report, const DiPos& place) {
    return report == nullptr ||
           std::ranges::any_of(report->rooms, [&place](const RoomReport& room) {
               return room.reachable && IsInRoom(room, place);
           });
}

} // namespace

std::optional<Obstacle> ObstacleOf(const ContentBase& content, const Di3Point& place) {
    if (content.IsKind(Content_Rug)) {
        return std::nullopt;
    }
    Obstacle obstacle{place};
    const double x = content.size.x;
    const double y = content.size.y;
    if (x > 0.0 && y > 0.0) {
        obstacle.reach = std::sqrt(x * x + y * y) / 2.0;
    }
    return obstacle;
}

double FeetHeight(const ContentTemplate* creature, std::int32_t tileSize) {
    return creature == nullptr ? 0.0 : double{creature->offset.z} - tileSize / 2.0;
}

Ground GroundOf(const FinishedLevel& level) {
    const std::int32_t tileSize = level.tileSet.GetTileSize();
    const ContentList& creatures = level.config.contentMgr->GetCreatures();
    const ContentTemplate* creature = creatures.empty() ? nullptr : creatures.front().get();
    return {Di3Point(), tileSize, FeetHeight(creature, tileSize)};
}

std::int32_t FacingOf(TileDirT side) {
    return kFacings[static_cast<std::size_t>(side)];
}

Di3Point FeetAt(const StandingCell& cell, const Ground& ground) {
    const Shift shift = InwardShift(cell);
    const double x = cell.place.x + shift.x / 4.0;
    const double y = cell.place.y + shift.y / 4.0;
    return {static_cast<float>(ground.corner.x + x * ground.tileSize),
            static_cast<float>(ground.corner.y - y * ground.tileSize),
            static_cast<float>(ground.corner.z + ground.feet)};
}

std::optional<Arrival> BestArrival(const std::vector<StandingCell>& cells,
                                   const std::vector<Obstacle>& obstacles,
                                   const Ground& ground) {
    const Things things(obstacles, ground);
    std::optional<Arrival> best;
    Rank least;
    for (const StandingCell& cell : cells) {
        // Most cells would be no better with nothing near them at all.
        if (best && RankOf(cell, kFarEnough) >= least) {
            continue;
        }
        const Di3Point feet = FeetAt(cell, ground);
        const Rank rank = RankOf(cell, things.Clearance(feet, cell.place));
        if (best && rank >= least) {
            continue;
        }
        const auto ahead =
            static_cast<std::size_t>(std::ranges::max_element(cell.view) - cell.view.begin());
        best = {0, {}, feet, kFacings[ahead], !std::get<0>(rank)};
        least = rank;
    }
    return best;
}

std::optional<Arrival> ArrivalOf(const FinishedLevel& level) {
    const Ground ground = GroundOf(level);
    std::vector<Obstacle> obstacles;
    AddObstacles(level.layout, Di3Point(), ground.tileSize, obstacles);
    const LevelPlan plan = PlanOf(level.layout);
    const std::vector<StandingCell> cells =
        StandingCells(plan, [&level, &plan](const PlanCell& cell) {
            return IsReachable(level.report, plan.PlaceOf(cell));
        });
    std::optional<Arrival> arrival = BestArrival(cells, obstacles, ground);
    if (arrival) {
        arrival->cell = ToUtf8(level.cell.GetName());
    }
    return arrival;
}

} // namespace Tarnex
