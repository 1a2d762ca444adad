// SPDX-License-Identifier: MIT
// The shape of a piece of a cave, from where its mouths were measured.
#pragma once

#include "tools/stage/Shape.h"

#include <optional>
#include <span>
#include <string_view>

namespace Tarnex::Report {

/// Where a piece meets the next one: the middle of the opening, and where it looks, outward.
struct Mouth {
    Di3Point place;
    int heading = 0; ///< clockwise from north [degrees, a multiple of 90]
};

/// The piece in its own frame. None for a word that is no sort of piece, or that does not go with
/// so many mouths.
std::optional<Shape> CaveShape(std::string_view sort, std::span<const Mouth> mouths);

} // namespace Tarnex::Report
