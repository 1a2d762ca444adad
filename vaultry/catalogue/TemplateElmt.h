// SPDX-License-Identifier: MIT
// One cell of a layout template.
#pragma once

#include <vaultry/catalogue/TileKind.h>
#include <vaultry/foundation/DiRcObject.h>

#include <vector>

namespace Tarnex {

/// The tile names of one cell, in the order written. They are resolved against a tile set only when
/// a layout is made.
struct VAULTRY_API TemplateElmt : public DiRcObject {
    /// The first decides what the cell is. A name that the tile set lacks is logged and skipped
    /// when a layout is made; the cell keeps the others.
    std::vector<TileKindName> tileNames;
};

} // namespace Tarnex
