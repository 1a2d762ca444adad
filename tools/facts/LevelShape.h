// SPDX-License-Identifier: MIT
// How the rooms and halls of a level hang together.
#pragma once

#include "tools/maps/LevelMap.h"

#include <vaultry/foundation/JobStatus.h>

#include <cstdint>

namespace Tarnex::Report {

/// What can be counted on the map of a level. What stands more than one cell above or below the
/// level's floor is left out, but for the area.
struct LevelShape {
    std::uint32_t rooms = 0;      ///< those that the map numbers
    std::uint32_t halls = 0;      ///< stretches of hall between rooms, junctions and ends
    std::uint32_t junctions = 0;  ///< pieces of hall that lead on to three sides or four
    std::uint32_t loops = 0;      ///< ways round that are independent of each other
    std::uint32_t deadEnds = 0;   ///< pieces of hall that lead on to one side or none
    std::uint32_t openings = 0;   ///< openings of halls and doorways onto nothing
    std::uint32_t longestWay = 0; ///< from one room to another by the shortest way [steps]
    std::uint32_t area = 0;       ///< cells with something in them, seen from above
    bool connected = true;        ///< one can walk from every room to every other
};

/// Judges a map by its openings: one can step from a cell to its neighbour where both are open to
/// each other. A chamber is a group of room cells that hang together without a doorway between;
/// loops are those of the graph of chambers and pieces of hall. Four pieces of hall in a square
/// that are all open to each other go around a pillar at most and are no loop. The ways of a large
/// interior take long to measure: `status`, which may be null, is asked meanwhile, and once it says
/// so they are not measured any further.
LevelShape ShapeOf(const LevelMap& map, const JobStatus* status = nullptr);

} // namespace Tarnex::Report
