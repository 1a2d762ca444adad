// SPDX-License-Identifier: MIT
#include <vaultry/layout/HallPiece.h>

#include <vaultry/catalogue/Vocabulary.h>

#include <array>
#include <string_view>
#include <utility>

namespace Tarnex {

namespace {

constexpr SideBits N = SideBit(DirN);
constexpr SideBits S = SideBit(DirS);
constexpr SideBits E = SideBit(DirE);
constexpr SideBits W = SideBit(DirW);

using Row = std::pair<SideBits, std::string_view>;

// Ends and corners are named by their closed sides.
constexpr std::array<Row, 11> kHalls = {{
    {N, Tile_HallEndS},
    {S, Tile_HallEndN},
    {E, Tile_HallEndW},
    {W, Tile_HallEndE},
    {N | S, Tile_HallNS},
    {E | W, Tile_HallEW},
    {S | E, Tile_HallCornerNW},
    {S | W, Tile_HallCornerNE},
    {N | E, Tile_HallCornerSW},
    {N | W, Tile_HallCornerSE},
    {N | S | E | W, Tile_Hall4Way},
}};

} // namespace

TileKind HallPieceOf(SideBits open) {
    // By the sides.
    static const auto kinds = [] {
        std::array<TileKind, 16> found;
        for (const auto& [sides, name] : kHalls) {
            found[sides] = TileKind::Of(name);
        }
        return found;
    }();
    return kinds[open];
}

} // namespace Tarnex
