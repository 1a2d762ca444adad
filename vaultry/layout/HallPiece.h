// SPDX-License-Identifier: MIT
// Which piece of hall is open on given sides.
#pragma once

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/layout/ElmtKind.h>

namespace Tarnex {

/// The piece of a hall that is open on just these sides: an end for one, a straight piece or a
/// corner for two, the junction for four. None for three, which no set has a piece for, and for no
/// side at all.
TileKind HallPieceOf(SideBits open);

} // namespace Tarnex
