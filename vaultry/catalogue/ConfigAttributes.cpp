// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigAttributes.h>

#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Logger.h>
#include <vaultry/foundation/Text.h>

#include <array>
#include <span>
#include <utility>

namespace Tarnex {

namespace {

template <typename T>
struct AttribRow {
    std::string_view name;
    void (*apply)(T& object, const std::string& value);
};

// The field at the end of a path of members.
template <auto Member, auto... Rest, typename T>
auto& Field(T& object) {
    if constexpr (sizeof...(Rest) == 0) {
        return object.*Member;
    } else {
        return Field<Rest...>(object.*Member);
    }
}

template <typename T, auto... Path>
void SetInt(T& object, const std::string& value) {
    Field<Path...>(object) = ParseInt(value);
}

template <typename T, auto... Path>
void SetReal(T& object, const std::string& value) {
    Field<Path...>(object) = static_cast<float>(ParseReal(value));
}

template <typename T, auto... Path>
void SetText(T& object, const std::string& value) {
    Field<Path...>(object) = value;
}

template <typename T>
void SetName(T& object, const std::string& value) {
    object.SetName(value.c_str());
}

using Keyword = std::pair<std::string_view, std::int32_t>;

constexpr std::array<Keyword, 2> kAreas = {{
    {Tile_HalfSize, AreaHalf},
    {Tile_QuarterSize, AreaQuarter},
}};

constexpr std::array<Keyword, 3> kStackings = {{
    {Stack_Bottom, StackBottom},
    {Stack_Top, StackTop},
    {Stack_Yes, StackYes},
}};

std::int32_t
KeywordValue(std::span<const Keyword> words, std::string_view text, std::int32_t otherwise) {
    for (const auto& [word, value] : words) {
        if (EqualsNoCase(text, word)) {
            return value;
        }
    }
    return otherwise;
}

void SetArea(Tile& tile, const std::string& value) {
    tile.area = KeywordValue(kAreas, value, AreaFull);
}

void SetStacking(ContentTemplate& content, const std::string& value) {
    content.stacking = KeywordValue(kStackings, value, StackNo);
}

void AddUniqueNames(ThemeItem& item, const std::string& value) {
    const auto names = SplitList(value);
    item.uniqueNames.insert(item.uniqueNames.end(), names.begin(), names.end());
}

void SetTileSetType(TileSet& tileSet, const std::string& value) {
    tileSet.SetType(value.c_str());
}

void SetWallThickness(TileSet& tileSet, const std::string& value) {
    tileSet.SetWallThickness(static_cast<float>(ParseReal(value)));
}

void SetTileSize(TileSet& tileSet, const std::string& value) {
    constexpr std::int32_t kSmallest = 128;
    constexpr std::int32_t kLargest = 1024;
    const std::int32_t size = ParseInt(value);
    if (size < kSmallest || size > kLargest) {
        Logger::WriteError("XML Parser",
                           "Unusual tile set size (%d) for tile set '%s'.",
                           size,
                           tileSet.GetName().c_str());
    }
    tileSet.SetTileSize(size);
}

// clang-format off
constexpr std::array kTileSetAttribs = {
    AttribRow<TileSet>{Tile_TsName,        SetName<TileSet>},
    AttribRow<TileSet>{Tile_TsType,        SetTileSetType},
    AttribRow<TileSet>{Tile_WallThickness, SetWallThickness},
    AttribRow<TileSet>{Tile_TsSize,        SetTileSize},
};

constexpr std::array kTileAttribs = {
    AttribRow<Tile>{Attrib_ZRotate,  SetInt<Tile, &Tile::zRotate>},
    AttribRow<Tile>{Attrib_DeltaZ,   SetInt<Tile, &Tile::deltaZ>},
    AttribRow<Tile>{Attrib_OffsetX,  SetReal<Tile, &Tile::offset, &Di3Point::x>},
    AttribRow<Tile>{Attrib_OffsetY,  SetReal<Tile, &Tile::offset, &Di3Point::y>},
    AttribRow<Tile>{Attrib_OffsetZ,  SetReal<Tile, &Tile::offset, &Di3Point::z>},
    AttribRow<Tile>{Attrib_Scale,    SetReal<Tile, &Tile::scale>},
    AttribRow<Tile>{Attrib_Area,     SetArea},
    AttribRow<Tile>{Attrib_Requires, SetText<Tile, &Tile::requiredName>},
};

constexpr std::array kPlatformAttribs = {
    AttribRow<Platform>{Attrib_Name, SetName<Platform>},
};

constexpr std::array kPlatformTileAttribs = {
    AttribRow<PlatformTile>{Attrib_UniqueName, SetText<PlatformTile, &PlatformTile::id>},
    AttribRow<PlatformTile>{Attrib_ZRotate,    SetInt<PlatformTile, &PlatformTile::zRotate>},
    AttribRow<PlatformTile>{Attrib_OffsetX,    SetReal<PlatformTile, &PlatformTile::offset, &Di3Point::x>},
    AttribRow<PlatformTile>{Attrib_OffsetY,    SetReal<PlatformTile, &PlatformTile::offset, &Di3Point::y>},
    AttribRow<PlatformTile>{Attrib_OffsetZ,    SetReal<PlatformTile, &PlatformTile::offset, &Di3Point::z>},
    AttribRow<PlatformTile>{Attrib_SizeX,      SetReal<PlatformTile, &PlatformTile::size, &Di3Point::x>},
    AttribRow<PlatformTile>{Attrib_SizeY,      SetReal<PlatformTile, &PlatformTile::size, &Di3Point::y>},
    AttribRow<PlatformTile>{Attrib_SizeZ,      SetReal<PlatformTile, &PlatformTile::size, &Di3Point::z>},
};

constexpr std::array kLayoutAttribs = {
    AttribRow<LayoutHead>{Attrib_LayoutName, SetText<LayoutHead, &LayoutHead::name>},
    AttribRow<LayoutHead>{Attrib_Type,       SetText<LayoutHead, &LayoutHead::type>},
    AttribRow<LayoutHead>{Attrib_Width,      SetInt<LayoutHead, &LayoutHead::width>},
    AttribRow<LayoutHead>{Attrib_Height,     SetInt<LayoutHead, &LayoutHead::height>},
    AttribRow<LayoutHead>{Attrib_OffsetX,    SetReal<LayoutHead, &LayoutHead::offset, &Di3Point::x>},
    AttribRow<LayoutHead>{Attrib_OffsetY,    SetReal<LayoutHead, &LayoutHead::offset, &Di3Point::y>},
    AttribRow<LayoutHead>{Attrib_OffsetZ,    SetReal<LayoutHead, &LayoutHead::offset, &Di3Point::z>},
};

constexpr std::array kThemeAttribs = {
    AttribRow<Theme>{Attrib_Name,  SetName<Theme>},
    AttribRow<Theme>{Attrib_Level, SetInt<Theme, &Theme::level>},
};

constexpr std::array kThemeItemAttribs = {
    AttribRow<ThemeItem>{Attrib_Type,       SetText<ThemeItem, &ThemeItem::type>},
    AttribRow<ThemeItem>{Attrib_Ratio,      SetReal<ThemeItem, &ThemeItem::ratio>},
    AttribRow<ThemeItem>{Attrib_Chance,     SetReal<ThemeItem, &ThemeItem::chance>},
    AttribRow<ThemeItem>{Attrib_Min,        SetInt<ThemeItem, &ThemeItem::minimum>},
    AttribRow<ThemeItem>{Attrib_Max,        SetInt<ThemeItem, &ThemeItem::maximum>},
    AttribRow<ThemeItem>{Attrib_UniqueName, AddUniqueNames},
};

constexpr std::array kContentAttribs = {
    AttribRow<ContentTemplate>{Attrib_UniqueName,   SetText<ContentTemplate, &ContentTemplate::uniqueName>},
    AttribRow<ContentTemplate>{Attrib_FriendlyName, SetText<ContentTemplate, &ContentTemplate::friendlyName>},
    AttribRow<ContentTemplate>{Attrib_ModelFile,    SetText<ContentTemplate, &ContentTemplate::modelFile>},
    AttribRow<ContentTemplate>{Attrib_Type,         SetText<ContentTemplate, &ContentTemplate::subtype>},
    AttribRow<ContentTemplate>{Attrib_Max,          SetInt<ContentTemplate, &ContentTemplate::maxCount>},
    AttribRow<ContentTemplate>{Attrib_Level,        SetInt<ContentTemplate, &ContentTemplate::level>},
    AttribRow<ContentTemplate>{Attrib_Value,        SetInt<ContentTemplate, &ContentTemplate::value>},
    AttribRow<ContentTemplate>{Attrib_ZRotate,      SetInt<ContentTemplate, &ContentTemplate::zRotate>},
    AttribRow<ContentTemplate>{Attrib_Weight,       SetReal<ContentTemplate, &ContentTemplate::weight>},
    AttribRow<ContentTemplate>{Attrib_SizeX,        SetReal<ContentTemplate, &ContentTemplate::size, &Di3Point::x>},
    AttribRow<ContentTemplate>{Attrib_SizeY,        SetReal<ContentTemplate, &ContentTemplate::size, &Di3Point::y>},
    AttribRow<ContentTemplate>{Attrib_SizeZ,        SetReal<ContentTemplate, &ContentTemplate::size, &Di3Point::z>},
    AttribRow<ContentTemplate>{Attrib_OffsetX,      SetReal<ContentTemplate, &ContentTemplate::offset, &Di3Point::x>},
    AttribRow<ContentTemplate>{Attrib_OffsetY,      SetReal<ContentTemplate, &ContentTemplate::offset, &Di3Point::y>},
    AttribRow<ContentTemplate>{Attrib_OffsetZ,      SetReal<ContentTemplate, &ContentTemplate::offset, &Di3Point::z>},
    AttribRow<ContentTemplate>{Attrib_Stack,        SetStacking},
};
// clang-format on

template <typename T>
void ApplyRows(const xercesc::Attributes& attrs, T& object, std::span<const AttribRow<T>> rows) {
    std::string name;
    std::string value;
    for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
        NarrowInto(name, attrs.getQName(i));
        for (const AttribRow<T>& row : rows) {
            if (EqualsNoCase(name, row.name)) {
                NarrowInto(value, attrs.getValue(i));
                row.apply(object, value);
                break;
            }
        }
    }
}

} // namespace

