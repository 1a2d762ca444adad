// SPDX-License-Identifier: MIT
// A piece of content as the configuration describes it.
#pragma once

#include <vaultry/catalogue/ContentBase.h>

namespace Tarnex {

/// A piece of content as the configuration describes it. Held by the lists of ContentMgr, and not
/// changed once it is there: all placements copy it.
class VAULTRY_API ContentTemplate : public ContentBase {
public:
    /// True: an item is made of it first; see ContentMgr::CvtToItem.
    bool Instantiable() const override { return true; }
};

} // namespace Tarnex
