// SPDX-License-Identifier: MIT
// Where the words of a map find room.
#pragma once

#include "tools/maps/LevelMap.h"

#include <string>
#include <vector>

namespace Tarnex::Report {

/// A rectangle on the picture of a level, in its units from the north-western corner.
struct MapBox {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    bool Overlaps(const MapBox& other) const {
        return x < other.x + other.width && other.x < x + width && y < other.y + other.height &&
               other.y < y + height;
    }
    bool Holds(const MapBox& other) const {
        return x <= other.x && other.x + other.width <= x + width && y <= other.y &&
               other.y + other.height <= y + height;
    }
};

/// The destination of a teleporting door.
struct MapLabel {
    std::string text;
    MapBox box;   ///< of its plate
    double doorX; ///< middle of the door
    double doorY;
    bool distant; ///< too far from the door to be understood without a line
};

/// Among more labels than this nobody would find his way; they take long to place, too.
inline constexpr std::size_t kMostLabels = 100;

/// The labels of the teleporting doors, of the first kMostLabels if there are more. They cover
/// nothing that is drawn, nor each other; a door far from any free place has none.
std::vector<MapLabel> PlaceLabels(const LevelMap& map);

/// Where the number of each room stands: the free cell nearest to its middle, in the list's order.
std::vector<DiPos> RoomNumberPlaces(const LevelMap& map);

} // namespace Tarnex::Report
