// SPDX-License-Identifier: MIT
// The choice of a hall's next step, apart from any grid.
#pragma once

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/DiDirection.h>
#include <vaultry/foundation/Export.h>

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
    std::int32_t stepX = 0;     ///< [cells]
    std::int32_t stepY = 0;     ///< [cells]
    CvtAction action = CvtNone; ///< what replacing the tile amounts to

    /// Whether the tile is replaced where the hall stands.
    bool IsInPlace() const { return stepX == 0 && stepY == 0; }
};

/// As many failures in a row undo a corner that leads nowhere.
inline constexpr std::uint32_t kUndoesCorner = 4;

/// Chooses the next step from a tile of facing `current`. `wanted` is the way to the destination
/// (its step possibly turned aside, its distances true), `previous` the step before ((0, 0) for
/// none), `action` how the piece may be changed, `blocked` how often in a row the hall has failed.
VAULTRY_API HallChoice ChooseStep(TileDirT current,
                                  const DiDirection& wanted,
                                  const DiDirection& previous,
                                  CvtAction action,
                                  std::uint32_t blocked);

/// Whether the choice depends on how the piece may be changed: where the way turns off a straight
/// piece, and wherever the piece is replaced. Finding that out means looking at its neighbours.
inline bool DependsOnAction(TileDirT current, const DiDirection& wanted, std::uint32_t blocked) {
    switch (current) {
    case DirN:
    case DirS:
    case DirNS:
        return wanted.stepX != 0;
    case DirE:
    case DirW:
    case DirEW:
        return wanted.stepX == 0;
    case DirNW:
    case DirNE:
    case DirSW:
    case DirSE:
        return blocked >= kUndoesCorner;
    case DirAll:
        return wanted.stepX == 0 && wanted.stepY == 0;
    case DirNone:
        break;
    }
    return false;
}

} // namespace Tarnex
