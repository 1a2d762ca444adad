// SPDX-License-Identifier: MIT
#include <vaultry/layout/ElmtKind.h>

#include <array>

namespace Tarnex {

namespace {

using ByFacing = std::array<SideBits, 12>;

constexpr SideBits kN = SideBit(DirN);
constexpr SideBits kS = SideBit(DirS);
constexpr SideBits kE = SideBit(DirE);
constexpr SideBits kW = SideBit(DirW);

// By facing, in the order N, S, E, W, NW, NE, SW, SE, NS, EW, all, none. A corner is named by its
// closed sides and an end by its closed side.
constexpr ByFacing kPassages = {
    kN, kS, kE, kW, kS | kE, kS | kW, kN | kE, kN | kW, kN | kS, kE | kW, kN | kS | kE | kW, 0};
constexpr ByFacing kHallEnds = {kS, kN, kW, kE, 0, 0, 0, 0, 0, 0, 0, 0};

} // namespace

SideBits OpenSides(const GridElmt& elmt) {
    const auto facing = static_cast<std::size_t>(GetElmtDir(elmt));
    switch (GetElmtType(elmt)) {
    case TileDoorway:
    case TileHall:
        return kPassages[facing];
    case TileHallEnd:
        return kHallEnds[facing];
    default:
        return 0;
    }
}

} // namespace Tarnex
