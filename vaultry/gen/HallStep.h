// SPDX-License-Identifier: MIT
// The choice of a hall's next step, apart from any grid.
#pragma once

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/DiDirection.h>

#include <cstdint>

namespace Tarnex {

/// How a hall piece may be changed where it stands.
enum CvtAction : std::int32_t {
    CvtNone = 0,    ///< not at all
    CvtCorner = 1,  ///< it may become a corner
    CvtFourWay = 2, ///< it must become a four-way junction
};

/// What a hall does next: lay `tile` one step further, or, with a step of (0, 0), replace the tile
/// where the hall has come to. No tile: the hall is blocked.
struct HallChoice {
    TileKind tile;              ///< to be laid; none when the hall is blocked
    DiPos step;                 ///< [cells]
    CvtAction action = CvtNone; ///< what replacing the tile amounts to

    /// Whether the tile is replaced where the hall stands.
    bool IsInPlace() const { return step.isZero(); }
};

/// Whether a piece of facing `current` is left straight on, so that it need not be changed.
bool GoesStraightOn(TileDirT current, const DiDirection& wanted);

/// Chooses the next step from a tile of facing `current`. `wanted` is the way to the destination
/// (its step possibly turned aside, its distances true), `previous` the step before ((0, 0) for
/// none), `action` how the piece may be changed, `blocked` how often in a row the hall has failed.
HallChoice ChooseStep(TileDirT current,
                      const DiDirection& wanted,
                      const DiPos& previous,
                      CvtAction action,
                      std::uint32_t blocked);

/// Turns a way onto its other axis; its distances stay.
void GetBlockedDir(DiDirection& way);

} // namespace Tarnex
