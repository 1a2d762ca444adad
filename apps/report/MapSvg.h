// SPDX-License-Identifier: MIT
// Maps as pictures.
#pragma once

#include "apps/report/LevelMap.h"
#include "apps/report/MapStyle.h"

#include <ostream>
#include <string>
#include <vector>

namespace Tarnex::Report {

/// The size of a picture, in its units.
struct MapExtent {
    std::int32_t width;
    std::int32_t height;
};

/// Writes the maps as one SVG document: a panel for each level and a legend below all. Hovering
/// over a cell names what is there. MapLook::Auto follows the screen; print is light.
MapExtent WriteSvg(const std::vector<LevelMap>& maps,
                   const MapCaption& caption,
                   MapLook look,
                   std::ostream& out);

/// One level alone as an SVG document, without legend and caption.
std::string LevelSvg(const LevelMap& map, MapLook look);

} // namespace Tarnex::Report
