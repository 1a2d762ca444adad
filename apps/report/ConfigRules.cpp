// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include "apps/report/NearNames.h"

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/CodePage.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>

namespace Tarnex::Report {

bool LessNoCase::operator()(const std::string& a, const std::string& b) const {
    return ToUpper(a) < ToUpper(b);
}

void Findings::Add(Weight weight,
                   const ConfigElement& element,
                   const std::string& message,
                   std::string meaning,
                   const std::string& nearest) {
    list.push_back({weight, element.place, ToUtf8(message), std::move(meaning), ToUtf8(nearest)});
}

std::optional<std::string> Attribute(const ConfigElement& element, std::string_view name) {
    std::optional<std::string> value;
    for (const auto& [key, text] : element.attributes) {
        if (EqualsNoCase(key, name)) {
            value = text;
        }
    }
    return value;
}

std::string AttributeText(const ConfigElement& element, std::string_view name) {
    return Attribute(element, name).value_or("");
}

bool Is(const ConfigElement& element, std::string_view name) {
    return EqualsNoCase(element.name, name);
}

bool IsAnyOf(std::string_view word, const std::vector<std::string_view>& words) {
    return std::ranges::any_of(
        words, [word](std::string_view other) { return EqualsNoCase(word, other); });
}

std::vector<std::string> ListedNames(const std::string& text) {
    constexpr std::string_view kSeparators = "\t\r\f\n,;";
    std::vector<std::string> names;
    std::size_t start = text.find_first_not_of(kSeparators);
    while (start != std::string::npos) {
        const std::size_t end = text.find_first_of(kSeparators, start);
        names.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(kSeparators, end);
    }
    return names;
}

std::string Nearest(const std::string& name, const std::vector<std::string>& names) {
    const std::size_t start = name.find_first_not_of(' ');
    if (start == std::string::npos) {
        return {};
    }
    const std::string word = name.substr(start, name.find_last_not_of(' ') - start + 1);
    const std::vector<std::string> near = NearestNames(word, names);
    return near.empty() ? "" : near.front();
}

std::vector<const ConfigElement*> ChildrenOf(const ConfigRecord& record, const ConfigElement& of) {
    const auto index = static_cast<std::size_t>(&of - record.elements.data());
    std::vector<const ConfigElement*> children;
    for (std::size_t i = index + 1; i < record.elements.size(); ++i) {
        const std::size_t parent = record.elements[i].parent;
        if (parent == ConfigElement::kNoParent || parent < index) {
            break;
        }
        if (parent == index) {
            children.push_back(&record.elements[i]);
        }
    }
    return children;
}

void AddDerivedTiles(const std::string& name, NameSet& names) {
    struct Family {
        std::string_view source;
        std::vector<std::string_view> derived;
    };
    static const std::array<Family, 14> kFamilies = {{
        {Tile_NwCorner, {Tile_NeCorner, Tile_SeCorner, Tile_SwCorner}},
        {Tile_nWall, {Tile_sWall, Tile_eWall, Tile_wWall}},
        {Tile_nDoorway, {Tile_sDoorway, Tile_eDoorway, Tile_wDoorway}},
        {Tile_nDoorjamb, {Tile_sDoorjamb, Tile_eDoorjamb, Tile_wDoorjamb}},
        {Tile_nDoor, {Tile_sDoor, Tile_eDoor, Tile_wDoor}},
        {Tile_DoorwayNW_W, {Tile_DoorwayNE_N, Tile_DoorwaySE_E, Tile_DoorwaySW_S}},
        {Tile_DoorwayNW_N, {Tile_DoorwayNE_E, Tile_DoorwaySE_S, Tile_DoorwaySW_W}},
        {Tile_HallNS, {Tile_HallEW}},
        {Tile_HallNS_2, {Tile_HallEW_2}},
        {Tile_HallCornerNW, {Tile_HallCornerNE, Tile_HallCornerSE, Tile_HallCornerSW}},
        {Tile_HallEndN, {Tile_HallEndS, Tile_HallEndE, Tile_HallEndW}},
        {Tile_nStairsUp,
         {Tile_sStairsUp,
          Tile_eStairsUp,
          Tile_wStairsUp,
          Tile_nStairsDn,
          Tile_sStairsDn,
          Tile_eStairsDn,
          Tile_wStairsDn}},
        {Tile_nStairsUp_2,
         {Tile_sStairsUp_2,
          Tile_eStairsUp_2,
          Tile_wStairsUp_2,
          Tile_nStairsDn_2,
          Tile_sStairsDn_2,
          Tile_eStairsDn_2,
          Tile_wStairsDn_2}},
        {Tile_Center, {}},
    }};
    names.insert(name);
    for (const Family& family : kFamilies) {
        if (EqualsNoCase(name, family.source)) {
            names.insert(family.derived.begin(), family.derived.end());
        }
    }
}

NameSet TileNames(const ConfigRecord& record, std::string_view type) {
    NameSet names;
    for (const ConfigElement& element : record.elements) {
        if (!Is(element, Tile_TileSet) ||
            !EqualsNoCase(AttributeText(element, Tile_TsType), type)) {
            continue;
        }
        for (const ConfigElement* tile : ChildrenOf(record, element)) {
            AddDerivedTiles(tile->name, names);
        }
    }
    return names;
}

} // namespace Tarnex::Report
