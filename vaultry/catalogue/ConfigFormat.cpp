// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigFormat.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

struct NameRow {
    std::string_view name;
    ElementClass element;
};

// The first rows are recognised wherever they stand; inside a tile set or platform every other
// element is a piece of it.
constexpr std::size_t kAnywhere = 6;
constexpr std::array<NameRow, 19> kNames = {{
    {Tile_TileSet, ElementClass::TileSet},
    {Layout_Layout, ElementClass::Layout},
    {Theme_Theme, ElementClass::Theme},
    {Theme_CreatureTheme, ElementClass::Theme},
    {Theme_TreasureTheme, ElementClass::Theme},
    {Platform_Platform, ElementClass::Platform},

    {Config_Root, ElementClass::Root},
    {Layout_Row, ElementClass::Row},
    {Layout_Col, ElementClass::Col},
    {Theme_ThemeItem, ElementClass::ThemeItem},
    {Content_Armor, ElementClass::Content},
    {Content_Clothing, ElementClass::Content},
    {Content_Container, ElementClass::Content},
    {Content_Creature, ElementClass::Content},
    {Content_Furniture, ElementClass::Content},
    {Content_Rug, ElementClass::Content},
    {Content_Tapestry, ElementClass::Content},
    {Content_Treasure, ElementClass::Content},
    {Content_Weapon, ElementClass::Content},
}};

} // namespace

ElementClass ClassifyElement(std::string_view name, ElementClass parent) {
    const auto* const row = std::ranges::find_if(
        kNames, [name](const NameRow& known) { return EqualsNoCase(known.name, name); });
    const bool anywhere = row < kNames.begin() + kAnywhere;
    if (!anywhere && (parent == ElementClass::TileSet || parent == ElementClass::Tile)) {
        return ElementClass::Tile;
    }
    if (!anywhere && (parent == ElementClass::Platform || parent == ElementClass::PlatformTile)) {
        return ElementClass::PlatformTile;
    }
    return row == kNames.end() ? ElementClass::Unknown : row->element;
}

std::vector<std::string_view> ElementNames() {
    std::vector<std::string_view> names;
    names.reserve(kNames.size());
    for (const NameRow& row : kNames) {
        names.push_back(row.name);
    }
    return names;
}

} // namespace Tarnex
