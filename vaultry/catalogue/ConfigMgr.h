// SPDX-License-Identifier: MIT
// The store of everything that one configuration file provides.
#pragma once

#include <vaultry/catalogue/ContentMgr.h>
#include <vaultry/catalogue/LayoutTemplate.h>
#include <vaultry/catalogue/Platform.h>
#include <vaultry/catalogue/Theme.h>
#include <vaultry/catalogue/TileSet.h>

#include <vector>

namespace Tarnex {

/// Filled by one load and then only read. Every list keeps document order and may hold several
/// entries of one name; searches by name take the first.
///
/// GenMgr holds the one that a front end reads, as `config`; `GenMgr::Get...` hand out its lists by
/// name. To add to it in memory, append to the lists between two runs: no run changes them.
class VAULTRY_API ConfigMgr : public DiRcObject {
public:
    DiPtr<ContentMgr> contentMgr = MakeDi<ContentMgr>(); ///< never null
    std::vector<DiPtr<Platform>> platformList;           ///< for fixed interiors of caves
    std::vector<DiPtr<LayoutTemplate>> caveLayouts;      ///< top-level templates of the type "Cave"
    std::vector<DiPtr<LayoutTemplate>> roomLayouts;      ///< top-level templates of the type "Room"
    std::vector<DiPtr<Theme>> themes;                    ///< of furniture
    std::vector<DiPtr<Theme>> creatureThemes;            ///< of creatures
    std::vector<DiPtr<Theme>> treasureThemes;            ///< of what lies in containers
    std::vector<DiPtr<TileSet>> caveTileSets;            ///< of the type "Cave"
    std::vector<DiPtr<TileSet>> roomTileSets;            ///< of the type "Room"

    /// Empties the store. Objects that others still hold live on until their last handle goes.
    void Reset() { *this = ConfigMgr(); }
};

} // namespace Tarnex
