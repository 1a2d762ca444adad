// SPDX-License-Identifier: MIT
// One level as a piece of a picture.
#pragma once

#include "tools/maps/LevelMap.h"
#include "tools/maps/MapStyle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tarnex::Report {

/// A part of the drawing that can be shown by itself: the group of class "layer-NAME".
struct MapLayer {
    std::string_view name;
    std::string_view words;
};

/// Those that something is on, in the order in which they are offered.
std::vector<MapLayer> MapLayers(const LegendNeeds& needs);

/// The size of a panel on the picture, margins included.
std::int32_t PanelWidth(const MapOutline& map);
std::int32_t PanelHeight(const MapOutline& map);

/// The drawing of a level from the north-western corner of its grid: grid, the level in layers,
/// scale. Every cell has a title for hovering, unless `listed` is null: pictures in pixels need
/// none. On a page, where the level's number from 1 is given, the rooms lead to their rows in the
/// table. Needs MapDefinitions and MapStyle in the document.
std::string MapDrawing(const LevelMap& map, ListedItems* listed, std::size_t pageLevel = 0);

/// How far a drawing reaches beyond its grid: at both sides, and below with the scale.
inline constexpr std::int32_t kPanelMargin = 64;
inline constexpr std::int32_t kPanelFoot = 56;

/// An arrow that points north, with its letter, 30 units high.
std::string NorthArrow(double x, double y);

/// The drawing with its title and north arrow.
std::string MapPanel(const LevelMap& map, ListedItems* listed);

} // namespace Tarnex::Report
