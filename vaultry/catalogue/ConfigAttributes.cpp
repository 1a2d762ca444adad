// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigAttributes.h>

#include <vaultry/catalogue/ConfigFormat.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Problem.h>
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
    ValueKind kind;
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
        ReportProblem({ProblemKind::UnusualTileSize, {std::to_string(size), tileSet.GetName()}});
    }
    tileSet.SetTileSize(size);
}

// clang-format off
constexpr std::array kTileSetAttribs = {
    AttribRow<TileSet>{Tile_TsName,        SetName<TileSet>, ValueKind::Text},
    AttribRow<TileSet>{Tile_TsType,        SetTileSetType, ValueKind::Text},
    AttribRow<TileSet>{Tile_WallThickness, SetWallThickness, ValueKind::Real},
    AttribRow<TileSet>{Tile_TsSize,        SetTileSize, ValueKind::Whole},
};

constexpr std::array kTileAttribs = {
    AttribRow<Tile>{Attrib_ZRotate,  SetInt<Tile, &Tile::zRotate>, ValueKind::Whole},
    AttribRow<Tile>{Attrib_DeltaZ,   SetInt<Tile, &Tile::deltaZ>, ValueKind::Whole},
    AttribRow<Tile>{Attrib_OffsetX,  SetReal<Tile, &Tile::offset, &Di3Point::x>, ValueKind::Real},
    AttribRow<Tile>{Attrib_OffsetY,  SetReal<Tile, &Tile::offset, &Di3Point::y>, ValueKind::Real},
    AttribRow<Tile>{Attrib_OffsetZ,  SetReal<Tile, &Tile::offset, &Di3Point::z>, ValueKind::Real},
    AttribRow<Tile>{Attrib_Scale,    SetReal<Tile, &Tile::scale>, ValueKind::Real},
    AttribRow<Tile>{Attrib_Area,     SetArea, ValueKind::Area},
    AttribRow<Tile>{Attrib_Requires, SetText<Tile, &Tile::requiredName>, ValueKind::Text},
};

constexpr std::array kPlatformAttribs = {
    AttribRow<Platform>{Attrib_Name, SetName<Platform>, ValueKind::Text},
};

constexpr std::array kPlatformTileAttribs = {
    AttribRow<PlatformTile>{Attrib_UniqueName, SetText<PlatformTile, &PlatformTile::id>, ValueKind::Text},
    AttribRow<PlatformTile>{Attrib_ZRotate,    SetInt<PlatformTile, &PlatformTile::zRotate>, ValueKind::Whole},
    AttribRow<PlatformTile>{Attrib_OffsetX,    SetReal<PlatformTile, &PlatformTile::offset, &Di3Point::x>, ValueKind::Real},
    AttribRow<PlatformTile>{Attrib_OffsetY,    SetReal<PlatformTile, &PlatformTile::offset, &Di3Point::y>, ValueKind::Real},
    AttribRow<PlatformTile>{Attrib_OffsetZ,    SetReal<PlatformTile, &PlatformTile::offset, &Di3Point::z>, ValueKind::Real},
    AttribRow<PlatformTile>{Attrib_SizeX,      SetReal<PlatformTile, &PlatformTile::size, &Di3Point::x>, ValueKind::Real},
    AttribRow<PlatformTile>{Attrib_SizeY,      SetReal<PlatformTile, &PlatformTile::size, &Di3Point::y>, ValueKind::Real},
    AttribRow<PlatformTile>{Attrib_SizeZ,      SetReal<PlatformTile, &PlatformTile::size, &Di3Point::z>, ValueKind::Real},
};

constexpr std::array kLayoutAttribs = {
    AttribRow<LayoutHead>{Attrib_LayoutName, SetText<LayoutHead, &LayoutHead::name>, ValueKind::Text},
    AttribRow<LayoutHead>{Attrib_Type,       SetText<LayoutHead, &LayoutHead::type>, ValueKind::Text},
    AttribRow<LayoutHead>{Attrib_Width,      SetInt<LayoutHead, &LayoutHead::width>, ValueKind::Whole},
    AttribRow<LayoutHead>{Attrib_Height,     SetInt<LayoutHead, &LayoutHead::height>, ValueKind::Whole},
    AttribRow<LayoutHead>{Attrib_OffsetX,    SetReal<LayoutHead, &LayoutHead::offset, &Di3Point::x>, ValueKind::Real},
    AttribRow<LayoutHead>{Attrib_OffsetY,    SetReal<LayoutHead, &LayoutHead::offset, &Di3Point::y>, ValueKind::Real},
    AttribRow<LayoutHead>{Attrib_OffsetZ,    SetReal<LayoutHead, &LayoutHead::offset, &Di3Point::z>, ValueKind::Real},
};

constexpr std::array kThemeAttribs = {
    AttribRow<Theme>{Attrib_Name,  SetName<Theme>, ValueKind::Text},
    AttribRow<Theme>{Attrib_Level, SetInt<Theme, &Theme::level>, ValueKind::Whole},
};

