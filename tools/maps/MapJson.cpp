// SPDX-License-Identifier: MIT
#include "tools/maps/MapJson.h"

#include "tools/plugins/LockJson.h"
#include "tools/plugins/LockWords.h"
#include "tools/text/PlaceJson.h"
#include "tools/text/Words.h"

#include <vaultry/foundation/CodePage.h>

#include <array>
#include <utility>

namespace Tarnex::Report {

namespace {

// In the order of PlanTile.
constexpr std::array<const char*, 4> kTileWords = {"empty", "room", "hall", "stairs"};

constexpr std::array<std::pair<TileDirT, char>, 4> kSideLetters = {
    {{DirN, 'n'}, {DirE, 'e'}, {DirS, 's'}, {DirW, 'w'}}};

// The first letters of the sides.
std::string Letters(SideBits sides) {
    std::string letters;
    for (const auto& [side, letter] : kSideLetters) {
        if ((sides & SideBit(side)) != 0) {
            letters += letter;
        }
    }
    return letters;
}

Json CellJson(const MapCell& cell) {
    return {{"x", cell.place.x},
            {"y", cell.place.y},
            {"tile", kTileWords.at(static_cast<std::size_t>(cell.tile))},
            {"open", Letters(cell.open)},
            {"doorway", Letters(cell.doorway)},
            {"onto-nothing", Letters(cell.loose)},
            {"way-in", Letters(cell.waysIn)},
            {"door", cell.door},
            {"leads-to", cell.teleport ? Json(cell.leadsTo) : Json(nullptr)},
            {"platform", cell.platform},
            {"on-floor", cell.sameFloor},
            {"room", cell.room}};
}

Json RoomJson(const MapRoom& room) {
    return {{"x", room.origin.x},
            {"y", room.origin.y},
            {"width", room.size.x},
            {"height", room.size.y},
            {"reachable", room.reachable}};
}

Json ThingJson(const Ref& ref) {
    const DiPtr<Ref>& destination = ref.GetDestination();
    return {{"id", ToUtf8(ref.GetName())},
            {"sort", SortWord(ref.sort)},
            {"position", PointJson(ref.position)},
            {"degrees", DegreesJson(ref.rotation)},
            {"scale", Widened(ref.scale)},
            {"leads-to", destination ? Json(ToUtf8(destination->GetName())) : Json(nullptr)},
            {"lock", LockJson(LockOf(ref))}};
}

template <typename List, typename ToItem>
Json ListJson(const List& list, const ToItem& toItem) {
    Json json = Json::array();
    for (const auto& item : list) {
        json.push_back(toItem(item));
    }
    return json;
}

Json LevelJson(const LevelMap& map, const Cell& cell) {
    return {{"name", map.name},
            {"tileset", map.tileSet},
            {"width", map.width},
            {"height", map.height},
            {"cell-size", map.tileSize},
            {"corner", PointJson(map.corner)},
            {"arrival", map.arrival ? ArrivalJson(*map.arrival) : Json(nullptr)},
            {"cells", ListJson(map.cells, CellJson)},
            {"rooms", ListJson(map.rooms, RoomJson)},
            {"things", ListJson(cell.GetRefs(), ThingJson)}};
}

} // namespace

std::string ToJson(MapLevels& levels, const Mod& mod) {
    Json json = JsonHeader();
    Json& list = json["levels"] = Json::array();
    for (std::size_t i = 0; i < levels.Count(); ++i) {
        list.push_back(LevelJson(levels.Level(i), *mod.GetCells().at(i)));
    }
    return JsonText(json, kJsonOneLine);
}

} // namespace Tarnex::Report
