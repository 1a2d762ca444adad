// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigFormat.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>

namespace Tarnex {

namespace {

constexpr std::array kStyles = {Tile_Room, Tile_Cave};
constexpr std::array kFurniture = {
    Content_Container, Content_Furniture, Content_Rug, Content_Tapestry};
constexpr std::array kCreature = {Content_Creature};
constexpr std::array kCarried = {Treasure_Armor,
                                 Treasure_Book,
                                 Treasure_Clothing,
                                 Treasure_Gem,
                                 Treasure_Gold,
                                 Treasure_Ingredient,
                                 Treasure_Misc,
                                 Treasure_Tool,
                                 Treasure_Weapon};
constexpr std::array kTreasures = {
    Treasure_Book, Treasure_Gem, Treasure_Gold, Treasure_Ingredient, Treasure_Misc, Treasure_Tool};
constexpr std::array kBeings = {Creature_Bird,
                                Creature_Creature,
                                Creature_Daedra,
                                Creature_Fish,
                                Creature_Humanoid,
                                Creature_Undead};

// clang-format off
constexpr std::array<ElementFormat, 19> kElements = {{
    {Tile_TileSet,        ElementClass::TileSet,       Stands::Anywhere, kStyles},
    {Layout_Layout,       ElementClass::Layout,        Stands::Anywhere, kStyles},
    {Theme_Theme,         ElementClass::Theme,         Stands::Anywhere, kFurniture},
    {Theme_CreatureTheme, ElementClass::CreatureTheme, Stands::Anywhere, kCreature},
    {Theme_TreasureTheme, ElementClass::TreasureTheme, Stands::Anywhere, kCarried},
    {Platform_Platform,   ElementClass::Platform,      Stands::Anywhere},

    {Config_Root,         ElementClass::Root,          Stands::Outside},
    {Layout_Row,          ElementClass::Row,           Stands::InLayout},
    {Layout_Col,          ElementClass::Col,           Stands::InLayout},
    {Theme_ThemeItem,     ElementClass::ThemeItem,     Stands::InTheme},
    {Content_Armor,       ElementClass::Content,       Stands::Outside},
    {Content_Clothing,    ElementClass::Content,       Stands::Outside},
    {Content_Container,   ElementClass::Content,       Stands::Outside},
    {Content_Creature,    ElementClass::Content,       Stands::Outside, kBeings},
    {Content_Furniture,   ElementClass::Content,       Stands::Outside},
    {Content_Rug,         ElementClass::Content,       Stands::Outside},
    {Content_Tapestry,    ElementClass::Content,       Stands::Outside},
    {Content_Treasure,    ElementClass::Content,       Stands::Outside, kTreasures},
    {Content_Weapon,      ElementClass::Content,       Stands::Outside},
}};
// clang-format on

} // namespace

std::span<const ElementFormat> ElementFormats() {
    return kElements;
}

// The loader asks at every tag; most names differ in length already.
const ElementFormat* FindElementFormat(std::string_view name) {
    const auto* const found = std::ranges::find_if(kElements, [name](const ElementFormat& known) {
        return known.name.size() == name.size() && EqualsNoCase(known.name, name);
    });
    return found == kElements.end() ? nullptr : found;
}

// The order of these questions is the meaning of the format.
ElementClass ClassifyElement(std::string_view name, const OpenElements& open) {
    const ElementFormat* const found = FindElementFormat(name);
    if (found != nullptr && found->stands == Stands::Anywhere) {
        return found->element;
    }
    if (open.tileSet) {
        return ElementClass::Tile;
    }
    if (open.platform) {
        return ElementClass::PlatformTile;
    }
    const bool recognised = found != nullptr &&
                            (found->stands != Stands::InLayout || open.layout) &&
                            (found->stands != Stands::InTheme || open.theme);
    return recognised ? found->element : ElementClass::Unknown;
}

} // namespace Tarnex
