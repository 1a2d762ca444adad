// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/Mirroring.h>

#include <vaultry/catalogue/Vocabulary.h>

#include <array>

namespace Tarnex {

namespace {

constexpr std::int32_t kFullTurn = 360;
// The source's own angle, neither turned nor normalised.
constexpr std::int32_t kAsSource = -1;

struct MirrorRow {
    std::string_view source;
    std::string_view derived;
    std::int32_t turn;       // degrees added to the rotation, or kAsSource
    std::int32_t offsetTurn; // degrees by which the offset is turned
    bool lowered;            // one deltaZ lower
};

// Two things here are meant: the corner doorways keep the offset of their source, and "StairsDnS"
// keeps the source's rotation although its offset turns.
// clang-format off
constexpr std::array<MirrorRow, 43> kMirrors = {{
    // source            derived             turn       offset  lowered
    {Tile_NwCorner,      Tile_NeCorner,      90,         90,    false},
    {Tile_NwCorner,      Tile_SeCorner,      180,       180,    false},
    {Tile_NwCorner,      Tile_SwCorner,      270,       270,    false},

    {Tile_nWall,         Tile_sWall,         180,       180,    false},
    {Tile_nWall,         Tile_eWall,         90,         90,    false},
    {Tile_nWall,         Tile_wWall,         270,       270,    false},

    {Tile_nDoorway,      Tile_sDoorway,      180,       180,    false},
    {Tile_nDoorway,      Tile_eDoorway,      90,         90,    false},
    {Tile_nDoorway,      Tile_wDoorway,      270,       270,    false},

    {Tile_nDoorjamb,     Tile_sDoorjamb,     180,       180,    false},
    {Tile_nDoorjamb,     Tile_eDoorjamb,     90,         90,    false},
    {Tile_nDoorjamb,     Tile_wDoorjamb,     270,       270,    false},

    {Tile_nDoor,         Tile_sDoor,         180,       180,    false},
    {Tile_nDoor,         Tile_eDoor,         90,         90,    false},
    {Tile_nDoor,         Tile_wDoor,         270,       270,    false},

    {Tile_HallNS,        Tile_HallEW,        90,         90,    false},
    {Tile_HallNS_2,      Tile_HallEW_2,      90,         90,    false},

    {Tile_HallCornerNW,  Tile_HallCornerNE,  90,         90,    false},
    {Tile_HallCornerNW,  Tile_HallCornerSE,  180,       180,    false},
    {Tile_HallCornerNW,  Tile_HallCornerSW,  270,       270,    false},

    {Tile_HallEndN,      Tile_HallEndS,      180,       180,    false},
    {Tile_HallEndN,      Tile_HallEndE,      90,         90,    false},
    {Tile_HallEndN,      Tile_HallEndW,      270,       270,    false},

    {Tile_DoorwayNW_W,   Tile_DoorwayNE_N,   90,          0,    false},
    {Tile_DoorwayNW_W,   Tile_DoorwaySE_E,   180,         0,    false},
    {Tile_DoorwayNW_W,   Tile_DoorwaySW_S,   270,         0,    false},

    {Tile_DoorwayNW_N,   Tile_DoorwayNE_E,   90,          0,    false},
    {Tile_DoorwayNW_N,   Tile_DoorwaySE_S,   180,         0,    false},
    {Tile_DoorwayNW_N,   Tile_DoorwaySW_W,   270,         0,    false},

    {Tile_nStairsUp,     Tile_sStairsUp,     180,       180,    false},
    {Tile_nStairsUp,     Tile_eStairsUp,     90,         90,    false},
    {Tile_nStairsUp,     Tile_wStairsUp,     270,       270,    false},
    {Tile_nStairsUp,     Tile_nStairsDn,     180,       180,    true},
    {Tile_nStairsUp,     Tile_sStairsDn,     kAsSource, 180,    true},
    {Tile_nStairsUp,     Tile_eStairsDn,     270,       270,    true},
    {Tile_nStairsUp,     Tile_wStairsDn,     90,         90,    true},

    {Tile_nStairsUp_2,   Tile_sStairsUp_2,   180,       180,    false},
    {Tile_nStairsUp_2,   Tile_eStairsUp_2,   90,         90,    false},
    {Tile_nStairsUp_2,   Tile_wStairsUp_2,   270,       270,    false},
    {Tile_nStairsUp_2,   Tile_nStairsDn_2,   180,       180,    true},
    {Tile_nStairsUp_2,   Tile_sStairsDn_2,   kAsSource, 180,    true},
    {Tile_nStairsUp_2,   Tile_eStairsDn_2,   270,       270,    true},
    {Tile_nStairsUp_2,   Tile_wStairsDn_2,   90,         90,    true},
}};
// clang-format on

Tile Mirrored(const Tile& source, const MirrorRow& row) {
    Tile tile = source;
    tile.kindName = row.derived;
    if (row.turn != kAsSource) {
        tile.zRotate = TurnAngle(source.zRotate, row.turn);
    }
    RotateOffset(tile.offset, row.offsetTurn);
    if (row.lowered) {
        tile.offset.z -= static_cast<float>(source.deltaZ);
    }
    return tile;
}

} // namespace

std::int32_t NormalizeAngle(std::int64_t degrees) {
    if (degrees >= kFullTurn) {
        degrees -= kFullTurn;
    } else if (degrees < 0) {
        degrees += kFullTurn;
    }
    return static_cast<std::int32_t>(degrees);
}

std::int32_t TurnAngle(std::int32_t degrees, std::int32_t delta) {
    const double turned = static_cast<double>(static_cast<float>(degrees)) + delta;
    return NormalizeAngle(static_cast<std::int64_t>(turned));
}

void RotateOffset(Di3Point& point, std::int32_t degrees) {
    const Di3Point p = point;
    switch (degrees) {
    case 90:
        point.x = p.y;
        point.y = -p.x;
        break;
    case 180:
        point.x = -p.x;
        point.y = -p.y;
        break;
    case 270:
        point.x = -p.y;
        point.y = p.x;
        break;
    default:
        break;
    }
}

std::vector<Tile> MirrorTile(const Tile& source) {
    std::vector<Tile> tiles;
    const std::string_view kind = source.kindName.Kind().Name();
    for (const MirrorRow& row : kMirrors) {
        if (row.source == kind) {
            tiles.push_back(Mirrored(source, row));
        }
    }
    return tiles;
}

} // namespace Tarnex
