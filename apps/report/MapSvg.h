// SPDX-License-Identifier: MIT
// Maps as pictures.
#pragma once

#include "apps/report/LevelMap.h"

#include <ostream>
#include <vector>

namespace Tarnex::Report {

/// Writes the maps as one SVG document: a panel for each level, one below the other, with a legend.
/// Hovering over a cell names what is there. Screens that ask for dark colours get them; print is
/// light.
void WriteSvg(const std::vector<LevelMap>& maps, const MapCaption& caption, std::ostream& out);

} // namespace Tarnex::Report
