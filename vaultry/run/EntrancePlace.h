// SPDX-License-Identifier: MIT
// Where one enters a dungeon, as text and as numbers.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Tarnex {

/// No place is farther out than that, and no higher: to there the game's numbers hold half units.
/// [world units]
inline constexpr double kFarthestEntrance = 4194304.0;

/// The place of the door that leads into a dungeon, in the world outside or in one of the game's
/// interiors.
struct EntrancePlace {
    double x = 0.0;          ///< to the east [world units, up to kFarthestEntrance either way]
    double y = 0.0;          ///< to the north [likewise]
    std::optional<double> z; ///< of the ground [likewise]; none: that of the land
    /// The way the door faces, and who comes out of it: clockwise from north [whole degrees, 0 to
    /// 359].
    std::int32_t angle = 0;

    /// Equality of all numbers.
    bool operator==(const EntrancePlace&) const = default;
};

/// Reads "X,Y", "X,Y,Z" or "X,Y,Z,ANGLE", Z empty for the height of the land and ANGLE from -360 to
/// 360. Returns what is wrong with the text, the second half of a sentence; empty for nothing,
/// otherwise the place stays as it was.
VAULTRY_API std::string ReadPlace(std::string_view text, EntrancePlace& place);

/// The shortest text that reads as that place.
VAULTRY_API std::string TextOf(const EntrancePlace& place);

} // namespace Tarnex
