// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigAttributes.h>

#include <vaultry/catalogue/ConfigFormat.h>
#include <vaultry/catalogue/Vocabulary.h>
#include <vaultry/catalogue/XmlText.h>
#include <vaultry/foundation/Problem.h>
#include <vaultry/foundation/Text.h>

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace Tarnex {

namespace {

template <typename T>
struct AttribRow {
    AttributeFormat format;
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

template <typename T, void (T::*Setter)(const char*)>
void Call(T& object, const std::string& value) {
    (object.*Setter)(value.c_str());
}

template <typename T, auto... Path>
double Initial() {
    T object;
    return static_cast<double>(Field<Path...>(object));
}

template <typename T, auto... Path>
constexpr AttribRow<T> Whole(std::string_view name, Bounds bounds = {}) {
    return {{name, ValueKind::Whole, bounds, {}, Initial<T, Path...>}, SetInt<T, Path...>};
}

template <typename T, auto... Path>
constexpr AttribRow<T> Real(std::string_view name, Bounds bounds = {}) {
    return {{name, ValueKind::Real, bounds, {}, Initial<T, Path...>}, SetReal<T, Path...>};
}

template <typename T, auto... Path>
constexpr AttribRow<T> Text(std::string_view name) {
    return {{name}, SetText<T, Path...>};
}

template <typename T, void (T::*Setter)(const char*) = &T::SetName>
constexpr AttribRow<T> Name(std::string_view name) {
    return {{name}, Call<T, Setter>};
}

constexpr Bounds AtLeast(double least, const char* otherwise) {
    return {least, std::numeric_limits<double>::infinity(), otherwise};
}

constexpr std::array<Keyword, 3> kAreas = {{
    {Tile_HalfSize, AreaHalf},
    {Tile_QuarterSize, AreaQuarter},
    {"FullSize", AreaFull},
}};

constexpr std::array<Keyword, 4> kStackings = {{
    {Stack_No, StackNo},
    {Stack_Bottom, StackBottom},
    {Stack_Top, StackTop},
    {Stack_Yes, StackYes},
}};

std::int32_t
KeywordValue(std::span<const Keyword> words, std::string_view text, std::int32_t otherwise) {
    const auto found = std::ranges::find_if(
        words, [text](const Keyword& known) { return EqualsNoCase(text, known.word); });
    return found == words.end() ? otherwise : found->value;
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

template <auto Getter>
double InitialOfSet() {
    return static_cast<double>((TileSet().*Getter)());
}

constexpr const char* kNoFloor = "No floor is laid.";
constexpr Bounds kTurn = {-360, 360, "Whole turns in it have no effect."};
constexpr const char* kTurned = "It is placed as if it reached the other way.";

// The attributes of one kind of object.
template <typename T>
constexpr std::array<AttribRow<T>, 0> kAttribs = {};

// clang-format off
template <>
constexpr std::array kAttribs<TileSet> = {
    Name<TileSet>(Tile_TsName),
    Name<TileSet, &TileSet::SetType>(Tile_TsType),
    AttribRow<TileSet>{{Tile_WallThickness, ValueKind::Real, AtLeast(0, "What stands along walls is moved into them."), {}, InitialOfSet<&TileSet::GetWallThickness>}, SetWallThickness},
    AttribRow<TileSet>{{Tile_TsSize, ValueKind::Whole, AtLeast(1, "The cells of a level lie one upon the other, or mirrored."), {}, InitialOfSet<&TileSet::GetTileSize>}, SetTileSize},
};

template <>
constexpr std::array kAttribs<Tile> = {
    Whole<Tile, &Tile::zRotate>(Attrib_ZRotate, kTurn),
    Whole<Tile, &Tile::deltaZ>(Attrib_DeltaZ),
    Real<Tile, &Tile::offset, &Di3Point::x>(Attrib_OffsetX),
    Real<Tile, &Tile::offset, &Di3Point::y>(Attrib_OffsetY),
    Real<Tile, &Tile::offset, &Di3Point::z>(Attrib_OffsetZ),
    Real<Tile, &Tile::scale>(Attrib_Scale, {0.5, 2, "The game shows it at the nearer of 0.5 and 2."}),
    AttribRow<Tile>{{Attrib_Area, ValueKind::Keyword, {.otherwise = "The tile is of full size."}, kAreas}, SetArea},
    Text<Tile, &Tile::requiredName>(Attrib_Requires),
};

template <>
constexpr std::array kAttribs<Platform> = {
    Name<Platform>(Attrib_Name),
};

template <>
constexpr std::array kAttribs<PlatformTile> = {
    Text<PlatformTile, &PlatformTile::id>(Attrib_UniqueName),
    Whole<PlatformTile, &PlatformTile::zRotate>(Attrib_ZRotate, kTurn),
    Real<PlatformTile, &PlatformTile::offset, &Di3Point::x>(Attrib_OffsetX),
    Real<PlatformTile, &PlatformTile::offset, &Di3Point::y>(Attrib_OffsetY),
    Real<PlatformTile, &PlatformTile::offset, &Di3Point::z>(Attrib_OffsetZ),
    Real<PlatformTile, &PlatformTile::size, &Di3Point::x>(Attrib_SizeX, AtLeast(0, kNoFloor)),
    Real<PlatformTile, &PlatformTile::size, &Di3Point::y>(Attrib_SizeY, AtLeast(0, kNoFloor)),
    Real<PlatformTile, &PlatformTile::size, &Di3Point::z>(Attrib_SizeZ, AtLeast(0, kTurned)),
};

template <>
constexpr std::array kAttribs<LayoutHead> = {
    Text<LayoutHead, &LayoutHead::name>(Attrib_LayoutName),
    Text<LayoutHead, &LayoutHead::type>(Attrib_Type),
    Whole<LayoutHead, &LayoutHead::width>(Attrib_Width),
    Whole<LayoutHead, &LayoutHead::height>(Attrib_Height),
    Real<LayoutHead, &LayoutHead::offset, &Di3Point::x>(Attrib_OffsetX),
    Real<LayoutHead, &LayoutHead::offset, &Di3Point::y>(Attrib_OffsetY),
    Real<LayoutHead, &LayoutHead::offset, &Di3Point::z>(Attrib_OffsetZ),
};

template <>
constexpr std::array kAttribs<Theme> = {
    Name<Theme>(Attrib_Name),
    Whole<Theme, &Theme::level>(Attrib_Level, AtLeast(0, "Random levels choose it only when no theme fits.")),
};

template <>
constexpr std::array kAttribs<ThemeItem> = {
    Text<ThemeItem, &ThemeItem::type>(Attrib_Type),
    Real<ThemeItem, &ThemeItem::ratio>(Attrib_Ratio, AtLeast(0, "Without a Max the item places nothing.")),
    Real<ThemeItem, &ThemeItem::chance>(Attrib_Chance, {0, 1, "Above 1 it counts as 1, below 0 as 0."}),
    Whole<ThemeItem, &ThemeItem::minimum>(Attrib_Min, AtLeast(ThemeItem::kNotGiven, "It counts as 0.")),
    Whole<ThemeItem, &ThemeItem::maximum>(Attrib_Max),
    AttribRow<ThemeItem>{{Attrib_UniqueName, ValueKind::List}, AddUniqueNames},
};

template <>
constexpr std::array kAttribs<ContentTemplate> = {
    Text<ContentTemplate, &ContentTemplate::uniqueName>(Attrib_UniqueName),
    Text<ContentTemplate, &ContentTemplate::friendlyName>(Attrib_FriendlyName),
    Text<ContentTemplate, &ContentTemplate::modelFile>(Attrib_ModelFile),
    Text<ContentTemplate, &ContentTemplate::subtype>(Attrib_Type),
    Whole<ContentTemplate, &ContentTemplate::maxCount>(Attrib_Max, AtLeast(1, "It counts as 1.")),
    Whole<ContentTemplate, &ContentTemplate::level>(Attrib_Level, AtLeast(0, "It is kept as it is.")),
    Whole<ContentTemplate, &ContentTemplate::value>(Attrib_Value, AtLeast(0, "It counts as worthless.")),
    Whole<ContentTemplate, &ContentTemplate::zRotate>(Attrib_ZRotate, kTurn),
    Real<ContentTemplate, &ContentTemplate::weight>(Attrib_Weight, AtLeast(0, "It makes room in containers instead of taking it.")),
    Real<ContentTemplate, &ContentTemplate::size, &Di3Point::x>(Attrib_SizeX, AtLeast(0, kTurned)),
    Real<ContentTemplate, &ContentTemplate::size, &Di3Point::y>(Attrib_SizeY, AtLeast(0, kTurned)),
    Real<ContentTemplate, &ContentTemplate::size, &Di3Point::z>(Attrib_SizeZ, AtLeast(0, kTurned)),
    Real<ContentTemplate, &ContentTemplate::offset, &Di3Point::x>(Attrib_OffsetX),
    Real<ContentTemplate, &ContentTemplate::offset, &Di3Point::y>(Attrib_OffsetY),
    Real<ContentTemplate, &ContentTemplate::offset, &Di3Point::z>(Attrib_OffsetZ),
    AttribRow<ContentTemplate>{{Attrib_Stack, ValueKind::Keyword, {.otherwise = "It counts as No."}, kStackings}, SetStacking},
};
// clang-format on

template <typename T, std::size_t N>
constexpr std::array<AttributeFormat, N> Formats(const std::array<AttribRow<T>, N>& rows) {
    std::array<AttributeFormat, N> formats{};
    for (std::size_t i = 0; i < N; ++i) {
        formats[i] = rows[i].format;
    }
    return formats;
}

template <typename T>
constexpr auto kFormats = Formats(kAttribs<T>);

} // namespace

template <typename T>
void ApplyAttributes(const xercesc::Attributes& attrs, T& object) {
    std::string name;
    std::string value;
    for (XMLSize_t i = 0; i < attrs.getLength(); ++i) {
        NarrowInto(name, attrs.getQName(i));
        for (const AttribRow<T>& row : kAttribs<T>) {
            if (EqualsNoCase(name, row.format.name)) {
                NarrowInto(value, attrs.getValue(i));
                row.apply(object, value);
                break;
            }
        }
    }
}

template void ApplyAttributes(const xercesc::Attributes& attrs, TileSet& tileSet);
template void ApplyAttributes(const xercesc::Attributes& attrs, Tile& tile);
template void ApplyAttributes(const xercesc::Attributes& attrs, Platform& platform);
template void ApplyAttributes(const xercesc::Attributes& attrs, PlatformTile& piece);
template void ApplyAttributes(const xercesc::Attributes& attrs, LayoutHead& head);
template void ApplyAttributes(const xercesc::Attributes& attrs, Theme& theme);
template void ApplyAttributes(const xercesc::Attributes& attrs, ThemeItem& item);
template void ApplyAttributes(const xercesc::Attributes& attrs, ContentTemplate& content);

std::span<const AttributeFormat> AttributesOf(ElementClass element) {
    switch (element) {
    case ElementClass::TileSet:
        return kFormats<TileSet>;
    case ElementClass::Tile:
        return kFormats<Tile>;
    case ElementClass::Platform:
        return kFormats<Platform>;
    case ElementClass::PlatformTile:
        return kFormats<PlatformTile>;
    case ElementClass::Layout:
        return kFormats<LayoutHead>;
    case ElementClass::Theme:
    case ElementClass::CreatureTheme:
    case ElementClass::TreasureTheme:
        return kFormats<Theme>;
    case ElementClass::ThemeItem:
        return kFormats<ThemeItem>;
    case ElementClass::Content:
        return kFormats<ContentTemplate>;
    default:
        return {};
    }
}

} // namespace Tarnex
