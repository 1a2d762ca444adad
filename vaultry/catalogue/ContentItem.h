// SPDX-License-Identifier: MIT
// A piece of content as it is placed.
#pragma once

#include <vaultry/catalogue/ContentBase.h>

namespace Tarnex {

/// A copy of a template made for one placement, which may change it freely. Its `offset` and
/// `zRotate` are where it stands in its cell, pushed to the wall and turned with it; `uniqueName`
/// of a container is the identifier of the record made for it.
class VAULTRY_API ContentItem : public ContentBase {
public:
    /// True.
    bool Instantiable() const override { return true; }
};

} // namespace Tarnex
