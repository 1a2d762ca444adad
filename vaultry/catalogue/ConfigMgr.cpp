// SPDX-License-Identifier: MIT
#include <vaultry/catalogue/ConfigMgr.h>

namespace Tarnex {

ConfigMgr::ConfigMgr() : contentMgr(MakeDi<ContentMgr>()) {}

void ConfigMgr::Reset() {
    contentMgr = MakeDi<ContentMgr>();
    platformList.clear();
    caveLayouts.clear();
    roomLayouts.clear();
    themes.clear();
    creatureThemes.clear();
    treasureThemes.clear();
    caveTileSets.clear();
    roomTileSets.clear();
}

} // namespace Tarnex
