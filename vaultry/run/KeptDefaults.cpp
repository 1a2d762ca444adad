// SPDX-License-Identifier: MIT
#include <vaultry/run/KeptDefaults.h>

namespace Tarnex {

KeptDefaults::KeptDefaults(GenInfo& info_)
    : info(info_), tileSet(info.defTileSet), theme(info.defTheme),
      creatureTheme(info.defCreatureTheme), treasureTheme(info.defTreasureTheme) {}

KeptDefaults::~KeptDefaults() {
    info.defTileSet = tileSet;
    info.defTheme = theme;
    info.defCreatureTheme = creatureTheme;
    info.defTreasureTheme = treasureTheme;
}

} // namespace Tarnex
