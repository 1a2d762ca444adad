// SPDX-License-Identifier: MIT
#include "tools/runs/Offer.h"

#include "tools/runs/RunJson.h"

#include <vaultry/foundation/CodePage.h>

#include <type_traits>

namespace Tarnex::Report {

namespace {

template <typename T>
OfferedList ListOf(const char* option,
                   const char* title,
                   const std::vector<DiPtr<T>>& objects,
                   const DiPtr<T>& chosen) {
    OfferedList list{option, title, {}};
    for (const DiPtr<T>& object : objects) {
        OfferedName& offered = list.names.emplace_back();
        offered.name = ToUtf8(object->GetName());
        offered.isDefault = object == chosen;
        if constexpr (std::is_same_v<T, Theme>) {
            offered.level = object->level;
        } else if constexpr (std::is_same_v<T, LayoutTemplate>) {
            offered.size = object->GetSize();
        }
    }
    return list;
}

Json NameJson(const OfferedName& offered) {
    Json json = {{"name", offered.name}, {"default", offered.isDefault}};
    if (offered.level) {
        json["level"] = *offered.level;
    }
    if (offered.size) {
        json["width"] = offered.size->x;
        json["height"] = offered.size->y;
    }
    return json;
}

} // namespace

std::vector<OfferedList> OfferedLists(GenMgr& manager) {
    const DiPtr<TileSet> tiles = manager.GetDefaultTileSet();
    const DiPtr<LayoutTemplate> layout = manager.GetDefaultTemplate();
    const DiPtr<Theme> theme = manager.GetDefaultTheme();
    const DiPtr<Theme> creatures = manager.GetDefaultCreatureTheme();
    const DiPtr<Theme> treasure = manager.GetDefaultTreasureTheme();
    return {
        ListOf("tileset", "Room tile sets", manager.GetRoomTileSets(), tiles),
        ListOf("cave-tileset", "Cave tile sets", manager.GetCaveTileSets(), tiles),
        ListOf("template", "Room layouts", manager.GetRoomLayouts(), layout),
        ListOf("cave-template", "Cave layouts", manager.GetCaveLayouts(), layout),
        ListOf("theme", "Furniture themes", manager.GetThemes(), theme),
        ListOf("creature-theme", "Creature themes", manager.GetCreatureThemes(), creatures),
        ListOf("treasure-theme", "Treasure themes", manager.GetTreasureThemes(), treasure),
    };
}

std::string ToJson(const Offer& offer) {
    Json json = JsonHeader();
    json["config"] = offer.config;
    if (!offer.presets.empty()) {
        json["presets"] = PresetsJson(offer.presets);
    }
    for (const OfferedList& list : offer.lists) {
        Json& names = json[std::string(list.option) + 's'] = Json::array();
        for (const OfferedName& offered : list.names) {
            names.push_back(NameJson(offered));
        }
    }
    json["errors"] = offer.errors;
    return JsonText(json);
}

} // namespace Tarnex::Report
