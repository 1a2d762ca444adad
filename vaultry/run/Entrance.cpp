// SPDX-License-Identifier: MIT
#include <vaultry/run/Entrance.h>

#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Environment.h>
#include <vaultry/foundation/Numeric.h>
#include <vaultry/foundation/Text.h>
#include <vaultry/game/GameCell.h>
#include <vaultry/game/GameFault.h>
#include <vaultry/game/GameFiles.h>
#include <vaultry/gen/WorldPlace.h>
#include <vaultry/run/ArrivalPlace.h>

#include <cmath>
#include <filesystem>
#include <fstream>

namespace Tarnex {

namespace {

// A door whose middle is above the floor: it stands 32 below the middle of cave exits, whose floors
// lie about 112 below. [world units]
constexpr const char* kLiftedDoor = "ex_cave_door_01";
constexpr double kLift = 80.0;
// From a door to where one comes out of it. [world units]
constexpr double kStep = 128.0;
// The side of the door that is seen in the game's caves faces south while it is not turned.
constexpr std::int32_t kUnturned = 180;
constexpr std::int32_t kRound = 360;

std::int32_t ColumnOf(double coordinate) {
    return TruncToInt(std::floor(coordinate / kWorldCellSize));
}

Di3Point PointAt(double x, double y, double z) {
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

double OrLand(const EntrancePlace& place, const GameCell& cell, const Di3Point& at) {
    const auto inCell = [](double coordinate, double of) {
        return coordinate - double{kWorldCellSize} * ColumnOf(of);
    };
    return place.z ? *place.z
                   : HeightAt(cell.land.value(), inCell(at.x, place.x), inCell(at.y, place.y));
}

GameCell ReadCell(const RunOptions& options, const CellAsked& asked) {
    GameCell cell;
    for (const std::filesystem::path& path :
         FindGameFiles(options.game ? std::optional(options.game->path) : std::nullopt)) {
        std::ifstream file(path, std::ios::binary);
        try {
            ReadGameCell(file, asked, cell);
        } catch (const GameFault& e) {
            throw GameFault('"' + Utf8(path) + "\": " + e.what() +
                            "; look whether the game's files are whole");
        }
    }
    return cell;
}

std::string WordsOf(const CellAsked& asked) {
    return asked.interior.empty() ? "a cell (" + std::to_string(asked.column) + ", " +
                                        std::to_string(asked.row) + ") of the world"
                                  : "an interior \"" + ToUtf8(asked.interior) + '"';
}

EntranceSite SiteInGame(const RunOptions& options, const EntrancePlace& place) {
    const CellAsked asked = {
        FromUtf8(options.entranceCell.value_or("")), ColumnOf(place.x), ColumnOf(place.y)};
    if (options.entranceCell && !place.z) {
        throw GameFault("an interior has no land: give the height of its floor, --entrance X,Y,Z");
    }
    const GameCell cell = ReadCell(options, asked);
    if (!cell.head) {
        throw GameFault("no file of the game has " + WordsOf(asked));
    }
    if (!place.z && !cell.land) {
        throw GameFault("the game has no land at that place: give its height, --entrance X,Y,Z");
    }
    EntranceSite site;
    site.head = *cell.head;
    site.cell = options.entranceCell ? cell.name : "";
    site.angle = place.angle;
    site.ground = PointAt(place.x, place.y, 0.0);
    site.ground.z = static_cast<float>(OrLand(place, cell, site.ground));
    site.before = BeforeDoor(place, 0.0);
    site.before.z = static_cast<float>(OrLand(place, cell, site.before));
    return site;
}

const GridElmt* FindWayOut(const Layout& layout, DiPos& at) {
    const GridElmt* found = nullptr;
    ForEachTiled(layout, DiPos(), [&](const GridElmt& elmt, const DiPos& place) {
        if (elmt.leadsOut) {
            found = &elmt;
            at = place;
        }
    });
    return found;
}

} // namespace

// In whole units: what systems make of sines differs in the last digit.
Di3Point BeforeDoor(const EntrancePlace& place, double ground) {
    const double turn = place.angle * kRadiansPerDegree;
    return PointAt(std::round(place.x + kStep * std::sin(turn)),
                   std::round(place.y + kStep * std::cos(turn)),
                   ground);
}

EntranceSite WildernessSite(const EntrancePlace& place, const std::string& region) {
    const double ground = place.z.value_or(0.0);
    return {WildernessHead(ColumnOf(place.x), ColumnOf(place.y), region),
            {},
            PointAt(place.x, place.y, ground),
            BeforeDoor(place, ground),
            place.angle};
}

EntranceSite FindEntranceSite(const RunOptions& options) {
    const EntrancePlace& place = options.entrance.value();
    const bool inWilds = options.entranceRegion && !options.entranceCell && !options.game;
    if (inWilds && !place.z) {
        throw GameFault("without the game's files a place needs its height, --entrance X,Y,Z");
    }
    if (inWilds) {
        return WildernessSite(place, FromUtf8(*options.entranceRegion));
    }
    return SiteInGame(options, place);
}

Ref WayOutTo(const EntranceSite& site) {
    Ref destination(site.cell.c_str());
    destination.position = site.before;
    destination.rotation.z = Radians(site.angle);
    return destination;
}

Ref OuterDoor(const EntranceSite& site, const Arrival& arrival, const std::string& id) {
    Ref door(id.c_str());
    door.position = site.ground;
    Add(door.position.z, EqualsNoCase(id, kLiftedDoor) ? kLift : 0.0);
    door.rotation.z = Radians((site.angle + kUnturned) % kRound);
    door.sort = RefSort::Door;
    Ref destination(FromUtf8(arrival.cell).c_str());
    destination.position = arrival.place;
    destination.rotation.z = Radians(arrival.facing);
    door.Teleport(destination);
    return door;
}

std::optional<Arrival> ArrivalAtWayOut(const FinishedLevel& level) {
    DiPos at;
    const GridElmt* const elmt = FindWayOut(level.layout, at);
    if (elmt == nullptr) {
        return std::nullopt;
    }
    const PlanCell cell = PlanCellOf(*elmt);
    StandingCell standing;
    standing.place = at;
    standing.reduced = cell.reduced;
    // The doorway counts as a wall: one stands before it, not in it.
    standing.open = static_cast<SideBits>(cell.open & ~unsigned{cell.doorway});
    Arrival arrival;
    arrival.cell = ToUtf8(level.cell.GetName());
    arrival.place = FeetAt(standing, GroundOf(level));
    for (const Side& side : Sides()) {
        if (cell.doorway == SideBit(side.dir)) {
            arrival.facing = FacingOf(side.opposite);
        }
    }
    arrival.good = true;
    return arrival;
}

} // namespace Tarnex
