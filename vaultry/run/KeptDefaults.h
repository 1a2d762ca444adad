// SPDX-License-Identifier: MIT
// Runs that do not change the next one.
#pragma once

#include <vaultry/gen/GenInfo.h>

namespace Tarnex {

/// Puts back, when it goes, what a run leaves in its context for the next: the tile set and the
/// themes that it chose by chance. Runs between which that happens each give what they give alone.
class VAULTRY_API KeptDefaults {
public:
    /// `info` is not owned and must outlive the object.
    explicit KeptDefaults(GenInfo& info);
    ~KeptDefaults();
    KeptDefaults(const KeptDefaults&) = delete;
    KeptDefaults& operator=(const KeptDefaults&) = delete;

private:
    GenInfo& info;
    DiPtr<TileSet> tileSet;
    DiPtr<Theme> theme;
    DiPtr<Theme> creatureTheme;
    DiPtr<Theme> treasureTheme;
};

} // namespace Tarnex
