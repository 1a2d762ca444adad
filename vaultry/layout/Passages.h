// SPDX-License-Identifier: MIT
// Where one can walk from an element to its neighbours.
#pragma once

#include <vaultry/layout/ElmtKind.h>

namespace Tarnex {

/// The sides across which one can leave the element on foot, by its first tile: a room's wall is
/// closed on its own side alone, a doorway on none, a hall as it is shaped, stairs along their
/// axis. An element without tiles is closed all around.
SideBits WalkableSides(const GridElmt& elmt);

} // namespace Tarnex
