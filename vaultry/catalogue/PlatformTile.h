// SPDX-License-Identifier: MIT
// One piece of a platform kit.
#pragma once

#include <vaultry/foundation/Di3Point.h>
#include <vaultry/foundation/DiRcObject.h>

#include <string>

namespace Tarnex {

/// A floor slab, beam or stair of a platform. Copied for each placement. Numbers are 0 and texts
/// empty until they are set. Floors are laid side by side by their size, those larger than the cell
/// not at all.
struct VAULTRY_API PlatformTile : public DiRcObject {
    std::string id;           ///< object identifier written into the plug-in
    std::string kindName;     ///< "Floor", "Beam", "StairsUpN", ...
    std::int32_t zRotate = 0; ///< clockwise from above [degrees, whole]
    /// Extent [world units]. With a floor of negative width or depth none is laid; a negative
    /// height puts the piece as if it reached the other way.
    Di3Point size;
    Di3Point offset; ///< from the cell's reference point [world units]
};

} // namespace Tarnex
