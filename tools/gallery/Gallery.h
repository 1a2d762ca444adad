// SPDX-License-Identifier: MIT
// What there is to choose from, in pictures.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/runs/Offer.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// One thing to choose. All text is UTF-8.
struct GalleryCard {
    std::string name;
    std::string words;               ///< what is said of it; may be empty
    std::string option;              ///< that chooses it, as it is typed
    std::optional<LevelMap> map;     ///< a level made with it, if one could be made
    std::vector<std::string> places; ///< what a theme places, a line for each of its items
};

/// Cards under a heading.
struct GallerySection {
    std::string title;
    std::vector<GalleryCard> cards;
};

/// What a configuration that a manager has read offers, each with a small dungeon of one seed where
/// it shows in one: presets, whose own configurations are read, layouts, tile sets and themes.
std::vector<GallerySection> GalleryOf(const Offer& offer, GenMgr& manager);

/// Writes one page that loads nothing and runs no script. `config` is where the configuration is
/// from.
void WriteGallery(const std::vector<GallerySection>& sections,
                  const std::string& config,
                  std::ostream& out);

} // namespace Tarnex::Report
