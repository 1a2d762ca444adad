// SPDX-License-Identifier: MIT
// The attributes of each element as rows of name and setter. Not installed.
#pragma once

#include <vaultry/catalogue/ConfigMgr.h>

#include <xercesc/sax2/Attributes.hpp>

#include <string>

namespace Tarnex {

/// The attributes of a layout, which must be known before its template can be made.
struct LayoutHead {
    std::string name;
    std::string type;
    std::int32_t width = 5;
    std::int32_t height = 5;
    Di3Point offset;
};

// Each applies the attributes in document order and ignores those it does not know.
void ApplyAttributes(const xercesc::Attributes& attrs, TileSet& tileSet);
void ApplyAttributes(const xercesc::Attributes& attrs, Tile& tile);
void ApplyAttributes(const xercesc::Attributes& attrs, Platform& platform);
void ApplyAttributes(const xercesc::Attributes& attrs, PlatformTile& piece);
void ApplyAttributes(const xercesc::Attributes& attrs, LayoutHead& head);
void ApplyAttributes(const xercesc::Attributes& attrs, Theme& theme);
void ApplyAttributes(const xercesc::Attributes& attrs, ThemeItem& item);
void ApplyAttributes(const xercesc::Attributes& attrs, ContentTemplate& content);

} // namespace Tarnex
