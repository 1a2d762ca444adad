// SPDX-License-Identifier: MIT
#include "apps/report/ConfigRules.h"

#include <vaultry/catalogue/Vocabulary.h>

namespace Tarnex::Report {

namespace {

using Words = std::vector<std::string_view>;

const Words kTileSetWords = {Tile_TsName, Tile_TsType, Tile_TsSize, Tile_WallThickness};
const Words kTileWords = {Attrib_ZRotate,
                          Attrib_DeltaZ,
                          Attrib_OffsetX,
                          Attrib_OffsetY,
                          Attrib_OffsetZ,
                          Attrib_Scale,
                          Attrib_Area,
                          Attrib_Requires};
const Words kPlatformWords = {Attrib_Name};
const Words kPieceWords = {Attrib_UniqueName,
                           Attrib_ZRotate,
                           Attrib_OffsetX,
                           Attrib_OffsetY,
                           Attrib_OffsetZ,
                           Attrib_SizeX,
                           Attrib_SizeY,
                           Attrib_SizeZ};
const Words kLayoutWords = {Attrib_LayoutName,
                            Attrib_Type,
                            Attrib_Width,
                            Attrib_Height,
                            Attrib_OffsetX,
                            Attrib_OffsetY,
                            Attrib_OffsetZ};
const Words kThemeWords = {Attrib_Name, Attrib_Level};
const Words kItemWords = {
    Attrib_Type, Attrib_Ratio, Attrib_Chance, Attrib_Min, Attrib_Max, Attrib_UniqueName};
const Words kContentWords = {Attrib_UniqueName,
                             Attrib_FriendlyName,
                             Attrib_ModelFile,
                             Attrib_Type,
                             Attrib_Max,
                             Attrib_Level,
                             Attrib_Value,
                             Attrib_ZRotate,
                             Attrib_Weight,
                             Attrib_SizeX,
                             Attrib_SizeY,
                             Attrib_SizeZ,
                             Attrib_OffsetX,
                             Attrib_OffsetY,
                             Attrib_OffsetZ,
                             Attrib_Stack};

struct ElementRow {
    Words names;
    const Words& attributes;
};

// The attributes that the loader reads of an element; null when the element is unknown, which the
// loader itself reports.
const Words* AttributesOf(const ConfigRecord& record, const ConfigElement& element) {
    static const std::vector<ElementRow> kRows = {
        {{Tile_TileSet}, kTileSetWords},
        {{Layout_Layout}, kLayoutWords},
        {{Theme_Theme, Theme_CreatureTheme, Theme_TreasureTheme}, kThemeWords},
        {{Platform_Platform}, kPlatformWords},
        {{Theme_ThemeItem}, kItemWords},
        {{Content_Armor,
          Content_Clothing,
          Content_Container,
          Content_Creature,
          Content_Furniture,
          Content_Rug,
          Content_Tapestry,
          Content_Treasure,
          Content_Weapon},
         kContentWords},
    };
    if (element.parent != ConfigElement::kNoParent) {
        const ConfigElement& parent = record.elements[element.parent];
        if (Is(parent, Tile_TileSet)) {
            return &kTileWords;
        }
        if (Is(parent, Platform_Platform)) {
            return &kPieceWords;
        }
    }
    for (const ElementRow& row : kRows) {
        if (IsAnyOf(element.name, row.names)) {
            return &row.attributes;
        }
    }
    return nullptr;
}

struct KeywordRow {
    std::string_view attribute;
    Words words;
    const char* meaning;
};

void CheckKeywords(const ConfigElement& element, Findings& findings) {
    static const std::vector<KeywordRow> kRows = {
        {Attrib_Area, {Tile_HalfSize, Tile_QuarterSize, "FullSize"}, "The tile is of full size."},
        {Attrib_Stack, {Stack_No, Stack_Bottom, Stack_Top, Stack_Yes}, "It counts as No."},
    };
    for (const KeywordRow& row : kRows) {
        const auto value = Attribute(element, row.attribute);
        if (value && !IsAnyOf(*value, row.words)) {
            findings.Add(Weight::Warning,
                         element,
                         std::string(row.attribute) + " has no word \"" + *value + '"',
                         row.meaning,
                         Nearest(*value, {row.words.begin(), row.words.end()}));
        }
    }
}

} // namespace

void CheckWords(const ConfigRecord& record, Findings& findings) {
    for (const ConfigElement& element : record.elements) {
        const Words* words = AttributesOf(record, element);
        if (words == nullptr) {
            continue;
        }
        for (const auto& [name, value] : element.attributes) {
            if (!IsAnyOf(name, *words)) {
                findings.Add(Weight::Warning,
                             element,
                             element.name + " has no attribute \"" + name + '"',
                             "It is ignored.",
                             Nearest(name, {words->begin(), words->end()}));
            }
        }
        CheckKeywords(element, findings);
    }
}

} // namespace Tarnex::Report
