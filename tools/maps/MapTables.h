// SPDX-License-Identifier: MIT
// What is in the rooms of a level, as tables of a page.
#pragma once

#include "tools/maps/LevelMap.h"

#include <string>

namespace Tarnex::Report {

/// The identifiers under which a room's table row and its place on the map are found on the page.
std::string RoomRowId(std::size_t level, std::size_t room);
std::string RoomSpotId(std::size_t level, std::size_t room);

/// The rules that make cards of rows: before each cell stands what its column is called.
std::string CardStyle();

/// One row for each room, and one for the halls: size, doors, contents with their counts. `level`
/// counts from 1.
std::string RoomTable(const LevelMap& map, std::size_t level);

/// One row for each container: where it stands and what is in it; a sentence if there is none.
std::string ContainerTable(const LevelMap& map, std::size_t level, ListedItems& listed);

} // namespace Tarnex::Report
