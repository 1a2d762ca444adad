// SPDX-License-Identifier: MIT
// What the marks of a picture mean, and where it comes from.
#pragma once

#include "tools/maps/LevelMap.h"

#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// One mark with its meaning; the drawing lies in a cell from (0, 0) to (kCell, kCell).
struct LegendItem {
    std::string_view drawing;
    std::string_view words;
};

/// Which marks need to be explained.
using LegendNeeds = std::bitset<16>;

/// Those that are on the map.
LegendNeeds LegendOf(const LevelMap& map);

/// The marks that are needed.
std::vector<LegendItem> LegendItems(const LegendNeeds& needs);

/// The legend of the marks that are needed, in lines of at most `width`; needs MapDefinitions and
/// MapStyle in the document. `height` is set to its own.
std::string MapLegend(const LegendNeeds& needs, std::int32_t width, std::int32_t& height);

/// The margin's lines: program, configuration, seed or file, options; no longer than fits `width`.
std::vector<std::string> CaptionLines(const MapCaption& caption, std::int32_t width);

} // namespace Tarnex::Report
