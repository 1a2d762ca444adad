// SPDX-License-Identifier: MIT
#include <vaultry/run/Arrival.h>

#include <cmath>

namespace Tarnex {

std::string ConsoleLine(const Arrival& arrival) {
    const auto whole = [](float value) { return std::to_string(std::llround(value)) + ' '; };
    if (arrival.cell.empty()) {
        return "player->position " + whole(arrival.place.x) + whole(arrival.place.y) +
               whole(arrival.place.z) + std::to_string(arrival.facing);
    }
    return "player->positioncell " + whole(arrival.place.x) + whole(arrival.place.y) +
           whole(arrival.place.z) + std::to_string(arrival.facing) + " \"" + arrival.cell + '"';
}

} // namespace Tarnex