void ApplyAttributes(const xercesc::Attributes& attrs, TileSet& tileSet) {
    ApplyRows<TileSet>(attrs, tileSet, kTileSetAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, Tile& tile) {
    ApplyRows<Tile>(attrs, tile, kTileAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, Platform& platform) {
    ApplyRows<Platform>(attrs, platform, kPlatformAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, PlatformTile& piece) {
    ApplyRows<PlatformTile>(attrs, piece, kPlatformTileAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, LayoutHead& head) {
    ApplyRows<LayoutHead>(attrs, head, kLayoutAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, Theme& theme) {
    ApplyRows<Theme>(attrs, theme, kThemeAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, ThemeItem& item) {
    ApplyRows<ThemeItem>(attrs, item, kThemeItemAttribs);
}

void ApplyAttributes(const xercesc::Attributes& attrs, ContentTemplate& content) {
    ApplyRows<ContentTemplate>(attrs, content, kContentAttribs);
}

std::vector<std::string_view> SplitList(std::string_view text) {
    std::vector<std::string_view> names;
    std::size_t start = text.find_first_not_of(kListSeparators);
    while (start != std::string_view::npos) {
        const std::size_t end = text.find_first_of(kListSeparators, start);
        names.push_back(text.substr(start, end - start));
        start = text.find_first_not_of(kListSeparators, end);
    }
    return names;
}

} // namespace Tarnex
