// SPDX-License-Identifier: MIT
// A piece of content as it is placed.
#pragma once

#include <vaultry/catalogue/ContentBase.h>

namespace Tarnex {

/// A copy of a template made for one placement, which may change it freely.
class VAULTRY_API ContentItem : public ContentBase {
public:
    /// True.
    bool Instantiable() const override { return true; }
};

} // namespace Tarnex
