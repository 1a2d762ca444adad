// SPDX-License-Identifier: MIT
// The decisions of content placement: how many, how much, where inside an element.
#pragma once

#include <vaultry/catalogue/ContentItem.h>
#include <vaultry/catalogue/ThemeItem.h>
#include <vaultry/catalogue/TileSet.h>
#include <vaultry/layout/GridElmt.h>
#include <vaultry/output/Ref.h>

#include <cstdint>

namespace Tarnex {

/// Piles of this many and more whose worth is not plausible are brought down to one that is.
inline constexpr std::int32_t kLargePile = 6;

/// What such a pile is worth at most. [gold pieces]
inline constexpr std::int64_t kGreatestWorth = 5000;

/// How many placements a theme item makes.
struct PlacementCounts {
    std::int64_t minimum; ///< made without the chance test
    std::int64_t maximum; ///< made at most, by chance beyond the minimum
};

/// The placements of an item for `count` candidate elements or containers.
PlacementCounts CountPlacements(const ThemeItem& item, std::uint32_t count);

/// The same for treasure, where a maximum that is not given never lies below the minimum.
PlacementCounts CountTreasure(const ThemeItem& item, std::uint32_t count);

/// Moves and turns `item` to its place in an element with tiles: on the floor or the platform,
/// against the wall or into the corner that the element's first tile makes.
void FitIntoElement(ContentItem& item, const GridElmt& elmt, const TileSet& tileSet);

/// How far FitIntoElement turns what it moves, whose back is to the north at first: with it to the
/// wall. 0 where there is none. [degrees, clockwise]
VAULTRY_API std::int32_t TurnIn(const GridElmt& elmt);

/// What a reference to the item stands for.
VAULTRY_API RefSort SortOf(const ContentItem& item);

} // namespace Tarnex