constexpr std::array kThemeItemAttribs = {
    AttribRow<ThemeItem>{Attrib_Type,       SetText<ThemeItem, &ThemeItem::type>, ValueKind::Text},
    AttribRow<ThemeItem>{Attrib_Ratio,      SetReal<ThemeItem, &ThemeItem::ratio>, ValueKind::Real},
    AttribRow<ThemeItem>{Attrib_Chance,     SetReal<ThemeItem, &ThemeItem::chance>, ValueKind::Real},
    AttribRow<ThemeItem>{Attrib_Min,        SetInt<ThemeItem, &ThemeItem::minimum>, ValueKind::Whole},
    AttribRow<ThemeItem>{Attrib_Max,        SetInt<ThemeItem, &ThemeItem::maximum>, ValueKind::Whole},
    AttribRow<ThemeItem>{Attrib_UniqueName, AddUniqueNames, ValueKind::List},
};

constexpr std::array kContentAttribs = {
    AttribRow<ContentTemplate>{Attrib_UniqueName,   SetText<ContentTemplate, &ContentTemplate::uniqueName>, ValueKind::Text},
    AttribRow<ContentTemplate>{Attrib_FriendlyName, SetText<ContentTemplate, &ContentTemplate::friendlyName>, ValueKind::Text},
    AttribRow<ContentTemplate>{Attrib_ModelFile,    SetText<ContentTemplate, &ContentTemplate::modelFile>, ValueKind::Text},
    AttribRow<ContentTemplate>{Attrib_Type,         SetText<ContentTemplate, &ContentTemplate::subtype>, ValueKind::Text},
    AttribRow<ContentTemplate>{Attrib_Max,          SetInt<ContentTemplate, &ContentTemplate::maxCount>, ValueKind::Whole},
    AttribRow<ContentTemplate>{Attrib_Level,        SetInt<ContentTemplate, &ContentTemplate::level>, ValueKind::Whole},
    AttribRow<ContentTemplate>{Attrib_Value,        SetInt<ContentTemplate, &ContentTemplate::value>, ValueKind::Whole},
    AttribRow<ContentTemplate>{Attrib_ZRotate,      SetInt<ContentTemplate, &ContentTemplate::zRotate>, ValueKind::Whole},
    AttribRow<ContentTemplate>{Attrib_Weight,       SetReal<ContentTemplate, &ContentTemplate::weight>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_SizeX,        SetReal<ContentTemplate, &ContentTemplate::size, &Di3Point::x>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_SizeY,        SetReal<ContentTemplate, &ContentTemplate::size, &Di3Point::y>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_SizeZ,        SetReal<ContentTemplate, &ContentTemplate::size, &Di3Point::z>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_OffsetX,      SetReal<ContentTemplate, &ContentTemplate::offset, &Di3Point::x>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_OffsetY,      SetReal<ContentTemplate, &ContentTemplate::offset, &Di3Point::y>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_OffsetZ,      SetReal<ContentTemplate, &ContentTemplate::offset, &Di3Point::z>, ValueKind::Real},
    AttribRow<ContentTemplate>{Attrib_Stack,        SetStacking, ValueKind::Stacking},
};
// clang-format on

template <typename T, std::size_t N>
constexpr std::array<AttributeFormat, N> Formats(const std::array<AttribRow<T>, N>& rows) {
    std::array<AttributeFormat, N> formats{};
    for (std::size_t i = 0; i < N; ++i) {
        formats[i] = {rows[i].name, rows[i].kind};
    }
    return formats;
}

constexpr auto kTileSetFormats = Formats(kTileSetAttribs);
constexpr auto kTileFormats = Formats(kTileAttribs);
constexpr auto kPlatformFormats = Formats(kPlatformAttribs);
constexpr auto kPlatformTileFormats = Formats(kPlatformTileAttribs);
constexpr auto kLayoutFormats = Formats(kLayoutAttribs);
constexpr auto kThemeFormats = Formats(kThemeAttribs);
constexpr auto kThemeItemFormats = Formats(kThemeItemAttribs);
constexpr auto kContentFormats = Formats(kContentAttribs);

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

std::span<const AttributeFormat> AttributesOf(ElementClass element) {
    switch (element) {
    case ElementClass::TileSet:
        return kTileSetFormats;
    case ElementClass::Tile:
        return kTileFormats;
    case ElementClass::Platform:
        return kPlatformFormats;
    case ElementClass::PlatformTile:
        return kPlatformTileFormats;
    case ElementClass::Layout:
        return kLayoutFormats;
    case ElementClass::Theme:
        return kThemeFormats;
    case ElementClass::ThemeItem:
        return kThemeItemFormats;
    case ElementClass::Content:
        return kContentFormats;
    default:
        return {};
    }
}

} // namespace Tarnex
