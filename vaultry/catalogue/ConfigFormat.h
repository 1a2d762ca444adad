// SPDX-License-Identifier: MIT
// The grammar of the configuration: what may stand in it, and what it means. Not installed.
#pragma once

#include <vaultry/foundation/Export.h>

#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace Tarnex {

/// What an element is; with some names that depends on what stands around it.
enum class ElementClass {
    Unknown,
    Root,
    TileSet,
    Tile,
    Platform,
    PlatformTile,
    Layout,
    Row,
    Col,
    Theme, ///< of furniture
    CreatureTheme,
    TreasureTheme,
    ThemeItem,
    Content,
};

/// Where an element is recognised. Inside a tile set or platform every other one is a piece of it.
enum class Stands : std::uint8_t {
    Anywhere, ///< inside tile sets and platforms too
    Outside,  ///< of tile sets and platforms
    InLayout,
    InTheme,
};

/// One element that has a name of its own; tiles and pieces of platforms are named freely.
struct ElementFormat {
    std::string_view name;
    ElementClass element = ElementClass::Unknown;
    Stands stands = Stands::Outside;
    /// The words of its Type, or TsType, or of a theme those of its items; empty: any.
    std::span<const std::string_view> types = {};
};

/// How the value of an attribute is read.
enum class ValueKind { Text, List, Whole, Real, Keyword };

/// A word of an attribute and the value that it stands for.
struct Keyword {
    std::string_view word;
    std::int32_t value = 0;
};

/// The values of an attribute that make sense; all others are taken too.
struct Bounds {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    const char* otherwise = ""; ///< what another value means, as a sentence
};

/// One attribute of an element.
struct AttributeFormat {
    std::string_view name;
    ValueKind kind = ValueKind::Text;
    Bounds bounds = {};                     ///< of numbers; of keywords what another word means
    std::span<const Keyword> keywords = {}; ///< of keywords
    double (*initial)() = nullptr;          ///< the number when it is not given; null for no number
};

/// All elements with names of their own.
VAULTRY_API std::span<const ElementFormat> ElementFormats();

/// The format of the element with that name, or null.
VAULTRY_API const ElementFormat* FindElementFormat(std::string_view name);

/// The attributes that the loader reads of such an element; it ignores all others.
VAULTRY_API std::span<const AttributeFormat> AttributesOf(ElementClass element);

/// What is open around an element, at whatever distance.
struct OpenElements {
    bool tileSet = false;
    bool platform = false;
    bool layout = false;
    bool theme = false;
};

/// What an element of that name is there.
ElementClass ClassifyElement(std::string_view name, const OpenElements& open);

} // namespace Tarnex
