// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/TileKind.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <array>
#include <unordered_map>

namespace Tarnex {

namespace {

struct KindRow {
    std::string_view name;
    TileDirT dir;
    TileType type;
};

// The corner doorways have no facing and the stairs no type: generation leaves both alone.
// clang-format off
constexpr std::array<KindRow, TileKind::kCount> kKinds = {{
    // name              facing   type
    {Tile_SwCorner,      DirSW,   TileCorner},
    {Tile_NwCorner,      DirNW,   TileCorner},
    {Tile_NeCorner,      DirNE,   TileCorner},
    {Tile_SeCorner,      DirSE,   TileCorner},

    {Tile_nWall,         DirN,    TileWall},
    {Tile_sWall,         DirS,    TileWall},
    {Tile_eWall,         DirE,    TileWall},
    {Tile_wWall,         DirW,    TileWall},

    {Tile_Center,        DirAll,  TileCenter},
    {Tile_Center_2,      DirAll,  TileCenter},

    {Tile_nDoorway,      DirN,    TileDoorway},
    {Tile_sDoorway,      DirS,    TileDoorway},
    {Tile_eDoorway,      DirE,    TileDoorway},
    {Tile_wDoorway,      DirW,    TileDoorway},

    {Tile_DoorwayNW_W,   DirNone, TileDoorway},
    {Tile_DoorwayNE_N,   DirNone, TileDoorway},
    {Tile_DoorwaySE_E,   DirNone, TileDoorway},
    {Tile_DoorwaySW_S,   DirNone, TileDoorway},
    {Tile_DoorwayNW_N,   DirNone, TileDoorway},
    {Tile_DoorwayNE_E,   DirNone, TileDoorway},
    {Tile_DoorwaySE_S,   DirNone, TileDoorway},
    {Tile_DoorwaySW_W,   DirNone, TileDoorway},

    {Tile_nDoorjamb,     DirN,    TileDoorway},
    {Tile_sDoorjamb,     DirS,    TileDoorway},
    {Tile_eDoorjamb,     DirE,    TileDoorway},
    {Tile_wDoorjamb,     DirW,    TileDoorway},

    {Tile_nDoor,         DirN,    TileDoorway},
    {Tile_sDoor,         DirS,    TileDoorway},
    {Tile_eDoor,         DirE,    TileDoorway},
    {Tile_wDoor,         DirW,    TileDoorway},

    {Tile_HallNS,        DirNS,   TileHall},
    {Tile_HallEW,        DirEW,   TileHall},
    {Tile_HallNS_2,      DirNS,   TileHall},
    {Tile_HallEW_2,      DirEW,   TileHall},

    {Tile_HallEndN,      DirN,    TileHallEnd},
    {Tile_HallEndS,      DirS,    TileHallEnd},
    {Tile_HallEndE,      DirE,    TileHallEnd},
    {Tile_HallEndW,      DirW,    TileHallEnd},

    {Tile_HallCornerNW,  DirNW,   TileHall},
    {Tile_HallCornerNE,  DirNE,   TileHall},
    {Tile_HallCornerSW,  DirSW,   TileHall},
    {Tile_HallCornerSE,  DirSE,   TileHall},
    {Tile_Hall4Way,      DirAll,  TileHall},

    {Tile_nStairsUp,     DirNS,   TileNone},
    {Tile_sStairsUp,     DirNS,   TileNone},
    {Tile_eStairsUp,     DirEW,   TileNone},
    {Tile_wStairsUp,     DirEW,   TileNone},
    {Tile_nStairsDn,     DirNS,   TileNone},
    {Tile_sStairsDn,     DirNS,   TileNone},
    {Tile_eStairsDn,     DirEW,   TileNone},
    {Tile_wStairsDn,     DirEW,   TileNone},
    {Tile_nStairsUp_2,   DirNS,   TileNone},
    {Tile_sStairsUp_2,   DirNS,   TileNone},
    {Tile_eStairsUp_2,   DirEW,   TileNone},
    {Tile_wStairsUp_2,   DirEW,   TileNone},
    {Tile_nStairsDn_2,   DirNS,   TileNone},
    {Tile_sStairsDn_2,   DirNS,   TileNone},
    {Tile_eStairsDn_2,   DirEW,   TileNone},
    {Tile_wStairsDn_2,   DirEW,   TileNone},
}};
// clang-format on

const std::unordered_map<std::string, std::int8_t>& RowsByUpperName() {
    static const auto rows = [] {
        std::unordered_map<std::string, std::int8_t> map;
        for (std::size_t i = 0; i < kKinds.size(); ++i) {
            map.emplace(ToUpper(kKinds[i].name), static_cast<std::int8_t>(i));
        }
        return map;
    }();
    return rows;
}

} // namespace

TileKind TileKind::Of(std::string_view name) {
    const auto& rows = RowsByUpperName();
    const auto found = rows.find(ToUpper(name));
    return found == rows.end() ? TileKind() : At(static_cast<std::size_t>(found->second));
}

TileKind TileKind::At(std::size_t index) {
    TileKind kind;
    kind.row = static_cast<std::int8_t>(index);
    kind.dir = static_cast<std::int8_t>(kKinds[index].dir);
    kind.type = static_cast<std::int8_t>(kKinds[index].type);
    return kind;
}

std::string_view TileKind::Name() const {
    return IsKnown() ? kKinds[Index()].name : std::string_view();
}

std::vector<std::string> TileKindNames() {
    std::vector<std::string> names;
    names.reserve(kKinds.size());
    for (const KindRow& row : kKinds) {
        names.emplace_back(row.name);
    }
    return names;
}

} // namespace Tarnex
