// SPDX-License-Identifier: MIT
// A level with rooms, drawn as text, and the carver of its halls.
#pragma once

#include <vaultry/gen/GenHallway.h>

#include <optional>
#include <string>
#include <tests/support/Draws.h>
#include <tests/support/LogTest.h>
#include <tests/support/TextGrid.h>
#include <vector>

namespace Tarnex::Test {

/// Counts how often it is asked whether the run was cancelled.
class Asked : public JobStatus {
public:
    bool HasBeenCanceled() const override {
        ++times;
        return false;
    }

    mutable int times = 0;
};

/// The smallest room with a wall on each side, so that each side offers one doorway.
inline constexpr std::string_view kSmallRoom = R"(
    NW wN NE
    wW c  wE
    SW wS SE)";

inline DiPos At(int x, int y) {
    return {x, y, 0};
}

inline std::string Show(const DiPos& pos) {
    return std::to_string(pos.x) + "," + std::to_string(pos.y);
}

class HallTest : public LogTest {
protected:
    HallTest() { info.defTileSet = tiles; }
    ~HallTest() override {
        if (level) {
            level->Dissolve();
        }
    }

    /// Starts with a level that looks like the map.
    void Level(std::string_view map) {
        level = ToLayout(map, *tiles);
        carver.reset();
    }
    /// Starts with an empty level.
    void Level(int width, int height) {
        level = Layout::Create(DiPos(width, height, 1));
        carver.reset();
    }

    /// Files a room that is no part of the level's own cells.
    DiPtr<Layout> RoomApart(int slotRow, int slotCol, int x, int y, std::string_view map) {
        const DiPtr<Layout> room = ToLayout(map, *tiles);
        room->SetOffset(Di3Point(static_cast<float>(x), static_cast<float>(y), 0.0F));
        rooms.SetLayout(room, slotRow, slotCol);
        carver.reset();
        return room;
    }
    /// Files a room and drops it into the level with its north-west cell at (x, y).
    DiPtr<Layout> Room(int slotRow, int slotCol, int x, int y, std::string_view map = kSmallRoom) {
        const DiPtr<Layout> room = RoomApart(slotRow, slotCol, x, y, map);
        level->AddContents(*room);
        return room;
    }

    /// The carver of the level with the rooms filed so far.
    GenHallway& Halls() {
        if (!carver) {
            carver.emplace(info, *level, rooms);
        }
        return *carver;
    }

    /// Makes the carver use a set of these kinds and of what follows from them.
    void UseTiles(const std::vector<std::string_view>& kinds) {
        info.defTileSet = MakeDi<TileSet>();
        for (const std::string_view kind : kinds) {
            Tile tile;
            tile.kindName = TileKindName(kind);
            info.defTileSet->Set(tile);
        }
    }

    void Put(const DiPos& pos, std::string_view cell) {
        level->SetElmt(ToElmt(cell, *tiles), pos.y, pos.x);
    }
    const DiPtr<GridElmt>& Elmt(const DiPos& pos) const {
        return level->GetElmt(static_cast<std::uint32_t>(pos.y), static_cast<std::uint32_t>(pos.x));
    }
    std::string Cell(const DiPos& pos) const { return ToText(Elmt(pos)); }
    std::string Grid() const { return ToText(*level); }

    DiPtr<TileSet> tiles = MakeFullTileSet();
    GenInfo info;
    RoomInfo rooms{DiPos(5, 5, 1)};
    DiPtr<Layout> level;

private:
    std::optional<GenHallway> carver;
};

} // namespace Tarnex::Test
