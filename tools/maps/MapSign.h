// SPDX-License-Identifier: MIT
// What the things on a map are drawn as.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/output/Ref.h>

#include <cstdint>
#include <string_view>

namespace Tarnex::Report {

/// The sign of a thing, in the order in which they are drawn: what comes later lies on top.
enum class MapSign : std::uint8_t {
    Rug,
    Other,
    Tapestry,
    Furniture,
    Container,
    Light,
    Creature,
    Door, ///< that is no tile of the set
};

/// The number of signs.
inline constexpr std::size_t kMapSigns = 8;

/// The sign of what stands on a level under that sort and identifier. `size` is its extent, 0 where
/// nobody knows. Configurations place all kinds of things as rugs, which go to the middle of rooms,
/// and lights as whatever stands where they shall; a rug is what lies flat, and a light what its
/// identifier calls so.
MapSign SignOf(RefSort sort, std::string_view id, const Di3Point& size);

} // namespace Tarnex::Report
