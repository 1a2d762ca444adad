// SPDX-License-Identifier: MIT
// Whether a level can be walked through.
#pragma once

#include <vaultry/gen/GenReport.h>
#include <vaultry/layout/RoomInfo.h>

namespace Tarnex {

/// Fills in the rooms, the rooms that can be reached from the first and the openings that lead
/// nowhere. A part of a room counts where its z lies within one cell of the level and the level
/// itself has nothing there. Draws nothing and changes nothing.
void JudgeWalkability(LevelReport& report, const Layout& main, const RoomInfo& rooms);

} // namespace Tarnex
