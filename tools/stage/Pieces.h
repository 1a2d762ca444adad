// SPDX-License-Identifier: MIT
// The pieces of the game whose measures are known.
#pragma once

#include "tools/stage/Shape.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace Tarnex::Report {

/// Where the measures of a piece come from.
enum class Known {
    Observed, ///< seen placed in interiors, or its mesh measured
    Pooled,   ///< those of pieces of the same form in other families
    Guessed,  ///< seldom or never seen
    Shaped,   ///< nobody measured it: shaped by what a configuration says
};

/// As the table names them, in the order of Known.
inline constexpr std::array<std::string_view, 4> kKnownWords = {
    "observed", "pooled", "guessed", "shaped"};

/// A piece in its own frame.
struct Piece {
    std::string id;   ///< in small letters
    std::string sort; ///< kind of tile, of piece of a cave, "Door" or "Thing"
    Shape shape;
    Known known = Known::Observed;
};

/// All pieces of the table data/pieces.csv. They live as long as the program.
std::span<const Piece> Pieces();

/// The piece of that identifier, without regard to case, or null.
const Piece* FindPiece(std::string_view id);

} // namespace Tarnex::Report
