// SPDX-License-Identifier: MIT
// Maps as files.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"
#include "tools/maps/MapSurvey.h"
#include "tools/maps/PngModule.h"

#include <optional>
#include <ostream>
#include <string_view>

namespace Tarnex::Report {

enum class MapFormat : std::uint8_t { Svg, Png, Html };

/// The picture format that a file name stands for by its end, ".svg" or ".png" without regard to
/// case, or nothing.
std::optional<MapFormat> PictureFormatOf(std::string_view path);

/// Bounds of the scale of PNG pictures. [pixels per unit of the SVG; a cell is kCell units]
inline constexpr double kSmallestScale = 0.1;
inline constexpr double kLargestScale = 10.0;

/// How maps are drawn.
struct MapSettings {
    MapLook look = MapLook::Auto; ///< PNG pictures are light unless dark is asked for
    double scale = 1.5;           ///< of PNG pictures, from kSmallestScale to kLargestScale
};

/// Writes the levels, of which `survey` was made, in that format. Throws MapError when they cannot
/// be drawn; whether `out` took the bytes is told by its state.
void WriteMaps(MapLevels& levels,
               const MapSurvey& survey,
               const MapCaption& caption,
               MapFormat format,
               const MapSettings& settings,
               std::ostream& out);

} // namespace Tarnex::Report
