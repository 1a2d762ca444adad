// SPDX-License-Identifier: MIT
// What the marks of a picture mean, and where it comes from.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// The legend of the marks that are needed, in lines of at most `width`; needs MapDefinitions and
/// MapStyle in the document. `height` is set to its own.
std::string MapLegend(const LegendNeeds& needs, std::int32_t width, std::int32_t& height);

/// The margin's lines: program, configuration, seed or file, options; no longer than fits `width`.
std::vector<std::string> CaptionLines(const MapCaption& caption, std::int32_t width);

} // namespace Tarnex::Report
