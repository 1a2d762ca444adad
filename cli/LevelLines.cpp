// SPDX-License-Identifier: MIT
#include "cli/LevelLines.h"

#include "tools/text/Words.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>

#include <array>

namespace Tarnex::Cli {

namespace {

// Without these halls come to an end where they should turn, cross or enter a room.
constexpr std::array kHallKinds = {Tile_HallNS,
                                   Tile_HallEW,
                                   Tile_HallCornerNW,
                                   Tile_HallCornerNE,
                                   Tile_HallCornerSW,
                                   Tile_HallCornerSE,
                                   Tile_HallEndN,
                                   Tile_HallEndS,
                                   Tile_HallEndE,
                                   Tile_HallEndW,
                                   Tile_Hall4Way,
                                   Tile_nWall,
                                   Tile_sWall,
                                   Tile_eWall,
                                   Tile_wWall,
                                   Tile_nDoorway,
                                   Tile_sDoorway,
                                   Tile_eDoorway,
                                   Tile_wDoorway};

std::string LevelName(const LevelReport& level) {
    return "level " + std::to_string(level.number);
}

// Columns from the west and rows from the north, as people count.
std::string RoomAt(const DiPos& slot) {
    return "column " + std::to_string(slot.x + 1) + " row " + std::to_string(slot.y + 1);
}

std::string MissingKinds(const TileSet& tileSet) {
    std::vector<std::string> missing;
    for (const std::string_view kind : kHallKinds) {
        if (!tileSet.Get(kind)) {
            missing.push_back('"' + std::string(kind) + '"');
        }
    }
    return JoinWords(missing);
}

std::string Cure(const LevelReport& level) {
    const std::string missing = level.tileSet ? MissingKinds(*level.tileSet) : std::string();
    if (!missing.empty()) {
        return "the tile set \"" + ToUtf8(level.tileSet->GetName()) + "\" lacks " + missing;
    }
    return "try another --seed, a looser --spacing or a smaller --size";
}

std::string GivenUp(const LevelReport& level) {
    std::vector<std::string> halls;
    for (const FailedHall& hall : level.failedHalls) {
        halls.push_back(RoomAt(hall.from) + " to " + RoomAt(hall.to));
    }
    return LevelName(level) + " was given up after " + std::to_string(level.attempts) +
           " floor plans: of " + std::to_string(level.roomGrid.x) + " x " +
           std::to_string(level.roomGrid.y) +
           " rooms these could not be joined: " + JoinWords(halls) + "; " + Cure(level);
}

std::string WalkWords(std::size_t reachable, std::size_t rooms, std::uint64_t openings) {
    return std::to_string(reachable) + " of " + Report::Counted(rooms, "room") +
           " can be reached, " + std::to_string(openings) +
           (openings == 1 ? " opening leads" : " openings lead") + " nowhere";
}

// "room 3" or "rooms 3, 5", by their numbers on the map.
std::string Numbered(const std::vector<std::size_t>& rooms) {
    std::vector<std::string> numbers;
    numbers.reserve(rooms.size());
    for (const std::size_t room : rooms) {
        numbers.push_back(std::to_string(room));
    }
    return (rooms.size() == 1 ? "room " : "rooms ") + JoinWords(numbers);
}

std::string Unreachable(const LevelReport& level) {
    std::vector<std::size_t> rooms;
    for (std::size_t i = 0; i < level.rooms.size(); ++i) {
        if (!level.rooms[i].reachable) {
            rooms.push_back(i + 1);
        }
    }
    return LevelName(level) + ": " + Numbered(rooms) +
           " of the map cannot be reached; try another --seed, or --ensure-walkable";
}

} // namespace

std::vector<std::string> LevelLines(const GenReport& report) {
    std::vector<std::string> lines;
    for (const LevelReport& level : report.levels) {
        if (level.made) {
            lines.push_back(LevelName(level) + ": " +
                            WalkWords(level.ReachableRooms(), level.rooms.size(), level.openEnds));
        }
    }
    return lines;
}

std::vector<std::string> LevelWarnings(const GenReport& report) {
    std::vector<std::string> warnings;
    for (const LevelReport& level : report.levels) {
        if (!level.made) {
            warnings.push_back(GivenUp(level));
        } else if (!level.IsWalkable()) {
            warnings.push_back(Unreachable(level));
        }
    }
    if (!report.AreLevelsLinked()) {
        warnings.emplace_back("not every level has a door to the one before: a level has no wall "
                              "for it, or its tile set has no door");
    }
    return warnings;
}

std::string InteriorLine(const InteriorReport& interior) {
    return "layout \"" + interior.layout + "\": " +
           WalkWords(
               interior.rooms - interior.unreachable.size(), interior.rooms, interior.openings);
}

std::vector<std::string> InteriorWarnings(const InteriorReport& interior) {
    if (interior.unreachable.empty()) {
        return {};
    }
    return {Numbered(interior.unreachable) +
            " of the map cannot be reached from room 1; vaultry map shows where"};
}

std::vector<std::string> ArrivalWarnings(const std::vector<Arrival>& arrivals) {
    std::vector<std::string> warnings;
    for (const Arrival& arrival : arrivals) {
        if (!arrival.good) {
            warnings.push_back('"' + arrival.cell +
                               "\" has no free place to arrive at; the best there is may be beside "
                               "the floor or in a thing");
        }
    }
    return warnings;
}

} // namespace Tarnex::Cli
