// SPDX-License-Identifier: MIT
// What the loader takes of each element. Not installed.
#pragma once

#include <vaultry/foundation/Export.h>

#include <span>
#include <string_view>
#include <vector>

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
    Theme, ///< of any of the three kinds
    ThemeItem,
    Content,
};

/// How the value of an attribute is read.
enum class ValueKind { Text, List, Whole, Real, Area, Stacking };

/// One attribute of an element.
struct AttributeFormat {
    std::string_view name;
    ValueKind kind = ValueKind::Text;
};

/// The attributes that the loader reads of such an element; it ignores all others.
VAULTRY_API std::span<const AttributeFormat> AttributesOf(ElementClass element);

/// What an element of that name is inside another, which is Unknown for the root.
VAULTRY_API ElementClass ClassifyElement(std::string_view name, ElementClass parent);

/// The names of all elements but tiles and pieces of platforms.
VAULTRY_API std::vector<std::string_view> ElementNames();

} // namespace Tarnex
